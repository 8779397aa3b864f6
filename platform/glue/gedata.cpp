#include "c4d_gedata.h"
#include "platform/glue/handles.h"
#include "platform/glue/numbers.h"

namespace {

// The value lies in the GeData itself and is owned by nobody.
Bool IsPlain(LONG type) {
    return type == DA_NIL || type == DA_LONG || type == DA_REAL || type == DA_LLONG || type == DA_VOID;
}

}  // namespace

// Fills a raw GeData with a deep copy of the value behind the pointer.
void GeData::CopyFrom(LONG type, const void *value) {
    type_ = DA_NIL;
    value_.whole64 = 0;
    if (!host_table || !value) return;
    TableData source;
    source.type = type;
    source.value.pointer = const_cast<void *>(value);
    host_table->data->copy(ToTable(this), &source, NULL);
}

GeData::GeData(const Vector &value) { CopyFrom(DA_VECTOR, &value); }
GeData::GeData(const String &value) { CopyFrom(DA_STRING, &value); }
GeData::GeData(const Filename &value) { CopyFrom(DA_FILENAME, &value); }
GeData::GeData(const BaseTime &value) { CopyFrom(DA_TIME, &value); }
GeData::GeData(const BaseContainer &value) { CopyFrom(DA_CONTAINER, &value); }
GeData::GeData(BaseList2D *value) : GeData() {
    if (host_table) host_table->data->set_link(ToTable(this), ToHost(value));
}

GeData::GeData(const GeData &other) : type_(other.type_), value_(other.value_) {
    if (!IsPlain(type_)) CopyFrom(other.type_, other.value_.pointer);
}

GeData::~GeData() {
    if (!IsPlain(type_)) Free();
}

GeData &GeData::operator=(const GeData &other) {
    if (this == &other) return *this;
    // The copy comes first: `other` may lie inside this value.
    GeData copy(other);
    const LONG type = copy.type_;
    copy.type_ = type_;
    type_ = type;
    Swap(copy.value_, value_);
    return *this;
}

Bool GeData::operator==(const GeData &other) const {
    if (type_ == DA_LONG && other.type_ == DA_LONG) return value_.whole == other.value_.whole;
    if (type_ == DA_REAL && other.type_ == DA_REAL) return value_.real == other.value_.real;
    return host_table && host_table->data->equal(ToTable(this), ToTable(&other));
}

LONG GeData::GetLong() const {
    switch (type_) {
        case DA_LONG:
            return value_.whole;
        case DA_REAL:
            return RealToWhole(value_.real);
        case DA_LLONG:
            return WholeFrom64(value_.whole64);
        default:
            return 0;
    }
}

LLONG GeData::GetLLong() const {
    switch (type_) {
        case DA_LONG:
            return value_.whole;
        case DA_REAL:
            return RealToWhole64(value_.real);
        case DA_LLONG:
            return value_.whole64;
        default:
            return 0;
    }
}

Real GeData::GetReal() const {
    switch (type_) {
        case DA_LONG:
            return static_cast<Real>(value_.whole);
        case DA_REAL:
            return value_.real;
        case DA_LLONG:
            return static_cast<Real>(value_.whole64);
        default:
            return 0.0;
    }
}

const Vector &GeData::GetVector() const {
    static const Vector none;
    return type_ == DA_VECTOR ? *value_.vector : none;
}

const String &GeData::GetString() const {
    static const String none;
    return type_ == DA_STRING ? *value_.string : none;
}

const Filename &GeData::GetFilename() const {
    static const Filename none;
    return type_ == DA_FILENAME ? *value_.filename : none;
}

const BaseTime &GeData::GetTime() const {
    static const BaseTime none;
    return type_ == DA_TIME ? *value_.time : none;
}

BaseList2D *GeData::GetLink(const BaseDocument *doc, LONG instanceof) const {
    const BaseLink *link = GetBaseLink();
    return link ? link->GetLink(doc, instanceof) : NULL;
}

void GeData::Free() {
    if (!IsPlain(type_) && host_table) host_table->data->release(ToTable(this));
    type_ = DA_NIL;
    value_.whole64 = 0;
}

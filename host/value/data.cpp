#include "host/value/data.h"

#include <cmath>
#include <cstring>
#include <limits>
#include <memory>
#include <new>
#include <utility>

#include "host/value/container.h"
#include "host/value/custom.h"
#include "host/value/link.h"
#include "host/value/memory.h"
#include "host/value/text.h"

namespace host {

namespace {

constexpr TableData kEmptyData = {kDataNil, {0}};

// A payload on the host's heap, where either side of the border can release it.
template <typename Payload>
Payload *NewPayload(const Payload &value) {
    void *memory = Allocate(sizeof(Payload));
    if (memory == nullptr) throw std::bad_alloc();
    return new (memory) Payload(value);
}

struct ReleaseString {
    void operator()(TableString *string) const {
        ReleaseText(string);
        Release(string);
    }
};
struct ReleaseFilename {
    void operator()(TableFilename *name) const {
        ReleaseText(&name->path);
        Release(name);
    }
};
struct ReleaseContainer {
    void operator()(TableContainer *container) const {
        static_cast<Container *>(container)->~Container();
        Release(container);
    }
};
using StringBox = std::unique_ptr<TableString, ReleaseString>;
using FilenameBox = std::unique_ptr<TableFilename, ReleaseFilename>;
using ContainerBox = std::unique_ptr<TableContainer, ReleaseContainer>;

StringBox NewString() { return StringBox(NewPayload(TableString{})); }
FilenameBox NewFilename() { return FilenameBox(NewPayload(TableFilename{})); }

ContainerBox NewContainer() {
    void *memory = Allocate(sizeof(Container));
    if (memory == nullptr) throw std::bad_alloc();
    return ContainerBox(new (memory) Container);
}

bool IsCustom(std::int32_t type) { return type > kDataCustom; }

bool SameNumber(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }

bool SameVector(const Vector &a, const Vector &b) {
    return SameNumber(a.x, b.x) && SameNumber(a.y, b.y) && SameNumber(a.z, b.z);
}

bool SameMatrix(const Matrix &a, const Matrix &b) {
    return SameVector(a.off, b.off) && SameVector(a.v1, b.v1) && SameVector(a.v2, b.v2) && SameVector(a.v3, b.v3);
}

bool SameText(const TableString &a, const TableString &b) {
    if (a.length != b.length) return false;
    return a.length <= 0 || std::memcmp(a.text, b.text, static_cast<std::size_t>(a.length) * sizeof(*a.text)) == 0;
}

template <typename Payload, typename Same>
bool SamePayload(const Payload *a, const Payload *b, Same same) {
    return a == b || (a != nullptr && b != nullptr && same(*a, *b));
}

}  // namespace

std::int32_t TruncatedWhole(double value) {
    constexpr double kLeast = std::numeric_limits<std::int32_t>::min(),
                     kMost = std::numeric_limits<std::int32_t>::max();
    if (std::isnan(value)) return 0;
    if (value <= kLeast) return std::numeric_limits<std::int32_t>::min();
    if (value >= kMost) return std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(value);
}

void CopyData(TableData *destination, const TableData &source, HostAliasTrans *translation) {
    *destination = kEmptyData;
    TableData copy = source;
    switch (source.type) {
        case kDataNil:
        case kDataVoid:
        case kDataWhole:
        case kDataReal:
        case kDataWhole64:
            break;
        case kDataTime:
            if (source.value.time == nullptr) return;
            copy.value.time = NewPayload(*source.value.time);
            break;
        case kDataVector:
            if (source.value.vector == nullptr) return;
            copy.value.vector = NewPayload(*source.value.vector);
            break;
        case kDataMatrix:
            if (source.value.matrix == nullptr) return;
            copy.value.matrix = NewPayload(*source.value.matrix);
            break;
        case kDataString: {
            StringBox box = NewString();
            if (source.value.string != nullptr) Assign(box.get(), *source.value.string);
            copy.value.string = box.release();
            break;
        }
        case kDataFilename: {
            FilenameBox box = NewFilename();
            if (source.value.filename != nullptr) Assign(&box->path, source.value.filename->path);
            copy.value.filename = box.release();
            break;
        }
        case kDataContainer: {
            ContainerBox box = NewContainer();
            if (source.value.container != nullptr)
                AsContainer(box.get()).CopyFrom(*source.value.container, translation);
            copy.value.container = box.release();
            break;
        }
        case kDataLink:
            copy.value.link = CloneLink(source.value.link, translation);
            break;
        default:
            // A type that the host does not know cannot be owned: it arrives empty.
            if (!IsCustom(source.type) || source.value.custom == nullptr) return;
            copy.value.custom = source.value.custom->Clone();
            break;
    }
    *destination = copy;
}

void ReleaseData(TableData *data) {
    const TableData old = *data;
    *data = kEmptyData;
    switch (old.type) {
        case kDataNil:
        case kDataVoid:
        case kDataWhole:
        case kDataReal:
        case kDataWhole64:
            break;
        case kDataTime:
        case kDataVector:
        case kDataMatrix:
            Release(old.value.pointer);
            break;
        case kDataString:
            StringBox(old.value.string).reset();
            break;
        case kDataFilename:
            FilenameBox(old.value.filename).reset();
            break;
        case kDataContainer:
            ContainerBox(old.value.container).reset();
            break;
        case kDataLink:
            ReleaseLink(old.value.link);
            break;
        default:
            if (IsCustom(old.type)) delete old.value.custom;
            break;
    }
}

bool EqualData(const TableData &a, const TableData &b) {
    if (a.type != b.type) return false;
    switch (a.type) {
        case kDataNil:
            return true;
        case kDataVoid:
            return a.value.pointer == b.value.pointer;
        case kDataWhole:
            return a.value.whole == b.value.whole;
        case kDataWhole64:
            return a.value.whole64 == b.value.whole64;
        case kDataReal:
            return SameNumber(a.value.real, b.value.real);
        case kDataTime:
            return SamePayload(a.value.time, b.value.time, SameTime);
        case kDataVector:
            return SamePayload(a.value.vector, b.value.vector, SameVector);
        case kDataMatrix:
            return SamePayload(a.value.matrix, b.value.matrix, SameMatrix);
        case kDataString:
            return SamePayload(a.value.string, b.value.string, SameText);
        case kDataFilename:
            return SamePayload(a.value.filename, b.value.filename,
                               [](const TableFilename &x, const TableFilename &y) { return SameText(x.path, y.path); });
        case kDataContainer:
            return SamePayload(a.value.container, b.value.container,
                               [](const auto &x, const auto &y) { return AsContainer(&x) == AsContainer(&y); });
        case kDataLink:
            return SamePayload(a.value.link, b.value.link,
                               [](const HostLink &x, const HostLink &y) { return x.goal == y.goal; });
        default:
            return IsCustom(a.type) &&
                   SamePayload(a.value.custom, b.value.custom,
                               [](const HostCustomData &x, const HostCustomData &y) { return x.Equals(y); });
    }
}

bool SetDefaultData(TableData *data, std::int32_t type) {
    TableData value = kEmptyData;
    value.type = type;
    switch (type) {
        case kDataNil:
        case kDataVoid:
        case kDataWhole:
        case kDataReal:
        case kDataWhole64:
            value.value.whole64 = 0;
            break;
        case kDataTime:
            value.value.time = NewPayload(Time{0, 1});
            break;
        case kDataVector:
            value.value.vector = NewPayload(Vector{0, 0, 0});
            break;
        case kDataMatrix:
            value.value.matrix = NewPayload(kIdentity);
            break;
        case kDataString:
            value.value.string = NewString().release();
            break;
        case kDataFilename:
            value.value.filename = NewFilename().release();
            break;
        case kDataContainer:
            value.value.container = NewContainer().release();
            break;
        case kDataLink:
            value.value.link = CreateLink();
            break;
        default:
            value.value.custom = CreateCustomData(type);
            if (value.value.custom == nullptr) return false;
            break;
    }
    ReleaseData(data);
    *data = value;
    return true;
}

std::int32_t WholeOf(const TableData &data) {
    switch (data.type) {
        case kDataWhole:
            return data.value.whole;
        case kDataWhole64:
            return TruncatedWhole(static_cast<double>(data.value.whole64));
        case kDataReal:
            return TruncatedWhole(data.value.real);
        default:
            return 0;
    }
}

double RealOf(const TableData &data) {
    switch (data.type) {
        case kDataWhole:
            return data.value.whole;
        case kDataWhole64:
            return static_cast<double>(data.value.whole64);
        case kDataReal:
            return data.value.real;
        default:
            return 0;
    }
}

Data::Data() : TableData(kEmptyData) {}

Data::Data(std::int32_t whole) : Data() {
    type = kDataWhole;
    value.whole = whole;
}

Data::Data(double real) : Data() {
    type = kDataReal;
    value.real = real;
}

Data::Data(const Vector &vector) : Data() {
    value.vector = NewPayload(vector);
    type = kDataVector;
}

Data::Data(const Matrix &matrix) : Data() {
    value.matrix = NewPayload(matrix);
    type = kDataMatrix;
}

Data::Data(const Time &time) : Data() {
    value.time = NewPayload(time);
    type = kDataTime;
}

Data::Data(std::string_view utf8) : Data() {
    StringBox box = NewString();
    Assign(box.get(), utf8);
    value.string = box.release();
    type = kDataString;
}

Data::Data(const Container &container) : Data() {
    ContainerBox box = NewContainer();
    AsContainer(box.get()) = container;
    value.container = box.release();
    type = kDataContainer;
}

Data Data::Filename(std::string_view utf8_path) {
    FilenameBox box = NewFilename();
    Assign(&box->path, utf8_path);
    Data data;
    data.value.filename = box.release();
    data.type = kDataFilename;
    return data;
}

Data Data::LinkTo(HostAtom *target) {
    Data data;
    data.value.link = CreateLink();
    data.type = kDataLink;
    SetLink(data.value.link, target);
    return data;
}

Data Data::Custom(HostCustomData *custom) {
    Data data;
    if (custom == nullptr) return data;
    data.value.custom = custom;
    data.type = custom->Type();
    return data;
}

Data Data::OfType(std::int32_t type) {
    Data data;
    SetDefaultData(&data, type);
    return data;
}

Data::Data(const TableData &other) : Data() { CopyData(this, other, nullptr); }
Data::Data(const Data &other) : Data() { CopyData(this, other, nullptr); }
Data::Data(Data &&other) noexcept : Data() { std::swap<TableData>(*this, other); }

// The copy is complete before the old value goes: `other` may lie inside the old value.
Data &Data::operator=(const Data &other) { return *this = Data(other); }

Data &Data::operator=(Data &&other) noexcept {
    Data taken(std::move(other));
    std::swap<TableData>(*this, taken);
    return *this;
}

Data::~Data() { ReleaseData(this); }

std::int32_t Data::Whole() const { return WholeOf(*this); }

double Data::Real() const { return RealOf(*this); }

Vector Data::GetVector() const {
    return type == kDataVector && value.vector != nullptr ? *value.vector : Vector{0, 0, 0};
}

Time Data::GetTime() const { return type == kDataTime && value.time != nullptr ? *value.time : Time{0, 1}; }

std::string Data::Text() const {
    if (type == kDataString) return ToUtf8(value.string);
    if (type == kDataFilename && value.filename != nullptr) return ToUtf8(&value.filename->path);
    return {};
}

const Container *Data::GetContainer() const {
    return type == kDataContainer ? static_cast<const Container *>(value.container) : nullptr;
}

Container *Data::GetContainer() { return type == kDataContainer ? static_cast<Container *>(value.container) : nullptr; }

HostAtom *Data::Link(const HostAtom *document, std::int32_t instance_of) const {
    return type == kDataLink ? ResolveLink(value.link, document, instance_of) : nullptr;
}

}  // namespace host

#include "host/files/hyperfile.h"

#include <cmath>
#include <cstring>

#include "host/files/folders.h"
#include "host/files/memory_files.h"
#include "host/files/safe_write.h"
#include "host/services/platform.h"
#include "host/value/custom.h"
#include "host/value/link.h"
#include "host/value/text.h"

namespace host {

namespace {

constexpr char kMagic[] = {'T', 'X', 'H', 'F', 0, 0, 0, 1};
constexpr std::size_t kMagicSize = sizeof(kMagic);
// Deeper than anyone nests, shallow enough for every stack.
constexpr int kDeepestNesting = 64;

enum ValueType : std::int32_t {
    kWholeValue = 15,
    kRealValue = 19,
    kTimeValue = 22,
    kVectorValue = 23,
    kTextValue = 130,
    kContainerValue = 132,
    kAnyData = 200
};

// ---- Big-endian bytes

template <typename Number>
void Put(std::string *bytes, Number number) {
    std::uint64_t bits = 0;
    std::memcpy(&bits, &number, sizeof(number));  // little-endian machines only: both that we build for
    for (std::size_t i = sizeof(number); i-- > 0;) bytes->push_back(static_cast<char>(bits >> (8 * i) & 0xFF));
}

// Reads within bounds; once something was cut off, everything after it is.
class Source {
  public:
    Source(const std::string &bytes, std::size_t *position) : bytes_(bytes), position_(*position) {}
    std::size_t Left() const { return bytes_.size() - position_; }

    template <typename Number>
    bool Get(Number *number) {
        if (Left() < sizeof(Number)) return false;
        std::uint64_t bits = 0;
        for (std::size_t i = 0; i < sizeof(Number); ++i)
            bits = bits << 8 | static_cast<unsigned char>(bytes_[position_++]);
        std::memcpy(number, &bits, sizeof(Number));
        return true;
    }

    bool Get(std::string *text) {
        std::uint32_t size = 0;
        if (!Get(&size) || size > Left()) return false;
        text->assign(bytes_, position_, size);
        position_ += size;
        return true;
    }

  private:
    const std::string &bytes_;
    std::size_t &position_;
};

void Put(std::string *bytes, const std::string &text) {
    Put(bytes, static_cast<std::uint32_t>(text.size()));
    bytes->append(text);
}

void Put(std::string *bytes, const Vector &v) {
    Put(bytes, v.x);
    Put(bytes, v.y);
    Put(bytes, v.z);
}

bool Get(Source *source, Vector *v) { return source->Get(&v->x) && source->Get(&v->y) && source->Get(&v->z); }

void Put(std::string *bytes, const Matrix &m) {
    for (const Vector *v : {&m.off, &m.v1, &m.v2, &m.v3}) Put(bytes, *v);
}

bool Get(Source *source, Matrix *m) {
    return Get(source, &m->off) && Get(source, &m->v1) && Get(source, &m->v2) && Get(source, &m->v3);
}

// ---- Values with their type

class Writer {
  public:
    Writer(std::string *bytes, HyperFile::LinkNumbers *links) : bytes_(bytes), links_(links) {}

    bool Write(const TableData &data, int depth) {
        if (depth > kDeepestNesting) return false;
        Put(bytes_, data.type);
        switch (data.type) {
            case kDataNil:
            case kDataVoid:  // an address means nothing in another run
                return true;
            case kDataWhole:
                Put(bytes_, data.value.whole);
                return true;
            case kDataWhole64:
                Put(bytes_, data.value.whole64);
                return true;
            case kDataReal:
                Put(bytes_, data.value.real);
                return true;
            case kDataVector:
                Put(bytes_, *data.value.vector);
                return true;
            case kDataMatrix:
                Put(bytes_, *data.value.matrix);
                return true;
            case kDataTime:
                Put(bytes_, data.value.time->numerator);
                Put(bytes_, data.value.time->denominator);
                return true;
            case kDataString:
                Put(bytes_, ToUtf8(data.value.string));
                return true;
            case kDataFilename:
                Put(bytes_, ToUtf8(&data.value.filename->path));
                return true;
            case kDataContainer:
                return Write(AsContainer(data.value.container), depth + 1);
            case kDataLink:
                Put(bytes_, NumberOf(data.value.link));
                return true;
            default:
                return WriteCustom(data.value.custom);
        }
    }

    bool Write(const Container &container, int depth) {
        if (depth > kDeepestNesting) return false;
        Put(bytes_, container.id);
        Put(bytes_, container.Count());
        for (std::int32_t i = 0; i < container.Count(); ++i) {
            Put(bytes_, container.IdAt(i));
            if (!Write(*container.DataAt(i), depth)) return false;
        }
        return true;
    }

  private:
    std::int32_t NumberOf(const HostLink *link) const {
        HostAtom *goal = ResolveAnywhere(link);
        return goal == nullptr || links_ == nullptr ? -1 : links_->NumberOf(goal);
    }

    bool WriteCustom(const HostCustomData *custom) {
        if (custom == nullptr) return false;
        if (custom->Type() == kDataSpline) {
            const auto &spline = static_cast<const Spline &>(*custom);
            Put(bytes_, static_cast<std::uint32_t>(spline.knots.size()));
            for (const TableSplineKnot &knot : spline.knots) {
                for (const Vector *v : {&knot.position, &knot.tangent_left, &knot.tangent_right}) Put(bytes_, *v);
                Put(bytes_, knot.flags);
                Put(bytes_, knot.selected);
                Put(bytes_, knot.interpolation);
            }
            return true;
        }
        if (custom->Type() != kDataPriority) return false;
        const auto &priority = static_cast<const Priority &>(*custom);
        for (std::int32_t value : {Priority::kMode, Priority::kPriority, Priority::kCameraDependent})
            Put(bytes_, priority.Get(value));
        return true;
    }

    std::string *bytes_;
    HyperFile::LinkNumbers *links_;
};

class Reader {
  public:
    Reader(Source source, HyperFile::LinkNumbers *links) : source_(source), links_(links) {}

    bool Read(Data *data, int depth) {
        std::int32_t type = 0;
        if (depth > kDeepestNesting || !source_.Get(&type)) return false;
        switch (type) {
            case kDataNil:
            case kDataVoid:
                *data = Data();
                return true;
            case kDataWhole:
                return ReadAs<std::int32_t>(data);
            case kDataWhole64: {
                *data = Data::OfType(kDataWhole64);
                return source_.Get(&data->value.whole64);
            }
            case kDataReal:
                return ReadAs<double>(data);
            case kDataVector:
                return ReadPlain<Vector>(data);
            case kDataMatrix:
                return ReadPlain<Matrix>(data);
            case kDataTime: {
                Time time{};
                if (!source_.Get(&time.numerator) || !source_.Get(&time.denominator)) return false;
                *data = Data(time);
                return true;
            }
            case kDataString:
            case kDataFilename: {
                std::string text;
                if (!source_.Get(&text)) return false;
                *data = type == kDataString ? Data(text) : Data::Filename(text);
                return true;
            }
            case kDataContainer:
                // Read in place: a copy would leave the links that wait to be connected behind.
                *data = Data::OfType(kDataContainer);
                return Read(data->GetContainer(), depth + 1);
            case kDataLink: {
                std::int32_t number = -1;
                if (!source_.Get(&number)) return false;
                *data = Data::LinkTo(nullptr);
                if (links_ != nullptr && number >= 0) links_->Connect(data->value.link, number);
                return true;
            }
            default:
                return ReadCustom(type, data);
        }
    }

    bool Read(Container *container, int depth) {
        std::int32_t own_id = 0, count = 0;
        if (depth > kDeepestNesting || !source_.Get(&own_id) || !source_.Get(&count) || count < 0) return false;
        container->Flush();
        container->id = own_id;
        for (std::int32_t i = 0; i < count; ++i) {
            std::int32_t id = 0;
            Data data;
            if (!source_.Get(&id) || !Read(&data, depth)) return false;
            // Moved in, so that a link that waits to be connected keeps its address.
            container->Append(id, std::move(data));
        }
        return true;
    }

  private:
    template <typename Number>
    bool ReadAs(Data *data) {
        Number number{};
        if (!source_.Get(&number)) return false;
        *data = Data(number);
        return true;
    }

    template <typename Plain>
    bool ReadPlain(Data *data) {
        Plain plain{};
        if (!Get(&source_, &plain)) return false;
        *data = Data(plain);
        return true;
    }

    bool ReadCustom(std::int32_t type, Data *data) {
        if (type == kDataPriority) {
            auto priority = std::make_unique<Priority>();
            for (std::int32_t id : {Priority::kMode, Priority::kPriority, Priority::kCameraDependent}) {
                std::int32_t value = 0;
                if (!source_.Get(&value)) return false;
                priority->Set(id, Data(value));
            }
            *data = Data::Custom(priority.release());
            return true;
        }
        if (type != kDataSpline) return false;
        std::uint32_t count = 0;
        if (!source_.Get(&count)) return false;
        auto spline = std::make_unique<Spline>();
        for (std::uint32_t i = 0; i < count; ++i) {
            TableSplineKnot knot{};
            if (!Get(&source_, &knot.position) || !Get(&source_, &knot.tangent_left) ||
                !Get(&source_, &knot.tangent_right) || !source_.Get(&knot.flags) || !source_.Get(&knot.selected) ||
                !source_.Get(&knot.interpolation))
                return false;
            spline->knots.push_back(knot);
        }
        *data = Data::Custom(spline.release());
        return true;
    }

    Source source_;
    HyperFile::LinkNumbers *links_;
};

}  // namespace

bool HyperFile::Open(std::int32_t ident, const std::filesystem::path &file, FileMode mode) {
    Close();
    if (mode == FileMode::kWrite) {
        const bool in_memory = memory_files::Holds(file);
        if (file.filename().empty() || !Exists((in_memory ? file : AbsolutePath(file)).parent_path(), true)) {
            error_ = kFileOpen;
            return false;
        }
        OpenForWriting(ident);
        file_ = file;
        return true;
    }
    std::string bytes, reason;
    if (!ReadFile(file, &bytes, &reason)) {
        error_ = kFileOpen;
        return false;
    }
    return OpenForReading(ident, std::move(bytes));
}

void HyperFile::OpenForWriting(std::int32_t ident) {
    Close();
    bytes_.assign(kMagic, kMagicSize);
    Put(&bytes_, ident);
    writing_ = open_ = true;
    error_ = kFileOk;
    file_.clear();
}

bool HyperFile::OpenForReading(std::int32_t ident, std::string bytes) {
    Close();
    bytes_ = std::move(bytes);
    position_ = kMagicSize;
    writing_ = false;
    std::int32_t found = 0;
    open_ = bytes_.compare(0, kMagicSize, kMagic, kMagicSize) == 0 && Source(bytes_, &position_).Get(&found) &&
            found == ident;
    error_ = open_ ? kFileOk : kFileInvalid;
    return open_;
}

bool HyperFile::Close() {
    if (!open_) return error_ == kFileOk;
    open_ = false;
    if (!writing_ || file_.empty()) return error_ == kFileOk;
    // A file that could not be made whole does not replace one that was.
    std::string reason;
    if (error_ == kFileOk && !WriteFileSafely(file_, bytes_, &reason)) error_ = kFileClose;
    return error_ == kFileOk;
}

bool HyperFile::BeginValue(std::int32_t type) {
    if (!open_ || !writing_) {
        error_ = kFileWrite;
        return false;
    }
    Put(&bytes_, type);
    return true;
}

bool HyperFile::FindValue(std::int32_t type) {
    if (!open_ || writing_) {
        error_ = kFileRead;
        return false;
    }
    const std::size_t start = position_;
    std::int32_t found = 0;
    if (!Source(bytes_, &position_).Get(&found)) return Ended(false);
    if (found == type) return true;
    position_ = start;
    error_ = kFileWrongValue;
    return false;
}

bool HyperFile::Ended(bool whole) {
    if (!whole) error_ = kFileEnd;
    return whole;
}

template <typename Number>
bool HyperFile::WriteNumber(std::int32_t type, Number value) {
    if (!BeginValue(type)) return false;
    Put(&bytes_, value);
    return true;
}

template <typename Number>
bool HyperFile::ReadNumber(std::int32_t type, Number *value) {
    return FindValue(type) && Ended(Source(bytes_, &position_).Get(value));
}

template <typename Value>
bool HyperFile::WriteAny(std::int32_t type, const Value &value) {
    if (!BeginValue(type)) return false;
    if (Writer(&bytes_, links).Write(value, 0)) return true;
    error_ = kFileWrongValue;
    return false;
}

// Nothing half read: `value` changes when all of it is there.
template <typename Value>
bool HyperFile::ReadAny(std::int32_t type, Value *value) {
    Value read;
    if (!FindValue(type) || !Ended(Reader(Source(bytes_, &position_), links).Read(&read, 0))) return false;
    *value = std::move(read);
    return true;
}

bool HyperFile::WriteWhole(std::int32_t value) { return WriteNumber(kWholeValue, value); }
bool HyperFile::ReadWhole(std::int32_t *value) { return ReadNumber(kWholeValue, value); }
bool HyperFile::WriteReal(double value) { return WriteNumber(kRealValue, value); }
bool HyperFile::ReadReal(double *value) { return ReadNumber(kRealValue, value); }
bool HyperFile::WriteContainer(const Container &container) { return WriteAny(kContainerValue, container); }
bool HyperFile::ReadContainer(Container *container) { return ReadAny(kContainerValue, container); }
bool HyperFile::WriteData(const TableData &data) { return WriteAny(kAnyData, data); }
bool HyperFile::ReadData(Data *data) { return ReadAny(kAnyData, data); }

bool HyperFile::WriteText(const std::string &utf8) {
    if (!BeginValue(kTextValue)) return false;
    Put(&bytes_, utf8);
    return true;
}

bool HyperFile::ReadText(std::string *utf8) {
    return FindValue(kTextValue) && Ended(Source(bytes_, &position_).Get(utf8));
}

bool HyperFile::WriteTime(const Time &time) {
    if (!BeginValue(kTimeValue)) return false;
    Put(&bytes_, time.numerator);
    Put(&bytes_, time.denominator);
    return true;
}

bool HyperFile::ReadTime(Time *time) {
    if (!FindValue(kTimeValue)) return false;
    Source source(bytes_, &position_);
    return Ended(source.Get(&time->numerator) && source.Get(&time->denominator));
}

bool HyperFile::WriteVector(const Vector &vector) {
    if (!BeginValue(kVectorValue)) return false;
    Put(&bytes_, vector);
    return true;
}

bool HyperFile::ReadVector(Vector *vector) {
    if (!FindValue(kVectorValue)) return false;
    Source source(bytes_, &position_);
    return Ended(Get(&source, vector));
}

}  // namespace host

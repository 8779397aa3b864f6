// A typed value (GeData), owned.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "host/value/time.h"
#include "host/value/vector.h"
#include "platform/table.h"

namespace host {

class Container;

// The DA_ codes; ids above kDataCustom are custom data types.
enum DataType : std::int32_t {
    kDataNil = 0,
    kDataVoid = 14,
    kDataWhole = 15,
    kDataReal = 19,
    kDataTime = 22,
    kDataVector = 23,
    kDataMatrix = 25,
    kDataWhole64 = 26,
    kDataString = 130,
    kDataFilename = 131,
    kDataContainer = 132,
    kDataLink = 133,
    kDataCustom = 1000000,
    kDataSpline = 1009060,
    kDataPriority = 1009369
};

// Same bytes as a TableData, so that a module may hold pointers into containers. Copies are their own.
class Data : public TableData {
  public:
    Data();
    Data(std::int32_t whole);
    Data(double real);
    Data(bool) = delete;  // a Bool is a whole number: say which is meant
    Data(const Vector &vector);
    Data(const Matrix &matrix);
    Data(const Time &time);
    Data(std::string_view utf8);
    Data(const char *utf8) : Data(std::string_view(utf8)) {}
    Data(const Container &container);
    static Data Filename(std::string_view utf8_path);
    static Data LinkTo(HostAtom *target);        // an alias link; null: an empty one
    static Data Custom(HostCustomData *custom);  // takes it over
    static Data OfType(std::int32_t type);       // the type's empty value
    explicit Data(const TableData &other);       // deep copy of what crossed the border
    Data(const Data &other);
    Data(Data &&other) noexcept;
    Data &operator=(const Data &other);
    Data &operator=(Data &&other) noexcept;
    ~Data();

    // Whole numbers and reals convert (a real is cut off, saturated, NaN is 0); any other type gives 0 or empty.
    std::int32_t Whole() const;
    double Real() const;
    Vector GetVector() const;
    Time GetTime() const;
    std::string Text() const;               // of a string or a file name, UTF-8
    const Container *GetContainer() const;  // or null
    Container *GetContainer();
    HostAtom *Link(const HostAtom *document, std::int32_t instance_of = 0) const;
};
static_assert(sizeof(Data) == sizeof(TableData), "a Data is a TableData");

// The operations behind both the class and the border. `destination` of CopyData is raw memory.
void CopyData(TableData *destination, const TableData &source, HostAliasTrans *translation);
void ReleaseData(TableData *data);  // leaves an empty value
bool EqualData(const TableData &a, const TableData &b);
bool SetDefaultData(TableData *data, std::int32_t type);
std::int32_t WholeOf(const TableData &data);
double RealOf(const TableData &data);
inline bool IsNumber(const Data &data) { return data.type == kDataWhole || data.type == kDataReal; }
std::int32_t TruncatedWhole(double value);  // saturated, NaN is 0

}  // namespace host

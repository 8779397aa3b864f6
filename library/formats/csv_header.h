// Tables with a header line: which field of a row belongs to which column.
#pragma once

#include <string>
#include <vector>

#include "library/formats/source_text.h"

namespace tremolux {

struct CsvColumn {
    std::string name;
    bool required;
};
using CsvColumns = std::vector<CsvColumn>;

// The header line; refuses unknown, doubled and missing columns, and says `otherwise` with them. Source and columns must
// outlive it.
class CsvHeader {
  public:
    CsvHeader(const SourceText &source, const CsvColumns &columns, const std::string &otherwise = {});

  private:
    friend class CsvRow;
    const SourceText &source_;
    const CsvColumns &columns_;
    std::vector<std::size_t> field_of_column_;  // kAbsent where the file has no such column
    std::size_t fields_ = 0;
    char separator_ = ',';
};

// One row; refuses a wrong number of fields.
class CsvRow {
  public:
    CsvRow(const CsvHeader &header, const Line &line);
    bool Has(std::size_t column) const;
    const Field &At(std::size_t column) const { return fields_[header_.field_of_column_[column]]; }  // must be there
    double Number(std::size_t column, double minimum, double maximum) const;
    const Line &SourceLine() const { return line_; }

  private:
    const CsvHeader &header_;
    const Line &line_;
    std::vector<Field> fields_;
};

}  // namespace tremolux

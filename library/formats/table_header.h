// Where the columns of another program's table stand.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "library/formats/source_text.h"
#include "library/formats/table_layout.h"

namespace tremolux {

// The first line that has all names is the header; it may stand in a comment. Columns that are known by their places need
// none. Refuses a table without one of its columns. Both arguments must outlive it.
class TableHeader {
  public:
    TableHeader(const SourceText &source, const TableLayout &layout);
    bool Has(TableField field) const { return places_[field].has_value(); }
    // Index into SourceText::Lines.
    std::size_t FirstRow() const { return first_row_; }
    // "columns a, b and 3 more are not used"; empty when all are.
    std::string Unused() const;

  private:
    friend class TableRow;
    enum class Found { kNotAll, kByPlaces, kByNames };
    Found Resolve(const std::vector<Field> &names);
    bool IsRow(const Line &line, bool by_places) const;
    [[noreturn]] void Refuse() const;

    const SourceText &source_;
    const TableLayout &layout_;
    std::array<std::optional<std::size_t>, kTableFieldCount> places_;
    std::vector<std::string> names_;  // of the header line; none without one
    std::size_t first_row_ = 0;
    char separator_ = ',';
};

class TableRow {
  public:
    TableRow(const TableHeader &header, const Line &line);
    bool Has(TableField field) const { return header_.Has(field); }
    const Line &SourceLine() const { return line_; }
    const Field &At(TableField field) const { return fields_[*header_.places_[field]]; }  // must be there
    // Within the limits either way; with its sign turned where the layout says so.
    double Number(TableField field, double limit) const;
    [[noreturn]] void Refuse(TableField field, const std::string &expected) const;

  private:
    const TableHeader &header_;
    const Line &line_;
    std::vector<Field> fields_;
};

// Nothing and what stands behind a #: no row.
bool IsTableRemark(const Line &line);

}  // namespace tremolux

#include "library/formats/csv_header.h"

namespace tremolux {
namespace {

constexpr std::size_t kAbsent = static_cast<std::size_t>(-1);

std::string NameList(const CsvColumns &columns, bool required) {
    std::string list;
    for (const CsvColumn &column : columns) {
        if (column.required == required) list += (list.empty() ? "" : ",") + column.name;
    }
    return list;
}

std::string Expected(const CsvColumns &columns) {
    const std::string optional = NameList(columns, false);
    return "a header line with " + NameList(columns, true) + (optional.empty() ? "" : " and perhaps " + optional);
}

std::size_t IndexOf(const CsvColumns &columns, std::string_view name) {
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (columns[i].name == name) return i;
    }
    return kAbsent;
}

}  // namespace

CsvHeader::CsvHeader(const SourceText &source, const CsvColumns &columns, const std::string &otherwise)
    : source_(source), columns_(columns), field_of_column_(columns.size(), kAbsent) {
    const std::string expected = Expected(columns) + otherwise;
    if (source.Lines().empty()) source.Refuse(1, 1, "an empty file", expected);
    const Line &line = source.Lines().front();
    separator_ = SeparatorOf(line.text);
    const std::vector<Field> names = SeparatedFields(line.text, separator_);
    for (std::size_t i = 0; i < names.size(); ++i) {
        const std::size_t column = IndexOf(columns, names[i].text);
        if (column == kAbsent) source.RefuseField(line, names[i], expected);
        if (field_of_column_[column] != kAbsent) source.RefuseField(line, names[i], "each column once");
        field_of_column_[column] = i;
    }
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (columns[i].required && field_of_column_[i] == kAbsent) {
            source.Refuse(line.number, line.text.size() + 1, "no column " + columns[i].name, expected);
        }
    }
    fields_ = names.size();
}

CsvRow::CsvRow(const CsvHeader &header, const Line &line)
    : header_(header), line_(line), fields_(SeparatedFields(line.text, header.separator_)) {
    if (fields_.size() == header.fields_) return;
    const std::size_t column = fields_.size() > header.fields_ ? fields_[header.fields_].column : line.text.size() + 1;
    header.source_.Refuse(line.number, column, CountText(line, fields_.size()),
                          std::to_string(header.fields_) + " columns as in the header line");
}

bool CsvRow::Has(std::size_t column) const { return header_.field_of_column_[column] != kAbsent; }

double CsvRow::Number(std::size_t column, double minimum, double maximum) const {
    return header_.source_.Number(line_, At(column), header_.columns_[column].name, minimum, maximum);
}

}  // namespace tremolux

#include "library/formats/table_header.h"

#include <algorithm>

#include "library/formats/numbers.h"

namespace tremolux {
namespace {

constexpr std::size_t kMostTold = 5;  // names in a note

bool SameName(std::string_view a, std::string_view b) {
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [&](char x, char y) { return lower(x) == lower(y); });
}

// The line's text behind the # of a comment.
std::string_view Uncommented(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t#");
    return first == std::string_view::npos ? std::string_view() : text.substr(first);
}

// Index of the column whose place the name says.
std::optional<std::size_t> PlaceNamed(std::string_view name) {
    const std::optional<std::int64_t> place = ParseWhole(name);
    if (!place || *place < 1 || *place > static_cast<std::int64_t>(kMaxFields)) return std::nullopt;
    return static_cast<std::size_t>(*place - 1);
}

std::optional<std::size_t> IndexOf(std::string_view name, const std::vector<Field> &names) {
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (SameName(names[i].text, name)) return i;
    }
    return std::nullopt;
}

}  // namespace

bool IsTableRemark(const Line &line) {
    const std::string_view text = Trimmed(line.text);
    return text.empty() || text.front() == '#';
}

TableHeader::TableHeader(const SourceText &source, const TableLayout &layout) : source_(source), layout_(layout) {
    const std::vector<Line> &lines = source.Lines();
    const bool by_places = Resolve({}) != Found::kNotAll;
    for (; first_row_ < lines.size(); ++first_row_) {
        const Line &line = lines[first_row_];
        if (!IsTableRemark(line) && IsRow(line, by_places)) break;
        const std::string_view text = Uncommented(line.text);
        const std::vector<Field> names = SeparatedFields(text, SeparatorOf(text));
        const Found found = Resolve(names);
        if (found == Found::kNotAll || (found == Found::kByPlaces && IsTableRemark(line))) {
            Resolve({});
            continue;
        }
        for (const Field &name : names) names_.emplace_back(name.text);
        // What stands between the numbers may be something else than between the names of a comment.
        separator_ = SeparatorOf(text);
        while (++first_row_ < lines.size() && IsTableRemark(lines[first_row_])) {
        }
        if (IsTableRemark(line) && first_row_ < lines.size()) separator_ = SeparatorOf(lines[first_row_].text);
        return;
    }
    if (Resolve({}) == Found::kNotAll) Refuse();
    if (first_row_ < lines.size()) separator_ = SeparatorOf(lines[first_row_].text);
}

TableHeader::Found TableHeader::Resolve(const std::vector<Field> &names) {
    Found found = Found::kByPlaces;
    for (std::size_t field = 0; field < kTableFieldCount; ++field) {
        places_[field].reset();
        const std::optional<TableColumn> &column = layout_.columns[field];
        if (!column) continue;
        for (const std::string &name : column->names) {
            if (places_[field]) break;
            places_[field] = IndexOf(name, names);
            if (places_[field] && found == Found::kByPlaces) found = Found::kByNames;
            if (!places_[field]) places_[field] = PlaceNamed(name);
        }
        if (column->required && !places_[field]) found = Found::kNotAll;
    }
    return found;
}

// Numbers alone; where places say the columns, at least in these.
bool TableHeader::IsRow(const Line &line, bool by_places) const {
    const std::vector<Field> fields = SeparatedFields(line.text, SeparatorOf(line.text));
    const auto is_number = [](const Field &field) { return ParseTableNumber(field.text).has_value(); };
    const bool all = std::all_of(fields.begin(), fields.end(),
                                 [&](const Field &field) { return field.text.empty() || is_number(field); });
    if (all || !by_places) return all;
    return std::all_of(places_.begin(), places_.end(), [&](const std::optional<std::size_t> &place) {
        return !place || (*place < fields.size() && is_number(fields[*place]));
    });
}

void TableHeader::Refuse() const {
    const std::vector<Line> &lines = source_.Lines();
    std::string wanted;
    for (const std::optional<TableColumn> &column : layout_.columns) {
        if (!column || !column->required) continue;
        wanted += wanted.empty() ? "" : ", ";
        for (const std::string &name : column->names) wanted += (&name == &column->names.front() ? "" : "|") + name;
    }
    const std::string expected = "a header line with " + wanted + " (or --columns with other names, or places from 1)";
    const auto first = std::find_if(lines.begin(), lines.end(), [](const Line &line) { return !IsTableRemark(line); });
    if (first == lines.end()) source_.Refuse(1, 1, "an empty file", expected);
    source_.Refuse(first->number, 1, Quoted(first->text), expected);
}

std::string TableHeader::Unused() const {
    std::vector<std::string> unused;
    for (std::size_t i = 0; i < names_.size(); ++i) {
        const bool used = std::any_of(places_.begin(), places_.end(), [i](const auto &place) { return place == i; });
        if (!used && !names_[i].empty()) unused.push_back(names_[i]);
    }
    if (unused.empty()) return {};
    std::string text = unused.size() == 1 ? "not used: the column " : "not used: the columns ";
    for (std::size_t i = 0; i < std::min(unused.size(), kMostTold); ++i) text += (i > 0 ? ", " : "") + Quoted(unused[i]);
    return text + (unused.size() > kMostTold ? " and " + std::to_string(unused.size() - kMostTold) + " more" : "");
}

TableRow::TableRow(const TableHeader &header, const Line &line)
    : header_(header), line_(line), fields_(SeparatedFields(line.text, header.separator_)) {
    std::size_t needed = 0;
    for (const std::optional<std::size_t> &place : header.places_) needed = std::max(needed, place ? *place + 1 : 0);
    if (fields_.size() >= needed) return;
    header.source_.Refuse(line.number, line.text.size() + 1, CountText(line, fields_.size()),
                          "at least " + std::to_string(needed) + " columns");
}

double TableRow::Number(TableField field, double limit) const {
    const double number = header_.source_.Number(line_, At(field), NameOf(field), -limit, limit);
    return header_.layout_.columns[field]->turns_sign ? -number : number;
}

void TableRow::Refuse(TableField field, const std::string &expected) const {
    header_.source_.RefuseField(line_, At(field), expected);
}

}  // namespace tremolux

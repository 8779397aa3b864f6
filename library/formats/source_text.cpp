#include "library/formats/source_text.h"

#include <algorithm>
#include <functional>
#include <optional>

#include "library/failure.h"
#include "library/formats/numbers.h"

namespace tremolux {
namespace {

constexpr std::size_t kLongestQuote = 40;
constexpr std::size_t kMaxLines = 4000000;  // a file of nothing but line ends must not fill the memory

}  // namespace

SourceText::SourceText(std::string file, std::string_view bytes) : file_(std::move(file)) {
    if (bytes.substr(0, kByteOrderMark.size()) == kByteOrderMark) bytes.remove_prefix(kByteOrderMark.size());
    while (!bytes.empty()) {
        const std::size_t end = bytes.find('\n');
        std::string_view line = bytes.substr(0, end);
        ended_ = end != std::string_view::npos;
        bytes.remove_prefix(ended_ ? end + 1 : bytes.size());
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        lines_.push_back({lines_.size() + 1, line});
        if (lines_.size() > kMaxLines) {
            Refuse(lines_.size(), 1, "another line",
                   "the end of the file (at most " + std::to_string(kMaxLines) + " lines)");
        }
    }
    while (!lines_.empty() && Trimmed(lines_.back().text).empty()) {
        lines_.pop_back();
        ended_ = true;
    }
}

void SourceText::CheckEnd() const {
    if (ended_) return;
    Refuse(lines_.back().number, lines_.back().text.size() + 1, "the end of the file",
           "a line end (the file may be cut off)");
}

void SourceText::Refuse(std::size_t line, std::size_t column, const std::string &found,
                        const std::string &expected) const {
    throw Failure(kExitInput, file_ + ":" + std::to_string(line) + ":" + std::to_string(column) + ": found " + found +
                                  ", expected " + expected);
}

void SourceText::RefuseAt(const char *place, const std::string &found, const std::string &expected) const {
    const auto after = std::upper_bound(lines_.begin(), lines_.end(), place, [](const char *at, const Line &line) {
        return std::less<const char *>()(at, line.text.data());
    });
    if (after == lines_.begin()) Refuse(1, 1, found, expected);
    const Line &line = *(after - 1);
    const std::size_t column = static_cast<std::size_t>(place - line.text.data());
    Refuse(line.number, std::min(column, line.text.size()) + 1, found, expected);
}

void SourceText::RefuseField(const Line &line, const Field &field, const std::string &expected) const {
    Refuse(line.number, field.column, Quoted(field.text), expected);
}

double SourceText::Number(const Line &line, const Field &field, std::string_view name, double minimum,
                          double maximum) const {
    const std::optional<double> value = ParseTableNumber(field.text);
    if (value && *value >= minimum && *value <= maximum) return *value;
    RefuseField(
        line, field,
        "a number from " + FormatNumber(minimum) + " to " + FormatNumber(maximum) + " for " + std::string(name));
}

std::vector<Field> SeparatedFields(std::string_view line, char separator) {
    if (separator == ' ') return BlankFields(line);
    const char *blanks = separator == '\t' ? " " : " \t";
    std::vector<Field> fields;
    std::size_t start = 0;
    while (true) {
        const std::size_t first = line.find_first_not_of(blanks, start);
        const bool quoted = first != std::string_view::npos && line[first] == '"';
        const std::size_t closing = quoted ? line.find('"', first + 1) : std::string_view::npos;
        const std::size_t end = fields.size() + 1 < kMaxFields
                                    ? line.find(separator, closing != std::string_view::npos ? closing : start)
                                    : std::string_view::npos;
        const std::string_view whole = line.substr(start, end == std::string_view::npos ? end : end - start);
        std::string_view text = Trimmed(whole);
        const bool closed = text.size() > 1 && text.front() == '"' && text.find('"', 1) == text.size() - 1;
        if (closed) text = text.substr(1, text.size() - 2);
        fields.push_back({text, start + static_cast<std::size_t>(text.data() - whole.data()) + 1});
        if (end == std::string_view::npos) return fields;
        start = end + 1;
    }
}

std::vector<Field> CommaFields(std::string_view line) { return SeparatedFields(line, ','); }

char SeparatorOf(std::string_view line) {
    if (SeparatedFields(line, ';').size() > 1) return ';';
    const std::vector<Field> pieces = BlankFields(line);
    const auto is_number = [](const Field &field) { return ParseTableNumber(field.text).has_value(); };
    // Decimal commas between blanks.
    if (pieces.size() > 1 && std::all_of(pieces.begin(), pieces.end(), is_number))
        return line.find('\t') != std::string_view::npos ? '\t' : ' ';
    if (SeparatedFields(line, ',').size() > 1) return ',';
    if (line.find('\t') != std::string_view::npos) return '\t';
    return pieces.size() > 1 ? ' ' : ',';
}

std::vector<Field> BlankFields(std::string_view line) {
    std::vector<Field> fields;
    std::size_t start = line.find_first_not_of(" \t");
    while (start != std::string_view::npos) {
        const std::size_t end = fields.size() + 1 < kMaxFields ? line.find_first_of(" \t", start) : std::string_view::npos;
        fields.push_back({line.substr(start, end == std::string_view::npos ? end : end - start), start + 1});
        start = line.find_first_not_of(" \t", end);
    }
    return fields;
}

std::string CountText(const Line &line, std::size_t fields) {
    if (Trimmed(line.text).empty()) return "an empty line";
    return fields == 1 ? "1 column" : std::to_string(fields) + " columns";
}

std::string Quoted(std::string_view text) {
    std::string quoted = "'";
    for (const char c : text.substr(0, kLongestQuote)) quoted += c >= ' ' && c <= '~' ? c : '?';
    return quoted + (text.size() > kLongestQuote ? "...'" : "'");
}

}  // namespace tremolux

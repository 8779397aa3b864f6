// The text of an input file as lines and fields that know their place, and how it is refused.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tremolux {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

struct Field {
    std::string_view text;
    std::size_t column;  // of its first byte, from 1
};

struct Line {
    std::size_t number;  // from 1
    std::string_view text;
};

class SourceText {
  public:
    // `bytes` must live as long as this. A byte order mark and carriage returns at line ends are dropped, and blank
    // lines at the end.
    SourceText(std::string file, std::string_view bytes);

    const std::vector<Line> &Lines() const { return lines_; }
    // Refuses a text whose last line has no line end: it was cut off, perhaps in the middle of a number.
    void CheckEnd() const;
    // Throws the Failure "file:line:column: found ..., expected ...".
    [[noreturn]] void Refuse(std::size_t line, std::size_t column, const std::string &found,
                             const std::string &expected) const;
    // At a byte of the text that was given.
    [[noreturn]] void RefuseAt(const char *place, const std::string &found, const std::string &expected) const;
    [[noreturn]] void RefuseField(const Line &line, const Field &field, const std::string &expected) const;
    // A field as a number of [minimum, maximum], with a point or a comma as its decimal mark; `name` is that of its column.
    double Number(const Line &line, const Field &field, std::string_view name, double minimum, double maximum) const;

  private:
    std::string file_;
    std::vector<Line> lines_;
    bool ended_ = true;
};

// Fields between commas, semicolons or tabs, without the blanks around them and without quotes, between which separators may
// stand; there is always at least one. Blanks as the separator: as BlankFields, and nothing in quotes. What is beyond the
// most fields that a line has is in the last one.
constexpr std::size_t kMaxFields = 4096;
std::vector<Field> SeparatedFields(std::string_view line, char separator);
std::vector<Field> CommaFields(std::string_view line);
// What stands between the fields of a table, by one of its lines: ';', '\t', ',' or ' '.
char SeparatorOf(std::string_view line);
// Fields between blanks and tabs.
std::vector<Field> BlankFields(std::string_view line);
// "3 columns"; "an empty line" for a line without any text.
std::string CountText(const Line &line, std::size_t fields);
// In quotes, shortened, with everything that is not printable replaced: safe inside a one-line message.
std::string Quoted(std::string_view text);

}  // namespace tremolux

#include "library/formats/usd/tokens.h"

#include <algorithm>

#include "library/formats/numbers.h"

namespace tremolux {
namespace {

constexpr std::string_view kMarks = "()[]{}=:,;";

struct Quote {
    std::string_view mark, escape;  // what does not end the text
};
constexpr Quote kQuotes[] = {{"\"\"\"", "\\"}, {"'''", "\\"}, {"\"", "\\"}, {"'", "\\"}, {"@@@", "\\@@@"}, {"@", ""}};

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

}  // namespace

UsdToken UsdTokens::Take() {
    const UsdToken token = next_;
    Read();
    return token;
}

bool UsdTokens::TakeIf(std::string_view what) {
    if (!next_.Is(what)) return false;
    Read();
    return true;
}

void UsdTokens::Expect(std::string_view what) {
    if (!TakeIf(what)) Refuse("'" + std::string(what) + "'");
}

void UsdTokens::Refuse(const std::string &expected) const {
    source_.RefuseAt(next_.place, next_.kind == UsdToken::kEnd ? "the end of the file" : Quoted(next_.text), expected);
}

void UsdTokens::SkipBrackets() {
    std::string closing;
    do {
        if (NextOpens()) {
            if (closing.size() == kMaxUsdDepth) Refuse("at most " + std::to_string(kMaxUsdDepth) + " levels");
            closing += next_.Is("(") ? ')' : next_.Is("[") ? ']' : '}';
        } else if (next_.Is(std::string_view(&closing.back(), 1))) {
            closing.pop_back();
        } else if (next_.kind == UsdToken::kEnd) {
            Refuse("'" + closing.substr(closing.size() - 1) + "'");
        }
        Read();
    } while (!closing.empty());
}

void UsdTokens::SkipBlanksAndComments() {
    while (!rest_.empty()) {
        std::size_t count = 1;
        if (rest_.front() == '#' || rest_.substr(0, 2) == "//") {
            count = rest_.find('\n');
        } else if (rest_.substr(0, 2) == "/*") {
            const std::size_t end = rest_.find("*/", 2);
            count = end == std::string_view::npos ? end : end + 2;
        } else if (!IsBlank(rest_.front())) {
            return;
        }
        rest_.remove_prefix(std::min(count, rest_.size()));
    }
}

void UsdTokens::ReadQuoted(std::string_view quote, std::string_view escape) {
    const std::string_view close = quote == "<" ? ">" : quote;
    std::size_t end = quote.size();
    while (end < rest_.size() && rest_.substr(end, close.size()) != close) {
        const bool escaped = !escape.empty() && rest_.substr(end, escape.size()) == escape;
        end += escaped ? std::max<std::size_t>(escape.size(), 2) : 1;
    }
    if (end >= rest_.size())
        source_.RefuseAt(next_.place, "a text without an end", "its closing " + std::string(close));
    next_.kind = UsdToken::kText;
    next_.text = rest_.substr(quote.size(), end - quote.size());
    rest_.remove_prefix(end + close.size());
}

void UsdTokens::Read() {
    SkipBlanksAndComments();
    next_ = {UsdToken::kEnd, rest_.substr(0, 0), rest_.data()};
    if (rest_.empty()) return;
    for (const Quote &quote : kQuotes) {
        if (rest_.substr(0, quote.mark.size()) == quote.mark) return ReadQuoted(quote.mark, quote.escape);
    }
    if (rest_.front() == '<') return ReadQuoted("<", "");
    std::size_t length = 1;
    if (kMarks.find(rest_.front()) != std::string_view::npos) {
        next_.kind = UsdToken::kPunctuation;
    } else {
        next_.kind = UsdToken::kWord;
        while (length < rest_.size() && !EndsWord(length)) ++length;
    }
    next_.text = rest_.substr(0, length);
    rest_.remove_prefix(length);
}

// A colon is part of a name such as xformOp:transform, but not of a time before its sample.
bool UsdTokens::EndsWord(std::size_t at) const {
    const char c = rest_[at];
    if (c == ':') {
        const char next = at + 1 < rest_.size() ? rest_[at + 1] : ' ';
        const bool goes_on = !IsBlank(next) && kMarks.find(next) == std::string_view::npos && next != '"' &&
                             next != '\'' && next != '@' && next != '<' && next != '#';
        return !goes_on || ParseNumber(rest_.substr(0, at)).has_value();
    }
    return IsBlank(c) || c == '"' || c == '\'' || c == '<' || c == '@' || c == '#' ||
           kMarks.find(c) != std::string_view::npos;
}

}  // namespace tremolux

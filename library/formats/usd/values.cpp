#include "library/formats/usd/values.h"

#include <limits>
#include <optional>

#include "library/formats/numbers.h"

namespace tremolux {
namespace {

constexpr std::size_t kMaxNumbers = 17;  // one more than a matrix has
constexpr std::size_t kMaxTexts = 1000;

std::optional<double> NumberOf(std::string_view word) {
    if (word == "inf") return std::numeric_limits<double>::infinity();
    if (word == "-inf") return -std::numeric_limits<double>::infinity();
    if (word == "nan" || word == "-nan") return std::numeric_limits<double>::quiet_NaN();
    return ParseNumber(word);
}

void AddTo(UsdTokens *tokens, std::size_t depth, UsdValue *value) {
    const UsdToken token = tokens->Next();
    if (token.Is("(") || token.Is("[")) {
        if (depth == kMaxUsdDepth) tokens->Refuse("at most " + std::to_string(kMaxUsdDepth) + " levels");
        const char *closing = tokens->Take().Is("(") ? ")" : "]";
        while (!tokens->TakeIf(closing)) {
            AddTo(tokens, depth + 1, value);
            if (!tokens->Next().Is(closing)) tokens->Expect(",");
        }
        return;
    }
    if (token.Is("{")) return tokens->SkipBrackets();
    if (token.kind != UsdToken::kText && token.kind != UsdToken::kWord) tokens->Refuse("a value");
    tokens->Take();
    if (const auto number = token.kind == UsdToken::kWord ? NumberOf(token.text) : std::nullopt) {
        if (value->numbers.size() < kMaxNumbers) value->numbers.push_back(*number);
    } else if (value->texts.size() < kMaxTexts) {
        value->texts.emplace_back(token.text);
    } else {
        tokens->Refuse("at most " + std::to_string(kMaxTexts) + " texts in a value");
    }
}

}  // namespace

UsdValue TakeUsdValue(UsdTokens *tokens) {
    UsdValue value;
    value.place = tokens->Next().place;
    value.is_none = tokens->TakeIf("None");
    if (!value.is_none) AddTo(tokens, 0, &value);
    return value;
}

void SkipUsdValue(UsdTokens *tokens) {
    if (tokens->NextOpens()) return tokens->SkipBrackets();
    const UsdToken::Kind kind = tokens->Next().kind;
    if (kind != UsdToken::kText && kind != UsdToken::kWord) tokens->Refuse("a value");
    tokens->Take();
    if (kind == UsdToken::kText && tokens->Next().kind == UsdToken::kText) tokens->Take();
}

}  // namespace tremolux

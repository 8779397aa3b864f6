// The words, texts and marks of the text form of scene descriptions.
#pragma once

#include <string>
#include <string_view>

#include "library/formats/source_text.h"

namespace tremolux {

struct UsdToken {
    enum Kind { kEnd, kPunctuation, kText, kWord } kind = kEnd;  // a number is a word
    std::string_view text;                                       // of a text, a path and an asset: without its quotes
    const char *place = nullptr;
    bool Is(std::string_view what) const { return (kind == kPunctuation || kind == kWord) && text == what; }
};

class UsdTokens {
  public:
    // `bytes` are those of `source`, from the first line's first on.
    UsdTokens(const SourceText &source, std::string_view bytes) : source_(source), rest_(bytes) { Read(); }
    const UsdToken &Next() const { return next_; }
    UsdToken Take();
    bool TakeIf(std::string_view what);
    void Expect(std::string_view what);
    // Everything from the opening bracket that comes next to its closing one, whatever it is.
    void SkipBrackets();
    bool NextOpens() const { return next_.Is("(") || next_.Is("[") || next_.Is("{"); }
    [[noreturn]] void Refuse(const std::string &expected) const;

  private:
    void Read();
    void SkipBlanksAndComments();
    void ReadQuoted(std::string_view quote, std::string_view escape);
    bool EndsWord(std::size_t at) const;

    const SourceText &source_;
    std::string_view rest_;
    UsdToken next_;
};

// Brackets and prims that may stand within each other.
constexpr std::size_t kMaxUsdDepth = 128;

}  // namespace tremolux

#include "library/formats/usda_text.h"

#include "library/formats/numbers.h"
#include "library/moves/camera_move.h"

namespace tremolux {
namespace {

constexpr std::string_view kHeader = "#usda 1.";
constexpr std::string_view kMarks = "()[]{}=:,;";
constexpr int kMaxDepth = 64;  // of brackets and prims within each other

struct Token {
    enum Kind { kEnd, kPunctuation, kText, kWord } kind = kEnd;  // a number is a word
    std::string_view text;                                       // of a text: without its quotes
    const char *place = nullptr;
    bool Is(std::string_view what) const { return (kind == kPunctuation || kind == kWord) && text == what; }
};

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

class Tokens {
  public:
    Tokens(const SourceText &source, std::string_view bytes) : source_(source), rest_(bytes) { Read(); }
    const Token &Next() const { return next_; }
    Token Take() {
        const Token token = next_;
        Read();
        return token;
    }
    bool TakeIf(std::string_view what) {
        if (!next_.Is(what)) return false;
        Read();
        return true;
    }
    void Expect(std::string_view what) {
        if (!TakeIf(what)) Refuse("'" + std::string(what) + "'");
    }
    [[noreturn]] void Refuse(const std::string &expected) const {
        source_.RefuseAt(next_.place, next_.kind == Token::kEnd ? "the end of the file" : Quoted(next_.text), expected);
    }

  private:
    void SkipBlanksAndComments() {
        while (!rest_.empty() && (IsBlank(rest_.front()) || rest_.front() == '#')) {
            const std::size_t count = rest_.front() == '#' ? rest_.find('\n') : 1;
            rest_.remove_prefix(std::min(count, rest_.size()));
        }
    }

    // From `quote` to `quote`, as texts, paths and asset names are written; `quote` may be three letters.
    void ReadQuoted(std::string_view open, std::string_view close) {
        std::size_t end = open.size();
        while (end < rest_.size() && rest_.substr(end, close.size()) != close) end += rest_[end] == '\\' ? 2 : 1;
        if (end >= rest_.size()) {
            source_.RefuseAt(next_.place, "a text without an end", "its closing " + std::string(close));
        }
        next_.kind = Token::kText;
        next_.text = rest_.substr(open.size(), end - open.size());
        rest_.remove_prefix(end + close.size());
    }

    void Read() {
        SkipBlanksAndComments();
        next_ = {Token::kEnd, rest_.substr(0, 0), rest_.data()};
        if (rest_.empty()) return;
        for (const std::string_view quote : {"\"\"\"", "'''", "\"", "'", "@@@", "@"}) {
            if (rest_.substr(0, quote.size()) == quote) return ReadQuoted(quote, quote);
        }
        if (rest_.front() == '<') return ReadQuoted("<", ">");
        std::size_t length = 1;
        if (kMarks.find(rest_.front()) != std::string_view::npos) {
            next_.kind = Token::kPunctuation;
        } else {
            next_.kind = Token::kWord;
            while (length < rest_.size() && !EndsWord(length)) ++length;
        }
        next_.text = rest_.substr(0, length);
        rest_.remove_prefix(length);
    }

    // A colon is part of a name such as xformOp:transform, but not of a time before its sample.
    bool EndsWord(std::size_t at) const {
        const char c = rest_[at];
        if (c == ':') {
            const char next = at + 1 < rest_.size() ? rest_[at + 1] : ' ';
            const bool letter = (next >= 'a' && next <= 'z') || (next >= 'A' && next <= 'Z') || next == '_';
            return !letter || ParseNumber(rest_.substr(0, at)).has_value();
        }
        return IsBlank(c) || c == '"' || c == '\'' || c == '<' || c == '#' || kMarks.find(c) != std::string_view::npos;
    }

    const SourceText &source_;
    std::string_view rest_;
    Token next_;
};

class Depth {
  public:
    Depth(int *depth, const Tokens &tokens) : depth_(*depth) {
        if (++depth_ > kMaxDepth) tokens.Refuse("at most " + std::to_string(kMaxDepth) + " levels");
    }
    ~Depth() { --depth_; }
    Depth(const Depth &) = delete;
    Depth &operator=(const Depth &) = delete;

  private:
    int &depth_;
};

class Parser {
  public:
    Parser(const SourceText &source, std::string_view bytes) : tokens_(source, bytes) {}

    UsdaLayer Layer() {
        UsdaLayer layer;
        if (tokens_.Next().Is("(")) layer.metadata = Metadata();
        while (tokens_.Next().kind != Token::kEnd) layer.prims.push_back(Prim());
        return layer;
    }

  private:
    static bool IsOpening(const Token &token) { return token.Is("(") || token.Is("[") || token.Is("{"); }
    static const char *ClosingOf(const Token &token) { return token.Is("(") ? ")" : token.Is("[") ? "]" : "}"; }

    // Everything between brackets, whatever it is.
    void Skip() {
        const Depth level(&depth_, tokens_);
        const char *closing = ClosingOf(tokens_.Take());
        while (!tokens_.Next().Is(closing)) {
            if (IsOpening(tokens_.Next())) {
                Skip();
            } else if (tokens_.Next().kind == Token::kEnd) {
                tokens_.Refuse("'" + std::string(closing) + "'");
            } else {
                tokens_.Take();
            }
        }
        tokens_.Take();
    }

    void AddTo(UsdaValue *value) {
        if (tokens_.Next().Is("(") || tokens_.Next().Is("[")) {
            const Depth level(&depth_, tokens_);
            const char *closing = ClosingOf(tokens_.Take());
            while (!tokens_.TakeIf(closing)) {
                AddTo(value);
                if (!tokens_.Next().Is(closing)) tokens_.Expect(",");
            }
            return;
        }
        const Token token = tokens_.Next();
        if (token.Is("{")) return Skip();
        if (token.kind != Token::kText && token.kind != Token::kWord) tokens_.Refuse("a value");
        tokens_.Take();
        const auto number = token.kind == Token::kWord ? ParseNumber(token.text) : std::nullopt;
        if (number) {
            value->numbers.push_back(*number);
        } else {
            value->texts.emplace_back(token.text);
        }
    }

    UsdaValue Value() {
        UsdaValue value;
        value.place = tokens_.Next().place;
        AddTo(&value);
        return value;
    }

    // Entries of brackets: a name and a value, or a comment's text.
    std::map<std::string, UsdaValue> Metadata() {
        std::map<std::string, UsdaValue> entries;
        tokens_.Expect("(");
        while (!tokens_.TakeIf(")")) {
            if (tokens_.TakeIf(";") || tokens_.TakeIf(",")) continue;
            const Token first = tokens_.Take();
            if (first.kind == Token::kText) continue;
            if (first.kind != Token::kWord) tokens_.Refuse("a name or ')'");
            std::string name(first.text);
            while (tokens_.Next().kind == Token::kWord) name = tokens_.Take().text;  // such as "prepend references"
            tokens_.Expect("=");
            entries[name] = Value();
        }
        return entries;
    }

    UsdaPrim Prim() {
        const Depth level(&depth_, tokens_);
        UsdaPrim prim;
        prim.place = tokens_.Next().place;
        if (!tokens_.TakeIf("def") && !tokens_.TakeIf("over") && !tokens_.TakeIf("class")) tokens_.Refuse("'def'");
        if (tokens_.Next().kind == Token::kWord) prim.type = tokens_.Take().text;
        if (tokens_.Next().kind != Token::kText) tokens_.Refuse("the name of a prim in quotes");
        prim.name = tokens_.Take().text;
        if (tokens_.Next().Is("(")) Skip();
        tokens_.Expect("{");
        while (!tokens_.TakeIf("}")) {
            if (tokens_.TakeIf(";")) continue;
            const Token &next = tokens_.Next();
            if (next.Is("def") || next.Is("over") || next.Is("class")) {
                prim.children.push_back(Prim());
            } else {
                Property(&prim);
            }
        }
        return prim;
    }

    // [custom] [uniform] TYPE NAME, a relation, or a variant set; then perhaps "= VALUE" and metadata.
    void Property(UsdaPrim *prim) {
        Token name;
        int words = 0;
        while (tokens_.Next().kind == Token::kWord || tokens_.Next().kind == Token::kText || tokens_.Next().Is("[")) {
            if (tokens_.TakeIf("[")) {
                tokens_.Expect("]");  // of an array's type
                continue;
            }
            name = tokens_.Take();
            ++words;
            if (tokens_.Next().kind == Token::kText) break;
        }
        if (words < 2) tokens_.Refuse("an attribute with its type, a prim, or '}'");
        std::string text(name.text);
        constexpr std::string_view kSamples = ".timeSamples";
        const bool sampled = text.size() > kSamples.size() && text.substr(text.size() - kSamples.size()) == kSamples;
        if (sampled) text.resize(text.size() - kSamples.size());
        UsdaAttribute &attribute = prim->attributes[text];
        attribute.place = name.place;
        if (tokens_.TakeIf("=")) {
            if (sampled) {
                attribute.samples = Samples();
            } else {
                attribute.value = Value();
            }
        }
        if (tokens_.Next().Is("(") || tokens_.Next().Is("{")) Skip();
    }

    std::map<double, UsdaValue> Samples() {
        std::map<double, UsdaValue> samples;
        tokens_.Expect("{");
        while (!tokens_.TakeIf("}")) {
            const auto time = tokens_.Next().kind == Token::kWord ? ParseNumber(tokens_.Next().text) : std::nullopt;
            if (!time || samples.count(*time) != 0) tokens_.Refuse("a time code, each once, or '}'");
            if (samples.size() > kMaxFrames) tokens_.Refuse("'}' (at most " + std::to_string(kMaxFrames) + " samples)");
            tokens_.Take();
            tokens_.Expect(":");
            samples[*time] = Value();
            if (!tokens_.Next().Is("}")) tokens_.Expect(",");
        }
        return samples;
    }

    Tokens tokens_;
    int depth_ = 0;
};

}  // namespace

UsdaLayer ParseUsda(const SourceText &source, std::string_view bytes) {
    if (source.Lines().empty() || source.Lines().front().text.substr(0, kHeader.size()) != kHeader)
        source.Refuse(1, 1, "another beginning", "'#usda 1.0'");
    const char *first = source.Lines().front().text.data();  // after the byte order mark
    return Parser(source, bytes.substr(static_cast<std::size_t>(first - bytes.data()))).Layer();
}

}  // namespace tremolux

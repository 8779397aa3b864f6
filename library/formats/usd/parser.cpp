#include <algorithm>
#include <optional>

#include "library/formats/numbers.h"
#include "library/formats/usd/layer.h"
#include "library/formats/usd/tokens.h"
#include "library/formats/usd/values.h"

namespace tremolux {
namespace {

constexpr std::string_view kHeaders[] = {"#usda 1.", "#sdf 1."};
constexpr std::size_t kLongestName = 1000;
constexpr std::size_t kMaxItems = 8000000;  // prims, attributes and samples: what a file may make of its bytes in memory

constexpr std::string_view kCameraAttributes[] = {"projection",
                                                  "horizontalAperture",
                                                  "verticalAperture",
                                                  "horizontalApertureOffset",
                                                  "verticalApertureOffset",
                                                  "focalLength",
                                                  "clippingRange",
                                                  "clippingPlanes",
                                                  "fStop",
                                                  "focusDistance",
                                                  "stereoRole",
                                                  "shutter:open",
                                                  "shutter:close"};
constexpr std::string_view kModifiers[] = {"custom", "uniform", "varying", "config", "prepend", "append", "add", "delete", "reorder"};
constexpr std::string_view kFollowed[] = {"references", "payload", "inherits", "specializes", "subLayers", "clips"};

bool StartsWith(std::string_view text, std::string_view start) { return text.substr(0, start.size()) == start; }

template <std::size_t N>
bool IsOneOf(std::string_view text, const std::string_view (&known)[N]) {
    return std::find(std::begin(known), std::end(known), text) != std::end(known);
}

bool IsKept(std::string_view attribute) {
    return StartsWith(attribute, "xformOp") || StartsWith(attribute, "exposure") ||
           IsOneOf(attribute, kCameraAttributes);
}

class Parser {
  public:
    Parser(const SourceText &source, std::string_view bytes) : source_(source), tokens_(source, bytes) {}

    UsdLayer Layer() {
        if (tokens_.Next().Is("(")) layer_.metadata = Metadata(nullptr);
        while (tokens_.Next().kind != UsdToken::kEnd) {
            if (tokens_.TakeIf(";")) continue;
            if (tokens_.Next().Is("reorder")) {
                Reorder();
            } else {
                layer_.prims.push_back(Prim());
            }
        }
        return std::move(layer_);
    }

  private:
    struct Level {
        Level(std::size_t *depth, const UsdTokens &tokens) : depth_(*depth) {
            if (++depth_ > kMaxUsdDepth) tokens.Refuse("at most " + std::to_string(kMaxUsdDepth) + " levels");
        }
        ~Level() { --depth_; }
        Level(const Level &) = delete;
        Level &operator=(const Level &) = delete;
        std::size_t &depth_;
    };

    void CountItem() {
        if (++items_ > kMaxItems) tokens_.Refuse("the end of the file (at most " + std::to_string(kMaxItems) + " prims, attributes and samples)");
    }

    void NoteUnfollowed(const std::string &name) {
        if (std::find(layer_.unfollowed.begin(), layer_.unfollowed.end(), name) == layer_.unfollowed.end())
            layer_.unfollowed.push_back(name);
    }

    // { string SET = "VARIANT" ... }
    void Selections(UsdPrim *prim) {
        tokens_.Expect("{");
        while (!tokens_.TakeIf("}")) {
            if (tokens_.TakeIf(";") || tokens_.TakeIf(",")) continue;
            tokens_.Expect("string");
            const UsdToken::Kind kind = tokens_.Next().kind;
            if (kind != UsdToken::kText && kind != UsdToken::kWord) tokens_.Refuse("the name of a variant set");
            const std::string set(tokens_.Take().text);
            tokens_.Expect("=");
            if (tokens_.Next().kind != UsdToken::kText) tokens_.Refuse("the name of a variant in quotes");
            prim->selections[set] = tokens_.Take().text;
        }
    }

    // Entries in brackets: a name and a value, or a comment's text. Of a prim the entries go to it, else they are
    // returned.
    std::map<std::string, UsdValue> Metadata(UsdPrim *prim) {
        std::map<std::string, UsdValue> entries;
        tokens_.Expect("(");
        while (!tokens_.TakeIf(")")) {
            if (tokens_.TakeIf(";") || tokens_.TakeIf(",")) continue;
            if (tokens_.Next().kind == UsdToken::kText) {
                tokens_.Take();
                continue;
            }
            if (tokens_.Next().kind != UsdToken::kWord) tokens_.Refuse("a name or ')'");
            bool removes = false;
            while (IsOneOf(tokens_.Next().text, kModifiers)) removes = tokens_.Take().text == "delete";
            if (tokens_.Next().kind != UsdToken::kWord) tokens_.Refuse("a name");
            const std::string name(tokens_.Take().text);
            tokens_.Expect("=");
            Entry(name, removes, prim, &entries);
        }
        return entries;
    }

    void Entry(const std::string &name, bool removes, UsdPrim *prim, std::map<std::string, UsdValue> *entries) {
        if (IsOneOf(name, kFollowed)) {
            if (!removes && !tokens_.Next().Is("None")) NoteUnfollowed(name);
        } else if (prim != nullptr && name == "variants" && tokens_.Next().Is("{")) {
            return Selections(prim);
        } else if (prim != nullptr && name == "active") {
            prim->is_active = !tokens_.Next().Is("false") && !tokens_.Next().Is("False") && !tokens_.Next().Is("0");
        } else if (prim == nullptr && !tokens_.NextOpens()) {
            CountItem();
            (*entries)[name] = TakeUsdValue(&tokens_);
            return;
        }
        SkipUsdValue(&tokens_);
        if (tokens_.Next().Is("(")) tokens_.SkipBrackets();  // of a reference: its offset in time
    }

    // reorder rootPrims = [...]
    void Reorder() {
        tokens_.Expect("reorder");
        tokens_.Take();
        tokens_.Expect("=");
        SkipUsdValue(&tokens_);
    }

    bool NextIsPrim() const {
        return tokens_.Next().Is("def") || tokens_.Next().Is("over") || tokens_.Next().Is("class");
    }

    UsdPrim Prim() {
        UsdPrim prim;
        prim.place = tokens_.Next().place;
        if (!NextIsPrim()) tokens_.Refuse("'def'");
        prim.is_class = tokens_.Take().text == "class";
        if (tokens_.Next().kind == UsdToken::kWord) prim.type = tokens_.Take().text;
        if (tokens_.Next().kind != UsdToken::kText) tokens_.Refuse("the name of a prim in quotes");
        if (tokens_.Next().text.size() > kLongestName)
            tokens_.Refuse("a name of at most " + std::to_string(kLongestName) + " bytes");
        prim.name = tokens_.Take().text;
        Contents(&prim);
        return prim;
    }

    // Metadata, and what stands in braces.
    void Contents(UsdPrim *prim) {
        const Level level(&depth_, tokens_);
        CountItem();
        if (tokens_.Next().Is("(")) Metadata(prim);
        tokens_.Expect("{");
        while (!tokens_.TakeIf("}")) {
            if (tokens_.TakeIf(";")) continue;
            if (NextIsPrim()) {
                prim->children.push_back(Prim());
            } else if (tokens_.Next().Is("variantSet")) {
                prim->variant_sets.push_back(VariantSet());
            } else {
                Property(prim);
            }
        }
    }

    UsdVariantSet VariantSet() {
        const Level level(&depth_, tokens_);
        CountItem();
        UsdVariantSet set;
        tokens_.Expect("variantSet");
        if (tokens_.Next().kind != UsdToken::kText) tokens_.Refuse("the name of a variant set in quotes");
        set.name = tokens_.Take().text;
        tokens_.Expect("=");
        tokens_.Expect("{");
        while (!tokens_.TakeIf("}")) {
            if (tokens_.Next().kind != UsdToken::kText) tokens_.Refuse("the name of a variant in quotes, or '}'");
            UsdPrim variant;
            variant.place = tokens_.Next().place;
            variant.name = tokens_.Take().text;
            Contents(&variant);
            set.variants.push_back(std::move(variant));
        }
        return set;
    }

    // [prepend] [custom] [uniform] TYPE NAME or rel NAME; then perhaps "= VALUE" and metadata.
    void Property(UsdPrim *prim) {
        while (IsOneOf(tokens_.Next().text, kModifiers) && tokens_.Next().kind == UsdToken::kWord) {
            if (tokens_.Take().text != "reorder") continue;
            if (!tokens_.Next().Is("nameChildren") && !tokens_.Next().Is("properties")) continue;
            tokens_.Take();
            tokens_.Expect("=");
            return SkipUsdValue(&tokens_);
        }
        if (tokens_.Next().kind != UsdToken::kWord) tokens_.Refuse("an attribute with its type, a prim, or '}'");
        std::string type(tokens_.Take().text);
        if (tokens_.TakeIf("[")) {
            tokens_.Expect("]");
            type += "[]";
        }
        if (tokens_.Next().kind != UsdToken::kWord) tokens_.Refuse("an attribute with its type, a prim, or '}'");
        const UsdToken name = tokens_.Take();
        if (tokens_.Next().Is("[")) tokens_.SkipBrackets();  // of one target of a relationship
        const std::string_view attribute = name.text.substr(0, name.text.find('.'));
        const std::string_view field = name.text.substr(attribute.size());
        if (type != "rel" && IsKept(attribute)) {
            Attribute(prim, type, std::string(attribute), field, name.place);
        } else if (tokens_.TakeIf("=")) {
            SkipUsdValue(&tokens_);
        }
        if (tokens_.Next().Is("(") || tokens_.Next().Is("{")) tokens_.SkipBrackets();
        if (tokens_.Next().Is("(")) tokens_.SkipBrackets();
    }

    void Attribute(UsdPrim *prim, const std::string &type, const std::string &name, std::string_view field,
                   const char *place) {
        CountItem();
        UsdAttribute &attribute = prim->attributes[name];
        if (attribute.place == nullptr) {
            attribute.type = type;
            attribute.place = place;
        }
        if (!tokens_.TakeIf("=")) return;
        if (field == ".timeSamples" && tokens_.Next().Is("{")) {
            attribute.samples = Samples();
        } else if (field.empty()) {
            attribute.value = {TakeUsdValue(&tokens_)};
        } else {
            if (field == ".spline") NoteUnfollowed("splines");
            SkipUsdValue(&tokens_);
        }
    }

    std::vector<UsdSample> Samples() {
        std::vector<UsdSample> samples;
        tokens_.Expect("{");
        while (!tokens_.TakeIf("}")) {
            const auto time = tokens_.Next().kind == UsdToken::kWord ? ParseNumber(tokens_.Next().text) : std::nullopt;
            if (!time) tokens_.Refuse("a time code or '}'");
            CountItem();
            tokens_.Take();
            tokens_.Expect(":");
            samples.push_back({*time, TakeUsdValue(&tokens_)});
            if (!tokens_.Next().Is("}")) tokens_.Expect(",");
        }
        const auto earlier = [](const UsdSample &a, const UsdSample &b) { return a.time_code < b.time_code; };
        if (!std::is_sorted(samples.begin(), samples.end(), earlier))
            std::stable_sort(samples.begin(), samples.end(), earlier);
        for (std::size_t i = 1; i < samples.size(); ++i) {
            if (samples[i - 1].time_code == samples[i].time_code)
                source_.RefuseAt(samples[i].value.place, "another sample at " + FormatNumber(samples[i].time_code), "each time code once");
        }
        return samples;
    }

    const SourceText &source_;
    UsdTokens tokens_;
    UsdLayer layer_;
    std::size_t depth_ = 0, items_ = 0;
};

}  // namespace

UsdLayer ParseUsd(const SourceText &source, std::string_view bytes) {
    const std::string_view first = source.Lines().empty() ? std::string_view() : source.Lines().front().text;
    const bool known = std::any_of(std::begin(kHeaders), std::end(kHeaders),
                                   [first](std::string_view header) { return StartsWith(first, header); });
    if (!known) source.Refuse(1, 1, "another beginning", "'#usda 1.0'");
    // After the byte order mark.
    return Parser(source, bytes.substr(static_cast<std::size_t>(first.data() - bytes.data()))).Layer();
}

}  // namespace tremolux

// A layer of a scene description, as far as a camera needs it: prims, their transforms and a camera's attributes.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "library/formats/source_text.h"

namespace tremolux {

// A number, a text, or numbers in brackets within brackets, without the brackets.
struct UsdValue {
    std::vector<double> numbers;  // of more than a matrix has: the first ones
    std::vector<std::string> texts;
    bool is_none = false;
    const char *place = nullptr;
};

struct UsdSample {
    double time_code = 0;
    UsdValue value;
};

struct UsdAttribute {
    std::string type;
    std::vector<UsdValue> value;     // one, or none where nothing is said
    std::vector<UsdSample> samples;  // in the order of time
    const char *place = nullptr;
    bool SaysSomething() const { return !value.empty() || !samples.empty(); }
};

struct UsdVariantSet;

struct UsdPrim {
    std::string type, name;
    bool is_class = false, is_active = true;
    std::map<std::string, UsdAttribute> attributes;
    std::map<std::string, std::string> selections;  // variants by the names of their sets
    std::vector<UsdVariantSet> variant_sets;
    std::vector<UsdPrim> children;
    const char *place = nullptr;
};

struct UsdVariantSet {
    std::string name;
    std::vector<UsdPrim> variants;  // what each says of the prim that the set stands in
};

struct UsdLayer {
    std::map<std::string, UsdValue> metadata;
    std::vector<UsdPrim> prims;
    // What is said of other files or prims, and of splines: "references", "payload", ..., each once.
    std::vector<std::string> unfollowed;
};

// `bytes` are those of `source` and must outlive the result. Throws a Failure that names the place.
UsdLayer ParseUsd(const SourceText &source, std::string_view bytes);

// Each prim is then what its chosen variants make of it.
void ApplyVariants(UsdLayer *layer);

}  // namespace tremolux

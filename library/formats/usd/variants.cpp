#include <algorithm>

#include "library/formats/usd/layer.h"

namespace tremolux {
namespace {

// What the prim says itself comes before what the weaker one says of it.
void MergeWeaker(UsdPrim weaker, UsdPrim *prim) {
    if (prim->type.empty()) prim->type = weaker.type;
    prim->is_active = prim->is_active && weaker.is_active;
    prim->selections.insert(weaker.selections.begin(), weaker.selections.end());
    for (auto &[name, attribute] : weaker.attributes) {
        UsdAttribute &own = prim->attributes[name];
        if (!own.SaysSomething()) own = std::move(attribute);
    }
    for (UsdVariantSet &set : weaker.variant_sets) prim->variant_sets.push_back(std::move(set));
    for (UsdPrim &child : weaker.children) {
        const auto own = std::find_if(prim->children.begin(), prim->children.end(),
                                      [&child](const UsdPrim &known) { return known.name == child.name; });
        if (own == prim->children.end()) {
            prim->children.push_back(std::move(child));
        } else {
            MergeWeaker(std::move(child), &*own);
        }
    }
}

void ApplyTo(UsdPrim *prim) {
    // A chosen variant may bring sets of its own, which come last.
    for (std::size_t i = 0; i < prim->variant_sets.size(); ++i) {
        UsdVariantSet set = std::move(prim->variant_sets[i]);
        const auto selection = prim->selections.find(set.name);
        if (selection == prim->selections.end()) continue;
        for (UsdPrim &variant : set.variants) {
            if (variant.name != selection->second) continue;
            MergeWeaker(std::move(variant), prim);
            break;
        }
    }
    prim->variant_sets.clear();
    for (UsdPrim &child : prim->children) ApplyTo(&child);
}

}  // namespace

void ApplyVariants(UsdLayer *layer) {
    for (UsdPrim &prim : layer->prims) ApplyTo(&prim);
}

}  // namespace tremolux

// Values of attributes and metadata in the text form of scene descriptions.
#pragma once

#include "library/formats/usd/layer.h"
#include "library/formats/usd/tokens.h"

namespace tremolux {

UsdValue TakeUsdValue(UsdTokens *tokens);
// One that nobody asks for: also an asset with the path of a prim in it.
void SkipUsdValue(UsdTokens *tokens);

}  // namespace tremolux

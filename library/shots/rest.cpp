#include "library/shots/rest.h"

#include "generated/module_ids.h"
#include "host/value/descid.h"
#include "library/presets/pair.h"

namespace tremolux {

void ComeToRest(host::Tag *tag) {
    FollowExactly(tag);
    for (const std::int32_t id :
         {ids::kPositionSlow, ids::kPositionMedium, ids::kPositionFast, ids::kRotationSlow, ids::kRotationMedium,
          ids::kRotationFast, ids::kZoomDriftSlow, ids::kZoomDriftMedium, ids::kZoomDriftFast, ids::kFocusDriftSlow,
          ids::kFocusDriftMedium, ids::kFocusDriftFast})
        tag->SetParameter(host::MakeId(id), host::Data(0.0));
    tag->SetParameter(host::MakeId(ids::kUseJolt), host::Data(0));
}

}  // namespace tremolux

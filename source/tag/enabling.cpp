// Which controls of the panel answer to the user.
#include "lib_description.h"
#include "tag/parameters.h"
#include "tag/scene.h"
#include "tag/state.h"
#include "tag/tremoluxcam.h"

namespace {

enum class TargetRule { kNeeds, kExcludes };

struct TargetDependence {
    LONG id;
    TargetRule rule;
};

// A target takes over the rotation: its own amounts answer then, and those of the input do not.
constexpr TargetDependence kTargetDependences[] = {{kTargetOvershoot, TargetRule::kNeeds},
                                                   {kTargetOvershootFade, TargetRule::kNeeds},
                                                   {kTargetSmooth, TargetRule::kNeeds},
                                                   {kTargetReserved, TargetRule::kNeeds},
                                                   {kInitialRotationSmooth, TargetRule::kExcludes},
                                                   {kInitialRotationOvershoot, TargetRule::kExcludes},
                                                   {kRotationOvershootFade, TargetRule::kExcludes}};

}  // namespace

Bool TremoluxCamClass::GetDEnabling(GeListNode *node, const DescID &id, const GeData &value, DESCFLAGS_ENABLE flags,
                                    const BaseContainer *settings) {
    BaseDocument *doc = node ? node->GetDocument() : NULL;
    const BaseContainer *data = doc ? ((BaseTag *)node)->GetDataInstance() : NULL;
    if (!data) return TRUE;
    if (data->GetBool(kBaked)) return id[0].id == kUnBake;
    for (const TargetDependence &dependence : kTargetDependences) {
        if (dependence.id != id[0].id) continue;
        const Bool has_target = HasTarget((BaseTag *)node, *data);
        if (dependence.rule == TargetRule::kNeeds) return has_target;
        if (has_target) return FALSE;
    }
    return SUPER::GetDEnabling(node, id, value, flags, settings);
}

// What the panel's buttons do.
#include <cmath>

#include "lib_description.h"
#include "presets/shuffle.h"
#include "tag/parameters.h"
#include "tag/random.h"
#include "tag/state.h"
#include "tag/step.h"
#include "tag/tremoluxcam.h"

namespace {

constexpr LONG kSeeds = 100000;

struct ScaleButton {
    LONG id;
    Real scale;
};

constexpr ScaleButton kScaleButtons[] = {
    {kScaleCoffeeCup, 0.2}, {kScaleHuman, 1.0}, {kScaleCar, 1.3}, {kScaleHouse, 5.0}, {kScaleSkyscraper, 20.0}};

constexpr LONG kPositionShake[] = {kPositionSlow, kPositionMedium, kPositionFast};
constexpr LONG kRotationShake[] = {kRotationSlow, kRotationMedium, kRotationFast};
constexpr LONG kFollowingInput[] = {kInitialRotationSmooth, kInitialRotationOvershoot, kInitialPositionSmooth,
                                    kInitialPositionOvershoot};
constexpr LONG kFollowingTarget[] = {kTargetSmooth, kTargetOvershoot, kInitialPositionSmooth,
                                     kInitialPositionOvershoot};

}  // namespace

template <LONG count>
void TremoluxCamClass::ZeroParameters(const LONG (&ids)[count], BaseTag *tag, BaseContainer *data) {
    const UndoStep step(tag);
    for (LONG id : ids) data->SetReal(id, 0.0);
    SelectNoPreset(data);
}

void TremoluxCamClass::RandomizeSeed(BaseContainer *data) {
    const GeData seed = data->GetData(kSeed);
    const Bool is_whole = (seed.GetType() == DA_REAL || seed.GetType() == DA_LONG) &&
                          std::floor(seed.GetReal()) == seed.GetReal() && std::isfinite(seed.GetReal());
    if (is_whole) data->SetReal(kSeed, (Real)(NextRandom() % kSeeds));
}

void TremoluxCamClass::ApplyLuckyPreset(BaseTag *tag, BaseContainer *data) {
    if (shaking_presets_.empty()) return;
    const UndoStep step(tag);
    const LONG last = data->GetLong(kLuckyPosition, -1);
    const Bool is_next_there = last >= -1 && last < (LONG)shaking_presets_.size() - 1;
    if (!is_next_there) shaking_presets_ = Shuffled(shaking_presets_);
    const LONG position = is_next_there ? last + 1 : 0;
    CopyPreset(shaking_presets_[position], data);
    ParseCustomTrigger(data);
    ParseCustomTriggerTwin(data);
    data->SetLong(kCategory, kCategoryUser);
    SelectNoPreset(data);
    data->SetLong(kLuckyPosition, position);
    CollectCategoryPresets(data);
    RandomizeSeed(data);
}

void TremoluxCamClass::CreateLinkedNull(const CHAR *name, LONG link, BaseTag *tag, BaseContainer *data) {
    BaseDocument *doc = tag->GetDocument();
    BaseObject *null = doc ? BaseObject::Alloc(Onull) : NULL;
    if (!null) return;
    UndoStep step(tag);
    null->SetName(String(name));
    doc->InsertObject(null, NULL, NULL);
    step.Add(UNDOTYPE_NEW, null);
    data->SetLink(link, null);
}

void TremoluxCamClass::SetOverallScale(LONG button, BaseTag *tag, BaseContainer *data) {
    const UndoStep step(tag);
    for (const ScaleButton &scale : kScaleButtons)
        if (scale.id == button) data->SetReal(kOverallScale, scale.scale);
}

void TremoluxCamClass::PressButton(LONG id, BaseTag *tag, BaseContainer *data) {
    if (BaseDocument *doc = tag->GetDocument()) doc->AddUndo(UNDOTYPE_CHANGE, tag);
    switch (id) {
        case kInputCamera:
            // The host tells of a new link twice.
            if (!input_is_set_up_) SetUpInputCamera(tag, data);
            input_is_set_up_ = FALSE;
            break;
        case kZeroPosition:
            ZeroParameters(kPositionShake, tag, data);
            break;
        case kZeroRotation:
            ZeroParameters(kRotationShake, tag, data);
            break;
        case kZeroInitials:
            if (data->GetObjectLink(kTargetObject, tag->GetDocument()))
                ZeroParameters(kFollowingTarget, tag, data);
            else
                ZeroParameters(kFollowingInput, tag, data);
            break;
        case kRandomizeSeeds: {
            const UndoStep step(tag);
            RandomizeSeed(data);
            break;
        }
        case kFeelingLucky:
            ApplyLuckyPreset(tag, data);
            break;
        case kCreateFocus:
            CreateLinkedNull("Focus Null", kFocusObject, tag, data);
            break;
        case kCreateTarget:
            CreateLinkedNull("Target Null", kTargetObject, tag, data);
            break;
        case kScaleCoffeeCup:
        case kScaleHuman:
        case kScaleCar:
        case kScaleHouse:
        case kScaleSkyscraper:
            SetOverallScale(id, tag, data);
            break;
        case kQuickBake:
            StartQuickBake(tag, data);
            break;
        case kBruteForceBake:
            BruteForceBake(tag, data);
            break;
        case kUnBake:
            UnBake(tag, data);
            break;
        case kSavePreset:
            SaveUserPreset(data);
            break;
        case kDeletePreset:
            DeleteUserPreset(data);
            break;
        case kChoosePresetFolder:
            SetUserPresetFolder(data);
            break;
        case kResetPresetFolder:
            ResetUserPresetFolder(data);
            break;
        case kExportCurrent:
            ExportCurrentPreset(data);
            break;
        case kExportAll:
            ExportAllPresets();
            break;
        default:
            return;
    }
    // The lists that the panel shows may be others now.
    tag->Message(MSG_CHANGE);
    tag->SetDirty(DIRTYFLAGS_DATA | DIRTYFLAGS_DESCRIPTION);
    EventAdd();
}

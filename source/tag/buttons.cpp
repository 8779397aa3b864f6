// What the panel's buttons do.
#include <algorithm>
#include <cmath>
#include <iterator>

#include "lib_description.h"
#include "presets/library.h"
#include "presets/lucky.h"
#include "tag/help.h"
#include "tag/parameters.h"
#include "tag/random.h"
#include "tag/scene.h"
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

// Those that change the tag or the scene; the others bake, work on files or open a page.
constexpr LONG kOneStep[] = {kInputCamera,  kZeroPosition, kZeroRotation,   kZeroInitials,   kRandomizeSeeds,
                             kFeelingLucky, kCreateFocus,  kCreateTarget,   kScaleCoffeeCup, kScaleHuman,
                             kScaleCar,     kScaleHouse,   kScaleSkyscraper};

Bool IsOneStep(LONG id) { return std::find(std::begin(kOneStep), std::end(kOneStep), id) != std::end(kOneStep); }

constexpr LONG kPositionShake[] = {kPositionSlow, kPositionMedium, kPositionFast};
constexpr LONG kRotationShake[] = {kRotationSlow, kRotationMedium, kRotationFast};
constexpr LONG kFollowingInput[] = {kInitialRotationSmooth, kInitialRotationOvershoot, kInitialPositionSmooth,
                                    kInitialPositionOvershoot};
constexpr LONG kFollowingTarget[] = {kTargetSmooth, kTargetOvershoot, kInitialPositionSmooth,
                                     kInitialPositionOvershoot};

}  // namespace

template <LONG count>
void TremoluxCamClass::ZeroParameters(const LONG (&ids)[count], BaseContainer *data) {
    for (LONG id : ids) data->SetReal(id, 0.0);
    SelectNoPreset(data);
}

void TremoluxCamClass::RandomizeSeed(BaseContainer *data) {
    const GeData seed = data->GetData(kSeed);
    const Bool is_whole = (seed.GetType() == DA_REAL || seed.GetType() == DA_LONG) &&
                          std::floor(seed.GetReal()) == seed.GetReal() && std::isfinite(seed.GetReal());
    if (is_whole) data->SetReal(kSeed, (Real)(NextRandom() % kSeeds));
}

// As the files are now: what could not be read before may be there by this time.
Bool TremoluxCamClass::HasLuckyPresets(const BaseContainer &data) {
    ForgetPresetLibrary();
    library_ = ReadPresetLibrary(data.GetFilename(kBuiltInPresetFolder));
    return !library_->shaking.empty();
}

void TremoluxCamClass::ApplyLuckyPreset(BaseContainer *data) {
    std::vector<String> order = ReadLuckyOrder(*data);
    if (order.empty()) order = lucky_order_;
    const LONG position = NextInLuckyOrder(IdsOf(*library_), data->GetLong(kLuckyPosition, -1), &order);
    for (const ShakingPreset &shaking : library_->shaking) {
        if (shaking.id != order[position]) continue;
        const BaseContainer preset = shaking.preset;
        CopyPreset(preset, data);
        break;
    }
    ParseCustomTrigger(data);
    ParseCustomTriggerTwin(data);
    data->SetLong(kCategory, kCategoryUser);
    SelectNoPreset(data);
    data->SetLong(kLuckyPosition, position);
    WriteLuckyOrder(order, data);
    CollectCategoryPresets(data);
    RandomizeSeed(data);
}

void TremoluxCamClass::CreateLinkedNull(const CHAR *name, LONG link, UndoStep *step, BaseDocument *doc,
                                        BaseContainer *data) {
    BaseObject *null = doc ? BaseObject::Alloc(Onull) : NULL;
    if (!null) return;
    null->SetName(String(name));
    doc->InsertObject(null, NULL, NULL);
    step->Add(UNDOTYPE_NEW, null);
    data->SetLink(link, null);
}

void TremoluxCamClass::SetOverallScale(LONG button, BaseContainer *data) {
    for (const ScaleButton &scale : kScaleButtons)
        if (scale.id == button) data->SetReal(kOverallScale, scale.scale);
}

// One step of the user's, whoever sends the message.
void TremoluxCamClass::ChangeSettings(LONG id, BaseTag *tag, BaseContainer *data) {
    UndoStep step(tag);
    switch (id) {
        case kInputCamera:
            // The host tells of a new link twice.
            if (ResolveObject(*data, kInputCamera, tag->GetDocument()) != set_up_input_) SetUpInputCamera(tag, data);
            set_up_input_ = NULL;
            break;
        case kZeroPosition:
            ZeroParameters(kPositionShake, data);
            break;
        case kZeroRotation:
            ZeroParameters(kRotationShake, data);
            break;
        case kZeroInitials:
            if (HasTarget(tag, *data))
                ZeroParameters(kFollowingTarget, data);
            else
                ZeroParameters(kFollowingInput, data);
            break;
        case kRandomizeSeeds:
            RandomizeSeed(data);
            break;
        case kFeelingLucky:
            ApplyLuckyPreset(data);
            break;
        case kCreateFocus:
            CreateLinkedNull("Focus Null", kFocusObject, &step, tag->GetDocument(), data);
            break;
        case kCreateTarget:
            CreateLinkedNull("Target Null", kTargetObject, &step, tag->GetDocument(), data);
            break;
        default:
            SetOverallScale(id, data);
            break;
    }
}

// What it changes belongs to the step that the host has open, if any. FALSE when the panel stays as it is.
Bool TremoluxCamClass::RunOperation(LONG id, BaseTag *tag, BaseContainer *data) {
    if (BaseDocument *doc = tag->GetDocument()) doc->AddUndo(UNDOTYPE_CHANGE, tag);
    switch (id) {
        case kHelp:
            OpenGuide();
            return FALSE;
        case kQuickBake:
            StartQuickBake(tag, data);
            return TRUE;
        case kBruteForceBake:
            BruteForceBake(tag, data);
            return TRUE;
        case kUnBake:
            UnBake(tag, data);
            return TRUE;
        case kSavePreset:
            SaveUserPreset(data);
            return TRUE;
        case kDeletePreset:
            DeleteUserPreset(data);
            return TRUE;
        case kChoosePresetFolder:
            SetUserPresetFolder(data);
            return TRUE;
        case kResetPresetFolder:
            ResetUserPresetFolder(data);
            return TRUE;
        case kExportCurrent:
            ExportCurrentPreset(data);
            return TRUE;
        case kExportAll:
            ExportAllPresets();
            return TRUE;
        default:
            return FALSE;
    }
}

void TremoluxCamClass::PressButton(LONG id, BaseTag *tag, BaseContainer *data) {
    if (id == kFeelingLucky && !HasLuckyPresets(*data)) return;
    if (IsOneStep(id))
        ChangeSettings(id, tag, data);
    else if (!RunOperation(id, tag, data))
        return;
    // The lists that the panel shows may be others now.
    tag->Message(MSG_CHANGE);
    tag->SetDirty(DIRTYFLAGS_DATA | DIRTYFLAGS_DESCRIPTION);
    EventAdd();
}

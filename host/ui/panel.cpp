#include "host/ui/panel.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "host/description/description.h"
#include "host/scene/document.h"
#include "host/scene/parameters.h"
#include "host/ui/attribute_manager.h"
#include "host/ui/field_text.h"

namespace host {
namespace {

constexpr std::int32_t kGadgetSlider = 1000489;
constexpr int kPlainFps = 30;  // of a node in no document

int FpsOf(const Node *node) {
    const Document *document = node->GetDocument();
    return document != nullptr ? document->Fps() : kPlainFps;
}

Gadget GadgetOf(const Description::Entry &entry) {
    switch (entry.id.level[0].dtype) {
        case kDataReal:
            return entry.settings.Whole(kDescCustomGui) == kGadgetSlider ? Gadget::kSlider : Gadget::kNumber;
        case kDataWhole:
            return entry.settings.Has(kDescCycle) ? Gadget::kCycle : Gadget::kNumber;
        case kDescribedBool:
            return Gadget::kToggle;
        case kDataLink:
            return Gadget::kLink;
        case kDescribedButton:
            return Gadget::kButton;
        case kDataTime:
            return Gadget::kTime;
        case kDataString:
            return Gadget::kText;
        default:
            return Gadget::kOther;
    }
}

double NumberOf(const Data &data, int frames_per_second) {
    if (data.type == kDataTime) return std::round(Seconds(data.GetTime()) * frames_per_second);
    return data.Real();
}

std::optional<double> Setting(const Container &settings, std::int32_t key, int frames_per_second) {
    const Data *data = settings.Find(key);
    if (data == nullptr) return std::nullopt;
    return NumberOf(*data, frames_per_second);
}

std::vector<std::pair<std::int32_t, std::string>> ChoicesOf(const Container &settings) {
    std::vector<std::pair<std::int32_t, std::string>> choices;
    const Data *cycle = settings.Find(kDescCycle);
    const Container *entries = cycle != nullptr ? cycle->GetContainer() : nullptr;
    for (std::int32_t i = 0; entries != nullptr && i < entries->Count(); ++i)
        choices.emplace_back(entries->IdAt(i), entries->DataAt(i)->Text());
    return choices;
}

std::string TextOf(const PanelControl &control, const Data &value, const Node *node) {
    switch (control.gadget) {
        case Gadget::kNumber:
        case Gadget::kSlider:
            return FieldText(control.number, control.unit);
        case Gadget::kTime:
            return FieldText(control.number, kUnitFrames);
        case Gadget::kToggle:
            return control.number != 0 ? "on" : "off";
        case Gadget::kCycle:
            for (const auto &[choice, label] : control.choices)
                if (choice == value.Whole()) return label;
            return "";
        case Gadget::kLink: {
            const auto *linked = static_cast<const Node *>(value.Link(node->GetDocument()));
            return linked != nullptr ? linked->Name() : "";
        }
        case Gadget::kText:
            return value.Text();
        default:
            return "";
    }
}

PanelControl ControlOf(Node *node, const Description::Entry &entry) {
    const int fps = FpsOf(node);
    const Container &settings = entry.settings;
    PanelControl control;
    control.id = entry.id;
    control.key = LevelId(entry.id, 0);
    control.label = settings.Text(settings.Has(kDescShortName) ? kDescShortName : kDescName);
    control.gadget = GadgetOf(entry);
    control.unit = settings.Whole(kDescUnit);
    control.minimum = Setting(settings, kDescMin, fps);
    control.maximum = Setting(settings, kDescMax, fps);
    control.slider_minimum = Setting(settings, kDescMinSlider, fps);
    control.slider_maximum = Setting(settings, kDescMaxSlider, fps);
    control.step = Setting(settings, kDescStep, fps);
    control.choices = ChoicesOf(settings);
    Data value;
    // A parameter that the node does not hold shows its default.
    if (!node->GetParameter(entry.id, &value) || value.type == kDataNil)
        if (const Data *declared = settings.Find(kDescDefault)) value = *declared;
    control.number = NumberOf(value, fps);
    control.text = TextOf(control, value, node);
    control.enabled = control.gadget == Gadget::kOther || IsControlEnabled(node, entry.id, settings);
    return control;
}

// Groups under construction, by key, and the order of their entries.
using Members = std::map<std::int32_t, std::vector<const Description::Entry *>>;

void AddCell(PanelGroup *group, PanelCell cell, bool whole_row) {
    const bool full = group->rows.empty() || static_cast<std::int32_t>(group->rows.back().size()) >= group->columns;
    if (full || whole_row) group->rows.emplace_back();
    group->rows.back().push_back(std::move(cell));
}

constexpr int kDeepest = 16;  // groups that contain each other end here

PanelGroup GroupOf(Node *node, const Description::Entry &entry, const Members &members, int depth) {
    PanelGroup group;
    group.key = LevelId(entry.id, 0);
    group.title = entry.settings.Text(kDescName);
    group.columns = std::max(entry.settings.Whole(kDescColumns, 1), 1);
    group.open = entry.settings.Whole(kDescDefault) != 0;
    group.scaled = entry.settings.Whole(kDescScaleH) != 0;
    const auto own = members.find(group.key);
    if (own == members.end() || depth >= kDeepest) return group;
    for (const Description::Entry *member : own->second) {
        if (member->settings.Whole(kDescHide) != 0) continue;
        switch (member->id.level[0].dtype) {
            case kDescribedGroup:
                AddCell(&group, std::make_unique<PanelGroup>(GroupOf(node, *member, members, depth + 1)), false);
                break;
            case kDescribedSeparator:
                AddCell(
                    &group,
                    PanelSeparator{member->settings.Text(kDescName), member->settings.Whole(kDescSeparatorLine) != 0},
                    group.columns == 1);
                break;
            default:
                AddCell(&group, ControlOf(node, *member), false);
        }
    }
    return group;
}

}  // namespace

std::vector<PanelGroup> BuildPanel(Node *node) {
    std::vector<PanelGroup> tabs;
    Description description;
    if (node == nullptr || !BuildDescription(node, nullptr, 0, &description)) return tabs;
    Members members;
    std::map<std::int32_t, bool> is_group;
    for (const Description::Entry &entry : description.entries) {
        members[LevelId(entry.group, 0)].push_back(&entry);
        if (entry.id.level[0].dtype == kDescribedGroup) is_group[LevelId(entry.id, 0)] = true;
    }
    for (const Description::Entry &entry : description.entries) {
        // A group whose parent is no group of this description is a tab.
        if (entry.id.level[0].dtype != kDescribedGroup || is_group.count(LevelId(entry.group, 0)) != 0) continue;
        PanelGroup tab = GroupOf(node, entry, members, 0);
        if (!tab.rows.empty()) tabs.push_back(std::move(tab));
    }
    return tabs;
}

bool TypeIntoField(Node *node, const TableDescID &id, const std::string &text) {
    DescribedParameter described;
    if (node == nullptr || !FindDescribed(node, id, &described)) return false;
    const int fps = FpsOf(node);
    if (described.value_type == kDataString) return EditParameter(node, id, Data(text));
    if (described.value_type == kDataTime) {
        const std::optional<double> frames = ParseField(text, kUnitFrames, fps);
        constexpr double kMostFrames = 2147483647;
        if (!frames || std::fabs(*frames) > kMostFrames) return false;
        return EditParameter(node, id, Data(MakeTime(std::round(*frames), fps)));
    }
    if (described.value_type != kDataReal) return false;
    const std::optional<double> number = ParseField(text, described.settings.Whole(kDescUnit), fps);
    return number && EditParameter(node, id, Data(*number));
}

}  // namespace host

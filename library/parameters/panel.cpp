#include "library/parameters/panel.h"

#include <algorithm>
#include <functional>
#include <iterator>

#include "host/description/description.h"
#include "host/scene/parameters.h"
#include "library/failure.h"
#include "library/formats/numbers.h"

namespace tremolux {
namespace {

PanelEntryKind EntryKindOf(std::int32_t described_type) {
    if (described_type == host::kDescribedGroup) return PanelEntryKind::kGroup;
    return described_type == host::kDescribedSeparator ? PanelEntryKind::kSeparator : PanelEntryKind::kParameter;
}

const PanelEntry *Find(const std::vector<PanelEntry> &panel, std::int32_t id, bool is_group) {
    const auto found = std::find_if(panel.begin(), panel.end(), [&](const PanelEntry &entry) {
        return entry.id == id && (entry.kind == PanelEntryKind::kGroup) == is_group;
    });
    return found == panel.end() ? nullptr : &*found;
}

}  // namespace

std::vector<PanelEntry> DescribedPanel(const host::Tag &tag, const std::vector<Parameter> &parameters) {
    host::Description description;
    if (!host::BuildDescription(&tag, nullptr, 0, &description))
        throw Failure(kExitModule, "the module does not describe its tag's panel");
    std::vector<PanelEntry> panel;
    for (const host::Description::Entry &described : description.entries) {
        if (described.id.depth != 1 || described.settings.Whole(host::kDescHide) != 0) continue;
        PanelEntry entry;
        entry.kind = EntryKindOf(described.id.level[0].dtype);
        entry.id = described.id.level[0].id;
        entry.group = host::LevelId(described.group, 0);
        entry.title = Trimmed(described.settings.Text(host::kDescName));
        entry.columns = std::max(described.settings.Whole(host::kDescColumns, 1), 1);
        entry.is_open = described.settings.Whole(host::kDescDefault) != 0;
        entry.has_line = described.settings.Whole(host::kDescSeparatorLine) != 0;
        const bool is_known =
            entry.kind != PanelEntryKind::kParameter ||
            std::any_of(parameters.begin(), parameters.end(), [&](const Parameter &own) { return own.id == entry.id; });
        if (is_known) panel.push_back(std::move(entry));
    }
    // A group whose parent is no group of this description is a tab.
    for (PanelEntry &entry : panel)
        if (Find(panel, entry.group, true) == nullptr) entry.group = 0;
    const auto is_empty_tab = [&panel](const PanelEntry &entry) {
        return entry.kind == PanelEntryKind::kGroup && entry.group == 0 &&
               std::none_of(panel.begin(), panel.end(), [&](const PanelEntry &inner) { return inner.group == entry.id; });
    };
    std::vector<PanelEntry> shown;
    std::copy_if(panel.begin(), panel.end(), std::back_inserter(shown), std::not_fn(is_empty_tab));
    return shown;
}

PanelPlace FindPlace(const std::vector<PanelEntry> &panel, std::int32_t parameter) {
    PanelPlace place;
    const PanelEntry *entry = Find(panel, parameter, false);
    if (entry == nullptr) return place;
    place.group = entry->group;
    // Groups that contain each other end here.
    for (std::size_t depth = 0; depth < panel.size(); ++depth) {
        const PanelEntry *group = Find(panel, entry->group, true);
        if (group == nullptr) break;
        if (group->group == 0)
            place.tab = group->title;
        else if (place.section.empty())
            place.section = group->title;
        entry = group;
    }
    return place;
}

}  // namespace tremolux

#include "library/parameters/shown_values.h"

#include <algorithm>
#include <map>

#include "generated/module_ids.h"
#include "host/ui/panel.h"
#include "library/formats/numbers.h"

namespace tremolux {
namespace {

bool HasValue(const host::PanelControl &control) {
    return control.key >= ids::kFirstPresetId && control.key <= ids::kLastPresetId &&
           control.key != ids::kUserPresetFolder && control.gadget != host::Gadget::kLink &&
           control.gadget != host::Gadget::kButton;
}

void Collect(const host::PanelGroup &group, std::vector<ShownValue> *values) {
    for (const auto &row : group.rows) {
        for (const host::PanelCell &cell : row) {
            if (const auto *inner = std::get_if<std::unique_ptr<host::PanelGroup>>(&cell)) Collect(**inner, values);
            const auto *control = std::get_if<host::PanelControl>(&cell);
            if (control != nullptr && HasValue(*control))
                values->push_back({control->key, std::string(Trimmed(control->label)), control->text});
        }
    }
}

}  // namespace

std::vector<ShownValue> PanelValues(host::Tag *tag) {
    std::vector<ShownValue> values;
    for (const host::PanelGroup &tab : host::BuildPanel(tag)) Collect(tab, &values);
    std::map<std::string, int> uses;
    for (const ShownValue &value : values) ++uses[value.label];
    for (ShownValue &value : values)
        if (uses[value.label] > 1) value.label = std::to_string(value.id) + " " + value.label;
    return values;
}

std::vector<ShownValue> PresetValues(host::Tag *tag) {
    std::vector<ShownValue> values = PanelValues(tag);
    // The scale is the scene's own.
    values.erase(std::remove_if(values.begin(), values.end(),
                                [](const ShownValue &value) { return value.id == ids::kOverallScale; }),
                 values.end());
    return values;
}

}  // namespace tremolux

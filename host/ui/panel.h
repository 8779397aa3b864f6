// A node's parameters as its panel shows them: tabs, groups and rows, filled by the description's rules.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "host/value/data.h"
#include "platform/table.h"

namespace host {

class Node;

enum class Gadget { kNumber, kSlider, kToggle, kCycle, kLink, kButton, kTime, kText, kOther };

struct PanelControl {
    TableDescID id{};
    std::int32_t key = 0;  // the id's first level
    std::string label;
    Gadget gadget = Gadget::kOther;
    std::int32_t unit = 0;
    // In the stored unit; of a time in frames.
    std::optional<double> minimum, maximum, slider_minimum, slider_maximum, step;
    std::vector<std::pair<std::int32_t, std::string>> choices;  // of a cycle: value and label
    double number = 0;                                          // of a number, slider, toggle, cycle or time
    std::string text;                                           // what the field shows
    bool enabled = true;
};

struct PanelSeparator {
    std::string title;
    bool line = false;
};

struct PanelGroup;
using PanelCell = std::variant<PanelControl, PanelSeparator, std::unique_ptr<PanelGroup>>;

struct PanelGroup {
    std::int32_t key = 0;
    std::string title;  // empty: a plain box, which cannot be folded
    std::int32_t columns = 1;
    bool open = false, scaled = false;
    std::vector<std::vector<PanelCell>> rows;  // at most `columns` cells each
};

// Tabs without anything in them are left out. Empty for a node that does not describe itself.
std::vector<PanelGroup> BuildPanel(Node *node);

// What a user types into a field: parsed in its unit, held to its limits by the edit. false, and nothing changed, for
// a text that is no value of that field, and for a disabled or unknown control.
bool TypeIntoField(Node *node, const TableDescID &id, const std::string &text);

}  // namespace host

#include "tremolux/words/panel_text.h"

#include <algorithm>

#include "tremolux/words/json_text.h"

namespace tremolux {
namespace {

constexpr std::size_t kLabelWidth = 24, kIndent = 2, kLineWidth = 48;

std::string Padded(std::string text, std::size_t width) {
    if (text.size() < width) text.append(width - text.size(), ' ');
    return text;
}

std::string Value(const host::PanelControl &control) {
    switch (control.gadget) {
        case host::Gadget::kLink:
            return "[" + (control.text.empty() ? "none" : control.text) + "]";
        case host::Gadget::kCycle:
            return "[" + control.text + " v]";
        case host::Gadget::kText:
            return "\"" + control.text + "\"";
        default:
            return control.text;
    }
}

std::string ControlText(const host::PanelControl &control, bool aligned) {
    std::string text;
    if (control.gadget == host::Gadget::kButton) {
        text = "<" + control.label + ">";
    } else if (control.gadget == host::Gadget::kToggle) {
        text = (control.number != 0 ? "[x] " : "[ ] ") + control.label;
    } else {
        text = aligned ? Padded(control.label, kLabelWidth) : control.label + (control.label.empty() ? "" : " ");
        text += Value(control);
    }
    return text + (control.enabled ? "" : " (disabled)");
}

void AddGroup(const host::PanelGroup &group, std::size_t indent, std::string *text);

void AddRow(const std::vector<host::PanelCell> &row, bool aligned, std::size_t indent, std::string *text) {
    std::string line;
    for (const host::PanelCell &cell : row) {
        if (const auto *control = std::get_if<host::PanelControl>(&cell)) {
            line += (line.empty() ? "" : "   ") + ControlText(*control, aligned);
        } else if (const auto *separator = std::get_if<host::PanelSeparator>(&cell)) {
            if (!separator->title.empty()) line += separator->title;
            if (separator->line) line += std::string(kLineWidth - std::min(kLineWidth, indent), '-');
        } else {
            AddGroup(*std::get<std::unique_ptr<host::PanelGroup>>(cell), indent, text);
        }
    }
    if (!line.empty()) *text += std::string(indent, ' ') + line + "\n";
}

void AddGroup(const host::PanelGroup &group, std::size_t indent, std::string *text) {
    const bool titled = !group.title.empty();
    if (titled) *text += std::string(indent, ' ') + (group.open ? "v " : "> ") + group.title + "\n";
    for (const auto &row : group.rows) AddRow(row, group.columns == 1, indent + (titled ? kIndent : 0), text);
}

using Json = nlohmann::ordered_json;

constexpr struct {
    host::Gadget gadget;
    const char *name;
} kKindNames[] = {
    {host::Gadget::kNumber, "number"}, {host::Gadget::kSlider, "slider"}, {host::Gadget::kToggle, "toggle"},
    {host::Gadget::kCycle, "cycle"},   {host::Gadget::kLink, "link"},     {host::Gadget::kButton, "button"},
    {host::Gadget::kTime, "time"},     {host::Gadget::kText, "text"},     {host::Gadget::kOther, "other"}};

const char *KindName(host::Gadget gadget) {
    return std::find_if(std::begin(kKindNames), std::end(kKindNames),
                        [gadget](const auto &kind) { return kind.gadget == gadget; })
        ->name;
}

Json RowsJson(const host::PanelGroup &group);

Json CellJson(const host::PanelCell &cell) {
    if (const auto *control = std::get_if<host::PanelControl>(&cell))
        return {{"kind", KindName(control->gadget)},
                {"id", control->key},
                {"label", control->label},
                {"value", control->gadget == host::Gadget::kToggle ? Json(control->number != 0) : Json(control->text)},
                {"enabled", control->enabled}};
    if (const auto *separator = std::get_if<host::PanelSeparator>(&cell))
        return {{"kind", "separator"}, {"label", separator->title}};
    const host::PanelGroup &group = *std::get<std::unique_ptr<host::PanelGroup>>(cell);
    return {{"kind", "group"}, {"label", group.title}, {"open", group.open}, {"rows", RowsJson(group)}};
}

Json RowsJson(const host::PanelGroup &group) {
    Json rows = Json::array();
    for (const auto &row : group.rows) {
        Json cells = Json::array();
        for (const host::PanelCell &cell : row) cells.push_back(CellJson(cell));
        rows.push_back(std::move(cells));
    }
    return rows;
}

}  // namespace

std::string PanelJson(const std::vector<host::PanelGroup> &tabs) {
    Json shown = Json::array();
    for (const host::PanelGroup &tab : tabs) shown.push_back({{"label", tab.title}, {"rows", RowsJson(tab)}});
    return JsonText({{"tabs", shown}});
}

std::string PanelText(const std::vector<host::PanelGroup> &tabs) {
    std::string text;
    for (const host::PanelGroup &tab : tabs) {
        text += (text.empty() ? "" : "\n") + tab.title + "\n" + std::string(tab.title.size(), '=') + "\n";
        for (const auto &row : tab.rows) AddRow(row, tab.columns == 1, 0, &text);
    }
    return text;
}

}  // namespace tremolux

#include "tremolux/pictures/panel_page.h"

#include <algorithm>

#include "library/formats/numbers.h"
#include "tremolux/pictures/html.h"

namespace tremolux {
namespace {

constexpr const char *kPanelStyle = R"(* { box-sizing: border-box; }
body { margin: 0; padding: 16px; background: var(--ground); color: var(--ink); font: 14px/1.45 system-ui, sans-serif; }
main { max-width: 640px; margin: 0 auto; background: var(--panel); border: 1px solid var(--line); border-radius: 8px; }
h1 { margin: 0; padding: 12px 16px 8px; font-size: 16px; }
[role=tablist] { display: flex; flex-wrap: wrap; gap: 4px; padding: 0 12px; border-bottom: 1px solid var(--line); }
[role=tab] { padding: 8px 12px; border: 0; border-bottom: 3px solid transparent; background: none; color: var(--soft);
  font: inherit; cursor: pointer; }
[role=tab][aria-selected=true] { border-color: var(--accent); color: var(--ink); font-weight: 600; }
[role=tabpanel] { padding: 12px 16px 16px; }
[hidden] { display: none; }
:focus-visible { outline: 2px solid var(--accent); outline-offset: 2px; }
details, .box { margin: 8px 0; }
details { border: 1px solid var(--line); border-radius: 6px; }
details > .rows { padding: 4px 12px 8px; }
summary { padding: 6px 12px; font-weight: 600; cursor: pointer; }
.row { display: grid; grid-template-columns: repeat(var(--cells), minmax(0, 1fr)); gap: 8px 12px; align-items: center;
  padding: 3px 0; }
.row.buttons { grid-template-columns: repeat(auto-fit, minmax(92px, 1fr)); }
.row.paired { display: flex; }
.control { display: grid; grid-template-columns: minmax(96px, 12em) minmax(0, 1fr); gap: 8px; align-items: center;
  min-width: 0; }
.row.paired .control { flex: 3 1 0; grid-template-columns: auto minmax(0, 1fr); }
.row.paired .control.wide { flex: 1 1 0; grid-template-columns: minmax(0, 1fr); }
.control.toggle { grid-template-columns: auto 1fr; }
.control.wide { grid-template-columns: minmax(0, 1fr); }
.control.off, .control.off label { color: var(--off); }
.value { display: grid; grid-template-columns: 6.5em minmax(0, 1fr); gap: 8px; align-items: center; min-width: 0; }
.value.plain { grid-template-columns: minmax(0, 1fr); }
input[type=text], select { width: 100%; min-width: 0; padding: 3px 6px; border: 1px solid var(--line);
  border-radius: 4px; background: var(--field); color: inherit; font: inherit; }
input[type=range] { width: 100%; min-width: 0; accent-color: var(--accent); }
input[type=checkbox] { accent-color: var(--accent); width: 16px; height: 16px; }
button.press { width: 100%; padding: 4px 6px; border: 1px solid var(--line); border-radius: 4px; background: var(--field);
  color: inherit; font: inherit; cursor: pointer; }
:disabled { cursor: not-allowed; color: var(--off); opacity: 0.75; }
hr { border: 0; border-top: 1px solid var(--line); margin: 8px 0; }
h2 { margin: 14px 0 4px; font-size: 13px; color: var(--soft); }
@media (max-width: 480px) {
  body { padding: 6px; }
  .row { grid-template-columns: repeat(min(var(--cells), 2), minmax(0, 1fr)); }
  .row.paired { display: grid; grid-template-columns: minmax(0, 1fr); }
  .control, .row.paired .control { grid-template-columns: minmax(0, 1fr); gap: 2px; }
}
)";

constexpr const char *kScript = R"(<script>
const tabs = [...document.querySelectorAll('[role=tab]')];
function show(tab) {
  for (const other of tabs) {
    const chosen = other === tab;
    other.setAttribute('aria-selected', chosen);
    other.tabIndex = chosen ? 0 : -1;
    document.getElementById(other.getAttribute('aria-controls')).hidden = !chosen;
  }
}
for (const [place, tab] of tabs.entries()) {
  tab.addEventListener('click', () => show(tab));
  tab.addEventListener('keydown', event => {
    const step = { ArrowRight: 1, ArrowLeft: -1 }[event.key];
    if (!step) return;
    const next = tabs[(place + step + tabs.length) % tabs.length];
    show(next);
    next.focus();
  });
}
</script>
)";

std::string Attribute(const char *name, const std::string &value) {
    return std::string(" ") + name + "=\"" + EscapedHtml(value) + "\"";
}

std::string NameOf(const host::PanelControl &control) { return "p" + std::to_string(control.key); }

std::string Disabled(const host::PanelControl &control) { return control.enabled ? "" : " disabled"; }

std::string FieldHtml(const host::PanelControl &control) {
    return "<input type=\"text\"" + Attribute("id", NameOf(control)) + Attribute("value", control.text) +
           (control.label.empty() ? Attribute("aria-label", "text " + std::to_string(control.key)) : "") +
           Disabled(control) + ">";
}

std::string Slider(const host::PanelControl &control) {
    const double low = control.slider_minimum.value_or(0), high = control.slider_maximum.value_or(1);
    return "<input type=\"range\"" + Attribute("aria-label", control.label + " slider") +
           Attribute("min", FormatNumber(low)) + Attribute("max", FormatNumber(high)) +
           Attribute("step", FormatNumber(control.step.value_or((high - low) / 100))) +
           Attribute("value", FormatNumber(std::clamp(control.number, low, std::max(low, high)))) + Disabled(control) +
           ">";
}

std::string Cycle(const host::PanelControl &control) {
    std::string html = "<select" + Attribute("id", NameOf(control)) + Disabled(control) + ">";
    if (control.text.empty()) html += "<option selected></option>";
    for (const auto &[value, label] : control.choices) {
        if (label.empty()) continue;
        html +=
            "<option" + std::string(label == control.text ? " selected" : "") + ">" + EscapedHtml(label) + "</option>";
    }
    return html + "</select>";
}

std::string ControlHtml(const host::PanelControl &control) {
    const std::string off = control.enabled ? "" : " off";
    const std::string label =
        "<label" + Attribute("for", NameOf(control)) + ">" + EscapedHtml(control.label) + "</label>";
    switch (control.gadget) {
        case host::Gadget::kButton:
            return "<div class=\"control wide" + off + "\"><button class=\"press\" type=\"button\"" +
                   Attribute("id", NameOf(control)) + Disabled(control) + ">" + EscapedHtml(control.label) +
                   "</button></div>";
        case host::Gadget::kToggle:
            return "<div class=\"control toggle" + off + "\"><input type=\"checkbox\"" +
                   Attribute("id", NameOf(control)) + (control.number != 0 ? " checked" : "") + Disabled(control) +
                   ">" + label + "</div>";
        case host::Gadget::kCycle:
            return "<div class=\"control" + off + "\">" + label + "<div class=\"value plain\">" + Cycle(control) +
                   "</div></div>";
        case host::Gadget::kSlider:
            return "<div class=\"control" + off + "\">" + label + "<div class=\"value\">" + FieldHtml(control) +
                   Slider(control) + "</div></div>";
        default:
            return "<div class=\"control" + std::string(control.label.empty() ? " wide" : "") + off + "\">" +
                   (control.label.empty() ? "" : label) + "<div class=\"value plain\">" + FieldHtml(control) +
                   "</div></div>";
    }
}

std::string GroupHtml(const host::PanelGroup &group);

// How a row is cut into cells where there is little room: buttons flow, links and their buttons stand below each other.
std::string RowClass(const std::vector<host::PanelCell> &row) {
    std::size_t buttons = 0, fields = 0;
    for (const host::PanelCell &cell : row) {
        const auto *control = std::get_if<host::PanelControl>(&cell);
        if (control == nullptr) continue;
        if (control->gadget == host::Gadget::kButton) ++buttons;
        if (control->gadget == host::Gadget::kLink || control->gadget == host::Gadget::kCycle) ++fields;
    }
    if (buttons == row.size()) return "row buttons";
    return fields > 0 ? "row paired" : "row";
}

std::string RowHtml(const std::vector<host::PanelCell> &row) {
    std::string html;
    for (const host::PanelCell &cell : row) {
        if (const auto *control = std::get_if<host::PanelControl>(&cell)) {
            html += ControlHtml(*control);
        } else if (const auto *separator = std::get_if<host::PanelSeparator>(&cell)) {
            if (!separator->title.empty()) html += "<h2>" + EscapedHtml(separator->title) + "</h2>";
            if (separator->line) html += "<hr>";
        } else {
            html += GroupHtml(*std::get<std::unique_ptr<host::PanelGroup>>(cell));
        }
    }
    if (!std::holds_alternative<host::PanelControl>(row.front())) return html + "\n";
    return "<div" + Attribute("class", RowClass(row)) + Attribute("style", "--cells: " + std::to_string(row.size())) +
           ">" + html + "</div>\n";
}

std::string RowsHtml(const host::PanelGroup &group) {
    std::string html;
    for (const auto &row : group.rows) html += RowHtml(row);
    return html;
}

std::string GroupHtml(const host::PanelGroup &group) {
    if (group.title.empty()) return "<div class=\"box\">\n" + RowsHtml(group) + "</div>";
    return "<details" + std::string(group.open ? " open" : "") + "><summary>" + EscapedHtml(group.title) +
           "</summary><div class=\"rows\">\n" + RowsHtml(group) + "</div></details>";
}

}  // namespace

std::string PanelPage(const std::vector<host::PanelGroup> &tabs, const std::string &title) {
    std::string html = HtmlHead(title, kPanelStyle) + "<main>\n<h1>" + EscapedHtml(title) + "</h1>\n";
    // The tab that stands open at first; else the first.
    const auto open = std::find_if(tabs.begin(), tabs.end(), [](const host::PanelGroup &tab) { return tab.open; });
    const std::int32_t chosen = open != tabs.end() ? open->key : tabs.empty() ? 0 : tabs.front().key;
    html += "<div role=\"tablist\"" + Attribute("aria-label", title) + ">\n";
    for (const host::PanelGroup &tab : tabs) {
        const std::string key = std::to_string(tab.key);
        html += "<button type=\"button\" role=\"tab\"" + Attribute("id", "tab" + key) +
                Attribute("aria-controls", "panel" + key) +
                Attribute("aria-selected", tab.key == chosen ? "true" : "false") +
                Attribute("tabindex", tab.key == chosen ? "0" : "-1") + ">" + EscapedHtml(tab.title) + "</button>\n";
    }
    html += "</div>\n";
    for (const host::PanelGroup &tab : tabs) {
        const std::string key = std::to_string(tab.key);
        html += "<section role=\"tabpanel\"" + Attribute("id", "panel" + key) +
                Attribute("aria-labelledby", "tab" + key) + (tab.key == chosen ? "" : " hidden") + ">\n" +
                RowsHtml(tab) + "</section>\n";
    }
    return html + "</main>\n" + kScript + "</html>\n";
}

}  // namespace tremolux

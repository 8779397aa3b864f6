// Prints the manual's page of parameters, in the order of the panel.
//
//     parameter_page [--check FILE]
//
// With --check nothing is printed; the exit status tells whether FILE is that page.
#include <cstdio>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <string_view>

#include "host/ui/field_text.h"
#include "lib_description.h"
#include "tag/panel.h"
#include "tag/parameters.h"

namespace {

const char *const kAbsent = "–";

const char *const kIntroduction = R"(# Parameters

Every setting of the tag, tab by tab in the order of its panel.

* **Unit**: how a value is shown. Percentages are stored as fractions, angles in radians, times in seconds.
* **Limits** hold for what is typed; a **slider** covers only its range. **Step**: one press of an arrow.
* **Default** is what the panel's reset-to-default restores, **reset value** what a preset sets that does not hold the
  parameter; without a reset value it goes to its default then. A new tag begins with the first preset.
* Sizes and times of the shake hold at 100 % of everything that multiplies them.
)";

const char *TypeName(ParameterType type) {
    switch (type) {
        case ParameterType::kReal:
            return "real";
        case ParameterType::kBool:
            return "bool";
        case ParameterType::kLink:
            return "link";
        case ParameterType::kButton:
            return "button";
        case ParameterType::kCycle:
            return "cycle";
        case ParameterType::kTime:
            return "time";
        case ParameterType::kString:
            return "string";
    }
    return "";
}

const char *UnitName(const ParameterInfo &parameter) {
    if (parameter.type == ParameterType::kTime || parameter.unit == DESC_UNIT_TIME) return "frames";
    if (parameter.unit == DESC_UNIT_PERCENT) return "%";
    return parameter.unit == DESC_UNIT_DEGREE ? "°" : kAbsent;
}

std::string Shown(const ParameterInfo &parameter, Real value) {
    return host::FieldText(value, parameter.type == ParameterType::kTime ? DESC_UNIT_TIME : parameter.unit);
}

std::string Number(const ParameterInfo &parameter, const OptionalReal &number) {
    return number.given ? Shown(parameter, number.value) : kAbsent;
}

std::string Range(const ParameterInfo &parameter, const OptionalReal &minimum, const OptionalReal &maximum) {
    if (!minimum.given && !maximum.given) return kAbsent;
    if (!maximum.given) return "from " + Shown(parameter, minimum.value);
    if (!minimum.given) return "up to " + Shown(parameter, maximum.value);
    return Shown(parameter, minimum.value) + " to " + Shown(parameter, maximum.value);
}

std::string StartingValue(const ParameterInfo &parameter, const OptionalReal &value) {
    if (!value.given) return kAbsent;
    switch (parameter.type) {
        case ParameterType::kBool:
            return value.value != 0.0 ? "on" : "off";
        case ParameterType::kLink:
            return "none";
        case ParameterType::kCycle:
            return "0";
        case ParameterType::kString:
            return "empty";
        default:
            return Shown(parameter, value.value);
    }
}

std::string_view WithoutTrailingBlanks(std::string_view label) {
    const std::size_t last = label.find_last_not_of(' ');
    return last == std::string_view::npos ? std::string_view() : label.substr(0, last + 1);
}

// One line of the table.
void AddRow(const ParameterInfo &parameter, std::ostream &page) {
    const std::string_view label = WithoutTrailingBlanks(parameter.label ? parameter.label : "");
    page << "| " << parameter.id << " | " << (label.empty() ? kAbsent : label) << " | " << TypeName(parameter.type)
         << " | " << UnitName(parameter) << " | " << Range(parameter, parameter.minimum, parameter.maximum) << " | "
         << Range(parameter, parameter.slider_minimum, parameter.slider_maximum) << " | "
         << Number(parameter, parameter.step) << " | " << StartingValue(parameter, parameter.declared) << " | "
         << StartingValue(parameter, parameter.reset) << " | " << parameter.sentence << " |\n";
}

// The page in its sections; each table's head is written with its first row.
class Page {
  public:
    void Heading(const char *marks, const char *title) {
        text_ << "\n" << marks << " " << title << "\n";
        in_table_ = false;
    }
    void Row(const ParameterInfo &parameter) {
        if (!in_table_)
            text_ << "\n| Id | Label | Type | Unit | Limits | Slider | Step | Default | Reset value | What it does |\n"
                     "|---|---|---|---|---|---|---|---|---|---|\n";
        in_table_ = true;
        AddRow(parameter, text_);
    }
    std::string Text() const { return kIntroduction + text_.str(); }

  private:
    std::ostringstream text_;
    bool in_table_ = false;
};

Page WritePage() {
    Page page;
    LONG count;
    const PanelElement *panel = Panel(&count);
    for (const PanelElement *element = panel; element < panel + count; ++element) {
        if (element->kind == PanelKind::kParameter)
            page.Row(element->parameter);
        else if (element->title && *element->title)
            page.Heading(element->parent == kPanelRoot ? "##" : "###", element->title);
    }
    page.Heading("##", "Stored, but not shown");
    const ParameterInfo *parameters = Parameters(&count);
    for (const ParameterInfo *parameter = parameters; parameter < parameters + count; ++parameter)
        if (!parameter->label) page.Row(*parameter);
    return page;
}

int Check(const std::string &page, const char *file) {
    std::ifstream stream(file, std::ios::binary);
    std::istringstream wanted(page);
    std::string found_line, wanted_line;
    for (int line = 1;; ++line) {
        const bool found = static_cast<bool>(std::getline(stream, found_line));
        const bool expected = static_cast<bool>(std::getline(wanted, wanted_line));
        if (!found && !expected) return 0;
        if (found && expected && found_line == wanted_line) continue;
        std::cerr << file << ":" << line << ": found '" << (found ? found_line : "the end") << "', expected '"
                  << (expected ? wanted_line : "the end") << "'; script/parameters writes the page anew\n";
        return 1;
    }
}

}  // namespace

int main(int count, char **arguments) {
    const Page page = WritePage();
    if (count == 3 && std::string_view(arguments[1]) == "--check") return Check(page.Text(), arguments[2]);
    if (count != 1) {
        std::cerr << "parameter_page: unknown arguments; expected --check FILE or nothing\n";
        return 2;
    }
    std::cout << page.Text();
    return 0;
}

// The guide that comes with the module, against the panel.
#include <fstream>
#include <iterator>
#include <regex>
#include <set>

#include "host/description/description.h"
#include "host/scene/parameters.h"
#include "tests/tag/scene.h"

namespace {

using namespace tag_test;

class Guide : public WithScene {
  protected:
    // Every match of the first group.
    static std::set<std::string> Matches(const std::string &pattern) {
        std::ifstream file(ModuleFile().parent_path() / "res" / "guide.html");
        const std::string page(std::istreambuf_iterator<char>(file), {});
        const std::regex expression(pattern);
        std::set<std::string> found;
        for (std::sregex_iterator match(page.begin(), page.end(), expression), end; match != end; ++match)
            found.insert((*match)[1]);
        return found;
    }
    std::set<std::string> Labels() {
        std::set<std::string> labels;
        host::Description description;
        EXPECT_TRUE(host::BuildDescription(scene().tag, nullptr, 0, &description));
        for (const host::Description::Entry &entry : description.entries) {
            const host::Data *type = entry.settings.Find(host::kDescShortName);
            std::string label = type ? type->Text() : "";
            while (!label.empty() && label.back() == ' ') label.pop_back();
            labels.insert(label);
        }
        return labels;
    }
};

TEST_F(Guide, NamesControlsAsThePanelDoes) {
    const std::set<std::string> named = Matches("<b>([^<]*)</b>"), labels = Labels();
    EXPECT_GT(named.size(), 60u);
    for (const std::string &name : named) EXPECT_EQ(labels.count(name), 1u) << name;
}

TEST_F(Guide, LinksToItsOwnParagraphs) {
    const std::set<std::string> linked = Matches("href=\"#([^\"]*)\""), there = Matches("<h2 id=\"([^\"]*)\"");
    EXPECT_EQ(linked, there);
    EXPECT_EQ(Matches("(https?:)"), std::set<std::string>()) << "the page needs no network";
}

}  // namespace

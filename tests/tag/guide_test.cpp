// The guide that comes with the module, against the panel.
#include <fstream>
#include <iterator>
#include <set>

#include "host/description/description.h"
#include "host/scene/parameters.h"
#include "tests/tag/scene.h"

namespace {

using namespace tag_test;

class Guide : public WithScene {
  protected:
    static std::string Page() {
        std::ifstream file(ModuleFile().parent_path() / "res" / "guide.html");
        return std::string(std::istreambuf_iterator<char>(file), {});
    }
    // Every text that stands between the two.
    static std::set<std::string> Between(const std::string &before, const std::string &after) {
        const std::string page = Page();
        std::set<std::string> found;
        for (std::size_t at = page.find(before); at != std::string::npos; at = page.find(before, at + 1)) {
            const std::size_t start = at + before.size();
            found.insert(page.substr(start, page.find(after, start) - start));
        }
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
    const std::set<std::string> named = Between("<b>", "</b>"), labels = Labels();
    EXPECT_GT(named.size(), 60u);
    for (const std::string &name : named) EXPECT_EQ(labels.count(name), 1u) << name;
}

TEST_F(Guide, LinksToItsOwnParagraphs) {
    const std::set<std::string> linked = Between("href=\"#", "\""), there = Between("<h2 id=\"", "\"");
    EXPECT_EQ(linked, there);
    EXPECT_EQ(Page().find("http"), std::string::npos) << "the page needs no network";
}

}  // namespace

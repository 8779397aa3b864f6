// What a new tag does, in which order: the presets are there before the host hears of a change, the categories after.
#include "tests/source/probe.h"

namespace {

class Beginner : public ProbeTag {
  public:
    static NodeData *Alloc() { return last = gNew Beginner; }
    void AfterInit() override { steps.push_back("hook"); }
    void LoadPresetLibrary(BaseContainer *data) override {
        steps.push_back("presets");
        ProbeTag::LoadPresetLibrary(data);
    }
    void ScanPresetCategories(const String &category, BaseContainer *data) override {
        steps.push_back(category.Content() ? "one category" : "categories");
        ProbeTag::ScanPresetCategories(category, data);
    }
    Bool Message(GeListNode *node, LONG type, void *data) override {
        if (type == MSG_CHANGE) steps.push_back("message " + std::to_string(type));
        return ProbeTag::Message(node, type, data);
    }
    std::vector<std::string> steps;
};

class Beginning : public WithProbe {
  protected:
    Beginning() : WithProbe(Beginner::Alloc) {}
};

TEST_F(Beginning, TellsTheHostOfItsChangeBetweenThePresetsAndTheCategories) {
    host::Object *camera = host::Object::Create(host::kTypeCamera).release();
    document_->InsertObject(camera);
    ASSERT_NE(camera->MakeTag(kTremoluxCamId), nullptr);
    const auto &steps = static_cast<Beginner *>(ProbeTag::last)->steps;
    EXPECT_EQ(steps, (std::vector<std::string>{"hook", "presets", "message 7", "categories"}));
}

}  // namespace

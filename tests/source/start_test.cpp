// The module's start, seen from inside: what is registered before it says no.
#include <thread>

#include "host/files/safe_write.h"
#include "presets/folders.h"
#include "tests/source/glue.h"

namespace {

namespace fs = std::filesystem;

// The module's folder with what `res` holds there.
class Folder {
  public:
    Folder() { fs::copy(fs::path(TREMOLUX_SOURCE_DIR) / "res", Path() / "res", fs::copy_options::recursive); }
    const fs::path &Path() const { return folder_.Path(); }
    fs::path Icon() const { return Path() / "res" / "Tremolux_Cam_Icon.png"; }

  private:
    test_support::TemporaryFolder folder_;
};

class Start : private Folder, public WithGlue {
  protected:
    Start() : WithGlue(Path() / "TremoluxCam.so") {}
    void TearDown() override { application().registry.Clear(); }
    LONG Send(LONG message) {
        return c4d_main(C4DPL_MESSAGE, reinterpret_cast<void *>(static_cast<VLONG>(message)), nullptr, nullptr);
    }
    LONG StartModule() { return c4d_main(C4DPL_INIT, nullptr, nullptr, nullptr); }
    const std::vector<std::string> &Order() { return application().registry.Order(); }
    const std::vector<std::string> &Printed() { return application().console.lines; }
    using Folder::Icon;
    using Folder::Path;
};

using Names = std::vector<std::string>;

TEST_F(Start, RegistersTheCommandBeforeTheTag) {
    EXPECT_EQ(StartModule(), 1);
    EXPECT_EQ(Order(), (Names{"command 1039960", "tag 1039736"}));
    EXPECT_EQ(Printed().size(), 1u);
}

TEST_F(Start, FailsWithoutTheIconAndPrintsNothingButKeepsTheCommand) {
    ASSERT_TRUE(fs::remove(Icon()));
    EXPECT_EQ(StartModule(), 0);
    EXPECT_EQ(Order(), Names{"command 1039960"});
    EXPECT_NE(application().registry.FindCommand(1039960), nullptr);
    EXPECT_EQ(application().registry.FindTag(1039736), nullptr);
    EXPECT_EQ(Printed(), Names{});
}

TEST_F(Start, FailsWithAnIconThatIsNoImage) {
    std::string error;
    ASSERT_TRUE(host::WriteFileSafely(Icon(), "this is no image", &error)) << error;
    EXPECT_EQ(StartModule(), 0);
    EXPECT_EQ(Order(), Names{"command 1039960"});
    EXPECT_EQ(Printed(), Names{});
}

TEST_F(Start, StopsAtARefusedCommand) {
    application().registry.refuse_command = true;
    EXPECT_EQ(StartModule(), 0);
    EXPECT_EQ(Order(), Names{});
    EXPECT_EQ(Printed(), Names{});
}

TEST_F(Start, FailsWithARefusedTagAfterThePrint) {
    application().registry.refuse_tag = true;
    EXPECT_EQ(StartModule(), 0);
    EXPECT_EQ(Order(), Names{"command 1039960"});
    EXPECT_FALSE(Printed().empty());
    EXPECT_EQ(Printed().front().rfind("TremoluxCam V(1.015), ", 0), 0u);
}

TEST_F(Start, AnswersTheMessagesOfTheStartAndNoOther) {
    EXPECT_EQ(Send(C4DMSG_PRIORITY), 1);
    EXPECT_EQ(Send(C4DPL_INIT_SYS), 1);
    for (const LONG message : {2, 1000, 1001, 1002, 1001084, -1}) EXPECT_EQ(Send(message), C4DPL_ERROR) << message;
}

TEST_F(Start, RefusesTheStartMessageWithoutItsResources) {
    fs::remove_all(Path() / "res");
    EXPECT_EQ(Send(C4DPL_INIT_SYS), C4DPL_ERROR);
}

TEST_F(Start, LetsOtherThreadsSeeTheUsersFolder) {
    const Filename folder("presets of mine");
    RememberUserPresetFolder(folder);
    bool is_seen = false;
    std::thread([&] { is_seen = UserPresetFolder() == folder; }).join();
    EXPECT_TRUE(is_seen);
    ForgetUserPresetFolder();
}

}  // namespace

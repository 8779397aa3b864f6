// The module's start as a user meets it.
#include <cstdint>
#include <vector>

#include "host/files/safe_write.h"
#include "tests/tag/scene.h"

namespace {

using namespace tag_test;
namespace fs = std::filesystem;

std::vector<std::string> PrintedBy(std::int32_t version, std::int32_t version_type, std::int32_t operating_system) {
    TemporaryFolder folder;
    host::ApplicationSettings settings = SettingsIn(folder.Path());
    settings.version = version;
    settings.version_type = version_type;
    settings.operating_system = operating_system;
    host::Application application(settings);
    std::string error;
    const auto module = host::LoadedModule::Load(ModuleFile(), &error);
    EXPECT_NE(module, nullptr) << error;
    return application.console.lines;
}

using Lines = std::vector<std::string>;

TEST(Banner, NamesEveryVersionType) {
    const char *const names[] = {"Prime",
                                 "Bodypaint",
                                 "Studio",
                                 "Visualize",
                                 "Broadcast",
                                 "Benchmark",
                                 "Updater",
                                 "Installer",
                                 "New Client",
                                 "Net Server 3",
                                 "Net Server Unlimited",
                                 "Unknown",
                                 "License Server"};
    for (std::int32_t code = 0; code <= 12; ++code)
        EXPECT_EQ(PrintedBy(14042, code, 1),
                  Lines{std::string("TremoluxCam V(1.015), 14042 ") + names[code] + ", Windows"});
}

TEST(Banner, NamesEveryOperatingSystem) {
    EXPECT_EQ(PrintedBy(14042, 2, 1), Lines{"TremoluxCam V(1.015), 14042 Studio, Windows"});
    EXPECT_EQ(PrintedBy(14042, 2, 2), Lines{"TremoluxCam V(1.015), 14042 Studio, OS X"});
    EXPECT_EQ(PrintedBy(14042, 2, 3), Lines{"TremoluxCam V(1.015), 14042 Studio, UNIX"});
}

TEST(Banner, LeavesAnUnknownVersionTypeEmptyBetweenItsSeparators) {
    for (const std::int32_t code : {13, -1, 2147483647})
        EXPECT_EQ(PrintedBy(14042, code, 3), Lines{"TremoluxCam V(1.015), 14042 , UNIX"}) << code;
}

TEST(Banner, EndsInACommaAndABlankOnAnUnknownOperatingSystem) {
    for (const std::int32_t code : {4, -1, 2147483647})
        EXPECT_EQ(PrintedBy(14042, 2, code), Lines{"TremoluxCam V(1.015), 14042 Studio, "}) << code;
}

TEST(Banner, ShowsTheHostsVersionUnchanged) {
    EXPECT_EQ(PrintedBy(14001, 0, 2), Lines{"TremoluxCam V(1.015), 14001 Prime, OS X"});
}

TEST(Banner, IsPrintedOnceForEveryStart) {
    for (int i = 0; i < 3; ++i) EXPECT_EQ(PrintedBy(14042, 2, 3).size(), 1u);
}

class Start : public WithModule {};

TEST_F(Start, RegistersTheCommandAndThenTheTag) {
    EXPECT_EQ(running_.App().registry.Order(), (Lines{"command 1039960", "tag 1039736"}));
}

TEST_F(Start, RegistersAVisibleExpressionTagWithItsDescriptionAndIcon) {
    const host::TagPlugin *tag = running_.App().registry.FindTag(1039736);
    ASSERT_NE(tag, nullptr);
    EXPECT_EQ(tag->name, "TremoluxCam");
    EXPECT_EQ(tag->description, "TremoluxCam");
    EXPECT_EQ(tag->info, 9);
    EXPECT_EQ(tag->disk_level, 0);
    ASSERT_NE(tag->icon, nullptr);
    EXPECT_EQ(tag->icon->width, 32);
    EXPECT_EQ(tag->icon->height, 32);
    EXPECT_EQ(running_.App().registry.DescriptionId("TremoluxCam"), 1039736);
}

TEST_F(Start, RegistersACommandWithTheSameNameAndIconAndNoHelp) {
    const host::CommandPlugin *command = running_.App().registry.FindCommand(1039960);
    ASSERT_NE(command, nullptr);
    EXPECT_EQ(command->name, "TremoluxCam");
    EXPECT_EQ(command->help, "");
    EXPECT_EQ(command->info, 0);
    const host::TagPlugin *tag = running_.App().registry.FindTag(1039736);
    ASSERT_NE(command->icon, nullptr);
    ASSERT_NE(tag, nullptr);
    EXPECT_EQ(command->icon->rgba, tag->icon->rgba);
}

TEST_F(Start, AnswersTheActionsOfItsOneEntry) {
    host::LoadedModule &module = running_.Module();
    EXPECT_EQ(module.Call(4, nullptr, nullptr, nullptr), 5) << "the interface version";
    EXPECT_EQ(module.Call(99, nullptr, nullptr, nullptr), -1) << "an unknown action";
    const auto send = [&](std::intptr_t id) { return module.Call(6, reinterpret_cast<void *>(id), nullptr, nullptr); };
    EXPECT_EQ(send(0), 1) << "the priority query";
    EXPECT_EQ(send(1), 1) << "the start message";
    EXPECT_EQ(send(1001188), -1) << "a message that it does not know";
}

// What is left of a start in a folder that `spoil` has changed.
template <class Spoil>
void ExpectNoStart(Spoil spoil, const char *why) {
    TemporaryFolder folder;
    const fs::path module = CopyModule(folder.Path());
    spoil(module.parent_path() / "res");
    RunningHost running(module);
    EXPECT_FALSE(running.Started()) << why;
    EXPECT_NE(running.Error(), "") << why;
    EXPECT_EQ(running.App().registry.FindTag(1039736), nullptr) << why;
    for (const std::string &line : running.App().console.lines)
        EXPECT_EQ(line.find("TremoluxCam V("), std::string::npos) << why;
}

TEST(FailedStart, HappensWithoutTheIcon) {
    ExpectNoStart([](const fs::path &res) { fs::remove(res / "Tremolux_Cam_Icon.png"); }, "the icon is missing");
}

TEST(FailedStart, HappensWithAnIconThatIsNoImage) {
    ExpectNoStart(
        [](const fs::path &res) {
            std::string error;
            ASSERT_TRUE(host::WriteFileSafely(res / "Tremolux_Cam_Icon.png", "no image", &error)) << error;
        },
        "the icon is unreadable");
}

TEST(FailedStart, HappensWithoutTheResourceFolder) {
    ExpectNoStart([](const fs::path &res) { fs::remove_all(res); }, "there are no resources");
}

// Where a library's file tells the machine that it is for (two bytes): in ELF at a fixed place, in Windows' format
// behind the header whose place stands at 0x3C.
std::size_t PlaceOfMachine(const std::string &bytes) {
    if (bytes.compare(0, 4,
                      "\x7F"
                      "ELF") == 0)
        return 18;
    std::uint32_t header = 0;
    for (int i = 3; i >= 0; --i) header = header << 8 | static_cast<unsigned char>(bytes[0x3C + i]);
    return header + 4;
}

TEST(FailedStart, HappensWithALibraryForAnotherMachine) {
    std::string bytes, error;
    ASSERT_TRUE(host::ReadFile(ModuleFile(), &bytes, &error)) << error;
    const std::size_t machine = PlaceOfMachine(bytes);
    ASSERT_LT(machine + 1, bytes.size());
    bytes[machine] = '\x01';  // no machine that can run this test
    bytes[machine + 1] = '\x7F';
    TemporaryFolder folder;
    const fs::path module = CopyModule(folder.Path());
    ASSERT_TRUE(host::WriteFileSafely(module, bytes, &error)) << error;
    const RunningHost running(module);
    EXPECT_FALSE(running.Started());
    EXPECT_EQ(running.Error().rfind(module.u8string() + ": is no library that this system can load (", 0), 0u)
        << running.Error();
}

TEST(FailedStart, DoesNotHappenWithoutTheOtherIcons) {
    TemporaryFolder folder;
    const fs::path module = CopyModule(folder.Path());
    fs::remove(module.parent_path() / "res" / "Tremolux_Cam_Icon_Empty.png");
    fs::remove(module.parent_path() / "res" / "Tremolux_Cam_Icon_Baked.png");
    RunningHost running(module);
    EXPECT_TRUE(running.Started()) << running.Error();
}

TEST(FailedStart, HappensWhenTheHostRefusesTheCommand) {
    TemporaryFolder folder;
    host::Application application(SettingsIn(folder.Path()));
    application.registry.refuse_command = true;
    std::string error;
    EXPECT_EQ(host::LoadedModule::Load(ModuleFile(), &error), nullptr);
    EXPECT_NE(error, "");
    EXPECT_EQ(application.registry.FindTag(1039736), nullptr);
    for (const std::string &line : application.console.lines) EXPECT_EQ(line.find("TremoluxCam V("), std::string::npos);
}

TEST(FailedStart, HappensWhenTheHostRefusesTheTag) {
    TemporaryFolder folder;
    host::Application application(SettingsIn(folder.Path()));
    application.registry.refuse_tag = true;
    std::string error;
    EXPECT_EQ(host::LoadedModule::Load(ModuleFile(), &error), nullptr);
    EXPECT_NE(error, "");
}

TEST(FailedStart, LeavesRoomForALaterOne) {
    TemporaryFolder folder;
    host::Application application(SettingsIn(folder.Path()));
    application.registry.refuse_command = true;
    std::string error;
    EXPECT_EQ(host::LoadedModule::Load(ModuleFile(), &error), nullptr);
    application.registry.refuse_command = false;
    const auto module = host::LoadedModule::Load(ModuleFile(), &error);
    EXPECT_NE(module, nullptr) << error;
}

}  // namespace

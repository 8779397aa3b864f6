// Registration, images, modules, and what a user sees and answers.
#include <gtest/gtest.h>
#include <png.h>

#include "host/services/module.h"
#include "host/services/resource.h"
#include "tests/host/scene_fixture.h"
#include "tests/support/temporary_folder.h"

namespace host::testing {

using test_support::TemporaryFolder;
namespace {

// ---- Registration

class Commands : public ::testing::Test {
  protected:
    ~Commands() override { ReleaseText(&name_); }
    static int &Destroyed() {
        static int count = 0;
        return count;
    }
    bool Register(std::int32_t id) {
        Assign(&name_, "Do it");
        CommandRegistration command{};
        command.id = id;
        command.name = &name_;
        command.help = &name_;
        command.self = this;
        command.destroy = [](ModuleObject *) { ++Destroyed(); };
        command.execute = [](ModuleObject *self, HostAtom *document) -> std::int32_t {
            static_cast<Commands *>(self)->executed_.push_back(document);
            return 1;
        };
        command.get_state = [](ModuleObject *self, HostAtom *) -> std::int32_t {
            return static_cast<Commands *>(self)->state_;
        };
        return application_.registry.Register(command);
    }
    TableString name_{};
    std::int32_t state_ = 0x40000000;
    std::vector<HostAtom *> executed_;
    Application application_{ApplicationSettings{}};
};

TEST_F(Commands, AreRefusedUnderAnIdThatIsTaken) {
    ASSERT_TRUE(Register(77));
    EXPECT_FALSE(Register(77));
    ASSERT_EQ(application_.console.lines.size(), 1u);
    EXPECT_NE(application_.console.lines[0].find("77"), std::string::npos);
    EXPECT_EQ(application_.registry.Order(), std::vector<std::string>{"command 77"});
}

TEST_F(Commands, AreDestroyedOnceAndOnlyWhenTheyWereTaken) {
    Destroyed() = 0;
    application_.registry.refuse_command = true;
    EXPECT_FALSE(Register(77));
    EXPECT_EQ(Destroyed(), 0);
    application_.registry.refuse_command = false;
    ASSERT_TRUE(Register(77));
    application_.registry.Clear();
    application_.registry.Clear();
    EXPECT_EQ(Destroyed(), 1);
}

TEST_F(Commands, GetTheActiveDocumentUnlessTheyAreDisabled) {
    ASSERT_TRUE(Register(77));
    Document *document = application_.NewDocument();
    application_.CallCommand(77);
    state_ = 0;
    application_.CallCommand(77);
    application_.CallCommand(78);
    EXPECT_EQ(executed_, std::vector<HostAtom *>{document});
    EXPECT_EQ(application_.requests.called_commands, (std::vector<std::int32_t>{77, 77, 78}));
}

// ---- Application

TEST_F(SceneTest, TheCameraCommandMakesASelectedCameraAtTheViewsPlaceInOneStep) {
    Object *other = AddCamera("other");
    Matrix place = kIdentity;
    place.off = {5, 6, 7};
    document->ActiveView()->EditorCamera()->SetGlobalMatrix(place);
    application.CallCommand(kTypeCamera);
    Object *made = document->FirstObject();
    ASSERT_NE(made, other);
    EXPECT_EQ(made->Type(), kTypeCamera);
    EXPECT_EQ(document->ActiveObject(), made);
    EXPECT_TRUE(made->GlobalMatrix() == place);
    EXPECT_EQ(document->Undo().Steps(), 1u);
    ASSERT_TRUE(document->Undo().Undo());
    EXPECT_EQ(document->FirstObject(), other);
}

TEST_F(SceneTest, AnyNumberOfEventsIsOneEvaluation) {
    AddTag(AddCamera("camera"));
    fake.log.clear();
    for (int i = 0; i < 5; ++i) application.QueueEvent(0);
    application.HandleEvents();
    application.HandleEvents();
    EXPECT_EQ(std::count(fake.log.begin(), fake.log.end(), "execute Fake"), 1);
    EXPECT_EQ(application.requests.events, 5);
}

TEST_F(SceneTest, AnEventEvaluatesTracksOnlyAtANewTimeOrWhenItAsksForThem) {
    AddTag(AddCamera("camera"));
    std::vector<bool> animated;
    fake.on_execute = [&](Tag *, Document *, std::int32_t, std::int32_t flags) {
        animated.push_back((flags & 2) != 0);
        return 0;
    };
    const auto handle = [&](std::int32_t flags) {
        application.QueueEvent(flags);
        application.HandleEvents();
    };
    handle(0);  // the first evaluation of all
    handle(0);
    document->SetFrame(3);
    handle(0);
    handle(0);
    handle(2);
    EXPECT_EQ(animated, (std::vector<bool>{true, false, true, false, true}));
}

TEST(WorldSettings, AreThereInTheNextRun) {
    const TemporaryFolder folder;
    ApplicationSettings settings;
    settings.preferences_file = folder / "prefs";
    Container data;
    data.Set(5037, Data::Filename("/presets"));
    {
        Application application(settings);
        EXPECT_EQ(application.WorldPluginData(9), nullptr);
        application.SetWorldPluginData(9, data, true);
    }
    Application application(settings);
    ASSERT_NE(application.WorldPluginData(9), nullptr);
    EXPECT_TRUE(*application.WorldPluginData(9) == data);
}

TEST(WorldSettings, MergeOrReplace) {
    Application application{ApplicationSettings{}};
    Container a, b;
    a.Set(1, Data(1.0));
    b.Set(2, Data(2.0));
    application.SetWorldPluginData(9, a, true);
    const Container *live = application.WorldPluginData(9);
    application.SetWorldPluginData(9, b, true);
    EXPECT_EQ(live->Count(), 2);
    application.SetWorldPluginData(9, b, false);
    EXPECT_TRUE(*live == b);
}

TEST(WorldSettings, AreLeftOutWhenTheirFileIsDamaged) {
    const TemporaryFolder folder;
    ApplicationSettings settings;
    settings.preferences_file = folder.Write("prefs", "nonsense");
    Application application(settings);
    EXPECT_EQ(application.WorldPluginData(9), nullptr);
}

// ---- What a user sees and answers

TEST(Dialogs, AreAnsweredFromTheQueueAndRecorded) {
    Dialogs dialogs;
    dialogs.AnswerYes();
    dialogs.AnswerText("Walk");
    EXPECT_TRUE(dialogs.Question("Override?"));
    EXPECT_EQ(dialogs.Box("Done", 0), 1);  // an OK box uses up no answer
    std::string name = "Run";
    EXPECT_TRUE(dialogs.Rename(&name));
    EXPECT_EQ(name, "Walk");
    EXPECT_FALSE(dialogs.Question("Again?"));  // nothing left: cancelled
    EXPECT_FALSE(dialogs.Rename(&name));
    EXPECT_EQ(dialogs.Box("Sure?", 4), 7);
    ASSERT_EQ(dialogs.All().size(), 6u);
    EXPECT_EQ(dialogs.All()[0].text, "Override?");
    EXPECT_EQ(dialogs.All()[0].answer, "yes");
    EXPECT_EQ(dialogs.All()[2].answer, "Walk");
    EXPECT_EQ(dialogs.All()[3].answer, "no");
}

TEST(StatusBar, KeepsItsShareBetweenZeroAndAHundred) {
    StatusBar status;
    for (int percent : {-5, 50, 1000}) status.SetPercent(percent);
    EXPECT_EQ(status.history, (std::vector<std::string>{"0 %", "50 %", "100 %"}));
    status.Clear();
    EXPECT_EQ(status.percent, -1);
}

TEST(GeneralTable, TellsQualifiersAndTheMouse) {
    Application application{ApplicationSettings{}};
    application.input.control = true;
    application.input.left_button = true;
    constexpr std::int32_t kMouse = 1836021107, kKeyboard = 1801812322, kValue = 1768978017, kQualifier = 1768976737;
    Container state;
    ASSERT_TRUE(Application::Table()->general->input_state(kKeyboard, 0, &state));
    EXPECT_EQ(state.Whole(kQualifier), 2);
    EXPECT_EQ(state.Whole(kValue, -1), 0);
    ASSERT_TRUE(Application::Table()->general->input_state(kMouse, 1, &state));
    EXPECT_EQ(state.Whole(kValue), 1);
    ASSERT_TRUE(Application::Table()->general->input_state(kMouse, 2, &state));
    EXPECT_EQ(state.Whole(kValue), 0);
    EXPECT_FALSE(Application::Table()->general->input_state(1, 1, &state));
}

TEST(GeneralTable, AnswersNullHandlesAndAHostThatDoesNotRun) {
    const GeneralTable &general = *Application::Table()->general;
    const FileTable &file = *Application::Table()->file;
    const BitmapTable &bitmap = *Application::Table()->bitmap;
    general.print(nullptr);
    general.path(8, nullptr);
    EXPECT_EQ(general.register_tag(nullptr), 0);
    EXPECT_EQ(general.question(nullptr), 0);
    EXPECT_EQ(general.rename(nullptr), 0);
    EXPECT_EQ(general.world_plugin_data(1), nullptr);
    EXPECT_EQ(general.load_resource(nullptr), 0);
    EXPECT_EQ(file.exists(nullptr, 0), 0);
    EXPECT_EQ(file.copy(nullptr, nullptr, 0), 0);
    EXPECT_EQ(file.browse_next(nullptr), 0);
    EXPECT_EQ(file.open_hyperfile(nullptr, 0, nullptr, 1, 0), 0);
    EXPECT_EQ(file.read_container(nullptr, nullptr), 0);
    EXPECT_EQ(bitmap.width(nullptr), 0);
    EXPECT_LT(bitmap.load(nullptr, nullptr, -1), 0);
    file.release_browse(nullptr);
    file.release_hyperfile(nullptr);
    bitmap.release(nullptr);
}

// ---- Images

std::string PngOf(std::uint32_t width, std::uint32_t height) {
    std::vector<std::uint8_t> pixels(width * height * 4, 200);
    pixels[0] = 10;
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = width;
    image.height = height;
    image.format = PNG_FORMAT_RGBA;
    png_alloc_size_t size = 0;
    EXPECT_TRUE(png_image_write_to_memory(&image, nullptr, &size, 0, pixels.data(), 0, nullptr));
    std::string bytes(size, '\0');
    EXPECT_TRUE(png_image_write_to_memory(&image, bytes.data(), &size, 0, pixels.data(), 0, nullptr));
    return bytes.substr(0, size);
}

TEST(Bitmap, LoadsAPng) {
    const TemporaryFolder folder;
    Bitmap bitmap;
    ASSERT_EQ(bitmap.Load(folder.Write("icon.png", PngOf(3, 2))), kImageOk);
    EXPECT_EQ(bitmap.width, 3);
    EXPECT_EQ(bitmap.height, 2);
    ASSERT_EQ(bitmap.rgba.size(), 24u);
    EXPECT_EQ(bitmap.rgba[0], 10);
    EXPECT_EQ(bitmap.rgba[4], 200);
}

TEST(Bitmap, TellsWhyItCannotBeLoaded) {
    const TemporaryFolder folder;
    const std::string png = PngOf(8, 8);
    Bitmap bitmap;
    EXPECT_EQ(bitmap.Load(folder / "missing.png"), kImageNotExisting);
    EXPECT_EQ(bitmap.Load(folder.Path()), kImageNotExisting);
    EXPECT_EQ(bitmap.Load(folder.Write("text.png", "this is no image")), kImageWrongType);
    // Without its last chunk an image is whole; anything shorter is not.
    for (std::size_t size = 0; size + 16 < png.size(); ++size) {
        EXPECT_NE(bitmap.Load(folder.Write("cut.png", png.substr(0, size))), kImageOk) << size;
        EXPECT_EQ(bitmap.width, 0);
    }
}

TEST(Bitmap, RefusesSizesThatNoImageHas) {
    Bitmap bitmap;
    EXPECT_EQ(bitmap.Init(-1, 5), kImageOutOfMemory);
    EXPECT_EQ(bitmap.Init(2000000000, 2000000000), kImageOutOfMemory);
    EXPECT_EQ(bitmap.Init(4, 5), kImageOk);
    EXPECT_EQ(bitmap.rgba.size(), 80u);
}

// ---- Modules

class Modules : public ::testing::Test {
  protected:
    std::string Refusal(const std::filesystem::path &file) {
        std::string error;
        EXPECT_EQ(LoadedModule::Load(file, &error), nullptr);
        EXPECT_EQ(error.rfind(file.string() + ": ", 0), 0u) << error;
        return error;
    }
    TemporaryFolder folder_;
    Application application_{ApplicationSettings{}};
};

TEST_F(Modules, ThatAreMissingOrNoLibraryAreToldApart) {
    EXPECT_NE(Refusal(folder_ / "missing.so").find("there is no such file"), std::string::npos);
    EXPECT_NE(Refusal(folder_.Path()).find("is no file"), std::string::npos);
    EXPECT_NE(Refusal(folder_.Write("text.so", "text")).find("is no library"), std::string::npos);
}

TEST_F(Modules, WithoutTheEntryAreRefused) {
    EXPECT_NE(Refusal(TREMOLUX_OTHER_LIBRARY).find("has no entry c4d_main"), std::string::npos);
}

// ---- Resources

TEST(Resources, AreAFolderWithSymbols) {
    const TemporaryFolder folder;
    EXPECT_FALSE(IsResourceFolder(folder.Path()));
    folder.Write("c4d_symbols.h", "enum {\n    _FIRST = 10000,\n};\n");
    EXPECT_TRUE(IsResourceFolder(folder.Path()));
    EXPECT_FALSE(IsResourceFolder(folder / "missing"));
}

}  // namespace
}  // namespace host::testing

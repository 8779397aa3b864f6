// An artist's work on one shot: any settings, buttons, links, keys, jumps, undo, bakes, saves and loads, in any order.
// Whatever was done, the camera stays finite, what it shows on a frame does not depend on the way there, and the module
// makes no wrong call.
#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>

#include "bench/scene.h"
#include "fuzz/require.h"
#include "host/animation/passes.h"
#include "host/animation/track.h"
#include "host/files/scenefile.h"
#include "host/ui/attribute_manager.h"
#include "host/value/descid.h"
#include "host/watch/judge.h"
#include "host/watch/watched_table.h"

namespace {

using fuzz::Require;

constexpr std::int32_t kFirstParameter = 6000, kLastParameter = 6210, kPresetCycle = 10028, kCategoryCycle = 5806;
constexpr std::int32_t kButtons[] = {6172, 6042, 6043, 6174, 6004, 6041, 6058, 6069, 6184, 6185,  6186, 6187,
                                     6188, 6046, 6175, 6003, 6005, 6171, 6176, 6182, 6047, 10033, 6001, 7777};
constexpr std::int32_t kLinks[] = {6001, 6057, 6068};
constexpr double kNumbers[] = {0,    -0.0, 1,     -1,   0.5,     0.25,  2,          1e-300,
                               1e12, -1e9, 1e308, 1e-9, 12345.6, -3.25, 2147483648, -1e308};
constexpr std::int64_t kLastFrame = 200;
constexpr std::size_t kMostSteps = 40;

bool IsFinite(const host::Object &camera) {
    const auto lens = [&camera](std::int32_t id) {
        host::Data value;
        return camera.GetParameter(host::MakeId(id), &value) && std::isfinite(value.Real());
    };
    return host::IsFinite(camera.GlobalMatrix()) && lens(host::kCameraFocalLength) && lens(host::kCameraFocusDistance);
}

bool IsSame(const host::Matrix &a, const host::Matrix &b) {
    using host::operator==;  // of the border's plain structs
    return a.off == b.off && a.v1 == b.v1 && a.v2 == b.v2 && a.v3 == b.v3;
}

double AnyNumber(FuzzedDataProvider *input) {
    if (input->ConsumeBool()) return kNumbers[input->ConsumeIntegralInRange<std::size_t>(0, std::size(kNumbers) - 1)];
    const double number = input->ConsumeFloatingPoint<double>();
    return input->ConsumeBool() && std::isfinite(number) ? number : input->ConsumeFloatingPointInRange(-2.0, 2.0);
}

host::Data AnyValue(FuzzedDataProvider *input) {
    switch (input->ConsumeIntegralInRange(0, 5)) {
        case 0:
            return host::Data(input->ConsumeIntegral<std::int32_t>());
        case 1:
            return host::Data(input->ConsumeBool() ? 1 : 0);
        case 2:
            return host::Data(host::MakeTime(input->ConsumeIntegralInRange(-5, 60), 30));
        case 3:
            return host::Data(std::string_view("3, 5,8,  -1, 12, x"));
        default:
            return host::Data(AnyNumber(input));
    }
}

class Work {
  public:
    Work(bench::Scene *scene, FuzzedDataProvider *input) : scene_(*scene), input_(*input) {}

    void Step() {
        switch (input_.ConsumeIntegralInRange(0, 12)) {
            case 0:
            case 1:
                return SetParameter();
            case 2:
                return Edit();
            case 3:
                return Press();
            case 4:
                return Play();
            case 5:
                return Jump();
            case 6:
                return static_cast<void>(Document().Undo().Undo());
            case 7:
                return static_cast<void>(Document().Undo().Redo());
            case 8:
                return Link();
            case 9:
                return AddKeys();
            case 10:
                return RemoveObject();
            case 11:
                return ChangeTimes();
            default:
                return CompareWays();
        }
    }

    void CompareWays() {
        const std::int64_t frame = AnyFrame();
        const host::Matrix shown = ShownAfter(&Document(), frame + 7, frame);
        Require(IsSame(ShownAfter(&Document(), frame + 31, frame), shown));
        std::string error;
        const std::filesystem::path file = scene_.UserFolder() / "work.scene";
        Require(host::SaveDocument(&Document(), file, &error));
        const auto loaded = host::LoadDocument(file, &error);
        Require(loaded != nullptr);
        Require(IsSame(ShownAfter(loaded.get(), frame + 7, frame), shown));
    }

    void Check() { Require(IsFinite(scene_.Camera()) && host::FirstWrongCall().empty()); }

  private:
    host::Document &Document() { return scene_.Document(); }
    std::int64_t AnyFrame() { return input_.ConsumeIntegralInRange<std::int64_t>(0, kLastFrame); }
    std::int32_t AnyParameter() {
        const std::int32_t id = input_.ConsumeIntegralInRange(kFirstParameter - 2, kLastParameter);
        return id == kFirstParameter - 2 ? kPresetCycle : id == kFirstParameter - 1 ? kCategoryCycle : id;
    }

    // The camera has the same place among the objects of every copy of the document.
    host::Matrix ShownAfter(host::Document *document, std::int64_t before, std::int64_t frame) {
        const std::vector<host::Object *> objects = Document().AllObjects();
        const auto place = std::find(objects.begin(), objects.end(), &scene_.Camera()) - objects.begin();
        for (const std::int64_t shown : {before, frame}) {
            document->SetFrame(shown);
            host::ExecutePasses(document, true, true, true);
        }
        return document->AllObjects().at(static_cast<std::size_t>(place))->GlobalMatrix();
    }

    void Edit() {
        const std::int32_t id = AnyParameter();
        host::EditParameter(&scene_.Tag(), host::MakeId(id), AnyValue(&input_));
    }

    // As a script or a file sets it: no panel holds it back.
    void SetParameter() { scene_.Tag().Data().Set(AnyParameter(), AnyValue(&input_)); }

    void Press() {
        host::Application &application = *host::Application::Current();
        application.input.control = input_.ConsumeBool();
        if (input_.ConsumeBool()) application.dialogs.AnswerText("Mine");
        const std::size_t button = input_.ConsumeIntegralInRange<std::size_t>(0, std::size(kButtons) - 1);
        host::PressButton(&scene_.Tag(), host::MakeId(kButtons[button]));
        application.input.control = false;
        application.dialogs.Clear();
    }

    void Play() {
        const std::int64_t first = AnyFrame(), count = input_.ConsumeIntegralInRange(1, 12);
        for (std::int64_t frame = first; frame < first + count; ++frame) scene_.Evaluate(frame);
    }

    void Jump() { scene_.Evaluate(input_.ConsumeIntegralInRange<std::int64_t>(-20, kLastFrame)); }

    void Link() {
        const std::vector<host::Object *> objects = Document().AllObjects();
        const std::size_t which = input_.ConsumeIntegralInRange<std::size_t>(0, objects.size());
        const std::int32_t link = kLinks[input_.ConsumeIntegralInRange<std::size_t>(0, std::size(kLinks) - 1)];
        const host::Data value = host::Data::LinkTo(which < objects.size() ? objects[which] : nullptr);
        host::EditParameter(&scene_.Tag(), host::MakeId(link), value);
    }

    void AddKeys() {
        host::Node *node = &scene_.Tag();
        TableDescID id = host::MakeId(AnyParameter());
        if (input_.ConsumeBool()) {
            node = &scene_.Camera();
            id = host::MakeId(host::kParamRelPosition, host::kVectorX);
        }
        std::unique_ptr<host::Track> track = host::Track::Create(node, id);
        if (!track) return;
        for (const int frame : {0, 10, 90})
            track->GetCurve()->AddKey(host::MakeTime(frame, 30))->SetValue(AnyNumber(&input_));
        host::Track *added = track.release();
        if (!node->InsertTrack(added)) delete added;
    }

    void RemoveObject() {
        std::vector<host::Object *> objects = Document().AllObjects();
        objects.erase(std::remove(objects.begin(), objects.end(), &scene_.Camera()), objects.end());
        if (objects.empty()) return;
        host::Object *gone = objects[input_.ConsumeIntegralInRange<std::size_t>(0, objects.size() - 1)];
        for (host::Object *o = &scene_.Camera(); o != nullptr; o = o->Parent())
            if (o == gone) return;
        Document().Undo().Flush();
        gone->Remove();
        delete gone;
    }

    void ChangeTimes() {
        if (input_.ConsumeBool()) Document().SetFps(input_.ConsumeIntegralInRange(0, 120));
        const std::int64_t first = input_.ConsumeIntegralInRange<std::int64_t>(-30, 30);
        Document().SetRange(first, first + input_.ConsumeIntegralInRange<std::int64_t>(0, kLastFrame));
    }

    bench::Scene &scene_;
    FuzzedDataProvider &input_;
};

// The next shot begins without what this one left: files of the user, what was shown and asked.
void CleanUp(bench::Scene *scene) {
    std::filesystem::remove_all(scene->UserFolder() / "plugins" / "TremoluxCam" / "User");
    host::Application &application = *host::Application::Current();
    application.requests = {};
    application.console.lines.clear();
    application.status.history.clear();
    application.dialogs.Clear();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static bench::Scene scene(host::WatchedTable());
    scene.NewShot();
    scene.SetLastFrame(kLastFrame);
    FuzzedDataProvider input(data, size);
    Work work(&scene, &input);
    for (std::size_t step = 0; step < kMostSteps && input.remaining_bytes() > 0; ++step) {
        work.Step();
        work.Check();
    }
    work.CompareWays();
    work.Check();
    CleanUp(&scene);
    return 0;
}

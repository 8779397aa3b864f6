// Commands that work on saved documents, as a user would in the application.
#include <algorithm>

#include "generated/module_ids.h"
#include "host/animation/track.h"
#include "host/scene/object.h"
#include "host/ui/attribute_manager.h"
#include "host/value/descid.h"
#include "library/failure.h"
#include "library/formats/format.h"
#include "library/formats/source_text.h"
#include "library/frame_rates/keep_hz.h"
#include "library/parameters/lookup.h"
#include "library/presets/chosen_preset.h"
#include "library/presets/pair.h"
#include "library/shots/keys.h"
#include "library/shots/scene.h"
#include "library/shots/second_camera.h"
#include "tremolux/commands/commands.h"
#include "tremolux/commands/move_options.h"
#include "tremolux/process/interrupt.h"
#include "tremolux/process/output_files.h"
#include "tremolux/process/progress.h"
#include "tremolux/process/streams.h"
#include "tremolux/words/keys_text.h"

namespace tremolux {
namespace {

struct SceneOptions {
    HostOptions host;
    FormatChoices formats;  // of the move that is imported
    std::string scene, output, camera, button, move, preset, then;
    std::vector<std::string> answers;
    bool control = false, quiet = false, quick = false, brute = false, undo = false, in_place = false, json = false;

    std::filesystem::path Scene() const { return std::filesystem::u8path(scene); }
};

// Where the changed scene goes; throws a Failure, before anything is done, where nobody said it or it cannot be
// written.
std::filesystem::path CheckedOutput(const char *command, const SceneOptions &options) {
    if (options.output.empty() != options.in_place)
        throw Failure(kExitInput, std::string(command) + ": found " + (options.in_place ? "both" : "none") +
                                      ", expected either -o FILE or --in-place: where the changed scene goes");
    if (IsStream(options.output) || IsStream(options.scene))
        throw Failure(kExitInput, std::string(command) + ": found '-', expected a file: scenes are not streamed");
    if (options.in_place) return OutputFiles({options.scene}, {}).Files().front();
    return OutputFiles({options.output}, {options.scene}).Files().front();
}

void Script(const std::vector<std::string> &answers, host::Dialogs *dialogs) {
    for (const std::string &answer : answers) {
        if (answer == "yes")
            dialogs->AnswerYes();
        else if (answer == "no")
            dialogs->AnswerNo();
        else
            dialogs->AnswerText(answer);
    }
}

// What was asked and answered, and what the system was asked to show.
std::string WhatHappened(const host::Application &application) {
    std::string text;
    for (const host::Dialogs::Shown &shown : application.dialogs.All()) {
        const bool is_name = shown.kind == host::Dialogs::Kind::kRename;
        text += (is_name ? "name" : shown.text) + " -> " + (shown.answer.empty() ? "cancelled" : shown.answer) + "\n";
    }
    for (const std::string &page : application.requests.opened_pages) text += "opened: " + page + "\n";
    for (const std::string &folder : application.requests.shown_folders) text += "shown: " + folder + "\n";
    return text;
}

std::string KeysText(const host::Object &camera) {
    std::int32_t keys = 0;
    for (const host::Track *track : camera.Tracks()) keys += track->GetCurve()->KeyCount();
    return camera.Name() + ": " + std::to_string(keys) + " keys on " + std::to_string(camera.Tracks().size()) +
           " tracks\n";
}

std::int32_t ButtonOf(const host::Tag &tag, const std::string &name) {
    const std::vector<Parameter> parameters = DescribedParameters(tag);
    const Parameter &parameter = FindParameter(parameters, name, "press");
    if (parameter.kind == ParameterKind::kButton) return parameter.id;
    throw Failure(kExitInput, "press: found " + Quoted(name) + ", expected a button of the panel");
}

// By its label or id.
void Press(const char *command, const SceneOptions &options, const std::string &name) {
    const std::filesystem::path output = CheckedOutput(command, options);
    EmbeddedHost host(options.host.ModuleFile(), options.host.Home());
    const OpenScene scene(&host, options.Scene());
    host::Tag *tag = scene.CameraTag(options.camera);
    const std::int32_t button = ButtonOf(*tag, name);
    host::Application &application = host.Application();
    Script(options.answers, &application.dialogs);
    {
        Progress progress(100, options.quiet);
        application.status.on_change = [&] { progress.Done(application.status.percent); };
        application.input.control = options.control;
        const bool pressed = host::PressButton(tag, host::MakeId(button));
        application.input.control = false;
        application.status.on_change = nullptr;
        if (!pressed)
            throw Failure(kExitInput, options.scene + ": found the button disabled, expected one that answers");
    }
    CheckForInterrupt();
    scene.Save(output);
    const bool is_bake = button == ids::kQuickBake || button == ids::kBruteForceBake || button == ids::kUnBake;
    Print(WhatHappened(application) + (is_bake ? KeysText(*tag->GetObject()) : ""));
}

void PressNamed(const SceneOptions &options) { Press("press", options, options.button); }

void Bake(const SceneOptions &options) {
    if (options.quick + options.brute + options.undo != 1)
        throw Failure(kExitInput, "bake: expected one of --quick, --brute and --undo");
    Press("bake", options,
          std::to_string(options.quick   ? ids::kQuickBake
                         : options.brute ? ids::kBruteForceBake
                                         : ids::kUnBake));
}

// Shows them, or takes those of a camera file.
void Keys(const SceneOptions &options) {
    const bool changes = !options.move.empty();
    if (!changes && options.in_place)
        throw Failure(kExitInput, "keys: found --in-place without --import, expected keys to put into the scene");
    const std::filesystem::path output = changes ? CheckedOutput("keys", options) : std::filesystem::path();
    EmbeddedHost host(options.host.ModuleFile(), options.host.Home());
    const OpenScene scene(&host, options.Scene());
    host::Object *camera = options.camera.empty() ? scene.CameraTag("")->GetObject() : scene.Camera(options.camera);
    const int frames_per_second = scene.Document()->Fps();
    if (!changes) {
        const std::vector<ListedKey> listed = ListKeys(*camera, frames_per_second);
        WriteOrPrint(options.output, {options.scene},
                     options.json ? KeysJson(camera->Name(), frames_per_second, listed) : KeysTable(listed));
        return;
    }
    KeyCamera(camera, ReadMoveFile(options.move, options.formats.Options()), frames_per_second);
    scene.Save(output);
    Print(KeysText(*camera));
}

std::vector<host::Tag *> CameraTags(const host::Document &document) {
    std::vector<host::Tag *> tags;
    for (host::Object *object : document.AllObjects())
        for (host::Node *tag = object->FirstTag(); tag != nullptr; tag = tag->Next())
            if (tag->Type() == ids::kTremoluxCamId) tags.push_back(static_cast<host::Tag *>(tag));
    return tags;
}

// The module's command on the active camera. Null: nobody wanted a new camera.
host::Tag *CallApply(host::Application *application, const host::Document &document) {
    const std::vector<host::Tag *> before = CameraTags(document);
    application->CallCommand(ids::kTremoluxCommandId);
    application->HandleEvents();
    for (host::Tag *tag : CameraTags(document))
        if (std::find(before.begin(), before.end(), tag) == before.end()) return tag;
    return nullptr;
}

void CarryHertz(double made_for, int frames_per_second, host::Tag *tag) {
    if (made_for > 0 && made_for != frames_per_second) KeepHertz(made_for, frames_per_second, tag);
}

// The preset on the camera's tag, and where it is a pair, or another one shall follow, a second camera behind the
// first.
void ApplyPresets(const SceneOptions &options, EmbeddedHost *host, host::Document *document, host::Tag *tag) {
    const int frames_per_second = document->Fps();
    ChosenPreset first;
    if (!options.preset.empty()) first = ChooseNamedPreset(options.preset, "--preset", host->ModuleFile(), tag);
    CarryHertz(first.made_for, frames_per_second, tag);
    if (options.then.empty() && !first.second) return;
    document->SetActiveObject(tag->GetObject());
    host::Tag *second = CallApply(&host->Application(), *document);
    if (second == nullptr) throw Failure(kExitModule, "apply: found no second camera, expected one behind the first");
    if (options.then.empty()) {
        ApplyPresetValues(*first.second, second);
        CarryHertz(first.made_for, frames_per_second, second);
    } else {
        CarryHertz(ChooseNamedPreset(options.then, "--then", host->ModuleFile(), second).made_for, frames_per_second,
                   second);
    }
    FollowExactly(second);
    SeedSecond(*tag, tag->Data().Whole(ids::kSeed), second);
    second->GetObject()->SetName("Second Camera");
}

void Apply(const SceneOptions &options) {
    const std::filesystem::path output = CheckedOutput("apply", options);
    // A question that nobody answered would leave a camera without an input.
    if (options.camera.empty() && options.answers.empty())
        throw Failure(kExitInput, "apply: found no camera, expected --camera NAME, or --answer yes for a new one");
    EmbeddedHost host(options.host.ModuleFile(), options.host.Home());
    const OpenScene scene(&host, options.Scene());
    scene.Document()->SetActiveObject(options.camera.empty() ? nullptr : scene.Camera(options.camera));
    Script(options.answers, &host.Application().dialogs);
    host::Tag *tag = CallApply(&host.Application(), *scene.Document());
    if (tag != nullptr && !(options.preset.empty() && options.then.empty()))
        ApplyPresets(options, &host, scene.Document(), tag);
    scene.Save(output);
    Print(WhatHappened(host.Application()));
}

using SceneJob = void (*)(const SceneOptions &);

Command AddSceneCommand(Command program, Action *action, const std::shared_ptr<SceneOptions> &options, const char *name,
                        const char *help, SceneJob job) {
    Command command = program.Subcommand(name, help);
    command.Add("--camera", &options->camera, "the camera, by its name");
    command.Add("-o,--output", &options->output, "scene to write");
    command.Add("--in-place", &options->in_place, "write the scene's own file");
    command.Add("--answer", &options->answers, "yes, no or a text, for each question in turn").Repeatable();
    command.Add("--quiet", &options->quiet, "show no progress");
    AddHostOptions(command, &options->host);
    command.OnCall([=] { *action = [=] { job(*options); }; });
    return command;
}

}  // namespace

void AddSceneCommands(Command program, Action *action) {
    const auto press = std::make_shared<SceneOptions>(), bake = std::make_shared<SceneOptions>(),
               apply = std::make_shared<SceneOptions>(), keys = std::make_shared<SceneOptions>();
    Command command =
        AddSceneCommand(program, action, press, "press", "Presses a button of the tag in a saved scene", PressNamed);
    command.Add("BUTTON", &press->button, "its label or id").Required();
    command.Add("SCENE", &press->scene, "the scene").Required();
    command.Add("--control", &press->control, "with the Control key held");

    command =
        AddSceneCommand(program, action, bake, "bake", "Turns the motion of a saved scene into keys, or back", Bake);
    command.Add("SCENE", &bake->scene, "the scene").Required();
    command.Add("--quick", &bake->quick, "from curves alone");
    command.Add("--brute", &bake->brute, "by playing the scene");
    command.Add("--undo", &bake->undo, "gives the old keys back");

    command = AddSceneCommand(program, action, apply, "apply", "Makes a camera of a saved scene hand-held", Apply);
    command.Add("SCENE", &apply->scene, "the scene").Required();
    command.Add("--preset", &apply->preset,
                "a preset, as for shake: a pair builds two cameras, of which the second has the motion of both");
    command.Add("--then", &apply->then, "a preset of a second camera behind the first, as for shake");

    command = AddSceneCommand(program, action, keys, "keys", "Shows the keys of a camera in a saved scene", Keys);
    command.Find("--output").Description("table to write, else the standard output; with --import the scene");
    command.Add("SCENE", &keys->scene, "the scene").Required();
    command.Add("--import", &keys->move, "camera file: its move becomes the camera's keys");
    AddInputFormat(command, &keys->formats);
    command.Add("--json", &keys->json, "the keys as one JSON object");
}

}  // namespace tremolux

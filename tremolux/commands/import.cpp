#include <cstdio>

#include "host/files/safe_write.h"
#include "host/value/text.h"
#include "library/failure.h"
#include "library/formats/numbers.h"
#include "library/formats/source_text.h"
#include "tremolux/blender/import_script.h"
#include "tremolux/blender/imported_move.h"
#include "tremolux/commands/commands.h"
#include "tremolux/commands/move_options.h"
#include "tremolux/pictures/tool.h"
#include "tremolux/process/interrupt.h"
#include "tremolux/process/output_files.h"
#include "tremolux/process/progress.h"

namespace tremolux {
namespace {

namespace fs = std::filesystem;

struct ImportOptions {
    std::string input, camera, frames;
    std::vector<std::string> outputs;
    FormatChoices formats;
    bool quiet = false;
};

// Shows how far the script says that it is: the last "tremolux: 12 of 100" of what it has said.
class Watch {
  public:
    explicit Watch(bool quiet) : quiet_(quiet) {}
    void Look(const std::string &said) {
        CheckForInterrupt();
        const std::size_t last = said.rfind("tremolux: ");
        long long done = 0, count = 0;
        if (last == std::string::npos || std::sscanf(said.c_str() + last, "tremolux: %lld of %lld", &done, &count) != 2)
            return;
        if (!progress_) progress_ = std::make_unique<Progress>(count, quiet_);
        progress_->Done(done);
    }

  private:
    bool quiet_;
    std::unique_ptr<Progress> progress_;
};

fs::path Checked(const std::string &input) {
    const fs::path file = fs::u8path(input);
    if (!BlenderOpens(file)) {
        throw Failure(kExitInput,
                      input + ": found the extension " + Quoted(host::PathText(file.extension())) +
                          ", expected what Blender opens: .blend, .fbx, .dae, .gltf, .glb, .x3d, .wrl, .abc or .usd");
    }
    std::error_code error;
    if (!fs::is_regular_file(file, error)) throw Failure(kExitInput, input + ": found no such file, expected a scene");
    return fs::absolute(file, error);
}

// The file's bytes, which may be fewer than the program wrote when it was ended.
std::string RunBlender(const ImportOptions &options, const FormatOptions &formats, const fs::path &scene) {
    const TemporaryFolder folder;
    const fs::path script = folder.Path() / "import.py", result = folder.Path() / "move";
    std::string error;
    if (!host::WriteFileSafely(script, kImportScript, &error))
        throw Failure(kExitOutput, "no temporary file can be written, expected a folder that takes new files");
    std::string fps, fps_base;
    if (formats.rate) {
        fps = std::to_string(formats.rate->Whole());
        fps_base = FormatAllDigits(formats.rate->Whole() / formats.rate->PerSecond());
    }
    Tool blender(
        {"blender", "--background", "--factory-startup", "--disable-autoexec", "--python-exit-code", "1", "--python",
         script.u8string(), "--", scene.u8string(), result.u8string(), options.camera, options.frames, fps, fps_base},
        "blender", folder);
    Watch watch(options.quiet);
    blender.FinishWith([&watch](const std::string &said) { watch.Look(said); });
    std::string bytes;
    if (!host::ReadFile(result, &bytes, &error))
        throw Failure(kExitInput,
                      options.input + ": found that Blender ended without a result, expected a scene that it opens");
    return bytes;
}

void Import(const ImportOptions &options) {
    FormatOptions formats = options.formats.Options();
    const fs::path scene = Checked(options.input);
    FramesOption(options.frames);
    OutputFiles files(options.outputs, {options.input});
    std::vector<fs::path> names;
    for (const std::string &file : options.outputs) names.push_back(options.formats.OutputName(file));
    for (const fs::path &name : names) FormatOf(name, FormatUse::kWrite);
    const ImportedMove imported = ReadImported(options.input, RunBlender(options, formats, scene));
    if (imported.width > 0 && options.formats.resolution == FormatChoices().resolution) {
        formats.width = imported.width;
        formats.height = imported.height;
    }
    const CameraMove move = AtRatesOf(formats, options.input, imported.move);
    for (const std::string &note : move.notes) std::fprintf(stderr, "%s: %s\n", options.input.c_str(), note.c_str());
    std::vector<std::string> texts;
    texts.reserve(names.size());
    for (const fs::path &name : names) texts.push_back(TextForFile(name, move, formats));
    files.Write(texts);
}

}  // namespace

void AddImportCommand(Command program, Action *action) {
    const auto options = std::make_shared<ImportOptions>();
    Command command = program.Subcommand(
        "import", "Takes the camera out of a scene that Blender opens, by a Blender that is installed");
    command.Add("INPUT", &options->input, "scene to open: .blend, .fbx, .dae, .gltf, .glb, .x3d, .wrl, .abc, .usd")
        .Required();
    command
        .Add("-o,--output", &options->outputs,
             "camera file to write, " + KnownExtensions(FormatUse::kWrite) + "; may be given again")
        .Required()
        .Repeatable();
    command.Add("--camera", &options->camera, "name or path of the camera, where the scene has several");
    command.Add("--frames", &options->frames,
                "FIRST:LAST: the frames to take; else those of the camera's keys, or of a .blend's range");
    command.Add("--format,--to-format", &options->formats.to_format,
                "extension of what the standard output gets, where the output is -");
    AddRateOptions(command, &options->formats);
    AddWritingOptions(command, &options->formats);
    command.Add("--quiet", &options->quiet, "show no progress");
    command.OnCall([=] { *action = [options] { Import(*options); }; });
}

}  // namespace tremolux

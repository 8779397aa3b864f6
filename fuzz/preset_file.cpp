// Files in the folder of the user's presets: any bytes behind the head of a hyper file, or entries of any kind under
// the ids that presets have. A tag that takes one over gives a finite camera, and can be saved and loaded.
#include <fuzzer/FuzzedDataProvider.h>

#include "bench/scene.h"
#include "fuzz/require.h"
#include "generated/module_ids.h"
#include "host/files/hyperfile.h"
#include "host/files/safe_write.h"
#include "host/files/scenefile.h"
#include "host/ui/attribute_manager.h"
#include "host/value/descid.h"

namespace {

std::filesystem::path FileIn(const bench::Scene &scene) {
    return scene.UserFolder() / "plugins" / "TremoluxCam" / "User" / "1_Any";
}

host::Data AnyValue(FuzzedDataProvider *input) {
    switch (input->ConsumeIntegralInRange(0, 5)) {
        case 0:
            return host::Data(input->ConsumeIntegral<std::int32_t>());
        case 1:
            return host::Data(
                host::MakeTime(input->ConsumeIntegral<std::int16_t>(), input->ConsumeIntegral<std::int8_t>()));
        case 2:
            return host::Data(std::string_view(input->ConsumeRandomLengthString(12)));
        case 3:
            return host::Data(host::Container());
        case 4:
            return host::Data(host::Vector{input->ConsumeFloatingPoint<double>(), 0, 1});
        default:
            return host::Data(input->ConsumeFloatingPoint<double>());
    }
}

// As the host writes it, but with any values.
void WriteEntries(const std::filesystem::path &file, FuzzedDataProvider *input) {
    host::Container preset;
    preset.Set(ids::kPresetName, host::Data(std::string_view(input->ConsumeRandomLengthString(12))));
    while (input->remaining_bytes() > 0) {
        const std::int32_t id = input->ConsumeIntegralInRange(ids::kFirstPresetId, ids::kLastPresetId + 1);
        preset.Set(id, AnyValue(input));
        if (input->ConsumeProbability<float>() < 0.9F) preset.Set(-id, host::Data(1));
    }
    host::HyperFile stream;
    fuzz::Require(stream.Open(ids::kPresetFileCode, file, host::FileMode::kWrite) && stream.WriteContainer(preset) &&
                  stream.Close());
}

void WriteBytes(const std::filesystem::path &file, FuzzedDataProvider *input) {
    host::HyperFile empty;
    empty.OpenForWriting(ids::kPresetFileCode);
    std::string error;
    fuzz::Require(host::WriteFileSafely(file, empty.Bytes() + input->ConsumeRemainingBytesAsString(), &error));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static bench::Scene scene;
    FuzzedDataProvider input(data, size);
    std::filesystem::create_directories(FileIn(scene).parent_path());
    if (input.ConsumeBool())
        WriteEntries(FileIn(scene), &input);
    else
        WriteBytes(FileIn(scene), &input);
    scene.NewShot();  // its tag reads the library
    host::EditParameter(&scene.Tag(), host::MakeId(ids::kCategory), host::Data(ids::kCategoryUser));
    host::EditParameter(&scene.Tag(), host::MakeId(ids::kPreset), host::Data(0));
    for (const std::int64_t frame : {0, 1, 2, 40}) {
        scene.Evaluate(frame);
        fuzz::Require(host::IsFinite(scene.Camera().GlobalMatrix()));
    }
    std::string error;
    const std::filesystem::path saved = scene.UserFolder() / "saved.scene";
    fuzz::Require(host::SaveDocument(&scene.Document(), saved, &error));
    fuzz::Require(host::LoadDocument(saved, &error) != nullptr);
    host::Application::Current()->dialogs.Clear();
    return 0;
}

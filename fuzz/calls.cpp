// A program that calls the library in any order, with handles that are alive, freed or made up, and values of all
// kinds: each call is served, or refused with one line; the numbers of a played shot are finite.
#include <fuzzer/FuzzedDataProvider.h>

#include <cmath>
#include <cstring>
#include <string>
#include <vector>

#include "fuzz/require.h"
#include "tremolux/tremolux.h"

namespace {

using fuzz::Require;

constexpr std::size_t kMostHandles = 4, kMostFrames = 12, kMostNumbers = kMostFrames * TREMOLUX_NUMBERS_PER_FRAME;
constexpr int kMostCalls = 40;
constexpr const char *kNames[] = {"a.csv", "a.json", "a.chan", "a.usda", "a.gltf", "a.py", "a.mov", ""};

struct Caller {
    explicit Caller(FuzzedDataProvider *given) : input(*given) {}
    ~Caller() {
        for (tremolux_move move : moves) tremolux_move_free(move);
        for (tremolux_shot shot : shots) tremolux_shot_free(shot);
    }

    // Mostly one that was given out, freed ones among them.
    template <typename Handle>
    Handle Any(const std::vector<Handle> &handles) {
        if (handles.empty() || input.ConsumeProbability<float>() < 0.05F) {
            // NOLINTNEXTLINE(performance-no-int-to-ptr): what is no handle looks like this.
            return reinterpret_cast<Handle>(input.ConsumeIntegral<std::uintptr_t>());
        }
        return handles[input.ConsumeIntegralInRange<std::size_t>(0, handles.size() - 1)];
    }
    template <typename Handle>
    void Keep(Handle handle, std::vector<Handle> *handles, tremolux_status (*release)(Handle)) {
        if (handle == nullptr) return;
        if (handles->size() < kMostHandles)
            handles->push_back(handle);
        else
            release(handle);
    }

    double Number() {
        switch (input.ConsumeIntegralInRange(0, 3)) {
            case 0:
                return input.ConsumeFloatingPoint<double>();
            case 1:
                return std::nan("");
            default:
                return input.ConsumeFloatingPointInRange<double>(0, 200);
        }
    }
    // Mostly one that there is.
    std::int32_t ParameterId() {
        tremolux_parameter parameter{};
        parameter.size = sizeof(parameter);
        const std::size_t count = tremolux_parameter_count();
        const std::size_t index = input.ConsumeIntegralInRange<std::size_t>(0, count);
        return tremolux_parameter_at(index, &parameter) == TREMOLUX_OK ? parameter.id
                                                                       : input.ConsumeIntegral<std::int32_t>();
    }
    std::size_t Size(std::size_t right) {
        return input.ConsumeProbability<float>() < 0.95F ? right : input.ConsumeIntegral<std::size_t>();
    }

    tremolux_status MakeMove() {
        const auto frames = input.ConsumeIntegralInRange<std::uint64_t>(0, kMostFrames + 1);
        const tremolux_move_info info = {Size(sizeof(info)),
                                         input.ConsumeIntegral<std::int32_t>(),
                                         frames,
                                         input.ConsumeIntegralInRange<std::int32_t>(-1, 2501),
                                         input.ConsumeIntegralInRange<std::int32_t>(1, 2),
                                         Number()};
        std::vector<double> numbers;
        for (std::uint64_t i = 0; i < frames * TREMOLUX_NUMBERS_PER_FRAME; ++i) numbers.push_back(Number());
        tremolux_move move = nullptr;
        const tremolux_status status = tremolux_move_from_numbers(&info, numbers.data(), numbers.size(), &move);
        Keep(move, &moves, tremolux_move_free);
        return status;
    }

    tremolux_status ReadMove() {
        const std::string bytes = input.ConsumeRandomLengthString(200);
        tremolux_move move = nullptr;
        const tremolux_status status =
            tremolux_move_from_bytes(input.PickValueInArray(kNames), bytes.data(), bytes.size(), &move);
        tremolux_move_info info{};
        info.size = sizeof(info);
        // A name of many frames in few bytes would only cost time.
        if (move != nullptr && tremolux_move_info_of(move, &info) == TREMOLUX_OK && info.frame_count > kMostFrames)
            tremolux_move_free(move);
        else
            Keep(move, &moves, tremolux_move_free);
        return status;
    }

    tremolux_status WriteMove(tremolux_move move) {
        tremolux_buffer buffer{};
        const tremolux_status status = tremolux_move_to_bytes(move, input.PickValueInArray(kNames), &buffer);
        Require(status != TREMOLUX_OK || std::strlen(buffer.bytes) == buffer.size);
        tremolux_buffer_free(&buffer);
        return status;
    }

    tremolux_status MakeShot(tremolux_move move) {
        tremolux_shot shot = nullptr;
        const tremolux_status status = tremolux_shot_new(move, &shot);
        Keep(shot, &shots, tremolux_shot_free);
        return status;
    }

    tremolux_status ReadNumbers(tremolux_shot shot) {
        std::vector<double> numbers(input.ConsumeBool() ? kMostNumbers : TREMOLUX_NUMBERS_PER_FRAME);
        const tremolux_status status = tremolux_shot_numbers(shot, numbers.data(), numbers.size());
        for (double number : numbers) Require(std::isfinite(number));
        return status;
    }

    tremolux_status Play(tremolux_shot shot) {
        auto left = input.ConsumeIntegralInRange<std::int32_t>(1, 2 * kMostFrames);
        const auto stop = [](std::uint64_t, std::uint64_t, void *user) -> std::int32_t {
            return --*static_cast<std::int32_t *>(user) == 0 ? 1 : 0;
        };
        if (input.ConsumeBool()) return tremolux_shot_play(shot, stop, &left);
        return tremolux_shot_play_from(shot, input.ConsumeIntegralInRange<std::int64_t>(-2, kMostFrames), nullptr,
                                       nullptr);
    }

    tremolux_status LookAtAChoice(tremolux_shot shot) {
        tremolux_choice choice{};
        choice.size = Size(sizeof(choice));
        const std::int32_t parameter = ParameterId();
        const tremolux_status status =
            tremolux_shot_choice_at(shot, parameter, input.ConsumeIntegralInRange<std::size_t>(0, 20), &choice);
        Require(status != TREMOLUX_OK || std::strlen(choice.label) < 1000);
        return status;
    }

    // What was saved can be applied.
    tremolux_status SavePreset(tremolux_shot shot) {
        tremolux_buffer buffer{};
        const std::string name = input.ConsumeRandomLengthString(20);
        const tremolux_status status = tremolux_shot_preset_to_bytes(shot, name.c_str(), &buffer);
        if (status == TREMOLUX_OK) {
            Require(tremolux_shot_apply_preset_bytes(shot, buffer.bytes, buffer.size) == TREMOLUX_OK);
            preset_bytes.assign(buffer.bytes, buffer.size);
        }
        tremolux_buffer_free(&buffer);
        return status;
    }

    // Any bytes, or those of a preset that was saved with one of them changed.
    std::string PresetBytes() {
        std::string bytes = preset_bytes;
        if (bytes.empty() || input.ConsumeBool()) return input.ConsumeRandomLengthString(300);
        bytes[input.ConsumeIntegralInRange<std::size_t>(0, bytes.size() - 1)] = input.ConsumeIntegral<char>();
        return bytes;
    }

    tremolux_status Step(tremolux_shot shot) {
        std::int32_t done = -1;
        const tremolux_status status =
            input.ConsumeBool() ? tremolux_shot_undo(shot, &done) : tremolux_shot_redo(shot, &done);
        Require((status == TREMOLUX_OK) == (done == 0 || done == 1));
        return status;
    }

    tremolux_status Look(tremolux_shot shot) {
        double number = 0, numbers[TREMOLUX_NUMBERS_PER_FRAME];
        std::int32_t is_enabled = 0;
        tremolux_measures measures{};
        measures.size = Size(sizeof(measures));
        tremolux_buffer buffer{};
        std::size_t count = 0;
        switch (input.ConsumeIntegralInRange(0, 7)) {
            case 0:
                return tremolux_shot_get(shot, ParameterId(), &number);
            case 1:
                return tremolux_shot_is_enabled(shot, ParameterId(), &is_enabled);
            case 2:
                return tremolux_shot_measure(shot, &measures);
            case 3:
                return tremolux_shot_numbers_at(shot, Number(), numbers);
            case 4:
                return tremolux_shot_choice_count(shot, ParameterId(), &count);
            case 5:
                return LookAtAChoice(shot);
            case 6:
                return SavePreset(shot);
            default: {
                const auto frame = input.ConsumeIntegralInRange<std::int64_t>(-1, kMostFrames);
                const tremolux_status status = tremolux_shot_layers(shot, frame, &buffer);
                tremolux_buffer_free(&buffer);
                return status;
            }
        }
    }

    tremolux_status Change(tremolux_shot shot) {
        const std::string text = input.ConsumeRandomLengthString(20);
        tremolux_preset preset{};
        preset.size = sizeof(preset);
        switch (input.ConsumeIntegralInRange(0, 9)) {
            case 0:
                return tremolux_shot_set(shot, ParameterId(), Number());
            case 1:
                return tremolux_shot_set_text(shot, text.c_str());
            case 2:
                return tremolux_shot_press(shot, ParameterId());
            case 3:
                return tremolux_shot_set_target(shot, Any(moves));
            case 4:
                return tremolux_shot_set_focus_object(shot, Any(moves));
            case 5:
                return tremolux_shot_key(shot, ParameterId(),
                                         input.ConsumeIntegralInRange<std::int64_t>(-1, kMostFrames), Number(),
                                         input.ConsumeIntegralInRange<std::int32_t>(0, 4));
            case 6:
                return tremolux_shot_bake(shot,
                                          input.ConsumeBool() ? TREMOLUX_BAKE_QUICKLY : TREMOLUX_BAKE_BY_BRUTE_FORCE);
            case 7:
                return Step(shot);
            case 8: {
                const std::string bytes = PresetBytes();
                return tremolux_shot_apply_preset_bytes(shot, bytes.data(), bytes.size());
            }
            default:
                tremolux_preset_at(input.ConsumeIntegralInRange<std::size_t>(0, tremolux_preset_count()), &preset);
                return tremolux_shot_apply_preset(shot, preset.name);
        }
    }

    void Call() {
        const tremolux_move move = Any(moves);
        const tremolux_shot shot = Any(shots);
        tremolux_status status = TREMOLUX_OK;
        const void *used = shot;
        switch (input.ConsumeIntegralInRange(0, 9)) {
            case 0:
                status = MakeMove();
                used = nullptr;
                break;
            case 1:
                status = ReadMove();
                used = nullptr;
                break;
            case 2:
                status = WriteMove(move);
                used = move;
                break;
            case 3:
                status = MakeShot(move);
                used = move;
                break;
            case 4:
                status = ReadNumbers(shot);
                break;
            case 5:
                status = Play(shot);
                break;
            case 6:
                status = Look(shot);
                break;
            case 7:
                status = input.ConsumeProbability<float>() < 0.2F ? tremolux_shot_free(shot) : TREMOLUX_OK;
                break;
            default:
                status = Change(shot);
                break;
        }
        if (status == TREMOLUX_OK) return;
        const std::string line = tremolux_last_error(used);
        Require(!line.empty() && line.find('\n') == std::string::npos);
    }

    FuzzedDataProvider &input;
    std::vector<tremolux_move> moves;
    std::vector<tremolux_shot> shots;
    std::string preset_bytes;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    Caller caller(&input);
    for (int calls = 0; calls < kMostCalls && input.remaining_bytes() > 0; ++calls) caller.Call();
    return 0;
}

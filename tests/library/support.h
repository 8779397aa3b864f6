// Short words for the C interface's calls.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include "tremolux/tremolux.h"

namespace library_tests {

constexpr std::size_t kNumbers = TREMOLUX_NUMBERS_PER_FRAME;

struct FreeMove {
    void operator()(tremolux_move move) const { tremolux_move_free(move); }
};
struct FreeShot {
    void operator()(tremolux_shot shot) const { tremolux_shot_free(shot); }
};
using Move = std::unique_ptr<tremolux_move_handle, FreeMove>;
using Shot = std::unique_ptr<tremolux_shot_handle, FreeShot>;

inline tremolux_move_info Info(std::uint64_t frames) { return {sizeof(tremolux_move_info), 0, frames, 30, 1, 36}; }

// A camera that goes forward and pans, turn after turn, and zooms.
inline std::vector<double> Numbers(std::size_t frames) {
    std::vector<double> numbers;
    for (std::size_t i = 0; i < frames; ++i) {
        const double t = static_cast<double>(i);
        for (double number : {3 * t, 150 + std::sin(t / 20), -2 * t, t / 15, std::sin(t / 40) / 3, 0.0, 36 + t / 10,
                              std::fabs(900 - t)})
            numbers.push_back(number);
    }
    return numbers;
}

inline Move MakeMove(std::size_t frames) {
    const tremolux_move_info info = Info(frames);
    const std::vector<double> numbers = Numbers(frames);
    tremolux_move move = nullptr;
    EXPECT_EQ(TREMOLUX_OK, tremolux_move_from_numbers(&info, numbers.data(), numbers.size(), &move))
        << tremolux_last_error(nullptr);
    return Move(move);
}

inline Shot MakeShot(const Move &move) {
    tremolux_shot shot = nullptr;
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_new(move.get(), &shot)) << tremolux_last_error(move.get());
    return Shot(shot);
}

inline Shot MakeShot(std::size_t frames) { return MakeShot(MakeMove(frames)); }

inline std::vector<double> Played(const Shot &shot, std::size_t frames) {
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_play(shot.get(), nullptr, nullptr)) << tremolux_last_error(shot.get());
    std::vector<double> numbers(frames * kNumbers);
    EXPECT_EQ(TREMOLUX_OK, tremolux_shot_numbers(shot.get(), numbers.data(), numbers.size()));
    return numbers;
}

inline tremolux_parameter ParameterAt(std::size_t index) {
    tremolux_parameter parameter{};
    parameter.size = sizeof(parameter);
    EXPECT_EQ(TREMOLUX_OK, tremolux_parameter_at(index, &parameter)) << tremolux_last_error(nullptr);
    return parameter;
}

inline std::int32_t IdOf(const std::string &label) {
    for (std::size_t i = 0; i < tremolux_parameter_count(); ++i)
        if (label == ParameterAt(i).label) return ParameterAt(i).id;
    ADD_FAILURE() << "no parameter " << label;
    return 0;
}

inline tremolux_preset PresetAt(std::size_t index) {
    tremolux_preset preset{};
    preset.size = sizeof(preset);
    EXPECT_EQ(TREMOLUX_OK, tremolux_preset_at(index, &preset)) << tremolux_last_error(nullptr);
    return preset;
}

}  // namespace library_tests

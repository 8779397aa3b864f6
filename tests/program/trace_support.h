// What a trace of the built program tells, for the tests that read it.
#pragma once

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "host/value/vector.h"
#include "tests/program/run.h"

namespace program_test {

using nlohmann::json;

constexpr double kDegree = 3.14159265358979323846 / 180;

inline host::Vector VectorOf(const json &numbers) { return {numbers.at(0), numbers.at(1), numbers.at(2)}; }

class TracedMove : public testing::Test {
  protected:
    explicit TracedMove(const std::string &move) : move_(workplace_.Write("move.csv", move)) {}
    // One record a frame.
    std::vector<json> Trace(const std::vector<std::string> &more) const {
        std::vector<std::string> arguments = {"trace", move_};
        arguments.insert(arguments.end(), more.begin(), more.end());
        const Outcome outcome = workplace_.Run(arguments);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        std::vector<json> records;
        std::istringstream lines(outcome.out);
        for (std::string line; std::getline(lines, line);) records.push_back(json::parse(line));
        return records;
    }
    Workplace workplace_;
    const std::string move_;
};

// "--set" before each.
inline std::vector<std::string> Settings(const std::vector<std::string> &settings) {
    std::vector<std::string> arguments;
    for (const std::string &setting : settings) arguments.insert(arguments.end(), {"--set", setting});
    return arguments;
}

inline std::vector<std::string> Joined(std::vector<std::string> a, const std::vector<std::string> &b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

}  // namespace program_test

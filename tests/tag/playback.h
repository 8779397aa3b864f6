// A saved document, opened and played, in this process or in a new one.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "tests/tag/scene.h"

namespace tag_test {

// One line for what a frame shows and the clocks behind it, exact to the last bit.
std::string FrameLine(Scene &scene);
std::vector<std::string> PlayFrames(Scene &scene, std::int64_t first_frame, std::int64_t last_frame);

// The largest difference of any number of any line; infinite when lines or numbers are missing.
double Difference(const std::vector<std::string> &a, const std::vector<std::string> &b);

// Opens the document as an application does, with one evaluation at the time it was saved at, and plays the frames.
// Empty when it cannot be opened.
std::vector<std::string> PlayFile(const std::filesystem::path &file, std::int64_t first_frame, std::int64_t last_frame);
// The same by a process of its own: this test program, called again.
std::vector<std::string> PlayFileInNewProcess(const std::filesystem::path &file, std::int64_t first_frame,
                                              std::int64_t last_frame);

// The role of that process. -1: the arguments ask for the tests.
int RunAsPlayer(int argc, char **argv);

}  // namespace tag_test

// The tests, and the second role of this program: a process that opens a saved document and plays it.
#include <gtest/gtest.h>

#include "tests/tag/playback.h"

int main(int argc, char **argv) {
    const int played = tag_test::RunAsPlayer(argc, argv);
    if (played >= 0) return played;
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

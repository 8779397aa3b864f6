// Shared by the tests of recorded motion.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "library/failure.h"

namespace gyro_test {

// The one line that a reader refuses with.
template <typename Read>
std::string RefusalOf(Read read) {
    try {
        read();
    } catch (const tremolux::Failure &failure) {
        return failure.what();
    }
    return "nothing refused";
}

}  // namespace gyro_test

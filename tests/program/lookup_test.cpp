#include "library/parameters/lookup.h"

#include <gtest/gtest.h>

#include "library/failure.h"
#include "tests/program/parameter_support.h"

namespace tremolux {
namespace {

std::string Refusal(std::string_view name) {
    try {
        return "found " + std::to_string(FindParameter(ExamplePanel(), name).id);
    } catch (const Failure &failure) {
        EXPECT_EQ(failure.Status(), kExitInput);
        return failure.what();
    }
}

TEST(ParameterLookup, FindsLabelsWhateverTheirCaseAndBlanks) {
    for (const char *name : {"Shake Speed", "shake speed", "  SHAKE SPEED\t"}) EXPECT_EQ(Refusal(name), "found 10");
}

TEST(ParameterLookup, FindsIds) {
    EXPECT_EQ(Refusal("12"), "found 12");
    EXPECT_EQ(Refusal(" 22 "), "found 22");
}

TEST(ParameterLookup, RefusesSharedLabelsWithTheirIds) {
    EXPECT_EQ(Refusal("overshoot fade"),
              "--set: found 2 parameters 'overshoot fade', expected one of their ids: 11 or 12");
}

TEST(ParameterLookup, NamesTheNearestLabelOnce) {
    EXPECT_EQ(Refusal("Shak Speed"),
              "--set: found no parameter 'Shak Speed', expected a label or an id: did you mean 'Shake Speed'?");
    EXPECT_EQ(Refusal("zom"), "--set: found no parameter 'zom', expected a label or an id: did you mean 'Zoom'?");
    EXPECT_EQ(Refusal("fade"),
              "--set: found no parameter 'fade', expected a label or an id: did you mean 'Overshoot Fade'?");
}

TEST(ParameterLookup, RefusesUnknownIdsAndEmptyNames) {
    EXPECT_EQ(Refusal("99").rfind("--set: found no parameter '99', expected a label or an id", 0), 0u);
    EXPECT_EQ(Refusal("").rfind("--set: found no parameter ''", 0), 0u);
    EXPECT_EQ(Refusal(std::string(100000, 'x')).rfind("--set: found no parameter 'xxx", 0), 0u);
}

}  // namespace
}  // namespace tremolux

#include <cstdio>
#include <cstdlib>

#include "ArrayTest.h"

// A process finds its first array once, so each case runs in a fresh one.
namespace {

/// Ends the process after telling the array's name.
[[noreturn]] void tellName(const char* scenario) {
    if (scenario == nullptr) {
        unsetenv("QRVAPI_SCENARIO");
    } else {
        setenv("QRVAPI_SCENARIO", scenario, 1);
    }
    api_SystemFacts_t facts{};
    const int code = api_getSystemFacts(&facts);
    std::fprintf(stderr, "<%s>", facts.name);
    std::exit(code);
}

class FirstUseDeathTest : public ::testing::Test {
  protected:
    void SetUp() override { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
};

TEST_F(FirstUseDeathTest, TheSampleServesWhenNothingIsSaid) {
    EXPECT_EXIT(tellName(nullptr), ::testing::ExitedWithCode(0), "^<orchard-a1>$");
}

TEST_F(FirstUseDeathTest, TheEnvironmentNamesAScenario) {
    EXPECT_EXIT(tellName(SAMPLE_SCENARIO), ::testing::ExitedWithCode(0), "^<orchard-a1>$");
}

TEST_F(FirstUseDeathTest, AnUnusableScenarioIsToldAndLeavesTheArrayEmpty) {
    EXPECT_EXIT(tellName("/no/such/file"), ::testing::ExitedWithCode(0),
                "Z \\[2\\] The array is empty, as its scenario is unusable: /no/such/file: cannot "
                "be read\n<>$");
}

}  // namespace

#include "ArrayTest.h"

namespace control = qrvapi::control;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::MatchesRegex;

namespace {

using LogTest = ArrayTest;

std::string written(int level, const char* text) {
    ::testing::internal::CaptureStderr();
    log_message(level, "%s", text);
    return ::testing::internal::GetCapturedStderr();
}

TEST_F(LogTest, EntriesUpToTheLevelAreOneLineEach) {
    constexpr auto line =
        "[0-9]{4}-[0-9]{2}-[0-9]{2}T[0-9]{2}:[0-9]{2}:[0-9]{2}.[0-9]{3}Z .2. a b  c\n";
    EXPECT_THAT(written(2, "a b\r\nc\n"), MatchesRegex(line));
    EXPECT_EQ(written(3, "a"), "");
    control::setLogLevel(4);
    EXPECT_THAT(written(4, "<--x\n"), MatchesRegex(".* .4. <--x\n"));
    control::setLogLevel(0);
    EXPECT_EQ(written(2, "a"), "");
}

TEST_F(LogTest, CapturedEntriesKeepTheirText) {
    control::setLogLevel(0);
    control::captureLog(3);
    log_message(2, "code %d\n", 7);
    log_message(3, "%s", std::string(10'000, 'x').c_str());
    log_message(4, "trace");
    const auto lines = control::takeLogLines();
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0].level, 2);
    EXPECT_EQ(lines[0].text, "code 7\n");
    EXPECT_EQ(lines[1].text, std::string(10'000, 'x'));
    control::captureLog(0);
    log_message(2, "gone");
    EXPECT_THAT(control::takeLogLines(), IsEmpty());
}

}  // namespace

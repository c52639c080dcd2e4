// Every test program of the module: after each test the array has back all that was taken from it.
#include <gtest/gtest.h>
#include <qrvapi_control.h>

namespace {

namespace control = qrvapi::control;

class LeakListener : public testing::EmptyTestEventListener {
    void OnTestEnd(const testing::TestInfo&) override {
        const control::Outstanding held = control::outstanding();
        EXPECT_TRUE(held.idle()) << control::describe(held);
        EXPECT_EQ(control::violations(), std::vector<std::string>());
    }
};

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    testing::UnitTest::GetInstance()->listeners().Append(new LeakListener());
    return RUN_ALL_TESTS();
}

// What the embedded object model promises beyond OpenPegasus.
#include "Support.h"

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMDateTime.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/OperationContext.h>

#include <gtest/gtest.h>

#include <thread>
#include <utility>
#include <vector>

using namespace Pegasus;
using model_tests::text;

namespace {

TEST(IdentityContainer, KnowsTheClientsAddress) {
    OperationContext context;
    context.insert(IdentityContainer(String("user"), String("192.0.2.1")));
    const IdentityContainer identity(context.get(IdentityContainer::NAME));
    EXPECT_EQ(text(identity.getIpAddress()), "192.0.2.1");
    EXPECT_EQ(text(IdentityContainer(String("user")).getIpAddress()), "");
}

TEST(CIMException, TakesAFlag) {
    const CIMException exception(CIMStatusCode(4097), "m", true);
    EXPECT_EQ(int(exception.getCode()), 4097);
    EXPECT_EQ(text(exception.getMessage()), "m");
}

TEST(String, MovesAndAppendsFromItself) {
    String from("text");
    const Char16* const units = from.getChar16Data();
    const String to = std::move(from);
    EXPECT_EQ(to.getChar16Data(), units);

    String s("ab");
    for (int i = 0; i < 5; ++i) {
        s.append(s);
    }
    s.append(s.getChar16Data() + 1, 2).append(s[0]);
    EXPECT_EQ(text(s.subString(60)), "ababbaa");
}

TEST(String, RefusesSurrogatesAndShowsUnpairedOnes) {
    EXPECT_NE(model_tests::thrownBy<Exception>([] { String s("\xED\xA0\x80"); }), "no exception");
    const Char16 high = Uint16(0xD83D);
    EXPECT_EQ(text(String(&high, 1)), "\xEF\xBF\xBD");
}

TEST(CIMDateTime, RefusesResultsThatHaveNoText) {
    const CIMDateTime longest(String("99999999235959.999999:000"));
    const auto refused = [](auto action) {
        return model_tests::thrownBy<DateTimeOutOfRangeException>(action) != "no exception";
    };
    EXPECT_TRUE(refused([&] { longest + longest; }));
    EXPECT_TRUE(refused([&] { longest * 2; }));
    EXPECT_TRUE(refused([&] { longest*(Uint64(1) << 63); }));
}

TEST(Array, MovesAndTakesItsOwnElements) {
    Array<CIMName> names;
    for (int i = 0; i < 9; ++i) {
        names.append(CIMName("a"));
        names.append(names[0]);
        names.append(names.getData(), 2);
        names.insert(1, names[names.size() - 1]);
        names.appendArray(names);
    }
    for (Uint32 i = 0; i < names.size(); ++i) {
        ASSERT_EQ(text(names[i].getString()), "a");
    }
    EXPECT_EQ(model_tests::thrownBy<IndexOutOfBoundsException>([&] { names.remove(names.size()); }),
              "index out of bounds");
    EXPECT_EQ(
        model_tests::thrownBy<IndexOutOfBoundsException>([&] { names.remove(1, names.size()); }),
        "index out of bounds");
    const CIMName* const data = names.getData();
    const Array<CIMName> moved = std::move(names);
    EXPECT_EQ(moved.getData(), data);
}

/// Under the thread sanitizer this shows that copies on different threads share no unguarded state.
TEST(Values, CopiesLiveOnDifferentThreads) {
    const String name("shared");
    const Array<String> names(3, name);
    std::vector<std::thread> threads;
    for (Uint32 i = 0; i < 4; ++i) {
        threads.emplace_back([&names, i] {
            for (int round = 0; round < 1000; ++round) {
                Array<String> own = names;
                own[i % 3].append(Char16('x'));
                Array<String> second = own;
                second.remove(0);
                ASSERT_EQ(own[i % 3].size(), 7u);
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(text(names[0] + names[1] + names[2]), "sharedsharedshared");
}

}  // namespace

#include "Support.h"

#include <Pegasus/Common/Array.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

using namespace Pegasus;
using model_tests::text;
using model_tests::thrownBy;

namespace {

std::string join(const Array<String>& array) {
    std::string joined;
    for (Uint32 i = 0; i < array.size(); ++i) {
        joined += text(array[i]);
    }
    return joined;
}

Array<String> letters(const char* text) {
    Array<String> array;
    for (; *text; ++text) {
        array.append(String(text, 1));
    }
    return array;
}

TEST(Array, ConstructsElements) {
    EXPECT_EQ(Array<Uint32>().size(), 0u);
    const Array<Uint32> zeros(3);
    EXPECT_EQ(zeros[0] + zeros[1] + zeros[2], 0u);
    EXPECT_EQ(join(Array<String>(3, String("x"))), "xxx");
    const Uint8 bytes[] = {1, 2, 3};
    const Array<Uint8> copied(bytes, 3);
    EXPECT_EQ(copied.size(), 3u);
    EXPECT_EQ(copied.getData()[2], 3);
}

TEST(Array, Edits) {
    const String xy[] = {String("x"), String("y")};
    const std::vector<std::pair<std::function<void(Array<String>&)>, const char*>> cases = {
        {[](auto& a) { a.append(String("x")); }, "abcx"},
        {[&](auto& a) { a.append(xy, 2); }, "abcxy"},
        {[](auto& a) { a.appendArray(letters("de")); }, "abcde"},
        {[](auto& a) { a.prepend(String("x")); }, "xabc"},
        {[&](auto& a) { a.prepend(xy, 2); }, "xyabc"},
        {[](auto& a) { a.insert(1, String("x")); }, "axbc"},
        {[&](auto& a) { a.insert(3, xy, 2); }, "abcxy"},
        {[](auto& a) { a.grow(2, String("x")); }, "abcxx"},
        {[](auto& a) { a.remove(1); }, "ac"},
        {[](auto& a) { a.remove(0, 2); }, "c"},
        {[](auto& a) { a.remove(0, 3); }, ""},
        {[](auto& a) { a.remove(3, 0); }, "abc"},
        {[](auto& a) { a.clear(); }, ""},
        {[](auto& a) { a.reserveCapacity(100); }, "abc"},
        {[](auto& a) { a[1] = String("x"); }, "axc"}};
    for (const auto& [edit, expected] : cases) {
        Array<String> owned = letters("abc");
        edit(owned);
        EXPECT_EQ(join(owned), expected);

        const Array<String> original = letters("abc");
        Array<String> shared = original;
        edit(shared);
        EXPECT_EQ(join(shared), expected) << "on a copy";
        EXPECT_EQ(join(original), "abc") << "under a copy that became " << expected;
    }
}

TEST(Array, ChecksIndexes) {
    Array<String> array = letters("ab");
    const Array<String>& constArray = array;
    const std::vector<std::function<void()>> cases = {
        [&] { array[2] = String(); },       [&] { constArray[2]; },
        [&] { array.insert(3, String()); }, [&] { array.remove(3); },
        [&] { array.remove(0, 9); },        [] { Array<Uint32>()[0] = 1; }};
    for (std::size_t i = 0; i < cases.size(); ++i) {
        EXPECT_EQ(thrownBy<IndexOutOfBoundsException>(cases[i]), "index out of bounds") << i;
    }
    EXPECT_EQ(join(array), "ab");
}

TEST(Array, GrowsAndSwaps) {
    Array<Uint32> many;
    for (Uint32 i = 0; i < 1000; ++i) {
        many.append(i);
    }
    EXPECT_EQ(many[999], 999u);
    EXPECT_GE(many.getCapacity(), 1000u);
    Array<Uint32> few(1, 7);
    many.swap(few);
    EXPECT_EQ(many.size(), 1u);
    EXPECT_EQ(few[500], 500u);
}

}  // namespace

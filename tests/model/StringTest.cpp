#include "Support.h"

#include <Pegasus/Common/String.h>

#include <gtest/gtest.h>

#include <sstream>
#include <utility>
#include <vector>

#if __has_include(<Pegasus/Common/MessageLoader.h>)
#include <Pegasus/Common/MessageLoader.h>
#endif
#include <Pegasus/Common/InternalException.h>

using namespace Pegasus;
using model_tests::text;
using model_tests::thrownBy;

namespace {

constexpr const char* outOfBounds = "index out of bounds";

TEST(String, CountsUtf16UnitsAndGivesUtf8Back) {
    const std::vector<std::pair<const char*, Uint32>> cases = {
        {"", 0},
        {"abc", 3},
        {"\xC3\xA9", 1},
        {"\xE2\x82\xAC", 1},
        {"\xF0\x9F\x98\x80", 2},
        {"a\xC3\xA9z", 3},
        {"a text long enough to need memory of its own, also as UTF-8: \xC3\xA9", 62}};
    for (const auto& [utf8, units] : cases) {
        EXPECT_EQ(String(utf8).size(), units) << utf8;
        EXPECT_STREQ(String(utf8).getCString(), utf8);
    }
    const Char16 unpaired[] = {Char16('a'), Char16(0x20AC), Char16()};
    EXPECT_EQ(text(String(unpaired)), "a\xE2\x82\xAC");
    EXPECT_EQ(String("abcdef", 3), "abc");
    EXPECT_EQ(String(String("abcdef"), 2), "ab");
}

TEST(String, RefusesWhatIsNoText) {
    const char* const null = nullptr;
    const Char16* const null16 = nullptr;
    EXPECT_EQ(thrownBy<NullPointer>([&] { String s(null); }), "null pointer");
    EXPECT_EQ(thrownBy<NullPointer>([&] { String s(null16); }), "null pointer");
    EXPECT_EQ(thrownBy<NullPointer>([&] { String().append(null16, 1); }), "null pointer");
    EXPECT_EQ(thrownBy<Exception>([] {
                  String s(
                      "ab\xFF\xFE"
                      "cd");
              }),
              "The byte sequence starting at index 2 is not valid UTF-8 encoding: "
              "ab 0xFF 0xFE 0x63 0x64");
    for (const char* bad : {"\x80", "\xC0\x80", "\xE0\x80\x80", "\xF4\x90\x80\x80", "\xE2\x82"}) {
        EXPECT_EQ(thrownBy<Exception>([&] { String s(bad); }).rfind("The byte sequence", 0), 0u);
    }
    EXPECT_EQ(thrownBy<IndexOutOfBoundsException>([] { String(String("ab"), 3); }), outOfBounds);
}

TEST(String, CopiesAreIndependent) {
    String a("shared");
    String b = a;
    b[0] = Char16('S');
    b.append(Char16('!'));
    EXPECT_EQ(a, "shared");
    EXPECT_EQ(b, "Shared!");
    b = a;
    b.toLower();
    b.remove(0, 1);
    EXPECT_EQ(a, "shared");
    EXPECT_EQ(b, "hared");
    b.assign("x");
    b.clear();
    EXPECT_EQ(b, String::EMPTY);
}

TEST(String, Appends) {
    String s("ab");
    s.reserveCapacity(3);
    for (int i = 0; i < 40; ++i) {
        s.append(Char16('c')).append(String("de"));
    }
    EXPECT_EQ(s.size(), 122u);
    EXPECT_EQ(s.subString(117), "decde");
    s = "n=";
    s.append(String("xyz").getChar16Data() + 1, 2);
    s.appendPrintf("%d %s", 7, "\xC3\xA9");
    EXPECT_EQ(text(s), "n=yz7 \xC3\xA9");
    EXPECT_EQ(String("a") + s + String(), "a" + s);
}

TEST(String, SearchesAndCuts) {
    const String s("abcabc");
    EXPECT_EQ(s.find(Char16('c')), 2u);
    EXPECT_EQ(s.find(3, Char16('c')), 5u);
    EXPECT_EQ(s.find(6, Char16('c')), PEG_NOT_FOUND);
    EXPECT_EQ(s.find(String("ca")), 2u);
    EXPECT_EQ(s.find(String("cb")), PEG_NOT_FOUND);
    EXPECT_EQ(s.find(String()), PEG_NOT_FOUND);
    EXPECT_EQ(s.reverseFind(Char16('a')), 3u);
    EXPECT_EQ(String().reverseFind(Char16('a')), PEG_NOT_FOUND);
    EXPECT_EQ(thrownBy<IndexOutOfBoundsException>([&] { s.find(7, Char16('a')); }), outOfBounds);

    EXPECT_EQ(s.subString(4), "bc");
    EXPECT_EQ(s.subString(1, 2), "bc");
    EXPECT_EQ(s.subString(4, 9), "bc");
    EXPECT_EQ(s.subString(6), "");
    EXPECT_EQ(s.subString(7), "");

    String cut(s);
    cut.remove(1, 2);
    EXPECT_EQ(cut, "aabc");
    cut.remove(2);
    EXPECT_EQ(cut, "aa");
    cut.remove(2);
    EXPECT_EQ(cut, "aa");
    EXPECT_EQ(thrownBy<IndexOutOfBoundsException>([&] { cut.remove(1, 2); }), outOfBounds);
    EXPECT_EQ(Uint16(s[6]), 0);
    EXPECT_EQ(thrownBy<IndexOutOfBoundsException>([&] { s[7]; }), outOfBounds);
}

int sign(int number) {
    return (number > 0) - (number < 0);
}

TEST(String, ComparesByUnitsAndFoldsAsciiOnly) {
    struct Case {
        const char *x, *y;
        int order, orderNoCase;
    };
    const std::vector<Case> cases = {{"abc", "abd", -1, -1},        {"abc", "abcd", -1, -1},
                                     {"abcd", "abc", 1, 1},         {"a", "B", 1, -1},
                                     {"aBc", "AbC", 1, 0},          {"", "", 0, 0},
                                     {"\xC3\xA9", "\xC3\x89", 1, 1}};
    for (const auto& [x, y, order, orderNoCase] : cases) {
        EXPECT_EQ(sign(String::compare(x, y)), order) << x << ' ' << y;
        EXPECT_EQ(sign(String::compareNoCase(x, y)), orderNoCase) << x << ' ' << y;
        EXPECT_EQ(String::equal(x, y), order == 0) << x << ' ' << y;
        EXPECT_EQ(String::equalNoCase(x, y), orderNoCase == 0) << x << ' ' << y;
        EXPECT_EQ(String(x) == y, order == 0);
        EXPECT_EQ(String(x) < String(y), order < 0);
        EXPECT_EQ(String(x) >= String(y), order >= 0);
    }
    EXPECT_EQ(String::compare("abcX", "abcY", 3), 0);
    EXPECT_LT(String::compare("abcX", "abcY", 10), 0);
    String lower("ABC\xC3\x89z");
    lower.toLower();
    EXPECT_EQ(text(lower), "abc\xC3\x89z");
    EXPECT_TRUE("a\xC3\xA9" == String("a\xC3\xA9"));
}

TEST(String, StreamsLatin1AndEscapesTheRest) {
    std::ostringstream out;
    out << String("a\xC3\xA9\xE2\x82\xAC");
    EXPECT_EQ(out.str(), "a\xE9\\x20AC");
}

TEST(CString, OwnsItsBytes) {
    const char* const texts[] = {
        "", "short", "long enough not to fit into the object, whatever its size may be"};
    for (const char* expected : texts) {
        CString copy;
        {
            const CString original = String(expected).getCString();
            copy = original;
        }
        const CString again(copy);
        EXPECT_STREQ(again, expected);
    }
    EXPECT_EQ(static_cast<const char*>(CString()), nullptr);
}

}  // namespace

// Matching object paths, searching for them, and checking references that clients send.
#include <QRV_Common.h>

#include <array>
#include <random>

#include "Handlers.h"
#include "ToolkitTest.h"

using namespace Pegasus;
using qrvtest::textOf;

namespace {

/// The path with its references as string keys, as some clients send them.
CIMObjectPath withStrings(CIMObjectPath path) {
    Array<CIMKeyBinding> keys = path.getKeyBindings();
    for (Uint32 i = 0; i < keys.size(); ++i)
        if (keys[i].getType() == CIMKeyBinding::REFERENCE) keys[i].setType(CIMKeyBinding::STRING);
    path.setKeyBindings(keys);
    return path;
}

/// Whether two paths match, which neither their order nor references as strings may change.
void expectMatch(const CIMObjectPath& left, const CIMObjectPath& right, bool match) {
    for (const CIMObjectPath& a : {left, withStrings(left)})
        for (const CIMObjectPath& b : {right, withStrings(right)}) {
            EXPECT_EQ(QRV_Common::matchObjectPath(a, b), match) << textOf(a) << "\n" << textOf(b);
            EXPECT_EQ(QRV_Common::matchObjectPath(b, a), match) << textOf(b) << "\n" << textOf(a);
        }
}

TEST(MatchObjectPath, table) {
    const struct {
        const char* left;
        const char* right;
        bool match;
    } pairs[] = {
        // The host doesn't count, the namespace does.
        {R"(//a/n:X.K="1 2")", R"(//b.example:5989/n:X.K="1 2")", true},
        {R"(//[2001:db8::1]/n:X.K="1 2")", R"(n:X.K="1 2")", true},
        {R"(n:X.K="1 2")", R"(X.K="1 2")", false},
        {R"(n:X.K="1 2")", R"(m:X.K="1 2")", false},
        {R"(N:x.k="1 2")", R"(n:X.K="1 2")", true},
        {R"(X.K="1 2")", R"(Y.K="1 2")", false},
        // The same in a reference, but not in a reference in a reference.
        {R"(X.R="//a/n:Y.K=\"1 2\"")", R"(X.R="//b/n:Y.K=\"1 2\"")", true},
        {R"(X.R="//[::1]/n:Y.K=\"1 2\"")", R"(X.R="n:Y.K=\"1 2\"")", true},
        {R"(X.R="//a/n:Y.K=\"1 2\"")", R"(X.R="//a/n:Y.K=\"1 3\"")", false},
        {R"(X.R="n:Y.K=\"1 2\"")", R"(X.R="Y.K=\"1 2\"")", false},
        {R"(X.R="n:Y.K=\"1 2\"")", R"(X.R="N:y.k=\"1 2\"")", true},
        {R"(X.R="Y.A=1,B=\"2 3\"")", R"(X.R="Y.B=\"2 3\",A=1")", true},
        {R"(X.R="//a/n:Y.R=\"//h/n:Z.K=1\"")", R"(X.R="//b/n:Y.R=\"//h/n:Z.K=1\"")", true},
        {R"(X.R="//a/n:Y.R=\"//h/n:Z.K=1\"")", R"(X.R="//a/n:Y.R=\"//i/n:Z.K=1\"")", false},
        // Keys.
        {R"(X.A="1 2",B=2)", R"(X.B=2,a="1 2")", true},
        {R"(X.A="1 2",B=2)", R"(X.A="1 2")", false},
        {R"(X.A="1 2")", R"(X.B="1 2")", false},
        {R"(X.K=0x10)", R"(X.K=16)", true},
        {R"(X.K=16)", R"(X.K="16")", false},
        {R"(X.K=true)", R"(X.K=TRUE)", true},
        {R"(X.K="")", R"(X.K="")", true},
        {R"(X.K="")", R"(X.K="a")", false},
        {R"(X.K="one two")", R"(X.K="One two")", false},
        {R"(X.K="a=b")", R"(X.K="a=b")", true},
        {R"(X.K="a=b")", R"(X.K="a=c")", false},
        // A text that reads as a class, with a namespace or without, is compared as one.
        {R"(X.K="ORVELIS:alpha")", R"(X.K="ORVELIS:Alpha")", true},
        {R"(X.K="ORVELIS:alpha.")", R"(X.K="//h/ORVELIS:alpha")", true},
        {R"(X.K="ORVELIS:al-pha")", R"(X.K="ORVELIS:Al-pha")", false},
        // Quotes, backslashes and letters beyond ASCII.
        {R"(X.K="q\"u\\o")", R"(X.K="q\"u\\o")", true},
        {R"(X.K="q\"u\\o")", R"(X.K="q\"u\\p")", false},
        {R"(X.R="n:Y.K=\"q\\\"u\\\\o\"")", R"(X.R="//h/n:Y.K=\"q\\\"u\\\\o\"")", true},
        {R"(X.R="n:Y.K=\"q\\\"u\\\\o\"")", R"(X.R="n:Y.K=\"q\\\"u\\\\p\"")", false},
        {R"(X.R="n:Y.K=\"€-é\"")", R"(X.R="//h/n:Y.K=\"€-é\"")", true},
        {R"(X.R="n:Y.K=\"€-é\"")", R"(X.R="n:Y.K=\"€-É\"")", false},
        {R"(X.K="é")", R"(X.K="É")", false},
        {"X", "X.", true},
    };
    for (const auto& each : pairs) expectMatch(String(each.left), String(each.right), each.match);
    expectMatch(CIMObjectPath(), CIMObjectPath(), true);
    expectMatch(CIMObjectPath(), String("X"), false);
}

TEST(MatchObjectPath, longValuesCountToTheLastCharacter) {
    const auto path = [](const std::string& before, const std::string& value, const char* behind) {
        return CIMObjectPath(String((before + value + behind).c_str()));
    };
    for (const std::size_t length : {31, 32, 1000}) {
        const std::string name(length, '-');
        const std::string other = name.substr(1) + "+";
        expectMatch(path("X.K=\"", name, "\""), path("X.K=\"", other, "\""), false);
        for (const std::string& value : {name, other})
            expectMatch(path("X.R=\"n:Y.K=\\\"", name, "\\\"\""),
                        path("X.R=\"//h/n:Y.K=\\\"", value, "\\\"\""), value == name);
    }
}

/// The definition: references and strings that hold a path, without its host, then identical().
CIMObjectPath normalized(const CIMObjectPath& path) {
    Array<CIMKeyBinding> keys = path.getKeyBindings();
    for (Uint32 i = 0; i < keys.size(); ++i) {
        if (keys[i].getType() % 2 == 0) continue;
        try {
            CIMObjectPath held(keys[i].getValue());
            held.setHost(String());
            keys[i] = CIMKeyBinding(keys[i].getName(), held.toString(), CIMKeyBinding::REFERENCE);
        } catch (const Exception&) {
            continue;
        }
    }
    return CIMObjectPath(String(), path.getNameSpace(), path.getClassName(), keys);
}

/// Makes a path of a row of numbers, each of which decides on one thing.
class PathMaker {
  public:
    using Choices = std::array<unsigned, 24>;

    explicit PathMaker(const Choices& choices) : _next(choices.begin()), _end(choices.end()) {}

    CIMObjectPath make(int levels) {
        const String host = pick({"", "a", "b.example", "[::1]"});
        const CIMNamespaceName nameSpace = pick({"root/qrv", "Root/QRV", "root"});
        const CIMName className = pick({"X", "x", "Y"});
        Array<CIMKeyBinding> keys(1, key(pick({"K", "k"}), levels));
        if (next() % 2 == 0) keys.append(key(pick({"L", "J"}), 0));
        return CIMObjectPath(host,
                             next() % 4 == 0 && host.size() == 0 ? CIMNamespaceName() : nameSpace,
                             className, keys);
    }

  private:
    unsigned next() { return _next == _end ? 0 : *_next++; }
    const char* pick(std::initializer_list<const char*> from) {
        return from.begin()[next() % from.size()];
    }

    CIMKeyBinding key(const CIMName& name, int levels) {
        const unsigned kind = next() % 8;
        if (levels > 0 && kind > 1)
            return CIMKeyBinding(name, make(levels - 1).toString(),
                                 kind > 4 ? CIMKeyBinding::REFERENCE : CIMKeyBinding::STRING);
        if (kind == 0) return CIMKeyBinding(name, pick({"1", "0x1", "2"}), CIMKeyBinding::NUMERIC);
        return CIMKeyBinding(name,
                             pick({"one", "One", "a:one", "//h/a:one", "a:one.", "a.b:c", ".",
                                   ":one", "", "t w", "t W", "a=b", "X.K=1", "\"\\", "é", "É"}),
                             CIMKeyBinding::STRING);
    }

    Choices::const_iterator _next;
    Choices::const_iterator _end;
};

TEST(MatchObjectPath, agreesWithItsDefinitionOnGeneratedPairs) {
    std::mt19937 random(4711);
    unsigned matches = 0;
    constexpr unsigned PAIRS = 6000;
    for (unsigned pair = 0; pair < PAIRS; ++pair) {
        PathMaker::Choices choices;
        for (unsigned& each : choices) each = random() % 1000;
        const CIMObjectPath left = PathMaker(choices).make(2);
        for (unsigned changes = random() % 4; changes > 0; --changes)
            choices[random() % choices.size()] = random() % 1000;
        const CIMObjectPath right = PathMaker(choices).make(2);

        const bool expected = normalized(left).identical(normalized(right));
        matches += expected;
        ASSERT_EQ(QRV_Common::matchObjectPath(left, right), expected) << textOf(left) << "\n"
                                                                      << textOf(right);
    }
    EXPECT_GT(matches, PAIRS / 4);
    EXPECT_LT(matches, PAIRS * 3 / 4);
}

TEST(Searching, eachKindHasItsOwnEquality) {
    EXPECT_TRUE(QRV_Common::isPartOfArray(String("Alpha"), Array<String>(1, String("Alpha"))));
    EXPECT_FALSE(QRV_Common::isPartOfArray(String("alpha"), Array<String>(1, String("Alpha"))));
    EXPECT_TRUE(QRV_Common::isPartOfArray(CIMName("alpha"), Array<CIMName>(1, CIMName("Alpha"))));
    EXPECT_FALSE(QRV_Common::isPartOfArray(CIMName("beta"), Array<CIMName>(1, CIMName("Alpha"))));

    Array<CIMObjectPath> paths(1, CIMObjectPath("X.K=1"));
    paths.append(CIMObjectPath("//a/root/qrv:X.K=2"));
    CIMInstance instance(CIMName("X"));
    instance.setPath(paths[1]);
    for (const auto& [text, found] :
         {std::pair("//b/root/qrv:X.K=2", true), std::pair("root/qrv:X.K=1", false)}) {
        EXPECT_EQ(QRV_Common::isPartOfArray(CIMObjectPath(text), paths), found) << text;
        EXPECT_EQ(QRV_Common::isPartOfArray(CIMObjectPath(text), Array<CIMInstance>(1, instance)),
                  found)
            << text;
    }
}

TEST(Searching, aPoolIsNamedByAnyKey) {
    const CIMObjectPath path("X.InstanceID=\"ORVELIS:Pool-1\",Other=\"Second\"");
    for (const char* name : {"ORVELIS:Pool-1", "orvelis:pool-1", "SECOND"})
        EXPECT_TRUE(QRV_Common::isPoolPath(path, name)) << name;
    for (const char* name : {"Pool-1", "InstanceID", ""})
        EXPECT_FALSE(QRV_Common::isPoolPath(path, name)) << name;
}

class VerifyRefMethodParam : public ToolkitTest {
  protected:
    VerifyRefMethodParam() {
        setSystem(R"("ipv4Address": "192.0.2.1", "ipv6Address": "2001:db8::1")");
    }

    /// The reference afterwards, or the one line that was logged.
    static std::string verify(CIMObjectPath ref) {
        String systemAddress("Array7.example");
        const bool passed =
            QRV_Common::verifyRefMethodParam(ref, CIMNamespaceName("root/qrv"), systemAddress);
        const Texts lines = logged();
        EXPECT_EQ(lines.size(), passed ? 0U : 1U);
        return lines.empty() ? textOf(ref) : lines[0];
    }
};

TEST_F(VerifyRefMethodParam, namespaceAndHostHaveToBeTheSystems) {
    for (const char* host : {"ARRAY7.example", "192.0.2.1", "[2001:db8::1]", "[2001:0DB8:0::0001]"})
        EXPECT_EQ(verify(String("//") + host + "/root/qrv:X.K=1"),
                  std::string("//") + host + "/root/qrv:X.K=1");
    for (const char* host : {"array8.example", "192.0.2.2", "192.0.2.1:5989", "[2001:db8::2]"})
        EXPECT_EQ(verify(String("//") + host + "/root/qrv:X.K=1"),
                  std::string("2 The ref host [") + host + "] does not match for this host!\n");

    EXPECT_EQ(verify(String("X.K=1")), "root/qrv:X.K=1") << "the namespace is filled in";
    EXPECT_EQ(verify(String("ROOT/QRV:X.K=1")), "ROOT/QRV:X.K=1");
    EXPECT_EQ(verify(String("root/other:X.K=1")),
              "2 The ref param root/other:X.K=1 contains the wrong name space root/other\n");
}

TEST_F(VerifyRefMethodParam, theClassHasToBeOneOfThoseExpected) {
    const CIMNamespaceName nameSpace("root/qrv");
    String address("array7.example");
    Array<CIMName> classes;
    const auto passes = [&](const char* text, const auto& expected) {
        CIMObjectPath ref(text);
        auto given = expected;
        return QRV_Common::verifyRefMethodParam(ref, nameSpace, address, given);
    };
    EXPECT_FALSE(passes("X.K=1", classes));
    classes.append(CIMName("Y"));
    EXPECT_FALSE(passes("X.K=1", classes));
    classes.append(CIMName("x"));
    EXPECT_TRUE(passes("X.K=1", classes));
    EXPECT_TRUE(passes("X.K=1", CIMName("x")));
    EXPECT_FALSE(passes("X.K=1", CIMName("Y")));
    EXPECT_EQ(logged(), Texts());
    EXPECT_FALSE(passes("//elsewhere/root/qrv:X.K=1", classes));
    EXPECT_FALSE(passes("//elsewhere/root/qrv:X.K=1", CIMName("X")));
}

}  // namespace

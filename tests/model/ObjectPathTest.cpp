// Object paths and their keys.
#include "Support.h"

#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMValue.h>

#include <gtest/gtest.h>

using namespace Pegasus;
using model_tests::text;
using model_tests::thrownBy;

namespace {

using Key = CIMKeyBinding;

Array<Key> keys(std::initializer_list<Key> list) {
    Array<Key> array;
    for (const Key& key : list) array.append(key);
    return array;
}

TEST(CIMObjectPath, ReadsAndWritesText) {
    const struct {
        const char* text;
        const char* written;
    } cases[] = {
        {"A", "A"},
        {"A.", "A"},
        {"root/x:A", "root/x:A"},
        {"/root/x:A", "root/x:A"},
        {"//host/root/x:A.k=1", "//host/root/x:A.k=1"},
        {"//host:5988/root:A", "//host:5988/root:A"},
        {"A.k=true", "A.k=TRUE"},
        {"A.k=fAlSe,j=-9223372036854775808", "A.j=-9223372036854775808,k=FALSE"},
        {"A.k=0x1F,", "A.k=0x1F"},
        {"A.k=18446744073709551615", "A.k=18446744073709551615"},
        {"A.k=\"a:b.c,d\"", "A.k=\"a:b.c,d\""},
        {"A.k=\"x\\\"y\\\\z\"", "A.k=\"x\\\"y\\\\z\""},
        {"A.k=\"\xC3\xA9\"", "A.k=\"\xC3\xA9\""},
        {"A.z=1,B=2,a=3", "A.a=3,B=2,z=1"},
        {"A.r=\"root:B.z=1,a=\\\"x\\\"\"", "A.r=\"root:B.a=\\\"x\\\",z=1\""},
    };
    for (const auto& c : cases) {
        const CIMObjectPath path{String(c.text)};
        EXPECT_EQ(text(path.toString()), c.written);
        EXPECT_TRUE(CIMObjectPath(path.toString()) == path) << c.text;
    }
}

TEST(CIMObjectPath, GuessesTheTypeOfKeys) {
    const struct {
        const char* value;
        Key::Type type;
    } cases[] = {
        {"TRUE", Key::BOOLEAN},      {"17", Key::NUMERIC},
        {"\"17\"", Key::STRING},     {"\"B.k=1\"", Key::REFERENCE},
        {"\"k=1\"", Key::STRING},    {"\"B.=1\"", Key::STRING},
        {"\"root:B\"", Key::STRING}, {"\"//h/root:B.k=\\\"=\\\"\"", Key::REFERENCE},
        {"\"B.k=01\"", Key::STRING},
    };
    for (const auto& c : cases) {
        const CIMObjectPath path(String("A.k=") + c.value);
        EXPECT_EQ(path.getKeyBindings()[0].getType(), c.type) << c.value;
    }
}

TEST(CIMObjectPath, TellsWhatIsWrong) {
    const struct {
        const char* text;
        const char* reason;
    } cases[] = {
        {"", "class name  not a legal CIM name"},
        {"1A", "class name 1A not a legal CIM name"},
        {"A B.k=1", "class name A B not a legal CIM name"},
        {"//host", "missing slash after hostname"},
        {"//-h/root:A", "invalid hostname"},
        {"//h/A", "host specified, missing namespace"},
        {"root//x:A", "invalid namespace name"},
        {"//h/:A", "invalid namespace name"},
        {"A.k", "invalid key-value pair, missing equal sign"},
        {"A.1=2", "invalid key-value pair, invalid key name:1"},
        {"A. k=2", "invalid key-value pair, invalid key name: k"},
        {"A.k=\"a\\n\"", "invalid key-value pair, malformed value"},
        {"A.k=\"a", "invalid key-value pair, missing quote in key value"},
        {"A.k=\"a\\", "invalid key-value pair, malformed value"},
        {"A.k=tru", "invalid key-value pair, value should be TRUE or FALSE"},
        {"A.k=-x", "invalid key-value pair, invalid negative number value -x"},
        {"A.k=-9223372036854775809",
         "invalid key-value pair, invalid negative number value -9223372036854775809"},
        {"A.k=", "invalid key-value pair, invalid number value "},
        {"A.k=+5", "invalid key-value pair, invalid number value +5"},
        {"A.k=05", "invalid key-value pair, invalid number value 05"},
        {"A.k=1.5", "invalid key-value pair, invalid number value 1.5"},
        {"A.k=0x", "invalid key-value pair, invalid number value 0x"},
        {"A.k='c'", "invalid key-value pair, invalid number value 'c'"},
        {"A.k=18446744073709551616",
         "invalid key-value pair, invalid number value 18446744073709551616"},
        {"A.k=\"a\"j=1", "invalid key-value pair, next key-value pair has to start with comma"},
    };
    for (const auto& c : cases) {
        const std::string message =
            std::string("malformed object name: ") + c.text + ", reason:\"" + c.reason + "\"";
        EXPECT_EQ(thrownBy<MalformedObjectNameException>([&] { CIMObjectPath{String(c.text)}; }),
                  message);
    }
}

TEST(CIMObjectPath, ChecksHosts) {
    for (const char* host : {"h", "h-1.example", "_h.b_c", "1.2.3.4", "[::1]", "[2001:db8::1]:5989",
                             "[fe80::1%lo]", "h:0", "h:65535", "h:", "1h", "1.2.3.04"}) {
        CIMObjectPath path(host, CIMNamespaceName("root"), CIMName("A"));
        path.setHost("other");
        path.setHost(host);
        EXPECT_EQ(path.getHost(), host);
    }
    for (const char* host :
         {"-h", "a..b", "a.", "256.1.1.1", "1.2.3", "a b", "h:65536", "h:x", "::1", "[::1",
          "[::1%lo]", "[fe80::1]", "[1.2.3.4]", "\xC3\xA9", "12"}) {
        CIMObjectPath path;
        const std::string message =
            std::string("malformed object name: ") + host + ", reason:\"invalid hostname\"";
        using Refused = MalformedObjectNameException;
        EXPECT_EQ(thrownBy<Refused>([&] { path.setHost(host); }), message);
        EXPECT_EQ(thrownBy<Refused>([&] { path.set(host, CIMNamespaceName(), CIMName("A")); }),
                  message);
    }
}

TEST(CIMObjectPath, SetsAndClearsParts) {
    CIMObjectPath path("h", CIMNamespaceName("root/x"), CIMName("A"),
                       keys({{CIMName("k"), "v", Key::STRING}}));
    path.setNameSpace(CIMNamespaceName());
    EXPECT_EQ(path.toString(), "//h/:A.k=\"v\"");
    path.setHost("");
    path.setClassName(CIMName("B"));
    path.setKeyBindings(Array<Key>());
    EXPECT_EQ(path.toString(), "B");
    path.set("", CIMNamespaceName("root"), CIMName());
    EXPECT_EQ(path.toString(), "root:");
    path.clear();
    EXPECT_TRUE(path == CIMObjectPath());
    EXPECT_TRUE(path.getClassName().isNull());
}

TEST(CIMObjectPath, CopiesAreIndependent) {
    CIMObjectPath path{String("root:A.k=1")};
    const CIMObjectPath copy(path);
    path.setClassName(CIMName("B"));
    path.setHost("h");
    EXPECT_EQ(copy.toString(), "root:A.k=1");
    path = copy;
    path.setKeyBindings(Array<Key>());
    EXPECT_EQ(copy.toString(), "root:A.k=1");
}

TEST(CIMObjectPath, SortsKeysAndThoseOfReferences) {
    const Key reference(CIMName("r"), "B.z=1,a=2", Key::REFERENCE);
    CIMObjectPath path(
        "", CIMNamespaceName(), CIMName("A"),
        keys({{CIMName("z"), "1", Key::NUMERIC}, reference, {CIMName("Y"), "2", Key::NUMERIC}}));
    EXPECT_EQ(path.toString(), "A.r=\"B.a=2,z=1\",Y=2,z=1");
    const Key broken(CIMName("r"), "no path", Key::REFERENCE);
    EXPECT_EQ(thrownBy<MalformedObjectNameException>([&] { path.setKeyBindings(keys({broken})); }),
              "malformed object name: no path, reason:\"class name no path not a legal CIM name\"");
}

TEST(CIMObjectPath, ComparesWithoutCaseButWithHostAndNamespace) {
    const struct {
        const char* x;
        const char* y;
        bool same;
    } cases[] = {
        {"//H/Root:A.K=1", "//h/rOOT:a.k=1", true},
        {"root:A.k=1", "A.k=1", false},
        {"//h/root:A.k=1", "root:A.k=1", false},
        {"A.k=1,j=2", "A.j=2,k=1", true},
        {"A.k=16", "A.k=0x10", true},
        {"A.k=0x0", "A.k=-0", true},
        {"A.k=-16", "A.k=16", false},
        {"A.k=\"1\"", "A.k=1", false},
        {"A.k=\"a\"", "A.k=\"A\"", false},
        {"A.k=\"B.x=1,y=2\"", "A.K=\"b.Y=0x2,X=1\"", true},
        {"A.k=\"root:B.x=1\"", "A.k=\"B.x=1\"", false},
        {"A.k=1", "A.k=1,l=1", false},
        {"A.k=1", "A", false},
    };
    for (const auto& c : cases) {
        const CIMObjectPath x{String(c.x)};
        const CIMObjectPath y{String(c.y)};
        EXPECT_EQ(x == y, c.same) << c.x << ' ' << c.y;
        EXPECT_EQ(y != x, !c.same) << c.x << ' ' << c.y;
        EXPECT_TRUE(!c.same || x.makeHashCode() == y.makeHashCode()) << c.x << " " << c.y;
    }
    EXPECT_NE(CIMObjectPath(String("A.k=1")).makeHashCode(),
              CIMObjectPath(String("A.k=2")).makeHashCode());
}

TEST(CIMKeyBinding, ComesFromValues) {
    const struct {
        CIMValue value;
        Key::Type type;
        const char* text;
    } cases[] = {
        {CIMValue(true), Key::BOOLEAN, "TRUE"},
        {CIMValue(Sint8(-5)), Key::NUMERIC, "-5"},
        {CIMValue(Real32(0.5f)), Key::NUMERIC, "5.0000000000000000e-01"},
        {CIMValue(Char16('c')), Key::STRING, "c"},
        {CIMValue(String("s")), Key::STRING, "s"},
        {CIMValue(CIMDateTime()), Key::STRING, "00000000000000.000000:000"},
        {CIMValue(CIMObjectPath(String("A.k=1"))), Key::REFERENCE, "A.k=1"},
    };
    for (const auto& c : cases) {
        Key key(CIMName("k"), c.value);
        EXPECT_EQ(key.getType(), c.type);
        EXPECT_EQ(text(key.getValue()), c.text);
        EXPECT_TRUE(key.equal(c.value)) << c.text;
        key.setValue("other");
        EXPECT_FALSE(key.equal(c.value)) << c.text;
        const CIMValue null(c.value.getType(), false);
        EXPECT_EQ(Key(CIMName("k"), null).getType(), c.type);
        EXPECT_EQ(Key(CIMName("k"), null).getValue(), "");
    }
    EXPECT_FALSE(Key(CIMName("k"), "300", Key::NUMERIC).equal(CIMValue(Uint8(44))));
    EXPECT_FALSE(Key(CIMName("k"), "+44", Key::NUMERIC).equal(CIMValue(Uint8(44))));
    EXPECT_TRUE(Key(CIMName("k"), "+44", Key::NUMERIC).equal(CIMValue(Sint8(44))));
    EXPECT_TRUE(Key(CIMName("k"), "0x2C", Key::NUMERIC).equal(CIMValue(Uint8(44))));
    EXPECT_FALSE(Key(CIMName("k"), "44", Key::STRING).equal(CIMValue(Uint8(44))));
}

TEST(CIMKeyBinding, RefusesWhatIsNoKey) {
    for (const CIMValue& value :
         {CIMValue(Array<String>()), CIMValue(CIMTYPE_UINT8, true),
          CIMValue(CIMInstance(CIMName("A"))), CIMValue(CIMTYPE_OBJECT, false)}) {
        EXPECT_EQ(thrownBy<TypeMismatchException>([&] { Key(CIMName("k"), value); }),
                  "type mismatch");
        EXPECT_FALSE(Key(CIMName("k"), "", Key::STRING).equal(value));
    }
}

}  // namespace

// What a client gets, given what the server delivers.
#include "Support.h"
#include "cimxml/Utf8.h"
#include "model/ObjectEncoder.h"
#include "model/XmlText.h"

#include <Pegasus/Common/CIMParameter.h>
#include <Pegasus/Common/Exception.h>
#include <gtest/gtest.h>

#include <limits>
#include <ostream>
#include <stdexcept>

namespace cimserver::test {
namespace {

using namespace Pegasus;

struct Escaped {
    std::string text;
    std::string expected;
};

class EscapeTest : public testing::TestWithParam<Escaped> {};

TEST_P(EscapeTest, AStringAndItsUtf8GiveTheSame) {
    std::string fromString;
    std::string fromUtf8;
    appendEscaped(fromString, toString(GetParam().text));
    appendEscaped(fromUtf8, GetParam().text);
    EXPECT_EQ(fromString, GetParam().expected);
    EXPECT_EQ(fromUtf8, GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, EscapeTest,
    testing::Values(Escaped{"", ""},
                    Escaped{"<a b=\"c\" & 'd'>", "&lt;a b=&quot;c&quot; &amp; &apos;d&apos;&gt;"},
                    Escaped{"\t\n\x7F", "&#9;&#10;&#127;"}, Escaped{" ", "&#32;"},
                    Escaped{" a b ", "&#32;a b&#32;"}, Escaped{"a    b", "a &#32; &#32;b"},
                    Escaped{"\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80",
                            "\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80"},
                    Escaped{"\xEF\xBF\xBE\xEF\xBF\xBF\xEF\xBF\xBD\xEF\xBE\xBF",
                            "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBE\xBF"},
                    Escaped{std::string(5000, '&') + "x", [] {
                                std::string all;
                                for (int i = 0; i < 5000; ++i) all += "&amp;";
                                return all + "x";
                            }()}));

TEST(EscapeTest, LoneSurrogatesBecomeTheReplacementCharacter) {
    const Char16 units[] = {Char16(0xD83D), Char16('a'), Char16(0xDE00)};
    std::string out;
    appendEscaped(out, String(units, 3));
    EXPECT_EQ(out,
              "\xEF\xBF\xBD"
              "a"
              "\xEF\xBF\xBD");
}

// One value in the text of its element; arrays of two hold it twice.
struct EncodedValue {
    CIMValue value;
    std::string expected;
};

void PrintTo(const EncodedValue& c, std::ostream* out) {
    *out << c.expected;
}

class ValueTest : public testing::TestWithParam<EncodedValue> {};

TEST_P(ValueTest, IsWritten) {
    std::string out;
    appendValue(out, GetParam().value);
    EXPECT_EQ(out, GetParam().expected);
}

template <class T>
CIMValue pair(T first, T second) {
    Array<T> items;
    items.append(first);
    items.append(second);
    return CIMValue(items);
}

const char* const kReference =
    "<VALUE.REFERENCE>\n<INSTANCENAME CLASSNAME=\"T\">\n<KEYBINDING NAME=\"K\">\n"
    "<KEYVALUE "
    "VALUETYPE=\"numeric\">1</KEYVALUE>\n</KEYBINDING>\n</INSTANCENAME>\n</VALUE.REFERENCE>\n";

CIMInstance embedded() {
    CIMInstance instance("E");
    instance.addProperty(CIMProperty("p", CIMValue(Uint8(1))));
    return instance;
}

INSTANTIATE_TEST_SUITE_P(
    Values, ValueTest,
    testing::Values(
        EncodedValue{CIMValue(CIMTYPE_UINT8, false), ""},
        EncodedValue{CIMValue(CIMTYPE_UINT8, true), ""},
        EncodedValue{CIMValue(true), "<VALUE>TRUE</VALUE>\n"},
        EncodedValue{CIMValue(Uint8(255)), "<VALUE>255</VALUE>\n"},
        EncodedValue{CIMValue(Sint8(-128)), "<VALUE>-128</VALUE>\n"},
        EncodedValue{CIMValue(std::numeric_limits<Uint64>::max()),
                     "<VALUE>18446744073709551615</VALUE>\n"},
        EncodedValue{CIMValue(std::numeric_limits<Sint64>::min()),
                     "<VALUE>-9223372036854775808</VALUE>\n"},
        EncodedValue{CIMValue(Real32(1.5)), "<VALUE>1.5000000e+00</VALUE>\n"},
        EncodedValue{CIMValue(Real64(-0.1)), "<VALUE>-1.0000000000000001e-01</VALUE>\n"},
        EncodedValue{CIMValue(Char16('<')), "<VALUE>&lt;</VALUE>\n"},
        EncodedValue{CIMValue(String(" a")), "<VALUE>&#32;a</VALUE>\n"},
        EncodedValue{CIMValue(CIMDateTime("20240229120000.000000+060")),
                     "<VALUE>20240229120000.000000+060</VALUE>\n"},
        EncodedValue{CIMValue(CIMObjectPath("T.K=1")), kReference},
        EncodedValue{
            CIMValue(embedded()),
            "<VALUE>&lt;INSTANCE CLASSNAME=&quot;E&quot;&gt;&#10;&lt;PROPERTY NAME=&quot;p&quot; "
            "TYPE=&quot;uint8&quot;&gt;&#10;&lt;VALUE&gt;1&lt;/VALUE&gt;&#10;&lt;/PROPERTY&gt;&#10;"
            "&lt;/INSTANCE&gt;&#10;</VALUE>\n"},
        EncodedValue{CIMValue(Array<String>()), "<VALUE.ARRAY>\n</VALUE.ARRAY>\n"},
        EncodedValue{pair(false, true),
                     "<VALUE.ARRAY>\n<VALUE>FALSE</VALUE>\n<VALUE>TRUE</VALUE>\n</VALUE.ARRAY>\n"},
        EncodedValue{
            pair(CIMObjectPath("T.K=1"), CIMObjectPath("T.K=1")),
            std::string("<VALUE.REFARRAY>\n") + kReference + kReference + "</VALUE.REFARRAY>\n"}));

CIMInstance sample() {
    CIMInstance instance("T");
    instance.setPath(CIMObjectPath("//host/root/t:T.K=\"a\""));
    instance.addQualifier(CIMQualifier("Q", CIMValue(true), CIMFlavor::DEFAULTS));
    instance.addProperty(CIMProperty("K", CIMValue(String("a")), 0, CIMName(), "Base", true));
    instance.addProperty(CIMProperty("A", pair<Uint16>(1, 2), 2));
    instance.addProperty(CIMProperty("R", CIMValue(CIMTYPE_REFERENCE, false), 0, "C"));
    instance.addProperty(CIMProperty("E", CIMValue(CIMTYPE_INSTANCE, false)));
    return instance;
}

Selection selected(const char* text) {
    Selection selection;
    Array<CIMName> names;
    for (const char* p = text; *p; ++p) names.append(CIMName(String(p, 1)));
    selection.propertyList.set(names);
    return selection;
}

const char* const kName =
    "<INSTANCENAME CLASSNAME=\"T\">\n<KEYBINDING NAME=\"K\">\n<KEYVALUE "
    "VALUETYPE=\"string\">a</KEYVALUE>\n"
    "</KEYBINDING>\n</INSTANCENAME>\n";
const char* const kPath =
    "<INSTANCEPATH>\n<NAMESPACEPATH>\n<HOST>host</HOST>\n<LOCALNAMESPACEPATH>\n<NAMESPACE "
    "NAME=\"root\"/>\n"
    "<NAMESPACE NAME=\"t\"/>\n</LOCALNAMESPACEPATH>\n</NAMESPACEPATH>\n";

TEST(InstanceTest, HasWhatIsSelectedInTheOrderOfTheList) {
    std::string out;
    appendInstance(out, sample(), selected("rxK"));
    EXPECT_EQ(
        out,
        "<INSTANCE CLASSNAME=\"T\">\n"
        "<PROPERTY.REFERENCE NAME=\"R\" REFERENCECLASS=\"C\">\n</PROPERTY.REFERENCE>\n"
        "<PROPERTY NAME=\"K\" TYPE=\"string\" PROPAGATED=\"true\">\n<VALUE>a</VALUE>\n</PROPERTY>\n"
        "</INSTANCE>\n");
}

TEST(InstanceTest, HasEverythingWhenEverythingIsSelected) {
    std::string out;
    appendNamedInstance(out, sample(), {true, true, {}});
    EXPECT_EQ(out,
              std::string("<VALUE.NAMEDINSTANCE>\n") + kName +
                  "<INSTANCE CLASSNAME=\"T\">\n"
                  "<QUALIFIER NAME=\"Q\" TYPE=\"boolean\">\n<VALUE>TRUE</VALUE>\n</QUALIFIER>\n"
                  "<PROPERTY NAME=\"K\" TYPE=\"string\" CLASSORIGIN=\"Base\" PROPAGATED=\"true\">\n"
                  "<VALUE>a</VALUE>\n</PROPERTY>\n"
                  "<PROPERTY.ARRAY NAME=\"A\" TYPE=\"uint16\" ARRAYSIZE=\"2\">\n<VALUE.ARRAY>\n"
                  "<VALUE>1</VALUE>\n<VALUE>2</VALUE>\n</VALUE.ARRAY>\n</PROPERTY.ARRAY>\n"
                  "<PROPERTY.REFERENCE NAME=\"R\" REFERENCECLASS=\"C\">\n</PROPERTY.REFERENCE>\n"
                  "<PROPERTY NAME=\"E\" TYPE=\"string\" EmbeddedObject=\"instance\" "
                  "EMBEDDEDOBJECT=\"instance\">\n</PROPERTY>\n"
                  "</INSTANCE>\n</VALUE.NAMEDINSTANCE>\n");
}

CIMClass sampleClass() {
    CIMClass result("T", "Base");
    CIMMethod method("M", CIMTYPE_UINT32, "T");
    method.addParameter(CIMParameter("p", CIMTYPE_REFERENCE, true, 0, "C"));
    method.addParameter(CIMParameter("s", CIMTYPE_STRING));
    result.addMethod(method);
    return result;
}

// Each operation's answer to a delivery of the sample.
struct OperationCase {
    const char* method;
    const char* parameters;
    std::string expected;
};

void PrintTo(const OperationCase& c, std::ostream* out) {
    *out << c.method;
}

const char* const kObject =
    "<IPARAMVALUE NAME=\"ObjectName\"><INSTANCENAME CLASSNAME=\"T\"/></IPARAMVALUE>";
const char* const kClassObject =
    "<IPARAMVALUE NAME=\"ObjectName\"><CLASSNAME NAME=\"T\"/></IPARAMVALUE>";
const char* const kClassName =
    "<IPARAMVALUE NAME=\"ClassName\"><CLASSNAME NAME=\"T\"/></IPARAMVALUE>";
const char* const kInstanceName =
    "<IPARAMVALUE NAME=\"InstanceName\"><INSTANCENAME CLASSNAME=\"T\"/></IPARAMVALUE>";

class OperationTest : public testing::TestWithParam<OperationCase> {};

TEST_P(OperationTest, IsAnswered) {
    ScriptedServer server;
    server.objects.push_back(sample());
    const std::string method = GetParam().method;
    EXPECT_EQ(answerTo(server, message(method, GetParam().parameters), headersOf(method)),
              GetParam().expected);
}

std::string returned(const std::string& content) {
    return "<IRETURNVALUE>\n" + content + "</IRETURNVALUE>\n";
}

INSTANTIATE_TEST_SUITE_P(
    Operations, OperationTest,
    testing::Values(
        OperationCase{"EnumerateInstanceNames", kClassName, returned(kName)},
        OperationCase{"EnumerateClassNames", "", returned("<CLASSNAME NAME=\"T\"/>\n")},
        OperationCase{"DeleteInstance", kInstanceName, ""},
        OperationCase{"CreateInstance",
                      "<IPARAMVALUE NAME=\"NewInstance\"><INSTANCE CLASSNAME=\"T\"/></IPARAMVALUE>",
                      returned(kName)},
        OperationCase{
            "GetProperty",
            "<IPARAMVALUE NAME=\"InstanceName\"><INSTANCENAME CLASSNAME=\"T\"/></IPARAMVALUE>"
            "<IPARAMVALUE NAME=\"PropertyName\"><VALUE>k</VALUE></IPARAMVALUE>",
            returned("<VALUE>a</VALUE>\n")},
        OperationCase{
            "GetProperty",
            "<IPARAMVALUE NAME=\"InstanceName\"><INSTANCENAME CLASSNAME=\"T\"/></IPARAMVALUE>"
            "<IPARAMVALUE NAME=\"PropertyName\"><VALUE>x</VALUE></IPARAMVALUE>",
            "<ERROR CODE=\"12\" DESCRIPTION=\"CIM_ERR_NO_SUCH_PROPERTY: x\"/>\n"},
        OperationCase{"AssociatorNames", kObject,
                      returned(std::string("<OBJECTPATH>\n") + kPath + kName +
                               "</INSTANCEPATH>\n</OBJECTPATH>\n")},
        OperationCase{
            "Associators",
            "<IPARAMVALUE NAME=\"ObjectName\"><INSTANCENAME CLASSNAME=\"T\"/></IPARAMVALUE>"
            "<IPARAMVALUE NAME=\"PropertyList\"><VALUE.ARRAY/></IPARAMVALUE>",
            returned(std::string("<VALUE.OBJECTWITHPATH>\n") + kPath + kName +
                     "</INSTANCEPATH>\n<INSTANCE CLASSNAME=\"T\">\n</INSTANCE>\n"
                     "</VALUE.OBJECTWITHPATH>\n")},
        OperationCase{"ReferenceNames", kClassObject,
                      returned(std::string("<OBJECTPATH>\n<CLASSPATH>\n") + (kPath + 15) +
                               "<CLASSNAME NAME=\"T\"/>\n</CLASSPATH>\n</OBJECTPATH>\n")}));

TEST(ClassTest, HasItsMethodsAndTheirParameters) {
    ScriptedServer server;
    server.objects.push_back(sampleClass());
    EXPECT_EQ(
        answerTo(server, message("GetClass", kClassName), headersOf("GetClass")),
        returned("<CLASS NAME=\"T\" SUPERCLASS=\"Base\">\n"
                 "<METHOD NAME=\"M\" TYPE=\"uint32\" CLASSORIGIN=\"T\">\n"
                 "<PARAMETER.REFARRAY NAME=\"p\" REFERENCECLASS=\"C\">\n</PARAMETER.REFARRAY>\n"
                 "<PARAMETER NAME=\"s\" TYPE=\"string\">\n</PARAMETER>\n</METHOD>\n</CLASS>\n"));
}

TEST(MethodTest, AnswersWithReturnValueAndParameters) {
    ScriptedServer server;
    server.returnValue = CIMValue(Uint32(4096));
    server.outParameters.append(CIMParamValue("Job", CIMValue(CIMTYPE_REFERENCE, false)));
    server.outParameters.append(CIMParamValue("Text", CIMValue(String("x")), false));
    EXPECT_EQ(answerTo(server, methodMessage("M", ""), methodHeadersOf("M")),
              "<RETURNVALUE PARAMTYPE=\"uint32\">\n<VALUE>4096</VALUE>\n</RETURNVALUE>\n"
              "<PARAMVALUE NAME=\"Job\" PARAMTYPE=\"reference\">\n</PARAMVALUE>\n"
              "<PARAMVALUE NAME=\"Text\">\n<VALUE>x</VALUE>\n</PARAMVALUE>\n");
}

TEST(MessageTest, EchoesIdAndMethodSafely) {
    ScriptedServer server;
    std::string body = message("enumerateCLASSnames", "");
    body.replace(body.find("4711"), 4, "&lt;&quot;");
    Recorder recorder;
    execute(server, {}, Message(body, headersOf("EnumerateClassNames"), {}), recorder);
    EXPECT_EQ(
        recorder.text,
        "<?xml version=\"1.0\" encoding=\"utf-8\" ?>\n<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">\n"
        "<MESSAGE ID=\"&lt;&quot;\" PROTOCOLVERSION=\"1.0\">\n<SIMPLERSP>\n"
        "<IMETHODRESPONSE NAME=\"EnumerateClassNames\">\n</IMETHODRESPONSE>\n"
        "</SIMPLERSP>\n</MESSAGE>\n</CIM>\n");
}

struct FailureCase {
    std::function<void()> failure;
    std::string expected;
};

void PrintTo(const FailureCase& c, std::ostream* out) {
    *out << c.expected;
}

class FailureTest : public testing::TestWithParam<FailureCase> {};

TEST_P(FailureTest, ReachesTheClient) {
    ScriptedServer server;
    server.failure = GetParam().failure;
    const std::string answer =
        answerTo(server, message("DeleteInstance", kInstanceName), headersOf("DeleteInstance"));
    EXPECT_EQ(answer, GetParam().expected);
}

std::string repeated(const std::string& text, int times) {
    std::string all;
    while (times-- > 0) all += text;
    return all;
}

std::string error(int code, const std::string& description) {
    return "<ERROR CODE=\"" + std::to_string(code) + "\" DESCRIPTION=\"" + description + "\"/>\n";
}

INSTANTIATE_TEST_SUITE_P(
    Failures, FailureTest,
    testing::Values(
        FailureCase{[] { throw CIMException(CIM_ERR_NOT_FOUND, "a \"b\"\nc"); },
                    error(6, "CIM_ERR_NOT_FOUND: a &quot;b&quot;&#10;c")},
        FailureCase{[] { throw CIMException(CIM_ERR_NOT_FOUND); }, error(6, "CIM_ERR_NOT_FOUND")},
        FailureCase{[] { throw CIMException(CIMStatusCode(4096), "m"); },
                    error(4096, "Unrecognized CIM status code &quot;4096&quot;: m")},
        FailureCase{[] { throw CIMException(CIMStatusCode(18), "m"); }, error(18, "empty: m")},
        FailureCase{[] { throw CIMException(CIM_ERR_SUCCESS, "m"); }, ""},
        FailureCase{[] { throw TypeMismatchException(); },
                    error(1, "CIM_ERR_FAILED: type mismatch")},
        FailureCase{[] { throw std::bad_alloc(); }, error(1, "CIM_ERR_FAILED: std::bad_alloc")},
        FailureCase{[] { throw std::runtime_error("\xFF"); },
                    error(1, "CIM_ERR_FAILED: Unknown error.")},
        FailureCase{[] { throw 1; }, error(1, "CIM_ERR_FAILED: Unknown error.")},
        FailureCase{
            [] { throw CIMException(CIM_ERR_FAILED, toString("x" + repeated("\u00e4", 5000))); },
            error(1, "CIM_ERR_FAILED: x" + repeated("\u00e4", 2039))}));

class StreamTest : public testing::Test {
  protected:
    StreamTest() {
        server.objects.push_back(sample());
        server.failure = [] { throw CIMException(CIM_ERR_NOT_FOUND, "late\r\n"); };
    }

    void run(Recorder& recorder) {
        execute(
            server, {},
            Message(message("EnumerateInstances", kClassName), headersOf("EnumerateInstances"), {}),
            recorder);
    }

    ScriptedServer server;
};

TEST_F(StreamTest, AnErrorReplacesWhatIsHeldBack) {
    server.rounds = 20;
    Recorder recorder;
    run(recorder);
    EXPECT_EQ(recorder.events, "finish ");
    EXPECT_EQ(recorder.text.find("INSTANCE "), std::string::npos);
}

TEST_F(StreamTest, AnErrorBreaksOffWhatHasLeft) {
    server.rounds = 1000;
    Recorder recorder;
    run(recorder);
    EXPECT_EQ(recorder.events.substr(0, 10), "send send ");
    EXPECT_EQ(recorder.events.substr(recorder.events.size() - 6), "break ");
}

TEST_F(StreamTest, AnErrorFollowsInTrailersForThoseWhoTakeThem) {
    Recorder recorder(true);
    run(recorder);
    EXPECT_EQ(recorder.events, "finish 6 late\r\n ");
    EXPECT_NE(recorder.text.find("</IRETURNVALUE>"), std::string::npos);

    server.rounds = 0;
    Recorder empty(true);
    run(empty);
    EXPECT_EQ(empty.events, "finish 6 CIM_ERR_NOT_FOUND: late\r\n ");
}

TEST_F(StreamTest, PartsAreBounded) {
    server.rounds = 2000;
    server.failure = nullptr;
    Recorder recorder;
    run(recorder);
    const auto parts = std::count(recorder.events.begin(), recorder.events.end(), ' ');
    EXPECT_NEAR(static_cast<double>(recorder.text.size()) - Answer::kHoldBytes,
                static_cast<double>(parts - 1) * Answer::kPartBytes, 1.5 * Answer::kPartBytes);
}

TEST_F(StreamTest, AGoneClientEndsTheOperation) {
    server.rounds = 1000;
    bool reachedTheEnd = false;
    server.failure = [&] { reachedTheEnd = true; };
    Recorder recorder;
    recorder.gone = true;
    EXPECT_THROW(run(recorder), ClientGone);
    EXPECT_FALSE(reachedTheEnd);
}

}  // namespace
}  // namespace cimserver::test

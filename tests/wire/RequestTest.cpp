// What the server is asked, given what a client sends.
#include "Support.h"
#include "cimxml/Utf8.h"
#include "model/HostName.h"
#include "model/XmlText.h"

#include <gtest/gtest.h>

#include <ostream>

namespace cimserver::test {
namespace {

const std::string kClass = "<IPARAMVALUE NAME=\"ClassName\"><CLASSNAME NAME=\"T\"/></IPARAMVALUE>";
const std::string kInstanceName =
    "<INSTANCENAME CLASSNAME=\"T\"><KEYBINDING NAME=\"K\"><KEYVALUE>a</KEYVALUE></KEYBINDING>"
    "</INSTANCENAME>";
const std::string kInstance =
    "<IPARAMVALUE NAME=\"InstanceName\">" + kInstanceName + "</IPARAMVALUE>";
const std::string kObject = "<IPARAMVALUE NAME=\"ObjectName\">" + kInstanceName + "</IPARAMVALUE>";

std::string value(const std::string& name, const std::string& text) {
    return "<IPARAMVALUE NAME=\"" + name + "\"><VALUE>" + text + "</VALUE></IPARAMVALUE>";
}

std::string list(const std::string& values) {
    return "<IPARAMVALUE NAME=\"PropertyList\"><VALUE.ARRAY>" + values +
           "</VALUE.ARRAY></IPARAMVALUE>";
}

std::string keyed(const std::string& keys) {
    return "<IPARAMVALUE NAME=\"InstanceName\"><INSTANCENAME CLASSNAME=\"T\">" + keys +
           "</INSTANCENAME></IPARAMVALUE>";
}

std::string created(const std::string& content) {
    return "<IPARAMVALUE NAME=\"NewInstance\"><INSTANCE CLASSNAME=\"T\">" + content +
           "</INSTANCE></IPARAMVALUE>";
}

std::string property(const std::string& type, const std::string& text) {
    return "<PROPERTY NAME=\"p\" TYPE=\"" + type + "\"><VALUE>" + text + "</VALUE></PROPERTY>";
}

std::string sized(const std::string& size, const std::string& values) {
    return "<PROPERTY.ARRAY NAME=\"p\" TYPE=\"uint8\" ARRAYSIZE=\"" + size + "\"><VALUE.ARRAY>" +
           values + "</VALUE.ARRAY></PROPERTY.ARRAY>";
}

std::string reference(const std::string& value) {
    return "<KEYBINDING NAME=\"r\"><VALUE.REFERENCE><INSTANCENAME CLASSNAME=\"T\"><KEYBINDING "
           "NAME=\"k\">" +
           value + "</KEYBINDING></INSTANCENAME></VALUE.REFERENCE></KEYBINDING>";
}

/// T.K="a" as the server tells it to providers.
std::string ownPath() {
    return "//" + toUtf8(ownHostName()) + "/root/t:T.K=\"a\"";
}

struct Case {
    std::string method;
    std::string parameters;
    std::string expected;  ///< the call, or what the client gets when there is none
};

void PrintTo(const Case& c, std::ostream* out) {
    *out << c.method << ' ' << c.parameters;
}

std::string callOrOutcome(const Case& c, bool extrinsic) {
    ScriptedServer server;
    Pegasus::CIMClass declared("T");
    declared.addProperty(
        Pegasus::CIMProperty("P", Pegasus::CIMValue(Pegasus::CIMTYPE_UINT32, false)));
    if (c.method == "SetProperty") server.objects.push_back(declared);
    const std::string body =
        extrinsic ? methodMessage(c.method, c.parameters) : message(c.method, c.parameters);
    const std::string outcome =
        outcomeOf(server, body, extrinsic ? methodHeadersOf(c.method) : headersOf(c.method));
    return server.call.empty() ? outcome : server.call;
}

std::string error(int code, const std::string& text) {
    return "<ERROR CODE=\"" + std::to_string(code) + "\" DESCRIPTION=\"" + text + "\"/>\n";
}

class IntrinsicTest : public testing::TestWithParam<Case> {};

TEST_P(IntrinsicTest, AsksTheServer) {
    EXPECT_EQ(callOrOutcome(GetParam(), false), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Operations, IntrinsicTest,
    testing::Values(
        Case{"GetClass", kClass, "getClass T local [NULL] qualifiers"},
        Case{"getclass",
             kClass + value("localonly", "FALSE") + value("IncludeQualifiers", "false") +
                 value("IncludeClassOrigin", "true") + list("<VALUE>b</VALUE><VALUE>a</VALUE>"),
             "getClass T [b, a] origins"},
        Case{"EnumerateClasses", "", "enumerateClasses - local [NULL] qualifiers"},
        Case{"EnumerateClassNames", kClass + value("DeepInheritance", "TRUE"),
             "enumerateClassNames T deep"},
        Case{"EnumerateClassNames", "<IPARAMVALUE NAME=\"ClassName\"/>", "enumerateClassNames -"},
        Case{"GetInstance", kInstance, "getInstance root/t T.K=\"a\" [NULL]"},
        Case{"GetInstance", kInstance + list("<VALUE>P</VALUE><VALUE>q</VALUE><VALUE>p</VALUE>"),
             "getInstance root/t T.K=\"a\" [P, q]"},
        Case{"GetInstance", kInstance + list(""), "getInstance root/t T.K=\"a\" [EMPTY]"},
        Case{"GetInstance", kInstance + "<IPARAMVALUE NAME=\"PropertyList\"/>",
             "getInstance root/t T.K=\"a\" [NULL]"},
        Case{"EnumerateInstances", kClass, "enumerateInstances T [NULL]"},
        Case{"EnumerateInstances", kClass + value("DeepInheritance", "false"),
             "enumerateInstances T [ShallowProperty]"},
        Case{"EnumerateInstanceNames", kClass, "enumerateInstanceNames T"},
        Case{"DeleteInstance", kInstance, "deleteInstance T.K=\"a\""},
        Case{"Associators", kObject + value("Role", "A") + value("ResultRole", "B"),
             "associators T.K=\"a\" via - to - as 'A' from 'B' [NULL]"},
        Case{"AssociatorNames",
             "<IPARAMVALUE NAME=\"ObjectName\"><CLASSNAME NAME=\"T\"/></IPARAMVALUE>"
             "<IPARAMVALUE NAME=\"AssocClass\"><CLASSNAME NAME=\"X\"/></IPARAMVALUE>"
             "<IPARAMVALUE NAME=\"ResultClass\"/>",
             "associatorNames T via X to - as '' from ''"},
        Case{"References", kObject + value("IncludeQualifiers", "true"),
             "references T.K=\"a\" via - to - as '' from '' [NULL] qualifiers"},
        Case{"ReferenceNames", kObject, "referenceNames T.K=\"a\" via - to - as '' from ''"},
        Case{"GetProperty", kInstance + value("PropertyName", "P"),
             "getInstance root/t T.K=\"a\" [P]"},
        Case{"SetProperty", kInstance + value("PropertyName", "P") + value("NewValue", "0x10"),
             "modifyInstance " + ownPath() + " {P uint32=16} [P]"},
        Case{"SetProperty", kInstance + value("PropertyName", "X"),
             "modifyInstance " + ownPath() + " {X boolean=null} [X]"},
        Case{"ModifyInstance",
             "<IPARAMVALUE NAME=\"ModifiedInstance\"><VALUE.NAMEDINSTANCE>" + kInstanceName +
                 "<INSTANCE CLASSNAME=\"t\"><PROPERTY NAME=\"P\" TYPE=\"uint8\"><VALUE>7</VALUE>"
                 "</PROPERTY></INSTANCE></VALUE.NAMEDINSTANCE></IPARAMVALUE>" +
                 list("<VALUE>P</VALUE><VALUE>p</VALUE>"),
             "modifyInstance T.K=\"a\" {P uint8=7} [P, p] qualifiers"}));

INSTANTIATE_TEST_SUITE_P(
    Objects, IntrinsicTest,
    testing::Values(
        Case{
            "DeleteInstance",
            keyed("<KEYBINDING NAME=\"b\"><KEYVALUE VALUETYPE=\"numeric\">1</KEYVALUE></KEYBINDING>"
                  "<KEYBINDING NAME=\"A\"><KEYVALUE "
                  "VALUETYPE=\"boolean\">true</KEYVALUE></KEYBINDING>"),
            "deleteInstance T.A=true,b=1"},
        Case{"DeleteInstance",
             keyed("<KEYBINDING NAME=\"r\"><VALUE.REFERENCE>" + kInstanceName +
                   "</VALUE.REFERENCE></KEYBINDING>"),
             "deleteInstance T.r=\"T.K=\\\"a\\\"\""},
        Case{"DeleteInstance", keyed("<KEYVALUE> a  b\n</KEYVALUE>"), "deleteInstance T.=\"a  b\""},
        Case{"DeleteInstance", keyed("<KEYVALUE>&#32;a<![CDATA[ <b> ]]> </KEYVALUE>"),
             "deleteInstance T.=\" a <b> \""},
        Case{"CreateInstance",
             created("<PROPERTY NAME=\"s\" TYPE=\"string\"><VALUE>\xC3\xA9&amp;</VALUE></PROPERTY>"
                     "<PROPERTY NAME=\"n\" TYPE=\"sint16\"/>"
                     "<PROPERTY.ARRAY NAME=\"a\" TYPE=\"boolean\"><VALUE.ARRAY><VALUE>true</VALUE>"
                     "<VALUE>FALSE</VALUE></VALUE.ARRAY></PROPERTY.ARRAY>"
                     "<PROPERTY.REFERENCE NAME=\"r\"><VALUE.REFERENCE>" +
                     kInstanceName + "</VALUE.REFERENCE></PROPERTY.REFERENCE>"),
             "createInstance T {s string=\xC3\xA9&, n sint16=null, a boolean[]=TRUE FALSE , "
             "r reference=T.K=\"a\"}"},
        Case{"CreateInstance",
             created("<PROPERTY.ARRAY NAME=\"a\" TYPE=\"uint8\" ARRAYSIZE=\" 2\"/>"
                     "<PROPERTY NAME=\" e \" TYPE=\"string\" CLASSORIGIN=\"\">"
                     "<QUALIFIER NAME=\"embeddedInstance\" TYPE=\"string\"><VALUE>E</VALUE>"
                     "</QUALIFIER><VALUE>&lt;INSTANCE CLASSNAME=&quot;E&quot;/&gt;</VALUE>"
                     "</PROPERTY><PROPERTY NAME=\"o\" TYPE=\"string\"><QUALIFIER "
                     "NAME=\"EmbeddedObject\" TYPE=\"boolean\"><VALUE>true</VALUE></QUALIFIER>"
                     "<VALUE/></PROPERTY>"),
             "createInstance T {a uint8[]=null, e instance=<INSTANCE CLASSNAME=\"E\">\n"
             "</INSTANCE>\n, o object=null}"},
        Case{"DeleteInstance", keyed("<KEYVALUE>a&#1;\x02<![CDATA[&#3;\x04]]>&#x1f;</KEYVALUE>"),
             "deleteInstance T.=\"a\x01\x02&#3;\x04\x1F\""},
        Case{"DeleteInstance", "<IPARAMVALUE NAME=\"InstanceName\"/>", "deleteInstance "},
        Case{"CreateInstance",
             created("<PROPERTY NAME=\"e\" TYPE=\"string\" EmbeddedObject=\"instance\"><VALUE>"
                     "&lt;INSTANCE CLASSNAME=&quot;E&quot;&gt;&lt;/INSTANCE&gt;</VALUE></PROPERTY>"
                     "<PROPERTY NAME=\"n\" TYPE=\"string\" "
                     "EMBEDDEDOBJECT=\"object\"><VALUE/></PROPERTY>"),
             "createInstance T {e instance=<INSTANCE CLASSNAME=\"E\">\n</INSTANCE>\n, n "
             "object=null}"}));

INSTANTIATE_TEST_SUITE_P(
    ErrorsOfParameters, IntrinsicTest,
    testing::Values(
        Case{"Frobnicate", "",
             error(7, "CIM_ERR_NOT_SUPPORTED: Unrecognized intrinsic method: Frobnicate")},
        Case{"GetClass", kClass + value("Zip", "1"),
             error(7,
                   "CIM_ERR_NOT_SUPPORTED: Unrecognized or invalid request input parameter "
                   "&quot;Zip&quot;")},
        Case{"GetClass", kClass + kClass,
             error(4, "CIM_ERR_INVALID_PARAMETER: Duplicated request input parameter.")},
        Case{"GetClass", "",
             error(4,
                   "CIM_ERR_INVALID_PARAMETER: Required parameter &quot;ClassName&quot; missing "
                   "from request.")},
        Case{"GetInstance", "", error(4, "CIM_ERR_INVALID_PARAMETER")},
        Case{"GetInstance", kInstance + list("<VALUE>1 x</VALUE>"),
             error(4, "CIM_ERR_INVALID_PARAMETER: The CIM name is not valid: 1 x")},
        Case{"GetClass", "<IPARAMVALUE NAME=\"ClassName\"/>", "400 request-not-valid"},
        Case{"EnumerateClassNames", "<IPARAMVALUE NAME=\"ClassName\">T</IPARAMVALUE>",
             "400 request-not-valid"},
        Case{"CreateInstance", "<IPARAMVALUE NAME=\"NewInstance\"/>",
             error(4, "CIM_ERR_INVALID_PARAMETER: uninitialized object")},
        Case{
            "CreateInstance", created(property("datetime", "20001301000000.000000+000")),
            error(4, "CIM_ERR_INVALID_PARAMETER: DateTime is out of range : illegal month number")},
        Case{"CreateInstance", created(property("datetime", "2000")), "400 request-not-valid"},
        Case{"CreateInstance",
             created("<PROPERTY.ARRAY NAME=\"p\" TYPE=\"string\" EmbeddedObject=\"object\">"
                     "<VALUE.ARRAY><VALUE/></VALUE.ARRAY></PROPERTY.ARRAY>"),
             error(4, "CIM_ERR_INVALID_PARAMETER: uninitialized object")},
        Case{"CreateInstance", created(property("string\" EmbeddedObject=\"object", "&lt;E")),
             "400 request-not-valid"},
        Case{"CreateInstance", created(sized("2", "<VALUE>1</VALUE>")), "400 request-not-valid"},
        Case{"CreateInstance", created(sized("0", "")), "400 request-not-valid"},
        Case{"DeleteInstance", keyed(reference("<KEYVALUE VALUETYPE=\"numeric\">x</KEYVALUE>")),
             error(4,
                   "CIM_ERR_INVALID_PARAMETER: malformed object name: T.k=x, reason:&quot;invalid "
                   "key-value pair, invalid number value x&quot;")},
        Case{"GetClass", kClass + value("LocalOnly", "maybe"), "400 request-not-valid"},
        Case{"GetClass", kClass + "<PARAMVALUE NAME=\"x\"/>", "400 request-not-valid"},
        Case{"GetClass", "<IPARAMVALUE NAME=\"ClassName\"><CLASSNAME NAME=\"1 x\"/></IPARAMVALUE>",
             "400 request-not-valid"},
        Case{"DeleteInstance", keyed("<KEYBINDING NAME=\"K\"/>"), "400 request-not-valid"},
        Case{"DeleteInstance", keyed("<KEYVALUE VALUETYPE=\"float\">1</KEYVALUE>"),
             "400 request-not-valid"},
        Case{"CreateInstance",
             created("<PROPERTY NAME=\"p\" TYPE=\"uint8\"><VALUE>256</VALUE></PROPERTY>"),
             "400 request-not-valid"},
        Case{"CreateInstance",
             created("<PROPERTY NAME=\"p\" TYPE=\"uint8\"><VALUE>05</VALUE></PROPERTY>"),
             "400 request-not-valid"},
        Case{"CreateInstance",
             created("<PROPERTY NAME=\"p\" TYPE=\"uint8\"/><PROPERTY NAME=\"P\" TYPE=\"uint8\"/>"),
             "400 request-not-valid"},
        Case{"CreateInstance",
             created("<PROPERTY NAME=\"p\" TYPE=\"uint8\" EmbeddedObject=\"instance\"/>"),
             "400 request-not-valid"}));

class MethodCallTest : public testing::TestWithParam<Case> {};

TEST_P(MethodCallTest, AsksTheServer) {
    const std::string call = "invokeMethod root/t root/t:T.K=\"a\" M";
    const std::string expected = GetParam().expected;
    const bool isCall = expected.empty() || expected[0] == ' ';
    EXPECT_EQ(callOrOutcome(GetParam(), true), isCall ? call + expected : expected);
}

INSTANTIATE_TEST_SUITE_P(
    Parameters, MethodCallTest,
    testing::Values(
        Case{"M", "", ""},
        Case{"M", "<PARAMVALUE NAME=\"p\" PARAMTYPE=\"uint32\"><VALUE>1</VALUE></PARAMVALUE>",
             " p:uint32=1"},
        Case{"M", "<PARAMVALUE NAME=\"p\"><VALUE>1</VALUE></PARAMVALUE>", " p?string=1"},
        Case{"M", "<PARAMVALUE NAME=\"p\" PARAMTYPE=\"uint32\"/>", " p?boolean=null"},
        Case{"M",
             "<PARAMVALUE NAME=\"p\"><VALUE.REFERENCE>" + kInstanceName +
                 "</VALUE.REFERENCE></PARAMVALUE>",
             " p:reference=T.K=\"a\""},
        Case{"M", "<PARAMVALUE NAME=\"p\" PARAMTYPE=\"reference\"><VALUE.REFARRAY/></PARAMVALUE>",
             " p:reference[]="},
        Case{"M", "<PARAMVALUE NAME=\"p\" PARAMTYPE=\"uint8\"><VALUE>x</VALUE></PARAMVALUE>",
             "400 request-not-valid"},
        Case{"M", "<PARAMVALUE NAME=\"p\" PARAMTYPE=\"number\"/>", "400 request-not-valid"},
        Case{"M", "<PARAMVALUE NAME=\" p \"/>", " p?boolean=null"},
        Case{"M", "<PARAMVALUE NAME=\"\"/>",
             error(4, "CIM_ERR_INVALID_PARAMETER: uninitialized object")}));

std::string numbered(const std::string& before, const std::string& after) {
    std::string result;
    for (int i = 0; i < 1001; ++i) result += before + std::to_string(i) + after;
    return result;
}

INSTANTIATE_TEST_SUITE_P(
    TooMany, IntrinsicTest,
    testing::Values(Case{"CreateInstance",
                         created(numbered("<PROPERTY TYPE=\"string\" NAME=\"p", "\"/>")),
                         "400 request-with-too-many-elements"},
                    Case{"DeleteInstance",
                         keyed(numbered("<KEYBINDING NAME=\"p", "\"><KEYVALUE/></KEYBINDING>")),
                         "400 request-not-valid"},
                    Case{"GetInstance", kInstance + list(numbered("<VALUE>p", "</VALUE>")),
                         "400 request-not-valid"}));

struct EnvelopeCase {
    const char* what;
    std::string from;
    std::string to;  ///< takes the place of the first `from` in a good message
    const char* expected;
};

void PrintTo(const EnvelopeCase& c, std::ostream* out) {
    *out << c.what;
}

std::string replaced(std::string text, const std::string& from, const std::string& to) {
    const auto at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    return text.replace(at, from.size(), to);
}

std::string nested(int depth) {
    std::string open;
    std::string close;
    for (int i = 0; i < depth; ++i) {
        open += "<A>";
        close += "</A>";
    }
    return open + close;
}

std::string repeated(const std::string& text, int times) {
    std::string result;
    for (int i = 0; i < times; ++i) result += text;
    return result;
}

class EnvelopeTest : public testing::TestWithParam<EnvelopeCase> {};

TEST_P(EnvelopeTest, IsRefused) {
    ScriptedServer server;
    const std::string good = message("GetClass", kClass);
    const std::string bad = replaced(good, GetParam().from, GetParam().to);
    EXPECT_EQ(outcomeOf(server, bad, headersOf("GetClass")), GetParam().expected);
    EXPECT_EQ(server.call, "");
}

INSTANTIATE_TEST_SUITE_P(
    Messages, EnvelopeTest,
    testing::Values(
        EnvelopeCase{"closing tag", "</MESSAGE>", "</MASSAGE>", "400 request-not-well-formed"},
        EnvelopeCase{"unknown entity", "NAME=\"T\"", "NAME=\"&x;\"", "400 request-not-well-formed"},
        EnvelopeCase{"reference to NUL", "ID=\"4711\"", "ID=\"&#0;\"",
                     "400 request-not-well-formed"},
        EnvelopeCase{"no declaration", "<?xml version=\"1.0\" encoding=\"utf-8\"?>", "",
                     "400 request-not-valid"},
        EnvelopeCase{"document type", "<CIM ", "<!DOCTYPE CIM SYSTEM \"x\"><CIM ",
                     "400 request-not-valid"},
        EnvelopeCase{"entity bomb", "<CIM ",
                     "<!DOCTYPE CIM [<!ENTITY a \"aaaa\"><!ENTITY b \"&a;&a;\">]><CIM ",
                     "400 request-not-valid"},
        EnvelopeCase{"wrong UTF-8", "4711", "\xC3(", "400 request-not-valid"},
        EnvelopeCase{"overlong UTF-8", "4711", "\xC0\xAF", "400 request-not-valid"},
        EnvelopeCase{"surrogate in UTF-8", "4711", "\xED\xA0\x80", "400 request-not-valid"},
        EnvelopeCase{"no ID", "ID=\"4711\"", "", "400 request-not-valid"},
        EnvelopeCase{"text beside elements", "<SIMPLEREQ>", "x<SIMPLEREQ>",
                     "400 request-not-valid"},
        EnvelopeCase{"extra element", "</SIMPLEREQ>", "<X/></SIMPLEREQ>", "400 request-not-valid"},
        EnvelopeCase{"bad namespace", "NAME=\"t\"", "NAME=\"t t\"", "400 request-not-valid"},
        EnvelopeCase{"too deep", "<CLASSNAME NAME=\"T\"/>", nested(100), "400 request-not-valid"},
        EnvelopeCase{"too many elements", "<CLASSNAME NAME=\"T\"/>", repeated("<A/>", 100'001),
                     "400 request-with-too-many-elements"},
        EnvelopeCase{"long attribute", "4711", std::string(65'537, 'x'), "400 request-not-valid"},
        EnvelopeCase{
            "many attributes", "<SIMPLEREQ",
            "<SIMPLEREQ a='' b='' c='' d='' e='' f='' g='' h='' i='' j='' k='' l='' m='' n='' "
            "o='' p='' q=''",
            "400 request-not-valid"},
        EnvelopeCase{"CIM version", "CIMVERSION=\"2.0\"", "CIMVERSION=\"3.0\"",
                     "501 unsupported-cim-version"},
        EnvelopeCase{"DTD version", "DTDVERSION=\"2.0\"", "DTDVERSION=\"2.x\"",
                     "501 unsupported-dtd-version"},
        EnvelopeCase{"protocol version", "PROTOCOLVERSION=\"1.0\"", "PROTOCOLVERSION=\"1.1\"",
                     "400 header-mismatch"},
        EnvelopeCase{"other method", "NAME=\"GetClass\"", "NAME=\"GetInstance\"",
                     "400 header-mismatch"},
        EnvelopeCase{"other namespace", "NAME=\"t\"", "NAME=\"u\"", "400 header-mismatch"},
        EnvelopeCase{"multiple requests", "<SIMPLEREQ", "<MULTIREQ/><SIMPLEREQ",
                     "400 header-mismatch"}));

TEST(MessageTest, MayHaveBlanksAroundIt) {
    ScriptedServer server;
    const std::string around = "\r\n " + message("DeleteInstance", kInstance) + "\n";
    outcomeOf(server, around + std::string(2, '\0'), headersOf("DeleteInstance"));
    EXPECT_EQ(server.call, "deleteInstance T.K=\"a\"");
}

std::string outcomeOfReferences(int depth, const std::string& innermost) {
    std::string key = "<KEYBINDING NAME=\"k\"><KEYVALUE>" + innermost + "</KEYVALUE></KEYBINDING>";
    for (int i = 0; i < depth; ++i) {
        key = "<KEYBINDING NAME=\"k\"><VALUE.REFERENCE><INSTANCENAME CLASSNAME=\"T\">" + key +
              "</INSTANCENAME></VALUE.REFERENCE></KEYBINDING>";
    }
    return callOrOutcome({"DeleteInstance", keyed(key), ""}, false);
}

TEST(ReferenceKeyTest, NestsOnlySoDeepAndSoLong) {
    EXPECT_EQ(outcomeOfReferences(4, "a").substr(0, 20), "deleteInstance T.k=\"");
    EXPECT_EQ(outcomeOfReferences(5, "a"), "400 request-not-valid");
    EXPECT_EQ(outcomeOfReferences(1, std::string(40'000, '"')), "400 request-not-valid");
}

std::string outcomeOfEmbedding(int depth) {
    std::string instance = "<INSTANCE CLASSNAME=\"E\"/>";
    for (int i = 0; i < depth; ++i) {
        std::string property =
            "<INSTANCE CLASSNAME=\"E\"><PROPERTY NAME=\"e\" TYPE=\"string\" "
            "EmbeddedObject=\"instance\"><VALUE>";
        appendEscaped(property, instance);
        instance = property + "</VALUE></PROPERTY></INSTANCE>";
    }
    return callOrOutcome(
        {"CreateInstance", "<IPARAMVALUE NAME=\"NewInstance\">" + instance + "</IPARAMVALUE>", ""},
        false);
}

TEST(EmbeddedObjectTest, NestsOnlySoDeep) {
    EXPECT_EQ(outcomeOfEmbedding(4).substr(0, 26), "createInstance E {e instan");
    EXPECT_EQ(outcomeOfEmbedding(5), "400 request-not-valid");
}

}  // namespace
}  // namespace cimserver::test

#include <fstream>

#include "ArrayTest.h"

namespace control = qrvapi::control;
using ::testing::SizeIs;

namespace {

using ScenarioTest = ArrayTest;

constexpr std::string_view system = R"("system": {"name": "n", "hostName": "h",
    "ipv4Address": "192.0.2.1", "id": 1, "type": 13, "serial": "s", "nodes": 1})";
constexpr std::string_view surroundings = R"(
    "ports": [{"id": "0:1:1", "type": "fc", "wwn": "2011000000000001"}, {"id": "0:2:1", "type": "iscsi"}],
    "personas": [{"number": 1, "name": "Plain"}])";

/// The complaint about a text, or "none".
template <class Change>
std::string complaint(Change&& change) {
    try {
        change();
    } catch (const control::ScenarioError& error) {
        return error.what();
    }
    return "none";
}

std::string complaintAbout(std::string_view text) {
    return complaint([&] { control::loadScenarioText(text, "s"); });
}

std::string scenarioWith(const std::string& members) {
    return "{" + std::string(system) + ", " + std::string(surroundings) + ", " + members + "}";
}

std::string hostWith(const std::string& members) {
    return scenarioWith(R"("hosts": [{"name": "a", "persona": 1}, {)" + members + "}]");
}

std::string hostWithPaths(const std::string& paths) {
    return hostWith(R"("name": "b", "persona": 1, "paths": [)" + paths + "]");
}

/// A scenario with one host, one volume and one VLUN that has these members besides its LUN.
std::string vlunWith(const std::string& members) {
    return scenarioWith(R"("hosts": [{"name": "a", "persona": 1}],
        "hostSets": [{"name": "empty"}], "volumeSets": [{"name": "set"}],
        "volumes": [{"name": "v", "wwn": "000000000000000000000000000000A0"}],
        "vluns": [{"lun": 1, )" +
                        members + "}]");
}

TEST_F(ScenarioTest, SampleIsAWholeArray) {
    control::loadScenarioFile(SAMPLE_SCENARIO);
    EXPECT_THAT(hosts({}), SizeIs(9));
    EXPECT_THAT(paths("1000000000A1B201", nullptr), SizeIs(2));
    EXPECT_THAT(paths("1000000000FFEE02", nullptr), SizeIs(1));
    for (const auto* user : {"admin", "viewer", "stranger"}) {
        EXPECT_TRUE(control::authenticate(user, user)) << user;
    }
    EXPECT_EQ(api_qrvOpenForCimserver("viewer"), 0);
    EXPECT_NE(api_qrvOpenForCimserver("stranger"), 0);
    EXPECT_EQ(api_qrvOpenForCimserver("root"), 0);
    for (unsigned kind = API_VLUN_MATCHED_SET; kind <= API_VLUN_PORT_PRESENTS; ++kind) {
        api_VLUNsInfo query{};
        query.vluntypeIsSet = 1;
        query.vluntype = kind;
        const GateHeld gate;
        EXPECT_EQ(api_getSCSIProtocolControllers(&query), 0);
        EXPECT_GT(query.count, 0U) << kind;
        api_freeVLUNs(&query);
    }
}

TEST_F(ScenarioTest, ExampleOfThePageIsAScenario) {
    std::ifstream page(SCENARIO_PAGE);
    const std::string text((std::istreambuf_iterator<char>(page)), {});
    const auto start = text.find("```json\n") + 8;
    const auto example = text.substr(start, text.find("```", start) - start);
    EXPECT_EQ(complaintAbout(example), "none");
    EXPECT_THAT(paths(nullptr, nullptr), SizeIs(4));
}

struct BadText {
    std::string text;
    const char* complaint;
};

const BadText badTexts[] = {
    {"",
     "s: parse error at line 1, column 1: syntax error while parsing value - unexpected end of "
     "input; expected '[', '{', or a literal"},
    {"{\n \"system\": {]}",
     "s: parse error at line 2, column 13: syntax error while parsing object "
     "key - unexpected ']'; expected string literal"},
    {"[]", "s: must be an object, not array"},
    {"{}", "s: \"system\" is missing"},
    {R"({"system": {}, "sytem": 1})", "s: /sytem: is not known here"},
    {R"({"a/b~c": [0, {"x": 1, "x": 2}]})", "s: /a~1b~0c/1/x: is given twice"},
    {R"({"hosts": 1e999})", "s: number overflow parsing '1e999'"},
    {scenarioWith(R"("users": [{"name": "u", "password": "p", "rights": "some"}])"),
     R"(s: /users/0/rights: must be one of "all", "read", "none")"},
    {scenarioWith(R"("users": [{"name": "u", "password": "$word", "rights": "all"}])"),
     R"(s: /users/0/password: begins with "$", but is not a whole crypt(5) hash of a safe method)"},
    {scenarioWith(
         R"("users": [{"name": "u", "password": "$1$abcdefgh$irWbblnpmw.5z7wgBnprh0", "rights": "all"}])"),
     R"(s: /users/0/password: begins with "$", but is not a whole crypt(5) hash of a safe method)"},
    {scenarioWith(R"("users": [{"name": "u", "password": "$6$abcdefgh", "rights": "all"}])"),
     R"(s: /users/0/password: begins with "$", but is not a whole crypt(5) hash of a safe method)"},
    {scenarioWith(R"("users": [{"name": "u", "password": "$y$", "rights": "all"}])"),
     R"(s: /users/0/password: begins with "$", but is not a whole crypt(5) hash of a safe method)"},
    {scenarioWith(R"("users": {})"), "s: /users: must be an array, not object"},
    {scenarioWith(R"("domains": ["d", "d"])"), "s: /domains/1: Domain d already exists"},
    {scenarioWith(R"("unassignedPaths": [{}])"),
     R"(s: /unassignedPaths/0: must have exactly one of "wwn", "iscsiName" and "sasAddress")"},
    {hostWith(R"("persona": 1)"), "s: /hosts/1: \"name\" is missing"},
    {hostWith(R"("name": "a", "persona": 1)"), "s: /hosts/1: Host a already exists"},
    {hostWith(R"("name": "", "persona": 1)"), "s: /hosts/1: No host name was given"},
    {hostWith(R"("name": "-b", "persona": 1)"), "s: /hosts/1: \"-b\" is not a valid host name"},
    {hostWith(R"("name": "b", "persona": 3)"), "s: /hosts/1: Host persona 3 does not exist"},
    {hostWith(R"("name": "b", "persona": 0)"),
     "s: /hosts/1/persona: must be a whole number from 1 to 2147483647"},
    {hostWith(R"("name": "b", "persona": 1.0)"),
     "s: /hosts/1/persona: must be a whole number from 1 to 2147483647"},
    {hostWith(R"("name": "b", "persona": "1")"),
     "s: /hosts/1/persona: must be a whole number, not string"},
    {hostWith(R"("name": "b", "persona": 1, "id": 0)"), "s: /hosts/1: Host ID 0 is already in use"},
    {hostWith(R"("name": "b", "persona": 1, "domain": "d")"),
     "s: /hosts/1: Domain d does not exist"},
    {hostWith(R"("name": "b", "persona": 1, "descriptors": {"os": "a\u0000b"})"),
     "s: /hosts/1/descriptors/os: holds a control character"},
    {hostWith(R"("name": "bbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbb", "persona": 1)"),
     "s: /hosts/1/name: is longer than 31 bytes"},
    {hostWithPaths(R"({"wwn": "5"})"), "s: /hosts/1/paths/0/wwn: must be 16 hexadecimal digits"},
    {hostWithPaths(R"({"wwn": "FFFFFFFFFFFFFFF6"})"), "s: /hosts/1/paths/0/wwn: is reserved"},
    {hostWithPaths(R"({"wwn": "0000000000000005", "ports": []})"),
     "s: /hosts/1/paths/0/ports: must not be empty"},
    {hostWithPaths(R"({"wwn": "0000000000000005", "ports": ["0:1:1", "0:9:1"]})"),
     "s: /hosts/1/paths/0/ports/1: Port 0:9:1 does not exist"},
    {hostWithPaths(R"({"wwn": "0000000000000005", "ports": ["0:1"]})"),
     R"(s: /hosts/1/paths/0/ports/0: must be a port ID such as "0:1:2" (node, slot, port))"},
    {hostWithPaths(R"({"wwn": "0000000000000005", "ports": ["0:2:1"]})"),
     "s: /hosts/1/paths/0/ports/0: Path 0000000000000005 cannot be on port 0:2:1, which speaks "
     "another protocol"},
    {hostWithPaths(R"({"wwn": "0000000000000005", "ports": ["0:1:1", "0:1:1"]})"),
     "s: /hosts/1/paths/0/ports/1: Path 0000000000000005 on port 0:1:1 is given twice"},
    {hostWithPaths(R"({"iscsiName": "iqn.a:b"}, {"iscsiName": "iqn.A:b"})"),
     "s: /hosts/1/paths/1: Path iqn.A:b on port none is given twice"},
    {hostWithPaths(R"({"wwn": "0000000000000005"}]}, {"name": "c", "persona": 1, "paths": [
                       {"wwn": "0000000000000005"})"),
     "s: /hosts/2/paths/0: Path 0000000000000005 on port none already exists"},
    {hostWithPaths(R"({"iscsiName": "disk"})"),
     "s: /hosts/1/paths/0/iscsiName: must be an iSCSI name: iqn., eui. or naa. and letters, "
     "digits, "
     "'.', ':', '-', '_'"},
    {hostWithPaths(R"({"wwn": "0000000000000005", "ipv4Address": "10.0.0.1"})"),
     "s: /hosts/1/paths/0/ipv4Address: is for iSCSI paths only"},
    {hostWithPaths(R"({"iscsiName": "iqn.a:b", "ipv4Address": "10.0.0"})"),
     "s: /hosts/1/paths/0/ipv4Address: must be an IPv4 address"},
    {hostWith(R"("name": "b", "persona": 1, "chap": {"target": {"name": "t",
                 "secret": "twelve chars"}})"),
     "s: /hosts/1: Target CHAP needs initiator CHAP"},
    {hostWith(R"("name": "b", "persona": 1, "chap": {"initiator": {"name": "i", "secret": "x"}})"),
     "s: /hosts/1/chap/initiator/secret: A CHAP secret has 12 to 16 characters or 32 hexadecimal "
     "digits"},
    {hostWith(R"("name": "b", "persona": 1, "chap": {"initiator": {"name": "i", "secret": "x",
                 "hexSecret": "y"}})"),
     "s: /hosts/1/chap/initiator: has two secrets"},
    {scenarioWith(R"("ports": [])"), "s: /ports: is given twice"},
    {"{" + std::string(system) + R"(, "ports": [{"id": "0:1:1", "type": "iscsi", "wwn": "5"}]})",
     "s: /ports/0/wwn: is for another type of port"},
    {"{" + std::string(system) + R"(, "ports": [{"id": "0:1:1", "type": "fc"}]})",
     "s: /ports/0: an FC port needs a \"wwn\""},
    {scenarioWith(R"("domainSets": [{"name": "s", "members": ["d"]}])"),
     "s: /domainSets/0: Domain d does not exist"},
    {scenarioWith(R"("domainSets": [{"name": "s"}, {"name": "s"}])"),
     "s: /domainSets/1: Set s already exists"},
    {scenarioWith(R"("domainSets": [{"name": "s", "id": 4}, {"name": "t", "id": 4}])"),
     "s: /domainSets/1: Set 4 already exists"},
    {scenarioWith(R"("hostSets": [{"name": "s", "members": ["a"]}])"),
     "s: /hostSets/0: Host a does not exist"},
    {scenarioWith(R"("hostSets": [{"name": "s"}, {"name": "s"}])"),
     "s: /hostSets/1: Set s already exists"},
    {scenarioWith(R"("volumeSets": [{"name": "s", "members": ["v"]}])"),
     "s: /volumeSets/0: Volume v does not exist"},
    {scenarioWith(R"("volumeSets": [{"name": "ssssssssssssssssssssssssssss"}])"),
     "s: /volumeSets/0/name: is longer than 27 bytes"},
    {scenarioWith(R"("volumes": [{"name": "v", "wwn": "A0"}])"),
     "s: /volumes/0/wwn: must be 32 hexadecimal digits"},
    {scenarioWith(R"("volumes": [{"name": "v", "wwn": "000000000000000000000000000000A0"},
                                 {"name": "w", "wwn": "000000000000000000000000000000a0"}])"),
     "s: /volumes/1: Volume 000000000000000000000000000000A0 already exists"},
    {scenarioWith(R"("volumes": [{"name": "v", "wwn": "000000000000000000000000000000A0",
                                  "domain": "d"}])"),
     "s: /volumes/0: Domain d does not exist"},
    {vlunWith(R"("kind": "hostSets")"),
     R"(s: /vluns/0/kind: must be one of "matchedSet", "hostSees", "hostSet", "portPresents")"},
    {vlunWith(R"("kind": "matchedSet", "host": "a", "volume": "v")"),
     "s: /vluns/0: \"port\" is missing"},
    {vlunWith(R"("kind": "hostSet", "hostSet": "empty", "host": "a", "volume": "v")"),
     "s: /vluns/0/host: doesn't go with the kind"},
    {vlunWith(R"("kind": "hostSees", "hostSet": "empty", "host": "a", "volume": "v")"),
     "s: /vluns/0/hostSet: doesn't go with the kind"},
    {vlunWith(R"("kind": "hostSet", "hostSet": "empty", "volume": "v")"),
     "s: /vluns/0: Set empty is empty"},
    {vlunWith(R"("kind": "hostSet", "hostSet": "none", "volume": "v")"),
     "s: /vluns/0: Set none does not exist"},
    {vlunWith(R"("kind": "hostSees", "host": "b", "volume": "v")"),
     "s: /vluns/0: Host b does not exist"},
    {vlunWith(R"("kind": "hostSees", "host": "a", "volume": "w")"),
     "s: /vluns/0: Volume w does not exist"},
    {vlunWith(R"("kind": "hostSees", "host": "a", "volumeSet": "set")"),
     "s: /vluns/0/volumeSet: is for templates only"},
    {vlunWith(R"("kind": "hostSees", "host": "a", "template": true, "volumeSet": "none")"),
     "s: /vluns/0: Set none does not exist"},
    {vlunWith(R"("kind": "hostSees", "host": "a", "template": true, "volumeSet": "set",
                 "volume": "v")"),
     "s: /vluns/0: exports a volume and a volume set"},
    {vlunWith(R"("kind": "portPresents", "port": "0:9:1", "volume": "v")"),
     "s: /vluns/0: Port 0:9:1 does not exist"},
    {vlunWith(R"("kind": "portPresents", "port": "0:1:1", "volume": "v", "portType": "fc")"),
     "s: /vluns/0/portType: is told by the port"},
    {vlunWith(R"("kind": "portPresents", "port": "0:1:1", "volume": "v",
                 "initiator": {"iscsiName": "iqn.a:b"})"),
     "s: /vluns/0: Path iqn.a:b cannot be on port 0:1:1, which speaks another protocol"},
    {vlunWith(R"("kind": "hostSees", "host": "a", "volume": "v", "access": "all")"),
     R"(s: /vluns/0/access: must be one of "read", "write", "readWrite")"},
};

TEST_F(ScenarioTest, ComplaintsNameThePlaceAndLeaveTheArrayAsItIs) {
    for (const auto& [text, complaint] : badTexts) {
        EXPECT_EQ(complaintAbout(text), complaint) << text;
    }
    EXPECT_THAT(hosts({}), SizeIs(4));
    EXPECT_EQ(complaintAbout(hostWithPaths(R"({"wwn": "0000000000000005"})")), "none");
}

TEST_F(ScenarioTest, FilesThatCannotBeReadAreNamed) {
    const auto complaintAboutFile = [](const std::string& path) {
        return complaint([&] { control::loadScenarioFile(path); });
    };
    EXPECT_EQ(complaintAboutFile("/no/such/file"), "/no/such/file: cannot be read");
    EXPECT_EQ(complaintAboutFile("/"), "/: cannot be read");
}

TEST_F(ScenarioTest, RefusedSingleChangesLeaveNoTrace) {
    const auto before = hosts({});
    EXPECT_EQ(complaint([] { control::addPath("gamma", R"({"wwn": "0000000000000009"})"); }),
              "path: Host gamma does not exist");
    EXPECT_EQ(complaint([] {
                  control::addPath("beta",
                                   R"({"wwn": "0000000000000009", "ports": ["0:1:1", "7:1:1"]})");
              }),
              "path: /ports/1: Port 7:1:1 does not exist");
    EXPECT_EQ(complaint([] {
                  control::addHost(R"({"name": "new", "persona": 1, "paths":
                      [{"wwn": "0000000000000009"}, {"wwn": "0000000000000009"}]})");
              }),
              "host: /paths/1: Path 0000000000000009 on port none is given twice");
    EXPECT_EQ(complaint([] { control::removeHost("gamma"); }), "host: Host gamma does not exist");
    EXPECT_EQ(complaint([] { control::removeHost("beta"); }),
              "host: Host beta has VLUNs or VLUN templates");
    EXPECT_EQ(complaint([] { control::removePath("alpha", R"({"wwn": "0000000000000009"})"); }),
              "path: Path 0000000000000009 does not exist");
    EXPECT_EQ(complaint([] {
                  control::removePath(
                      "alpha", R"({"wwn": "0000000000000005", "ports": ["1:1:1", "0:1:2"]})");
              }),
              "path: /ports/1: Path 0000000000000005 does not exist");
    EXPECT_EQ(hosts({}), before);
    EXPECT_THAT(paths("9", nullptr), SizeIs(0));
}

}  // namespace

// What the VLUNs of an array let initiators do: as privileges, and as one association for each.
#include <functional>
#include <mutex>
#include <thread>

#include "ModuleTest.h"

namespace control = qrvapi::control;
using namespace Pegasus;
using qrvtest::outcomeOf;
using qrvtest::pathOf;
using qrvtest::requestOf;
using qrvtest::sortedLines;
using qrvtest::split;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Texts = std::vector<std::string>;

constexpr const char* WALK = "api_getActiveAndTemplateVLUNs_chunk";

/// a has initiators on three ports, b and c some that aren't logged in, d none.
constexpr const char* ARRAY = R"({
    "system": {"name": "array7", "hostName": "array7.example", "ipv4Address": "192.0.2.1",
               "id": 4711, "type": 3, "serial": "SN00042", "nodes": 2},
    "users": [{"name": "admin", "password": "admin", "rights": "all"}],
    "ports": [{"id": "0:1:1", "type": "fc", "wwn": "2011000000000001"},
              {"id": "1:1:1", "type": "fc", "wwn": "2111000000000001"},
              {"id": "0:2:1", "type": "iscsi"}, {"id": "0:3:1", "type": "sas"}],
    "personas": [{"number": 1, "name": "One"}],
    "hosts": [{"name": "a", "id": 0, "persona": 1, "paths": [
                  {"wwn": "00000000000000A1", "ports": ["0:1:1", "1:1:1"]},
                  {"iscsiName": "iqn.a", "ports": ["0:2:1"]},
                  {"wwn": "00000000000000A2", "ports": ["1:1:1"]}]},
              {"name": "b", "id": 1, "persona": 1, "paths": [{"wwn": "00000000000000B1"}]},
              {"name": "c", "id": 2, "persona": 1, "paths": [
                  {"wwn": "00000000000000C1"}, {"wwn": "00000000000000C3"},
                  {"sasAddress": "00000000000000C2", "ports": ["0:3:1"]}]},
              {"name": "d", "id": 3, "persona": 1}],
    "unassignedPaths": [{"wwn": "00000000000000F1"}],
    "hostSets": [{"name": "pair", "members": ["b", "a"]}],
    "volumes": [{"name": "v", "wwn": "60000000000000000000000000000001"}],
    "volumeSets": [{"name": "full", "members": ["v"]}, {"name": "void"}],
    "vluns": [)";

/// The JSON of a VLUN from its kind and NAME=VALUE; an initiator is named by its last digits.
std::string vlun(const std::string& text) {
    std::string members = R"("lun": 1)";
    for (const std::string& word : split(text)) {
        const std::string name = word.substr(0, word.find('=')), value = word.substr(name.size());
        const bool isNumber = name == "wwn" || name == "sasAddress";
        std::string member = "\"" + name + "\": \"" + (isNumber ? "00000000000000" : "");
        member += value.empty() ? "" : value.substr(1) + "\"";
        if (value.empty())
            member = name == "template" ? "\"template\": true" : "\"kind\": \"" + name + "\"";
        else if (isNumber || name == "iscsiName")
            member = "\"initiator\": {" + member + "}";
        members += ", " + member;
    }
    return "{" + members + (text.find(" volume") == text.npos ? ", \"volume\": \"v\"}" : "}");
}

/// VLUNs with semicolons between them.
void loadVluns(const std::string& vluns) {
    std::string objects;
    for (const std::string& each : split(vluns, ';'))
        objects += (objects.empty() ? "" : ", ") + vlun(each);
    control::loadScenarioText(ARRAY + objects + "]}");
}

/// The InstanceID that begins with an initiator, given by its last digits or iSCSI name.
std::string idOf(const std::string& text) {
    return (text.compare(0, 4, "iqn.") == 0 ? "ORVELIS:iSCSI-" : "ORVELIS:FC-00000000000000") +
           text;
}

/// Paths with the array's host: of a hardware ID, "SC/" or "iSC/" and a DeviceID, or any object.
std::string full(const std::string& text) {
    const std::string head = "//array7.example/root/qrv:";
    if (text.find('"') != text.npos) return head + text;
    if (text.find("SC/") == text.npos)
        return head + "QRV_StorageHardwareID.InstanceID=\"" + idOf(text) + "\"";
    const std::string name = text[0] == 'S' ? "QRV_SCSIController" : "QRV_iSCSIController";
    return head + name + ".CreationClassName=\"" + name + "\",DeviceID=\"" +
           text.substr(text.find('/') + 1) +
           R"(",SystemCreationClassName="QRV_StorageSystem",SystemName="array7")";
}

/// The privilege of a pair, and its association.
std::string privilege(const std::string& pair) {
    return full("QRV_AuthorizedPrivilege.InstanceID=\"" + idOf(pair) + "\"");
}
std::string right(const std::string& pair, bool fc = true) {
    const std::string id = pair.substr(0, pair.find("::")), device = pair.substr(id.size() + 2);
    std::string ends = "Subject='" + full(id) + "',Target='" + full((fc ? "SC/" : "iSC/") + device);
    for (std::size_t i = 0; (i = ends.find('"', i)) != ends.npos; i += 2) ends.insert(i, "\\");
    std::replace(ends.begin(), ends.end(), '\'', '"');
    return full(std::string(fc ? "QRV_SPC" : "QRV_iSPC") + "AssociatedPrivilege." + ends +
                "\",UseKey=\"" + idOf(pair) + "\"");
}
template <class Build>
Texts all(const Texts& texts, Build build) {
    Texts result;
    for (const std::string& text : texts) result.push_back(build(text));
    return result;
}

class PrivilegeTest : public qrvtest::ModuleTest {
  protected:
    PrivilegeTest() { control::recordCalls(true); }
    ~PrivilegeTest() override {
        control::recordCalls(false);
        EXPECT_THAT(control::violations(), IsEmpty());
        expectIdle();
    }

    static void expectIdle() {
        EXPECT_TRUE(control::outstanding().idle()) << control::describe(control::outstanding());
    }

    Texts enumeratePrivileges() {
        return enumerateInstanceNames(_privileges.instances(), "QRV_AuthorizedPrivilege");
    }
    Texts enumerateRights(bool fc = true) {
        return enumerateInstanceNames((fc ? _fcRights : _iscsiRights).instances(),
                                      "CIM_AssociatedPrivilege");
    }

    /// The paths that the handler of an operation saw, and last what it ended with.
    template <class Recorder = qrvtest::InstanceRecorder, class Run>
    static Texts eventsOf(Run run, unsigned failingDeliver = 0) {
        qrvtest::Recording recording;
        recording.failDeliver(failingDeliver);
        Recorder handler(recording);
        const std::string outcome = outcomeOf([&] { run(handler); });
        Texts events = recording.events();
        for (std::string& event : events) event = event.substr(0, event.find('\n'));
        events.push_back(outcome);
        return events;
    }
    static Texts get(qrvtest::ModuleProvider& provider, const std::string& path) {
        return eventsOf([&](InstanceResponseHandler& handler) {
            provider.instances().getInstance(requestOf("admin"), CIMObjectPath(path.c_str()), false,
                                             false, {}, handler);
        });
    }
    static void enumerate(qrvtest::ModuleProvider& provider, const char* name,
                          InstanceResponseHandler& handler) {
        provider.instances().enumerateInstances(requestOf("admin"), pathOf(name), false, false, {},
                                                handler);
    }

    qrvtest::ModuleProvider _privileges{"QRV_AuthorizedPrivilegeProvider", broker()};
    qrvtest::ModuleProvider _fcRights{"QRV_SPCAssociatedPrivilegeProvider", broker()};
    qrvtest::ModuleProvider _iscsiRights{"QRV_iSPCAssociatedPrivilegeProvider", broker()};
};

TEST_F(PrivilegeTest, vlunsLetInitiatorsThrough) {
    const struct {
        const char* vluns;
        const char* privileges;
        const char* onlyRights = "";  ///< associations that no privilege stands for
    } cases[] = {
        {"", ""},
        // a matched set takes the paths on its port, or a host's only path that isn't logged in
        {"matchedSet host=a port=0:1:1", "A1::MS:0:1:1:0"},
        {"matchedSet host=a port=1:1:1", "A1::MS:1:1:1:0 A2::MS:1:1:1:0"},
        {"matchedSet host=a port=0:2:1;matchedSet host=a port=0:3:1", "iqn.a::MS:0:2:1:0"},
        {"matchedSet host=b port=0:1:1;matchedSet host=d port=0:1:1", "B1::MS:0:1:1:1"},
        {"matchedSet host=c port=0:1:1;matchedSet host=c port=0:3:1", ""},
        // host sees and host set take all paths, of both transports
        {"hostSees host=a", "A1::HS:0 iqn.a::HS:0 A2::HS:0"},
        {"hostSees host=a port=0:2:1", "A1::HS:0 iqn.a::HS:0 A2::HS:0"},
        {"hostSees host=d;hostSees host=c", "C1::HS:2 C3::HS:2"},
        {"hostSet hostSet=pair", "B1::HSet:1 A1::HSet:0 iqn.a::HSet:0 A2::HSet:0"},
        // without a host or an initiator a port presents nothing
        {"portPresents port=0:1:1;portPresents port=0:1:1 host=a", ""},
        {"portPresents port=0:1:1 wwn=A1", ""},
        {"portPresents port=1:1:1 host=a wwn=A2", "A2::PP:1:1:1"},
        {"portPresents port=0:2:1 host=a iscsiName=iqn.a", "iqn.a::PP:0:2:1"},
        // a named initiator stands alone, also when it isn't the host's
        {"hostSees host=a wwn=A2;hostSees host=d wwn=F1", "A2::HS:0 F1::HS:3"},
        {"matchedSet host=a port=1:1:1 wwn=A1", "A1::MS:1:1:1:0"},
        {"hostSet hostSet=pair wwn=F1", "F1::HSet:1 F1::HSet:0"},
        // unless another transport's initiators count
        {"hostSees host=b portType=iscsi wwn=A2", "B1::HS:1"},
        {"hostSees host=b sasAddress=C2", "B1::HS:1"},
        // a pair counts once, at its first appearance; active VLUNs come before templates
        {"hostSees host=b;matchedSet host=b port=0:1:1;hostSees host=b", "B1::HS:1 B1::MS:0:1:1:1"},
        {"hostSees host=b wwn=F1 template;hostSees host=b", "B1::HS:1 F1::HS:1"},
        {"hostSees host=b;hostSees host=b template", "B1::HS:1"},
        {"hostSees host=b template volumeSet=full", "B1::HS:1"},
        {"hostSees host=b template volumeSet=void", "", "B1::HS:1"},
        {"hostSees host=b template volumeSet=void;hostSees host=b", "B1::HS:1"},
    };
    for (const auto& each : cases) {
        loadVluns(each.vluns);
        const Texts privileges = split(each.privileges);
        const Texts pairs = privileges.empty() ? split(each.onlyRights) : privileges;
        Texts rights[2];
        for (const std::string& pair : pairs)
            rights[pair[0] != 'i'].push_back(right(pair, pair[0] != 'i'));
        for (const auto& chunks : {std::vector<std::size_t>{}, {1}, {0, 2, 0, 0, 1}}) {
            SCOPED_TRACE(each.vluns + std::string(" in chunks: ") + std::to_string(chunks.size()));
            control::limitVlunChunks(chunks);
            EXPECT_EQ(enumeratePrivileges(), answer(all(privileges, privilege)));
            for (const bool fc : {true, false}) EXPECT_EQ(enumerateRights(fc), answer(rights[fc]));
        }
        for (const std::string& pair : pairs)
            EXPECT_EQ(get(_privileges, privilege(pair)).size(), privileges.empty() ? 1U : 4U);
    }
}

TEST_F(PrivilegeTest, whatARightTells) {
    loadVluns("matchedSet host=a port=0:1:1");
    const std::string pair = "A1::MS:0:1:1:0", id = idOf(pair), path = privilege(pair);
    const auto whole = sortedLines(
        path + "\nInstanceID=" + id +
        "\nDescription=AuthorizedPrivilege for SPC MS:0:1:1:0 to "
        "StorageHardwareID " +
        idOf("A1") + "\nElementName=MS:0:1:1:0\nPrivilegeGranted=TRUE\n" + "Activities=5 6 ");
    const auto one = qrvtest::properties({"ElementName", "UseKey"});
    CIMInstanceProvider& privileges = _privileges.instances();
    const std::string parent = "CIM_AuthorizedPrivilege", key = ".InstanceID=\"" + id + "\"";
    EXPECT_EQ(sortedLines(enumerateInstances(privileges, parent).at(1)), whole);
    EXPECT_EQ(sortedLines(getInstance(privileges, parent + key, one).at(1)), whole);
    EXPECT_EQ(enumerateInstances(privileges, parent, one),
              answer({path + "\nElementName=MS:0:1:1:0"}));

    const std::string link = right(pair);
    CIMInstanceProvider& rights = _fcRights.instances();
    EXPECT_EQ(sortedLines(enumerateInstances(rights, "CIM_AssociatedPrivilege").at(1)),
              sortedLines(link + "\nPrivilegeGranted=TRUE\nActivities=5 6 \nSubject=" + full("A1") +
                          "\nTarget=" + full("SC/MS:0:1:1:0") + "\nUseKey=" + id));
    EXPECT_EQ(getInstance(rights, link.substr(link.find("QRV_")), one),
              answer({link + "\nUseKey=" + id}));
}

TEST_F(PrivilegeTest, getInstanceReadsWhatItsKeyNames) {
    loadVluns("hostSees host=a;matchedSet host=a port=1:1:1;portPresents port=1:1:1 host=a");
    const std::string own = "QRV_AuthorizedPrivilege.InstanceID=\"";
    const std::string none = "6 QRV_AuthorizedPrivilege CIM Object not found.";
    const struct {
        std::string path, outcome;
        Texts reads;  ///< host, kind and port of each read of VLUNs
    } cases[] = {
        {own + idOf("A2::MS:1:1:1:0\""), "", {"a 1 1:1:1", "a 1 1:1:1"}},
        {own + idOf("A2::HS:0\""), "", {"a 2 ", "a 2 "}},
        {own + idOf("A2::PP:1:1:1\""), none, {" 4 1:1:1", " 4 1:1:1"}},
        {own + idOf("A2::HS:99\""), none, {" 2 ", " 2 "}},
        {own + idOf("B1::HS:0\""), none, {"a 2 ", "a 2 "}},
        {own + "ORVELIS:fc-00000000000000A2::HS:0\"", none, {"a 2 ", "a 2 "}},
        {own + "FC-00000000000000A2::HS:0\"", none, {}},
        {own + idOf("A2:HS:0\""), none, {}},
        {own + "ORVELIS:::HS:0\"", none, {}},
        {"QRV_AuthorizedPrivilege.Name=\"x\"", none, {}},
        {own + "x\",B=\"y\"", "4 QRV_AuthorizedPrivilege Expect only one key.", {}},
        {"QRV_Other.A=\"x\"", "7 QRV_AuthorizedPrivilege Invalid class nameQRV_Other", {}},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.path);
        control::resetCounters();
        EXPECT_EQ(get(_privileges, full(each.path)).back(), each.outcome);
        Texts reads;
        for (const control::CallRecord& call : control::calls())
            if (call.function == WALK)
                reads.push_back(call.argument("hostname") + " " + call.argument("vluntype") + " " +
                                call.argument("port"));
        EXPECT_EQ(reads, each.reads);
    }
}

TEST_F(PrivilegeTest, getInstanceOfARightChecksItsKeysAndTheHardwareID) {
    loadVluns("");  // they aren't asked
    const std::string good = right("A1::HS:0"), name = "QRV_SPCAssociatedPrivilegeProvider";
    EXPECT_EQ(get(_fcRights, good), (Texts{"processing", good, "complete", ""}));
    const auto with = [&](const std::string& part, const std::string& other) {
        return std::string(good).replace(good.find(part), part.size(), other);
    };
    for (const std::string& path :
         {with("::HS:0", "::HS:1"), with("::HS:0", "::hs:0"), with("::HS:0", ":HS:0"),
          with("A1\\", "A9\\"), with("QRV_SPCA", "CIM_A"), with("Target=", "To="),
          with("Subject=\"//array7.example/root/qrv:", "Subject=\"//")})
        EXPECT_EQ(get(_fcRights, path),
                  (Texts{"processing", "6 " + name + " CIM Object not found."}))
            << path;
    EXPECT_EQ(get(_fcRights, full("QRV_SPCAssociatedPrivilege.A=\"x\",B=\"y\"")),
              Texts{"4 " + name + " Expect three keys."});
    EXPECT_THAT(logged(),
                ElementsAre("2 " + name + "::getInstance(): Invalid number of keys (2)\n"));
    EXPECT_EQ(get(_fcRights, with("QRV_SPC", "QRV_iSPC")),
              Texts{"7 " + name + " Invalid class nameQRV_iSPCAssociatedPrivilege"});
}

const std::string REFUSED = "refused", MISSING = "missing";  ///< the handler isn't touched
const std::string OF_A1 = "SC/HS:0 SC/MS:0:1:1:0", A1_LINKS = "A1::HS:0 A1::MS:0:1:1:0",
                  OF_HS0 = "A1 iqn.a A2",  // F9 can't be shown
    HS0_LINKS = "A1::HS:0 iqn.a::HS:0 A2::HS:0";
const struct {
    bool fc;
    const char *source, *role, *resultRole, *resultClass;
    std::string ends;
    std::string links = "";  ///< asked for where nothing is said of the result
} REQUESTS[] = {
    {true, "A1", "", "", "", OF_A1, A1_LINKS},
    {true, "A1", "subject", "", "", OF_A1, A1_LINKS},
    {true, "A1", "", "TARGET", "QRV_SCSIController", OF_A1},
    {true, "A1", "", "", "CIM_ManagedElement", OF_A1},
    {true, "A1", "Target", "", "", REFUSED, REFUSED},
    {true, "A1", "Member", "", "", REFUSED, REFUSED},
    {true, "A1", "", "Subject", "", REFUSED},
    {true, "A1", "", "", "QRV_StorageHardwareID", REFUSED},
    {true, "A1", "", "", "CIM_Identity", REFUSED},
    {true, "A1", "", "", "QRV_iSCSIController", REFUSED},
    {true, "F1", "", "", "", "SC/HS:3", "F1::HS:3"},
    {true, "C1", "", "", "", "", ""},
    {true, "iqn.a", "", "", "", "", ""},
    {true, "F9", "", "", "", MISSING, MISSING},
    {true, "QRV_StorageHardwareID.InstanceID=\"x\"", "", "", "", REFUSED, REFUSED},
    {true, "CIM_StorageHardwareID.InstanceID=\"x\"", "", "", "", REFUSED, REFUSED},
    {true, "SC/HS:0", "target", "", "", OF_HS0, HS0_LINKS},
    {true, "SC/HS:0", "", "Subject", "CIM_StorageHardwareID", OF_HS0},
    {true, "SC/HS:0", "", "", "CIM_ManagedElement", OF_HS0},
    {true, "SC/HS:0", "Subject", "", "", REFUSED, REFUSED},
    {true, "SC/HS:0", "", "Target", "", REFUSED},
    {true, "SC/HS:0", "", "", "CIM_LogicalDevice", REFUSED},
    {true, "SC/HS:0", "", "", "QRV_SCSIController", REFUSED},
    {true, "SC/HS:9", "", "", "", MISSING, MISSING},
    {true, "iSC/MS:0:2:1:0", "", "", "", "", ""},
    {true, "QRV_StorageHardwareIDCollection.InstanceID=\"ORVELIS:a\"", "", "", "", "", ""},
    {false, "A1", "", "", "", "", ""},
    {false, "iqn.a", "", "", "", "iSC/HS:0 iSC/MS:0:2:1:0", "iqn.a::HS:0 iqn.a::MS:0:2:1:0"},
    {false, "iSC/MS:0:2:1:0", "Target", "", "", "iqn.a", "iqn.a::MS:0:2:1:0"},
};

TEST_F(PrivilegeTest, aRightIsFoundFromBothItsEnds) {
    loadVluns(
        "hostSees host=a wwn=F9;hostSees host=a;hostSees host=d wwn=F1;"
        "matchedSet host=a port=0:1:1;hostSees host=a;matchedSet host=a port=0:2:1");
    const OperationContext user = requestOf("admin");
    for (const auto& each : REQUESTS) {
        const std::string provider =
            each.fc ? "QRV_SPCAssociatedPrivilegeProvider" : "QRV_iSPCAssociatedPrivilegeProvider";
        CIMAssociationProvider& asked = (each.fc ? _fcRights : _iscsiRights).associations();
        const CIMObjectPath source(full(each.source).c_str());
        const CIMName resultClass = each.resultClass[0] == '\0' ? CIMName() : each.resultClass;
        const auto check = [&](const std::string& operation, const std::string& expected,
                               auto build, Texts events) {
            SCOPED_TRACE(operation + " " + each.source + " " + each.role + " " + each.resultRole +
                         " " + each.resultClass);
            EXPECT_EQ(events.back(), "");
            events.pop_back();
            const bool isUntouched = expected == REFUSED || expected == MISSING;
            EXPECT_EQ(events, isUntouched ? Texts{} : answer(all(split(expected), build)));
            const Texts lines = logged();
            EXPECT_EQ(std::count(lines.begin(), lines.end(),
                                 "3 " + provider + "::" + operation +
                                     ": invalid params: resultClass = " + each.resultClass + " \n"),
                      expected == REFUSED);
        };
        check("associators", each.ends, full, eventsOf<qrvtest::ObjectRecorder>([&](auto& handler) {
                  asked.associators(user, source, CIMName(), resultClass, each.role,
                                    each.resultRole, false, false, {}, handler);
              }));
        if (each.resultRole[0] != '\0' || each.resultClass[0] != '\0') continue;
        const auto link = [&](const std::string& pair) { return right(pair, each.fc); };
        check("referenceNames", each.links, link,
              eventsOf<qrvtest::PathRecorder>([&](auto& handler) {
                  asked.referenceNames(user, source, CIMName(), each.role, handler);
              }));
    }
}

TEST_F(PrivilegeTest, aFailureInTheMiddleOfAWalk) {
    loadVluns("hostSees host=b;matchedSet host=b port=0:1:1;hostSees host=a");
    const std::string first = privilege("B1::HS:1"), link = right("B1::HS:1");
    const auto privileges = [&](auto& handler) {
        enumerate(_privileges, "QRV_AuthorizedPrivilege", handler);
    };
    const auto rights = [&](auto& handler) {
        enumerate(_fcRights, "QRV_SPCAssociatedPrivilege", handler);
    };
    control::limitVlunChunks({1});
    for (const char* const function : {WALK, "cim_sem_wait"}) {
        SCOPED_TRACE(function);
        control::failCall(function, 2, control::Repeat::once, 7);
        EXPECT_EQ(eventsOf(privileges), (Texts{"processing", first, "1 Operation failed."}));
        EXPECT_THAT(logged(),
                    ElementsAre("2 QRV_AuthorizedPrivilege::buildOrDeliverInstances exception on "
                                "api_getActiveAndTemplateVLUNs_chunk.\n"));
        expectIdle();
        control::failCall(function, 2, control::Repeat::once, 7);
        EXPECT_EQ(eventsOf(rights), (Texts{"processing", link, "complete", ""}));
        EXPECT_THAT(logged(), ElementsAre("2 -->QRV_SPCAssociatedPrivilege::getRelatedInstances () "
                                          " getVLUNs() failed, status = 7 \n"));
        expectIdle();
    }
    control::failCall(WALK);
    EXPECT_EQ(get(_privileges, first), Texts{"1 Operation failed."});
    EXPECT_EQ(eventsOf(privileges, 2), (Texts{"processing", first, "1 client hung up"}));
    EXPECT_EQ(eventsOf(rights, 2), (Texts{"processing", link, "complete", ""}));
    expectIdle();
    EXPECT_EQ(enumeratePrivileges().size(), 2 + 5U);
    EXPECT_EQ(enumerateRights().size(), 2 + 4U);
}

TEST_F(PrivilegeTest, withoutATableNothingIsWalked) {
    loadVluns("hostSees host=b");
    control::failAllocation(1, control::Repeat::always);
    qrvtest::ModuleProvider privileges("QRV_AuthorizedPrivilegeProvider", broker());
    qrvtest::ModuleProvider rights("QRV_SPCAssociatedPrivilegeProvider", broker());
    control::clearFaults();
    const std::string none = "6 QRV_AuthorizedPrivilege CIM Object not found.";
    EXPECT_EQ(get(privileges, privilege("B1::HS:1")), Texts{none});
    EXPECT_EQ(enumerateInstanceNames(privileges.instances(), "QRV_AuthorizedPrivilege"),
              answer({}));
    EXPECT_EQ(enumerateInstanceNames(rights.instances(), "QRV_SPCAssociatedPrivilege"), Texts{});
    const std::string line =
        "2 <-- QRV_AuthorizedPrivilege::buildOrDeliverInstances Invalid stringHashTable.\n";
    EXPECT_THAT(logged(), ElementsAre(line, line,
                                      "2 <-- QRV_SPCAssociatedPrivilegeProvider::"
                                      "getRelatedInstances Invalid stringHashTable.\n"));
    EXPECT_EQ(control::callCount(WALK), 0U);
}

/// Walks that meet each other.
using PrivilegeConcurrencyTest = PrivilegeTest;

struct CallingHandler : InstanceResponseHandler {
    explicit CallingHandler(std::function<void()> call) : onDeliver(std::move(call)) {}
    void processing() override {}
    void complete() override {}
    void deliver(const CIMInstance&) override { onDeliver(); }
    void deliver(const Array<CIMInstance>&) override {}

    std::function<void()> onDeliver;
};

TEST_F(PrivilegeConcurrencyTest, walksOfOneProviderFollowEachOtherAndOthersGoBetween) {
    loadVluns("hostSees host=a;hostSees host=b");
    std::mutex mutex;
    std::string order;
    const auto note = [&](char walk) {
        const std::lock_guard lock(mutex);
        order += walk;
    };
    const auto walk = [&](CallingHandler& handler) {
        enumerate(_privileges, "QRV_AuthorizedPrivilege", handler);
    };
    CallingHandler later([&] { note('2'); });
    std::thread second;
    CallingHandler first([&] {
        note('1');
        if (second.joinable()) return;
        second = std::thread([&] { walk(later); });
        std::thread([&] { EXPECT_EQ(enumerateRights().size(), 2 + 3U); }).join();
        std::this_thread::sleep_for(std::chrono::milliseconds(50));  // for a walk that needn't wait
    });
    walk(first);
    second.join();
    EXPECT_EQ(order, "11112222");
}

}  // namespace

// The hardware ID management service as an object, and the way of a call to its method.
#include <qrvapi.h>

#include <algorithm>

#include "MethodTest.h"

namespace control = qrvapi::control;
using namespace Pegasus;
using namespace qrvtest;

namespace {

const std::string PATH = "//array7.example/root/qrv:" + SERVICE;
constexpr const char* NO_OPEN = "2 Insufficient privilege for the user";
constexpr const char* NO_RIGHT = "2 Insufficient generic privilege";
constexpr const char* NO_GENERIC = "7 Does not support in generic!";
constexpr const char* NOT_THERE = "6 QRV_StorageHardwareIDManagementService CIM Object not found.";

std::string instanceText(const std::string& contact, const std::string& owner) {
    return PATH +
           "\nEnabledState=5\nRequestedState=12\nEnabledDefault=2"  // the class's own defaults
           "\nSystemCreationClassName=QRV_StorageSystem\nSystemName=array7"
           "\nCreationClassName=QRV_StorageHardwareIDManagementService"
           "\nName=ORVELIS_StorageHardwareIDManagementService\nPrimaryOwnerContact=" +
           contact + "\nPrimaryOwnerName=" + owner + "\nStarted=TRUE\nStartMode=Automatic";
}

std::string withValue(const std::string& from, const std::string& to) {
    std::string path = SERVICE;
    return path.replace(path.find(from), from.size(), to);
}

class ServiceTest : public MethodTest {
  protected:
    ServiceTest() { control::setSystem(SYSTEM); }

    CIMInstanceProvider& provider() { return service().instances(); }

    void expectInstance(const std::vector<std::string>& seen, const std::string& contact,
                        const std::string& owner) {
        EXPECT_EQ(qrvtest::sortedLines(seen),
                  qrvtest::sortedLines(answer({instanceText(contact, owner)})));
    }

    static constexpr const char* SYSTEM = R"({
        "name": "array7", "hostName": "array7.example", "ipv4Address": "192.0.2.1", "id": 4711,
        "type": 3, "serial": "SN00042", "nodes": 2, "contact": "on call", "owner": "Ann Owner"})";
};

TEST_F(ServiceTest, isOneInstanceUnderBothClassNames) {
    for (const char* name :
         {"QRV_StorageHardwareIDManagementService", "cim_storagehardwareidmanagementservice"}) {
        expectInstance(enumerateInstances(provider(), name), "on call", "Ann Owner");
        EXPECT_EQ(enumerateInstanceNames(provider(), name), answer({PATH}));
    }
    expectInstance(getInstance(provider(), SERVICE), "on call", "Ann Owner");
    EXPECT_THAT(getInstance(provider(), SERVICE, properties({"StartMode", "Name"})).at(1),
                testing::AllOf(testing::HasSubstr("\nStartMode=Automatic"),
                               testing::HasSubstr("\nName=ORVELIS_"),
                               testing::Not(testing::HasSubstr("Started"))));
}

TEST_F(ServiceTest, anOwnerThatCannotBeReadIsEmpty) {
    control::failCall("api_getSystemContact");
    expectInstance(getInstance(provider(), SERVICE), "", "Ann Owner");
    control::failCall("api_getOwnerName");
    expectInstance(enumerateInstances(provider(), "QRV_StorageHardwareIDManagementService"),
                   "on call", "");
    EXPECT_THAT(logged(), testing::IsEmpty());
}

TEST_F(ServiceTest, keepsTheNameThatTheSystemHadAtFirst) {
    provider();
    std::string renamed = SYSTEM;
    control::setSystem(renamed.replace(renamed.find("array7"), 6, "array8"));
    expectInstance(getInstance(provider(), SERVICE), "on call", "Ann Owner");
}

TEST_F(ServiceTest, getInstanceRefusesOtherPaths) {
    const std::string threeKeys = SERVICE.substr(0, SERVICE.rfind(','));
    const struct {
        std::string path;
        const char* outcome;
    } cases[] = {
        {"QRV_StorageHardwareID.InstanceID=\"x\"",
         "7 QRV_StorageHardwareIDManagementService Invalid class nameQRV_StorageHardwareID"},
        {threeKeys, "4 QRV_StorageHardwareIDManagementService Expect four keys."},
        {SERVICE + ",Zone=\"1\"", "4 QRV_StorageHardwareIDManagementService Expect four keys."},
        {withValue("array7", "array8"), NOT_THERE},
        {withValue("ORVELIS_", "OTHER_"), NOT_THERE},
        {withValue(",SystemName", ",Systems"), NOT_THERE},
        {withValue("QRV_StorageHardwareIDM", "CIM_StorageHardwareIDM"), NOT_THERE}};
    for (const auto& each : cases) {
        logged();
        EXPECT_EQ(outcomeOf([&] { getInstance(provider(), each.path); }), each.outcome)
            << each.path;
        const bool countsKeys = std::string(each.outcome).find("four keys") != std::string::npos;
        const std::string line =
            "2 QRV_StorageHardwareIDManagementServiceProvider::getInstance(): Invalid number of "
            "keys (" +
            std::string(each.path == threeKeys ? "3" : "5") + ")\n";
        if (countsKeys)
            EXPECT_EQ(logged(), std::vector<std::string>{line});
        else
            EXPECT_THAT(logged(), testing::IsEmpty());
    }
}

TEST_F(ServiceTest, readingNeedsTheRightToOpen) {
    Recording recording;
    InstanceRecorder instances(recording);
    PathRecorder paths(recording);
    const OperationContext stranger = requestOf("stranger");
    const CIMObjectPath name = pathOf("No_Such");
    const std::string outcomes[] = {
        outcomeOf([&] { provider().getInstance(stranger, name, false, false, {}, instances); }),
        outcomeOf(
            [&] { provider().enumerateInstances(stranger, name, false, false, {}, instances); }),
        outcomeOf([&] { provider().enumerateInstanceNames(stranger, name, paths); })};
    EXPECT_THAT(outcomes, testing::Each(NO_OPEN));
    EXPECT_THAT(recording.events(), testing::IsEmpty());
}

// Who may not change the array learns nothing else; who may, learns of the object before the
// method.
TEST_F(ServiceTest, rightsComeBeforeTheObjectAndTheObjectBeforeTheMethod) {
    const std::string elsewhere = withValue("array7", "array8");
    const std::string otherClass = "CIM_StorageHardwareIDManagementService.Name=\"x\"";
    const struct {
        const char* user;
        std::string path;
        const char* method;
        const char* outcome;
    } cases[] = {{"stranger", SERVICE, "NoSuch", NO_OPEN},
                 {"nobody", SERVICE, "DeleteStorageHardwareID", NO_OPEN},
                 {"viewer", SERVICE, "DeleteStorageHardwareID", NO_RIGHT},
                 {"viewer", SERVICE, "NoSuch", NO_RIGHT},
                 {"viewer", elsewhere, "NoSuch", NO_RIGHT},
                 {"admin", "QRV_Unknown.Name=\"x\"", "NoSuch", NO_GENERIC},
                 {"admin", elsewhere, "NoSuch", NOT_THERE},
                 {"admin", elsewhere, "CreateStorageHardwareID", NOT_THERE},
                 {"admin", otherClass, "CreateStorageHardwareID", NOT_THERE},
                 {"admin", SERVICE, "NoSuch",
                  "17 QRV_StorageHardwareIDManagementService:NoSuch not supported"}};
    for (const auto& each : cases)
        EXPECT_EQ(call(each.method, {}, each.user, each.path), each.outcome)
            << each.user << " " << each.method << " " << each.path;
    for (const int code : std::vector<int>{API_CIMUSER_AUTHORIZATION_USER_NOTFOUND, 29}) {
        control::failCall("api_authorizeCIMUser", 1, control::Repeat::once, code);
        EXPECT_EQ(call("NoSuch", ""), code == 29 ? NO_GENERIC : NO_RIGHT) << code;
    }
    EXPECT_THAT(control::events(), testing::IsEmpty());
}

TEST_F(ServiceTest, methodNamesCountInAnyCaseAndRightsInLowerCase) {
    for (const char* method :
         {"CREATEstorageHARDWAREid", "deletestoragehardwareid", "CREATEHARDWAREIDCOLLECTION",
          "addHardwareIDsToCollection", "SETiscsiCHAP", "removeISCSIchap"}) {
        control::resetCounters();
        control::recordCalls(true);
        EXPECT_THAT(call(method, ""), testing::MatchesRegex("5  ?Invalid number of parameters"));
        const std::vector<control::CallRecord> calls = control::calls();
        ASSERT_EQ(calls.size(), 2U);
        EXPECT_EQ(calls[0].function, "api_qrvOpenForCimserver");
        std::string lower(method);
        std::transform(lower.begin(), lower.end(), lower.begin(), ::tolower);
        EXPECT_EQ(calls[1].argument("method"), "qrv_storagehardwareidmanagementservice." + lower);
        EXPECT_EQ(calls[1].argument("user"), "admin");
        EXPECT_EQ(calls[1].argument("clientAddress"), "192.0.2.7");
    }
}

class PrivilegeServiceTest : public ModuleTest {
  protected:
    CIMInstanceProvider& provider() { return _service.instances(); }

    std::string call(const char* method, const std::string& user = "admin",
                     const std::string& path = PRIVILEGE_SERVICE) {
        Recording recording;
        MethodRecorder handler(recording);
        const std::string outcome = outcomeOf([&] {
            _service.methods().invokeMethod(requestOf(user), pathOf(path), CIMName(method), {},
                                            handler);
        });
        EXPECT_THAT(recording.events(), testing::IsEmpty());
        return outcome;
    }

    std::string get(const std::string& path) {
        return outcomeOf([&] { getInstance(provider(), path); });
    }

    void expectLine(const std::string& text) {
        EXPECT_THAT(logged(),
                    testing::ElementsAre("2 QRV_PrivilegeMgmtServiceProvider::" + text + "\n"));
    }

    const std::string elsewhere = "QRV_PrivilegeManagementService.CreationClassName=\"x\"";
    const std::string message = "QRV_PrivilegeMgmtServiceProvider";

  private:
    ModuleProvider _service{"QRV_PrivilegeMgmtServiceProvider", broker()};
};

TEST_F(PrivilegeServiceTest, isOneInstance) {
    const std::string path = "//array7.example/root/qrv:" + PRIVILEGE_SERVICE;
    control::failCall("api_getOwnerName");
    EXPECT_THAT(
        enumerateInstances(provider(), "cim_privilegemanagementservice"),
        testing::ElementsAre(
            "processing",
            testing::AllOf(testing::StartsWith(path + "\n"), testing::HasSubstr("\nStarted=TRUE"),
                           testing::HasSubstr("\nElementName=ORVELIS:PrivilegeManagementService"),
                           testing::HasSubstr("\nPrimaryOwnerName=\n"),
                           testing::HasSubstr("\nStartMode=Automatic")),
            "complete"));
    EXPECT_EQ(enumerateInstanceNames(provider(), "QRV_PrivilegeManagementService"), answer({path}));
    EXPECT_EQ(get(PRIVILEGE_SERVICE), "");
    EXPECT_THAT(logged(), testing::IsEmpty());
    EXPECT_EQ(get("QRV_Other.A=\"x\""), "7 " + message + " Invalid class nameQRV_Other");
    expectLine("getInstance() incorrect className = QRV_Other");
    EXPECT_EQ(get(elsewhere), "4 " + message + " Expect four keys.");
    expectLine("getInstance(): Invalid number of keys (1)");
    EXPECT_EQ(get(elsewhere + ",A=\"1\",B=\"2\",C=\"3\""),
              "6 " + message + " CIM Object not found.");
    outcomeOf([&] { enumerateInstanceNames(provider(), "QRV_Other"); });
    expectLine("enumerateInstanceNames() incorrect className = QRV_Other");
}

TEST_F(PrivilegeServiceTest, everyMethodFailsInItsTurn) {
    for (const std::string method : {"RemoveAccess", "ASSIGNACCESS", "startservice", "StopService"})
        EXPECT_EQ(call(method.c_str()), "1 " + method + " not supported");
    EXPECT_EQ(call("AssignAccess", "stranger"), NO_OPEN);
    EXPECT_EQ(call("NoSuch", "viewer", elsewhere), NO_RIGHT);
    EXPECT_EQ(call("NoSuch", "admin", "QRV_Unknown.Name=\"x\""), NO_GENERIC);
    EXPECT_THAT(logged(), testing::IsEmpty());
    EXPECT_EQ(call("NoSuch", "admin", elsewhere), "6 " + message + " CIM Object not found.");
    expectLine("invokeMethod(): object not found = //server.example/root/qrv:" + elsewhere);
    EXPECT_EQ(call("NoSuch"), "17 " + message + ":NoSuch not known");
    expectLine("invokeMethod():method NoSuch not known");
}

}  // namespace

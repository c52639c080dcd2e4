// Initiators as QRV_StorageHardwareID.
#include <QRV_Common.h>

#include "../../src/Providers/QRV/Host/QRV_StorageHardwareIDProvider.h"
#include "ModuleTest.h"

namespace control = qrvapi::control;
using namespace Pegasus;
using qrvtest::outcomeOf;
using qrvtest::pathOf;
using qrvtest::properties;
using qrvtest::requestOf;
using qrvtest::sortedLines;

namespace {

std::string pathText(const std::string& instanceID) {
    return "//array7.example/root/qrv:QRV_StorageHardwareID.InstanceID=\"" + instanceID + "\"";
}

/// An instance as text. Without a host name the initiator belongs to no host.
std::string hardwareID(const std::string& kind, const std::string& storageID,
                       const std::string& idType, const std::string& hostName,
                       const std::string& address = "") {
    const std::string instanceID = "ORVELIS:" + kind + "-" + storageID;
    const std::string onHost =
        hostName.empty() ? "" : " on StorageHardwareIDCollection " + hostName;
    return pathText(instanceID) + "\nInstanceID=" + instanceID + "\nDescription=" + kind +
           " StorageHardwareID " + storageID + onHost + "\nElementName=" + hostName +
           "\nStorageID=" + storageID + "\nIDType=" + idType + "\nCurrentlyAuthenticated=FALSE" +
           (address.empty() ? "" : "\nIPAddress=" + address);
}

const std::string ALPHA_FC = hardwareID("FC", "1000000000A1B201", "2", "alpha");
const std::string ALPHA_ISCSI =
    hardwareID("iSCSI", "iqn.2001-04.example:Alpha", "5", "alpha", "198.51.100.5");
const std::string BETA_FC = hardwareID("FC", "0000000000000005", "2", "beta");
const std::string FREE_ISCSI = hardwareID("iSCSI", "iqn.2001-04.example:free", "5", "", "0.0.0.0");

class StorageHardwareIDTest : public qrvtest::ModuleTest {
  protected:
    CIMInstanceProvider& provider() { return _provider.instances(); }

    std::string getOutcome(const std::string& path, const std::string& user = "admin") {
        qrvtest::Recording recording;
        qrvtest::InstanceRecorder handler(recording);
        const std::string outcome = outcomeOf([&] {
            provider().getInstance(requestOf(user), pathOf(path), false, false, {}, handler);
        });
        EXPECT_EQ(recording.events().empty(), !outcome.empty());
        return outcome;
    }

  private:
    qrvtest::ModuleProvider _provider{"QRV_StorageHardwareIDProvider", broker()};
};

TEST_F(StorageHardwareIDTest, enumerationShowsEachInitiatorOnceInTheArraysOrder) {
    const auto expected = answer({ALPHA_FC, ALPHA_ISCSI, BETA_FC, FREE_ISCSI});
    for (const char* name : {"QRV_StorageHardwareID", "cim_storagehardwareid"})
        EXPECT_EQ(sortedLines(enumerateInstances(provider(), name)), sortedLines(expected)) << name;
    EXPECT_EQ(enumerateInstanceNames(provider(), "QRV_StorageHardwareID"),
              answer({pathText("ORVELIS:FC-1000000000A1B201"),
                      pathText("ORVELIS:iSCSI-iqn.2001-04.example:Alpha"),
                      pathText("ORVELIS:FC-0000000000000005"),
                      pathText("ORVELIS:iSCSI-iqn.2001-04.example:free")}));
}

TEST_F(StorageHardwareIDTest, ofTwoRecordsOfOneInitiatorTheFirstCounts) {
    control::addPath("", R"({"wwn": "0000000000000009", "ports": ["1:1:1"]})");
    control::addPath("beta", R"({"iscsiName": "iqn.2001-04.example:beta"})");
    const auto names = enumerateInstanceNames(provider(), "QRV_StorageHardwareID");
    EXPECT_THAT(names, testing::SizeIs(2 + 6)) << "an added initiator is seen at once";
    EXPECT_EQ(std::set<std::string>(names.begin(), names.end()).size(), names.size());
}

TEST_F(StorageHardwareIDTest, getInstanceFindsByWwnAndNameInAnyCase) {
    const struct {
        const char* keys;
        const std::string& instance;
    } cases[] = {
        {"InstanceID=\"ORVELIS:FC-1000000000A1B201\"", ALPHA_FC},
        {"INSTANCEID=\"ORVELIS:FC-1000000000a1b201\"", ALPHA_FC},
        {"InstanceID=\"ORVELIS:iSCSI-iqn.2001-04.example:ALPHA\"", ALPHA_ISCSI},
        {"InstanceID=\"ORVELIS:iSCSI-iqn.2001-04.example:free\"", FREE_ISCSI},
    };
    for (const auto& each : cases)
        EXPECT_EQ(
            sortedLines(getInstance(provider(), std::string("QRV_StorageHardwareID.") + each.keys)),
            sortedLines(answer({each.instance})));
    EXPECT_EQ(
        sortedLines(getInstance(provider(), std::string("CIM_StorageHardwareID.") + cases[0].keys)),
        sortedLines(answer({ALPHA_FC})));
}

TEST_F(StorageHardwareIDTest, whatIsNotThereIsNotFound) {
    const std::string notFound = "6 QRV_StorageHardwareID CIM Object not found.";
    const struct {
        const char* key;
        bool asksTheArray;
    } cases[] = {
        {"InstanceID=\"ORVELIS:FC-1000000000A1B2FF\"", true},
        {"InstanceID=\"ORVELIS:FC-5\"", true},
        {"InstanceID=\"ORVELIS:iSCSI-1000000000A1B201\"", true},
        {"InstanceID=\"ORVELIS:FC-\"", false},
        {"InstanceID=\"ORVELIS:fc-1000000000A1B201\"", false},
        {"InstanceID=\"1000000000A1B201\"", false},
        {"InstanceID=\"\"", false},
        {"Name=\"ORVELIS:FC-1000000000A1B201\"", false},
    };
    control::recordCalls(true);
    for (const auto& each : cases) {
        control::resetCounters();
        EXPECT_EQ(getOutcome(std::string("QRV_StorageHardwareID.") + each.key), notFound)
            << each.key;
        EXPECT_EQ(control::callCount("api_getHostPaths"), each.asksTheArray ? 1U : 0U) << each.key;
    }
    logged();
    getOutcome("QRV_StorageHardwareID.InstanceID=\"nothing\"");
    EXPECT_THAT(logged(), testing::ElementsAre("3 Invalid instanceID nothing\n"));
}

TEST_F(StorageHardwareIDTest, refusalsComeInTheOrderOpenClassKeys) {
    const struct {
        const char* user;
        const char* path;
        const char* outcome;
    } cases[] = {
        {"stranger", "QRV_Other.A=\"x\"", "2 Insufficient privilege for the user"},
        {"nobody", "QRV_StorageHardwareID.InstanceID=\"x\"",
         "2 Insufficient privilege for the user"},
        {"viewer", "QRV_Other.A=\"x\",B=\"y\"",
         "7 QRV_StorageHardwareID Invalid class nameQRV_Other"},
        {"admin", "QRV_StorageHardwareID.A=\"x\",B=\"y\"",
         "4 QRV_StorageHardwareID Expect only one key."},
        {"admin", "QRV_StorageHardwareID", "4 QRV_StorageHardwareID Expect only one key."},
    };
    for (const auto& each : cases) EXPECT_EQ(getOutcome(each.path, each.user), each.outcome);
    EXPECT_THAT(logged(),
                testing::ElementsAre("2 QRV_StorageHardwareIDProvider::getInstance(): Invalid "
                                     "number of keys (2)\n",
                                     "2 QRV_StorageHardwareIDProvider::getInstance(): Invalid "
                                     "number of keys (0)\n"));
    EXPECT_EQ(outcomeOf([&] { enumerateInstances(provider(), "QRV_Other"); }),
              "7 QRV_StorageHardwareID Invalid class nameQRV_Other");
}

TEST_F(StorageHardwareIDTest, thePropertyListLimitsWhatIsBuilt) {
    const std::string path = pathText("ORVELIS:FC-1000000000A1B201");
    const std::string keys = "QRV_StorageHardwareID.InstanceID=\"ORVELIS:FC-1000000000A1B201\"";
    EXPECT_EQ(getInstance(provider(), keys, properties({"IDTYPE", "NoSuch"})),
              answer({path + "\nIDType=2"}));
    EXPECT_EQ(getInstance(provider(), keys, properties({})), answer({path}));
}

TEST_F(StorageHardwareIDTest, aFailedReadIsAnEmptyAnswer) {
    const auto expectEmpty = [&] {
        EXPECT_EQ(enumerateInstances(provider(), "QRV_StorageHardwareID"), answer({}));
        EXPECT_EQ(enumerateInstanceNames(provider(), "QRV_StorageHardwareID"), answer({}));
        EXPECT_EQ(getOutcome("QRV_StorageHardwareID.InstanceID=\"ORVELIS:FC-1000000000A1B201\""),
                  "6 QRV_StorageHardwareID CIM Object not found.");
        EXPECT_THAT(logged(), testing::IsEmpty());
    };
    control::failCall("api_getHostPaths", 1, control::Repeat::always);
    expectEmpty();
    control::clearFaults();
    control::timeOutGate(1, control::Repeat::always);
    expectEmpty();
}

TEST_F(StorageHardwareIDTest, withoutItsTableItShowsNothingAndSaysSo) {
    control::failCall("create_string_hashtable");
    qrvtest::ModuleProvider crippled("QRV_StorageHardwareIDProvider", broker());
    EXPECT_EQ(enumerateInstances(crippled.instances(), "QRV_StorageHardwareID"), answer({}));
    EXPECT_THAT(logged(), testing::ElementsAre("2 <-- QRV_StorageHardwareIDProvider::"
                                               "_buildInstances Invalid stringHashTable.\n"));
}

TEST_F(StorageHardwareIDTest, keysAreReadAndMadeForOtherProviders) {
    const struct {
        const char* instanceID;
        bool fc;
        bool iscsi;
        const char* text;
    } cases[] = {
        {"ORVELIS:FC-0000000000000005", true, false, "0000000000000005"},
        {"ORVELIS:iSCSI-iqn.x", false, true, "iqn.x"},
        {"ORVELIS:FC-", true, false, ""},
        {"ORVELIS:FCX", false, false, ""},
        {"ORVELIS:iscsi-iqn.x", false, false, ""},
        {"", false, false, ""},
    };
    using Provider = QRV_StorageHardwareIDProvider;
    for (const auto& each : cases) {
        const CIMObjectPath path = Provider::buildInstanceName("h", each.instanceID);
        EXPECT_EQ(Provider::isFCStorageHardwareID(path), each.fc) << each.instanceID;
        EXPECT_EQ(Provider::isISCSIStorageHardwareID(path), each.iscsi) << each.instanceID;
        EXPECT_EQ(Provider::extractHostWWNOrISCSIName(path), String(each.text)) << each.instanceID;
    }
    String wwn("AB"), name("iqn.x");
    EXPECT_EQ(Provider::makeFCHardwareIDInstanceID(wwn), String("ORVELIS:FC-AB"));
    EXPECT_EQ(Provider::makeISCSIHardwareIDInstanceID(name), String("ORVELIS:iSCSI-iqn.x"));
}

TEST_F(StorageHardwareIDTest, buildInstanceShowsTheRecordsOfOneHostAsTheyAre) {
    CIMOMHandle handle(&broker());
    CIMClass cimClass = QRV_Common::getStoredCIMClass(
        handle, OperationContext(), CIMNamespaceName("root/qrv"), CIMName("QRV_StorageHardwareID"),
        false, false, false, CIMPropertyList());
    api_HostPath_t paths[3] = {};
    paths[0].type = PORT_TYPE_FC;
    paths[0].host_wwn = 5;
    paths[1].type = PORT_TYPE_SAS;
    paths[2] = paths[0];
    const auto build = [&](const char* host, api_HostPath_t* records, unsigned int count) {
        return QRV_StorageHardwareIDProvider::buildInstance("array7.example", cimClass, host,
                                                            records, count);
    };
    const Array<CIMInstance> instances = build("beta", paths, 3);
    ASSERT_EQ(instances.size(), 2U) << "repeated ones stay, other transports have no hardware ID";
    EXPECT_EQ(sortedLines(qrvtest::textOf(instances[0])), sortedLines(BETA_FC));
    EXPECT_THAT(logged(), testing::IsEmpty());
    for (const auto& none :
         {build(nullptr, paths, 3), build("beta", nullptr, 3), build("b", paths, 0)})
        EXPECT_EQ(none.size(), 0U);
    EXPECT_THAT(logged(), testing::SizeIs(3));
}

}  // namespace

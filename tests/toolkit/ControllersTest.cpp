// Protocol controllers: what a DeviceID tells, and instances made from VLUNs.
#include <QRV_ArrayRecords.h>
#include <QRV_Common.h>

#include <cstring>

#include "ModuleTest.h"

namespace control = qrvapi::control;
using namespace Pegasus;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Texts = std::vector<std::string>;

class ControllersTest : public qrvtest::ModuleTest {
  protected:
    ControllersTest() { control::recordCalls(true); }
    ~ControllersTest() override {
        control::recordCalls(false);
        EXPECT_TRUE(control::outstanding().idle()) << control::describe(control::outstanding());
        EXPECT_THAT(control::violations(), IsEmpty());
    }

    CIMOMHandle _handle{&broker()};
};

TEST_F(ControllersTest, aDeviceIDTellsKindHostAndPort) {
    constexpr Uint32 KEPT = 99;  // what the kind is before a DeviceID says something of it
    const struct {
        const char* deviceID;
        bool isISCSINode;
        Uint32 kind;
        const char* host;
        const char* port;
        unsigned reads;  ///< of hosts or of ports
        const char* failing = "";
    } cases[] = {
        {"MS:0:1:1:0", false, 1, "alpha", "0:1:1", 1},
        {"MS:1:1:1:1", false, 1, "beta", "1:1:1", 1},
        {"MS:0:1:1:0", false, 1, "", "0:1:1", 1, "api_getHosts"},
        {"MS:0:1:1:0", false, 1, "", "0:1:1", 0, "cim_sem_wait"},
        {"MS:0:1:1:0", false, 1, "", "", 0, "api_convertStrLPIDtoPortID"},
        {"MS:0:1:1", false, 1, "", "0:1:1", 0},
        {"MS:0:1:1:", false, 1, "", "0:1:1", 0},
        {"MS:0:1:x:0", false, 1, "", "", 0},
        {"MS:0:1", false, 1, "", "", 0},
        {"MS:", false, 1, "", "", 0},
        {"HS:2", false, 2, "bare", "", 1},
        {"HS:1x", false, 2, "beta", "", 1},
        {"HS:0:1", false, 2, "alpha", "", 1},
        {"HS:99", false, 2, "", "", 1},
        {"HS:x0", false, 2, "", "", 0},
        {"HS:4294967297", false, 2, "", "", 0},
        {"HSet:1", false, 3, "beta", "", 1},
        {"PP:0:2:1", false, 4, "", "0:2:1", 0},
        {"PP:0:2:1:1", false, 4, "", "0:2:1", 0},
        {"PP:", false, 4, "", "", 0},
        {"hs:0", false, 0, "", "", 0},
        {"XX:0:1:1:0", false, 0, "", "", 0},
        {":0", false, 0, "", "", 0},
        {"HS", false, KEPT, "", "", 0},
        {"", false, KEPT, "", "", 0},
        {"0:2:1", true, 4, "", "0:2:1", 1},
        {"0:2:1", true, 4, "", "", 1, "api_getISCSIPorts"},
        {"0:2:1", true, 4, "", "", 0, "cim_sem_wait"},
        {"0:1:1", true, 4, "", "", 1},
        {"PP:0:2:1", true, 4, "", "", 1},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.deviceID + std::string(" ") + each.failing);
        lpid_t expected = QRV_NO_PORT, port = 7;
        api_convertStrLPIDtoPortID(each.port, &expected);
        String deviceID(each.deviceID), host("before");
        Uint32 kind = KEPT;
        control::resetCounters();
        if (each.failing[0] != '\0') control::failCall(each.failing);
        QRV_Common::deReferenceSPCDeviceID(deviceID, kind, host, port, each.isISCSINode);
        control::clearFaults();
        EXPECT_EQ(kind, each.kind);
        EXPECT_EQ(host, String(each.host));
        EXPECT_EQ(port, expected);
        EXPECT_EQ(control::callCount(each.isISCSINode ? "api_getISCSIPorts" : "api_getHosts"),
                  each.reads);
    }
}

TEST_F(ControllersTest, anInstanceTellsTheExportRoute) {
    const struct {
        const char* className;
        unsigned kind;
        bool isTemplate;
        const char* name;
    } cases[] = {
        {"QRV_SCSIController", 1, false, "Name=HOSTWWN;NameFormat=2"},
        {"QRV_SCSIController", 2, true, "Name=HOSTWWN;NameFormat=2"},
        {"QRV_SCSIController", 4, false, "Name=PORTWWN;NameFormat=2"},
        {"QRV_iSCSIController", 3, false, "Name=iqn.host;NameFormat=3"},
        {"QRV_iSCSIController", 4, true, "Name=iqn.port;NameFormat=3"},
        {"CIM_SCSIProtocolController", 4, false, "Name=;NameFormat=0"},
    };
    api_vlun_t vlun{};
    std::strcpy(vlun.deviceID, "MS:0:1:1:0");
    std::strcpy(vlun.hostname, "alpha");
    std::strcpy(vlun.hostwwn, "HOSTWWN");
    std::strcpy(vlun.portwwn, "PORTWWN");
    std::strcpy(vlun.hostiscsiname, "iqn.host");
    std::strcpy(vlun.portiscsiname, "iqn.port");
    for (const auto& each : cases) {
        SCOPED_TRACE(std::string(each.className) + std::to_string(each.kind));
        const std::string name(each.className);
        vlun.accessPriority = each.kind;
        vlun.isTemplate = each.isTemplate ? 1 : 0;
        const CIMInstance instance = QRV_Common::buildSPCInstance(
            "TheSystem",
            QRV_Common::getStoredCIMClass(_handle, OperationContext(), "root/qrv", each.className,
                                          false, false, false, CIMPropertyList()),
            &vlun, "array7", "array7.example");
        std::string properties;
        for (const char* const property :
             {"SystemCreationClassName", "SystemName", "CreationClassName", "DeviceID",
              "ElementName", "Name", "NameFormat", "OtherNameFormat", "OperationalStatus",
              "StatusDescriptions", "HealthState"})
            properties +=
                property + std::string("=") +
                static_cast<const char*>(
                    QRV_Common::getPropertyValue(instance, property).toString().getCString()) +
                ";";
        EXPECT_EQ(properties,
                  "SystemCreationClassName=TheSystem;SystemName=array7;CreationClassName=" + name +
                      ";DeviceID=MS:0:1:1:0;ElementName=alpha;" + each.name +
                      ";OtherNameFormat=Name (and DeviceID) is constructed in the following format:"
                      "\n MS:<port LPID>:<host id>  for matched set vlun"
                      "\n HS:<host id>  for host see vlun"
                      "\n PP:<port LPID>  for port present vlun;OperationalStatus=" +
                      (each.isTemplate ? "15 ;StatusDescriptions=Dormant ;"
                                       : "2 ;StatusDescriptions=OK ;") +
                      "HealthState=5;");
        EXPECT_EQ(qrvtest::textOf(instance.getPath()),
                  "//array7.example/root/qrv:" + name + ".CreationClassName=\"" + name +
                      "\",DeviceID=\"MS:0:1:1:0\",SystemCreationClassName=\"TheSystem\","
                      "SystemName=\"array7\"");
    }
}

/// Controllers read in chunks, on both transports and as templates.
class ControllerReadTest : public ControllersTest {
  protected:
    static constexpr const char* READ = "api_getSCSIProtocolControllers_chunk";

    ControllerReadTest() {
        control::addVolume(R"({"name": "v", "wwn": "60000000000000000000000000000001"})");
        for (const char* const vlun : {R"("kind": "matchedSet", "host": "alpha", "port": "0:1:1")",
                                       R"("kind": "matchedSet", "host": "alpha", "port": "0:2:1")",
                                       R"("kind": "hostSees", "host": "alpha")",
                                       R"("kind": "portPresents", "port": "0:2:1")",
                                       R"("kind": "hostSees", "host": "beta", "template": true)"})
            control::addVlun(std::string(R"({"volume": "v", "lun": 1, )") + vlun + "}");
        begin();
    }

    void begin() {
        _walk = VlunWalkData();
        ASSERT_EQ(api_initSPCParamData(_walk.receive()), 0);
        _cursor = 0;
        _found.clear();
        control::resetCounters();
    }

    /// Reads a chunk; the controllers' DeviceIDs, behind those of the chunks before. A key without
    /// a class asks for all.
    Texts read(const char* className, const std::string& key = "", Uint32 size = 200) {
        String systemName("array7"), host("array7.example");
        const CIMObjectPath reference =
            key.empty() ? CIMObjectPath() : qrvtest::pathOf(className + key);
        QRV_Common::buildSPCInstances(_handle, OperationContext(), reference, systemName, host,
                                      className, false, false, CIMPropertyList(), 1, _found,
                                      _walk.change(), &_cursor, size);
        Texts ids;
        for (Uint32 i = 0; i < _found.size(); ++i)
            ids.emplace_back(static_cast<const char*>(
                QRV_Common::getStringProperty(_found[i], "DeviceID").getCString()));
        return ids;
    }

    VlunWalkData _walk;
    Uint32 _cursor = 0;
    Array<CIMInstance> _found;
};

TEST_F(ControllerReadTest, aClassHasTheControllersOfItsTransport) {
    const struct {
        const char* className;
        const char* key;
        Texts found;
        Texts reads;  ///< host, kind and port asked for
    } cases[] = {
        {"QRV_SCSIController", "", {"MS:0:1:1:0", "HS:0", "HS:1"}, {"  "}},
        {"QRV_iSCSIController", "", {"MS:0:2:1:0", "PP:0:2:1"}, {"  "}},
        {"CIM_SCSIProtocolController", "", {}, {}},
        {"QRV_SCSIController", ".DeviceID=\"MS:0:1:1:0\"", {"MS:0:1:1:0"}, {"alpha 1 0:1:1"}},
        {"qrv_scsicontroller", ".DeviceID=\"HS:1\"", {"HS:1"}, {"beta 2 "}},
        {"QRV_iSCSIController", ".DeviceID=\"PP:0:2:1\"", {"PP:0:2:1"}, {" 4 0:2:1"}},
        {"QRV_iSCSIController", ".DeviceID=\"pp:0:2:1\"", {"PP:0:2:1"}, {"  "}},
        {"QRV_SCSIController", ".DeviceID=\"MS:0:2:1:0\"", {}, {"alpha 1 0:2:1"}},
        {"QRV_SCSIController", ".DeviceID=\"HS:0 \"", {}, {"alpha 2 "}},
        {"QRV_SCSIController", ".Name=\"HS:0\"", {}, {}},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(std::string(each.className) + each.key);
        begin();
        EXPECT_EQ(read(each.className, each.key), each.found);
        Texts reads;
        for (const control::CallRecord& call : control::calls())
            if (call.function == READ)
                reads.push_back(call.argument("hostname") + " " + call.argument("vluntype") + " " +
                                call.argument("port"));
        EXPECT_EQ(reads, each.reads);
        EXPECT_NE(_walk->hostHashTable, nullptr) << "the walk goes on";
    }
    begin();
    EXPECT_THAT(read("QRV_SCSIController", "", 2), ElementsAre("MS:0:1:1:0"));
    EXPECT_THAT(read("QRV_SCSIController", "", 2), ElementsAre("MS:0:1:1:0", "HS:0"));
    EXPECT_THAT(read("QRV_SCSIController", "", 2), ElementsAre("MS:0:1:1:0", "HS:0", "HS:1"));
    EXPECT_EQ(_cursor, 0U);
}

TEST_F(ControllerReadTest, aChunkThatFailsEndsTheWalk) {
    const char* const failed =
        "2 QRV_Common::buildSPCInstances ()  api_getSCSIProtocolControllers_chunk failed, status = "
        "7\n";
    const char* const thrown =
        "2 <--QRV_Common::buildSPCInstances: exception thrown while building instances, # of "
        "instances assembled so far = 1\n";
    const struct {
        bool first;
        Uint32 size;
        const char* outcome;
        bool isOut;  ///< whether the walk is still its owner's
        Texts lines;
    } cases[] = {
        {true, 200, "", false, {failed}},
        {true, 0, "", true, {failed}},
        {false, 200, "4 Failed to retrieve SPC data.", false, {failed, thrown}},
        {false, 0, "", true, {failed}},
    };
    for (const auto& each : cases) {
        for (const char* const function : {READ, "cim_sem_wait"}) {
            SCOPED_TRACE(function + std::to_string(each.first) + std::to_string(each.size));
            begin();
            if (!each.first) read("QRV_SCSIController", "", 2);
            control::failCall(function, 1, control::Repeat::once, 7);
            EXPECT_EQ(qrvtest::outcomeOf([&] { read("QRV_SCSIController", "", each.size); }),
                      each.outcome);
            EXPECT_EQ(_found.size(), each.first ? 0U : 1U);
            EXPECT_EQ(_walk->hostHashTable != nullptr, each.isOut);
            EXPECT_EQ(logged(), each.lines);
        }
    }
}

TEST_F(ControllersTest, aRemoteCopyTargetNamesItsSystem) {
    api_rcopy_target_t targets[] = {{{"west"}, "array8"}, {{"east"}, "array9"}, {{"east"}, "last"}};
    const api_rcopy_t rcopy{3, targets};
    EXPECT_EQ(QRV_Common::RCTargetToSysname(rcopy, "east"), String("array9"));
    EXPECT_EQ(QRV_Common::RCTargetToSysname(rcopy, "East"), String());
}

}  // namespace

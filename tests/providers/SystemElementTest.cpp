// The sibling providers of the system itself, as clients and other providers reach them.
#include "ModuleTest.h"

using namespace Pegasus;
using qrvtest::outcomeOf;
using qrvtest::pathOf;
using qrvtest::requestOf;

namespace {

class SystemElementTest : public qrvtest::ModuleTest {
  protected:
    std::string get(const std::string& path, const std::string& user = "admin") {
        std::string text;
        const std::string outcome = outcomeOf([&] {
            text = qrvtest::textOf(broker().getInstance(
                requestOf(user), CIMNamespaceName("root/qrv"), pathOf(path), {}));
        });
        return outcome.empty() ? text : outcome;
    }

    std::vector<std::string> names(const char* className) {
        std::vector<std::string> found;
        broker().enumerateInstanceNames(
            requestOf("viewer"), CIMNamespaceName("root/qrv"), CIMName(className),
            [&](const CIMObjectPath& path) { found.push_back(qrvtest::textOf(path)); });
        return found;
    }
};

TEST_F(SystemElementTest, eachClassHasItsOneInstance) {
    const struct {
        const char* className;
        const char* keys;
        const char* property;
    } cases[] = {
        {"QRV_StorageSystem", "CreationClassName=\"QRV_StorageSystem\",Name=\"array7\"",
         "\nElementName=S100 array7"},
        {"QRV_SystemPackage", "CreationClassName=\"QRV_SystemPackage\",Tag=\"SN00042\"",
         "\nSerialNumber=SN00042"},
        {"QRV_StorageSystemView", "InstanceID=\"ORVELIS:array7\"", "\nSystemName=array7"},
    };
    for (const auto& each : cases) {
        const std::string path = std::string(each.className) + "." + each.keys;
        const std::string full = "//array7.example/root/qrv:" + path;
        EXPECT_THAT(names(each.className), testing::ElementsAre(full));
        EXPECT_THAT(get(path),
                    testing::AllOf(testing::StartsWith(full), testing::HasSubstr(each.property)));
    }
}

TEST_F(SystemElementTest, otherKeysAndUsersAreRefused) {
    EXPECT_EQ(get("QRV_StorageSystem.CreationClassName=\"QRV_StorageSystem\",Name=\"other\""),
              "6 QRV_StorageSystem CIM Object not found.");
    EXPECT_EQ(get("QRV_StorageSystem.Name=\"array7\""), "4 QRV_StorageSystem Expect two keys.");
    EXPECT_EQ(get("QRV_StorageSystemView.InstanceID=\"ORVELIS:array7\"", "stranger"),
              "2 Insufficient privilege for the user");
}

TEST_F(SystemElementTest, aControllerIsShownByTheTransportOfItsVlun) {
    exportVolumes();
    const auto controller = [](const std::string& className, const std::string& deviceID) {
        return "QRV_" + className + ".CreationClassName=\"QRV_" + className + "\",DeviceID=\"" +
               deviceID + "\",SystemCreationClassName=\"QRV_StorageSystem\",SystemName=\"array7\"";
    };
    const std::string full = "//array7.example/root/qrv:";
    std::vector<std::string> fc, iscsi;
    for (const char* each : {"MS:0:1:1:0", "HS:0", "PP:0:1:1", "HS:1", "MS:1:1:1:0"})
        fc.push_back(full + controller("SCSIController", each));
    for (const char* each : {"MS:0:2:1:0", "HS:1", "PP:0:2:1"})
        iscsi.push_back(full + controller("iSCSIController", each));
    EXPECT_THAT(names("QRV_SCSIController"), testing::ElementsAreArray(fc));
    EXPECT_THAT(names("QRV_iSCSIController"), testing::ElementsAreArray(iscsi));
    EXPECT_THAT(get(controller("SCSIController", "hs:1")), testing::HasSubstr("\nDeviceID=HS:1\n"));
    std::string elsewhere = controller("SCSIController", "HS:1");
    elsewhere.replace(elsewhere.find("array7"), 6, "array8");
    for (const std::string& path : {controller("SCSIController", "PP:0:2:1"), elsewhere})
        EXPECT_EQ(get(path), "6 QRV_SCSIController CIM Object not found.") << path;
    EXPECT_EQ(get("QRV_iSCSIController.DeviceID=\"HS:1\""),
              "4 QRV_iSCSIController Expect four keys.");

    qrvapi::control::generateArray({300, 1, 0, 0, 1, 0});  // more controllers than one chunk has
    qrvapi::control::recordCalls(true);
    EXPECT_EQ(get(controller("SCSIController", "HS:999")),
              "6 QRV_SCSIController CIM Object not found.");
    EXPECT_EQ(qrvapi::control::callCount("api_getSCSIProtocolControllers_chunk"), 1U);
}

TEST_F(SystemElementTest, theInternalCacheAnswersForItsOneObjectOnly) {
    const auto ask = [&](const char* object, const char* method) {
        return outcomeOf([&] {
            Array<CIMParamValue> out;
            broker().invokeMethod(OperationContext(), CIMNamespaceName("root/PG_Internal"),
                                  CIMObjectPath(object), CIMName(method), {}, out);
            ASSERT_EQ(out.size(), 1U);
        });
    };
    const char* const cache = "QRV_InternalCache.InstanceID=\"localhost-InternalCache\"";
    EXPECT_EQ(ask(cache, "getsystemname"), "");
    EXPECT_EQ(ask(cache, "GetWeather"), "17 GetWeather");
    EXPECT_THAT(ask("QRV_InternalCache.InstanceID=\"x\"", "GetSystemName"),
                testing::StartsWith("6 "));
}

}  // namespace

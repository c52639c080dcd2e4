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

// The module's entry and what every provider refuses.
#include "ModuleTest.h"

using namespace Pegasus;
using qrvtest::createFromModule;
using qrvtest::outcomeOf;
using qrvtest::pathOf;
using qrvtest::requestOf;

namespace {

/// Each provider of the module, the word its messages begin with, and whether it refuses all
/// changes.
const struct {
    const char* provider;
    const char* className;
    bool isReadOnly;
} PROVIDERS[] = {
    {"QRV_StorageHardwareIDProvider", "QRV_StorageHardwareID", true},
    {"QRV_StorageHardwareIDCollectionProvider", "QRV_StorageHardwareIDCollection", false},
    {"QRV_MemberOfStorageHardwareIDCollectionProvider",
     "QRV_MemberOfStorageHardwareIDCollectionProvider", true},
    {"QRV_HostedStorageHardwareIDCollectionProvider", "QRV_HostedStorageHardwareIDCollection",
     true},
    {"QRV_MgmtServicesForStorageHWIDCollectionProvider", "QRV_MgmtServicesForStorageHWIDCollection",
     true},
    {"QRV_AuthorizedPrivilegeProvider", "QRV_AuthorizedPrivilege", true},
    {"QRV_PrivilegeForStorageHardwareIDProvider", "QRV_PrivilegeForStorageHardwareIDProvider",
     true},
    {"QRV_PrivilegeForSCSIControllerProvider", "QRV_PrivilegeForSCSIControllerProvider", true},
    {"QRV_StorageHardwareIDManagementServiceProvider", "QRV_StorageHardwareIDManagementService",
     true},
    {"QRV_PrivilegeMgmtServiceProvider", "QRV_PrivilegeMgmtServiceProvider", true},
    {"QRV_MgmtServiceForAuthorizedPrivilege", "QRV_MgmtServiceForAuthorizedPrivilege", true},
    {"QRV_PrivilegeForiSCSIControllerProvider", "QRV_PrivilegeForiSCSIControllerProvider", true},
    {"QRV_StorageClientSettingDataProvider", "QRV_StorageClientSettingDataProvider", true},
    {"QRV_SystemClientSettingDataProvider", "QRV_SystemClientSettingData", true},
    {"QRV_HardwareIDElementSettingDataProvider", "QRV_HardwareIDElementSettingDataProvider", true},
    {"QRV_HWIDCollectionElementSettingDataProvider", "QRV_HWIDCollectionElementSettingDataProvider",
     true},
    {"QRV_PrivilegeForStorageHardwareIDCollectionProvider",
     "QRV_PrivilegeForStorageHardwareIDCollectionProvider", true},
    {"QRV_StorageDomainGroup", "QRV_StorageDomainGroup", true},
    {"QRV_HostedStorageDomainGroup", "QRV_HostedStorageDomainGroup", true},
    {"QRV_SPCAssociatedPrivilegeProvider", "QRV_SPCAssociatedPrivilegeProvider", true},
    {"QRV_iSPCAssociatedPrivilegeProvider", "QRV_iSPCAssociatedPrivilegeProvider", true},
};

std::string inOtherCase(std::string name) {
    for (char& c : name) c = std::isupper(c) ? char(std::tolower(c)) : char(std::toupper(c));
    return name;
}

class FactoryTest : public qrvtest::ModuleTest {};

TEST_F(FactoryTest, createsEachProviderByNameInAnyCase) {
    for (const auto& each : PROVIDERS)
        for (const std::string& name : {std::string(each.provider), inOtherCase(each.provider)}) {
            CIMProvider* const provider = createFromModule(name);
            ASSERT_NE(provider, nullptr) << name;
            provider->terminate();
        }
    EXPECT_THAT(logged(), testing::IsEmpty());
}

TEST_F(FactoryTest, refusesOtherNames) {
    for (const std::string name : {"QRV_StorageHardwareID", "", "QRV_StorageHardwareIDProvider "}) {
        EXPECT_EQ(createFromModule(name), nullptr) << name;
        EXPECT_THAT(logged(),
                    testing::ElementsAre(
                        "2 <--QRV_HostProviderMain(): invalid provider name = " + name + "\n"));
    }
}

TEST_F(FactoryTest, refusalsNeedNoRightsAndTouchNothing) {
    for (const auto& each : PROVIDERS) {
        qrvtest::ModuleProvider provider(each.provider, broker());
        qrvtest::Recording recording;
        qrvtest::InstanceRecorder response(recording);
        qrvtest::PathRecorder paths(recording);
        const OperationContext nobody = requestOf("nobody");
        const CIMObjectPath path = pathOf("QRV_Any.InstanceID=\"x\"");
        const CIMInstance instance(CIMName("QRV_Any"));
        qrvapi::control::resetCounters();
        qrvapi::control::recordCalls(true);
        const auto text = [&](const char* operation) {
            return std::string("7 ") + each.className + " does not support " + operation + ".";
        };
        EXPECT_EQ(
            outcomeOf([&] { provider.instances().createInstance(nobody, path, instance, paths); }),
            text("createInstance"));
        if (!each.isReadOnly) continue;
        EXPECT_EQ(outcomeOf([&] {
                      provider.instances().modifyInstance(nobody, path, instance, false, {},
                                                          response);
                  }),
                  text("modifyInstance"));
        EXPECT_EQ(outcomeOf([&] { provider.instances().deleteInstance(nobody, path, response); }),
                  text("deleteInstance"));
        EXPECT_THAT(recording.events(), testing::IsEmpty());
        EXPECT_THAT(qrvapi::control::calls(), testing::IsEmpty());
        EXPECT_THAT(logged(), testing::IsEmpty());
    }
}

TEST_F(FactoryTest, aProviderDoesNotComeUpWithoutTheSystemsHostName) {
    for (const auto& each : PROVIDERS) {
        qrvapi::control::failCall("api_getSystemFacts", 1, qrvapi::control::Repeat::always);
        EXPECT_THAT(outcomeOf([&] { qrvtest::ModuleProvider(each.provider, broker()); }),
                    testing::StartsWith("1 "));
        qrvapi::control::clearFaults();
        EXPECT_EQ(outcomeOf([&] { qrvtest::ModuleProvider(each.provider, broker()); }), "");
    }
}

}  // namespace

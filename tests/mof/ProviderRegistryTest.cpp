#include "Support.h"

#include "broker/ProviderRegistry.h"

#include <set>
#include <tuple>
#include <utility>

using namespace Pegasus;

namespace cimserver::test {
namespace {

using Kind = ProviderRegistry::Kind;

const CIMNamespaceName Interop("root/PG_InterOp");

/// MOF of a registration; a case changes one value of an otherwise good one.
struct Registration {
    std::string interfaceType = "\"C++Default\"";
    std::string interfaceVersion = "\"2.5.0\"";
    std::string location = "\"Lib\"";
    std::string moduleOfProvider = "\"M\"";
    std::string providerOfCapabilities = "\"P\"";
    std::string className = "\"A\"";
    std::string namespaces = "{ \"root/test\", \"Root/More\" }";
    std::string types = "{ 2, 5 }";
    std::string methods = "NULL";

    std::string text() const {
        return "instance of PG_ProviderModule { Name = \"M\"; Vendor = \"v\"; Version = \"1\";"
               " InterfaceType = " +
               interfaceType + "; InterfaceVersion = " + interfaceVersion +
               "; Location = " + location +
               "; };"
               "instance of PG_Provider { ProviderModuleName = " +
               moduleOfProvider +
               "; Name = \"P\"; };"
               "instance of PG_ProviderCapabilities { ProviderModuleName = \"M\"; ProviderName = " +
               providerOfCapabilities + "; CapabilityID = \"1\"; ClassName = " + className +
               "; Namespaces = " + namespaces + "; ProviderType = " + types +
               "; SupportedMethods = " + methods + "; };";
    }
};

class RegistryTest : public RepositoryTest {
  protected:
    RegistryTest() { prepare(repository); }

    static void prepare(ClassRepository& target) {
        MofReader(target).readFile(QRV_INTEROP_MOF, Interop);
        for (const char* space : {"root/test", "root/more"})
            MofReader(target).readText("class A {}; class B : A {};", "t.mof", space);
    }
    ProviderRegistry registered(const std::string& text) {
        MofReader(repository).readText(text, "r.mof", Interop);
        return {repository, Interop};
    }
    static std::string errorOfRegistration(const Registration& registration) {
        ClassRepository fresh;
        prepare(fresh);
        MofReader(fresh).readText(registration.text(), "r.mof", Interop);
        return errorOf([&] { ProviderRegistry(fresh, Interop); });
    }
    static std::string shown(const std::optional<ProviderId>& id) {
        return id ? id->module + " " + id->location + " " + id->provider : "none";
    }
};

TEST_F(RegistryTest, FindsProvidersByExactClass) {
    const ProviderRegistry registry = registered(Registration{}.text());
    EXPECT_EQ(shown(registry.find(Kind::Instance, "ROOT/test", "a")), "M Lib P");
    EXPECT_EQ(shown(registry.find(Kind::Instance, "root/more", "A")), "M Lib P");
    EXPECT_EQ(shown(registry.find(Kind::Association, Root, "A")), "none");
    EXPECT_EQ(shown(registry.find(Kind::Instance, Root, "B")), "none");
    EXPECT_EQ(shown(registry.find(Kind::Instance, "root/else", "A")), "none");
    EXPECT_EQ(shown(registry.methodProvider(Root, "A", "any")), "M Lib P");
}

TEST_F(RegistryTest, LetsTheFirstRegistrationOfAClassWin) {
    Registration first;
    first.methods = "{ \"Go\" }";
    const std::string second =
        "instance of PG_Provider { ProviderModuleName = \"M\"; Name = \"Q\"; };"
        "instance of PG_ProviderCapabilities { ProviderModuleName = \"M\"; ProviderName = \"Q\";"
        " CapabilityID = \"1\"; ClassName = \"A\"; Namespaces = { \"root/test\" };"
        " ProviderType = { 2, 5 }; SupportedMethods = { \"Stop\" }; };";
    const ProviderRegistry registry = registered(first.text() + second);
    EXPECT_EQ(shown(registry.find(Kind::Instance, Root, "A")), "M Lib P");
    EXPECT_EQ(shown(registry.methodProvider(Root, "A", "go")), "M Lib P");
    EXPECT_EQ(shown(registry.methodProvider(Root, "A", "STOP")), "M Lib Q");
    EXPECT_EQ(shown(registry.methodProvider(Root, "A", "Run")), "none");
}

TEST_F(RegistryTest, NamesTheFaultyInstance) {
    const std::string module = "1 PG_ProviderModule.Name=\"M\": ";
    const std::string capabilities =
        "1 PG_ProviderCapabilities.CapabilityID=\"1\",ProviderModuleName=\"M\",ProviderName=";
    const std::vector<std::tuple<std::string Registration::*, std::string, std::string>> cases = {
        {&Registration::interfaceType, "\"CMPI\"",
         module + "InterfaceType \"CMPI\" is not supported"},
        {&Registration::interfaceVersion, "\"2.4.0\"",
         module + "InterfaceVersion \"2.4.0\" is not supported"},
        {&Registration::location, "NULL", module + "Location has no value"},
        {&Registration::location, "\"\"", module + "Location is empty"},
        {&Registration::moduleOfProvider, "\"N\"",
         "1 PG_Provider.Name=\"P\",ProviderModuleName=\"N\": its module is not registered"},
        {&Registration::providerOfCapabilities, "\"Q\"",
         capabilities + "\"Q\": its provider is not registered"},
        {&Registration::className, "\"C\"",
         capabilities + "\"P\": class C does not exist in namespace root/test"},
        {&Registration::className, "\"1\"",
         capabilities + "\"P\": ClassName \"1\" is not a legal name"},
        {&Registration::namespaces, "{ \"root/x\" }",
         capabilities + "\"P\": namespace root/x does not exist"},
        {&Registration::namespaces, "{ \"root/\" }",
         capabilities + "\"P\": namespace \"root/\" is not a legal name"},
        {&Registration::namespaces, "{}", capabilities + "\"P\": Namespaces is empty"},
        {&Registration::types, "{}", capabilities + "\"P\": ProviderType is empty"},
        {&Registration::types, "{ 2, 4 }", capabilities + "\"P\": ProviderType 4 is not supported"},
        {&Registration::methods, "{ \"a b\" }",
         capabilities + "\"P\": SupportedMethods \"a b\" is not a legal name"}};
    for (const auto& [field, value, error] : cases) {
        Registration registration;
        registration.*field = value;
        EXPECT_EQ(errorOfRegistration(registration), error);
    }
}

TEST_F(RegistryTest, AcceptsTheShippedRegistration) {
    const std::string schema = QRV_SCHEMA_DIR;
    MofReader(repository).readFile(schema + "/root_qrv.mof", "root/qrv");
    MofReader(repository).readFile(schema + "/root_PG_Internal.mof", "root/PG_Internal");
    MofReader(repository).readFile(schema + "/registration.mof", Interop);
    const ProviderRegistry registry(repository, Interop);
    EXPECT_EQ(shown(registry.find(Kind::Instance, "root/qrv", "QRV_StorageHardwareID")),
              "QRV_HostProviderModule QRV_HostProvider QRV_StorageHardwareIDProvider");
    EXPECT_EQ(
        shown(registry.methodProvider("root/PG_Internal", "QRV_InternalCache", "GetSystemID")),
        "QRV_StorageVolumeProviderModule QRV_StorageVolumeProvider QRV_InternalCacheProvider");
    for (const char* name : {"QRV_StorageSystem", "QRV_SystemPackage", "QRV_StorageSystemView"})
        EXPECT_NE(shown(registry.find(Kind::Instance, "root/qrv", name)), "none") << name;
}

class ShippedSchemaTest : public RepositoryTest {
  protected:
    ShippedSchemaTest() {
        MofReader(repository).readFile(std::string(QRV_SCHEMA_DIR) + "/root_qrv.mof", Root);
    }

    /// "Parent: Key Key"
    std::string descentOf(const char* name) const {
        const CIMConstClass found = repository.resolvedClass(Root, name);
        Array<CIMName> keys;
        found.getKeyNames(keys);
        std::vector<CIMName> names;
        for (Uint32 i = 0; i < keys.size(); ++i) names.push_back(keys[i]);
        return utf8(found.getSuperClassName().getString()) + ": " + joined(names);
    }

    /// Those of this system, without the "QRV_" that all begin with.
    std::set<std::string> associationsFrom(const char* source) const {
        std::set<std::string> found;
        for (const CIMName& name : repository.associationsOf(Root, source, CIMName())) {
            const std::string text = utf8(name.getString());
            if (text.rfind("QRV_", 0) == 0) found.insert(text.substr(4));
        }
        return found;
    }
};

TEST_F(ShippedSchemaTest, HasTheParentsAndKeysThatProvidersUse) {
    const std::string device = ": SystemCreationClassName SystemName CreationClassName DeviceID";
    const std::string service = ": SystemCreationClassName SystemName CreationClassName Name";
    const std::vector<std::pair<const char*, std::string>> cases = {
        {"QRV_StorageSystem", "CIM_ComputerSystem: CreationClassName Name"},
        {"QRV_SystemPackage", "CIM_PhysicalPackage: Tag CreationClassName"},
        {"QRV_StorageSystemView", "CIM_View: InstanceID"},
        {"QRV_StorageHardwareID", "CIM_StorageHardwareID: InstanceID"},
        {"QRV_StorageHardwareIDCollection", "CIM_SystemSpecificCollection: InstanceID"},
        {"QRV_StorageHardwareIDManagementService",
         "CIM_StorageHardwareIDManagementService" + service},
        {"QRV_AuthorizedPrivilege", "CIM_AuthorizedPrivilege: InstanceID"},
        {"QRV_PrivilegeManagementService", "CIM_PrivilegeManagementService" + service},
        {"QRV_StorageClientSettingData", "CIM_StorageClientSettingData: InstanceID"},
        {"QRV_StorageDomainGroup", "CIM_SystemSpecificCollection: InstanceID"},
        {"QRV_SCSIController", "CIM_SCSIProtocolController" + device},
        {"QRV_iSCSIController", "CIM_SCSIProtocolController" + device},
        {"QRV_MemberOfStorageHardwareIDCollection", "CIM_MemberOfCollection: Collection Member"},
        {"QRV_HostedStorageHardwareIDCollection", "CIM_HostedCollection: Antecedent Dependent"},
        {"QRV_MgmtServicesForStorageHWIDCollection",
         "CIM_ConcreteDependency: Antecedent Dependent"},
        {"QRV_PrivilegeForStorageHardwareID", "CIM_AuthorizedSubject: Privilege PrivilegedElement"},
        {"QRV_PrivilegeForStorageHardwareIDCollection",
         "CIM_AuthorizedSubject: Privilege PrivilegedElement"},
        {"QRV_PrivilegeForSCSIController", "CIM_AuthorizedTarget: Privilege TargetElement"},
        {"QRV_PrivilegeForiSCSIController", "CIM_AuthorizedTarget: Privilege TargetElement"},
        {"QRV_SPCAssociatedPrivilege", "CIM_AssociatedPrivilege: UseKey Subject Target"},
        {"QRV_iSPCAssociatedPrivilege", "CIM_AssociatedPrivilege: UseKey Subject Target"},
        {"QRV_ManagementServiceForAuthorizedPrivilege",
         "CIM_ConcreteDependency: Antecedent Dependent"},
        {"QRV_HardwareIDElementSettingData", "CIM_ElementSettingData: ManagedElement SettingData"},
        {"QRV_HWIDCollectionElementSettingData",
         "CIM_ElementSettingData: ManagedElement SettingData"},
        {"QRV_SystemClientSettingData", "CIM_ElementSettingData: ManagedElement SettingData"},
        {"QRV_HostedStorageDomainGroup", "CIM_HostedCollection: Antecedent Dependent"}};
    for (const auto& [name, descent] : cases) EXPECT_EQ(descentOf(name), descent) << name;
}

TEST_F(ShippedSchemaTest, RoutesEachObjectToTheAssociationsItTakesPartIn) {
    const std::string everywhere = "MgmtServicesForStorageHWIDCollection";
    const std::vector<std::pair<const char*, std::set<std::string>>> cases = {
        {"QRV_StorageSystem",
         {"HostedStorageHardwareIDCollection", "SystemClientSettingData",
          "HostedStorageDomainGroup"}},
        {"QRV_StorageHardwareID",
         {"MemberOfStorageHardwareIDCollection", "HardwareIDElementSettingData",
          "PrivilegeForStorageHardwareID", "SPCAssociatedPrivilege", "iSPCAssociatedPrivilege"}},
        {"QRV_StorageHardwareIDCollection",
         {"MemberOfStorageHardwareIDCollection", "HostedStorageHardwareIDCollection",
          "HWIDCollectionElementSettingData", "PrivilegeForStorageHardwareIDCollection"}},
        {"QRV_StorageHardwareIDManagementService", {}},
        {"QRV_AuthorizedPrivilege",
         {"PrivilegeForStorageHardwareID", "PrivilegeForStorageHardwareIDCollection",
          "PrivilegeForSCSIController", "PrivilegeForiSCSIController",
          "ManagementServiceForAuthorizedPrivilege"}},
        {"QRV_PrivilegeManagementService", {"ManagementServiceForAuthorizedPrivilege"}},
        {"QRV_SCSIController", {"PrivilegeForSCSIController", "SPCAssociatedPrivilege"}},
        {"QRV_iSCSIController", {"PrivilegeForiSCSIController", "iSPCAssociatedPrivilege"}},
        {"QRV_StorageClientSettingData",
         {"HardwareIDElementSettingData", "HWIDCollectionElementSettingData",
          "SystemClientSettingData"}},
        {"QRV_StorageDomainGroup", {"HostedStorageDomainGroup"}}};
    for (const auto& [source, own] : cases) {
        std::set<std::string> expected = own;
        expected.insert(everywhere);
        EXPECT_EQ(associationsFrom(source), expected) << source;
    }
}

TEST_F(ShippedSchemaTest, HasThePropertyTypesOfAHardwareID) {
    const CIMConstClass hardwareId = repository.resolvedClass(Root, "QRV_StorageHardwareID");
    std::string types;
    for (Uint32 i = 0; i < hardwareId.getPropertyCount(); ++i) {
        const CIMConstProperty property = hardwareId.getProperty(i);
        types +=
            utf8(property.getName().getString()) + " " + cimTypeToString(property.getType()) + "; ";
    }
    EXPECT_EQ(types,
              "Caption string; Description string; ElementName string; InstanceID string; "
              "CurrentlyAuthenticated boolean; StorageID string; IDType uint16; "
              "OtherIDType string; IPAddress string; ");
}

}  // namespace
}  // namespace cimserver::test

// Every association provider, by one table a class: what a request from an object gives.
#include <map>

#include "MethodCalls.h"
#include "ModuleTest.h"

namespace control = qrvapi::control;
using namespace Pegasus;
using qrvtest::outcomeOf;
using qrvtest::pathOf;
using qrvtest::PRIVILEGE_SERVICE;
using qrvtest::requestOf;
using qrvtest::SERVICE;

namespace {

constexpr const char* REFUSED = "refused";  ///< the handler isn't touched, and nothing is thrown
constexpr const char* MISSING = "missing";  ///< likewise, and nothing is logged: no such source

/// A path as text, with the system's host in front.
std::string full(const std::string& path) {
    return "//array7.example/root/qrv:" + path;
}

std::string quoted(const std::string& text) {
    std::string result = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\') result += '\\';
        result += c;
    }
    return result + "\"";
}

/// The path of an association: its ends by role, in the order of the roles' names.
std::string link(const std::string& className, const std::map<std::string, std::string>& ends) {
    std::string keys;
    for (const auto& [role, path] : ends)
        keys += (keys.empty() ? "" : ",") + role + "=" + quoted(full(path));
    return className + "." + keys;
}

const std::string HWID_FC = "QRV_StorageHardwareID.InstanceID=\"ORVELIS:FC-1000000000A1B201\"";
const std::string HWID_ISCSI =
    "QRV_StorageHardwareID.InstanceID=\"ORVELIS:iSCSI-iqn.2001-04.example:Alpha\"";
const std::string HWID_BETA = "QRV_StorageHardwareID.InstanceID=\"ORVELIS:FC-0000000000000005\"";
const std::string HWID_FREE =
    "QRV_StorageHardwareID.InstanceID=\"ORVELIS:iSCSI-iqn.2001-04.example:free\"";
const std::string ALPHA = "QRV_StorageHardwareIDCollection.InstanceID=\"ORVELIS:alpha\"";
const std::string BETA = "QRV_StorageHardwareIDCollection.InstanceID=\"ORVELIS:beta\"";
const std::string BARE = "QRV_StorageHardwareIDCollection.InstanceID=\"ORVELIS:bare\"";
const std::string GONE = "QRV_StorageHardwareIDCollection.InstanceID=\"ORVELIS:gone\"";

std::string member(const std::string& collection, const std::string& hardwareID) {
    return link("QRV_MemberOfStorageHardwareIDCollection",
                {{"Collection", collection}, {"Member", hardwareID}});
}

const std::string SYSTEM =
    "QRV_StorageSystem.CreationClassName=\"QRV_StorageSystem\",Name=\"array7\"";
const std::string PERSONA_1 = "QRV_StorageClientSettingData.InstanceID=\"ORVELIS:PERSONA-1\"";
const std::string PERSONA_2 = "QRV_StorageClientSettingData.InstanceID=\"ORVELIS:PERSONA-2\"";
const std::string GROUP = "QRV_StorageDomainGroup.InstanceID=\"ORVELIS:coast\"";

std::string hosted(const std::string& collection) {
    return link("QRV_HostedStorageHardwareIDCollection",
                {{"Antecedent", SYSTEM}, {"Dependent", collection}});
}

std::string offered(const std::string& persona) {
    return link("QRV_SystemClientSettingData",
                {{"ManagedElement", SYSTEM}, {"SettingData", persona}});
}

const std::string HOSTED_GROUP =
    link("QRV_HostedStorageDomainGroup", {{"Antecedent", SYSTEM}, {"Dependent", GROUP}});

std::string managed(const std::string& object) {
    return link("QRV_MgmtServicesForStorageHWIDCollection",
                {{"Antecedent", SERVICE}, {"Dependent", object}});
}

std::string initiatorSetting(const std::string& hardwareID, const std::string& persona) {
    return link("QRV_HardwareIDElementSettingData",
                {{"ManagedElement", hardwareID}, {"SettingData", persona}});
}

std::string hostSetting(const std::string& collection, const std::string& persona) {
    return link("QRV_HWIDCollectionElementSettingData",
                {{"ManagedElement", collection}, {"SettingData", persona}});
}

/// The key of a hardware ID's right on a controller.
std::string useKey(const std::string& hardwareID, const std::string& deviceID) {
    const auto begin = hardwareID.find('"') + 1;
    return hardwareID.substr(begin, hardwareID.rfind('"') - begin) + "::" + deviceID;
}

std::string privilege(const std::string& hardwareID, const std::string& deviceID) {
    return "QRV_AuthorizedPrivilege.InstanceID=" + quoted(useKey(hardwareID, deviceID));
}

std::string controller(const std::string& className, const std::string& deviceID) {
    return className + ".CreationClassName=" + quoted(className) + ",DeviceID=" + quoted(deviceID) +
           ",SystemCreationClassName=\"QRV_StorageSystem\",SystemName=\"array7\"";
}

std::string fc(const std::string& deviceID) {
    return controller("QRV_SCSIController", deviceID);
}

std::string iscsi(const std::string& deviceID) {
    return controller("QRV_iSCSIController", deviceID);
}

// What the VLUNs grant.
const std::string FC_ON_PORT = privilege(HWID_FC, "MS:0:1:1:0");
const std::string FC_SEES = privilege(HWID_FC, "HS:0");
const std::string ISCSI_SEES = privilege(HWID_ISCSI, "HS:0");
const std::string ISCSI_ON_PORT = privilege(HWID_ISCSI, "MS:0:2:1:0");
const std::string BETA_SEES = privilege(HWID_BETA, "HS:1");
const std::string FREE_SEES = privilege(HWID_FREE, "HS:1");
const std::string ISCSI_PRESENTED = privilege(HWID_ISCSI, "PP:0:2:1");
const std::string NO_PRIVILEGE = privilege(HWID_FC, "HS:1");

/// The link of a privilege to its holder or its controller.
std::string granted(const std::string& privilege, const std::string& end) {
    const std::string endClass = end.substr(4, end.find('.') - 4);
    const bool isController = endClass.find("Controller") != std::string::npos;
    return link(
        "QRV_PrivilegeFor" + endClass,
        {{"Privilege", privilege}, {isController ? "TargetElement" : "PrivilegedElement", end}});
}

std::string use(const std::string& hardwareID, const std::string& deviceID, bool overFc = true) {
    return link(overFc ? "QRV_SPCAssociatedPrivilege" : "QRV_iSPCAssociatedPrivilege",
                {{"Subject", hardwareID}, {"Target", overFc ? fc(deviceID) : iscsi(deviceID)}}) +
           ",UseKey=" + quoted(useKey(hardwareID, deviceID));
}

std::string administered(const std::string& privilege) {
    return link("QRV_ManagementServiceForAuthorizedPrivilege",
                {{"Antecedent", PRIVILEGE_SERVICE}, {"Dependent", privilege}});
}

struct Request {
    std::string source;
    std::string role;
    std::string resultRole;
    std::string resultClass;
    std::vector<std::string> answer;  ///< paths without host, or REFUSED or MISSING alone
};

struct Kind {
    const char* provider;
    const char* messageName;  ///< opens its messages
    const char* associationClass;
    const char* parentClass;
    bool checksClass;  ///< of getInstance and the enumerations; otherwise others get nothing
    bool foundByEnds;  ///< by getInstance, under the parent's name too
    int refusalLevel;
    std::vector<std::string> all;      ///< the whole association
    std::vector<Request> associators;  ///< also asked as names
    std::vector<Request> references;   ///< likewise; resultRole is unused
    const char* keys = "two";
    const char* notFoundName = messageName;  ///< opens the message for a path of nothing
    bool logsWholeRequest = false;           ///< of a refused question for associators
};

const Kind KINDS[] = {
    {"QRV_MemberOfStorageHardwareIDCollectionProvider",
     "QRV_MemberOfStorageHardwareIDCollectionProvider",
     "QRV_MemberOfStorageHardwareIDCollection",
     "CIM_MemberOfCollection",
     true,
     true,
     2,
     {member(ALPHA, HWID_FC), member(ALPHA, HWID_ISCSI), member(BETA, HWID_BETA)},
     {{HWID_FC, "", "", "", {ALPHA}},
      {HWID_FC, "mEMBER", "collection", "QRV_StorageHardwareIDCollection", {ALPHA}},
      {HWID_FC, "Collection", "Collection", "cim_identity", {ALPHA}},
      {HWID_FREE, "", "", "", {}},
      {"QRV_StorageHardwareID.InstanceID=\"ORVELIS:FC-00000000000000FF\"", "", "", "", {}},
      {"QRV_StorageHardwareID.InstanceID=\"FC-1000000000A1B201\"", "", "", "", {REFUSED}},
      {"CIM_StorageHardwareID.InstanceID=\"ORVELIS:FC-1000000000A1B201\"", "", "", "", {}},
      {"QRV_Other.InstanceID=\"x\"", "", "", "", {}},
      {ALPHA, "", "", "", {HWID_FC, HWID_ISCSI}},
      {BARE, "", "", "", {}},
      {GONE, "", "", "", {}},
      {"QRV_StorageHardwareIDCollection.InstanceID=\"ORVELIS:\"", "", "", "", {REFUSED}},
      {ALPHA, "Antecedent", "", "", {REFUSED}},
      {ALPHA, "", "Antecedent", "", {REFUSED}},
      {ALPHA, "", "", "CIM_ManagedElement", {REFUSED}},
      {ALPHA, "", "", "QRV_MemberOfStorageHardwareIDCollection", {REFUSED}}},
     {{HWID_FC, "", "", "", {member(ALPHA, HWID_FC)}},
      {ALPHA,
       "Collection",
       "",
       "CIM_MemberOfCollection",
       {member(ALPHA, HWID_FC), member(ALPHA, HWID_ISCSI)}},
      {BARE, "", "", "", {}},
      {ALPHA, "Dependent", "", "", {REFUSED}},
      {ALPHA, "", "", "QRV_StorageHardwareID", {REFUSED}}}},
    {"QRV_HostedStorageHardwareIDCollectionProvider",
     "QRV_HostedStorageHardwareIDCollection",
     "QRV_HostedStorageHardwareIDCollection",
     "CIM_HostedCollection",
     false,
     true,
     2,
     {hosted(ALPHA), hosted(BETA), hosted(BARE)},
     {{SYSTEM, "", "", "", {ALPHA, BETA, BARE}},
      {SYSTEM, "dependent", "Dependent", "CIM_SystemSpecificCollection", {ALPHA, BETA, BARE}},
      {SYSTEM, "", "", "CIM_System", {REFUSED}},
      {SYSTEM, "", "", "CIM_Collection", {REFUSED}},
      {SYSTEM, "Member", "", "", {REFUSED}},
      {"QRV_StorageSystem.CreationClassName=\"QRV_StorageSystem\",Name=\"other\"", "", "", "", {}},
      {ALPHA, "Antecedent", "", "QRV_StorageSystem", {SYSTEM}},
      {ALPHA, "", "", "CIM_SystemSpecificCollection", {REFUSED}},
      {GONE, "", "", "", {}},
      {"CIM_Collection.InstanceID=\"alpha\"", "", "", "", {REFUSED}}},
     {{SYSTEM, "", "", "CIM_HostedCollection", {hosted(ALPHA), hosted(BETA), hosted(BARE)}},
      {ALPHA, "Dependent", "", "", {hosted(ALPHA)}},
      {GONE, "", "", "", {}},
      {ALPHA, "", "", "QRV_StorageSystem", {REFUSED}}}},
    {"QRV_SystemClientSettingDataProvider",
     "QRV_SystemClientSettingData",
     "QRV_SystemClientSettingData",
     "CIM_ElementSettingData",
     false,
     true,
     2,
     {offered(PERSONA_1), offered(PERSONA_2)},
     {{SYSTEM, "SettingData", "", "", {PERSONA_1, PERSONA_2}},
      {SYSTEM, "managedelement", "", "CIM_ManagedElement", {PERSONA_1, PERSONA_2}},
      {SYSTEM, "", "", "CIM_System", {REFUSED}},
      {SYSTEM, "Dependent", "", "", {REFUSED}},
      {PERSONA_1, "", "", "CIM_System", {SYSTEM}},
      {PERSONA_1, "", "", "CIM_ManagedElement", {REFUSED}},
      {"QRV_StorageClientSettingData.InstanceID=\"ORVELIS:PERSONA-9\"", "", "", "", {}}},
     {{SYSTEM, "", "", "", {offered(PERSONA_1), offered(PERSONA_2)}},
      {PERSONA_2, "", "", "CIM_ElementSettingData", {offered(PERSONA_2)}},
      {PERSONA_2, "", "", "CIM_SettingData", {REFUSED}}}},
    {"QRV_HostedStorageDomainGroup",
     "QRV_HostedStorageDomainGroup",
     "QRV_HostedStorageDomainGroup",
     "CIM_HostedCollection",
     false,
     true,
     2,
     {HOSTED_GROUP},
     {{SYSTEM, "Antecedent", "Dependent", "QRV_StorageDomainGroup", {GROUP}},
      {SYSTEM, "Dependent", "", "", {REFUSED}},
      {SYSTEM, "", "Antecedent", "", {REFUSED}},
      {SYSTEM, "", "", "QRV_StorageSystem", {REFUSED}},
      {SYSTEM, "", "", "CIM_ComputerSystem", {REFUSED}},
      {GROUP, "Dependent", "Antecedent", "CIM_ComputerSystem", {SYSTEM}},
      {GROUP, "", "Dependent", "", {REFUSED}},
      {GROUP, "", "", "CIM_SystemSpecificCollection", {REFUSED}},
      {"QRV_StorageDomainGroup.InstanceID=\"ORVELIS:gone\"", "", "", "", {}}},
     {{SYSTEM, "", "", "", {HOSTED_GROUP}},
      {GROUP, "", "", "CIM_HostedCollection", {HOSTED_GROUP}},
      {GROUP, "Antecedent", "", "", {REFUSED}}}},
    {"QRV_MgmtServicesForStorageHWIDCollectionProvider",
     "QRV_MgmtServicesForStorageHWIDCollection",
     "QRV_MgmtServicesForStorageHWIDCollection",
     "CIM_ConcreteDependency",
     true,
     true,
     2,
     {managed(ALPHA), managed(BETA), managed(BARE), managed(HWID_FC), managed(HWID_ISCSI),
      managed(HWID_BETA), managed(HWID_FREE)},
     {{SERVICE, "", "", "", {ALPHA, BETA, BARE, HWID_FC, HWID_ISCSI, HWID_BETA, HWID_FREE}},
      {SERVICE,
       "antecedent",
       "Dependent",
       "CIM_Identity",
       {HWID_FC, HWID_ISCSI, HWID_BETA, HWID_FREE}},
      {SERVICE, "", "", "CIM_SystemSpecificCollection", {ALPHA, BETA, BARE}},
      {SERVICE, "Dependent", "", "", {REFUSED}},
      {SERVICE, "", "Antecedent", "", {REFUSED}},
      {SERVICE, "", "", "QRV_StorageHardwareIDManagementService", {REFUSED}},
      {SERVICE, "", "", "CIM_StorageHardwareIDManagementService", {REFUSED}},
      {ALPHA, "Dependent", "antecedent", "CIM_StorageHardwareIDManagementService", {SERVICE}},
      {ALPHA, "", "", "CIM_Identity", {}},
      {ALPHA, "", "", "CIM_SystemSpecificCollection", {REFUSED}},
      {GONE, "", "", "", {MISSING}},
      {HWID_FREE, "", "", "", {SERVICE}},
      {HWID_FC, "Antecedent", "", "", {REFUSED}},
      {HWID_FC, "", "Dependent", "", {REFUSED}},
      {HWID_FC, "", "", "CIM_Identity", {REFUSED}},
      {HWID_FC, "", "", "CIM_ManagedElement", {REFUSED}},
      {"CIM_Collection.InstanceID=\"alpha\"", "", "", "", {REFUSED}},
      {SYSTEM, "Antecedent", "Antecedent", "", {}}},
     {{SERVICE,
       "",
       "",
       "CIM_ConcreteDependency",
       {managed(ALPHA), managed(BETA), managed(BARE), managed(HWID_FC), managed(HWID_ISCSI),
        managed(HWID_BETA), managed(HWID_FREE)}},
      {ALPHA, "dependent", "", "", {managed(ALPHA)}},
      {HWID_FREE, "", "", "", {managed(HWID_FREE)}},
      {GONE, "", "", "", {MISSING}},
      {HWID_FC, "Antecedent", "", "", {REFUSED}},
      {HWID_FC, "", "", "CIM_Dependency", {REFUSED}}}},
    {"QRV_HardwareIDElementSettingDataProvider",
     "QRV_HardwareIDElementSettingDataProvider",
     "QRV_HardwareIDElementSettingData",
     "CIM_ElementSettingData",
     true,
     false,
     2,
     {initiatorSetting(HWID_FC, PERSONA_1), initiatorSetting(HWID_ISCSI, PERSONA_1),
      initiatorSetting(HWID_BETA, PERSONA_2)},
     {{HWID_FC, "", "", "CIM_ManagedElement", {PERSONA_1}},
      {HWID_ISCSI, "settingDATA", "managedelement", "CIM_SettingData", {PERSONA_1}},
      {HWID_BETA, "ManagedElement", "", "CIM_Identity", {PERSONA_2}},
      {HWID_FREE, "", "", "", {}},
      {"QRV_StorageHardwareID.InstanceID=\"FC-1000000000A1B201\"", "", "", "", {}},
      {"QRV_StorageHardwareID.InstanceID=\"ORVELIS:FC-none\"", "", "", "", {}},
      {"QRV_StorageHardwareID.InstanceID=\"ORVELIS:FC-FFFFFFFFFFFFFFF6\"", "", "", "", {}},
      {PERSONA_1, "", "", "", {HWID_FC, HWID_FC, HWID_ISCSI}},  // one for each path
      {PERSONA_2, "", "", "QRV_StorageHardwareID", {HWID_BETA}},
      {"QRV_StorageClientSettingData.InstanceID=\"ORVELIS:PERSONA-0\"", "", "", "", {}},
      {ALPHA, "", "", "", {}},
      {HWID_FC, "Antecedent", "", "", {REFUSED}},
      {HWID_FC, "", "Member", "", {REFUSED}},
      {PERSONA_1, "", "", "QRV_StorageHardwareIDCollection", {REFUSED}}},
     {{HWID_FC, "", "", "", {initiatorSetting(HWID_FC, PERSONA_1)}},
      {PERSONA_2, "", "", "CIM_ElementSettingData", {initiatorSetting(HWID_BETA, PERSONA_2)}},
      {HWID_FREE, "", "", "", {}},
      {HWID_FC, "", "", "QRV_HWIDCollectionElementSettingData", {REFUSED}}}},
    {"QRV_HWIDCollectionElementSettingDataProvider",
     "QRV_HWIDCollectionElementSettingDataProvider",
     "QRV_HWIDCollectionElementSettingData",
     "CIM_ElementSettingData",
     true,
     false,
     2,
     {hostSetting(ALPHA, PERSONA_1), hostSetting(BETA, PERSONA_2), hostSetting(BARE, PERSONA_1)},
     {{ALPHA, "", "", "CIM_ManagedElement", {PERSONA_1}},
      {BETA, "SettingData", "ManagedElement", "CIM_StorageClientSettingData", {PERSONA_2}},
      {PERSONA_1, "managedelement", "", "CIM_SystemSpecificCollection", {ALPHA, BARE}},
      {HWID_FC, "", "", "", {}},
      {GONE, "", "", "", {}},
      {ALPHA, "Dependent", "", "", {REFUSED}},
      {ALPHA, "", "", "CIM_Identity", {REFUSED}}},
     {{ALPHA, "", "", "", {hostSetting(ALPHA, PERSONA_1)}},
      {PERSONA_1, "", "", "", {hostSetting(ALPHA, PERSONA_1), hostSetting(BARE, PERSONA_1)}},
      {GONE, "", "", "", {}},
      {ALPHA, "", "", "QRV_HardwareIDElementSettingData", {REFUSED}}}},
    {"QRV_PrivilegeForStorageHardwareIDProvider",
     "QRV_PrivilegeForStorageHardwareIDProvider",
     "QRV_PrivilegeForStorageHardwareID",
     "CIM_AuthorizedSubject",
     true,
     false,
     3,
     {granted(FC_ON_PORT, HWID_FC), granted(FC_SEES, HWID_FC), granted(ISCSI_SEES, HWID_ISCSI),
      granted(ISCSI_ON_PORT, HWID_ISCSI), granted(BETA_SEES, HWID_BETA),
      granted(FREE_SEES, HWID_FREE), granted(ISCSI_PRESENTED, HWID_ISCSI)},
     {{HWID_FC, "privilege", "PrivilegedElement", "CIM_Identity", {FC_ON_PORT, FC_SEES}},
      {HWID_ISCSI, "", "", "CIM_Privilege", {ISCSI_SEES, ISCSI_ON_PORT, ISCSI_PRESENTED}},
      {HWID_FREE, "", "", "", {}},  // of no host
      {FREE_SEES, "PrivilegedElement", "", "CIM_StorageHardwareID", {HWID_FREE}},
      {NO_PRIVILEGE, "", "", "", {HWID_FC}},  // its key says enough
      {privilege("\"ORVELIS:FC-00000000000000FF\"", "HS:0"), "", "", "", {}},
      {"QRV_AuthorizedPrivilege.InstanceID=\"ORVELIS:alpha\"", "", "", "", {}},
      {"QRV_AuthorizedPrivilege.InstanceID=\"alpha\"", "", "", "", {REFUSED}},
      {"CIM_Identity.InstanceID=\"alpha\"", "", "", "", {REFUSED}},
      {"CIM_Collection.InstanceID=\"alpha\"", "", "", "", {}},
      {ALPHA, "", "", "", {}},
      {FC_SEES, "", "", "CIM_SystemSpecificCollection", {REFUSED}},
      {FC_SEES, "TargetElement", "", "", {REFUSED}},
      {FC_SEES, "", "TargetElement", "", {REFUSED}}},
     {{HWID_FC, "", "", "", {granted(FC_ON_PORT, HWID_FC), granted(FC_SEES, HWID_FC)}},
      {FREE_SEES, "", "", "CIM_AuthorizedSubject", {granted(FREE_SEES, HWID_FREE)}},
      {"CIM_Privilege.InstanceID=\"ORVELIS:x\"", "", "", "", {}},
      {HWID_FC, "", "", "QRV_PrivilegeForStorageHardwareIDCollection", {REFUSED}}}},
    {"QRV_PrivilegeForStorageHardwareIDCollectionProvider",
     "QRV_PrivilegeForStorageHardwareIDCollectionProvider",
     "QRV_PrivilegeForStorageHardwareIDCollection",
     "CIM_AuthorizedSubject",
     true,
     false,
     3,
     {granted(FC_ON_PORT, ALPHA), granted(FC_SEES, ALPHA), granted(ISCSI_SEES, ALPHA),
      granted(ISCSI_ON_PORT, ALPHA), granted(BETA_SEES, BETA), granted(FREE_SEES, BETA),
      granted(ISCSI_PRESENTED, ALPHA)},
     {{ALPHA,
       "privilegedelement",
       "Privilege",
       "CIM_Identity",
       {FC_ON_PORT, FC_SEES, ISCSI_SEES, ISCSI_ON_PORT, ISCSI_PRESENTED}},
      {BETA, "", "", "", {BETA_SEES, FREE_SEES}},
      {BARE, "", "", "", {}},
      {GONE, "", "", "", {}},
      {FREE_SEES, "", "", "CIM_SystemSpecificCollection", {BETA}},
      {privilege(HWID_FC, "PP:0:1:1"), "", "", "", {}},
      {"CIM_Collection.InstanceID=\"alpha\"", "", "", "", {REFUSED}},
      {"CIM_Identity.InstanceID=\"alpha\"", "", "", "", {}},
      {HWID_FC, "", "", "", {}},
      {FC_SEES, "", "", "CIM_StorageHardwareID", {REFUSED}},
      {FC_SEES, "", "", "CIM_Collection", {REFUSED}}},
     {{BETA, "", "", "", {granted(BETA_SEES, BETA), granted(FREE_SEES, BETA)}},
      {FC_SEES, "", "", "CIM_AuthorizedSubject", {granted(FC_SEES, ALPHA)}},
      {ALPHA, "", "", "QRV_PrivilegeForStorageHardwareID", {REFUSED}}}},
    {"QRV_PrivilegeForSCSIControllerProvider",
     "QRV_PrivilegeForSCSIControllerProvider",
     "QRV_PrivilegeForSCSIController",
     "CIM_AuthorizedTarget",
     true,
     false,
     3,
     {granted(FC_ON_PORT, fc("MS:0:1:1:0")), granted(FC_SEES, fc("HS:0")),
      granted(BETA_SEES, fc("HS:1"))},
     {{FC_ON_PORT, "Privilege", "targetelement", "CIM_SCSIProtocolController", {fc("MS:0:1:1:0")}},
      {ISCSI_SEES, "", "", "QRV_SCSIController", {fc("HS:0")}},  // the VLUN is seen over FC
      {ISCSI_ON_PORT, "", "", "", {}},
      {NO_PRIVILEGE, "", "", "", {MISSING}},
      {"QRV_AuthorizedPrivilege.InstanceID=\"alpha\"", "", "", "", {REFUSED}},
      {FC_SEES, "TargetElement", "", "", {REFUSED}},
      {FC_SEES, "", "Privilege", "", {REFUSED}},
      {FC_SEES, "", "", "CIM_Privilege", {REFUSED}},
      {FC_SEES, "", "", "QRV_AuthorizedPrivilege", {REFUSED}},
      {fc("HS:0"), "TargetElement", "Privilege", "CIM_Privilege", {FC_SEES, ISCSI_SEES}},
      {fc("HS:1"), "", "", "", {BETA_SEES, FREE_SEES}},
      {fc("PP:0:1:1"), "", "", "", {}},    // a VLUN without host
      {fc("MS:1:1:1:0"), "", "", "", {}},  // a template of nothing
      {fc("HS:9"), "", "", "", {MISSING}},
      {fc("HS:0"), "Privilege", "", "", {REFUSED}},
      {fc("HS:0"), "", "TargetElement", "", {REFUSED}},
      {fc("HS:0"), "", "", "CIM_ProtocolController", {REFUSED}},
      {iscsi("PP:0:2:1"), "Privilege", "", "", {}},
      {SYSTEM, "", "", "", {}}},
     {{FC_SEES, "", "", "", {granted(FC_SEES, fc("HS:0"))}},
      {fc("HS:0"),
       "",
       "",
       "CIM_AuthorizedTarget",
       {granted(FC_SEES, fc("HS:0")), granted(ISCSI_SEES, fc("HS:0"))}},
      {fc("HS:9"), "", "", "", {MISSING}},
      {FC_SEES, "", "", "QRV_PrivilegeForiSCSIController", {REFUSED}}}},
    {"QRV_PrivilegeForiSCSIControllerProvider",
     "QRV_PrivilegeForiSCSIControllerProvider",
     "QRV_PrivilegeForiSCSIController",
     "CIM_AuthorizedTarget",
     true,
     false,
     3,
     {granted(ISCSI_SEES, iscsi("HS:0")), granted(ISCSI_ON_PORT, iscsi("MS:0:2:1:0")),
      granted(FREE_SEES, iscsi("HS:1")), granted(ISCSI_PRESENTED, iscsi("PP:0:2:1"))},
     {{ISCSI_ON_PORT, "", "", "QRV_iSCSIController", {iscsi("MS:0:2:1:0")}},
      {BETA_SEES, "", "", "", {iscsi("HS:1")}},
      {ISCSI_SEES, "", "", "", {}},
      {FC_SEES, "", "", "QRV_SCSIController", {REFUSED}},
      {FC_SEES, "", "", "CIM_AuthorizedPrivilege", {REFUSED}},
      {iscsi("PP:0:2:1"), "", "", "CIM_AuthorizedPrivilege", {ISCSI_PRESENTED}},
      {iscsi("PP:0:2:1"), "", "", "CIM_Privilege", {REFUSED}},
      {iscsi("PP:0:2:1"), "Privilege", "", "", {REFUSED}},
      {iscsi("HS:0"), "", "", "", {MISSING}},
      {fc("HS:0"), "Privilege", "", "", {}}},
     {{BETA_SEES, "", "", "", {granted(BETA_SEES, iscsi("HS:1"))}},
      {iscsi("HS:1"),
       "",
       "",
       "",
       {granted(BETA_SEES, iscsi("HS:1")), granted(FREE_SEES, iscsi("HS:1"))}},
      {FC_SEES, "", "", "QRV_PrivilegeForSCSIController", {REFUSED}}}},
    {"QRV_SPCAssociatedPrivilegeProvider",
     "QRV_SPCAssociatedPrivilegeProvider",
     "QRV_SPCAssociatedPrivilege",
     "CIM_AssociatedPrivilege",
     true,
     false,
     3,
     {use(HWID_FC, "MS:0:1:1:0"), use(HWID_FC, "HS:0"), use(HWID_BETA, "HS:1"),
      use(HWID_FC, "MS:1:1:1:0")},
     {{HWID_FC, "", "", "", {fc("MS:0:1:1:0"), fc("HS:0"), fc("MS:1:1:1:0")}},
      {HWID_BETA, "subject", "TARGET", "CIM_LogicalDevice", {fc("HS:1")}},
      {HWID_BETA, "", "", "CIM_ManagedElement", {fc("HS:1")}},
      {HWID_ISCSI, "", "", "", {}},
      {HWID_FREE, "", "", "", {}},
      {"QRV_StorageHardwareID.InstanceID=\"ORVELIS:FC-00000000000000FF\"", "", "", "", {MISSING}},
      {"CIM_StorageHardwareID.InstanceID=\"x\"", "", "", "", {REFUSED}},
      {HWID_FC, "Target", "", "", {REFUSED}},
      {HWID_FC, "", "Subject", "", {REFUSED}},
      {HWID_FC, "", "", "CIM_Identity", {REFUSED}},
      {HWID_FC, "", "", "QRV_iSCSIController", {REFUSED}},
      {fc("HS:0"), "Target", "Subject", "CIM_Identity", {HWID_FC, HWID_ISCSI}},
      {fc("HS:1"), "", "", "CIM_ManagedElement", {HWID_BETA, HWID_FREE}},
      {fc("PP:0:1:1"), "", "", "", {}},
      {fc("HS:0"), "Subject", "", "", {REFUSED}},
      {fc("HS:0"), "", "Target", "", {REFUSED}},
      {fc("HS:0"), "", "", "CIM_LogicalElement", {REFUSED}},
      {fc("HS:0"), "", "", "CIM_Privilege", {REFUSED}},
      {SYSTEM, "Target", "Target", "", {}}},
     {{HWID_BETA, "", "", "CIM_AssociatedPrivilege", {use(HWID_BETA, "HS:1")}},
      {fc("HS:0"), "", "", "", {use(HWID_FC, "HS:0"), use(HWID_ISCSI, "HS:0")}},
      {fc("HS:9"), "", "", "", {MISSING}},
      {HWID_FC, "", "", "QRV_iSPCAssociatedPrivilege", {REFUSED}}},
     "three"},
    {"QRV_iSPCAssociatedPrivilegeProvider",
     "QRV_iSPCAssociatedPrivilegeProvider",
     "QRV_iSPCAssociatedPrivilege",
     "CIM_AssociatedPrivilege",
     true,
     false,
     3,
     {use(HWID_ISCSI, "HS:0", false), use(HWID_ISCSI, "MS:0:2:1:0", false),
      use(HWID_FREE, "HS:1", false), use(HWID_ISCSI, "PP:0:2:1", false)},
     {{HWID_ISCSI, "", "", "", {iscsi("HS:0"), iscsi("MS:0:2:1:0"), iscsi("PP:0:2:1")}},
      {HWID_FREE, "", "", "QRV_iSCSIController", {iscsi("HS:1")}},  // of no host
      {HWID_FC, "", "", "", {}},
      {HWID_FC, "", "", "QRV_SCSIController", {REFUSED}},
      {iscsi("HS:1"), "Target", "", "", {HWID_BETA, HWID_FREE}},
      {iscsi("HS:1"), "Subject", "", "", {REFUSED}},
      {fc("HS:0"), "Subject", "", "CIM_ProtocolController", {}}},
     {{iscsi("HS:1"), "", "", "", {use(HWID_BETA, "HS:1", false), use(HWID_FREE, "HS:1", false)}},
      {HWID_FREE, "", "", "", {use(HWID_FREE, "HS:1", false)}},
      {HWID_FC, "", "", "QRV_SPCAssociatedPrivilege", {REFUSED}}},
     "three",
     "QRV_SPCAssociatedPrivilegeProvider"},
    {"QRV_MgmtServiceForAuthorizedPrivilege",
     "QRV_MgmtServiceForAuthorizedPrivilege",
     "QRV_ManagementServiceForAuthorizedPrivilege",
     "CIM_ConcreteDependency",
     true,
     false,
     2,
     {administered(FC_ON_PORT), administered(FC_SEES), administered(ISCSI_SEES),
      administered(ISCSI_ON_PORT), administered(BETA_SEES), administered(FREE_SEES),
      administered(ISCSI_PRESENTED)},
     {{PRIVILEGE_SERVICE,
       "antecedent",
       "Dependent",
       "CIM_Privilege",
       {FC_ON_PORT, FC_SEES, ISCSI_SEES, ISCSI_ON_PORT, BETA_SEES, FREE_SEES, ISCSI_PRESENTED}},
      {PRIVILEGE_SERVICE, "Dependent", "", "", {REFUSED}},
      {PRIVILEGE_SERVICE, "", "Antecedent", "", {REFUSED}},
      {PRIVILEGE_SERVICE, "", "", "CIM_PrivilegeManagementService", {REFUSED}},
      {FC_SEES, "Dependent", "", "CIM_PrivilegeManagementService", {PRIVILEGE_SERVICE}},
      {FC_SEES, "Antecedent", "", "", {REFUSED}},
      {FC_SEES, "", "Dependent", "", {REFUSED}},
      {FC_SEES, "", "", "CIM_AuthorizedPrivilege", {REFUSED}},
      {FC_SEES, "", "", "CIM_ManagedElement", {REFUSED}},
      {NO_PRIVILEGE, "", "", "", {MISSING}},
      {"CIM_ManagedElement.InstanceID=\"x\"", "", "", "", {REFUSED}},
      {SYSTEM, "Antecedent", "Antecedent", "", {PRIVILEGE_SERVICE}}},
     {{FC_SEES, "", "", "CIM_ConcreteDependency", {administered(FC_SEES)}},
      {SYSTEM, "", "", "", {}},
      {NO_PRIVILEGE, "", "", "", {MISSING}},
      {FC_SEES, "", "", "CIM_Dependency", {REFUSED}}},
     "two",
     "QRV_MgmtServiceForAuthorizedPrivilege",
     true},
};

class AssociationTest : public qrvtest::ModuleTest, public testing::WithParamInterface<Kind> {
  protected:
    CIMAssociationProvider& associations() { return _provider.associations(); }
    CIMInstanceProvider& instances() { return _provider.instances(); }

    /// The paths delivered, or REFUSED when the handler wasn't touched.
    static std::vector<std::string> pathsIn(const qrvtest::Recording& recording) {
        const std::vector<std::string>& events = recording.events();
        if (events.empty()) return {REFUSED};
        EXPECT_EQ(events.front(), "processing");
        EXPECT_EQ(events.back(), "complete");
        std::vector<std::string> paths;
        for (std::size_t i = 1; i + 1 < events.size(); ++i)
            paths.push_back(events[i].substr(0, events[i].find('\n')));
        return paths;
    }

    std::vector<std::string> ask(const Request& request, const std::string& operation) {
        const OperationContext context = requestOf("viewer");
        const CIMObjectPath source = pathOf(request.source);
        const CIMName resultClass = nameOf(request.resultClass);
        const String role(request.role.c_str()), resultRole(request.resultRole.c_str());
        qrvtest::Recording recording;
        qrvtest::ObjectRecorder objects(recording);
        qrvtest::PathRecorder paths(recording);
        const CIMName own(GetParam().associationClass);
        if (operation == "associators")
            associations().associators(context, source, own, resultClass, role, resultRole, false,
                                       false, {}, objects);
        else if (operation == "associatorNames")
            associations().associatorNames(context, source, own, resultClass, role, resultRole,
                                           paths);
        else if (operation == "references")
            associations().references(context, source, resultClass, role, false, false, {},
                                      objects);
        else
            associations().referenceNames(context, source, resultClass, role, paths);
        return pathsIn(recording);
    }

    static CIMName nameOf(const std::string& text) {
        return text.empty() ? CIMName() : CIMName(text.c_str());
    }

    static std::vector<std::string> expected(const std::vector<std::string>& answer) {
        if (answer == std::vector<std::string>{REFUSED} ||
            answer == std::vector<std::string>{MISSING})
            return {REFUSED};
        std::vector<std::string> paths;
        for (const std::string& path : answer) paths.push_back(full(path));
        return paths;
    }

    std::string refusalLine(const std::string& operation, const Request& request) {
        const std::string start = std::to_string(GetParam().refusalLevel) + " " +
                                  GetParam().provider + "::" + operation + ": invalid params: ";
        if (!GetParam().logsWholeRequest || operation.rfind("associator", 0) != 0)
            return start + "resultClass = " + request.resultClass + " \n";
        const char* const word = operation == "associators" ? "assocClass" : "associationClass";
        return start + "objectName = //server.example/root/qrv:" + request.source + " \n" + word +
               " = " + GetParam().associationClass + ", resultClass = " + request.resultClass +
               "\n";
    }

    void expectAnswers(const std::vector<Request>& requests, const std::string& operation) {
        for (const Request& request : requests) {
            SCOPED_TRACE(operation + " from " + request.source + " role " + request.role + "/" +
                         request.resultRole + " class " + request.resultClass);
            logged();
            EXPECT_EQ(ask(request, operation), expected(request.answer));
            const auto lines = logged();
            EXPECT_EQ(std::count(lines.begin(), lines.end(), refusalLine(operation, request)),
                      request.answer == std::vector<std::string>{REFUSED});
        }
    }

    std::vector<std::string> enumerate(const std::string& className, bool names) {
        qrvtest::Recording recording;
        qrvtest::InstanceRecorder whole(recording);
        qrvtest::PathRecorder paths(recording);
        if (names)
            instances().enumerateInstanceNames(requestOf("viewer"), pathOf(className), paths);
        else
            instances().enumerateInstances(requestOf("viewer"), pathOf(className), false, false, {},
                                           whole);
        return pathsIn(recording);
    }

    std::string wrongClass(const std::string& className) {
        return std::string("7 ") + GetParam().messageName + " Invalid class name" + className;
    }

    static std::string notFound() {
        return std::string("6 ") + GetParam().notFoundName + " CIM Object not found.";
    }

    AssociationTest() { exportVolumes(); }

  private:
    qrvtest::ModuleProvider _provider{GetParam().provider, broker()};
};

TEST_P(AssociationTest, requestsFromAnObject) {
    expectAnswers(GetParam().associators, "associators");
    expectAnswers(GetParam().associators, "associatorNames");
    expectAnswers(GetParam().references, "references");
    expectAnswers(GetParam().references, "referenceNames");
}

TEST_P(AssociationTest, enumerationGivesTheWholeAssociation) {
    for (const bool names : {false, true}) {
        EXPECT_EQ(enumerate(GetParam().associationClass, names), expected(GetParam().all));
        if (GetParam().checksClass)
            EXPECT_EQ(outcomeOf([&] { enumerate("QRV_Other", names); }), wrongClass("QRV_Other"));
        else
            EXPECT_EQ(enumerate("QRV_Other", names), std::vector<std::string>{REFUSED});
    }
}

TEST_P(AssociationTest, getInstanceFindsEachByItsPath) {
    for (const std::string& path : GetParam().all)
        EXPECT_THAT(
            getInstance(instances(), path),
            testing::ElementsAre("processing", testing::StartsWith(full(path) + "\n"), "complete"));
}

TEST_P(AssociationTest, theParentClassNamesWhatIsFoundByItsEnds) {
    const std::string own = GetParam().associationClass, parent = GetParam().parentClass;
    for (const std::string& path : GetParam().all) {
        const std::string byParent = std::string(path).replace(0, own.size(), parent);
        const std::string outcome = outcomeOf([&] {
            EXPECT_THAT(getInstance(instances(), byParent).at(1),
                        testing::StartsWith(full(path) + "\n"));
        });
        EXPECT_EQ(outcome, GetParam().foundByEnds ? "" : notFound()) << byParent;
    }
}

TEST_P(AssociationTest, getInstanceRefusesOtherPaths) {
    const auto outcome = [&](const std::string& path, const char* user = "viewer") {
        return outcomeOf([&] {
            qrvtest::Recording recording;
            qrvtest::InstanceRecorder handler(recording);
            instances().getInstance(requestOf(user), pathOf(path), false, false, {}, handler);
        });
    };
    const std::string own = GetParam().associationClass;
    const std::string message = GetParam().messageName;
    const std::string keys = std::string(" Expect ") + GetParam().keys + " keys.";
    const std::string third = GetParam().keys == std::string("three") ? ",C=\"z\"" : "";
    for (const std::string& className : {own, std::string(GetParam().parentClass)})
        EXPECT_EQ(outcome(className + ".A=\"x\",B=\"y\"" + third), notFound());
    EXPECT_EQ(outcome(own + ".A=\"x\""), "4 " + message + keys);
    EXPECT_EQ(outcome(own + ".A=\"x\",B=\"y\"", "stranger"),
              "2 Insufficient privilege for the user");
    if (GetParam().checksClass)
        EXPECT_EQ(outcome("QRV_Other.A=\"x\""), wrongClass("QRV_Other"));
    else
        EXPECT_EQ(outcome("QRV_Other.A=\"x\""), "4 " + message + keys);
}

std::string nameOfKind(const testing::TestParamInfo<Kind>& kind) {
    return kind.param.provider;
}

INSTANTIATE_TEST_SUITE_P(Module, AssociationTest, testing::ValuesIn(KINDS), nameOfKind);

class AssociationDetailTest : public qrvtest::ModuleTest {
  protected:
    struct Case {
        std::string source;
        std::vector<std::string> lines;
    };

    static void ask(qrvtest::ModuleProvider& provider, const std::string& source) {
        qrvtest::Recording recording;
        qrvtest::PathRecorder paths(recording);
        provider.associations().associatorNames(requestOf("viewer"), pathOf(source), CIMName(),
                                                CIMName(), String(), String(), paths);
        EXPECT_EQ(recording.events(), answer({}));
    }

    static std::string collection(const std::string& instanceID) {
        return "QRV_StorageHardwareIDCollection.InstanceID=" + quoted(instanceID);
    }

    qrvtest::ModuleProvider initiators{"QRV_HardwareIDElementSettingDataProvider", broker()};
    qrvtest::ModuleProvider hosts{"QRV_HWIDCollectionElementSettingDataProvider", broker()};
};

TEST_F(AssociationDetailTest, persona2IsTheDefaultAndEachIsCurrent) {
    const auto flags = [](const std::string& isDefault) {
        return testing::AllOf(testing::HasSubstr("\nIsDefault=" + isDefault + "\n"),
                              testing::HasSubstr("\nIsCurrent=1\n"));
    };
    const auto none = qrvtest::properties({"IsCurrent"});  // of no account in an enumeration
    EXPECT_THAT(
        enumerateInstances(initiators.instances(), "QRV_HardwareIDElementSettingData", none),
        testing::ElementsAre("processing", flags("2"), flags("2"), flags("1"), "complete"));
    EXPECT_THAT(enumerateInstances(hosts.instances(), "QRV_HWIDCollectionElementSettingData", none),
                testing::ElementsAre("processing", flags("2"), flags("1"), flags("2"), "complete"));
    EXPECT_THAT(getInstance(hosts.instances(), hostSetting(BETA, PERSONA_2)).at(1), flags("1"));
}

TEST_F(AssociationDetailTest, whyASourceLeadsNowhereIsLogged) {
    for (const Case& each :
         std::vector<Case>{{GONE, {"2 \tNo valid host gets returned.\n"}},
                           {collection("alpha"), {"3 \tInstance ID prefix not found.\n"}},
                           {collection("xORVELIS:"), {"3 \tNo host name found in instance ID.\n"}},
                           {collection(""), {}}}) {
        ask(hosts, each.source);
        EXPECT_EQ(logged(), each.lines) << each.source;
    }
    ask(initiators, HWID_FREE);
    EXPECT_THAT(logged(), testing::IsEmpty());
    control::timeOutGate(1);
    ask(initiators, PERSONA_1);
    EXPECT_THAT(logged(), testing::ElementsAre("2 --> QRV_HardwareIDElementSettingDataProvider::"
                                               "_getRelatedInstances()  api_getHosts failed.\n"));
    control::failCall("api_getHosts");
    enumerateInstanceNames(initiators.instances(), "QRV_HardwareIDElementSettingData");
    EXPECT_THAT(logged(), testing::ElementsAre("3 \tNo valid host gets returned.\n"));
}

TEST_F(AssociationDetailTest, aPairThatIsNotLinkedIsNotFound) {
    const auto outcome = [](qrvtest::ModuleProvider& provider, const std::string& path,
                            std::vector<std::string> events) {
        qrvtest::Recording recording;
        qrvtest::InstanceRecorder handler(recording);
        const std::string text = outcomeOf([&] {
            provider.instances().getInstance(requestOf("viewer"), pathOf(path), false, false, {},
                                             handler);
        });
        EXPECT_EQ(recording.events(), events) << path;
        return text.substr(0, 2);
    };
    EXPECT_EQ(outcome(initiators, initiatorSetting(HWID_FC, PERSONA_2), {}), "6 ");
    EXPECT_EQ(outcome(hosts, hostSetting(ALPHA, PERSONA_2), answer({})), "6 ");
    EXPECT_THAT(logged(), testing::IsEmpty());
    EXPECT_EQ(outcome(hosts, hostSetting(GONE, PERSONA_1), answer({})), "6 ");
    EXPECT_THAT(logged(),
                testing::Contains("2 \tException: hardware ID collection getInstance error.\n"));
    EXPECT_EQ(
        outcome(hosts, "CIM_ElementSettingData.ManagedElement=\"x\",SettingData=\"y\"", answer({})),
        "6 ");
    const std::string noNamespace =
        "QRV_HardwareIDElementSettingData.ManagedElement=" + quoted(HWID_FC) +
        ",SettingData=" + quoted(PERSONA_1);
    EXPECT_EQ(outcome(initiators, noNamespace, {}), "6 ");
    // The server's own handler refuses to complete without an instance.
    EXPECT_EQ(outcomeOf([&] {
                  CIMOMHandle(&broker()).getInstance(requestOf("viewer"), "root/qrv",
                                                     pathOf(hostSetting(ALPHA, PERSONA_2)), false,
                                                     false, false, {});
              }).substr(0, 2),
              "6 ");
}

TEST_F(AssociationDetailTest, aServiceWithNothingToManageIsEnumeratedByNamesAlone) {
    qrvtest::ModuleProvider services("QRV_MgmtServicesForStorageHWIDCollectionProvider", broker());
    const std::string association = "QRV_MgmtServicesForStorageHWIDCollection";
    qrvtest::setHosts("");
    EXPECT_THAT(enumerateInstances(services.instances(), association), testing::IsEmpty());
    EXPECT_EQ(enumerateInstanceNames(services.instances(), association), answer({}));
}

/// What the classes of privileges do apart from the table above.
class PrivilegeAssociationTest : public qrvtest::ModuleTest {
  protected:
    PrivilegeAssociationTest() { exportVolumes(); }

    /// The outcome of a question for names, with what the handler saw.
    static std::string ask(qrvtest::ModuleProvider& provider, const std::string& source,
                           bool references = true) {
        qrvtest::Recording recording;
        qrvtest::PathRecorder paths(recording);
        CIMAssociationProvider& asked = provider.associations();
        std::string seen = outcomeOf([&] {
            const OperationContext viewer = requestOf("viewer");
            if (references)
                asked.referenceNames(viewer, pathOf(source), {}, String(), paths);
            else
                asked.associatorNames(viewer, pathOf(source), {}, {}, String(), String(), paths);
        });
        for (const std::string& event : recording.events()) seen += "/" + event;
        return seen;
    }
};

TEST_F(PrivilegeAssociationTest, onlyPathsThatAgreeWithThemselvesAreFound) {
    const std::string noHost = "QRV_StorageHardwareIDCollection.InstanceID=\"ORVELIS:\"";
    const std::string noInitiator = "QRV_StorageHardwareID.InstanceID=\"ORVELIS:FC-1\"";
    std::string otherKey = use(HWID_FC, "HS:0");
    otherKey.replace(otherKey.rfind("HS:0"), 4, "HS:1");
    const auto bare = [](std::string path) {
        for (std::size_t at; (at = path.find("//array7.example/root/qrv:")) != std::string::npos;)
            path.erase(at, full("").size());
        return path;
    };
    const std::pair<std::string, const char*> cases[] = {
        {bare(granted(FC_SEES, HWID_FC)), "6 "},
        {bare(granted(FC_SEES, ALPHA)), "6 "},
        {bare(granted(FC_SEES, fc("HS:0"))), "6 "},
        {bare(administered(FC_SEES)), "6 "},
        {"QRV_ManagementServiceForAuthorizedPrivilege.Antecedent=\"no path\",Dependent=\"\"", "6 "},
        {granted(FC_SEES, HWID_ISCSI), "6 "},
        {granted(NO_PRIVILEGE, HWID_FC), "6 "},
        {granted(FC_SEES, BETA), "6 "},
        {granted(privilege(HWID_FC, "PP:0:1:1"), noHost), "6 "},
        {granted(FC_ON_PORT, fc("HS:0")), "6 "},
        {granted(NO_PRIVILEGE, fc("HS:1")), "6 "},
        {granted(ISCSI_SEES, fc("HS:0")), ""},
        {otherKey, "6 "},
        {use(HWID_BETA, "HS:0"), ""},  // no VLUN is read
        {use(noInitiator, "HS:0"), "6 "}};
    for (const auto& [path, outcome] : cases)
        EXPECT_EQ(outcomeOf([&, &path = path] {
                      CIMOMHandle(&broker()).getInstance(requestOf("viewer"), "root/qrv",
                                                         pathOf(path), false, false, false, {});
                  }).substr(0, 2),
                  outcome)
            << path;
}

TEST_F(PrivilegeAssociationTest, theServicesLinksTellWhatIsWrong) {
    const std::string where = "//server.example/root/qrv:";
    qrvtest::ModuleProvider links("QRV_MgmtServiceForAuthorizedPrivilege", broker());
    const auto expectLine = [&](const std::string& text) {
        EXPECT_THAT(logged(), testing::ElementsAre(
                                  "2 QRV_MgmtServiceForAuthorizedPrivilege::" + text + "\n"));
    };
    outcomeOf([&] { getInstance(links.instances(), administered(NO_PRIVILEGE)); });
    expectLine("getInstance: object not found = " + where + administered(NO_PRIVILEGE));
    outcomeOf([&] { getInstance(links.instances(), "QRV_Other.A=\"x\""); });
    expectLine("getInstance: wrong class = QRV_Other");
    outcomeOf([&] { enumerateInstanceNames(links.instances(), "QRV_Other"); });
    expectLine("enumerateInstanceNames: wrong class = QRV_Other");
    ask(links, NO_PRIVILEGE);
    expectLine("referenceNames: Instance does not exist for object " + where + NO_PRIVILEGE);
    ask(links, NO_PRIVILEGE, false);
    expectLine("associatorNames:Instance does not exist for object " + where + NO_PRIVILEGE);
}

TEST_F(PrivilegeAssociationTest, aFailedWalkComesAfterReferenceNamesHaveBegun) {
    qrvtest::ModuleProvider initiators("QRV_PrivilegeForStorageHardwareIDProvider", broker());
    qrvtest::ModuleProvider hosts("QRV_PrivilegeForStorageHardwareIDCollectionProvider", broker());
    control::failCall("api_getActiveAndTemplateVLUNs_chunk", 1, control::Repeat::always);
    EXPECT_EQ(ask(initiators, HWID_FC, false), "1 Operation failed.");
    EXPECT_EQ(ask(initiators, HWID_FC), "1 Operation failed./processing");
    EXPECT_THAT(logged(), testing::SizeIs(2));
    EXPECT_EQ(ask(hosts, ALPHA), "1 Operation failed./processing");
    EXPECT_EQ(logged().at(1),
              "2 <--QRV_PrivilegeForStorageHardwareIDCollection::_buildAssociationInstance() "
              "exception thrown while building instances, # of instances assembled so far = 0\n");
    control::clearFaults();
    EXPECT_EQ(ask(initiators, "QRV_AuthorizedPrivilege.InstanceID=\"ORVELIS:x\""),
              "/processing/complete");
    EXPECT_THAT(logged(), testing::ElementsAre("3  InstanceID key not found.\n"));
}

TEST_F(PrivilegeAssociationTest, aWalkThatBreaksOffLeavesItsFirstChunk) {
    qrvtest::ModuleProvider uses("QRV_SPCAssociatedPrivilegeProvider", broker());
    control::limitVlunChunks({1});
    control::failCall("api_getActiveAndTemplateVLUNs_chunk", 2, control::Repeat::once, 29);
    EXPECT_EQ(enumerateInstanceNames(uses.instances(), "QRV_SPCAssociatedPrivilege"),
              answer({full(use(HWID_FC, "MS:0:1:1:0"))}));
    EXPECT_THAT(logged(), testing::ElementsAre(
                              "2 -->QRV_SPCAssociatedPrivilege::getRelatedInstances ()  getVLUNs() "
                              "failed, status = 29 \n"));
}

TEST_F(PrivilegeAssociationTest, withoutExportsThereIsNothing) {
    reloadArray();
    for (const std::string className :
         {"QRV_PrivilegeForSCSIController", "QRV_PrivilegeForiSCSIController"}) {
        qrvtest::ModuleProvider links(className + "Provider", broker());
        EXPECT_THAT(enumerateInstances(links.instances(), className), testing::IsEmpty());
        EXPECT_EQ(enumerateInstanceNames(links.instances(), className), answer({}));
    }
    qrvtest::ModuleProvider links("QRV_MgmtServiceForAuthorizedPrivilege", broker());
    EXPECT_EQ(enumerateInstances(links.instances(), "CIM_ConcreteDependency"), answer({}));
}

}  // namespace

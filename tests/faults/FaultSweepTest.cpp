// Every array call of every operation fails once, in each way it can: the answer is the documented
// one, nothing stays held, and the next operation works.
#include <qrvapi.h>

#include <map>
#include <set>

#include "MethodCalls.h"
#include "ModuleTest.h"

namespace control = qrvapi::control;
using namespace Pegasus;
using qrvtest::outcomeOf;
using qrvtest::pathOf;
using qrvtest::requestOf;

namespace {

constexpr const char* EMPTY = "processing\ncomplete\n";  ///< a completed answer with nothing in it
constexpr const char* UNCHANGED = "unchanged";           ///< the answer of the clean run
constexpr const char* UNTOUCHED = "untouched";           ///< no answer at all, and no failure
constexpr const char* REPEATED = "repeated";  ///< likewise, but an initiator may come again
constexpr const char* SOME = "some";          ///< a completed answer of what could be read
constexpr const char* REFUSED = "refused";    ///< the method's code and the array's text

using Answers = std::map<std::string, std::string>;

/// One operation, and its answer to the failure of each call: of any call of a function
/// ("api_getHosts"), of the first one ("api_getHosts#1") or with one code ("api_getHosts:3"). A
/// time-out of the gate counts as "cim_sem_wait"; "deliver" is the handler giving up.
struct Operation {
    std::string name;
    std::string provider;
    std::function<void(qrvtest::ModuleProvider&, qrvtest::Recording&)> run;
    Answers answers;
    std::map<int, int> codes = {};  ///< the method's code for one of the array's, where it isn't 4
};

void PrintTo(const Operation& operation, std::ostream* out) {
    *out << operation.name;
}

template <class Recorder, class Run>
auto with(Run run) {
    return [run](qrvtest::ModuleProvider& provider, qrvtest::Recording& recording) {
        Recorder handler(recording);
        run(provider.instances(), handler);
    };
}

constexpr const char* NO_RIGHTS = "2 Insufficient privilege for the user";
constexpr const char* NO_GENERIC = "7 Does not support in generic!";
constexpr const char* NOT_FOUND = "6 QRV_StorageHardwareID CIM Object not found.";
constexpr const char* HUNG_UP = "1 client hung up";

/// The three reads of an instance provider. All fail alike when the array isn't opened.
Operation get(const char* provider, const std::string& path, Answers answers) {
    answers.insert({{"api_qrvOpenForCimserver", NO_RIGHTS}, {"deliver", HUNG_UP}});
    const auto run = [path](CIMInstanceProvider& instances, auto& handler) {
        instances.getInstance(requestOf("admin"), pathOf(path), false, false, {}, handler);
    };
    return {path.substr(0, path.find('.')) + ".getInstance", provider,
            with<qrvtest::InstanceRecorder>(run), answers};
}

Operation enumerate(const char* provider, const std::string& className, Answers answers) {
    answers.insert({{"api_qrvOpenForCimserver", NO_RIGHTS}, {"deliver", HUNG_UP}});
    const auto run = [className](CIMInstanceProvider& instances, auto& handler) {
        instances.enumerateInstances(requestOf("admin"), pathOf(className), false, false, {},
                                     handler);
    };
    return {className + ".enumerateInstances", provider, with<qrvtest::InstanceRecorder>(run),
            answers};
}

Operation enumerateNames(const char* provider, const std::string& className, Answers answers) {
    answers.insert({{"api_qrvOpenForCimserver", NO_RIGHTS}, {"deliver", HUNG_UP}});
    const auto run = [className](CIMInstanceProvider& instances, auto& handler) {
        instances.enumerateInstanceNames(requestOf("admin"), pathOf(className), handler);
    };
    return {className + ".enumerateInstanceNames", provider, with<qrvtest::PathRecorder>(run),
            answers};
}

/// The objects associated with one, through this provider.
Operation associators(const std::string& provider, const std::string& source, Answers answers) {
    answers.insert({{"api_qrvOpenForCimserver", NO_RIGHTS}, {"deliver", HUNG_UP}});
    const auto run = [source](qrvtest::ModuleProvider& module, qrvtest::Recording& recording) {
        qrvtest::ObjectRecorder handler(recording);
        module.associations().associators(requestOf("admin"), pathOf(source), CIMName(), CIMName(),
                                          String(), String(), false, false, {}, handler);
    };
    return {source.substr(0, source.find('.')) + ".associators_" + provider, provider, run,
            answers};
}

/// A change of a host through its collection.
Operation change(const char* name, const CIMValue& persona, const CIMValue& domain,
                 Answers answers) {
    answers.insert({{"api_qrvOpenForCimserver", NO_RIGHTS},
                    {"api_authorizeCIMUser", NO_GENERIC},
                    {"api_authorizeCIMUser:1", "2 Insufficient generic privilege"},
                    {"api_authorizeCIMUser:2", "2 Insufficient generic privilege"}});
    const auto run = [=](CIMInstanceProvider& instances, auto& handler) {
        CIMInstance instance(CIMName("QRV_StorageHardwareIDCollection"));
        instance.addProperty(CIMProperty(CIMName("HostPersonaID"), persona));
        instance.addProperty(CIMProperty(CIMName("Domain"), domain));
        instances.modifyInstance(requestOf("admin"), pathOf(qrvtest::collectionOf("beta")),
                                 instance, false, {}, handler);
    };
    return {std::string("QRV_StorageHardwareIDCollection.") + name,
            "QRV_StorageHardwareIDCollectionProvider", with<qrvtest::InstanceRecorder>(run),
            answers};
}

Operation removal() {
    const auto run = [](CIMInstanceProvider& instances, auto& handler) {
        instances.deleteInstance(requestOf("admin"), pathOf(qrvtest::collectionOf("bare")),
                                 handler);
    };
    return {"QRV_StorageHardwareIDCollection.deleteInstance",
            "QRV_StorageHardwareIDCollectionProvider",
            with<qrvtest::InstanceRecorder>(run),
            {{"api_qrvOpenForCimserver", NO_RIGHTS},
             {"api_authorizeCIMUser", NO_GENERIC},
             {"api_authorizeCIMUser:1", "2 Insufficient generic privilege"},
             {"api_authorizeCIMUser:2", "2 Insufficient generic privilege"},
             {"api_removeHost", "1  Failed to remove host, %s"},
             {"cim_sem_wait", "1  Failed to remove host, Internal error: Semaphore Timed-Out"}}};
}

/// A method of the hardware ID management service that makes one change by `change`.
Operation method(const std::string& name, const char* about, const std::string& parameters,
                 const char* change, const std::map<int, int>& codes, const Answers& more = {}) {
    const auto run = [=](qrvtest::ModuleProvider& provider, qrvtest::Recording& recording) {
        qrvtest::MethodRecorder handler(recording);
        provider.methods().invokeMethod(requestOf("admin"), pathOf(qrvtest::SERVICE),
                                        CIMName(name.c_str()),
                                        qrvtest::inParameters(qrvtest::given(parameters)), handler);
    };
    Answers answers{{"api_qrvOpenForCimserver", NO_RIGHTS},
                    {"api_authorizeCIMUser", NO_GENERIC},
                    {"api_authorizeCIMUser:1", "2 Insufficient generic privilege"},
                    {"api_authorizeCIMUser:2", "2 Insufficient generic privilege"},
                    {"cim_sem_wait", "4 Internal error: Semaphore Timed-Out"},
                    {change, REFUSED},
                    {"deliver", HUNG_UP}};
    for (const auto& [call, answer] : more) answers[call] = answer;
    return {name + about, "QRV_StorageHardwareIDManagementServiceProvider", run, answers, codes};
}

const std::string KNOWN = "1000000000A1B201", NEW = "1000000000A1B299";
const std::string GONE = "4096 StorageHardwareID root/qrv:" + qrvtest::fcID(KNOWN) + " not found";
const std::string NEEDS_LIST = "4096 Path " + KNOWN + " on port 0:1:1 already exists";
const std::string OF_ALPHA = "Collection@" + qrvtest::collectionOf("alpha");
const std::map<int, int> CREATION_CODES{{17, 4096}, {3, 5}, {19, 5}};
const std::map<int, int> MEMBER_CODES{{3, 4096}, {19, 5}};
const std::map<int, int> DELETION_CODES{{3, 4096}, {16, 4096}};
const std::map<int, int> CHAP_CODES{{3, 4096}, {51, 4096}};

constexpr const char* TIMED_OUT = "1 Internal error: Semaphore Timed-Out";
constexpr const char* NO_SERVICE_LINK =
    "6 QRV_MgmtServicesForStorageHWIDCollection CIM Object not found.";
constexpr const char* NO_HOST_LINK =
    "6 QRV_HWIDCollectionElementSettingDataProvider CIM Object not found.";
const std::string LINK_TO_HOST =
    R"(="//array7.example/root/qrv:QRV_StorageHardwareIDCollection.InstanceID=\"ORVELIS:alpha\"")";
const std::string LINK_TO_INITIATOR =
    R"(="//array7.example/root/qrv:QRV_StorageHardwareID.InstanceID=\"ORVELIS:FC-1000000000A1B201\"")";
const std::string LINK_TO_SETTING =
    R"(,SettingData="//array7.example/root/qrv:QRV_StorageClientSettingData.InstanceID=\"ORVELIS:PERSONA-1\"")";
const std::string LINK_TO_SERVICE =
    R"(="//array7.example/root/qrv:QRV_StorageHardwareIDManagementService.)"
    R"(CreationClassName=\"QRV_StorageHardwareIDManagementService\",)"
    R"(Name=\"ORVELIS_StorageHardwareIDManagementService\",)"
    R"(SystemCreationClassName=\"QRV_StorageSystem\",SystemName=\"array7\"")";

const std::string PRIVILEGE =
    "QRV_AuthorizedPrivilege.InstanceID=\"ORVELIS:FC-1000000000A1B201::MS:0:1:1:0\"";
const std::string CONTROLLER =
    "QRV_SCSIController.CreationClassName=\"QRV_SCSIController\",DeviceID=\"MS:0:1:1:0\","
    "SystemCreationClassName=\"QRV_StorageSystem\",SystemName=\"array7\"";

/// A reference key to an object.
std::string end(const std::string& role, const std::string& path) {
    std::string text = role + "=\"//array7.example/root/qrv:";
    for (const char c : path) text += c == '"' ? std::string("\\\"") : std::string(1, c);
    return text + "\"";
}

const std::string TO_PRIVILEGE = end("Privilege", PRIVILEGE) + ",";
constexpr const char* FAILED = "1 Operation failed.";
constexpr const char* ABSENT = "absent";  ///< stands for a link's own message that it isn't there
const Answers OWNER{{"api_qrvOpenForCimserver#2", UNTOUCHED},
                    {"api_getSystemContact", UNCHANGED},
                    {"api_getOwnerName", UNCHANGED}};

/// The answers of a walk over VLUNs that gives `failure` when it can't go on.
Answers walk(const std::string& failure, Answers answers = {}) {
    answers.insert({{"api_initSPCParamData", failure},
                    {"api_getActiveAndTemplateVLUNs_chunk", failure},
                    {"cim_sem_wait", failure},
                    {"api_wwnIntToString", SOME},
                    {"hashtable_put", REPEATED}});
    return answers;
}

/// The same when a DeviceID narrows the walk first. The way to what is wanted then is one.
Answers narrowed(const std::string& failure, Answers answers = {}) {
    answers.insert({{"api_convertStrLPIDtoPortID", UNCHANGED},
                    {"api_getHosts", UNCHANGED},
                    {"cim_sem_wait#1", UNCHANGED},
                    {"api_wwnIntToString", failure}});
    return walk(failure, answers);
}

/// The same for a controller, which has to be there.
Answers ofController(const std::string& failure, Answers answers = {}) {
    answers.insert({{"api_qrvOpenForCimserver#2", UNTOUCHED},
                    {"api_initSPCParamData#1", UNTOUCHED},
                    {"api_getSCSIProtocolControllers_chunk", UNTOUCHED},
                    {"cim_sem_wait#2", UNTOUCHED},
                    {"cim_sem_wait#3", UNCHANGED},
                    {"api_convertStrLPIDtoPortID#2", SOME},
                    {"api_wwnIntToString", EMPTY}});
    return narrowed(failure, answers);
}

/// The read of a link whose far end is up-called for.
Operation getLink(const std::string& className, const std::string& keys, Answers answers) {
    const bool ofService = className == "QRV_ManagementServiceForAuthorizedPrivilege";
    const std::string provider =
        ofService ? "QRV_MgmtServiceForAuthorizedPrivilege" : className + "Provider";
    answers.insert({"api_qrvOpenForCimserver#2", ABSENT});
    for (auto& [call, answer] : answers)
        if (answer == ABSENT) answer = "6 " + provider + " CIM Object not found.";
    return get(provider.c_str(), className + "." + keys, answers);
}
const Operation OPERATIONS[] = {
    {"QRV_StorageHardwareID.getInstance",
     "QRV_StorageHardwareIDProvider",
     with<qrvtest::InstanceRecorder>([](CIMInstanceProvider& provider, auto& handler) {
         provider.getInstance(
             requestOf("admin"),
             pathOf("QRV_StorageHardwareID.InstanceID=\"ORVELIS:FC-1000000000A1B201\""), false,
             false, {}, handler);
     }),
     {{"api_qrvOpenForCimserver", NO_RIGHTS},
      {"api_getHostPaths", NOT_FOUND},
      {"cim_sem_wait", NOT_FOUND},
      {"hashtable_put", REPEATED},
      {"deliver", HUNG_UP}}},
    {"QRV_StorageHardwareID.enumerateInstances",
     "QRV_StorageHardwareIDProvider",
     with<qrvtest::InstanceRecorder>([](CIMInstanceProvider& provider, auto& handler) {
         provider.enumerateInstances(requestOf("admin"), pathOf("QRV_StorageHardwareID"), false,
                                     false, {}, handler);
     }),
     {{"api_qrvOpenForCimserver", NO_RIGHTS},
      {"api_getHostPaths", EMPTY},
      {"cim_sem_wait", EMPTY},
      {"hashtable_put", REPEATED},
      {"deliver", HUNG_UP}}},
    {"QRV_StorageHardwareID.enumerateInstanceNames",
     "QRV_StorageHardwareIDProvider",
     with<qrvtest::PathRecorder>([](CIMInstanceProvider& provider, auto& handler) {
         provider.enumerateInstanceNames(requestOf("admin"), pathOf("QRV_StorageHardwareID"),
                                         handler);
     }),
     {{"api_qrvOpenForCimserver", NO_RIGHTS},
      {"api_getHostPaths", EMPTY},
      {"cim_sem_wait", EMPTY},
      {"hashtable_put", REPEATED},
      {"deliver", HUNG_UP}}},
    get("QRV_StorageHardwareIDCollectionProvider", qrvtest::collectionOf("alpha"),
        {{"api_getHosts", "6 QRV_StorageHardwareIDCollection CIM Object not found."},
         {"cim_sem_wait", "6 QRV_StorageHardwareIDCollection CIM Object not found."}}),
    enumerate("QRV_StorageHardwareIDCollectionProvider", "QRV_StorageHardwareIDCollection",
              {{"api_getHosts", EMPTY}, {"cim_sem_wait", EMPTY}}),
    enumerateNames("QRV_StorageHardwareIDCollectionProvider", "QRV_StorageHardwareIDCollection",
                   {{"api_getHosts", EMPTY}, {"cim_sem_wait", EMPTY}}),
    change("modifyInstance_persona", CIMValue(Uint32(1)), CIMValue(CIMTYPE_STRING, false),
           {{"api_setHost", "1 QRV_StorageHardwareIDCollection, Setting host persona: %s"},
            {"cim_sem_wait",
             "1 QRV_StorageHardwareIDCollection, Setting host persona: Access busy."}}),
    change(
        "modifyInstance_domain", CIMValue(Uint32(0)), CIMValue(String("east")),
        {{"api_setHostDomain", "1 QRV_StorageHardwareIDCollection, Setting host domain:%s"},
         {"cim_sem_wait", "1 QRV_StorageHardwareIDCollection, Setting host domain:Access busy."}}),
    removal(),
    enumerate("QRV_MemberOfStorageHardwareIDCollectionProvider",
              "QRV_MemberOfStorageHardwareIDCollection",
              {{"api_getHostPaths", EMPTY}, {"cim_sem_wait", EMPTY}, {"hashtable_put", REPEATED}}),
    enumerateNames(
        "QRV_MemberOfStorageHardwareIDCollectionProvider",
        "QRV_MemberOfStorageHardwareIDCollection",
        {{"api_getHostPaths", EMPTY}, {"cim_sem_wait", EMPTY}, {"hashtable_put", REPEATED}}),
    associators(
        "QRV_MemberOfStorageHardwareIDCollectionProvider", qrvtest::collectionOf("alpha"),
        {{"api_getHostPaths", EMPTY}, {"cim_sem_wait", EMPTY}, {"hashtable_put", REPEATED}}),
    associators("QRV_MemberOfStorageHardwareIDCollectionProvider", qrvtest::fcID(KNOWN),
                {{"api_qrvOpenForCimserver#2", EMPTY},
                 {"api_qrvOpenForCimserver#3", EMPTY},
                 {"api_getHostPaths", EMPTY},
                 {"api_getHosts", EMPTY},
                 {"cim_sem_wait", EMPTY},
                 {"hashtable_put", UNCHANGED}}),
    get("QRV_StorageClientSettingDataProvider",
        "QRV_StorageClientSettingData.InstanceID=\"ORVELIS:PERSONA-2\"",
        {{"api_getHostPersonaList", "1 %s"},
         {"cim_sem_wait", "1 Internal error: Semaphore Timed-Out"}}),
    enumerate("QRV_StorageClientSettingDataProvider", "QRV_StorageClientSettingData",
              {{"api_getHostPersonaList", "1 %s"},
               {"cim_sem_wait", "1 Internal error: Semaphore Timed-Out"}}),
    enumerateNames("QRV_StorageClientSettingDataProvider", "QRV_StorageClientSettingData",
                   {{"api_getHostPersonaList", EMPTY}, {"cim_sem_wait", EMPTY}}),
    get("QRV_StorageDomainGroup", "QRV_StorageDomainGroup.InstanceID=\"ORVELIS:coast\"",
        {{"api_getDomainSets", "6 QRV_StorageDomainGroup CIM Object not found."},
         {"cim_sem_wait", "6 QRV_StorageDomainGroup CIM Object not found."}}),
    enumerate("QRV_StorageDomainGroup", "QRV_StorageDomainGroup",
              {{"api_getDomainSets", EMPTY}, {"cim_sem_wait", EMPTY}}),
    associators("QRV_HostedStorageHardwareIDCollectionProvider",
                "QRV_StorageSystem.CreationClassName=\"QRV_StorageSystem\",Name=\"array7\"",
                {{"api_qrvOpenForCimserver#2", EMPTY},
                 {"api_getSystemFacts", EMPTY},
                 {"api_getHosts", EMPTY},
                 {"cim_sem_wait", EMPTY}}),
    get("QRV_MgmtServicesForStorageHWIDCollectionProvider",
        "QRV_MgmtServicesForStorageHWIDCollection.Antecedent" + LINK_TO_SERVICE + ",Dependent" +
            LINK_TO_HOST,
        {{"api_getHosts", NO_SERVICE_LINK},
         {"cim_sem_wait#1", NO_SERVICE_LINK},
         {"api_getHostPaths", UNCHANGED},
         {"cim_sem_wait#2", UNCHANGED},
         {"hashtable_put", UNCHANGED}}),
    associators("QRV_MgmtServicesForStorageHWIDCollectionProvider", qrvtest::collectionOf("alpha"),
                {{"api_qrvOpenForCimserver#2", UNTOUCHED},
                 {"api_getHosts", UNTOUCHED},
                 {"cim_sem_wait", UNTOUCHED},
                 {"api_getSystemContact", UNCHANGED},
                 {"api_getOwnerName", UNCHANGED}}),
    enumerate("QRV_HardwareIDElementSettingDataProvider", "QRV_HardwareIDElementSettingData",
              {{"api_getHostPaths", EMPTY},
               {"hashtable_put", REPEATED},
               {"api_getHostPersonaList", "1 %s"},
               {"api_getHosts", EMPTY},
               {"cim_sem_wait", EMPTY},
               {"cim_sem_wait#2", TIMED_OUT}}),
    get("QRV_HardwareIDElementSettingDataProvider",
        "QRV_HardwareIDElementSettingData.ManagedElement" + LINK_TO_INITIATOR + LINK_TO_SETTING,
        {{"api_getHosts", "6 QRV_HardwareIDElementSettingDataProvider CIM Object not found."},
         {"cim_sem_wait", "6 QRV_HardwareIDElementSettingDataProvider CIM Object not found."}}),
    associators("QRV_HardwareIDElementSettingDataProvider", qrvtest::fcID(KNOWN),
                {{"api_qrvOpenForCimserver#2", EMPTY},
                 {"api_getHosts", EMPTY},
                 {"api_getHostPersonaList", EMPTY},
                 {"cim_sem_wait", EMPTY}}),
    associators("QRV_HardwareIDElementSettingDataProvider", qrvtest::setting("1"),
                {{"api_getHosts", EMPTY}, {"cim_sem_wait", EMPTY}}),
    enumerate("QRV_HWIDCollectionElementSettingDataProvider",
              "QRV_HWIDCollectionElementSettingData",
              {{"api_getHosts", EMPTY},
               {"api_getHostPersonaList", "1 %s"},
               {"cim_sem_wait", EMPTY},
               {"cim_sem_wait#2", TIMED_OUT}}),
    get("QRV_HWIDCollectionElementSettingDataProvider",
        "QRV_HWIDCollectionElementSettingData.ManagedElement" + LINK_TO_HOST + LINK_TO_SETTING,
        {{"api_qrvOpenForCimserver#2", NO_HOST_LINK},
         {"api_getHosts", NO_HOST_LINK},
         {"cim_sem_wait", NO_HOST_LINK}}),
    associators("QRV_HWIDCollectionElementSettingDataProvider", qrvtest::collectionOf("alpha"),
                {{"api_qrvOpenForCimserver#2", EMPTY},
                 {"api_getHosts", EMPTY},
                 {"api_getHostPersonaList", EMPTY},
                 {"cim_sem_wait", EMPTY}}),
    associators("QRV_HWIDCollectionElementSettingDataProvider", qrvtest::setting("1"),
                {{"api_getHosts", EMPTY}, {"cim_sem_wait", EMPTY}}),
    get("QRV_AuthorizedPrivilegeProvider", PRIVILEGE,
        narrowed(FAILED,
                 {{"api_wwnIntToString", "6 QRV_AuthorizedPrivilege CIM Object not found."}})),
    enumerate("QRV_AuthorizedPrivilegeProvider", "QRV_AuthorizedPrivilege", walk(FAILED)),
    getLink("QRV_PrivilegeForStorageHardwareID",
            TO_PRIVILEGE + end("PrivilegedElement", qrvtest::fcID(KNOWN)), narrowed(ABSENT)),
    enumerateNames("QRV_PrivilegeForStorageHardwareIDProvider", "QRV_PrivilegeForStorageHardwareID",
                   walk(FAILED)),
    associators("QRV_PrivilegeForStorageHardwareIDProvider", PRIVILEGE,
                {{"api_qrvOpenForCimserver#2", EMPTY},
                 {"api_getHostPaths", EMPTY},
                 {"cim_sem_wait", EMPTY},
                 {"hashtable_put", UNCHANGED}}),
    associators("QRV_PrivilegeForStorageHardwareIDProvider", qrvtest::fcID(KNOWN),
                walk(FAILED, {{"api_getHosts", EMPTY}, {"cim_sem_wait#1", EMPTY}})),
    getLink("QRV_PrivilegeForStorageHardwareIDCollection",
            TO_PRIVILEGE + end("PrivilegedElement", qrvtest::collectionOf("alpha")),
            narrowed(ABSENT, {{"api_getSCSIProtocolControllers", ABSENT}})),
    enumerate("QRV_PrivilegeForStorageHardwareIDCollectionProvider",
              "QRV_PrivilegeForStorageHardwareIDCollection", walk(FAILED)),
    associators("QRV_PrivilegeForStorageHardwareIDCollectionProvider", PRIVILEGE,
                narrowed(EMPTY, {{"api_qrvOpenForCimserver#2", EMPTY},
                                 {"api_getSCSIProtocolControllers", EMPTY},
                                 {"api_getHosts#2", EMPTY}})),
    associators("QRV_PrivilegeForStorageHardwareIDCollectionProvider",
                qrvtest::collectionOf("alpha"), walk(FAILED)),
    getLink("QRV_PrivilegeForSCSIController", TO_PRIVILEGE + end("TargetElement", CONTROLLER),
            narrowed(ABSENT)),
    enumerate("QRV_PrivilegeForSCSIControllerProvider", "QRV_PrivilegeForSCSIController",
              walk(UNTOUCHED, {{"api_qrvOpenForCimserver#2", UNTOUCHED}})),
    associators("QRV_PrivilegeForSCSIControllerProvider", PRIVILEGE,
                narrowed(UNTOUCHED, {{"api_qrvOpenForCimserver#2", UNTOUCHED},
                                     {"api_wwnIntToString", UNTOUCHED},
                                     {"api_getSCSIProtocolControllers", EMPTY},
                                     {"cim_sem_wait#4", EMPTY}})),
    associators("QRV_PrivilegeForSCSIControllerProvider", CONTROLLER, ofController(FAILED)),
    getLink("QRV_SPCAssociatedPrivilege",
            end("Subject", qrvtest::fcID(KNOWN)) + "," + end("Target", CONTROLLER) +
                ",UseKey=\"ORVELIS:FC-1000000000A1B201::MS:0:1:1:0\"",
            {{"api_getHostPaths", ABSENT}, {"cim_sem_wait", ABSENT}, {"hashtable_put", UNCHANGED}}),
    enumerate("QRV_SPCAssociatedPrivilegeProvider", "QRV_SPCAssociatedPrivilege",
              walk(SOME, {{"deliver", SOME}})),
    associators("QRV_SPCAssociatedPrivilegeProvider", qrvtest::fcID(KNOWN),
                walk(SOME, {{"api_qrvOpenForCimserver#2", UNTOUCHED},
                            {"api_getHostPaths", UNTOUCHED},
                            {"cim_sem_wait#1", UNTOUCHED},
                            {"api_getHosts", UNCHANGED},
                            {"deliver", SOME}})),
    associators("QRV_SPCAssociatedPrivilegeProvider", CONTROLLER,
                ofController(SOME, {{"api_qrvOpenForCimserver#3", EMPTY},
                                    {"api_getHostPaths", EMPTY},
                                    {"deliver", SOME}})),
    get("QRV_PrivilegeMgmtServiceProvider", qrvtest::PRIVILEGE_SERVICE, OWNER),
    getLink("QRV_ManagementServiceForAuthorizedPrivilege",
            end("Antecedent", qrvtest::PRIVILEGE_SERVICE) + "," + end("Dependent", PRIVILEGE),
            narrowed(ABSENT)),
    enumerate("QRV_MgmtServiceForAuthorizedPrivilege",
              "QRV_ManagementServiceForAuthorizedPrivilege", walk(FAILED)),
    associators("QRV_MgmtServiceForAuthorizedPrivilege", qrvtest::PRIVILEGE_SERVICE,
                walk(FAILED, OWNER)),
    associators("QRV_MgmtServiceForAuthorizedPrivilege", PRIVILEGE, narrowed(UNTOUCHED, OWNER)),
    {"QRV_StorageHardwareIDManagementService.enumerateInstances",
     "QRV_StorageHardwareIDManagementServiceProvider",
     with<qrvtest::InstanceRecorder>([](CIMInstanceProvider& provider, auto& handler) {
         provider.enumerateInstances(requestOf("admin"),
                                     pathOf("QRV_StorageHardwareIDManagementService"), false, false,
                                     {}, handler);
     }),
     {{"api_qrvOpenForCimserver", NO_RIGHTS},
      {"api_getSystemContact", UNCHANGED},  // it is empty in any event
      {"api_getOwnerName", UNCHANGED},
      {"deliver", HUNG_UP}}},
    method("CreateStorageHardwareID", "_newHost", "IDType#2 StorageID=" + NEW, "api_createHost",
           CREATION_CODES,
           {{"api_wwnStringToInt", "5 Invalid WWN for an FC path, StorageID " + NEW},
            {"api_getHostPaths", UNCHANGED},
            {"api_getHosts", UNCHANGED},
            {"cim_sem_wait#1", UNCHANGED},
            {"cim_sem_wait#2", UNCHANGED}}),
    method("CreateStorageHardwareID", "_newPath", "ElementName=beta StorageID=iqn.new IDType#5",
           "api_addPath", CREATION_CODES,
           {{"api_getHostPaths", "4 Host beta already exists"},
            {"cim_sem_wait#1", "4 Host beta already exists"}}),
    method("CreateStorageHardwareID", "_newPersona", "IDType#2 StorageID=" + KNOWN, "api_setHost",
           CREATION_CODES,
           {{"api_wwnStringToInt", "5 Invalid WWN for an FC path, StorageID " + KNOWN},
            {"api_getHostPaths", NEEDS_LIST},
            {"cim_sem_wait#1", NEEDS_LIST}}),
    method("DeleteStorageHardwareID", "", "HardwareID@" + qrvtest::fcID(KNOWN), "api_removePath",
           DELETION_CODES,
           {{"api_qrvOpenForCimserver#2", GONE},
            {"api_getHostPaths", GONE},
            {"hashtable_put", UNCHANGED},
            {"cim_sem_wait#1", GONE}}),
    method("CreateHardwareIDCollection", "",
           "ElementName=new HardwareIDs[" + qrvtest::fcID(NEW) + "]", "api_createHost",
           MEMBER_CODES),
    method("AddHardwareIDsToCollection", "", OF_ALPHA + " HardwareIDs[" + qrvtest::fcID(NEW) + "]",
           "api_addPath", MEMBER_CODES),
    method("SetISCSICHAP", "", OF_ALPHA + " InitiatorSecret=twelve_chars", "api_setHost",
           CHAP_CODES),
    method("RemoveISCSICHAP", "", OF_ALPHA, "api_setHost", CHAP_CODES),
};

/// A call that is to fail.
struct Fault {
    std::string function;
    unsigned nth;
    int code;

    std::string text() const {
        return function + "#" + std::to_string(nth) + ":" + std::to_string(code);
    }
};

std::string arrayText(int code) {
    api_Status_t status{};
    status.code = static_cast<api_ErrorCode_t>(code);
    char text[512];
    api_getErrorTextNoNL(text, sizeof text, &status);
    return text;
}

class FaultSweepTest : public qrvtest::ModuleTest, public testing::WithParamInterface<Operation> {
  protected:
    /// Runs the operation on the array as it was at first and gives its failure, or what the
    /// handler saw.
    std::string run(unsigned failingDeliver = 0) {
        reloadArray();
        exportVolumes();
        qrvtest::Recording recording;
        recording.failDeliver(failingDeliver);
        const std::string outcome = outcomeOf([&] { GetParam().run(_provider, recording); });
        _deliveries = recording.deliveries();
        if (!outcome.empty()) return outcome;
        std::string seen;
        for (const std::string& event : recording.events()) seen += event + "\n";
        return seen;
    }

    /// The answer without what it says twice.
    static std::string withoutRepeats(const std::string& answer) {
        std::string once;
        std::set<std::string> said;
        std::size_t begin = 0;
        while (begin < answer.size()) {
            const std::size_t end =
                std::min({answer.find("\n//", begin), answer.find("\ncomplete", begin),
                          answer.size() - 1}) +
                1;
            const std::string event = answer.substr(begin, end - begin);
            if (said.insert(event).second) once += event;
            begin = end;
        }
        return once;
    }

    /// Whether an answer is complete and "some" is enough.
    static bool isSome(const std::string& expected, const std::string& answer) {
        return expected == SOME && answer.rfind("processing\n", 0) == 0 &&
               answer.rfind("\ncomplete\n") == answer.size() - 10;
    }

    /// What is documented for a fault, the more particular first; empty when nothing is.
    static std::string documented(const Fault& fault) {
        for (const std::string& key :
             {fault.function + "#" + std::to_string(fault.nth),
              fault.function + ":" + std::to_string(fault.code), fault.function}) {
            const auto answer = GetParam().answers.find(key);
            if (answer != GetParam().answers.end()) return answer->second;
        }
        return "";
    }

    static std::string refusal(int code) {
        const auto own = GetParam().codes.find(code);
        return std::to_string(own == GetParam().codes.end() ? 4 : own->second) + " " +
               arrayText(code);
    }

    std::string expectedAnswer(const Fault& fault) const {
        const std::string answer = documented(fault);
        if (answer == REFUSED) return refusal(fault.code);
        if (answer == UNTOUCHED) return "";
        if (answer == SOME) return SOME;
        if (const auto text = answer.find("%s"); text != std::string::npos)
            return std::string(answer).replace(text, 2, arrayText(fault.code));
        return answer == UNCHANGED || answer == REPEATED ? _clean : answer;
    }

    /// Nothing is held, a failed operation has changed nothing, and the next run is clean.
    void expectIntact(const std::string& answer, const std::string& fault) {
        control::clearFaults();
        const control::Outstanding held = control::outstanding();
        EXPECT_TRUE(held.idle()) << fault << ": " << control::describe(held);
        const bool failed = answer.rfind("processing", 0) != 0;
        EXPECT_TRUE(!failed || qrvtest::hostsText() == _array) << fault << qrvtest::hostsText();
        EXPECT_EQ(run(), _clean) << "after " << fault;
    }

    void expectAnswer(const Fault& fault, const std::string& answer) {
        SCOPED_TRACE(fault.text());
        ++_faults;
        ASSERT_NE(documented(fault), "") << "no answer is documented";
        if (isSome(documented(fault), answer)) return;
        EXPECT_EQ(documented(fault) == REPEATED ? withoutRepeats(answer) : answer,
                  expectedAnswer(fault));
    }

    /// Every call of a function fails once in each way it can.
    void failCalls(const control::ApiFunction& function, std::size_t calls) {
        for (unsigned nth = 1; nth <= calls; ++nth)
            for (const int code : function.codes) {
                control::failCall(function.name, nth, control::Repeat::once, code);
                const std::string answer = run();
                const Fault fault{std::string(function.name), nth, code};
                expectAnswer(fault, answer);
                expectIntact(answer, fault.text());
            }
    }

    /// Each allocation fails once; the answer is that of a call that allocates.
    void failAllocations() {
        std::set<std::string> answers;
        std::size_t calls = 0;
        for (const auto& [function, count] : _calls) {
            if (!function->allocates) continue;
            answers.insert(expectedAnswer({std::string(function->name), 0, ERR_API_NO_MEMORY}));
            calls += count;
        }
        for (unsigned nth = 1; nth <= calls; ++nth, ++_faults) {
            control::failAllocation(nth);
            const std::string answer = run();
            EXPECT_TRUE(answers.count(withoutRepeats(answer)) == 1 ||
                        (answers.count(SOME) == 1 && isSome(SOME, answer)))
                << answer;
            expectIntact(answer, "allocation " + std::to_string(nth));
        }
    }

    /// What the client sees isn't taken back when it hangs up, so the array may have changed.
    void failDeliveries() {
        const unsigned deliveries = _deliveries;
        for (unsigned nth = 1; nth <= deliveries; ++nth) {
            expectAnswer({"deliver", nth, 0}, run(nth));
            EXPECT_TRUE(control::outstanding().idle()) << control::describe(control::outstanding());
        }
        EXPECT_EQ(run(), _clean);
    }

    /// Runs without a fault and notes how often each function is called that can fail.
    void runClean() {
        _array = qrvtest::hostsText();
        _clean = run();  // which makes the server load what it needs
        control::recordCalls(true);
        EXPECT_EQ(run(), _clean);
        control::recordCalls(false);
        for (const control::ApiFunction& function : control::functions())
            if (const auto count = control::callCount(function.name))
                if (function.returns != control::Returns::nothing)
                    _calls.push_back({&function, count});
    }

    std::string _clean, _array;
    std::vector<std::pair<const control::ApiFunction*, std::size_t>> _calls;
    unsigned _deliveries = 0, _faults = 0;

  private:
    qrvtest::ModuleProvider _provider{GetParam().provider, broker()};
};

TEST_P(FaultSweepTest, everyFailureHasItsAnswer) {
    runClean();
    ASSERT_THAT(_clean, testing::StartsWith("processing\n"));
    failDeliveries();
    for (const auto& [function, count] : _calls) failCalls(*function, count);
    failAllocations();
    std::cout << _faults << " faults injected\n";
}

std::string testName(const testing::TestParamInfo<Operation>& operation) {
    std::string name = operation.param.name;
    std::replace(name.begin(), name.end(), '.', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Module, FaultSweepTest, testing::ValuesIn(OPERATIONS), testName);

}  // namespace

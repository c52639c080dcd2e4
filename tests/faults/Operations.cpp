#include "Operations.h"

#include <set>

#include "MethodCalls.h"
#include "ModuleTest.h"

using namespace Pegasus;

namespace qrvtest {

namespace {

constexpr const char* ABSENT = "absent";  ///< stands for the provider's message that it isn't there

constexpr const char* NO_RIGHTS = "2 Insufficient privilege for the user";
constexpr const char* NO_GENERIC = "2 Insufficient generic privilege";
constexpr const char* TIMED_OUT = "1 Internal error: Semaphore Timed-Out";
constexpr const char* FAILED = "1 Operation failed.";
constexpr const char* LOST = "4 Failed to retrieve SPC data.";
constexpr const char* NO_FACTS = "1 The array doesn't tell its own name and address.";

using Run = std::function<void(ModuleProvider&, Recording&)>;
using Operations = std::vector<Operation>;

/// What all operations have in common. An answer for "getInstance>" is for that operation alone.
const Answers ALL{{"api_qrvOpenForCimserver", NO_RIGHTS},
                  {"getClass", PASSES},
                  {"enumerateInstances", PASSES},
                  {"enumerateInstances:2", EMPTY},
                  {"getInstance>enumerateInstances:2", ABSENT},
                  {"enumerateInstanceNames", PASSES},
                  {"enumerateInstanceNames:2", EMPTY},
                  {"getInstance>enumerateInstanceNames:2", ABSENT},
                  {"hashtable_put", REPEATED},
                  {"create_string_hashtable", UNCHANGED},
                  {"deliver", PASSES}};

/// What operations have in common that need a permission of their own.
const Answers GUARDED{{"api_authorizeCIMUser", "7 Does not support in generic!"},
                      {"api_authorizeCIMUser:1", NO_GENERIC},
                      {"api_authorizeCIMUser:2", NO_GENERIC}};

/// One after the other, of which the first counts.
Answers operator+(Answers first, const Answers& second) {
    first.insert(second.begin(), second.end());
    return first;
}

/// One answer to several failures.
Answers each(const char* answer, std::initializer_list<const char*> calls) {
    Answers answers;
    for (const char* call : calls) answers.insert({call, answer});
    return answers;
}

/// Answers for one operation alone.
Answers of(const std::string& operation, const Answers& answers) {
    Answers own;
    for (const auto& [call, answer] : answers) own.insert({operation + ">" + call, answer});
    return own;
}

/// What the array doesn't tell isn't there.
Answers unreadable(std::initializer_list<const char*> calls) {
    return of("getInstance", each(ABSENT, calls)) + each(EMPTY, calls);
}

/// An up-call that asks first whether the source is there. Only what isn't Pegasus's own passes.
Answers confirmed(const char* missing) {
    return {{"getInstance", missing},
            {"getInstance:1", PASSES},
            {"getInstance:2", UNCHANGED},
            {"api_qrvOpenForCimserver#2", missing}};
}

/// A walk over VLUNs that gives `failure` when it can't go on.
Answers walk(const char* failure) {
    return each(failure,
                {"api_initSPCParamData", "api_getActiveAndTemplateVLUNs_chunk", "cim_sem_wait"}) +
           Answers{{"api_wwnIntToString", SOME}};
}

/// A provider without its table: `answer` where it walks itself, a read of one still finds it.
Answers tableless(const char* answer) {
    return of("getInstance", {{"create_string_hashtable", UNCHANGED}}) +
           Answers{{"create_string_hashtable", answer}};
}

/// What a DeviceID can't be narrowed by is walked over.
const Answers NARROWED =
    each(UNCHANGED, {"api_convertStrLPIDtoPortID", "api_getHosts", "cim_sem_wait#1"});

/// The same, up to the one thing that is wanted.
Answers narrowed(const char* failure) {
    return NARROWED + Answers{{"api_wwnIntToString", failure}} + walk(failure);
}

/// The read of a link whose privilege is up-called for.
const Answers LINK = of(
    "getInstance", narrowed(ABSENT) + each(ABSENT, {"getInstance", "api_qrvOpenForCimserver#2"}));

/// From a controller, which has to be there, to the walk over its VLUNs.
Answers ofController(const char* failure) {
    return confirmed(UNTOUCHED) +
           each(UNTOUCHED, {"api_initSPCParamData#1", "api_getSCSIProtocolControllers_chunk",
                            "cim_sem_wait#2"}) +
           Answers{{"cim_sem_wait#3", UNCHANGED},
                   {"api_convertStrLPIDtoPortID#2", MORE},
                   {"create_string_hashtable", EMPTY},
                   {"api_wwnIntToString", EMPTY}} +
           narrowed(failure);
}

/// A service does without the facts about its owner.
const Answers OWNER = each(UNCHANGED, {"api_getSystemContact", "api_getOwnerName"});

std::string classOf(const std::string& path) {
    return path.substr(0, path.find('.'));
}

/// How a class's provider is called, and how its messages begin.
struct Names {
    std::string provider, title;
};

Names namesOf(const std::string& className) {
    static const std::map<std::string, Names> titled{
        {"QRV_StorageDomainGroup", {"QRV_StorageDomainGroup", "QRV_StorageDomainGroup"}},
        {"QRV_HostedStorageDomainGroup",
         {"QRV_HostedStorageDomainGroup", "QRV_HostedStorageDomainGroup"}},
        {"QRV_PrivilegeManagementService",
         {"QRV_PrivilegeMgmtServiceProvider", "QRV_PrivilegeManagementService"}},
        {"QRV_ManagementServiceForAuthorizedPrivilege",
         {"QRV_MgmtServiceForAuthorizedPrivilege", "QRV_MgmtServiceForAuthorizedPrivilege"}},
        {"QRV_iSPCAssociatedPrivilege",
         {"QRV_iSPCAssociatedPrivilegeProvider", "QRV_SPCAssociatedPrivilegeProvider"}}};
    static const std::set<std::string> titledByProvider{
        "QRV_MemberOfStorageHardwareIDCollection",
        "QRV_PrivilegeForStorageHardwareID",
        "QRV_PrivilegeForStorageHardwareIDCollection",
        "QRV_PrivilegeForSCSIController",
        "QRV_PrivilegeForiSCSIController",
        "QRV_SPCAssociatedPrivilege",
        "QRV_HardwareIDElementSettingData",
        "QRV_HWIDCollectionElementSettingData"};
    if (const auto names = titled.find(className); names != titled.end()) return names->second;
    const std::string provider = className + "Provider";
    return {provider, titledByProvider.count(className) == 0 ? className : provider};
}

/// One operation with its share of answers.
Operation operation(const std::string& className, const std::string& name, const Answers& answers,
                    const Run& run) {
    const Names names = namesOf(className);
    Operation made{className + "." + name, names.provider, run, {}};
    for (const auto& [call, answer] : answers + ALL) {
        const auto mark = call.find('>');
        if (mark == std::string::npos)
            made.answers.insert({call, answer});
        else if (call.substr(0, mark) == name)
            made.answers[call.substr(mark + 1)] = answer;
    }
    for (auto& [call, answer] : made.answers)
        if (answer == ABSENT) answer = "6 " + names.title + " CIM Object not found.";
    return made;
}

/// The three reads of a class.
Operations reads(const std::string& path, const Answers& answers) {
    const std::string className = classOf(path);
    const auto get = [path](ModuleProvider& provider, Recording& recording) {
        InstanceRecorder handler(recording);
        provider.instances().getInstance(requestOf("admin"), pathOf(path), false, false, {},
                                         handler);
    };
    const auto enumerate = [className](ModuleProvider& provider, Recording& recording) {
        InstanceRecorder handler(recording);
        provider.instances().enumerateInstances(requestOf("admin"), pathOf(className), false, false,
                                                {}, handler);
    };
    const auto enumerateNames = [className](ModuleProvider& provider, Recording& recording) {
        PathRecorder handler(recording);
        provider.instances().enumerateInstanceNames(requestOf("admin"), pathOf(className), handler);
    };
    return {operation(className, "getInstance", answers, get),
            operation(className, "enumerateInstances", answers, enumerate),
            operation(className, "enumerateInstanceNames", answers, enumerateNames)};
}

/// The four questions that an association answers from one of its ends.
Operations links(const std::string& association, const std::string& source,
                 const Answers& answers) {
    const auto make = [&](const char* name, const auto& ask) {
        Operation made = operation(association, name, answers, ask);
        made.name += "_from_" + classOf(source);
        return made;
    };
    const CIMObjectPath path = pathOf(source);
    return {
        make("associators",
             [path](ModuleProvider& provider, Recording& recording) {
                 ObjectRecorder handler(recording);
                 provider.associations().associators(requestOf("admin"), path, CIMName(), CIMName(),
                                                     String(), String(), false, false, {}, handler);
             }),
        make("associatorNames",
             [path](ModuleProvider& provider, Recording& recording) {
                 PathRecorder handler(recording);
                 provider.associations().associatorNames(requestOf("admin"), path, CIMName(),
                                                         CIMName(), String(), String(), handler);
             }),
        make("references",
             [path](ModuleProvider& provider, Recording& recording) {
                 ObjectRecorder handler(recording);
                 provider.associations().references(requestOf("admin"), path, CIMName(), String(),
                                                    false, false, {}, handler);
             }),
        make("referenceNames", [path](ModuleProvider& provider, Recording& recording) {
            PathRecorder handler(recording);
            provider.associations().referenceNames(requestOf("admin"), path, CIMName(), String(),
                                                   handler);
        })};
}

/// A change of an instance's properties.
Operation change(const std::string& path, const char* about,
                 const std::vector<CIMProperty>& properties, const Answers& answers) {
    const auto run = [=](ModuleProvider& provider, Recording& recording) {
        InstanceRecorder handler(recording);
        CIMInstance instance{CIMName(classOf(path).c_str())};
        for (const CIMProperty& property : properties) instance.addProperty(property);
        provider.instances().modifyInstance(requestOf("admin"), pathOf(path), instance, false, {},
                                            handler);
    };
    Operation made = operation(classOf(path), "modifyInstance", answers + GUARDED, run);
    made.name += about;
    return made;
}

Operation removal(const std::string& path, const Answers& answers) {
    const auto run = [=](ModuleProvider& provider, Recording& recording) {
        InstanceRecorder handler(recording);
        provider.instances().deleteInstance(requestOf("admin"), pathOf(path), handler);
    };
    return operation(classOf(path), "deleteInstance", answers + GUARDED, run);
}

Operation method(const std::string& service, const std::string& name, const std::string& parameters,
                 const Answers& answers) {
    const auto run = [=](ModuleProvider& provider, Recording& recording) {
        MethodRecorder handler(recording);
        provider.methods().invokeMethod(requestOf("admin"), pathOf(service), CIMName(name.c_str()),
                                        inParameters(given(parameters)), handler);
    };
    return operation(classOf(service), name, answers + GUARDED, run);
}

/// A method of the hardware ID management service that makes one change by `change`.
Operation hostMethod(const std::string& name, const char* about, const std::string& parameters,
                     const char* change, const std::map<int, int>& codes,
                     const Answers& answers = {}) {
    Operation made = method(
        SERVICE, name, parameters,
        answers +
            each("4 Internal error: Semaphore Timed-Out", {"cim_sem_wait", "cim_sem_wait#all"}) +
            Answers{{change, REFUSED}});
    made.name += about;
    made.codes = codes;
    return made;
}

/// A key that refers to an object.
std::string end(const std::string& role, const std::string& path) {
    std::string text = role + "=\"//array7.example/root/qrv:";
    for (const char c : path) text += c == '"' ? std::string("\\\"") : std::string(1, c);
    return text + "\"";
}

std::string controller(const std::string& className, const std::string& deviceID) {
    return className + ".CreationClassName=\"" + className + "\",DeviceID=\"" + deviceID +
           "\",SystemCreationClassName=\"QRV_StorageSystem\",SystemName=\"array7\"";
}

std::string privilege(const std::string& initiator, const std::string& deviceID) {
    return "QRV_AuthorizedPrivilege.InstanceID=\"ORVELIS:" + initiator + "::" + deviceID + "\"";
}

const std::string KNOWN = "1000000000A1B201", NEW = "1000000000A1B299";
const std::string IQN = "iqn.2001-04.example:Alpha";
const std::string INITIATOR = fcID(KNOWN);
const std::string ALPHA = collectionOf("alpha");
const std::string SETTING = setting("1");
const std::string GROUP = "QRV_StorageDomainGroup.InstanceID=\"ORVELIS:coast\"";
const std::string SYSTEM =
    "QRV_StorageSystem.CreationClassName=\"QRV_StorageSystem\",Name=\"array7\"";
const std::string ON_PORT = privilege("FC-" + KNOWN, "MS:0:1:1:0");
const std::string ON_ISCSI_PORT = privilege("iSCSI-" + IQN, "MS:0:2:1:0");
const std::string FC_CONTROLLER = controller("QRV_SCSIController", "MS:0:1:1:0");
const std::string ISCSI_CONTROLLER = controller("QRV_iSCSIController", "MS:0:2:1:0");

/// What the failure of an enumeration behind an up-call leaves.
Answers nothing(const char* call) {
    return each(EMPTY, {call, "cim_sem_wait"});
}

/// An association by its two ends: its reads and its questions.
Operations association(const std::string& name, const std::string& keys, const Answers& own,
                       const std::vector<std::pair<std::string, Answers>>& sources) {
    Operations all = reads(name + "." + keys, own);
    for (const auto& [source, answers] : sources)
        for (Operation& question : links(name, source, answers)) all.push_back(std::move(question));
    return all;
}

Operations objects() {
    Operations all;
    const auto add = [&](const std::string& path, const Answers& answers) {
        for (Operation& read : reads(path, answers)) all.push_back(std::move(read));
    };
    add(INITIATOR, unreadable({"api_getHostPaths", "cim_sem_wait", "create_string_hashtable"}));
    add(ALPHA, unreadable({"api_getHosts", "cim_sem_wait"}));
    add(GROUP, unreadable({"api_getDomainSets", "cim_sem_wait"}));
    add(SETTING, of("enumerateInstanceNames", nothing("api_getHostPersonaList")) +
                     Answers{{"api_getHostPersonaList", "1 %s"}, {"cim_sem_wait", TIMED_OUT}});
    add(SERVICE, OWNER);
    add(PRIVILEGE_SERVICE, OWNER);
    add(ON_PORT, of("getInstance", Answers{{"api_wwnIntToString", ABSENT}} + NARROWED) +
                     walk(FAILED) + unreadable({"create_string_hashtable"}));
    for (const char* system :
         {"QRV_StorageSystem.CreationClassName=\"QRV_StorageSystem\",Name=\"array7\"",
          "QRV_SystemPackage.CreationClassName=\"QRV_SystemPackage\",Tag=\"SN00042\"",
          "QRV_StorageSystemView.InstanceID=\"ORVELIS:array7\""})
        add(system, {{"api_getSystemFacts", NO_FACTS}});
    for (const std::string& path : {FC_CONTROLLER, ISCSI_CONTROLLER})
        add(path,
            of("getInstance", NARROWED + each(ABSENT, {"api_getSCSIProtocolControllers_chunk#1",
                                                       "cim_sem_wait#2"})) +
                each(EMPTY, {"api_getSCSIProtocolControllers_chunk#1", "cim_sem_wait#1"}) +
                each(LOST, {"api_getSCSIProtocolControllers_chunk", "cim_sem_wait"}) +
                Answers{{"api_initSPCParamData", "1 " + classOf(path) + " out of memory."}});
    return all;
}

std::vector<Operations> hostAssociations() {
    const Answers owned = confirmed(UNTOUCHED) + OWNER;
    return {
        association(
            "QRV_MemberOfStorageHardwareIDCollection",
            end("Collection", ALPHA) + "," + end("Member", INITIATOR),
            unreadable({"api_getHostPaths", "cim_sem_wait"}),
            {{ALPHA, each(EMPTY, {"api_getHostPaths", "api_getHosts", "cim_sem_wait"})},
             {INITIATOR, of("references", {{"api_qrvOpenForCimserver#2", NO_RIGHTS}}) +
                             of("referenceNames", {{"api_qrvOpenForCimserver#2", NO_RIGHTS}}) +
                             each(EMPTY, {"getInstance", "api_qrvOpenForCimserver#2",
                                          "api_qrvOpenForCimserver#3", "api_qrvOpenForCimserver#4",
                                          "api_getHostPaths", "api_getHosts", "cim_sem_wait"})}}),
        association("QRV_HostedStorageHardwareIDCollection",
                    end("Antecedent", SYSTEM) + "," + end("Dependent", ALPHA),
                    unreadable({"api_getHosts", "cim_sem_wait"}),
                    {{SYSTEM, confirmed(EMPTY) + each(EMPTY, {"api_getSystemFacts", "api_getHosts",
                                                              "cim_sem_wait"})},
                     {ALPHA, confirmed(EMPTY) + nothing("api_getHosts") +
                                 Answers{{"api_getSystemFacts", NO_FACTS}}}}),
        association(
            "QRV_MgmtServicesForStorageHWIDCollection",
            end("Antecedent", SERVICE) + "," + end("Dependent", ALPHA),
            of("getInstance", each(ABSENT, {"api_getHosts", "cim_sem_wait#1"}) +
                                  each(UNCHANGED, {"api_getHostPaths", "cim_sem_wait#2",
                                                   "enumerateInstanceNames#2:2"})) +
                of("enumerateInstances", {{"cim_sem_wait#all", UNTOUCHED}}) +
                of("enumerateInstanceNames", {{"cim_sem_wait#all", EMPTY}}) +
                each(SOME, {"api_getHostPaths", "api_getHosts", "cim_sem_wait",
                            "enumerateInstanceNames:2"}),
            {{SERVICE, owned + each(SOME, {"api_getHostPaths", "api_getHosts", "cim_sem_wait",
                                           "enumerateInstances:2", "enumerateInstanceNames:2"})},
             {ALPHA, owned + each(UNTOUCHED, {"api_getHosts", "cim_sem_wait"})},
             {INITIATOR, owned + each(UNTOUCHED, {"api_getHostPaths", "cim_sem_wait"})}}),
        association(
            "QRV_HostedStorageDomainGroup",
            end("Antecedent", SYSTEM) + "," + end("Dependent", GROUP),
            unreadable({"api_getDomainSets", "cim_sem_wait"}),
            {{SYSTEM, confirmed(EMPTY) +
                          each(EMPTY, {"api_getSystemFacts", "api_getDomainSets", "cim_sem_wait"})},
             {GROUP, confirmed(EMPTY) + nothing("api_getDomainSets") +
                         Answers{{"api_getSystemFacts", NO_FACTS}}}}),
    };
}

std::vector<Operations> settingAssociations() {
    const Answers ofElement =
        each(EMPTY, {"getInstance", "api_qrvOpenForCimserver#2", "api_getHostPersonaList",
                     "api_getHosts", "cim_sem_wait"});
    const Answers enumerated = Answers{{"api_getHostPersonaList", "1 %s"},
                                       {"cim_sem_wait#2", TIMED_OUT},
                                       {"cim_sem_wait#all", TIMED_OUT},
                                       {"api_getHostPaths", EMPTY}} +
                               nothing("api_getHosts");
    const Answers unread = each(ABSENT, {"getInstance", "api_qrvOpenForCimserver#2", "api_getHosts",
                                         "cim_sem_wait", "cim_sem_wait#all"});
    return {
        association("QRV_HardwareIDElementSettingData",
                    end("ManagedElement", INITIATOR) + "," + end("SettingData", SETTING),
                    of("getInstance", unread) + enumerated,
                    {{INITIATOR, ofElement}, {SETTING, nothing("api_getHosts")}}),
        association("QRV_HWIDCollectionElementSettingData",
                    end("ManagedElement", ALPHA) + "," + end("SettingData", SETTING),
                    of("getInstance", unread) + enumerated,
                    {{ALPHA, ofElement}, {SETTING, nothing("api_getHosts")}}),
        association("QRV_SystemClientSettingData",
                    end("ManagedElement", SYSTEM) + "," + end("SettingData", SETTING),
                    unreadable({"api_getHostPersonaList", "cim_sem_wait"}),
                    {{SYSTEM, of("associators", {{"api_getHostPersonaList", "1 %s"},
                                                 {"cim_sem_wait", TIMED_OUT}}) +
                                  confirmed(EMPTY) + nothing("api_getHostPersonaList") +
                                  Answers{{"api_getSystemFacts", EMPTY}}},
                     {SETTING, confirmed(EMPTY) + nothing("api_getHostPersonaList") +
                                   Answers{{"api_getSystemFacts", NO_FACTS}}}}),
    };
}

/// Privileges and the controllers of one transport.
std::vector<Operations> controllerAssociations(const std::string& transport,
                                               const std::string& initiator,
                                               const std::string& privilege,
                                               const std::string& controller) {
    const Answers enumerated =
        of("enumerateInstances",
           Answers{{"api_wwnIntToString#all", transport == "SCSI" ? UNTOUCHED : SOME}} +
               walk(UNTOUCHED) +
               each(UNTOUCHED, {"api_qrvOpenForCimserver#2", "enumerateInstanceNames",
                                "enumerateInstanceNames:2"})) +
        walk(EMPTY) + each(EMPTY, {"api_qrvOpenForCimserver#2", "enumerateInstanceNames"});
    const Answers toControllers = each(EMPTY, {"api_getSCSIProtocolControllers", "cim_sem_wait#4"});
    const Answers pinned =
        of("getInstance", Answers{{"deliver", PASSES}} +
                              each(ABSENT, {"getInstance", "getClass", "api_qrvOpenForCimserver#2",
                                            "api_getHostPaths", "cim_sem_wait"}));
    const Answers dropped = Answers{{"deliver", SOME}} + walk(SOME);
    const auto begin = privilege.find('"');
    return {
        association("QRV_PrivilegeFor" + transport + "Controller",
                    end("Privilege", privilege) + "," + end("TargetElement", controller),
                    LINK + enumerated,
                    {{privilege, confirmed(UNTOUCHED) + toControllers + narrowed(UNTOUCHED)},
                     {controller, ofController(FAILED)}}),
        association(
            std::string(transport == "SCSI" ? "QRV_SPC" : "QRV_iSPC") + "AssociatedPrivilege",
            end("Subject", initiator) + "," + end("Target", controller) +
                ",UseKey=" + privilege.substr(begin),
            pinned + Answers{{"getClass", EMPTY}} + dropped + tableless(UNTOUCHED),
            {{initiator, confirmed(UNTOUCHED) +
                             each(UNTOUCHED, {"api_getHostPaths", "cim_sem_wait#1"}) +
                             each(UNCHANGED, {"api_getHosts", "cim_sem_wait#2"}) +
                             Answers{{"getClass#2", EMPTY}} + dropped + tableless(UNTOUCHED)},
             {controller, tableless(UNTOUCHED) +
                              each(EMPTY, {"getInstance#2", "getClass#2",
                                           "api_qrvOpenForCimserver#3", "api_getHostPaths"}) +
                              Answers{{"deliver", SOME}} + ofController(SOME)}}),
    };
}

std::vector<Operations> privilegeAssociations() {
    const Answers toElement =
        each(EMPTY, {"getInstance", "api_qrvOpenForCimserver#2", "api_getHostPaths",
                     "api_getSCSIProtocolControllers", "api_getHosts#2", "cim_sem_wait"});
    return {
        association("QRV_PrivilegeForStorageHardwareID",
                    end("Privilege", ON_PORT) + "," + end("PrivilegedElement", INITIATOR),
                    LINK + walk(FAILED),
                    {{ON_PORT, toElement},
                     {INITIATOR, each(EMPTY, {"api_getHosts", "cim_sem_wait#1"}) + walk(FAILED) +
                                     tableless(EMPTY)}}),
        association("QRV_PrivilegeForStorageHardwareIDCollection",
                    end("Privilege", ON_PORT) + "," + end("PrivilegedElement", ALPHA),
                    of("getInstance", NARROWED + each(ABSENT, {"api_getSCSIProtocolControllers",
                                                               "cim_sem_wait"})) +
                        walk(FAILED) + tableless(EMPTY),
                    {{ON_PORT, toElement + NARROWED}, {ALPHA, walk(FAILED) + tableless(EMPTY)}}),
        association("QRV_ManagementServiceForAuthorizedPrivilege",
                    end("Antecedent", PRIVILEGE_SERVICE) + "," + end("Dependent", ON_PORT),
                    LINK + walk(FAILED),
                    {{PRIVILEGE_SERVICE, confirmed(UNTOUCHED) + OWNER + walk(FAILED)},
                     {ON_PORT, confirmed(UNTOUCHED) + OWNER + narrowed(UNTOUCHED)}}),
    };
}

Operation renaming(const std::string& className, const char* deviceID) {
    const std::string failed = className + "::modifyInstance of SPC returned an error - ";
    const std::string noHost = "1 " + failed + "No host name was given";
    const std::string timedOut = "1 " + failed + "Internal error: Semaphore Timed-Out";
    return change(controller(className, deviceID), "",
                  {CIMProperty(CIMName("ElementName"), CIMValue(String("gamma")))},
                  {{"api_initSPCParamData", "1 " + className + " out of memory."},
                   {"api_getSCSIProtocolControllers_chunk", UNCHANGED},
                   {"api_getHosts#1", UNCHANGED},
                   {"api_getHosts", noHost},
                   {"api_setHost", "1 " + failed + "%s"},
                   {"cim_sem_wait", UNCHANGED},
                   {"cim_sem_wait#3", noHost},
                   {"cim_sem_wait#4", timedOut},
                   {"cim_sem_wait#all", timedOut}});
}

Operations changes() {
    const std::string persona = "1 QRV_StorageHardwareIDCollection, Setting host persona: ";
    const std::string domain = "1 QRV_StorageHardwareIDCollection, Setting host domain:";
    const std::string removing = "1  Failed to remove host, ";
    return {
        change(collectionOf("beta"), "_persona",
               {CIMProperty(CIMName("HostPersonaID"), CIMValue(Uint32(1)))},
               {{"api_setHost", persona + "%s"}, {"cim_sem_wait", persona + "Access busy."}}),
        change(collectionOf("beta"), "_domain",
               {CIMProperty(CIMName("Domain"), CIMValue(String("east")))},
               {{"api_setHostDomain", domain + "%s"}, {"cim_sem_wait", domain + "Access busy."}}),
        removal(collectionOf("bare"),
                {{"api_removeHost", removing + "%s"},
                 {"cim_sem_wait", removing + "Internal error: Semaphore Timed-Out"}}),
        renaming("QRV_SCSIController", "HS:1"),
        renaming("QRV_iSCSIController", "HS:0"),
    };
}

Operations methods() {
    const std::map<int, int> creation{{17, 4096}, {3, 5}, {19, 5}}, members{{3, 4096}, {19, 5}},
        deletion{{3, 4096}, {16, 4096}}, chap{{3, 4096}, {51, 4096}};
    const std::string ofAlpha = "Collection@" + ALPHA;
    const std::string badWwn = "5 Invalid WWN for an FC path, StorageID ";
    const std::string needsList = "4096 Path " + KNOWN + " on port 0:1:1 already exists";
    const std::string gone = "4096 StorageHardwareID root/qrv:" + INITIATOR + " not found";
    return {
        hostMethod("CreateStorageHardwareID", "_newHost", "IDType#2 StorageID=" + NEW,
                   "api_createHost", creation,
                   Answers{{"api_wwnStringToInt", badWwn + NEW}} +
                       each(UNCHANGED, {"api_getHostPaths", "api_getHosts", "cim_sem_wait#1",
                                        "cim_sem_wait#2"})),
        hostMethod("CreateStorageHardwareID", "_newPath",
                   "ElementName=beta StorageID=iqn.new IDType#5", "api_addPath", creation,
                   each("4 Host beta already exists", {"api_getHostPaths", "cim_sem_wait#1"})),
        hostMethod("CreateStorageHardwareID", "_newPersona", "IDType#2 StorageID=" + KNOWN,
                   "api_setHost", creation,
                   Answers{{"api_wwnStringToInt", badWwn + KNOWN}} +
                       each(needsList.c_str(), {"api_getHostPaths", "cim_sem_wait#1"})),
        hostMethod(
            "DeleteStorageHardwareID", "", "HardwareID@" + INITIATOR, "api_removePath", deletion,
            Answers{{"hashtable_put", UNCHANGED}} +
                each(gone.c_str(), {"getInstance", "api_qrvOpenForCimserver#2", "api_getHostPaths",
                                    "cim_sem_wait#1", "cim_sem_wait#all"})),
        hostMethod("CreateHardwareIDCollection", "",
                   "ElementName=new HardwareIDs[" + fcID(NEW) + "]", "api_createHost", members),
        hostMethod("AddHardwareIDsToCollection", "", ofAlpha + " HardwareIDs[" + fcID(NEW) + "]",
                   "api_addPath", members),
        hostMethod("SetISCSICHAP", "", ofAlpha + " InitiatorSecret=twelve_chars", "api_setHost",
                   chap),
        hostMethod("RemoveISCSICHAP", "", ofAlpha, "api_setHost", chap),
    };
}

Operations refusedMethods() {
    Operations all;
    for (const std::string name : {"RemoveAccess", "AssignAccess", "StartService", "StopService"})
        all.push_back(
            method(PRIVILEGE_SERVICE, name, "", {{CLEAN, "1 " + name + " not supported"}}));
    return all;
}

Operations table() {
    std::vector<Operations> parts{objects(), changes(), methods(), refusedMethods()};
    for (const auto& more :
         {hostAssociations(), settingAssociations(), privilegeAssociations(),
          controllerAssociations("SCSI", INITIATOR, ON_PORT, FC_CONTROLLER),
          controllerAssociations("iSCSI", iscsiID(IQN), ON_ISCSI_PORT, ISCSI_CONTROLLER)})
        parts.insert(parts.end(), more.begin(), more.end());
    Operations all;
    for (const Operations& part : parts) all.insert(all.end(), part.begin(), part.end());
    return all;
}

}  // namespace

void PrintTo(const Operation& operation, std::ostream* out) {
    *out << operation.name;
}

const std::vector<Operation>& operations() {
    static const Operations all = table();
    return all;
}

}  // namespace qrvtest

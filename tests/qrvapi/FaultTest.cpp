#include <dlfcn.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <functional>
#include <map>

#include "ArrayTest.h"

namespace control = qrvapi::control;
using control::Repeat;
using ::testing::ElementsAre;

namespace {

using FaultTest = ArrayTest;

int readHosts() {
    api_HostsInfo_t info{};
    const GateHeld gate;
    const auto status = api_getHosts(nullptr, QRV_NO_WWN, nullptr, &info, 1, 0);
    api_freeHosts(&info);
    return status.code;
}

int readPaths() {
    int count = 0;
    api_hardwareID_t* records = nullptr;
    const GateHeld gate;
    const int code = api_getHostPaths(nullptr, nullptr, nullptr, &count, &records, 1);
    std::free(records);
    return code;
}

int waitAndPost() {
    const int code = cim_sem_wait();
    if (code == 0) cim_sem_post();
    return code;
}

int makeTable() {
    auto* const table = create_string_hashtable(5, 0.5F);
    delete_hashtable(table);
    return table == nullptr ? 0 : 1;
}

int putKey() {
    auto* const table = create_string_hashtable(5, 0.5F);
    hashtable_lock(table);
    const int code = hashtable_put(table, "key", 0);
    hashtable_clear(table);
    hashtable_unlock(table);
    delete_hashtable(table);
    return code;
}

int readFacts() {
    api_SystemFacts_t facts{};
    return api_getSystemFacts(&facts);
}

int readPersonas() {
    api_hostpersonalist_t list{};
    const GateHeld gate;
    const auto status = api_getHostPersonaList(&list, 1);
    api_freeHostPersonas(&list);
    return status.code;
}

int readSets() {
    api_setlist list{};
    const GateHeld gate;
    const auto status = api_getDomainSets(nullptr, 0, &list);
    api_freeSets(&list);
    return status.code;
}

int readIscsiPorts() {
    api_ISCSIPortsInfo_t info{};
    const GateHeld gate;
    const int code = api_getISCSIPorts(&info);
    free_if_not_null(info.ports);
    return code;
}

/// Reads volumes with one of the two calls.
template <class Call>
int readVolumes(Call&& call) {
    int count = 0;
    api_vv_t* records = nullptr;
    const GateHeld gate;
    const int code = call(&count, &records);
    free_if_not_null(records);
    return code;
}

int makeFilter() {
    api_getvv_filters_t filters{};
    const int made = api_getvv_filter_init(&filters, 1);
    const int added = api_getvv_filter_add(&filters, 5, 1, "a|b");
    api_getvv_filter_free(&filters);
    return made == 0 ? added : made;
}

int readControllers() {
    api_VLUNsInfo query{};
    const GateHeld gate;
    const int code = api_getSCSIProtocolControllers(&query);
    api_freeVLUNs(&query);
    return code;
}

/// One step of a walk with the read of a chunk.
template <class Call>
int walk(Call&& call) {
    api_VLUNsInfo query{};
    api_spc_param_data param;
    const int prepared = api_initSPCParamData(&param);
    const GateHeld gate;
    const int code = prepared == 0 ? call(&query, &param) : prepared;
    api_freeVLUNs(&query);
    api_freeSPCParamData(&param);
    return code;
}

int readVlunChunk(api_VLUNsInfo* query, api_spc_param_data* param) {
    qrv_u32 cursor = 0, pass = 0;
    return api_getActiveAndTemplateVLUNs_chunk(query, &pass, param, &cursor, 200);
}

int readControllerChunk(api_VLUNsInfo* query, api_spc_param_data* param) {
    qrv_u32 cursor = 0;
    return api_getSCSIProtocolControllers_chunk(query, param, &cursor, 200);
}

/// A change under the gate that leaves the array as it was when it can be made again.
template <class Call>
int change(Call&& call) {
    api_evtparam_t event{};
    const GateHeld gate;
    return call(&event).code;
}

constexpr qrv_u64 newWwn = 0x77;

api_Status_t createNew(api_evtparam_t* event) {
    const auto status = api_createHost(event, "new", 1, &newWwn, 0, nullptr, 0, nullptr, nullptr,
                                       nullptr, 0, 1, nullptr);
    if (status.code == ERR_UNKNOWN) control::removeHost("new");
    return status;
}

api_Status_t removeNew(api_evtparam_t* event) {
    control::addHost(R"({"name": "new", "persona": 1})");
    const auto status = api_removeHost(event, "new");
    if (status.code != ERR_UNKNOWN) control::removeHost("new");
    return status;
}

constexpr std::string_view newPath = R"({"wwn": "0000000000000077"})";

api_Status_t addNew(api_evtparam_t* event) {
    const auto status =
        api_addPath(event, "empty", 1, &newWwn, 0, nullptr, 0, nullptr, nullptr, nullptr);
    if (status.code == ERR_UNKNOWN) control::removePath("empty", newPath);
    return status;
}

api_Status_t removeNewPath(api_evtparam_t* event) {
    control::addPath("empty", newPath);
    const auto status = api_removePath(event, "empty", 0, newWwn, nullptr, 0);
    if (status.code != ERR_UNKNOWN) control::removePath("empty", newPath);
    return status;
}

int removeVolumes() {
    api_evtparam_t event{};
    const GateHeld gate;
    return api_removeVVs(&event, nullptr, 0, 0, 0);
}

template <class Place, class Call>
int fill(Place place, Call&& call) {
    return call(&place);
}

int writePattern() {
    api_pattern_t pattern{};
    char text[9] = "";
    return api_constructPattern(text, sizeof text, &pattern);
}

int writeWwn() {
    char text[17];
    return api_wwnIntToString(0, 5, text, sizeof text);
}

/// A good call of every function that can fail, with its outcome as a number.
const std::map<std::string_view, std::function<int()>> goodCalls = {
    {"api_addPath", [] { return change(addNew); }},
    {"api_authorizeCIMUser",
     [] { return api_authorizeCIMUser("admin", "", "qrv_storagesetting.modifyinstance"); }},
    {"api_constructPattern", writePattern},
    {"api_convertStrLPIDtoPortID",
     [] {
         return fill(lpid_t(),
                     [](auto* port) { return api_convertStrLPIDtoPortID("0:1:1", port); });
     }},
    {"api_createHost", [] { return change(createNew); }},
    {"api_getActiveAndTemplateVLUNs_chunk", [] { return walk(readVlunChunk); }},
    {"api_getDomainSets", readSets},
    {"api_getFCPortLPID",
     [] {
         return fill(lpid_t(),
                     [](auto* port) { return api_getFCPortLPID(0x2011000000000001, port); });
     }},
    {"api_getHostPaths", readPaths},
    {"api_getHostPersonaList", readPersonas},
    {"api_getHosts", readHosts},
    {"api_getISCSIPorts", readIscsiPorts},
    {"api_getOwnerName",
     [] {
         return fill(std::array<char, 256>(),
                     [](auto* text) { return api_getOwnerName(text->data()); });
     }},
    {"api_getSCSIProtocolControllers", readControllers},
    {"api_getSCSIProtocolControllers_chunk", [] { return walk(readControllerChunk); }},
    {"api_getSystemContact",
     [] {
         return fill(std::array<char, 256>(),
                     [](auto* text) { return api_getSystemContact(text->data()); });
     }},
    {"api_getSystemDualIP", [] { return fill(api_ipaddr_t(), api_getSystemDualIP); }},
    {"api_getSystemFacts", readFacts},
    {"api_getVVs",
     [] {
         return readVolumes([](int* count, api_vv_t** records) {
             return api_getVVs(nullptr, nullptr, count, records, 1);
         });
     }},
    {"api_getVVs_chunk",
     [] {
         return readVolumes([](int* count, api_vv_t** records) {
             qrv_u32 cursor = 0;
             return api_getVVs_chunk(&cursor, 0, nullptr, count, records, 1);
         });
     }},
    {"api_getiSCSIPortLPID",
     [] {
         return fill(lpid_t(), [](auto* port) {
             return api_getiSCSIPortLPID("IQN.2001-05.com.example:array", port);
         });
     }},
    {"api_getvv_filter_add", makeFilter},
    {"api_getvv_filter_init", makeFilter},
    {"api_initPattern", [] { return fill(api_pattern_t(), api_initPattern); }},
    {"api_initSPCParamData", [] { return walk(readVlunChunk); }},
    {"api_qrvOpenForCimserver", [] { return api_qrvOpenForCimserver("viewer"); }},
    {"api_removeHost", [] { return change(removeNew); }},
    {"api_removePath", [] { return change(removeNewPath); }},
    {"api_removeVVs", removeVolumes},
    {"api_setHost",
     [] {
         return change([](api_evtparam_t* event) {
             return api_setHost(event, "beta", nullptr, 0, nullptr, 1, 1, nullptr);
         });
     }},
    {"api_setHostDomain",
     [] {
         return change(
             [](api_evtparam_t* event) { return api_setHostDomain(event, "beta", "-unset"); });
     }},
    {"api_wwnIntToString", writeWwn},
    {"api_wwnStringToInt",
     [] {
         return fill(qrv_u64(),
                     [](auto* wwn) { return api_wwnStringToInt("5", nullptr, wwn).code; });
     }},
    {"cim_sem_wait", waitAndPost},
    {"cluster_num_nodes_alive", [] { return fill(int(), cluster_num_nodes_alive); }},
    {"create_string_hashtable", makeTable},
    {"hashtable_put", putKey},
};

/// Allocations that a good call makes before it comes to the function itself.
const std::map<std::string_view, unsigned> allocationsBefore = {
    {"api_getActiveAndTemplateVLUNs_chunk", 2},
    {"api_getSCSIProtocolControllers_chunk", 2},
    {"hashtable_put", 1},
};

TEST_F(FaultTest, EveryFunctionFailsAsItsRowSays) {
    for (const auto& function : control::functions()) {
        SCOPED_TRACE(function.name);
        EXPECT_NE(dlsym(RTLD_DEFAULT, std::string(function.name).c_str()), nullptr);
        if (function.returns == control::Returns::nothing) {
            EXPECT_THROW(control::failCall(function.name), std::invalid_argument);
            continue;
        }
        const auto& call = goodCalls.at(function.name);
        const int good = call();
        auto codes = function.codes;
        codes.push_back(function.failure);
        for (const int code : codes) {
            control::failCall(function.name, 2, Repeat::once, code);
            EXPECT_EQ(call(), good);
            EXPECT_EQ(call(), code);
            EXPECT_EQ(call(), good);
        }
        control::failCall(function.name, 1, Repeat::always);
        EXPECT_EQ(call(), function.failure);
        EXPECT_EQ(call(), function.failure);
        control::clearFaults();
        EXPECT_EQ(call(), good);
    }
}

TEST_F(FaultTest, EveryAllocationCanFail) {
    for (const auto& function : control::functions()) {
        if (!function.allocates) continue;
        SCOPED_TRACE(function.name);
        const auto& call = goodCalls.at(function.name);
        const int good = call();
        const auto before = allocationsBefore.find(function.name);
        control::failAllocation(before == allocationsBefore.end() ? 1 : before->second + 1);
        const int failed = call();
        EXPECT_NE(failed, good);
        EXPECT_EQ(failed,
                  function.name.substr(0, 4) == "api_" ? ERR_API_NO_MEMORY : function.failure);
        EXPECT_EQ(call(), good);
    }
}

TEST_F(FaultTest, WrongInjectionsAreRefused) {
    EXPECT_THROW(control::failCall("api_getTea"), std::invalid_argument);
    EXPECT_THROW(control::failCall("api_getHosts", 0), std::invalid_argument);
}

TEST_F(FaultTest, FailedCallsLeaveTheirResultsAlone) {
    api_HostsInfo_t info{42, nullptr};
    int count = 42;
    api_hardwareID_t* records = nullptr;
    control::failCall("api_getHosts");
    control::failCall("api_getHostPaths");
    const GateHeld gate;
    EXPECT_EQ(api_getHosts(nullptr, QRV_NO_WWN, nullptr, &info, 1, 0).code, ERR_API_GETHOST_FAILED);
    EXPECT_EQ(api_getHostPaths(nullptr, nullptr, nullptr, &count, &records, 1),
              ERR_API_GETHOST_FAILED);
    EXPECT_EQ(info.count, 42U);
    EXPECT_EQ(count, 42);
}

TEST_F(FaultTest, CallsAreRecordedWithTheirArguments) {
    readHosts();
    control::recordCalls(true);
    control::timeOutGate();
    EXPECT_EQ(cim_sem_wait(), ETIMEDOUT);
    paths("5", nullptr, "alpha", 0);
    control::recordCalls(false);
    readHosts();
    const auto calls = control::calls();
    ASSERT_EQ(calls.size(), 4U);
    EXPECT_EQ(calls[0].function, "cim_sem_wait");
    EXPECT_TRUE(calls[0].failedByFault);
    EXPECT_EQ(calls[2].function, "api_getHostPaths");
    EXPECT_FALSE(calls[2].failedByFault);
    EXPECT_FALSE(calls[2].event.has_value());
    EXPECT_EQ(calls[2].argument("wwn"), "5");
    EXPECT_EQ(calls[2].argument("iscsiName"), "null");
    EXPECT_EQ(calls[2].argument("hostName"), "alpha");
    EXPECT_EQ(calls[2].argument("withUnassigned"), "0");
    EXPECT_EQ(calls[2].argument("other"), "");
    EXPECT_EQ(control::callCount("cim_sem_wait"), 2U);
    EXPECT_EQ(control::callCount("api_getHosts"), 0U);
    control::resetCounters();
    EXPECT_EQ(control::callCount("cim_sem_wait"), 0U);
}

TEST_F(FaultTest, WhatCallersHoldIsCounted) {
    EXPECT_TRUE(control::outstanding().idle());
    int count = 0;
    api_hardwareID_t* records = nullptr;
    api_HostsInfo_t info{};
    cim_sem_wait();
    ASSERT_EQ(api_getHostPaths(nullptr, nullptr, nullptr, &count, &records, 1), 0);
    ASSERT_EQ(api_getHosts(nullptr, QRV_NO_WWN, nullptr, &info, 1, 0).code, ERR_UNKNOWN);
    const auto held = control::outstanding();
    EXPECT_EQ(control::describe(held),
              "1 lists, 1 blocks, gate held, 0 tables (0 locked, 0 filled)");
    EXPECT_FALSE(held.idle());
    cim_sem_post();
    EXPECT_FALSE(control::outstanding().idle());
    std::free(records);
    EXPECT_EQ(control::outstanding().blocks, 0U);
    EXPECT_FALSE(control::outstanding().idle());
    api_freeHosts(&info);
    EXPECT_TRUE(control::outstanding().idle());
}

TEST_F(FaultTest, MisuseIsReported) {
    control::setLogLevel(0);
    control::captureLog(2);
    api_HostsInfo_t info{};
    EXPECT_EQ(api_getHosts("alpha", QRV_NO_WWN, nullptr, &info, 1, 0).code, ERR_UNKNOWN);
    auto copy = info;
    api_freeHosts(&info);
    EXPECT_EQ(info.hosts, nullptr);
    api_freeHosts(&info);
    api_freeHosts(nullptr);
    api_freeHosts(&copy);
    cim_sem_post();
    const auto lines = control::takeLogLines();
    EXPECT_EQ(lines.size(), 3U);
    EXPECT_THAT(takeViolations(),
                ElementsAre("api_getHosts was called without the access gate",
                            "api_freeHosts was given a list that isn't out",
                            "cim_sem_post was called while nobody held the access gate"));
}

}  // namespace

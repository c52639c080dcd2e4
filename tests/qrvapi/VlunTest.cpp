#include <cstdlib>
#include <cstring>
#include <functional>
#include <memory>

#include "ArrayTest.h"

namespace control = qrvapi::control;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

namespace {

std::string text(const api_vlun_t& vlun) {
    char line[1200];
    std::snprintf(line, sizeof line, "%s%s %s l%u %s%s>%s%s%s%s t%d a%d h%u@%u", vlun.deviceID,
                  vlun.isTemplate ? "*" : "", vlun.vvname, vlun.lun, vlun.hostwwn,
                  vlun.hostiscsiname, vlun.parentDeviceID, vlun.portwwn, vlun.portsasaddr,
                  vlun.portiscsiname, vlun.hporttype, vlun.volAccess, vlun.hostID, vlun.hostIndex);
    return line;
}

/// The record of a walk, which goes back at the end.
struct Walk {
    Walk() { EXPECT_EQ(api_initSPCParamData(&param), 0); }
    Walk(const Walk&) = delete;
    Walk& operator=(const Walk&) = delete;
    ~Walk() { api_freeSPCParamData(&param); }

    api_spc_param_data param;
};

using Lines = std::vector<std::string>;

/// A change that a client makes to a host.
template <class Call>
void change(Call&& call) {
    api_evtparam_t event{};
    const GateHeld gate;
    EXPECT_EQ(call(&event).code, ERR_UNKNOWN);
}

void rename(const char* from, const char* to) {
    change([&](auto* event) { return api_setHost(event, from, nullptr, 0, nullptr, 0, 0, to); });
}

class VlunTest : public ArrayTest {
  protected:
    struct Chunks {
        Lines lines;
        std::vector<unsigned> sizes;
        std::vector<std::pair<std::string, lpid_t>> ends;  // host and port
    };

    static void take(api_VLUNsInfo& query, Chunks& chunks) {
        for (unsigned i = 0; i < query.count; ++i) {
            chunks.lines.push_back(text(query.vluns[i]));
            chunks.ends.emplace_back(query.vluns[i].hostname, query.vluns[i].port);
        }
        chunks.sizes.push_back(query.count);
        query.count = 0;
        std::free(query.vluns);
        query.vluns = nullptr;
    }

    /// A whole walk over VLUNs and templates.
    static Chunks walk(api_VLUNsInfo query = {}, qrv_u32 size = 200) {
        Chunks chunks;
        Walk walk;
        qrv_u32 cursor = 0, pass = 0;
        do {
            const GateHeld gate;
            EXPECT_EQ(
                api_getActiveAndTemplateVLUNs_chunk(&query, &pass, &walk.param, &cursor, size), 0);
            take(query, chunks);
        } while (cursor != 0 || pass < 2);
        return chunks;
    }

    static Chunks walkControllers(api_VLUNsInfo query = {}, qrv_u32 size = 200) {
        Chunks chunks;
        Walk walk;
        qrv_u32 cursor = 0;
        do {
            const GateHeld gate;
            EXPECT_EQ(api_getSCSIProtocolControllers_chunk(&query, &walk.param, &cursor, size), 0);
            take(query, chunks);
        } while (cursor != 0);
        return chunks;
    }

    static Lines controllers(api_VLUNsInfo query = {}) {
        const GateHeld gate;
        EXPECT_EQ(api_getSCSIProtocolControllers(&query), 0);
        Lines lines;
        for (unsigned i = 0; i < query.count; ++i) lines.emplace_back(query.vluns[i].deviceID);
        api_freeVLUNs(&query);
        return lines;
    }

    static Lines luns(const api_VLUNsInfo& query) {
        Lines numbers;
        for (const auto& line : walk(query).lines) {
            const auto place = line.find(" l") + 2;
            numbers.push_back(line.substr(place, line.find(' ', place) - place));
        }
        return numbers;
    }
};

TEST_F(VlunTest, RecordsTellAllKinds) {
    EXPECT_THAT(
        walk().lines,
        ElementsAre(
            "MS:0:1:1:10 v0 l1 0000000000000005>0:1:12011000000000001 t1 a3 h10@0",
            "MS:0:2:1:10 v0 l2 >0:2:1iqn.2001-05.com.example:array t2 a3 h10@0",
            "HS:11 v0 l3 > t1 a1 h11@1", "HS:11 v1 l4 > t1 a3 h11@1", "HSet:10 v0 l5 > t1 a3 h10@0",
            "HSet:11 v0 l5 > t1 a3 h11@1",
            "PP:1:1:1 v0 l6 >1:1:12111000000000001 t1 a3 h4294967283@4294967283",
            "PP:0:2:1 v0 l7 iqn.2001-05.com.Example:a>0:2:1iqn.2001-05.com.example:array t2 a3 "
            "h10@0",
            "MS:0:3:1:11 v0 l8 >0:3:15000000000000003 t3 a3 h11@1",
            "MS:0:1:1:10* v0 l1 >0:1:12011000000000001 t1 a3 h10@0",
            "HS:10* set:pair l9 > t2 a3 h10@0", "HS:10* set:void l10 > t1 a3 h10@0"));
}

TEST_F(VlunTest, EmptyVolumeSetsShowInTheirTemplates) {
    const auto emptySets = [] {
        std::vector<int> flags;
        api_VLUNsInfo query{};
        Walk walk;
        qrv_u32 cursor = 0, pass = 1;
        const GateHeld gate;
        EXPECT_EQ(api_getActiveAndTemplateVLUNs_chunk(&query, &pass, &walk.param, &cursor, 0), 0);
        for (unsigned i = 0; i < query.count; ++i) flags.push_back(query.vluns[i].isempty_vvset);
        api_freeVLUNs(&query);
        return flags;
    };
    EXPECT_THAT(emptySets(), ElementsAre(0, 0, 1));
    control::removeVlun(R"({"kind": "hostSees", "host": "beta", "volume": "v1", "lun": 4})");
    api_evtparam_t event{};
    const api_name_t names[] = {{"v1"}, {"v3"}};
    cim_sem_wait();
    EXPECT_EQ(api_removeVVs(&event, names, 2, 0, 0), 0);
    cim_sem_post();
    EXPECT_THAT(emptySets(), ElementsAre(0, 1, 1));
}

TEST_F(VlunTest, FiltersCountOnlyWithTheirFlags) {
    api_VLUNsInfo query{};
    query.lun = 5;
    std::strcpy(query.hostname, "nobody");
    EXPECT_THAT(luns(query), SizeIs(12));
    query.hostnameIsSet = 1;
    EXPECT_THAT(luns(query), IsEmpty());
    std::strcpy(query.hostname, "beta");
    EXPECT_THAT(luns(query), ElementsAre("3", "4", "5", "8"));
    query.vluntypeIsSet = 1;
    query.vluntype = API_VLUN_HOST_SEES;
    EXPECT_THAT(luns(query), ElementsAre("3", "4"));
    query.lunIsSet = 1;
    query.lun = 4;
    EXPECT_THAT(luns(query), ElementsAre("4"));

    query = {};
    query.portIsSet = 1;
    query.port = 33;
    EXPECT_THAT(luns(query), ElementsAre("2", "7"));
    query.port = QRV_NO_PORT;
    EXPECT_THAT(luns(query), ElementsAre("3", "4", "5", "5", "9", "10"));
    query = {};
    query.vvnameIsSet = 1;
    std::strcpy(query.vvname, "set:pair");
    EXPECT_THAT(luns(query), ElementsAre("9"));
    std::strcpy(query.vvname, "v1");
    EXPECT_THAT(luns(query), ElementsAre("4"));
}

TEST_F(VlunTest, NarrowedWalksFindWhatTheWholeWalkHas) {
    const auto check = [](const char* when) {
        SCOPED_TRACE(when);
        const auto all = walk();
        for (const char* const host : {"", "alpha", "beta", "omega", "empty"}) {
            for (const lpid_t port : {0, 17, 33, 49, 273, int(QRV_NO_PORT)}) {
                api_VLUNsInfo query{};
                query.hostnameIsSet = *host != '\0';
                std::strcpy(query.hostname, host);
                query.portIsSet = port != 0;
                query.port = port;
                Lines expected;
                for (std::size_t i = 0; i < all.lines.size(); ++i) {
                    const bool meets = (!query.hostnameIsSet || all.ends[i].first == host) &&
                                       (!query.portIsSet || all.ends[i].second == port);
                    if (meets) expected.push_back(all.lines[i]);
                }
                EXPECT_EQ(walk(query, 2).lines, expected) << host << " " << port;
            }
        }
    };
    check("at the start");
    for (const char* const vlun :
         {R"({"kind": "hostSees", "host": "beta", "volume": "v1", "lun": 4})",
          R"({"kind": "hostSet", "hostSet": "both", "volume": "v0", "lun": 5})",
          R"({"kind": "hostSees", "template": true, "host": "alpha", "volumeSet": "pair", "lun": 9,
              "portType": "iscsi"})"}) {
        control::removeVlun(vlun);
        check(vlun);
    }
    rename("alpha", "omega");
    control::removeHost("empty");
    control::addHost(R"({"name": "alpha", "persona": 1})");
    control::addVlun(R"({"kind": "matchedSet", "port": "0:1:1", "host": "alpha", "volume": "v0",
                         "lun": 2})");
    check("with other hosts");
}

TEST_F(VlunTest, EveryWalkHasTheHostsOfItsOwnStart) {
    const std::function<void()> changes[] = {
        [] { control::addHost(R"({"name": "late", "persona": 1})"); },
        [] { control::addPath("late", R"({"wwn": "00000000000000C5"})"); },
        [] { control::removePath("late", R"({"wwn": "00000000000000C5"})"); },
        [] { rename("late", "later"); },
        [] { change([](auto* event) { return api_setHostDomain(event, "later", "archive"); }); },
        [] {
            change([](auto* event) { return api_removePath(event, "alpha", 0, 5, nullptr, 0); });
        },
        [] { control::removeHost("empty"); },
        [] { control::reset(); }};
    api_VLUNsInfo query{};
    const auto begin = [&](Walk& walk) {
        qrv_u32 cursor = 0;
        const GateHeld gate;
        const int code = api_getSCSIProtocolControllers_chunk(&query, &walk.param, &cursor, 1);
        api_freeVLUNs(&query);
        return code;
    };
    Query assigned;
    assigned.withUnassigned = 0;
    auto before = hosts(assigned);
    auto older = std::make_unique<Walk>();
    EXPECT_EQ(begin(*older), 0);
    for (const auto& step : changes) {
        SCOPED_TRACE(&step - changes);
        Walk failing;
        control::failAllocation();
        EXPECT_EQ(begin(failing), ERR_API_NO_MEMORY);
        EXPECT_EQ(failing.param.allHosts.hosts, nullptr);
        step();
        EXPECT_EQ(begin(*older), 0);
        EXPECT_EQ(lines(older->param.allHosts), before);
        auto newer = std::make_unique<Walk>();
        EXPECT_EQ(begin(*newer), 0);
        older = std::move(newer);
        const auto now = hosts(assigned);
        EXPECT_NE(now, before);
        EXPECT_EQ(lines(older->param.allHosts), now);
        before = now;
    }
}

TEST_F(VlunTest, ControllersComeOnceForEachHost) {
    control::addVlun(R"({"kind": "portPresents", "port": "1:1:1", "host": "beta", "volume": "v0",
                         "lun": 6})");
    EXPECT_THAT(controllers(),
                ElementsAre("MS:0:1:1:10", "MS:0:2:1:10", "HS:11", "HSet:10", "HSet:11", "PP:1:1:1",
                            "PP:0:2:1", "MS:0:3:1:11", "PP:1:1:1", "HS:10", "HS:10"))
        << "the last two are on ports of two types";
    for (const qrv_u32 size : {0U, 1U, 3U, 200U}) {
        EXPECT_THAT(walkControllers({}, size).lines, SizeIs(11)) << size;
    }
    api_VLUNsInfo query{};
    query.hostnameIsSet = 1;
    std::strcpy(query.hostname, "beta");
    EXPECT_THAT(controllers(query), ElementsAre("HS:11", "HSet:11", "MS:0:3:1:11", "PP:1:1:1"));
    EXPECT_THAT(walkControllers(query, 2).lines.back(),
                "PP:1:1:1 v0 l6 >1:1:12111000000000001 t1 a3 h11@1");
}

TEST_F(VlunTest, ChunksOfAnySizeMakeTheSameWalk) {
    const auto whole = walk({}, 0);
    EXPECT_THAT(whole.sizes, ElementsAre(9, 3));
    for (const qrv_u32 size : {1U, 2U, 3U, 5U, 9U, 200U}) {
        EXPECT_EQ(walk({}, size).lines, whole.lines) << size;
    }
    EXPECT_THAT(walk({}, 4).sizes, ElementsAre(4, 4, 1, 3));

    control::limitVlunChunks({0, 3, 0, 1});
    const auto limited = walk({}, 200);
    EXPECT_EQ(limited.lines, whole.lines);
    EXPECT_THAT(limited.sizes, ElementsAre(0, 3, 0, 1, 0, 3, 0, 1, 0, 1, 0, 1, 0, 2));
    control::limitVlunChunks({0, 2});
    EXPECT_THAT(walkControllers({}, 200).lines, SizeIs(10));
    EXPECT_THROW(control::limitVlunChunks({0, 0}), std::invalid_argument);
    control::limitVlunChunks({});
    EXPECT_THAT(walk({}, 200).sizes, ElementsAre(9, 3));
}

TEST_F(VlunTest, AWalkKeepsTheHostsOfItsStart) {
    Walk walk;
    api_VLUNsInfo query{};
    qrv_u32 cursor = 0, pass = 0;
    const auto next = [&] {
        const GateHeld gate;
        EXPECT_EQ(api_getActiveAndTemplateVLUNs_chunk(&query, &pass, &walk.param, &cursor, 200), 0);
        const auto index = query.vluns[query.count - 1].hostIndex;
        api_freeVLUNs(&query);
        return index;
    };
    EXPECT_EQ(next(), 1U);
    ASSERT_EQ(walk.param.allHosts.count, 3U);
    EXPECT_STREQ(walk.param.allHosts.hosts[1].name, "beta");
    EXPECT_EQ(walk.param.allHosts.hosts[0].pathCount, 3U);
    control::addHost(R"({"name": "late", "persona": 1})");
    control::addVlun(R"({"kind": "hostSees", "template": true, "host": "late", "volume": "v0",
                         "lun": 1})");
    EXPECT_EQ(next(), QRV_NO_HOST);
    EXPECT_EQ(cursor, 0U);
    EXPECT_EQ(pass, 2U);
    const GateHeld gate;
    EXPECT_EQ(api_getActiveAndTemplateVLUNs_chunk(&query, &pass, &walk.param, &cursor, 200),
              ERR_API_INVALID_ARGUMENT);
}

TEST_F(VlunTest, VlunsHoldWhatTheyExport) {
    constexpr auto vlun = R"({"kind": "hostSees", "host": "empty", "volume": "v3", "lun": 1})";
    control::addVlun(vlun);
    EXPECT_THROW(control::removeHost("empty"), control::ScenarioError);
    control::addPath("empty", R"({"iscsiName": "iqn.late"})");
    control::removeVlun(vlun);
    EXPECT_THROW(control::removeVlun(vlun), control::ScenarioError);
    control::removeHost("empty");
    EXPECT_THAT(walk().lines, SizeIs(12));
}

TEST_F(VlunTest, WhatIsMisusedIsReported) {
    control::setLogLevel(0);
    api_VLUNsInfo query{};
    api_freeVLUNs(&query);
    api_freeVLUNs(nullptr);
    api_spc_param_data param{};
    api_freeSPCParamData(&param);
    qrv_u32 cursor = 0;
    cim_sem_wait();
    EXPECT_EQ(api_getSCSIProtocolControllers_chunk(&query, &param, &cursor, 200),
              ERR_API_INVALID_ARGUMENT);
    ASSERT_EQ(api_initSPCParamData(&param), 0);
    EXPECT_EQ(control::outstanding().records, 1U);
    ASSERT_EQ(api_getSCSIProtocolControllers_chunk(&query, &param, &cursor, 200), 0);
    EXPECT_EQ(control::outstanding().records, 2U);
    EXPECT_EQ(control::outstanding().blocks, 1U);
    auto copy = query;
    api_freeVLUNs(&query);
    EXPECT_EQ(query.vluns, nullptr);
    api_freeVLUNs(&copy);
    auto old = param;
    api_freeSPCParamData(&param);
    api_freeSPCParamData(&param);
    api_freeSPCParamData(&old);
    cim_sem_post();
    EXPECT_THAT(takeViolations(),
                ElementsAre("api_freeVLUNs was given records that aren't out",
                            "api_freeSPCParamData was given a record that isn't out"));
}

TEST_F(VlunTest, GeneratedArraysHaveVluns) {
    control::generateArray({3, 4, 2, 0, 1000, 10});
    EXPECT_THAT(walk().lines, SizeIs(3 * 1010));
    EXPECT_THAT(controllers(), SizeIs(3 * 7)) << "host sees, four FC ports and two iSCSI ports";
    api_VLUNsInfo query{};
    query.hostnameIsSet = 1;
    std::strcpy(query.hostname, "host0000001");
    query.portIsSet = 1;
    query.port = 17;
    const auto chunks = walk(query);
    EXPECT_EQ(chunks.lines.front(), "MS:0:1:1:1 volume1 l1 >0:1:12011000000000001 t1 a3 h1@1");
    EXPECT_THAT(chunks.lines, SizeIs(143 + 2));
}

}  // namespace

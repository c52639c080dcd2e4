#include <arpa/inet.h>

#include <cstring>

#include "ArrayTest.h"

// What the array tells besides hosts, volumes and VLUNs.
namespace control = qrvapi::control;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

using CatalogueTest = ArrayTest;
using Lines = std::vector<std::string>;

Lines personas(qrv_u8 filter) {
    api_hostpersonalist_t list{};
    const GateHeld gate;
    EXPECT_EQ(api_getHostPersonaList(&list, filter).code, ERR_UNKNOWN);
    Lines lines;
    for (unsigned i = 0; i < list.count; ++i) {
        const auto& entry = list.hpes[i];
        lines.push_back(std::to_string(entry.hpe.hpe_num) + " " + entry.hpe.hpe_name + " " +
                        std::to_string(entry.hpe.hpe_capabilities) +
                        (entry.hpe.hpe_valid ? "" : " unsupported"));
        for (unsigned j = 0; j < entry.oscount; ++j) {
            EXPECT_EQ(entry.hos[j].hos_persona, entry.hpe.hpe_num);
            lines.back() += std::string(" | ") + entry.hos[j].hos_name;
        }
    }
    api_freeHostPersonas(&list);
    EXPECT_EQ(list.count, 0U);
    return lines;
}

TEST_F(CatalogueTest, PersonasComeWithTheirSystems) {
    EXPECT_THAT(personas(1), ElementsAre("1 Plain 0 | Linux 6 | AIX 7", "2 Multipath 7"));
    EXPECT_THAT(personas(0), ElementsAre("1 Plain 0 | Linux 6 | AIX 7", "2 Multipath 7",
                                         "3 Mainframe 0 unsupported"));
    control::reset();
    EXPECT_THAT(personas(1), IsEmpty());
}

Lines sets(const char* name) {
    api_setlist list{};
    const GateHeld gate;
    const auto status = api_getDomainSets(name, 0, &list);
    if (status.code != ERR_UNKNOWN) return {std::to_string(status.code)};
    Lines lines;
    for (unsigned i = 0; i < list.count; ++i) {
        const auto& set = list.sets[i];
        lines.push_back(std::to_string(set.id) + " " + set.name + " " + set.comment);
        for (unsigned j = 0; j < set.count; ++j) lines.back() += std::string(" | ") + set.values[j];
    }
    api_freeSets(&list);
    return lines;
}

TEST_F(CatalogueTest, DomainSetsComeWithTheirMembers) {
    constexpr auto all = "4294967295 all every one | finance | archive";
    EXPECT_THAT(sets(nullptr), ElementsAre("3 none ", all));
    EXPECT_THAT(sets("all"), ElementsAre(all));
    EXPECT_THAT(sets("ALL"), ElementsAre(std::to_string(ERR_QRV_SET_NOTFOUND)));
    control::reset();
    EXPECT_THAT(sets(""), IsEmpty());
}

TEST_F(CatalogueTest, ListsGoBackOnce) {
    control::setLogLevel(0);
    cim_sem_wait();
    api_hostpersonalist_t list{};
    api_setlist setList{};
    ASSERT_EQ(api_getHostPersonaList(&list, 1).code, ERR_UNKNOWN);
    ASSERT_EQ(api_getDomainSets(nullptr, 0, &setList).code, ERR_UNKNOWN);
    EXPECT_EQ(control::outstanding().records, 2U);
    cim_sem_post();
    auto copy = list;
    auto setCopy = setList;
    api_freeHostPersonas(&list);
    api_freeHostPersonas(&list);
    api_freeHostPersonas(&copy);
    api_freeSets(&setList);
    api_freeSets(&setCopy);
    EXPECT_THAT(takeViolations(),
                ElementsAre("api_freeHostPersonas was given a list that isn't out",
                            "api_freeSets was given a list that isn't out"));
}

TEST_F(CatalogueTest, TheSystemTellsItsFacts) {
    control::setSystem(R"({"name": "n", "hostName": "h", "ipv4Address": "192.0.2.2", "id": 1,
        "type": 14, "serial": "S", "nodes": 4, "contact": "who", "owner": "whose",
        "ipv6Address": "2001:db8::5", "unitRecords": true})");
    char text[256];
    ASSERT_EQ(api_getSystemContact(text), 0);
    EXPECT_STREQ(text, "who");
    ASSERT_EQ(api_getOwnerName(text), 0);
    EXPECT_STREQ(text, "whose");
    int nodes = 0;
    ASSERT_EQ(cluster_num_nodes_alive(&nodes), 0);
    EXPECT_EQ(nodes, 4);
    EXPECT_EQ(api_is_eos(), 1);
    api_ipaddr_t address{};
    ASSERT_EQ(api_getSystemDualIP(&address), 0);
    EXPECT_EQ(address.dual_flag, 3);
    EXPECT_EQ(address.ipv4_addr, inet_addr("192.0.2.2"));
    EXPECT_EQ(address.ipv6_addr[15], 5);
    control::setSystem(R"({"name": "n", "hostName": "h", "ipv4Address": "192.0.2.2", "id": 1,
        "type": 14, "serial": "S", "nodes": 1})");
    ASSERT_EQ(api_getSystemDualIP(&address), 0);
    EXPECT_EQ(address.dual_flag, 1);
    EXPECT_EQ(api_is_eos(), 0);
    EXPECT_EQ(api_getSystemContact(nullptr), ERR_API_INVALID_ARGUMENT);
}

TEST_F(CatalogueTest, PortsAreFoundByWhatTheyAreCalled) {
    lpid_t port = QRV_NO_PORT;
    EXPECT_EQ(api_getFCPortLPID(0x5000000000000003, &port), ERR_QRV_PORT_NOTFOUND) << "a SAS port";
    EXPECT_EQ(api_getiSCSIPortLPID("", &port), ERR_QRV_PORT_NOTFOUND);
    EXPECT_EQ(port, QRV_NO_PORT);
    EXPECT_EQ(api_getFCPortLPID(0x2111000000000001, &port), 0);
    EXPECT_EQ(port, 529);
    EXPECT_EQ(api_getiSCSIPortLPID("iqn.2001-05.com.EXAMPLE:array", &port), 0);
    EXPECT_EQ(port, 33);
    for (const auto* text : {"", "0:1", "0:1:1:1", "8:1:1", "0:32:1", "0:1:0", "0:1:16", "a:1:1"}) {
        EXPECT_EQ(api_convertStrLPIDtoPortID(text, &port), ERR_API_INVALID_ARGUMENT) << text;
        EXPECT_EQ(port, 33);
    }
    EXPECT_EQ(api_convertStrLPIDtoPortID("7:31:15", &port), 0);
    EXPECT_EQ(port, 4095);

    api_ISCSIPortsInfo_t info{};
    const GateHeld gate;
    ASSERT_EQ(api_getISCSIPorts(&info), 0);
    ASSERT_EQ(info.count, 1U);
    EXPECT_STREQ(info.ports[0].deviceID, "0:2:1");
    EXPECT_EQ(info.ports[0].portID, 33);
    EXPECT_EQ(control::outstanding().blocks, 1U);
    free_if_not_null(info.ports);
    free_if_not_null(nullptr);
}

TEST_F(CatalogueTest, WwnsAreReadAndWritten) {
    qrv_u64 wwn = 1;
    int digits = 0;
    for (const auto* text :
         {"", "xyz", "12345678901234567", "0", "fffffffffffffff6", " 5", "0x5"}) {
        EXPECT_EQ(api_wwnStringToInt(text, &digits, &wwn).code, ERR_API_WWN_INVALID) << text;
    }
    EXPECT_EQ(api_wwnStringToInt(nullptr, &digits, &wwn).code, ERR_API_WWN_INVALID);
    EXPECT_EQ(wwn, 1U);
    EXPECT_EQ(api_wwnStringToInt("0aBc", &digits, &wwn).code, ERR_UNKNOWN);
    EXPECT_EQ(wwn, 0xABCU);
    EXPECT_EQ(digits, 4);
    char text[17] = "untouched";
    EXPECT_EQ(api_wwnIntToString(0, wwn, text, 16), ERR_API_INVALID_ARGUMENT);
    EXPECT_STREQ(text, "untouched");
    EXPECT_EQ(api_wwnIntToString(0, wwn, text, sizeof text), 0);
    EXPECT_STREQ(text, "0000000000000ABC");
}

struct AddressCase {
    const char* text;
    int kind;
    const char* canonical;
};

TEST_F(CatalogueTest, AddressesGetTheirCanonicalForm) {
    constexpr AddressCase cases[] = {
        {"192.0.2.1", API_IPV4_OK, "192.0.2.1"},
        {"2001:DB8:0:0:0:0:0:10", API_IPV6_OK, "2001:db8::10"},
        {"::", API_IPV6_OK, "::"},
        {"192.0.2", API_IP_INVALID, "untouched"},
        {"[2001:db8::10]", API_IP_INVALID, "untouched"},
        {"orchard.example.com", API_IP_INVALID, "untouched"},
        {"", API_IP_INVALID, "untouched"},
        {nullptr, API_IP_INVALID, "untouched"},
    };
    for (const auto& [text, kind, canonical] : cases) {
        char buffer[46] = "untouched";
        EXPECT_EQ(validateConvertIP(text, buffer, sizeof buffer), kind) << text;
        EXPECT_STREQ(buffer, canonical);
    }
    char buffer[] = "untouched";
    EXPECT_EQ(validateConvertIP("192.0.2.1", buffer, 9), API_IP_INVALID);
    EXPECT_STREQ(buffer, "untouched");
}

TEST_F(CatalogueTest, AssertionsAreReportedAndSurvived) {
    control::setLogLevel(0);
    control::captureLog(2);
    qrv_print_no_evt("Assertion failed: %s\n", "x");
    qrv_panic("line %d\n", 7);
    const auto lines = control::takeLogLines();
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0].text, "Assertion failed: x\n");
    EXPECT_EQ(lines[1].text, "line 7\n");
    EXPECT_EQ(lines[1].level, 2);
}

}  // namespace

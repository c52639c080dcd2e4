#include <cstring>

#include "ArrayTest.h"

namespace control = qrvapi::control;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

namespace {

using HostsTest = ArrayTest;

// Ports: (node * 32 + slot) * 16 + port, so 0:1:1 is 17, 1:1:1 is 529, 0:2:1 is 33, 0:3:1 is 49.
constexpr auto alphaFc0 = "1 50@17/2011000000000001 0.0.0.0";
constexpr auto alphaFc1 = "1 50@529/2111000000000001 0.0.0.0";
constexpr auto alphaIscsi = "2 00iqn.2001-05.com.Example:a@33/0 10.0.0.1";
constexpr auto betaFc = "1 10000000000000B10@65532/0 0.0.0.0";
constexpr auto betaSas = "3 050000000000000B2@49/0 0.0.0.0";
constexpr auto freeFc = "1 10000000000000F10@17/2011000000000001 0.0.0.0";

const std::string alpha = std::string("10 alpha finance 2 Multipath here first | ") + alphaFc0 +
                          " | " + alphaFc1 + " | " + alphaIscsi;
const std::string beta = std::string("11 beta  1 Plain   | ") + betaFc + " | " + betaSas;
const std::string empty = "12 empty  1 Plain  ";
const std::string unassigned = std::string("4294967283   0    | ") + freeFc;

TEST_F(HostsTest, AllHostsComeInOrderWithTheUnassignedLast) {
    EXPECT_THAT(hosts({}), ElementsAre(alpha, beta, empty, unassigned));
    EXPECT_THAT(hosts({nullptr, QRV_NO_WWN, nullptr, 0, 0}), ElementsAre(alpha, beta, empty));
    EXPECT_THAT(
        hosts({"", QRV_NO_WWN, "", 1, 1}),
        ElementsAre("10 alpha finance 2 Multipath  ", "11 beta  1 Plain  ", "12 empty  1 Plain  "));
}

TEST_F(HostsTest, OneSelectionIsMetOrRefused) {
    EXPECT_THAT(hosts({"beta"}), ElementsAre(beta));
    EXPECT_THAT(hosts({"BETA"}), ElementsAre("code 3"));
    EXPECT_THAT(hosts({nullptr, 5}), ElementsAre(alpha));
    EXPECT_THAT(hosts({nullptr, 0x10000000000000F1}), ElementsAre(unassigned));
    EXPECT_THAT(hosts({nullptr, 0x10000000000000F1, nullptr, 0}), ElementsAre("code 16"));
    EXPECT_THAT(hosts({nullptr, 6}), ElementsAre("code 16"));
    EXPECT_THAT(hosts({nullptr, QRV_NO_WWN, "IQN.2001-05.COM.EXAMPLE:A"}), ElementsAre(alpha));
    EXPECT_THAT(hosts({"alpha", 5}), ElementsAre("code 52"));
}

TEST_F(HostsTest, PathsComeWithTheirHostsAndOnEachPort) {
    const auto of = [](const char* host, const char* path) {
        return std::string(host) + " | " + path;
    };
    EXPECT_THAT(paths("", ""), ElementsAre(of("alpha 2", alphaFc0), of("alpha 2", alphaFc1),
                                           of("alpha 2", alphaIscsi), of("beta 1", betaFc),
                                           of("beta 1", betaSas), of(" 0", freeFc)));
    EXPECT_THAT(paths("5", nullptr), ElementsAre(of("alpha 2", alphaFc0), of("alpha 2", alphaFc1)));
    EXPECT_THAT(paths(nullptr, "iqn.2001-05.com.eXample:A"),
                ElementsAre(of("alpha 2", alphaIscsi)));
    EXPECT_THAT(paths("10000000000000f1", nullptr), ElementsAre(of(" 0", freeFc)));
    EXPECT_THAT(paths(nullptr, nullptr, "beta"),
                ElementsAre(of("beta 1", betaFc), of("beta 1", betaSas)));
    EXPECT_THAT(paths("5", nullptr, "beta"), IsEmpty());
}

TEST_F(HostsTest, PathFiltersThatMeanNothingAreRefused) {
    EXPECT_THAT(paths("5", "iqn.x"), ElementsAre("code 52"));
    EXPECT_THAT(paths("wwn", nullptr), ElementsAre("code 54"));
    EXPECT_THAT(paths("00000000000000005", nullptr), ElementsAre("code 54"));
    EXPECT_THAT(paths(nullptr, nullptr, "gamma"), ElementsAre("code 3"));
    EXPECT_THAT(paths("10000000000000F1", nullptr, nullptr, 0), IsEmpty());
}

TEST_F(HostsTest, ChangesAreSeenAtOnce) {
    control::addPath("empty", R"({"wwn": "0000000000000005"})");
    EXPECT_THAT(hosts({nullptr, 5}), ElementsAre(alpha, HasSubstr("empty")));
    control::removePath("alpha", R"({"wwn": "0000000000000005", "ports": ["1:1:1"]})");
    EXPECT_THAT(paths("5", nullptr), SizeIs(2));
    control::removePath("alpha", R"({"wwn": "0000000000000005"})");
    EXPECT_THAT(hosts({nullptr, 5}), ElementsAre(HasSubstr("empty")));
    control::removeHost("empty");
    EXPECT_THAT(hosts({nullptr, 5}), ElementsAre("code 16"));
    control::addHost(R"({"name": "empty", "persona": 2})");
    EXPECT_THAT(hosts({"empty"}), ElementsAre("13 empty  2 Multipath  "));
}

TEST_F(HostsTest, GeneratedArraysHaveTheSizeAskedFor) {
    control::generateArray({3, 4, 2, 5});
    EXPECT_THAT(hosts({}), SizeIs(4));
    const auto all = paths("", "");
    EXPECT_THAT(all, SizeIs(3 * (4 + 2) + 5));
    EXPECT_EQ(std::set<std::string>(all.begin(), all.end()).size(), all.size());
    EXPECT_THAT(paths(nullptr, nullptr, "host0000002"), SizeIs(6));
}

TEST_F(HostsTest, SystemFactsAreThoseOfTheScenario) {
    api_SystemFacts_t facts{};
    ASSERT_EQ(api_getSystemFacts(&facts), 0);
    EXPECT_STREQ(facts.name, "unit");
    EXPECT_STREQ(facts.hostName, "unit.example.com");
    EXPECT_STREQ(facts.ipv6Address, "2001:db8::1");
    EXPECT_EQ(facts.id, 77U);
    EXPECT_EQ(facts.type, 13);
    EXPECT_EQ(facts.isQuadPort, 0);
    control::setSystem(R"({"name": "renamed", "hostName": "h", "ipv4Address": "192.0.2.2", "id": 1,
                           "type": 14, "serial": "S", "nodes": 4, "quadPort": true})");
    ASSERT_EQ(api_getSystemFacts(&facts), 0);
    EXPECT_STREQ(facts.name, "renamed");
    EXPECT_STREQ(facts.ipv6Address, "");
    EXPECT_EQ(facts.isQuadPort, 1);
    EXPECT_EQ(api_getSystemFacts(nullptr), ERR_API_INVALID_ARGUMENT);
}

}  // namespace

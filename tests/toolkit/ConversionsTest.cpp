// Conversions between the array's values and CIM's, and the facts of the system.
#include <QRV_Common.h>
#include <sys/resource.h>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <optional>
#include <set>

#include "ToolkitTest.h"

namespace control = qrvapi::control;
using namespace Pegasus;

namespace {

std::string utf8(const String& text) {
    return static_cast<const char*>(text.getCString());
}

/// The local time zone for the length of a scope, in the form of TZ: "WEST5" is five hours west.
class LocalZone {
  public:
    explicit LocalZone(const char* zone) {
        if (const char* const before = std::getenv("TZ")) _before = before;
        set(zone);
    }
    ~LocalZone() { set(_before ? _before->c_str() : nullptr); }
    LocalZone(const LocalZone&) = delete;
    LocalZone& operator=(const LocalZone&) = delete;

  private:
    static void set(const char* zone) {
        if (zone == nullptr)
            unsetenv("TZ");
        else
            setenv("TZ", zone, 1);
        tzset();
    }

    std::optional<std::string> _before;
};

TEST(DateTimes, carryTheLocalOffset) {
    constexpr time_t TIME = 1767323045;  // 2026-01-02 03:04:05 UTC
    const struct {
        const char* zone;
        const char* text;
        const char* timeZone;
    } cases[] = {
        {"UTC0", "20260102030405.000000+000", "GMT-0"},
        {"WEST5", "20260101220405.000000-300", "GMT-5"},
        {"EAST-1", "20260102040405.000000+060", "GMT+1"},
        {"INDIA-5:30", "20260102083405.000000+330", "GMT+5"},
        {"ISLAND3:30", "20260101233405.000000-210", "GMT-3"},
        {"ODD0:00:59", "20260102030306.000000+000", "GMT-0"},
    };
    for (const auto& each : cases) {
        const LocalZone zone(each.zone);
        EXPECT_EQ(utf8(QRV_Common::getCIMDateTime(TIME).toString()), each.text);
        EXPECT_EQ(QRV_Common::getDateTime(CIMDateTime(String(each.text))), TIME) << each.zone;
        EXPECT_EQ(utf8(QRV_Common::getTimeZone()), each.timeZone) << each.zone;
    }
}

TEST(DateTimes, areReadAsLocalTimeWhateverTheirOffset) {
    const LocalZone zone("MIDDLE-1SUMMER,M3.5.0,M10.5.0/3");
    const auto read = [](const char* text) { return QRV_Common::getDateTime(CIMDateTime(text)); };
    EXPECT_EQ(read("20260102040405.000000+060"), 1767323045);
    EXPECT_EQ(read("20260102040405.999999-300"), 1767323045);
    EXPECT_EQ(read("20260702050405.000000+060"), 1782961445) << "in summer time";
    for (const char* text :
         {"00000000000000.000000:000", "20242000000608.000005:000", "00001231235959.000000+000",
          "18991231235959.000000+000", "**************.******+000", "2026**********.******+000"})
        EXPECT_EQ(read(text), 0) << text;
    const LocalZone utc("UTC0");
    EXPECT_THROW(read("19691231235959.000000+000"), DateTimeOutOfRangeException);
}

TEST(Ports, statesHaveTheirNumbersInCim) {
    // From PORT_CONFIG_WAIT (0) to PORT_PENDING_RESET (13), and one beyond.
    const Uint16 operational[] = {10, 8, 8, 2, 13, 6, 0, 6, 6, 10, 7, 8, 8, 8, 0};
    const Uint16 health[] = {5, 5, 5, 5, 5, 20, 0, 20, 25, 10, 30, 5, 5, 5, 0};
    for (int number = 0; number < 15; ++number) {
        const auto state = static_cast<api_port_status_t>(number);
        EXPECT_EQ(QRV_Common::getPortOperationalStatus(state), operational[number]) << number;
        EXPECT_EQ(QRV_Common::getPortHealthState(state), health[number]) << number;
    }
    EXPECT_EQ(QRV_Common::getPortOperationalStatus(PORT_UNKNOWN), 0);
    EXPECT_EQ(QRV_Common::getPortHealthState(PORT_UNKNOWN), 0);
}

using PortsTest = ToolkitTest;

TEST_F(PortsTest, areFoundByWhatNamesThem) {
    const std::string longName = "iqn.2001-04.example:" + std::string(203, 'x');
    control::loadScenarioText(
        R"({"system": {"name": "a", "hostName": "a.example", "ipv4Address": "192.0.2.1", "id": 1,
                       "type": 3, "serial": "1", "model": "S100", "nodes": 2},
            "ports": [{"id": "1:2:3", "type": "fc", "wwn": "2011000000000001"},
                      {"id": "0:2:1", "type": "iscsi", "iscsiName": ")" +
        longName + R"("}]})");
    Array<String> texts(2, String("1:2:3"));
    texts.append("no port");
    const api_portids_t ids = QRV_Common::getPortIDs(texts);
    const std::unique_ptr<qrv_u16[]> owner(ids.portIDs);
    ASSERT_EQ(ids.count, 3U);
    EXPECT_EQ(ids.portIDs[1], ids.portIDs[0]);
    EXPECT_EQ(ids.portIDs[2], QRV_NO_PORT);

    EXPECT_EQ(QRV_Common::getPortLPID(Uint64(0x2011000000000001)), ids.portIDs[0]);
    EXPECT_EQ(QRV_Common::getPortLPID(Uint64(1)), QRV_NO_PORT);
    String name((longName + "y").c_str());
    EXPECT_NE(QRV_Common::getPortLPID(name), QRV_NO_PORT) << "only 223 characters count";
    name = "iqn.2001-04.example:other";
    EXPECT_EQ(QRV_Common::getPortLPID(name), QRV_NO_PORT);
}

TEST(SmallConversions, nodePairsAndInstanceIDs) {
    const int pairs[] = {-1, 0, 0, 1, 1, 2, 2, 3, 3, -1};
    for (int position = -1; position < 9; ++position)
        EXPECT_EQ(QRV_Common::getNodePairIndex(position), pairs[position + 1]) << position;

    const std::pair<const char*, const char*> instanceIDs[] = {
        {"ORVELIS:FC-1000000000A1B201", "FC-1000000000A1B201"},
        {"before ORVELIS:a ORVELIS:b", "a ORVELIS:b"},
        {"ORVELIS:", ""},
        {"orvelis:a", ""}};
    for (const auto& [instanceID, rest] : instanceIDs)
        EXPECT_EQ(utf8(QRV_Common::extractFromInstanceID(instanceID)), rest);
}

TEST(RandomStrings, fillTheBufferWithTheAlphabet) {
    std::set<std::string> seen;
    std::set<char> letters;
    for (int i = 0; i < 64; ++i) {
        char text[66] = {};
        text[65] = '#';
        QRV_Common::generate_random_string(text, 65);
        ASSERT_EQ(std::strlen(text), 64U);
        EXPECT_EQ(text[65], '#');
        seen.insert(text);
        letters.insert(text, text + 64);
    }
    EXPECT_EQ(seen.size(), 64U);
    EXPECT_EQ(std::string(letters.begin(), letters.end()),
              "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ_abcdefghijklmnopqrstuvwxyz");
    char one[] = "xy";
    QRV_Common::generate_random_string(one, 1);
    EXPECT_EQ(std::string(one, 2), std::string("\0y", 2));
}

using RandomStringsTest = ToolkitTest;

TEST_F(RandomStringsTest, abuseIsReported) {
    char untouched[] = "xy";
    QRV_Common::generate_random_string(untouched, 0);
    QRV_Common::generate_random_string(nullptr, 5);
    EXPECT_STREQ(untouched, "xy");
    const Texts lines = logged();
    ASSERT_EQ(lines.size(), 4U);
    EXPECT_EQ(lines[2], "2 Assertion failed: len > 0 && str != NULL\n");
    EXPECT_THAT(lines[3], testing::MatchesRegex("2 Assertion point: file: .*, line: [0-9]+\n"));
}

TEST(InstanceThreshold, isTheAddressSpaceInMillionsOfBytesTimesTheFactor) {
    rlimit64 before{};
    getrlimit64(RLIMIT_AS, &before);
    rlimit64 limit = before;
    limit.rlim_cur = 1ULL << 50;
    ASSERT_EQ(setrlimit64(RLIMIT_AS, &limit), 0);
    const Uint32 millions = static_cast<Uint32>((1ULL << 50) / 1000000);
    EXPECT_EQ(QRV_Common::getInstanceThreshold(0), 0U);
    EXPECT_EQ(QRV_Common::getInstanceThreshold(1), millions);
    EXPECT_EQ(QRV_Common::getInstanceThreshold(3), millions * 3);
    setrlimit64(RLIMIT_AS, &before);
}

// ---- The system's addresses ---------------------------------------------------------------------

/// The addresses are kept for the life of a process, so each test takes a process of its own.
class SystemAddresses : public ToolkitTest {
  protected:
    SystemAddresses() { testing::FLAGS_gtest_death_test_style = "threadsafe"; }

    static std::string address(int kind) { return utf8(QRV_Common::getSystemIPAddr(kind)); }
    static std::size_t reads() { return control::callCount("api_getSystemDualIP"); }
};

TEST_F(SystemAddresses, areReadOnceAndKept) {
    setSystem(R"("ipv4Address": "192.0.2.1", "ipv6Address": "2001:0DB8:0::1")");
    const auto checks = [] {
        CIMObjectPath hostless("X.K=1");
        String system("a.example");
        QRV_Common::verifyRefMethodParam(hostless, CIMNamespaceName("root/qrv"), system);
        EXPECT_EQ(address(0) + address(3), "");
        EXPECT_EQ(reads(), 0U) << "nobody has asked for an address yet";

        control::failCall("api_getSystemDualIP");
        EXPECT_EQ(address(2), "");
        EXPECT_EQ(address(2), "2001:db8::1") << "a failed read is made again";
        EXPECT_EQ(address(1), "192.0.2.1");
        EXPECT_EQ(reads(), 2U);
    };
    EXPECT_EXIT(runAndExit(checks), testing::ExitedWithCode(0), "");
}

TEST_F(SystemAddresses, withoutIPv6ThereIsNone) {
    setSystem(R"("ipv4Address": "192.0.2.1")");
    const auto checks = [] { EXPECT_EQ(address(2) + address(1), "192.0.2.1"); };
    EXPECT_EXIT(runAndExit(checks), testing::ExitedWithCode(0), "");
}

}  // namespace

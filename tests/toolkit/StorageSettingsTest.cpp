// What storage settings and capabilities offer, by their InstanceID and RAID level.
#include <QRV_Common.h>

#include <array>
#include <fstream>
#include <iterator>
#include <map>
#include <sstream>

#include "Handlers.h"
#include "TestServer.h"
#include "ToolkitTest.h"

namespace control = qrvapi::control;
using namespace Pegasus;

namespace {

const char* const SETTING = "QRV_StorageSetting";
const char* const THIN = "ORVELIS:ThinProvisionedVolumeSetting from DynamicStoragePool cpg1";

/// One table of the golden file, which tells its form.
struct GoldenTable {
    std::vector<std::vector<std::string>> instances;  ///< class, RAID level, InstanceID, caption
    std::vector<std::vector<std::string>> properties;
};

std::vector<std::string> instanceIn(const std::string& line) {
    std::vector<std::string> fields;
    std::size_t start = 2;
    for (std::size_t bar = 0; (bar = line.find(" |", start)) != std::string::npos; start = bar + 3)
        fields.push_back(line.substr(start, bar - start));
    return fields;
}

std::vector<GoldenTable> goldenTables() {
    std::ifstream file(QRV_TEST_GOLDEN);
    std::vector<GoldenTable> tables(1);
    for (std::string line; std::getline(file, line);) {
        std::istringstream words(line);
        const std::vector<std::string> row{std::istream_iterator<std::string>(words), {}};
        if (row.empty())
            tables.emplace_back();
        else if (row[0] == "|")
            tables.back().instances.push_back(instanceIn(line));
        else if (row[0] != "#")
            tables.back().properties.push_back(row);
    }
    return tables;
}

/// An instance whose properties are those of a table: of these types, and without values.
CIMInstance skeleton(const std::string& className, const GoldenTable& table) {
    static const std::map<std::string, CIMType> types = {{"boolean", CIMTYPE_BOOLEAN},
                                                         {"uint8", CIMTYPE_UINT8},
                                                         {"uint16", CIMTYPE_UINT16},
                                                         {"uint32", CIMTYPE_UINT32},
                                                         {"uint64", CIMTYPE_UINT64}};
    CIMInstance instance{CIMName(className.c_str())};
    const auto add = [&](const char* name, CIMType type) {
        instance.addProperty(CIMProperty(CIMName(name), CIMValue(type, false)));
    };
    for (const char* name : {"InstanceID", "Caption", "ElementName"}) add(name, CIMTYPE_STRING);
    for (const auto& row : table.properties) add(row[0].c_str(), types.at(row[1]));
    return instance;
}

CIMInstance filled(const std::string& className, const std::string& instanceID, int raidType,
                   const GoldenTable& table = goldenTables()[0], const char* elementName = "name") {
    CIMInstance instance = skeleton(className, table);
    QRV_Common::fillInRAIDProperties(instance, "a.example", instanceID.c_str(), elementName,
                                     raidType);
    return instance;
}

std::string valueIn(const CIMInstance& instance, const std::string& property) {
    const CIMValue value = QRV_Common::getPropertyValue(instance, property.c_str());
    return value.isNull() ? "-" : static_cast<const char*>(value.toString().getCString());
}

class StorageSettingsTest : public ToolkitTest {
  protected:
    StorageSettingsTest() { setSystemTo(14, 2); }

    static void setSystemTo(int type, int nodes) {
        control::setSystem(R"({"name": "a", "hostName": "a.example", "ipv4Address": "192.0.2.1",
                               "id": 1, "serial": "1", "type": )" +
                           std::to_string(type) + R"(, "nodes": )" + std::to_string(nodes) + "}");
    }
};

TEST_F(StorageSettingsTest, everyKindHasItsProperties) {
    const qrvtest::TestServer server;
    std::size_t compared = 0;
    for (const GoldenTable& table : goldenTables()) {
        for (std::size_t i = 0; i < table.instances.size(); ++i) {
            const auto& given = table.instances[i];
            const CIMInstance instance = filled(given[0], given[2], std::stoi(given[1]), table);
            SCOPED_TRACE(given[2] + " " + given[1]);
            EXPECT_EQ(valueIn(instance, "InstanceID"), given[2]);
            EXPECT_EQ(valueIn(instance, "Caption"), given[3]);
            EXPECT_EQ(valueIn(instance, "ElementName"), "name");
            for (const auto& row : table.properties)
                EXPECT_EQ(valueIn(instance, row[0]), row.at(2 + i)) << row[0];
            EXPECT_EQ(instance.getPropertyCount(), table.properties.size() + 3);
            EXPECT_EQ(qrvtest::textOf(instance.getPath()),
                      "//a.example/root/qrv:" + given[0] + ".InstanceID=\"" + given[2] + "\"");
            ++compared;
        }
    }
    EXPECT_EQ(compared, 16U);
}

TEST_F(StorageSettingsTest, levelsDisksAndNamesMakeTheDifference) {
    const struct {
        const char* instanceID;
        int raidType;
        const char* property;
        const char* value;
    } cases[] = {
        {"ORVELIS:StorageSetting:RAID50:all-SSD", 50, "UserDataStripeDepth", "65536"},
        {"ORVELIS:StorageSetting:RAID50:all-FC", 50, "UserDataStripeDepth", "131072"},
        {"ORVELIS:StorageSetting:RAID0:all-NL all-SSD", 0, "UserDataStripeDepth", "32768"},
        {"ORVELIS:StorageSetting:RAID0:all-NL all-SSD", 0, "DiskType", "2"},
        {"ORVELIS:GenGoalSetting-all-SSD", 60, "PackageRedundancyMax", "5"},
        {"ORVELIS:GenGoalSetting-all-SSD", 10, "UserDataStripeDepth", "32768"},
        {"ORVELIS:GenDefSetting-all-FC", 60, "PackageRedundancyMax", "3"},
        {"ORVELIS:GenDefSetting-DSP all-FC", 10, "DataRedundancyMax", "2"},
        {"ORVELIS:StorageCapabilities:all-FC", 10, "DataRedundancyGoal", "-"},
    };
    for (const auto& each : cases)
        EXPECT_EQ(valueIn(filled(SETTING, each.instanceID, each.raidType), each.property),
                  each.value)
            << each.instanceID << " " << each.raidType << " " << each.property;

    EXPECT_EQ(
        valueIn(filled("QRV_VolumeSetting", "ORVELIS:StorageSetting:RAID10", 10), "TemplateType"),
        "1");

    const std::string pool =
        "Fixed StorageSetting that can be used to create a default RAID 0 DynamicStoragePool from ";
    const std::string prefix = "ORVELIS:DynamicStoragePoolSetting:RAID0:";
    const auto caption = [&](const char* disks) {
        return valueIn(filled(SETTING, prefix + disks, 0), "Caption");
    };
    EXPECT_EQ(caption("primordial"), pool + "primordial extents.");
    EXPECT_EQ(caption("x"), pool);
    EXPECT_EQ(caption("all-NL all-SSD"), pool + "all-SSD pool.");

    const CIMInstance named = filled(SETTING, "ORVELIS:GenDefSetting-all-FC", 0, goldenTables()[0],
                                     "x GenGoalSetting-all-NL");
    for (const char* property : {"AllocationUnit", "AllocationUnitMax", "AllocationUnitMin"})
        EXPECT_EQ(valueIn(named, property), "34359738368");
}

TEST_F(StorageSettingsTest, earlierSystemsDetectNoZeroes) {
    const qrvtest::TestServer server;
    setSystemTo(13, 2);
    EXPECT_EQ(valueIn(filled(SETTING, THIN, 50), "Policy"), "1091567616");
    cimserver::setLocalServer(nullptr);
    EXPECT_THROW(filled(SETTING, THIN, 50), Exception) << "a policy isn't guessed";
}

// ---- RAID levels and InstanceIDs ----------------------------------------------------------------

TEST_F(StorageSettingsTest, redundanciesHaveALevel) {
    const int levels[4][4] = {
        {99, 99, 99, 99}, {99, 0, 99, 99}, {99, 50, 10, 10}, {99, 60, 10, 10}};
    for (Uint16 package = 0; package < 4; ++package)
        for (Uint16 data = 0; data < 4; ++data)
            EXPECT_EQ(QRV_Common::returnRAIDType(package, data), levels[package][data])
                << package << " " << data;
    EXPECT_EQ(QRV_Common::returnRAIDType(5, 1), 60);
    EXPECT_TRUE(QRV_Common::isSameRAID(10, 2, 2));
    EXPECT_TRUE(QRV_Common::isSameRAID(50, 1, 2));
    EXPECT_TRUE(QRV_Common::isSameRAID(60, 1, 3));
    EXPECT_FALSE(QRV_Common::isSameRAID(50, 2, 1));
    EXPECT_TRUE(QRV_Common::isSameRAID(2, 2, 3, 4));
    EXPECT_FALSE(QRV_Common::isSameRAID(1, 2, 1, 3));
    EXPECT_EQ(QRV_Common::getRaidTypeStr(60), String("RAID60"));
    EXPECT_EQ(QRV_Common::getRaidTypeStr(5), String());
}

TEST_F(StorageSettingsTest, instanceIDsTellTheirOrigin) {
    const struct {
        const char* id;
        const char* expected;  ///< volume, pool, fixed, default, goal, generated
    } cases[] = {
        {"x ORVELIS:StorageSetting:RAID60", "101000"},
        {"ORVELIS:StorageSetting: RAID60", "000000"},
        {"ORVELIS:StorageSetting:RAID5", "000000"},
        {"ORVELIS:DynamicStoragePoolSetting:RAID0", "011000"},
        {"ORVELIS:GenDefSetting-all-SSD-x", "000101"},
        {"ORVELIS:GenGoalSetting-all-NL", "000011"},
        {"GenGoalSetting-all-NL", "000000"},
        {"ORVELIS:GenGoalSetting-DSP", "000000"},
    };
    for (const auto& each : cases) {
        std::string answers;
        for (const auto test : {QRV_Common::isLegacyVolumeFixedSettingFromConcretePoolCap,
                                QRV_Common::isDSPFixedSettingFromConcreteOrPrimordialPoolCap,
                                QRV_Common::isFixedSettingFromConcretePoolCap,
                                QRV_Common::isGenDefSettingFromConcretePoolCap,
                                QRV_Common::isGenGoalSettingFromConcretePoolCap,
                                QRV_Common::isGenSettingFromConcretePoolCap})
            answers += test(each.id) ? '1' : '0';
        EXPECT_EQ(answers, each.expected) << each.id;
    }
}

/// The number of nodes is kept for the life of a process, so each takes a process of its own.
TEST_F(StorageSettingsTest, allocationUnitsGrowWithTheNodes) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    constexpr Uint64 gib = 1024 * 1024 * 1024;
    using Units = std::array<Uint64, 3>;
    const auto units = [] {
        Units values = {1, 1, 1};
        QRV_Common::getDSPAllocUnitBoundaryValues(values[0], values[1], values[2]);
        return values;
    };
    const std::pair<int, Units> cases[] = {
        {1, {2047 * gib, 8 * gib, 32 * gib}},   {3, {2047 * gib, 16 * gib, 64 * gib}},
        {4, {2047 * gib, 16 * gib, 64 * gib}},  {6, {2047 * gib, 24 * gib, 96 * gib}},
        {8, {2047 * gib, 32 * gib, 128 * gib}}, {9, {2047 * gib, 1, 1}}};
    for (const auto& [nodes, expected] : cases) {
        const auto checks = [&, count = nodes, wanted = expected] {
            setSystemTo(1, count);
            control::failCall("cluster_num_nodes_alive");
            EXPECT_EQ(units(), cases[0].second) << "as long as the array doesn't answer";
            EXPECT_EQ(units(), wanted);
            units();
            EXPECT_EQ(control::callCount("cluster_num_nodes_alive"), 2U);
        };
        EXPECT_EXIT(runAndExit(checks), testing::ExitedWithCode(0), "") << nodes;
    }
}

}  // namespace

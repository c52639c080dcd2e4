// What a goal setting makes of the settings that a volume is made with.
#include <QRV_Common.h>

#include <cstring>
#include <sstream>

#include "ToolkitTest.h"

namespace control = qrvapi::control;
using namespace Pegasus;
using testing::ElementsAre;

namespace {

using Given = std::vector<std::pair<const char*, CIMValue>>;

Uint16 u16(unsigned value) {
    return static_cast<Uint16>(value);
}

CIMValue texts(std::initializer_list<std::string> values) {
    Array<String> array;
    for (const std::string& each : values) array.append(String(each.c_str()));
    return array;
}

CIMValue numbers(std::initializer_list<Sint32> values) {
    Array<Sint32> array;
    for (const Sint32 each : values) array.append(each);
    return array;
}

CIMInstance goalWith(const Given& given) {
    CIMInstance goal(CIMName("QRV_StorageSetting"));
    for (const auto& [name, value] : given) goal.addProperty(CIMProperty(CIMName(name), value));
    return goal;
}

/// A record in which nothing is 0 or empty.
api_vol_setting_t prefilled() {
    api_vol_setting_t record;
    std::memset(&record, 2, sizeof record);
    for (api_vol_part_t* part : {&record.usrVol, &record.snpVol, &record.admVol})
        *part = {7, 7, API_HA_UNKNOWN, 7};
    for (char* text : {record.templateName, record.domain, record.comment, record.snapCPGName,
                       record.userCPGName, record.patternString})
        std::strcpy(text, "old");
    return record;
}

/// Every field that a goal can reach, as "name=value".
std::vector<std::string> fieldsOf(const api_vol_setting_t& r) {
    std::stringstream text;
    text << "vvID=" << r.vvID << "\nraidType=" << r.raidType << "\nsetSize=" << r.setSize
         << "\nrowSize=" << r.rowSize << "\nstepSizeKB=" << r.stepSizeKB << "\npolicy=" << r.policy
         << "\ngeomSPT=" << r.geomSPT << "\ngeomHPC=" << r.geomHPC << "\ngeomSSZ=" << r.geomSSZ
         << "\ntpSnapAllocWarning=" << r.tpSnapAllocWarning
         << "\ntpUserAllocWarning=" << r.tpUserAllocWarning << "\nisTP=" << int(r.isTP)
         << "\nsnpSizePct=" << r.snpSizePct << "\nprovisionFromCPG=" << int(r.provisionFromCPG);
    const std::pair<const char*, const api_vol_part_t&> parts[] = {
        {"\nusr", r.usrVol}, {"\nsnp", r.snpVol}, {"\nadm", r.admVol}};
    for (const auto& [name, part] : parts)
        text << name << ".size=" << part.size << name << ".ha=" << part.haJbod << name
             << ".chunklets=" << part.chunkletCharacteristics;
    text << "\ndomain=" << r.domain << "\ncomment=" << r.comment
         << "\nsnapCPGName=" << r.snapCPGName << "\nuserCPGName=" << r.userCPGName
         << "\npatternString=" << r.patternString << "\n";
    std::vector<std::string> fields;
    for (std::string field; std::getline(text, field);) fields.push_back(field);
    return fields;
}

/// What differs between two records, in the order of fieldsOf().
std::string change(const api_vol_setting_t& before, const api_vol_setting_t& after) {
    const auto old = fieldsOf(before);
    const auto now = fieldsOf(after);
    std::string text;
    for (std::size_t i = 0; i < now.size(); ++i)
        if (now[i] != old[i]) text += (text.empty() ? "" : " ") + now[i];
    return text;
}

class StorageSettingApplicationTest : public ToolkitTest {
  protected:
    static std::string applied(const Given& given, int origRaidType = 0,
                               devtype_e type = devtype_fc) {
        return applied(goalWith(given), origRaidType, type);
    }
    static std::string applied(const CIMInstance& goal, int origRaidType, devtype_e type) {
        const api_vol_setting_t before = prefilled();
        api_vol_setting_t after = before;
        QRV_Common::setStorageSetting(goal, origRaidType, type, &after);
        return change(before, after);
    }
    /// The patterns that a goal makes, without what else it does.
    static std::string patterns(const Given& given, devtype_e type = devtype_fc) {
        api_vol_setting_t record = prefilled();
        QRV_Common::setStorageSetting(goalWith(given), 0, type, &record);
        return record.patternString;
    }
};

const std::string NOTHING = "snp.size=0 comment=";

TEST_F(StorageSettingApplicationTest, eachPropertyHasItsFields) {
    const CIMValue big(Uint32(0xFFFFFFFF));
    const struct {
        Given given;
        std::string expected;
    } cases[] = {
        {{}, NOTHING},
        {{{"BaseID", CIMValue(CIMTYPE_UINT32, false)},
          {"DiskCages", CIMValue(CIMTYPE_STRING, true)}},
         NOTHING},
        {{{"BaseID", Uint32(42)}}, "vvID=42 " + NOTHING},
        {{{"BaseID", big}, {"Policy", big}}, "vvID=2147483647 policy=4294967295 " + NOTHING},
        {{{"ThinlyProvisioned", true}}, "isTP=1 " + NOTHING},
        {{{"ThinlyProvisioned", false}}, "isTP=0 " + NOTHING},
        {{{"ExtentStripeLength", u16(6)}}, "rowSize=6 " + NOTHING},
        {{{"UserDataStripeDepth", Uint64(131072)}}, "stepSizeKB=128 " + NOTHING},
        {{{"UserDataStripeDepth", Uint64(1) << 50}}, "stepSizeKB=2147483647 " + NOTHING},
        {{{"GeometrySectorsPerTrack", Uint32(304)},
          {"GeometryHeadsPerCylinder", Uint32(8)},
          {"GeometrySectorSize", Uint32(512)}},
         "geomSPT=304 geomHPC=8 geomSSZ=512 " + NOTHING},
        {{{"SnapSpaceAllocationWarning", Uint32(80)}, {"UserSpaceAllocationWarning", Uint32(90)}},
         "tpSnapAllocWarning=80 tpUserAllocWarning=90 " + NOTHING},
        {{{"ChunkletLocationPreference", u16(2)}},
         "usr.chunklets=2 snp.size=0 snp.chunklets=2 adm.chunklets=2 comment="},
        {{{"Domain", String("0123456789012345678901234567890123")}},
         "snp.size=0 domain=0123456789012345678901234567890 comment="},
        {{{"Description", String("new")}}, "snp.size=0 comment=new"},
        {{{"Description", String(std::string(600, 'x').c_str())}},
         "snp.size=0 comment=" + std::string(512, 'x')},
        {{{"SnapVolumePercentage", u16(20)}}, "snpSizePct=20 comment="},
        {{{"SnapVolumeSize", Uint64(1073741824)}}, "snp.size=1024 comment="},
        {{{"SnapDSPName", String("cpg1")}}, "provisionFromCPG=1 comment= snapCPGName=cpg1"},
        {{{"SnapDSPName", String("cpg1")}, {"UserDSPName", String("")}},
         "provisionFromCPG=1 snp.size=0 comment= snapCPGName=cpg1 userCPGName="},
        {{{"UserDSPName", String("cpg2")}}, NOTHING + " userCPGName=cpg2"},
    };
    for (const auto& each : cases) EXPECT_EQ(applied(each.given), each.expected);
}

TEST_F(StorageSettingApplicationTest, theRaidLevelComesFromTheGoalsOrATemplate) {
    const std::pair<const char*, CIMValue> four("ParitySetSize", u16(4)),
        data2("DataRedundancyGoal", u16(2)), high("HighAvailability", u16(9)),
        isTemplate("ChangeableType", u16(2)), level60("TemplateVolumeRaidType", u16(60));
    const auto goals = [](unsigned data, unsigned package) {
        return Given{{"DataRedundancyGoal", u16(data)}, {"PackageRedundancyGoal", u16(package)}};
    };
    const auto plus = [](Given given, const Given& more) {
        given.insert(given.end(), more.begin(), more.end());
        return given;
    };
    const std::string allParts = "usr.ha=9 snp.size=0 snp.ha=9 adm.ha=9 comment=";
    const struct {
        Given given;
        int origRaidType;
        std::string expected;
    } cases[] = {
        {goals(2, 2), 50, "raidType=10 setSize=2 " + NOTHING},
        {plus(goals(1, 2), {four}), 0, "raidType=50 setSize=4 " + NOTHING},
        {plus(goals(1, 3), {four}), 0, "raidType=60 setSize=4 " + NOTHING},
        {plus(goals(2, 2), {four}), 50, "raidType=10 setSize=2 " + NOTHING},
        {goals(3, 1), 0, "raidType=10 setSize=3 " + NOTHING},
        {plus(goals(1, 1), {four, high}), 50, "raidType=0 usr.ha=9 " + NOTHING},
        {plus(goals(2, 2), {isTemplate, level60, high}), 0, "raidType=10 setSize=2 " + allParts},
        {{isTemplate, level60, four}, 10, "raidType=60 setSize=4 " + NOTHING},
        {{isTemplate, four}, 50, "setSize=4 " + NOTHING},
        {{isTemplate, {"TemplateVolumeRaidType", u16(99)}, data2}, 10, "setSize=2 " + NOTHING},
        {{isTemplate, {"TemplateVolumeRaidType", u16(10)}, four}, 50, "raidType=10 " + NOTHING},
        {{{"ChangeableType", u16(0)}, level60, four, data2}, 60, "setSize=4 " + NOTHING},
        {{data2, four}, 10, "setSize=2 " + NOTHING},
        {{data2, four}, 0, NOTHING},
        {{{"PackageRedundancyGoal", u16(2)}}, 10, NOTHING},
        {{high}, 0, allParts},
    };
    for (const auto& each : cases)
        EXPECT_EQ(applied(each.given, each.origRaidType), each.expected) << &each - cases;
}

TEST_F(StorageSettingApplicationTest, withoutDiskPropertiesTheDiskTypeSpeaks) {
    EXPECT_EQ(applied(CIMInstance(), 0, devtype_fc), "");
    EXPECT_EQ(applied(CIMInstance(), 0, devtype_ssd), "patternString=type=SSD;");
    EXPECT_EQ(patterns({}, devtype_nl), "type=NL;");
    EXPECT_EQ(patterns({{"DiskRPM", numbers({})}}, devtype_nl), "type=NL;");
    EXPECT_EQ(patterns({}), "old");
    for (const char* function : {"api_initPattern", "api_constructPattern"}) {
        control::failCall(function);
        EXPECT_EQ(applied(CIMInstance(), 0, devtype_ssd), "") << function;
    }
    QRV_Common::setStorageSetting(goalWith({}), 0, devtype_ssd, nullptr);
    EXPECT_EQ(control::callCount("api_initPattern"), 5U);
}

TEST_F(StorageSettingApplicationTest, entriesOfOnePlaceMakeOnePattern) {
    Given all;
    Sint32 entry = 0;
    for (const char* name :
         {"DiskPrimPathNodes", "DiskPrimPathPCISlots", "DiskPrimPathPorts", "DiskCages",
          "DiskMagazines", "DiskMagPositions", "DiskIDs", "DiskPackageModels"})
        all.emplace_back(
            name, texts({std::to_string(++entry), entry == 3 ? "" : std::to_string(10 * entry)}));
    for (const char* name : {"DiskTotalChunkletGT", "DiskTotalChunkletLT", "DiskFreeChunkletGT",
                             "DiskFreeChunkletLT", "DiskRPM"})
        all.emplace_back(name, numbers({++entry, 10 * entry}));
    EXPECT_EQ(patterns(all),
              "nodes=1 slots=2 ports=3 cages=4 magazines=5 positions=6 disks=7 chunksAbove=9 "
              "chunksBelow=10 freeAbove=11 freeBelow=12 rpm=13 models=8 type=FC;"
              "nodes=10 slots=20 cages=40 magazines=50 positions=60 disks=70 chunksAbove=90 "
              "chunksBelow=100 freeAbove=110 freeBelow=120 rpm=130 models=80 type=FC;");

    const auto cages = texts({"1", "2", "3"});
    EXPECT_EQ(patterns({{"DiskCages", cages}, {"DiskRPM", numbers({7})}}),
              "cages=1 rpm=7 type=FC;");
    EXPECT_EQ(patterns({{"DiskPrimPathNodes", cages},
                        {"DiskCages", texts({"1"})},
                        {"DiskRPM", numbers({7, 8})}}),
              "nodes=1 cages=1 rpm=7 type=FC;");
    const std::pair<const char*, CIMValue> two("DiskCages", texts({"1", "2"}));
    EXPECT_EQ(patterns({{"DiskIDs", texts({})}, two}), "old") << "the list read last decides";
    EXPECT_EQ(patterns({two, {"DiskRPM", numbers({})}}, devtype_nl), "type=NL;");
    EXPECT_EQ(patterns({{"DiskPrimPathNodes", texts({})}, two}),
              "cages=1 type=FC;cages=2 type=FC;");
}

TEST_F(StorageSettingApplicationTest, patternsThatDoNotFitAreLeftOut) {
    const std::string text(250, 'c');
    const std::string kept = "cages=" + text.substr(0, 200) + " type=FC;";
    EXPECT_EQ(patterns({{"DiskCages", texts({text, text, text, "1"})}}), kept + kept);
    std::vector<std::string> rooms;
    for (const auto& call : control::calls())
        if (call.function == "api_constructPattern") rooms.push_back(call.argument("room"));
    EXPECT_THAT(rooms, ElementsAre("512", "297", "82"));

    for (const char* function : {"api_initPattern", "api_constructPattern"}) {
        control::failCall(function, 2);
        EXPECT_EQ(patterns({{"DiskCages", texts({"1", "2", "3"})}}), "cages=1 type=FC;")
            << function;
    }
}

TEST_F(StorageSettingApplicationTest, aValueOfTheWrongTypeChangesNothing) {
    std::istringstream properties(
        "ChangeableType TemplateVolumeRaidType ThinlyProvisioned ParitySetSize "
        "SnapVolumePercentage ExtentStripeLength UserDataStripeDepth HighAvailability "
        "SnapVolumeSize ChunkletLocationPreference SnapDSPName UserDSPName Domain Policy "
        "GeometrySectorsPerTrack GeometryHeadsPerCylinder GeometrySectorSize "
        "SnapSpaceAllocationWarning Description UserSpaceAllocationWarning DiskPrimPathNodes "
        "DiskPrimPathPCISlots DiskPrimPathPorts DiskCages DiskMagazines DiskMagPositions "
        "DiskIDs DiskTotalChunkletGT DiskTotalChunkletLT DiskFreeChunkletGT "
        "DiskFreeChunkletLT DiskPackageModels DiskRPM DataRedundancyGoal "
        "PackageRedundancyGoal");
    for (std::string property; properties >> property;) {
        Given given = {{"BaseID", Uint32(42)}, {property.c_str(), Sint8(1)}};
        if (property != "ChangeableType") given.emplace_back("ChangeableType", u16(2));
        const api_vol_setting_t before = prefilled();
        api_vol_setting_t after = before;
        EXPECT_THROW(QRV_Common::setStorageSetting(goalWith(given), 10, devtype_nl, &after),
                     TypeMismatchException)
            << property;
        EXPECT_EQ(std::memcmp(&before, &after, sizeof before), 0) << property;
    }
}

}  // namespace

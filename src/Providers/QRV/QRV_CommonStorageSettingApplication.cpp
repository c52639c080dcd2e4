#include <Pegasus/Common/CIMProperty.h>

#include <algorithm>
#include <limits>
#include <optional>
#include <type_traits>
#include <utility>
#include <vector>

#include "QRV_Common.h"
#include "QRV_Text.h"

namespace Pegasus {

namespace {

using Setting = api_vol_setting_t;

bool isGiven(const CIMInstance& goal, const char* property) {
    return !QRV_Common::getPropertyValue(goal, property).isNull();
}

template <class T>
T valueOf(const CIMValue& value) {
    T plain{};
    value.get(plain);
    return plain;
}

template <class T>
std::optional<T> given(const CIMInstance& goal, const char* property) {
    const CIMValue value = QRV_Common::getPropertyValue(goal, property);
    return value.isNull() ? std::nullopt : std::optional<T>(valueOf<T>(value));
}

// ---- Fields of the record -----------------------------------------------------------------------

/// The number, or the largest that a field of this type holds.
template <class Field>
Field fitted(Uint64 number) {
    const Uint64 largest = std::numeric_limits<Field>::max();
    return static_cast<Field>(std::min(number, largest));
}

/// A property and the field that takes its value.
struct FieldRule {
    const char* property;
    void (*take)(const CIMValue& value, Setting& setting);
};

/// A number, which `SHIFT` brings from bytes to the field's own unit.
template <class T, auto FIELD, int SHIFT = 0>
void number(const CIMValue& value, Setting& setting) {
    auto& field = setting.*FIELD;
    field = fitted<std::remove_reference_t<decltype(field)>>(Uint64(valueOf<T>(value)) >> SHIFT);
}

template <auto FIELD>
void text(const CIMValue& value, Setting& setting) {
    copyText(setting.*FIELD, valueOf<String>(value).getCString());
}

void snapshotSize(const CIMValue& value, Setting& setting) {
    setting.snpVol.size = fitted<int>(valueOf<Uint64>(value) >> 20);
}

void snapshotPool(const CIMValue& value, Setting& setting) {
    text<&Setting::snapCPGName>(value, setting);
    setting.provisionFromCPG = 1;
}

void chunkletLocation(const CIMValue& value, Setting& setting) {
    const int preference = valueOf<Uint16>(value);
    for (api_vol_part_t* part : {&setting.usrVol, &setting.snpVol, &setting.admVol})
        part->chunkletCharacteristics = preference;
}

constexpr FieldRule FIELDS[] = {
    {"ThinlyProvisioned", number<Boolean, &Setting::isTP>},
    {"SnapVolumePercentage", number<Uint16, &Setting::snpSizePct>},
    {"ExtentStripeLength", number<Uint16, &Setting::rowSize>},
    {"UserDataStripeDepth", number<Uint64, &Setting::stepSizeKB, 10>},
    {"BaseID", number<Uint32, &Setting::vvID>},
    {"SnapVolumeSize", snapshotSize},
    {"ChunkletLocationPreference", chunkletLocation},
    {"SnapDSPName", snapshotPool},
    {"UserDSPName", text<&Setting::userCPGName>},
    {"Domain", text<&Setting::domain>},
    {"Policy", number<Uint32, &Setting::policy>},
    {"GeometrySectorsPerTrack", number<Uint32, &Setting::geomSPT>},
    {"GeometryHeadsPerCylinder", number<Uint32, &Setting::geomHPC>},
    {"GeometrySectorSize", number<Uint32, &Setting::geomSSZ>},
    {"SnapSpaceAllocationWarning", number<Uint32, &Setting::tpSnapAllocWarning>},
    {"UserSpaceAllocationWarning", number<Uint32, &Setting::tpUserAllocWarning>},
};

void applyFields(const CIMInstance& goal, Setting& setting) {
    for (const FieldRule& each : FIELDS) {
        const CIMValue value = QRV_Common::getPropertyValue(goal, each.property);
        if (!value.isNull()) each.take(value, setting);
    }
    copyText(setting.comment, given<String>(goal, "Description").value_or(String()).getCString());
}

// ---- RAID level ---------------------------------------------------------------------------------

constexpr int NO_RAID_TYPE = 99;
constexpr int DEFAULT_RAID_TYPE = 10;
constexpr Uint16 CHANGEABLE_TEMPLATE = 2;

/// What a goal says about RAID.
struct RaidGoal {
    std::optional<int> raidType;
    std::optional<Uint16> dataRedundancy;
    std::optional<Uint16> paritySetSize;
};

/// The level that a template names.
std::optional<int> templateRaidType(CIMInstance goal) {
    Uint16 changeableType = 0;
    Uint16 raidType = NO_RAID_TYPE;
    QRV_Common::getProperty(goal, "ChangeableType", changeableType);
    if (changeableType == CHANGEABLE_TEMPLATE)
        QRV_Common::getProperty(goal, "TemplateVolumeRaidType", raidType);
    return raidType == NO_RAID_TYPE ? std::nullopt : std::optional<int>(raidType);
}

RaidGoal raidGoalOf(const CIMInstance& goal) {
    const auto package = given<Uint16>(goal, "PackageRedundancyGoal");
    RaidGoal raid{templateRaidType(goal), given<Uint16>(goal, "DataRedundancyGoal"),
                  given<Uint16>(goal, "ParitySetSize")};
    if (raid.dataRedundancy && package) {
        raid.raidType = QRV_Common::returnRAIDType(*package, *raid.dataRedundancy);
        if (raid.raidType == NO_RAID_TYPE) raid.raidType = DEFAULT_RAID_TYPE;
    }
    return raid;
}

void applyRaid(const RaidGoal& goal, int origRaidType, Setting& setting) {
    const int level = goal.raidType.value_or(origRaidType);
    if (goal.raidType) setting.raidType = level;
    if (level == 10 && goal.dataRedundancy) setting.setSize = *goal.dataRedundancy;
    if ((level == 50 || level == 60) && goal.paritySetSize) setting.setSize = *goal.paritySetSize;
}

/// Without redundancy there is nothing to keep available but the user's own data.
void applyAvailability(const CIMInstance& goal, const RaidGoal& raid, Setting& setting) {
    const auto availability = given<Uint16>(goal, "HighAvailability");
    if (!availability) return;
    setting.usrVol.haJbod = static_cast<api_ha_t>(*availability);
    if (raid.raidType.value_or(DEFAULT_RAID_TYPE) == 0) return;
    setting.snpVol.haJbod = setting.admVol.haJbod = setting.usrVol.haJbod;
}

/// A volume has snapshot space only where the goal asks for it.
void applySnapshotSpace(const CIMInstance& goal, Setting& setting) {
    const bool fromPools = isGiven(goal, "SnapDSPName") && setting.userCPGName[0] != '\0';
    if (!fromPools && !isGiven(goal, "SnapVolumePercentage") && !isGiven(goal, "SnapVolumeSize"))
        setting.snpVol.size = 0;
}

// ---- Disk patterns ------------------------------------------------------------------------------

/// A disk property, and the part of a pattern that an entry of it makes.
template <class Element, class Field>
struct DiskProperty {
    const char* property;
    int rank;  ///< its place in the order in which the properties are read
    Field api_pattern_t::*field;
};

using DiskText = DiskProperty<String, char[201]>;
using DiskNumber = DiskProperty<Sint32, int>;

constexpr DiskText DISK_TEXTS[] = {
    {"DiskPrimPathNodes", 0, &api_pattern_t::node},
    {"DiskPrimPathPCISlots", 1, &api_pattern_t::pci},
    {"DiskPrimPathPorts", 2, &api_pattern_t::port},
    {"DiskCages", 3, &api_pattern_t::cage},
    {"DiskMagazines", 4, &api_pattern_t::magazine},
    {"DiskMagPositions", 5, &api_pattern_t::magPosition},
    {"DiskIDs", 6, &api_pattern_t::diskIDs},
    {"DiskPackageModels", 11, &api_pattern_t::deviceIDs},
};

constexpr DiskNumber DISK_NUMBERS[] = {
    {"DiskTotalChunkletGT", 7, &api_pattern_t::totalChunkGreaterThan},
    {"DiskTotalChunkletLT", 8, &api_pattern_t::totalChunkLessThan},
    {"DiskFreeChunkletGT", 9, &api_pattern_t::freeChunkGreaterThan},
    {"DiskFreeChunkletLT", 10, &api_pattern_t::freeChunkLessThan},
    {"DiskRPM", 12, &api_pattern_t::rpm},
};

/// The disk property that was read last, empty or not: it says how many patterns there are.
struct LastList {
    int rank = -1;
    Uint32 size = 0;

    void see(int seenRank, Uint32 seenSize) {
        if (seenRank > rank) *this = {seenRank, seenSize};
    }
};

/// The disk properties that have entries.
template <class Element, class Field>
class DiskLists {
  public:
    template <std::size_t COUNT>
    void read(const DiskProperty<Element, Field> (&properties)[COUNT], const CIMInstance& goal,
              LastList& last) {
        for (const auto& each : properties) {
            const auto list = given<Array<Element>>(goal, each.property);
            if (!list) continue;
            last.see(each.rank, list->size());
            if (list->size() > 0) _lists.emplace_back(*list, each.field);
        }
    }

    Uint32 shortest(Uint32 limit) const {
        for (const auto& [list, field] : _lists) limit = std::min(limit, list.size());
        return limit;
    }

    template <class Write>
    void fill(Uint32 index, api_pattern_t& pattern, Write write) const {
        for (const auto& [list, field] : _lists) write(pattern.*field, list[index]);
    }

  private:
    std::vector<std::pair<Array<Element>, Field api_pattern_t::*>> _lists;
};

/// The disk patterns of a goal; none at first.
class DiskPatterns {
  public:
    void read(const CIMInstance& goal) {
        _texts.read(DISK_TEXTS, goal, _last);
        _numbers.read(DISK_NUMBERS, goal, _last);
    }

    Uint32 size() const { return _numbers.shortest(_texts.shortest(_last.size)); }

    void fill(Uint32 index, api_pattern_t& pattern) const {
        _texts.fill(index, pattern, [](char(&field)[201], const String& entry) {
            copyText(field, entry.getCString());
        });
        _numbers.fill(index, pattern, [](int& field, Sint32 entry) { field = entry; });
    }

  private:
    DiskLists<String, char[201]> _texts;
    DiskLists<Sint32, int> _numbers;
    LastList _last;
};

/// Writes one pattern at `position` and returns its length; none when it doesn't fit or is refused.
std::optional<int> writePattern(const DiskPatterns& patterns, Uint32 index, devtype_e type,
                                char* position, int room) {
    api_pattern_t pattern{};
    if (api_initPattern(&pattern) != 0) return std::nullopt;
    if (index < patterns.size()) patterns.fill(index, pattern);
    pattern.deviceType = type;
    if (api_constructPattern(position, room, &pattern) != 0) return std::nullopt;
    return static_cast<int>(strnlen(position, static_cast<std::size_t>(room)));
}

/// Without patterns of its own a goal is for disks of one type, which goes without saying for FC.
void applyPatterns(const DiskPatterns& patterns, devtype_e type, Setting& setting) {
    const Uint32 count = patterns.size() == 0 && type != devtype_fc ? 1 : patterns.size();
    char* position = setting.patternString;
    int room = sizeof setting.patternString;
    for (Uint32 i = 0; i < count && room > 0; ++i) {
        const std::optional<int> length = writePattern(patterns, i, type, position, room);
        if (!length) return;
        position += *length;
        room -= *length;
    }
}

void applyGoal(const CIMInstance& goal, int origRaidType, Setting& setting) {
    const RaidGoal raid = raidGoalOf(goal);
    applyFields(goal, setting);
    applyAvailability(goal, raid, setting);
    applyRaid(raid, origRaidType, setting);
    applySnapshotSpace(goal, setting);
}

}  // namespace

void QRV_Common::setStorageSetting(const CIMInstance& goalSettingInst, int origRaidType,
                                   devtype_e diskDeviceType, api_vol_setting_t* pStorageSetting) {
    if (pStorageSetting == nullptr) return;
    // A value of the wrong type must not leave the record half changed.
    api_vol_setting_t setting = *pStorageSetting;
    DiskPatterns patterns;
    if (!goalSettingInst.isUninitialized()) {
        applyGoal(goalSettingInst, origRaidType, setting);
        patterns.read(goalSettingInst);
    }
    applyPatterns(patterns, diskDeviceType, setting);
    *pStorageSetting = setting;
}

}  // namespace Pegasus

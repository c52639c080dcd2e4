#include <Pegasus/Common/CIMProperty.h>

#include <atomic>
#include <optional>
#include <variant>

#include "QRV_Common.h"
#include "QRV_InstanceID.h"
#include "QRV_OperationFrame.h"

namespace Pegasus {

const raidMappingTable_s raidMappingTable[4] = {
    {0, 1, 1, false, 1, 262144, 32768},
    {10, 2, 2, true, 2, 262144, 32768},
    {50, 2, 1, true, 2, 131072, 65536},
    {60, 3, 1, true, 2, 65536, 65536},
};

namespace {

// ---- RAID levels --------------------------------------------------------------------------------

struct Range {
    Uint16 min;
    Uint16 max;
};

/// What a RAID level means beyond its row in raidMappingTable.
struct RaidTraits {
    int raidType;
    const char* text;   ///< in an InstanceID
    const char* words;  ///< in a caption
    Range data;
    Range package;
    bool keepsRange;  ///< also in the capabilities of the system's own pools
    Uint64 depthMin;
    Uint64 depthMax;
    Uint16 parityLayout;
    Uint16 paritySetSize;  ///< 0 without parity
    Uint16 parityLayoutDefault;
};

constexpr RaidTraits RAID_TRAITS[] = {
    {0, "RAID0", "RAID 0 ", {1, 1}, {1, 1}, false, 32768, 524288, 1, 0, 2},
    {10, "RAID10", "RAID 10 ", {2, 4}, {2, 4}, true, 32768, 524288, 1, 0, 2},
    {50, "RAID50", "RAID 50 ", {1, 1}, {2, 2}, false, 32768, 524288, 2, 4, 3},
    {60, "RAID60", "RAID 60 ", {1, 1}, {3, 5}, true, 32768, 131072, 2, 8, 3},
};

constexpr int NO_RAID_TYPE = 99;
constexpr RaidTraits NO_RAID = {NO_RAID_TYPE, "", "", {0, 0}, {0, 0}, false, 0, 0, 1, 0, 2};
constexpr raidMappingTable_s NO_MAPPING = {NO_RAID_TYPE, 0, 0, false, 0, 0, 0};

/// The row of a table for a RAID level, or `none`.
template <class Row, std::size_t COUNT>
const Row& rowOf(const Row (&table)[COUNT], int raidType, const Row& none) {
    for (const Row& each : table)
        if (each.raidType == raidType) return each;
    return none;
}

// ---- InstanceIDs --------------------------------------------------------------------------------

constexpr const char* LEGACY_PREFIX = "ORVELIS:StorageSetting:";
constexpr const char* POOL_PREFIX = "ORVELIS:DynamicStoragePoolSetting:";
constexpr const char* THIN_PREFIX = "ORVELIS:ThinProvisionedVolumeSetting from DynamicStoragePool ";
constexpr const char* FULL_PREFIX =
    "ORVELIS:FullyProvisionedVolumeSetting from DynamicStoragePool ";
constexpr const char* GEN_DEF_PREFIX = "ORVELIS:GenDefSetting-";
constexpr const char* GEN_GOAL_PREFIX = "ORVELIS:GenGoalSetting-";
constexpr const char* POOL_GEN_DEF = "ORVELIS:GenDefSetting-DSP";
constexpr const char* POOL_GEN_GOAL = "ORVELIS:GenGoalSetting-DSP";
constexpr const char* CAPABILITIES_PREFIX = "ORVELIS:StorageCapabilities:";
constexpr const char* DYNAMIC_POOL_CAPABILITIES = "ORVELIS:CapabilitiesForDynamicStoragePool:";
constexpr const char* DELTA_POOL_CAPABILITIES = "ORVELIS:CapabilitiesForDeltaReplicaStoragePool:";
constexpr const char* PRIMORDIAL = "primordial";

struct Disk {
    const char* text;
    Uint16 deviceType;
    Uint16 diskType;
};

constexpr Disk DISKS[] = {
    {"all-FC", devtype_fc, 2}, {"all-NL", devtype_nl, 2}, {"all-SSD", devtype_ssd, 3}};
constexpr const Disk& SSD = DISKS[2];

bool holds(const String& text, const String& part) {
    return text.find(part) != PEG_NOT_FOUND;
}

/// The level whose text follows `prefix` in an InstanceID; null when there is none.
const RaidTraits* levelBehind(const char* prefix, const String& instanceID) {
    for (const RaidTraits& each : RAID_TRAITS)
        if (holds(instanceID, String(prefix) + each.text)) return &each;
    return nullptr;
}

/// The disks whose text follows `prefix`, which may be empty; null when there are none.
const Disk* diskBehind(const char* prefix, const String& text) {
    for (const Disk& each : DISKS)
        if (holds(text, String(prefix) + each.text)) return &each;
    return nullptr;
}

const Disk* diskIn(const String& text) {
    return diskBehind("", text);
}

bool isCapabilitiesOf(const char* pool, const String& instanceID) {
    return instanceID == String(CAPABILITIES_PREFIX) + pool;
}

/// Whether these are the capabilities of one of the pools that every system has.
bool isSystemPoolCapabilities(const String& instanceID) {
    for (const Disk& each : DISKS)
        if (isCapabilitiesOf(each.text, instanceID)) return true;
    return isCapabilitiesOf(PRIMORDIAL, instanceID);
}

bool isGeneratedDefault(const String& instanceID) {
    return QRV_Common::isGenDefSettingFromConcretePoolCap(instanceID) ||
           holds(instanceID, POOL_GEN_DEF);
}

// ---- Kinds and captions -------------------------------------------------------------------------

/// What an instance is for. Bits, so that a property can name the kinds that have it.
enum Kind : unsigned {
    noKind = 0x01,
    legacyVolSetting = 0x02,
    tspSetting = 0x04,
    tpvvSetting = 0x08,
    capGeneratedSetting = 0x10,
    tspCapGeneratedSetting = 0x20,
    currentVolumeSetting = 0x40,
    capabilities = 0x80
};

constexpr unsigned ANY_KIND = ~0U;
constexpr unsigned SETTINGS = legacyVolSetting | tspSetting | tpvvSetting | capGeneratedSetting |
                              tspCapGeneratedSetting | currentVolumeSetting;
constexpr unsigned GENERAL_SETTINGS =
    legacyVolSetting | capGeneratedSetting | tspCapGeneratedSetting;
constexpr unsigned VOLUME_SETTINGS = GENERAL_SETTINGS | tpvvSetting | currentVolumeSetting;
constexpr unsigned TEMPLATES = legacyVolSetting | tspSetting | capGeneratedSetting;
constexpr unsigned SPACE_SETTINGS = tspSetting | capGeneratedSetting;

/// The disks that a fixed setting is for, as its caption ends.
String captionEnd(const String& instanceID) {
    const Disk* const disk = holds(instanceID, SSD.text) ? &SSD : diskIn(instanceID);
    return disk == nullptr ? String() : String(disk->text) + " pool.";
}

String legacyCaption(const String& instanceID) {
    return String("Fixed StorageSetting that can be used to create a default fully-provisioned ") +
           levelBehind(LEGACY_PREFIX, instanceID)->words + "StorageVolume from " +
           captionEnd(instanceID);
}

String poolCaption(const String& instanceID) {
    String end = captionEnd(instanceID);
    if (end.size() == 0 && holds(instanceID, PRIMORDIAL)) end = String(PRIMORDIAL) + " extents.";
    return String("Fixed StorageSetting that can be used to create a default ") +
           levelBehind(POOL_PREFIX, instanceID)->words + "DynamicStoragePool from " + end;
}

String behind(const char* prefix, const String& instanceID) {
    return instanceID.subString(String(prefix).size());
}

String thinCaption(const String& instanceID) {
    return "Fixed StorageSetting that can be used to create a default thinly-provisioned volume "
           "that allocates from a DynamicStoragePool " +
           behind(THIN_PREFIX, instanceID);
}

String fullCaption(const String& instanceID) {
    return "Fixed StorageSetting that can be used to create a default fully-provisioned volume "
           "that allocates from a DynamicStoragePool " +
           behind(FULL_PREFIX, instanceID);
}

String capabilitiesCaption(const String& instanceID) {
    if (!isSystemPoolCapabilities(instanceID)) return String();
    return "StorageCapacities of " + behind(CAPABILITIES_PREFIX, instanceID) + " pool.";
}

/// One form of InstanceID, and the kind that it gives.
struct Form {
    Kind kind;
    bool tellsDisks;
    bool (*matches)(const CIMName& className, const String& instanceID);
    String (*caption)(const String& instanceID);
};

template <Boolean (*TEST)(const String&)>
bool isForm(const CIMName&, const String& instanceID) {
    return TEST(instanceID);
}

template <const char* const& TEXT>
bool holdsText(const CIMName&, const String& instanceID) {
    return holds(instanceID, TEXT);
}

bool isPoolGenerated(const CIMName&, const String& instanceID) {
    return holds(instanceID, POOL_GEN_DEF) || holds(instanceID, POOL_GEN_GOAL);
}

bool isVolumeSetting(const CIMName& className, const String&) {
    return className.equal(CIMName("QRV_VolumeSetting"));
}

bool isCapabilities(const CIMName&, const String& instanceID) {
    return isSystemPoolCapabilities(instanceID) || holds(instanceID, DYNAMIC_POOL_CAPABILITIES) ||
           holds(instanceID, DELTA_POOL_CAPABILITIES);
}

bool isAny(const CIMName&, const String&) {
    return true;
}

String noCaption(const String&) {
    return String();
}

String generatedCaption(const String&) {
    return "StorageSetting generated from fixed StorageCapabilities.";
}

String poolGeneratedCaption(const String&) {
    return "StorageSetting generated from StorageCapabilities associated to a DynamicStoragePool.";
}

/// The first form that matches decides; the last matches everything.
constexpr Form FORMS[] = {
    {legacyVolSetting, true, isForm<QRV_Common::isLegacyVolumeFixedSettingFromConcretePoolCap>,
     legacyCaption},
    {tspSetting, true, isForm<QRV_Common::isDSPFixedSettingFromConcreteOrPrimordialPoolCap>,
     poolCaption},
    {tpvvSetting, false, holdsText<THIN_PREFIX>, thinCaption},
    {legacyVolSetting, false, holdsText<FULL_PREFIX>, fullCaption},
    {capGeneratedSetting, true, isForm<QRV_Common::isGenSettingFromConcretePoolCap>,
     generatedCaption},
    {tspCapGeneratedSetting, false, isPoolGenerated, poolGeneratedCaption},
    {currentVolumeSetting, false, isVolumeSetting, noCaption},
    {capabilities, false, isCapabilities, capabilitiesCaption},
    {noKind, false, isAny, noCaption},
};

const Form& formOf(const CIMName& className, const String& instanceID) {
    const Form* form = FORMS;
    while (!form->matches(className, instanceID)) ++form;
    return *form;
}

// ---- Values -------------------------------------------------------------------------------------

/// All that the properties of one instance are made from.
struct Values {
    unsigned kind;
    const String& instanceID;
    const String& elementName;
    int raidType;
    const RaidTraits& raid;
    Boolean noSinglePointOfFailure;
    Uint16 dataGoal;
    Uint16 packageGoal;
    Range data;
    Range package;
    Uint64 stripeDepth;
    Uint64 unit = 0;
    Uint64 unitMin = 0;
    Uint64 unitMax = 0;
};

Values valuesOf(const Form& form, const String& instanceID, const String& elementName,
                int raidType) {
    const raidMappingTable_s& mapping = rowOf(raidMappingTable, raidType, NO_MAPPING);
    const RaidTraits& raid = rowOf(RAID_TRAITS, raidType, NO_RAID);
    const bool isSSD =
        (form.tellsDisks && holds(instanceID, SSD.text)) || isCapabilitiesOf(SSD.text, instanceID);
    const bool anyLevel = !raid.keepsRange && isSystemPoolCapabilities(instanceID);
    Values values{
        form.kind,
        instanceID,
        elementName,
        raidType,
        raid,
        mapping.noSinglePointOfFailure,
        mapping.dataRedundancy,
        mapping.packageRedundancy,
        anyLevel ? Range{1, 4} : raid.data,
        anyLevel ? Range{1, 5} : raid.package,
        isSSD ? mapping.userDataStripeDepthDefaultSSD : mapping.userDataStripeDepthDefaultFCNL};
    QRV_Common::getDSPAllocUnitBoundaryValues(values.unitMax, values.unitMin, values.unit);
    return values;
}

using Value = std::optional<std::variant<Boolean, Uint8, Uint16, Uint32, Uint64>>;

/// One property: which instances have it, and with what value, if any.
struct Rule {
    const char* property;
    unsigned kinds;
    Value (*value)(const Values&);
};

template <auto VALUE>
Value fixed(const Values&) {
    return VALUE;
}

template <auto FIELD>
Value of(const Values& values) {
    return values.*FIELD;
}

template <Range Values::*RANGE, Uint16 Range::*END>
Value of(const Values& values) {
    return (values.*RANGE).*END;
}

template <auto FIELD>
Value ofRaid(const Values& values) {
    return values.raid.*FIELD;
}

template <std::size_t COUNT>
void apply(const Rule (&rules)[COUNT], unsigned kinds, const Values& values,
           CIMInstance& instance) {
    for (const Rule& rule : rules) {
        const Value value = (rule.kinds & kinds) != 0 ? rule.value(values) : std::nullopt;
        if (!value) continue;
        std::visit(
            [&](auto plain) { QRV_Common::setPropertyValue(instance, rule.property, plain); },
            *value);
    }
}

// ---- Capabilities -------------------------------------------------------------------------------

/// Which pools an InstanceID names capabilities of, as bits.
enum CapabilitiesFor : unsigned { ANY_POOL = 1, SYSTEM_POOL = 2, DYNAMIC_POOL = 4, DELTA_POOL = 8 };

unsigned poolsOf(const String& instanceID) {
    return ANY_POOL | (isSystemPoolCapabilities(instanceID) ? SYSTEM_POOL : 0U) |
           (holds(instanceID, DYNAMIC_POOL_CAPABILITIES) ? DYNAMIC_POOL : 0U) |
           (holds(instanceID, DELTA_POOL_CAPABILITIES) ? DELTA_POOL : 0U);
}

/// The primordial pool has no layout unless the level has parity.
Value parityLayoutDefault(const Values& values) {
    const bool hasParity = values.raid.paritySetSize != 0;
    if (!hasParity && isCapabilitiesOf(PRIMORDIAL, values.instanceID)) return std::nullopt;
    return values.raid.parityLayoutDefault;
}

constexpr Rule CAPABILITY_RULES[] = {
    {"NoSinglePointOfFailure", ANY_POOL, fixed<true>},
    {"PackageRedundancyMax", ANY_POOL, of<&Values::package, &Range::max>},
    {"DataRedundancyMin", ANY_POOL, of<&Values::data, &Range::min>},
    {"PackageRedundancyMin", ANY_POOL, of<&Values::package, &Range::min>},
    {"NoSinglePointOfFailureDefault", ANY_POOL, fixed<true>},
    {"ElementType", ANY_POOL, fixed<Uint16(5)>},
    {"ParityLayoutDefault", ANY_POOL, parityLayoutDefault},
    {"UserDataStripeDepthDefault", ANY_POOL, of<&Values::stripeDepth>},
    {"DataRedundancyMax", ANY_POOL, of<&Values::data, &Range::max>},
    {"DataRedundancyDefault", ANY_POOL, of<&Values::dataGoal>},
    {"PackageRedundancyDefault", ANY_POOL, of<&Values::packageGoal>},

    {"AllocationUnitDefault", SYSTEM_POOL, of<&Values::unit>},
    {"AllocationUnitMax", SYSTEM_POOL, of<&Values::unitMax>},
    {"AllocationUnitMin", SYSTEM_POOL, of<&Values::unitMin>},

    {"LowSpaceWarningThresholdDefault", DYNAMIC_POOL, fixed<Uint16(0)>},
    {"SpaceLimitWarningThresholdDefault", DYNAMIC_POOL, fixed<Uint16(0)>},
    {"SpaceLimitSupported", DYNAMIC_POOL, fixed<true>},
    {"DeltaReservationMax", DYNAMIC_POOL, fixed<Uint16(100)>},
    {"DeltaReservationMin", DYNAMIC_POOL, fixed<Uint16(0)>},
    {"DeltaReservationDefault", DYNAMIC_POOL, fixed<Uint16(0)>},

    {"SpaceLimitSupported", DELTA_POOL, fixed<false>},
};

// ---- Settings -----------------------------------------------------------------------------------

template <Uint16 Disk::*FIELD>
Value ofDisk(const Values& values) {
    const Disk* const disk = diskIn(values.instanceID);
    return disk == nullptr ? Value() : Value(disk->*FIELD);
}

Value level(const Values& values) {
    return static_cast<Uint16>(values.raidType);
}

/// The depth of a volume that exists is no choice.
template <Uint64 RaidTraits::*END>
Value stripeDepthEnd(const Values& values) {
    return values.kind == currentVolumeSetting ? values.stripeDepth : values.raid.*END;
}

Value paritySetSize(const Values& values) {
    return values.raid.paritySetSize == 0 ? Value() : Value(values.raid.paritySetSize);
}

Value highAvailability(const Values& values) {
    return values.raidType == 0 ? Value() : Value(Uint16(API_HA_DEFAULT));
}

constexpr int LAST_TYPE_WITHOUT_ZERO_DETECT = 13;

/// Later systems find the zeroes that are written to a thin volume.
Value policy(const Values& values) {
    const bool detectsZeroes =
        values.kind == tpvvSetting && QRV_Common::getSystemType() > LAST_TYPE_WITHOUT_ZERO_DETECT;
    return Uint32(VV_POLICY_STALE_SS) + Uint32(VV_POLICY_NO_ONE_HOST) +
           Uint32(detectsZeroes ? VV_POLICY_ZERO_DETECT : VV_POLICY_NO_ZERO_DETECT);
}

constexpr Rule SETTING_RULES[] = {
    {"ChangeableType", ANY_KIND, fixed<Uint16(0)>},
    {"LowSpaceWarningThreshold", ANY_KIND, fixed<Uint16(0)>},

    {"ThinlyProvisioned", GENERAL_SETTINGS, fixed<false>},
    {"TemplateType", GENERAL_SETTINGS, fixed<Uint16(1)>},
    {"TemplateForVolumeType", GENERAL_SETTINGS, fixed<Uint16(3)>},
    {"TemplateType", tspSetting, fixed<Uint16(2)>},
    {"ThinProvisionedPoolType", tspSetting, fixed<Uint16(9)>},
    {"ThinlyProvisioned", tpvvSetting, fixed<true>},
    {"TemplateType", tpvvSetting, fixed<Uint16(1)>},
    {"TemplateForVolumeType", tpvvSetting, fixed<Uint16(1)>},

    {"TemplateVolumeRaidType", TEMPLATES, level},
    {"TemplateVolumeDeviceType", TEMPLATES, ofDisk<&Disk::deviceType>},
    {"DiskType", TEMPLATES, ofDisk<&Disk::diskType>},

    {"DataRedundancyMax", SETTINGS, of<&Values::data, &Range::max>},
    {"DataRedundancyMin", SETTINGS, of<&Values::data, &Range::min>},
    {"PackageRedundancyMax", SETTINGS, of<&Values::package, &Range::max>},
    {"PackageRedundancyMin", SETTINGS, of<&Values::package, &Range::min>},
    {"DataRedundancyGoal", SETTINGS, of<&Values::dataGoal>},
    {"PackageRedundancyGoal", SETTINGS, of<&Values::packageGoal>},
    {"NoSinglePointOfFailure", SETTINGS, of<&Values::noSinglePointOfFailure>},

    {"DeltaReservationMax", TEMPLATES | currentVolumeSetting, fixed<Uint8(0)>},
    {"DeltaReservationMin", TEMPLATES | currentVolumeSetting, fixed<Uint8(0)>},
    {"DeltaReservationGoal", TEMPLATES | currentVolumeSetting, fixed<Uint8(0)>},
    {"ExtentStripeLengthMin", TEMPLATES | currentVolumeSetting, fixed<Uint16(1)>},
    {"UserDataStripeDepth", TEMPLATES | currentVolumeSetting, of<&Values::stripeDepth>},
    {"UserDataStripeDepthMax", TEMPLATES | currentVolumeSetting,
     stripeDepthEnd<&RaidTraits::depthMax>},
    {"UserDataStripeDepthMin", TEMPLATES | currentVolumeSetting,
     stripeDepthEnd<&RaidTraits::depthMin>},
    {"ParityLayout", TEMPLATES | currentVolumeSetting, ofRaid<&RaidTraits::parityLayout>},
    {"ParitySetSize", TEMPLATES | currentVolumeSetting, paritySetSize},

    {"HighAvailability", VOLUME_SETTINGS, highAvailability},
    {"GeometrySectorsPerTrack", VOLUME_SETTINGS, fixed<Uint32(304)>},
    {"GeometryHeadsPerCylinder", VOLUME_SETTINGS, fixed<Uint32(8)>},
    {"GeometrySectorSize", VOLUME_SETTINGS, fixed<Uint32(512)>},
    {"Policy", VOLUME_SETTINGS, policy},

    {"SpaceLimit", SPACE_SETTINGS, fixed<Uint64(0)>},
    {"SpaceLimitWarningThreshold", SPACE_SETTINGS, fixed<Uint16(0)>},
    {"DSPSnapSpaceGrowWarning", SPACE_SETTINGS, fixed<Uint64(0)>},
    {"AllocationUnit", SPACE_SETTINGS, of<&Values::unit>},
    {"AllocationUnitMax", SPACE_SETTINGS, of<&Values::unitMax>},
    {"AllocationUnitMin", SPACE_SETTINGS, of<&Values::unitMin>},
};

/// A generated setting offers less than the range: a default one no redundancy but the goal, and
/// one that is named after its pool no allocation unit but the default.
void narrow(Values& values) {
    if (isGeneratedDefault(values.instanceID)) {
        values.data = {values.dataGoal, values.dataGoal};
        values.package = {values.packageGoal, values.packageGoal};
    }
    if (diskBehind("GenGoalSetting-", values.elementName) != nullptr ||
        diskBehind("GenDefSetting-", values.elementName) != nullptr)
        values.unitMin = values.unitMax = values.unit;
}

bool isSetting(const CIMName& className) {
    return className.equal(CIMName("QRV_StorageSetting")) ||
           className.equal(CIMName("QRV_VolumeSetting"));
}

// ---- Allocation units ---------------------------------------------------------------------------

/// How many nodes are alive, once the array has told it; 0 until then.
std::atomic<int> _numberOfNodes{0};

int numberOfNodes() {
    int count = _numberOfNodes;
    if (count == 0 && cluster_num_nodes_alive(&count) == 0) _numberOfNodes = count;
    return count;
}

constexpr Uint64 GIB = 1073741824;
constexpr Uint64 LARGEST_UNIT = 2047 * GIB;

/// The allocation units of systems with up to `nodes` nodes.
struct UnitsForNodes {
    int nodes;
    Uint64 min;
    Uint64 def;
};

constexpr UnitsForNodes UNITS[] = {{2, 8 * GIB, 32 * GIB},
                                   {4, 16 * GIB, 64 * GIB},
                                   {6, 24 * GIB, 96 * GIB},
                                   {8, 32 * GIB, 128 * GIB}};

}  // namespace

Boolean QRV_Common::isLegacyVolumeFixedSettingFromConcretePoolCap(const String& instanceID) {
    return levelBehind(LEGACY_PREFIX, instanceID) != nullptr;
}

Boolean QRV_Common::isDSPFixedSettingFromConcreteOrPrimordialPoolCap(const String& instanceID) {
    return levelBehind(POOL_PREFIX, instanceID) != nullptr;
}

Boolean QRV_Common::isFixedSettingFromConcretePoolCap(const String& instanceID) {
    return isLegacyVolumeFixedSettingFromConcretePoolCap(instanceID) ||
           isDSPFixedSettingFromConcreteOrPrimordialPoolCap(instanceID);
}

Boolean QRV_Common::isGenDefSettingFromConcretePoolCap(const String& instanceID) {
    return diskBehind(GEN_DEF_PREFIX, instanceID) != nullptr;
}

Boolean QRV_Common::isGenGoalSettingFromConcretePoolCap(const String& instanceID) {
    return diskBehind(GEN_GOAL_PREFIX, instanceID) != nullptr;
}

Boolean QRV_Common::isGenSettingFromConcretePoolCap(const String& instanceID) {
    return isGenDefSettingFromConcretePoolCap(instanceID) ||
           isGenGoalSettingFromConcretePoolCap(instanceID);
}

int QRV_Common::returnRAIDType(Uint16 packageRedundancy, Uint16 dataRedundancy) {
    if (packageRedundancy == 1 && dataRedundancy == 1) return 0;
    if (packageRedundancy >= 2 && dataRedundancy >= 2) return 10;
    if (packageRedundancy == 2 && dataRedundancy == 1) return 50;
    if (packageRedundancy >= 3 && dataRedundancy == 1) return 60;
    return NO_RAID_TYPE;
}

bool QRV_Common::isSameRAID(Uint16 dataRedundancy1, Uint16 packageRedundancy1,
                            Uint16 dataRedundancy2, Uint16 packageRedundancy2) {
    return returnRAIDType(packageRedundancy1, dataRedundancy1) ==
           returnRAIDType(packageRedundancy2, dataRedundancy2);
}

bool QRV_Common::isSameRAID(Uint16 raidType, Uint16 dataRedundancy, Uint16 packageRedundancy) {
    return returnRAIDType(packageRedundancy, dataRedundancy) == raidType;
}

String QRV_Common::getRaidTypeStr(int raidType) {
    return rowOf(RAID_TRAITS, raidType, NO_RAID).text;
}

void QRV_Common::getDSPAllocUnitBoundaryValues(Uint64& max, Uint64& min, Uint64& def) {
    max = LARGEST_UNIT;
    const int nodes = numberOfNodes();
    for (const UnitsForNodes& each : UNITS) {
        if (nodes > each.nodes) continue;
        min = each.min;
        def = each.def;
        return;
    }
}

CIMObjectPath QRV_Common::buildSettingCapObjectPath(const String& systemAddress,
                                                    const CIMName& className,
                                                    const String& instanceID) {
    return pathByInstanceID(systemAddress, className, instanceID);
}

void QRV_Common::fillInRAIDProperties(CIMInstance& instance, const String& systemAddress,
                                      const String& instanceID, const String& elementName,
                                      int raidType) {
    const CIMName className = instance.getClassName();
    const Form& form = formOf(className, instanceID);
    Values values = valuesOf(form, instanceID, elementName, raidType);
    setPropertyValue(instance, "InstanceID", instanceID);
    setPropertyValue(instance, "Caption", form.caption(instanceID));
    setPropertyValue(instance, "ElementName", elementName);
    if (isSetting(className)) {
        narrow(values);
        apply(SETTING_RULES, form.kind, values, instance);
    } else {
        apply(CAPABILITY_RULES, poolsOf(instanceID), values, instance);
    }
    instance.setPath(buildSettingCapObjectPath(systemAddress, className, instanceID));
}

}  // namespace Pegasus

#include "Scenario.h"
#include "ScenarioFields.h"

namespace qrvapi {
namespace {

constexpr std::size_t volumeWwnLength = 32;
constexpr std::uint16_t lastLun = 16383;

constexpr std::pair<std::string_view, volType> volumeTypes[] = {
    {"base", VOL_TYPE_BASE},
    {"physicalCopy", VOL_TYPE_PHYS_COPY},
    {"virtualCopy", VOL_TYPE_VIRT_COPY},
    {"remoteCopy", VOL_TYPE_REMOTE_COPY},
    {"unknown", VOL_TYPE_UNKNOWN},
    {"other", static_cast<volType>(VOL_TYPE_REMOTE_COPY + 1)}};

constexpr std::pair<std::string_view, vol_mode_t> accessWords[] = {
    {"read", VOL_MODE_READ}, {"write", VOL_MODE_WRITE}, {"readWrite", VOL_MODE_READWRITE}};

/// A kind of VLUN, with what it has to name.
struct Kind {
    VlunKind kind;
    bool host;
    bool hostSet;
    bool port;
};

constexpr std::pair<std::string_view, Kind> kinds[] = {
    {"matchedSet", {VlunKind::matchedSet, true, false, true}},
    {"hostSees", {VlunKind::hostSees, true, false, false}},
    {"hostSet", {VlunKind::hostSet, false, true, false}},
    {"portPresents", {VlunKind::portPresents, false, false, true}}};

std::string readVolumeWwn(const JsonValue& value) {
    const auto text = value.text(volumeWwnLength);
    const std::string_view all = text;
    const auto high = parseWwn(all.substr(0, std::min<std::size_t>(all.size(), 16)));
    const auto low = all.size() == volumeWwnLength ? parseWwn(all.substr(16)) : std::nullopt;
    if (!high || !low) value.fail("must be 32 hexadecimal digits");
    return wwnText(*high) + wwnText(*low);
}

void requireMembers(const JsonValue& value, const Kind& kind) {
    if (kind.host) value.member("host");
    if (kind.hostSet) value.member("hostSet");
    if (kind.port) value.member("port");
    const auto refuse = [&](std::string_view name) {
        if (const auto member = value.optionalMember(name))
            member->fail("doesn't go with the kind");
    };
    if (!kind.hostSet) refuse("hostSet");
    if (kind.hostSet) refuse("host");
}

/// What is exported: a volume, or in a template perhaps a volume set.
void readExported(const JsonValue& value, VlunDefinition& vlun) {
    const auto set = value.optionalMember("volumeSet");
    if (!set) {
        vlun.volume = value.member("volume").nonEmptyText(nameLength);
        return;
    }
    if (value.optionalMember("volume")) value.fail("exports a volume and a volume set");
    if (!vlun.isTemplate) set->fail("is for templates only");
    vlun.volumeSet = set->nonEmptyText(nameLength);
}

void readPortType(const JsonValue& value, VlunDefinition& vlun) {
    const auto type = value.optionalMember("portType");
    if (!type) return;
    if (vlun.port != QRV_NO_PORT) type->fail("is told by the port");
    vlun.portType = choice(*type, portTypes);
}

VlunDefinition readVlunDefinition(const JsonValue& value) {
    value.allowMembers({"kind", "template", "volume", "volumeSet", "host", "hostSet", "port",
                        "portType", "initiator", "lun", "access"});
    const auto kind = choice(value.member("kind"), kinds);
    requireMembers(value, kind);
    VlunDefinition vlun;
    vlun.kind = kind.kind;
    vlun.isTemplate = optionalFlag(value, "template", false);
    readExported(value, vlun);
    if (const auto host = value.optionalMember("host")) vlun.host = host->nonEmptyText(nameLength);
    if (kind.hostSet) vlun.hostSet = value.member("hostSet").nonEmptyText(nameLength);
    vlun.port = readOptionalPort(value);
    readPortType(value, vlun);
    if (const auto initiator = value.optionalMember("initiator")) {
        initiator->allowMembers({"wwn", "iscsiName", "sasAddress"});
        vlun.initiator = readInitiator(*initiator);
    }
    vlun.lun = static_cast<std::uint16_t>(value.member("lun").number(0, lastLun));
    if (const auto access = value.optionalMember("access")) {
        vlun.access = choice(*access, accessWords);
    }
    return vlun;
}

}  // namespace

void readVolume(const JsonValue& value, Model& model) {
    value.allowMembers({"name", "id", "wwn", "type", "sizeMB", "domain", "comment", "locked"});
    VolumeDefinition definition;
    auto& volume = definition.volume;
    volume.name = value.member("name").nonEmptyText(nameLength);
    volume.wwn = readVolumeWwn(value.member("wwn"));
    if (const auto type = value.optionalMember("type")) volume.type = choice(*type, volumeTypes);
    volume.sizeMB = optionalNumber(value, "sizeMB", 0x7FFFFFFFFFFFFFFF);
    volume.domain = optionalText(value, "domain", nameLength);
    volume.comment = optionalText(value, "comment", noteLength);
    volume.locked = optionalFlag(value, "locked", false);
    if (const auto id = value.optionalMember("id")) {
        definition.id = static_cast<qrv_u32>(id->number(0, lastId));
    }
    value.attempt([&] { model.addVolume(std::move(definition)); });
}

void readVlun(const JsonValue& value, Model& model) {
    const auto vlun = readVlunDefinition(value);
    value.attempt([&] { model.addVlun(vlun); });
}

void removeVlun(const JsonValue& value, Model& model) {
    const auto vlun = readVlunDefinition(value);
    value.attempt([&] { model.removeVlun(vlun); });
}

}  // namespace qrvapi

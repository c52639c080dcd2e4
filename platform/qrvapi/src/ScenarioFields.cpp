#include "ScenarioFields.h"

namespace qrvapi {

void forEachMember(const JsonValue& object, std::string_view name,
                   const std::function<void(const JsonValue&)>& visit) {
    if (const auto list = object.optionalMember(name)) list->forEach(visit);
}

std::string optionalText(const JsonValue& object, std::string_view name, std::size_t longest) {
    const auto value = object.optionalMember(name);
    return value ? value->text(longest) : std::string();
}

std::uint64_t optionalNumber(const JsonValue& object, std::string_view name, std::uint64_t most) {
    const auto value = object.optionalMember(name);
    return value ? value->number(0, most) : 0;
}

bool optionalFlag(const JsonValue& object, std::string_view name, bool otherwise) {
    const auto value = object.optionalMember(name);
    return value ? value->flag() : otherwise;
}

std::vector<std::string> readNames(const JsonValue& object, std::string_view name) {
    std::vector<std::string> names;
    forEachMember(object, name,
                  [&](const auto& member) { names.push_back(member.nonEmptyText(nameLength)); });
    return names;
}

SetDefinition readSet(const JsonValue& value, std::size_t longestName) {
    value.allowMembers({"name", "members"});
    return {value.member("name").nonEmptyText(longestName), readNames(value, "members")};
}

qrv_u64 readWwn(const JsonValue& value) {
    const auto text = value.text(16);
    const auto wwn = parseWwn(text);
    if (text.size() != 16 || !wwn) value.fail("must be 16 hexadecimal digits");
    if (!isWwn(*wwn)) value.fail("is reserved");
    return *wwn;
}

std::string readIscsiName(const JsonValue& value) {
    auto name = value.text(223);
    if (!isIscsiName(name)) {
        value.fail(
            "must be an iSCSI name: iqn., eui. or naa. and letters, digits, '.', ':', '-', '_'");
    }
    return name;
}

qrv_u32 readIpv4(const JsonValue& value) {
    const auto address = parseIpv4(value.text(15));
    if (!address) value.fail("must be an IPv4 address");
    return *address;
}

lpid_t readPortId(const JsonValue& value) {
    const auto port = parsePortId(value.text(nameLength));
    if (!port) value.fail("must be a port ID such as \"0:1:2\" (node, slot, port)");
    return *port;
}

lpid_t readOptionalPort(const JsonValue& object) {
    const auto port = object.optionalMember("port");
    return port ? readPortId(*port) : QRV_NO_PORT;
}

Initiator readInitiator(const JsonValue& value) {
    const auto wwn = value.optionalMember("wwn");
    const auto iscsiName = value.optionalMember("iscsiName");
    const auto sasAddress = value.optionalMember("sasAddress");
    if (wwn.has_value() + iscsiName.has_value() + sasAddress.has_value() != 1) {
        value.fail("must have exactly one of \"wwn\", \"iscsiName\" and \"sasAddress\"");
    }
    if (wwn) return fcInitiator(readWwn(*wwn));
    if (iscsiName) return iscsiInitiator(readIscsiName(*iscsiName));
    return {PORT_TYPE_SAS, readWwn(*sasAddress), {}};
}

}  // namespace qrvapi

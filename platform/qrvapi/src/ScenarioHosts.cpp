#include <vector>

#include "Scenario.h"
#include "ScenarioFields.h"
#include "qrvapi/hosts.h"

namespace qrvapi {
namespace {

Descriptors readDescriptors(const JsonValue& value) {
    value.allowMembers({"location", "ipAddress", "os", "model", "contact", "comment"});
    const auto note = [&](std::string_view name) { return optionalText(value, name, noteLength); };
    return {note("location"), note("ipAddress"), note("os"),
            note("model"),    note("contact"),   note("comment")};
}

ChapSide readChapSide(const JsonValue& value) {
    value.allowMembers({"name", "secret", "hexSecret"});
    const auto hex = value.optionalMember("hexSecret");
    if (hex && value.optionalMember("secret")) value.fail("has two secrets");
    const auto secret = hex ? *hex : value.member("secret");
    const auto type = hex ? API_HOST_CHAP_SECRET_HEX : API_HOST_CHAP_SECRET_ASCII;
    auto name = value.member("name").nonEmptyText(sizeof(api_Chap_t::name) - 1);
    return {true, std::move(name),
            secret.attempt([&] { return secretBytes(secret.text(noteLength), type); })};
}

HostChap readChap(const JsonValue& value) {
    value.allowMembers({"initiator", "target"});
    HostChap chap;
    if (const auto side = value.optionalMember("initiator")) chap.initiator = readChapSide(*side);
    if (const auto side = value.optionalMember("target")) chap.target = readChapSide(*side);
    return chap;
}

HostDefinition readHostDefinition(const JsonValue& value) {
    value.allowMembers({"name", "id", "persona", "domain", "chap", "descriptors", "paths"});
    HostDefinition host;
    host.name = value.member("name").text(nameLength);
    host.persona = static_cast<unsigned>(value.member("persona").number(1, lastId));
    host.domain = optionalText(value, "domain", nameLength);
    if (const auto id = value.optionalMember("id")) {
        host.id = static_cast<qrv_u32>(id->number(0, lastId));
    }
    if (const auto chap = value.optionalMember("chap")) host.chap = readChap(*chap);
    if (const auto notes = value.optionalMember("descriptors")) {
        host.descriptors = readDescriptors(*notes);
    }
    return host;
}

PathDefinition readPathDefinition(const JsonValue& value) {
    value.allowMembers({"wwn", "iscsiName", "sasAddress", "ipv4Address", "ports"});
    PathDefinition path{readInitiator(value), QRV_NO_PORT, 0};
    if (const auto address = value.optionalMember("ipv4Address")) {
        if (path.initiator.type != PORT_TYPE_ISCSI) address->fail("is for iSCSI paths only");
        path.ipv4 = readIpv4(*address);
    }
    return path;
}

/// One port of a path, with the place that names it.
struct PortOfPath {
    JsonValue place;
    std::optional<lpid_t> port;  // absent when the path names no ports
};

std::vector<PortOfPath> portsOfPath(const JsonValue& path) {
    const auto list = path.optionalMember("ports");
    if (!list) return {{path, std::nullopt}};
    std::vector<PortOfPath> ports;
    list->forEach([&](const JsonValue& port) { ports.push_back({port, readPortId(port)}); });
    if (ports.empty()) list->fail("must not be empty");
    return ports;
}

}  // namespace

void readPath(const JsonValue& value, const std::string& hostName, Model& model) {
    const auto path = readPathDefinition(value);
    const auto ports = portsOfPath(value);
    std::size_t added = 0;
    try {
        for (; added < ports.size(); ++added) {
            const auto port = ports[added].port.value_or(QRV_NO_PORT);
            const auto add = [&] { model.addPath(hostName, {path.initiator, port, path.ipv4}); };
            ports[added].place.attempt(add);
        }
    } catch (...) {
        while (added-- > 0) {
            model.removePath(hostName, path.initiator, ports[added].port.value_or(QRV_NO_PORT));
        }
        throw;
    }
}

void readHost(const JsonValue& value, Model& model) {
    const auto host = readHostDefinition(value);
    value.attempt([&] { model.addHost(host); });
    try {
        forEachMember(value, "paths", [&](const auto& path) { readPath(path, host.name, model); });
    } catch (...) {
        model.removeHost(host.name);
        throw;
    }
}

void removePath(const JsonValue& value, const std::string& hostName, Model& model) {
    const auto initiator = readPathDefinition(value).initiator;
    const auto ports = portsOfPath(value);
    for (const auto& [place, port] : ports) {
        place.attempt([&, wanted = port] { model.requirePath(hostName, initiator, wanted); });
    }
    for (const auto& [place, port] : ports) {
        place.attempt([&, wanted = port] { model.removePath(hostName, initiator, wanted); });
    }
}

}  // namespace qrvapi

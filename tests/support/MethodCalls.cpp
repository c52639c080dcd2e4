#include "MethodCalls.h"

#include <QRV_ArrayGate.h>
#include <QRV_ArrayRecords.h>
#include <qrvapi_control.h>

#include <cinttypes>
#include <cstdio>

#include "Handlers.h"

using namespace Pegasus;

namespace qrvtest {

namespace control = qrvapi::control;

namespace {

String utf16(const std::string& text) {
    return String(text.c_str());
}

std::string member(const char* name, const std::string& value) {
    return std::string("\"") + name + "\": \"" + value + "\"";
}

/// The scenario's form of "INITIATOR" or "INITIATOR@PORT".
std::string pathJson(const std::string& path) {
    const auto at = path.find('@');
    const std::string initiator = path.substr(0, at);
    const bool iscsi = initiator.find('.') != std::string::npos;
    const std::string ports =
        at == std::string::npos ? "" : ", \"ports\": [\"" + path.substr(at + 1) + "\"]";
    return "{" + member(iscsi ? "iscsiName" : "wwn", initiator) + ports + "}";
}

/// Adds "NAME/PERSONA/DOMAIN: PATHS"; a host named "-" stands for paths of no host.
void addHost(const std::string& host) {
    const auto end = host.find(':');
    const auto begin = host.find_first_not_of(' ');
    const auto facts = split(host.substr(begin, end - begin), '/');
    const std::string name = facts[0] == "-" ? "" : facts[0];
    if (!name.empty())
        control::addHost("{" + member("name", name) + ", \"persona\": " + facts.at(1) +
                         (facts.size() > 2 ? ", " + member("domain", facts[2]) : "") + "}");
    for (const std::string& path : split(host.substr(end + 1), ' '))
        control::addPath(name, pathJson(path));
}

std::string portText(lpid_t id) {
    for (const char* port : {"0:1:1", "1:1:1", "0:2:1", "0:3:1"}) {
        lpid_t known = QRV_NO_PORT;
        if (api_convertStrLPIDtoPortID(port, &known) == 0 && known == id)
            return std::string("@") + port;
    }
    return id == QRV_NO_PORT ? "" : "@?";
}

std::string textOf(const api_HostPath_t& path) {
    char wwn[17];
    std::snprintf(wwn, sizeof wwn, "%016" PRIX64, static_cast<std::uint64_t>(path.host_wwn));
    return " " + std::string(path.type == PORT_TYPE_FC ? wwn : path.iscsiName) +
           portText(path.port);
}

std::string textOf(const api_Host_t& host) {
    const std::string domain = host.domain[0] == '\0' ? "" : std::string("/") + host.domain;
    std::string text = host.name[0] == '\0'
                           ? "-:"
                           : host.name + ("/" + std::to_string(host.host_persona)) + domain + ":";
    for (unsigned int i = 0; i < host.pathCount; ++i) text += textOf(host.paths[i]);
    return text;
}

void remove(const api_Host_t& host) {
    if (host.name[0] != '\0') return control::removeHost(host.name);
    for (unsigned int i = 0; i < host.pathCount; ++i)
        control::removePath("", pathJson(textOf(host.paths[i]).substr(1)));
}

HostList readHosts() {
    HostList list;
    callArrayForStatus(
        [&] { return api_getHosts(nullptr, QRV_NO_WWN, nullptr, list.receive(), 1, 0); });
    return list;
}

CIMValue valueOf(char kind, const std::string& value) {
    switch (kind) {
        case '#':
            return number(static_cast<Uint16>(std::stoul(value)));
        case '@':
            return reference(value);
        case '[':
            return texts(split(value.substr(0, value.size() - 1), ','));
        case '!':
            return CIMValue(CIMTYPE_STRING, false);
        default:
            return text(value);
    }
}

}  // namespace

Parameters given(const std::string& parameters) {
    Parameters list;
    for (const std::string& each : split(parameters, ' ')) {
        const auto end = each.find_first_of("=#@[!");
        list.push_back({each.substr(0, end), valueOf(each.at(end), each.substr(end + 1))});
    }
    return list;
}

CIMValue text(const std::string& value) {
    return CIMValue(utf16(value));
}

CIMValue texts(const std::vector<std::string>& values) {
    Array<String> array;
    for (const std::string& value : values) array.append(utf16(value));
    return CIMValue(array);
}

CIMValue number(Uint16 value) {
    return CIMValue(value);
}

CIMValue reference(const std::string& path) {
    return CIMValue(CIMObjectPath(utf16(path)));
}

std::string collectionOf(const std::string& host) {
    return "QRV_StorageHardwareIDCollection.InstanceID=\"ORVELIS:" + host + "\"";
}

std::string fcID(const std::string& wwn) {
    return "QRV_StorageHardwareID.InstanceID=\"ORVELIS:FC-" + wwn + "\"";
}

std::string iscsiID(const std::string& name) {
    return "QRV_StorageHardwareID.InstanceID=\"ORVELIS:iSCSI-" + name + "\"";
}

std::string setting(const std::string& persona) {
    return "QRV_StorageClientSettingData.InstanceID=\"ORVELIS:PERSONA-" + persona + "\"";
}

Array<CIMParamValue> inParameters(const Parameters& parameters) {
    Array<CIMParamValue> in;
    for (const auto& [name, value] : parameters) in.append(CIMParamValue(utf16(name), value));
    return in;
}

void setHosts(const std::string& hosts) {
    const HostList old = readHosts();
    for (unsigned int i = 0; i < old->count; ++i) remove(old->hosts[i]);
    for (const std::string& host : split(hosts, ';')) addHost(host);
}

std::string hostsText() {
    std::string hosts;
    const HostList list = readHosts();
    for (unsigned int i = 0; i < list->count; ++i)
        hosts += (i == 0 ? "" : "; ") + textOf(list->hosts[i]);
    return hosts;
}

}  // namespace qrvtest

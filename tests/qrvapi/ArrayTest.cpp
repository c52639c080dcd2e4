#include "ArrayTest.h"

#include <arpa/inet.h>

#include <cstdlib>
#include <memory>

namespace control = qrvapi::control;

namespace {

constexpr std::string_view smallArray = R"({
    "system": {"name": "unit", "hostName": "unit.example.com", "ipv4Address": "192.0.2.1",
               "ipv6Address": "2001:db8::1", "id": 77, "type": 13, "serial": "S1", "nodes": 2},
    "serverUser": "daemon",
    "users": [{"name": "admin", "password": "secret", "rights": "all"},
              {"name": "viewer", "password": "", "rights": "read"},
              {"name": "stranger", "password": "x", "rights": "none"}],
    "ports": [{"id": "0:1:1", "type": "fc", "wwn": "2011000000000001"},
              {"id": "1:1:1", "type": "fc", "wwn": "2111000000000001"},
              {"id": "0:2:1", "type": "iscsi", "iscsiName": "iqn.2001-05.com.example:array"},
              {"id": "0:3:1", "type": "sas", "sasAddress": "5000000000000003"}],
    "personas": [{"number": 1, "name": "Plain", "operatingSystems": ["Linux 6", "AIX 7"]},
                 {"number": 2, "name": "Multipath", "capabilities": 7},
                 {"number": 3, "name": "Mainframe", "supported": false}],
    "domains": ["finance", "archive"],
    "domainSets": [{"name": "all", "id": 4294967295, "comment": "every one",
                    "members": ["finance", "archive"]}, {"name": "none", "id": 3}],
    "hosts": [
        {"name": "alpha", "id": 10, "persona": 2, "domain": "finance",
         "descriptors": {"location": "here", "comment": "first"},
         "paths": [{"wwn": "0000000000000005", "ports": ["0:1:1", "1:1:1"]},
                   {"iscsiName": "iqn.2001-05.com.Example:a", "ipv4Address": "10.0.0.1",
                    "ports": ["0:2:1"]}]},
        {"name": "beta", "persona": 1,
         "paths": [{"wwn": "10000000000000B1"}, {"sasAddress": "50000000000000B2", "ports": ["0:3:1"]}]},
        {"name": "empty", "persona": 1}],
    "unassignedPaths": [{"wwn": "10000000000000F1", "ports": ["0:1:1"]}],
    "hostSets": [{"name": "both", "members": ["alpha", "beta"]}],
    "volumes": [{"name": "v0", "wwn": "000000000000000000000000000000A0", "sizeMB": 100},
                {"name": "v1", "wwn": "000000000000000000000000000000A1", "type": "virtualCopy"},
                {"name": "v2", "wwn": "000000000000000000000000000000A2", "id": 7, "locked": true,
                 "domain": "finance", "comment": "kept"},
                {"name": "v3", "wwn": "000000000000000000000000000000A3"}],
    "volumeSets": [{"name": "pair", "members": ["v1", "v3"]}, {"name": "void"}],
    "vluns": [
        {"kind": "matchedSet", "host": "alpha", "port": "0:1:1", "volume": "v0", "lun": 1,
         "initiator": {"wwn": "0000000000000005"}},
        {"kind": "matchedSet", "host": "alpha", "port": "0:2:1", "volume": "v0", "lun": 2},
        {"kind": "hostSees", "host": "beta", "volume": "v0", "lun": 3, "access": "read"},
        {"kind": "hostSees", "host": "beta", "volume": "v1", "lun": 4},
        {"kind": "hostSet", "hostSet": "both", "volume": "v0", "lun": 5},
        {"kind": "portPresents", "port": "1:1:1", "volume": "v0", "lun": 6},
        {"kind": "portPresents", "port": "0:2:1", "host": "alpha", "volume": "v0", "lun": 7,
         "initiator": {"iscsiName": "iqn.2001-05.com.Example:a"}},
        {"kind": "matchedSet", "host": "beta", "port": "0:3:1", "volume": "v0", "lun": 8},
        {"kind": "matchedSet", "template": true, "host": "alpha", "port": "0:1:1", "volume": "v0",
         "lun": 1},
        {"kind": "hostSees", "template": true, "host": "alpha", "volumeSet": "pair", "lun": 9,
         "portType": "iscsi"},
        {"kind": "hostSees", "template": true, "host": "alpha", "volumeSet": "void", "lun": 10}]
})";

std::string codeText(int code) {
    return "code " + std::to_string(code);
}

std::string text(const api_HostPath_t& path) {
    char address[INET_ADDRSTRLEN] = "";
    inet_ntop(AF_INET, &path.ipaddr, address, sizeof address);
    char line[400];
    std::snprintf(line, sizeof line, "%d %llX%llX%s@%u/%llX %s", path.type, path.host_wwn,
                  path.sas_addr, path.iscsiName, path.port, path.port_wwn, address);
    return line;
}

std::string text(const api_Host_t& host) {
    auto line = std::to_string(host.id) + " " + host.name + " " + host.domain + " " +
                std::to_string(host.host_persona) + " " + host.hp_name + " " + host.desc.location +
                " " + host.desc.comment;
    for (unsigned i = 0; i < host.pathCount; ++i) line += " | " + text(host.paths[i]);
    return line;
}

struct HostList {
    api_HostsInfo_t info{};
    HostList() = default;
    HostList(const HostList&) = delete;
    HostList& operator=(const HostList&) = delete;
    ~HostList() { api_freeHosts(&info); }
};

}  // namespace

void ArrayTest::SetUp() {
    control::reset();
    control::loadScenarioText(smallArray, "small array");
}

void ArrayTest::TearDown() {
    const auto held = control::outstanding();
    EXPECT_TRUE(held.idle()) << control::describe(held);
    EXPECT_TRUE(held.blocks.has_value());
    EXPECT_EQ(held.tables, 0U);
    EXPECT_THAT(control::violations(), ::testing::IsEmpty());
    control::reset();
}

std::vector<std::string> ArrayTest::hosts(const Query& query) {
    HostList list;
    const GateHeld gate;
    const auto status = api_getHosts(query.hostName, query.wwn, query.iscsiName, &list.info,
                                     query.withUnassigned, query.brief);
    if (status.code != ERR_UNKNOWN) return {codeText(status.code)};
    return lines(list.info);
}

std::vector<std::string> ArrayTest::lines(const api_HostsInfo_t& list) {
    std::vector<std::string> lines;
    for (unsigned i = 0; i < list.count; ++i) lines.push_back(text(list.hosts[i]));
    return lines;
}

std::vector<std::string> ArrayTest::paths(const char* wwn, const char* iscsiName,
                                          const char* hostName, int withUnassigned) {
    int count = -1;
    api_hardwareID_t* records = nullptr;
    const GateHeld gate;
    const int code = api_getHostPaths(wwn, iscsiName, hostName, &count, &records, withUnassigned);
    const std::unique_ptr<api_hardwareID_t, void (*)(void*)> owner(records, std::free);
    if (code != 0) return {codeText(code)};
    std::vector<std::string> lines;
    for (int i = 0; i < count; ++i) {
        lines.push_back(std::string(records[i].hostName) + " " +
                        std::to_string(records[i].hostpersona) + " | " + text(records[i].pathInfo));
    }
    return lines;
}

std::vector<std::string> ArrayTest::takeViolations() {
    auto violations = control::violations();
    control::resetCounters();
    return violations;
}

#include "Generator.h"

#include <algorithm>
#include <cstdio>
#include <vector>

#include "Scenario.h"

namespace qrvapi {
namespace {

constexpr std::string_view smallArray = R"({
    "system": {"name": "generated", "hostName": "generated.example.com",
               "ipv4Address": "192.0.2.10", "id": 1, "type": 14, "serial": "GEN0000001", "nodes": 2},
    "users": [{"name": "admin", "password": "admin", "rights": "all"},
              {"name": "viewer", "password": "viewer", "rights": "read"},
              {"name": "stranger", "password": "stranger", "rights": "none"}],
    "ports": [{"id": "0:1:1", "type": "fc", "wwn": "2011000000000001"},
              {"id": "0:1:2", "type": "fc", "wwn": "2012000000000001"},
              {"id": "1:1:1", "type": "fc", "wwn": "2111000000000001"},
              {"id": "1:1:2", "type": "fc", "wwn": "2112000000000001"},
              {"id": "0:2:1", "type": "iscsi", "iscsiName": "iqn.2001-05.com.example.array:0"},
              {"id": "1:2:1", "type": "iscsi", "iscsiName": "iqn.2001-05.com.example.array:1"}],
    "personas": [{"number": 1, "name": "Plain", "operatingSystems": ["Linux 6"]},
                 {"number": 2, "name": "Multipath", "operatingSystems": ["Windows 2008"]}]
})";

constexpr qrv_u64 firstHostWwn = 0x1000000000000001;
constexpr qrv_u64 firstUnassignedWwn = 0x5000000000000001;
constexpr qrv_u64 volumeWwn = 0x6000000000000000;
constexpr std::size_t luns = 16384;
constexpr std::string_view fcPorts[] = {"0:1:1", "0:1:2", "1:1:1", "1:1:2"};
constexpr std::string_view iscsiPorts[] = {"0:2:1", "1:2:1"};

template <std::size_t Size>
lpid_t portInTurn(const std::string_view (&ports)[Size], std::size_t index) {
    return *parsePortId(ports[index % Size]);
}

std::string hostName(std::size_t index) {
    char name[32];
    std::snprintf(name, sizeof name, "host%07zu", index);
    return name;
}

void addFcPaths(const std::string& host, std::size_t count, qrv_u64 firstWwn, Model& model) {
    for (std::size_t path = 0; path < count; ++path) {
        model.addPath(host, {fcInitiator(firstWwn + path), portInTurn(fcPorts, path), 0});
    }
}

void addIscsiPaths(const std::string& host, std::size_t count, Model& model) {
    for (std::size_t path = 0; path < count; ++path) {
        const auto name = "iqn.2001-05.com.example:" + host + ":" + std::to_string(path);
        model.addPath(host, {iscsiInitiator(name), portInTurn(iscsiPorts, path), 0});
    }
}

HostDefinition hostNumber(std::size_t index) {
    HostDefinition host;
    host.name = hostName(index);
    host.persona = 1 + static_cast<unsigned>(index % 2);
    return host;
}

std::string volumeName(std::size_t index) {
    return "volume" + std::to_string(index);
}

void addVolumes(std::size_t count, Model& model) {
    for (std::size_t index = 0; index < count; ++index) {
        VolumeDefinition definition;
        definition.volume.name = volumeName(index);
        definition.volume.wwn = wwnText(volumeWwn) + wwnText(index);
        definition.volume.sizeMB = 102'400;
        model.addVolume(std::move(definition));
    }
}

/// The ports that see a host, each once.
std::vector<lpid_t> portsOf(const Host& host) {
    std::vector<lpid_t> ports;
    for (const auto& path : host.paths) {
        if (path.port == nullptr) continue;
        const auto port = path.port->id;
        if (std::find(ports.begin(), ports.end(), port) == ports.end()) ports.push_back(port);
    }
    return ports;
}

void addVluns(const std::string& host, std::size_t count, bool areTemplates, Model& model) {
    const auto ports = portsOf(model.host(host));
    VlunDefinition vlun;
    vlun.host = host;
    vlun.isTemplate = areTemplates;
    for (std::size_t index = 0; index < count; ++index) {
        const auto turn = index % (ports.size() + 1);
        vlun.kind = turn == 0 ? VlunKind::hostSees : VlunKind::matchedSet;
        vlun.port = turn == 0 ? QRV_NO_PORT : ports[turn - 1];
        vlun.volume = volumeName(index);
        vlun.lun = static_cast<std::uint16_t>(index % luns);
        model.addVlun(vlun);
    }
}

}  // namespace

std::unique_ptr<Model> generate(const control::ArraySize& size) {
    auto model = readScenario(smallArray, "generator");
    if (size.hosts > 0) addVolumes(std::max(size.vlunsPerHost, size.templatesPerHost), *model);
    for (std::size_t index = 0; index < size.hosts; ++index) {
        const auto name = hostName(index);
        model->addHost(hostNumber(index));
        addFcPaths(name, size.fcPathsPerHost, firstHostWwn + index * size.fcPathsPerHost, *model);
        addIscsiPaths(name, size.iscsiPathsPerHost, *model);
        addVluns(name, size.vlunsPerHost, false, *model);
        addVluns(name, size.templatesPerHost, true, *model);
    }
    addFcPaths("", size.unassignedPaths, firstUnassignedWwn, *model);
    return model;
}

}  // namespace qrvapi

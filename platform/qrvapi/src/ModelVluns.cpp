#include "Errors.h"
#include "Model.h"

namespace qrvapi {
namespace {

/// What a record's port speaks; without a port, what is most likely to be behind it.
port_type_t portTypeOf(const Vlun& vlun, const VlunDefinition& definition) {
    if (vlun.port != nullptr) return vlun.port->type;
    if (definition.portType) return *definition.portType;
    if (vlun.initiator != nullptr) return vlun.initiator->type;
    const bool hasPath = vlun.host != nullptr && !vlun.host->paths.empty();
    return hasPath ? vlun.host->paths.front().initiator.type : PORT_TYPE_UNKNOWN;
}

}  // namespace

void Model::addVolume(VolumeDefinition definition) {
    if (!definition.volume.domain.empty()) requireDomain(definition.volume.domain);
    volumes_.add(std::move(definition));
}

std::vector<Host*> Model::hostsOf(const VlunDefinition& definition) {
    if (definition.hostSet.empty()) {
        return {definition.host.empty() ? nullptr : &*placeOf(definition.host)};
    }
    const auto set = hostSets_.find(definition.hostSet);
    if (set == hostSets_.end()) throw Refusal(ERR_QRV_SET_NOTFOUND, {definition.hostSet});
    if (set->second.members.empty()) throw Refusal(ERR_QRV_SET_EMPTY, {definition.hostSet});
    return set->second.members;
}

/// All but the host and what follows from it.
Vlun Model::recordOf(const VlunDefinition& definition) {
    Vlun vlun{};
    if (definition.volumeSet.empty()) {
        vlun.volume = &volumes_.volume(definition.volume);
    } else {
        vlun.volumeSet = &volumes_.set(definition.volumeSet);
    }
    if (definition.port != QRV_NO_PORT) {
        vlun.port = definition.initiator ? portFor({*definition.initiator, definition.port, 0})
                                         : &port(definition.port);
    }
    if (definition.initiator) vlun.initiator = vluns_.shared(*definition.initiator);
    vlun.lun = definition.lun;
    vlun.kind = definition.kind;
    vlun.access = static_cast<std::uint8_t>(definition.access);
    return vlun;
}

template <class Visitor>
void Model::forEachRecord(const VlunDefinition& definition, Visitor&& visit) {
    const auto hosts = hostsOf(definition);
    auto vlun = recordOf(definition);
    for (auto* const host : hosts) {
        vlun.host = host;
        vlun.portType = static_cast<std::uint8_t>(portTypeOf(vlun, definition));
        visit(vlun, host);
    }
}

void Model::addVlun(const VlunDefinition& definition) {
    forEachRecord(definition, [&](const Vlun& vlun, Host* host) {
        vluns_.list(definition.isTemplate).add(vlun);
        if (host != nullptr) ++host->vlunCount;
        if (vlun.volume != nullptr) ++volumes_.volume(definition.volume).vlunCount;
    });
}

void Model::removeVlun(const VlunDefinition& definition) {
    bool found = false;
    forEachRecord(definition, [&](const Vlun& vlun, Host* host) {
        if (!vluns_.list(definition.isTemplate).remove(vlun, definition.portType)) return;
        found = true;
        if (host != nullptr) --host->vlunCount;
        if (vlun.volume != nullptr) --volumes_.volume(definition.volume).vlunCount;
    });
    if (!found) throw Refusal(ERR_QRV_VLUN_NOTFOUND);
}

}  // namespace qrvapi

#include "HostRecords.h"

#include "Text.h"

namespace qrvapi {
namespace {

void fillDescriptors(api_HostDesc_t& record, const Descriptors& notes) {
    copyText(record.location, notes[0]);
    copyText(record.ipaddr, notes[1]);
    copyText(record.os, notes[2]);
    copyText(record.model, notes[3]);
    copyText(record.contact, notes[4]);
    copyText(record.comment, notes[5]);
}

void fillChap(api_Chap_t& record, const ChapSide& side) {
    record.isChapEnabled = side.enabled ? 1 : 0;
    copyText(record.name, side.name);
}

void fillHost(api_Host_t& record, const Host& host) {
    record.id = host.id;
    copyText(record.name, host.name);
    copyText(record.domain, host.domain);
    if (host.persona == nullptr) return;
    record.host_persona = host.persona->number;
    record.host_caps = host.persona->capabilities;
    copyText(record.hp_name, host.persona->name);
}

}  // namespace

void fillPath(api_HostPath_t& record, const Path& path) {
    const auto& initiator = path.initiator;
    record.type = initiator.type;
    auto& address = initiator.type == PORT_TYPE_SAS ? record.sas_addr : record.host_wwn;
    address = initiator.address;
    copyText(record.iscsiName, initiator.iscsiName);
    record.port = path.port == nullptr ? QRV_NO_PORT : path.port->id;
    const bool hasPortWwn = path.port != nullptr && path.port->type == PORT_TYPE_FC;
    record.port_wwn = hasPortWwn ? path.port->address : 0;
    record.ipaddr = path.ipv4;
}

api_Host_t& HostList::add(const Host& host) {
    auto& record = records_.addOuter();
    fillHost(record, host);
    return record;
}

void HostList::addPath(api_Host_t& host, const Path& path) {
    fillPath(records_.addInner(), path);
    ++host.pathCount;
}

void HostList::addBriefly(const Host& host) {
    add(host);
}

void HostList::addWhole(const Host& host) {
    auto& record = add(host);
    fillDescriptors(record.desc, host.descriptors);
    fillChap(record.chap.initChap, host.chap.initiator);
    fillChap(record.chap.targetChap, host.chap.target);
    record.paths = records_.innerPlace();
    for (const auto& path : host.paths) addPath(record, path);
}

void HostList::addUnassigned(const Host& unassigned, const std::vector<const Path*>& paths) {
    auto& record = add(unassigned);
    record.paths = records_.innerPlace();
    for (const auto* path : paths) addPath(record, *path);
}

api_HostsInfo_t HostList::handOut() {
    const auto count = records_.count();
    return {count, records_.handOut()};
}

HostSnapshot::HostSnapshot(const Model& model)
    : count_(static_cast<unsigned>(model.hosts().size())), indexes_(count_) {
    if (count_ == 0) return;
    HostList list(count_, model.pathCount() - model.unassigned().paths.size());
    for (const auto& host : model.hosts()) {
        list.addWhole(host);
        indexes_.emplace(host.id, static_cast<qrv_u32>(indexes_.size()));
    }
    hosts_ = list.take();
}

std::shared_ptr<const HostSnapshot> HostSnapshot::of(const Model& model) {
    return model.latestHosts().write([&](auto& latest) {
        if (latest == nullptr) {
            latest = std::make_shared<const HostSnapshot>(model);
        } else {
            failAllocationIfAsked();
        }
        return latest;
    });
}

qrv_u32 HostSnapshot::indexOf(const Host* host) const {
    if (host == nullptr) return QRV_NO_HOST;
    const auto entry = indexes_.find(host->id);
    return entry == indexes_.end() ? QRV_NO_HOST : entry->second;
}

}  // namespace qrvapi

#include "VlunRecords.h"

#include "Text.h"

namespace qrvapi {
namespace {

void fillVolume(api_vlun_t& record, const Vlun& vlun) {
    if (vlun.volume == nullptr) {
        copyText(record.vvname, "set:" + vlun.volumeSet->name);
        record.isempty_vvset = vlun.volumeSet->members.empty() ? 1 : 0;
        return;
    }
    copyText(record.vvname, vlun.volume->name);
    copyText(record.vvwwn, vlun.volume->wwn);
}

void fillHost(api_vlun_t& record, const Host* host) {
    record.hostID = host == nullptr ? QRV_NO_HOST : host->id;
    if (host != nullptr) copyText(record.hostname, host->name);
}

void fillInitiator(api_vlun_t& record, const Initiator* initiator) {
    if (initiator == nullptr) return;
    if (initiator->type == PORT_TYPE_FC) copyText(record.hostwwn, initiator->text());
    copyText(record.hostiscsiname, initiator->iscsiName);
}

void fillPort(api_vlun_t& record, const Port* port) {
    record.port = port == nullptr ? QRV_NO_PORT : port->id;
    if (port == nullptr) return;
    copyText(record.parentDeviceID, portIdText(port->id));
    if (port->type == PORT_TYPE_FC) copyText(record.portwwn, wwnText(port->address));
    if (port->type == PORT_TYPE_SAS) copyText(record.portsasaddr, wwnText(port->address));
    copyText(record.portiscsiname, port->iscsiName);
}

}  // namespace

std::string deviceIdOf(const Vlun& vlun) {
    const auto port = [&] { return portIdText(vlun.port->id); };
    const auto host = [&] { return std::to_string(vlun.host->id); };
    switch (vlun.kind) {
        case VlunKind::matchedSet:
            return "MS:" + port() + ":" + host();
        case VlunKind::hostSees:
            return "HS:" + host();
        case VlunKind::hostSet:
            return "HSet:" + host();
        case VlunKind::portPresents:
            return "PP:" + port();
    }
    return {};
}

void fillVlun(api_vlun_t& record, const Vlun& vlun, bool isTemplate, qrv_u32 hostIndex) {
    copyText(record.deviceID, deviceIdOf(vlun));
    fillVolume(record, vlun);
    fillHost(record, vlun.host);
    fillInitiator(record, vlun.initiator);
    fillPort(record, vlun.port);
    record.lun = vlun.lun;
    record.accessPriority = static_cast<unsigned>(vlun.kind);
    record.volAccess = static_cast<vol_mode_t>(vlun.access);
    record.hporttype = static_cast<port_type_t>(vlun.portType);
    record.isTemplate = isTemplate ? 1 : 0;
    record.hostIndex = hostIndex;
}

}  // namespace qrvapi

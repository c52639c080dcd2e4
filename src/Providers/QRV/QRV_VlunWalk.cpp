#include "QRV_VlunWalk.h"

#include <cstdlib>

#include "QRV_ArrayGate.h"
#include "QRV_Common.h"
#include "QRV_Text.h"

namespace Pegasus {

VlunFilter filterOf(String deviceID) {
    VlunFilter filter;
    QRV_Common::deReferenceSPCDeviceID(deviceID, filter.vlunType, filter.host, filter.portLPID,
                                       false);
    return filter;
}

void addFilter(api_VLUNsInfo& query, const VlunFilter& filter) {
    if (filter.host.size() > 0) {
        copyText(query.hostname, filter.host.getCString());
        query.hostnameIsSet = 1;
    }
    if (filter.vlunType != 0) {
        query.vluntype = filter.vlunType;
        query.vluntypeIsSet = 1;
    }
    if (filter.portLPID != QRV_NO_PORT) {
        query.port = filter.portLPID;
        query.portIsSet = 1;
    }
}

api_Host_t* hostOf(api_HostsInfo_t& allHosts, const api_vlun_t& vlun) {
    if (vlun.hostIndex == QRV_NO_HOST || vlun.hostIndex >= allHosts.count) return nullptr;
    return &allHosts.hosts[vlun.hostIndex];
}

VlunWalk::VlunWalk(const VlunFilter& filter) {
    addFilter(*_query.change(), filter);
    _notPrepared = api_initSPCParamData(_data.receive());
}

int VlunWalk::readChunk() {
    return callArray([&] {
        return api_getActiveAndTemplateVLUNs_chunk(_query.change(), &_querySwitch, _data.change(),
                                                   &_cursor, CHUNK_SIZE);
    });
}

void VlunWalk::dropChunk() {
    api_VLUNsInfo& chunk = *_query.change();
    chunk.count = 0;
    std::free(chunk.vluns);
    chunk.vluns = nullptr;
}

}  // namespace Pegasus

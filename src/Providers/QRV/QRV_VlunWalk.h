// Reading VLUNs: what is asked for, and the walk over all of them in chunks.
#pragma once

#include <Pegasus/Common/String.h>
#include <qrvapi.h>

#include "QRV_ArrayRecords.h"

namespace Pegasus {

/// Which VLUNs a read is about. What stays at its start value restricts nothing.
struct VlunFilter {
    String host = String();
    Uint32 vlunType = 0;
    lpid_t portLPID = QRV_NO_PORT;
};

/// What a controller's DeviceID says of the VLUNs behind it. Asks the array for the host's name.
VlunFilter filterOf(String deviceID);

/// Restricts a query that is still empty.
void addFilter(api_VLUNsInfo& query, const VlunFilter& filter);

/// The host of a VLUN in the list of all hosts; null when it has none there.
api_Host_t* hostOf(api_HostsInfo_t& allHosts, const api_vlun_t& vlun);

/// One walk over the active VLUNs and then the templates. The semaphore is held for the read of
/// each chunk alone, and one chunk is held in memory at a time.
class VlunWalk {
  public:
    explicit VlunWalk(const VlunFilter& filter);

    /// Calls `take(api_vlun_t&, api_HostsInfo_t& allHosts)` with each record in the array's order,
    /// once. Returns 0 at the end of the walk, or why a chunk couldn't be read; the walk is over
    /// then. Exceptions of `take` pass.
    template <class Take>
    int run(Take take) {
        if (_notPrepared != 0) return _notPrepared;
        do {
            if (const int failed = readChunk()) return failed;
            api_VLUNsInfo& chunk = *_query.change();
            for (unsigned int i = 0; i < chunk.count; ++i)
                take(chunk.vluns[i], _data.change()->allHosts);
            dropChunk();
        } while (!atEnd());
        return 0;
    }

  private:
    static constexpr Uint32 CHUNK_SIZE = 200;

    int readChunk();
    void dropChunk();
    bool atEnd() const { return _cursor == 0 && _querySwitch >= 2; }

    VlunWalkData _data;
    VlunQuery _query;
    int _notPrepared = 0;
    Uint32 _querySwitch = 0;
    Uint32 _cursor = 0;
};

}  // namespace Pegasus

#pragma once

#include <memory>
#include <unordered_map>
#include <vector>

#include "Ledger.h"
#include "Model.h"
#include "qrvapi/hosts.h"

namespace qrvapi {

void fillPath(api_HostPath_t& record, const Path& path);

/// A list of hosts in the making, and behind them all their paths.
class HostList {
  public:
    HostList(std::size_t hosts, std::size_t paths) : records_(hosts, paths) {}

    /// With nothing but what identifies the host.
    void addBriefly(const Host& host);
    void addWhole(const Host& host);
    void addUnassigned(const Host& unassigned, const std::vector<const Path*>& paths);

    Records<api_Host_t> take() { return records_.take(); }
    api_HostsInfo_t handOut();

  private:
    api_Host_t& add(const Host& host);
    void addPath(api_Host_t& host, const Path& path);

    NestedRecords<api_Host_t, api_HostPath_t> records_;
};

/// All hosts with their paths at one moment, in the array's order. Walks that begin between two
/// changes of hosts share one.
class HostSnapshot {
  public:
    explicit HostSnapshot(const Model& model);

    /// The latest of a model; a new one where there is none.
    static std::shared_ptr<const HostSnapshot> of(const Model& model);

    /// Nobody may change what it holds.
    api_HostsInfo_t list() const { return {count_, hosts_.get()}; }
    /// A host's place in the list, by its ID; QRV_NO_HOST for null and for one that isn't there.
    qrv_u32 indexOf(const Host* host) const;

  private:
    unsigned count_;
    Records<api_Host_t> hosts_;
    std::unordered_map<qrv_u32, qrv_u32> indexes_;
};

}  // namespace qrvapi

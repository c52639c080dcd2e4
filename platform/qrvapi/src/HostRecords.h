#pragma once

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

    api_HostsInfo_t handOut();

  private:
    api_Host_t& add(const Host& host);
    void addPath(api_Host_t& host, const Path& path);

    NestedRecords<api_Host_t, api_HostPath_t> records_;
};

/// All hosts with their paths, in the array's order.
api_HostsInfo_t handOutAllHosts(const Model& model);

}  // namespace qrvapi

// Lets one thread at a time load a provider.
#pragma once

#include "broker/ProviderRegistry.h"

#include <condition_variable>
#include <map>
#include <mutex>
#include <thread>

namespace cimserver {

/// Orders provider ids; module and provider name tell them apart.
struct ProviderOrder {
    bool operator()(const ProviderId& a, const ProviderId& b) const;
};

/// Turns to load providers: one thread per provider, different providers at once. Providers may
/// make requests while they initialize, so a thread that has a turn may ask for another one.
class LoadingTurns {
  public:
    /// Holds a turn; waits until it is free. Throws CIMException CIM_ERR_FAILED when the wait could
    /// not end, because the holder itself waits, directly or through others, for a turn of this
    /// thread.
    class Turn {
      public:
        Turn(LoadingTurns& turns, const ProviderId& id);
        ~Turn();
        Turn(const Turn&) = delete;
        Turn& operator=(const Turn&) = delete;

      private:
        LoadingTurns& _turns;
        const ProviderId& _id;
    };

  private:
    bool waitsForThisThread(const ProviderId& id) const;

    std::mutex _mutex;  ///< guards the maps
    std::condition_variable _freed;
    std::map<ProviderId, std::thread::id, ProviderOrder> _holders;
    std::map<std::thread::id, ProviderId> _waiters;
};

}  // namespace cimserver

// The loaded providers.
#pragma once

#include "broker/LoadedProvider.h"
#include "broker/LoadingTurns.h"

#include <map>
#include <memory>
#include <shared_mutex>
#include <vector>

namespace cimserver {

/// Loads providers when they are first asked for and keeps them until the end. All functions may be
/// called on any thread.
class ProviderHost {
  public:
    /// `server` answers the requests of the providers themselves.
    ProviderHost(std::string libraryDirectory, LocalServer& server);
    ~ProviderHost();
    ProviderHost(const ProviderHost&) = delete;
    ProviderHost& operator=(const ProviderHost&) = delete;

    /// The provider, loaded and initialized, good until terminateAll. Requests that come while it
    /// is being loaded wait; when that fails, each of them tries again. Throws CIMException.
    const LoadedProvider& get(const ProviderId& id);

    /// Terminates the providers, the last loaded first, then closes their libraries. The caller
    /// sees to it that no operation runs any more; a thread that a provider has started itself has
    /// to be through with its requests before the first provider is terminated. Requests that a
    /// provider makes while it terminates find those that were loaded and are not terminated yet.
    void terminateAll();

  private:
    struct Entry {
        ProviderId id;
        std::unique_ptr<LoadedProvider> provider;
    };

    const LoadedProvider* find(const ProviderId& id) const;
    const LoadedProvider& load(const ProviderId& id);
    const LoadedProvider& keep(const ProviderId& id, std::unique_ptr<LoadedProvider> provider);
    std::vector<Entry> close();
    void forget(const ProviderId& id);

    const std::string _libraryDirectory;
    LocalServer& _server;
    LoadingTurns _turns;
    mutable std::shared_mutex _mutex;  ///< guards what follows
    std::map<ProviderId, const LoadedProvider*, ProviderOrder> _providers;
    std::vector<Entry> _loaded;  ///< in the order of loading
    bool _closed = false;
};

}  // namespace cimserver

#include "broker/ProviderHost.h"

#include <mutex>

namespace cimserver {

using Pegasus::CIM_ERR_FAILED;
using Pegasus::CIMException;

ProviderHost::ProviderHost(std::string libraryDirectory, LocalServer& server)
    : _libraryDirectory(std::move(libraryDirectory)), _server(server) {}

ProviderHost::~ProviderHost() {
    terminateAll();
}

const LoadedProvider& ProviderHost::get(const ProviderId& id) {
    if (const auto provider = find(id)) return *provider;
    return load(id);
}

const LoadedProvider* ProviderHost::find(const ProviderId& id) const {
    const std::shared_lock lock(_mutex);
    const auto found = _providers.find(id);
    if (found != _providers.end()) return found->second;
    if (_closed) throw CIMException(CIM_ERR_FAILED, "the server is shutting down");
    return nullptr;
}

const LoadedProvider& ProviderHost::load(const ProviderId& id) {
    const LoadingTurns::Turn turn(_turns, id);
    if (const auto provider = find(id)) return *provider;
    return keep(id, std::make_unique<LoadedProvider>(_libraryDirectory, id, _server));
}

const LoadedProvider& ProviderHost::keep(const ProviderId& id,
                                         std::unique_ptr<LoadedProvider> provider) {
    const std::unique_lock lock(_mutex);
    const LoadedProvider& kept = *provider;
    _loaded.push_back({id, std::move(provider)});
    _providers.emplace(id, &kept);
    return kept;
}

void ProviderHost::terminateAll() {
    std::vector<Entry> loaded = close();
    for (auto entry = loaded.rbegin(); entry != loaded.rend(); ++entry) {
        forget(entry->id);
        entry->provider->terminate();
    }
}

std::vector<ProviderHost::Entry> ProviderHost::close() {
    const std::unique_lock lock(_mutex);
    _closed = true;
    return std::move(_loaded);
}

void ProviderHost::forget(const ProviderId& id) {
    const std::unique_lock lock(_mutex);
    _providers.erase(id);
}

}  // namespace cimserver

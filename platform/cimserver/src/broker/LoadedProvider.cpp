#include "broker/LoadedProvider.h"

namespace cimserver {

using namespace Pegasus;

LoadedProvider::LoadedProvider(const std::string& libraryDirectory, const ProviderId& id,
                               LocalServer& server)
    : _library(libraryDirectory, id), _handle(&server), _provider(_library.create(id)) {
    if (initialize()) return;
    terminate();
    throw CIMException(CIM_ERR_FAILED, "provider initialization failed");
}

bool LoadedProvider::initialize() noexcept try {
    _provider->initialize(_handle);
    return true;
} catch (...) {
    return false;
}

void LoadedProvider::terminate() noexcept try { _provider->terminate(); } catch (...) {
    // The provider is gone either way, and nobody waits for an answer.
}

}  // namespace cimserver

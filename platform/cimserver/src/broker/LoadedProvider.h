// A provider that is ready to work.
#pragma once

#include "broker/ProviderLibrary.h"

#include <Pegasus/Common/Exception.h>
#include <Pegasus/Provider/CIMOMHandle.h>

namespace cimserver {

/// Created and initialized by the constructor. Whoever owns it calls terminate() once before he
/// destroys it; the destructor closes the library, so all providers can be terminated before any is
/// closed.
class LoadedProvider {
  public:
    /// `server` answers the provider's own requests.
    /// Throws CIMException CIM_ERR_FAILED, "provider initialization failed" when initialize()
    /// threw; the provider is terminated then.
    LoadedProvider(const std::string& libraryDirectory, const ProviderId& id, LocalServer& server);
    LoadedProvider(const LoadedProvider&) = delete;
    LoadedProvider& operator=(const LoadedProvider&) = delete;

    /// The provider as what an operation needs. Throws CIMException CIM_ERR_NOT_SUPPORTED when it
    /// is not that.
    template <class Interface>
    Interface& as() const {
        if (const auto provider = dynamic_cast<Interface*>(_provider)) return *provider;
        throw Pegasus::CIMException(Pegasus::CIM_ERR_NOT_SUPPORTED, "Invalid provider interface.");
    }

    void terminate() noexcept;

  private:
    bool initialize() noexcept;

    ProviderLibrary _library;
    Pegasus::CIMOMHandle _handle;
    Pegasus::CIMProvider* _provider;  ///< owns itself
};

}  // namespace cimserver

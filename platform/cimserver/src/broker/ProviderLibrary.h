// The shared library of a provider module.
#pragma once

#include "broker/ProviderRegistry.h"

#include <Pegasus/Provider/CIMProvider.h>

#include <memory>
#include <string>

namespace cimserver {

/// An open library. Opening one that is open already costs nothing; it is unloaded with its last
/// owner.
class ProviderLibrary {
  public:
    /// Opens lib<location>.so, or lib<location>.so.1 where only that exists, from `directory`.
    /// Throws CIMException CIM_ERR_FAILED that tells the file and the reason.
    ProviderLibrary(const std::string& directory, const ProviderId& id);

    /// A provider of the library, never null. Throws CIMException, also for what the library's
    /// entry point throws. The provider deletes itself when it is terminated.
    Pegasus::CIMProvider* create(const ProviderId& id) const;

  private:
    struct Close {
        void operator()(void* handle) const;
    };

    [[noreturn]] void fail(const ProviderId& id, const std::string& reason) const;

    std::string _file;
    std::unique_ptr<void, Close> _handle;
};

}  // namespace cimserver

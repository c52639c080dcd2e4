// What every kind of operation needs to find its provider and to speak to it.
#pragma once

#include "broker/ProviderCall.h"
#include "broker/ProviderContext.h"
#include "broker/ProviderHost.h"

namespace cimserver {

struct Routes {
    const ClassRepository& repository;
    const ProviderRegistry registry;
    const Pegasus::String hostName;
    ProviderHost host;

    /// Throws CIM_ERR_INVALID_NAMESPACE, or `code`, with the name of what does not exist.
    void requireClass(const Pegasus::CIMNamespaceName& nameSpace, const Pegasus::CIMName& className,
                      Pegasus::CIMStatusCode code) const;

    /// The path as providers get it: this host, the namespace of the request, class and keys as the
    /// client wrote them.
    Pegasus::CIMObjectPath forProvider(const Pegasus::CIMNamespaceName& nameSpace,
                                       const Pegasus::CIMObjectPath& path) const;

    /// A class as the path that providers get.
    Pegasus::CIMObjectPath forProvider(const Pegasus::CIMNamespaceName& nameSpace,
                                       const Pegasus::CIMName& className) const;

    /// Whether a path from a provider lacks its host or its namespace.
    static bool isIncomplete(const Pegasus::CIMObjectPath& path);

    /// A path from a provider with this host and the namespace of the request where it has none.
    Pegasus::CIMObjectPath completed(const Pegasus::CIMNamespaceName& nameSpace,
                                     Pegasus::CIMObjectPath path) const;

    /// Calls `operation` with the provider as Interface, loading it if need be, and returns how
    /// that ended; see runProvider.
    template <class Interface, class Operation>
    [[nodiscard]] Pegasus::CIMException call(const ProviderId& provider, Delivery& delivery,
                                             Operation&& operation) {
        return runProvider(delivery, [&] { operation(host.get(provider).as<Interface>()); });
    }
};

}  // namespace cimserver

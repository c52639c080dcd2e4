// Operations on instances.
#pragma once

#include "broker/Routes.h"
#include "broker/StaticInstances.h"

namespace cimserver {

/// Enumerations ask the providers of the class and of all its descendants, one after another, each
/// for its own class; classes without provider answer from the repository. Every other operation
/// goes to the provider of exactly the class named.
class InstanceOperations {
  public:
    explicit InstanceOperations(Routes& routes) : _routes(routes), _static(routes.repository) {}

    Pegasus::CIMInstance get(const Pegasus::OperationContext&, const Pegasus::CIMNamespaceName&,
                             const Pegasus::CIMObjectPath&, const Selection&);
    void enumerate(const Pegasus::OperationContext&, const Pegasus::CIMNamespaceName&,
                   const Pegasus::CIMName&, const Selection&, const Sink<Pegasus::CIMInstance>&);
    void enumerateNames(const Pegasus::OperationContext&, const Pegasus::CIMNamespaceName&,
                        const Pegasus::CIMName&, const Sink<Pegasus::CIMObjectPath>&);
    Pegasus::CIMObjectPath create(const Pegasus::OperationContext&,
                                  const Pegasus::CIMNamespaceName&, const Pegasus::CIMInstance&);
    void modify(const Pegasus::OperationContext&, const Pegasus::CIMNamespaceName&,
                const Pegasus::CIMInstance&, const Selection&);
    void remove(const Pegasus::OperationContext&, const Pegasus::CIMNamespaceName&,
                const Pegasus::CIMObjectPath&);

  private:
    /// The provider of an existing class, or nothing.
    std::optional<ProviderId> providerOf(const Pegasus::CIMNamespaceName& nameSpace,
                                         const Pegasus::CIMName& className) const;

    /// Calls askProvider(provider, class) or askRepository(class) for the class and its
    /// descendants.
    template <class AskProvider, class AskRepository>
    void forClassTree(const Pegasus::CIMNamespaceName& nameSpace, const Pegasus::CIMName& className,
                      AskProvider&& askProvider, AskRepository&& askRepository);

    Routes& _routes;
    StaticInstances _static;
};

}  // namespace cimserver

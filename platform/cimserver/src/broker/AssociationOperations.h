// Operations that follow associations from an object.
#pragma once

#include "broker/ClassAssociations.h"
#include "broker/Routes.h"

namespace cimserver {

/// Asks the association provider of each association class that the source may take part in, one
/// after another, each for its own association class; roles and result class are the provider's to
/// apply. Results without host or namespace are completed. A path without keys stands for its class
/// and is answered from the class declarations.
class AssociationOperations {
  public:
    explicit AssociationOperations(Routes& routes) : _routes(routes), _classes(routes.repository) {}

    void associators(const Pegasus::OperationContext&, const Pegasus::CIMNamespaceName&,
                     const Pegasus::CIMObjectPath&, const AssociationFilter&, const Selection&,
                     const Sink<Pegasus::CIMObject>&);
    void associatorNames(const Pegasus::OperationContext&, const Pegasus::CIMNamespaceName&,
                         const Pegasus::CIMObjectPath&, const AssociationFilter&,
                         const Sink<Pegasus::CIMObjectPath>&);
    void references(const Pegasus::OperationContext&, const Pegasus::CIMNamespaceName&,
                    const Pegasus::CIMObjectPath&, const AssociationFilter&, const Selection&,
                    const Sink<Pegasus::CIMObject>&);
    void referenceNames(const Pegasus::OperationContext&, const Pegasus::CIMNamespaceName&,
                        const Pegasus::CIMObjectPath&, const AssociationFilter&,
                        const Sink<Pegasus::CIMObjectPath>&);

  private:
    /// Throw CIM_ERR_INVALID_PARAMETER, or CIM_ERR_INVALID_CLASS for the result class of
    /// associators, with the name that is no role or no class.
    void checkAssociators(const Pegasus::CIMNamespaceName&, const Pegasus::CIMObjectPath& source,
                          const AssociationFilter&) const;
    void checkReferences(const Pegasus::CIMNamespaceName&, const Pegasus::CIMObjectPath& source,
                         const AssociationFilter&) const;
    void requireClassIfGiven(const Pegasus::CIMNamespaceName&, const Pegasus::CIMName&,
                             Pegasus::CIMStatusCode) const;

    /// Calls ask(provider interface, association class, handler) for each association class.
    template <class Handler, class T, class Ask>
    void askEach(const Pegasus::CIMNamespaceName& nameSpace, const Pegasus::CIMName& source,
                 const Pegasus::CIMName& association, const Sink<T>& sink, Ask&& ask);

    Pegasus::CIMObject completed(const Pegasus::CIMNamespaceName&, const Pegasus::CIMObject&) const;
    Pegasus::CIMObjectPath completed(const Pegasus::CIMNamespaceName&,
                                     const Pegasus::CIMObjectPath&) const;
    void deliverNames(const Pegasus::CIMNamespaceName&, const std::vector<Pegasus::CIMName>&,
                      const Sink<Pegasus::CIMObjectPath>&) const;
    void deliverClasses(const Pegasus::CIMNamespaceName&, const std::vector<Pegasus::CIMName>&,
                        const Selection&, const Sink<Pegasus::CIMObject>&) const;

    Routes& _routes;
    ClassAssociations _classes;
};

}  // namespace cimserver

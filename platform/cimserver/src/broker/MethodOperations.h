// Calls of methods.
#pragma once

#include "broker/Routes.h"

namespace cimserver {

class MethodOperations {
  public:
    explicit MethodOperations(Routes& routes) : _routes(routes) {}

    /// Returns the return value, null when the provider gave none, and leaves the output parameters
    /// in `out`. Untyped parameters take the type that the class declares for them; the method
    /// itself need not be declared otherwise.
    Pegasus::CIMValue invoke(const Pegasus::OperationContext&, const Pegasus::CIMNamespaceName&,
                             const Pegasus::CIMObjectPath&, const Pegasus::CIMName& method,
                             const Pegasus::Array<Pegasus::CIMParamValue>& in,
                             Pegasus::Array<Pegasus::CIMParamValue>& out);

  private:
    Pegasus::Array<Pegasus::CIMParamValue> typed(
        const Pegasus::CIMNamespaceName& nameSpace, const Pegasus::CIMName& className,
        const Pegasus::CIMName& method, const Pegasus::Array<Pegasus::CIMParamValue>& in) const;

    Routes& _routes;
};

}  // namespace cimserver

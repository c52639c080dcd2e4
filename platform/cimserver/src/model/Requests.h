// Small helpers of those who call the server within its process.
#pragma once

#include "model/LocalServer.h"

#include <Pegasus/Common/CIMProperty.h>

#include <string>

namespace cimserver {

/// Collects all results of an operation that takes a sink.
template <class T, class Operation>
Pegasus::Array<T> collect(Operation operation) {
    Pegasus::Array<T> results;
    operation(Sink<T>([&results](const T& result) { results.append(result); }));
    return results;
}

/// What a request for one property's value asks for.
PEGASUS_EXPORT Selection onlyProperty(const Pegasus::CIMName& name);

/// The value of a property that was asked for. Throws CIM_ERR_NO_SUCH_PROPERTY when it was not
/// delivered.
PEGASUS_EXPORT Pegasus::CIMValue deliveredValue(const Pegasus::CIMInstance& instance,
                                                const Pegasus::CIMName& name);

/// The value as text, unless it is a reference or null.
Pegasus::CIMValue asText(const Pegasus::CIMValue& value);

/// Modifies one property of an instance. A text takes the type that the class declares for the
/// property; any other value keeps its type. Throws CIM_ERR_NO_SUCH_PROPERTY when the class has no
/// property for a text, and what `convertToDeclared` throws.
PEGASUS_EXPORT void setProperty(LocalServer& server, const Pegasus::OperationContext& context,
                                const Pegasus::CIMNamespaceName& nameSpace,
                                const Pegasus::CIMObjectPath& path, const Pegasus::CIMName& name,
                                const Pegasus::CIMValue& value);

}  // namespace cimserver

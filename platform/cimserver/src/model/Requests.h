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

/// The same as text, unless it is a reference.
Pegasus::CIMValue valueAsText(const Pegasus::CIMInstance& instance, const Pegasus::CIMName& name);

/// An instance with that one property, to modify the instance of that path.
PEGASUS_EXPORT Pegasus::CIMInstance instanceToModify(const Pegasus::CIMObjectPath& path,
                                                     const Pegasus::CIMProperty& property);

}  // namespace cimserver

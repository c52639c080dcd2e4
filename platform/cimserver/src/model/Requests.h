// Small helpers of those who call the server within its process.
#pragma once

#include "model/LocalServer.h"

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
Selection onlyProperty(const Pegasus::CIMName& name);

/// The value of a property that was asked for, as text unless it is a reference. Throws
/// CIM_ERR_NO_SUCH_PROPERTY when it was not delivered.
Pegasus::CIMValue valueAsText(const Pegasus::CIMInstance& instance, const Pegasus::CIMName& name);

/// An instance with that one property, to modify the instance of that path.
Pegasus::CIMInstance instanceToModify(const Pegasus::CIMObjectPath& path,
                                      const Pegasus::CIMName& name, const Pegasus::CIMValue& value);

}  // namespace cimserver

// The shape of every provider operation: the steps that all classes share, one function each.
#pragma once

#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/OperationContext.h>
#include <Pegasus/Common/ResponseHandler.h>

#include "QRV_Trace.h"

namespace Pegasus {

/// How a provider class appears in requests, log lines and failures.
struct ProviderFrame {
    const char* className;  ///< opens each of its messages
    const char* provider;   ///< the C++ class, which is also its source file's name
    const char* cimClass;   ///< the CIM class it is asked for
    const char* qrvClass;   ///< its own class
    Uint32 keyCount;        ///< keys of an object path
    const char* keyText;    ///< what a path with another number of keys is told
};

/// The namespace of all classes that the module serves.
extern const CIMNamespaceName QRV_NAMESPACE;

/// Opens the array for the requester. Throws TraceableCIMException CIM_ERR_ACCESS_DENIED, with the
/// provider's source file and the caller's line, when the array refuses, whatever the cause.
void openArray(const ProviderFrame&, const OperationContext&, Uint32 line = __builtin_LINE());

/// Asks the array whether the requester may call `operation` on `className`. Throws
/// TraceableCIMException CIM_ERR_ACCESS_DENIED for a user without the right or unknown, and
/// CIM_ERR_NOT_SUPPORTED for every other refusal.
void authorize(const ProviderFrame&, const OperationContext&, const CIMName& className,
               const String& operation, Uint32 line = __builtin_LINE());

/// Throws CIMNotSupportedException unless the class is one of the two that the provider serves.
void checkClass(const ProviderFrame&, const CIMName& className);

/// The same with a log line first: the provider, `text` and the class.
void checkClassLoudly(const ProviderFrame&, const CIMName& className, const char* text);

/// Throws CIMInvalidParameterException, with a log line, when the path of a getInstance has another
/// number of keys than the class.
void checkKeyCount(const ProviderFrame&, const CIMObjectPath& instanceName);

/// Logs the class of an enumeration.
void traceClassName(const CIMName& className);

/// The steps of an enumeration before it builds: open, class check, trace of the class.
void beginEnumeration(const ProviderFrame&, const OperationContext&,
                      const CIMObjectPath& classReference, Uint32 line = __builtin_LINE());

/// Delivers the first of the instances that were found for a path and completes the answer. Throws
/// CIMObjectNotFoundException when there is none, with `detail` at the end of its text.
void deliverFound(const ProviderFrame&, const Array<CIMInstance>& instances,
                  InstanceResponseHandler&, const String& detail = String());

/// Deliver what an operation found, each between processing() and complete(), in order. An empty
/// answer is a complete one.
void deliverInstances(const Array<CIMInstance>& found, InstanceResponseHandler&);
void deliverPaths(const Array<CIMInstance>& found, ObjectPathResponseHandler&);
void deliverPaths(const Array<CIMObjectPath>& found, ObjectPathResponseHandler&);

/// Throws CIMNotSupportedException for an operation that the class doesn't implement, such as
/// "createInstance".
[[noreturn]] void refuse(const ProviderFrame&, const char* operation);

/// Throws CIMNotSupportedException: the class can't be constructed from an object path.
[[noreturn]] void refuseObjectPathConstructor(const ProviderFrame&);

}  // namespace Pegasus

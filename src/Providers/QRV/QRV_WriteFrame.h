// The opening steps of every operation that changes the array, and the text of what the array
// answers.
#pragma once

#include "QRV_ArrayGate.h"
#include "QRV_OperationFrame.h"

namespace Pegasus {

/// Opens the array for the requester, asks it whether the requester may call `operation` on
/// `className`, and returns the record that each changing call carries for the array's event log.
/// Throws as openArray() and authorize() do.
api_evtparam_t beginChange(const ProviderFrame&, const OperationContext&, const CIMName& className,
                           const String& operation, Uint32 line = __builtin_LINE());

/// The array's text for a failed call, behind `prefix`, in 511 characters at most.
String errorText(const api_Status_t& status, const char* prefix = "");

/// The same, or "Access busy." when the call wasn't made because the semaphore timed out.
String errorTextOrBusy(const ArrayAnswer& answer, const char* prefix);

}  // namespace Pegasus

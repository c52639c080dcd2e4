// Copies of classes, reduced to what a request asks for.
#pragma once

#include "model/LocalServer.h"

namespace cimserver {

/// A copy of a resolved class that shares nothing with it. `localOnly` leaves out what is
/// propagated; the property list restricts properties only; without class origin the members'
/// origins are null.
Pegasus::CIMClass copyClass(const Pegasus::CIMConstClass& from, bool localOnly,
                            const Selection& selection);

}  // namespace cimserver

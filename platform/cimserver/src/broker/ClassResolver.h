// Completes a class declaration with what it inherits.
#pragma once

#include <Pegasus/Common/CIMClass.h>
#include <Pegasus/Common/CIMQualifierDecl.h>

namespace cimserver {

/// What a class declaration can refer to: the qualifiers and resolved classes of its namespace.
class Declarations {
  public:
    virtual ~Declarations() = default;

    /// The declaration of a qualifier, or null. Valid as long as the namespace.
    virtual const Pegasus::CIMQualifierDecl* findQualifier(const Pegasus::CIMName&) const = 0;

    /// A class with all it inherits, or null. Valid as long as the namespace.
    virtual const Pegasus::CIMClass* findClass(const Pegasus::CIMName&) const = 0;

    /// Whether `derived` is `base` or descends from it.
    virtual bool descends(const Pegasus::CIMName& derived, const Pegasus::CIMName& base) const = 0;
};

/// The declared class with inherited members first (marked propagated, with their class of origin),
/// its own after them, and all qualifiers with their flavours. The result shares nothing with the
/// arguments. Throws CIMException with a text that names the offending element.
Pegasus::CIMClass resolveClass(const Pegasus::CIMClass& declared, const Declarations& known);

}  // namespace cimserver

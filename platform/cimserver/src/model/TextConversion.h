// Values that arrive as text and take their type from a declaration.
#pragma once

#include <Pegasus/Common/CIMValue.h>

#include <optional>

namespace cimserver {

/// The value that a text stands for in CIM-XML, or nothing when it is none of this type: integers
/// are decimal without leading zeros or 0x..., booleans TRUE or FALSE in any case, reals have a
/// point and a digit behind it, an empty date-time is the zero interval. References and embedded
/// objects have no text form here.
PEGASUS_EXPORT std::optional<Pegasus::CIMValue> valueFromText(const Pegasus::String& text,
                                                              Pegasus::CIMType type);

/// The same for all elements of an array.
PEGASUS_EXPORT std::optional<Pegasus::CIMValue> valueFromTexts(
    const Pegasus::Array<Pegasus::String>& texts, Pegasus::CIMType type);

/// A value as the declared type: strings are read as that type, null becomes its null. Throws
/// CIMException CIM_ERR_INVALID_PARAMETER for a bad text, CIM_ERR_TYPE_MISMATCH when one is an
/// array and the other not.
PEGASUS_EXPORT Pegasus::CIMValue convertToDeclared(const Pegasus::CIMValue& value,
                                                   Pegasus::CIMType type, bool isArray);

}  // namespace cimserver

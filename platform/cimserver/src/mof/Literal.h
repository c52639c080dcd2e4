// Values as MOF writes them, and their conversion to CIM values.
#pragma once

#include "mof/Token.h"

#include <Pegasus/Common/CIMValue.h>

#include <vector>

namespace cimserver {

struct Literal {
    enum class Kind { Null, Boolean, Integer, Real, Character, String };

    Kind kind = Kind::Null;
    std::string text;
    Position at;
};

/// What stands behind "=" or in a qualifier's brackets: one literal, or several in braces.
struct Initializer {
    bool isArray = false;
    std::vector<Literal> items;  ///< exactly one when not an array
    Position at;

    bool isNull() const { return !isArray && items.front().kind == Literal::Kind::Null; }
};

/// The type that a value must take.
struct ValueType {
    Pegasus::CIMType type = Pegasus::CIMTYPE_BOOLEAN;
    bool isArray = false;
    Pegasus::Uint32 arraySize = 0;  ///< 0: any
};

/// The initializer as a value of this type; NULL becomes a typed null. Throws MofError where a
/// literal does not fit.
Pegasus::CIMValue toValue(const Source& source, const Initializer& initializer, ValueType type);

}  // namespace cimserver

// From a CIM type at run time to a C++ type at compile time.
#pragma once

#include <Pegasus/Common/CIMDateTime.h>
#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMObject.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMType.h>

#include <stdexcept>

namespace cimserver {

template <class T>
struct TypeTag {
    using Type = T;
};

/// Calls `visit` with the TypeTag of the C++ type that holds values of this CIM type.
template <class Visitor>
decltype(auto) withType(Pegasus::CIMType type, Visitor&& visit) {
    switch (type) {
        case Pegasus::CIMTYPE_BOOLEAN:
            return visit(TypeTag<Pegasus::Boolean>{});
        case Pegasus::CIMTYPE_UINT8:
            return visit(TypeTag<Pegasus::Uint8>{});
        case Pegasus::CIMTYPE_SINT8:
            return visit(TypeTag<Pegasus::Sint8>{});
        case Pegasus::CIMTYPE_UINT16:
            return visit(TypeTag<Pegasus::Uint16>{});
        case Pegasus::CIMTYPE_SINT16:
            return visit(TypeTag<Pegasus::Sint16>{});
        case Pegasus::CIMTYPE_UINT32:
            return visit(TypeTag<Pegasus::Uint32>{});
        case Pegasus::CIMTYPE_SINT32:
            return visit(TypeTag<Pegasus::Sint32>{});
        case Pegasus::CIMTYPE_UINT64:
            return visit(TypeTag<Pegasus::Uint64>{});
        case Pegasus::CIMTYPE_SINT64:
            return visit(TypeTag<Pegasus::Sint64>{});
        case Pegasus::CIMTYPE_REAL32:
            return visit(TypeTag<Pegasus::Real32>{});
        case Pegasus::CIMTYPE_REAL64:
            return visit(TypeTag<Pegasus::Real64>{});
        case Pegasus::CIMTYPE_CHAR16:
            return visit(TypeTag<Pegasus::Char16>{});
        case Pegasus::CIMTYPE_STRING:
            return visit(TypeTag<Pegasus::String>{});
        case Pegasus::CIMTYPE_DATETIME:
            return visit(TypeTag<Pegasus::CIMDateTime>{});
        case Pegasus::CIMTYPE_REFERENCE:
            return visit(TypeTag<Pegasus::CIMObjectPath>{});
        case Pegasus::CIMTYPE_OBJECT:
            return visit(TypeTag<Pegasus::CIMObject>{});
        case Pegasus::CIMTYPE_INSTANCE:
            return visit(TypeTag<Pegasus::CIMInstance>{});
    }
    throw std::logic_error("no such CIM type");
}

}  // namespace cimserver

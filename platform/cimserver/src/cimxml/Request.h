// The operations a client may ask for, with their parameters.
#pragma once

#include "cimxml/Message.h"
#include "model/LocalServer.h"

#include <variant>

namespace cimserver {

struct GetClass {
    Pegasus::CIMName className;
    bool localOnly = true;
    Selection selection{true, false, {}};
};

struct EnumerateClasses {
    Pegasus::CIMName className;  ///< null: all classes of the namespace
    bool deep = false;
    bool localOnly = true;
    Selection selection{true, false, {}};
};

struct EnumerateClassNames {
    Pegasus::CIMName className;  ///< null: all classes of the namespace
    bool deep = false;
};

struct GetInstance {
    Pegasus::CIMObjectPath path;
    Selection selection;
};

struct EnumerateInstances {
    Pegasus::CIMName className;
    bool deep = true;
    Selection selection;
};

struct EnumerateInstanceNames {
    Pegasus::CIMName className;
};

struct CreateInstance {
    Pegasus::CIMInstance instance;
};

struct ModifyInstance {
    Pegasus::CIMInstance instance;
    Selection selection{true, false, {}};
};

struct DeleteInstance {
    Pegasus::CIMObjectPath path;
};

/// The object that an association request starts from.
struct ObjectName {
    Pegasus::CIMObjectPath path;
    bool isClass = false;  ///< a class was named: the answer is about classes
};

struct Associators {
    ObjectName object;
    AssociationFilter filter;
    Selection selection;
};

struct AssociatorNames {
    ObjectName object;
    AssociationFilter filter;
};

struct References {
    ObjectName object;
    AssociationFilter filter;
    Selection selection;
};

struct ReferenceNames {
    ObjectName object;
    AssociationFilter filter;
};

struct GetProperty {
    Pegasus::CIMObjectPath path;
    Pegasus::CIMName property;
};

struct SetProperty {
    Pegasus::CIMObjectPath path;
    Pegasus::CIMName property;
    Pegasus::CIMValue value;  ///< text, whose type the class knows, or references, or nothing
};

struct InvokeMethod {
    Pegasus::CIMObjectPath path;
    Pegasus::CIMName method;
    Pegasus::Array<Pegasus::CIMParamValue> parameters;
};

using Request = std::variant<GetClass, EnumerateClasses, EnumerateClassNames, GetInstance,
                             EnumerateInstances, EnumerateInstanceNames, CreateInstance,
                             ModifyInstance, DeleteInstance, Associators, AssociatorNames,
                             References, ReferenceNames, GetProperty, SetProperty, InvokeMethod>;

/// Reads the parameters of the call. Throws Refusal for what the grammar doesn't allow and
/// Pegasus::CIMException for a method or parameter that isn't known, is given twice, or is missing.
Request decodeRequest(const Message&);

/// The name of the operation or method in the answer: operations in their own spelling.
std::string_view calledName(const Message&);

}  // namespace cimserver

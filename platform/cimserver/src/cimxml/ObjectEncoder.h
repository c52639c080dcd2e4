// CIM objects as elements of an answer, appended to a string.
#pragma once

#include "model/LocalServer.h"

#include <string>

namespace cimserver {

/// VALUE, VALUE.ARRAY, VALUE.REFERENCE or VALUE.REFARRAY; nothing for null.
void appendValue(std::string& out, const Pegasus::CIMValue&);

/// CLASSNAME.
void appendClassName(std::string& out, const Pegasus::CIMName&);

/// INSTANCENAME: class and keys, whatever host and namespace the path has.
void appendInstanceName(std::string& out, const Pegasus::CIMObjectPath&);

/// OBJECTPATH with the path of an instance, or of a class.
void appendObjectPath(std::string& out, const Pegasus::CIMObjectPath&, bool isClass);

/// INSTANCE: the selected properties in the order of the list, with what else is selected.
void appendInstance(std::string& out, const Pegasus::CIMConstInstance&, const Selection&);

/// VALUE.NAMEDINSTANCE.
void appendNamedInstance(std::string& out, const Pegasus::CIMConstInstance&, const Selection&);

/// VALUE.OBJECTWITHPATH, for an instance or a class.
void appendObjectWithPath(std::string& out, const Pegasus::CIMConstObject&, const Selection&);

/// CLASS with everything that is in it.
void appendClass(std::string& out, const Pegasus::CIMConstClass&);

/// RETURNVALUE.
void appendReturnValue(std::string& out, const Pegasus::CIMValue&);

/// PARAMVALUE.
void appendParameter(std::string& out, const Pegasus::CIMParamValue&);

}  // namespace cimserver

// CIM objects as elements of CIM-XML, appended to a string.
#pragma once

#include "model/LocalServer.h"

#include <string>

namespace cimserver {

/// VALUE, VALUE.ARRAY, VALUE.REFERENCE or VALUE.REFARRAY; nothing for null.
PEGASUS_EXPORT void appendValue(std::string& out, const Pegasus::CIMValue&);

/// CLASSNAME.
PEGASUS_EXPORT void appendClassName(std::string& out, const Pegasus::CIMName&);

/// INSTANCENAME: class and keys, whatever host and namespace the path has.
PEGASUS_EXPORT void appendInstanceName(std::string& out, const Pegasus::CIMObjectPath&);

/// OBJECTPATH with the path of an instance, or of a class.
PEGASUS_EXPORT void appendObjectPath(std::string& out, const Pegasus::CIMObjectPath&, bool isClass);

/// INSTANCE: the selected properties in the order of the list, with what else is selected.
PEGASUS_EXPORT void appendInstance(std::string& out, const Pegasus::CIMConstInstance&,
                                   const Selection&);

/// VALUE.NAMEDINSTANCE.
PEGASUS_EXPORT void appendNamedInstance(std::string& out, const Pegasus::CIMConstInstance&,
                                        const Selection&);

/// VALUE.OBJECTWITHPATH, for an instance or a class.
PEGASUS_EXPORT void appendObjectWithPath(std::string& out, const Pegasus::CIMConstObject&,
                                         const Selection&);

/// CLASS with everything that is in it.
PEGASUS_EXPORT void appendClass(std::string& out, const Pegasus::CIMConstClass&);

/// RETURNVALUE.
PEGASUS_EXPORT void appendReturnValue(std::string& out, const Pegasus::CIMValue&);

/// PARAMVALUE.
PEGASUS_EXPORT void appendParameter(std::string& out, const Pegasus::CIMParamValue&);

}  // namespace cimserver

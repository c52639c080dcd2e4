#include "broker/MethodOperations.h"

#include "broker/ResponseHandlers.h"
#include "model/TextConversion.h"

#include <Pegasus/Provider/CIMMethodProvider.h>

namespace cimserver {

using namespace Pegasus;

namespace {

bool allTyped(const Array<CIMParamValue>& parameters) {
    for (Uint32 i = 0; i != parameters.size(); ++i)
        if (!parameters[i].isTyped()) return false;
    return true;
}

CIMConstMethod declarationOf(const CIMConstClass& cimClass, const CIMName& method) {
    const Uint32 position = cimClass.findMethod(method);
    if (position == PEG_NOT_FOUND) throw CIMException(CIM_ERR_METHOD_NOT_FOUND);
    return cimClass.getMethod(position);
}

/// The parameter as declared; one that is typed or not declared stays as it is.
CIMParamValue typedParameter(const CIMParamValue& parameter, const CIMConstMethod& declaration) {
    if (parameter.isTyped()) return parameter;
    const String name = parameter.getParameterName();
    for (Uint32 i = 0; i != declaration.getParameterCount(); ++i) {
        const CIMConstParameter declared = declaration.getParameter(i);
        if (String::equalNoCase(declared.getName().getString(), name))
            return CIMParamValue(name, convertToDeclared(parameter.getValue(), declared.getType(),
                                                         declared.isArray()));
    }
    return parameter;
}

}  // namespace

Array<CIMParamValue> MethodOperations::typed(const CIMNamespaceName& nameSpace,
                                             const CIMName& className, const CIMName& method,
                                             const Array<CIMParamValue>& in) const {
    if (allTyped(in)) return in;
    const CIMConstMethod declaration =
        declarationOf(_routes.repository.resolvedClass(nameSpace, className), method);
    Array<CIMParamValue> parameters;
    for (Uint32 i = 0; i != in.size(); ++i) parameters.append(typedParameter(in[i], declaration));
    return parameters;
}

CIMValue MethodOperations::invoke(const OperationContext& context,
                                  const CIMNamespaceName& nameSpace, const CIMObjectPath& path,
                                  const CIMName& method, const Array<CIMParamValue>& in,
                                  Array<CIMParamValue>& out) {
    const CIMName className = path.getClassName();
    _routes.requireClass(nameSpace, className, CIM_ERR_NOT_FOUND);
    const auto parameters = typed(nameSpace, className, method, in);
    const auto provider = _routes.registry.methodProvider(nameSpace, className, method);
    if (!provider) throw CIMException(CIM_ERR_METHOD_NOT_AVAILABLE, method.getString());
    MethodHandler handler;
    requireSuccess(_routes.call<CIMMethodProvider>(*provider, handler, [&](auto& target) {
        target.invokeMethod(providerContext(context), _routes.forProvider(nameSpace, path), method,
                            parameters, handler);
    }));
    out = handler.parameters();
    return handler.returnValue();
}

}  // namespace cimserver

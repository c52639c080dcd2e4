#include "broker/Routes.h"

namespace cimserver {

using namespace Pegasus;

void Routes::requireClass(const CIMNamespaceName& nameSpace, const CIMName& className,
                          CIMStatusCode code) const {
    if (!repository.hasNamespace(nameSpace))
        throw CIMException(CIM_ERR_INVALID_NAMESPACE, nameSpace.getString());
    if (!repository.hasClass(nameSpace, className)) throw CIMException(code, className.getString());
}

CIMObjectPath Routes::forProvider(const CIMNamespaceName& nameSpace,
                                  const CIMObjectPath& path) const {
    return CIMObjectPath(hostName, nameSpace, path.getClassName(), path.getKeyBindings());
}

CIMObjectPath Routes::forProvider(const CIMNamespaceName& nameSpace,
                                  const CIMName& className) const {
    return CIMObjectPath(hostName, nameSpace, className);
}

bool Routes::isIncomplete(const CIMObjectPath& path) {
    return path.getHost().size() == 0 || path.getNameSpace().isNull();
}

CIMObjectPath Routes::completed(const CIMNamespaceName& nameSpace, CIMObjectPath path) const {
    if (path.getHost().size() == 0) path.setHost(hostName);
    if (path.getNameSpace().isNull()) path.setNameSpace(nameSpace);
    return path;
}

}  // namespace cimserver

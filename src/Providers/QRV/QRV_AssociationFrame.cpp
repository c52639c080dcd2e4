#include "QRV_AssociationFrame.h"

#include <Pegasus/Provider/ProviderException.h>

#include "QRV_Common.h"

namespace Pegasus {

namespace {

void traceRequest(const AssociationRequest& request) {
    const CString objectName = request.objectName.toString().getCString();
    if (request.wantsAssociations())
        log_message(4, "\t objectName = %s \n", static_cast<const char*>(objectName));
    else
        log_message(4, "objectName = %s \n associationClass = %s, resultClass = %s \n",
                    static_cast<const char*>(objectName),
                    static_cast<const char*>(request.associationClass.getString().getCString()),
                    static_cast<const char*>(request.resultClass.getString().getCString()));
}

}  // namespace

bool beginAssociation(const ProviderFrame& frame, const AssociationRules& rules, int refusalLevel,
                      const OperationContext& context, const AssociationRequest& request,
                      Uint32 line) {
    if (openAssociation(frame, rules, context, request, line)) return true;
    log_message(refusalLevel, "%s::%s: invalid params: resultClass = %s \n", frame.provider,
                request.operation,
                static_cast<const char*>(request.resultClass.getString().getCString()));
    return false;
}

bool openAssociation(const ProviderFrame& frame, const AssociationRules& rules,
                     const OperationContext& context, const AssociationRequest& request,
                     Uint32 line) {
    traceRequest(request);
    openArray(frame, context, line);
    return !isRefused(rules, request);
}

bool sourceExists(CIMOMHandle& cimom, const OperationContext& context,
                  const CIMObjectPath& objectName, int level, const char* text) {
    try {
        cimom.getInstance(context, QRV_NAMESPACE, objectName, false, false, false,
                          CIMPropertyList());
        return true;
    } catch (const Exception&) {
        const CString path = objectName.toString().getCString();
        log_message(level, "%s%s\n", text, static_cast<const char*>(path));
        return false;
    }
}

CIMObjectPath requireOnly(CIMOMHandle& cimom, const CIMName& className) {
    const Array<CIMObjectPath> paths =
        cimom.enumerateInstanceNames(OperationContext(), QRV_NAMESPACE, className);
    if (paths.size() == 0)
        throw CIMObjectNotFoundException(className.getString() + " CIM Object not found.");
    return paths[0];
}

void deliverObjects(const Array<CIMInstance>& found, ObjectResponseHandler& handler) {
    handler.processing();
    for (Uint32 i = 0; i < found.size(); ++i) handler.deliver(CIMObject(found[i]));
    handler.complete();
}

Array<CIMObjectPath> pathsOf(const Array<CIMInstance>& instances) {
    Array<CIMObjectPath> paths;
    paths.reserveCapacity(instances.size());
    for (Uint32 i = 0; i < instances.size(); ++i) paths.append(instances[i].getPath());
    return paths;
}

CIMObjectPath referenceKey(const CIMObjectPath& associationPath, const char* role) {
    const String text = QRV_Common::getStringProperty(associationPath, role);
    if (text.size() == 0) return CIMObjectPath();
    CIMObjectPath path(text);
    if (path.getNameSpace().isNull()) path.setNameSpace(QRV_NAMESPACE);
    return path;
}

CIMInstance tryGetInstance(CIMOMHandle& cimom, const OperationContext& context,
                           const CIMObjectPath& path, Boolean includeQualifiers,
                           Boolean includeClassOrigin, const CIMPropertyList& propertyList) {
    try {
        return cimom.getInstance(context, QRV_NAMESPACE, path, false, includeQualifiers,
                                 includeClassOrigin, propertyList);
    } catch (...) {
        return CIMInstance();
    }
}

}  // namespace Pegasus

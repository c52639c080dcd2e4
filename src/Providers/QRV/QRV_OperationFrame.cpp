#include "QRV_OperationFrame.h"

#include <Pegasus/Provider/ProviderException.h>
#include <qrvapi.h>

#include "QRV_CimServer.h"

namespace Pegasus {

const CIMNamespaceName QRV_NAMESPACE("root/qrv");

namespace {

IdentityContainer requester(const OperationContext& context) {
    return IdentityContainer(context.get(IdentityContainer::NAME));
}

[[noreturn]] void refuseRights(CIMStatusCode code, const char* text, const ProviderFrame& frame,
                               Uint32 line) {
    throw TraceableCIMException(code, text, frame.provider, line);
}

bool isServed(const ProviderFrame& frame, const CIMName& className) {
    return className.equal(frame.cimClass) || className.equal(frame.qrvClass);
}

}  // namespace

void openArray(const ProviderFrame& frame, const OperationContext& context, Uint32 line) {
    if (api_qrvOpenForCimserver(requester(context).getUserName().getCString()) != 0)
        refuseRights(CIM_ERR_ACCESS_DENIED, "Insufficient privilege for the user", frame, line);
}

void authorize(const ProviderFrame& frame, const OperationContext& context,
               const CIMName& className, const String& operation, Uint32 line) {
    const IdentityContainer identity = requester(context);
    String key = className.getString() + "." + operation;
    key.toLower();
    switch (api_authorizeCIMUser(identity.getUserName().getCString(),
                                 clientAddress(identity).getCString(), key.getCString())) {
        case API_CIMUSER_AUTHORIZATION_SUCCESS:
            return;
        case API_CIMUSER_AUTHORIZATION_UNAUTH_USER:
        case API_CIMUSER_AUTHORIZATION_USER_NOTFOUND:
            refuseRights(CIM_ERR_ACCESS_DENIED, "Insufficient generic privilege", frame, line);
        default:
            refuseRights(CIM_ERR_NOT_SUPPORTED, "Does not support in generic!", frame, line);
    }
}

void checkClass(const ProviderFrame& frame, const CIMName& className) {
    if (isServed(frame, className)) return;
    throw CIMNotSupportedException(String(frame.className) + " Invalid class name" +
                                   className.getString());
}

void checkClassLoudly(const ProviderFrame& frame, const CIMName& className, const char* text) {
    if (!isServed(frame, className))
        log_message(2, "%s::%s = %s\n", frame.provider, text,
                    static_cast<const char*>(className.getString().getCString()));
    checkClass(frame, className);
}

void checkKeyCount(const ProviderFrame& frame, const CIMObjectPath& instanceName) {
    const Uint32 count = instanceName.getKeyBindings().size();
    if (count == frame.keyCount) return;
    log_message(2, "%s::getInstance(): Invalid number of keys (%u)\n", frame.provider, count);
    throw CIMInvalidParameterException(String(frame.className) + frame.keyText);
}

void traceClassName(const CIMName& className) {
    log_message(4, "\t className = %s\n",
                static_cast<const char*>(className.getString().getCString()));
}

void beginEnumeration(const ProviderFrame& frame, const OperationContext& context,
                      const CIMObjectPath& classReference, Uint32 line) {
    openArray(frame, context, line);
    checkClass(frame, classReference.getClassName());
    traceClassName(classReference.getClassName());
}

void deliverFound(const ProviderFrame& frame, const Array<CIMInstance>& instances,
                  InstanceResponseHandler& handler, const String& detail) {
    if (instances.size() == 0)
        throw CIMObjectNotFoundException(String(frame.className) + " CIM Object not found." +
                                         detail);
    handler.processing();
    handler.deliver(instances[0]);
    handler.complete();
}

void deliverInstances(const Array<CIMInstance>& found, InstanceResponseHandler& handler) {
    handler.processing();
    for (Uint32 i = 0; i < found.size(); ++i) handler.deliver(found[i]);
    handler.complete();
}

void deliverPaths(const Array<CIMInstance>& found, ObjectPathResponseHandler& handler) {
    handler.processing();
    for (Uint32 i = 0; i < found.size(); ++i) handler.deliver(found[i].getPath());
    handler.complete();
}

void deliverPaths(const Array<CIMObjectPath>& found, ObjectPathResponseHandler& handler) {
    handler.processing();
    for (Uint32 i = 0; i < found.size(); ++i) handler.deliver(found[i]);
    handler.complete();
}

void refuse(const ProviderFrame& frame, const char* operation) {
    throw CIMNotSupportedException(String(frame.className) + " does not support " + operation +
                                   ".");
}

void refuseObjectPathConstructor(const ProviderFrame& frame) {
    throw CIMNotSupportedException(String(frame.className) +
                                   " does not support constructor with object path.");
}

}  // namespace Pegasus

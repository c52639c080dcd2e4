#include <Pegasus/Client/CIMClient.h>

#include <optional>

#include "QRV_Common.h"
#include "QRV_InternalCacheService.h"
#include "QRV_OperationFrame.h"

namespace Pegasus {

namespace {

const CIMNamespaceName INTERNAL_NAMESPACE("root/PG_Internal");

using Parameters = Array<CIMParamValue>;

CIMObjectPath buildInternalCacheObjectPath(const String& host, const String& name) {
    Array<CIMKeyBinding> keys;
    keys.append(CIMKeyBinding("InstanceID", name + "-InternalCache", CIMKeyBinding::STRING));
    return CIMObjectPath(host, INTERNAL_NAMESPACE, "QRV_InternalCache", keys);
}

Parameters askLocally(const CIMName& method) {
    Parameters out;
    QRV_Common::invokeMethod(INTERNAL_NAMESPACE,
                             buildInternalCacheObjectPath("localhost", "localhost"), method,
                             Parameters(), out);
    return out;
}

Parameters askThroughHandle(CIMOMHandle& cimom, const CIMName& method) {
    Parameters out;
    cimom.invokeMethod(OperationContext(), INTERNAL_NAMESPACE,
                       buildInternalCacheObjectPath("localhost", "localhost"), method, Parameters(),
                       out);
    return out;
}

/// The local connection may be refused where the server itself still answers through its handle.
Parameters askWithFallback(CIMOMHandle& cimom, const CIMName& method) {
    try {
        return askLocally(method);
    } catch (...) {
        return askThroughHandle(cimom, method);
    }
}

/// The first out parameter, if it is the one named and holds a value; otherwise a T of its own.
template <class T>
T firstAnswer(const Parameters& out, const char* name) {
    T value{};
    if (out.size() > 0 && String::equalNoCase(out[0].getParameterName(), name)) {
        const CIMValue answer = out[0].getValue();
        if (!answer.isNull()) answer.get(value);
    }
    return value;
}

/// One object of the system of which there is a single instance.
struct SystemElement {
    const char* function;  ///< the qualified name of the function that looks for it
    const char* className;
    const char* missing;  ///< the log line when it isn't there
};

/// The instance names through the local connection, or nothing, with a log line, when that fails.
std::optional<Array<CIMObjectPath>> findLocally(const SystemElement& element) {
    try {
        return QRV_Common::enumerateInstanceNames(QRV_NAMESPACE, element.className);
    } catch (const Exception& e) {
        log_message(2, "%s: %s. Trying via cimom.\n", element.function,
                    static_cast<const char*>(e.getMessage().getCString()));
    } catch (...) {
        log_message(2, "%s: Unknown exception! Trying via cimom\n", element.function);
    }
    return std::nullopt;
}

Array<CIMObjectPath> findThroughHandle(CIMOMHandle& cimom, const SystemElement& element) {
    return cimom.enumerateInstanceNames(OperationContext(), QRV_NAMESPACE, element.className);
}

/// findThroughHandle, with a failure turned into a log line and no names.
Array<CIMObjectPath> findThroughHandleOrLog(CIMOMHandle& cimom, const SystemElement& element) {
    try {
        return findThroughHandle(cimom, element);
    } catch (const Exception& e) {
        log_message(2, "%s: %s.\n", element.function,
                    static_cast<const char*>(e.getMessage().getCString()));
    } catch (...) {
        log_message(2, "%s: Unknown exception in cimom!\n", element.function);
    }
    return Array<CIMObjectPath>();
}

CIMObjectPath firstAsSystemPath(const Array<CIMObjectPath>& names, CIMOMHandle& cimom,
                                const SystemElement& element) {
    if (names.size() == 0) {
        log_message(2, "%s", element.missing);
        return CIMObjectPath();
    }
    CIMObjectPath path = names[0];
    path.setHost(QRV_Common::getSystemHostName(cimom));
    path.setNameSpace(QRV_NAMESPACE);
    return path;
}

void traceFound(const SystemElement& element, const CIMObjectPath& path) {
    if (!path.getClassName().isNull()) log_message(4, "<--%s()\n", element.function);
}

}  // namespace

Array<CIMObjectPath> QRV_Common::enumerateInstanceNames(const CIMNamespaceName& nameSpace,
                                                        const CIMName& className) {
    const OperationTrace trace("QRV_Common::enumerateInstanceNames()");
    CIMClient client;
    client.connectLocal();
    const Array<CIMObjectPath> names = client.enumerateInstanceNames(nameSpace, className);
    client.disconnect();
    return names;
}

CIMValue QRV_Common::invokeMethod(const CIMNamespaceName& nameSpace,
                                  const CIMObjectPath& instanceName, const CIMName& methodName,
                                  const Array<CIMParamValue>& inParameters,
                                  Array<CIMParamValue>& outParameters) {
    const OperationTrace trace("QRV_Common::invokeMethod()");
    CIMClient client;
    client.connectLocal();
    const CIMValue result =
        client.invokeMethod(nameSpace, instanceName, methodName, inParameters, outParameters);
    client.disconnect();
    return result;
}

String QRV_Common::getSystemName(CIMOMHandle& cimom) {
    return firstAnswer<String>(askWithFallback(cimom, "GetSystemName"), "SystemName");
}

String QRV_Common::getSystemName() {
    return firstAnswer<String>(askLocally("GetSystemName"), "SystemName");
}

String QRV_Common::getSystemHostName(CIMOMHandle&) {
    return firstAnswer<String>(askLocally("GetSystemHostName"), "SystemHostName");
}

String QRV_Common::getSystemAddress(CIMOMHandle& cimom) {
    return firstAnswer<String>(askWithFallback(cimom, "GetSystemAddress"), "SystemAddress");
}

qrv_u32 QRV_Common::getSystemID() {
    return firstAnswer<Uint32>(askLocally("GetSystemID"), "SystemID");
}

int QRV_Common::getSystemType() {
    return firstAnswer<Sint32>(askLocally("GetSystemType"), "SystemType");
}

Uint8 QRV_Common::isQuadPortSystem(CIMOMHandle& cimom) {
    return firstAnswer<Uint8>(askWithFallback(cimom, "IsQuadPortSystem"), "IsQuadPort");
}

CIMObjectPath QRV_Common::getSystemObjectPath(CIMOMHandle& cimom) {
    static const SystemElement element{"QRV_Common::getSystemObjectPath", "QRV_StorageSystem",
                                       "cannot get at system object path\n"};
    log_message(4, "-->%s()\n", element.function);
    const auto local = findLocally(element);
    const CIMObjectPath path =
        firstAsSystemPath(local ? *local : findThroughHandle(cimom, element), cimom, element);
    traceFound(element, path);
    return path;
}

CIMObjectPath QRV_Common::getSystemPkgObjectPath(CIMOMHandle& cimom) {
    static const SystemElement element{"QRV_Common::getSystemPkgObjectPath", "QRV_SystemPackage",
                                       "cannot get at system pkg object path\n"};
    const auto local = findLocally(element);
    return firstAsSystemPath(local ? *local : findThroughHandleOrLog(cimom, element), cimom,
                             element);
}

CIMObjectPath QRV_Common::getSystemViewObjectPath(CIMOMHandle& cimom) {
    static const SystemElement element{"QRV_Common::getSystemViewObjectPath",
                                       "QRV_StorageSystemView",
                                       "cannot get at system view object path\n"};
    log_message(4, "-->%s()\n", element.function);
    const auto local = findLocally(element);
    const CIMObjectPath path =
        firstAsSystemPath(local ? *local : findThroughHandleOrLog(cimom, element), cimom, element);
    traceFound(element, path);
    return path;
}

cim_policy_t QRV_Common::getPolicy() {
    return QRV_InternalCacheService::getInstance()->getPolicy();
}

void QRV_Common::setPolicy(cim_policy_t policy) {
    QRV_InternalCacheService::getInstance()->setPolicy(policy);
}

}  // namespace Pegasus

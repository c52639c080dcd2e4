#include <Pegasus/Provider/CIMOMHandle.h>

#include <atomic>

#include "model/LocalServer.h"
#include "model/Requests.h"

PEGASUS_NAMESPACE_BEGIN

using cimserver::AssociationFilter;
using cimserver::collect;
using cimserver::Selection;

struct CIMOMHandle::State {
    explicit State(cimserver::LocalServer* maker) : server(maker) {}

    cimserver::LocalServer* const server;  ///< null: the process's server at the time of a call
    std::atomic<Uint32> holds{0};
};

CIMOMHandle::CIMOMHandle() : CIMOMHandle(nullptr) {}

CIMOMHandle::CIMOMHandle(cimserver::LocalServer* server)
    : _state(std::make_shared<State>(server)) {}

CIMOMHandle::CIMOMHandle(const CIMOMHandle&) = default;

CIMOMHandle& CIMOMHandle::operator=(const CIMOMHandle&) = default;

CIMOMHandle::~CIMOMHandle() = default;

cimserver::LocalServer& CIMOMHandle::server() const {
    cimserver::LocalServer* const server =
        _state->server ? _state->server : cimserver::localServer();
    if (!server) {
        throw CIMException(CIM_ERR_FAILED, "There is no CIM server in this process.");
    }
    return *server;
}

CIMClass CIMOMHandle::getClass(const OperationContext& context, const CIMNamespaceName& nameSpace,
                               const CIMName& className, Boolean localOnly,
                               Boolean includeQualifiers, Boolean includeClassOrigin,
                               const CIMPropertyList& propertyList) {
    return server().getClass(context, nameSpace, className, localOnly,
                             {includeQualifiers, includeClassOrigin, propertyList});
}

Array<CIMClass> CIMOMHandle::enumerateClasses(const OperationContext& context,
                                              const CIMNamespaceName& nameSpace,
                                              const CIMName& className, Boolean deepInheritance,
                                              Boolean localOnly, Boolean includeQualifiers,
                                              Boolean includeClassOrigin) {
    const Selection selection{includeQualifiers, includeClassOrigin, CIMPropertyList()};
    return collect<CIMClass>([&](const auto& sink) {
        server().enumerateClasses(context, nameSpace, className, deepInheritance, localOnly,
                                  selection, sink);
    });
}

Array<CIMName> CIMOMHandle::enumerateClassNames(const OperationContext& context,
                                                const CIMNamespaceName& nameSpace,
                                                const CIMName& className, Boolean deepInheritance) {
    return collect<CIMName>([&](const auto& sink) {
        server().enumerateClassNames(context, nameSpace, className, deepInheritance, sink);
    });
}

CIMInstance CIMOMHandle::getInstance(const OperationContext& context,
                                     const CIMNamespaceName& nameSpace,
                                     const CIMObjectPath& instanceName, Boolean /*localOnly*/,
                                     Boolean includeQualifiers, Boolean includeClassOrigin,
                                     const CIMPropertyList& propertyList) {
    return server().getInstance(context, nameSpace, instanceName,
                                {includeQualifiers, includeClassOrigin, propertyList});
}

Array<CIMInstance> CIMOMHandle::enumerateInstances(
    const OperationContext& context, const CIMNamespaceName& nameSpace, const CIMName& className,
    Boolean deepInheritance, Boolean /*localOnly*/, Boolean includeQualifiers,
    Boolean includeClassOrigin, const CIMPropertyList& propertyList) {
    const Selection selection{
        includeQualifiers, includeClassOrigin,
        server().propertyListFor(nameSpace, className, deepInheritance, propertyList)};
    return collect<CIMInstance>([&](const auto& sink) {
        server().enumerateInstances(context, nameSpace, className, selection, sink);
    });
}

Array<CIMObjectPath> CIMOMHandle::enumerateInstanceNames(const OperationContext& context,
                                                         const CIMNamespaceName& nameSpace,
                                                         const CIMName& className) {
    return collect<CIMObjectPath>([&](const auto& sink) {
        server().enumerateInstanceNames(context, nameSpace, className, sink);
    });
}

CIMObjectPath CIMOMHandle::createInstance(const OperationContext& context,
                                          const CIMNamespaceName& nameSpace,
                                          const CIMInstance& newInstance) {
    return server().createInstance(context, nameSpace, newInstance);
}

void CIMOMHandle::modifyInstance(const OperationContext& context, const CIMNamespaceName& nameSpace,
                                 const CIMInstance& modifiedInstance, Boolean includeQualifiers,
                                 const CIMPropertyList& propertyList) {
    server().modifyInstance(context, nameSpace, modifiedInstance,
                            {includeQualifiers, false, propertyList});
}

void CIMOMHandle::deleteInstance(const OperationContext& context, const CIMNamespaceName& nameSpace,
                                 const CIMObjectPath& instanceName) {
    server().deleteInstance(context, nameSpace, instanceName);
}

Array<CIMObject> CIMOMHandle::associators(const OperationContext& context,
                                          const CIMNamespaceName& nameSpace,
                                          const CIMObjectPath& objectName,
                                          const CIMName& assocClass, const CIMName& resultClass,
                                          const String& role, const String& resultRole,
                                          Boolean includeQualifiers, Boolean includeClassOrigin,
                                          const CIMPropertyList& propertyList) {
    const AssociationFilter filter{assocClass, resultClass, role, resultRole};
    const Selection selection{includeQualifiers, includeClassOrigin, propertyList};
    return collect<CIMObject>([&](const auto& sink) {
        server().associators(context, nameSpace, objectName, filter, selection, sink);
    });
}

Array<CIMObjectPath> CIMOMHandle::associatorNames(const OperationContext& context,
                                                  const CIMNamespaceName& nameSpace,
                                                  const CIMObjectPath& objectName,
                                                  const CIMName& assocClass,
                                                  const CIMName& resultClass, const String& role,
                                                  const String& resultRole) {
    const AssociationFilter filter{assocClass, resultClass, role, resultRole};
    return collect<CIMObjectPath>([&](const auto& sink) {
        server().associatorNames(context, nameSpace, objectName, filter, sink);
    });
}

Array<CIMObject> CIMOMHandle::references(const OperationContext& context,
                                         const CIMNamespaceName& nameSpace,
                                         const CIMObjectPath& objectName,
                                         const CIMName& resultClass, const String& role,
                                         Boolean includeQualifiers, Boolean includeClassOrigin,
                                         const CIMPropertyList& propertyList) {
    const AssociationFilter filter{CIMName(), resultClass, role, String()};
    const Selection selection{includeQualifiers, includeClassOrigin, propertyList};
    return collect<CIMObject>([&](const auto& sink) {
        server().references(context, nameSpace, objectName, filter, selection, sink);
    });
}

Array<CIMObjectPath> CIMOMHandle::referenceNames(const OperationContext& context,
                                                 const CIMNamespaceName& nameSpace,
                                                 const CIMObjectPath& objectName,
                                                 const CIMName& resultClass, const String& role) {
    const AssociationFilter filter{CIMName(), resultClass, role, String()};
    return collect<CIMObjectPath>([&](const auto& sink) {
        server().referenceNames(context, nameSpace, objectName, filter, sink);
    });
}

CIMValue CIMOMHandle::getProperty(const OperationContext& context,
                                  const CIMNamespaceName& nameSpace,
                                  const CIMObjectPath& instanceName, const CIMName& propertyName) {
    const CIMInstance instance = server().getInstance(context, nameSpace, instanceName,
                                                      cimserver::onlyProperty(propertyName));
    return cimserver::asText(cimserver::deliveredValue(instance, propertyName));
}

void CIMOMHandle::setProperty(const OperationContext& context, const CIMNamespaceName& nameSpace,
                              const CIMObjectPath& instanceName, const CIMName& propertyName,
                              const CIMValue& newValue) {
    cimserver::setProperty(server(), context, nameSpace, instanceName, propertyName, newValue);
}

CIMValue CIMOMHandle::invokeMethod(const OperationContext& context,
                                   const CIMNamespaceName& nameSpace,
                                   const CIMObjectPath& instanceName, const CIMName& methodName,
                                   const Array<CIMParamValue>& inParameters,
                                   Array<CIMParamValue>& outParameters) {
    return server().invokeMethod(context, nameSpace, instanceName, methodName, inParameters,
                                 outParameters);
}

void CIMOMHandle::disallowProviderUnload() {
    ++_state->holds;
}

void CIMOMHandle::allowProviderUnload() {
    Uint32 holds = _state->holds;
    while (holds != 0 && !_state->holds.compare_exchange_weak(holds, holds - 1)) {
    }
}

Boolean CIMOMHandle::unloadAllowed() const {
    return _state->holds == 0;
}

PEGASUS_NAMESPACE_END

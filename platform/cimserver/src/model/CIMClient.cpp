#include <Pegasus/Client/CIMClient.h>

#include <Pegasus/Common/CIMProperty.h>
#include <Pegasus/Common/InternalException.h>

#include "model/LocalServer.h"
#include "model/Requests.h"

PEGASUS_NAMESPACE_BEGIN
namespace {

using cimserver::AssociationFilter;
using cimserver::collect;
using cimserver::LocalServer;
using cimserver::Selection;

/// Runs an operation of the server; what it reports gets the status name in front, as on the wire.
template <class Operation>
auto asClient(Operation operation) {
    try {
        return operation();
    } catch (const CIMException& failure) {
        throw CIMException(failure.getCode(), TraceableCIMException(failure).getDescription());
    }
}

OperationContext clientContext() {
    OperationContext context;
    context.insert(IdentityContainer(String()));
    return context;
}

CIMObjectPath withoutPlace(const CIMObjectPath& path) {
    return CIMObjectPath(String(), CIMNamespaceName(), path.getClassName(), path.getKeyBindings());
}

/// Puts the properties in the order of the list that they were asked for with.
void reorder(CIMInstance& instance, const CIMPropertyList& order) {
    Array<CIMProperty> properties;
    for (Uint32 i = 0; i < order.size(); ++i) {
        const Uint32 index = instance.findProperty(order[i]);
        if (index != PEG_NOT_FOUND) {
            properties.append(instance.getProperty(index));
            instance.removeProperty(index);
        }
    }
    for (Uint32 i = 0; i < properties.size(); ++i) {
        instance.addProperty(properties[i]);
    }
}

/// A copy of what was asked for.
CIMInstance received(const CIMInstance& sent, const Selection& selection) {
    CIMInstance copy = sent.clone();
    copy.instanceFilter(selection.includeQualifiers, selection.includeClassOrigin,
                        selection.propertyList);
    reorder(copy, selection.propertyList);
    return copy;
}

CIMObject received(const CIMObject& sent, const Selection& selection) {
    return sent.isInstance() ? CIMObject(received(CIMInstance(sent), selection)) : sent.clone();
}

/// Null values lose their type.
CIMParamValue received(const CIMParamValue& sent) {
    return sent.getValue().isNull() ? CIMParamValue(sent.getParameterName(), CIMValue(), false)
                                    : sent.clone();
}

}  // namespace

CIMClient::CIMClient() = default;

cimserver::LocalServer& CIMClient::server() const {
    if (!_server) {
        throw NotConnectedException();
    }
    return *_server;
}

void CIMClient::connect(const String& host, const Uint32 portNumber, const String&, const String&) {
    if (_server) {
        throw AlreadyConnectedException();
    }
    String message = "Cannot connect to ";
    message.append(host).appendPrintf(":%u", portNumber);
    throw CannotConnectException(
        message.append(". This client reaches the CIM server of its own process only."));
}

void CIMClient::connectLocal() {
    if (_server) {
        throw AlreadyConnectedException();
    }
    _server = cimserver::localServer();
    if (!_server) {
        throw CannotConnectException("Cannot connect to local CIM server. Connection failed.");
    }
}

CIMClass CIMClient::getClass(const CIMNamespaceName& nameSpace, const CIMName& className,
                             Boolean localOnly, Boolean includeQualifiers,
                             Boolean includeClassOrigin, const CIMPropertyList& propertyList) {
    return asClient([&] {
        return server().getClass(clientContext(), nameSpace, className, localOnly,
                                 {includeQualifiers, includeClassOrigin, propertyList});
    });
}

Array<CIMClass> CIMClient::enumerateClasses(const CIMNamespaceName& nameSpace,
                                            const CIMName& className, Boolean deepInheritance,
                                            Boolean localOnly, Boolean includeQualifiers,
                                            Boolean includeClassOrigin) {
    const Selection selection{includeQualifiers, includeClassOrigin, CIMPropertyList()};
    return asClient([&] {
        return collect<CIMClass>([&](const auto& sink) {
            server().enumerateClasses(clientContext(), nameSpace, className, deepInheritance,
                                      localOnly, selection, sink);
        });
    });
}

Array<CIMName> CIMClient::enumerateClassNames(const CIMNamespaceName& nameSpace,
                                              const CIMName& className, Boolean deepInheritance) {
    return asClient([&] {
        return collect<CIMName>([&](const auto& sink) {
            server().enumerateClassNames(clientContext(), nameSpace, className, deepInheritance,
                                         sink);
        });
    });
}

CIMInstance CIMClient::getInstance(const CIMNamespaceName& nameSpace,
                                   const CIMObjectPath& instanceName, Boolean /*localOnly*/,
                                   Boolean includeQualifiers, Boolean includeClassOrigin,
                                   const CIMPropertyList& propertyList) {
    const Selection selection{includeQualifiers, includeClassOrigin, propertyList};
    const CIMInstance sent = asClient(
        [&] { return server().getInstance(clientContext(), nameSpace, instanceName, selection); });
    if (sent.isUninitialized()) {
        throw CIMClientXmlException("expected ERROR or IRETURNVALUE element");
    }
    CIMInstance result = received(sent, selection);
    result.setPath(CIMObjectPath(String(), CIMNamespaceName(), sent.getClassName()));
    return result;
}

Array<CIMInstance> CIMClient::enumerateInstances(const CIMNamespaceName& nameSpace,
                                                 const CIMName& className, Boolean deepInheritance,
                                                 Boolean /*localOnly*/, Boolean includeQualifiers,
                                                 Boolean includeClassOrigin,
                                                 const CIMPropertyList& propertyList) {
    Array<CIMInstance> results;
    asClient([&] {
        const Selection selection{
            includeQualifiers, includeClassOrigin,
            server().propertyListFor(nameSpace, className, deepInheritance, propertyList)};
        server().enumerateInstances(clientContext(), nameSpace, className, selection,
                                    [&](const CIMInstance& sent) {
                                        CIMInstance result = received(sent, selection);
                                        result.setPath(withoutPlace(sent.getPath()));
                                        results.append(std::move(result));
                                    });
    });
    return results;
}

Array<CIMObjectPath> CIMClient::enumerateInstanceNames(const CIMNamespaceName& nameSpace,
                                                       const CIMName& className) {
    Array<CIMObjectPath> results;
    asClient([&] {
        server().enumerateInstanceNames(
            clientContext(), nameSpace, className,
            [&](const CIMObjectPath& sent) { results.append(withoutPlace(sent)); });
    });
    return results;
}

CIMObjectPath CIMClient::createInstance(const CIMNamespaceName& nameSpace,
                                        const CIMInstance& newInstance) {
    return asClient([&] {
        return withoutPlace(server().createInstance(clientContext(), nameSpace, newInstance));
    });
}

void CIMClient::modifyInstance(const CIMNamespaceName& nameSpace,
                               const CIMInstance& modifiedInstance, Boolean includeQualifiers,
                               const CIMPropertyList& propertyList) {
    asClient([&] {
        server().modifyInstance(clientContext(), nameSpace, modifiedInstance,
                                {includeQualifiers, false, propertyList});
    });
}

void CIMClient::deleteInstance(const CIMNamespaceName& nameSpace,
                               const CIMObjectPath& instanceName) {
    asClient([&] { server().deleteInstance(clientContext(), nameSpace, instanceName); });
}

Array<CIMObject> CIMClient::associators(const CIMNamespaceName& nameSpace,
                                        const CIMObjectPath& objectName, const CIMName& assocClass,
                                        const CIMName& resultClass, const String& role,
                                        const String& resultRole, Boolean includeQualifiers,
                                        Boolean includeClassOrigin,
                                        const CIMPropertyList& propertyList) {
    const AssociationFilter filter{assocClass, resultClass, role, resultRole};
    const Selection selection{includeQualifiers, includeClassOrigin, propertyList};
    Array<CIMObject> results;
    asClient([&] {
        server().associators(
            clientContext(), nameSpace, objectName, filter, selection,
            [&](const CIMObject& sent) { results.append(received(sent, selection)); });
    });
    return results;
}

Array<CIMObjectPath> CIMClient::associatorNames(const CIMNamespaceName& nameSpace,
                                                const CIMObjectPath& objectName,
                                                const CIMName& assocClass,
                                                const CIMName& resultClass, const String& role,
                                                const String& resultRole) {
    const AssociationFilter filter{assocClass, resultClass, role, resultRole};
    return asClient([&] {
        return collect<CIMObjectPath>([&](const auto& sink) {
            server().associatorNames(clientContext(), nameSpace, objectName, filter, sink);
        });
    });
}

Array<CIMObject> CIMClient::references(const CIMNamespaceName& nameSpace,
                                       const CIMObjectPath& objectName, const CIMName& resultClass,
                                       const String& role, Boolean includeQualifiers,
                                       Boolean includeClassOrigin,
                                       const CIMPropertyList& propertyList) {
    const AssociationFilter filter{CIMName(), resultClass, role, String()};
    const Selection selection{includeQualifiers, includeClassOrigin, propertyList};
    Array<CIMObject> results;
    asClient([&] {
        server().references(
            clientContext(), nameSpace, objectName, filter, selection,
            [&](const CIMObject& sent) { results.append(received(sent, selection)); });
    });
    return results;
}

Array<CIMObjectPath> CIMClient::referenceNames(const CIMNamespaceName& nameSpace,
                                               const CIMObjectPath& objectName,
                                               const CIMName& resultClass, const String& role) {
    const AssociationFilter filter{CIMName(), resultClass, role, String()};
    return asClient([&] {
        return collect<CIMObjectPath>([&](const auto& sink) {
            server().referenceNames(clientContext(), nameSpace, objectName, filter, sink);
        });
    });
}

CIMValue CIMClient::getProperty(const CIMNamespaceName& nameSpace,
                                const CIMObjectPath& instanceName, const CIMName& propertyName) {
    return asClient([&] {
        const CIMInstance instance = server().getInstance(clientContext(), nameSpace, instanceName,
                                                          cimserver::onlyProperty(propertyName));
        const CIMValue value = cimserver::deliveredValue(instance, propertyName);
        return value.isNull() ? CIMValue(CIMTYPE_STRING, false) : cimserver::asText(value);
    });
}

void CIMClient::setProperty(const CIMNamespaceName& nameSpace, const CIMObjectPath& instanceName,
                            const CIMName& propertyName, const CIMValue& newValue) {
    asClient([&] {
        cimserver::setProperty(server(), clientContext(), nameSpace, instanceName, propertyName,
                               cimserver::asText(newValue));
    });
}

CIMValue CIMClient::invokeMethod(const CIMNamespaceName& nameSpace,
                                 const CIMObjectPath& instanceName, const CIMName& methodName,
                                 const Array<CIMParamValue>& inParameters,
                                 Array<CIMParamValue>& outParameters) {
    return asClient([&] {
        Array<CIMParamValue> sent;
        const CIMValue value = server().invokeMethod(clientContext(), nameSpace, instanceName,
                                                     methodName, inParameters, sent);
        outParameters.clear();
        for (Uint32 i = 0; i < sent.size(); ++i) {
            outParameters.append(received(sent[i]));
        }
        return value;
    });
}

PEGASUS_NAMESPACE_END

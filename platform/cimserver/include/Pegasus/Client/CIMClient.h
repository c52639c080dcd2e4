// A client of a CIM server.
#pragma once

#include <Pegasus/Client/CIMClientException.h>
#include <Pegasus/Client/Linkage.h>
#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMClass.h>
#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMObject.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMParamValue.h>
#include <Pegasus/Common/CIMPropertyList.h>
#include <Pegasus/Common/CIMValue.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Exception.h>
#include <Pegasus/Common/String.h>

namespace cimserver {
class LocalServer;
}

PEGASUS_NAMESPACE_BEGIN

/// Speaks to the server of its own process and sees what a client on the wire would see: copies of
/// the objects, reduced to the properties, qualifiers and class origins it asks for. Use one client
/// per thread.
///
/// Without a connection every operation throws NotConnectedException. Failures of the server are
/// CIMException whose message begins with the status name: "CIM_ERR_NOT_FOUND: ...".
/// Paths of instances have neither host nor namespace, except for associated objects and
/// references.
class PEGASUS_CLIENT_LINKAGE CIMClient {
  public:
    CIMClient();
    ~CIMClient() = default;
    CIMClient(const CIMClient&) = delete;
    CIMClient& operator=(const CIMClient&) = delete;

    /// In milliseconds. Calls within the process do not time out.
    Uint32 getTimeout() const noexcept { return _timeout; }
    void setTimeout(Uint32 timeoutMilliseconds) noexcept { _timeout = timeoutMilliseconds; }

    /// Not offered here: throws CannotConnectException (AlreadyConnectedException when connected).
    void connect(const String& host, const Uint32 portNumber, const String& userName,
                 const String& password);

    /// Connects to this process's server, for the server itself as the user. Throws
    /// CannotConnectException when there is none, AlreadyConnectedException when connected.
    void connectLocal();

    /// Does nothing when not connected.
    void disconnect() noexcept { _server = nullptr; }

    CIMClass getClass(const CIMNamespaceName& nameSpace, const CIMName& className,
                      Boolean localOnly = true, Boolean includeQualifiers = true,
                      Boolean includeClassOrigin = false,
                      const CIMPropertyList& propertyList = CIMPropertyList());
    Array<CIMClass> enumerateClasses(const CIMNamespaceName& nameSpace,
                                     const CIMName& className = CIMName(),
                                     Boolean deepInheritance = false, Boolean localOnly = true,
                                     Boolean includeQualifiers = true,
                                     Boolean includeClassOrigin = false);
    Array<CIMName> enumerateClassNames(const CIMNamespaceName& nameSpace,
                                       const CIMName& className = CIMName(),
                                       Boolean deepInheritance = false);

    /// The result's path is the class name only. When the server has nothing to return,
    /// CIMClientXmlException.
    CIMInstance getInstance(const CIMNamespaceName& nameSpace, const CIMObjectPath& instanceName,
                            Boolean localOnly = true, Boolean includeQualifiers = false,
                            Boolean includeClassOrigin = false,
                            const CIMPropertyList& propertyList = CIMPropertyList());
    Array<CIMInstance> enumerateInstances(const CIMNamespaceName& nameSpace,
                                          const CIMName& className, Boolean deepInheritance = true,
                                          Boolean localOnly = true,
                                          Boolean includeQualifiers = false,
                                          Boolean includeClassOrigin = false,
                                          const CIMPropertyList& propertyList = CIMPropertyList());
    Array<CIMObjectPath> enumerateInstanceNames(const CIMNamespaceName& nameSpace,
                                                const CIMName& className);
    CIMObjectPath createInstance(const CIMNamespaceName& nameSpace, const CIMInstance& newInstance);
    void modifyInstance(const CIMNamespaceName& nameSpace, const CIMInstance& modifiedInstance,
                        Boolean includeQualifiers = true,
                        const CIMPropertyList& propertyList = CIMPropertyList());
    void deleteInstance(const CIMNamespaceName& nameSpace, const CIMObjectPath& instanceName);

    Array<CIMObject> associators(const CIMNamespaceName& nameSpace, const CIMObjectPath& objectName,
                                 const CIMName& assocClass = CIMName(),
                                 const CIMName& resultClass = CIMName(),
                                 const String& role = String::EMPTY,
                                 const String& resultRole = String::EMPTY,
                                 Boolean includeQualifiers = false,
                                 Boolean includeClassOrigin = false,
                                 const CIMPropertyList& propertyList = CIMPropertyList());
    Array<CIMObjectPath> associatorNames(const CIMNamespaceName& nameSpace,
                                         const CIMObjectPath& objectName,
                                         const CIMName& assocClass = CIMName(),
                                         const CIMName& resultClass = CIMName(),
                                         const String& role = String::EMPTY,
                                         const String& resultRole = String::EMPTY);
    Array<CIMObject> references(const CIMNamespaceName& nameSpace, const CIMObjectPath& objectName,
                                const CIMName& resultClass = CIMName(),
                                const String& role = String::EMPTY,
                                Boolean includeQualifiers = false,
                                Boolean includeClassOrigin = false,
                                const CIMPropertyList& propertyList = CIMPropertyList());
    Array<CIMObjectPath> referenceNames(const CIMNamespaceName& nameSpace,
                                        const CIMObjectPath& objectName,
                                        const CIMName& resultClass = CIMName(),
                                        const String& role = String::EMPTY);

    CIMValue getProperty(const CIMNamespaceName& nameSpace, const CIMObjectPath& instanceName,
                         const CIMName& propertyName);
    void setProperty(const CIMNamespaceName& nameSpace, const CIMObjectPath& instanceName,
                     const CIMName& propertyName, const CIMValue& newValue = CIMValue());

    /// A return value that was not delivered is a null value.
    CIMValue invokeMethod(const CIMNamespaceName& nameSpace, const CIMObjectPath& instanceName,
                          const CIMName& methodName, const Array<CIMParamValue>& inParameters,
                          Array<CIMParamValue>& outParameters);

  private:
    cimserver::LocalServer& server() const;

    cimserver::LocalServer* _server = nullptr;
    Uint32 _timeout = 20000;
};

PEGASUS_NAMESPACE_END

// How a provider calls its server.
#pragma once

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMClass.h>
#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMObject.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMParamValue.h>
#include <Pegasus/Common/CIMPropertyList.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/OperationContext.h>
#include <Pegasus/Common/ResponseHandler.h>
#include <Pegasus/Provider/Linkage.h>

#include <memory>

namespace cimserver {
class LocalServer;
}

PEGASUS_NAMESPACE_BEGIN

/// The server's operations for its providers. A handle: copies share one state. It may be used on
/// any number of threads at once, also from within an operation that an earlier call led to.
///
/// A call speaks for the user of the context's IdentityContainer, or for the server itself without
/// one. Failures are CIMException; do not read anything from their texts. Results come as the
/// called provider delivered them: property lists and the flags for qualifiers and class origins
/// are passed on to it, not applied. `localOnly` matters for classes only.
class PEGASUS_PROVIDER_LINKAGE CIMOMHandle {
  public:
    /// Speaks to the server of this process, whichever that is at the time of a call. Without one,
    /// calls fail with CIM_ERR_FAILED.
    CIMOMHandle();

    /// Made by the server, which outlives it.
    explicit CIMOMHandle(cimserver::LocalServer* server);

    CIMOMHandle(const CIMOMHandle&);
    CIMOMHandle& operator=(const CIMOMHandle&);
    ~CIMOMHandle();

    CIMClass getClass(const OperationContext& context, const CIMNamespaceName& nameSpace,
                      const CIMName& className, Boolean localOnly, Boolean includeQualifiers,
                      Boolean includeClassOrigin, const CIMPropertyList& propertyList);
    Array<CIMClass> enumerateClasses(const OperationContext& context,
                                     const CIMNamespaceName& nameSpace, const CIMName& className,
                                     Boolean deepInheritance, Boolean localOnly,
                                     Boolean includeQualifiers, Boolean includeClassOrigin);
    Array<CIMName> enumerateClassNames(const OperationContext& context,
                                       const CIMNamespaceName& nameSpace, const CIMName& className,
                                       Boolean deepInheritance);

    /// Uninitialized when the called provider delivered nothing.
    CIMInstance getInstance(const OperationContext& context, const CIMNamespaceName& nameSpace,
                            const CIMObjectPath& instanceName, Boolean localOnly,
                            Boolean includeQualifiers, Boolean includeClassOrigin,
                            const CIMPropertyList& propertyList);

    /// Without deep inheritance and with a null list, the providers are asked for the properties of
    /// `className` only.
    Array<CIMInstance> enumerateInstances(const OperationContext& context,
                                          const CIMNamespaceName& nameSpace,
                                          const CIMName& className, Boolean deepInheritance,
                                          Boolean localOnly, Boolean includeQualifiers,
                                          Boolean includeClassOrigin,
                                          const CIMPropertyList& propertyList);
    Array<CIMObjectPath> enumerateInstanceNames(const OperationContext& context,
                                                const CIMNamespaceName& nameSpace,
                                                const CIMName& className);
    CIMObjectPath createInstance(const OperationContext& context, const CIMNamespaceName& nameSpace,
                                 const CIMInstance& newInstance);
    void modifyInstance(const OperationContext& context, const CIMNamespaceName& nameSpace,
                        const CIMInstance& modifiedInstance, Boolean includeQualifiers,
                        const CIMPropertyList& propertyList);
    void deleteInstance(const OperationContext& context, const CIMNamespaceName& nameSpace,
                        const CIMObjectPath& instanceName);

    Array<CIMObject> associators(const OperationContext& context, const CIMNamespaceName& nameSpace,
                                 const CIMObjectPath& objectName, const CIMName& assocClass,
                                 const CIMName& resultClass, const String& role,
                                 const String& resultRole, Boolean includeQualifiers,
                                 Boolean includeClassOrigin, const CIMPropertyList& propertyList);
    Array<CIMObjectPath> associatorNames(const OperationContext& context,
                                         const CIMNamespaceName& nameSpace,
                                         const CIMObjectPath& objectName, const CIMName& assocClass,
                                         const CIMName& resultClass, const String& role,
                                         const String& resultRole);
    Array<CIMObject> references(const OperationContext& context, const CIMNamespaceName& nameSpace,
                                const CIMObjectPath& objectName, const CIMName& resultClass,
                                const String& role, Boolean includeQualifiers,
                                Boolean includeClassOrigin, const CIMPropertyList& propertyList);
    Array<CIMObjectPath> referenceNames(const OperationContext& context,
                                        const CIMNamespaceName& nameSpace,
                                        const CIMObjectPath& objectName, const CIMName& resultClass,
                                        const String& role);

    /// The value as text: a string, or an array of strings; only references keep their type. When
    /// the property is not delivered, CIM_ERR_NO_SUCH_PROPERTY.
    CIMValue getProperty(const OperationContext& context, const CIMNamespaceName& nameSpace,
                         const CIMObjectPath& instanceName, const CIMName& propertyName);

    /// A modifyInstance of that one property.
    void setProperty(const OperationContext& context, const CIMNamespaceName& nameSpace,
                     const CIMObjectPath& instanceName, const CIMName& propertyName,
                     const CIMValue& newValue);

    CIMValue invokeMethod(const OperationContext& context, const CIMNamespaceName& nameSpace,
                          const CIMObjectPath& instanceName, const CIMName& methodName,
                          const Array<CIMParamValue>& inParameters,
                          Array<CIMParamValue>& outParameters);

    /// Keeps the provider loaded until allowProviderUnload() was called as often.
    void disallowProviderUnload();
    void allowProviderUnload();

    /// Asked by the server: whether nothing keeps the provider loaded.
    Boolean unloadAllowed() const;

  private:
    struct State;

    cimserver::LocalServer& server() const;

    std::shared_ptr<State> _state;
};

PEGASUS_NAMESPACE_END

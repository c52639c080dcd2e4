// Providers of instances.
#pragma once

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMPropertyList.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Provider/CIMProvider.h>
#include <Pegasus/Provider/Linkage.h>

PEGASUS_NAMESPACE_BEGIN

/// Serves the instances of the classes it is registered for. References carry the server's host,
/// the request's namespace, and class and keys as the client spelled them: compare names ignoring
/// case.
class PEGASUS_PROVIDER_LINKAGE CIMInstanceProvider : public virtual CIMProvider {
  public:
    CIMInstanceProvider();
    ~CIMInstanceProvider() override;

    /// Delivers exactly one instance.
    virtual void getInstance(const OperationContext& context,
                             const CIMObjectPath& instanceReference,
                             const Boolean includeQualifiers, const Boolean includeClassOrigin,
                             const CIMPropertyList& propertyList,
                             InstanceResponseHandler& handler) = 0;

    /// Delivers the instances of this very class, with their paths; the server asks for each
    /// subclass.
    virtual void enumerateInstances(const OperationContext& context,
                                    const CIMObjectPath& classReference,
                                    const Boolean includeQualifiers,
                                    const Boolean includeClassOrigin,
                                    const CIMPropertyList& propertyList,
                                    InstanceResponseHandler& handler) = 0;

    virtual void enumerateInstanceNames(const OperationContext& context,
                                        const CIMObjectPath& classReference,
                                        ObjectPathResponseHandler& handler) = 0;

    virtual void modifyInstance(const OperationContext& context,
                                const CIMObjectPath& instanceReference,
                                const CIMInstance& instanceObject, const Boolean includeQualifiers,
                                const CIMPropertyList& propertyList, ResponseHandler& handler) = 0;

    /// Delivers the path of the new instance. `instanceReference` has no keys.
    virtual void createInstance(const OperationContext& context,
                                const CIMObjectPath& instanceReference,
                                const CIMInstance& instanceObject,
                                ObjectPathResponseHandler& handler) = 0;

    virtual void deleteInstance(const OperationContext& context,
                                const CIMObjectPath& instanceReference,
                                ResponseHandler& handler) = 0;
};

PEGASUS_NAMESPACE_END

// Providers of associations.
#pragma once

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMPropertyList.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/String.h>
#include <Pegasus/Provider/CIMProvider.h>
#include <Pegasus/Provider/Linkage.h>

PEGASUS_NAMESPACE_BEGIN

/// Follows the associations it is registered for. `associationClass` (`resultClass` for references)
/// is the very association class that this call is about, never null; a provider of several is
/// called for each. The other filters come as the client gave them and are the provider's to apply.
class PEGASUS_PROVIDER_LINKAGE CIMAssociationProvider : public virtual CIMProvider {
  public:
    CIMAssociationProvider();
    ~CIMAssociationProvider() override;

    virtual void associators(const OperationContext& context, const CIMObjectPath& objectName,
                             const CIMName& associationClass, const CIMName& resultClass,
                             const String& role, const String& resultRole,
                             const Boolean includeQualifiers, const Boolean includeClassOrigin,
                             const CIMPropertyList& propertyList,
                             ObjectResponseHandler& handler) = 0;

    virtual void associatorNames(const OperationContext& context, const CIMObjectPath& objectName,
                                 const CIMName& associationClass, const CIMName& resultClass,
                                 const String& role, const String& resultRole,
                                 ObjectPathResponseHandler& handler) = 0;

    virtual void references(const OperationContext& context, const CIMObjectPath& objectName,
                            const CIMName& resultClass, const String& role,
                            const Boolean includeQualifiers, const Boolean includeClassOrigin,
                            const CIMPropertyList& propertyList,
                            ObjectResponseHandler& handler) = 0;

    virtual void referenceNames(const OperationContext& context, const CIMObjectPath& objectName,
                                const CIMName& resultClass, const String& role,
                                ObjectPathResponseHandler& handler) = 0;
};

PEGASUS_NAMESPACE_END

// Shows each host persona of the array as one read-only QRV_StorageClientSettingData.
#pragma once

#include <Pegasus/Provider/CIMInstanceProvider.h>
#include <Pegasus/Provider/CIMOMHandle.h>
#include <qrvapi.h>

namespace Pegasus {

/// Instance provider of QRV_StorageClientSettingData. Operations may run at once on any number of
/// threads.
class QRV_StorageClientSettingDataProvider : public CIMInstanceProvider {
  public:
    QRV_StorageClientSettingDataProvider();

    /// Not supported: throws CIMNotSupportedException.
    explicit QRV_StorageClientSettingDataProvider(const CIMObjectPath&);

    ~QRV_StorageClientSettingDataProvider() override;

    void initialize(CIMOMHandle& cimom) override;

    /// Destroys the provider.
    void terminate() override;

    void getInstance(const OperationContext& context, const CIMObjectPath& instanceReference,
                     const Boolean includeQualifiers, const Boolean includeClassOrigin,
                     const CIMPropertyList& propertyList,
                     InstanceResponseHandler& handler) override;
    void enumerateInstances(const OperationContext& context, const CIMObjectPath& classReference,
                            const Boolean includeQualifiers, const Boolean includeClassOrigin,
                            const CIMPropertyList& propertyList,
                            InstanceResponseHandler& handler) override;
    void enumerateInstanceNames(const OperationContext& context,
                                const CIMObjectPath& classReference,
                                ObjectPathResponseHandler& handler) override;
    void modifyInstance(const OperationContext& context, const CIMObjectPath& instanceReference,
                        const CIMInstance& instanceObject, const Boolean includeQualifiers,
                        const CIMPropertyList& propertyList, ResponseHandler& handler) override;
    void createInstance(const OperationContext& context, const CIMObjectPath& instanceReference,
                        const CIMInstance& instanceObject,
                        ObjectPathResponseHandler& handler) override;
    void deleteInstance(const OperationContext& context, const CIMObjectPath& instanceReference,
                        ResponseHandler& handler) override;

    /// The InstanceID of the persona with this number.
    PEGASUS_EXPORT static String makeUniqueID(Uint32 personaNum);

    /// The object path of the setting with this InstanceID.
    PEGASUS_EXPORT static CIMObjectPath buildObjectPath(const String& systemAddress,
                                                        const String& instanceID);

    /// The number of the persona that the path's InstanceID names; 0 when it names none. Text
    /// behind the digits doesn't count.
    PEGASUS_EXPORT static Uint32 extractPersonaNumber(const CIMObjectPath& clientSettingPath);

    /// Appends what the persona's operating systems are in CIM's numbers and words, in step:
    /// description n belongs to client type n.
    PEGASUS_EXPORT static void setPersonaClientTypes(Array<Uint16>& cltTypes,
                                                     Array<String>& otherTypeDescs,
                                                     api_hostpersonaentry_t& pentry);

    /// The setting of one persona. The record stays the caller's.
    PEGASUS_EXPORT static CIMInstance buildInstance(CIMClass settingClass,
                                                    api_hostpersonaentry_t& hostpersona,
                                                    const String& systemAddress);

  private:
    Array<CIMInstance> _build_instances(Boolean includeQualifiers, Boolean includeClassOrigin,
                                        const CIMPropertyList& propertyList);
    Array<CIMObjectPath> _build_ref();

    CIMOMHandle _cimom;
    String _systemAddress;
};

}  // namespace Pegasus

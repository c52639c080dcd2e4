// Shows each host persona of the array as one read-only QRV_StorageClientSettingData.
#pragma once

#include "../QRV_InstanceProvider.h"

namespace Pegasus {

/// The persona of a host that is made without one.
constexpr Uint32 DEFAULT_PERSONA = 2;

/// Instance provider of QRV_StorageClientSettingData. Operations may run at once on any number of
/// threads.
class QRV_StorageClientSettingDataProvider
    : public InstanceProvider<QRV_StorageClientSettingDataProvider> {
  public:
    QRV_StorageClientSettingDataProvider();

    /// Not supported: throws CIMNotSupportedException.
    explicit QRV_StorageClientSettingDataProvider(const CIMObjectPath&);

    ~QRV_StorageClientSettingDataProvider() override;

    void initialize(CIMOMHandle& cimom) override;

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
    template <class, class...>
    friend class InstanceProvider;

    static const ProviderFrame& _frame();
    static void _checkPath(const CIMObjectPath& instanceReference);
    void _getInstance(const OperationContext& context, const CIMObjectPath& instanceReference,
                      const InstanceShape& shape, InstanceResponseHandler& handler);
    static bool _beginEnumeration(const OperationContext& context,
                                  const CIMObjectPath& classReference, const char* operation);
    void _enumerateInstances(const OperationContext& context, const InstanceShape& shape,
                             InstanceResponseHandler& handler);
    void _enumerateInstanceNames(const OperationContext& context,
                                 ObjectPathResponseHandler& handler);
    Array<CIMInstance> _build_instances(const InstanceShape& shape);
    Array<CIMObjectPath> _build_ref();

    CIMOMHandle _cimom;
    String _systemAddress;
};

}  // namespace Pegasus

// What the system's provider libraries share within one process: CIM classes and policy bits.
#pragma once

#include <Pegasus/Common/CIMClass.h>
#include <Pegasus/Common/OperationContext.h>
#include <Pegasus/Provider/CIMOMHandle.h>
#include <QRV_Common.h>

#include <array>
#include <atomic>
#include <map>
#include <shared_mutex>
#include <string>

namespace Pegasus {

/// One object for the process. All functions may be called on any thread.
class PEGASUS_EXPORT QRV_InternalCacheService {
  public:
    /// The one object; never null, and never destroyed before the library is unloaded.
    static QRV_InternalCacheService* getInstance();

    QRV_InternalCacheService(const QRV_InternalCacheService&) = delete;
    QRV_InternalCacheService& operator=(const QRV_InternalCacheService&) = delete;

    /// The class with the properties that the list names, or with all when the list is null. The
    /// first call for a class asks the server through `cimom`; its exceptions pass. The result is
    /// the caller's own copy.
    CIMClass getStoredCIMClass(CIMOMHandle& cimom, const OperationContext& context,
                               const CIMNamespaceName& nameSpace, const CIMName& className,
                               Boolean localOnly, Boolean includeQualifiers,
                               Boolean includeClassOrigin, const CIMPropertyList& propertyList);

    /// Asks the server again for every class, as it has to be after a change of the schema.
    void forgetClasses();

    cim_policy_t getPolicy() const { return _policy; }
    void setPolicy(cim_policy_t policy) { _policy = policy; }

  private:
    /// Classes by namespace and name in lower case.
    using ClassTable = std::map<std::string, CIMClass>;

    QRV_InternalCacheService() = default;

    static unsigned int getClassHashArrayIndex(Boolean includeQualifiers,
                                               Boolean includeClassOrigin);
    CIMClass getWholeClass(CIMOMHandle& cimom, const OperationContext& context,
                           const CIMNamespaceName& nameSpace, const CIMName& className,
                           Boolean includeQualifiers, Boolean includeClassOrigin);
    static CIMClass getClassFromRepository(CIMOMHandle& cimom, const OperationContext& context,
                                           const CIMNamespaceName& nameSpace,
                                           const CIMName& className, Boolean localOnly,
                                           Boolean includeQualifiers, Boolean includeClassOrigin);

    std::shared_mutex _lock;  ///< guards g_cimclassTable
    std::array<ClassTable, 4> g_cimclassTable;
    std::atomic<cim_policy_t> _policy{0};
};

}  // namespace Pegasus

#include "QRV_InternalCacheService.h"

#include <mutex>

namespace Pegasus {

namespace {

std::string tableKey(const CIMNamespaceName& nameSpace, const CIMName& className) {
    String key = nameSpace.getString() + ":" + className.getString();
    key.toLower();
    return static_cast<const char*>(key.getCString());
}

/// Takes away what the list doesn't name.
void limitProperties(CIMClass& cimClass, const CIMPropertyList& propertyList) {
    for (Uint32 i = cimClass.getPropertyCount(); i-- > 0;)
        if (!propertyList.contains(cimClass.getProperty(i).getName())) cimClass.removeProperty(i);
}

}  // namespace

QRV_InternalCacheService* QRV_InternalCacheService::getInstance() {
    static QRV_InternalCacheService service;
    return &service;
}

CIMClass QRV_InternalCacheService::getStoredCIMClass(
    CIMOMHandle& cimom, const OperationContext& context, const CIMNamespaceName& nameSpace,
    const CIMName& className, Boolean localOnly, Boolean includeQualifiers,
    Boolean includeClassOrigin, const CIMPropertyList& propertyList) {
    // Classes reduced to their own members are asked for too rarely to be kept.
    CIMClass copy = localOnly ? getClassFromRepository(cimom, context, nameSpace, className, true,
                                                       includeQualifiers, includeClassOrigin)
                              : getWholeClass(cimom, context, nameSpace, className,
                                              includeQualifiers, includeClassOrigin)
                                    .clone();
    if (!propertyList.isNull()) limitProperties(copy, propertyList);
    return copy;
}

void QRV_InternalCacheService::forgetClasses() {
    const std::unique_lock writing(_lock);
    for (ClassTable& table : g_cimclassTable) table.clear();
}

unsigned int QRV_InternalCacheService::getClassHashArrayIndex(Boolean includeQualifiers,
                                                              Boolean includeClassOrigin) {
    return (includeQualifiers ? 2U : 0U) + (includeClassOrigin ? 1U : 0U);
}

CIMClass QRV_InternalCacheService::getWholeClass(
    CIMOMHandle& cimom, const OperationContext& context, const CIMNamespaceName& nameSpace,
    const CIMName& className, Boolean includeQualifiers, Boolean includeClassOrigin) {
    ClassTable& table =
        g_cimclassTable[getClassHashArrayIndex(includeQualifiers, includeClassOrigin)];
    const std::string key = tableKey(nameSpace, className);
    {
        const std::shared_lock reading(_lock);
        if (const auto found = table.find(key); found != table.end()) return found->second;
    }
    // The server is asked outside the lock; of two first callers the earlier one's class stays.
    const CIMClass fetched = getClassFromRepository(cimom, context, nameSpace, className, false,
                                                    includeQualifiers, includeClassOrigin);
    const std::unique_lock writing(_lock);
    return table.emplace(key, fetched).first->second;
}

CIMClass QRV_InternalCacheService::getClassFromRepository(
    CIMOMHandle& cimom, const OperationContext& context, const CIMNamespaceName& nameSpace,
    const CIMName& className, Boolean localOnly, Boolean includeQualifiers,
    Boolean includeClassOrigin) {
    return cimom.getClass(context, nameSpace, className, localOnly, includeQualifiers,
                          includeClassOrigin, CIMPropertyList());
}

}  // namespace Pegasus

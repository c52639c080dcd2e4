#include <Pegasus/Common/CIMProperty.h>

#include <initializer_list>

#include "QRV_Common.h"
#include "QRV_OperationFrame.h"
#include "QRV_PathMatcher.h"

namespace Pegasus {

namespace {

/// One end of an association: the role, and the path that stands there.
struct End {
    const String& role;
    CIMObjectPath path;
};

using Ends = std::initializer_list<End>;

CIMObjectPath withHost(const CIMObjectPath& path, const String& host) {
    CIMObjectPath copy = path;
    copy.setHost(host);
    return copy;
}

CIMObjectPath pathOf(const CIMName& assocClass, Ends ends, const String& host,
                     const CIMNamespaceName& nameSpace) {
    Array<CIMKeyBinding> keys;
    for (const End& end : ends)
        keys.append(CIMKeyBinding(end.role, end.path.toString(), CIMKeyBinding::REFERENCE));
    return CIMObjectPath(host, nameSpace, assocClass, keys);
}

CIMInstance instanceOf(const CIMName& assocClass, Ends ends, CIMClass& classSkeleton,
                       const String& host, const CIMNamespaceName& nameSpace) {
    CIMInstance instance = QRV_Common::buildInstanceSkeleton(classSkeleton);
    for (const End& end : ends) QRV_Common::setPropertyValue(instance, end.role, end.path);
    instance.setPath(pathOf(assocClass, ends, host, nameSpace));
    return instance;
}

const String ANTECEDENT("Antecedent");
const String DEPENDENT("Dependent");

CIMObjectPath withoutHostAndNamespace(const CIMObjectPath& path) {
    return CIMObjectPath(String(), CIMNamespaceName(), path.getClassName(), path.getKeyBindings());
}

/// Calls `take` with the role and path of each reference of the instance, in order, until it
/// returns true; returns whether it did.
template <class Take>
bool anyReference(const CIMInstance& instance, Take take) {
    for (Uint32 i = 0; i < instance.getPropertyCount(); ++i) {
        const CIMConstProperty property = instance.getProperty(i);
        if (property.getType() != CIMTYPE_REFERENCE) continue;
        CIMObjectPath path;
        property.getValue().get(path);
        if (take(property.getName(), path)) return true;
    }
    return false;
}

bool isRole(const String& wanted, const CIMName& property) {
    return wanted.size() == 0 || String::equalNoCase(wanted, property.getString());
}

void requireReference(const CIMInstance& instance, const String& role) {
    const Uint32 index = CIMName::legal(role) ? instance.findProperty(role) : PEG_NOT_FOUND;
    if (index == PEG_NOT_FOUND || instance.getProperty(index).getType() != CIMTYPE_REFERENCE)
        throw CIMException(CIM_ERR_INVALID_PARAMETER);
}

/// Calls `take` with the path of each far end that the result classes and the result role let
/// through, as often as its class stands in the list.
template <class Take>
void forEachFarEnd(const CIMInstance& assocInstance, const CIMObjectPath& nearEnd,
                   const Array<CIMName>& resultClass, const String& resultRole, Take take) {
    const PathMatcher near(nearEnd);
    anyReference(assocInstance, [&](const CIMName& name, const CIMObjectPath& path) {
        if (near.matches(path) || !isRole(resultRole, name)) return false;
        if (resultClass.size() == 0) take(path);
        for (Uint32 i = 0; i < resultClass.size(); ++i)
            if (resultClass[i].equal(path.getClassName())) take(path);
        return false;
    });
}

}  // namespace

CIMObjectPath QRV_Common::buildAssocPath(const CIMName& assocClass, const String& assocName1,
                                         const String& assocName2, const CIMObjectPath& assocPath1,
                                         const CIMObjectPath& assocPath2,
                                         const String& hostAddress1, const String& hostAddress2,
                                         const String& localAddress, String nameSpace) {
    return pathOf(assocClass,
                  {{assocName1, withHost(assocPath1, hostAddress1)},
                   {assocName2, withHost(assocPath2, hostAddress2)}},
                  localAddress, nameSpace);
}

CIMObjectPath QRV_Common::buildAssocPath(const CIMName& assocClass, const String& assocName1,
                                         const String& assocName2, const CIMObjectPath& assocPath1,
                                         const CIMObjectPath& assocPath2, const String& hostAddress,
                                         String nameSpace) {
    return buildAssocPath(assocClass, assocName1, assocName2, assocPath1, assocPath2, hostAddress,
                          hostAddress, hostAddress, nameSpace);
}

CIMObjectPath QRV_Common::buildAssocPath(const CIMName& assocClass, const String& assocName1,
                                         const String& assocName2, const String& assocName3,
                                         const CIMObjectPath& assocPath1,
                                         const CIMObjectPath& assocPath2,
                                         const CIMObjectPath& assocPath3, const String& hostAddress,
                                         String nameSpace) {
    return pathOf(assocClass,
                  {{assocName1, withHost(assocPath1, hostAddress)},
                   {assocName2, withHost(assocPath2, hostAddress)},
                   {assocName3, withHost(assocPath3, hostAddress)}},
                  hostAddress, nameSpace);
}

CIMInstance QRV_Common::buildAssocInstance(const CIMName& assocClass, const String& assocName1,
                                           const String& assocName2,
                                           const CIMObjectPath& assocPath1,
                                           const CIMObjectPath& assocPath2, CIMClass& classSkeleton,
                                           const String& hostAddress1, const String& hostAddress2,
                                           const String& localAddress, String nameSpace) {
    return instanceOf(assocClass,
                      {{assocName1, withHost(assocPath1, hostAddress1)},
                       {assocName2, withHost(assocPath2, hostAddress2)}},
                      classSkeleton, localAddress, nameSpace);
}

CIMInstance QRV_Common::buildAssocInstance(const CIMName& assocClass, const String& assocName1,
                                           const String& assocName2,
                                           const CIMObjectPath& assocPath1,
                                           const CIMObjectPath& assocPath2, CIMClass& classSkeleton,
                                           const String& hostAddress, String nameSpace) {
    return buildAssocInstance(assocClass, assocName1, assocName2, assocPath1, assocPath2,
                              classSkeleton, hostAddress, hostAddress, hostAddress, nameSpace);
}

CIMInstance QRV_Common::buildAssocInstance(const CIMName& assocClass, const String& assocName1,
                                           const String& assocName2, const String& assocName3,
                                           const CIMObjectPath& assocPath1,
                                           const CIMObjectPath& assocPath2,
                                           const CIMObjectPath& assocPath3, CIMClass& classSkeleton,
                                           const String& hostAddress, String nameSpace) {
    return instanceOf(assocClass,
                      {{assocName1, withHost(assocPath1, hostAddress)},
                       {assocName2, withHost(assocPath2, hostAddress)},
                       {assocName3, withHost(assocPath3, hostAddress)}},
                      classSkeleton, hostAddress, nameSpace);
}

CIMObjectPath QRV_Common::buildDepAssocPath(const String& systemAddress, const CIMName& assocClass,
                                            const CIMObjectPath& antecedent,
                                            const CIMObjectPath& dependent) {
    return pathOf(assocClass, {{ANTECEDENT, antecedent}, {DEPENDENT, dependent}}, systemAddress,
                  QRV_NAMESPACE);
}

CIMInstance QRV_Common::buildDepAssocInstance(const String& systemAddress,
                                              const CIMName& assocClass,
                                              const CIMObjectPath& antecedent,
                                              const CIMObjectPath& dependent,
                                              CIMClass& classSkeleton) {
    return instanceOf(assocClass, {{ANTECEDENT, antecedent}, {DEPENDENT, dependent}}, classSkeleton,
                      systemAddress, QRV_NAMESPACE);
}

Boolean QRV_Common::_isInstanceValidReference(const CIMObjectPath& target, CIMInstance& instance,
                                              const String& role) {
    if (role.size() > 0) requireReference(instance, role);
    const PathMatcher wanted(target);
    return anyReference(instance, [&](const CIMName& name, const CIMObjectPath& path) {
        return isRole(role, name) && wanted.matches(withoutHostAndNamespace(path));
    });
}

Array<CIMInstance> QRV_Common::filterReferenceNames(
    const Array<CIMInstance>& targetAssociationInstanceList, const CIMObjectPath& objectName,
    const CIMName& resultClass, const String& role) {
    const CIMObjectPath target = withoutHostAndNamespace(objectName);
    Array<CIMInstance> passed;
    for (Uint32 i = 0; i < targetAssociationInstanceList.size(); ++i) {
        CIMInstance instance = targetAssociationInstanceList[i];
        if (!resultClass.isNull() && !resultClass.equal(instance.getClassName())) continue;
        if (_isInstanceValidReference(target, instance, role)) passed.append(instance);
    }
    return passed;
}

Array<CIMObjectPath> QRV_Common::filterAssocInstanceToTargetPaths(
    CIMInstance& assocInstance, const CIMObjectPath& targetObjectPath, Array<CIMName>& resultClass,
    String resultRole) {
    Array<CIMObjectPath> paths;
    forEachFarEnd(assocInstance, targetObjectPath, resultClass, resultRole,
                  [&](const CIMObjectPath& path) { paths.append(path); });
    return paths;
}

Array<CIMInstance> QRV_Common::filterAssocInstanceToTargetInstances(
    CIMInstance& assocInstance, const CIMObjectPath& targetObjectPath,
    const Array<CIMInstance>& resultInstanceList, Array<CIMName>& resultClass, String resultRole) {
    Array<CIMInstance> instances;
    forEachFarEnd(assocInstance, targetObjectPath, resultClass, resultRole,
                  [&](const CIMObjectPath& path) {
                      const PathMatcher farEnd(path);
                      for (Uint32 i = 0; i < resultInstanceList.size(); ++i)
                          if (farEnd.matches(resultInstanceList[i].getPath()))
                              instances.append(resultInstanceList[i]);
                  });
    return instances;
}

}  // namespace Pegasus

#include "broker/StaticInstances.h"

#include <algorithm>
#include <string>

namespace cimserver {

using namespace Pegasus;

namespace {

CIMObjectPath local(const CIMObjectPath& path) {
    return CIMObjectPath(String(), CIMNamespaceName(), path.getClassName(), path.getKeyBindings());
}

[[noreturn]] void refuse(const CIMName& className) {
    throw CIMException(CIM_ERR_NOT_SUPPORTED,
                       String("no provider changes instances of ") + className.getString());
}

}  // namespace

const CIMInstance& StaticInstances::find(const CIMNamespaceName& nameSpace,
                                         const CIMObjectPath& path) const {
    const CIMObjectPath wanted = local(path);
    const auto& all = _repository.instances(nameSpace, path.getClassName());
    const auto found = std::find_if(all.begin(), all.end(), [&](const CIMInstance& instance) {
        return local(instance.getPath()) == wanted;
    });
    if (found == all.end()) throw CIMException(CIM_ERR_NOT_FOUND, wanted.toString());
    return *found;
}

CIMInstance StaticInstances::get(const CIMNamespaceName& nameSpace,
                                 const CIMObjectPath& path) const {
    return find(nameSpace, path).clone();
}

void StaticInstances::enumerate(const CIMNamespaceName& nameSpace, const CIMName& className,
                                const Sink<CIMInstance>& sink) const {
    for (const auto& instance : _repository.instances(nameSpace, className)) sink(instance.clone());
}

void StaticInstances::enumerateNames(const CIMNamespaceName& nameSpace, const CIMName& className,
                                     const Sink<CIMObjectPath>& sink) const {
    for (const auto& instance : _repository.instances(nameSpace, className))
        sink(instance.getPath());
}

void StaticInstances::refuseCreation(const CIMNamespaceName& nameSpace,
                                     const CIMName& className) const {
    if (_repository.resolvedClass(nameSpace, className).isAbstract())
        throw CIMException(CIM_ERR_FAILED, String("attempted to instantiate an abstract class ") +
                                               className.getString());
    refuse(className);
}

void StaticInstances::refuseChange(const CIMNamespaceName& nameSpace,
                                   const CIMObjectPath& path) const {
    find(nameSpace, path);
    refuse(path.getClassName());
}

}  // namespace cimserver

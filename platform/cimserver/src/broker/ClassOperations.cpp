#include "broker/ClassOperations.h"

namespace cimserver {

using namespace Pegasus;

CIMClass ClassOperations::get(const CIMNamespaceName& nameSpace, const CIMName& className,
                              bool localOnly, const Selection& selection) const {
    return _repository.getClass(nameSpace, className, localOnly, selection);
}

void ClassOperations::enumerate(const CIMNamespaceName& nameSpace, const CIMName& className,
                                bool deep, bool localOnly, const Selection& selection,
                                const Sink<CIMClass>& sink) const {
    enumerateNames(nameSpace, className, deep,
                   [&](const CIMName& name) { sink(get(nameSpace, name, localOnly, selection)); });
}

void ClassOperations::enumerateNames(const CIMNamespaceName& nameSpace, const CIMName& className,
                                     bool deep, const Sink<CIMName>& sink) const {
    for (const auto& child : _repository.children(nameSpace, className)) {
        if (!deep) {
            sink(child);
            continue;
        }
        for (const auto& name : _repository.classAndDescendants(nameSpace, child)) sink(name);
    }
}

}  // namespace cimserver

#include "broker/InstanceOperations.h"

#include "broker/FanOut.h"
#include "broker/PropertyLists.h"
#include "broker/ResponseHandlers.h"

#include <Pegasus/Provider/CIMInstanceProvider.h>

namespace cimserver {

using namespace Pegasus;

namespace {

bool hasOrigin(const CIMConstProperty& property) {
    return property.getPropagated() || !property.getClassOrigin().isNull();
}

bool anyHasOrigin(const CIMConstInstance& instance) {
    for (Uint32 i = 0; i != instance.getPropertyCount(); ++i)
        if (hasOrigin(instance.getProperty(i))) return true;
    return false;
}

/// Where a property comes from is the class's business: properties that were sent with an origin
/// lose it and go to the end.
CIMInstance withoutOrigins(const CIMInstance& instance) {
    if (!anyHasOrigin(instance)) return instance;
    CIMInstance copy = instance.clone();
    Uint32 position = 0;
    for (Uint32 left = copy.getPropertyCount(); left != 0; --left) {
        CIMProperty property = copy.getProperty(position);
        if (!hasOrigin(property)) {
            ++position;
            continue;
        }
        copy.removeProperty(position);
        property.setPropagated(false);
        property.setClassOrigin(CIMName());
        copy.addProperty(property);
    }
    return copy;
}

}  // namespace

std::optional<ProviderId> InstanceOperations::providerOf(const CIMNamespaceName& nameSpace,
                                                         const CIMName& className) const {
    _routes.requireClass(nameSpace, className, CIM_ERR_INVALID_CLASS);
    return _routes.registry.find(ProviderRegistry::Kind::Instance, nameSpace, className);
}

CIMInstance InstanceOperations::get(const OperationContext& context,
                                    const CIMNamespaceName& nameSpace, const CIMObjectPath& path,
                                    const Selection& selection) {
    const auto provider = providerOf(nameSpace, path.getClassName());
    if (!provider) return _static.get(nameSpace, path);
    SingleInstance handler;
    requireSuccess(_routes.call<CIMInstanceProvider>(*provider, handler, [&](auto& target) {
        target.getInstance(providerContext(context), _routes.forProvider(nameSpace, path),
                           selection.includeQualifiers, selection.includeClassOrigin,
                           withoutDuplicates(selection.propertyList), handler);
    }));
    return handler.result();
}

template <class AskProvider, class AskRepository>
void InstanceOperations::forClassTree(const CIMNamespaceName& nameSpace, const CIMName& className,
                                      AskProvider&& askProvider, AskRepository&& askRepository) {
    auto classes = _routes.repository.classAndDescendants(nameSpace, className);
    classes.front() = className;  // in the client's spelling
    FanOut answers;
    for (const auto& name : classes) {
        const auto provider =
            _routes.registry.find(ProviderRegistry::Kind::Instance, nameSpace, name);
        if (provider) {
            answers.take(askProvider(*provider, name));
        } else {
            askRepository(name);
            answers.answered();
        }
    }
    answers.finish();
}

void InstanceOperations::enumerate(const OperationContext& context,
                                   const CIMNamespaceName& nameSpace, const CIMName& className,
                                   const Selection& selection, const Sink<CIMInstance>& sink) {
    const auto properties = withoutDuplicates(selection.propertyList);
    forClassTree(
        nameSpace, className,
        [&](const ProviderId& provider, const CIMName& name) {
            InstanceStream handler(sink);
            return _routes.call<CIMInstanceProvider>(provider, handler, [&](auto& target) {
                target.enumerateInstances(
                    providerContext(context), _routes.forProvider(nameSpace, name),
                    selection.includeQualifiers, selection.includeClassOrigin, properties, handler);
            });
        },
        [&](const CIMName& name) { _static.enumerate(nameSpace, name, sink); });
}

void InstanceOperations::enumerateNames(const OperationContext& context,
                                        const CIMNamespaceName& nameSpace, const CIMName& className,
                                        const Sink<CIMObjectPath>& sink) {
    forClassTree(
        nameSpace, className,
        [&](const ProviderId& provider, const CIMName& name) {
            PathStream handler(sink);
            return _routes.call<CIMInstanceProvider>(provider, handler, [&](auto& target) {
                target.enumerateInstanceNames(providerContext(context),
                                              _routes.forProvider(nameSpace, name), handler);
            });
        },
        [&](const CIMName& name) { _static.enumerateNames(nameSpace, name, sink); });
}

CIMObjectPath InstanceOperations::create(const OperationContext& context,
                                         const CIMNamespaceName& nameSpace,
                                         const CIMInstance& instance) {
    const CIMName className = instance.getClassName();
    const auto provider = providerOf(nameSpace, className);
    if (!provider) _static.refuseCreation(nameSpace, className);
    SinglePath handler;
    requireSuccess(_routes.call<CIMInstanceProvider>(*provider, handler, [&](auto& target) {
        target.createInstance(providerContext(context), _routes.forProvider(nameSpace, className),
                              withoutOrigins(instance), handler);
    }));
    return handler.result();
}

void InstanceOperations::modify(const OperationContext& context, const CIMNamespaceName& nameSpace,
                                const CIMInstance& instance, const Selection& selection) {
    const CIMObjectPath path = instance.getPath();
    const auto provider = providerOf(nameSpace, path.getClassName());
    if (!provider) _static.refuseChange(nameSpace, path);
    AcknowledgeHandler handler;
    requireSuccess(_routes.call<CIMInstanceProvider>(*provider, handler, [&](auto& target) {
        target.modifyInstance(providerContext(context), _routes.forProvider(nameSpace, path),
                              withoutOrigins(instance), selection.includeQualifiers,
                              selection.propertyList, handler);
    }));
}

void InstanceOperations::remove(const OperationContext& context, const CIMNamespaceName& nameSpace,
                                const CIMObjectPath& path) {
    const auto provider = providerOf(nameSpace, path.getClassName());
    if (!provider) _static.refuseChange(nameSpace, path);
    AcknowledgeHandler handler;
    requireSuccess(_routes.call<CIMInstanceProvider>(*provider, handler, [&](auto& target) {
        target.deleteInstance(providerContext(context), _routes.forProvider(nameSpace, path),
                              handler);
    }));
}

}  // namespace cimserver

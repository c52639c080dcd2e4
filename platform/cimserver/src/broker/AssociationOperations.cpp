#include "broker/AssociationOperations.h"

#include "broker/FanOut.h"
#include "broker/PropertyLists.h"
#include "broker/ResponseHandlers.h"

#include <Pegasus/Provider/CIMAssociationProvider.h>

namespace cimserver {

using namespace Pegasus;

namespace {

bool isClassPath(const CIMObjectPath& path) {
    return path.getKeyBindings().size() == 0;
}

void requireRole(const char* parameter, const String& role) {
    if (role.size() != 0 && !CIMName::legal(role))
        throw CIMException(CIM_ERR_INVALID_PARAMETER, String(parameter) + String(" ") + role);
}

}  // namespace

void AssociationOperations::requireClassIfGiven(const CIMNamespaceName& nameSpace,
                                                const CIMName& className,
                                                CIMStatusCode code) const {
    if (!className.isNull()) _routes.requireClass(nameSpace, className, code);
}

void AssociationOperations::checkAssociators(const CIMNamespaceName& nameSpace,
                                             const CIMObjectPath& source,
                                             const AssociationFilter& filter) const {
    requireRole("role", filter.role);
    requireRole("resultrole", filter.resultRole);
    _routes.requireClass(nameSpace, source.getClassName(), CIM_ERR_INVALID_PARAMETER);
    requireClassIfGiven(nameSpace, filter.associationClass, CIM_ERR_INVALID_PARAMETER);
    requireClassIfGiven(nameSpace, filter.resultClass, CIM_ERR_INVALID_CLASS);
}

void AssociationOperations::checkReferences(const CIMNamespaceName& nameSpace,
                                            const CIMObjectPath& source,
                                            const AssociationFilter& filter) const {
    requireRole("role", filter.role);
    _routes.requireClass(nameSpace, source.getClassName(), CIM_ERR_INVALID_PARAMETER);
    requireClassIfGiven(nameSpace, filter.resultClass, CIM_ERR_INVALID_PARAMETER);
}

CIMObjectPath AssociationOperations::completed(const CIMNamespaceName& nameSpace,
                                               const CIMObjectPath& path) const {
    return Routes::isIncomplete(path) ? _routes.completed(nameSpace, path) : path;
}

/// The provider keeps its object as it is: what lacks something is copied.
CIMObject AssociationOperations::completed(const CIMNamespaceName& nameSpace,
                                           const CIMObject& object) const {
    if (!Routes::isIncomplete(object.getPath())) return object;
    CIMObject copy = object.clone();
    copy.setPath(_routes.completed(nameSpace, object.getPath()));
    return copy;
}

template <class Handler, class T, class Ask>
void AssociationOperations::askEach(const CIMNamespaceName& nameSpace, const CIMName& source,
                                    const CIMName& association, const Sink<T>& sink, Ask&& ask) {
    const Sink<T> completing = [&](const T& result) { sink(completed(nameSpace, result)); };
    FanOut answers;
    answers.answered();  // by the repository, which has no association instances
    for (const auto& name : _routes.repository.associationsOf(nameSpace, source, association)) {
        const auto provider =
            _routes.registry.find(ProviderRegistry::Kind::Association, nameSpace, name);
        if (!provider) continue;
        Handler handler(completing);
        answers.take(_routes.call<CIMAssociationProvider>(
            *provider, handler, [&](auto& target) { ask(target, name, handler); }));
    }
}

void AssociationOperations::deliverNames(const CIMNamespaceName& nameSpace,
                                         const std::vector<CIMName>& classes,
                                         const Sink<CIMObjectPath>& sink) const {
    for (const auto& name : classes) sink(_routes.forProvider(nameSpace, name));
}

void AssociationOperations::deliverClasses(const CIMNamespaceName& nameSpace,
                                           const std::vector<CIMName>& classes,
                                           const Selection& selection,
                                           const Sink<CIMObject>& sink) const {
    for (const auto& name : classes) {
        CIMObject object(_routes.repository.getClass(nameSpace, name, false, selection));
        object.setPath(_routes.forProvider(nameSpace, name));
        sink(object);
    }
}

void AssociationOperations::associators(const OperationContext& context,
                                        const CIMNamespaceName& nameSpace,
                                        const CIMObjectPath& source,
                                        const AssociationFilter& filter, const Selection& selection,
                                        const Sink<CIMObject>& sink) {
    checkAssociators(nameSpace, source, filter);
    const CIMName className = source.getClassName();
    if (isClassPath(source))
        return deliverClasses(nameSpace, _classes.associated(nameSpace, className, filter),
                              selection, sink);
    const auto properties = withoutDuplicates(selection.propertyList);
    askEach<ObjectStream>(nameSpace, className, filter.associationClass, sink,
                          [&](auto& target, const CIMName& association, auto& handler) {
                              target.associators(providerContext(context),
                                                 _routes.forProvider(nameSpace, source),
                                                 association, filter.resultClass, filter.role,
                                                 filter.resultRole, selection.includeQualifiers,
                                                 selection.includeClassOrigin, properties, handler);
                          });
}

void AssociationOperations::associatorNames(const OperationContext& context,
                                            const CIMNamespaceName& nameSpace,
                                            const CIMObjectPath& source,
                                            const AssociationFilter& filter,
                                            const Sink<CIMObjectPath>& sink) {
    checkAssociators(nameSpace, source, filter);
    const CIMName className = source.getClassName();
    if (isClassPath(source))
        return deliverNames(nameSpace, _classes.associated(nameSpace, className, filter), sink);
    askEach<PathStream>(nameSpace, className, filter.associationClass, sink,
                        [&](auto& target, const CIMName& association, auto& handler) {
                            target.associatorNames(providerContext(context),
                                                   _routes.forProvider(nameSpace, source),
                                                   association, filter.resultClass, filter.role,
                                                   filter.resultRole, handler);
                        });
}

void AssociationOperations::references(const OperationContext& context,
                                       const CIMNamespaceName& nameSpace,
                                       const CIMObjectPath& source, const AssociationFilter& filter,
                                       const Selection& selection, const Sink<CIMObject>& sink) {
    checkReferences(nameSpace, source, filter);
    const CIMName className = source.getClassName();
    if (isClassPath(source))
        return deliverClasses(
            nameSpace, _classes.referencing(nameSpace, className, filter.resultClass, filter.role),
            selection, sink);
    const auto properties = withoutDuplicates(selection.propertyList);
    askEach<ObjectStream>(nameSpace, className, filter.resultClass, sink,
                          [&](auto& target, const CIMName& association, auto& handler) {
                              target.references(providerContext(context),
                                                _routes.forProvider(nameSpace, source), association,
                                                filter.role, selection.includeQualifiers,
                                                selection.includeClassOrigin, properties, handler);
                          });
}

void AssociationOperations::referenceNames(const OperationContext& context,
                                           const CIMNamespaceName& nameSpace,
                                           const CIMObjectPath& source,
                                           const AssociationFilter& filter,
                                           const Sink<CIMObjectPath>& sink) {
    checkReferences(nameSpace, source, filter);
    const CIMName className = source.getClassName();
    if (isClassPath(source))
        return deliverNames(
            nameSpace, _classes.referencing(nameSpace, className, filter.resultClass, filter.role),
            sink);
    askEach<PathStream>(nameSpace, className, filter.resultClass, sink,
                        [&](auto& target, const CIMName& association, auto& handler) {
                            target.referenceNames(providerContext(context),
                                                  _routes.forProvider(nameSpace, source),
                                                  association, filter.role, handler);
                        });
}

}  // namespace cimserver

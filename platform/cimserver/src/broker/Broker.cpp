#include "broker/Broker.h"

#include "broker/AssociationOperations.h"
#include "broker/ClassOperations.h"
#include "broker/InstanceOperations.h"
#include "broker/MethodOperations.h"
#include "broker/PropertyLists.h"
#include "broker/Routes.h"
#include "broker/RunningOperations.h"

namespace cimserver {

using namespace Pegasus;

class Broker::Impl {
  public:
    Impl(const ClassRepository& repository, const Settings& settings, LocalServer& server)
        : routes{repository, ProviderRegistry(repository, settings.interop),
                 settings.hostName.c_str(), ProviderHost(settings.libraryDirectory, server)},
          classes(repository),
          instances(routes),
          associations(routes),
          methods(routes) {}

    RunningOperations running;
    Routes routes;
    ClassOperations classes;
    InstanceOperations instances;
    AssociationOperations associations;
    MethodOperations methods;
};

Broker::Broker(const ClassRepository& repository, const Settings& settings)
    : _impl(std::make_unique<Impl>(repository, settings, *this)) {
    setLocalServer(this);
}

Broker::~Broker() {
    _impl->running.drain();
    _impl->routes.host.terminateAll();
    if (localServer() == this) setLocalServer(nullptr);
}

CIMClass Broker::getClass(const Context&, const Namespace& nameSpace, const CIMName& className,
                          bool localOnly, const Selection& selection) {
    const auto running = _impl->running.begin();
    return _impl->classes.get(nameSpace, className, localOnly, selection);
}

void Broker::enumerateClasses(const Context&, const Namespace& nameSpace, const CIMName& className,
                              bool deep, bool localOnly, const Selection& selection,
                              const Sink<CIMClass>& sink) {
    const auto running = _impl->running.begin();
    _impl->classes.enumerate(nameSpace, className, deep, localOnly, selection, sink);
}

void Broker::enumerateClassNames(const Context&, const Namespace& nameSpace,
                                 const CIMName& className, bool deep, const Sink<CIMName>& sink) {
    const auto running = _impl->running.begin();
    _impl->classes.enumerateNames(nameSpace, className, deep, sink);
}

CIMInstance Broker::getInstance(const Context& context, const Namespace& nameSpace,
                                const Path& path, const Selection& selection) {
    const auto running = _impl->running.begin();
    return _impl->instances.get(context, nameSpace, path, selection);
}

void Broker::enumerateInstances(const Context& context, const Namespace& nameSpace,
                                const CIMName& className, const Selection& selection,
                                const Sink<CIMInstance>& sink) {
    const auto running = _impl->running.begin();
    _impl->instances.enumerate(context, nameSpace, className, selection, sink);
}

void Broker::enumerateInstanceNames(const Context& context, const Namespace& nameSpace,
                                    const CIMName& className, const Sink<Path>& sink) {
    const auto running = _impl->running.begin();
    _impl->instances.enumerateNames(context, nameSpace, className, sink);
}

Broker::Path Broker::createInstance(const Context& context, const Namespace& nameSpace,
                                    const CIMInstance& instance) {
    const auto running = _impl->running.begin();
    return _impl->instances.create(context, nameSpace, instance);
}

void Broker::modifyInstance(const Context& context, const Namespace& nameSpace,
                            const CIMInstance& instance, const Selection& selection) {
    const auto running = _impl->running.begin();
    _impl->instances.modify(context, nameSpace, instance, selection);
}

void Broker::deleteInstance(const Context& context, const Namespace& nameSpace, const Path& path) {
    const auto running = _impl->running.begin();
    _impl->instances.remove(context, nameSpace, path);
}

void Broker::associators(const Context& context, const Namespace& nameSpace, const Path& source,
                         const AssociationFilter& filter, const Selection& selection,
                         const Sink<CIMObject>& sink) {
    const auto running = _impl->running.begin();
    _impl->associations.associators(context, nameSpace, source, filter, selection, sink);
}

void Broker::associatorNames(const Context& context, const Namespace& nameSpace, const Path& source,
                             const AssociationFilter& filter, const Sink<Path>& sink) {
    const auto running = _impl->running.begin();
    _impl->associations.associatorNames(context, nameSpace, source, filter, sink);
}

void Broker::references(const Context& context, const Namespace& nameSpace, const Path& source,
                        const AssociationFilter& filter, const Selection& selection,
                        const Sink<CIMObject>& sink) {
    const auto running = _impl->running.begin();
    _impl->associations.references(context, nameSpace, source, filter, selection, sink);
}

void Broker::referenceNames(const Context& context, const Namespace& nameSpace, const Path& source,
                            const AssociationFilter& filter, const Sink<Path>& sink) {
    const auto running = _impl->running.begin();
    _impl->associations.referenceNames(context, nameSpace, source, filter, sink);
}

CIMValue Broker::invokeMethod(const Context& context, const Namespace& nameSpace, const Path& path,
                              const CIMName& method, const Array<CIMParamValue>& in,
                              Array<CIMParamValue>& out) {
    const auto running = _impl->running.begin();
    return _impl->methods.invoke(context, nameSpace, path, method, in, out);
}

CIMPropertyList Broker::propertyListFor(const Namespace& nameSpace, const CIMName& className,
                                        bool deepInheritance, const CIMPropertyList& list) {
    if (deepInheritance || !list.isNull()) return list;
    return allProperties(_impl->routes.repository.resolvedClass(nameSpace, className));
}

}  // namespace cimserver

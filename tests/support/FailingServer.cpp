#include "FailingServer.h"

#include <Pegasus/Common/Exception.h>
#include <qrvapi_control.h>

#include <stdexcept>

using namespace Pegasus;
using cimserver::AssociationFilter;
using cimserver::Selection;
using cimserver::Sink;

namespace qrvtest {

void FailingServer::fail(unsigned nth, Failure failure) {
    _calls.clear();
    _failAt = nth;
    _failure = failure;
}

template <class Call>
auto FailingServer::pass(const std::string& name, Call call) -> decltype(call()) {
    if (qrvapi::control::heldByThisThread().gate)
        throw std::logic_error("up-called under the access gate");
    _calls.push_back(name);
    if (_calls.size() != _failAt) return call();
    if (_failure == Failure::refusal) throw CIMException(CIM_ERR_FAILED, "up-call failed");
    if (_failure == Failure::foreign) throw std::runtime_error("broken");
    return decltype(call())();
}

CIMClass FailingServer::getClass(const Context& context, const Namespace& nameSpace,
                                 const CIMName& name, bool localOnly, const Selection& selection) {
    return pass("getClass",
                [&] { return _server.getClass(context, nameSpace, name, localOnly, selection); });
}

void FailingServer::enumerateClasses(const Context& context, const Namespace& nameSpace,
                                     const CIMName& name, bool deep, bool localOnly,
                                     const Selection& selection, const Sink<CIMClass>& sink) {
    _server.enumerateClasses(context, nameSpace, name, deep, localOnly, selection, sink);
}

void FailingServer::enumerateClassNames(const Context& context, const Namespace& nameSpace,
                                        const CIMName& name, bool deep, const Sink<CIMName>& sink) {
    _server.enumerateClassNames(context, nameSpace, name, deep, sink);
}

CIMInstance FailingServer::getInstance(const Context& context, const Namespace& nameSpace,
                                       const Path& path, const Selection& selection) {
    return pass("getInstance",
                [&] { return _server.getInstance(context, nameSpace, path, selection); });
}

void FailingServer::enumerateInstances(const Context& context, const Namespace& nameSpace,
                                       const CIMName& name, const Selection& selection,
                                       const Sink<CIMInstance>& sink) {
    pass("enumerateInstances",
         [&] { _server.enumerateInstances(context, nameSpace, name, selection, sink); });
}

void FailingServer::enumerateInstanceNames(const Context& context, const Namespace& nameSpace,
                                           const CIMName& name, const Sink<Path>& sink) {
    pass("enumerateInstanceNames",
         [&] { _server.enumerateInstanceNames(context, nameSpace, name, sink); });
}

FailingServer::Path FailingServer::createInstance(const Context& context,
                                                  const Namespace& nameSpace,
                                                  const CIMInstance& instance) {
    return _server.createInstance(context, nameSpace, instance);
}

void FailingServer::modifyInstance(const Context& context, const Namespace& nameSpace,
                                   const CIMInstance& instance, const Selection& selection) {
    _server.modifyInstance(context, nameSpace, instance, selection);
}

void FailingServer::deleteInstance(const Context& context, const Namespace& nameSpace,
                                   const Path& path) {
    _server.deleteInstance(context, nameSpace, path);
}

void FailingServer::associators(const Context& context, const Namespace& nameSpace,
                                const Path& path, const AssociationFilter& filter,
                                const Selection& selection, const Sink<CIMObject>& sink) {
    _server.associators(context, nameSpace, path, filter, selection, sink);
}

void FailingServer::associatorNames(const Context& context, const Namespace& nameSpace,
                                    const Path& path, const AssociationFilter& filter,
                                    const Sink<Path>& sink) {
    _server.associatorNames(context, nameSpace, path, filter, sink);
}

void FailingServer::references(const Context& context, const Namespace& nameSpace, const Path& path,
                               const AssociationFilter& filter, const Selection& selection,
                               const Sink<CIMObject>& sink) {
    _server.references(context, nameSpace, path, filter, selection, sink);
}

void FailingServer::referenceNames(const Context& context, const Namespace& nameSpace,
                                   const Path& path, const AssociationFilter& filter,
                                   const Sink<Path>& sink) {
    _server.referenceNames(context, nameSpace, path, filter, sink);
}

CIMValue FailingServer::invokeMethod(const Context& context, const Namespace& nameSpace,
                                     const Path& path, const CIMName& method,
                                     const Array<CIMParamValue>& in, Array<CIMParamValue>& out) {
    const std::string name = static_cast<const char*>(method.getString().getCString());
    return pass("invokeMethod " + name,
                [&] { return _server.invokeMethod(context, nameSpace, path, method, in, out); });
}

CIMPropertyList FailingServer::propertyListFor(const Namespace& nameSpace, const CIMName& name,
                                               bool deepInheritance, const CIMPropertyList& list) {
    return _server.propertyListFor(nameSpace, name, deepInheritance, list);
}

}  // namespace qrvtest

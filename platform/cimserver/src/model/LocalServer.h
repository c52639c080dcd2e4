// What a CIMOMHandle and a local CIMClient talk to inside the server's own process.
#pragma once

#include <Pegasus/Common/CIMClass.h>
#include <Pegasus/Common/CIMInstance.h>
#include <Pegasus/Common/CIMObject.h>
#include <Pegasus/Common/CIMParamValue.h>
#include <Pegasus/Common/OperationContext.h>

#include <functional>

namespace cimserver {

/// Which parts of an instance or class a request asks for. The defaults ask for everything.
struct Selection {
    bool includeQualifiers = false;
    bool includeClassOrigin = false;
    Pegasus::CIMPropertyList propertyList;  ///< null: all properties
};

/// The four filters of an association request. A null name or an empty role filters nothing.
/// `references` and `referenceNames` use `resultClass` and `role` only.
struct AssociationFilter {
    Pegasus::CIMName associationClass;
    Pegasus::CIMName resultClass;
    Pegasus::String role;
    Pegasus::String resultRole;
};

/// Receives the results of an operation in order, while the operation runs, on the thread that
/// asked. It may throw to end the operation; what it throws reaches the caller of the operation.
template <class T>
using Sink = std::function<void(const T&)>;

/// The operations of the server, for callers in its own process and for the wire.
///
/// Every function may be called on any thread, also from within a provider's operation. Failures
/// are Pegasus::CIMException with a bare message (no status name in front). The identity of the
/// call is the context's IdentityContainer; a context without one speaks for the server itself
/// (empty user). Results are what the provider delivered: neither filtered by property list nor
/// stripped of hosts.
class LocalServer {
  public:
    virtual ~LocalServer() = default;

    using Context = Pegasus::OperationContext;
    using Namespace = Pegasus::CIMNamespaceName;
    using Path = Pegasus::CIMObjectPath;

    virtual Pegasus::CIMClass getClass(const Context&, const Namespace&, const Pegasus::CIMName&,
                                       bool localOnly, const Selection&) = 0;
    virtual void enumerateClasses(const Context&, const Namespace&, const Pegasus::CIMName&,
                                  bool deep, bool localOnly, const Selection&,
                                  const Sink<Pegasus::CIMClass>&) = 0;
    virtual void enumerateClassNames(const Context&, const Namespace&, const Pegasus::CIMName&,
                                     bool deep, const Sink<Pegasus::CIMName>&) = 0;

    /// An instance that nobody delivered comes back uninitialized.
    virtual Pegasus::CIMInstance getInstance(const Context&, const Namespace&, const Path&,
                                             const Selection&) = 0;
    virtual void enumerateInstances(const Context&, const Namespace&, const Pegasus::CIMName&,
                                    const Selection&, const Sink<Pegasus::CIMInstance>&) = 0;
    virtual void enumerateInstanceNames(const Context&, const Namespace&, const Pegasus::CIMName&,
                                        const Sink<Path>&) = 0;
    virtual Path createInstance(const Context&, const Namespace&, const Pegasus::CIMInstance&) = 0;
    virtual void modifyInstance(const Context&, const Namespace&, const Pegasus::CIMInstance&,
                                const Selection&) = 0;
    virtual void deleteInstance(const Context&, const Namespace&, const Path&) = 0;

    virtual void associators(const Context&, const Namespace&, const Path&,
                             const AssociationFilter&, const Selection&,
                             const Sink<Pegasus::CIMObject>&) = 0;
    virtual void associatorNames(const Context&, const Namespace&, const Path&,
                                 const AssociationFilter&, const Sink<Path>&) = 0;
    virtual void references(const Context&, const Namespace&, const Path&, const AssociationFilter&,
                            const Selection&, const Sink<Pegasus::CIMObject>&) = 0;
    virtual void referenceNames(const Context&, const Namespace&, const Path&,
                                const AssociationFilter&, const Sink<Path>&) = 0;

    virtual Pegasus::CIMValue invokeMethod(const Context&, const Namespace&, const Path&,
                                           const Pegasus::CIMName& method,
                                           const Pegasus::Array<Pegasus::CIMParamValue>& in,
                                           Pegasus::Array<Pegasus::CIMParamValue>& out) = 0;

    /// The property list that DeepInheritance=false with a null list stands for: all properties of
    /// the class, inherited ones included. In every other case the list itself.
    virtual Pegasus::CIMPropertyList propertyListFor(const Namespace&, const Pegasus::CIMName&,
                                                     bool deepInheritance,
                                                     const Pegasus::CIMPropertyList&) = 0;
};

/// Makes `server` the one that local CIMClients of this process connect to; null takes it away
/// again. The caller keeps the ownership and takes the server away before it destroys it.
PEGASUS_EXPORT void setLocalServer(LocalServer* server);

/// The server set last, or null.
PEGASUS_EXPORT LocalServer* localServer();

}  // namespace cimserver

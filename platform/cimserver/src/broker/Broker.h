// Hands every operation to the provider that answers for its class.
#pragma once

#include "broker/ClassRepository.h"
#include "broker/ProviderRegistry.h"
#include "model/LocalServer.h"

#include <memory>
#include <string>

namespace cimserver {

/// The server without its wire: class reads from the repository, everything else to providers, with
/// superclass fan-out and association routing. Providers are loaded and initialized when first
/// asked for and run on the caller's thread; any number of operations run at once.
class Broker final : public LocalServer {
  public:
    struct Settings {
        std::string hostName;          ///< the host that objects' paths are completed with
        std::string libraryDirectory;  ///< where provider libraries are
        Pegasus::CIMNamespaceName interop{"root/PG_InterOp"};
    };

    /// Both references must outlive the broker. Becomes the process's local server.
    Broker(const ClassRepository& repository, const Settings& settings);

    /// Waits for running operations, then terminates every provider and closes its library.
    ~Broker() override;

    // LocalServer
    Pegasus::CIMClass getClass(const Context&, const Namespace&, const Pegasus::CIMName&,
                               bool localOnly, const Selection&) override;
    void enumerateClasses(const Context&, const Namespace&, const Pegasus::CIMName&, bool deep,
                          bool localOnly, const Selection&,
                          const Sink<Pegasus::CIMClass>&) override;
    void enumerateClassNames(const Context&, const Namespace&, const Pegasus::CIMName&, bool deep,
                             const Sink<Pegasus::CIMName>&) override;
    Pegasus::CIMInstance getInstance(const Context&, const Namespace&, const Path&,
                                     const Selection&) override;
    void enumerateInstances(const Context&, const Namespace&, const Pegasus::CIMName&,
                            const Selection&, const Sink<Pegasus::CIMInstance>&) override;
    void enumerateInstanceNames(const Context&, const Namespace&, const Pegasus::CIMName&,
                                const Sink<Path>&) override;
    Path createInstance(const Context&, const Namespace&, const Pegasus::CIMInstance&) override;
    void modifyInstance(const Context&, const Namespace&, const Pegasus::CIMInstance&,
                        const Selection&) override;
    void deleteInstance(const Context&, const Namespace&, const Path&) override;
    void associators(const Context&, const Namespace&, const Path&, const AssociationFilter&,
                     const Selection&, const Sink<Pegasus::CIMObject>&) override;
    void associatorNames(const Context&, const Namespace&, const Path&, const AssociationFilter&,
                         const Sink<Path>&) override;
    void references(const Context&, const Namespace&, const Path&, const AssociationFilter&,
                    const Selection&, const Sink<Pegasus::CIMObject>&) override;
    void referenceNames(const Context&, const Namespace&, const Path&, const AssociationFilter&,
                        const Sink<Path>&) override;
    Pegasus::CIMValue invokeMethod(const Context&, const Namespace&, const Path&,
                                   const Pegasus::CIMName& method,
                                   const Pegasus::Array<Pegasus::CIMParamValue>& in,
                                   Pegasus::Array<Pegasus::CIMParamValue>& out) override;
    Pegasus::CIMPropertyList propertyListFor(const Namespace&, const Pegasus::CIMName&,
                                             bool deepInheritance,
                                             const Pegasus::CIMPropertyList&) override;

  private:
    class Impl;
    std::unique_ptr<Impl> _impl;
};

}  // namespace cimserver

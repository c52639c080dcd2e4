// A LocalServer that delivers what it is told to and remembers what it was asked.
#pragma once

#include "model/LocalServer.h"

#include <functional>
#include <string>
#include <vector>

namespace cimserver::test {

class ScriptedServer final : public LocalServer {
  public:
    std::string call;  ///< the last operation with its arguments, as text

    std::vector<Pegasus::CIMObject>
        objects;                    ///< what every operation delivers, one after the other
    std::size_t rounds = 1;         ///< how often an enumeration delivers them all
    std::function<void()> failure;  ///< called after the delivery; may throw
    /// Takes the place of enumerateInstances, which then remembers nothing and may run on many
    /// threads.
    std::function<void(const Pegasus::CIMName&, const Sink<Pegasus::CIMInstance>&)> enumerate;
    Pegasus::CIMValue returnValue;
    Pegasus::Array<Pegasus::CIMParamValue> outParameters;

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
    template <class T, class Convert>
    void deliver(const Sink<T>&, Convert);
    void fail() const;
    Pegasus::CIMInstance first() const;
};

}  // namespace cimserver::test

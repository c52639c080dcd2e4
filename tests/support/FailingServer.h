// A server between a provider and the real one, on which up-calls fail.
#pragma once

#include "model/LocalServer.h"

#include <string>
#include <vector>

namespace qrvtest {

/// Passes every call on to another server, counts those that a provider makes, and lets one fail.
class FailingServer final : public cimserver::LocalServer {
  public:
    enum class Failure {
        refusal,  ///< CIM_ERR_FAILED "up-call failed"
        foreign,  ///< an exception that isn't Pegasus's own
        nothing   ///< no failure, but an answer without anything in it
    };

    /// `server` outlives this one.
    explicit FailingServer(cimserver::LocalServer& server) : _server(server) {}

    /// Forgets the calls so far; the `nth` from now on fails, or none when it is 0.
    void fail(unsigned nth, Failure failure);

    /// The calls so far, in order: the function, and for a method its name.
    const std::vector<std::string>& calls() const { return _calls; }

    Pegasus::CIMClass getClass(const Context&, const Namespace&, const Pegasus::CIMName&,
                               bool localOnly, const cimserver::Selection&) override;
    void enumerateClasses(const Context&, const Namespace&, const Pegasus::CIMName&, bool deep,
                          bool localOnly, const cimserver::Selection&,
                          const cimserver::Sink<Pegasus::CIMClass>&) override;
    void enumerateClassNames(const Context&, const Namespace&, const Pegasus::CIMName&, bool deep,
                             const cimserver::Sink<Pegasus::CIMName>&) override;
    Pegasus::CIMInstance getInstance(const Context&, const Namespace&, const Path&,
                                     const cimserver::Selection&) override;
    void enumerateInstances(const Context&, const Namespace&, const Pegasus::CIMName&,
                            const cimserver::Selection&,
                            const cimserver::Sink<Pegasus::CIMInstance>&) override;
    void enumerateInstanceNames(const Context&, const Namespace&, const Pegasus::CIMName&,
                                const cimserver::Sink<Path>&) override;
    Path createInstance(const Context&, const Namespace&, const Pegasus::CIMInstance&) override;
    void modifyInstance(const Context&, const Namespace&, const Pegasus::CIMInstance&,
                        const cimserver::Selection&) override;
    void deleteInstance(const Context&, const Namespace&, const Path&) override;
    void associators(const Context&, const Namespace&, const Path&,
                     const cimserver::AssociationFilter&, const cimserver::Selection&,
                     const cimserver::Sink<Pegasus::CIMObject>&) override;
    void associatorNames(const Context&, const Namespace&, const Path&,
                         const cimserver::AssociationFilter&,
                         const cimserver::Sink<Path>&) override;
    void references(const Context&, const Namespace&, const Path&,
                    const cimserver::AssociationFilter&, const cimserver::Selection&,
                    const cimserver::Sink<Pegasus::CIMObject>&) override;
    void referenceNames(const Context&, const Namespace&, const Path&,
                        const cimserver::AssociationFilter&, const cimserver::Sink<Path>&) override;
    Pegasus::CIMValue invokeMethod(const Context&, const Namespace&, const Path&,
                                   const Pegasus::CIMName& method,
                                   const Pegasus::Array<Pegasus::CIMParamValue>& in,
                                   Pegasus::Array<Pegasus::CIMParamValue>& out) override;
    Pegasus::CIMPropertyList propertyListFor(const Namespace&, const Pegasus::CIMName&,
                                             bool deepInheritance,
                                             const Pegasus::CIMPropertyList&) override;

  private:
    /// Counts a call and makes it, unless it is the one that fails.
    template <class Call>
    auto pass(const std::string& name, Call call) -> decltype(call());

    cimserver::LocalServer& _server;
    std::vector<std::string> _calls;
    unsigned _failAt = 0;
    Failure _failure = Failure::refusal;
};

}  // namespace qrvtest

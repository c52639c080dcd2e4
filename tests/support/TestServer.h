// The server without its wire, over the real module and siblings, as tests use it.
#pragma once

#include "broker/Broker.h"

#include <Pegasus/Common/OperationContext.h>
#include <Pegasus/Provider/CIMAssociationProvider.h>
#include <Pegasus/Provider/CIMInstanceProvider.h>
#include <Pegasus/Provider/CIMMethodProvider.h>
#include <Pegasus/Provider/CIMOMHandle.h>

#include <functional>
#include <memory>
#include <string>

namespace qrvtest {

/// The classes of the schema and a broker over them. One at a time in a process.
class TestServer {
  public:
    TestServer();

    cimserver::Broker& broker() { return *_broker; }

  private:
    cimserver::ClassRepository _repository;
    std::unique_ptr<cimserver::Broker> _broker;
};

/// The context of a request by `user` from 192.0.2.7.
Pegasus::OperationContext requestOf(const std::string& user);

/// A provider made by the entry of the module, or else of a sibling library, and initialized,
/// called without a broker in between. Its up-calls go to `server`.
class ModuleProvider {
  public:
    ModuleProvider(const std::string& name, cimserver::LocalServer& server);
    ModuleProvider(const ModuleProvider&) = delete;
    ModuleProvider& operator=(const ModuleProvider&) = delete;

    Pegasus::CIMInstanceProvider& instances();
    Pegasus::CIMAssociationProvider& associations();
    Pegasus::CIMMethodProvider& methods();

  private:
    Pegasus::CIMOMHandle _handle;
    std::unique_ptr<Pegasus::CIMProvider, void (*)(Pegasus::CIMProvider*)> _provider;
};

/// Asks the module's entry for a provider; null when it has none of that name.
Pegasus::CIMProvider* createFromModule(const std::string& name);

/// What an operation ended with: "" for success, else the status code and text as in "6 Not
/// there."; "foreign" and the text for an exception that isn't Pegasus's own.
std::string outcomeOf(const std::function<void()>& operation);

}  // namespace qrvtest

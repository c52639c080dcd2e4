// The fixture of tests that call a provider of the module directly, over a small array.
#pragma once

#include <gmock/gmock.h>
#include <qrvapi_control.h>

#include <memory>
#include <string>
#include <vector>

#include "Handlers.h"
#include "TestServer.h"

namespace qrvtest {

/// An array of three hosts with FC, iSCSI and SAS paths, a path seen on two ports, and paths of no
/// host; its users are admin, viewer and stranger. Log lines up to level 3 are kept, not written.
class ModuleTest : public testing::Test {
  protected:
    ModuleTest();
    ~ModuleTest() override;

    TestServer& server() { return _server; }
    cimserver::Broker& broker() { return _server.broker(); }

    /// Gives back the array as it was at first.
    static void reloadArray();

    /// Adds VLUNs for alpha and beta over FC and iSCSI. Beta can't be asked for the initiator that
    /// one of them names, and one is a template of an empty volume set.
    static void exportVolumes();

    /// The lines logged since the last call, as "level text".
    std::vector<std::string> logged();

    /// A request for one instance or for all of a class, as admin: what the handler saw.
    std::vector<std::string> getInstance(Pegasus::CIMInstanceProvider&, const std::string& path,
                                         const Pegasus::CIMPropertyList& = {});
    std::vector<std::string> enumerateInstances(Pegasus::CIMInstanceProvider&,
                                                const std::string& className,
                                                const Pegasus::CIMPropertyList& = {});
    std::vector<std::string> enumerateInstanceNames(Pegasus::CIMInstanceProvider&,
                                                    const std::string& className);

    /// What the handler of a completed answer saw, for these texts delivered.
    static std::vector<std::string> answer(std::vector<std::string> delivered);

  private:
    TestServer _server;
};

/// The path of a class or instance in root/qrv, on the server's own host.
Pegasus::CIMObjectPath pathOf(const std::string& classAndKeys);

/// A property list of these names.
Pegasus::CIMPropertyList properties(std::initializer_list<const char*> names);

}  // namespace qrvtest

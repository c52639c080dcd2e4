// The fixture of tests of the methods that change hosts.
#pragma once

#include "MethodCalls.h"
#include "ModuleTest.h"

namespace qrvtest {

/// Calls the methods of the one service, over an array that is empty at first.
class MethodTest : public ModuleTest {
  protected:
    MethodTest() { setHosts(""); }

    /// The outcome of a call: its failure, or what the handler saw, each on a line. Every entry
    /// that the call leaves in the array's event log names the method, the user and the client.
    std::string call(const std::string& method, const Parameters&,
                     const std::string& user = "admin", const std::string& path = SERVICE);

    /// The same with parameters as text.
    std::string call(const std::string& method, const std::string& parameters) {
        return call(method, given(parameters));
    }

    /// The outcome of a call that succeeds, with an output parameter if one is given.
    static std::string done(const std::string& outParameter = "");

    /// What the last call changed, from the event log: "FUNCTION host NAME: WORDS".
    const std::vector<std::string>& changes() const { return _changes; }

    ModuleProvider& service() { return _service; }

  private:
    void readEvents(std::size_t begin, const std::string& method, const std::string& user);

    ModuleProvider _service{"QRV_StorageHardwareIDManagementServiceProvider", broker()};
    std::vector<std::string> _changes;
};

}  // namespace qrvtest

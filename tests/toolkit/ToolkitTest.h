// The fixture of tests that call the toolkit over an array, without a server.
#pragma once

#include <gmock/gmock.h>
#include <qrvapi_control.h>

#include <cstdlib>
#include <string>
#include <vector>

/// An empty array whose log is kept up to level 3 and not written.
class ToolkitTest : public testing::Test {
  protected:
    using Texts = std::vector<std::string>;

    ToolkitTest() {
        qrvapi::control::reset();
        qrvapi::control::setLogLevel(0);
        qrvapi::control::captureLog(3);
        qrvapi::control::recordCalls(true);
    }
    ~ToolkitTest() override {
        qrvapi::control::recordCalls(false);
        qrvapi::control::clearFaults();
        qrvapi::control::setLogLevel(2);
    }

    /// The lines logged since the last call, as "level text".
    static Texts logged() {
        Texts lines;
        for (const auto& line : qrvapi::control::takeLogLines())
            lines.push_back(std::to_string(line.level) + " " + line.text);
        return lines;
    }

    /// Replaces the facts of the system by made-up ones and these members of a JSON object.
    static void setSystem(const std::string& members) {
        qrvapi::control::setSystem(R"({"name": "a", "hostName": "a.example", "id": 1, "type": 3,
                                       "serial": "1", "model": "S100", "nodes": 2, )" +
                                   members + "}");
    }
};

/// The whole of a child process: the checks, and whether they held.
template <class Checks>
[[noreturn]] void runAndExit(Checks checks) {
    checks();
    std::exit(testing::Test::HasFailure() ? 1 : 0);
}

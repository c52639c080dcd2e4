// The command line of the server program.
#pragma once

#include "http/HttpServer.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace cimserver {

struct Options {
    std::uint16_t port = 5988;
    std::vector<std::string> listen{"localhost"};
    std::string array;      ///< the scenario file of the array to serve
    std::string schema;     ///< directory of the MOF files
    std::string providers;  ///< directory of the provider libraries
    int logLevel = 2;
    HttpSettings http;
};

/// Either what the command line asks for or, when there is nothing to serve (help, version, a
/// mistake, all of them reported already), the exit code.
struct CommandLine {
    std::optional<Options> options;
    int exitCode = 0;
};

CommandLine parseCommandLine(int argc, char** argv);

}  // namespace cimserver

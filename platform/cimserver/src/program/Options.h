// The command line of the server program.
#pragma once

#include "http/HttpServer.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace cimserver {

struct Options {
    std::optional<std::uint16_t> port;  ///< the usual one of the protocol when it isn't given
    std::vector<std::string> listen{"localhost"};
    std::string array;        ///< the scenario file of the array to serve
    std::string schema;       ///< directory of the MOF files
    std::string providers;    ///< directory of the provider libraries
    std::string certificate;  ///< file; with it the server speaks TLS only
    std::string key;          ///< file
    std::string user;         ///< whom to become when root has started the server
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

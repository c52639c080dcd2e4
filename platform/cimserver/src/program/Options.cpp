#include "program/Options.h"

#include <CLI/CLI.hpp>

#include <filesystem>

namespace cimserver {

namespace fs = std::filesystem;

namespace {

constexpr int kUsageError = 2;

// The first of the places that exists, seen from the directory of this program: the build tree and
// an installation lay things out differently. The last one when none does, for the error text.
std::string findBeside(const fs::path& program, std::initializer_list<const char*> places) {
    fs::path candidate;
    for (const char* place : places) {
        candidate = (program / place).lexically_normal();
        std::error_code unreadable;
        if (fs::exists(candidate, unreadable)) break;
    }
    return candidate.string();
}

fs::path programDirectory() {
    std::error_code unreadable;
    return fs::read_symlink("/proc/self/exe", unreadable).parent_path();
}

Options defaults() {
    const fs::path program = programDirectory();
    Options options;
    options.schema = findBeside(program, {"../schema", "../share/qrv/schema"});
    options.providers = findBeside(program, {QRV_LIBRARIES_FROM_PROGRAM, "../lib"});
    options.user = "nobody";
    options.array = findBeside(program, {"../share/qrvapi/sample.json"});
    return options;
}

void addPlaces(CLI::App& app, Options& options) {
    app.add_option("-p,--port", options.port, "TCP port; 0 takes a free one")
        ->check(CLI::Range(0, 65535))
        ->default_str("5988, with TLS 5989");
    app.add_option("-l,--listen", options.listen,
                   "address or host name to listen at; may be repeated")
        ->capture_default_str();
    app.add_option("-a,--array", options.array, "scenario file of the array to serve")
        ->envname("QRVAPI_SCENARIO")
        ->capture_default_str();
    app.add_option("--schema", options.schema, "directory of the MOF files")->capture_default_str();
    app.add_option("--providers", options.providers, "directory of the provider libraries")
        ->capture_default_str();
    app.add_option("--log-level", options.logLevel, "0 (nothing), 2 (errors) to 4 (everything)")
        ->check(CLI::Range(0, 4))
        ->capture_default_str();
}

void addProtection(CLI::App& app, Options& options) {
    const auto add = [&](const char* name, std::string& value, const char* text) {
        return app.add_option(name, value, text)->group("Protection");
    };
    auto* certificate = add("--tls-certificate", options.certificate,
                            "PEM file of the certificate and its chain; with it the server speaks "
                            "HTTPS only (TLS 1.2 and 1.3)");
    auto* key = add("--tls-key", options.key, "PEM file of the certificate's private key");
    certificate->needs(key);
    key->needs(certificate);
    add("--user", options.user,
        "whom to become once the port is open, when root starts the server (root: stay so)")
        ->envname("QRV_CIMSERVER_USER")
        ->capture_default_str();
    app.add_flag("--insecure", options.http.insecure,
                 "lets other machines reach the server without TLS")
        ->group("Protection");
}

void addSeconds(CLI::App& app, const char* name, std::chrono::milliseconds& time,
                const char* text) {
    app.add_option_function<double>(
           name,
           [&time](double seconds) {
               time = std::chrono::milliseconds(static_cast<long>(seconds * 1000));
           },
           text)
        ->check(CLI::Range(0.01, 86400.0))
        ->default_str(std::to_string(time.count() / 1000))
        ->type_name("SECONDS")
        ->group("Limits");
}

void addCount(CLI::App& app, const char* name, std::size_t& count, std::size_t most,
              const char* text) {
    app.add_option(name, count, text)
        ->check(CLI::Range(std::size_t(1), most))
        ->capture_default_str()
        ->group("Limits");
}

void addLimits(CLI::App& app, HttpSettings& http) {
    addCount(app, "-t,--threads", http.workers, 256, "operations that run at once");
    addCount(app, "--max-connections", http.maxConnections, 100'000, "connections at once");
    addCount(app, "--max-client-connections", http.maxConnectionsPerClient, 100'000,
             "connections from one address at once, or one /64 of IPv6");
    addCount(app, "--max-header", http.maxHeaderBytes, 1 << 20, "bytes of an HTTP header");
    addCount(app, "--max-body", http.maxBodyBytes, 256 << 20, "bytes of a request's body");
    addSeconds(app, "--request-timeout", http.requestTimeout,
               "from a request's first byte to its last");
    addSeconds(app, "--write-timeout", http.writeTimeout, "for a part of an answer to be taken");
    addCount(app, "--min-rate", http.minBytesPerSecond, 1 << 30,
             "bytes of an answer that are to be taken in a second on average");
    addSeconds(app, "--idle-timeout", http.idleTimeout, "between two requests of a connection");
    addSeconds(app, "--stop-grace", http.stopGrace, "for requests in flight when the server stops");
}

}  // namespace

CommandLine parseCommandLine(int argc, char** argv) {
    Options options = defaults();
    CLI::App app("Serves the CIM classes of a storage array as CIM-XML over HTTP.",
                 "qrv-cimserver");
    app.set_version_flag("--version", "qrv-cimserver " QRV_VERSION);
    app.footer(
        "The clients' users and passwords are those of the array's scenario.\n"
        "SIGTERM, SIGINT and SIGHUP stop the server after the requests in flight; a second one at "
        "once.\n"
        "Exit status: 0 stopped, 1 cannot serve, 2 wrong usage.");
    addPlaces(app, options);
    addProtection(app, options);
    addLimits(app, options.http);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& outcome) {
        return {std::nullopt, app.exit(outcome) == 0 ? 0 : kUsageError};
    }
    return {options, 0};
}

}  // namespace cimserver

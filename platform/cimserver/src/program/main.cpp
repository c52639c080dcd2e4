// The CIM server: classes from MOF, providers from libraries, a simulated array behind them, and
// HTTP.
#include "broker/Broker.h"
#include "broker/ProviderLibrary.h"
#include "cimxml/Utf8.h"
#include "http/CimService.h"
#include "http/HttpServer.h"
#include "http/Tls.h"
#include "model/HostName.h"
#include "mof/MofReader.h"
#include "program/Options.h"
#include "program/Privileges.h"

#include <Pegasus/Common/Exception.h>
#include <malloc.h>
#include <qrvapi_control.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace cimserver {

namespace {

const char* const kInterop = "root/PG_InterOp";

void readSchema(ClassRepository& repository, const std::filesystem::path& directory) {
    MofReader reader(repository);
    reader.readFile(directory / "interop.mof", kInterop);
    reader.readFile(directory / "root_qrv.mof", "root/qrv");
    reader.readFile(directory / "root_PG_Internal.mof", "root/PG_Internal");
    reader.readFile(directory / "registration.mof", kInterop);
}

std::string textProperty(const Pegasus::CIMInstance& instance, const char* name) {
    Pegasus::String text;
    const Pegasus::Uint32 index = instance.findProperty(name);
    if (index != PEG_NOT_FOUND) instance.getProperty(index).getValue().get(text);
    return toUtf8(text);
}

// Each worker would keep a heap of its own, and in it what its largest operation has once needed.
void shareHeaps() {
    mallopt(M_ARENA_MAX, 2);
}

// Opens the registered libraries, so that what is missing is told now and not to the first client.
// One that can't be opened fails the requests that need it; a server without any isn't started.
std::vector<ProviderLibrary> openLibraries(const ClassRepository& repository,
                                           const std::string& directory) {
    std::vector<ProviderLibrary> libraries;
    for (const auto& module : repository.instances(kInterop, "PG_ProviderModule")) {
        const ProviderId id{textProperty(module, "Name"), textProperty(module, "Location"), {}};
        try {
            libraries.emplace_back(directory, id);
        } catch (const Pegasus::Exception& error) {
            std::cerr << "qrv-cimserver: " << toUtf8(error.getMessage()) << " (in " << directory
                      << ")" << std::endl;
        }
    }
    if (libraries.empty()) throw std::runtime_error("no provider module can be loaded");
    return libraries;
}

std::shared_ptr<boost::asio::ssl::context> tlsOf(const Options& options) {
    if (options.certificate.empty()) return nullptr;
    return makeTlsContext(options.certificate, options.key);
}

// Gives the URLs.
std::vector<std::string> listen(HttpServer& server, const Options& options) {
    const std::uint16_t usualPort = options.certificate.empty() ? 5988 : 5989;
    std::vector<std::string> urls;
    for (const std::string& host : options.listen) {
        for (std::string& url : server.listen(host, options.port.value_or(usualPort)))
            urls.push_back(std::move(url));
    }
    return urls;
}

// Whoever started the server may wait for the last line.
void announce(const std::vector<std::string>& urls) {
    for (const std::string& url : urls) std::cout << "Listening at " << url << std::endl;
    std::cout << "Ready." << std::endl;
}

int serve(Options options) {
    std::signal(SIGPIPE, SIG_IGN);  // whoever reads the log may go
    forbidNewRights();
    shareHeaps();
    options.http.realm = std::string(ownHostName().getCString());
    qrvapi::control::setLogLevel(options.logLevel);
    qrvapi::control::loadScenarioFile(options.array);

    ClassRepository repository;
    readSchema(repository, options.schema);
    const auto libraries = openLibraries(repository, options.providers);
    Broker::Settings settings;
    settings.hostName = options.http.realm;
    settings.libraryDirectory = options.providers;
    settings.interop = Pegasus::CIMNamespaceName(kInterop);
    Broker broker(repository, settings);

    const CimService service(broker, XmlLimits());
    HttpServer server(service, {qrvapi::control::authenticate, qrvapi::control::arraysSoFar},
                      options.http, tlsOf(options));
    server.stopOnSignals();
    const auto urls = listen(server, options);
    leaveRoot(options.user);
    announce(urls);
    if (server.run()) return 0;
    std::cerr << "qrv-cimserver: operations still run in a provider; leaving without it\n";
    std::_Exit(1);
}

}  // namespace

}  // namespace cimserver

int main(int argc, char** argv) {
    const cimserver::CommandLine commandLine = cimserver::parseCommandLine(argc, argv);
    if (!commandLine.options) return commandLine.exitCode;
    try {
        return cimserver::serve(*commandLine.options);
    } catch (const Pegasus::Exception& error) {
        std::cerr << "qrv-cimserver: " << error.getMessage().getCString() << '\n';
    } catch (const std::exception& error) {
        std::cerr << "qrv-cimserver: " << error.what() << '\n';
    }
    return 1;
}

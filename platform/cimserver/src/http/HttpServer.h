// Listens, and serves CIM-XML over HTTP/1.1.
#pragma once

#include "http/Authenticator.h"
#include "http/CimService.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace boost::asio::ssl {
class context;
}

namespace cimserver {

/// What clients may take of this server.
struct HttpSettings {
    std::string realm = "localhost";  ///< told to clients that have to authenticate
    std::size_t workers = 8;          ///< operations that run at once
    std::size_t maxConnections = 256;
    std::size_t maxConnectionsPerClient = 128;  ///< from one address, or one /64 of IPv6
    std::size_t maxHeaderBytes = 16 << 10;
    std::size_t maxBodyBytes = 4 << 20;
    std::chrono::milliseconds requestTimeout{30'000};  ///< from a request's first byte to its last
    std::chrono::milliseconds writeTimeout{30'000};    ///< for a part of an answer to be taken
    std::size_t minBytesPerSecond = 16 << 10;  ///< of an answer; who is slower uses up the timeout
    std::chrono::milliseconds idleTimeout{300'000};  ///< between two requests
    std::chrono::milliseconds stopGrace{10'000};  ///< for requests in flight when the server stops
    bool insecure = false;  ///< may listen beyond this machine without authentication or TLS
};

/// An HTTP server for one CimService.
///
/// One thread, the one that calls run(), accepts connections, reads requests and writes responses;
/// a pool of workers runs operations. A connection has one request in flight at a time.
class HttpServer {
  public:
    /// `service` must outlive the server. With a context, all connections are encrypted.
    HttpServer(const CimService& service, Authenticator authenticator, HttpSettings settings,
               std::shared_ptr<boost::asio::ssl::context> tls = nullptr);
    ~HttpServer();

    /// Listens at all addresses of a host name; port 0 takes a free one, the same for all
    /// addresses. Addresses at which it listens already are passed over. Gives the new URLs. Throws
    /// std::runtime_error with the address and the reason when it cannot, or when others could
    /// reach it unprotected and the settings don't allow that.
    std::vector<std::string> listen(const std::string& host, std::uint16_t port);

    /// Serves until stop() or until one of the signals that stopOnSignals() has named. Then it
    /// finishes the requests in flight, for as long as the settings allow, and breaks off the
    /// others. False when operations still hang in a provider: their threads cannot be ended, so
    /// only the process can.
    bool run();

    /// Ends run(). May be called on any thread.
    void stop();

    /// Lets SIGTERM, SIGINT and SIGHUP end run(); the second of them ends it without grace.
    void stopOnSignals();

  private:
    class Impl;
    std::unique_ptr<Impl> _impl;
};

}  // namespace cimserver

#include "http/HttpServer.h"

#include "http/ClientNetwork.h"
#include "http/Session.h"
#include "http/TlsProtocol.h"

#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/ip/v6_only.hpp>
#include <boost/asio/signal_set.hpp>
#include <boost/asio/steady_timer.hpp>
#include <boost/asio/thread_pool.hpp>

#include <algorithm>
#include <csignal>
#include <memory>
#include <stdexcept>
#include <unordered_map>

namespace cimserver {

namespace asio = boost::asio;
using asio::ip::tcp;
using Error = boost::system::error_code;

namespace {

// After that, workers that still run hang in a provider.
constexpr std::chrono::seconds kUnwindTime{3};
// The pause when the process has no descriptor left for a connection.
constexpr std::chrono::milliseconds kAcceptPause{100};

std::string describe(const tcp::endpoint& endpoint) {
    const auto address = endpoint.address();
    const std::string host =
        address.is_v6() ? "[" + address.to_string() + "]" : address.to_string();
    return host + ":" + std::to_string(endpoint.port());
}

std::runtime_error cannotListen(const std::string& where, const Error& error) {
    return std::runtime_error("cannot listen on " + where + ": " + error.message());
}

// An address of a name that this machine doesn't have, such as ::1 without IPv6.
bool isMissingAddress(const Error& error) {
    return error == asio::error::address_family_not_supported ||
           error == boost::system::errc::address_not_available;
}

}  // namespace

class HttpServer::Impl final : private SessionHost {
  public:
    Impl(const CimService& service, Authenticator authenticator, HttpSettings settings,
         std::shared_ptr<asio::ssl::context> tls)
        : _service(service),
          _settings(std::move(settings)),
          _tls(std::move(tls)),
          _gatekeeper(_io, std::move(authenticator)),
          _workers(_settings.workers),
          _signals(_io),
          _timer(_io) {}

    // No worker may be left waiting for its client.
    ~Impl() override {
        forEach([](const auto& connection) { connection->cut(); });
        _workers.stop();
    }

    std::vector<std::string> listen(const std::string& host, std::uint16_t port) {
        std::vector<std::string> urls;
        bool listens = false;
        Error error;
        tcp::resolver resolver(_io);
        const auto found =
            resolver.resolve(host, std::to_string(port), tcp::resolver::passive, error);
        if (error) throw cannotListen(host, error);
        for (const auto& entry : found) {
            tcp::endpoint endpoint = entry.endpoint();
            endpoint.port(port);
            const bool known = listensAt(endpoint);
            listens = listens || known;
            if (known) continue;
            refuseExposure(endpoint);
            tcp::acceptor acceptor = bind(endpoint, error);
            if (error && isMissingAddress(error)) continue;
            if (error) throw cannotListen(describe(endpoint), error);
            listens = true;
            port = acceptor.local_endpoint().port();
            urls.push_back((_tls ? "https://" : "http://") + describe(acceptor.local_endpoint()) +
                           "/");
            _acceptors.push_back(std::make_shared<tcp::acceptor>(std::move(acceptor)));
        }
        if (!listens) throw cannotListen(host, error);
        return urls;
    }

    bool run() {
        serve();
        if (_hanging) return false;
        _workers.join();
        return true;
    }

    void stop() {
        asio::post(_io, [this] { beginStop(); });
    }

    void stopOnSignals() {
        _signals.add(SIGTERM);
        _signals.add(SIGINT);
        _signals.add(SIGHUP);
        awaitSignal();
    }

  private:
    using Acceptor = std::shared_ptr<tcp::acceptor>;  ///< shared with whoever waits for a client

    const HttpSettings& settings() const override { return _settings; }
    const CimService& service() const override { return _service; }
    Gatekeeper& gatekeeper() override { return _gatekeeper; }
    asio::thread_pool& workers() override { return _workers; }

    void ended(Connection& connection) override {
        const auto entry = _connections.find(&connection);
        const auto client = _clients.find(entry->second.network);
        if (client != _clients.end() && --client->second == 0) _clients.erase(client);
        _connections.erase(entry);
        endWhenIdle();
        acceptAgain();
    }

    // A handler that throws, for want of memory most likely, costs its own connection.
    void serve() {
        for (;;) {
            try {
                acceptAgain();
                _io.run();
                return;
            } catch (...) {
                endAbandoned();
            }
        }
    }

    void endAbandoned() {
        forEach([](const auto& connection) {
            if (connection->abandoned(connection.use_count() - 2)) connection->cut();
        });
        endWhenIdle();
    }

    bool listensAt(const tcp::endpoint& endpoint) const {
        return std::any_of(_acceptors.begin(), _acceptors.end(), [&](const auto& acceptor) {
            return acceptor->local_endpoint() == endpoint;
        });
    }

    void refuseExposure(const tcp::endpoint& endpoint) const {
        if (_settings.insecure || endpoint.address().is_loopback()) return;
        if (_tls && !_gatekeeper.admitsEverybody()) return;
        throw std::runtime_error("cannot listen on " + describe(endpoint) +
                                 ": other machines could reach it unprotected; it takes " +
                                 (_tls ? "authentication" : "--tls-certificate and --tls-key") +
                                 ", or --insecure");
    }

    tcp::acceptor bind(const tcp::endpoint& endpoint, Error& error) {
        tcp::acceptor acceptor(_io);
        acceptor.open(endpoint.protocol(), error);
        if (!error) acceptor.set_option(tcp::acceptor::reuse_address(true), error);
        if (!error && endpoint.address().is_v6())
            acceptor.set_option(asio::ip::v6_only(true), error);
        if (!error) acceptor.bind(endpoint, error);
        if (!error) acceptor.listen(tcp::acceptor::max_listen_connections, error);
        return acceptor;
    }

    void accept(const Acceptor& acceptor) {
        acceptor->async_accept([this, acceptor](Error error, tcp::socket socket) {
            if (_stopping) return;
            if (error) return acceptLater(acceptor);
            accept(acceptor);
            admit(std::move(socket));
        });
    }

    void acceptLater(const Acceptor& acceptor) {
        auto pause = std::make_shared<asio::steady_timer>(_io, kAcceptPause);
        pause->async_wait([this, pause, acceptor](Error) {
            if (!_stopping) accept(acceptor);
        });
    }

    // Waits for clients where nobody does: at first, and when a handler has thrown. Without memory
    // for that, it is tried again when a connection ends.
    void acceptAgain() noexcept try {
        if (_stopping) return;
        for (const Acceptor& acceptor : _acceptors) {
            if (acceptor.use_count() == 1) accept(acceptor);
        }
    } catch (...) {
    }

    void admit(tcp::socket socket) {
        Error error;
        const auto peer = socket.remote_endpoint(error);
        if (error) return;
        const std::string client = peer.address().to_string();
        const std::string network = networkOf(client);
        if (!hasRoomFor(network)) return turnAway(socket);
        socket.set_option(tcp::no_delay(true), error);
        boost::beast::tcp_stream stream(std::move(socket));
        if (_tls) return open(TlsStream(std::move(stream), *_tls), client, network);
        open(std::move(stream), client, network);
    }

    bool hasRoomFor(const std::string& network) const {
        if (_connections.size() >= _settings.maxConnections) return false;
        const auto found = _clients.find(network);
        return found == _clients.end() || found->second < _settings.maxConnectionsPerClient;
    }

    template <class Stream>
    void open(Stream stream, const std::string& client, const std::string& network) {
        auto session = std::make_shared<Session<Stream>>(std::move(stream), client,
                                                         static_cast<SessionHost&>(*this));
        _connections.emplace(session.get(), Entry{session, network});
        ++_clients[network];
        session->start();
    }

    // The few bytes fit into the socket's buffer; if not, the client sees the end of the connection
    // only.
    void turnAway(tcp::socket& socket) const {
        if (_tls) return;  // it would have to shake hands first
        static const std::string text =
            refusalText(Refusal(503, "", "Too many connections."), true);
        Error ignored;
        socket.non_blocking(true, ignored);
        socket.write_some(asio::buffer(text), ignored);
    }

    void awaitSignal() {
        _signals.async_wait([this](Error error, int) {
            if (error) return;
            awaitSignal();
            if (_stopping) return cutAll();
            beginStop();
        });
    }

    void beginStop() {
        if (std::exchange(_stopping, true)) return;
        for (const Acceptor& acceptor : _acceptors) {
            Error ignored;
            acceptor->close(ignored);
        }
        forEach([](const auto& connection) { connection->finish(); });
        after(_settings.stopGrace, [this] { cutAll(); });
        endWhenIdle();
    }

    void cutAll() {
        if (std::exchange(_cutting, true)) return;
        forEach([](const auto& connection) { connection->cut(); });
        after(kUnwindTime, [this] {
            _hanging = true;
            _io.stop();
        });
        endWhenIdle();
    }

    template <class Action>
    void after(std::chrono::milliseconds time, Action action) {
        _timer.expires_after(time);
        _timer.async_wait([action](Error error) {
            if (!error) action();
        });
    }

    // With nothing left to wait for, run() returns.
    void endWhenIdle() {
        if (!_stopping || !_connections.empty()) return;
        Error ignored;
        _signals.cancel(ignored);
        _timer.cancel();
        _gatekeeper.close();
    }

    // Connections that end take themselves out of the map.
    template <class Action>
    void forEach(Action action) {
        for (auto next = _connections.begin(); next != _connections.end();) {
            const auto connection = (next++)->second.connection;
            action(connection);
        }
    }

    struct Entry {
        std::shared_ptr<Connection> connection;
        std::string network;  ///< the client's
    };

    const CimService& _service;
    HttpSettings _settings;
    std::shared_ptr<asio::ssl::context> _tls;
    asio::io_context _io{1};
    Gatekeeper _gatekeeper;
    asio::thread_pool _workers;
    std::vector<Acceptor> _acceptors;
    std::unordered_map<Connection*, Entry> _connections;
    std::unordered_map<std::string, std::size_t> _clients;  ///< connections of each network
    asio::signal_set _signals;
    asio::steady_timer _timer;
    bool _stopping = false;
    bool _cutting = false;
    bool _hanging = false;
};

HttpServer::HttpServer(const CimService& service, Authenticator authenticator,
                       HttpSettings settings, std::shared_ptr<asio::ssl::context> tls)
    : _impl(std::make_unique<Impl>(service, std::move(authenticator), std::move(settings),
                                   std::move(tls))) {}

HttpServer::~HttpServer() = default;

std::vector<std::string> HttpServer::listen(const std::string& host, std::uint16_t port) {
    return _impl->listen(host, port);
}

bool HttpServer::run() {
    return _impl->run();
}

void HttpServer::stop() {
    _impl->stop();
}

void HttpServer::stopOnSignals() {
    _impl->stopOnSignals();
}

}  // namespace cimserver

// One client's connection.
#pragma once

#include "http/CallHead.h"
#include "http/CimService.h"
#include "http/FrameSlot.h"
#include "http/Gatekeeper.h"
#include "http/HttpServer.h"
#include "http/Response.h"

#include <boost/asio/post.hpp>
#include <boost/asio/thread_pool.hpp>
#include <boost/asio/write.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/core/tcp_stream.hpp>
#include <boost/beast/http/parser.hpp>
#include <boost/beast/http/read.hpp>

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace cimserver {

/// A connection as the server sees it. All functions are called on the I/O thread.
class Connection {
  public:
    virtual ~Connection() = default;

    virtual void start() = 0;

    /// Ends the connection when no request is in flight, else after its answer.
    virtual void finish() = 0;

    /// Ends the connection now. A worker that still produces an answer gets ClientGone.
    virtual void cut() = 0;

    /// The client's IP address.
    virtual const std::string& peer() const = 0;
};

/// What connections need of their server.
class SessionHost {
  public:
    virtual ~SessionHost() = default;

    virtual const HttpSettings& settings() const = 0;
    virtual const CimService& service() const = 0;
    virtual Gatekeeper& gatekeeper() = 0;
    virtual boost::asio::thread_pool& workers() = 0;

    /// The connection has ended and no worker is busy for it; the host forgets it.
    virtual void ended(Connection&) = 0;
};

/// How a kind of stream begins and ends. A stream that encrypts shakes hands here and says
/// good-bye.
template <class Stream>
struct StreamProtocol;

template <>
struct StreamProtocol<boost::beast::tcp_stream> {
    /// Gets the stream ready for the first request and calls `then` with the outcome.
    template <class Then>
    static void begin(boost::beast::tcp_stream&, Then then) {
        then(boost::beast::error_code());
    }

    /// Tells the client that nothing follows, and calls `then`.
    template <class Then>
    static void endSending(boost::beast::tcp_stream& stream, Then then) {
        boost::beast::error_code ignored;
        stream.socket().shutdown(boost::asio::socket_base::shutdown_send, ignored);
        then();
    }
};

/// Reads requests, has workers run them and sends what they produce. Everything but write() happens
/// on the I/O thread. `Stream` is a boost::beast::tcp_stream or a layer on top of one.
template <class Stream>
class Session final : public Connection,
                      private ByteSink,
                      public std::enable_shared_from_this<Session<Stream>> {
  public:
    Session(Stream stream, std::string peer, SessionHost& host)
        : _stream(std::move(stream)),
          _peer(std::move(peer)),
          _host(host),
          _buffer(settings().maxHeaderBytes + kBodyReadBytes) {}

    void start() override {
        lowest().expires_after(settings().requestTimeout);
        StreamProtocol<Stream>::begin(_stream, [self = self()](Error error) {
            if (error) return self->end();
            self->awaitRequest();
        });
    }

    void finish() override {
        _finishing = true;
        if (_idle) end();
    }

    void cut() override {
        _slot.breakOff();
        end();
    }

    const std::string& peer() const override { return _peer; }

  private:
    using Error = boost::beast::error_code;
    using Clock = std::chrono::steady_clock;
    using Self = std::shared_ptr<Session>;
    using Parser = boost::beast::http::request_parser<boost::beast::http::string_body>;

    // A client that isn't known yet gets no more room than this for what it sends.
    static constexpr std::size_t kAnonymousBodyBytes = 64 << 10;
    static constexpr std::size_t kReadBytes = 16 << 10;
    static constexpr std::size_t kBodyReadBytes = 64 << 10;
    static constexpr std::chrono::seconds kDrainTime{2};
    static constexpr std::size_t kDrainBytes = 8 << 20;

    Self self() { return this->shared_from_this(); }
    auto& lowest() { return boost::beast::get_lowest_layer(_stream); }
    const HttpSettings& settings() const { return _host.settings(); }

    // A client that nobody knows may not keep a connection for nothing.
    void awaitRequest() {
        if (_finishing) return end();
        _patience = settings().writeTimeout;
        _parser.emplace();
        _parser->header_limit(static_cast<std::uint32_t>(settings().maxHeaderBytes));
        _parser->body_limit(settings().maxBodyBytes);
        if (_buffer.size() != 0) return readHead();
        _idle = true;
        lowest().expires_after(_caller ? settings().idleTimeout : settings().requestTimeout);
        _stream.async_read_some(_buffer.prepare(kReadBytes),
                                [self = self()](Error error, std::size_t n) {
                                    if (error) return self->end();
                                    self->_buffer.commit(n);
                                    self->readHead();
                                });
    }

    void readHead() {
        _idle = false;
        lowest().expires_after(settings().requestTimeout);
        boost::beast::http::async_read_header(
            _stream, _buffer, *_parser,
            [self = self()](Error error, std::size_t) { self->onHead(error); });
    }

    // What was read before a cut may be told after it, here and in onVerdict() and onBody().
    void onHead(Error error) {
        if (_ended) return;
        if (error) return refuseUnreadable(error);
        const auto credentials = readCredentials(head());
        _host.gatekeeper().check(
            credentials, _peer,
            [self = self(), user = credentials ? credentials->user : std::string()](
                Verdict verdict) { self->onVerdict(verdict, user); });
    }

    void onVerdict(Verdict verdict, const std::string& user) {
        if (_ended) return;
        lowest().expires_after(settings().requestTimeout);
        if (verdict == Verdict::Busy) return refuse(503, "Too many failed logins.");
        const bool expects =
            boost::beast::iequals(head()[boost::beast::http::field::expect], "100-continue");
        _caller.reset();
        if (verdict == Verdict::Admitted) {
            _caller = Caller{_host.gatekeeper().admitsEverybody() ? std::string() : user, _peer};
        } else {
            const std::uint64_t length = _parser->content_length().value_or(0);
            if (expects || length > kAnonymousBodyBytes) return respondUnauthorized(true);
            _parser->body_limit(kAnonymousBodyBytes);
        }
        if (expects) return sendContinue();
        readBody();
    }

    const HttpRequestHead& head() const { return _parser->get(); }

    void sendContinue() {
        static const std::string text = "HTTP/1.1 100 Continue\r\n\r\n";
        boost::asio::async_write(_stream, boost::asio::buffer(text),
                                 [self = self()](Error error, std::size_t) {
                                     if (error) return self->end();
                                     self->readBody();
                                 });
    }

    void readBody() {
        boost::beast::http::async_read(
            _stream, _buffer, *_parser,
            [self = self()](Error error, std::size_t) { self->onBody(error); });
    }

    void onBody(Error error) {
        if (_ended) return;
        if (error) return refuseUnreadable(error);
        lowest().expires_never();
        if (!_caller) return respondUnauthorized(!_parser->get().keep_alive());
        serve();
    }

    void serve() {
        _serving = true;
        abortive(true);
        auto request = std::make_shared<const HttpRequest>(_parser->release());
        boost::asio::post(_host.workers(), [self = self(), request = std::move(request)]() mutable {
            const Ending ending = self->produce(*request);
            auto executor = self->_stream.get_executor();
            boost::asio::post(executor,
                              [self = std::move(self), ending] { self->onProduced(ending); });
        });
    }

    // On a worker.
    Ending produce(const HttpRequest& request) {
        try {
            return _host.service().serve(request, *_caller, *this, _finishing);
        } catch (...) {  // the client has gone, or there is no memory even to refuse
            return Ending::Reset;
        }
    }

    // On a worker.
    void write(Frame frame) override {
        _slot.put(std::move(frame));
        boost::asio::post(_stream.get_executor(), [self = self()] { self->sendFrame(); });
    }

    void sendFrame() {
        if (_ended) return _slot.breakOff();
        const Frame& frame = _slot.frame();
        const std::array<boost::asio::const_buffer, 3> buffers{boost::asio::buffer(frame.head),
                                                               boost::asio::buffer(frame.body),
                                                               boost::asio::buffer(frame.tail)};
        lowest().expires_after(_patience);
        boost::asio::async_write(
            _stream, buffers,
            [self = self(), begin = Clock::now()](Error error, std::size_t bytes) {
                self->onSent(error, bytes, Clock::now() - begin);
            });
    }

    void onSent(Error error, std::size_t bytes, Clock::duration took) {
        if (error) {
            _slot.breakOff();
        } else {
            spendPatience(bytes, took);
            _slot.release();
        }
        if (_ending) answered();
    }

    // Each part of an answer may take the time that is left of the timeout, and what a client takes
    // fast enough gives it back: one that reads slowly all along doesn't hold its worker for long.
    void spendPatience(std::size_t bytes, Clock::duration took) {
        const std::chrono::milliseconds earned(1000 * bytes / settings().minBytesPerSecond);
        _patience = std::clamp<Clock::duration>(
            _patience - took + earned, std::chrono::milliseconds(1), settings().writeTimeout);
    }

    void onProduced(Ending ending) {
        _serving = false;
        if (_ended) return _host.ended(*this);
        _ending = ending;
        if (_slot.empty()) answered();
    }

    // The whole answer is on its way or will never be.
    void answered() {
        const Ending ending = *std::exchange(_ending, std::nullopt);
        if (_slot.broken() || ending == Ending::Reset) return end();
        abortive(false);
        if (ending == Ending::Close) return drain();
        awaitRequest();
    }

    /// Sends a response that no worker produces.
    void respond(std::string text, bool close) {
        _ending = close ? Ending::Close : Ending::KeepAlive;
        _slot.put({std::move(text), {}, {}});
        sendFrame();
    }

    void respondUnauthorized(bool close) {
        const bool had = readCredentials(head()).has_value();
        respond(unauthorizedText(settings().realm, had, close), close);
    }

    // What cannot be read as HTTP leaves the connection in a state that nobody knows: it ends.
    void refuseUnreadable(Error error) {
        using E = boost::beast::http::error;
        if (error == E::header_limit || error == E::buffer_overflow)
            return refuse(431, "Header too large.");
        if (error == E::body_limit) return refuse(413, "Request too large.");
        if (error == E::bad_method || error == E::bad_target || error == E::bad_version) {
            return refuse(501, "Not an HTTP request.");
        }
        const bool gone = error == E::end_of_stream || error == E::partial_message;
        const bool malformed =
            error.category() == boost::beast::http::make_error_code(E::bad_field).category();
        if (malformed && !gone) return refuse(400, error.message().c_str());
        end();
    }

    void refuse(unsigned status, const char* detail) {
        respond(refusalText(Refusal(status, "", detail), true), true);
    }

    // Closes so that the client still gets what was sent: closing with unread bytes would take it
    // back.
    void drain() {
        lowest().expires_after(kDrainTime);
        _idle = true;
        StreamProtocol<Stream>::endSending(_stream, [self = self()] { self->discard(); });
    }

    void discard() {
        _buffer.clear();
        lowest().async_read_some(_buffer.prepare(kReadBytes),
                                 [self = self()](Error error, std::size_t n) {
                                     self->_discarded += n;
                                     if (error || self->_discarded > kDrainBytes)
                                         return self->end();
                                     self->discard();
                                 });
    }

    // While an answer is under way, whatever closes the connection (a timeout, a stop, the end of
    // the process) does it so that the client cannot take that for the end of the answer.
    void abortive(bool on) {
        Error ignored;
        lowest().socket().set_option(boost::asio::socket_base::linger(on, 0), ignored);
    }

    // The host keeps the session for as long as a worker is busy for it.
    void end() {
        if (std::exchange(_ended, true)) return;
        lowest().close();
        if (!_serving) _host.ended(*this);
    }

    Stream _stream;
    std::string _peer;
    SessionHost& _host;
    boost::beast::flat_buffer _buffer;  // bounded: a line that never ends is kept in it
    std::optional<Parser> _parser;
    std::optional<Caller> _caller;
    FrameSlot _slot;
    std::optional<Ending> _ending;  ///< set once nobody will put another frame
    std::atomic<bool> _finishing{false};
    Clock::duration _patience{};  ///< how long the client may let an answer wait
    std::size_t _discarded = 0;
    bool _idle = false;     ///< nothing of a request has come yet
    bool _serving = false;  ///< a worker runs the request
    bool _ended = false;
};

}  // namespace cimserver

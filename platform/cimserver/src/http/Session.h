// One client's connection.
#pragma once

#include "http/CallHead.h"
#include "http/CimService.h"
#include "http/FrameSlot.h"
#include "http/Gatekeeper.h"
#include "http/HttpServer.h"
#include "http/PostPatiently.h"
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
#include <string_view>
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

    /// Whether nobody will go on with the connection when so many hold it beside the server: a
    /// handler has thrown.
    virtual bool abandoned(long holders) const = 0;
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
        if (_mayEnd) end();
    }

    void cut() override {
        _slot.breakOff();
        end();
    }

    // The worker is one, and who sends its frame another. A worker that is just about to ask for
    // the sending is taken for abandoned too, and loses its client.
    bool abandoned(long holders) const override {
        return holders < (_serving && !_slot.empty() ? 2 : 1);
    }

  private:
    using Error = boost::beast::error_code;
    using Clock = std::chrono::steady_clock;
    using Self = std::shared_ptr<Session>;
    using Parser = boost::beast::http::request_parser<boost::beast::http::string_body>;

    /// A request on its way to a worker and back.
    struct Job {
        Self session;
        HttpRequest request;
        Ending ending = Ending::Reset;
    };

    // A client that isn't known yet gets no more room than this for what it sends.
    static constexpr std::size_t kAnonymousBodyBytes = 64 << 10;
    static constexpr std::size_t kReadBytes = 16 << 10;
    static constexpr std::size_t kBodyReadBytes = 64 << 10;
    static constexpr std::chrono::seconds kDrainTime{2};
    static constexpr std::size_t kDrainBytes = 8 << 20;

    Self self() { return this->shared_from_this(); }
    auto& lowest() { return boost::beast::get_lowest_layer(_stream); }
    const HttpSettings& settings() const { return _host.settings(); }

    void awaitRequest() {
        if (_finishing) return end();
        _patience = settings().writeTimeout;
        _bareHead.reset();
        _parser.emplace();
        _parser->header_limit(static_cast<std::uint32_t>(settings().maxHeaderBytes));
        _parser->body_limit(settings().maxBodyBytes);
        _mayEnd = true;
        // A client that nobody knows may not keep a connection for nothing.
        lowest().expires_after(_caller ? settings().idleTimeout : settings().requestTimeout);
        awaitFirstByte();
    }

    // Empty lines before a request mean nothing.
    void awaitFirstByte() {
        skipEmptyLines();
        if (_buffer.size() != 0) return readHead();
        _stream.async_read_some(_buffer.prepare(kReadBytes),
                                [self = self()](Error error, std::size_t n) {
                                    if (error) return self->end();
                                    self->_buffer.commit(n);
                                    self->awaitFirstByte();
                                });
    }

    void skipEmptyLines() {
        const boost::asio::const_buffer bytes = _buffer.data();
        const std::string_view text(static_cast<const char*>(bytes.data()), bytes.size());
        _buffer.consume(std::min(text.find_first_not_of("\r\n"), text.size()));
    }

    void readHead() {
        _deadline = Clock::now() + settings().requestTimeout;
        lowest().expires_at(_deadline);
        boost::beast::http::async_read_header(
            _stream, _buffer, *_parser,
            [self = self()](Error error, std::size_t) { self->onHead(error); });
    }

    // What was read before a cut may be told after it, here and in onVerdict() and onBody().
    void onHead(Error error) {
        if (_ended) return;
        if (error) return refuseUnreadable(error);
        _mayEnd = false;
        if (!endsForSure()) return refuse(400, "Unknown Transfer-Encoding.");
        if (_parser->chunked()) _bareHead = head();
        const auto credentials = readCredentials(head());
        _host.gatekeeper().check(
            credentials, _peer,
            [self = self(), user = credentials ? credentials->user : std::string(),
             asked = Clock::now()](Verdict verdict) { self->onVerdict(verdict, user, asked); });
    }

    const HttpRequestHead& head() const { return _parser->get(); }

    // Whether it is beyond doubt where the body ends, and so where the next request begins.
    bool endsForSure() const {
        const bool coded =
            head().find(boost::beast::http::field::transfer_encoding) != head().end();
        return !coded || (_parser->chunked() && head().version() >= 11);
    }

    // The client doesn't pay for the time that the verdict has taken.
    void onVerdict(Verdict verdict, const std::string& user, Clock::time_point asked) {
        if (_ended) return;
        _deadline += Clock::now() - asked;
        lowest().expires_at(_deadline);
        if (verdict == Verdict::Busy) return refuse(503, "Too many failed logins.");
        _caller.reset();
        if (verdict == Verdict::Admitted) {
            _caller = Caller{_host.gatekeeper().admitsEverybody() ? std::string() : user, _peer};
        }
        admitBody();
    }

    void admitBody() {
        const bool expects =
            head().version() >= 11 &&
            boost::beast::iequals(head()[boost::beast::http::field::expect], "100-continue");
        if (!_caller) {
            const std::uint64_t length = _parser->content_length().value_or(0);
            if (expects || length > kAnonymousBodyBytes) return respondUnauthorized(true);
            _parser->body_limit(kAnonymousBodyBytes);
        }
        if (expects) return sendContinue();
        readBody();
    }

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
        if (!_caller) return respondUnauthorized(endsConnection(_parser->get()));
        serve();
    }

    void serve() {
        abortive(true);
        const auto job = std::make_shared<Job>(Job{self(), _parser->release()});
        // What follows the body doesn't belong to the head.
        if (_bareHead) job->request.base() = *std::exchange(_bareHead, std::nullopt);
        boost::asio::post(_host.workers(), [job] { run(job); });
        _serving = true;
    }

    // On a worker.
    static void run(const std::shared_ptr<Job>& job) {
        const auto executor = job->session->_stream.get_executor();
        job->ending = job->session->produce(job->request);
        postPatiently(executor, [job] {
            const Self self = std::move(job->session);
            self->onProduced(job->ending);
        });
    }

    // On a worker.
    Ending produce(const HttpRequest& request) {
        if (_slot.broken()) return Ending::Reset;
        try {
            return _host.service().serve(request, *_caller, *this, _finishing);
        } catch (...) {  // the client has gone, or there is no memory even to refuse
            return Ending::Reset;
        }
    }

    // On a worker.
    void write(Frame frame) override {
        _slot.put(std::move(frame));
        try {
            boost::asio::post(_stream.get_executor(), [self = self()] { self->sendFrame(); });
        } catch (...) {
            _slot.breakOff();
            throw;
        }
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
        _mayEnd = true;
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
    std::optional<HttpRequestHead> _bareHead;  ///< without trailers, when there may be some
    Clock::time_point _deadline;               ///< of the request
    std::optional<Caller> _caller;
    FrameSlot _slot;
    std::optional<Ending> _ending;  ///< set once nobody will put another frame
    std::atomic<bool> _finishing{false};
    Clock::duration _patience{};  ///< how long the client may let an answer wait
    std::size_t _discarded = 0;
    bool _mayEnd = false;   ///< no request's whole head has come, or no other will be served
    bool _serving = false;  ///< a worker runs the request
    bool _ended = false;
};

}  // namespace cimserver

// HTTP requests and responses as text, and what becomes of connections.
#include "Support.h"
#include "http/FrameSlot.h"
#include "http/Gatekeeper.h"
#include "http/Session.h"

#include <Pegasus/Common/Exception.h>
#include <gtest/gtest.h>
#include <boost/asio/executor_work_guard.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/beast/http/parser.hpp>

#include <atomic>
#include <memory>
#include <new>
#include <ostream>
#include <thread>
#include <tuple>

namespace cimserver::test {
namespace {

class Collector final : public ByteSink {
  public:
    void write(Frame frame) override { text += frame.head + frame.body + frame.tail; }
    std::string text;
};

HttpRequest parsed(const std::string& text) {
    boost::beast::http::request_parser<boost::beast::http::string_body> parser;
    parser.eager(true);
    boost::beast::error_code error;
    parser.put(boost::asio::buffer(text), error);
    EXPECT_FALSE(error) << error.message();
    return parser.release();
}

const std::string kHead =
    "POST /cimom HTTP/1.1\r\nHost: h\r\nContent-Type: application/xml; charset=\"UTF-8\"\r\n"
    "CIMOperation: methodcall\r\nCIMMethod: Enumerate%49nstanceNames\r\nCIMObject: root%2Ft\r\n";

std::string withBody(const std::string& head) {
    const std::string body =
        message("EnumerateInstanceNames",
                "<IPARAMVALUE NAME=\"ClassName\"><CLASSNAME NAME=\"T\"/></IPARAMVALUE>");
    return head + "Content-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body;
}

struct Served {
    std::string text;
    Ending ending;
};

Served serve(LocalServer& server, const std::string& request, bool close = false) {
    Collector out;
    const CimService service(server, XmlLimits());
    const Ending ending = service.serve(parsed(request), {"u", "192.0.2.1"}, out, close);
    return {out.text, ending};
}

std::string replaced(std::string text, const std::string& from, const std::string& to) {
    const auto at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    return text.replace(at, from.size(), to);
}

std::string headOf(const std::string& response) {
    return response.substr(0, response.find("\r\n\r\n") + 4);
}

struct HeadCase {
    const char* what;
    std::string from;
    std::string to;  ///< takes the place of `from` in a good header
    std::string expected;
};

void PrintTo(const HeadCase& c, std::ostream* out) {
    *out << c.what;
}

class HeadTest : public testing::TestWithParam<HeadCase> {};

// The status, and CIMError when there is one.
std::string verdict(const std::string& response) {
    const std::string status = response.substr(9, 3);
    const auto error = response.find("CIMError: ");
    if (error == std::string::npos) return status;
    return status + " " + response.substr(error + 10, response.find('\r', error) - error - 10);
}

TEST_P(HeadTest, IsJudged) {
    ScriptedServer server;
    const std::string request = withBody(replaced(kHead, GetParam().from, GetParam().to));
    const Served served = serve(server, request);
    EXPECT_EQ(verdict(served.text), GetParam().expected);
    EXPECT_EQ(served.ending, Ending::KeepAlive);
    EXPECT_EQ(server.call.empty(), GetParam().expected != "200");
}

INSTANTIATE_TEST_SUITE_P(
    Headers, HeadTest,
    testing::Values(HeadCase{"good", "Host", "Host", "200"},
                    HeadCase{"text/xml", "application/xml; charset=\"UTF-8\"", "text/xml", "200"},
                    HeadCase{"prefixed fields", "CIM", "42-CIM", "200"},
                    HeadCase{"version", "CIMMethod", "CIMProtocolVersion: 1.0\r\nCIMMethod", "200"},
                    HeadCase{"other version", "CIMMethod", "CIMProtocolVersion: 1.1\r\nCIMMethod",
                             "400 header-mismatch"},
                    HeadCase{"GET", "POST", "GET", "405"},
                    HeadCase{"OPTIONS", "POST", "OPTIONS", "405"},
                    HeadCase{"unknown verb", "POST", "FROB", "501"},
                    HeadCase{"no operation", "CIMOperation", "X-Operation", "400"},
                    HeadCase{"other operation", "methodcall", "MethodResponse",
                             "400 unsupported-operation"},
                    HeadCase{"batch", "CIMMethod", "CIMBatch: 1\r\nCIMMethod",
                             "501 multiple-requests-unsupported"},
                    HeadCase{"no host", "Host: h\r\n", "", "400"},
                    HeadCase{"no method", "CIMMethod", "X-Method", "400 header-mismatch"},
                    HeadCase{"empty method", "Enumerate%49nstanceNames", "", "400 header-mismatch"},
                    HeadCase{"bad escape", "root%2Ft", "root%2", "400 header-mismatch"},
                    HeadCase{"other object", "root%2Ft", "root/u", "400 header-mismatch"},
                    HeadCase{"no type", "Content-Type", "X-Type", "400"},
                    HeadCase{"other type", "application/xml", "application/json", "400"},
                    HeadCase{"other charset", "\"UTF-8\"", "latin1", "400"}));

TEST(RefusalTest, SaysWhyAndHasNoContent) {
    ScriptedServer server;
    const std::string request = withBody(replaced(kHead, "methodcall", "Frob \"x\""));
    EXPECT_EQ(
        serve(server, request).text,
        "HTTP/1.1 400 Bad Request\r\nCIMError: unsupported-operation\r\n"
        "PGErrorDetail: CIMOperation%20value%20%22Frob%20%22x%22%22%20is%20not%20supported.\r\n"
        "content-length: 0\r\n\r\n");
}

class ResponseTest : public testing::Test {
  protected:
    ResponseTest() { server.objects.push_back(Pegasus::CIMInstance("T")); }

    ScriptedServer server;
};

TEST_F(ResponseTest, HasItsLength) {
    const Served served = serve(server, withBody(kHead));
    const std::string head = headOf(served.text);
    EXPECT_EQ(
        head,
        "HTTP/1.1 200 OK\r\nContent-Type: application/xml; charset=utf-8\r\ncontent-length: " +
            std::to_string(served.text.size() - head.size()) +
            "\r\nCIMOperation: MethodResponse\r\n\r\n");
}

TEST_F(ResponseTest, AnnouncesTheEndOfTheConnection) {
    const Served asked = serve(server, withBody(kHead + "Connection: Close\r\n"));
    const Served told = serve(server, withBody(kHead), true);
    const Served old = serve(server, withBody(replaced(kHead, "HTTP/1.1\r\nHost: h", "HTTP/1.0")));
    for (const Served& served : {asked, told, old}) {
        EXPECT_EQ(served.ending, Ending::Close);
        EXPECT_NE(served.text.find("\r\nConnection: close\r\n"), std::string::npos);
    }
}

TEST_F(ResponseTest, FollowsTheExtensionFramework) {
    const Served served =
        serve(server, withBody("M-" + replaced(kHead, "CIMOperation", "27-CIMOperation")));
    const std::string head = headOf(served.text);
    EXPECT_NE(head.find("\r\nExt:\r\nCache-Control: no-cache\r\n"
                        "Man: http://www.dmtf.org/cim/mapping/http/v1.0; ns=27\r\n"
                        "27-CIMOperation: MethodResponse\r\n"),
              std::string::npos)
        << head;
}

TEST_F(ResponseTest, IsChunkedWhenItIsLong) {
    server.rounds = 10'000;
    const std::string text = serve(server, withBody(kHead)).text;
    EXPECT_NE(headOf(text).find("\r\ntransfer-encoding: chunked\r\n"), std::string::npos);
    const std::string end = "</CIM>\n\r\n0\r\n\r\n";
    EXPECT_EQ(text.substr(text.size() - end.size()), end);
}

TEST_F(ResponseTest, BreaksOffWithoutALastChunk) {
    server.rounds = 10'000;
    server.failure = [] { throw Pegasus::CIMException(Pegasus::CIM_ERR_FAILED); };
    const Served chunked = serve(server, withBody(kHead));
    EXPECT_EQ(chunked.ending, Ending::Close);
    EXPECT_EQ(chunked.text.find("\r\n0\r\n"), std::string::npos);
    const Served old = serve(server, withBody(replaced(kHead, "HTTP/1.1\r\nHost: h", "HTTP/1.0")));
    EXPECT_EQ(old.ending, Ending::Reset);
    EXPECT_EQ(old.text.find("</CIM>"), std::string::npos);
}

TEST_F(ResponseTest, HasErrorsInTrailersForThoseWhoTakeThem) {
    server.failure = [] {
        throw Pegasus::CIMException(Pegasus::CIM_ERR_NOT_FOUND, "a: b\r\nX: y");
    };
    const Served served = serve(server, withBody(kHead + "TE: gzip, trailers;q=0.5\r\n"));
    EXPECT_EQ(served.ending, Ending::KeepAlive);
    EXPECT_NE(headOf(served.text).find("\r\nTrailer: CIMStatusCode, CIMStatusCodeDescription\r\n"),
              std::string::npos);
    const std::string end =
        "</CIM>\n\r\n0\r\nCIMStatusCode: 6\r\nCIMStatusCodeDescription: "
        "a%3A%20b%0D%0AX%3A%20y\r\n\r\n";
    EXPECT_EQ(served.text.substr(served.text.size() - end.size()), end);
}

struct CredentialsCase {
    std::string field;
    std::string expected;
};

TEST(CredentialsTest, AreReadOrNot) {
    const CredentialsCase cases[] = {{"Basic dXNlcjpwYXNz", "user:pass"},
                                     {"basic   dXNlcjpwYTpzcw==", "user:pa:ss"},
                                     {"Basic Og==", ":"},
                                     {"Basic dXNlcg==", "none"},
                                     {"Basic !!!!", "none"},
                                     {"Basic", "none"},
                                     {"Basic /////w==", "none"},
                                     {"Digest dXNlcjpwYXNz", "none"},
                                     {"", "none"}};
    for (const CredentialsCase& c : cases) {
        HttpRequest request;
        request.set(boost::beast::http::field::authorization, c.field);
        const auto credentials = readCredentials(request);
        EXPECT_EQ(credentials ? credentials->user + ":" + credentials->password : "none",
                  c.expected)
            << c.field;
    }
}

TEST(ThrottleTest, SlowsAddressesAndUsersThatFail) {
    Throttle throttle{SecretDigest({4, 7, 1, 1})};  // with which none of these share a place
    const Throttle::Clock::time_point start(std::chrono::hours(1));
    const auto wait = [&](const char* address, const char* user, int after) {
        const auto time = throttle.begin(address, user, start + std::chrono::seconds(after));
        return time ? std::chrono::duration_cast<std::chrono::milliseconds>(*time).count() : -1;
    };
    for (int i = 0; i < 4; ++i) EXPECT_EQ(wait("2001:db8::1", "a", 0), 0);
    EXPECT_EQ(wait("192.0.2.1", "b", 0), 0);
    EXPECT_EQ(wait("192.0.2.1", "a", 0), 100);  // the user's own pause
    EXPECT_EQ(wait("2001:db8::2", "c", 0), 0);  // from here on the network waits
    EXPECT_EQ(wait("2001:db8::3", "d", 0), 100);
    EXPECT_EQ(wait("2001:db8::3", "e", 0), 300);
    EXPECT_EQ(wait("2001:db8:0:1::", "f", 0), 0);
    int waiting = 0;
    while (wait("2001:db8::4", "g", 0) >= 0) ++waiting;
    EXPECT_EQ(waiting, 5);  // more would wait longer than ten seconds
    EXPECT_EQ(wait("192.0.2.1", "g", 0), 200);
    EXPECT_EQ(wait("2001:db8::4", "h", 600), 0);
}

TEST(ThrottleTest, ForgivesWhatHasSucceeded) {
    Throttle throttle;
    const Throttle::Clock::time_point now(std::chrono::hours(1));
    for (int i = 0; i < 50; ++i) {
        EXPECT_EQ(throttle.begin("192.0.2.1", "a", now), Throttle::Clock::duration());
        throttle.forgive("192.0.2.1", "a");
    }
}

class GatekeeperTest : public testing::Test {
  protected:
    /// The verdicts on the same credentials, given several times at once.
    std::string ask(const Credentials& credentials, int times = 1) {
        std::string verdicts;
        int open = times;
        for (int i = 0; i < times; ++i) {
            gatekeeper.check(credentials, "192.0.2.1", [&](Verdict verdict) {
                verdicts += "ARB"[static_cast<int>(verdict)];
                --open;
            });
        }
        io.restart();
        const auto guard = boost::asio::make_work_guard(io);
        while (open > 0) io.run_one();
        return verdicts;
    }

    std::atomic<int> checks{0};
    std::uint64_t version = 1;
    boost::asio::io_context io;
    Gatekeeper gatekeeper{io,
                          {[this](const std::string& user, const std::string& password) {
                               ++checks;
                               if (user == "broken") throw std::bad_alloc();
                               return password == "p" + std::to_string(version);
                           },
                           [this] { return version; }}};
};

TEST_F(GatekeeperTest, ChecksOnceWhatIsInUseUntilItMayHaveChanged) {
    EXPECT_EQ(ask({"u", "p1"}, 3), "AAA");
    EXPECT_EQ(ask({"u", "p1"}), "A");
    EXPECT_EQ(checks, 1);
    EXPECT_EQ(ask({"u", "p2"}, 2), "RR");
    EXPECT_EQ(ask({"u", "p2"}), "R");
    EXPECT_EQ(ask({"up", "1"}), "R");
    EXPECT_EQ(ask({"broken", "p1"}), "R");
    EXPECT_EQ(checks, 5);
    version = 2;
    EXPECT_EQ(ask({"u", "p1"}), "R");
    EXPECT_EQ(ask({"u", "p2"}), "A");
}

const Authenticator kNobody{[](const std::string&, const std::string&) { return false; }, {}};

/// A connection with a request in its socket, and what a session asks of its server.
class CutTest : public testing::TestWithParam<std::tuple<int, bool>>, protected SessionHost {
  protected:
    CutTest() {
        boost::asio::ip::tcp::acceptor acceptor(io, {boost::asio::ip::address_v4::loopback(), 0});
        client.connect(acceptor.local_endpoint());
        session = std::make_shared<Session<boost::beast::tcp_stream>>(
            boost::beast::tcp_stream(acceptor.accept()), "127.0.0.1",
            static_cast<SessionHost&>(*this));
        write(client, boost::asio::buffer(withBody(kHead)));
        session->start();
    }

    const HttpSettings& settings() const override { return httpSettings; }
    const CimService& service() const override { return cimService; }
    Gatekeeper& gatekeeper() override { return doorman; }
    boost::asio::thread_pool& workers() override { return pool; }
    void ended(Connection&) override { ++ends; }

    HttpSettings httpSettings;
    ScriptedServer server;
    CimService cimService{server, XmlLimits()};
    boost::asio::io_context io;
    Gatekeeper doorman{io, std::get<1>(GetParam()) ? Authenticator{} : kNobody};
    boost::asio::thread_pool pool{1};
    boost::asio::ip::tcp::socket client{io};
    std::shared_ptr<Connection> session;
    int ends = 0;
};

TEST_P(CutTest, EndsTheConnectionOnce) {
    for (int i = 0; i < std::get<0>(GetParam()); ++i) io.run_one_for(std::chrono::milliseconds(20));
    session->cut();
    EXPECT_NO_THROW(io.poll());
    pool.join();
    io.restart();
    EXPECT_NO_THROW(io.poll());
    EXPECT_EQ(ends, 1);
}

INSTANTIATE_TEST_SUITE_P(AfterSteps, CutTest,
                         testing::Combine(testing::Range(0, 9), testing::Bool()));

TEST(FrameSlotTest, HoldsOneFrameAndEndsTheWaitWhenItBreaks) {
    FrameSlot slot;
    slot.put({"0", {}, {}});
    slot.release();
    EXPECT_TRUE(slot.frame().head.empty());  // nothing is kept of what has left
    slot.put({"a", {}, {}});
    EXPECT_FALSE(slot.empty());
    bool gone = false;
    std::thread producer([&] {
        slot.put({"b", {}, {}});
        try {
            slot.put({"c", {}, {}});
        } catch (const ClientGone&) {
            gone = true;
        }
    });
    slot.release();
    while (slot.empty()) std::this_thread::yield();
    EXPECT_EQ(slot.frame().head, "b");
    slot.breakOff();
    producer.join();
    EXPECT_TRUE(gone);
    EXPECT_TRUE(slot.broken());
}

}  // namespace
}  // namespace cimserver::test

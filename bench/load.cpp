// Asks a CIM server over HTTP from several clients at once and tells how long the answers took.
//
//   load HOST PORT USER:PASSWORD|- CLIENTS SECONDS OPERATION CLASS [NAMESPACE]
//
// OPERATION is EnumerateInstances or EnumerateInstanceNames. It takes the same calls to any CIM
// server, so that two servers can be measured side by side.
#include <boost/asio/connect.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/beast/core.hpp>
#include <boost/beast/core/detail/base64.hpp>
#include <boost/beast/http.hpp>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace asio = boost::asio;
namespace beast = boost::beast;
namespace http = beast::http;
using Clock = std::chrono::steady_clock;

namespace {

struct Task {
    std::string host;
    std::string port;
    std::string credentials;  ///< empty: none are sent
    std::string operation;
    std::string className;
    std::string nameSpace;
};

struct Tally {
    std::vector<double> seconds;  ///< of each answer
    std::size_t bytes = 0;
    std::size_t failures = 0;
};

std::string base64(const std::string& text) {
    std::string coded(beast::detail::base64::encoded_size(text.size()), '\0');
    coded.resize(beast::detail::base64::encode(coded.data(), text.data(), text.size()));
    return coded;
}

std::string namespaceElements(const std::string& nameSpace) {
    std::string elements;
    for (std::size_t begin = 0; begin <= nameSpace.size();) {
        const std::size_t end = std::min(nameSpace.find('/', begin), nameSpace.size());
        elements += "<NAMESPACE NAME=\"" + nameSpace.substr(begin, end - begin) + "\"/>";
        begin = end + 1;
    }
    return elements;
}

std::string bodyOf(const Task& task) {
    return "<?xml version=\"1.0\" encoding=\"utf-8\"?><CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">"
           "<MESSAGE ID=\"1\" PROTOCOLVERSION=\"1.0\"><SIMPLEREQ><IMETHODCALL NAME=\"" +
           task.operation + "\"><LOCALNAMESPACEPATH>" + namespaceElements(task.nameSpace) +
           "</LOCALNAMESPACEPATH><IPARAMVALUE NAME=\"ClassName\"><CLASSNAME NAME=\"" +
           task.className + "\"/></IPARAMVALUE></IMETHODCALL></SIMPLEREQ></MESSAGE></CIM>";
}

http::request<http::string_body> requestOf(const Task& task) {
    http::request<http::string_body> request(http::verb::post, "/cimom", 11);
    request.set(http::field::host, task.host);
    request.set(http::field::content_type, "application/xml; charset=utf-8");
    request.set("CIMOperation", "MethodCall");
    request.set("CIMMethod", task.operation);
    request.set("CIMObject", task.nameSpace);
    if (!task.credentials.empty())
        request.set(http::field::authorization, "Basic " + base64(task.credentials));
    request.body() = bodyOf(task);
    request.prepare_payload();
    return request;
}

/// One connection that asks again and again.
class Client {
  public:
    explicit Client(const Task& task) : _stream(_io), _request(requestOf(task)) {
        asio::ip::tcp::resolver resolver(_io);
        _stream.connect(resolver.resolve(task.host, task.port));
        _stream.socket().set_option(asio::ip::tcp::no_delay(true));
    }

    void ask(Tally& tally) {
        const auto begin = Clock::now();
        http::write(_stream, _request);
        http::response_parser<http::string_body> parser;
        parser.body_limit(boost::none);
        http::read(_stream, _buffer, parser);
        tally.seconds.push_back(std::chrono::duration<double>(Clock::now() - begin).count());
        tally.bytes += parser.get().body().size();
        if (parser.get().result() != http::status::ok ||
            parser.get().body().find("<ERROR") != std::string::npos)
            ++tally.failures;
    }

  private:
    asio::io_context _io;
    beast::tcp_stream _stream;
    beast::flat_buffer _buffer;
    http::request<http::string_body> _request;
};

using Time = std::chrono::time_point<Clock, std::chrono::duration<double>>;

// A client that loses the server counts as one failure more and asks no more.
Tally runClient(const Task& task, Time end) {
    Tally tally;
    try {
        Client client(task);
        do client.ask(tally);
        while (Clock::now() < end);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "load: %s\n", error.what());
        ++tally.failures;
    }
    return tally;
}

Tally runClients(const Task& task, unsigned clients, double seconds) {
    Tally total;
    std::mutex lock;
    std::vector<std::thread> threads;
    const auto end = Clock::now() + std::chrono::duration<double>(seconds);
    for (unsigned i = 0; i < clients; ++i)
        threads.emplace_back([&] {
            const Tally mine = runClient(task, end);
            const std::lock_guard guard(lock);
            total.seconds.insert(total.seconds.end(), mine.seconds.begin(), mine.seconds.end());
            total.bytes += mine.bytes;
            total.failures += mine.failures;
        });
    for (std::thread& thread : threads) thread.join();
    return total;
}

double percentile(const std::vector<double>& sorted, double part) {
    return sorted[static_cast<std::size_t>(part * static_cast<double>(sorted.size() - 1))];
}

void print(const Tally& tally, unsigned clients, double elapsed) {
    std::vector<double> sorted = tally.seconds;
    std::sort(sorted.begin(), sorted.end());
    std::printf("%u clients: %zu answers, %zu failed, %.0f answers/s, %.1f MB/s, ", clients,
                sorted.size(), tally.failures, static_cast<double>(sorted.size()) / elapsed,
                static_cast<double>(tally.bytes) / elapsed / 1e6);
    if (sorted.empty()) {
        std::printf("none to measure\n");
        return;
    }
    std::printf("best %.2f ms, p50 %.2f ms, p99 %.2f ms, p99.9 %.2f ms, %zu bytes each\n",
                sorted.front() * 1e3, percentile(sorted, 0.5) * 1e3, percentile(sorted, 0.99) * 1e3,
                percentile(sorted, 0.999) * 1e3, tally.bytes / sorted.size());
}

}  // namespace

int main(int argc, char** argv) try {
    if (argc < 8)
        throw std::invalid_argument(
            "usage: load HOST PORT USER:PASSWORD|- CLIENTS SECONDS OPERATION CLASS [NAMESPACE]");
    const std::string credentials = argv[3];
    const Task task{argv[1], argv[2], credentials == "-" ? "" : credentials,
                    argv[6], argv[7], argc > 8 ? argv[8] : "root/qrv"};
    const auto clients = static_cast<unsigned>(std::stoul(argv[4]));
    const auto begin = Clock::now();
    const Tally tally = runClients(task, clients, std::stod(argv[5]));
    print(tally, clients, std::chrono::duration<double>(Clock::now() - begin).count());
    return tally.failures == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
} catch (const std::exception& e) {
    std::fprintf(stderr, "load: %s\n", e.what());
    return EXIT_FAILURE;
}

// Any bytes are either no HTTP request or get one response, whose header is made of known fields
// only.
#include "ScriptedServer.h"
#include "http/CallHead.h"
#include "http/CimService.h"

#include <boost/beast/http/parser.hpp>

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

using namespace cimserver;

class Collector final : public ByteSink {
  public:
    void write(Frame frame) override { text += frame.head + frame.body + frame.tail; }
    std::string text;
};

constexpr std::string_view kFields[] = {"HTTP/1.1 ",      "Content-Type: ", "content-length: ",
                                        "CIMOperation: ", "CIMError: ",     "PGErrorDetail: ",
                                        "Connection: ",   "Allow: ",        "transfer-encoding: ",
                                        "Trailer: ",      "Ext:",           "Cache-Control: ",
                                        "Man: "};

bool isKnown(std::string_view line) {
    if (line.size() > 3 && line[2] == '-') line.remove_prefix(3);
    for (const std::string_view field : kFields) {
        if (line.substr(0, field.size()) == field) return true;
    }
    return false;
}

void checkHead(std::string_view response) {
    while (response.substr(0, 2) != "\r\n") {
        const auto end = response.find("\r\n");
        if (end == std::string_view::npos || !isKnown(response.substr(0, end))) std::abort();
        response.remove_prefix(end + 2);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    boost::beast::http::request_parser<boost::beast::http::string_body> parser;
    parser.eager(true);
    parser.body_limit(1 << 20);
    boost::beast::error_code error;
    parser.put(boost::asio::buffer(data, size), error);
    if (error || !parser.is_done()) return 0;
    const HttpRequest request = parser.release();
    readCredentials(request);
    test::ScriptedServer server;
    Collector out;
    CimService(server, XmlLimits()).serve(request, {"user", "192.0.2.1"}, out, false);
    checkHead(out.text);
    return 0;
}

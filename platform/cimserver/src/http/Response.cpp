#include "http/Response.h"

#include "http/PercentCode.h"

#include <ostream>

#include <boost/beast/http/status.hpp>

namespace cimserver {

namespace {

constexpr std::size_t kMaxDetail = 500;  // what a client sent may be quoted in it

std::string statusLine(unsigned status) {
    const auto reason =
        boost::beast::http::obsolete_reason(boost::beast::http::int_to_status(status));
    return "HTTP/1.1 " + std::to_string(status) + " " + std::string(reason.data(), reason.size()) +
           "\r\n";
}

std::string connectionField(bool close) {
    return close ? "Connection: close\r\n" : "";
}

std::string extensionFields(const std::string& prefix) {
    if (prefix.empty()) return {};
    return "Ext:\r\nCache-Control: no-cache\r\nMan: http://www.dmtf.org/cim/mapping/http/v1.0; "
           "ns=" +
           prefix.substr(0, 2) + "\r\n";
}

std::string head(const ResponseStyle& style, const std::string& lengthFields) {
    return statusLine(200) + "Content-Type: application/xml; charset=utf-8\r\n" + lengthFields +
           connectionField(style.close) + extensionFields(style.extensionPrefix) +
           style.extensionPrefix + "CIMOperation: MethodResponse\r\n\r\n";
}

}  // namespace

std::string answerHead(const ResponseStyle& style, std::size_t length) {
    return head(style, "content-length: " + std::to_string(length) + "\r\n");
}

std::string streamedAnswerHead(const ResponseStyle& style) {
    if (style.version < 11) return head(style, {});
    std::string fields = "transfer-encoding: chunked\r\n";
    if (style.trailers) fields += "Trailer: CIMStatusCode, CIMStatusCodeDescription\r\n";
    return head(style, fields);
}

std::string refusalText(const Refusal& refusal, bool close) {
    std::string text = statusLine(refusal.status());
    if (!refusal.cimError().empty()) text += "CIMError: " + refusal.cimError() + "\r\n";
    const std::string detail =
        percentEncoded(std::string_view(refusal.what()).substr(0, kMaxDetail));
    if (!detail.empty()) text += "PGErrorDetail: " + detail + "\r\n";
    if (refusal.status() == 405) text += "Allow: POST, M-POST\r\n";
    return text + "content-length: 0\r\n" + connectionField(close) + "\r\n";
}

std::string unauthorizedText(const std::string& realm, bool hadCredentials, bool close) {
    return statusLine(401) + (hadCredentials ? "" : "PGErrorDetail: User%20Unauthorized\r\n") +
           "content-length: 0\r\nWWW-Authenticate: Basic realm=\"" + realm + "\"\r\n" +
           connectionField(close) + "\r\n";
}

}  // namespace cimserver

#include "http/CallHead.h"

#include "cimxml/Utf8.h"
#include "http/PercentCode.h"

#include <stdexcept>
#include <string_view>

namespace cimserver {

namespace http = boost::beast::http;

namespace {

std::string_view view(boost::beast::string_view text) {
    return {text.data(), text.size()};
}

std::string_view trimmed(std::string_view text) {
    const auto begin = text.find_first_not_of(" \t");
    if (begin == std::string_view::npos) return {};
    return text.substr(begin, text.find_last_not_of(" \t") - begin + 1);
}

// Takes the text up to the separator off the front of `list`.
std::string_view takeItem(std::string_view& list, char separator) {
    const auto end = list.find(separator);
    const std::string_view item = trimmed(list.substr(0, end));
    list.remove_prefix(end == std::string_view::npos ? list.size() : end + 1);
    return item;
}

struct CimField {
    std::string prefix;
    std::string value;
};

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

// The length of the "NN-" that a mandatory extension puts in front of its fields.
std::size_t prefixLength(std::string_view name) {
    const bool prefixed = name.size() > 3 && isDigit(name[0]) && isDigit(name[1]) && name[2] == '-';
    return prefixed ? 3 : 0;
}

std::optional<CimField> findCimField(const HttpRequestHead& head, std::string_view wanted) {
    for (const auto& field : head) {
        const std::string_view name = view(field.name_string());
        const std::size_t prefix = prefixLength(name);
        if (equalIgnoringCase(name.substr(prefix), wanted)) {
            return CimField{std::string(name.substr(0, prefix)), std::string(view(field.value()))};
        }
    }
    return std::nullopt;
}

// The value of CIMMethod or CIMObject; empty when it isn't there, which doesn't match any message.
std::string decodedField(const HttpRequestHead& head, const char* name) {
    const auto field = findCimField(head, name);
    if (!field) return {};
    if (field->value.empty()) throw headerMismatch("Empty " + std::string(name) + " value.");
    try {
        return percentDecoded(field->value);
    } catch (const std::invalid_argument&) {
        throw headerMismatch(std::string(name) + " value syntax error.");
    }
}

bool isXml(std::string_view contentType) {
    const std::string_view type = takeItem(contentType, ';');
    while (!contentType.empty()) {
        std::string_view value = takeItem(contentType, ';');
        const std::string_view name = takeItem(value, '=');
        if (!equalIgnoringCase(name, "charset")) continue;
        if (!equalIgnoringCase(value, "utf-8") && !equalIgnoringCase(value, "\"utf-8\""))
            return false;
    }
    return equalIgnoringCase(type, "application/xml") || equalIgnoringCase(type, "text/xml");
}

bool takesTrailers(const HttpRequestHead& head) {
    std::string_view list = view(head[http::field::te]);
    while (!list.empty()) {
        std::string_view coding = takeItem(list, ',');
        const std::string_view name = takeItem(coding, ';');
        if (equalIgnoringCase(name, "trailers") || equalIgnoringCase(name, "chunked")) return true;
    }
    return false;
}

bool isExtendedPost(const HttpRequestHead& head) {
    return view(head.method_string()) == "M-POST";
}

void checkMethod(const HttpRequestHead& head) {
    if (head.method() == http::verb::post) return;
    if (!isExtendedPost(head)) {
        const unsigned status = head.method() == http::verb::unknown ? 501 : 405;
        throw Refusal(status, "", "Only POST and M-POST are supported.");
    }
    if (head.version() < 11) throw Refusal(400, "", "M-POST needs HTTP/1.1.");
}

CimField checkOperation(const HttpRequestHead& head) {
    const auto operation = findCimField(head, "CIMOperation");
    if (!operation) throw Refusal(400, "", "CIMOperation HTTP header is missing.");
    if (head.version() >= 11 && head.find(http::field::host) == head.end()) {
        throw Refusal(400, "", "HTTP request message lacks a Host header field.");
    }
    if (!equalIgnoringCase(operation->value, "MethodCall")) {
        throw Refusal(400, "unsupported-operation",
                      "CIMOperation value \"" + operation->value + "\" is not supported.");
    }
    if (findCimField(head, "CIMBatch")) throw Refusal(501, "multiple-requests-unsupported", "");
    return *operation;
}

std::optional<std::string> fromBase64(std::string_view text) {
    constexpr std::string_view digits =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    for (int padding = 0; padding < 2 && !text.empty() && text.back() == '='; ++padding) {
        text.remove_suffix(1);
    }
    std::string bytes;
    unsigned bits = 0;
    unsigned count = 0;
    for (const char c : text) {
        const auto digit = digits.find(c);
        if (digit == std::string_view::npos) return std::nullopt;
        bits = bits << 6 | static_cast<unsigned>(digit);
        count += 6;
        if (count < 8) continue;
        count -= 8;
        bytes += static_cast<char>(bits >> count & 0xFF);
    }
    return bytes;
}

}  // namespace

CallHead readCallHead(const HttpRequestHead& head) {
    checkMethod(head);
    const CimField operation = checkOperation(head);
    CallHead result;
    result.call.method = decodedField(head, "CIMMethod");
    result.call.object = decodedField(head, "CIMObject");
    if (const auto version = findCimField(head, "CIMProtocolVersion")) {
        result.call.protocolVersion = version->value;
    }
    if (!isXml(view(head[http::field::content_type]))) {
        throw Refusal(400, "", "HTTP Content-Type header error.");
    }
    result.style.version = head.version();
    result.style.trailers = head.version() >= 11 && takesTrailers(head);
    if (isExtendedPost(head)) {
        result.style.extensionPrefix = operation.prefix.empty() ? "01-" : operation.prefix;
    }
    return result;
}

bool endsConnection(const HttpRequest& request) {
    return request.version() < 11 || !request.keep_alive();
}

std::optional<Credentials> readCredentials(const HttpRequestHead& head) {
    std::string_view text = view(head[http::field::authorization]);
    if (!equalIgnoringCase(takeItem(text, ' '), "Basic")) return std::nullopt;
    const auto decoded = fromBase64(trimmed(text));
    const auto colon = decoded ? decoded->find(':') : std::string::npos;
    if (colon == std::string::npos || !isUtf8(*decoded)) return std::nullopt;
    return Credentials{decoded->substr(0, colon), decoded->substr(colon + 1)};
}

}  // namespace cimserver

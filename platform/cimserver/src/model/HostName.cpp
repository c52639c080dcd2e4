#include "model/HostName.h"

#include <arpa/inet.h>

#include <algorithm>
#include <charconv>
#include <string>
#include <string_view>

using namespace Pegasus;

namespace cimserver {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}
bool isLetterOrUnderscore(char c) {
    const char lower = char(c | 0x20);
    return (lower >= 'a' && lower <= 'z') || c == '_';
}

bool isNumber(std::string_view text) {
    return std::all_of(text.begin(), text.end(), isDigit);
}

bool isIpv6(std::string_view text) {
    in6_addr address;
    return inet_pton(AF_INET6, std::string(text).c_str(), &address) == 1;
}

/// A number from 0 to 255 of at most three digits.
bool isOctet(std::string_view text) {
    const bool isShort = !text.empty() && text.size() <= 3;
    return isShort && isNumber(text) && (text.size() < 3 || text <= "255");
}

bool isIpv4(std::string_view text) {
    for (int dots = 0; dots < 3; ++dots) {
        const auto dot = text.find('.');
        if (dot == std::string_view::npos || !isOctet(text.substr(0, dot))) return false;
        text.remove_prefix(dot + 1);
    }
    return isOctet(text);
}

bool isLabel(std::string_view text) {
    const auto isLegal = [](char c) { return isDigit(c) || isLetterOrUnderscore(c) || c == '-'; };
    return !text.empty() && text[0] != '-' && std::all_of(text.begin(), text.end(), isLegal);
}

bool isName(std::string_view text) {
    while (true) {
        const auto dot = text.find('.');
        const auto label = text.substr(0, dot);
        if (!isLabel(label)) return false;
        if (dot == std::string_view::npos) return !isNumber(label);
        text.remove_prefix(dot + 1);
    }
}

/// What follows the host: nothing, or a colon and a port, which may be empty.
bool isPortPart(std::string_view text) {
    if (text.empty()) return true;
    if (text[0] != ':' || !isNumber(text.substr(1))) return false;
    text.remove_prefix(1);
    unsigned port = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), port);
    return text.empty() || (result.ec == std::errc() && port <= 65535);
}

bool isBracketedHost(std::string_view text) {
    const auto close = text.find(']');
    return close != std::string_view::npos && isIpv6(text.substr(1, close - 1)) &&
           isPortPart(text.substr(close + 1));
}

}  // namespace

bool isHost(const String& text) {
    std::string ascii;
    for (Uint32 i = 0; i < text.size(); ++i) {
        if (text[i] == Char16() || text[i] >= 0x80) return false;
        ascii += char(text[i]);
    }
    const std::string_view all(ascii);
    if (!all.empty() && all[0] == '[') return isBracketedHost(all);
    const auto colon = std::min(all.find(':'), all.size());
    const auto host = all.substr(0, colon);
    return (isName(host) || isIpv4(host)) && isPortPart(all.substr(colon));
}

}  // namespace cimserver

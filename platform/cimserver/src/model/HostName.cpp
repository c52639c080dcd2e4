#include "model/HostName.h"

#include <arpa/inet.h>
#include <net/if.h>
#include <strings.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <string>
#include <string_view>

using namespace Pegasus;

namespace cimserver {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool isNumber(std::string_view text) {
    return std::all_of(text.begin(), text.end(), isDigit);
}

bool isLinkLocal(const std::string& text) {
    return strncasecmp(text.c_str(), "fe80", 4) == 0;
}

/// A link-local address has a zone, the interface that it is reached through; no other one has.
bool isIpv6(std::string_view text) {
    std::string address(text);
    if (isLinkLocal(address)) {
        const auto zone = address.find('%');
        if (zone == std::string::npos || if_nametoindex(address.c_str() + zone + 1) == 0)
            return false;
        address.resize(zone);
    }
    in6_addr parsed;
    return inet_pton(AF_INET6, address.c_str(), &parsed) == 1;
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

/// Which characters a label of a name is made of, by their codes.
constexpr std::array<bool, 128> LABEL_CHARACTERS = [] {
    std::array<bool, 128> legal{};
    for (const char16_t c : u"-_0123456789abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ")
        legal[c] = c != 0;
    return legal;
}();

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

/// Labels with dots between them, of which the last isn't a number. Every path with a host comes
/// through here, so it looks at each character once.
bool isHostName(const Char16* text, std::size_t size) {
    bool starts = true;
    bool number = true;
    for (std::size_t i = 0; i < size; ++i) {
        const unsigned c = text[i];
        if (c >= LABEL_CHARACTERS.size() || !LABEL_CHARACTERS[c]) {
            if (c != '.' || starts) return false;
            starts = number = true;
            continue;
        }
        if (starts && c == '-') return false;
        number = number && c >= '0' && c <= '9';
        starts = false;
    }
    return !starts && !number;
}

bool isHost(const String& text) {
    const Char16* const chars = text.getChar16Data();
    if (isHostName(chars, text.size())) return true;
    std::string ascii(text.size(), '\0');
    for (std::size_t i = 0; i < ascii.size(); ++i) {
        if (chars[i] == Char16() || chars[i] >= 0x80) return false;
        ascii[i] = char(chars[i]);
    }
    const std::string_view all(ascii);
    if (!all.empty() && all[0] == '[') return isBracketedHost(all);
    const auto colon = std::min(all.find(':'), all.size());
    const auto host = all.substr(0, colon);
    return (isHostName(chars, host.size()) || isIpv4(host)) && isPortPart(all.substr(colon));
}

String ownHostName() {
    char name[256] = {};
    return gethostname(name, sizeof(name) - 1) == 0 && name[0] != '\0' ? name : "localhost";
}

}  // namespace cimserver

#include "Identity.h"

#include <arpa/inet.h>

#include <algorithm>
#include <charconv>
#include <functional>

namespace qrvapi {
namespace {

constexpr unsigned lastNode = 7, lastSlot = 31, lastPort = 15;

bool isLetterOrDigit(char c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool isNameMade(std::string_view text, std::string_view punctuation, std::size_t longest) {
    return !text.empty() && text.size() <= longest &&
           std::all_of(text.begin(), text.end(), [&](char c) {
               return isLetterOrDigit(c) || punctuation.find(c) != punctuation.npos;
           });
}

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

std::string lowered(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), lower);
    return result;
}

/// The whole of `text` as a number in `base`.
template <class Number>
std::optional<Number> parseNumber(std::string_view text, int base) {
    Number number = 0;
    const auto* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number, base);
    if (text.empty() || error != std::errc() || stop != end) return std::nullopt;
    return number;
}

/// Takes the part of `text` before the next ":" (or all of it) off its front.
std::string_view takeField(std::string_view& text) {
    const auto end = std::min(text.find(':'), text.size());
    const auto field = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return field;
}

std::optional<unsigned> fieldUpTo(std::string_view& text, unsigned last) {
    const auto number = parseNumber<unsigned>(takeField(text), 10);
    return number && *number <= last ? number : std::nullopt;
}

}  // namespace

std::optional<qrv_u64> parseWwn(std::string_view text) {
    return text.size() > 16 ? std::nullopt : parseNumber<qrv_u64>(text, 16);
}

std::string wwnText(qrv_u64 wwn) {
    std::string text(16, '0');
    for (auto digit = text.rbegin(); digit != text.rend(); ++digit, wwn >>= 4) {
        *digit = "0123456789ABCDEF"[wwn & 0xF];
    }
    return text;
}

std::optional<lpid_t> parsePortId(std::string_view text) {
    if (std::count(text.begin(), text.end(), ':') != 2) return std::nullopt;
    const auto node = fieldUpTo(text, lastNode);
    const auto slot = fieldUpTo(text, lastSlot);
    const auto port = fieldUpTo(text, lastPort);
    if (!node || !slot || !port || *port == 0) return std::nullopt;
    return static_cast<lpid_t>((*node * (lastSlot + 1) + *slot) * (lastPort + 1) + *port);
}

std::string portIdText(lpid_t port) {
    if (port == QRV_NO_PORT) return "none";
    const unsigned slots = port / (lastPort + 1);
    return std::to_string(slots / (lastSlot + 1)) + ':' + std::to_string(slots % (lastSlot + 1)) +
           ':' + std::to_string(port % (lastPort + 1));
}

std::optional<qrv_u32> parseIpv4(const std::string& text) {
    in_addr address{};
    if (inet_pton(AF_INET, text.c_str(), &address) != 1) return std::nullopt;
    return address.s_addr;
}

std::string ipv4Text(qrv_u32 address) {
    char text[INET_ADDRSTRLEN];
    const in_addr binary{address};
    return inet_ntop(AF_INET, &binary, text, sizeof text);
}

bool equalWithoutCase(std::string_view left, std::string_view right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char one, char other) { return lower(one) == lower(other); });
}

bool isWwn(qrv_u64 number) {
    return number != 0 && number != QRV_NO_WWN;
}

bool isIscsiName(std::string_view text) {
    const auto kind = lowered(text.substr(0, 4));
    return (kind == "iqn." || kind == "eui." || kind == "naa.") && text.size() > 4 &&
           isNameMade(text, ".:-_", 223);
}

bool isHostName(std::string_view text) {
    return isNameMade(text, "._-", 31) && text.front() != '-';
}

std::size_t Initiator::hash() const {
    return type == PORT_TYPE_ISCSI ? std::hash<std::string>()(lowered(iscsiName))
                                   : std::hash<qrv_u64>()(address);
}

std::string Initiator::text() const {
    return type == PORT_TYPE_ISCSI ? iscsiName : wwnText(address);
}

bool Initiator::operator==(const Initiator& other) const {
    return type == other.type && address == other.address &&
           equalWithoutCase(iscsiName, other.iscsiName);
}

Initiator fcInitiator(qrv_u64 wwn) {
    return {PORT_TYPE_FC, wwn, {}};
}

Initiator iscsiInitiator(std::string_view name) {
    return {PORT_TYPE_ISCSI, 0, std::string(name)};
}

}  // namespace qrvapi

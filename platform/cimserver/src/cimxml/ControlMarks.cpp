#include "cimxml/ControlMarks.h"

#include <charconv>

namespace cimserver {

namespace {

// U+FDD0 and the 31 behind it stand for the control characters, and end in 0x90 and more.
constexpr std::string_view kMark = "\xEF\xB7";
constexpr unsigned char kFirst = 0x90;
constexpr unsigned kControls = 0x20;
constexpr std::string_view kOpenCdata = "<![CDATA[";
constexpr std::string_view kCloseCdata = "]]>";

bool startsWith(std::string_view text, std::string_view start) {
    return text.substr(0, start.size()) == start;
}

bool needsMark(unsigned c) {
    return c != 0 && c < kControls && c != '\t' && c != '\n' && c != '\r';
}

bool isMark(std::string_view text) {
    if (!startsWith(text, kMark) || text.size() == kMark.size()) return false;
    const auto last = static_cast<unsigned char>(text[kMark.size()]);
    return last >= kFirst && last < kFirst + kControls;
}

// The control character at the start of a text and how many bytes tell it; none has no size.
struct Control {
    unsigned character = 0;
    std::size_t size = 0;
};

Control referenceAt(std::string_view text) {
    const bool isHexadecimal = startsWith(text, "&#x");
    if (!isHexadecimal && !startsWith(text, "&#")) return {};
    const char* const digits = text.data() + (isHexadecimal ? 3 : 2);
    const char* const end = text.data() + text.size();
    unsigned character = 0;
    const auto [stop, error] = std::from_chars(digits, end, character, isHexadecimal ? 16 : 10);
    const bool isWhole = error == std::errc() && stop != end && *stop == ';';
    if (!isWhole || !needsMark(character)) return {};
    return {character, static_cast<std::size_t>(stop + 1 - text.data())};
}

Control controlAt(std::string_view text, bool inCdata) {
    const auto first = static_cast<unsigned char>(text.front());
    if (needsMark(first)) return {first, 1};
    return inCdata ? Control{} : referenceAt(text);
}

}  // namespace

std::optional<std::string> withMarks(std::string_view xml) {
    std::string marked;
    marked.reserve(xml.size());
    bool found = false;
    bool inCdata = false;
    for (std::size_t at = 0; at < xml.size();) {
        const std::string_view rest = xml.substr(at);
        if (isMark(rest)) return std::nullopt;
        if (startsWith(rest, inCdata ? kCloseCdata : kOpenCdata)) inCdata = !inCdata;
        const Control control = controlAt(rest, inCdata);
        if (control.size == 0) {
            marked += rest.front();
            ++at;
            continue;
        }
        marked.append(kMark) += static_cast<char>(kFirst + control.character);
        at += control.size;
        found = true;
    }
    if (!found) return std::nullopt;
    return marked;
}

std::size_t writeWithoutMarks(std::string_view text, char* out) {
    char* end = out;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (!isMark(text.substr(at))) {
            *end++ = text[at];
            continue;
        }
        at += kMark.size();
        *end++ = static_cast<char>(static_cast<unsigned char>(text[at]) - kFirst);
    }
    return static_cast<std::size_t>(end - out);
}

}  // namespace cimserver

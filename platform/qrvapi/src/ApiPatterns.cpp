#include <string>

#include "Call.h"
#include "Text.h"
#include "qrvapi/patterns.h"

using namespace qrvapi;

namespace {

constexpr int nothingAsked = -1;

/// The names of the device types, in their order; none for those that ask for nothing.
constexpr std::string_view typeNames[] = {"", "FC", "NL", "FC15", "SSD", "volume", "SSD100", ""};

std::string_view typeName(const devtype_e& type) {
    const int number = numberIn(type);
    if (number < devtype_unknown || number > devtype_all) {
        throw Refusal(ERR_API_INVALID_ARGUMENT, {"deviceType"});
    }
    return typeNames[number];
}

class PatternText {
  public:
    PatternText& add(std::string_view name, std::string_view value) {
        if (value.empty()) return *this;
        text_.append(text_.empty() ? "" : " ").append(name).append("=").append(value);
        return *this;
    }

    PatternText& add(std::string_view name, int value) {
        return value < 0 ? *this : add(name, std::to_string(value));
    }

    std::string finished() const { return text_ + ";"; }

  private:
    std::string text_;
};

std::string textOf(const api_pattern_t& pattern) {
    PatternText text;
    text.add("nodes", fieldText(pattern.node)).add("slots", fieldText(pattern.pci));
    text.add("ports", fieldText(pattern.port)).add("cages", fieldText(pattern.cage));
    text.add("magazines", fieldText(pattern.magazine));
    text.add("positions", fieldText(pattern.magPosition));
    text.add("disks", fieldText(pattern.diskIDs));
    text.add("chunksAbove", pattern.totalChunkGreaterThan);
    text.add("chunksBelow", pattern.totalChunkLessThan);
    text.add("freeAbove", pattern.freeChunkGreaterThan);
    text.add("freeBelow", pattern.freeChunkLessThan);
    text.add("rpm", pattern.rpm).add("models", fieldText(pattern.deviceIDs));
    return text.add("type", typeName(pattern.deviceType)).finished();
}

}  // namespace

int api_initPattern(api_pattern_t* pattern) {
    return codeCall(Function::api_initPattern, noArguments, [&] {
        if (pattern == nullptr) throw Refusal(ERR_API_INVALID_ARGUMENT, {"pattern"});
        *pattern = {};
        pattern->totalChunkGreaterThan = pattern->totalChunkLessThan = nothingAsked;
        pattern->freeChunkGreaterThan = pattern->freeChunkLessThan = nothingAsked;
        pattern->rpm = nothingAsked;
        return 0;
    });
}

int api_constructPattern(char* buffer, int room, const api_pattern_t* pattern) {
    const auto describeArguments = [&](Arguments& arguments) { arguments.number("room", room); };
    return codeCall(Function::api_constructPattern, describeArguments, [&] {
        if (buffer == nullptr || pattern == nullptr) {
            throw Refusal(ERR_API_INVALID_ARGUMENT, {"buffer and pattern"});
        }
        const auto text = textOf(*pattern);
        if (room < 0 || text.size() >= static_cast<std::size_t>(room)) {
            throw Refusal(ERR_API_NO_SPACE);
        }
        buffer[text.copy(buffer, text.size())] = '\0';
        return 0;
    });
}

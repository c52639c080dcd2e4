// Any bytes as a scenario: an array, or a complaint.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "qrvapi_control.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    try {
        qrvapi::control::loadScenarioText(text);
    } catch (const qrvapi::control::ScenarioError&) {
        // what most inputs come to
    }
    return 0;
}

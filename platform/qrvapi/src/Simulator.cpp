#include "Simulator.h"

#include <dlfcn.h>

#include <cstdlib>
#include <filesystem>

#include "Scenario.h"
#include "qrvapi/log.h"
#include "qrvapi_control.h"

namespace qrvapi {
namespace {

namespace fs = std::filesystem;

/// Found from the library's own file, so that an installation can be moved.
fs::path installedSample() {
    Dl_info self{};
    if (dladdr(reinterpret_cast<const void*>(&installedSample), &self) == 0) return {};
    return fs::path(self.dli_fname).parent_path() / QRVAPI_SAMPLE;
}

fs::path usualScenario() {
    const char* const named = std::getenv("QRVAPI_SCENARIO");
    return named == nullptr ? installedSample() : fs::path(named);
}

std::unique_ptr<Model> firstArray() {
    const auto scenario = usualScenario();
    try {
        return readScenarioFile(scenario.string());
    } catch (const control::ScenarioError& error) {
        log_message(2, "The array is empty, as its scenario is unusable: %s", error.what());
        return std::make_unique<Model>();
    }
}

}  // namespace

Simulator& Simulator::instance() {
    static auto& simulator = *new Simulator;
    return simulator;
}

void Simulator::findFirst() {
    std::call_once(first_, [&] {
        auto found = firstArray();
        model_.write([&](auto& model) { model = std::move(found); });
    });
}

void Simulator::replace(std::unique_ptr<Model> replacement) {
    std::call_once(first_, [] {});
    model_.write([&](auto& model) { model.swap(replacement); });
    ++replacements_;
}

}  // namespace qrvapi

#include <algorithm>

#include "Gate.h"
#include "Generator.h"
#include "Instruments.h"
#include "Ledger.h"
#include "LockOrder.h"
#include "Log.h"
#include "Password.h"
#include "Scenario.h"
#include "Simulator.h"
#include "qrvapi_control.h"

namespace qrvapi::control {
namespace {

/// Reads a single thing out of a text and puts it into the array.
template <class Reader>
void changeBy(std::string_view text, const std::string& source, Reader&& reader) {
    const auto document = parseJson(text, source);
    Simulator::instance().change([&](Model& model) { reader(JsonValue(document, source), model); });
}

/// Does what the array may refuse to the thing of that name.
template <class Change>
auto attemptOn(const std::string& name, const std::string& source, Change&& change) {
    const auto document = nlohmann::json(name);
    return Simulator::instance().change([&](Model& model) {
        return JsonValue(document, source).attempt([&] { return change(model); });
    });
}

}  // namespace

void loadScenarioFile(const std::string& path) {
    Simulator::instance().replace(readScenarioFile(path));
}

void loadScenarioText(std::string_view text, const std::string& source) {
    Simulator::instance().replace(readScenario(text, source));
}

void generateArray(const ArraySize& size) {
    Simulator::instance().replace(generate(size));
}

void reset() {
    Simulator::instance().replace(std::make_unique<Model>());
    recordCalls(false);
    clearFaults();
    setLogLevel(Log::usualLevel);
    captureLog(0);
    setGateTimeLimit(Gate::usualTimeLimit);
    limitVlunChunks({});
    resetCounters();
}

void addHost(std::string_view host) {
    changeBy(host, "host", readHost);
}

void removeHost(const std::string& name) {
    attemptOn(name, "host", [&](Model& model) { model.removeHost(name); });
}

void addPath(const std::string& hostName, std::string_view path) {
    changeBy(path, "path",
             [&](const JsonValue& value, Model& model) { readPath(value, hostName, model); });
}

void removePath(const std::string& hostName, std::string_view path) {
    changeBy(path, "path", [&](const JsonValue& value, Model& model) {
        qrvapi::removePath(value, hostName, model);
    });
}

void addUser(std::string_view user) {
    changeBy(user, "user", readUser);
}

void addVolume(std::string_view volume) {
    changeBy(volume, "volume", readVolume);
}

void addVlun(std::string_view vlun) {
    changeBy(vlun, "vlun", readVlun);
}

void removeVlun(std::string_view vlun) {
    changeBy(vlun, "vlun", qrvapi::removeVlun);
}

void lockVolume(const std::string& name, bool locked) {
    attemptOn(name, "volume", [&](Model& model) { model.volumes().volume(name).locked = locked; });
}

bool acceptsChap(const std::string& hostName, ChapSide side, std::string_view name,
                 std::string_view secret) {
    return attemptOn(hostName, "host", [&](const Model& model) {
        const auto& chap = model.host(hostName).chap;
        const auto& kept = side == ChapSide::initiator ? chap.initiator : chap.target;
        return kept.enabled && kept.name == name && kept.secret == secret;
    });
}

void setSystem(std::string_view system) {
    changeBy(system, "system", readSystem);
}

bool authenticate(const std::string& user, const std::string& password) {
    bool isKnown = false;
    // The array isn't held up by the check, and a user that it doesn't know takes as long.
    const auto kept = Simulator::instance().read([&](const Model& model) {
        const auto* const known = model.findUser(user);
        isKnown = known != nullptr;
        return isKnown ? known->password : model.somePassword();
    });
    const bool matches = isPassword(password, kept);
    return isKnown && matches;
}

std::uint64_t arraysSoFar() {
    return Simulator::instance().replacements();
}

void setLogLevel(int level) {
    Log::instance().setLevel(level);
}

void captureLog(int level) {
    Log::instance().capture(level);
}

std::vector<LogLine> takeLogLines() {
    return Log::instance().take();
}

void failCall(std::string_view function, unsigned nth, Repeat repeat, std::optional<int> code) {
    const auto known = functionNamed(function);
    Instruments::instance().failCall(known, nth, repeat, code.value_or(describe(known).failure));
}

void timeOutGate(unsigned nth, Repeat repeat) {
    failCall("cim_sem_wait", nth, repeat);
}

void failAllocation(unsigned nth, Repeat repeat) {
    Instruments::instance().failAllocation(nth, repeat);
}

void clearFaults() {
    Instruments::instance().clearFaults();
}

void limitVlunChunks(std::vector<std::size_t> limits) {
    Instruments::instance().limitChunks(std::move(limits));
}

void setGateTimeLimit(std::chrono::milliseconds limit) {
    Gate::instance().setTimeLimit(limit);
}

std::string CallRecord::argument(std::string_view name) const {
    const auto found = std::find_if(arguments.begin(), arguments.end(),
                                    [&](const auto& argument) { return argument.first == name; });
    return found == arguments.end() ? std::string() : found->second;
}

void recordCalls(bool on) {
    Instruments::instance().record(on);
}

std::vector<CallRecord> calls() {
    return Instruments::instance().calls();
}

std::size_t callCount(std::string_view function) {
    const auto all = calls();
    const std::string_view known = describe(functionNamed(function)).name;
    return static_cast<std::size_t>(std::count_if(
        all.begin(), all.end(), [&](const CallRecord& call) { return call.function == known; }));
}

void resetCounters() {
    Instruments::instance().forgetCalls();
    Ledger::instance().forgetViolations();
    takeLogLines();
}

std::vector<Event> events() {
    return Simulator::instance().read([](const Model& model) { return model.eventLog().events(); });
}

bool Outstanding::idle() const {
    return records == 0 && blocks.value_or(0) == 0 && !gateHeld && lockedTables == 0 &&
           filledTables == 0;
}

Outstanding outstanding() {
    return Ledger::instance().outstanding();
}

std::string describe(const Outstanding& held) {
    return std::to_string(held.records) + " lists, " +
           (held.blocks ? std::to_string(*held.blocks) : "an unknown number of") +
           " blocks, gate " + (held.gateHeld ? "held" : "free") + ", " +
           std::to_string(held.tables) + " tables (" + std::to_string(held.lockedTables) +
           " locked, " + std::to_string(held.filledTables) + " filled)";
}

Locks heldByThisThread() {
    return {Gate::instance().heldByThisThread(), LockOrder::tablesOfThisThread()};
}

std::vector<std::string> violations() {
    return Ledger::instance().violations();
}

void freeIsWatched() noexcept {
    Ledger::instance().freeIsWatched();
}

void noteFreed(const void* block) noexcept {
    Ledger::instance().noteFreed(block);
}

}  // namespace qrvapi::control

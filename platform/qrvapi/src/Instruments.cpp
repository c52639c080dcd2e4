#include "Instruments.h"

#include <algorithm>
#include <limits>
#include <stdexcept>
#include <utility>

#include "Identity.h"

namespace qrvapi {

Arguments& Arguments::text(std::string name, const char* value) {
    record_.arguments.emplace_back(std::move(name), value == nullptr ? "null" : value);
    return *this;
}

Arguments& Arguments::number(std::string name, long long value) {
    record_.arguments.emplace_back(std::move(name), std::to_string(value));
    return *this;
}

Arguments& Arguments::wwn(std::string name, qrv_u64 value) {
    record_.arguments.emplace_back(std::move(name), wwnText(value));
    return *this;
}

Arguments& Arguments::event(const api_evtparam_t* record) {
    if (record != nullptr) record_.event = *record;
    return *this;
}

control::CallRecord Arguments::take(Function function) {
    record_.function = describe(function).name;
    return std::move(record_);
}

Instruments& Instruments::instance() {
    static auto& instruments = *new Instruments;
    return instruments;
}

bool Instruments::Fault::strikes() {
    if (countdown > 1) return --countdown, false;
    const bool struck = countdown == 1;
    if (repeat == control::Repeat::once) countdown = 0;
    return struck;
}

std::optional<int> Instruments::failureOf(std::optional<Function> function) {
    std::optional<int> failure;
    for (auto& fault : faults_) {
        if (fault.function == function && fault.strikes()) failure = fault.code;
    }
    return failure;
}

std::optional<int> Instruments::enter(Function function, Arguments arguments) {
    const std::lock_guard lock(mutex_);
    const auto failure = failureOf(function);
    if (recording_) {
        calls_.push_back(arguments.take(function));
        calls_.back().failedByFault = failure.has_value();
    }
    return failure;
}

bool Instruments::allocationFails() {
    if (!active()) return false;
    const std::lock_guard lock(mutex_);
    return failureOf(std::nullopt).has_value();
}

void Instruments::updateActive() {
    active_.store(recording_ || !faults_.empty(), std::memory_order_relaxed);
}

void Instruments::addFault(Fault fault) {
    if (fault.countdown == 0) throw std::invalid_argument("calls are counted from 1");
    const std::lock_guard lock(mutex_);
    faults_.push_back(fault);
    updateActive();
}

void Instruments::failCall(Function function, unsigned nth, control::Repeat repeat, int code) {
    const auto& row = describe(function);
    if (row.returns == control::Returns::nothing) {
        throw std::invalid_argument(std::string(row.name) + " cannot fail");
    }
    addFault({function, nth, repeat, code});
}

void Instruments::failAllocation(unsigned nth, control::Repeat repeat) {
    addFault({std::nullopt, nth, repeat, 0});
}

void Instruments::clearFaults() {
    const std::lock_guard lock(mutex_);
    faults_.clear();
    updateActive();
}

std::size_t Instruments::nextChunkLimit() {
    const std::lock_guard lock(mutex_);
    if (chunkLimits_.empty()) return std::numeric_limits<std::size_t>::max();
    return chunkLimits_[chunksRead_++ % chunkLimits_.size()];
}

void Instruments::limitChunks(std::vector<std::size_t> limits) {
    const auto isZero = [](std::size_t limit) { return limit == 0; };
    if (!limits.empty() && std::all_of(limits.begin(), limits.end(), isZero)) {
        throw std::invalid_argument("chunks that are all empty would never end");
    }
    const std::lock_guard lock(mutex_);
    chunkLimits_ = std::move(limits);
    chunksRead_ = 0;
}

void Instruments::record(bool on) {
    const std::lock_guard lock(mutex_);
    recording_ = on;
    updateActive();
}

std::vector<control::CallRecord> Instruments::calls() const {
    const std::lock_guard lock(mutex_);
    return calls_;
}

void Instruments::forgetCalls() {
    const std::lock_guard lock(mutex_);
    calls_.clear();
}

}  // namespace qrvapi

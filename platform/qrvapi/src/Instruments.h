#pragma once

#include <atomic>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Functions.h"
#include "qrvapi/types.h"

namespace qrvapi {

/// Gathers what a call was given.
class Arguments {
  public:
    Arguments& text(std::string name, const char* value);
    Arguments& number(std::string name, long long value);
    Arguments& wwn(std::string name, qrv_u64 value);
    /// The record of a call that changes the array; null is left out.
    Arguments& event(const api_evtparam_t* record);

    control::CallRecord take(Function function);

  private:
    control::CallRecord record_;
};

/// Faults to inject and calls to remember. While there are none, a call costs one look at a flag.
class Instruments {
  public:
    static Instruments& instance();

    static bool active() noexcept { return active_.load(std::memory_order_relaxed); }

    /// Notes a call, and answers with its failure when it is to fail.
    std::optional<int> enter(Function function, Arguments arguments);
    /// Whether the allocation that is about to be made is to fail.
    bool allocationFails();

    void failCall(Function function, unsigned nth, control::Repeat repeat, int code);
    void failAllocation(unsigned nth, control::Repeat repeat);
    void clearFaults();

    /// How many records the chunk that is about to be read may have at most.
    std::size_t nextChunkLimit();
    /// The limits of chunks in turn; none for no limits.
    void limitChunks(std::vector<std::size_t> limits);

    void record(bool on);
    std::vector<control::CallRecord> calls() const;
    void forgetCalls();

  private:
    struct Fault {
        std::optional<Function> function;  // absent for allocations
        unsigned countdown;                // strikes at 1; 0 is spent
        control::Repeat repeat;
        int code;

        bool strikes();
    };

    std::optional<int> failureOf(std::optional<Function> function);
    void addFault(Fault fault);
    void updateActive();

    static inline std::atomic<bool> active_{false};
    mutable std::mutex mutex_;
    bool recording_ = false;
    std::vector<Fault> faults_;
    std::vector<control::CallRecord> calls_;
    std::vector<std::size_t> chunkLimits_;
    std::size_t chunksRead_ = 0;
};

/// To be asked at the start of every call: notes it while anyone wants that, and answers with the
/// failure that the call has to report at once.
template <class Describe>
std::optional<int> instrumented(Function function, Describe&& describeArguments) {
    if (!Instruments::active()) return std::nullopt;
    Arguments arguments;
    describeArguments(arguments);
    return Instruments::instance().enter(function, std::move(arguments));
}

inline void noArguments(Arguments&) {}

}  // namespace qrvapi

/// @file
/// The other side of the simulated array: what a program that embeds it, and a test, can do to it.
///
/// There is one array in a process, and all functions here act on it. Every function may be called
/// from any thread, and none needs the access gate. Bad input throws: ScenarioError for a
/// description of the array, std::invalid_argument for anything else.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "qrvapi/events.h"

#pragma GCC visibility push(default)

namespace qrvapi::control {

// ---- What the array holds -----------------------------------------------------------------------

/// A description of the array is wrong. The text names the source and the place in it: line and
/// column for broken JSON, otherwise a JSON pointer.
class ScenarioError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// Replaces the whole array by the one that the scenario describes (docs/scenario.md). When the
/// scenario is wrong the array stays as it is. `source` is the name for error texts.
void loadScenarioFile(const std::string& path);
void loadScenarioText(std::string_view text, const std::string& source = "scenario");

/// How large an array to make.
struct ArraySize {
    std::size_t hosts = 0;
    std::size_t fcPathsPerHost = 0;
    std::size_t iscsiPathsPerHost = 0;
    std::size_t unassignedPaths = 0;  ///< FC initiators of no host.
    std::size_t vlunsPerHost = 0;     ///< Active ones; the first of each host has LUN 0, and so on.
    std::size_t templatesPerHost = 0;
};

/// Replaces the whole array by a made-up one, the same for the same size. It has the users,
/// personas and ports of a small array; hosts are named host0000000, host0000001 and so on. The
/// VLUNs of a host, and its templates, are by turns host sees and matched set on each of its ports,
/// the n-th of any host for the n-th volume. LUNs start again after 16383.
void generateArray(const ArraySize& size);

/// Replaces the whole array by an empty one without users, and forgets faults, recorded calls,
/// captured log lines, violations, and changed limits. What callers still hold stays outstanding.
void reset();

/// Single changes. The texts are JSON objects in the scenario's form for the thing: a host, a path,
/// a user, the system. An empty host name means the paths of no host. A change that the array
/// refuses throws ScenarioError with the array's text.
void addHost(std::string_view host);
void removeHost(const std::string& name);
void addPath(const std::string& hostName, std::string_view path);
void removePath(const std::string& hostName, std::string_view path);
void addUser(std::string_view user);
void addVolume(std::string_view volume);
void addVlun(std::string_view vlun);
void removeVlun(std::string_view vlun);
void setSystem(std::string_view system);

/// Locks a volume, so that it can't be removed, or unlocks it. Throws ScenarioError for an unknown
/// one.
void lockVolume(const std::string& name, bool locked = true);

/// Whether these are the CHAP credentials that the array keeps for a direction of a host; a hex
/// secret is given as its bytes. Throws ScenarioError for an unknown host.
enum class ChapSide { initiator, target };
bool acceptsChap(const std::string& hostName, ChapSide side, std::string_view name,
                 std::string_view secret);

/// Whether the array knows `user` with this password. Takes as long for a wrong one as for the
/// right one, and with hashed passwords as long as their method wants.
bool authenticate(const std::string& user, const std::string& password);

/// A number that is another one whenever a scenario has replaced the array, and with it its users.
std::uint64_t arraysSoFar();

// ---- Log ----------------------------------------------------------------------------------------

/// One call of log_message(), with its text as it was given.
struct LogLine {
    int level;
    std::string text;
};

/// Entries above `level` aren't written. At the start it is 2.
void setLogLevel(int level);
/// From now on keeps entries up to `level` besides, whatever is written; 0 ends that.
void captureLog(int level);
/// Hands over what was kept.
std::vector<LogLine> takeLogLines();

// ---- Faults -------------------------------------------------------------------------------------

/// What a call answers with.
enum class Returns {
    nothing,  ///< The call can't fail.
    code,     ///< An int, 0 for success.
    status,   ///< An api_Status_t.
    pointer   ///< Null for failure.
};

/// One call of the library.
struct ApiFunction {
    std::string_view name;
    Returns returns;
    int failure;             ///< What an injected failure answers that names no code.
    std::vector<int> codes;  ///< All that the call can fail with; 0 is a null pointer.
    bool gated;              ///< Whether the call has to be made under the access gate.
    bool allocates;          ///< Whether failAllocation() can strike the call.
};

/// Every call of the library but log_message(), for which there is captureLog(); in the order of
/// their names.
const std::vector<ApiFunction>& functions();

enum class Repeat { once, always };

/// Lets the `nth` call of `function` from now on fail before it does anything, or that one and all
/// that follow. `code` takes the place of the function's own failure code. Each injection counts
/// for itself.
void failCall(std::string_view function, unsigned nth = 1, Repeat repeat = Repeat::once,
              std::optional<int> code = std::nullopt);
/// Lets the `nth` wait for the gate end at once, as if its time had run out.
void timeOutGate(unsigned nth = 1, Repeat repeat = Repeat::once);
/// Lets the `nth` allocation of a record or a table from now on fail.
void failAllocation(unsigned nth = 1, Repeat repeat = Repeat::once);
/// Withdraws all faults.
void clearFaults();

/// Lets the next chunk of VLUNs that is read have at most `limits[0]` records, the one after it
/// `limits[1]` and so on, again and again; 0 makes an empty one. No limits end that.
void limitVlunChunks(std::vector<std::size_t> limits);

/// How long a wait for the gate lasts at most; 30 s at the start.
void setGateTimeLimit(std::chrono::milliseconds limit);

// ---- What callers do ----------------------------------------------------------------------------

/// One call of the library. Texts stand as given, null as "null", numbers in decimal, WWNs as 16
/// hexadecimal digits, lists with commas. A CHAP secret is never kept: three asterisks stand for
/// it.
struct CallRecord {
    std::string function;
    std::vector<std::pair<std::string, std::string>> arguments;
    std::optional<api_evtparam_t> event;  ///< In calls that change the array.
    bool failedByFault = false;

    /// The argument of that name; empty when the call has none.
    std::string argument(std::string_view name) const;
};

/// Starts or stops keeping every call.
void recordCalls(bool on);
/// The calls kept so far, in order.
std::vector<CallRecord> calls();
/// How many of the calls kept were calls of `function`.
std::size_t callCount(std::string_view function);
/// Forgets the calls kept, captured log lines and violations.
void resetCounters();

/// One entry of the array's event log.
struct Event {
    std::string function;  ///< The call that made the change.
    api_evtparam_t record;
    std::string change;  ///< What was changed, in words without secrets.
};

/// The array's event log, the oldest entry first; it holds 10000 at most. Another array has
/// another log.
std::vector<Event> events();

/// What callers hold at this moment.
struct Outstanding {
    /// Lists, filters and walks that go back through a call of the library.
    std::size_t records = 0;
    /// Blocks that go back through free(). Only a program that links qrvapi_free_watch sees free();
    /// in all others this is unknown, which isn't the same as none.
    std::optional<std::size_t> blocks;
    bool gateHeld = false;
    std::size_t tables = 0;  ///< String tables, which providers keep for life.
    std::size_t lockedTables = 0;
    std::size_t filledTables = 0;

    /// Nothing is held but empty, unlocked tables, as it is between operations.
    bool idle() const;
};

Outstanding outstanding();
/// One line about it, for the message of a failed test.
std::string describe(const Outstanding& held);

/// What the calling thread holds at this moment.
struct Locks {
    bool gate = false;
    std::size_t tables = 0;
};

Locks heldByThisThread();

/// What callers did wrong since the last reset: a gated call without the gate, a post without a
/// wait, a record given back twice, a table used without its lock; and what could end in a
/// deadlock: a table locked under the gate, a wait for the gate by its holder, two tables locked in
/// both orders.
std::vector<std::string> violations();

/// For qrvapi_free_watch alone: tells that free() is watched, and what goes to it.
void freeIsWatched() noexcept;
void noteFreed(const void* block) noexcept;

}  // namespace qrvapi::control

#pragma GCC visibility pop

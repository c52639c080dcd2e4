// Every array call and every up-call of every operation fails once, in each way it can: the answer
// is the documented one, nothing stays held, and the next operation works.
#include <QRV_InternalCacheService.h>
#include <qrvapi.h>

#include <map>
#include <set>

#include "FailingServer.h"
#include "MethodCalls.h"
#include "ModuleTest.h"
#include "Operations.h"

namespace control = qrvapi::control;
using namespace qrvtest;

namespace {

/// A call that is to fail, or all calls of a function.
struct Fault {
    static constexpr unsigned EACH = 0;

    std::string function;
    unsigned nth;
    int code;

    std::string call() const {
        return function + "#" + (nth == EACH ? "all" : std::to_string(nth));
    }
    std::string text() const { return call() + ":" + std::to_string(code); }
};

std::string arrayText(int code) {
    api_Status_t status{};
    status.code = static_cast<api_ErrorCode_t>(code);
    char text[512];
    api_getErrorTextNoNL(text, sizeof text, &status);
    return text;
}

unsigned faults = 0;  ///< injected so far

/// Tells at the end how much was tried.
class Report : public testing::Environment {
  public:
    void TearDown() override {
        std::cout << faults << " faults injected into "
                  << testing::UnitTest::GetInstance()->test_to_run_count()
                  << " operations and starts\n";
    }
};

const testing::Environment* const report = testing::AddGlobalTestEnvironment(new Report);

class FaultSweepTest : public ModuleTest, public testing::WithParamInterface<Operation> {
  protected:
    using Failure = FailingServer::Failure;

    /// Runs the operation on the array as it was at first, with no class known yet, and gives its
    /// failure, or what the handler saw.
    std::string run(unsigned failingDeliver = 0, unsigned failingUpCall = 0,
                    Failure failure = Failure::refusal) {
        reloadArray();
        exportVolumes();
        control::limitVlunChunks({3});
        Pegasus::QRV_InternalCacheService::getInstance()->forgetClasses();
        Recording recording;
        recording.failDeliver(failingDeliver, failure == Failure::foreign);
        _upCalls.fail(failingUpCall, failure);
        const std::string outcome = outcomeOf([&] { GetParam().run(*_asked, recording); });
        EXPECT_TRUE(streams() || !recording.underTable());
        _deliveries = recording.deliveries();
        if (!outcome.empty()) return outcome;
        std::string seen;
        for (const std::string& event : recording.events()) seen += event + "\n";
        return seen;
    }

    /// What the handler saw, one by one.
    static std::vector<std::string> eventsOf(const std::string& answer) {
        std::vector<std::string> events;
        for (std::size_t begin = 0; begin < answer.size();) {
            const std::size_t end =
                std::min({answer.find("\n//", begin), answer.find("\ncomplete", begin),
                          answer.size() - 1}) +
                1;
            events.push_back(answer.substr(begin, end - begin));
            begin = end;
        }
        return events;
    }

    /// The answer without what it says twice.
    static std::string withoutRepeats(const std::string& answer) {
        std::string once;
        std::set<std::string> said;
        for (const std::string& event : eventsOf(answer))
            if (said.insert(event).second) once += event;
        return once;
    }

    /// Whether a completed answer is another one with something left out.
    static bool isPartOf(const std::string& part, const std::string& whole) {
        const std::vector<std::string> all = eventsOf(whole);
        auto next = all.begin();
        for (const std::string& event : eventsOf(part)) {
            next = std::find(next, all.end(), event);
            if (next++ == all.end()) return false;
        }
        return next == all.end() && part.rfind("processing\n", 0) == 0;
    }

    bool isAsLoose(const std::string& expected, const std::string& answer) const {
        return (expected == SOME && isPartOf(answer, _clean)) ||
               (expected == MORE && isPartOf(_clean, answer));
    }

    /// What is documented for a fault, the more particular first; empty when nothing is.
    static std::string documented(const Fault& fault) {
        for (const std::string& key :
             {fault.text(), fault.call(), fault.function + ":" + std::to_string(fault.code),
              fault.function}) {
            const auto answer = GetParam().answers.find(key);
            if (answer != GetParam().answers.end()) return answer->second;
        }
        return "";
    }

    static std::string refusal(int code) {
        const auto own = GetParam().codes.find(code);
        return std::to_string(own == GetParam().codes.end() ? 4 : own->second) + " " +
               arrayText(code);
    }

    /// Walks over VLUNs deliver as they go, under the lock of their provider's table.
    static bool streams() {
        const std::string& provider = GetParam().provider;
        return provider == "QRV_AuthorizedPrivilegeProvider" ||
               provider.find("SPCAssociatedPrivilege") != std::string::npos;
    }

    /// The failure of a deliver or an up-call, as the client sees it when nobody minds it.
    static std::string failureText(const Fault& fault) {
        if (Failure(fault.code) == Failure::foreign) return "foreign broken";
        return fault.function == "deliver" ? "1 client hung up" : "1 up-call failed";
    }

    std::string expectedAnswer(const Fault& fault) const {
        const std::string answer = documented(fault);
        if (answer == PASSES) return failureText(fault);
        if (answer == REFUSED) return refusal(fault.code);
        if (answer == UNTOUCHED) return "";
        if (answer == SOME || answer == MORE) return answer;
        if (const auto text = answer.find("%s"); text != std::string::npos)
            return std::string(answer).replace(text, 2, arrayText(fault.code));
        return answer == UNCHANGED || answer == REPEATED ? _clean : answer;
    }

    /// Nothing is held, a failed operation has changed nothing, and the next run is clean.
    void expectIntact(const std::string& answer, const std::string& fault) {
        control::clearFaults();
        const control::Outstanding held = control::outstanding();
        EXPECT_TRUE(held.idle()) << fault << ": " << control::describe(held);
        const bool failed = answer.rfind("processing", 0) != 0;
        EXPECT_TRUE(!failed || hostsText() == _array) << fault << hostsText();
        EXPECT_EQ(run(), _clean) << "after " << fault;
    }

    void expectAnswer(const Fault& fault, const std::string& answer) {
        SCOPED_TRACE(fault.text());
        ++faults;
        ASSERT_NE(documented(fault), "") << "no answer is documented: " << answer;
        if (isAsLoose(documented(fault), answer)) return;
        EXPECT_EQ(documented(fault) == REPEATED ? withoutRepeats(answer) : answer,
                  expectedAnswer(fault));
    }

    /// The fault whose answer is given when all calls of a function fail: the first one that shows,
    /// unless there is an answer to all of them.
    static Fault decisive(const control::ApiFunction& function, std::size_t calls) {
        Fault fault{std::string(function.name), Fault::EACH, function.failure};
        if (GetParam().answers.count(fault.call()) != 0) return fault;
        fault.nth = 1;
        while (documented(fault) == UNCHANGED && fault.nth < calls) ++fault.nth;
        return fault;
    }

    /// Every call of a function fails once in each way it can, and then all of them.
    void failCalls(const control::ApiFunction& function, std::size_t calls) {
        for (unsigned nth = 1; nth <= calls; ++nth)
            for (const int code : function.codes) {
                control::failCall(function.name, nth, control::Repeat::once, code);
                const std::string answer = run();
                const Fault fault{std::string(function.name), nth, code};
                expectAnswer(fault, answer);
                expectIntact(answer, fault.text());
            }
        control::failCall(function.name, 1, control::Repeat::always);
        const std::string answer = run();
        expectAnswer(decisive(function, calls), answer);
        expectIntact(answer, std::string(function.name) + " for good");
    }

    /// Each allocation fails once; the answer is that of a call that allocates.
    void failAllocations() {
        std::set<std::string> answers;
        std::size_t calls = 0;
        for (const auto& [function, count] : _calls) {
            if (!function->allocates) continue;
            for (unsigned nth = 1; nth <= count; ++nth)
                answers.insert(
                    expectedAnswer({std::string(function->name), nth, ERR_API_NO_MEMORY}));
            calls += count;
        }
        for (unsigned nth = 1; nth <= calls; ++nth, ++faults) {
            control::failAllocation(nth);
            const std::string answer = run();
            EXPECT_TRUE(answers.count(withoutRepeats(answer)) == 1 ||
                        (answers.count(SOME) == 1 && isPartOf(answer, _clean)))
                << answer;
            expectIntact(answer, "allocation " + std::to_string(nth));
        }
    }

    /// What the client sees isn't taken back when it hangs up, so the array may have changed.
    void failDeliveries() {
        const unsigned deliveries = _deliveries;
        for (unsigned nth = 1; nth <= deliveries; ++nth)
            for (const Failure failure : {Failure::refusal, Failure::foreign}) {
                expectAnswer({"deliver", nth, int(failure)}, run(nth, 0, failure));
                EXPECT_TRUE(control::outstanding().idle())
                    << control::describe(control::outstanding());
            }
        EXPECT_EQ(run(), _clean);
    }

    /// Each up-call, the fetch of a class among them, fails once in each way it can.
    void failUpCalls() {
        const std::vector<std::string> calls = _upCalls.calls();
        for (unsigned nth = 1; nth <= calls.size(); ++nth)
            for (const Failure failure : {Failure::refusal, Failure::foreign, Failure::nothing}) {
                const std::string& name = calls[nth - 1];
                if (failure == Failure::nothing && name == "getClass") continue;
                const auto same = std::count(calls.begin(), calls.begin() + nth, name);
                const Fault fault{name, unsigned(same), int(failure)};
                const std::string answer = run(0, nth, failure);
                expectAnswer(fault, answer);
                expectIntact(answer, fault.text());
            }
    }

    /// A provider that got no memory for its table does without what it needs the table for.
    void failTable() {
        control::failCall("create_string_hashtable");
        ModuleProvider poor(GetParam().provider, _upCalls);
        _asked = &poor;
        const std::string answer = run();
        expectAnswer({"create_string_hashtable", 1, 0}, answer);
        _asked = &_provider;
        expectIntact(answer, "create_string_hashtable");
    }

    /// Runs without a fault and notes how often each function is called that can fail.
    void runClean() {
        _array = hostsText();
        _clean = run();  // which makes the server load what it needs
        control::recordCalls(true);
        EXPECT_EQ(run(), _clean);
        control::recordCalls(false);
        for (const control::ApiFunction& function : control::functions())
            if (const auto count = control::callCount(function.name))
                if (function.returns != control::Returns::nothing)
                    _calls.push_back({&function, count});
    }

    std::string _clean, _array;
    std::vector<std::pair<const control::ApiFunction*, std::size_t>> _calls;
    unsigned _deliveries = 0;

  private:
    FailingServer _upCalls{broker()};
    ModuleProvider _provider{GetParam().provider, _upCalls};
    ModuleProvider* _asked = &_provider;
};

TEST_P(FaultSweepTest, everyFailureHasItsAnswer) {
    runClean();
    const auto refusal = GetParam().answers.find(CLEAN);
    if (refusal == GetParam().answers.end())
        ASSERT_THAT(_clean, testing::StartsWith("processing\n"));
    else
        ASSERT_EQ(_clean, refusal->second);
    failUpCalls();
    failDeliveries();
    for (const auto& [function, count] : _calls) failCalls(*function, count);
    failAllocations();
    failTable();
}

/// Providers come up by up-calls, of which some have another way to the same answer.
class InitializationTest : public ModuleTest, public testing::WithParamInterface<std::string> {
  protected:
    InitializationTest() { cimserver::setLocalServer(&_upCalls); }
    ~InitializationTest() override { cimserver::setLocalServer(&broker()); }

    std::string initialize(unsigned failingUpCall, FailingServer::Failure failure) {
        Pegasus::QRV_InternalCacheService::getInstance()->forgetClasses();
        _upCalls.fail(failingUpCall, failure);
        return outcomeOf([&] { const ModuleProvider provider(GetParam(), _upCalls); });
    }

    /// The system's host name is asked for in one way only, and so is a service of the module.
    bool isVital(const std::string& call) const {
        return call == "invokeMethod GetSystemHostName" ||
               (call == "enumerateInstanceNames" && GetParam().rfind("QRV_Mgmt", 0) == 0) ||
               call == "getInstance";
    }

    FailingServer _upCalls{broker()};
};

TEST_P(InitializationTest, aProviderComesUpOrSaysWhyNot) {
    using Failure = FailingServer::Failure;
    for (int i = 0; i < 2; ++i) ASSERT_EQ(initialize(0, Failure::refusal), "");
    const std::vector<std::string> calls = _upCalls.calls();
    const std::size_t tables = control::outstanding().tables;
    for (unsigned nth = 1; nth <= calls.size(); ++nth) {
        const auto fails = [&](const char* text) {
            return isVital(calls[nth - 1]) ? testing::ContainsRegex(std::string(text) + "$")
                                           : testing::ContainsRegex("^$");
        };
        for (const auto& [failure, text] :
             {std::pair(Failure::refusal, "up-call failed"), {Failure::foreign, "broken"}}) {
            EXPECT_THAT(initialize(nth, failure), fails(text)) << calls[nth - 1] << "#" << nth;
            EXPECT_EQ(initialize(0, failure), "");
            ++faults;
        }
    }
    EXPECT_TRUE(control::outstanding().idle());
    EXPECT_EQ(control::outstanding().tables, tables);
}

std::string testName(const testing::TestParamInfo<Operation>& operation) {
    std::string name = operation.param.name;
    std::replace(name.begin(), name.end(), '.', '_');
    return name;
}

std::set<std::string> providers() {
    std::set<std::string> names;
    for (const Operation& operation : operations()) names.insert(operation.provider);
    return names;
}

INSTANTIATE_TEST_SUITE_P(Module, FaultSweepTest, testing::ValuesIn(operations()), testName);

INSTANTIATE_TEST_SUITE_P(Module, InitializationTest, testing::ValuesIn(providers()),
                         [](const auto& provider) { return provider.param; });

}  // namespace

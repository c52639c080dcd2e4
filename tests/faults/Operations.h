// The operations of every provider, and what is documented for the failure of each call in them.
#pragma once

#include <functional>
#include <map>
#include <ostream>
#include <string>
#include <vector>

#include "Handlers.h"
#include "TestServer.h"

namespace qrvtest {

// What an answer may be beside the text of a failure; "%s" in such a text is the array's own.
constexpr const char* EMPTY = "processing\ncomplete\n";  ///< a completed answer with nothing in it
constexpr const char* UNCHANGED = "unchanged";           ///< the answer of the clean run
constexpr const char* UNTOUCHED = "untouched";           ///< no answer at all, and no failure
constexpr const char* REPEATED = "repeated";  ///< the clean run's, but an initiator may come again
constexpr const char* SOME = "some";          ///< a completed answer of what could be read
constexpr const char* MORE = "more";  ///< the clean run's among others: nothing narrowed the walk
constexpr const char* REFUSED = "refused";  ///< the method's code and the array's text
constexpr const char* PASSES = "passes";    ///< the failure itself reaches the client

constexpr const char* CLEAN = "clean";  ///< what "fails" where an operation is refused in any event

/// The answers by what fails: any call of a function ("api_getHosts"), the first one
/// ("api_getHosts#1"), one with a code ("api_getHosts:3") or both ("api_getHosts#1:3"). All
/// calls together ("api_getHosts#all") are named where they don't do what the first one does whose
/// answer isn't UNCHANGED. "create_string_hashtable" is the provider's own table, without which it
/// comes up; "cim_sem_wait" is a time-out of the gate, "deliver" the handler giving up,
/// "getInstance" an up-call of that name. Codes of the last two are 0 for a refusal, 1 for an
/// exception that isn't Pegasus's own and 2 for an answer without anything in it.
using Answers = std::map<std::string, std::string>;

struct Operation {
    std::string name;
    std::string provider;
    std::function<void(ModuleProvider&, Recording&)> run;
    Answers answers;
    std::map<int, int> codes = {};  ///< the method's code for one of the array's, where it isn't 4
};

void PrintTo(const Operation&, std::ostream*);

/// All that the 21 providers and the siblings' offer.
const std::vector<Operation>& operations();

}  // namespace qrvtest

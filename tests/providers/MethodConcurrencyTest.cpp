// Many clients that create and delete the same initiators at once, through the server.
#include <map>
#include <mutex>
#include <regex>
#include <thread>

#include "MethodTest.h"

namespace control = qrvapi::control;
using namespace Pegasus;
using namespace qrvtest;

namespace {

constexpr int THREADS = 8, ROUNDS = 100;
const std::string IDS[] = {"1000000000A1B201", "1000000000A1B202", "1000000000A1B203"};
const std::string HOSTS[] = {"g", "h", "n"};  // there is no n at first

/// Each outcome that a client may see. What it asks for depends on what others do meanwhile.
const std::map<std::string, const char*> OUTCOMES = {
    {"CreateStorageHardwareID",
     "|4096 Path \\w+ on port (none|0:1:1) already exists|5 Path \\w+ on port (none|0:1:1) is "
     "given "
     "twice|4 Host n already exists"},
    {"AddHardwareIDsToCollection",
     "|4 Path \\w+ on port (none|0:1:1) already exists|5 Path \\w+ on port (none|0:1:1) is given "
     "twice|4096 Host n does not exist"},
    {"DeleteStorageHardwareID",
     "|4096 StorageHardwareID root/qrv:QRV_StorageHardwareID.InstanceID=\"ORVELIS:FC-\\w+\" not "
     "found|4096 Path \\w+ does not exist|4 No host name was given"}};

struct Request {
    std::string method, parameters;
};

Request requestOfTurn(int turn) {
    const std::string& id = IDS[turn % 3];
    const std::string& host = HOSTS[turn / 3 % 3];
    switch (turn % 4) {
        case 0:
            return {"CreateStorageHardwareID", "IDType#2 ElementName=" + host + " StorageID=" + id};
        case 1:
            return {"AddHardwareIDsToCollection",
                    "Collection@" + collectionOf(host) + " HardwareIDs[" + fcID(id) + "]"};
        default:
            return {"DeleteStorageHardwareID", "HardwareID@" + fcID(id)};
    }
}

class MethodConcurrencyTest : public MethodTest {
  protected:
    /// Asks as the thread's own user and counts what succeeded.
    void ask(int thread, int turn) {
        const Request request = requestOfTurn(turn);
        Array<CIMParamValue> out;
        const std::string outcome = outcomeOf([&] {
            broker().invokeMethod(requestOf(userOf(thread)), CIMNamespaceName("root/qrv"),
                                  pathOf(SERVICE), CIMName(request.method.c_str()),
                                  inParameters(given(request.parameters)), out);
        });
        const std::lock_guard lock(_mutex);
        EXPECT_TRUE(std::regex_match(outcome, std::regex(OUTCOMES.at(request.method)))) << outcome;
        if (outcome.empty()) ++_successes[{userOf(thread), request.method}];
    }

    static std::string userOf(int thread) { return "user" + std::to_string(thread); }

    int successes(const std::string& user, const char* method) {
        return _successes[{user, method}];
    }

  private:
    std::mutex _mutex;
    std::map<std::pair<std::string, std::string>, int> _successes;
};

TEST_F(MethodConcurrencyTest, theArrayStaysConsistentAndEveryClientGetsAnAnswer) {
    setHosts("g/2: iqn.g; h/2: iqn.h; -: " + IDS[2] + "@0:1:1");
    std::vector<std::thread> threads;
    for (int i = 0; i < THREADS; ++i) {
        control::addUser(R"({"password": "", "rights": "all", "name": ")" + userOf(i) + "\"}");
        threads.emplace_back([this, i] {
            for (int round = 0; round < ROUNDS; ++round) ask(i, i * 5 + round);
        });
    }
    for (std::thread& thread : threads) thread.join();

    // The array's own record of the changes makes sense one by one, up to the state at the end.
    std::map<std::string, std::string> owners;
    std::map<std::pair<std::string, std::string>, int> made;
    const std::regex change("host (\\w+): (created with |without |)path (\\w+)");
    for (const control::Event& event : control::events()) {
        std::smatch found;
        ASSERT_TRUE(std::regex_match(event.change, found, change)) << event.change;
        std::string& owner = owners[found[3]];
        const bool leaves = found[2] == "without ";
        EXPECT_EQ(owner, leaves ? found[1].str() : "") << event.change;
        owner = leaves ? "" : found[1].str();
        const std::string method(event.record.method);
        ++made[{event.record.user, method.substr(method.find(':') + 1)}];
    }
    std::map<std::string, std::string> atTheEnd;
    for (const std::string& id : IDS) {
        const std::string outcome = call("DeleteStorageHardwareID", "HardwareID@" + fcID(id));
        for (const std::string& host : HOSTS)
            if (changes() ==
                std::vector<std::string>{"api_removePath host " + host + ": without path " + id})
                atTheEnd[id] = host;
        EXPECT_EQ(owners[id], atTheEnd[id]) << outcome;
    }

    // And each client knows what it has changed itself.
    for (int i = 0; i < THREADS; ++i) {
        const std::string user = userOf(i);
        for (const char* method : {"DeleteStorageHardwareID", "AddHardwareIDsToCollection"})
            EXPECT_EQ(successes(user, method), (made[{user, method}])) << user << " " << method;
        EXPECT_GE(successes(user, "CreateStorageHardwareID"),
                  (made[{user, "CreateStorageHardwareID"}]));
    }
}

}  // namespace

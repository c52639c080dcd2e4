// Clients ask about hosts that stay as they are while others make, change and remove hosts beside
// them: every answer is whole, and at the end the array is as it was at first.
#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <iostream>
#include <mutex>
#include <random>
#include <thread>

#include "MethodCalls.h"
#include "ModuleTest.h"

namespace control = qrvapi::control;
using namespace Pegasus;
using namespace qrvtest;

namespace {

using Texts = std::vector<std::string>;
using cimserver::AssociationFilter;
using cimserver::LocalServer;

const CIMNamespaceName QRV("root/qrv");
constexpr int ASKERS = 3, WALKERS = 1, CHANGERS = 2;

std::chrono::seconds soakTime() {
    const char* const seconds = std::getenv("QRV_SOAK_SECONDS");
    return std::chrono::seconds(seconds == nullptr ? 2 : std::atoi(seconds));
}

/// What is asked again and again. The answer about what doesn't change is always the same one; an
/// answer that others share has it in it.
struct Question {
    std::string text;
    bool isShared;
    std::function<void(Texts&)> ask;
    Texts answer = {};

    Texts sorted() const {
        Texts found;
        ask(found);
        std::sort(found.begin(), found.end());
        return found;
    }
};

class SoakTest : public ModuleTest {
  protected:
    SoakTest() {
        control::generateArray({12, 2, 1, 0, 3, 1});
        control::limitVlunChunks({7});  // so that walks and changes meet
    }

    std::vector<CIMObjectPath> names(const char* className) {
        std::vector<CIMObjectPath> found;
        broker().enumerateInstanceNames(_context, QRV, CIMName(className),
                                        [&](const CIMObjectPath& path) { found.push_back(path); });
        return found;
    }

    void askAboutClass(const char* className) {
        _questions.push_back({className, true, [=](Texts& found) {
                                  broker().enumerateInstances(_context, QRV, CIMName(className), {},
                                                              [&](const CIMInstance& each) {
                                                                  found.push_back(textOf(each));
                                                              });
                              }});
    }

    void askAboutInstance(const CIMObjectPath& path) {
        _questions.push_back({"getInstance " + textOf(path), false, [=](Texts& found) {
                                  found.push_back(
                                      textOf(broker().getInstance(_context, QRV, path, {})));
                              }});
    }

    void askAboutLinks(const CIMObjectPath& path, bool isShared) {
        _places.push_back(path);
        const auto add = [&](const char* operation, std::function<void(Texts&)> ask) {
            _questions.push_back({operation + textOf(path), isShared, std::move(ask)});
        };
        const auto objectsTo = [](Texts& found) {
            return [&found](const CIMObject& each) { found.push_back(textOf(each)); };
        };
        const auto pathsTo = [](Texts& found) {
            return [&found](const CIMObjectPath& each) { found.push_back(textOf(each)); };
        };
        add("associators ", [=](Texts& found) {
            broker().associators(_context, QRV, path, {}, {}, objectsTo(found));
        });
        add("associatorNames ", [=](Texts& found) {
            broker().associatorNames(_context, QRV, path, {}, pathsTo(found));
        });
        add("references ", [=](Texts& found) {
            broker().references(_context, QRV, path, {}, {}, objectsTo(found));
        });
        add("referenceNames ", [=](Texts& found) {
            broker().referenceNames(_context, QRV, path, {}, pathsTo(found));
        });
    }

    /// Questions about all classes and, in all ways, about some objects of each; and their answers.
    void prepare() {
        for (const char* className :
             {"QRV_StorageHardwareID", "QRV_StorageHardwareIDCollection", "QRV_AuthorizedPrivilege",
              "QRV_SCSIController", "QRV_iSCSIController"}) {
            askAboutClass(className);
            const std::vector<CIMObjectPath> paths = names(className);
            for (std::size_t i = 0; i < paths.size(); i += 5) {
                askAboutInstance(paths[i]);
                askAboutLinks(paths[i], false);
            }
        }
        for (const char* className :
             {"QRV_StorageSystem", "QRV_StorageHardwareIDManagementService",
              "QRV_PrivilegeManagementService", "QRV_StorageClientSettingData"})
            for (const CIMObjectPath& path : names(className)) askAboutLinks(path, true);
        _service = names("QRV_StorageHardwareIDManagementService").at(0);
        for (Question& question : _questions) question.answer = question.sorted();
    }

    void check(const Question& question) {
        Texts found;
        const std::string outcome = outcomeOf([&] { found = question.sorted(); });
        const Texts& wanted = question.answer;
        const bool isWhole = question.isShared ? std::includes(found.begin(), found.end(),
                                                               wanted.begin(), wanted.end())
                                               : found == wanted;
        const bool isOnce = std::adjacent_find(found.begin(), found.end()) == found.end();
        if (outcome.empty() && isWhole && isOnce) return;
        complain(question.text + (isOnce ? ": " : " (twice): ") + outcome +
                 testing::PrintToString(found));
    }

    /// Goes from object to object, whatever is there at the time.
    void walk(std::mt19937& random) {
        CIMObjectPath place = _places[random() % _places.size()];
        for (int step = 0; step < 6; ++step) {
            std::vector<CIMObjectPath> next;
            const std::string outcome = outcomeOf([&] {
                broker().associatorNames(_context, QRV, place, {},
                                         [&](const CIMObjectPath& path) { next.push_back(path); });
            });
            if (!outcome.empty()) complain("walk to " + textOf(place) + ": " + outcome);
            if (next.empty()) return;
            place = next[random() % next.size()];
        }
    }

    std::string call(const char* method, const std::string& parameters) {
        Array<CIMParamValue> out;
        return outcomeOf([&] {
            broker().invokeMethod(_context, QRV, _service, CIMName(method),
                                  inParameters(given(parameters)), out);
        });
    }

    std::string modify(const CIMObjectPath& path, const char* property, const CIMValue& value) {
        CIMInstance instance(path.getClassName());
        instance.addProperty(CIMProperty(CIMName(property), value));
        instance.setPath(path);
        return outcomeOf([&] {
            broker().modifyInstance(_context, QRV, instance,
                                    {false, false, properties({property})});
        });
    }

    /// The controller of a host's own VLUN.
    CIMObjectPath controllerOf(const std::string& wwn) {
        CIMObjectPath found;
        broker().associatorNames(
            _context, QRV, pathOf(fcID(wwn)),
            {CIMName("QRV_SPCAssociatedPrivilege"), CIMName(), String(), String()},
            [&](const CIMObjectPath& path) { found = path; });
        return found;
    }

    /// The life of a host of the thread's own, in which every step shows.
    void change(int thread, unsigned round) {
        const std::string name = "own" + std::to_string(thread), renamed = name + "b";
        const std::string wwn = "2AAA00000000000" + std::to_string(thread);
        const std::string second = "2BBB00000000000" + std::to_string(thread);
        const std::string vlun =
            R"({"kind": "hostSees", "volume": "volume0", "lun": 99, "host": ")";
        const auto expect = [&](const char* step, const std::string& found,
                                const std::string& wanted = "") {
            if (found != wanted) complain(step + (" of " + name + ": ") + found);
        };
        expect("creation", call("CreateHardwareIDCollection",
                                "ElementName=" + name + " HardwareIDs[" + fcID(wwn) + "]"));
        expect("path",
               call("AddHardwareIDsToCollection",
                    "Collection@" + collectionOf(name) + " HardwareIDs[" + fcID(second) + "]"));
        expect("persona", modify(pathOf(collectionOf(name)), "HostPersonaID",
                                 CIMValue(Uint32(1 + round % 2))));
        control::addVlun(vlun + name + "\"}");
        const CIMObjectPath controller = controllerOf(wwn);
        expect("renaming", modify(controller, "ElementName", CIMValue(String(renamed.c_str()))));
        expect("new name", elementName(fcID(second)), renamed);
        control::removeVlun(vlun + renamed + "\"}");
        expect("VLUN", textOf(controllerOf(wwn)), textOf(CIMObjectPath()));
        for (const std::string& each : {wwn, second})
            expect("deletion", call("DeleteStorageHardwareID", "HardwareID@" + fcID(each)));
        expect("removal", outcomeOf([&] {
                   broker().deleteInstance(_context, QRV, pathOf(collectionOf(renamed)));
               }));
        expect("end", elementName(fcID(wwn)), "6 QRV_StorageHardwareID CIM Object not found.");
    }

    std::string elementName(const std::string& path) {
        std::string name;
        const std::string outcome = outcomeOf([&] {
            const CIMInstance found = broker().getInstance(_context, QRV, pathOf(path), {});
            String text;
            found.getProperty(found.findProperty(CIMName("ElementName"))).getValue().get(text);
            name = static_cast<const char*>(text.getCString());
        });
        return outcome.empty() ? name : outcome;
    }

    void complain(const std::string& text) {
        const std::lock_guard lock(_mutex);
        if (_complaints.size() < 20) _complaints.push_back(text);
    }

    /// Does something again and again until the time is up, and counts it.
    template <class Work>
    void start(int threads, std::atomic<unsigned>& done, Work work) {
        for (int i = 0; i < threads; ++i)
            _threads.emplace_back([=, seed = unsigned(_threads.size()), &done] {
                std::mt19937 random(seed);
                while (std::chrono::steady_clock::now() < _end) work(i, random), ++done;
            });
    }

    const OperationContext _context = requestOf("admin");
    std::vector<Question> _questions;
    std::vector<CIMObjectPath> _places;  ///< where walks begin
    CIMObjectPath _service;
    std::chrono::steady_clock::time_point _end;
    std::vector<std::thread> _threads;
    std::mutex _mutex;
    Texts _complaints;
};

TEST_F(SoakTest, answersAreWholeWhileTheArrayChanges) {
    prepare();
    const std::string before = hostsText();
    std::atomic<unsigned> asked{0}, walked{0}, changed{0};
    _end = std::chrono::steady_clock::now() + soakTime();
    start(ASKERS, asked,
          [this](int, auto& random) { check(_questions[random() % _questions.size()]); });
    start(WALKERS, walked, [this](int, auto& random) { walk(random); });
    start(CHANGERS, changed, [&](int thread, auto&) { change(thread, changed); });
    for (std::thread& thread : _threads) thread.join();

    EXPECT_THAT(_complaints, testing::IsEmpty());
    EXPECT_EQ(hostsText(), before);
    EXPECT_GT(asked, 0U);
    EXPECT_GT(walked, 0U);
    EXPECT_GT(changed, 0U);
    std::cout << asked << " questions of " << _questions.size() << " kinds, " << walked
              << " walks, " << changed << " lives of a host in " << soakTime().count() << " s\n";
}

}  // namespace

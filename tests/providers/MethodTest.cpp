#include "MethodTest.h"

using namespace Pegasus;

namespace qrvtest {

namespace control = qrvapi::control;

std::string MethodTest::call(const std::string& method, const Parameters& parameters,
                             const std::string& user, const std::string& path) {
    Recording recording;
    MethodRecorder handler(recording);
    const std::size_t seen = control::events().size();
    const std::string failure = outcomeOf([&] {
        _service.methods().invokeMethod(requestOf(user), pathOf(path), CIMName(method.c_str()),
                                        inParameters(parameters), handler);
    });
    readEvents(seen, method, user);
    std::string answer = failure;
    for (const std::string& event : recording.events())
        answer += (answer.empty() ? "" : "\n") + event;
    return answer;
}

void MethodTest::readEvents(std::size_t begin, const std::string& method, const std::string& user) {
    _changes.clear();
    const std::vector<control::Event> events = control::events();
    for (std::size_t i = begin; i < events.size(); ++i) {
        const api_evtparam_t& record = events[i].record;
        EXPECT_EQ(record.method, "QRV_StorageHardwareIDManagementService:" + method);
        EXPECT_EQ(record.user, user);
        EXPECT_STREQ(record.addr, "192.0.2.7");
        EXPECT_STREQ(record.inst_op, "");
        _changes.push_back(events[i].function + " " + events[i].change);
    }
}

std::string MethodTest::done(const std::string& outParameter) {
    return "processing\n" + (outParameter.empty() ? "" : outParameter + "\n") +
           "return 0\ncomplete";
}

}  // namespace qrvtest

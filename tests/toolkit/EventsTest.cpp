// The record that tells the array's event log who asked for a change.
#include <QRV_Common.h>

#include <cstring>

#include "ToolkitTest.h"

using namespace Pegasus;

namespace {

class EventsTest : public ToolkitTest {
  protected:
    EventsTest() {
        std::memset(static_cast<void*>(&_event), 'x', sizeof _event);
        _event.cb_code = 4711;
    }

    api_evtparam_t _event;
};

/// So many characters, each different from its neighbours.
std::string text(std::size_t length) {
    std::string result;
    while (result.size() < length) result += static_cast<char>('a' + result.size() % 26);
    return result;
}

TEST_F(EventsTest, classAndMethodShareAField) {
    const std::string longClass = text(130);
    const struct {
        const char* className;
        const char* method;
        std::string field;
    } cases[] = {
        {"QRV_Sample", "Change", "QRV_Sample:Change"},
        {"QRV_Sample", nullptr, "QRV_Sample:"},
        {nullptr, "Change", ":Change"},
        {nullptr, nullptr, ""},
        {longClass.c_str(), "Change", text(126) + ":"},
        {longClass.c_str() + 5, "Change", longClass.substr(5) + ":C"},
        {"c", longClass.c_str(), "c:" + text(125)},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(QRV_Common::setEventParam(&_event, each.className, each.method, "", "", ""), 0);
        EXPECT_EQ(_event.method, each.field);
    }
}

TEST_F(EventsTest, textsAreCutToTheirFields) {
    const std::string given = text(300);
    const char* const all = given.c_str();
    EXPECT_EQ(QRV_Common::setEventParam(&_event, "c", "m", all, all, all, all), 0);
    EXPECT_EQ(_event.inst_op, text(15));
    EXPECT_EQ(_event.user, text(31));
    EXPECT_EQ(_event.addr, text(45));
    EXPECT_EQ(_event.inst_param, text(255));
    EXPECT_EQ(_event.cb_code, 4711);

    EXPECT_EQ(QRV_Common::setEventParam(&_event, "c", "m", "create", "admin", "192.0.2.7"), 0);
    EXPECT_EQ(std::string(_event.inst_op) + _event.user + _event.addr + _event.inst_param,
              "createadmin192.0.2.7");
    EXPECT_EQ(QRV_Common::setEventOp(&_event, all), 0);
    EXPECT_EQ(_event.inst_op, text(15));
}

TEST_F(EventsTest, nullTextsLeaveTheirFieldsEmpty) {
    EXPECT_EQ(QRV_Common::setEventParam(&_event, "c", "m", nullptr, nullptr, nullptr, nullptr), 0);
    EXPECT_EQ(std::string(_event.inst_op) + _event.user + _event.addr + _event.inst_param, "");
    std::strcpy(_event.inst_op, "old");
    EXPECT_EQ(QRV_Common::setEventOp(&_event, nullptr), 0);
    EXPECT_STREQ(_event.inst_op, "");
}

TEST_F(EventsTest, aMissingRecordIsLogged) {
    const std::string why =
        ": Unable to log event data. The control block pointer (eventp) is null.\n";
    EXPECT_EQ(QRV_Common::setEventParam(nullptr, "c", "m", "", "", ""), 1);
    EXPECT_EQ(QRV_Common::setEventParam(nullptr, "c", "m", "", "", "", "text"), 0);
    EXPECT_EQ(QRV_Common::setEventOp(nullptr, "op"), 1);
    EXPECT_EQ(logged(),
              (Texts{"2 setEventParam" + why, "2 setEventParam" + why, "2 setEventOp" + why}));
}

}  // namespace

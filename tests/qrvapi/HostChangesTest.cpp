#include <cstring>
#include <functional>

#include "ArrayTest.h"

namespace control = qrvapi::control;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;

namespace {

api_evtparam_t eventOf(const char* user) {
    api_evtparam_t event{};
    std::strncpy(event.user, user, sizeof event.user - 1);
    return event;
}

api_setChap_t enabled(const char* secret, api_chapSecretType_t type = API_HOST_CHAP_SECRET_ASCII,
                      const char* name = "") {
    api_setChap_t side{};
    side.secretType = type;
    std::strncpy(side.name, name, sizeof side.name - 1);
    std::memcpy(side.src, secret, std::min(std::strlen(secret), sizeof side.src));
    return side;
}

api_setChap_t disabled() {
    api_setChap_t side{};
    side.op = API_HOST_CHAP_DISABLE;
    return side;
}

objdesc noteOf(qrv_u32 type, const char* text) {
    objdesc note{type, {}};
    std::strncpy(note.od_value, text, sizeof note.od_value - 1);
    return note;
}

using HostChangesTest = ArrayTest;
using Names = std::vector<std::string>;

std::string text(const api_Status_t& status) {
    char buffer[200];
    api_getErrorTextNoNL(buffer, sizeof buffer, &status);
    return status.code == ERR_UNKNOWN ? "ok" : std::to_string(status.code) + " " + buffer;
}

/// Makes a change under the gate and gives its outcome as text.
template <class Call>
std::string outcome(Call&& call) {
    auto event = eventOf("admin");
    const GateHeld gate;
    return text(call(&event));
}

/// Names as the calls take them.
struct IscsiNames {
    explicit IscsiNames(const Names& names) : records(names.size()) {
        for (std::size_t i = 0; i < names.size(); ++i) names[i].copy(records[i].name, 223);
    }
    const iscsi_name_t* list() const { return records.empty() ? nullptr : &records[0].name; }

    struct Record {
        iscsi_name_t name{};
    };
    std::vector<Record> records;
};

std::string create(const char* name, const std::vector<qrv_u64>& wwns = {}, const Names& names = {},
                   qrv_u32 persona = 1, const char* domain = "",
                   const api_setHostChap_t* chap = nullptr) {
    const IscsiNames records(names);
    const objdesc none{};
    return outcome([&](auto* event) {
        return api_createHost(event, name, static_cast<int>(wwns.size()), wwns.data(),
                              static_cast<int>(names.size()), records.list(), 0, chap, nullptr,
                              &none, 0, persona, domain);
    });
}

std::string add(const char* name, const std::vector<qrv_u64>& wwns, const Names& names = {}) {
    const IscsiNames records(names);
    const api_setHostChap_t chap{};
    const objdesc none{};
    return outcome([&](auto* event) {
        return api_addPath(event, name, static_cast<int>(wwns.size()), wwns.data(),
                           static_cast<int>(names.size()), records.list(), 0, &chap, nullptr,
                           &none);
    });
}

std::string removeFc(const char* name, qrv_u64 wwn) {
    return outcome([&](auto* event) { return api_removePath(event, name, 0, wwn, nullptr, 0); });
}

std::string removeIscsi(const char* name, const char* iscsiName) {
    return outcome(
        [&](auto* event) { return api_removePath(event, name, 1, QRV_NO_WWN, iscsiName, 0); });
}

std::string set(const char* name, const api_setHostChap_t& chap) {
    return outcome(
        [&](auto* event) { return api_setHost(event, name, &chap, 0, nullptr, 0, 0, nullptr); });
}

std::string setPersona(const char* name, qrv_u32 persona, qrv_u32 flag = 1) {
    return outcome([&](auto* event) {
        return api_setHost(event, name, nullptr, 0, nullptr, flag, persona, nullptr);
    });
}

std::string rename(const char* name, const char* newName) {
    return outcome(
        [&](auto* event) { return api_setHost(event, name, nullptr, 0, nullptr, 0, 0, newName); });
}

std::string setDomain(const char* name, const char* domain) {
    return outcome([&](auto* event) { return api_setHostDomain(event, name, domain); });
}

std::string remove(const char* name) {
    return outcome([&](auto* event) { return api_removeHost(event, name); });
}

Names changes() {
    Names lines;
    for (const auto& event : control::events()) {
        lines.push_back(event.function + " by " + event.record.user + ": " + event.change);
    }
    return lines;
}

TEST_F(HostChangesTest, HostsAreMadeWithTheirPaths) {
    EXPECT_EQ(create("plain"), "ok");
    EXPECT_THAT(hosts({"plain"}), ElementsAre("13 plain  1 Plain  "));
    EXPECT_EQ(
        create("full", {0x21, 0x10000000000000F1}, {"iqn.2001-05.com.example:full"}, 2, "finance"),
        "ok");
    EXPECT_THAT(hosts({"full"}),
                ElementsAre("14 full finance 2 Multipath   | 1 210@65532/0 0.0.0.0"
                            " | 1 10000000000000F10@17/2011000000000001 0.0.0.0"
                            " | 2 00iqn.2001-05.com.example:full@65532/0 0.0.0.0"));
    EXPECT_THAT(hosts({}), SizeIs(5)) << "the record of no host is gone with its one path";
    EXPECT_THAT(changes(), ElementsAre("api_createHost by admin: host plain: created",
                                       "api_createHost by admin: host full: created with path "
                                       "0000000000000021, path 10000000000000F1, path "
                                       "iqn.2001-05.com.example:full"));
}

TEST_F(HostChangesTest, InitiatorsComeAndGo) {
    EXPECT_EQ(add("empty", {0x21, 0x10000000000000F1}), "ok");
    EXPECT_THAT(paths("10000000000000F1", nullptr), ElementsAre(HasSubstr("empty 1 | ")));
    EXPECT_EQ(removeFc("empty", 0x21), "ok");
    EXPECT_THAT(paths("21", nullptr), IsEmpty()) << "no port sees it";
    EXPECT_EQ(removeFc("alpha", 5), "ok");
    EXPECT_THAT(paths("5", nullptr), ElementsAre(" 0 | 1 50@17/2011000000000001 0.0.0.0",
                                                 " 0 | 1 50@529/2111000000000001 0.0.0.0"));
    EXPECT_EQ(removeIscsi("alpha", "IQN.2001-05.COM.EXAMPLE:A"), "ok");
    EXPECT_EQ(add("empty", {5}), "ok");
    EXPECT_THAT(paths("5", nullptr, "empty"), SizeIs(2));
    EXPECT_EQ(remove("empty"), "ok");
    EXPECT_THAT(paths("5", nullptr), SizeIs(2));
    EXPECT_THAT(paths("5", nullptr, nullptr, 0), IsEmpty());
}

TEST_F(HostChangesTest, HostsTakeNewPropertiesTogether) {
    const objdesc notes[] = {noteOf(OBJDESC_HOST_LOCATION, "there"), noteOf(OBJDESC_NONE, "x"),
                             noteOf(OBJDESC_HOST_COMMENT, "")};
    EXPECT_EQ(outcome([&](auto* event) {
                  return api_setHost(event, "alpha", nullptr, 3, notes, 1, 1, "omega");
              }),
              "ok");
    EXPECT_THAT(hosts({"alpha"}), ElementsAre("code 3"));
    EXPECT_THAT(hosts({"omega"}), ElementsAre(HasSubstr("10 omega finance 1 Plain there  | ")));
    EXPECT_EQ(rename("omega", "omega"), "ok");
    EXPECT_EQ(setDomain("omega", "archive"), "ok");
    EXPECT_THAT(hosts({"omega"}), ElementsAre(HasSubstr("omega archive")));
    EXPECT_EQ(setDomain("omega", "-unset"), "ok");
    EXPECT_THAT(hosts({"omega"}), ElementsAre(HasSubstr("omega  1")));
    EXPECT_EQ(set("omega", {}), "ok");
    EXPECT_THAT(changes(),
                ElementsAre("api_setHost by admin: host alpha: persona 1, notes, name omega",
                            "api_setHost by admin: host omega: name omega",
                            "api_setHostDomain by admin: host omega: domain archive",
                            "api_setHostDomain by admin: host omega: domain -unset"));
}

constexpr auto hexSecret = "00112233445566778899aAbBcCdDeEfF";

TEST_F(HostChangesTest, ChapFollowsItsRules) {
    const auto accepts = [](control::ChapSide side, const char* name, const std::string& secret) {
        return control::acceptsChap("alpha", side, name, secret);
    };
    const std::string hexBytes("\x00\x11\x22\x33\x44\x55\x66\x77\x88\x99\xaa\xbb\xcc\xdd\xee\xff",
                               16);
    EXPECT_EQ(set("alpha", {1, 0, enabled("twelve chars"), {}}), "ok");
    EXPECT_TRUE(accepts(control::ChapSide::initiator, "alpha", "twelve chars"));
    EXPECT_FALSE(accepts(control::ChapSide::target, "", ""));
    EXPECT_EQ(set("alpha", {0, 1, {}, enabled(hexSecret, API_HOST_CHAP_SECRET_HEX)}), "ok");
    EXPECT_TRUE(accepts(control::ChapSide::target, "unit", hexBytes));
    EXPECT_EQ(set("alpha", {1, 1, enabled("sixteen chars...", API_HOST_CHAP_SECRET_ASCII, "me"),
                            enabled("twelve chars")}),
              "ok");
    EXPECT_TRUE(accepts(control::ChapSide::initiator, "me", "sixteen chars..."));
    EXPECT_FALSE(accepts(control::ChapSide::initiator, "me", "sixteen chars.."));

    const auto sixteenAsHex = "7369787465656e2063686172732e2e2e";
    EXPECT_EQ(set("alpha", {0, 1, {}, enabled(sixteenAsHex, API_HOST_CHAP_SECRET_HEX)}),
              "10 The initiator and target CHAP secrets must differ");
    EXPECT_EQ(set("alpha", {1, 0, disabled(), {}}), "12 Target CHAP needs initiator CHAP");
    EXPECT_TRUE(accepts(control::ChapSide::target, "unit", "twelve chars"));
    EXPECT_EQ(set("alpha", {0, 1, {}, disabled()}), "ok");
    EXPECT_TRUE(accepts(control::ChapSide::initiator, "me", "sixteen chars..."));
    EXPECT_EQ(set("alpha", {1, 1, disabled(), disabled()}), "ok");
    EXPECT_FALSE(accepts(control::ChapSide::initiator, "me", "sixteen chars..."));
    EXPECT_THROW(control::acceptsChap("gamma", control::ChapSide::target, "", ""),
                 control::ScenarioError);
}

TEST_F(HostChangesTest, SecretsStayInTheArray) {
    control::setLogLevel(0);
    control::captureLog(4);
    control::recordCalls(true);
    const api_setHostChap_t chap{1, 1, enabled("initiator-pw"), enabled("target-pw-12")};
    EXPECT_EQ(create("kept", {0x21}, {}, 1, "", &chap), "ok");
    EXPECT_EQ(set("kept", {1, 0, enabled("target-pw-12", API_HOST_CHAP_SECRET_ASCII, "x"), {}}),
              "10 The initiator and target CHAP secrets must differ");
    const auto calls = control::calls();
    std::string everything;
    for (const auto& call : calls) {
        for (const auto& [name, value] : call.arguments) everything += name + "=" + value + "\n";
    }
    for (const auto& line : control::takeLogLines()) everything += line.text;
    for (const auto& line : changes()) everything += line;
    EXPECT_THAT(everything, Not(HasSubstr("-pw")));
    EXPECT_THAT(everything, HasSubstr("initChap=enable name=x type=ascii secret=***\n"
                                      "targetChap=none\n"));
    EXPECT_THAT(everything, HasSubstr("wwns=0000000000000021\n"));
    ASSERT_TRUE(calls[1].event.has_value());
    EXPECT_STREQ(calls[1].event->user, "admin");

    api_HostsInfo_t info{};
    const GateHeld gate;
    ASSERT_EQ(api_getHosts("kept", QRV_NO_WWN, nullptr, &info, 1, 0).code, ERR_UNKNOWN);
    EXPECT_EQ(info.hosts->chap.initChap.isChapEnabled, 1);
    EXPECT_STREQ(info.hosts->chap.targetChap.name, "unit");
    EXPECT_STREQ(info.hosts->chap.initChap.altSecret, "");
    api_freeHosts(&info);
}

constexpr qrv_u64 wwn = 0x21;
const objdesc strange = noteOf(7, "x");
const api_setHostChap_t strangeOp = [] {
    api_setHostChap_t chap{1, 0, {}, {}};
    const int strangeNumber = 2;
    std::memcpy(&chap.initChap.op, &strangeNumber, sizeof strangeNumber);
    return chap;
}();

struct RefusedChange {
    std::function<std::string()> change;
    const char* answer;
};

const RefusedChange refusedChanges[] = {
    {[] { return create("alpha"); }, "1 Host alpha already exists"},
    {[] { return create(""); }, "2 No host name was given"},
    {[] { return create(nullptr); }, "2 No host name was given"},
    {[] { return create("a b"); }, "4 \"a b\" is not a valid host name"},
    {[] { return create("nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnn"); },
     "4 \"nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnn\" is not a valid host name"},
    {[] { return create("new", {}, {}, 4); }, "20 Host persona 4 does not exist"},
    {[] { return create("new", {}, {}, 1, "d"); }, "22 Domain d does not exist"},
    {[] {
         return create("new", {0x21, 5});
     },
     "17 Path 0000000000000005 on port 0:1:1 already exists"},
    {[] {
         return create("new", {0x21}, {"iqn.x:y", "IQN.X:y"});
     },
     "19 Path IQN.X:y on port none is given twice"},
    {[] { return create("new", {0}); }, "54 \"0000000000000000\" is not a valid WWN"},
    {[] { return create("new", {QRV_NO_WWN}); }, "54 \"FFFFFFFFFFFFFFF6\" is not a valid WWN"},
    {[] { return create("new", {}, {"disk"}); }, "55 \"disk\" is not a valid iSCSI name"},
    {[] { return create("new", {}, {}, 1, "", &strangeOp); },
     "52 Invalid argument: CHAP operation"},
    {[] {
         return outcome([](auto* event) {
             return api_createHost(event, "new", -1, &wwn, 0, nullptr, 0, nullptr, nullptr, nullptr,
                                   0, 1, nullptr);
         });
     },
     "52 Invalid argument: wwns"},
    {[] { return add("gamma", {0x21}); }, "3 Host gamma does not exist"},
    {[] {
         return add("alpha", {0x21, 5});
     },
     "19 Path 0000000000000005 on port 0:1:1 is given twice"},
    {[] { return add("empty", {0x10000000000000B1}); },
     "17 Path 10000000000000B1 on port none already exists"},
    {[] {
         return outcome([](auto* event) {
             return api_addPath(event, "alpha", 1, &wwn, 1, IscsiNames({"disk"}).list(), 0, nullptr,
                                nullptr, nullptr);
         });
     },
     "55 \"disk\" is not a valid iSCSI name"},
    {[] {
         return outcome([](auto* event) {
             return api_addPath(event, "alpha", 1, &wwn, 0, nullptr, 0, nullptr, nullptr, &strange);
         });
     },
     "52 Invalid argument: od_type"},
    {[] { return removeFc("gamma", 5); }, "3 Host gamma does not exist"},
    {[] { return removeFc("", 5); }, "2 No host name was given"},
    {[] { return removeFc("beta", 5); }, "16 Path 0000000000000005 does not exist"},
    {[] { return removeIscsi("beta", "iqn.x:y"); }, "16 Path iqn.x:y does not exist"},
    {[] { return setPersona("gamma", 1); }, "3 Host gamma does not exist"},
    {[] { return setPersona("alpha", 9); }, "20 Host persona 9 does not exist"},
    {[] { return setPersona("alpha", 1, 2); }, "52 Invalid argument: host_cap_flag"},
    {[] { return rename("alpha", "beta"); }, "1 Host beta already exists"},
    {[] { return rename("alpha", "-x"); }, "4 \"-x\" is not a valid host name"},
    {[] { return rename("", "x"); }, "2 No host name was given"},
    {[] { return setDomain("alpha", "nowhere"); }, "22 Domain nowhere does not exist"},
    {[] { return setDomain("alpha", ""); }, "22 Domain  does not exist"},
    {[] { return setDomain("gamma", "-unset"); }, "3 Host gamma does not exist"},
    {[] { return remove("gamma"); }, "3 Host gamma does not exist"},
    {[] { return remove("alpha"); }, "6 Host alpha has VLUNs or VLUN templates"},
    {[] {
         return set("alpha", {0, 1, {}, enabled("twelve chars")});
     },
     "12 Target CHAP needs initiator CHAP"},
    {[] {
         return set("alpha", {1, 0, enabled("eleven char"), {}});
     },
     "150 A CHAP secret has 12 to 16 characters or 32 hexadecimal digits"},
    {[] {
         return set("alpha", {1, 0, enabled("seventeen chars.."), {}});
     },
     "150 A CHAP secret has 12 to 16 characters or 32 hexadecimal digits"},
    {[] {
         return set("alpha", {1, 0, enabled("0011223344556677889", API_HOST_CHAP_SECRET_HEX), {}});
     },
     "150 A CHAP secret has 12 to 16 characters or 32 hexadecimal digits"},
    {[] {
         return set(
             "alpha",
             {1, 0, enabled("0011223344556677889900112233445g", API_HOST_CHAP_SECRET_HEX), {}});
     },
     "151 The CHAP secret is not hexadecimal"},
};

TEST_F(HostChangesTest, CallsAreRecordedWithTheirLists) {
    control::recordCalls(true);
    const IscsiNames names({"iqn.x:y", "iqn.x:z"});
    const qrv_u64 wwns[] = {0x21, 0x22};
    const objdesc note = noteOf(OBJDESC_HOST_OS, "Linux");
    EXPECT_EQ(outcome([&](auto* event) {
                  return api_addPath(event, "empty", 2, wwns, 2, names.list(), 0, nullptr, nullptr,
                                     &note);
              }),
              "ok");
    const auto call = control::calls().at(1);
    EXPECT_EQ(call.argument("wwns"), "0000000000000021,0000000000000022");
    EXPECT_EQ(call.argument("iscsiNames"), "iqn.x:y,iqn.x:z");
    EXPECT_EQ(call.argument("desc"), "3=Linux");
    EXPECT_EQ(call.argument("initChap"), "none");
}

TEST_F(HostChangesTest, RefusedChangesLeaveNoTrace) {
    const auto before = hosts({});
    for (const auto& [change, answer] : refusedChanges) EXPECT_EQ(change(), answer);
    EXPECT_EQ(outcome([](auto*) { return api_removeHost(nullptr, "empty"); }),
              "52 Invalid argument: event");
    EXPECT_EQ(hosts({}), before);
    EXPECT_THAT(changes(), IsEmpty());
    EXPECT_EQ(create("next"), "ok");
    EXPECT_THAT(hosts({"next"}), ElementsAre("13 next  1 Plain  "));
}

TEST_F(HostChangesTest, ASetKeepsItsHosts) {
    control::loadScenarioText(R"({
        "system": {"name": "n", "hostName": "h", "ipv4Address": "192.0.2.1", "id": 1, "type": 13,
                   "serial": "s", "nodes": 1},
        "personas": [{"number": 1, "name": "Plain"}],
        "hosts": [{"name": "a", "persona": 1}], "hostSets": [{"name": "s", "members": ["a"]}]})");
    EXPECT_EQ(remove("a"), "7 Host a is in a host set");
    EXPECT_THROW(control::removeHost("a"), control::ScenarioError);
}

}  // namespace

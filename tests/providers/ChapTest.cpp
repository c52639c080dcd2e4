// CHAP credentials of a host: what a client may set and remove, and that no secret gets out.
#include <qrvapi.h>

#include "MethodTest.h"

namespace control = qrvapi::control;
using namespace Pegasus;
using namespace qrvtest;

namespace {

constexpr const char* SET = "SetISCSICHAP";
constexpr const char* REMOVE = "RemoveISCSICHAP";

/// A secret of `length` characters. All secrets of these tests are made of two words, so that a
/// piece of one is as easy to find as all of it.
std::string secret(std::size_t length, const char* word = "hush") {
    std::string text;
    while (text.size() < length) text += word;
    return text.substr(0, length);
}

std::string hexSecret(std::size_t length) {
    return secret(length, "C0FFEE");
}

/// Side of a record as it is told in the list of calls.
std::string enabled(const std::string& name, const std::string& type = "ascii") {
    return "enable name=" + name + " type=" + type + " secret=***";
}

class ChapTest : public MethodTest {
  protected:
    ChapTest() {
        setHosts("h/2: iqn.a");
        control::captureLog(4);
        control::recordCalls(true);
    }

    void TearDown() override {
        for (const std::string& written : everythingWritten()) {
            EXPECT_THAT(written, testing::Not(testing::HasSubstr("hush")));
            EXPECT_THAT(written, testing::Not(testing::HasSubstr("C0FFEE")));
        }
    }

    std::string chap(const std::string& method, const Parameters& parameters,
                     const std::string& host = "h") {
        Parameters all{{"Collection", reference(collectionOf(host))}};
        all.insert(all.end(), parameters.begin(), parameters.end());
        return kept(call(method, all));
    }

    std::string kept(const std::string& outcome) {
        _written.push_back(outcome);
        return outcome;
    }

    /// The two sides of the last record that went to the array, which changes nothing else.
    static std::pair<std::string, std::string> sides() {
        std::pair<std::string, std::string> sides;
        for (const control::CallRecord& call : control::calls()) {
            if (call.function != "api_setHost") continue;
            EXPECT_EQ(call.argument("host_cap_flag") + call.argument("host_cap_value") +
                          call.argument("descCount") + call.argument("newName"),
                      "000null");
            sides = {call.argument("initChap"), call.argument("targetChap")};
        }
        return sides;
    }

    /// Outcomes, log lines, the array's event log and its calls with all arguments.
    std::vector<std::string> everythingWritten() {
        for (const std::string& line : logged()) kept(line);
        std::vector<std::string> all = _written;
        for (const control::Event& event : control::events()) {
            const api_evtparam_t& record = event.record;
            all.push_back(event.change + record.user + record.addr + record.method +
                          record.inst_op + record.inst_param);
        }
        for (const control::CallRecord& call : control::calls())
            for (const auto& [name, value] : call.arguments) all.push_back(name + "=" + value);
        return all;
    }

  private:
    std::vector<std::string> _written;
};

TEST_F(ChapTest, aSecretHasALengthByItsType) {
    const struct {
        std::string side, ascii, hex;
    } texts[] = {{"Initiator", "initiatorsecret length in ascii must be 12 to 16 characters",
                  "initiator secret length in hex must be 16 bytes"},
                 {"Target", "target length in ascii must be 12 to 16 characters",
                  "target secret length in hex must be 16 bytes"}};
    const struct {
        Parameters type;
        std::string value;
        bool passes;
    } cases[] = {{{}, secret(11), false},
                 {{}, secret(12), true},
                 {{}, secret(16), true},
                 {{}, secret(17), false},
                 {{}, hexSecret(32), false},
                 {{{"", number(0)}}, secret(17), false},
                 {{{"", number(1)}}, hexSecret(16), false},
                 {{{"", number(1)}}, hexSecret(31), false},
                 {{{"", number(1)}}, hexSecret(33), false},
                 {{{"", number(1)}}, hexSecret(32), true}};
    for (const auto& each : cases)
        for (const auto& [side, ascii, hex] : texts) {
            SCOPED_TRACE(side + " " + std::to_string(each.value.size()));
            Parameters parameters{{side + "Secret", text(each.value)}};
            for (const auto& [name, type] : each.type)
                parameters.push_back({side + "SecretType", type});
            const bool isHex = !each.type.empty() && each.type[0].second.equal(number(1));
            const std::string failure = "5 A valid " + (isHex ? hex : ascii);
            if (side == "Target")  // which needs the other side, with another secret
                parameters.push_back({"InitiatorSecret", text(secret(12, "word"))});
            control::resetCounters();
            EXPECT_EQ(chap(SET, parameters), each.passes ? done() : failure);
            EXPECT_EQ(control::callCount("api_setHost"), each.passes ? 1U : 0U);
            EXPECT_EQ(chap(REMOVE, {}), done());
        }
}

TEST_F(ChapTest, onlyTheSidesThatAreGivenChange) {
    const CIMValue first = text(secret(12)), second = text(secret(14)), hex = text(hexSecret(32));
    const std::string longName(300, 'n');
    const struct {
        const char* method;
        Parameters parameters;
        std::string outcome;
        std::pair<std::string, std::string> sides;
    } cases[] = {{SET,
                  {{"TargetSecret", first}},
                  "4 Target CHAP needs initiator CHAP",
                  {"none", enabled("")}},
                 {SET, {{"InitiatorSecret", first}}, done(), {enabled(""), "none"}},
                 {SET,
                  {{"InitiatorCHAPName", text("me")}, {"TargetSecret", second}},
                  done(),
                  {"none", enabled("")}},
                 {SET,
                  {{"InitiatorSecret", first},
                   {"TargetSecret", text("")},
                   {"TargetCHAPName", text("a")},
                   {"InitiatorCHAPName", text(longName)}},
                  done(),
                  {enabled(longName.substr(0, 223)), "none"}},
                 {SET,
                  {{"InitiatorSecret", first}, {"TargetSecret", first}},
                  "4 The initiator and target CHAP secrets must differ",
                  {enabled(""), enabled("")}},
                 {SET,
                  {{"InitiatorSecret", text(secret(32))}, {"InitiatorSecretType", number(1)}},
                  "4 The CHAP secret is not hexadecimal",
                  {enabled("", "hex"), "none"}},
                 {SET,
                  {{"InitiatorCHAPName", text("me")},
                   {"InitiatorSecretType", number(1)},
                   {"InitiatorSecret", hex},
                   {"TargetCHAPName", text("you")},
                   {"TargetSecret", second},
                   {"TargetSecretType", number(0)}},
                  done(),
                  {enabled("me", "hex"), enabled("you")}},
                 {REMOVE, {{"RemovalScope", number(1)}}, done(), {"none", "disable"}},
                 {REMOVE, {}, done(), {"disable", "disable"}},
                 {REMOVE, {{"RemovalScope", number(2)}}, done(), {"disable", "disable"}}};
    for (const auto& each : cases) {
        control::resetCounters();
        EXPECT_EQ(chap(each.method, each.parameters), each.outcome);
        EXPECT_EQ(sides(), each.sides) << each.outcome;
    }
    EXPECT_EQ(hostsText(), "h/2: iqn.a");
}

TEST_F(ChapTest, theArrayKeepsTheCredentials) {
    const auto accepted = [](control::ChapSide side, const char* name, const std::string& value) {
        return control::acceptsChap("h", side, name, value);
    };
    const auto initiator = control::ChapSide::initiator, target = control::ChapSide::target;
    const Parameters both{{"InitiatorSecret", text(secret(12))},
                          {"TargetCHAPName", text("array")},
                          {"TargetSecret", text(secret(16))}};
    EXPECT_EQ(chap(SET, both), done());
    EXPECT_THAT(changes(), testing::ElementsAre("api_setHost host h: initiator CHAP, target CHAP"));
    EXPECT_TRUE(accepted(initiator, "h", secret(12)));
    EXPECT_TRUE(accepted(target, "array", secret(16)));
    EXPECT_EQ(chap(REMOVE, {{"RemovalScope", number(1)}}), done());
    EXPECT_THAT(changes(), testing::ElementsAre("api_setHost host h: target CHAP"));
    EXPECT_TRUE(accepted(initiator, "h", secret(12)));
    EXPECT_FALSE(accepted(target, "array", secret(16)));
    EXPECT_EQ(chap(REMOVE, {}), done());
    EXPECT_FALSE(accepted(initiator, "h", secret(12)));
}

TEST_F(ChapTest, badParametersNeverReachTheArray) {
    const CIMValue good = text(secret(12)), junk = text("x");
    const std::string nobody = collectionOf(""), wrong = fcID("5");
    const struct {
        const char* method;
        Parameters parameters;
        std::string outcome, log;
    } cases[] = {
        {SET,
         {{"InitiatorSecretType", number(2)}, {"NoSuch", junk}},
         "invalid InitiatorSecretType value",
         "Invalid InitiatorSecretType"},
        {SET,
         {{"InitiatorSecret", text(secret(3))}, {"TargetSecretType", number(2)}},
         "invalid TargetSecretType value",
         "Invalid TargetSecretType"},
        {SET, {{"InitiatorSecret", good}}, "Collection is mandatory", " Collection is mandatory"},
        {SET, {{"Collection", reference(wrong)}}, "invalid Collection path root/qrv:" + wrong, ""},
        {SET,
         {{"Collection", reference(nobody)},
          {"InitiatorSecret", text("")},
          {"TargetSecret", text("")},
          {"TargetCHAPName", junk}},
         "Secret is mandatory",
         " Secret is mandatory"},
        {SET,
         {{"Collection", reference(nobody)}, {"InitiatorSecret", good}},
         "invalid StorageHardwareIDCollection path root/qrv:" + nobody,
         " invalid collection path"},
        {REMOVE,
         {{"RemovalScope", number(0)}, {"NoSuch", junk}},
         "invalid RemovalScope value",
         "Invalid RemovalScope"},
        {REMOVE,
         {{"RemovalScope", number(3)}},
         "invalid RemovalScope value",
         "Invalid RemovalScope"},
        {REMOVE,
         {{"RemovalScope", number(1)}},
         "Collection is mandatory",
         " Collection is mandatory"},
        {REMOVE,
         {{"Collection", reference(nobody)}},
         "invalid StorageHardwareIDCollection path root/qrv:" + nobody,
         " invalid collection path"}};
    control::captureLog(2);
    for (const auto& each : cases) {
        SCOPED_TRACE(each.outcome);
        logged();
        EXPECT_EQ(kept(call(each.method, each.parameters)), "5 " + each.outcome);
        EXPECT_EQ(logged(), each.log.empty() ? std::vector<std::string>()
                                             : std::vector<std::string>{"2 " + each.log + "\n"});
    }
    EXPECT_EQ(control::callCount("api_setHost"), 0U);
}

TEST_F(ChapTest, aHostThatIsGone) {
    const Parameters good{{"InitiatorSecret", text(secret(12))}};
    for (const auto& [method, parameters] :
         {std::pair(SET, good), std::pair(REMOVE, Parameters())}) {
        EXPECT_EQ(chap(method, parameters, "gone"), "4096 Host gone does not exist");
        control::failCall("api_setHost", 1, control::Repeat::once, ERR_API_GETHOST_FAILED);
        EXPECT_EQ(chap(method, parameters), "4096 The hosts could not be read");
        EXPECT_THAT(logged(), testing::Contains("2 Error from api_setHost: The hosts could not be "
                                                "read\n"));
    }
}

// The search after each test of this file looks where there is something to find.
TEST_F(ChapTest, secretsAreLookedForInAllThatIsWritten) {
    EXPECT_EQ(chap(SET, {{"InitiatorSecret", text(secret(12))},
                         {"TargetSecret", text(hexSecret(32))},
                         {"TargetSecretType", number(1)}}),
              done());
    EXPECT_EQ(chap(SET, {{"InitiatorSecretType", text(secret(12))}}), "-1 type mismatch");
    EXPECT_EQ(chap(SET, {{secret(0) + "NoSuch", text(secret(12))}}), "5 Invalid parameter NoSuch");
    EXPECT_THAT(everythingWritten(),
                testing::IsSupersetOf(
                    {testing::HasSubstr("4 Param InitiatorSecret\n"),
                     testing::HasSubstr("initiator CHAP, target CHAPadmin192.0.2.7QRV_"),
                     testing::HasSubstr("initChap=enable"), testing::HasSubstr("5 Invalid")}));
}

}  // namespace

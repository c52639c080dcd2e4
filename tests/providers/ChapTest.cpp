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
        for (const std::string& text : _written) {
            EXPECT_THAT(text, testing::Not(testing::HasSubstr("hush")));
            EXPECT_THAT(text, testing::Not(testing::HasSubstr("C0FFEE")));
        }
    }

    std::string chap(const std::string& method, const std::string& parameters,
                     const std::string& host = "h") {
        control::resetCounters();
        const std::string outcome =
            call(method, "Collection@" + collectionOf(host) + " " + parameters);
        _log = logged();
        keep(outcome);
        return outcome;
    }

    /// What the last call logged, up to level 4.
    const std::vector<std::string>& log() const { return _log; }

    /// The two sides of the record of the last call, which changes nothing else; empty when the
    /// array wasn't called.
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
    const std::vector<std::string>& written() const { return _written; }

  private:
    void keep(const std::string& outcome) {
        _written.push_back(outcome);
        _written.insert(_written.end(), _log.begin(), _log.end());
        for (const control::Event& event : control::events()) {
            const api_evtparam_t& record = event.record;
            _written.push_back(event.change + record.user + record.addr + record.method +
                               record.inst_op + record.inst_param);
        }
        for (const control::CallRecord& call : control::calls())
            for (const auto& [name, value] : call.arguments) _written.push_back(name + "=" + value);
    }

    std::vector<std::string> _log, _written;
};

TEST_F(ChapTest, aSecretHasALengthByItsType) {
    const struct {
        const char* type;
        std::string value;
        bool passes;
    } cases[] = {{"", secret(11), false},      {"", secret(12), true},
                 {"", secret(16), true},       {"", secret(17), false},
                 {"", hexSecret(32), false},   {"#0", secret(17), false},
                 {"#1", hexSecret(16), false}, {"#1", hexSecret(31), false},
                 {"#1", hexSecret(33), false}, {"#1", hexSecret(32), true}};
    for (const auto& [type, value, passes] : cases)
        for (const bool isTarget : {false, true}) {
            const std::string side = isTarget ? "Target" : "Initiator";
            SCOPED_TRACE(side + type + " " + std::to_string(value.size()));
            const std::string noun = isTarget ? "target" : "initiator";
            const bool hex = std::string(type) == "#1";
            const std::string rule =
                hex ? "hex must be 16 bytes\n" : "ascii must be 12 to 16 characters\n";
            const std::string asciiNoun =
                isTarget ? "target length in " : "initiatorsecret length in ";
            const std::string failure =
                "5 A valid " + (hex ? noun + " secret length in " : asciiNoun) + rule;
            const std::string other = isTarget ? " InitiatorSecret=" + secret(12, "word") : "";
            const std::string outcome =
                chap(SET, side + "Secret=" + value + other +
                              (*type == '\0' ? "" : " " + side + "SecretType" + type));
            EXPECT_EQ(outcome + "\n", (passes ? done() + "\n" : failure));
            EXPECT_EQ(sides() == std::pair(std::string(), std::string()), !passes);
            const auto logged =
                testing::Contains("2  A valid " + noun + " secret length in " + rule);
            EXPECT_TRUE(passes || testing::Value(log(), logged));
            EXPECT_EQ(chap(REMOVE, ""), done());
        }
}

TEST_F(ChapTest, onlyTheSidesThatAreGivenChange) {
    const std::string first = "InitiatorSecret=" + secret(12), longName(300, 'n');
    const struct {
        const char* method;
        std::string parameters, outcome, initiator, target;
    } cases[] = {
        {SET, "TargetSecret=" + secret(12), "4 Target CHAP needs initiator CHAP", "none",
         enabled("")},
        {SET, first, done(), enabled(""), "none"},
        {SET, "InitiatorCHAPName=me TargetSecret=" + secret(14), done(), "none", enabled("")},
        {SET, first + " TargetSecret= TargetCHAPName=a InitiatorCHAPName=" + longName, done(),
         enabled(longName.substr(0, 223)), "none"},
        {SET, first + " TargetSecret=" + secret(12),
         "4 The initiator and target CHAP secrets must differ", enabled(""), enabled("")},
        {SET, "InitiatorSecretType#1 InitiatorSecret=" + secret(32),
         "4 The CHAP secret is not hexadecimal", enabled("", "hex"), "none"},
        {SET,
         "InitiatorCHAPName=me InitiatorSecretType#1 InitiatorSecret=" + hexSecret(32) +
             " TargetCHAPName=you TargetSecretType#0 TargetSecret=" + secret(14),
         done(), enabled("me", "hex"), enabled("you")},
        {REMOVE, "RemovalScope#1", done(), "none", "disable"},
        {REMOVE, "", done(), "disable", "disable"},
        {REMOVE, "RemovalScope#2", done(), "disable", "disable"}};
    for (const auto& each : cases) {
        EXPECT_EQ(chap(each.method, each.parameters), each.outcome);
        EXPECT_EQ(sides(), std::pair(each.initiator, each.target)) << each.parameters;
    }
    EXPECT_EQ(hostsText(), "h/2: iqn.a");
}

TEST_F(ChapTest, theArrayKeepsTheCredentials) {
    const auto accepted = [](control::ChapSide side, const char* name, const std::string& value) {
        return control::acceptsChap("h", side, name, value);
    };
    const auto initiator = control::ChapSide::initiator, target = control::ChapSide::target;
    EXPECT_EQ(chap(SET, "TargetCHAPName=array InitiatorSecret=" + secret(12) +
                            " TargetSecret=" + secret(16)),
              done());
    EXPECT_THAT(changes(), testing::ElementsAre("api_setHost host h: initiator CHAP, target CHAP"));
    EXPECT_TRUE(accepted(initiator, "h", secret(12)));
    EXPECT_TRUE(accepted(target, "array", secret(16)));
    EXPECT_EQ(chap(REMOVE, "RemovalScope#1"), done());
    EXPECT_THAT(changes(), testing::ElementsAre("api_setHost host h: target CHAP"));
    EXPECT_TRUE(accepted(initiator, "h", secret(12)));
    EXPECT_FALSE(accepted(target, "array", secret(16)));
    EXPECT_EQ(chap(REMOVE, ""), done());
    EXPECT_FALSE(accepted(initiator, "h", secret(12)));
}

TEST_F(ChapTest, aHostThatIsGone) {
    const std::string good = "InitiatorSecret=" + secret(12);
    for (const auto& [method, parameters] :
         {std::pair(SET, good), std::pair(REMOVE, std::string())}) {
        EXPECT_EQ(chap(method, parameters, "gone"), "4096 Host gone does not exist");
        control::failCall("api_setHost", 1, control::Repeat::once, ERR_API_GETHOST_FAILED);
        EXPECT_EQ(chap(method, parameters), "4096 The hosts could not be read");
        EXPECT_THAT(log(), testing::Contains("2 Error from api_setHost: The hosts could not be "
                                             "read\n"));
    }
}

// The search after each test of this file looks where there is something to find.
TEST_F(ChapTest, secretsAreLookedForInAllThatIsWritten) {
    EXPECT_EQ(chap(SET, "InitiatorSecret=" + secret(12) +
                            " TargetSecretType#1 TargetSecret=" + hexSecret(32)),
              done());
    EXPECT_EQ(chap(SET, "InitiatorSecretType=" + secret(12)), "-1 type mismatch");
    EXPECT_EQ(chap(SET, "InitiatorSecret=" + secret(12) + " NoSuch=" + secret(12)),
              "5 Invalid parameter NoSuch");
    EXPECT_THAT(written(), testing::IsSupersetOf(
                               {testing::HasSubstr("4 Param InitiatorSecret\n"),
                                testing::HasSubstr("initiator CHAP, target CHAPadmin192.0.2.7QRV_"),
                                testing::HasSubstr("initChap=enable"),
                                testing::HasSubstr("5 Invalid parameter")}));
}

}  // namespace

// The access semaphore around one array call, in both forms, and the frame's own steps.
#include <QRV_ArrayGate.h>
#include <QRV_OperationFrame.h>
#include <gmock/gmock.h>
#include <qrvapi_control.h>

#include "TestServer.h"

namespace control = qrvapi::control;
using namespace Pegasus;

namespace {

class ArrayGateTest : public testing::Test {
  protected:
    void SetUp() override { control::reset(); }
    void TearDown() override { control::clearFaults(); }
};

std::string errorText(const api_Status_t& status) {
    char text[512];
    api_getErrorTextNoNL(text, sizeof text, &status);
    return text;
}

TEST_F(ArrayGateTest, holdsTheSemaphoreForTheCallAlone) {
    const auto held = [] { return control::outstanding().gateHeld ? 5 : -1; };
    EXPECT_EQ(callArray(held), 5);
    EXPECT_FALSE(control::outstanding().gateHeld);

    EXPECT_THROW(callArray([]() -> int { throw std::bad_alloc(); }), std::bad_alloc);
    EXPECT_FALSE(control::outstanding().gateHeld);
}

TEST_F(ArrayGateTest, aTimeOutTakesThePlaceOfTheAnswer) {
    control::timeOutGate(1, control::Repeat::always);
    bool called = false;
    EXPECT_NE(callArray([&] { return called = true, 0; }), 0);

    const ArrayAnswer answer = callArrayForStatus([&] { return called = true, api_Status_t(); });
    EXPECT_FALSE(called);
    EXPECT_NE(answer.waitResult, 0);
    EXPECT_EQ(answer.status.code, ERR_QRV_INTERNAL_ERROR);
    EXPECT_THAT(errorText(answer.status), testing::HasSubstr("Semaphore Timed-Out"));
    control::clearFaults();
    EXPECT_EQ(callArray([] { return 0; }), 0) << "a failed wait posts nothing";
}

TEST_F(ArrayGateTest, statusFormPassesTheArraysOwnAnswer) {
    const auto answerWith = [](api_ErrorCode_t code) {
        return callArrayForStatus([code] {
            api_Status_t status;
            api_initStatus(&status);
            status.code = code;
            return status;
        });
    };
    EXPECT_FALSE(answerWith(ERR_UNKNOWN).failed());
    EXPECT_TRUE(answerWith(ERR_QRV_HOST_NONAME).failed());
    EXPECT_EQ(answerWith(ERR_QRV_HOST_NONAME).waitResult, 0);
}

constexpr ProviderFrame FRAME{"Sample", "SampleProvider", "CIM_Sample", "QRV_Sample", 1, " one."};

TEST_F(ArrayGateTest, changesAreAuthorizedByClassAndOperation) {
    const auto authorizing = [](const char* operation) {
        return qrvtest::outcomeOf([&] {
            authorize(FRAME, qrvtest::requestOf("admin"), CIMName("QRV_Sample"), operation);
        });
    };
    const struct {
        int answer;
        const char* outcome;
    } cases[] = {
        {API_CIMUSER_AUTHORIZATION_UNAUTH_USER, "2 Insufficient generic privilege"},
        {API_CIMUSER_AUTHORIZATION_USER_NOTFOUND, "2 Insufficient generic privilege"},
        {API_CIMUSER_AUTHORIZATION_UNSUPPORTED_METHOD, "7 Does not support in generic!"},
        {77, "7 Does not support in generic!"},
    };
    for (const auto& each : cases) {
        control::failCall("api_authorizeCIMUser", 1, control::Repeat::once, each.answer);
        EXPECT_EQ(authorizing("ModifyInstance"), each.outcome) << each.answer;
    }
    control::recordCalls(true);
    authorizing("ModifyInstance");
    ASSERT_EQ(control::calls().size(), 1U);
    const control::CallRecord call = control::calls()[0];
    EXPECT_EQ(call.argument("user"), "admin");
    EXPECT_EQ(call.argument("clientAddress"), "192.0.2.7");
    EXPECT_EQ(call.argument("method"), "qrv_sample.modifyinstance");
}

}  // namespace

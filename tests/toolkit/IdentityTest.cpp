// Who the system is, asked over the local connection and through the server's handle.
#include <QRV_Common.h>
#include <gmock/gmock.h>
#include <qrvapi_control.h>

#include "Handlers.h"
#include "TestServer.h"

namespace control = qrvapi::control;
using namespace Pegasus;

namespace {

class IdentityTest : public testing::Test {
  protected:
    void SetUp() override {
        control::reset();
        control::generateArray({});
        control::setSystem(R"({"name": "array7", "hostName": "array7.example",
                               "ipv4Address": "192.0.2.1", "id": 4711, "type": 3,
                               "serial": "SN00042", "model": "S100", "nodes": 2,
                               "quadPort": true})");
        control::captureLog(3);
    }

    /// From here on local clients are refused while the handle still answers.
    void refuseLocalClients() { cimserver::setLocalServer(nullptr); }

    std::vector<std::string> logged() {
        std::vector<std::string> texts;
        for (const auto& line : control::takeLogLines()) texts.push_back(line.text);
        return texts;
    }

    qrvtest::TestServer _server;
    CIMOMHandle _handle{&_server.broker()};
};

TEST_F(IdentityTest, everyFactComesFromTheArray) {
    EXPECT_EQ(QRV_Common::getSystemName(_handle), String("array7"));
    EXPECT_EQ(QRV_Common::getSystemName(), String("array7"));
    EXPECT_EQ(QRV_Common::getSystemHostName(_handle), String("array7.example"));
    EXPECT_EQ(QRV_Common::getSystemAddress(_handle), String("192.0.2.1"));
    EXPECT_EQ(QRV_Common::getSystemID(), 4711U);
    EXPECT_EQ(QRV_Common::getSystemType(), 3);
    EXPECT_EQ(QRV_Common::isQuadPortSystem(_handle), 1);
}

TEST_F(IdentityTest, pathsOfTheSystemHaveItsHostAndNamespace) {
    EXPECT_EQ(qrvtest::textOf(QRV_Common::getSystemObjectPath(_handle)),
              "//array7.example/root/qrv:QRV_StorageSystem."
              "CreationClassName=\"QRV_StorageSystem\",Name=\"array7\"");
    EXPECT_EQ(qrvtest::textOf(QRV_Common::getSystemPkgObjectPath(_handle)),
              "//array7.example/root/qrv:QRV_SystemPackage."
              "CreationClassName=\"QRV_SystemPackage\",Tag=\"SN00042\"");
    EXPECT_EQ(qrvtest::textOf(QRV_Common::getSystemViewObjectPath(_handle)),
              "//array7.example/root/qrv:QRV_StorageSystemView.InstanceID=\"ORVELIS:array7\"");
    EXPECT_THAT(logged(), testing::IsEmpty());
}

TEST_F(IdentityTest, theHandleStandsInForARefusedLocalConnection) {
    refuseLocalClients();
    EXPECT_EQ(QRV_Common::getSystemName(_handle), String("array7"));
    EXPECT_EQ(QRV_Common::getSystemAddress(_handle), String("192.0.2.1"));
    EXPECT_EQ(QRV_Common::isQuadPortSystem(_handle), 1);
    EXPECT_THAT(logged(), testing::IsEmpty());

    EXPECT_THROW(QRV_Common::getSystemName(), CannotConnectException);
    EXPECT_THROW(QRV_Common::getSystemHostName(_handle), CannotConnectException);
    EXPECT_THROW(QRV_Common::getSystemID(), CannotConnectException);
    EXPECT_THROW(QRV_Common::getSystemType(), CannotConnectException);
}

TEST_F(IdentityTest, systemPathsDifferInWhatTheyLetPass) {
    refuseLocalClients();
    control::failCall("api_getSystemFacts", 1, control::Repeat::always);
    EXPECT_THROW(QRV_Common::getSystemObjectPath(_handle), CIMException);
    logged();

    EXPECT_TRUE(QRV_Common::getSystemPkgObjectPath(_handle).getClassName().isNull());
    EXPECT_THAT(logged(),
                testing::ElementsAre(
                    testing::MatchesRegex("QRV_Common::getSystemPkgObjectPath: .* Trying via "
                                          "cimom.\n"),
                    testing::MatchesRegex("QRV_Common::getSystemPkgObjectPath: .*\\.\n"),
                    "cannot get at system pkg object path\n"));
    EXPECT_TRUE(QRV_Common::getSystemViewObjectPath(_handle).getClassName().isNull());
    EXPECT_EQ(logged().back(), "cannot get at system view object path\n");
    control::clearFaults();
}

TEST_F(IdentityTest, policyIsSharedByTheWholeProcess) {
    const cim_policy_t before = QRV_Common::getPolicy();
    QRV_Common::setPolicy(0x80000001);
    EXPECT_EQ(QRV_Common::getPolicy(), 0x80000001U);
    QRV_Common::setPolicy(before);
}

}  // namespace

// Domain sets as QRV_StorageDomainGroup.
#include "ModuleTest.h"

namespace control = qrvapi::control;
using namespace Pegasus;
using qrvtest::outcomeOf;

namespace {

class DomainGroupTest : public qrvtest::ModuleTest {
  protected:
    CIMInstanceProvider& provider() { return _provider.instances(); }

    std::string get(const std::string& keys) {
        return outcomeOf([&] { getInstance(provider(), "QRV_StorageDomainGroup." + keys); });
    }

  private:
    qrvtest::ModuleProvider _provider{"QRV_StorageDomainGroup", broker()};
};

const std::string COAST =
    "//array7.example/root/qrv:QRV_StorageDomainGroup.InstanceID=\"ORVELIS:coast\"";

TEST_F(DomainGroupTest, eachSetIsOneGroup) {
    const auto expected =
        answer({COAST + "\nCaption=domainset ID 4294967295\nElementName=coast\n"
                        "InstanceID=ORVELIS:coast\nID=4294967295\nGroupMembers=east "});
    EXPECT_EQ(enumerateInstances(provider(), "QRV_StorageDomainGroup"), expected);
    EXPECT_EQ(getInstance(provider(), "CIM_SystemSpecificCollection.InstanceID=\"ORVELIS:coast\""),
              expected);
    EXPECT_EQ(enumerateInstanceNames(provider(), "CIM_SystemSpecificCollection"), answer({COAST}));
}

TEST_F(DomainGroupTest, whatIsNotThereIsNotFound) {
    const std::string notFound = "6 QRV_StorageDomainGroup CIM Object not found.";
    for (const char* keys : {"InstanceID=\"ORVELIS:gone\"", "InstanceID=\"coast\"",
                             "InstanceID=\"ORVELIS:\"", "Name=\"ORVELIS:coast\""})
        EXPECT_EQ(get(keys), notFound) << keys;
    EXPECT_EQ(get("A=\"x\",B=\"y\""), "4 QRV_StorageDomainGroup Expect only one key.");
}

TEST_F(DomainGroupTest, aFailedReadIsAnEmptyAnswerAndALogLine) {
    for (const bool timeOut : {false, true}) {
        if (timeOut)
            control::timeOutGate();
        else
            control::failCall("api_getDomainSets");
        EXPECT_EQ(enumerateInstances(provider(), "QRV_StorageDomainGroup"), answer({}));
        EXPECT_THAT(logged(),
                    testing::ElementsAre(
                        "2 QRV_StorageDomainGroup::_buildInstances failed to get sets.\n"));
    }
}

}  // namespace

// Host personas as QRV_StorageClientSettingData.
#include "../../src/Providers/QRV/Host/QRV_StorageClientSettingDataProvider.h"
#include "ModuleTest.h"

namespace control = qrvapi::control;
using namespace Pegasus;
using qrvtest::outcomeOf;
using Provider = QRV_StorageClientSettingDataProvider;

namespace {

class ClientSettingTest : public qrvtest::ModuleTest {
  protected:
    CIMInstanceProvider& provider() { return _provider.instances(); }

    static std::string pathText(int persona) {
        return "//array7.example/root/qrv:QRV_StorageClientSettingData.InstanceID=\"ORVELIS:"
               "PERSONA-" +
               std::to_string(persona) + "\"";
    }

  private:
    qrvtest::ModuleProvider _provider{"QRV_StorageClientSettingDataProvider", broker()};
};

TEST_F(ClientSettingTest, eachPersonaIsOneSetting) {
    EXPECT_EQ(enumerateInstanceNames(provider(), "QRV_StorageClientSettingData"),
              answer({pathText(1), pathText(2)}));
    EXPECT_THAT(enumerateInstances(provider(), "QRV_Whatever"),
                testing::ElementsAre(
                    "processing",
                    testing::AllOf(testing::StartsWith(pathText(1)),
                                   testing::HasSubstr("\nCaption=One host persona setting"),
                                   testing::HasSubstr("\nHostPersonaID=1")),
                    testing::StartsWith(pathText(2)), "complete"))
        << "instances are shown whatever class is asked for";
}

TEST_F(ClientSettingTest, requestsThatNameNoPersona) {
    const auto get = [&](const std::string& path) {
        return outcomeOf([&] { getInstance(provider(), path); });
    };
    EXPECT_EQ(get("QRV_StorageClientSettingData.InstanceID=\"ORVELIS:PERSONA-2\""), "");
    EXPECT_EQ(get("QRV_StorageClientSettingData.Name=\"x\""),
              "4 QRV_StorageClientSettingDataProvider InstanceID key not found.");
    EXPECT_EQ(get("QRV_StorageClientSettingData.InstanceID=\"ORVELIS:PERSONA-9\""),
              "6 QRV_StorageClientSettingDataProvider CIM Object not found.ORVELIS:PERSONA-9");
    EXPECT_EQ(outcomeOf([&] { enumerateInstanceNames(provider(), "QRV_Whatever"); }),
              "7 QRV_StorageClientSettingDataProvider Invalid class nameQRV_Whatever");
}

TEST_F(ClientSettingTest, aFailedReadIsAnErrorForInstancesAndEmptyForNames) {
    control::timeOutGate(1, control::Repeat::always);
    EXPECT_THAT(outcomeOf([&] { enumerateInstances(provider(), "QRV_StorageClientSettingData"); }),
                testing::HasSubstr("Semaphore Timed-Out"));
    EXPECT_EQ(enumerateInstanceNames(provider(), "QRV_StorageClientSettingData"), answer({}));
}

TEST_F(ClientSettingTest, operatingSystemsBecomeClientTypes) {
    const struct {
        std::vector<std::string> systems;
        int persona;
        std::vector<int> types;
        std::vector<std::string> descriptions;
    } cases[] = {
        {{}, 4, {}, {}},
        {{}, 1, {2}, {"Standard"}},
        {{"Solaris 11", "AIX 7", "SuSE"}, 4, {3, 9, 14}, {"Solaris 11", "AIX 7", "SuSE"}},
        {{"VMware on Linux", "ESX oxs", "OXS"},
         1,
         {14, 19, 5, 2},
         {"VMware on Linux", "ESX oxs", "OXS", "Standard"}},
        {{"Windows 2003/2008", "Windows 2008", "Windows 2012"},
         4,
         {21, 15, 20},
         {"Windows 2003/2008", "Generic Microsoft Windows", "Windows 2008/2012"}},
        {{"Ze-UX", "ZEUX 11", "Other"}, 4, {4, 4, 1}, {"Ze-UX", "ZEUX 11", "Other"}},
    };
    for (const auto& each : cases) {
        std::vector<host_os_entry_t> systems(each.systems.size());
        for (std::size_t i = 0; i < systems.size(); ++i)
            std::snprintf(systems[i].hos_name, sizeof systems[i].hos_name, "%s",
                          each.systems[i].c_str());
        api_hostpersonaentry_t entry{};
        entry.hpe.hpe_num = each.persona;
        entry.oscount = static_cast<unsigned int>(systems.size());
        entry.hos = systems.data();
        Array<Uint16> types;
        Array<String> descriptions;
        Provider::setPersonaClientTypes(types, descriptions, entry);
        ASSERT_EQ(types.size(), each.types.size());
        ASSERT_EQ(descriptions.size(), each.descriptions.size());
        for (Uint32 i = 0; i < types.size(); ++i) {
            EXPECT_EQ(types[i], each.types[i]);
            EXPECT_EQ(descriptions[i], String(each.descriptions[i].c_str()));
        }
    }
}

TEST_F(ClientSettingTest, personaNumbersInKeys) {
    const std::pair<const char*, Uint32> cases[] = {{"ORVELIS:PERSONA-7", 7},
                                                    {"xORVELIS:PERSONA-12ab", 12},
                                                    {"ORVELIS:PERSONA-", 0},
                                                    {"ORVELIS:PERSONA-x7", 0},
                                                    {"ORVELIS:PERSONA-4294967303", 0},
                                                    {"PERSONA-7", 0},
                                                    {"", 0},
                                                    {"ORVELIS:PERSONA-2147483647", 2147483647}};
    for (const auto& [id, number] : cases)
        EXPECT_EQ(Provider::extractPersonaNumber(Provider::buildObjectPath("h", id)), number) << id;
    for (const Uint32 number : {1U, 42U, 2147483647U})
        EXPECT_EQ(Provider::extractPersonaNumber(
                      Provider::buildObjectPath("h", Provider::makeUniqueID(number))),
                  number);
}

}  // namespace

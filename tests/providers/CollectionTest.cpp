// Hosts as QRV_StorageHardwareIDCollection: reading, changing and removing them.
#include "ModuleTest.h"

namespace control = qrvapi::control;
using namespace Pegasus;
using qrvtest::outcomeOf;
using qrvtest::pathOf;
using qrvtest::properties;
using qrvtest::requestOf;

namespace {

std::string pathText(const std::string& host) {
    return "//array7.example/root/qrv:QRV_StorageHardwareIDCollection.InstanceID=\"ORVELIS:" +
           host + "\"";
}

std::string collection(const std::string& host, int id, int persona, const std::string& domain,
                       int paths) {
    return pathText(host) + "\nDescription=Collection of StorageHardwareID for host " + host +
           "\nElementName=" + host + "\nInstanceID=ORVELIS:" + host +
           "\nHostPersonaID=" + std::to_string(persona) + "\nID=" + std::to_string(id) +
           "\nDomain=" + domain + "\nStorageHardwareIDCount=" + std::to_string(paths);
}

const std::string OF_ALPHA = "QRV_StorageHardwareIDCollection.InstanceID=\"ORVELIS:alpha\"";

class CollectionTest : public qrvtest::ModuleTest {
  protected:
    CIMInstanceProvider& provider() { return _provider.instances(); }

    /// Sets these properties of a host and gives the outcome.
    std::string modify(const std::string& path,
                       const std::vector<std::pair<const char*, CIMValue>>& values,
                       const CIMPropertyList& list = {}, const std::string& user = "admin") {
        CIMInstance instance(CIMName("QRV_StorageHardwareIDCollection"));
        for (const auto& [name, value] : values)
            instance.addProperty(CIMProperty(CIMName(name), value));
        qrvtest::Recording recording;
        qrvtest::InstanceRecorder handler(recording);
        return outcomeOf([&] {
            provider().modifyInstance(requestOf(user), pathOf(path), instance, false, list,
                                      handler);
        });
    }

    std::string remove(const std::string& path, const std::string& user = "admin") {
        qrvtest::Recording recording;
        qrvtest::InstanceRecorder handler(recording);
        return outcomeOf(
            [&] { provider().deleteInstance(requestOf(user), pathOf(path), handler); });
    }

    std::string alphaNow() { return getInstance(provider(), OF_ALPHA).at(1); }

  private:
    qrvtest::ModuleProvider _provider{"QRV_StorageHardwareIDCollectionProvider", broker()};
};

TEST_F(CollectionTest, eachHostIsOneCollection) {
    const auto expected =
        answer({collection("alpha", 0, 1, "east", 3), collection("beta", 1, 2, "", 2),
                collection("bare", 2, 1, "", 0)});
    for (const char* name : {"QRV_StorageHardwareIDCollection", "CIM_SystemSpecificCollection"})
        EXPECT_EQ(enumerateInstances(provider(), name), expected);
    EXPECT_EQ(enumerateInstanceNames(provider(), "QRV_StorageHardwareIDCollection"),
              answer({pathText("alpha"), pathText("beta"), pathText("bare")}));
}

TEST_F(CollectionTest, getInstanceTakesTheHostBehindTheFirstColon) {
    for (const char* id : {"ORVELIS:alpha", "anything:alpha", "alpha"})
        EXPECT_EQ(getInstance(provider(), std::string("QRV_StorageHardwareIDCollection."
                                                      "InstanceID=\"") +
                                              id + "\""),
                  answer({collection("alpha", 0, 1, "east", 3)}));
    logged();
    for (const char* id : {"ORVELIS:", "ORVELIS:gone", "ORVELIS:Alpha", ""})
        EXPECT_EQ(outcomeOf([&] {
                      getInstance(provider(), std::string("QRV_StorageHardwareIDCollection."
                                                          "InstanceID=\"") +
                                                  id + "\"");
                  }),
                  "6 QRV_StorageHardwareIDCollection CIM Object not found.");
    EXPECT_THAT(logged(),
                testing::Each(testing::StartsWith(
                    "2 --> QRV_StorageHardwareIDCollectionProvider::_buildInstances()  ")));
}

TEST_F(CollectionTest, modifyInstanceSetsPersonaAndDomain) {
    const CIMValue two(Uint32(2)), none(Uint32(0)), nullText(CIMTYPE_STRING, false);
    control::recordCalls(true);
    EXPECT_EQ(modify(OF_ALPHA, {{"hostpersonaid", two}, {"Domain", CIMValue(String())}}), "");
    EXPECT_EQ(control::callCount("api_setHost"), 1U);
    EXPECT_EQ(control::callCount("api_setHostDomain"), 1U);
    EXPECT_EQ(alphaNow(), collection("alpha", 0, 2, "", 3));
    for (const control::CallRecord& call : control::calls()) {
        if (!call.event) continue;
        EXPECT_STREQ(call.event->method, "QRV_StorageHardwareIDCollection:ModifyInstance");
        EXPECT_STREQ(call.event->user, "admin");
        EXPECT_STREQ(call.event->addr, "192.0.2.7");
    }

    EXPECT_EQ(modify(OF_ALPHA, {{"HostPersonaID", none}, {"Domain", CIMValue(String("east"))}}),
              "");
    EXPECT_EQ(alphaNow(), collection("alpha", 0, 2, "east", 3));
    EXPECT_EQ(modify(OF_ALPHA, {{"HostPersonaID", CIMValue(Uint32(1))}, {"ElementName", nullText}},
                     properties({"HostPersonaID", "NoSuch"})),
              "");
    EXPECT_EQ(alphaNow(), collection("alpha", 0, 1, "east", 3));
}

TEST_F(CollectionTest, modifyInstanceRefusesWhatItCannotSet) {
    const CIMValue two(Uint32(2)), none(Uint32(0)), nullText(CIMTYPE_STRING, false);
    const CIMValue text(String("x"));
    const std::string nothing =
        "7 QRV_StorageHardwareIDCollection does not support modifyInstance.";
    const std::string noHost = "QRV_StorageHardwareIDCollection.InstanceID=\"alpha\"";
    EXPECT_EQ(modify(OF_ALPHA, {{"HostPersonaID", none}, {"Domain", nullText}}), nothing);
    EXPECT_EQ(modify(OF_ALPHA, {{"HostPersonaID", two}}, properties({"Domain"})), nothing);
    EXPECT_EQ(modify(OF_ALPHA, {{"HostPersonaID", two}, {"ElementName", text}}),
              "4 Invalid parameter: ElementName");
    EXPECT_EQ(modify(OF_ALPHA, {{"HostPersonaID", two}}, {}, "viewer"),
              "2 Insufficient generic privilege");
    EXPECT_THAT(modify(noHost, {{"HostPersonaID", two}}),
                testing::StartsWith("1 QRV_StorageHardwareIDCollection, "));
    EXPECT_EQ(modify(OF_ALPHA, {}, properties({})), "") << "an empty list changes nothing";
    EXPECT_EQ(alphaNow(), collection("alpha", 0, 1, "east", 3));
}

TEST_F(CollectionTest, aRefusalOfTheArrayNamesTheStep) {
    const CIMValue two(Uint32(2)), nine(Uint32(9)), west(String("west"));
    EXPECT_THAT(modify(OF_ALPHA, {{"HostPersonaID", nine}}),
                testing::StartsWith("1 QRV_StorageHardwareIDCollection, Setting host persona: "));
    EXPECT_THAT(modify(OF_ALPHA, {{"HostPersonaID", two}, {"Domain", west}}),
                testing::StartsWith("1 QRV_StorageHardwareIDCollection, Setting host domain:"));
    EXPECT_EQ(alphaNow(), collection("alpha", 0, 2, "east", 3)) << "the persona stands";
    control::timeOutGate();
    EXPECT_EQ(modify(OF_ALPHA, {{"HostPersonaID", two}}),
              "1 QRV_StorageHardwareIDCollection, Setting host persona: Access busy.");
}

TEST_F(CollectionTest, deleteInstanceRemovesTheHost) {
    const std::string bare = "QRV_StorageHardwareIDCollection.InstanceID=\"ORVELIS:bare\"";
    EXPECT_EQ(remove(bare, "viewer"), "2 Insufficient generic privilege");
    EXPECT_EQ(remove(bare), "");
    EXPECT_THAT(remove(bare), testing::StartsWith("1  Failed to remove host, "));
    EXPECT_EQ(remove("QRV_StorageHardwareIDCollection.InstanceID=\"ORVELIS:\""),
              "1 QRV_StorageHardwareIDCollection Failed to get host information.");
    EXPECT_EQ(enumerateInstanceNames(provider(), "QRV_StorageHardwareIDCollection"),
              answer({pathText("alpha"), pathText("beta")}));
}

}  // namespace

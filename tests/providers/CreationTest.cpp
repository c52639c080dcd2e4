// Making an initiator known and taking it away.
#include <qrvapi.h>

#include "MethodTest.h"

namespace control = qrvapi::control;
using namespace Pegasus;
using namespace qrvtest;

namespace {

const std::string A = "1000000000A1B201", B = "1000000000A1B202", C = "1000000000A1B203";

std::string created(const std::string& hardwareID) {
    return "HardwareID=//array7.example/root/qrv:" + hardwareID;
}

/// One call, and the array before and after it. An empty name or setting isn't sent.
struct Decision {
    const char* about;
    std::string before;
    std::string elementName, storageID;
    std::string persona;
    std::string refusal;  ///< empty for success
    std::string after;
    std::vector<std::string> functions;
};

const std::vector<std::string> NOTHING;

const Decision DECISIONS[] = {
    // No name: the ID's own host, or a new one.
    {"known", "h/2: " + A, "", A, "", "", "h/2: " + A, NOTHING},
    {"known in lower case", "h/2: " + A, "", "1000000000a1b201", "", "", "h/2: " + A, NOTHING},
    {"known, other persona",
     "g/1: " + B + "; h/1: " + A,
     "",
     A,
     "",
     "",
     "g/1: " + B + "; h/2: " + A,
     {"api_setHost"}},
    {"known iSCSI, persona chosen",
     "h/2: iqn.a",
     "",
     "iqn.a",
     "1",
     "",
     "h/1: iqn.a",
     {"api_setHost"}},
    {"known, persona chosen is the host's", "h/1: " + A, "", A, "1", "", "h/1: " + A, NOTHING},
    // A name, and the ID on no host.
    {"host has other paths", "h/2: " + A, "h", B, "", "", "h/2: " + A + " " + B, {"api_addPath"}},
    {"host of other persona",
     "h/1: iqn.a",
     "h",
     "iqn.b",
     "",
     "",
     "h/2: iqn.a iqn.b",
     {"api_addPath", "api_setHost"}},
    {"unowned path with its ports",
     "h/2: " + A + "; -: " + B + "@0:1:1 " + B + "@1:1:1",
     "h",
     B,
     "",
     "",
     "h/2: " + A + " " + B + "@0:1:1 " + B + "@1:1:1",
     {"api_addPath"}},
    {"no such host", "g/2: " + A, "h", B, "", "", "g/2: " + A + "; h/2: " + B, {"api_createHost"}},
    {"no such host, persona chosen", "", "h", "iqn.b", "1", "", "h/1: iqn.b", {"api_createHost"}},
    {"unowned path, no such host",
     "-: " + B + "@0:1:1",
     "h",
     B,
     "",
     "",
     "h/2: " + B + "@0:1:1",
     {"api_createHost"}},
    {"host without paths isn't seen", "h/2:", "h", B, "", "4 Host h already exists",
     "h/2:", NOTHING},
    // A name, and the ID on a host.
    {"on that host", "g/2: " + B + "; h/2: " + A, "h", A, "", "", "g/2: " + B + "; h/2: " + A,
     NOTHING},
    {"on that host, other persona",
     "h/1: " + B + " " + A,
     "h",
     A,
     "",
     "",
     "h/2: " + B + " " + A,
     {"api_setHost"}},
    {"on another host", "g/1: " + A + "; h/1: " + B, "h", A, "",
     "4096 Path " + A + " on port none already exists", "g/1: " + A + "; h/1: " + B, NOTHING},
    {"on another host behind it", "h/2: " + B + "; g/1: " + A, "h", A, "",
     "4096 Path " + A + " on port none already exists", "h/2: " + B + "; g/1: " + A, NOTHING},
    {"on another host, no such host", "g/2: " + A, "h", A, "",
     "4096 Path " + A + " on port none already exists", "g/2: " + A, NOTHING},
    {"on another host's port first", "g/2: " + A + "@0:1:1; h/2: " + A + "@1:1:1", "h", A, "",
     "4096 Path " + A + " on port 0:1:1 already exists",
     "g/2: " + A + "@0:1:1; h/2: " + A + "@1:1:1", NOTHING},
    {"on that host's port first", "h/2: " + A + "@0:1:1; g/2: " + A + "@1:1:1", "h", A, "", "",
     "h/2: " + A + "@0:1:1; g/2: " + A + "@1:1:1", NOTHING},
    // What only the array knows.
    {"iSCSI name in other case", "h/2: iqn.a", "h", "iqn.A", "",
     "5 Path iqn.A on port none is given twice", "h/2: iqn.a", NOTHING},
    {"no such persona", "", "h", A, "9", "4 Host persona 9 does not exist", "", NOTHING},
    {"no host name", "", "not a name", A, "", "4 \"not a name\" is not a valid host name", "",
     NOTHING},
    {"no iSCSI name", "", "h", "nonsense.", "", "4 \"nonsense.\" is not a valid iSCSI name", "",
     NOTHING},
};

class CreationTest : public MethodTest {
  protected:
    std::string create(const std::string& elementName, const std::string& storageID,
                       const std::string& persona = "") {
        const bool iscsi = storageID.find('.') != std::string::npos;
        Parameters parameters =
            given("StorageID=" + storageID + (iscsi ? " IDType#5" : " IDType#2"));
        if (!elementName.empty()) parameters.push_back({"ElementName", text(elementName)});
        if (!persona.empty()) parameters.push_back({"Setting", reference(setting(persona))});
        return call("CreateStorageHardwareID", parameters);
    }

    std::string remove(const std::string& path) {
        return call("DeleteStorageHardwareID", "HardwareID@" + path);
    }

    std::vector<std::string> functions() {
        std::vector<std::string> names;
        for (const std::string& change : changes())
            names.push_back(change.substr(0, change.find(' ')));
        return names;
    }
};

TEST_F(CreationTest, findsOutWhatMakesTheInitiatorKnown) {
    for (const Decision& each : DECISIONS) {
        SCOPED_TRACE(each.about);
        setHosts(each.before);
        logged();
        const bool iscsi = each.storageID.find('.') != std::string::npos;
        const std::string id = iscsi ? iscsiID(each.storageID) : fcID(each.storageID);
        EXPECT_EQ(create(each.elementName, each.storageID, each.persona),
                  each.refusal.empty() ? done(created(id)) : each.refusal);
        EXPECT_EQ(hostsText(), each.after);
        EXPECT_EQ(functions(), each.functions);
        std::vector<std::string> lines;
        if (each.refusal.rfind("4096", 0) == 0)
            lines.push_back("3 ElementName h does not match the host (g) that the StorageID (" + A +
                            ") belongs to\n");
        if (!each.refusal.empty())
            lines.push_back("2 Error from api_createHost: " +
                            each.refusal.substr(each.refusal.find(' ') + 1) + "\n");
        EXPECT_EQ(logged(), lines);
    }
}

TEST_F(CreationTest, aHostWithoutNameGetsOneAndTheSameCallAgainChangesNothing) {
    const struct {
        std::string storageID, hardwareID, array;
    } cases[] = {{A, fcID(A), "FC_[0-9A-F]{16}/2: " + A},
                 {"iqn.a", iscsiID("iqn.a"), "FC_.*; iSCSI_[0-9A-F]{16}/2: iqn.a"}};
    for (const auto& each : cases) {
        EXPECT_EQ(create("", each.storageID), done(created(each.hardwareID)));
        EXPECT_EQ(functions(), std::vector<std::string>{"api_createHost"});
        EXPECT_THAT(hostsText(), testing::MatchesRegex(each.array));
        EXPECT_EQ(create("", each.storageID), done(created(each.hardwareID)));
        EXPECT_EQ(functions(), NOTHING);
    }
}

TEST_F(CreationTest, aLongIscsiNameIsCutForTheArrayOnly) {
    const std::string name = "iqn." + std::string(300, 'n');
    EXPECT_EQ(create("h", name), done(created(iscsiID(name))));
    EXPECT_EQ(hostsText(), "h/2: " + name.substr(0, 223));
}

TEST_F(CreationTest, anUnreadableListLeavesTheDecisionToTheArray) {
    setHosts("h/2: " + A);
    control::failCall("api_getHostPaths");
    EXPECT_EQ(create("g", A), "4096 Path " + A + " on port none already exists");
    control::timeOutGate();
    EXPECT_EQ(create("g", B), done(created(fcID(B))));
    control::timeOutGate(2);
    EXPECT_EQ(create("g", C), "4 Internal error: Semaphore Timed-Out");
    EXPECT_EQ(hostsText(), "h/2: " + A + "; g/2: " + B);
}

TEST_F(CreationTest, anInitiatorStaysWhenThePersonaCannotBeSet) {
    setHosts("h/1: " + A);
    logged();
    control::failCall("api_setHost");
    EXPECT_EQ(create("h", B), "5 Host  does not exist");
    EXPECT_THAT(logged(), testing::ElementsAre("2 Error from api_createHost: Host  does not "
                                               "exist\n"));
    EXPECT_EQ(hostsText(), "h/1: " + A + " " + B);
    EXPECT_EQ(functions(), std::vector<std::string>{"api_addPath"});
}

TEST_F(CreationTest, deletionTakesOnePathFromItsHost) {
    const struct {
        std::string path, before, after;
    } cases[] = {
        {fcID(A), "h/2: " + A + " " + B, "h/2: " + B},
        {fcID("1000000000a1b202"), "h/2: " + B, "h/2:"},
        {iscsiID("iqn.a"), "g/1:; h/2: iqn.a@0:2:1", "g/1:; h/2:; -: iqn.a@0:2:1"},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.path);
        setHosts(each.before);
        EXPECT_EQ(remove(each.path), done("Collection=root/qrv:" + each.path));
        EXPECT_EQ(functions(), std::vector<std::string>{"api_removePath"});
        EXPECT_EQ(hostsText(), each.after);
    }
}

TEST_F(CreationTest, deletionRefusesWhatIsNotThere) {
    setHosts("h/2: " + A + "; -: " + B + "@0:1:1");
    const std::string notThere = "4096 StorageHardwareID root/qrv:";
    EXPECT_EQ(remove(fcID(C)), notThere + fcID(C) + " not found");
    EXPECT_EQ(remove(fcID("zebra")), notThere + fcID("zebra") + " not found");
    EXPECT_EQ(remove(iscsiID(A)), notThere + iscsiID(A) + " not found");
    EXPECT_EQ(remove(fcID(B)), "4 No host name was given") << "no host holds it";
    control::failCall("api_getHostPaths");
    EXPECT_EQ(remove(fcID(A)), notThere + fcID(A) + " not found");
    logged();
    control::failCall("api_removePath", 1, control::Repeat::once, ERR_QRV_HOSTPATH_NOTFOUND);
    EXPECT_EQ(remove(fcID(A)), "4096 Path  does not exist") << "another client was faster";
    EXPECT_THAT(logged(), testing::ElementsAre("2 Error from api_removeHost: Path  does not "
                                               "exist\n"));
    EXPECT_EQ(hostsText(), "h/2: " + A + "; -: " + B + "@0:1:1");
}

}  // namespace

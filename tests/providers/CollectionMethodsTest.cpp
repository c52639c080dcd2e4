// Creating a host with its initiators, and adding initiators to one.
#include <qrvapi.h>

#include "MethodTest.h"

namespace control = qrvapi::control;
using namespace Pegasus;
using namespace qrvtest;

namespace {

constexpr const char* CREATE = "CreateHardwareIDCollection";
constexpr const char* ADD = "AddHardwareIDsToCollection";
const std::string A = "1000000000A1B201", B = "1000000000A1B202", C = "1000000000A1B203";
const std::string IN_NAMESPACE = "root/qrv:";

class CollectionMethodsTest : public MethodTest {
  protected:
    std::string create(const std::string& name, const std::vector<std::string>& ids) {
        return call(CREATE, Parameters{{"ElementName", text(name)}, {"HardwareIDs", texts(ids)}});
    }

    std::string add(const std::string& host, const std::vector<std::string>& ids) {
        return call(ADD, Parameters{{"Collection", reference(collectionOf(host))},
                                    {"HardwareIDs", texts(ids)}});
    }

    static std::string created(const std::string& host) {
        return done("Collection=//array7.example/root/qrv:" + collectionOf(host));
    }
    static std::string added(const std::string& host) {
        return done("Collection=" + IN_NAMESPACE + collectionOf(host));
    }

    /// The last call of a function, as "wwnCount wwns iscsiCount iscsiNames".
    static std::string listsOf(const std::string& function) {
        std::string lists;
        for (const control::CallRecord& call : control::calls())
            if (call.function == function)
                lists = call.argument("wwnCount") + " " + call.argument("wwns") + " " +
                        call.argument("iscsiCount") + " " + call.argument("iscsiNames");
        return lists;
    }
};

TEST_F(CollectionMethodsTest, createsAHostWithAnyInitiators) {
    setHosts("-: " + C + "@0:1:1");
    control::recordCalls(true);
    const std::string oddWwn = fcID("zebra"), longName = "iqn." + std::string(300, 'n');
    const std::string mixed =
        "HardwareIDs[" + fcID(B) + "," + iscsiID("iqn.b") + "," + fcID("1000000000a1b201") + "]";
    const std::string odd =
        "HardwareIDs[" + oddWwn + ",//array7.example/root/qrv:" + iscsiID("iqn.c") + "]";
    const struct {
        std::string name, more, lists, array;
    } cases[] = {
        {"bare", "", "0  0 ", "bare/2:"},
        {"none", "HardwareIDs[]", "0  0 ", "none/2:"},
        {"mixed", mixed, "2 " + B + "," + A + " 1 iqn.b", "mixed/2: " + B + " " + A + " iqn.b"},
        {"known", "HardwareIDs[" + fcID(C) + "]", "1 " + C + " 0 ", "known/2: " + C + "@0:1:1"},
        {"odd", odd, "0  1 iqn.c", "odd/2: iqn.c"},
        {"long", "HardwareIDs[" + iscsiID(longName) + "]", "0  1 " + longName.substr(0, 223),
         "long/2: " + longName.substr(0, 223)},
        {"east", "Domain=east Setting@" + setting("1"), "0  0 ", "east/1/east:"}};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        EXPECT_EQ(call(CREATE, "ElementName=" + each.name + " " + each.more), created(each.name));
        EXPECT_EQ(listsOf("api_createHost"), each.lists);
        EXPECT_THAT(changes(), testing::ElementsAre(testing::StartsWith("api_createHost host " +
                                                                        each.name + ": created")));
        EXPECT_THAT(hostsText(), testing::HasSubstr(each.array));
    }
    EXPECT_EQ(logged(), std::vector<std::string>{"2 Error: wwnlist is NULL, wwn count is 0\n"});
}

TEST_F(CollectionMethodsTest, addsInitiatorsToAHost) {
    setHosts("g/2: iqn.a; h/1: " + A);
    control::recordCalls(true);
    EXPECT_EQ(add("h", {iscsiID("iqn.b"), fcID(C), fcID(B)}), added("h"));
    EXPECT_EQ(listsOf("api_addPath"), "2 " + C + "," + B + " 1 iqn.b");
    EXPECT_EQ(hostsText(), "g/2: iqn.a; h/1: " + A + " " + C + " " + B + " iqn.b");
    EXPECT_EQ(changes(), std::vector<std::string>{"api_addPath host h: path " + C + ", path " + B +
                                                  ", path iqn.b"});
    const std::string full = "//array7.example/root/qrv:" + collectionOf("g");
    EXPECT_EQ(call(ADD, "HardwareIDs[" + fcID("77") + "] Collection@" + full),
              done("Collection=" + full));
}

TEST_F(CollectionMethodsTest, whatTheArrayRefusesKeepsItsText) {
    const std::string before = "g/2: " + A + "; h/2: " + B;
    setHosts(before);
    std::string accents;  // longer than what the array keeps of a word
    for (int i = 0; i < 40; ++i) accents += "\u00e9";
    const struct {
        std::string outcome, expected, call;
    } cases[] = {
        {create("h", {}), "4 Host h already exists", "createHost"},
        {create("n", {fcID(A)}), "4 Path " + A + " on port none already exists", "createHost"},
        {create("n", {fcID(C), fcID(C)}), "5 Path " + C + " on port none is given twice",
         "createHost"},
        {call(CREATE, "ElementName=n Domain=" + accents),
         "4 Domain " + accents.substr(0, 62) + "? does not exist", "createHost"},
        {call(CREATE, "ElementName=n Domain=west"), "4 Domain west does not exist", "createHost"},
        {add("gone", {fcID(C)}), "4096 Host gone does not exist", "addPath"},
        {add("h", {fcID(C), fcID(B)}), "5 Path " + B + " on port none is given twice", "addPath"},
        {add("h", {fcID(C), fcID(A)}), "4 Path " + A + " on port none already exists", "addPath"},
        {add("h", {iscsiID("nonsense")}), "4 \"nonsense\" is not a valid iSCSI name", "addPath"}};
    const std::vector<std::string> log = logged();
    ASSERT_EQ(log.size(), std::size(cases));
    for (std::size_t i = 0; i < log.size(); ++i) {
        EXPECT_EQ(cases[i].outcome, cases[i].expected);
        EXPECT_EQ(log[i], "2 Error from api_" + cases[i].call + ": " +
                              cases[i].expected.substr(cases[i].expected.find(' ') + 1) + "\n");
    }
    EXPECT_EQ(hostsText(), before);
}

// One bad entry, wherever it stands, and nothing of the list reaches the array.
TEST_F(CollectionMethodsTest, theFirstBadEntryEndsTheCall) {
    setHosts("h/2:");
    const std::string unnamed = "QRV_StorageHardwareID.InstanceID=\"ORVELIS:SAS-5\"";
    const std::string foreign = "//elsewhere/root/qrv:" + fcID(A);
    const std::string otherSpace = "root/cimv2:" + fcID(A);
    const auto invalid = [](const std::string& path) {
        return "5 HardwareID path " + path + " is invalid";
    };
    const auto unparsable = [](const std::string& text) {
        return "-1 malformed object name: " + text + ", reason:\"class name " + text +
               " not a legal CIM name\"";
    };
    const auto unnamedIn = [&](const char* noun, const char* end) {
        return "4096 " + std::string(noun) + " " + IN_NAMESPACE + unnamed + " " + end;
    };
    const struct {
        std::string entry, whenCreating, whenAdding;
    } cases[] = {{IN_NAMESPACE + collectionOf("g"), invalid(IN_NAMESPACE + collectionOf("g")),
                  invalid(IN_NAMESPACE + collectionOf("g"))},
                 {foreign, invalid(foreign), invalid(foreign)},
                 {otherSpace, invalid(otherSpace), invalid(otherSpace)},
                 {unnamed, unnamedIn("StorageHardwareID", "not found"),
                  unnamedIn("HardwareID path", "is not found")},
                 {"a=b", unparsable("a=b"), unparsable("a=b")},
                 {"", unparsable(""), unparsable("")}};
    for (const auto& each : cases) {
        EXPECT_EQ(create("n", {fcID(B), each.entry, "worse"}), each.whenCreating);
        EXPECT_EQ(add("h", {fcID(B), each.entry, "worse"}), each.whenAdding);
    }
    EXPECT_EQ(hostsText(), "h/2:");
}

TEST_F(CollectionMethodsTest, takesTenThousandInitiatorsInOneCall) {
    setHosts("h/2:");
    std::vector<std::string> ids;
    for (int i = 1; i <= 5000; ++i) {
        ids.push_back(fcID(std::to_string(i)));
        ids.push_back(iscsiID("iqn." + std::to_string(i)));
    }
    control::recordCalls(true);
    std::vector<std::string> oneBad = ids;
    oneBad.push_back(fcID(""));
    EXPECT_EQ(add("h", oneBad),
              "4096 HardwareID path " + IN_NAMESPACE + fcID("") + " is not found");
    EXPECT_EQ(control::callCount("api_addPath"), 0U);
    EXPECT_EQ(add("h", ids), added("h"));
    EXPECT_THAT(listsOf("api_addPath"),
                testing::AllOf(testing::StartsWith("5000 0000000000000001,0000000000000002,"),
                               testing::EndsWith(",iqn.4999,iqn.5000")));
    EXPECT_EQ(control::callCount("cim_sem_wait"), 1U);
}

}  // namespace

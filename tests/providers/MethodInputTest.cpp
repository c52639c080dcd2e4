// What clients can send to any of the methods.
#include <algorithm>

#include "MethodTest.h"

namespace control = qrvapi::control;
using namespace Pegasus;
using namespace qrvtest;

namespace {

/// One parameter of a method: a good value, another one, and what the call ends with when it is
/// null (empty: the same as without) or a reference to something else (empty: it is none).
struct Parameter {
    std::string name;
    CIMValue value, other;
    std::string whenNull, whenForeign;
};

struct Method {
    const char* name;
    std::vector<Parameter> parameters;
};

const std::string A = "1000000000A1B201", B = "1000000000A1B202";
const CIMValue IDS = texts({fcID(B)}), OTHER_IDS = texts({"junk"});
const Parameter COLLECTION{"Collection", reference(collectionOf("h")), reference(collectionOf("g")),
                           "5 Collection is mandatory", "5 invalid Collection path "};
const Parameter SETTING{"Setting", reference(setting("2")), reference(setting("0")), "",
                        "5 Invalid Setting parameter "};

const Method METHODS[] = {
    {"CreateStorageHardwareID",
     {{"ElementName", text("h"), text("n"), "", ""},
      {"StorageID", text(B), text(A),
       "5 StorageID is mandatory. To create host without specifying StorageID, use "
       "CreateHardwareIDCollection instead",
       ""},
      {"IDType", number(2), number(5), "5 IDType is mandatory", ""},
      {"OtherIDType", text("any"), number(1), "", ""},
      SETTING}},
    {"DeleteStorageHardwareID",
     {{"HardwareID", reference(fcID(A)), reference(iscsiID("iqn.a")), "5 HardwareID is mandatory",
       "5 Invalid HardwareID parameter "}}},
    {"CreateHardwareIDCollection",
     {{"ElementName", text("n"), text("h"), "5 ElementName is mandatory", ""},
      {"HardwareIDs", IDS, OTHER_IDS, "", ""},
      SETTING,
      {"Domain", text("east"), text("west"), "", ""}}},
    {"AddHardwareIDsToCollection",
     {COLLECTION, {"HardwareIDs", IDS, OTHER_IDS, "5 HardwareIDs is mandatory", ""}}},
    {"SetISCSICHAP",
     {COLLECTION,
      {"InitiatorCHAPName", text("me"), text("you"), "", ""},
      {"InitiatorSecret", text("twelve chars"), text("short"), "4 Target CHAP needs initiator CHAP",
       ""},
      {"InitiatorSecretType", number(0), number(1), "", ""},
      {"TargetCHAPName", text("me"), text("you"), "", ""},
      {"TargetSecret", text("twelve other"), text("short"), "", ""},
      {"TargetSecretType", number(0), number(1), "", ""}}},
    {"RemoveISCSICHAP", {COLLECTION, {"RemovalScope", number(2), number(1), "", ""}}}};

class MethodInputTest : public MethodTest, public testing::WithParamInterface<Method> {
  protected:
    /// The good call with one parameter replaced, on an array that is as it was.
    std::string callWith(const std::string& name, const CIMValue& value) {
        Parameters parameters = good();
        for (auto& each : parameters)
            if (each.first == name) each.second = value;
        return callFresh(parameters);
    }

    std::string callFresh(const Parameters& parameters) {
        setHosts("g/2:; h/2: " + A + " iqn.a");
        return call(GetParam().name, parameters);
    }

    static Parameters good() {
        Parameters parameters;
        for (const Parameter& each : GetParam().parameters)
            parameters.push_back({each.name, each.value});
        return parameters;
    }

    static Parameters renamed(int (*change)(int)) {
        Parameters parameters = good();
        for (auto& [name, value] : parameters)
            std::transform(name.begin(), name.end(), name.begin(), change);
        return parameters;
    }
};

TEST_P(MethodInputTest, namesCountInAnyCase) {
    for (const Parameters& parameters : {good(), renamed(::toupper), renamed(::tolower)}) {
        EXPECT_THAT(callFresh(parameters), testing::EndsWith("return 0\ncomplete"));
        EXPECT_THAT(changes(), testing::SizeIs(1));
    }
}

TEST_P(MethodInputTest, anUnknownNameEndsTheCallUnlessItIsNull) {
    Parameters parameters = good();
    parameters.push_back({"NoSuch", CIMValue(CIMTYPE_STRING, false)});
    EXPECT_THAT(callFresh(parameters), testing::EndsWith("return 0\ncomplete"));
    parameters.back().second = text("");
    EXPECT_EQ(callFresh(parameters), "5 Invalid parameter NoSuch");
    EXPECT_THAT(changes(), testing::IsEmpty());
}

TEST_P(MethodInputTest, nullIsAbsent) {
    for (const Parameter& each : GetParam().parameters) {
        SCOPED_TRACE(each.name);
        control::captureLog(4);
        logged();
        const std::string outcome =
            callWith(each.name, CIMValue(each.value.getType(), each.value.isArray()));
        if (each.whenNull.empty())
            EXPECT_THAT(outcome, testing::EndsWith("return 0\ncomplete"));
        else
            EXPECT_EQ(outcome, each.whenNull);
        const std::vector<std::string> log = logged();
        const auto named = std::find(log.begin(), log.end(), "4 Param " + each.name + "\n");
        ASSERT_GT(log.end() - named, 1);
        EXPECT_EQ(named[1], "4 value is null, continue\n");
    }
}

TEST_P(MethodInputTest, theLastOfSeveralCounts) {
    const std::string answer = callFresh(good()), after = hostsText();
    for (const Parameter& each : GetParam().parameters) {
        SCOPED_TRACE(each.name);
        Parameters parameters = good();
        parameters.insert(parameters.begin(), {each.name, each.other});
        EXPECT_EQ(callFresh(parameters), answer);
        EXPECT_EQ(hostsText(), after);
    }
}

TEST_P(MethodInputTest, aValueOfAnotherTypeIsRefusedByTheServersLibrary) {
    for (const Parameter& each : GetParam().parameters) {
        if (each.name == "OtherIDType") continue;
        for (const CIMValue& wrong :
             {CIMValue(true), CIMValue(Uint64(2)), CIMValue(Array<Uint16>())}) {
            EXPECT_EQ(callWith(each.name, wrong), "-1 type mismatch") << each.name;
            EXPECT_THAT(changes(), testing::IsEmpty());
        }
    }
}

TEST_P(MethodInputTest, aReferenceHasToNameAnObjectOfThisSystem) {
    for (const Parameter& each : GetParam().parameters) {
        if (each.whenForeign.empty()) continue;
        CIMObjectPath path;
        each.value.get(path);
        const std::string keys = textOf(path);
        for (const char* where :
             {"", "root/qrv:", "//ARRAY7.example/root/QRV:", "//192.0.2.1/root/qrv:"})
            EXPECT_THAT(callWith(each.name, reference(where + keys)),
                        testing::EndsWith("return 0\ncomplete"))
                << where;
        const std::string otherClass = "root/qrv:CIM_Other" + keys.substr(keys.find('.'));
        for (const std::string& foreign : {"//elsewhere/root/qrv:" + keys, "root/cimv2:" + keys,
                                           "//192.0.2.10/root/qrv:" + keys, otherClass}) {
            EXPECT_EQ(callWith(each.name, reference(foreign)), each.whenForeign + foreign);
            EXPECT_THAT(changes(), testing::IsEmpty());
        }
    }
}

/// What a call with parameters that make no sense ends with, and the line that it logs if any.
struct Refusal {
    const char* method;
    std::string parameters, outcome, log;
};

const char* const CREATE = METHODS[0].name;
const char* const DELETE = METHODS[1].name;
const char* const CREATE_HOST = METHODS[2].name;
const char* const ADD = METHODS[3].name;
const char* const SET_CHAP = METHODS[4].name;
const char* const REMOVE_CHAP = METHODS[5].name;
const std::string TYPES = "IDType must be PortWWN or iscsiName";
const std::string NO_STORAGE_ID =
    "StorageID is mandatory. To create host without specifying StorageID, use "
    "CreateHardwareIDCollection instead";
const std::string NO_PERSONA = "QRV_StorageClientSettingData.InstanceID=\"ORVELIS:OTHER-1\"";
const std::string NO_PREFIX = "QRV_StorageHardwareID.InstanceID=\"FC-" + A + "\"";
const std::string HERE = "root/qrv:", NOBODY = collectionOf("");
const std::string IN_NOBODY = "Collection@" + NOBODY, IN_H = "Collection@" + collectionOf("h");
const std::string NO_HOST = "5 invalid StorageHardwareIDCollection path " + HERE + NOBODY;

const Refusal REFUSALS[] = {
    {CREATE, "", "5 Invalid number of parameters", " Invalid number of parameters"},
    {CREATE, "IDType#3 NoSuch=x", "4097 " + TYPES, TYPES},
    {CREATE, "NoSuch=x IDType#3", "5 Invalid parameter NoSuch", ""},
    {CREATE, "StorageID=5 HardwareID=x", "5 Invalid parameter HardwareID", ""},
    {CREATE, "ElementName=x", "5 " + NO_STORAGE_ID, NO_STORAGE_ID},
    {CREATE, "StorageID= IDType#2", "5 " + NO_STORAGE_ID, NO_STORAGE_ID},
    {CREATE, "StorageID=5 OtherIDType#1", "5 IDType is mandatory", " IDType is mandatory"},
    {CREATE, "Setting@" + NO_PERSONA, "5 Invalid Setting parameter " + HERE + NO_PERSONA,
     "\tInput is Invalid Setting!"},
    {CREATE, "Setting@" + setting("x"), "5 Invalid Setting parameter " + HERE + setting("x"),
     "\tInput is Invalid Setting!"},
    {CREATE, "StorageID=iqn.a IDType#2", "5 Invalid WWN for an FC path, StorageID iqn.a",
     "Invalid WWN for an FC path, StorageID = iqn.a"},
    {CREATE, "IDType#2 StorageID=0" + A, "5 Invalid WWN for an FC path, StorageID 0" + A,
     "Invalid WWN for an FC path, StorageID = 0" + A},
    {DELETE, "", "5  Invalid number of parameters", " Invalid number of parameters"},
    {DELETE, "HardwareID!", "5 HardwareID is mandatory", " HardwareID is mandatory"},
    {DELETE, "HardwareID@" + fcID(""), "5 invalid HardwareID path " + HERE + fcID(""),
     " invalid HardwareID path"},
    {DELETE, "HardwareID@" + NO_PREFIX, "5 invalid HardwareID path " + HERE + NO_PREFIX,
     " invalid HardwareID path"},
    {CREATE_HOST, "", "5  Invalid number of parameters", " Invalid number of parameters"},
    {CREATE_HOST, "HardwareIDs[]", "5 ElementName is mandatory", " ElementName is mandatory"},
    {CREATE_HOST, "ElementName= Setting@" + setting("0"), "5 ElementName is mandatory",
     " ElementName is mandatory"},
    {CREATE_HOST, "ElementName=n HardwareIDs[junk] Setting@" + setting("0"),
     "5 Invalid Setting parameter " + HERE + setting("0"), "\tInput is Invalid Setting!"},
    {ADD, "", "5  Invalid number of parameters", " Invalid number of parameters"},
    {ADD, "HardwareIDs[]", "5 Collection is mandatory", " Collection is mandatory"},
    {ADD, IN_NOBODY, NO_HOST, " invalid collection path"},
    {ADD, IN_H, "5 HardwareIDs is mandatory", " HardwareIDs is mandatory"},
    {ADD, IN_H + " HardwareIDs[]", "5 HardwareIDs is mandatory", " HardwareIDs is mandatory"},
    {SET_CHAP, "", "5  Invalid number of parameters", " Invalid number of parameters"},
    {SET_CHAP, "InitiatorSecretType#2 NoSuch=x", "5 invalid InitiatorSecretType value",
     "Invalid InitiatorSecretType"},
    {SET_CHAP, "InitiatorSecret=short TargetSecretType#2", "5 invalid TargetSecretType value",
     "Invalid TargetSecretType"},
    {SET_CHAP, "InitiatorSecret=short", "5 Collection is mandatory", " Collection is mandatory"},
    {SET_CHAP, IN_NOBODY + " InitiatorSecret= TargetSecret= TargetCHAPName=x",
     "5 Secret is mandatory", " Secret is mandatory"},
    {SET_CHAP, IN_NOBODY + " InitiatorSecret=twelve_chars", NO_HOST, " invalid collection path"},
    {REMOVE_CHAP, "", "5  Invalid number of parameters", " Invalid number of parameters"},
    {REMOVE_CHAP, "RemovalScope#0 NoSuch=x", "5 invalid RemovalScope value",
     "Invalid RemovalScope"},
    {REMOVE_CHAP, IN_H + " RemovalScope#3", "5 invalid RemovalScope value", "Invalid RemovalScope"},
    {REMOVE_CHAP, "RemovalScope#1", "5 Collection is mandatory", " Collection is mandatory"},
    {REMOVE_CHAP, IN_NOBODY, NO_HOST, " invalid collection path"}};

class RefusalTest : public MethodTest {};

TEST_F(RefusalTest, badParametersNeverReachTheArray) {
    for (const Refusal& each : REFUSALS) {
        SCOPED_TRACE(each.method + (" " + each.parameters));
        control::resetCounters();
        control::recordCalls(true);
        EXPECT_EQ(call(each.method, each.parameters), each.outcome);
        const std::vector<std::string> line{"2 " + each.log + "\n"};
        EXPECT_EQ(logged(), each.log.empty() ? std::vector<std::string>() : line);
        EXPECT_EQ(control::callCount("cim_sem_wait"), 0U);
    }
}

INSTANTIATE_TEST_SUITE_P(Methods, MethodInputTest, testing::ValuesIn(METHODS),
                         [](const auto& method) { return method.param.name; });

}  // namespace

// Which permissions the arguments of a method take, and in which order the array is asked.
#include <QRV_Authorization.h>
#include <QRV_Common.h>

#include <functional>
#include <map>
#include <sstream>

#include "ToolkitTest.h"

namespace control = qrvapi::control;
using namespace Pegasus;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Parameters = Array<CIMParamValue>;
using Function = int (*)(const String&, const String&, const Parameters&);

const CIMValue NULL_REFERENCE(CIMTYPE_REFERENCE, false);
const CIMValue NULL_NUMBER(CIMTYPE_UINT16, false);
const std::string SETTINGS = "qrv_storageconfigurationservice.";
const std::string ELEMENT = SETTINGS + "createormodifyelementfromstoragepool.";
const std::string RETURN = "|" + SETTINGS + "returntostoragepool";
const std::string BASE = RETURN + ".basevv";
const std::string COPY = RETURN + ".physcopyvv";
const std::string COPIES = "qrv_replicationservice.";
const std::string REPLICA = COPIES + "modifyreplicasynchronization.";
const std::string LIST = COPIES + "modifylistsynchronization.";

Parameters with(std::initializer_list<std::pair<const char*, CIMValue>> given) {
    Parameters parameters;
    for (const auto& [name, value] : given) parameters.append(CIMParamValue(name, value));
    return parameters;
}

CIMObjectPath path(const char* className) {
    return CIMObjectPath(String(className) + ".InstanceID=\"1\"");
}

std::string identifier(char volume) {
    return std::string(31, '0') + volume;
}

CIMObjectPath volume(char name) {
    return CIMObjectPath(String("QRV_StorageVolume.DeviceID=\"") + identifier(name).c_str() + "\"");
}

CIMValue volumes(const std::string& names) {
    Array<CIMObjectPath> paths;
    for (const char name : names) paths.append(volume(name));
    return paths;
}

/// An association whose keys are the texts of its ends.
CIMObjectPath between(const String& end1, const String& text1, const String& end2,
                      const String& text2) {
    Array<CIMKeyBinding> keys;
    keys.append(CIMKeyBinding(end1, text1, CIMKeyBinding::STRING));
    keys.append(CIMKeyBinding(end2, text2, CIMKeyBinding::STRING));
    return CIMObjectPath(String(), CIMNamespaceName("root/qrv"), "QRV_Pair", keys);
}

CIMObjectPath copyOf(char target) {
    return between("SystemElement", "", "SyncedElement", volume(target).toString());
}

/// The user admin may do all. The volumes 1 to 4 are of the kinds of these numbers, 5 of a kind
/// that only the array knows, and 6 of one that not even the array knows.
class AuthorizationTest : public ToolkitTest {
  protected:
    AuthorizationTest() {
        control::addUser(R"({"name": "admin", "password": "p", "rights": "all"})");
        char name = '1';
        for (const std::string kind :
             {"base", "physicalCopy", "virtualCopy", "remoteCopy", "other", "unknown"}) {
            const std::string wwn = identifier(name++);
            control::addVolume(R"({"name": "v)" + wwn.substr(31) + R"(", "wwn": ")" + wwn +
                               R"(", "type": ")" + kind + R"("})");
        }
    }

    /// The answer, and behind it what the array was asked for, with a bar before each.
    static std::string outcome(const std::function<int()>& call) {
        control::resetCounters();
        std::string text = std::to_string(call());
        for (const control::CallRecord& each : control::calls())
            if (each.function == "api_authorizeCIMUser") text += "|" + each.argument("method");
        EXPECT_TRUE(control::outstanding().idle());
        EXPECT_THAT(control::violations(), IsEmpty());
        return text;
    }
    static std::string ask(Function function, const Parameters& parameters) {
        return outcome([&] { return function("admin", "192.0.2.7", parameters); });
    }
};

TEST_F(AuthorizationTest, argumentsPickThePermissions) {
    const auto element = authorize_CreateOrModifyElemFromStoragePool;
    const auto pool = authorize_CreateOrModifyStoragePool;
    const auto noPool = authorize_DeleteStoragePool;
    const std::string newVolume = "0|" + ELEMENT + "createvolume";
    const std::string change = "0|" + SETTINGS + "createormodifystoragepool.";
    const std::string removal = "0|" + SETTINGS + "deletestoragepool.delete";
    const CIMValue target(volume('1'));
    const CIMValue dynamicPool(path("qrv_dynamicStoragePool"));
    const struct {
        Function function;
        Parameters parameters;
        std::string expected;
    } cases[] = {
        {element, with({}), newVolume},
        {element, with({{"Size", Uint64(1)}, {"TheElement", NULL_REFERENCE}}), newVolume},
        {element, with({{"TheElement", CIMObjectPath()}}), newVolume},
        {element, with({{"theelement", target}}), "0"},
        {element, with({{"ELEMENTNAME", String("n")}, {"SIZE", Uint64(1)}, {"TheElement", target}}),
         "0|" + ELEMENT + "growvolume" + "|" + ELEMENT + "setvolume"},
        {element, with({{"TheElement", target}, {"ElementName", CIMValue(CIMTYPE_STRING, false)}}),
         "0"},
        {pool, with({}), change + "createcpg"},
        {pool, with({{"pool", dynamicPool}}), change + "setcpg"},
        {pool, with({{"Pool", NULL_REFERENCE}, {"Pool", dynamicPool}}), change + "createcpg"},
        {noPool, with({}), "3"},
        {noPool, with({{"Pool", path("QRV_StoragePool")}}), "3"},
        {noPool, with({{"Pool", NULL_REFERENCE}, {"Pool", dynamicPool}}),
         removal + "dynamicstoragepool"},
        {noPool, with({{"Pool", path("QRV_DeltaReplicaStoragePool")}}),
         removal + "deltareplicastoragepool"},
        {authorize_ReplicationServiceCapabilitiesMethod, with({}),
         "0|qrv_replicationservicecapabilities"},
        {authorize_ModifyStorageSetting_Transient, with({}), "0|" + ELEMENT + "setvolume"},
        {authorize_ModifyStorageSetting_Persistent, with({}),
         "0|qrv_storagesetting.modifyinstance"},
    };
    for (const auto& each : cases)
        EXPECT_EQ(ask(each.function, each.parameters), each.expected) << &each - cases;
}

/// Names by their numbers, from "number=end of name;" again and again.
std::map<int, std::string> names(const std::string& prefix, const std::string& text) {
    std::map<int, std::string> names;
    std::istringstream ends(text);
    for (std::string number, end; std::getline(ends, number, '=') && std::getline(ends, end, ';');)
        names[std::stoi(number)] = prefix + end;
    return names;
}

/// For every number from 0 to 30: asked under its name, or refused without a question.
TEST_F(AuthorizationTest, numbersPickThePermissions) {
    const auto replica = authorize_ModifyReplicaSynchronization;
    const std::string element = COPIES + "createelementreplica.";
    const std::string group = COPIES + "creategroupreplica.";
    const struct {
        Function function;
        const char* parameter;
        std::string missing;
        std::map<int, std::string> names;
    } cases[] = {
        {authorize_ModifySynchronization, "operation", "3",
         names(SETTINGS + "modifysynchronization.",
               "2=detach;4=resync;5=restore;12=startcopy;13=stopcopy;")},
        {authorize_CreateElementReplica, "SyncType", "0|" + element + "createvvcopy",
         names(element, "7=createsv;8=createvvcopy;")},
        {authorize_CreateGroupReplica, "SyncType", "0|" + group + "creategroupvvcopy",
         names(group, "6=createmirror;7=creategroupsv;8=creategroupvvcopy;")},
        {replica, "Operation", "0|" + element + "createvvcopy",
         names(REPLICA,
               "2=abort ;4=syncrcopy;8=dissolve;9=dissolve;10=setrcopygroup;11=setrcopygroup;"
               "14=resync;15=restore;20=setrcopygroup;21=split;")},
        {authorize_ModifyListSynchronization, "Operation", "0|" + LIST + "resync",
         names(LIST, "2=abort;8=dissolve;9=dissolve;14=resync;15=restore;")},
    };
    Array<CIMObjectPath> copies;
    copies.append(copyOf('2'));
    copies.append(copyOf('3'));
    for (const auto& each : cases) {
        const auto request = [&](const CIMValue& number) {
            return with({{each.parameter, number},
                         {"mode", Uint16(2)},
                         {"synchronization",
                          each.function == replica ? CIMValue(copyOf('2')) : CIMValue(copies)}});
        };
        for (int number = 0; number <= 30; ++number) {
            if (number == 19) continue;
            const auto found = each.names.find(number);
            EXPECT_EQ(ask(each.function, request(Uint16(number))),
                      found == each.names.end() ? "3" : "0|" + found->second)
                << &each - cases << " " << number;
        }
        EXPECT_EQ(ask(each.function, request(NULL_NUMBER)), each.missing) << &each - cases;
        const bool returns = each.names.count(14) > 0;
        EXPECT_EQ(ask(each.function, request(Uint16(19))), returns ? "0" + COPY : "3");
        EXPECT_THROW(ask(each.function, request(String("2"))), TypeMismatchException);
    }
    EXPECT_EQ(ask(authorize_CreateElementReplica, with({{"SyncType", Uint16(7)}})),
              "0|" + COPIES + "createelementreplica.createvvcopy");
    EXPECT_EQ(ask(authorize_ModifyListSynchronization,
                  with({{"TargetGroup", path("X")}, {"Operation", Uint16(19)}})),
              "0|" + COPIES + "deletegroup");
    EXPECT_THAT(logged(), IsEmpty());
    EXPECT_EQ(ask(replica, with({{"Operation", Uint16(19)}})), "0");
    EXPECT_THAT(logged(), ElementsAre("2 Cannot find the volume referenced to in \n"));
}

TEST_F(AuthorizationTest, allocationsGoByTheClassesOfTheirEnds) {
    const char* const dynamic = "QRV_DynamicStoragePool.InstanceID=\"1\"";
    const std::string name = "qrv_allocatedfromstoragepool.modifyinstance.";
    const struct {
        const char* antecedent;
        const char* dependent;
        std::string expected;
    } cases[] = {
        {"QRV_StorageVolume.A=1", dynamic, "0|" + name + "setcpg"},
        {"", dynamic, "0|" + name + "setcpg"},
        {dynamic, "qrv_storagevolume.A=1", "0|" + name + "setvv"},
        {dynamic, "QRV_DeltaReplicaStoragePool.A=1", "0|" + name + "setvv"},
        {dynamic, "QRV_StoragePool.A=1", "3"},
        {"QRV_StoragePool.A=1", "QRV_StorageVolume.A=1", "3"},
        {dynamic, "", "3"},
    };
    const auto authorizing = [](const CIMObjectPath& association) {
        return outcome([&] {
            return authorize_AllocatedFromStoragePoolModifyInstance("admin", "", association);
        });
    };
    for (const auto& each : cases)
        EXPECT_EQ(authorizing(between("dependent", each.dependent, "antecedent", each.antecedent)),
                  each.expected)
            << each.antecedent << " " << each.dependent;
    EXPECT_EQ(authorizing(CIMObjectPath("X.A=1")), "3");
    EXPECT_THROW(authorizing(between("Dependent", "no path", "Antecedent", dynamic)),
                 MalformedObjectNameException);
}

TEST_F(AuthorizationTest, volumesAreRemovedByTheirKind) {
    const CIMValue one(volume('1'));
    const struct {
        Parameters parameters;
        std::string expected;
    } cases[] = {
        {with({}), "0"},
        {with({{"TheElements", volumes("1234")}}),
         "0" + BASE + COPY + RETURN + ".virtcopyvv" + RETURN},
        {with({{"TheElement", one}, {"TheElements", volumes("2")}}), "0" + COPY},
        {with({{"TheElements", volumes("2")}, {"TheElement", one}}), "0" + COPY + BASE},
        // What isn't found is held against the name before it; so is a volume of no known kind.
        {with({{"TheElements", volumes("9196")}}), "0" + RETURN + BASE + BASE + BASE},
        {with({{"TheElement", CIMObjectPath()}}), "0" + RETURN},
        {with({{"TheElement", path("QRV_StorageVolume")}}), "0" + RETURN},
        {with({{"TheElements", volumes("51")}}), "0" + BASE},
        {with({{"TheElements", volumes("15")}}), "3" + BASE},
    };
    for (const auto& each : cases)
        EXPECT_EQ(ask(authorize_DeleteStorageVolume, each.parameters), each.expected)
            << &each - cases;

    const Parameters unknown = with({{"TheElements", volumes("69")}});
    logged();
    EXPECT_EQ(authorize_DeleteStorageVolume("admin", "", unknown), 0);
    EXPECT_THAT(logged(),
                ElementsAre("2 TheElement parameter is invalid\n",
                            "2 Cannot find the volume referenced to in "
                            "QRV_StorageVolume.DeviceID=\"00000000000000000000000000000009\"\n"));
}

TEST_F(AuthorizationTest, whoAsksAndWhatIsRefused) {
    const Parameters both =
        with({{"TheElement", volume('1')}, {"Size", Uint64(1)}, {"ElementName", String("n")}});
    control::failCall("api_authorizeCIMUser");
    EXPECT_EQ(ask(authorize_CreateOrModifyElemFromStoragePool, both),
              "1|" + ELEMENT + "growvolume");
    const control::CallRecord call = control::calls().back();
    EXPECT_EQ(call.argument("user"), "admin");
    EXPECT_EQ(call.argument("clientAddress"), "192.0.2.7");
    EXPECT_EQ(authorize_CreateOrModifyStoragePool("nobody", "", with({})), 2);

    control::failCall("api_authorizeCIMUser", 1, control::Repeat::once, 3);
    EXPECT_EQ(ask(authorize_DeleteStorageVolume, with({{"TheElements", volumes("12")}})),
              "3" + BASE)
        << "the array's own refusal ends the walk";
    control::timeOutGate();
    EXPECT_EQ(ask(authorize_DeleteStorageVolume, with({{"TheElement", volume('1')}})),
              "0" + RETURN);

    const std::pair<Function, const char*> typed[] = {
        {authorize_CreateOrModifyElemFromStoragePool, "TheElement"},
        {authorize_CreateOrModifyStoragePool, "Pool"},
        {authorize_DeleteStoragePool, "Pool"},
        {authorize_DeleteStorageVolume, "TheElement"},
        {authorize_DeleteStorageVolume, "TheElements"},
        {authorize_CreateGroupReplica, "Mode"},
        {authorize_ModifyReplicaSynchronization, "Synchronization"},
        {authorize_ModifyListSynchronization, "Synchronization"},
    };
    for (const auto& [function, name] : typed)
        EXPECT_THROW(ask(function, with({{name, true}})), TypeMismatchException) << name;
}

}  // namespace

// Over the sample array every association is followed from every object at its ends, by all four
// operations: the answers agree with each other and with the enumeration of the association.
#include <algorithm>
#include <set>

#include "ModuleTest.h"

using namespace Pegasus;
using qrvtest::requestOf;

namespace {

using Texts = std::vector<std::string>;
using Pairs = std::set<std::pair<std::string, std::string>>;

/// What one side leads to, beside what the enumeration of the association lists.
enum class Follows {
    TheList,   ///< the same links
    AndOthers  ///< more: a controller's DeviceID doesn't tell the transport of its initiators
};

struct End {
    const char* role;
    std::vector<const char*> classes;
    Follows follows = Follows::TheList;
};

struct Association {
    const char* name;
    End ends[2];
};

void PrintTo(const Association& association, std::ostream* out) {
    *out << association.name;
}

const std::vector<const char*> HARDWARE_IDS{"QRV_StorageHardwareID"};
const std::vector<const char*> COLLECTIONS{"QRV_StorageHardwareIDCollection"};
const std::vector<const char*> SETTINGS{"QRV_StorageClientSettingData"};
const std::vector<const char*> PRIVILEGES{"QRV_AuthorizedPrivilege"};
const std::vector<const char*> SYSTEM{"QRV_StorageSystem"};

const Association ASSOCIATIONS[] = {
    {"QRV_MemberOfStorageHardwareIDCollection",
     {{"Collection", COLLECTIONS}, {"Member", HARDWARE_IDS}}},
    {"QRV_HostedStorageHardwareIDCollection", {{"Antecedent", SYSTEM}, {"Dependent", COLLECTIONS}}},
    {"QRV_MgmtServicesForStorageHWIDCollection",
     {{"Antecedent", {"QRV_StorageHardwareIDManagementService"}},
      {"Dependent", {"QRV_StorageHardwareIDCollection", "QRV_StorageHardwareID"}}}},
    {"QRV_PrivilegeForStorageHardwareID",
     {{"Privilege", PRIVILEGES}, {"PrivilegedElement", HARDWARE_IDS}}},
    {"QRV_PrivilegeForStorageHardwareIDCollection",
     {{"Privilege", PRIVILEGES}, {"PrivilegedElement", COLLECTIONS}}},
    {"QRV_PrivilegeForSCSIController",
     {{"Privilege", PRIVILEGES, Follows::AndOthers},
      {"TargetElement", {"QRV_SCSIController"}, Follows::AndOthers}}},
    {"QRV_PrivilegeForiSCSIController",
     {{"Privilege", PRIVILEGES, Follows::AndOthers},
      {"TargetElement", {"QRV_iSCSIController"}, Follows::AndOthers}}},
    {"QRV_SPCAssociatedPrivilege",
     {{"Subject", HARDWARE_IDS}, {"Target", {"QRV_SCSIController"}, Follows::AndOthers}}},
    {"QRV_iSPCAssociatedPrivilege",
     {{"Subject", HARDWARE_IDS}, {"Target", {"QRV_iSCSIController"}, Follows::AndOthers}}},
    {"QRV_ManagementServiceForAuthorizedPrivilege",
     {{"Antecedent", {"QRV_PrivilegeManagementService"}}, {"Dependent", PRIVILEGES}}},
    {"QRV_HardwareIDElementSettingData",
     {{"ManagedElement", HARDWARE_IDS}, {"SettingData", SETTINGS}}},
    {"QRV_HWIDCollectionElementSettingData",
     {{"ManagedElement", COLLECTIONS}, {"SettingData", SETTINGS}}},
    {"QRV_SystemClientSettingData", {{"ManagedElement", SYSTEM}, {"SettingData", SETTINGS}}},
    {"QRV_HostedStorageDomainGroup",
     {{"Antecedent", SYSTEM}, {"Dependent", {"QRV_StorageDomainGroup"}}}},
};

/// A path without the host, which is the server's or the system's by turns.
std::string textOf(CIMObjectPath path) {
    path.setHost("");
    return static_cast<const char*>(path.toString().getCString());
}

/// An end of an association, as its path has it.
std::string endOf(const CIMObjectPath& association, const char* role) {
    const Array<CIMKeyBinding>& keys = association.getKeyBindings();
    for (Uint32 i = 0; i < keys.size(); ++i)
        if (keys[i].getName().equal(role)) return textOf(CIMObjectPath(keys[i].getValue()));
    return "";
}

Texts pathsOf(const Array<CIMObject>& objects) {
    Texts texts;
    for (Uint32 i = 0; i < objects.size(); ++i) texts.push_back(textOf(objects[i].getPath()));
    return texts;
}

Texts pathsOf(const Array<CIMObjectPath>& paths) {
    Texts texts;
    for (Uint32 i = 0; i < paths.size(); ++i) texts.push_back(textOf(paths[i]));
    return texts;
}

std::set<std::string> distinct(const Texts& texts) {
    return {texts.begin(), texts.end()};
}

class WholeModelTest : public qrvtest::ModuleTest, public testing::WithParamInterface<Association> {
  protected:
    WholeModelTest() { qrvapi::control::loadScenarioFile(SAMPLE_SCENARIO); }

    Array<CIMObjectPath> names(const CIMName& className) {
        return _server.enumerateInstanceNames(_context, QRV, className);
    }

    Array<CIMObjectPath> objectsAt(const End& end) {
        Array<CIMObjectPath> objects;
        for (const char* className : end.classes) objects.appendArray(names(CIMName(className)));
        return objects;
    }

    /// Asks in all four ways. The links, as they lead away from `role`.
    Pairs follow(const CIMObjectPath& object, const CIMName& association, const End& near,
                 const End& far) {
        const Array<CIMObjectPath> referenceNames =
            _server.referenceNames(_context, QRV, object, association, near.role);
        const Texts associatorNames = pathsOf(_server.associatorNames(
            _context, QRV, object, association, CIMName(), near.role, far.role));
        EXPECT_EQ(pathsOf(_server.references(_context, QRV, object, association, near.role, false,
                                             false, {})),
                  pathsOf(referenceNames));
        EXPECT_EQ(pathsOf(_server.associators(_context, QRV, object, association, CIMName(),
                                              near.role, far.role, false, false, {})),
                  associatorNames);
        Pairs links;
        Texts farEnds;
        for (Uint32 i = 0; i < referenceNames.size(); ++i) {
            EXPECT_EQ(endOf(referenceNames[i], near.role), textOf(object));
            farEnds.push_back(endOf(referenceNames[i], far.role));
            links.emplace(textOf(object), farEnds.back());
        }
        EXPECT_EQ(distinct(associatorNames), distinct(farEnds));
        return links;
    }

    CIMOMHandle _server{&broker()};
    const OperationContext _context = requestOf("admin");
    const CIMNamespaceName QRV{"root/qrv"};
};

TEST_P(WholeModelTest, everyRoadLeadsToTheSameLinks) {
    const CIMName association(GetParam().name);
    const Array<CIMObjectPath> all = names(association);
    ASSERT_GT(all.size(), 0U);
    for (const int side : {0, 1}) {
        const End& near = GetParam().ends[side];
        const End& far = GetParam().ends[1 - side];
        SCOPED_TRACE(std::string("from ") + near.role);
        Pairs listed, followed;
        for (Uint32 i = 0; i < all.size(); ++i)
            listed.emplace(endOf(all[i], near.role), endOf(all[i], far.role));
        const Array<CIMObjectPath> objects = objectsAt(near);
        for (Uint32 i = 0; i < objects.size(); ++i)
            followed.merge(follow(objects[i], association, near, far));
        if (near.follows == Follows::TheList) {
            EXPECT_EQ(followed, listed);
        } else {
            EXPECT_TRUE(
                std::includes(followed.begin(), followed.end(), listed.begin(), listed.end()));
            EXPECT_GT(followed.size(), listed.size());
        }
    }
}

TEST_P(WholeModelTest, eachIsFoundByItsPath) {
    const Array<CIMObjectPath> all = names(CIMName(GetParam().name));
    for (Uint32 i = 0; i < all.size(); ++i)
        EXPECT_EQ(
            textOf(_server.getInstance(_context, QRV, all[i], false, false, false, {}).getPath()),
            textOf(all[i]));
}

/// Without an association class every provider of the object's associations is asked.
TEST_P(WholeModelTest, withoutAClassTheAnswerHoldsThatOfEach) {
    for (const End& end : GetParam().ends) {
        const Array<CIMObjectPath> objects = objectsAt(end);
        for (Uint32 i = 0; i < objects.size(); ++i) {
            const auto whole = distinct(pathsOf(
                _server.associatorNames(_context, QRV, objects[i], CIMName(), CIMName(), "", "")));
            const auto part = distinct(pathsOf(_server.associatorNames(
                _context, QRV, objects[i], CIMName(GetParam().name), CIMName(), "", "")));
            EXPECT_TRUE(std::includes(whole.begin(), whole.end(), part.begin(), part.end()));
        }
    }
}

std::string nameOf(const testing::TestParamInfo<Association>& info) {
    return info.param.name;
}

INSTANTIATE_TEST_SUITE_P(Module, WholeModelTest, testing::ValuesIn(ASSOCIATIONS), nameOf);

}  // namespace

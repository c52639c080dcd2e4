// Building associations and choosing among them.
#include <QRV_Common.h>
#include <gmock/gmock.h>

#include "Handlers.h"
#include "TestServer.h"

using namespace Pegasus;
using qrvtest::outcomeOf;
using qrvtest::textOf;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const CIMName ASSOC("QRV_Assoc");

/// An association class with these references, and a property that is none.
CIMClass classWith(std::initializer_list<const char*> references) {
    CIMClass assocClass(ASSOC);
    assocClass.addProperty(CIMProperty(CIMName("Note"), CIMValue(CIMTYPE_STRING, false)));
    for (const char* name : references)
        assocClass.addProperty(
            CIMProperty(CIMName(name), CIMValue(CIMTYPE_REFERENCE, false), 0, CIMName("QRV_End")));
    return assocClass;
}

CIMObjectPath pathTo(const char* text) {
    return CIMObjectPath(String(text));
}

TEST(BuildAssoc, eachEndGetsItsOwnHost) {
    const CIMObjectPath first = pathTo("//old/root/qrv:A.K=1");
    const CIMObjectPath second = pathTo("root/qrv:B.K=2");
    CIMClass skeleton = classWith({"Left", "Right"});
    const std::string path =
        "//local/root/qrv:QRV_Assoc.Left=\"//h1/root/qrv:A.K=1\",Right=\"//h2/root/qrv:B.K=2\"";

    EXPECT_EQ(textOf(QRV_Common::buildAssocPath(ASSOC, "Left", "Right", first, second, "h1", "h2",
                                                "local", "root/qrv")),
              path);
    EXPECT_EQ(textOf(QRV_Common::buildAssocInstance(ASSOC, "Left", "Right", first, second, skeleton,
                                                    "h1", "h2", "local", "root/qrv")),
              path + "\nLeft=//h1/root/qrv:A.K=1\nRight=//h2/root/qrv:B.K=2");
    EXPECT_EQ(textOf(first), "//old/root/qrv:A.K=1");
    EXPECT_EQ(textOf(second), "root/qrv:B.K=2");
}

TEST(BuildAssoc, oneHostServesTwoOrThreeEnds) {
    const CIMObjectPath a = pathTo("root/qrv:A.K=1");
    const CIMObjectPath b = pathTo("//x/root/qrv:B.K=2");
    const CIMObjectPath c = pathTo("root/qrv:C.K=3");
    CIMClass two = classWith({"Left", "Right"});
    CIMClass three = classWith({"Left", "Middle", "Right"});
    EXPECT_EQ(textOf(QRV_Common::buildAssocPath(ASSOC, "Left", "Right", a, b, "h", "root/x")),
              "//h/root/x:QRV_Assoc.Left=\"//h/root/qrv:A.K=1\",Right=\"//h/root/qrv:B.K=2\"");
    EXPECT_EQ(
        textOf(QRV_Common::buildAssocInstance(ASSOC, "Left", "Right", a, b, two, "h", "root/x")),
        "//h/root/x:QRV_Assoc.Left=\"//h/root/qrv:A.K=1\",Right=\"//h/root/qrv:B.K=2\"\n"
        "Left=//h/root/qrv:A.K=1\nRight=//h/root/qrv:B.K=2");

    const std::string path =
        "//h/root/x:QRV_Assoc.Left=\"//h/root/qrv:A.K=1\","
        "Middle=\"//h/root/qrv:B.K=2\",Right=\"//h/root/qrv:C.K=3\"";
    EXPECT_EQ(textOf(QRV_Common::buildAssocPath(ASSOC, "Left", "Middle", "Right", a, b, c, "h",
                                                "root/x")),
              path);
    EXPECT_EQ(textOf(QRV_Common::buildAssocInstance(ASSOC, "Left", "Middle", "Right", a, b, c,
                                                    three, "h", "root/x")),
              path +
                  "\nLeft=//h/root/qrv:A.K=1\nMiddle=//h/root/qrv:B.K=2\n"
                  "Right=//h/root/qrv:C.K=3");
    EXPECT_EQ(textOf(b), "//x/root/qrv:B.K=2");
}

TEST(BuildAssoc, dependenciesKeepTheHostsOfTheirEnds) {
    CIMClass skeleton = classWith({"Dependent"});
    EXPECT_EQ(textOf(QRV_Common::buildDepAssocInstance("h", ASSOC, pathTo("//x/root/qrv:A.K=1"),
                                                       pathTo("B.K=2"), skeleton)),
              "//h/root/qrv:QRV_Assoc.Antecedent=\"//x/root/qrv:A.K=1\",Dependent=\"B.K=2\"\n"
              "Dependent=B.K=2")
        << "a reference that wasn't asked for is in the path alone";
}

/// The association of two ends, as an instance.
CIMInstance associate(const char* left, const char* right, const char* className = "QRV_Assoc") {
    CIMInstance instance{CIMName(className)};
    instance.addProperty(CIMProperty(CIMName("Note"), CIMValue(String("n"))));
    instance.addProperty(CIMProperty(CIMName("Left"), CIMValue(pathTo(left))));
    instance.addProperty(CIMProperty(CIMName("Right"), CIMValue(pathTo(right))));
    return instance;
}

TEST(FilterReferenceNames, targetRoleAndClassHaveToFit) {
    Array<CIMInstance> list;
    list.append(associate("//x/root/qrv:A.K=1", "root/qrv:B.K=1"));
    list.append(associate("root/qrv:A.K=2", "root/qrv:A.K=1"));
    list.append(associate("root/other:A.K=1", "root/qrv:B.K=3", "QRV_Sub"));
    const struct {
        const char* objectName;
        CIMName resultClass;
        const char* role;
        std::vector<Uint32> chosen;
    } cases[] = {
        {"//y/root/qrv:A.K=1", CIMName(), "", {0, 1, 2}},
        {"A.K=1", CIMName("qrv_assoc"), "", {0, 1}},
        {"A.K=1", CIMName("QRV_Sub"), "", {2}},
        {"A.K=1", CIMName("QRV_Other"), "", {}},
        {"A.K=1", CIMName(), "LEFT", {0, 2}},
        {"A.K=1", CIMName(), "Right", {1}},
        {"A.K=9", CIMName(), "", {}},
    };
    for (const auto& each : cases) {
        std::vector<std::string> expected;
        for (const Uint32 index : each.chosen) expected.push_back(textOf(list[index]));
        const Array<CIMInstance> chosen = QRV_Common::filterReferenceNames(
            list, pathTo(each.objectName), each.resultClass, each.role);
        std::vector<std::string> texts;
        for (Uint32 i = 0; i < chosen.size(); ++i) texts.push_back(textOf(chosen[i]));
        EXPECT_EQ(texts, expected) << each.objectName << " in role " << each.role;
    }
}

TEST(FilterReferenceNames, aRoleHasToBeAReference) {
    const Array<CIMInstance> list(1, associate("A.K=1", "B.K=1"));
    const auto asking = [&](const CIMName& resultClass, const char* role) {
        return outcomeOf(
            [&] { QRV_Common::filterReferenceNames(list, pathTo("A.K=1"), resultClass, role); });
    };
    for (const char* role : {"Note", "Other", "no name"}) {
        EXPECT_EQ(asking(CIMName(), role), "4 ") << role;
        EXPECT_EQ(asking(CIMName("QRV_Other"), role), "") << "the class comes first: " << role;
    }
}

std::vector<std::string> farEnds(CIMInstance instance, const char* nearEnd,
                                 std::initializer_list<const char*> classes, const char* role) {
    Array<CIMName> resultClass;
    for (const char* name : classes) resultClass.append(CIMName(name));
    const Array<CIMObjectPath> paths =
        QRV_Common::filterAssocInstanceToTargetPaths(instance, pathTo(nearEnd), resultClass, role);
    std::vector<std::string> texts;
    for (Uint32 i = 0; i < paths.size(); ++i) texts.push_back(textOf(paths[i]));
    return texts;
}

TEST(FarEnds, areTheOtherReferencesOfTheClassAndRole) {
    const CIMInstance assoc = associate("//x/root/qrv:A.K=1", "//x/root/qrv:B.K=1");
    const char* const a = "root/qrv:A.K=1";
    const char* const b = "//x/root/qrv:B.K=1";
    EXPECT_THAT(farEnds(assoc, a, {}, ""), ElementsAre(b));
    EXPECT_THAT(farEnds(assoc, a, {"b"}, "RIGHT"), ElementsAre(b));
    EXPECT_THAT(farEnds(assoc, a, {"C", "B", "B"}, ""), ElementsAre(b, b)) << "once for each entry";
    EXPECT_THAT(farEnds(assoc, a, {"A"}, ""), IsEmpty());
    EXPECT_THAT(farEnds(assoc, a, {}, "Left"), IsEmpty());
    EXPECT_THAT(farEnds(assoc, "A.K=1", {}, ""), ElementsAre("//x/root/qrv:A.K=1", b))
        << "without its namespace it is another object";
    EXPECT_THAT(farEnds(associate(a, "//y/root/qrv:A.K=1"), a, {}, ""), IsEmpty());
}

TEST(FarEnds, instancesAreThoseOfTheirPaths) {
    Array<CIMInstance> candidates;
    for (const char* path : {"//y/root/qrv:B.K=1", "root/qrv:B.K=2", "root/qrv:A.K=1"}) {
        CIMInstance instance(pathTo(path).getClassName());
        instance.setPath(pathTo(path));
        candidates.append(instance);
    }
    CIMInstance assoc = associate("//x/root/qrv:A.K=1", "//x/root/qrv:B.K=1");
    Array<CIMName> any;
    const auto found = [&](const Array<CIMInstance>& list, const char* role) {
        return QRV_Common::filterAssocInstanceToTargetInstances(assoc, pathTo("root/qrv:A.K=1"),
                                                                list, any, role);
    };
    ASSERT_EQ(found(candidates, "right").size(), 1U);
    EXPECT_EQ(textOf(found(candidates, "right")[0]), "//y/root/qrv:B.K=1");
    EXPECT_EQ(found(candidates, "Left").size(), 0U);
    EXPECT_EQ(found(Array<CIMInstance>(), "").size(), 0U);
}

}  // namespace

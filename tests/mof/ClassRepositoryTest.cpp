#include "Support.h"

using namespace Pegasus;

namespace cimserver::test {
namespace {

constexpr const char* Family = R"(
[Abstract, Description("base")]
class A
{
    [Key, Description("id")] string Id;
    [Description("text")] string Text;
    uint8 Level = 1;
    [Description("go")] uint32 go([Out] string Where, Later REF Who[]);
    uint32 stop();
};
class B : A
{
    uint16 Own;
    [Description("new text"), ValueMap { "x", "y" }] string text;
    uint32 go();
};
class C : B { uint8 Level = 3; };
)";

TEST_F(RepositoryTest, ResolvesInheritance) {
    read(Family);
    EXPECT_EQ(show(repository.resolvedClass(Root, "a")), R"(A :  [Abstract Description=base]
A.Id string [Key Description=id]
A.Text string [Description=text]
A.Level uint8 = 1
A.go(string Where [Out], reference[] Who) uint32 [Description=go]
A.stop() uint32
)");
    EXPECT_EQ(show(repository.resolvedClass(Root, "B")), R"(B : A [Description*=base]
A.Id* string [Key Description=id]
A.Level* uint8 = 1
B.Own uint16
A.text string [Description=new text ValueMap=x y ]
A.stop*() uint32
A.go() uint32 [Description*=go]
)");
    EXPECT_EQ(show(repository.resolvedClass(Root, "C")), R"(C : B [Description*=base]
A.Id* string [Key Description=id]
B.Own* uint16
A.text* string [Description=new text ValueMap=x y ]
A.Level uint8 = 3
A.stop*() uint32
A.go*() uint32 [Description*=go]
)");
}

TEST_F(RepositoryTest, GivesQualifiersTheirFlavours) {
    read(
        "class A { [Key, Description(\"d\"), ValueMap { \"x\" } : DisableOverride Restricted]"
        " string P; }; [Abstract] class B : A { string P; };");
    const auto flavor = [&](const char* owner, const char* qualifier) {
        const CIMConstClass shown = repository.resolvedClass(Root, owner);
        const CIMConstProperty property = shown.getProperty(0);
        const Uint32 index = property.findQualifier(qualifier);
        return index == PEG_NOT_FOUND ? CIMFlavor::NONE : property.getQualifier(index).getFlavor();
    };
    const CIMFlavor fixed = CIMFlavor::DISABLEOVERRIDE + CIMFlavor::TOSUBCLASS;
    EXPECT_TRUE(flavor("A", "Key").equal(fixed));
    EXPECT_TRUE(flavor("B", "Key").equal(fixed));
    EXPECT_TRUE(flavor("A", "Description").equal(CIMFlavor::DEFAULTS + CIMFlavor::TRANSLATABLE));
    EXPECT_TRUE(flavor("A", "ValueMap").equal(CIMFlavor::DISABLEOVERRIDE + CIMFlavor::RESTRICTED));
    EXPECT_TRUE(flavor("B", "ValueMap").equal(CIMFlavor::NONE));
    EXPECT_TRUE(repository.resolvedClass(Root, "B").isAbstract());
}

TEST_F(RepositoryTest, ReducesACopyToTheSelection) {
    read(Family);
    Selection bare;
    EXPECT_EQ(show(repository.getClass(Root, "B", true, bare)),
              "B : A\n.Own uint16\n.text string\n.go() uint32\n");
    Array<CIMName> names;
    names.append("TEXT");
    names.append("Id");
    const Selection some{true, true, CIMPropertyList(names)};
    EXPECT_EQ(show(repository.getClass(Root, "B", true, some)), R"(B : A
A.text string [Description=new text ValueMap=x y ]
A.go() uint32
)");
    EXPECT_EQ(show(repository.getClass(Root, "B", false, some)), R"(B : A [Description*=base]
A.Id* string [Key Description=id]
A.text string [Description=new text ValueMap=x y ]
A.stop*() uint32
A.go() uint32 [Description*=go]
)");
    const CIMConstClass whole = repository.resolvedClass(Root, "A");
    CIMClass copy = repository.getClass(Root, "A", false, {true, true, CIMPropertyList()});
    EXPECT_TRUE(copy.identical(whole));
    copy.getProperty(1).setValue(CIMValue(String("changed")));
    EXPECT_TRUE(whole.getProperty(1).getValue().isNull());
}

TEST_F(RepositoryTest, KnowsTheFamilyOfAClass) {
    read("class A {}; class X {}; class B : A {}; class D : X {}; class C : a {}; class E : B {};");
    EXPECT_EQ(joined(repository.classAndDescendants(Root, "a")), "A B C E");
    EXPECT_EQ(joined(repository.children(Root, "A")), "B C");
    EXPECT_EQ(joined(repository.children(Root, CIMName())), "A X");
    EXPECT_TRUE(repository.isA("ROOT/TEST", "e", "A"));
    EXPECT_TRUE(repository.isA(Root, "A", "A"));
    EXPECT_FALSE(repository.isA(Root, "A", "E"));
    EXPECT_FALSE(repository.isA(Root, "Nobody", "Nobody"));
}

TEST_F(RepositoryTest, FindsTheAssociationsOfAClass) {
    read(
        "class A {}; class B : A {}; class C {};"
        "[Association] class AA { A REF One; A REF Two; };"
        "[Association] class BC { B REF One; C REF Two; };"
        "[Association] class Sub : AA { B REF One; };"
        "[Association] class CC { C REF One; };");
    EXPECT_EQ(joined(repository.associationsOf(Root, "A", CIMName())), "AA Sub");
    EXPECT_EQ(joined(repository.associationsOf(Root, "B", CIMName())), "AA BC Sub");
    EXPECT_EQ(joined(repository.associationsOf(Root, "c", "CC")), "CC");
    EXPECT_EQ(joined(repository.associationsOf(Root, "B", "aa")), "AA Sub");
    EXPECT_EQ(joined(repository.associationsOf(Root, "C", "Sub")), "");
    EXPECT_EQ(joined(repository.associationsOf(Root, "B", "A")), "");
}

TEST_F(RepositoryTest, RefusesUnknownNames) {
    read("class A {};");
    const CIMNamespaceName none("root/none");
    EXPECT_EQ(errorOf([&] { repository.hasClass(none, "A"); }), "3 root/none");
    EXPECT_EQ(errorOf([&] { repository.getClass(Root, "B", false, {}); }), "6 B");
    EXPECT_EQ(errorOf([&] { repository.resolvedClass(Root, "B"); }), "5 B");
    EXPECT_EQ(errorOf([&] { repository.classAndDescendants(Root, "B"); }), "5 B");
    EXPECT_EQ(errorOf([&] { repository.children(Root, "B"); }), "5 B");
    EXPECT_EQ(errorOf([&] { repository.instances(Root, "B"); }), "5 B");
    EXPECT_EQ(errorOf([&] { repository.associationsOf(Root, "B", "A"); }), "5 B");
    EXPECT_EQ(errorOf([&] { repository.associationsOf(Root, "A", "B"); }), "5 B");
    EXPECT_EQ(errorOf([&] { repository.getQualifier(Root, "Fast"); }), "6 Fast");
    EXPECT_FALSE(repository.hasNamespace(none));
    EXPECT_TRUE(repository.hasNamespace("Root/Test"));
}

}  // namespace
}  // namespace cimserver::test

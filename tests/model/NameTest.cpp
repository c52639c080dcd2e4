// Names, property lists, flavors, scopes and languages.
#include "Support.h"

#include <Pegasus/Common/AcceptLanguageList.h>
#include <Pegasus/Common/CIMFlavor.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMPropertyList.h>
#include <Pegasus/Common/CIMScope.h>
#include <Pegasus/Common/CIMType.h>
#include <Pegasus/Common/ContentLanguageList.h>

#include <gtest/gtest.h>

using namespace Pegasus;
using model_tests::text;
using model_tests::thrownBy;

namespace {

TEST(CIMName, KnowsLegalTexts) {
    for (const char* legal : {"a", "_", "A1_b", "\xC3\xA9", "x\xEF\xBF\xAF"}) {
        EXPECT_TRUE(CIMName::legal(legal)) << legal;
        EXPECT_EQ(CIMName(legal).getString(), String(legal));
    }
    for (const char* illegal : {"", "1a", "a b", "a-b", "a.b", "a:b", "x\xEF\xBF\xB0"}) {
        const std::string message = std::string("The CIM name is not valid: ") + illegal;
        EXPECT_FALSE(CIMName::legal(illegal)) << illegal;
        EXPECT_EQ(thrownBy<InvalidNameException>([&] { CIMName name(illegal); }), message);
        EXPECT_EQ(thrownBy<InvalidNameException>([&] { CIMName name((String(illegal))); }),
                  message);
        EXPECT_EQ(thrownBy<InvalidNameException>([&] { CIMName() = String(illegal); }), message);
    }
}

TEST(CIMName, ComparesWithoutCase) {
    EXPECT_TRUE(CIMName("ElementName") == CIMName("eLEMENTnAME"));
    EXPECT_FALSE(CIMName("ElementName") == CIMName("ElementNam"));
    EXPECT_TRUE(CIMName("a_b") != CIMName("a1b"));
    EXPECT_TRUE(CIMName("\xC3\xA9") != CIMName("\xC3\x89"));
    CIMName name("a");
    EXPECT_FALSE(name == CIMName());
    name.clear();
    EXPECT_TRUE(name.isNull());
    EXPECT_TRUE(name == CIMName());
    EXPECT_EQ(name.getString(), "");
    EXPECT_EQ(thrownBy<InvalidNameException>([&] { return name == "1 x"; }),
              "The CIM name is not valid: 1 x");
}

TEST(CIMNamespaceName, DropsOneLeadingSlash) {
    EXPECT_EQ(CIMNamespaceName("/root/cimv2").getString(), "root/cimv2");
    EXPECT_TRUE(CIMNamespaceName("ROOT/cimv2") == CIMNamespaceName("/root/CIMV2"));
    EXPECT_TRUE(CIMNamespaceName().isNull());
    for (const char* illegal : {"", "/", "root/", "//root", "root//x", "a b", "root/1"}) {
        EXPECT_EQ(thrownBy<InvalidNamespaceNameException>([&] { CIMNamespaceName name(illegal); }),
                  std::string("invalid CIM namespace name: ") + illegal);
    }
}

TEST(CIMPropertyList, TellsNullFromEmpty) {
    Array<CIMName> names;
    names.append(CIMName("A"));
    names.append(CIMName("b"));
    CIMPropertyList list;
    EXPECT_TRUE(list.isNull());
    EXPECT_TRUE(list.useThisProperty(CIMName("A")));
    EXPECT_FALSE(list.contains(CIMName("A")));
    EXPECT_EQ(text(list.toString()), "NULL");

    list.set(Array<CIMName>());
    EXPECT_FALSE(list.isNull());
    EXPECT_FALSE(list.useThisProperty(CIMName("A")));
    EXPECT_EQ(text(list.toString()), "EMPTY");

    list = CIMPropertyList(names);
    EXPECT_EQ(list.size(), 2u);
    EXPECT_TRUE(list.contains(CIMName("B")));
    EXPECT_FALSE(list.useThisProperty(CIMName("c")));
    EXPECT_EQ(text(list.toString()), "A, b");
    EXPECT_EQ(list[1].getString(), "b");
    EXPECT_EQ(thrownBy<IndexOutOfBoundsException>([&] { list[2]; }), "index out of bounds");

    names.append(CIMName());
    EXPECT_EQ(thrownBy<UninitializedObjectException>([&] { list.set(names); }),
              "uninitialized object");
    list.clear();
    EXPECT_TRUE(list.isNull());

    Array<String> texts;
    list.append(texts);
    EXPECT_EQ(text(list.toString()), "EMPTY");
    for (const char* name : {"c", "D", "C"}) texts.append(name);
    list.append(texts);
    EXPECT_EQ(text(list.toString()), "c, D");
}

TEST(CIMFlavor, IsASet) {
    CIMFlavor flavor = CIMFlavor::TOSUBCLASS + CIMFlavor::OVERRIDABLE;
    EXPECT_TRUE(flavor.equal(CIMFlavor::DEFAULTS));
    EXPECT_TRUE(flavor.hasFlavor(CIMFlavor::ENABLEOVERRIDE));
    flavor.addFlavor(CIMFlavor::RESTRICTED);
    flavor.removeFlavor(CIMFlavor::TOSUBELEMENTS);
    EXPECT_EQ(text(flavor.toString()), "OVERRIDABLE RESTRICTED");
    EXPECT_EQ(text(CIMFlavor::NONE.toString()), "");
}

TEST(CIMScope, IsASet) {
    CIMScope scope = CIMScope::PROPERTY + CIMScope::CLASS;
    EXPECT_EQ(text(scope.toString()), "CLASS PROPERTY");
    EXPECT_FALSE(scope.hasScope(CIMScope::METHOD));
    scope.addScope(CIMScope::ANY);
    EXPECT_EQ(text(scope.toString()),
              "CLASS ASSOCIATION INDICATION PROPERTY REFERENCE METHOD PARAMETER");
}

TEST(CIMType, HasNames) {
    EXPECT_STREQ(cimTypeToString(CIMTYPE_BOOLEAN), "boolean");
    EXPECT_STREQ(cimTypeToString(CIMTYPE_DATETIME), "datetime");
    EXPECT_STREQ(cimTypeToString(CIMTYPE_INSTANCE), "instance");
}

TEST(LanguageTag, KnowsItsParts) {
    struct Case {
        const char *tag, *language, *country, *variant;
    };
    for (const auto& [tag, language, country, variant] :
         {Case{"*", "", "", ""}, Case{"en", "en", "", ""}, Case{"en-US", "en", "US", ""},
          Case{"en-US-boont-1", "en", "US", "boont-1"}, Case{"ger-1996", "ger", "", "1996"},
          Case{"i-klingon", "", "", ""}}) {
        const LanguageTag parsed{String(tag)};
        EXPECT_EQ(text(parsed.toString()), tag);
        EXPECT_EQ(text(parsed.getLanguage()), language) << tag;
        EXPECT_EQ(text(parsed.getCountry()), country) << tag;
        EXPECT_EQ(text(parsed.getVariant()), variant) << tag;
    }
    for (const char* illegal : {"", "e", "en-", "en-U", "e1", "abcd", "en-abcdefghi", "en US"}) {
        EXPECT_NE(thrownBy<Exception>([&] { LanguageTag tag{String(illegal)}; }), "no exception")
            << illegal;
    }
    EXPECT_TRUE(LanguageTag(String("en-us")) == LanguageTag(String("EN-US")));
    EXPECT_EQ(thrownBy<UninitializedObjectException>([] { LanguageTag().toString(); }),
              "uninitialized object");
}

TEST(LanguageLists, KeepTheirOrder) {
    AcceptLanguageList accepted;
    accepted.insert(LanguageTag(String("de")), 0.5F);
    accepted.insert(LanguageTag(String("en")), 1.0F);
    accepted.insert(LanguageTag(String("fr")), 0.5F);
    EXPECT_EQ(text(accepted.getLanguageTag(0).toString()), "en");
    EXPECT_EQ(accepted.find(LanguageTag(String("FR"))), 2u);
    EXPECT_EQ(accepted.getQualityValue(1), 0.5F);
    EXPECT_NE(thrownBy<Exception>([&] { accepted.insert(LanguageTag(String("it")), 1.5F); }),
              "no exception");
    const AcceptLanguageList copy = accepted;
    accepted.remove(1);
    EXPECT_TRUE(copy != accepted);
    EXPECT_EQ(accepted.find(LanguageTag(String("de"))), PEG_NOT_FOUND);

    ContentLanguageList content;
    content.append(LanguageTag(String("en")));
    EXPECT_NE(thrownBy<Exception>([&] { content.append(LanguageTag(String("*"))); }),
              "no exception");
    EXPECT_EQ(content.find(LanguageTag(String("EN"))), 0u);
    EXPECT_EQ(thrownBy<IndexOutOfBoundsException>([&] { content.getLanguageTag(1); }),
              "index out of bounds");
}

}  // namespace

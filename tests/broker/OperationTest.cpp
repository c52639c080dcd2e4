// What comes of the operations, by what providers do and by how classes are served.
#include "BrokerFixture.h"

#include <algorithm>
#include <vector>

using namespace Pegasus;

namespace cimserver::test {
namespace {

struct Case {
    const char* request;
    const char* script;
    const char* outcome;
};

class OperationTest : public BrokerTest {
  protected:
    /// Runs every case on a broker of its own.
    void check(const std::vector<Case>& cases) {
        for (const Case& row : cases) {
            startBroker();
            EXPECT_EQ(run(row.request, row.script), row.outcome)
                << row.request << " by \"" << row.script << "\"";
        }
    }
};

TEST_F(OperationTest, OneResultIsExactlyOne) {
    const char* const get = "getInstance T_Other.Id=\"x\"";
    const char* const create = "createInstance T_Other.Id=\"x\"";
    check({
        {get, "processing deliver complete", "T_Other.Id=\"1\""},
        {get, "processing", "uninitialized"},
        {get, "deliver", "uninitialized"},
        {get, "throwSuccess", "uninitialized"},
        {get, "complete", "1 Too few objects delivered."},
        {get, "deliver complete complete", "1 Too few objects delivered."},
        {get, "deliver deliver", "1 Too many objects delivered."},
        {get, "null", "1 The object is not initialized."},
        {get, "try/null deliver complete", "T_Other.Id=\"1\""},
        {get, "deliver throwNotFound", "6 gone"},
        {get, "deliver complete throwNotFound", "6 gone"},
        {create, "deliver complete", "T_Other.Id=\"1\""},
        {create, "processing", ""},
        {create, "complete", "1 Too few objects delivered."},
        {create, "deliver deliver", "1 Too many objects delivered."},
        {create, "null", "1 The object is not initialized."},
        {"modifyInstance T_Other.Id=\"x\"", "processing", ""},
        {"deleteInstance T_Other.Id=\"x\"", "complete", ""},
        {"deleteInstance T_Other.Id=\"x\"", "complete throwBare", "6 "},
    });
}

TEST_F(OperationTest, StreamsPassOnFullChunksAndWhatIsCompleted) {
    const char* const all = "enumerateInstances T_Other";
    check({
        {all, "", "T_Other.Id=\"//srv.example/root/t:T_Other NULL\""},
        {all, "processing", ""},
        {all, "complete", ""},
        {all, "deliver*3", ""},
        {all, "deliver*2 complete", "T_Other.Id=\"1\" T_Other.Id=\"2\""},
        {all, "deliver complete deliver", "T_Other.Id=\"1\""},
        {all, "deliver*250", "200 results"},
        {all, "deliver*250 complete complete", "250 results"},
        {all, "deliver throwNotFound", "6 gone"},
        {all, "deliver complete throwNotFound", "6 gone"},
        {all, "deliver*150 throwNotFound", "100 results; 6 gone"},
        {all, "deliver null", "1 The object is not initialized."},
        {all, "deliver try/null deliver complete", "T_Other.Id=\"1\" T_Other.Id=\"2\""},
        {"enumerateInstanceNames T_Other", "deliver complete", "T_Other.Id=\"1\""},
        {"enumerateInstanceNames T_Other", "null", "1 The object is not initialized."},
        {"associators T_Other.Id=\"x\"", "null", "1 The object is not initialized."},
        {"associators T_Other.Id=\"x\"", "deliver", ""},
    });
}

TEST_F(OperationTest, MethodsGiveWhatWasCompleted) {
    const char* const act = "Act T_Other.Id=\"x\"";
    check({
        {act, "processing", "null"},
        {act, "complete", "null"},
        {act, "deliver out", "null"},
        {act, "out deliver*2 complete", "2 Out:boolean=TRUE"},
        {act, "null", "1 The object is not initialized."},
        {act, "deliver complete throwStandard", "1 standard"},
        {"Act T_Nothing", "", "6 T_Nothing"},
        {"Act T_Sub.Id=\"x\"", "", "16 Act"},
    });
}

TEST_F(OperationTest, WhatProvidersThrowArrivesAsCimException) {
    const std::pair<const char*, const char*> thrown[] = {
        {"throwNotFound", "6 gone"},          {"throwBare", "6 "},
        {"throwOwnCode", "4096 own"},         {"throwNotSupported", "7 refused"},
        {"throwPegasus", "1 type mismatch"},  {"throwStandard", "1 standard"},
        {"throwNotUtf8", "1 Unknown error."}, {"throwNumber", "1 Unknown error."}};
    for (const char* operation :
         {"getInstance T_Other.Id=\"x\"", "enumerateInstances T_Other",
          "enumerateInstanceNames T_Other", "createInstance T_Other",
          "modifyInstance T_Other.Id=\"x\"", "deleteInstance T_Other.Id=\"x\"", "Act T_Other"})
        for (const auto& [script, outcome] : thrown) check({{operation, script, outcome}});
    for (const char* operation : {"associators T_Base.Id=\"x\"", "associatorNames T_Base.Id=\"x\"",
                                  "references T_Base.Id=\"x\"", "referenceNames T_Base.Id=\"x\""})
        check({{operation, "throwStandard", "1 standard"},
               {operation, "throwOwnCode", "4096 own"},
               {operation, "throwNotSupported", ""}});
}

TEST_F(OperationTest, EnumerationsAskTheClassTree) {
    check({
        {"enumerateInstances t_BASE", "deliver complete",
         "t_BASE.Id=\"1\" T_Sub.Id=\"1\" T_Loose.Id=\"static\""},
        {"enumerateInstanceNames T_Base", "T_Sub:deliver complete",
         "T_Sub.Id=\"1\" T_Loose.Id=\"static\""},
        {"enumerateInstances T_Base", "throwNotSupported", "T_Loose.Id=\"static\""},
        {"enumerateInstances T_Pair", "T_Pair:throwNotSupported deliver complete",
         "T_PairSub.Id=\"1\""},
        {"enumerateInstances T_Pair", "throwNotSupported", "7 refused"},
        {"enumerateInstances T_Pair", "T_Pair:throwNotFound deliver complete", "6 gone"},
        {"enumerateInstances T_Pair", "T_PairSub:throwNotFound deliver complete",
         "T_Pair.Id=\"1\"; 6 gone"},
        {"enumerateInstanceNames T_Loose", "", "T_Loose.Id=\"static\""},
        {"enumerateInstances T_Abstract", "", ""},
        {"enumerateInstances T_Nothing", "", "5 T_Nothing"},
        {"enumerateInstanceNames T_Nothing", "", "5 T_Nothing"},
    });
}

TEST_F(OperationTest, OtherOperationsGoToExactlyTheClass) {
    check({
        {"getInstance T_Loose.Id=\"static\"", "", "T_Loose.Id=\"static\""},
        {"getInstance //h/root/t:T_Loose.Id=\"none\"", "", "6 T_Loose.Id=\"none\""},
        {"getInstance T_Abstract.Id=\"1\"", "", "6 T_Abstract.Id=\"1\""},
        {"getInstance T_Nothing.Id=\"1\"", "", "5 T_Nothing"},
        {"createInstance T_Abstract", "",
         "1 attempted to instantiate an abstract class T_Abstract"},
        {"createInstance T_Loose", "", "7 no provider changes instances of T_Loose"},
        {"createInstance T_Nothing", "", "5 T_Nothing"},
        {"modifyInstance T_Loose.Id=\"static\"", "", "7 no provider changes instances of T_Loose"},
        {"deleteInstance T_Loose.Id=\"none\"", "", "6 T_Loose.Id=\"none\""},
        {"deleteInstance T_Nothing.Id=\"1\"", "", "5 T_Nothing"},
    });
}

TEST_F(OperationTest, GivenStaticInstancesAreCopies) {
    const auto get = [&] {
        return broker->getInstance(contextOf(""), nameSpace, CIMObjectPath("T_Loose.Id=\"static\""),
                                   selection);
    };
    get().getProperty(0).setValue(CIMValue(String("changed")));
    EXPECT_EQ(text(get().getProperty(0).getValue().toString()), "static");
}

TEST_F(OperationTest, ProvidersAreToldTheRequest) {
    Array<CIMName> names;
    for (const char* name : {"Size", "Id", "SIZE"}) names.append(name);
    selection = {true, false, CIMPropertyList(names)};
    filter = {CIMName(), "T_Any", "Near", "Far"};
    check({
        {"getInstance T_Other.k=5", "",
         "T_Other.Id=\"//srv.example/root/t:T_Other.k=5 q Size, Id\""},
        {"createInstance T_Other.Id=\"x\"", "",
         "T_Other.Id=\"//srv.example/root/t:T_Other Id Size\""},
    });
    filter.resultClass = "T_Other";
    const auto source = "T_Sub.Id=\"x\"";
    const std::string bound = "//srv.example/root/t:T_Sub.Id=\\\"x\\\"";
    EXPECT_EQ(run(std::string("associators ") + source, "T_SubLink:echo complete"),
              "//srv.example/root/t:T_SubLink.Id=\"" + bound + " T_Other Near Far q Size, Id\"");
    EXPECT_EQ(run(std::string("associatorNames ") + source, "T_Link:echo complete"),
              "//srv.example/root/t:T_Link.Id=\"" + bound + " T_Other Near Far\"");
    filter.resultClass = "T_SubLink";
    EXPECT_EQ(run(std::string("references ") + source, ""),
              "//srv.example/root/t:T_SubLink.Id=\"" + bound + " Near q Size, Id\"");
    EXPECT_EQ(run(std::string("referenceNames ") + source, ""),
              "//srv.example/root/t:T_SubLink.Id=\"" + bound + " Near\"");
    journal().take();
    run("modifyInstance T_Base.Id=\"x\"", "complete");
    run("deleteInstance T_Base.Id=\"x\"", "complete");
    EXPECT_EQ(journal().take(),
              "Base initialize, //srv.example/root/t:T_Base.Id=\"x\" q Size, Id, SIZE Id Size, "
              "//srv.example/root/t:T_Base.Id=\"x\"");
}

TEST_F(OperationTest, AssociationsAskTheClassesOfTheSource) {
    check({
        {"associatorNames T_Sub.Id=\"x\"", "deliver complete",
         "//srv.example/root/t:T_Link.Id=\"1\" //srv.example/root/t:T_SubLink.Id=\"1\""},
        {"referenceNames T_Sub.Id=\"x\"", "T_Link:whole complete", "//far/root/x:T_Far.Id=\"1\""},
        {"associatorNames T_Pair.Id=\"x\"", "deliver complete", ""},
        {"associators T_Nothing.Id=\"x\"", "", "4 T_Nothing"},
        {"references T_Nothing.Id=\"x\"", "", "4 T_Nothing"},
    });
    filter.associationClass = "T_SubLink";
    EXPECT_EQ(run("associatorNames T_Base.Id=\"x\"", "deliver complete"),
              "//srv.example/root/t:T_SubLink.Id=\"1\"");
}

TEST_F(OperationTest, AssociationFiltersMustBeNames) {
    struct Bad {
        AssociationFilter filter;
        const char* associators;
        const char* references;
    };
    const Bad cases[] = {{{"T_No", CIMName(), "", ""}, "4 T_No", ""},
                         {{CIMName(), "T_No", "", ""}, "5 T_No", "4 T_No"},
                         {{CIMName(), CIMName(), "1 x", ""}, "4 role 1 x", "4 role 1 x"},
                         {{CIMName(), CIMName(), "", "1 x"}, "4 resultrole 1 x", ""}};
    for (const Bad& bad : cases) {
        filter = bad.filter;
        EXPECT_EQ(run("associators T_Base.Id=\"x\"", "complete"), bad.associators);
        EXPECT_EQ(run("associatorNames T_Base.Id=\"x\"", "complete"), bad.associators);
        EXPECT_EQ(run("references T_Base.Id=\"x\"", "complete"), bad.references);
        EXPECT_EQ(run("referenceNames T_Base.Id=\"x\"", "complete"), bad.references);
    }
}

TEST_F(OperationTest, AssociationsOfAClassComeFromItsDeclarations) {
    const std::string prefix = "//srv.example/root/t:";
    const auto expected = [&](std::vector<std::string> names) {
        std::string all;
        for (const auto& name : names) all += (all.empty() ? "" : " ") + prefix + name;
        return all;
    };
    const auto links = expected({"T_Link", "T_SubLink", "T_Unserved"});
    EXPECT_EQ(run("referenceNames T_Sub", "deliver complete"), links);
    EXPECT_EQ(run("references T_Sub", ""), links);
    EXPECT_EQ(run("associatorNames T_Sub", ""), expected({"T_Other", "T_Base", "T_Sub"}));
    EXPECT_EQ(run("associators T_Base", ""), expected({"T_Other", "T_Sub"}));
    filter.role = "right";
    EXPECT_EQ(run("referenceNames T_Sub", ""), expected({"T_Unserved"}));
    EXPECT_EQ(run("associatorNames T_Sub", ""), expected({"T_Base"}));
    filter = {CIMName(), "T_Base", "", "Right"};
    EXPECT_EQ(run("associatorNames T_Sub", ""), expected({"T_Sub"}));
}

TEST_F(OperationTest, UntypedParametersTakeTheDeclaredType) {
    const auto give = [&](const char* name, const CIMValue& value) {
        parameters.clear();
        parameters.append(CIMParamValue(name, value, false));
        return run("Act T_Base.Id=\"x\"", "echo complete");
    };
    const std::string called = "//srv.example/root/t:T_Base.Id=\"x\" Act ";
    Array<String> texts;
    texts.append("a");
    EXPECT_EQ(give("COUNT", CIMValue(String("5"))), called + "COUNT:uint32=5");
    EXPECT_EQ(give("Now", CIMValue(String("true"))), called + "Now:boolean=TRUE");
    EXPECT_EQ(give("Names", CIMValue(texts)), called + "Names:string=a ");
    EXPECT_EQ(give("Count", CIMValue(CIMTYPE_STRING, false)), called + "Count:uint32=");
    EXPECT_EQ(give("Other", CIMValue(String("5"))), called + "Other?string=5");
    EXPECT_EQ(give("Count", CIMValue(String("05"))), "4 Malformed uint32 value");
    EXPECT_EQ(give("Names", CIMValue(String("a"))), "13 ");
    parameters.append(CIMParamValue("Count", CIMValue(String("typed"))));
    parameters.remove(0);
    EXPECT_EQ(run("Act T_Base.Id=\"x\"", "echo complete"), called + "Count:string=typed");
}

TEST_F(OperationTest, UndeclaredMethodsWorkUnlessAParameterNeedsTheDeclaration) {
    Array<CIMParamValue> in, out;
    const auto call = [&] {
        return broker->invokeMethod(contextOf(""), nameSpace, CIMObjectPath("T_Base"), "Unheard",
                                    in, out);
    };
    EXPECT_EQ(text(call().toString()), "//srv.example/root/t:T_Base Unheard");
    in.append(CIMParamValue("x", CIMValue(String("1")), false));
    try {
        call();
        FAIL() << "the method is not declared";
    } catch (const CIMException& e) {
        EXPECT_EQ(e.getCode(), CIM_ERR_METHOD_NOT_FOUND);
    }
}

TEST_F(OperationTest, ClassesAreRead) {
    check({
        {"enumerateClasses T_Base", "", "class T_Sub class T_Loose"},
        {"allClassNames T_Link", "", "T_SubLink"},
        {"allClassNames", "", "21 results"},
        {"allClassNames T_Nothing", "", "5 T_Nothing"},
    });
    EXPECT_EQ(text(broker->getClass(contextOf(""), nameSpace, "t_sub", true, selection)
                       .getSuperClassName()
                       .getString()),
              "T_Base");
    const CIMPropertyList none;
    EXPECT_EQ(text(broker->propertyListFor(nameSpace, "T_Sub", false, none).toString()),
              "Id, Size, Extra");
    EXPECT_TRUE(broker->propertyListFor(nameSpace, "T_Sub", true, none).isNull());
}

TEST_F(OperationTest, UnknownNamespaceIsTold) {
    const auto in = [&](auto operation) {
        try {
            operation(CIMNamespaceName("root/none"));
        } catch (const CIMException& e) {
            return std::to_string(e.getCode()) + " " + text(e.getMessage());
        }
        return std::string("nothing");
    };
    const std::string unknown = "3 root/none";
    Array<CIMParamValue> none;
    const CIMObjectPath path("T_Base.Id=\"1\"");
    EXPECT_EQ(in([&](auto ns) { broker->getClass({}, ns, "T_Base", true, {}); }), unknown);
    EXPECT_EQ(in([&](auto ns) { broker->getInstance({}, ns, path, {}); }), unknown);
    EXPECT_EQ(in([&](auto ns) { broker->enumerateInstanceNames({}, ns, "T_Base", {}); }), unknown);
    EXPECT_EQ(in([&](auto ns) { broker->associatorNames({}, ns, path, {}, {}); }), unknown);
    EXPECT_EQ(in([&](auto ns) { broker->invokeMethod({}, ns, path, "Act", none, none); }), unknown);
}

TEST_F(OperationTest, TheClientsOwnExceptionPassesThroughTheProvider) {
    resultsUntilHangUp = 150;
    EXPECT_EQ(run("enumerateInstances T_Other", "deliver*250"), "150 results; hung up");
    EXPECT_EQ(run("enumerateInstances T_Other", "deliver*160 complete"), "150 results; hung up");
    journal().take();
    EXPECT_EQ(run("enumerateInstances T_Pair",
                  "deliver*199 try/deliver try/deliver complete throwNotFound"),
              "150 results; hung up");
    EXPECT_EQ(run("enumerateInstances T_Pair", "deliver*199 try/deliver try/deliver"),
              "150 results; hung up");
    EXPECT_EQ(journal().take(),
              "Pair initialize, caught something, caught something, "
              "caught something, caught something");
}

}  // namespace
}  // namespace cimserver::test

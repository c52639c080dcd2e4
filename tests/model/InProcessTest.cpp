// CIMOMHandle and CIMClient against a server of the test's own.
#include "Support.h"

#include <Pegasus/Client/CIMClient.h>
#include <Pegasus/Common/CIMProperty.h>
#include <Pegasus/Common/CIMQualifier.h>
#include <Pegasus/Provider/CIMOMHandle.h>

#include <gtest/gtest.h>

#include <functional>
#include <sstream>
#include <vector>

#include "model/HostName.h"
#include "model/LocalServer.h"

using namespace Pegasus;
using cimserver::AssociationFilter;
using cimserver::Selection;
using cimserver::Sink;
using model_tests::text;
using model_tests::thrownBy;

namespace {

CIMObjectPath path(const char* string) {
    return CIMObjectPath(String(string));
}

CIMPropertyList listOf(const std::vector<const char*>& names) {
    Array<CIMName> array;
    for (const char* name : names) {
        array.append(CIMName(name));
    }
    return CIMPropertyList(array);
}

std::string namesOf(const CIMInstance& instance) {
    std::string names;
    for (Uint32 i = 0; i < instance.getPropertyCount(); ++i) {
        names += text(instance.getProperty(i).getName().getString());
    }
    return names;
}

/// Writes down what it is asked and answers every question with one instance.
class RecordingServer : public cimserver::LocalServer {
  public:
    RecordingServer() : instance(CIMName("C")) {
        instance.setPath(path("//host/ns:C.K=\"k\""));
        instance.addProperty(
            CIMProperty(CIMName("K"), CIMValue(String("k")), 0, CIMName(), CIMName("Origin")));
        instance.addProperty(CIMProperty(CIMName("N"), CIMValue(Uint32(7))));
        instance.addProperty(CIMProperty(CIMName("A"), CIMValue(Array<Uint8>(2, 5))));
        instance.addQualifier(CIMQualifier(CIMName("Q"), CIMValue(true)));
        cimserver::setLocalServer(this);
    }
    ~RecordingServer() override { cimserver::setLocalServer(nullptr); }
    RecordingServer(const RecordingServer&) = delete;
    RecordingServer& operator=(const RecordingServer&) = delete;

    CIMInstance instance;
    std::function<void()> onCall = [] {};
    std::string asked;
    CIMInstance modified;

    CIMClass getClass(const Context& c, const Namespace& n, const CIMName& name, bool localOnly,
                      const Selection& s) override {
        record("getClass", c, n, text(name.getString()) + (localOnly ? " local" : ""), s);
        CIMClass declared(name);
        declared.addProperty(CIMProperty(CIMName("U"), CIMValue(CIMTYPE_UINT8, false)));
        return declared;
    }
    void enumerateClasses(const Context& c, const Namespace& n, const CIMName& name, bool deep,
                          bool localOnly, const Selection& s, const Sink<CIMClass>& sink) override {
        record("enumerateClasses", c, n,
               text(name.getString()) + (deep ? " deep" : "") + (localOnly ? " local" : ""), s);
        sink(CIMClass(CIMName("C")));
    }
    void enumerateClassNames(const Context& c, const Namespace& n, const CIMName& name, bool deep,
                             const Sink<CIMName>& sink) override {
        record("enumerateClassNames", c, n, text(name.getString()) + (deep ? " deep" : ""));
        sink(CIMName("C"));
        sink(CIMName("D"));
    }
    CIMInstance getInstance(const Context& c, const Namespace& n, const Path& p,
                            const Selection& s) override {
        record("getInstance", c, n, text(p.toString()), s);
        return instance;
    }
    void enumerateInstances(const Context& c, const Namespace& n, const CIMName& name,
                            const Selection& s, const Sink<CIMInstance>& sink) override {
        record("enumerateInstances", c, n, text(name.getString()), s);
        sink(instance);
    }
    void enumerateInstanceNames(const Context& c, const Namespace& n, const CIMName& name,
                                const Sink<Path>& sink) override {
        record("enumerateInstanceNames", c, n, text(name.getString()));
        sink(instance.getPath());
    }
    Path createInstance(const Context& c, const Namespace& n, const CIMInstance& i) override {
        record("createInstance", c, n, text(i.getPath().toString()));
        return instance.getPath();
    }
    void modifyInstance(const Context& c, const Namespace& n, const CIMInstance& i,
                        const Selection& s) override {
        record("modifyInstance", c, n, text(i.getPath().toString()), s);
        modified = i;
    }
    void deleteInstance(const Context& c, const Namespace& n, const Path& p) override {
        record("deleteInstance", c, n, text(p.toString()));
    }
    void associators(const Context& c, const Namespace& n, const Path& p,
                     const AssociationFilter& f, const Selection& s,
                     const Sink<CIMObject>& sink) override {
        record("associators", c, n, text(p.toString()) + described(f), s);
        sink(instance);
    }
    void associatorNames(const Context& c, const Namespace& n, const Path& p,
                         const AssociationFilter& f, const Sink<Path>& sink) override {
        record("associatorNames", c, n, text(p.toString()) + described(f));
        sink(instance.getPath());
    }
    void references(const Context& c, const Namespace& n, const Path& p, const AssociationFilter& f,
                    const Selection& s, const Sink<CIMObject>& sink) override {
        record("references", c, n, text(p.toString()) + described(f), s);
        sink(instance);
    }
    void referenceNames(const Context& c, const Namespace& n, const Path& p,
                        const AssociationFilter& f, const Sink<Path>& sink) override {
        record("referenceNames", c, n, text(p.toString()) + described(f));
        sink(instance.getPath());
    }
    CIMValue invokeMethod(const Context& c, const Namespace& n, const Path& p,
                          const CIMName& method, const Array<CIMParamValue>& in,
                          Array<CIMParamValue>& out) override {
        record("invokeMethod", c, n, text(p.toString()) + " " + text(method.getString()));
        out = in;
        out.append(CIMParamValue(String("null"), CIMValue(CIMTYPE_UINT8, false)));
        return CIMValue(Uint32(0));
    }
    CIMPropertyList propertyListFor(const Namespace&, const CIMName&, bool deepInheritance,
                                    const CIMPropertyList& list) override {
        return list.isNull() && !deepInheritance ? listOf({"N"}) : list;
    }

  private:
    static std::string described(const AssociationFilter& f) {
        std::ostringstream out;
        out << " via " << f.associationClass.getString() << " to " << f.resultClass.getString()
            << " as " << f.role << " of " << f.resultRole;
        return out.str();
    }

    void record(const char* operation, const Context& context, const Namespace& nameSpace,
                const std::string& what, const Selection& selection = Selection()) {
        std::ostringstream out;
        out << operation << ' ' << nameSpace.getString() << ' ' << what;
        if (context.contains(IdentityContainer::NAME)) {
            const IdentityContainer identity(context.get(IdentityContainer::NAME));
            out << " by '" << identity.getUserName() << '\'';
        }
        out << (selection.includeQualifiers ? " Q" : "")
            << (selection.includeClassOrigin ? " O" : "");
        out << (selection.propertyList.isNull() ? ""
                                                : " " + text(selection.propertyList.toString()));
        asked = out.str();
        onCall();
    }
};

const CIMNamespaceName ns("ns");
const CIMName c("C"), d("D"), e("E");

TEST(CIMOMHandle, PassesEveryArgumentOn) {
    RecordingServer server;
    CIMOMHandle cimom(&server);
    OperationContext context;
    context.insert(IdentityContainer(String("u")));
    const CIMObjectPath p = path("C.K=\"x\"");
    const CIMPropertyList list = listOf({"K", "N"});
    Array<CIMParamValue> out;
    const std::vector<std::pair<std::function<void()>, std::string>> cases = {
        {[&] { cimom.getClass(context, ns, c, true, true, false, list); },
         "getClass ns C local by 'u' Q K, N"},
        {[&] { cimom.enumerateClasses(context, ns, c, true, false, false, true); },
         "enumerateClasses ns C deep by 'u' O"},
        {[&] { cimom.enumerateClassNames(context, ns, CIMName(), false); },
         "enumerateClassNames ns  by 'u'"},
        {[&] { cimom.getInstance(context, ns, p, true, true, true, list); },
         "getInstance ns C.K=\"x\" by 'u' Q O K, N"},
        {[&] { cimom.enumerateInstances(context, ns, c, true, true, true, false, {}); },
         "enumerateInstances ns C by 'u' Q"},
        {[&] { cimom.enumerateInstances(context, ns, c, false, true, false, false, {}); },
         "enumerateInstances ns C by 'u' N"},
        {[&] { cimom.enumerateInstanceNames(context, ns, c); },
         "enumerateInstanceNames ns C by 'u'"},
        {[&] { cimom.createInstance(context, ns, server.instance); },
         "createInstance ns //host/ns:C.K=\"k\" by 'u'"},
        {[&] { cimom.modifyInstance(context, ns, server.instance, true, list); },
         "modifyInstance ns //host/ns:C.K=\"k\" by 'u' Q K, N"},
        {[&] { cimom.deleteInstance(context, ns, p); }, "deleteInstance ns C.K=\"x\" by 'u'"},
        {[&] { cimom.associators(context, ns, p, c, d, "r", "s", true, false, list); },
         "associators ns C.K=\"x\" via C to D as r of s by 'u' Q K, N"},
        {[&] { cimom.associatorNames(context, ns, p, c, d, "r", "s"); },
         "associatorNames ns C.K=\"x\" via C to D as r of s by 'u'"},
        {[&] { cimom.references(context, ns, p, e, "r", false, true, list); },
         "references ns C.K=\"x\" via  to E as r of  by 'u' O K, N"},
        {[&] { cimom.referenceNames(context, ns, p, e, "r"); },
         "referenceNames ns C.K=\"x\" via  to E as r of  by 'u'"},
        {[&] { cimom.getProperty(context, ns, p, CIMName("N")); },
         "getInstance ns C.K=\"x\" by 'u' N"},
        {[&] { cimom.setProperty(context, ns, p, CIMName("N"), CIMValue(Uint32(1))); },
         "modifyInstance ns //" + text(cimserver::ownHostName()) + "/ns:C.K=\"x\" by 'u' N"},
        {[&] { cimom.invokeMethod(context, ns, p, CIMName("M"), {}, out); },
         "invokeMethod ns C.K=\"x\" M by 'u'"}};
    for (const auto& [call, expected] : cases) {
        call();
        EXPECT_EQ(server.asked, expected);
    }
    EXPECT_EQ(namesOf(server.modified), "N");
}

TEST(CIMOMHandle, ReturnsWhatTheProviderDelivered) {
    RecordingServer server;
    CIMOMHandle cimom;
    const OperationContext nobody;
    const CIMInstance instance =
        cimom.getInstance(nobody, ns, path("C"), true, false, false, listOf({"N"}));
    EXPECT_TRUE(instance.identical(server.instance));
    EXPECT_EQ(text(cimom.enumerateInstanceNames(nobody, ns, c)[0].toString()),
              "//host/ns:C.K=\"k\"");
    EXPECT_EQ(cimom.enumerateClassNames(nobody, ns, c, true).size(), 2u);

    const CIMObjectPath p = path("C.K=\"k\"");
    EXPECT_EQ(cimom.getProperty(nobody, ns, p, CIMName("n")), CIMValue(String("7")));
    EXPECT_EQ(cimom.getProperty(nobody, ns, p, CIMName("A")),
              CIMValue(Array<String>(2, String("5"))));
    EXPECT_EQ(thrownBy<CIMException>([&] { cimom.getProperty(nobody, ns, p, CIMName("Gone")); }),
              "Gone");
    server.onCall = [] { throw CIMException(CIM_ERR_NOT_FOUND, "m"); };
    EXPECT_EQ(thrownBy<CIMException>([&] { cimom.deleteInstance(nobody, ns, p); }), "m");
}

TEST(CIMOMHandle, SetsTextsAsDeclaredAndGetsNullsAsDelivered) {
    RecordingServer server;
    CIMOMHandle cimom(&server);
    const CIMObjectPath p = path("C.K=\"k\"");
    cimom.setProperty({}, ns, p, CIMName("U"), CIMValue(String("3")));
    EXPECT_EQ(server.modified.getProperty(0).getValue(), CIMValue(Uint8(3)));
    EXPECT_NE(thrownBy<CIMException>(
                  [&] { cimom.setProperty({}, ns, p, CIMName("X"), CIMValue(String("3"))); }),
              "no exception");
    const CIMValue null(CIMTYPE_UINT32, false);
    server.instance.getProperty(1).setValue(null);
    EXPECT_EQ(cimom.getProperty({}, ns, p, CIMName("N")), null);
    CIMClient client;
    client.connectLocal();
    client.setProperty(ns, p, CIMName("U"), CIMValue(Uint32(4)));
    EXPECT_EQ(server.modified.getProperty(0).getValue(), CIMValue(Uint8(4)));
    EXPECT_EQ(client.getProperty(ns, p, CIMName("N")), CIMValue(CIMTYPE_STRING, false));
}

TEST(CIMOMHandle, AllowsNestedCalls) {
    RecordingServer server;
    CIMOMHandle cimom(&server);
    CIMOMHandle copy = cimom;
    int depth = 0;
    server.onCall = [&] {
        if (++depth < 3) {
            copy.deleteInstance(OperationContext(), ns, path("C"));
        }
    };
    cimom.deleteInstance(OperationContext(), ns, path("C"));
    EXPECT_EQ(depth, 3);
}

TEST(CIMOMHandle, CountsHolds) {
    CIMOMHandle cimom;
    CIMOMHandle copy = cimom;
    cimom.disallowProviderUnload();
    copy.disallowProviderUnload();
    cimom.allowProviderUnload();
    EXPECT_FALSE(cimom.unloadAllowed());
    cimom.allowProviderUnload();
    EXPECT_TRUE(copy.unloadAllowed());
    copy.allowProviderUnload();
    cimom.disallowProviderUnload();
    EXPECT_FALSE(copy.unloadAllowed());
}

TEST(CIMOMHandle, FailsWithoutAServer) {
    EXPECT_EQ(thrownBy<CIMException>([] { CIMOMHandle().deleteInstance({}, ns, path("C")); }),
              "There is no CIM server in this process.");
}

TEST(CIMClient, ConnectsOnce) {
    CIMClient client;
    EXPECT_EQ(client.getTimeout(), 20000u);
    EXPECT_EQ(thrownBy<CannotConnectException>([&] { client.connectLocal(); }),
              "Cannot connect to local CIM server. Connection failed.");
    EXPECT_EQ(thrownBy<CannotConnectException>([&] { client.connect("h", 5988, "u", "p"); }),
              "Cannot connect to h:5988. This client reaches the CIM server of its own process "
              "only.");
    EXPECT_EQ(thrownBy<NotConnectedException>([&] { client.enumerateInstanceNames(ns, c); }),
              "not connected");
    RecordingServer server;
    client.connectLocal();
    EXPECT_EQ(thrownBy<AlreadyConnectedException>([&] { client.connectLocal(); }),
              "already connected");
    client.enumerateInstanceNames(ns, c);
    EXPECT_EQ(server.asked, "enumerateInstanceNames ns C by ''");
    client.disconnect();
    client.disconnect();
    EXPECT_EQ(thrownBy<NotConnectedException>([&] { client.enumerateInstanceNames(ns, c); }),
              "not connected");
}

struct ConnectedClient : ::testing::Test {
    ConnectedClient() { client.connectLocal(); }

    RecordingServer server;
    CIMClient client;
};

TEST_F(ConnectedClient, SeesPathsAsOnTheWire) {
    EXPECT_EQ(text(client.getInstance(ns, path("C")).getPath().toString()), "C");
    EXPECT_EQ(text(client.enumerateInstances(ns, c)[0].getPath().toString()), "C.K=\"k\"");
    EXPECT_EQ(text(client.enumerateInstanceNames(ns, c)[0].toString()), "C.K=\"k\"");
    EXPECT_EQ(text(client.createInstance(ns, server.instance).toString()), "C.K=\"k\"");
    EXPECT_EQ(text(client.associators(ns, path("C"))[0].getPath().toString()),
              "//host/ns:C.K=\"k\"");
    EXPECT_EQ(text(client.referenceNames(ns, path("C"))[0].toString()), "//host/ns:C.K=\"k\"");
}

TEST_F(ConnectedClient, SeesWhatItAskedFor) {
    CIMInstance all = client.getInstance(ns, path("C"), false, true, true);
    EXPECT_EQ(namesOf(all), "KNA");
    EXPECT_EQ(all.getQualifierCount(), 1u);
    EXPECT_FALSE(all.getProperty(0).getClassOrigin().isNull());
    all.getProperty(1).setValue(CIMValue(Uint32(8)));
    EXPECT_EQ(server.instance.getProperty(1).getValue(), CIMValue(Uint32(7)));

    const CIMInstance listed =
        client.getInstance(ns, path("C"), false, false, false, listOf({"a", "X", "K"}));
    EXPECT_EQ(namesOf(listed), "AK");
    EXPECT_EQ(listed.getQualifierCount(), 0u);
    EXPECT_TRUE(listed.getProperty(1).getClassOrigin().isNull());
    EXPECT_EQ(namesOf(client.getInstance(ns, path("C"), false, false, false, listOf({}))), "");
    EXPECT_EQ(namesOf(client.enumerateInstances(ns, c, false)[0]), "N");
    EXPECT_EQ(namesOf(CIMInstance(client.references(ns, path("C"), CIMName(), String::EMPTY, false,
                                                    false, listOf({"N"}))[0])),
              "N");
    EXPECT_EQ(namesOf(server.instance), "KNA");
}

TEST_F(ConnectedClient, ReceivesOutParameters) {
    Array<CIMParamValue> in, out;
    in.append(CIMParamValue(String("p"), CIMValue(Uint8(1))));
    const CIMValue result = client.invokeMethod(ns, path("C"), CIMName("M"), in, out);
    EXPECT_EQ(result, CIMValue(Uint32(0)));
    ASSERT_EQ(out.size(), 2u);
    EXPECT_EQ(out[0].getValue(), CIMValue(Uint8(1)));
    EXPECT_EQ(out[1].getValue().getType(), CIMTYPE_BOOLEAN);
    EXPECT_FALSE(out[1].isTyped());
}

TEST_F(ConnectedClient, SeesFailuresWithTheirStatusName) {
    server.onCall = [] { throw CIMException(CIM_ERR_NOT_FOUND, "m"); };
    EXPECT_EQ(thrownBy<CIMException>([&] { client.getInstance(ns, path("C")); }),
              "CIM_ERR_NOT_FOUND: m");
    server.onCall = [] { throw CIMException(CIMStatusCode(4096)); };
    EXPECT_EQ(thrownBy<CIMException>([&] { client.deleteInstance(ns, path("C")); }),
              "Unrecognized CIM status code \"4096\"");
    server.onCall = [&] { server.instance = CIMInstance(); };
    EXPECT_EQ(thrownBy<CIMClientXmlException>([&] { client.getInstance(ns, path("C")); }),
              "expected ERROR or IRETURNVALUE element");
}

}  // namespace

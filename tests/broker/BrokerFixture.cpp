#include "BrokerFixture.h"

#include "mof/MofReader.h"

using namespace Pegasus;

Journal& journal() {
    static Journal instance;
    return instance;
}

namespace cimserver::test {
namespace {

const char* const schema = R"(
Qualifier Key : boolean = false, Scope(property, reference), Flavor(DisableOverride);
Qualifier Association : boolean = false, Scope(association), Flavor(DisableOverride);
Qualifier Abstract : boolean = false, Scope(class, association), Flavor(Restricted);

class T_Base {
    [Key] string Id;
    uint32 Size;
    uint32 Act(uint32 Count, string Names[], boolean Now);
};
class T_Sub : T_Base { string Extra; };
class T_Loose : T_Base {};
instance of T_Loose { Id = "static"; Size = 7; };
[Abstract] class T_Abstract { [Key] string Id; };
class T_Pair { [Key] string Id; };
class T_PairSub : T_Pair {};
class T_Other { [Key] string Id; uint32 Act(); };
class T_Slow { [Key] string Id; };
class T_Null { [Key] string Id; };
class T_CreateThrows { [Key] string Id; };
class T_Failing { [Key] string Id; };
class T_AsksItself { [Key] string Id; };
class T_AsksLeft { [Key] string Id; };
class T_AsksRight { [Key] string Id; };
class T_Parting { [Key] string Id; };
class T_MethodsOnly { [Key] string Id; };
class T_NoEntry { [Key] string Id; };
class T_NoLibrary { [Key] string Id; };
[Association] class T_Link { [Key] T_Base REF Near; [Key] T_Other REF Far; };
[Association] class T_SubLink : T_Link {};
[Association] class T_Unserved { [Key] T_Base REF Left; [Key] T_Sub REF Right; };
)";

std::string module(const std::string& name) {
    return "instance of PG_ProviderModule { Name = \"" + name +
           "Module\"; Vendor = \"v\"; Version = \"1\"; InterfaceType = \"C++Default\";"
           " InterfaceVersion = \"2.5.0\"; Location = \"" +
           name + "\"; };\n";
}

/// The provider of the same name, without prefix, of a class.
std::string provider(const std::string& className, const std::string& types,
                     const std::string& library = "BrokerTestProviders") {
    const std::string name = className.substr(2);
    const std::string names =
        "ProviderModuleName = \"" + library + "Module\"; {}Name = \"" + name + "\"; ";
    const auto with = [&](const std::string& prefix) {
        std::string result = names;
        return result.replace(result.find("{}"), 2, prefix);
    };
    return "instance of PG_Provider { " + with("") + "};\ninstance of PG_ProviderCapabilities { " +
           with("Provider") + "CapabilityID = \"1\"; ClassName = \"" + className +
           "\"; Namespaces = { \"root/t\" }; ProviderType = { " + types + " }; };\n";
}

std::string registration() {
    std::string mof = module("BrokerTestProviders") + module("BrokerTestNoEntry") + module("Gone");
    for (const char* name : {"T_Base", "T_Other"}) mof += provider(name, "2, 5");
    for (const char* name :
         {"T_Sub", "T_Pair", "T_PairSub", "T_Slow", "T_Null", "T_CreateThrows", "T_Failing",
          "T_AsksItself", "T_AsksLeft", "T_AsksRight", "T_MethodsOnly", "T_Parting"})
        mof += provider(name, "2");
    for (const char* name : {"T_Link", "T_SubLink"}) mof += provider(name, "3");
    return mof + provider("T_NoEntry", "2", "BrokerTestNoEntry") +
           provider("T_NoLibrary", "2", "Gone");
}

CIMInstance instanceOf(const CIMObjectPath& path) {
    CIMInstance instance(path.getClassName());
    instance.setPath(path);
    instance.addProperty(CIMProperty("Size", CIMValue(Uint32(1)), 0, CIMName(), "T_Base", true));
    instance.addProperty(CIMProperty("Id", CIMValue(String("1"))));
    return instance;
}

std::string errorText(const CIMException& error) {
    return std::to_string(error.getCode()) + " " + text(error.getMessage());
}

}  // namespace

std::string text(const String& string) {
    return std::string(string.getCString());
}

OperationContext contextOf(const std::string& script) {
    OperationContext context;
    context.insert(IdentityContainer(script.c_str()));
    return context;
}

class BrokerTest::Results {
  public:
    explicit Results(std::size_t untilHangUp) : _untilHangUp(untilHangUp) {}

    template <class T>
    Sink<T> sink() {
        return [this](const T& result) {
            if (_count == _untilHangUp) throw HangUp();
            add(textOf(result));
        };
    }

    void add(const std::string& result) {
        ++_count;
        _all += (_all.empty() ? "" : " ") + result;
    }

    std::string shown() const { return _count > 9 ? std::to_string(_count) + " results" : _all; }

  private:
    static std::string textOf(const CIMInstance& i) { return text(i.getPath().toString()); }
    static std::string textOf(const CIMObject& o) { return text(o.getPath().toString()); }
    static std::string textOf(const CIMObjectPath& p) { return text(p.toString()); }
    static std::string textOf(const CIMClass& c) { return "class " + textOf(c.getClassName()); }
    static std::string textOf(const CIMName& n) { return text(n.getString()); }

    const std::size_t _untilHangUp;
    std::size_t _count = 0;
    std::string _all;
};

BrokerTest::BrokerTest() {
    journal().take();
    MofReader(repository).readFile(INTEROP_MOF, CIMNamespaceName("root/PG_InterOp"));
    MofReader(repository).readText(schema, "schema.mof", nameSpace);
    MofReader(repository)
        .readText(registration(), "registration.mof", CIMNamespaceName("root/PG_InterOp"));
    addInstanceOperations();
    addAssociationOperations();
    addOtherOperations();
    startBroker();
}

BrokerTest::~BrokerTest() = default;

void BrokerTest::startBroker() {
    broker.reset();
    broker = std::make_unique<Broker>(
        repository,
        Broker::Settings{"srv.example", PROVIDER_DIR, CIMNamespaceName("root/PG_InterOp")});
}

void BrokerTest::addInstanceOperations() {
    _operations["getInstance"] = [&](const auto& context, const auto& about, auto& results) {
        const auto found =
            broker->getInstance(context, nameSpace, CIMObjectPath(about.c_str()), selection);
        if (found.isUninitialized())
            results.add("uninitialized");
        else
            results.template sink<CIMInstance>()(found);
    };
    _operations["enumerateInstances"] = [&](const auto& context, const auto& about, auto& results) {
        broker->enumerateInstances(context, nameSpace, about.c_str(), selection,
                                   results.template sink<CIMInstance>());
    };
    _operations["enumerateInstanceNames"] = [&](const auto& context, const auto& about,
                                                auto& results) {
        broker->enumerateInstanceNames(context, nameSpace, about.c_str(),
                                       results.template sink<CIMObjectPath>());
    };
    _operations["createInstance"] = [&](const auto& context, const auto& about, auto& results) {
        const auto path =
            broker->createInstance(context, nameSpace, instanceOf(CIMObjectPath(about.c_str())));
        results.add(text(path.toString()));
    };
    _operations["modifyInstance"] = [&](const auto& context, const auto& about, auto&) {
        broker->modifyInstance(context, nameSpace, instanceOf(CIMObjectPath(about.c_str())),
                               selection);
    };
    _operations["deleteInstance"] = [&](const auto& context, const auto& about, auto&) {
        broker->deleteInstance(context, nameSpace, CIMObjectPath(about.c_str()));
    };
}

void BrokerTest::addAssociationOperations() {
    _operations["associators"] = [&](const auto& context, const auto& about, auto& results) {
        broker->associators(context, nameSpace, CIMObjectPath(about.c_str()), filter, selection,
                            results.template sink<CIMObject>());
    };
    _operations["associatorNames"] = [&](const auto& context, const auto& about, auto& results) {
        broker->associatorNames(context, nameSpace, CIMObjectPath(about.c_str()), filter,
                                results.template sink<CIMObjectPath>());
    };
    _operations["references"] = [&](const auto& context, const auto& about, auto& results) {
        broker->references(context, nameSpace, CIMObjectPath(about.c_str()), filter, selection,
                           results.template sink<CIMObject>());
    };
    _operations["referenceNames"] = [&](const auto& context, const auto& about, auto& results) {
        broker->referenceNames(context, nameSpace, CIMObjectPath(about.c_str()), filter,
                               results.template sink<CIMObjectPath>());
    };
}

void BrokerTest::addOtherOperations() {
    _operations["Act"] = [&](const auto& context, const auto& about, auto& results) {
        Array<CIMParamValue> out;
        const CIMValue value = broker->invokeMethod(
            context, nameSpace, CIMObjectPath(about.c_str()), CIMName("Act"), parameters, out);
        results.add(value.isNull() ? "null" : text(value.toString()));
        for (Uint32 i = 0; i != out.size(); ++i) {
            const CIMValue parameter = out[i].getValue();
            results.add(text(out[i].getParameterName()) + (out[i].isTyped() ? ":" : "?") +
                        cimTypeToString(parameter.getType()) + "=" + text(parameter.toString()));
        }
    };
    _operations["enumerateClasses"] = [&](const auto& context, const auto& about, auto& results) {
        broker->enumerateClasses(context, nameSpace, about.empty() ? CIMName() : about.c_str(),
                                 false, false, selection, results.template sink<CIMClass>());
    };
    _operations["allClassNames"] = [&](const auto& context, const auto& about, auto& results) {
        broker->enumerateClassNames(context, nameSpace, about.empty() ? CIMName() : about.c_str(),
                                    true, results.template sink<CIMName>());
    };
}

std::string BrokerTest::run(const std::string& request, const std::string& script) {
    Results results(resultsUntilHangUp);
    const auto failed = [&](const std::string& error) {
        return results.shown() + (results.shown().empty() ? "" : "; ") + error;
    };
    const auto blank = request.find(' ');
    const auto about = blank == request.npos ? "" : request.substr(blank + 1);
    try {
        _operations.at(request.substr(0, blank))(contextOf(script), about, results);
        return results.shown();
    } catch (const HangUp&) {
        return failed("hung up");
    } catch (const CIMException& error) {
        return failed(errorText(error));
    }
}

}  // namespace cimserver::test

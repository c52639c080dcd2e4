// Providers that do what the request's user name tells.
//
// The user name is a script, steps separated by blanks. A step "Class:step" is for calls about that
// class only, "step*n" is done n times, "try/step" reports what the step throws and goes on. No
// script at all means "echo complete".
#include "Journal.h"

#include <Pegasus/Provider/CIMAssociationProvider.h>
#include <Pegasus/Provider/CIMInstanceProvider.h>
#include <Pegasus/Provider/CIMMethodProvider.h>
#include <Pegasus/Provider/ProviderException.h>

#include <functional>
#include <map>
#include <sstream>
#include <stdexcept>
#include <thread>

using namespace Pegasus;

namespace {

using Steps = std::map<std::string, std::function<void()>>;

std::string text(const String& string) {
    return std::string(string.getCString());
}

[[noreturn]] void throwNotUtf8() {
    throw std::runtime_error("\xff");
}

const Steps throwing = {
    {"throwNotFound", [] { throw CIMObjectNotFoundException("gone"); }},
    {"throwBare", [] { throw CIMException(CIM_ERR_NOT_FOUND); }},
    {"throwOwnCode", [] { throw CIMException(CIMStatusCode(4096), "own"); }},
    {"throwSuccess", [] { throw CIMException(CIM_ERR_SUCCESS, "fine"); }},
    {"throwNotSupported", [] { throw CIMNotSupportedException("refused"); }},
    {"throwPegasus", [] { throw TypeMismatchException(); }},
    {"throwStandard", [] { throw std::runtime_error("standard"); }},
    {"throwNotUtf8", throwNotUtf8},
    {"throwNumber", [] { throw 42; }},
};

void attempt(const std::function<void()>& step) try { step(); } catch (const CIMException& e) {
    journal().add("caught " + text(e.getMessage()));
} catch (...) {
    journal().add("caught something");
}

class Script {
  public:
    Script(const OperationContext& context, const CIMName& className, ResponseHandler& handler,
           Steps steps)
        : _className(text(className.getString())), _steps(std::move(steps)) {
        const IdentityContainer identity(context.get(IdentityContainer::NAME));
        _script = text(identity.getUserName());
        if (_script.empty()) _script = "echo complete";
        _steps.insert(throwing.begin(), throwing.end());
        _steps["processing"] = [&] { handler.processing(); };
        _steps["complete"] = [&] { handler.complete(); };
        _steps["hold"] = [] {
            journal().add("holding");
            journal().passGate("hold");
            journal().add("released");
        };
    }

    void play() const {
        std::istringstream words(_script);
        for (std::string word; words >> word;) perform(word);
    }

  private:
    void perform(std::string word) const {
        const auto colon = word.find(':');
        if (colon != word.npos && word.substr(0, colon) != _className) return;
        word.erase(0, colon + 1);
        const auto star = word.find('*');
        const int times = star == word.npos ? 1 : std::stoi(word.substr(star + 1));
        for (int i = 0; i != times; ++i) once(word.substr(0, star));
    }

    void once(const std::string& word) const {
        if (word.rfind("try/", 0) == 0)
            attempt(_steps.at(word.substr(4)));
        else
            _steps.at(word)();
    }

    std::string _className;
    std::string _script;
    Steps _steps;
};

CIMObjectPath named(const CIMName& className, const String& id) {
    Array<CIMKeyBinding> keys;
    keys.append(CIMKeyBinding("Id", id, CIMKeyBinding::STRING));
    return CIMObjectPath(String(), CIMNamespaceName(), className, keys);
}

CIMInstance instanceNamed(const CIMName& className, const String& id) {
    CIMInstance instance(className);
    instance.setPath(named(className, id));
    return instance;
}

String flags(Boolean qualifiers, Boolean origin, const CIMPropertyList& list) {
    return String(qualifiers ? " q" : "") + String(origin ? " o " : " ") + list.toString();
}

String origins(const CIMInstance& instance) {
    String result;
    for (Uint32 i = 0; i != instance.getPropertyCount(); ++i) {
        const CIMConstProperty property = instance.getProperty(i);
        result.append(String(" ") + property.getName().getString());
        if (property.getPropagated() || !property.getClassOrigin().isNull()) result.append("!");
    }
    return result;
}

class Scripted : public CIMInstanceProvider,
                 public CIMAssociationProvider,
                 public CIMMethodProvider {
  public:
    explicit Scripted(std::string name) : _name(std::move(name)) {}

    void initialize(CIMOMHandle& handle) override {
        _handle = handle;
        journal().add(_name + " initialize");
    }
    void terminate() override {
        journal().add(_name + " terminate");
        delete this;
    }

    void getInstance(const OperationContext& context, const CIMObjectPath& reference,
                     const Boolean qualifiers, const Boolean origin, const CIMPropertyList& list,
                     InstanceResponseHandler& handler) override {
        playInstances(context, reference, reference.toString() + flags(qualifiers, origin, list),
                      handler);
    }
    void enumerateInstances(const OperationContext& context, const CIMObjectPath& reference,
                            const Boolean qualifiers, const Boolean origin,
                            const CIMPropertyList& list,
                            InstanceResponseHandler& handler) override {
        playInstances(context, reference, reference.toString() + flags(qualifiers, origin, list),
                      handler);
    }
    void enumerateInstanceNames(const OperationContext& context, const CIMObjectPath& reference,
                                ObjectPathResponseHandler& handler) override {
        playPaths(context, reference.getClassName(), reference.toString(), handler);
    }
    void modifyInstance(const OperationContext& context, const CIMObjectPath& reference,
                        const CIMInstance& instance, const Boolean qualifiers,
                        const CIMPropertyList& list, ResponseHandler& handler) override {
        journal().add(
            text(reference.toString() + flags(qualifiers, false, list) + origins(instance)));
        Script(context, reference.getClassName(), handler, {}).play();
    }
    void createInstance(const OperationContext& context, const CIMObjectPath& reference,
                        const CIMInstance& instance, ObjectPathResponseHandler& handler) override {
        playPaths(context, reference.getClassName(), reference.toString() + origins(instance),
                  handler);
    }
    void deleteInstance(const OperationContext& context, const CIMObjectPath& reference,
                        ResponseHandler& handler) override {
        journal().add(text(reference.toString()));
        Script(context, reference.getClassName(), handler, {}).play();
    }

    void associators(const OperationContext& context, const CIMObjectPath& source,
                     const CIMName& association, const CIMName& resultClass, const String& role,
                     const String& resultRole, const Boolean qualifiers, const Boolean origin,
                     const CIMPropertyList& list, ObjectResponseHandler& handler) override {
        playObjects(context, association,
                    source.toString() + String(" ") + resultClass.getString() + String(" ") + role +
                        String(" ") + resultRole + flags(qualifiers, origin, list),
                    handler);
    }
    void associatorNames(const OperationContext& context, const CIMObjectPath& source,
                         const CIMName& association, const CIMName& resultClass, const String& role,
                         const String& resultRole, ObjectPathResponseHandler& handler) override {
        playPaths(context, association,
                  source.toString() + String(" ") + resultClass.getString() + String(" ") + role +
                      String(" ") + resultRole,
                  handler);
    }
    void references(const OperationContext& context, const CIMObjectPath& source,
                    const CIMName& resultClass, const String& role, const Boolean qualifiers,
                    const Boolean origin, const CIMPropertyList& list,
                    ObjectResponseHandler& handler) override {
        playObjects(context, resultClass,
                    source.toString() + String(" ") + role + flags(qualifiers, origin, list),
                    handler);
    }
    void referenceNames(const OperationContext& context, const CIMObjectPath& source,
                        const CIMName& resultClass, const String& role,
                        ObjectPathResponseHandler& handler) override {
        playPaths(context, resultClass, source.toString() + String(" ") + role, handler);
    }

    void invokeMethod(const OperationContext& context, const CIMObjectPath& reference,
                      const CIMName& method, const Array<CIMParamValue>& in,
                      MethodResultResponseHandler& handler) override {
        const auto echo = [&] {
            handler.deliver(CIMValue(reference.toString() + String(" ") + method.getString()));
            handler.deliverParamValue(in);
        };
        Script(context, reference.getClassName(), handler,
               {{"echo", echo},
                {"deliver", [&] { handler.deliver(CIMValue(Uint32(++_delivered))); }},
                {"null", [&] { handler.deliver(CIMValue()); }},
                {"out", [&] { handler.deliverParamValue(CIMParamValue("Out", CIMValue(true))); }}})
            .play();
    }

  protected:
    CIMOMHandle _handle;
    const std::string _name;

  private:
    String next() { return CIMValue(Uint32(++_delivered)).toString(); }

    void playInstances(const OperationContext& context, const CIMObjectPath& reference,
                       const String& echo, InstanceResponseHandler& handler) {
        const CIMName name = reference.getClassName();
        Script(context, name, handler,
               {{"echo", [&] { handler.deliver(instanceNamed(name, echo)); }},
                {"deliver", [&] { handler.deliver(instanceNamed(name, next())); }},
                {"null", [&] { handler.deliver(CIMInstance()); }},
                {"upcall", [&] { handler.deliver(othersOf(reference.getNameSpace())); }}})
            .play();
    }
    void playObjects(const OperationContext& context, const CIMName& name, const String& echo,
                     ObjectResponseHandler& handler) {
        Script(context, name, handler,
               {{"echo", [&] { handler.deliver(CIMObject(instanceNamed(name, echo))); }},
                {"deliver", [&] { handler.deliver(CIMObject(instanceNamed(name, next()))); }},
                {"null", [&] { handler.deliver(CIMObject()); }}})
            .play();
    }
    void playPaths(const OperationContext& context, const CIMName& name, const String& echo,
                   ObjectPathResponseHandler& handler) {
        Script(context, name, handler,
               {{"echo", [&] { handler.deliver(named(name, echo)); }},
                {"deliver", [&] { handler.deliver(named(name, next())); }},
                {"null", [&] { handler.deliver(CIMObjectPath()); }},
                {"whole", [&] { handler.deliver(CIMObjectPath("//far/root/x:T_Far.Id=\"1\"")); }}})
            .play();
    }

    /// What the server itself sees of T_Other.
    Array<CIMInstance> othersOf(const CIMNamespaceName& nameSpace) {
        return _handle.enumerateInstances(OperationContext(), nameSpace, "T_Other", true, false,
                                          false, false, CIMPropertyList());
    }

    Uint32 _delivered = 0;
};

/// Takes long to initialize, so that many requests come meanwhile.
class Slow : public Scripted {
  public:
    using Scripted::Scripted;
    void initialize(CIMOMHandle& handle) override {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        Scripted::initialize(handle);
    }
};

/// Fails to initialize until a gate is open.
class Failing : public Scripted {
  public:
    using Scripted::Scripted;
    void initialize(CIMOMHandle& handle) override {
        Scripted::initialize(handle);
        if (!journal().isOpen("repaired")) throw std::runtime_error("lost");
    }
};

/// Asks for instances of a class while it initializes.
class Curious : public Scripted {
  public:
    Curious(std::string name, const char* className, bool meets)
        : Scripted(std::move(name)), _asked(className), _meets(meets) {}
    void initialize(CIMOMHandle& handle) override {
        Scripted::initialize(handle);
        if (_meets) journal().passGate("both");
        attempt([&] {
            handle.enumerateInstanceNames(OperationContext(), CIMNamespaceName("root/t"), _asked);
            journal().add(_name + " asked");
        });
    }

  private:
    const CIMName _asked;
    const bool _meets;
};

/// Asks the server while it terminates.
class Parting : public Scripted {
  public:
    using Scripted::Scripted;
    void terminate() override {
        for (const char* className : {"T_Parting", "T_Other", "T_Slow"})
            attempt([&] {
                _handle.enumerateInstanceNames({}, CIMNamespaceName("root/t"), className);
                journal().add(std::string(className) + " answered");
            });
        Scripted::terminate();
    }
};

class MethodsOnly : public CIMMethodProvider {
  public:
    void initialize(CIMOMHandle&) override {}
    void terminate() override { delete this; }
    void invokeMethod(const OperationContext&, const CIMObjectPath&, const CIMName&,
                      const Array<CIMParamValue>&, MethodResultResponseHandler&) override {}
};

CIMProvider* create(const std::string& name) {
    if (name == "Null") return nullptr;
    if (name == "CreateThrows") throw std::runtime_error("createfail");
    if (name == "Slow") return new Slow(name);
    if (name == "Failing") return new Failing(name);
    if (name == "AsksItself") return new Curious(name, "T_AsksItself", false);
    if (name == "AsksRight") return new Curious(name, "T_AsksLeft", true);
    if (name == "AsksLeft") return new Curious(name, "T_AsksRight", true);
    if (name == "Parting") return new Parting(name);
    if (name == "MethodsOnly") return new MethodsOnly;
    return new Scripted(name);
}

}  // namespace

extern "C" PEGASUS_EXPORT CIMProvider* PegasusCreateProvider(const String& providerName);
CIMProvider* PegasusCreateProvider(const String& providerName) {
    return create(text(providerName));
}

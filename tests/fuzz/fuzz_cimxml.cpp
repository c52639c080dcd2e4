// Any bytes are either refused or answered with well-formed XML, and an instance survives its way
// over the wire. The first byte says what the others are: a whole message, the parameters of an
// operation, or an instance.
#include "ScriptedServer.h"
#include "cimxml/Executor.h"
#include "cimxml/ObjectDecoder.h"
#include "model/ObjectEncoder.h"

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

using namespace cimserver;

class Collector final : public AnswerChannel {
  public:
    bool takesTrailers() const override { return false; }
    void send(std::string& part) override { take(part); }
    void finish(std::string& part) override { take(part); }
    void finish(std::string& part, Pegasus::Uint32, const std::string&) override { take(part); }
    void breakOff() override { std::abort(); }

    std::string text;

  private:
    void take(std::string& part) {
        text += part;
        part.clear();
    }
};

const std::string kStart =
    "<?xml version=\"1.0\"?><CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\"><MESSAGE ID=\"1\" "
    "PROTOCOLVERSION=\"1.0\"><SIMPLEREQ>";
const std::string kNamespace = "<LOCALNAMESPACEPATH><NAMESPACE NAME=\"n\"/></LOCALNAMESPACEPATH>";
const std::string kEnd = "</SIMPLEREQ></MESSAGE></CIM>";

const char* const kMethods[] = {"GetClass",        "EnumerateClasses",   "EnumerateClassNames",
                                "GetInstance",     "EnumerateInstances", "CreateInstance",
                                "ModifyInstance",  "DeleteInstance",     "Associators",
                                "AssociatorNames", "References",         "ReferenceNames",
                                "GetProperty",     "SetProperty",        "EnumerateInstanceNames"};

void answer(const std::string& body, const CallHeaders& headers) {
    test::ScriptedServer server;
    Pegasus::CIMClass declared("C");
    declared.addProperty(
        Pegasus::CIMProperty("p", Pegasus::CIMValue(Pegasus::CIMTYPE_UINT8, true)));
    server.objects.push_back(declared);
    Collector collector;
    try {
        execute(server, {}, Message(body, headers, XmlLimits()), collector);
    } catch (const Refusal&) {
        return;
    }
    if (XmlDocument(collector.text, XmlLimits()).root().name != "CIM") std::abort();
}

void call(std::size_t which, const std::string& parameters) {
    const std::size_t count = sizeof(kMethods) / sizeof(kMethods[0]);
    if (which < count) {
        const std::string name = kMethods[which];
        return answer(kStart + "<IMETHODCALL NAME=\"" + name + "\">" + kNamespace + parameters +
                          "</IMETHODCALL>" + kEnd,
                      {name, "n", "1.0"});
    }
    answer(kStart + "<METHODCALL NAME=\"M\"><LOCALCLASSPATH>" + kNamespace +
               "<CLASSNAME NAME=\"C\"/>" + "</LOCALCLASSPATH>" + parameters + "</METHODCALL>" +
               kEnd,
           {"M", "n:C", "1.0"});
}

// 32-bit reals are written with fewer digits than would tell all of them apart.
bool isExact(const std::string& text) {
    return text.find("real32") == std::string::npos;
}

std::string rewritten(const std::string& text) {
    const XmlDocument document(text, XmlLimits());
    if (document.root().name != "INSTANCE") throw notValid("no instance");
    const XmlLimits limits;
    std::string out;
    appendInstance(out, ObjectDecoder(limits).instance(document.root()), {true, true, {}});
    return out;
}

// A key that is a path as text comes back as a reference, which may be one too deep.
bool isTooDeep(const Refusal& refusal) {
    return std::string_view(refusal.what()).find("nested too deeply") != std::string_view::npos;
}

void roundTrip(const std::string& text) {
    std::string once;
    try {
        once = rewritten(text);
        if (isExact(text) && rewritten(once) != once) std::abort();
    } catch (const Refusal& refusal) {
        if (!once.empty() && !isTooDeep(refusal)) std::abort();
    } catch (const Pegasus::Exception&) {  // no instance of the object model
        if (!once.empty()) std::abort();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const std::string text(reinterpret_cast<const char*>(data) + 1, size - 1);
    if (data[0] < 16) {
        call(data[0], text);
    } else if (data[0] % 2) {
        roundTrip(text);
    } else {
        answer(text, {"GetInstance", "root/t", "1.0"});
    }
    return 0;
}

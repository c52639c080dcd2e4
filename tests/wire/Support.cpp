#include "Support.h"

namespace cimserver::test {

namespace {

std::string wrapped(const std::string& call) {
    return "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">"
           "<MESSAGE ID=\"4711\" PROTOCOLVERSION=\"1.0\"><SIMPLEREQ>" +
           call + "</SIMPLEREQ></MESSAGE></CIM>";
}

const std::string kNamespace =
    "<LOCALNAMESPACEPATH><NAMESPACE NAME=\"root\"/><NAMESPACE NAME=\"t\"/></LOCALNAMESPACEPATH>";

}  // namespace

std::string message(const std::string& method, const std::string& parameters) {
    return wrapped("<IMETHODCALL NAME=\"" + method + "\">" + kNamespace + parameters +
                   "</IMETHODCALL>");
}

std::string methodMessage(const std::string& method, const std::string& parameters) {
    return wrapped("<METHODCALL NAME=\"" + method + "\"><LOCALINSTANCEPATH>" + kNamespace +
                   "<INSTANCENAME CLASSNAME=\"T\"><KEYBINDING NAME=\"K\"><KEYVALUE>a</KEYVALUE>"
                   "</KEYBINDING></INSTANCENAME></LOCALINSTANCEPATH>" +
                   parameters + "</METHODCALL>");
}

CallHeaders headersOf(const std::string& method) {
    return {method, "root/t", "1.0"};
}

CallHeaders methodHeadersOf(const std::string& method) {
    return {method, "root/t:T.K=\"a\"", "1.0"};
}

void Recorder::take(std::string& part) {
    text += part;
    part.clear();
}

void Recorder::send(std::string& part) {
    take(part);
    events += "send ";
    if (gone) throw ClientGone();
}

void Recorder::finish(std::string& part) {
    take(part);
    events += "finish ";
}

void Recorder::finish(std::string& part, Pegasus::Uint32 code, const std::string& description) {
    take(part);
    events += "finish " + std::to_string(code) + " " + description + " ";
}

void Recorder::breakOff() {
    events += "break ";
}

std::string answerTo(LocalServer& server, const std::string& body, const CallHeaders& headers) {
    Recorder recorder;
    execute(server, {}, Message(body, headers, XmlLimits()), recorder);
    const auto begin = recorder.text.find("RESPONSE NAME=");
    const auto end = recorder.text.rfind("METHODRESPONSE>");
    const auto content = recorder.text.find('\n', begin) + 1;
    return recorder.text.substr(content, recorder.text.rfind("</", end) - content);
}

std::string outcomeOf(LocalServer& server, const std::string& body, const CallHeaders& headers) {
    try {
        return answerTo(server, body, headers);
    } catch (const Refusal& refusal) {
        return std::to_string(refusal.status()) + " " + refusal.cimError();
    }
}

}  // namespace cimserver::test

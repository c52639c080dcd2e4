#include "Handlers.h"

#include <algorithm>
#include <sstream>

namespace qrvtest {

namespace {

std::string utf8(const Pegasus::String& text) {
    return static_cast<const char*>(text.getCString());
}

}  // namespace

std::string textOf(const Pegasus::CIMObjectPath& path) {
    return utf8(path.toString());
}

std::string textOf(const Pegasus::CIMObject& object) {
    return textOf(Pegasus::CIMInstance(object));
}

std::string textOf(const Pegasus::CIMInstance& instance) {
    std::string text = textOf(instance.getPath());
    for (Pegasus::Uint32 i = 0; i < instance.getPropertyCount(); ++i) {
        const Pegasus::CIMConstProperty property = instance.getProperty(i);
        if (property.getValue().isNull()) continue;
        text += "\n" + utf8(property.getName().getString()) + "=" +
                utf8(property.getValue().toString());
    }
    return text;
}

std::vector<std::string> split(const std::string& text, char separator) {
    std::vector<std::string> parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, separator);)
        if (!part.empty()) parts.push_back(part);
    return parts;
}

std::string sortedLines(const std::string& text) {
    std::vector<std::string> lines = split(text, '\n');
    std::sort(lines.begin(), lines.end());
    std::string result;
    for (const std::string& line : lines) result += line + "\n";
    return result;
}

std::vector<std::string> sortedLines(std::vector<std::string> texts) {
    for (std::string& text : texts) text = sortedLines(text);
    return texts;
}

void MethodRecorder::deliverParamValue(const Pegasus::CIMParamValue& parameter) {
    _recording.noteDelivered(utf8(parameter.getParameterName()) + "=" +
                             utf8(parameter.getValue().toString()));
}

void MethodRecorder::deliverParamValue(const Pegasus::Array<Pegasus::CIMParamValue>& parameters) {
    for (Pegasus::Uint32 i = 0; i < parameters.size(); ++i) deliverParamValue(parameters[i]);
}

void MethodRecorder::deliver(const Pegasus::CIMValue& value) {
    _recording.noteDelivered("return " + utf8(value.toString()));
}

}  // namespace qrvtest

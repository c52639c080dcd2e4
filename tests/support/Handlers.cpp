#include "Handlers.h"

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

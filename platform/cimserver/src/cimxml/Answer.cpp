#include "cimxml/Answer.h"

#include "cimxml/Request.h"
#include "cimxml/Utf8.h"
#include "model/XmlText.h"

#include <Pegasus/Common/InternalException.h>

namespace cimserver {

using namespace Pegasus;

namespace {

constexpr std::size_t kMostErrorBytes = 4 << 10;  // what a client sent may be quoted in it

std::string errorText(const String& text) {
    std::string bytes = toUtf8(text);
    if (bytes.size() <= kMostErrorBytes) return bytes;
    std::size_t end = kMostErrorBytes;
    while ((static_cast<unsigned char>(bytes[end]) & 0xC0) == 0x80) --end;
    bytes.resize(end);
    bytes.shrink_to_fit();
    return bytes;
}

}  // namespace

std::string errorDescription(const CIMException& error) {
    return errorText(TraceableCIMException(error).getDescription());
}

Answer::Answer(const Message& message, AnswerChannel& channel)
    : _message(message),
      _channel(channel),
      _limit(channel.takesTrailers() ? kPartBytes : kHoldBytes) {
    begin();
}

void Answer::begin() {
    _text =
        "<?xml version=\"1.0\" encoding=\"utf-8\" ?>\n"
        "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">\n"
        "<MESSAGE ID=\"";
    appendEscaped(_text, _message.id());
    _text += "\" PROTOCOLVERSION=\"1.0\">\n<SIMPLERSP>\n";
    _text += _message.intrinsic() ? "<IMETHODRESPONSE NAME=\"" : "<METHODRESPONSE NAME=\"";
    appendEscaped(_text, calledName(_message));
    _text += "\">\n";
    _returnsValue = false;
}

void Answer::openReturnValue() {
    if (_returnsValue) return;
    if (_message.intrinsic()) _text += "<IRETURNVALUE>\n";
    _returnsValue = true;
}

void Answer::closeReturnValue() {
    if (_returnsValue && _message.intrinsic()) _text += "</IRETURNVALUE>\n";
}

void Answer::end() {
    _text += _message.intrinsic() ? "</IMETHODRESPONSE>\n" : "</METHODRESPONSE>\n";
    _text += "</SIMPLERSP>\n</MESSAGE>\n</CIM>\n";
}

void Answer::sendPart() {
    _sent = true;
    _limit = kPartBytes;
    _channel.send(_text);
}

void Answer::succeed() {
    closeReturnValue();
    end();
    _channel.finish(_text);
}

void Answer::fail(const CIMException& error) {
    const auto code = static_cast<Uint32>(error.getCode());
    if (_channel.takesTrailers()) {
        const std::string description =
            _returnsValue ? errorText(error.getMessage()) : errorDescription(error);
        closeReturnValue();
        end();
        return _channel.finish(_text, code, description);
    }
    if (_sent) return _channel.breakOff();
    begin();
    _text += "<ERROR CODE=\"" + std::to_string(code) + "\" DESCRIPTION=\"";
    appendEscaped(_text, errorDescription(error));
    _text += "\"/>\n";
    end();
    _channel.finish(_text);
}

}  // namespace cimserver

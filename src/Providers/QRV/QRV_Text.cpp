#include "QRV_Text.h"

#include <Pegasus/Common/Exception.h>

#include <cstdio>
#include <cstdlib>
#include <limits>
#include <string>

namespace Pegasus {

namespace {

/// How many bytes the character takes that begins with this byte; 0 for none that begins so.
std::size_t lengthOf(unsigned char lead) {
    if (lead < 0x80) return 1;
    if (lead < 0xC2 || lead > 0xF4) return 0;
    return lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
}

/// A String of one character's bytes, or a question mark.
String characterOf(const std::string& bytes) {
    try {
        return String(bytes.c_str(), static_cast<Uint32>(bytes.size()));
    } catch (const Exception&) {
        return String("?");
    }
}

}  // namespace

String arrayText(const char* text) try { return String(text); } catch (const Exception&) {
    String repaired;
    const std::size_t end = std::strlen(text);
    for (std::size_t at = 0; at < end;) {
        const std::size_t length = lengthOf(static_cast<unsigned char>(text[at]));
        const String character =
            length == 0 || at + length > end ? String("?") : characterOf({text + at, length});
        repaired.append(character);
        at += character == "?" ? 1 : length;
    }
    return repaired;
}

std::optional<Uint32> leadingNumber(const String& text) {
    const CString digits = text.getCString();
    char* end = nullptr;
    const unsigned long long number = std::strtoull(digits, &end, 10);
    if (end == static_cast<const char*>(digits) || number > std::numeric_limits<Uint32>::max())
        return std::nullopt;
    return static_cast<Uint32>(number);
}

bool readWwn(const String& text, qrv_u64& wwn) {
    unsigned long long number = 0;
    // NOLINTNEXTLINE(cert-err34-c): sixteen digits always fit
    if (std::sscanf(text.getCString(), "%16llX", &number) != 1) return false;
    wwn = number;
    return true;
}

}  // namespace Pegasus

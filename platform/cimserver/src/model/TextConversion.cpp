#include "model/TextConversion.h"

#include "model/Numbers.h"
#include "model/TypeDispatch.h"

#include <Pegasus/Common/Exception.h>

#include <cmath>
#include <limits>
#include <string>
#include <type_traits>

namespace cimserver {

using namespace Pegasus;

namespace {

template <class T>
std::optional<T> integerFrom(const String& text) {
    const auto number = readInteger(text);
    if (!number || (std::is_unsigned_v<T> && (text[0] == '+' || text[0] == '-')))
        return std::nullopt;
    const Uint64 limit = static_cast<Uint64>(std::numeric_limits<T>::max());
    if (number->magnitude > limit + (number->negative ? 1 : 0)) return std::nullopt;
    return static_cast<T>(number->negative ? 0 - number->magnitude : number->magnitude);
}

template <class T>
std::optional<T> realFrom(const String& text) {
    const auto number = readReal(text);
    if (!number || std::abs(*number) > std::numeric_limits<T>::max()) return std::nullopt;
    return static_cast<T>(*number);
}

template <class T>
std::optional<T> parse(const String& text) {
    if constexpr (std::is_floating_point_v<T>)
        return realFrom<T>(text);
    else
        return integerFrom<T>(text);
}

template <>
std::optional<String> parse(const String& text) {
    return text;
}

template <>
std::optional<Boolean> parse(const String& text) {
    if (String::equalNoCase(text, "TRUE")) return true;
    if (String::equalNoCase(text, "FALSE")) return false;
    return std::nullopt;
}

template <>
std::optional<Char16> parse(const String& text) {
    if (text.size() != 1) return std::nullopt;
    return text[0];
}

template <>
std::optional<CIMDateTime> parse(const String& text) try {
    return text.size() == 0 ? CIMDateTime() : CIMDateTime(text);
} catch (const Exception&) {
    return std::nullopt;
}

struct Scalar {
    const String& text;

    template <class T>
    std::optional<CIMValue> as() const {
        const auto parsed = parse<T>(text);
        if (!parsed) return std::nullopt;
        return CIMValue(*parsed);
    }
};

struct Elements {
    const Array<String>& texts;

    template <class T>
    std::optional<CIMValue> as() const {
        Array<T> values;
        for (Uint32 i = 0; i != texts.size(); ++i) {
            const auto parsed = parse<T>(texts[i]);
            if (!parsed) return std::nullopt;
            values.append(*parsed);
        }
        return CIMValue(values);
    }
};

template <class T>
constexpr bool hasText = !std::is_same_v<T, CIMObjectPath> && !std::is_same_v<T, CIMObject> &&
                         !std::is_same_v<T, CIMInstance>;

template <class Text>
std::optional<CIMValue> convert(const Text& text, CIMType type) {
    return withType(type, [&](auto tag) -> std::optional<CIMValue> {
        using T = typename decltype(tag)::Type;
        if constexpr (hasText<T>) return text.template as<T>();
        return std::nullopt;
    });
}

template <class T>
T contentOf(const CIMValue& value) {
    T content;
    value.get(content);
    return content;
}

std::optional<CIMValue> convert(const CIMValue& strings, CIMType type) {
    if (strings.isArray()) return valueFromTexts(contentOf<Array<String>>(strings), type);
    return valueFromText(contentOf<String>(strings), type);
}

}  // namespace

std::optional<CIMValue> valueFromText(const String& text, CIMType type) {
    return convert(Scalar{text}, type);
}

std::optional<CIMValue> valueFromTexts(const Array<String>& texts, CIMType type) {
    return convert(Elements{texts}, type);
}

CIMValue convertToDeclared(const CIMValue& value, CIMType type, bool isArray) {
    if (value.isNull()) return CIMValue(type, isArray);
    if (value.isArray() != isArray) throw CIMException(CIM_ERR_TYPE_MISMATCH);
    if (value.getType() == type) return value;
    if (value.getType() != CIMTYPE_STRING) throw CIMException(CIM_ERR_TYPE_MISMATCH);
    if (const auto converted = convert(value, type)) return *converted;
    const std::string message = std::string("Malformed ") + cimTypeToString(type) + " value";
    throw CIMException(CIM_ERR_INVALID_PARAMETER, message.c_str());
}

}  // namespace cimserver

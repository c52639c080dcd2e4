#include "broker/TextConversion.h"

#include <Pegasus/Common/CIMDateTime.h>
#include <Pegasus/Common/Exception.h>

#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <string_view>
#include <type_traits>

namespace cimserver {

using namespace Pegasus;

namespace {

template <class T>
std::optional<T> wholeNumber(std::string_view digits, int base) {
    T number{};
    const auto end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, number, base);
    if (error != std::errc() || stop != end) return std::nullopt;
    return number;
}

std::optional<Uint64> magnitude(std::string_view text) {
    if (text.empty()) return std::nullopt;
    if (text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X'))
        return wholeNumber<Uint64>(text.substr(2), 16);
    if (text.size() > 1 && text[0] == '0') return std::nullopt;
    return wholeNumber<Uint64>(text, 10);
}

template <class T>
std::optional<T> unsignedFrom(std::string_view text) {
    const auto number = magnitude(text);
    if (!number || *number > std::numeric_limits<T>::max()) return std::nullopt;
    return static_cast<T>(*number);
}

template <class T>
std::optional<T> signedFrom(std::string_view text) {
    const bool negative = !text.empty() && text[0] == '-';
    if (negative || (!text.empty() && text[0] == '+')) text.remove_prefix(1);
    const auto number = magnitude(text);
    const Uint64 limit = static_cast<Uint64>(std::numeric_limits<T>::max()) + (negative ? 1 : 0);
    if (!number || *number > limit) return std::nullopt;
    return static_cast<T>(negative ? Uint64(0) - *number : *number);
}

template <class T>
std::optional<T> realFrom(std::string_view text) {
    const auto point = text.find('.');
    if (point == text.npos || text.find_first_of("0123456789", point) != point + 1)
        return std::nullopt;
    if (text[0] == '+' && text[1] != '-') text.remove_prefix(1);
    Real64 number{};
    const auto end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || stop != end) return std::nullopt;
    if (std::abs(number) > std::numeric_limits<T>::max()) return std::nullopt;
    return static_cast<T>(number);
}

template <class T>
std::optional<T> parse(const String& text) {
    const CString utf8 = text.getCString();
    const std::string_view view(utf8);
    if constexpr (std::is_floating_point_v<T>)
        return realFrom<T>(view);
    else if constexpr (std::is_signed_v<T>)
        return signedFrom<T>(view);
    else
        return unsignedFrom<T>(view);
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

template <class Text>
std::optional<CIMValue> convert(const Text& text, CIMType type) {
    switch (type) {
        case CIMTYPE_BOOLEAN:
            return text.template as<Boolean>();
        case CIMTYPE_UINT8:
            return text.template as<Uint8>();
        case CIMTYPE_SINT8:
            return text.template as<Sint8>();
        case CIMTYPE_UINT16:
            return text.template as<Uint16>();
        case CIMTYPE_SINT16:
            return text.template as<Sint16>();
        case CIMTYPE_UINT32:
            return text.template as<Uint32>();
        case CIMTYPE_SINT32:
            return text.template as<Sint32>();
        case CIMTYPE_UINT64:
            return text.template as<Uint64>();
        case CIMTYPE_SINT64:
            return text.template as<Sint64>();
        case CIMTYPE_REAL32:
            return text.template as<Real32>();
        case CIMTYPE_REAL64:
            return text.template as<Real64>();
        case CIMTYPE_CHAR16:
            return text.template as<Char16>();
        case CIMTYPE_STRING:
            return text.template as<String>();
        case CIMTYPE_DATETIME:
            return text.template as<CIMDateTime>();
        default:
            return std::nullopt;
    }
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

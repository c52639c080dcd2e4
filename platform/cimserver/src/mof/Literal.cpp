#include "mof/Literal.h"

#include "model/TypeDispatch.h"
#include "mof/Number.h"

#include <Pegasus/Common/Exception.h>

#include <charconv>
#include <limits>
#include <type_traits>

using namespace Pegasus;

namespace cimserver {
namespace {

class Converter {
  public:
    Converter(const Source& source, ValueType type) : _source(source), _type(type) {}

    CIMValue convert(const Initializer& initializer) const;

  private:
    template <class T>
    CIMValue make(const Initializer& initializer) const;
    template <class T>
    T scalar(const Literal& literal) const;
    template <class T>
    T integer(const Literal& literal) const;
    template <class T>
    T real(const Literal& literal) const;
    template <class T>
    T fromString(const Literal& literal) const;
    bool boolean(const Literal& literal) const;
    Char16 character(const Literal& literal) const;

    void require(const Literal& literal, Literal::Kind kind) const {
        if (literal.kind != kind) misfit(literal);
    }
    [[noreturn]] void misfit(const Literal& literal) const {
        _source.fail(literal.at, shown(literal) + " is not a " + cimTypeToString(_type.type));
    }
    static std::string shown(const Literal& literal);

    const Source& _source;
    ValueType _type;
};

std::string Converter::shown(const Literal& literal) {
    switch (literal.kind) {
        case Literal::Kind::Null:
            return "NULL";
        case Literal::Kind::Character:
            return "'" + literal.text + "'";
        case Literal::Kind::String:
            return "\"" + literal.text + "\"";
        default:
            return literal.text;
    }
}

template <class T>
T Converter::integer(const Literal& literal) const {
    require(literal, Literal::Kind::Integer);
    const std::optional<MofInteger> value = parseInteger(literal.text);
    const auto highest = static_cast<std::uint64_t>(std::numeric_limits<T>::max());
    const std::uint64_t limit = !value || !value->isNegative ? highest
                                : std::is_signed_v<T>        ? highest + 1
                                                             : 0;
    if (!value || value->magnitude > limit)
        _source.fail(literal.at,
                     literal.text + " is out of range for " + cimTypeToString(_type.type));
    return static_cast<T>(value->isNegative ? 0 - value->magnitude : value->magnitude);
}

template <class T>
T Converter::real(const Literal& literal) const {
    require(literal, Literal::Kind::Real);
    const bool hasPlus = literal.text.front() == '+';
    const char* end = literal.text.data() + literal.text.size();
    T value{};
    const auto status = std::from_chars(literal.text.data() + (hasPlus ? 1 : 0), end, value);
    if (status.ec != std::errc())
        _source.fail(literal.at,
                     literal.text + " is out of range for " + cimTypeToString(_type.type));
    if (status.ptr != end) misfit(literal);
    return value;
}

bool Converter::boolean(const Literal& literal) const {
    require(literal, Literal::Kind::Boolean);
    return literal.text == "TRUE";
}

Char16 Converter::character(const Literal& literal) const {
    require(literal, Literal::Kind::Character);
    const String text(literal.text.c_str());
    if (text.size() != 1) misfit(literal);
    return text[0];
}

template <class T>
T Converter::fromString(const Literal& literal) const {
    require(literal, Literal::Kind::String);
    return T(String(literal.text.c_str()));
}

template <class T>
T Converter::scalar(const Literal& literal) const {
    try {
        if constexpr (std::is_same_v<T, Boolean>)
            return boolean(literal);
        else if constexpr (std::is_same_v<T, Char16>)
            return character(literal);
        else if constexpr (std::is_integral_v<T>)
            return integer<T>(literal);
        else if constexpr (std::is_floating_point_v<T>)
            return real<T>(literal);
        else
            return fromString<T>(literal);
    } catch (const Exception& e) {
        _source.fail(literal.at, std::string(e.getMessage().getCString()));
    }
}

template <class T>
CIMValue Converter::make(const Initializer& initializer) const {
    if (!_type.isArray) return CIMValue(scalar<T>(initializer.items.front()));
    Array<T> values;
    for (const Literal& item : initializer.items) values.append(scalar<T>(item));
    if (_type.arraySize != 0 && values.size() != _type.arraySize)
        _source.fail(initializer.at,
                     "the array must have " + std::to_string(_type.arraySize) + " elements");
    return CIMValue(values);
}

CIMValue Converter::convert(const Initializer& initializer) const {
    if (initializer.isNull()) return CIMValue(_type.type, _type.isArray, _type.arraySize);
    if (initializer.isArray != _type.isArray)
        _source.fail(initializer.at, _type.isArray ? "expected an array in braces"
                                                   : "an array does not fit a scalar");
    return withType(_type.type, [&](auto tag) -> CIMValue {
        using T = typename decltype(tag)::Type;
        if constexpr (std::is_same_v<T, CIMObject> || std::is_same_v<T, CIMInstance>)
            _source.fail(initializer.at, "an embedded object can only be NULL");
        else
            return make<T>(initializer);
    });
}

}  // namespace

CIMValue toValue(const Source& source, const Initializer& initializer, ValueType type) {
    return Converter(source, type).convert(initializer);
}

}  // namespace cimserver

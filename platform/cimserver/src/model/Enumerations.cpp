// Names of the small types: status codes, value types, flavors, scopes.
#include <Pegasus/Common/CIMFlavor.h>
#include <Pegasus/Common/CIMScope.h>
#include <Pegasus/Common/CIMStatusCode.h>
#include <Pegasus/Common/CIMType.h>

#include <array>
#include <utility>

PEGASUS_NAMESPACE_BEGIN
namespace {

constexpr std::array<const char*, 29> statusNames{
    "CIM_ERR_SUCCESS",
    "CIM_ERR_FAILED",
    "CIM_ERR_ACCESS_DENIED",
    "CIM_ERR_INVALID_NAMESPACE",
    "CIM_ERR_INVALID_PARAMETER",
    "CIM_ERR_INVALID_CLASS",
    "CIM_ERR_NOT_FOUND",
    "CIM_ERR_NOT_SUPPORTED",
    "CIM_ERR_CLASS_HAS_CHILDREN",
    "CIM_ERR_CLASS_HAS_INSTANCES",
    "CIM_ERR_INVALID_SUPERCLASS",
    "CIM_ERR_ALREADY_EXISTS",
    "CIM_ERR_NO_SUCH_PROPERTY",
    "CIM_ERR_TYPE_MISMATCH",
    "CIM_ERR_QUERY_LANGUAGE_NOT_SUPPORTED",
    "CIM_ERR_INVALID_QUERY",
    "CIM_ERR_METHOD_NOT_AVAILABLE",
    "CIM_ERR_METHOD_NOT_FOUND",
    "empty",
    "empty",
    "CIM_ERR_NAMESPACE_NOT_EMPTY",
    "CIM_ERR_INVALID_ENUMERATION_CONTEXT",
    "CIM_ERR_INVALID_OPERATION_TIMEOUT",
    "CIM_ERR_PULL_HAS_BEEN_ABANDONED",
    "CIM_ERR_PULL_CANNOT_BE_ABANDONED",
    "CIM_ERR_FILTERED_ENUMERATION_NOT_SUPPORTED",
    "CIM_ERR_CONTINUATION_ON_ERROR_NOT_SUPPORTED",
    "CIM_ERR_SERVER_LIMITS_EXCEEDED",
    "CIM_ERR_SERVER_IS_SHUTTING_DOWN",
};

constexpr std::array<const char*, 17> typeNames{
    "boolean", "uint8",    "sint8",     "uint16", "sint16",   "uint32",
    "sint32",  "uint64",   "sint64",    "real32", "real64",   "char16",
    "string",  "datetime", "reference", "object", "instance",
};

template <class Number, std::size_t n>
const char* nameOf(Number number, const std::array<const char*, n>& names, const char* otherwise) {
    return number >= 0 && std::size_t(number) < n ? names[std::size_t(number)] : otherwise;
}

/// The names of the members, in the table's order, separated by blanks.
template <class IsMember, class Member, std::size_t n>
String namesOf(const std::pair<Member, const char*> (&table)[n], IsMember isMember) {
    String text;
    for (const auto& [member, name] : table) {
        if (isMember(member)) {
            text.append(text.size() == 0 ? "" : " ").append(name);
        }
    }
    return text;
}

}  // namespace

const char* cimStatusCodeToString(CIMStatusCode code) {
    return nameOf(Sint32(code), statusNames, "Unrecognized CIM status code");
}

const char* cimTypeToString(CIMType type) {
    return nameOf(Sint32(type), typeNames, "unknown");
}

const CIMFlavor CIMFlavor::NONE{0};
const CIMFlavor CIMFlavor::OVERRIDABLE{1};
const CIMFlavor CIMFlavor::ENABLEOVERRIDE{1};
const CIMFlavor CIMFlavor::TOSUBCLASS{2};
const CIMFlavor CIMFlavor::TOSUBELEMENTS{2};
const CIMFlavor CIMFlavor::DEFAULTS{1 | 2};
const CIMFlavor CIMFlavor::TOINSTANCE{4};
const CIMFlavor CIMFlavor::TRANSLATABLE{8};
const CIMFlavor CIMFlavor::DISABLEOVERRIDE{16};
const CIMFlavor CIMFlavor::RESTRICTED{32};

String CIMFlavor::toString() const {
    const std::pair<CIMFlavor, const char*> names[] = {
        {OVERRIDABLE, "OVERRIDABLE"},         {TOSUBCLASS, "TOSUBCLASS"},
        {TOINSTANCE, "TOINSTANCE"},           {TRANSLATABLE, "TRANSLATABLE"},
        {DISABLEOVERRIDE, "DISABLEOVERRIDE"}, {RESTRICTED, "RESTRICTED"},
    };
    return namesOf(names, [this](const CIMFlavor& flavor) { return hasFlavor(flavor); });
}

const CIMScope CIMScope::NONE{0};
const CIMScope CIMScope::CLASS{1};
const CIMScope CIMScope::ASSOCIATION{2};
const CIMScope CIMScope::INDICATION{4};
const CIMScope CIMScope::PROPERTY{8};
const CIMScope CIMScope::REFERENCE{16};
const CIMScope CIMScope::METHOD{32};
const CIMScope CIMScope::PARAMETER{64};
const CIMScope CIMScope::ANY{127};

String CIMScope::toString() const {
    const std::pair<CIMScope, const char*> names[] = {
        {CLASS, "CLASS"},         {ASSOCIATION, "ASSOCIATION"}, {INDICATION, "INDICATION"},
        {PROPERTY, "PROPERTY"},   {REFERENCE, "REFERENCE"},     {METHOD, "METHOD"},
        {PARAMETER, "PARAMETER"},
    };
    return namesOf(names, [this](const CIMScope& scope) { return hasScope(scope); });
}

PEGASUS_NAMESPACE_END

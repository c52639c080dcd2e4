#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Identity.h"
#include "Json.h"
#include "Text.h"

// What the readers of a scenario have in common: fields of one kind, with their complaints.
namespace qrvapi {

inline constexpr std::size_t nameLength = 31;
inline constexpr std::size_t noteLength = 256;
inline constexpr unsigned lastId = 0x7FFFFFFF;
/// Volume sets have a prefix where volumes are named.
inline constexpr std::size_t volumeSetNameLength = 27;

/// A string that is one of the words of a table, with what the word stands for.
template <class Meaning, std::size_t Size>
Meaning choice(const JsonValue& value, const std::pair<std::string_view, Meaning> (&table)[Size]) {
    const auto text = value.text(nameLength);
    std::string words;
    for (const auto& [word, meaning] : table) {
        if (word == text) return meaning;
        words += (words.empty() ? "\"" : ", \"") + std::string(word) + "\"";
    }
    value.fail("must be one of " + words);
}

inline constexpr std::pair<std::string_view, port_type_t> portTypes[] = {
    {"fc", PORT_TYPE_FC}, {"iscsi", PORT_TYPE_ISCSI}, {"sas", PORT_TYPE_SAS}};

void forEachMember(const JsonValue& object, std::string_view name,
                   const std::function<void(const JsonValue&)>& visit);
std::string optionalText(const JsonValue& object, std::string_view name, std::size_t longest);
/// 0 for a missing member.
std::uint64_t optionalNumber(const JsonValue& object, std::string_view name, std::uint64_t most);
bool optionalFlag(const JsonValue& object, std::string_view name, bool otherwise);
/// The names in a member; none for a missing one.
std::vector<std::string> readNames(const JsonValue& object, std::string_view name);

/// A set by the names of its members.
struct SetDefinition {
    std::string name;
    std::vector<std::string> members;
};

SetDefinition readSet(const JsonValue& value, std::size_t longestName);

/// Fills a text field of a record with a member; a missing member leaves it as it is.
template <std::size_t Size>
void fillText(char (&field)[Size], const JsonValue& object, std::string_view name) {
    if (const auto value = object.optionalMember(name)) copyText(field, value->text(Size - 1));
}

qrv_u64 readWwn(const JsonValue& value);
std::string readIscsiName(const JsonValue& value);
qrv_u32 readIpv4(const JsonValue& value);
lpid_t readPortId(const JsonValue& value);
/// A port of the list, for what may be without one.
lpid_t readOptionalPort(const JsonValue& object);
/// Exactly one of "wwn", "iscsiName" and "sasAddress".
Initiator readInitiator(const JsonValue& value);

}  // namespace qrvapi

#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <limits>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "Errors.h"

namespace qrvapi {

/// Parses a text in which no object has a member twice. Throws control::ScenarioError.
nlohmann::json parseJson(std::string_view text, const std::string& source);

/// A value together with its place, which every complaint about it names. Refers to the document
/// and must not outlive it.
class JsonValue {
  public:
    JsonValue(const nlohmann::json& document, const std::string& source);

    [[noreturn]] void fail(const std::string& complaint) const;

    /// Demands an object that has no members but these.
    void allowMembers(std::initializer_list<std::string_view> names) const;
    JsonValue member(std::string_view name) const;
    std::optional<JsonValue> optionalMember(std::string_view name) const;

    /// Demands an array and visits its elements.
    void forEach(const std::function<void(const JsonValue&)>& visit) const;

    /// A string of at most `longest` bytes without control characters.
    std::string text(std::size_t longest) const;
    std::string nonEmptyText(std::size_t longest) const;
    std::uint64_t number(std::uint64_t least, std::uint64_t most) const;
    bool flag() const;

    /// Does what the array may refuse, and makes a refusal a complaint about this value.
    template <class Change>
    auto attempt(Change&& change) const {
        try {
            return change();
        } catch (const Refusal& refusal) {
            fail(refusal.what());
        }
    }

  private:
    JsonValue(const nlohmann::json& value, std::string place, const std::string& source)
        : value_(&value), place_(std::move(place)), source_(&source) {}

    JsonValue child(const nlohmann::json& value, std::string_view name) const;
    void demand(bool holds, std::string_view type) const;

    const nlohmann::json* value_;
    std::string place_;
    const std::string* source_;
};

}  // namespace qrvapi

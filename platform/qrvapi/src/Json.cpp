#include "Json.h"

#include <algorithm>
#include <set>
#include <vector>

#include "qrvapi_control.h"

namespace qrvapi {
namespace {

using nlohmann::json;

/// One step of a JSON pointer.
std::string step(std::string_view name) {
    std::string result = "/";
    for (const char c : name) {
        if (c == '~' || c == '/') {
            result += c == '~' ? "~0" : "~1";
        } else {
            result += c;
        }
    }
    return result;
}

[[noreturn]] void complain(const std::string& source, const std::string& place,
                           const std::string& complaint) {
    throw control::ScenarioError(source + ": " + (place.empty() ? "" : place + ": ") + complaint);
}

/// Follows the parser, which itself would silently keep the last of equal members.
class DuplicateMembers {
  public:
    explicit DuplicateMembers(const std::string& source) : source_(source) {}

    bool operator()(int, json::parse_event_t event, const json& parsed) {
        switch (event) {
            case json::parse_event_t::object_start:
                open(false);
                break;
            case json::parse_event_t::array_start:
                open(true);
                break;
            case json::parse_event_t::key:
                enter(parsed.get_ref<const std::string&>());
                break;
            case json::parse_event_t::object_end:
            case json::parse_event_t::array_end:
                levels_.pop_back();
                [[fallthrough]];
            case json::parse_event_t::value:
                advance();
                break;
        }
        return true;
    }

  private:
    struct Level {
        bool isArray = false;
        std::size_t index = 0;
        std::string member;
        std::set<std::string> members;
    };

    void open(bool isArray) { levels_.push_back({isArray, 0, {}, {}}); }

    void advance() {
        if (!levels_.empty()) ++levels_.back().index;
    }

    void enter(const std::string& member) {
        auto& level = levels_.back();
        level.member = member;
        if (!level.members.insert(member).second) complain(source_, place(), "is given twice");
    }

    std::string place() const {
        std::string result;
        for (const auto& level : levels_) {
            result += step(level.isArray ? std::to_string(level.index) : level.member);
        }
        return result;
    }

    const std::string& source_;
    std::vector<Level> levels_;
};

/// The library's texts begin with a tag in brackets that tells the reader nothing.
std::string withoutTag(std::string_view text) {
    const auto end = text.find("] ");
    return std::string(end == text.npos ? text : text.substr(end + 2));
}

bool isControl(char c) {
    return (c >= '\0' && c < ' ') || c == '\x7f';
}

}  // namespace

json parseJson(std::string_view text, const std::string& source) {
    try {
        return json::parse(text, DuplicateMembers(source));
    } catch (const json::exception& error) {
        complain(source, "", withoutTag(error.what()));
    }
}

JsonValue::JsonValue(const json& document, const std::string& source)
    : JsonValue(document, std::string(), source) {}

void JsonValue::fail(const std::string& complaint) const {
    complain(*source_, place_, complaint);
}

void JsonValue::demand(bool holds, std::string_view type) const {
    if (!holds) fail("must be " + std::string(type) + ", not " + value_->type_name());
}

JsonValue JsonValue::child(const json& value, std::string_view name) const {
    return {value, place_ + step(name), *source_};
}

void JsonValue::allowMembers(std::initializer_list<std::string_view> names) const {
    demand(value_->is_object(), "an object");
    for (const auto& [name, value] : value_->items()) {
        if (std::find(names.begin(), names.end(), name) == names.end()) {
            child(value, name).fail("is not known here");
        }
    }
}

std::optional<JsonValue> JsonValue::optionalMember(std::string_view name) const {
    demand(value_->is_object(), "an object");
    const auto entry = value_->find(std::string(name));
    if (entry == value_->end()) return std::nullopt;
    return child(*entry, name);
}

JsonValue JsonValue::member(std::string_view name) const {
    auto found = optionalMember(name);
    if (!found) fail("\"" + std::string(name) + "\" is missing");
    return *std::move(found);
}

void JsonValue::forEach(const std::function<void(const JsonValue&)>& visit) const {
    demand(value_->is_array(), "an array");
    for (std::size_t index = 0; index < value_->size(); ++index) {
        visit(child((*value_)[index], std::to_string(index)));
    }
}

std::string JsonValue::text(std::size_t longest) const {
    demand(value_->is_string(), "a string");
    const auto& text = value_->get_ref<const std::string&>();
    if (text.size() > longest) {
        fail("is longer than " + std::to_string(longest) + " bytes");
    }
    if (std::any_of(text.begin(), text.end(), isControl)) fail("holds a control character");
    return text;
}

std::string JsonValue::nonEmptyText(std::size_t longest) const {
    auto result = text(longest);
    if (result.empty()) fail("must not be empty");
    return result;
}

std::uint64_t JsonValue::number(std::uint64_t least, std::uint64_t most) const {
    demand(value_->is_number(), "a whole number");
    const auto inRange = [&] {
        if (!value_->is_number_unsigned()) return false;
        const auto number = value_->get<std::uint64_t>();
        return number >= least && number <= most;
    };
    if (!inRange()) {
        fail("must be a whole number from " + std::to_string(least) + " to " +
             std::to_string(most));
    }
    return value_->get<std::uint64_t>();
}

bool JsonValue::flag() const {
    demand(value_->is_boolean(), "true or false");
    return value_->get<bool>();
}

}  // namespace qrvapi

// Language tags and the lists of them.
#include <Pegasus/Common/AcceptLanguageList.h>
#include <Pegasus/Common/ContentLanguageList.h>
#include <Pegasus/Common/Exception.h>
#include <Pegasus/Common/LanguageTag.h>

#include <algorithm>

PEGASUS_NAMESPACE_BEGIN
namespace {

[[noreturn]] void throwInvalid(const String& text) {
    throw Exception("Invalid language tag \"" + text + "\".");
}

std::vector<String> partsOf(const String& text) {
    std::vector<String> parts;
    Uint32 begin = 0;
    for (Uint32 dash; (dash = text.find(begin, '-')) != PEG_NOT_FOUND; begin = dash + 1) {
        parts.push_back(text.subString(begin, dash - begin));
    }
    parts.push_back(text.subString(begin));
    return parts;
}

constexpr bool isLetter(Uint16 unit) {
    return (unit | 0x20) >= 'a' && (unit | 0x20) <= 'z';
}
constexpr bool isDigit(Uint16 unit) {
    return unit >= '0' && unit <= '9';
}

bool isPart(const String& part, bool mayHaveDigits) {
    const Char16* const text = part.getChar16Data();
    return part.size() >= 1 && part.size() <= 8 &&
           std::all_of(text, text + part.size(), [&](Uint16 unit) {
               return isLetter(unit) || (mayHaveDigits && isDigit(unit));
           });
}

/// Whether the tag is of a registry of its own, where parts have no meaning of language or country.
bool isOwnRegistry(const String& first) {
    return first == "i" || first == "x";
}

bool isTag(const std::vector<String>& parts) {
    const Uint32 firstSize = parts[0].size();
    const bool firstFits = firstSize == 2 || firstSize == 3 || isOwnRegistry(parts[0]);
    return firstFits && isPart(parts[0], false) &&
           std::all_of(parts.begin() + 1, parts.end(),
                       [](const String& part) { return isPart(part, true); }) &&
           (parts.size() == 1 || parts[1].size() != 1);
}

/// The parts, but none for "*" and for tags of a registry of their own.
std::vector<String> meaningfulParts(const String& text) {
    std::vector<String> parts = partsOf(text);
    return text == "*" || isOwnRegistry(parts[0]) ? std::vector<String>() : parts;
}

bool hasCountry(const std::vector<String>& parts) {
    return parts.size() > 1 && parts[1].size() == 2;
}

template <class List>
void checkIndex(const List& list, Uint32 index) {
    if (index >= list.size()) {
        throwIndexOutOfBounds();
    }
}

}  // namespace

LanguageTag::LanguageTag(const String& text) : _text(text) {
    if (text != "*" && !isTag(partsOf(text))) {
        throwInvalid(text);
    }
}

const String& LanguageTag::text() const {
    if (_text.size() == 0) {
        throw UninitializedObjectException();
    }
    return _text;
}

String LanguageTag::getLanguage() const {
    const std::vector<String> parts = meaningfulParts(text());
    return parts.empty() ? String() : parts[0];
}

String LanguageTag::getCountry() const {
    const std::vector<String> parts = meaningfulParts(text());
    return hasCountry(parts) ? parts[1] : String();
}

String LanguageTag::getVariant() const {
    const std::vector<String> parts = meaningfulParts(text());
    String variant;
    for (std::size_t i = hasCountry(parts) ? 2 : 1; i < parts.size(); ++i) {
        variant.append(variant.size() == 0 ? "" : "-").append(parts[i]);
    }
    return variant;
}

String LanguageTag::toString() const {
    return text();
}

Boolean LanguageTag::operator==(const LanguageTag& other) const {
    return String::equalNoCase(text(), other.text());
}

const AcceptLanguageList::Entry& AcceptLanguageList::entry(Uint32 index) const {
    checkIndex(*this, index);
    return _entries[index];
}

LanguageTag AcceptLanguageList::getLanguageTag(Uint32 index) const {
    return entry(index).tag;
}

Real32 AcceptLanguageList::getQualityValue(Uint32 index) const {
    return entry(index).quality;
}

void AcceptLanguageList::insert(const LanguageTag& languageTag, Real32 qualityValue) {
    if (!(qualityValue >= 0 && qualityValue <= 1)) {
        throw Exception("AcceptLanguage contains an invalid quality value");
    }
    const auto place = std::find_if(_entries.begin(), _entries.end(), [&](const Entry& present) {
        return present.quality < qualityValue;
    });
    _entries.insert(place, Entry{languageTag, qualityValue});
}

void AcceptLanguageList::remove(Uint32 index) {
    checkIndex(*this, index);
    _entries.erase(_entries.begin() + index);
}

Uint32 AcceptLanguageList::find(const LanguageTag& languageTag) const {
    const auto found = std::find_if(_entries.begin(), _entries.end(),
                                    [&](const Entry& entry) { return entry.tag == languageTag; });
    return found == _entries.end() ? PEG_NOT_FOUND : Uint32(found - _entries.begin());
}

Boolean AcceptLanguageList::operator==(const AcceptLanguageList& other) const {
    return std::equal(_entries.begin(), _entries.end(), other._entries.begin(),
                      other._entries.end(), [](const Entry& x, const Entry& y) {
                          return x.tag == y.tag && !(x.quality < y.quality) &&
                                 !(y.quality < x.quality);
                      });
}

LanguageTag ContentLanguageList::getLanguageTag(Uint32 index) const {
    checkIndex(*this, index);
    return _tags[index];
}

void ContentLanguageList::append(const LanguageTag& languageTag) {
    if (languageTag.toString() == "*") {
        throwInvalid(languageTag.toString());
    }
    _tags.push_back(languageTag);
}

void ContentLanguageList::remove(Uint32 index) {
    checkIndex(*this, index);
    _tags.erase(_tags.begin() + index);
}

Uint32 ContentLanguageList::find(const LanguageTag& languageTag) const {
    const auto found = std::find(_tags.begin(), _tags.end(), languageTag);
    return found == _tags.end() ? PEG_NOT_FOUND : Uint32(found - _tags.begin());
}

PEGASUS_NAMESPACE_END

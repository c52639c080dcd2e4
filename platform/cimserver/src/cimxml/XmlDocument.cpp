#include "cimxml/XmlDocument.h"

#include "cimxml/ControlMarks.h"
#include "cimxml/Utf8.h"

#include <expat.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <new>
#include <vector>

namespace cimserver {

namespace {

struct FreeParser {
    void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
};
using Parser = std::unique_ptr<XML_ParserStruct, FreeParser>;

bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

bool isBlank(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return isBlank(c); });
}

constexpr std::string_view kBlanks = " \t\r\n";

// What is left of a text without the bytes at its ends that are among these.
std::string_view trimmed(std::string_view text, std::string_view front, std::string_view back) {
    text.remove_prefix(std::min(text.find_first_not_of(front), text.size()));
    return text.substr(0, text.find_last_not_of(back) + 1);
}

Refusal notWellFormed(XML_Parser parser) {
    return Refusal(400, kNotWellFormed,
                   "line " + std::to_string(XML_GetCurrentLineNumber(parser)) + ": " +
                       XML_ErrorString(XML_GetErrorCode(parser)));
}

std::string quoted(std::string_view name) {
    return '"' + std::string(name) + '"';
}

}  // namespace

// Expat is C: what a handler throws is kept until the parser has returned.
class XmlDocument::Builder {
  public:
    Builder(XmlDocument& document, std::string_view text, const XmlLimits& limits, bool marked)
        : _document(document),
          _text(text),
          _limits(limits),
          _parser(XML_ParserCreate("UTF-8")),
          _marked(marked) {
        if (!_parser) throw std::bad_alloc();
        XML_SetUserData(_parser.get(), this);
        XML_SetElementHandler(_parser.get(), &Builder::onStart, &Builder::onEnd);
        XML_SetCharacterDataHandler(_parser.get(), &Builder::onText);
        XML_SetCdataSectionHandler(_parser.get(), &Builder::onCdata, &Builder::onCdataEnd);
        XML_SetXmlDeclHandler(_parser.get(), &Builder::onDeclaration);
        XML_SetStartDoctypeDeclHandler(_parser.get(), &Builder::onDoctype);
    }

    // Whether the text is XML; what it holds in spite of that is a Refusal.
    bool run() {
        const auto status =
            XML_Parse(_parser.get(), _text.data(), static_cast<int>(_text.size()), XML_TRUE);
        if (_failure) std::rethrow_exception(_failure);
        return status == XML_STATUS_OK;
    }

    Refusal failure() const { return notWellFormed(_parser.get()); }

    bool hitsCharacter() const {
        const XML_Error error = XML_GetErrorCode(_parser.get());
        return error == XML_ERROR_INVALID_TOKEN || error == XML_ERROR_BAD_CHAR_REF;
    }

  private:
    struct Open {
        XmlElement* element;
        XmlElement* lastChild;
    };

    template <class Action>
    static void guard(void* self, Action action) {
        auto& builder = *static_cast<Builder*>(self);
        if (builder._failure) return;
        try {
            action(builder);
        } catch (...) {
            builder._failure = std::current_exception();
            XML_StopParser(builder._parser.get(), XML_FALSE);
        }
    }

    static void onStart(void* self, const char* name, const char** attributes) {
        guard(self, [&](Builder& b) { b.start(name, attributes); });
    }
    static void onEnd(void* self, const char*) {
        guard(self, [](Builder& b) { b.end(); });
    }
    static void onText(void* self, const char* text, int length) {
        guard(self, [&](Builder& b) { b.add({text, static_cast<std::size_t>(length)}); });
    }
    static void onCdata(void* self) {
        guard(self, [](Builder& b) { b._inCdata = true; });
    }
    static void onCdataEnd(void* self) {
        guard(self, [](Builder& b) { b._inCdata = false; });
    }
    static void onDeclaration(void* self, const char*, const char*, int) {
        guard(self, [](Builder& b) { b._document._declared = true; });
    }
    static void onDoctype(void* self, const char*, const char*, const char*, int) {
        guard(self,
              [](Builder&) { throw notValid("document type declarations are not accepted"); });
    }

    void start(std::string_view name, const char** attributes) {
        refuseMixedContent();
        checkRoomFor(name);
        XmlElement* element = make<XmlElement>(1);
        element->name = copy(name);
        readAttributes(*element, attributes);
        attach(element);
        _open.push_back({element, nullptr});
    }

    void checkRoomFor(std::string_view name) {
        if (_open.size() >= _limits.depth) throw notValid("elements are nested too deeply");
        if (++_elements > _limits.elements) {
            throw Refusal(400, "request-with-too-many-elements",
                          "more than " + std::to_string(_limits.elements) + " elements");
        }
        checkLength(name, _limits.attributeBytes, "element name");
    }

    static void checkLength(std::string_view text, std::size_t limit, const char* what) {
        if (text.size() <= limit) return;
        throw notValid(std::string(what) + " longer than " + std::to_string(limit) + " bytes");
    }

    void readAttributes(XmlElement& element, const char** attributes) {
        std::size_t count = 0;
        while (attributes[2 * count]) ++count;
        if (count > _limits.attributes) {
            throw notValid("element " + quoted(element.name) + " has too many attributes");
        }
        XmlAttribute* copies = make<XmlAttribute>(count);
        for (std::size_t i = 0; i < count; ++i) {
            checkLength(attributes[2 * i + 1], _limits.attributeBytes, "attribute value");
            copies[i] = {copy(attributes[2 * i]),
                         copy(trimmed(attributes[2 * i + 1], kBlanks, kBlanks))};
        }
        element.attributes = copies;
        element.attributeCount = count;
    }

    void attach(XmlElement* element) {
        if (_open.empty()) {
            _document._root = element;
            return;
        }
        Open& parent = _open.back();
        (parent.lastChild ? parent.lastChild->nextSibling : parent.element->firstChild) = element;
        parent.lastChild = element;
    }

    void end() {
        if (_open.back().lastChild) {
            refuseMixedContent();
        } else {
            _open.back().element->text = copy({_content.data(), _kept});
        }
        clearText();
        _open.pop_back();
    }

    void refuseMixedContent() {
        if (_kept != 0)
            throw notValid("text beside an element in " + quoted(_open.back().element->name));
        clearText();
    }

    void clearText() {
        _content.clear();
        _kept = 0;
    }

    // Raw blanks at the edges of the text fall away; _kept is the length up to the last byte that
    // counts.
    void add(std::string_view text) {
        if (_content.size() + text.size() > _limits.textBytes) {
            throw notValid("text longer than " + std::to_string(_limits.textBytes) + " bytes");
        }
        const bool counts = isProtected() || !isBlank(text);
        if (!counts && _kept == 0) return;
        if (_kept == 0 && !isProtected()) text.remove_prefix(leadingBlanks(text));
        _content.append(text);
        if (counts) _kept = _content.size() - (isProtected() ? 0 : trailingBlanks(text));
    }

    bool isProtected() const {
        const auto position = static_cast<std::size_t>(XML_GetCurrentByteIndex(_parser.get()));
        return _inCdata || (position < _text.size() && _text[position] == '&');
    }

    static std::size_t leadingBlanks(std::string_view text) {
        return text.find_first_not_of(kBlanks);
    }

    static std::size_t trailingBlanks(std::string_view text) {
        return text.size() - 1 - text.find_last_not_of(kBlanks);
    }

    std::string_view copy(std::string_view text) {
        if (text.empty()) return {};
        auto* bytes = static_cast<char*>(_document._arena.allocate(text.size(), 1));
        if (_marked) return {bytes, writeWithoutMarks(text, bytes)};
        std::memcpy(bytes, text.data(), text.size());
        return {bytes, text.size()};
    }

    template <class T>
    T* make(std::size_t count) {
        static_assert(std::is_trivially_destructible_v<T>, "the arena destroys nothing");
        auto* place = static_cast<T*>(_document._arena.allocate(sizeof(T) * count, alignof(T)));
        std::uninitialized_value_construct_n(place, count);
        return place;
    }

    XmlDocument& _document;
    std::string_view _text;
    const XmlLimits& _limits;
    Parser _parser;
    bool _marked;
    std::exception_ptr _failure;
    std::vector<Open> _open;
    std::size_t _elements = 0;
    std::string _content;
    std::size_t _kept = 0;
    bool _inCdata = false;
};

XmlDocument::XmlDocument(std::string_view text, const XmlLimits& limits) {
    if (!isUtf8(text)) throw notValid("the text is not UTF-8");
    text = trimmed(text, kBlanks, {" \t\r\n\0", 5});
    if (text.empty()) throw notValid("the text is empty");
    Builder plain(*this, text, limits, false);
    if (plain.run()) return;
    const auto marked = plain.hitsCharacter() ? withMarks(text) : std::nullopt;
    if (!marked) throw plain.failure();
    Builder again(*this, *marked, limits, true);
    if (!again.run()) throw again.failure();
}

std::optional<std::string_view> XmlElement::attribute(std::string_view wanted) const {
    for (std::size_t i = 0; i < attributeCount; ++i) {
        if (attributes[i].name == wanted) return attributes[i].value;
    }
    return std::nullopt;
}

std::string_view XmlElement::requiredAttribute(std::string_view wanted) const {
    if (const auto value = attribute(wanted)) return *value;
    throw notValid("element " + quoted(name) + " lacks the attribute " + quoted(wanted));
}

const XmlElement* XmlCursor::take(std::string_view name) {
    if (!_next || _next->name != name) return nullptr;
    const XmlElement* taken = _next;
    _next = taken->nextSibling;
    return taken;
}

const XmlElement& XmlCursor::expect(std::string_view name) {
    if (const XmlElement* element = take(name)) return *element;
    throw notValid("element " + quoted(name) + " expected in " + quoted(_parent.name));
}

const XmlElement& XmlCursor::expectAny(std::string_view wanted) {
    if (!_next) throw notValid(std::string(wanted) + " expected in " + quoted(_parent.name));
    return *take(_next->name);
}

void XmlCursor::end() const {
    if (_next)
        throw notValid("unexpected element " + quoted(_next->name) + " in " + quoted(_parent.name));
}

}  // namespace cimserver

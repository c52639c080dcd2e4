// A small XML document as a tree of elements.
#pragma once

#include "cimxml/Refusal.h"

#include <cstddef>
#include <memory_resource>
#include <optional>
#include <string>
#include <string_view>

namespace cimserver {

/// What a document may use of this server. Whatever passes a limit is refused while it is read.
struct XmlLimits {
    std::size_t depth = 64;                 ///< elements within elements
    std::size_t elements = 100'000;         ///< elements of the document
    std::size_t attributes = 16;            ///< attributes of one element
    std::size_t attributeBytes = 64 << 10;  ///< length of one attribute's value
    std::size_t textBytes = 4 << 20;        ///< character data of one element
};

struct XmlAttribute {
    std::string_view name;
    std::string_view value;
};

/// One element. Everything it points to lives in its document.
struct XmlElement {
    std::string_view name;
    std::string_view
        text;  ///< without leading and trailing blanks, unless they came as references or CDATA
    const XmlAttribute* attributes = nullptr;
    std::size_t attributeCount = 0;
    const XmlElement* firstChild = nullptr;
    const XmlElement* nextSibling = nullptr;

    std::optional<std::string_view> attribute(std::string_view wanted) const;

    /// The attribute's value; throws Refusal when it is not there.
    std::string_view requiredAttribute(std::string_view wanted) const;
};

/// Parses UTF-8 XML without document type declarations. Blanks before and behind the document and
/// at the ends of attributes are ignored, NULs behind it as well; control characters count as any
/// other character. Text that is not well formed is a Refusal "request-not-well-formed"; wrong
/// UTF-8, a document type, text beside elements or a passed limit is "request-not-valid" (too many
/// elements: "request-with-too-many-elements").
class XmlDocument {
  public:
    XmlDocument(std::string_view text, const XmlLimits& limits);
    XmlDocument(const XmlDocument&) = delete;
    XmlDocument& operator=(const XmlDocument&) = delete;

    const XmlElement& root() const { return *_root; }

    /// Whether the document begins with an XML declaration.
    bool declared() const { return _declared; }

  private:
    class Builder;

    std::pmr::monotonic_buffer_resource _arena;
    const XmlElement* _root = nullptr;
    bool _declared = false;
};

/// Reads an element's children in the order a grammar names them.
class XmlCursor {
  public:
    explicit XmlCursor(const XmlElement& parent) : _parent(parent), _next(parent.firstChild) {}

    /// The next child, which stays the next one; null at the end.
    const XmlElement* peek() const { return _next; }

    /// Takes the next child if that is its name, else gives null and takes nothing.
    const XmlElement* take(std::string_view name);

    /// Takes the next child; throws Refusal when it has another name or is missing.
    const XmlElement& expect(std::string_view name);

    /// Takes the next child; throws Refusal with `wanted` in the text when there is none.
    const XmlElement& expectAny(std::string_view wanted);

    /// Throws Refusal when a child is left.
    void end() const;

  private:
    const XmlElement& _parent;
    const XmlElement* _next;
};

}  // namespace cimserver

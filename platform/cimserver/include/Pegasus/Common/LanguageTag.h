// The name of a natural language.
#pragma once

#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Linkage.h>
#include <Pegasus/Common/String.h>

PEGASUS_NAMESPACE_BEGIN

/// A language tag such as "en-US-boont", or "*" for any language. A value.
class PEGASUS_COMMON_LINKAGE LanguageTag {
  public:
    /// A tag that names nothing; all but assignment throws UninitializedObjectException.
    LanguageTag() = default;

    /// Throws an Exception that names the text when it is no language tag.
    LanguageTag(const String& text);

    /// The tag's first part. Empty, as country and variant are, for "*" and for tags of the
    /// registries "i" and "x".
    String getLanguage() const;

    /// The second part when it has two characters, else empty.
    String getCountry() const;

    /// All that follows the language and the country.
    String getVariant() const;

    String toString() const;

    /// Ignores case.
    Boolean operator==(const LanguageTag& other) const;
    Boolean operator!=(const LanguageTag& other) const { return !(*this == other); }

  private:
    const String& text() const;

    String _text;
};

PEGASUS_NAMESPACE_END

// The languages a text is written in.
#pragma once

#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/LanguageTag.h>
#include <Pegasus/Common/Linkage.h>

#include <vector>

PEGASUS_NAMESPACE_BEGIN

/// Language tags in order. A value. An index out of range throws IndexOutOfBoundsException.
class PEGASUS_COMMON_LINKAGE ContentLanguageList {
  public:
    Uint32 size() const noexcept { return Uint32(_tags.size()); }
    LanguageTag getLanguageTag(Uint32 index) const;

    /// The tag "*" throws an Exception: a text has a language.
    void append(const LanguageTag& languageTag);
    void remove(Uint32 index);

    /// The tag's index or PEG_NOT_FOUND.
    Uint32 find(const LanguageTag& languageTag) const;
    void clear() noexcept { _tags.clear(); }

    Boolean operator==(const ContentLanguageList& other) const { return _tags == other._tags; }
    Boolean operator!=(const ContentLanguageList& other) const { return !(*this == other); }

  private:
    std::vector<LanguageTag> _tags;
};

PEGASUS_NAMESPACE_END

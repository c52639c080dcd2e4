// The languages a client understands.
#pragma once

#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/LanguageTag.h>
#include <Pegasus/Common/Linkage.h>

#include <vector>

PEGASUS_NAMESPACE_BEGIN

/// Language tags with a quality from 0 to 1, best first; equals stay in the order of insertion. A
/// value. An index out of range throws IndexOutOfBoundsException.
class PEGASUS_COMMON_LINKAGE AcceptLanguageList {
  public:
    Uint32 size() const noexcept { return Uint32(_entries.size()); }
    LanguageTag getLanguageTag(Uint32 index) const;
    Real32 getQualityValue(Uint32 index) const;

    /// A quality outside of 0 to 1 throws an Exception.
    void insert(const LanguageTag& languageTag, Real32 qualityValue);
    void remove(Uint32 index);

    /// The tag's index or PEG_NOT_FOUND.
    Uint32 find(const LanguageTag& languageTag) const;
    void clear() noexcept { _entries.clear(); }

    Boolean operator==(const AcceptLanguageList& other) const;
    Boolean operator!=(const AcceptLanguageList& other) const { return !(*this == other); }

  private:
    struct Entry {
        LanguageTag tag;
        Real32 quality;
    };
    const Entry& entry(Uint32 index) const;

    std::vector<Entry> _entries;
};

PEGASUS_NAMESPACE_END

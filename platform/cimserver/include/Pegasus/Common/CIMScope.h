// What a qualifier may stand on.
#pragma once

#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Linkage.h>
#include <Pegasus/Common/String.h>

PEGASUS_NAMESPACE_BEGIN

/// A set of kinds of elements. A value.
class PEGASUS_COMMON_LINKAGE CIMScope {
  public:
    static const CIMScope NONE;
    static const CIMScope CLASS;
    static const CIMScope ASSOCIATION;
    static const CIMScope INDICATION;
    static const CIMScope PROPERTY;
    static const CIMScope REFERENCE;
    static const CIMScope METHOD;
    static const CIMScope PARAMETER;
    static const CIMScope ANY;  ///< all of them

    /// NONE.
    constexpr CIMScope() noexcept = default;

    /// Whether all kinds of `scope` are in this set.
    Boolean hasScope(const CIMScope& scope) const noexcept {
        return (_bits & scope._bits) == scope._bits;
    }
    void addScope(const CIMScope& scope) noexcept { _bits |= scope._bits; }
    Boolean equal(const CIMScope& scope) const noexcept { return _bits == scope._bits; }
    CIMScope operator+(const CIMScope& scope) const noexcept {
        return CIMScope(_bits | scope._bits);
    }

    /// The kinds, separated by blanks.
    String toString() const;

  private:
    constexpr explicit CIMScope(Uint32 bits) noexcept : _bits(bits) {}

    Uint32 _bits = 0;
};

PEGASUS_NAMESPACE_END

// How qualifiers pass on.
#pragma once

#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Linkage.h>
#include <Pegasus/Common/String.h>

PEGASUS_NAMESPACE_BEGIN

/// A set of qualifier flavors. A value.
class PEGASUS_COMMON_LINKAGE CIMFlavor {
  public:
    static const CIMFlavor NONE;
    static const CIMFlavor OVERRIDABLE;
    static const CIMFlavor ENABLEOVERRIDE;  ///< the same as OVERRIDABLE
    static const CIMFlavor DISABLEOVERRIDE;
    static const CIMFlavor TOSUBCLASS;
    static const CIMFlavor TOSUBELEMENTS;  ///< the same as TOSUBCLASS
    static const CIMFlavor RESTRICTED;
    static const CIMFlavor TOINSTANCE;
    static const CIMFlavor TRANSLATABLE;
    static const CIMFlavor DEFAULTS;  ///< OVERRIDABLE and TOSUBCLASS

    /// NONE.
    constexpr CIMFlavor() noexcept = default;

    void addFlavor(const CIMFlavor& flavor) noexcept { _bits |= flavor._bits; }
    void removeFlavor(const CIMFlavor& flavor) noexcept { _bits &= ~flavor._bits; }

    /// Whether all flavors of `flavor` are in this set.
    Boolean hasFlavor(const CIMFlavor& flavor) const noexcept {
        return (_bits & flavor._bits) == flavor._bits;
    }
    Boolean equal(const CIMFlavor& flavor) const noexcept { return _bits == flavor._bits; }
    CIMFlavor operator+(const CIMFlavor& flavor) const noexcept {
        return CIMFlavor(_bits | flavor._bits);
    }

    /// The flavors as MOF writes them, separated by blanks.
    String toString() const;

  private:
    constexpr explicit CIMFlavor(Uint32 bits) noexcept : _bits(bits) {}

    Uint32 _bits = 0;
};

PEGASUS_NAMESPACE_END

// Declarations of qualifiers.
#pragma once

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMFlavor.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMScope.h>
#include <Pegasus/Common/CIMType.h>
#include <Pegasus/Common/CIMValue.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Linkage.h>
#include <Pegasus/Common/SharedRep.h>

namespace cimserver {
class QualifierDeclRep;
}

PEGASUS_NAMESPACE_BEGIN

class CIMQualifierDecl;

/// Read access to the declaration of a qualifier: a shared handle.
///
/// Every function but isUninitialized() throws UninitializedObjectException on a handle that was
/// default-constructed.
class PEGASUS_COMMON_LINKAGE CIMConstQualifierDecl {
  public:
    CIMConstQualifierDecl();
    CIMConstQualifierDecl(const CIMConstQualifierDecl& x);
    CIMConstQualifierDecl(CIMConstQualifierDecl&& x) noexcept;

    /// TOSUBCLASS is set unless RESTRICTED is, and ENABLEOVERRIDE unless DISABLEOVERRIDE is.
    /// @throws UninitializedObjectException for a null name
    CIMConstQualifierDecl(const CIMName& name, const CIMValue& value, const CIMScope& scope,
                          const CIMFlavor& flavor = CIMFlavor(CIMFlavor::DEFAULTS),
                          Uint32 arraySize = 0);
    ~CIMConstQualifierDecl();
    CIMConstQualifierDecl& operator=(const CIMConstQualifierDecl& x);
    CIMConstQualifierDecl& operator=(CIMConstQualifierDecl&& x) noexcept;

    const CIMName& getName() const;
    CIMType getType() const;
    Boolean isArray() const;

    /// The value of a qualifier that is given without one.
    const CIMValue& getValue() const;

    const CIMScope& getScope() const;
    const CIMFlavor& getFlavor() const;
    Uint32 getArraySize() const;

    Boolean isUninitialized() const { return !_rep; }

    Boolean identical(const CIMConstQualifierDecl& x) const;

    /// A copy that nobody shares.
    CIMQualifierDecl clone() const;

  protected:
    friend struct cimserver::Access;
    explicit CIMConstQualifierDecl(cimserver::Ref<cimserver::QualifierDeclRep> rep);

    cimserver::Ref<cimserver::QualifierDeclRep> _rep;
};

/// Declares a qualifier: its type, default value, where it may stand and how it is inherited.
class PEGASUS_COMMON_LINKAGE CIMQualifierDecl : public CIMConstQualifierDecl {
  public:
    using CIMConstQualifierDecl::CIMConstQualifierDecl;
    CIMQualifierDecl() = default;

    /// @throws UninitializedObjectException for a null name
    void setName(const CIMName& name);
    void setValue(const CIMValue& value);

  private:
    friend struct cimserver::Access;
};

extern template class Array<CIMQualifierDecl>;

PEGASUS_NAMESPACE_END

// Annotations of classes, properties, methods and parameters.
#pragma once

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMFlavor.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMType.h>
#include <Pegasus/Common/CIMValue.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Linkage.h>
#include <Pegasus/Common/SharedRep.h>

namespace cimserver {
class QualifierRep;
}

PEGASUS_NAMESPACE_BEGIN

class CIMQualifier;

/// Read access to a qualifier: a shared handle, whose copies all show the same qualifier.
///
/// Every function but isUninitialized() throws UninitializedObjectException on a handle that was
/// default-constructed.
class PEGASUS_COMMON_LINKAGE CIMConstQualifier {
  public:
    CIMConstQualifier();
    CIMConstQualifier(const CIMConstQualifier& x);
    CIMConstQualifier(CIMConstQualifier&& x) noexcept;
    /// @throws UninitializedObjectException for a null name
    CIMConstQualifier(const CIMName& name, const CIMValue& value,
                      const CIMFlavor& flavor = CIMFlavor(CIMFlavor::NONE),
                      Boolean propagated = false);
    ~CIMConstQualifier();
    CIMConstQualifier& operator=(const CIMConstQualifier& x);
    CIMConstQualifier& operator=(CIMConstQualifier&& x) noexcept;

    const CIMName& getName() const;
    CIMType getType() const;
    Boolean isArray() const;
    const CIMValue& getValue() const;
    const CIMFlavor& getFlavor() const;

    /// 1 if inherited from a superclass, otherwise 0.
    Uint32 getPropagated() const;

    Boolean isUninitialized() const { return !_rep; }

    /// Whether name (ignoring case), value, flavor and propagated flag are equal.
    Boolean identical(const CIMConstQualifier& x) const;

    /// A copy that nobody shares.
    CIMQualifier clone() const;

  protected:
    friend struct cimserver::Access;
    explicit CIMConstQualifier(cimserver::Ref<cimserver::QualifierRep> rep);

    cimserver::Ref<cimserver::QualifierRep> _rep;
};

/// A named, typed annotation of a class, property, method or parameter: a shared handle, a change
/// through which all other handles of the qualifier see.
class PEGASUS_COMMON_LINKAGE CIMQualifier : public CIMConstQualifier {
  public:
    using CIMConstQualifier::CIMConstQualifier;
    CIMQualifier() = default;

    /// @throws UninitializedObjectException for a null name
    /// @throws Exception for another name than the present one (ignoring case) while the qualifier
    ///     is part of something
    void setName(const CIMName& name);

    void setValue(const CIMValue& value);

    /// Adds the flavors to those that are set.
    void setFlavor(const CIMFlavor& flavor);
    /// Removes the flavors from those that are set.
    void unsetFlavor(const CIMFlavor& flavor);

    void setPropagated(Boolean propagated);

  private:
    friend struct cimserver::Access;
};

extern template class Array<CIMQualifier>;

PEGASUS_NAMESPACE_END

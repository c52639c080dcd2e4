// Declarations of the parameters of methods.
#pragma once

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMQualifier.h>
#include <Pegasus/Common/CIMType.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Linkage.h>
#include <Pegasus/Common/SharedRep.h>

namespace cimserver {
class ParameterRep;
}

PEGASUS_NAMESPACE_BEGIN

class CIMParameter;

/// Read access to the declaration of a method's parameter: a shared handle.
///
/// Every function but isUninitialized() throws UninitializedObjectException on a handle that was
/// default-constructed.
class PEGASUS_COMMON_LINKAGE CIMConstParameter {
  public:
    CIMConstParameter();
    CIMConstParameter(const CIMConstParameter& x);
    CIMConstParameter(CIMConstParameter&& x) noexcept;

    /// @throws UninitializedObjectException for a null name
    /// @throws TypeMismatchException for a reference without a class, a class without a reference,
    ///     and a size without an array
    CIMConstParameter(const CIMName& name, CIMType type, Boolean isArray = false,
                      Uint32 arraySize = 0, const CIMName& referenceClassName = CIMName());
    ~CIMConstParameter();
    CIMConstParameter& operator=(const CIMConstParameter& x);
    CIMConstParameter& operator=(CIMConstParameter&& x) noexcept;

    const CIMName& getName() const;
    Boolean isArray() const;
    Uint32 getArraySize() const;
    const CIMName& getReferenceClassName() const;
    CIMType getType() const;

    /// The index of the qualifier, ignoring case, or PEG_NOT_FOUND.
    Uint32 findQualifier(const CIMName& name) const;
    /// @throws IndexOutOfBoundsException
    CIMConstQualifier getQualifier(Uint32 index) const;
    Uint32 getQualifierCount() const;

    Boolean isUninitialized() const { return !_rep; }

    Boolean identical(const CIMConstParameter& x) const;

    /// A copy that nobody shares.
    CIMParameter clone() const;

  protected:
    friend struct cimserver::Access;
    explicit CIMConstParameter(cimserver::Ref<cimserver::ParameterRep> rep);

    cimserver::Ref<cimserver::ParameterRep> _rep;
};

/// The declaration of a method's parameter: a shared handle.
class PEGASUS_COMMON_LINKAGE CIMParameter : public CIMConstParameter {
  public:
    using CIMConstParameter::CIMConstParameter;
    CIMParameter() = default;

    /// @throws UninitializedObjectException for a null name
    /// @throws Exception for another name than the present one (ignoring case) while the parameter
    ///     is part of a method
    void setName(const CIMName& name);

    /// Adds the qualifier itself, not a copy of it.
    /// @throws AlreadyExistsException if there is one of this name, ignoring case
    /// @throws UninitializedObjectException
    CIMParameter& addQualifier(const CIMQualifier& x);

    using CIMConstParameter::getQualifier;
    /// The qualifier itself: what is changed through the handle is changed in this parameter.
    /// @throws IndexOutOfBoundsException
    CIMQualifier getQualifier(Uint32 index);
    /// @throws IndexOutOfBoundsException
    void removeQualifier(Uint32 index);

  private:
    friend struct cimserver::Access;
};

extern template class Array<CIMParameter>;

PEGASUS_NAMESPACE_END

// Declarations of methods.
#pragma once

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMParameter.h>
#include <Pegasus/Common/CIMQualifier.h>
#include <Pegasus/Common/CIMType.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Linkage.h>
#include <Pegasus/Common/SharedRep.h>
#include <Pegasus/Common/String.h>

namespace cimserver {
class MethodRep;
}

PEGASUS_NAMESPACE_BEGIN

class CIMMethod;

/// Read access to the declaration of a method: a shared handle.
///
/// Every function but isUninitialized() throws UninitializedObjectException on a handle that was
/// default-constructed.
class PEGASUS_COMMON_LINKAGE CIMConstMethod {
  public:
    CIMConstMethod();
    CIMConstMethod(const CIMConstMethod& x);
    CIMConstMethod(CIMConstMethod&& x) noexcept;
    /// @throws UninitializedObjectException for a null name
    CIMConstMethod(const CIMName& name, CIMType type, const CIMName& classOrigin = CIMName(),
                   Boolean propagated = false);
    ~CIMConstMethod();
    CIMConstMethod& operator=(const CIMConstMethod& x);
    CIMConstMethod& operator=(CIMConstMethod&& x) noexcept;

    const CIMName& getName() const;

    /// The type of what the method returns.
    CIMType getType() const;
    const CIMName& getClassOrigin() const;
    Boolean getPropagated() const;

    /// The index of the qualifier, ignoring case, or PEG_NOT_FOUND.
    Uint32 findQualifier(const CIMName& name) const;
    /// @throws IndexOutOfBoundsException
    CIMConstQualifier getQualifier(Uint32 index) const;
    Uint32 getQualifierCount() const;

    /// The index of the parameter, ignoring case, or PEG_NOT_FOUND.
    Uint32 findParameter(const CIMName& name) const;
    /// @throws IndexOutOfBoundsException
    CIMConstParameter getParameter(Uint32 index) const;
    Uint32 getParameterCount() const;

    Boolean isUninitialized() const { return !_rep; }

    /// Whether name (ignoring case), type, qualifiers and parameters are equal, in their order.
    Boolean identical(const CIMConstMethod& x) const;

    /// A copy that nobody shares.
    CIMMethod clone() const;

  protected:
    friend struct cimserver::Access;
    explicit CIMConstMethod(cimserver::Ref<cimserver::MethodRep> rep);

    cimserver::Ref<cimserver::MethodRep> _rep;
};

/// The declaration of a method: a shared handle.
class PEGASUS_COMMON_LINKAGE CIMMethod : public CIMConstMethod {
  public:
    using CIMConstMethod::CIMConstMethod;
    CIMMethod() = default;

    /// @throws UninitializedObjectException for a null name
    /// @throws Exception for another name than the present one (ignoring case) while the method is
    ///     part of a class
    void setName(const CIMName& name);
    void setType(CIMType type);
    void setClassOrigin(const CIMName& classOrigin);
    void setPropagated(Boolean propagated);

    /// Adds the qualifier itself, not a copy of it.
    /// @throws AlreadyExistsException if there is one of this name, ignoring case
    /// @throws UninitializedObjectException
    CIMMethod& addQualifier(const CIMQualifier& x);

    using CIMConstMethod::getQualifier;
    /// The qualifier itself: what is changed through the handle is changed in this method.
    /// @throws IndexOutOfBoundsException
    CIMQualifier getQualifier(Uint32 index);
    /// @throws IndexOutOfBoundsException
    void removeQualifier(Uint32 index);

    /// Adds the parameter itself, not a copy of it.
    /// @throws AlreadyExistsException if there is one of this name, ignoring case
    /// @throws UninitializedObjectException
    CIMMethod& addParameter(const CIMParameter& x);

    using CIMConstMethod::getParameter;
    /// The parameter itself: what is changed through the handle is changed in this method.
    /// @throws IndexOutOfBoundsException
    CIMParameter getParameter(Uint32 index);
    /// @throws IndexOutOfBoundsException
    void removeParameter(Uint32 index);

  private:
    friend struct cimserver::Access;
};

extern template class Array<CIMMethod>;

PEGASUS_NAMESPACE_END

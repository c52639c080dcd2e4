// Parameters that are passed to and from methods.
#pragma once

#include <Pegasus/Common/Array.h>
#include <Pegasus/Common/CIMValue.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Linkage.h>
#include <Pegasus/Common/SharedRep.h>
#include <Pegasus/Common/String.h>

namespace cimserver {
class ParamValueRep;
}

PEGASUS_NAMESPACE_BEGIN

/// A parameter that is passed to or from a method: a shared handle.
///
/// Every function but isUninitialized() throws UninitializedObjectException on a handle that was
/// default-constructed.
class PEGASUS_COMMON_LINKAGE CIMParamValue {
  public:
    CIMParamValue();
    CIMParamValue(const CIMParamValue& x);
    CIMParamValue(CIMParamValue&& x) noexcept;

    /// @param isTyped false if the sender left the type open and `value` is its text
    /// @throws UninitializedObjectException for an empty name
    CIMParamValue(String parameterName, CIMValue value, Boolean isTyped = true);
    ~CIMParamValue();
    CIMParamValue& operator=(const CIMParamValue& x);
    CIMParamValue& operator=(CIMParamValue&& x) noexcept;

    String getParameterName() const;
    CIMValue getValue() const;
    Boolean isTyped() const;

    /// @throws UninitializedObjectException for an empty name
    void setParameterName(String& parameterName);
    void setValue(CIMValue& value);
    void setIsTyped(Boolean isTyped);

    /// A copy that nobody shares.
    CIMParamValue clone() const;

    Boolean isUninitialized() const { return !_rep; }

  private:
    friend struct cimserver::Access;
    explicit CIMParamValue(cimserver::Ref<cimserver::ParamValueRep> rep);

    cimserver::Ref<cimserver::ParamValueRep> _rep;
};

extern template class Array<CIMParamValue>;

PEGASUS_NAMESPACE_END

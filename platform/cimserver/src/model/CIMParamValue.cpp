#include <Pegasus/Common/CIMParamValue.h>

#include "model/Access.h"
#include "model/ArrayImpl.h"
#include "model/Counted.h"

using namespace cimserver;

namespace cimserver {

class ParamValueRep : public Counted<ParamValueRep> {
  public:
    void setName(const Pegasus::String& newName) {
        if (newName.size() == 0) throw Pegasus::UninitializedObjectException();
        name = newName;
    }

    Pegasus::String name;
    Pegasus::CIMValue value;
    bool isTyped = true;
};

}  // namespace cimserver

PEGASUS_NAMESPACE_BEGIN

CIMParamValue::CIMParamValue() = default;
CIMParamValue::CIMParamValue(const CIMParamValue& x) = default;
CIMParamValue::CIMParamValue(CIMParamValue&& x) noexcept = default;
CIMParamValue::CIMParamValue(Ref<ParamValueRep> rep) : _rep(std::move(rep)) {}
CIMParamValue::CIMParamValue(String parameterName, CIMValue value, Boolean isTyped)
    : _rep(Ref<ParamValueRep>::adopt(new ParamValueRep)) {
    _rep->setName(parameterName);
    _rep->value = std::move(value);
    _rep->isTyped = isTyped;
}
CIMParamValue::~CIMParamValue() = default;
CIMParamValue& CIMParamValue::operator=(const CIMParamValue& x) = default;
CIMParamValue& CIMParamValue::operator=(CIMParamValue&& x) noexcept = default;

String CIMParamValue::getParameterName() const {
    return initialized(*this).name;
}
CIMValue CIMParamValue::getValue() const {
    return initialized(*this).value;
}
Boolean CIMParamValue::isTyped() const {
    return initialized(*this).isTyped;
}

void CIMParamValue::setParameterName(String& parameterName) {
    initialized(*this).setName(parameterName);
}
void CIMParamValue::setValue(CIMValue& value) {
    initialized(*this).value = value;
}
void CIMParamValue::setIsTyped(Boolean isTyped) {
    initialized(*this).isTyped = isTyped;
}

CIMParamValue CIMParamValue::clone() const {
    return CIMParamValue(Ref<ParamValueRep>::adopt(new ParamValueRep(initialized(*this))));
}

template class Array<CIMParamValue>;

PEGASUS_NAMESPACE_END

#include <Pegasus/Common/CIMQualifierDecl.h>

#include "model/Access.h"
#include "model/ArrayImpl.h"
#include "model/Counted.h"

using namespace cimserver;

namespace cimserver {

class QualifierDeclRep : public Counted<QualifierDeclRep> {
  public:
    Pegasus::CIMName name;
    Pegasus::CIMValue value;
    Pegasus::CIMScope scope;
    Pegasus::CIMFlavor flavor;
    Pegasus::Uint32 arraySize = 0;
};

}  // namespace cimserver

PEGASUS_NAMESPACE_BEGIN

namespace {

void setUnless(CIMFlavor& flavors, const CIMFlavor& opposite, const CIMFlavor& flavor) {
    if (flavors.hasFlavor(opposite)) {
        flavors.removeFlavor(flavor);
    } else {
        flavors.addFlavor(flavor);
    }
}

const CIMName& notNull(const CIMName& name) {
    if (name.isNull()) throw UninitializedObjectException();
    return name;
}

}  // namespace

CIMConstQualifierDecl::CIMConstQualifierDecl() = default;
CIMConstQualifierDecl::CIMConstQualifierDecl(const CIMConstQualifierDecl& x) = default;
CIMConstQualifierDecl::CIMConstQualifierDecl(CIMConstQualifierDecl&& x) noexcept = default;
CIMConstQualifierDecl::CIMConstQualifierDecl(Ref<QualifierDeclRep> rep) : _rep(std::move(rep)) {}
CIMConstQualifierDecl::CIMConstQualifierDecl(const CIMName& name, const CIMValue& value,
                                             const CIMScope& scope, const CIMFlavor& flavor,
                                             Uint32 arraySize)
    : _rep(Ref<QualifierDeclRep>::adopt(new QualifierDeclRep)) {
    _rep->name = notNull(name);
    _rep->value = value;
    _rep->scope = scope;
    _rep->flavor = flavor;
    setUnless(_rep->flavor, CIMFlavor::RESTRICTED, CIMFlavor::TOSUBCLASS);
    setUnless(_rep->flavor, CIMFlavor::DISABLEOVERRIDE, CIMFlavor::ENABLEOVERRIDE);
    _rep->arraySize = arraySize;
}
CIMConstQualifierDecl::~CIMConstQualifierDecl() = default;
CIMConstQualifierDecl& CIMConstQualifierDecl::operator=(const CIMConstQualifierDecl& x) = default;
CIMConstQualifierDecl& CIMConstQualifierDecl::operator=(CIMConstQualifierDecl&& x) noexcept =
    default;

const CIMName& CIMConstQualifierDecl::getName() const {
    return initialized(*this).name;
}
CIMType CIMConstQualifierDecl::getType() const {
    return getValue().getType();
}
Boolean CIMConstQualifierDecl::isArray() const {
    return getValue().isArray();
}
const CIMValue& CIMConstQualifierDecl::getValue() const {
    return initialized(*this).value;
}
const CIMScope& CIMConstQualifierDecl::getScope() const {
    return initialized(*this).scope;
}
const CIMFlavor& CIMConstQualifierDecl::getFlavor() const {
    return initialized(*this).flavor;
}
Uint32 CIMConstQualifierDecl::getArraySize() const {
    return initialized(*this).arraySize;
}

Boolean CIMConstQualifierDecl::identical(const CIMConstQualifierDecl& x) const {
    const auto& mine = initialized(*this);
    const auto& other = initialized(x);
    return mine.name == other.name && mine.value == other.value && mine.scope.equal(other.scope) &&
           mine.flavor.equal(other.flavor) && mine.arraySize == other.arraySize;
}

CIMQualifierDecl CIMConstQualifierDecl::clone() const {
    return Access::handle<CIMQualifierDecl>(
        Ref<QualifierDeclRep>::adopt(new QualifierDeclRep(initialized(*this))));
}

void CIMQualifierDecl::setName(const CIMName& name) {
    initialized(*this).name = notNull(name);
}
void CIMQualifierDecl::setValue(const CIMValue& value) {
    initialized(*this).value = value;
}

template class Array<CIMQualifierDecl>;

PEGASUS_NAMESPACE_END

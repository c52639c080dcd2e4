#include "broker/ClassCopy.h"

using namespace Pegasus;

namespace cimserver {
namespace {

class Copier {
  public:
    Copier(bool localOnly, const Selection& selection)
        : _localOnly(localOnly), _selection(selection), _list(selection.propertyList) {}

    CIMClass copy(const CIMConstClass& from) const;

  private:
    bool wants(bool propagated) const { return !_localOnly || !propagated; }
    CIMName origin(const CIMName& name) const {
        return _selection.includeClassOrigin ? name : CIMName();
    }
    bool wants(const CIMConstProperty& property) const {
        return wants(property.getPropagated()) &&
               (_list.isNull() || _list.contains(property.getName()));
    }
    template <class From, class To>
    To& withQualifiers(const From& from, To& to) const;
    CIMProperty copy(const CIMConstProperty& from) const;
    CIMMethod copy(const CIMConstMethod& from) const;
    CIMParameter copy(const CIMConstParameter& from) const;

    bool _localOnly;
    const Selection& _selection;
    const CIMPropertyList& _list;
};

CIMClass Copier::copy(const CIMConstClass& from) const {
    CIMClass result(from.getClassName(), from.getSuperClassName());
    withQualifiers(from, result);
    for (Uint32 i = 0; i < from.getPropertyCount(); ++i) {
        const CIMConstProperty property = from.getProperty(i);
        if (wants(property)) result.addProperty(copy(property));
    }
    for (Uint32 i = 0; i < from.getMethodCount(); ++i) {
        const CIMConstMethod method = from.getMethod(i);
        if (wants(method.getPropagated())) result.addMethod(copy(method));
    }
    return result;
}

template <class From, class To>
To& Copier::withQualifiers(const From& from, To& to) const {
    if (!_selection.includeQualifiers) return to;
    for (Uint32 i = 0; i < from.getQualifierCount(); ++i) {
        const CIMConstQualifier qualifier = from.getQualifier(i);
        if (wants(qualifier.getPropagated() != 0)) to.addQualifier(qualifier.clone());
    }
    return to;
}

CIMProperty Copier::copy(const CIMConstProperty& from) const {
    CIMProperty to(from.getName(), from.getValue(), from.getArraySize(),
                   from.getReferenceClassName(), origin(from.getClassOrigin()),
                   from.getPropagated());
    return withQualifiers(from, to);
}

CIMMethod Copier::copy(const CIMConstMethod& from) const {
    CIMMethod to(from.getName(), from.getType(), origin(from.getClassOrigin()),
                 from.getPropagated());
    for (Uint32 i = 0; i < from.getParameterCount(); ++i)
        to.addParameter(copy(from.getParameter(i)));
    return withQualifiers(from, to);
}

CIMParameter Copier::copy(const CIMConstParameter& from) const {
    CIMParameter to(from.getName(), from.getType(), from.isArray(), from.getArraySize(),
                    from.getReferenceClassName());
    return withQualifiers(from, to);
}

}  // namespace

CIMClass copyClass(const CIMConstClass& from, bool localOnly, const Selection& selection) {
    return Copier(localOnly, selection).copy(from);
}

}  // namespace cimserver

#include "model/QualifierRep.h"

#include "model/Access.h"

#include <algorithm>

using namespace Pegasus;

namespace cimserver {

QualifierRep::QualifierRep(const CIMName& name, const CIMValue& initial, const CIMFlavor& flavors,
                           bool isPropagated)
    : Member(nameTag(name)),
      value(initial),
      flavor(flavors),
      propagated(isPropagated),
      _name(name) {
    if (name.isNull()) throw UninitializedObjectException();
}

void QualifierRep::setName(const CIMName& name) {
    rename(_name, name, kind);
    _name = name;
}

bool QualifierRep::identical(const QualifierRep& other) const {
    return this == &other || (_name == other._name && value == other.value &&
                              flavor.equal(other.flavor) && propagated == other.propagated);
}

Ref<QualifierRep> QualifierRep::clone() const {
    return Ref<QualifierRep>::adopt(new QualifierRep(*this));
}

Uint32 QualifierList::find(const CIMName& name) const noexcept {
    return _shared ? _shared->set.find(name) : PEG_NOT_FOUND;
}

const Ref<QualifierRep>& QualifierList::operator[](Uint32 index) const {
    if (!_shared) throw IndexOutOfBoundsException();
    return _shared->set[index];
}

const Ref<QualifierRep>& QualifierList::forWriting(Uint32 index) {
    if (index >= size()) throw IndexOutOfBoundsException();
    return writable().set[index];
}

void QualifierList::add(Ref<QualifierRep> qualifier) {
    writable().set.add(std::move(qualifier));
}

void QualifierList::remove(Uint32 index) {
    if (index >= size()) throw IndexOutOfBoundsException();
    writable().set.remove(index);
}

bool QualifierList::identical(const QualifierList& other) const {
    if (sharesWith(other)) return true;
    return size() == other.size() && (size() == 0 || _shared->set.identical(other._shared->set));
}

bool QualifierList::isTrue(const CIMName& name) const {
    const Uint32 index = find(name);
    return index != PEG_NOT_FOUND && cimserver::isTrue((*this)[index]->value);
}

bool QualifierList::isSealed() const noexcept {
    if (!_shared || _shared->sealed.load(std::memory_order_acquire)) return true;
    const auto& set = _shared->set;
    const bool unheld =
        std::none_of(set.begin(), set.end(), [](const auto& member) { return member->isShared(); });
    if (unheld) _shared->sealed.store(true, std::memory_order_release);
    return unheld;
}

Ref<QualifierList::Shared> QualifierList::shareable() const {
    return isSealed() ? _shared : cloned();
}

Ref<QualifierList::Shared> QualifierList::cloned() const {
    auto copy = Ref<Shared>::adopt(new Shared);
    if (_shared) copy->set = _shared->set.clone();
    return copy;
}

/// What this list alone owns, and from which it may hand qualifiers out.
QualifierList::Shared& QualifierList::writable() {
    if (!_shared || _shared->isShared()) _shared = cloned();
    _shared->sealed.store(false, std::memory_order_relaxed);
    return *_shared;
}

bool isTrue(const CIMValue& value) {
    return value.getType() == CIMTYPE_BOOLEAN && !value.isArray() && !value.isNull() &&
           Access::held<Boolean>(value);
}

}  // namespace cimserver

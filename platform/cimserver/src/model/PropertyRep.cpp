#include "model/PropertyRep.h"

#include <algorithm>
#include <memory>
#include <new>

using namespace Pegasus;

namespace cimserver {

namespace {

class SinglePropertyHome final : public PropertyHome {
  public:
    SinglePropertyHome(Ref<PropertyTraits> traits, const CIMValue& value)
        : property(*this, std::move(traits), value) {}

    PropertyRep property;
};

/// The properties of one instance, side by side behind the block. They borrow their traits from the
/// plan.
class PropertyBlock final : public PropertyHome {
  public:
    static PropertyBlock* create(const Ref<InstancePlan>& plan, std::size_t room) {
        return new (room) PropertyBlock(plan);
    }
    ~PropertyBlock() override { std::destroy_n(slot(0), _size); }

    static void* operator new(std::size_t size, std::size_t room) {
        return ::operator new(size + room * sizeof(PropertyRep));
    }
    static void operator delete(void* block) { ::operator delete(block); }

    /// Makes the next property; there must be room for it.
    PropertyRep* add(const InstancePlan::Entry& entry) noexcept {
        return new (slot(_size++))
            PropertyRep(*this, *entry.traits, entry.source->tag(), entry.value);
    }

  private:
    explicit PropertyBlock(const Ref<InstancePlan>& plan) : _plan(plan) {}

    PropertyRep* slot(std::size_t index) noexcept {
        static_assert(alignof(PropertyRep) <= alignof(PropertyHome));
        return static_cast<PropertyRep*>(static_cast<void*>(this + 1)) + index;
    }

    Ref<InstancePlan> _plan;
    std::size_t _size = 0;
};

Ref<PropertyTraits> stripped(const Ref<PropertyTraits>& traits, bool keepQualifiers,
                             bool keepClassOrigin) {
    if (keepQualifiers && keepClassOrigin) return traits;
    auto copy = Ref<PropertyTraits>::adopt(new PropertyTraits(*traits));
    if (!keepQualifiers) copy->qualifiers.clear();
    if (!keepClassOrigin) copy->classOrigin.clear();
    return copy;
}

}  // namespace

Ref<PropertyRep> PropertyRep::create(Ref<PropertyTraits> traits, const CIMValue& value) {
    return Ref<PropertyRep>::adopt(&(new SinglePropertyHome(std::move(traits), value))->property);
}

PropertyRep::PropertyRep(const PropertyHome& home, Ref<PropertyTraits> traits,
                         const CIMValue& value)
    : Member(nameTag(traits->name)),
      _home(home),
      _traits(traits.detach()),
      _ownsTraits(true),
      _value(value) {}

PropertyTraits& PropertyRep::writableTraits() {
    if (!_ownsTraits || _traits->isShared()) {
        auto* copy = new PropertyTraits(*_traits);
        if (_ownsTraits) _traits->release();
        _traits = copy;
        _ownsTraits = true;
    }
    return *_traits;
}

Ref<PropertyTraits> PropertyRep::shareTraits() const {
    if (_traits->qualifiers.isSealed()) return Ref<PropertyTraits>::share(_traits);
    return Ref<PropertyTraits>::adopt(new PropertyTraits(*_traits));
}

void PropertyRep::setName(const CIMName& newName) {
    rename(name(), newName, kind);
    writableTraits().name = newName;
}

void PropertyRep::setValue(const CIMValue& newValue) {
    const Uint32 fixedSize = _traits->arraySize;
    if (!newValue.typeCompatible(_value) ||
        (fixedSize != 0 && newValue.getArraySize() != fixedSize)) {
        throw TypeMismatchException();
    }
    _value = newValue;
}

bool PropertyRep::identical(const PropertyRep& other) const {
    const PropertyTraits& x = *_traits;
    const PropertyTraits& y = *other._traits;
    const bool sameTraits =
        &x == &y || (x.name == y.name && x.referenceClass == y.referenceClass &&
                     x.classOrigin == y.classOrigin && x.propagated == y.propagated &&
                     x.qualifiers.identical(y.qualifiers));
    return this == &other || (sameTraits && _value == other._value);
}

Ref<PropertyRep> PropertyRep::clone() const {
    return create(shareTraits(), _value);
}

void PropertyRep::strip(bool keepQualifiers, bool keepClassOrigin) {
    if (!keepQualifiers && _traits->qualifiers.size() != 0) writableTraits().qualifiers.clear();
    if (!keepClassOrigin && !_traits->classOrigin.isNull()) writableTraits().classOrigin.clear();
}

InstancePlan::InstancePlan(const CIMName& className, const QualifierList& classQualifiers,
                           const NamedSet<PropertyRep>& properties, bool withQualifiers,
                           bool withClassOrigin)
    : _path(String(), CIMNamespaceName(), className), _classQualifiers(classQualifiers) {
    if (withQualifiers) _qualifiers = _classQualifiers;
    _entries.reserve(properties.size());
    for (const auto& property : properties) {
        auto traits = property->shareTraits();
        _entries.push_back({property, traits, stripped(traits, withQualifiers, withClassOrigin),
                            property->value()});
    }
}

bool InstancePlan::fits(const CIMName& className, const QualifierList& classQualifiers,
                        const NamedSet<PropertyRep>& properties) const noexcept {
    const auto unchanged = [](const Entry& entry, const Ref<PropertyRep>& property) {
        return entry.source.get() == property.get() &&
               entry.sourceTraits.get() == &property->traits() &&
               Access::sameData(entry.value, property->value());
    };
    return _path.getClassName().getString() == className.getString() &&
           _classQualifiers.sharesWith(classQualifiers) &&
           std::equal(_entries.begin(), _entries.end(), properties.begin(), properties.end(),
                      unchanged);
}

PropertySet::PropertySet(const Ref<InstancePlan>& plan, const CIMPropertyList& wanted) {
    if (plan->entries().empty()) return;
    auto* block = PropertyBlock::create(plan, plan->entries().size());
    const auto first = Ref<PropertyHome>::adopt(block);
    reserve(plan->entries().size());
    for (const auto& entry : plan->entries()) {
        if (wanted.useThisProperty(entry.traits->name)) {
            _members.push_back(Ref<PropertyRep>::adopt(block->add(entry)));
        }
    }
    block->retain(size());
    _block = block;
}

PropertySet::~PropertySet() {
    const auto inBlock = [this](const Ref<PropertyRep>& member) {
        return &member->home() == _block;
    };
    const auto n = std::uint32_t(_block ? std::count_if(begin(), end(), inBlock) : 0);
    // While somebody holds one of the properties, each must leave on its own.
    if (n == 0 || _block->isShared(n)) return;
    for (auto& member : _members) {
        if (inBlock(member)) member.detach();
    }
    _block->release(n);
}

}  // namespace cimserver

// Qualifiers, and lists of them that copies share.
#pragma once

#include "model/Counted.h"
#include "model/NamedSet.h"

#include <Pegasus/Common/CIMFlavor.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMValue.h>

#include <atomic>

namespace cimserver {

class QualifierRep : public Counted<QualifierRep>, public Member {
  public:
    static constexpr const char* kind = "qualifier";

    QualifierRep(const Pegasus::CIMName& name, const Pegasus::CIMValue& value,
                 const Pegasus::CIMFlavor& flavor, bool propagated);

    const Pegasus::CIMName& name() const noexcept { return _name; }
    void setName(const Pegasus::CIMName& name);
    bool identical(const QualifierRep& other) const;
    Ref<QualifierRep> clone() const;

    Pegasus::CIMValue value;
    Pegasus::CIMFlavor flavor;
    bool propagated;

  private:
    Pegasus::CIMName _name;
};

/// A list of qualifiers. Copies behave as if all qualifiers were cloned, but share them until one
/// list is written to or gives out a qualifier for writing. Lists on different threads may share.
class QualifierList {
  public:
    QualifierList() = default;
    QualifierList(const QualifierList& other) : _shared(other.shareable()) {}
    QualifierList(QualifierList&&) noexcept = default;
    QualifierList& operator=(QualifierList other) noexcept {
        _shared = std::move(other._shared);
        return *this;
    }

    Pegasus::Uint32 size() const noexcept { return _shared ? _shared->set.size() : 0; }
    auto begin() const noexcept { return _shared ? _shared->set.begin() : Iterator(); }
    auto end() const noexcept { return _shared ? _shared->set.end() : Iterator(); }
    Pegasus::Uint32 find(const Pegasus::CIMName& name) const noexcept;

    /// For reading only. A later write to this list may leave this qualifier behind if it is
    /// shared.
    /// @throws IndexOutOfBoundsException
    const Ref<QualifierRep>& operator[](Pegasus::Uint32 index) const;

    /// A qualifier of this list alone, for handing out: the list is shared no more while others
    /// hold it.
    /// @throws IndexOutOfBoundsException
    const Ref<QualifierRep>& forWriting(Pegasus::Uint32 index);

    /// @throws AlreadyExistsException, TooManyElementsException
    void add(Ref<QualifierRep> qualifier);
    /// @throws IndexOutOfBoundsException
    void remove(Pegasus::Uint32 index);
    void clear() noexcept { _shared = {}; }

    bool identical(const QualifierList& other) const;

    /// Whether there is a boolean qualifier of that name with the value true.
    bool isTrue(const Pegasus::CIMName& name) const;

    /// Whether nobody outside holds a qualifier of this list, so that a copy shares instead of
    /// cloning.
    bool isSealed() const noexcept;

    /// Whether the other list shares all with this one, or both are empty.
    bool sharesWith(const QualifierList& other) const noexcept {
        return _shared.get() == other._shared.get();
    }

  private:
    using Iterator = std::vector<Ref<QualifierRep>>::const_iterator;

    struct Shared : Counted<Shared> {
        NamedSet<QualifierRep> set;
        /// Once true, it stays so until the list's only owner hands a qualifier out.
        mutable std::atomic<bool> sealed{false};
    };

    Ref<Shared> shareable() const;
    Ref<Shared> cloned() const;
    Shared& writable();

    Ref<Shared> _shared;  ///< null: empty
};

/// Whether `value` is the boolean true.
bool isTrue(const Pegasus::CIMValue& value);

}  // namespace cimserver

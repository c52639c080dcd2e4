// The qualifiers, properties, methods and parameters of something: found by name, kept in order.
#pragma once

#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/Exception.h>
#include <Pegasus/Common/InternalException.h>
#include <Pegasus/Common/SharedRep.h>

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <utility>
#include <vector>

namespace cimserver {

/// A number that names which are equal ignoring case share, and few others.
inline std::uint32_t nameTag(const Pegasus::CIMName& name) noexcept {
    const Pegasus::String& text = name.getString();
    const std::uint32_t size = text.size();
    if (size == 0) return 0;
    const Pegasus::Char16* units = text.getChar16Data();
    // Bit 5 tells the case of a letter; to leave it out is to fold.
    const auto fold = [&](std::uint32_t i) { return std::uint32_t(units[i]) & 0xDFu; };
    return size << 24 | fold(0) << 16 | fold(size / 2) << 8 | fold(size - 1);
}

/// What every member of a NamedSet has besides its own `name()`.
class Member {
  public:
    std::uint32_t tag() const noexcept { return _tag; }

    void enterSet() noexcept { _sets.fetch_add(1, std::memory_order_relaxed); }
    void leaveSet() noexcept { _sets.fetch_sub(1, std::memory_order_relaxed); }

  protected:
    explicit Member(std::uint32_t tag, std::uint32_t sets = 0) noexcept : _tag(tag), _sets(sets) {}
    /// The copy is in no set.
    Member(const Member& other) noexcept : _tag(other._tag), _sets(0) {}
    Member& operator=(const Member&) = delete;
    ~Member() = default;

    /// @throws UninitializedObjectException if `to` is null
    /// @throws Exception if it is another name and the member is in a set; `kind` names the member
    void rename(const Pegasus::CIMName& from, const Pegasus::CIMName& to, const char* kind) {
        if (to.isNull()) throw Pegasus::UninitializedObjectException();
        if (_sets.load(std::memory_order_relaxed) != 0 && from != to) refuseName(kind);
        _tag = nameTag(to);
    }

  private:
    [[noreturn]] static void refuseName(const char* kind);

    std::uint32_t _tag;
    std::atomic<std::uint32_t> _sets;
};

/// Throws AlreadyExistsException for a second member of that name.
[[noreturn]] void refuseDuplicate(const char* kind, const Pegasus::CIMName& name);

/// Members of type `Rep`, which is a Member with `kind`, `name()`, `identical()` and `clone()`.
/// Copying would share the members, so there is none; clone() instead.
template <class Rep>
class NamedSet {
  public:
    NamedSet() = default;
    NamedSet(NamedSet&& other) noexcept : _members(std::exchange(other._members, {})) {}
    NamedSet& operator=(NamedSet&& other) noexcept {
        _members.swap(other._members);
        return *this;
    }
    ~NamedSet() {
        for (const auto& member : _members) {
            if (member && member->isShared()) member->leaveSet();
        }
    }

    Pegasus::Uint32 size() const noexcept { return Pegasus::Uint32(_members.size()); }
    auto begin() const noexcept { return _members.begin(); }
    auto end() const noexcept { return _members.end(); }
    void reserve(std::size_t n) { _members.reserve(n); }

    /// @throws IndexOutOfBoundsException
    const Ref<Rep>& operator[](Pegasus::Uint32 index) const {
        if (index >= _members.size()) throw Pegasus::IndexOutOfBoundsException();
        return _members[index];
    }

    Pegasus::Uint32 find(const Pegasus::CIMName& name) const noexcept {
        return find(name, nameTag(name));
    }

    /// @throws AlreadyExistsException, TooManyElementsException
    void add(Ref<Rep> member) {
        if (find(member->name(), member->tag()) != PEG_NOT_FOUND) {
            refuseDuplicate(Rep::kind, member->name());
        }
        if (_members.size() >= most) throw Pegasus::TooManyElementsException();
        _members.push_back(std::move(member));
        _members.back()->enterSet();
    }

    /// @throws IndexOutOfBoundsException
    void remove(Pegasus::Uint32 index) {
        (*this)[index]->leaveSet();
        _members.erase(_members.begin() + index);
    }

    bool identical(const NamedSet& other) const {
        return std::equal(begin(), end(), other.begin(), other.end(),
                          [](const auto& x, const auto& y) { return x->identical(*y); });
    }

    NamedSet clone() const {
        NamedSet copy;
        copy.reserve(_members.size());
        for (const auto& member : _members) {
            copy._members.push_back(member->clone());
            copy._members.back()->enterSet();
        }
        return copy;
    }

  protected:
    std::vector<Ref<Rep>> _members;

  private:
    static constexpr std::size_t most = 1000;

    Pegasus::Uint32 find(const Pegasus::CIMName& name, std::uint32_t tag) const noexcept {
        if (name.isNull()) return PEG_NOT_FOUND;
        for (std::size_t i = 0; i < _members.size(); ++i) {
            if (_members[i]->tag() == tag && _members[i]->name().equal(name)) {
                return Pegasus::Uint32(i);
            }
        }
        return PEG_NOT_FOUND;
    }
};

}  // namespace cimserver

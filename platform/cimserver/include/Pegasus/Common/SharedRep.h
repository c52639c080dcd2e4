// How the handles and copy-on-write values of the object model own what they share.
#pragma once

#include <utility>

namespace cimserver {

/// One share in the ownership of a `T` that counts its owners itself.
///
/// `T` offers `retain()` and `release()`, const and noexcept; the last `release()` destroys it.
/// Shares of one `T` may be held, copied and dropped by different threads at the same time.
/// Declaring a member `Ref<T>` needs only a declaration of `T`.
template <class T>
class Ref {
  public:
    Ref() noexcept = default;
    Ref(const Ref& other) noexcept : _target(other._target) { retain(); }
    Ref(Ref&& other) noexcept : _target(std::exchange(other._target, nullptr)) {}
    ~Ref() {
        if (_target) _target->release();
    }

    Ref& operator=(Ref other) noexcept {
        std::swap(_target, other._target);
        return *this;
    }

    /// Takes over a share that is counted already, such as the first one of a new object.
    static Ref adopt(T* target) noexcept {
        Ref ref;
        ref._target = target;
        return ref;
    }

    /// Another share of an object that lives.
    static Ref share(T* target) noexcept {
        Ref ref = adopt(target);
        ref.retain();
        return ref;
    }

    /// Gives the share up without dropping it.
    T* detach() noexcept { return std::exchange(_target, nullptr); }

    T* get() const noexcept { return _target; }
    T& operator*() const noexcept { return *_target; }
    T* operator->() const noexcept { return _target; }
    explicit operator bool() const noexcept { return _target != nullptr; }

  private:
    void retain() const noexcept {
        if (_target) _target->retain();
    }

    T* _target = nullptr;
};

/// Opens handles to the model's own sources; not for users of the object model.
struct Access;

}  // namespace cimserver

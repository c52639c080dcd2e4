// The list type of the CIM API.
#pragma once

#include <Pegasus/Common/Char16.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/Linkage.h>
#include <Pegasus/Common/SharedBuffer.h>
#include <Pegasus/Common/String.h>

#include <utility>

PEGASUS_NAMESPACE_BEGIN

/// A list of elements in one block. A value: copies share their elements until one of them changes,
/// and may live on different threads. An index out of range throws IndexOutOfBoundsException.
///
/// It exists for the types of the CIM API only, each of which says so after its declaration; with
/// any other element type a program does not link.
template <class T>
class PEGASUS_EXPORT Array {
  public:
    Array() noexcept = default;
    Array(const Array& other) noexcept : _buffer(other._buffer) {
        if (_buffer) {
            _buffer->retain();
        }
    }
    Array(Array&& other) noexcept : _buffer(std::exchange(other._buffer, nullptr)) {}

    /// `size` default elements; numbers are zero.
    Array(Uint32 size);
    Array(Uint32 size, const T& x);
    Array(const T* items, Uint32 size);

    ~Array() {
        if (_buffer && _buffer->release()) {
            destroy(_buffer);
        }
    }

    Array& operator=(const Array& other) noexcept {
        Array copy(other);
        swap(copy);
        return *this;
    }
    Array& operator=(Array&& other) noexcept {
        Array taken(std::move(other));
        swap(taken);
        return *this;
    }

    void clear();
    void reserveCapacity(Uint32 capacity);

    /// Appends `n` copies of `x`.
    void grow(Uint32 n, const T& x);

    void swap(Array& other) noexcept { std::swap(_buffer, other._buffer); }

    Uint32 size() const noexcept { return _buffer ? _buffer->size : 0; }
    Uint32 getCapacity() const noexcept { return _buffer ? _buffer->capacity : 0; }

    /// The elements in one block, valid until the array changes or ends. Null for an empty array.
    const T* getData() const noexcept { return _buffer ? items(_buffer) : nullptr; }

    /// Parts from the copies that share the elements first.
    T& operator[](Uint32 index) {
        checkIndex(index);
        if (!_buffer->isUnique()) {
            makeWritable(size());
        }
        return items(_buffer)[index];
    }
    const T& operator[](Uint32 index) const {
        checkIndex(index);
        return items(_buffer)[index];
    }

    void append(const T& x);
    void append(T&& x);
    void append(const T* items, Uint32 n);
    void appendArray(const Array& other);
    void prepend(const T& x);
    void prepend(const T* items, Uint32 n);

    /// Inserts before `index`, which may be size().
    void insert(Uint32 index, const T& x);
    void insert(Uint32 index, const T* items, Uint32 n);

    void remove(Uint32 index);
    void remove(Uint32 index, Uint32 n);

  private:
    /// Where the elements begin behind the head of the buffer, aligned for any element.
    static constexpr std::size_t offset = 16;

    static T* items(SharedBuffer* buffer) noexcept {
        return static_cast<T*>(
            static_cast<void*>(static_cast<char*>(static_cast<void*>(buffer)) + offset));
    }
    static SharedBuffer* create(Uint32 capacity);
    static void destroy(SharedBuffer* buffer) noexcept;

    void checkIndex(Uint32 index) const {
        if (index >= size()) {
            throwIndexOutOfBounds();
        }
    }
    void makeWritable(Uint32 capacity);
    void makeRoomFor(Uint32 more);

    SharedBuffer* _buffer = nullptr;  ///< null: no elements
};

extern template class Array<Boolean>;
extern template class Array<Uint8>;
extern template class Array<Sint8>;
extern template class Array<Uint16>;
extern template class Array<Sint16>;
extern template class Array<Uint32>;
extern template class Array<Sint32>;
extern template class Array<Uint64>;
extern template class Array<Sint64>;
extern template class Array<Real32>;
extern template class Array<Real64>;
extern template class Array<Char16>;
extern template class Array<String>;

PEGASUS_NAMESPACE_END

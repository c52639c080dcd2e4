// The bodies of Array, for the source files that instantiate it for their element type.
#pragma once

#include <Pegasus/Common/Array.h>

#include <algorithm>
#include <limits>
#include <memory>
#include <new>

PEGASUS_NAMESPACE_BEGIN

template <class T>
SharedBuffer* Array<T>::create(Uint32 capacity) {
    static_assert(sizeof(SharedBuffer) <= offset && offset % alignof(T) == 0);
    constexpr std::size_t most = std::numeric_limits<Uint32>::max() / 4;
    if (capacity > most) {
        throw std::bad_alloc();
    }
    return new (::operator new(offset + capacity * sizeof(T))) SharedBuffer(capacity);
}

template <class T>
void Array<T>::destroy(SharedBuffer* buffer) noexcept {
    std::destroy_n(items(buffer), buffer->size);
    ::operator delete(buffer);
}

/// Makes this array the sole owner of a buffer with that capacity.
template <class T>
void Array<T>::makeWritable(Uint32 capacity) {
    if (_buffer && _buffer->isUnique() && _buffer->capacity >= capacity) {
        return;
    }
    Array fresh;
    fresh._buffer = create(std::max(capacity, size()));
    if (_buffer && _buffer->isUnique()) {
        std::uninitialized_move_n(items(_buffer), size(), items(fresh._buffer));
    } else if (_buffer) {
        std::uninitialized_copy_n(items(_buffer), size(), items(fresh._buffer));
    }
    fresh._buffer->size = size();
    swap(fresh);
}

/// Makes this array the sole owner of a buffer with room for `more` elements behind the last.
template <class T>
void Array<T>::makeRoomFor(Uint32 more) {
    const Uint32 needed = size() + more;
    if (needed < more) {
        throw std::bad_alloc();
    }
    makeWritable(needed <= getCapacity() ? needed : std::max({needed, 2 * getCapacity(), 4u}));
}

template <class T>
Array<T>::Array(Uint32 size) : Array() {
    makeWritable(size);
    std::uninitialized_value_construct_n(items(_buffer), size);
    _buffer->size = size;
}

template <class T>
Array<T>::Array(Uint32 size, const T& x) : Array() {
    grow(size, x);
}

template <class T>
Array<T>::Array(const T* from, Uint32 size) : Array() {
    makeWritable(size);
    std::uninitialized_copy_n(from, size, items(_buffer));
    _buffer->size = size;
}

template <class T>
void Array<T>::clear() {
    if (_buffer && _buffer->isUnique()) {
        std::destroy_n(items(_buffer), std::exchange(_buffer->size, 0));
    } else {
        *this = Array();
    }
}

template <class T>
void Array<T>::reserveCapacity(Uint32 capacity) {
    if (capacity > getCapacity()) {
        makeWritable(capacity);
    }
}

template <class T>
void Array<T>::grow(Uint32 n, const T& x) {
    // `x` may be an element of this array.
    // NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
    const T value(x);
    makeRoomFor(n);
    std::uninitialized_fill_n(items(_buffer) + size(), n, value);
    _buffer->size += n;
}

template <class T>
void Array<T>::append(const T& x) {
    append(T(x));
}

template <class T>
void Array<T>::append(T&& x) {
    T value(std::move(x));  // `x` may be an element of this array
    makeRoomFor(1);
    new (items(_buffer) + size()) T(std::move(value));
    ++_buffer->size;
}

template <class T>
void Array<T>::append(const T* from, Uint32 n) {
    Array copied(from, n);  // `from` may point into this array
    makeRoomFor(n);
    std::uninitialized_move_n(items(copied._buffer), n, items(_buffer) + size());
    _buffer->size += n;
}

template <class T>
void Array<T>::appendArray(const Array& other) {
    if (size() == 0 && getCapacity() < other.size()) {
        *this = other;
    } else {
        append(other.getData(), other.size());
    }
}

template <class T>
void Array<T>::prepend(const T& x) {
    insert(0, x);
}

template <class T>
void Array<T>::prepend(const T* from, Uint32 n) {
    insert(0, from, n);
}

template <class T>
void Array<T>::insert(Uint32 index, const T& x) {
    insert(index, &x, 1);
}

template <class T>
void Array<T>::insert(Uint32 index, const T* from, Uint32 n) {
    const Uint32 before = size();
    if (index > before) {
        throwIndexOutOfBounds();
    }
    append(from, n);
    T* const begin = items(_buffer);
    std::rotate(begin + index, begin + before, begin + size());
}

template <class T>
void Array<T>::remove(Uint32 index) {
    remove(index, 1);
}

template <class T>
void Array<T>::remove(Uint32 index, Uint32 n) {
    if (n == 0) {
        return;
    }
    if (index >= size() || n > size() - index) {
        throwIndexOutOfBounds();
    }
    makeWritable(size());
    T* const end = items(_buffer) + size();
    T* const kept = std::move(items(_buffer) + index + n, end, items(_buffer) + index);
    std::destroy(kept, end);
    _buffer->size -= n;
}

PEGASUS_NAMESPACE_END

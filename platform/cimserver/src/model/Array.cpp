#include "model/ArrayImpl.h"

#include <Pegasus/Common/Exception.h>

PEGASUS_NAMESPACE_BEGIN

void throwIndexOutOfBounds() {
    throw IndexOutOfBoundsException();
}

template class Array<Boolean>;
template class Array<Uint8>;
template class Array<Sint8>;
template class Array<Uint16>;
template class Array<Sint16>;
template class Array<Uint32>;
template class Array<Sint32>;
template class Array<Uint64>;
template class Array<Sint64>;
template class Array<Real32>;
template class Array<Real64>;
template class Array<Char16>;
template class Array<String>;

PEGASUS_NAMESPACE_END

// Types and macros that every header of the CIM API builds on.
#pragma once

#if !defined(PEGASUS_PLATFORM_LINUX_X86_64_GNU)
#error "Compile with -DPEGASUS_PLATFORM_LINUX_X86_64_GNU, the platform this CIM API is made for."
#endif

#include <cstddef>

#define PEGASUS_NAMESPACE_BEGIN namespace Pegasus {
#define PEGASUS_NAMESPACE_END }
#define PEGASUS_USING_PEGASUS using namespace Pegasus
#define PEGASUS_USING_STD using namespace std
#define PEGASUS_STD(X) std::X

/// Makes a symbol visible outside its shared library.
#define PEGASUS_EXPORT __attribute__((visibility("default")))

/// What a search returns that finds nothing.
#define PEG_NOT_FOUND Pegasus::Uint32(-1)

PEGASUS_NAMESPACE_BEGIN

using Boolean = bool;
using Uint8 = unsigned char;
using Sint8 = signed char;
using Uint16 = unsigned short;
using Sint16 = short;
using Uint32 = unsigned int;
using Sint32 = int;
using Uint64 = unsigned long long;
using Sint64 = long long;
using Real32 = float;
using Real64 = double;

PEGASUS_NAMESPACE_END

// Linked into test programs only: lets the library see which of its blocks go to free(), which is
// how callers release them. A sanitizer owns free() itself and offers a hook instead.
#include "qrvapi_control.h"

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define QRVAPI_SANITIZER_OWNS_FREE 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define QRVAPI_SANITIZER_OWNS_FREE 1
#endif
#endif

#ifdef QRVAPI_SANITIZER_OWNS_FREE

// As <sanitizer/allocator_interface.h> declares it, which GCC doesn't install.
extern "C" int __sanitizer_install_malloc_and_free_hooks(void (*mallocHook)(const volatile void*,
                                                                            std::size_t),
                                                         void (*freeHook)(const volatile void*));

namespace {

void allocated(const volatile void*, std::size_t) {}

void freed(const volatile void* block) {
    qrvapi::control::noteFreed(const_cast<const void*>(block));
}

const bool watching = [] {
    if (__sanitizer_install_malloc_and_free_hooks(allocated, freed) == 0) return false;
    qrvapi::control::freeIsWatched();
    return true;
}();

}  // namespace

#else

extern "C" void __libc_free(void* block) noexcept;

extern "C" [[gnu::visibility("default")]] void free(void* block) noexcept {
    qrvapi::control::noteFreed(block);
    __libc_free(block);
}

namespace {

const bool watching = (qrvapi::control::freeIsWatched(), true);

}  // namespace

#endif

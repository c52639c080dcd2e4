# Every target of this repository builds without a warning.
add_library(qrv_warnings INTERFACE)
target_compile_options(qrv_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Werror
    -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast -Wcast-qual -Wcast-align
    -Wformat=2 -Wundef -Wnull-dereference -Wmissing-declarations)
# GCC 12 reports impossible null dereferences once it has inlined at -O2.
target_compile_options(qrv_warnings INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-null-dereference>)

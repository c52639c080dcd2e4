# QRV_SANITIZE names the sanitizers of a build, as the compiler takes them: "address,undefined" or "thread".
set(QRV_SANITIZE "" CACHE STRING "Sanitizers to build with, as -fsanitize= takes them")
if(QRV_SANITIZE)
    add_compile_options(-fsanitize=${QRV_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    add_link_options(-fsanitize=${QRV_SANITIZE})
    # GCC warns of fences that its thread sanitizer doesn't see; Asio has some.
    if(QRV_SANITIZE MATCHES thread AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        add_compile_options(-Wno-tsan)
    endif()
endif()

option(QRV_COVERAGE "Measure line coverage" OFF)
if(QRV_COVERAGE)
    add_compile_options(--coverage)
    add_link_options(--coverage)
endif()

# KESTREL_SANITIZE names the sanitizers of this build ("address,undefined", "thread"). But for undefined behaviour they cover
# the framework too: a thread sanitizer that cannot see half of the program reports races that are none.
set(KESTREL_SANITIZE "" CACHE STRING "Sanitizers to build with, as for -fsanitize=")

if(KESTREL_SANITIZE)
    add_compile_options(-fsanitize=${KESTREL_SANITIZE} -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${KESTREL_SANITIZE})
    if(KESTREL_SANITIZE MATCHES "undefined")
        add_compile_options(-fno-sanitize-recover=undefined)
        if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
            add_compile_options("-fsanitize-ignorelist=${CMAKE_SOURCE_DIR}/cmake/sanitizer-ignore.txt")
        endif()
    endif()
endif()

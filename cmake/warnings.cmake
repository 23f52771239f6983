# Warnings for our own sources; they are errors. The framework's sources are built without (see framework.cmake).
function(kestrel_warnings target)
    if(MSVC)
        target_compile_options(${target} PRIVATE /W4 /WX /permissive-
            /wd4324) # the alignment of the engine's arrays pads the classes that hold them, and may
    else()
        target_compile_options(${target} PRIVATE
            -Wall -Wextra -Wpedantic -Werror
            -Wshadow -Wconversion -Wsign-conversion -Wdouble-promotion -Wold-style-cast -Wcast-align -Wcast-qual
            -Wnon-virtual-dtor -Woverloaded-virtual -Wformat=2 -Wundef -Wnull-dereference -Wimplicit-fallthrough)
        if(KESTREL_UNITY) # what one file names, the others of its batch see; scripts/lint --each looks at each by itself
            target_compile_options(${target} PRIVATE -Wno-shadow)
        endif()
        if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang") # what other compilers warn of or refuse
            target_compile_options(${target} PRIVATE
                -Wshadow-all -Wno-shadow-uncaptured-local -Wgnu -Wextra-semi -Wextra-semi-stmt -Wcomma -Wunreachable-code
                -Wheader-hygiene -Wnonportable-include-path -Wrange-loop-analysis -Wdeprecated -Wno-deprecated-declarations)
            if(KESTREL_UNITY)
                target_compile_options(${target} PRIVATE -Wno-shadow-all -Wno-header-hygiene)
            endif()
        endif()
        if(KESTREL_SANITIZE AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
            target_compile_options(${target} PRIVATE -Wno-maybe-uninitialized) # a false alarm at -O1
        endif()
    endif()
endfunction()

# Cross-builds for 64-bit Windows on Debian 12: its GCC 12, with the newer headers and import libraries that
# scripts/lib/windows-toolchain lays into .deps/windows/sysroot.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR AMD64)

set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

get_filename_component(sysroot "${CMAKE_CURRENT_LIST_DIR}/../../.deps/windows/sysroot" ABSOLUTE)
if(NOT EXISTS "${sysroot}/include/windows.h")
    message(FATAL_ERROR "No Windows headers in '${sysroot}': run scripts/lib/windows-toolchain")
endif()

# The compiler's own folders are named again, because -nostdinc takes them away with the distribution's Windows headers,
# which are too old for the framework.
execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-libgcc-file-name OUTPUT_VARIABLE gcc COMMAND_ERROR_IS_FATAL ANY)
get_filename_component(gcc "${gcc}" DIRECTORY)
set(cxx_headers "-isystem ${gcc}/include/c++ -isystem ${gcc}/include/c++/x86_64-w64-mingw32 -isystem ${gcc}/include/c++/backward")
set(c_headers "-isystem ${gcc}/include -isystem ${gcc}/include-fixed -isystem ${sysroot}/include")

# Win64 aligns the stack to 16 bytes only, and GCC spills 32-byte vectors to it with aligned moves.
set(assembler "-Wa,-muse-unaligned-vector-move")

set(CMAKE_C_FLAGS_INIT "-nostdinc ${c_headers} ${assembler}")
set(CMAKE_CXX_FLAGS_INIT "-nostdinc -nostdinc++ ${cxx_headers} ${c_headers} ${assembler} -Wa,-mbig-obj")
set(CMAKE_RC_FLAGS_INIT "-I${sysroot}/include")

# Nothing beside the system's own DLLs is needed to run what is built. The linker strips it: the strip program would put
# the time into it, and the same sources should give the same bytes.
set(link "-B${sysroot}/lib -L${sysroot}/lib -static -static-libgcc -static-libstdc++ -s -Wl,--no-insert-timestamp")
set(CMAKE_EXE_LINKER_FLAGS_INIT "${link}")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "${link}")
set(CMAKE_MODULE_LINKER_FLAGS_INIT "${link}")

# What the build itself runs, the helper that writes moduleinfo.json, runs under Wine.
get_filename_component(CMAKE_CROSSCOMPILING_EMULATOR "${CMAKE_CURRENT_LIST_DIR}/../../scripts/lib/wine" ABSOLUTE)

set(CMAKE_FIND_ROOT_PATH "${sysroot}")
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

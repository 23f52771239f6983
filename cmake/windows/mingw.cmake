# What the framework lacks to be built by MinGW: force-included definitions, shims in front of some Windows headers, and
# the import libraries that it names in Visual Studio's way only. Read before the framework's own targets are made.
set(windows_dir "${CMAKE_CURRENT_LIST_DIR}")

add_compile_definitions(
    JUCE_USE_WINDOWS_MEDIA_FORMAT=0 # its error codes are missing from the headers
    NTDDI_VERSION=0x0A00000B)       # the framework's own choice hides Direct2D interfaces that it uses
add_compile_options(
    "$<$<COMPILE_LANGUAGE:C,CXX>:SHELL:-isystem ${KESTREL_JUCE_DIR}/modules>"
    "$<$<COMPILE_LANGUAGE:C,CXX>:-I${windows_dir}/shims>" # in front of what they extend
    "$<$<COMPILE_LANGUAGE:C,CXX>:SHELL:-include ${windows_dir}/compat.h>")

# Names and lines of all functions. What ships is stripped by scripts/lib/part-symbols, which keeps them, and not by the linker,
# as the tool chain would have it.
add_compile_options("$<$<COMPILE_LANGUAGE:C,CXX>:-g1>" "$<$<COMPILE_LANGUAGE:C,CXX>:-ffile-prefix-map=${CMAKE_SOURCE_DIR}=.>")
foreach(kind EXE SHARED MODULE)
    string(REPLACE " -s " " " CMAKE_${kind}_LINKER_FLAGS "${CMAKE_${kind}_LINKER_FLAGS}")
endforeach()

add_library(kestrel_mingw_support STATIC "${windows_dir}/guids.c" "${windows_dir}/unload.c")

add_library(kestrel_mingw INTERFACE)
target_compile_definitions(kestrel_mingw INTERFACE JUCE_DONT_AUTOLINK_TO_WIN32_LIBRARIES=1)
target_link_options(kestrel_mingw INTERFACE -Wl,-u,pthread_rwlock_rdlock) # takes unload.c in, in front of the thread library
target_link_libraries(kestrel_mingw INTERFACE kestrel_mingw_support
    d2d1 dwrite dxgi d3d11 dcomp dxguid ksuser dwmapi uiautomationcore imm32 comctl32 vfw32 comdlg32 gdi32 ole32 oleaut32 uuid
    shlwapi shell32 version winmm wininet ws2_32 iphlpapi dbghelp advapi32 user32 kernel32)

# The framework (JUCE 8). Its modules are compiled once, into kestrel_framework, which the plug-in, the tools, the tests
# and the benchmarks share.
set(KESTREL_JUCE_DIR "${CMAKE_SOURCE_DIR}/.deps/juce" CACHE PATH "A source tree of JUCE 8")

if(NOT EXISTS "${KESTREL_JUCE_DIR}/modules/juce_core/juce_core.h")
    message(FATAL_ERROR "No JUCE 8 tree in '${KESTREL_JUCE_DIR}': run scripts/setup, or name one with -DKESTREL_JUCE_DIR=")
endif()

# Debian's source package comes without the bundled image and compression libraries; any other tree has them.
if(EXISTS "${KESTREL_JUCE_DIR}/modules/juce_core/zip/zlib/zlib.h")
    set(framework_bundles_libraries ON)
else()
    set(framework_bundles_libraries OFF)
endif()

if(MINGW)
    include("${CMAKE_SOURCE_DIR}/cmake/windows/mingw.cmake")
endif()

# Elsewhere than on Linux the framework needs a helper program of its own, for icons and version resources, and compiles it
# while it is configured. That nested native CMake run takes its settings from the environment only.
if(CMAKE_SYSTEM_NAME STREQUAL "Linux")
    set(JUCE_MODULES_ONLY ON)
elseif(NOT framework_bundles_libraries)
    set(saved_toolchain "$ENV{CMAKE_TOOLCHAIN_FILE}")
    set(ENV{CMAKE_TOOLCHAIN_FILE} "${CMAKE_SOURCE_DIR}/cmake/framework-helper.cmake")
endif()
add_subdirectory("${KESTREL_JUCE_DIR}" "${CMAKE_BINARY_DIR}/framework" EXCLUDE_FROM_ALL SYSTEM)
if(JUCE_MODULES_ONLY)
    include("${KESTREL_JUCE_DIR}/extras/Build/CMake/JUCEUtils.cmake") # what makes plug-ins of programs
elseif(NOT framework_bundles_libraries)
    if(saved_toolchain)
        set(ENV{CMAKE_TOOLCHAIN_FILE} "${saved_toolchain}")
    else()
        unset(ENV{CMAKE_TOOLCHAIN_FILE})
    endif()
endif()

# The real-time sanitizer watches what the C library is asked for, whoever compiled the caller: its build need not compile
# the modules once more.
set(KESTREL_FRAMEWORK_ARCHIVE "" CACHE FILEPATH "The compiled modules of another build of the same kind, to be used as they are")

if(KESTREL_FRAMEWORK_ARCHIVE)
    set(framework kestrel_framework_settings) # never built; it knows what a user of the archive has to see
    add_library(${framework} STATIC EXCLUDE_FROM_ALL)
else()
    set(framework kestrel_framework)
    add_library(${framework} STATIC)
endif()

target_compile_definitions(${framework} PUBLIC
    JUCE_WEB_BROWSER=0
    JUCE_USE_CURL=0
    JUCE_USE_FLAC=0
    JUCE_USE_OGGVORBIS=0
    JUCE_USE_CDREADER=0
    JUCE_USE_CDBURNER=0
    JUCE_JACK=0
    JUCE_PLUGINHOST_VST3=1
    JUCE_VST3_CAN_REPLACE_VST2=0
    JUCE_REPORT_APP_USAGE=0
    JUCE_CATCH_UNHANDLED_EXCEPTIONS=1 # what painting, a timer or a message throws ends there, not in the host
    JUCE_STRICT_REFCOUNTEDPOINTER=1)

set(framework_modules
    juce::juce_audio_devices
    juce::juce_audio_formats
    juce::juce_audio_processors
    juce::juce_audio_utils
    juce::juce_dsp
    juce::juce_gui_extra)
target_link_libraries(${framework} PRIVATE ${framework_modules}
    PUBLIC juce::juce_recommended_config_flags)

if(NOT framework_bundles_libraries)
    target_compile_definitions(${framework} PUBLIC
        JUCE_INCLUDE_ZLIB_CODE=0 JUCE_INCLUDE_PNGLIB_CODE=0 JUCE_INCLUDE_JPEGLIB_CODE=0)
    target_link_libraries(${framework} PUBLIC png jpeg z)
endif()

if(MINGW)
    target_link_libraries(${framework} PUBLIC kestrel_mingw)
endif()

# What a user of the compiled modules has to see of them.
target_compile_definitions(${framework} INTERFACE $<TARGET_PROPERTY:${framework},COMPILE_DEFINITIONS>)
target_include_directories(${framework} SYSTEM INTERFACE $<TARGET_PROPERTY:${framework},INCLUDE_DIRECTORIES>)

if(NOT MSVC)
    target_compile_options(${framework} PRIVATE -w)
endif()

if(KESTREL_SANITIZE MATCHES "undefined")
    target_compile_options(${framework} PRIVATE -fno-sanitize=undefined) # see sanitizer-ignore.txt
endif()

# From version 17 on, Clang looks into a template of the framework that nobody uses and that no compiler could use.
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang" AND CMAKE_CXX_COMPILER_VERSION VERSION_GREATER_EQUAL 17)
    target_compile_options(${framework}
        PUBLIC -fdelayed-template-parsing
        INTERFACE -Wno-delayed-template-parsing-in-cxx20)
endif()

if(KESTREL_FRAMEWORK_ARCHIVE)
    add_library(kestrel_framework INTERFACE)
    target_compile_definitions(kestrel_framework INTERFACE $<TARGET_PROPERTY:${framework},INTERFACE_COMPILE_DEFINITIONS>)
    target_include_directories(kestrel_framework SYSTEM INTERFACE $<TARGET_PROPERTY:${framework},INTERFACE_INCLUDE_DIRECTORIES>)
    target_compile_options(kestrel_framework INTERFACE $<TARGET_PROPERTY:${framework},INTERFACE_COMPILE_OPTIONS>)
    target_link_libraries(kestrel_framework INTERFACE "${KESTREL_FRAMEWORK_ARCHIVE}")
    foreach(module IN LISTS framework_modules)
        target_link_libraries(kestrel_framework INTERFACE $<LINK_ONLY:${module}>)
    endforeach()
    if(NOT framework_bundles_libraries)
        target_link_libraries(kestrel_framework INTERFACE png jpeg z)
    endif()
endif()

option(KESTREL_PRECOMPILE "Read the framework's headers once for all sources" OFF)
if(KESTREL_PRECOMPILE)
    foreach(module IN LISTS framework_modules)
        string(REPLACE "juce::" "" module "${module}")
        target_precompile_headers(kestrel_framework INTERFACE <${module}/${module}.h>)
    endforeach()
endif()

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

# The framework's build helper is configured by a nested native CMake run, which takes its settings from here only.
if(NOT framework_bundles_libraries)
    set(saved_toolchain "$ENV{CMAKE_TOOLCHAIN_FILE}")
    set(ENV{CMAKE_TOOLCHAIN_FILE} "${CMAKE_SOURCE_DIR}/cmake/framework-helper.cmake")
endif()
add_subdirectory("${KESTREL_JUCE_DIR}" "${CMAKE_BINARY_DIR}/framework" EXCLUDE_FROM_ALL SYSTEM)
if(NOT framework_bundles_libraries)
    if(saved_toolchain)
        set(ENV{CMAKE_TOOLCHAIN_FILE} "${saved_toolchain}")
    else()
        unset(ENV{CMAKE_TOOLCHAIN_FILE})
    endif()
endif()

add_library(kestrel_framework STATIC)

target_compile_definitions(kestrel_framework PUBLIC
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

target_link_libraries(kestrel_framework PRIVATE
    juce::juce_audio_devices
    juce::juce_audio_formats
    juce::juce_audio_processors
    juce::juce_audio_utils
    juce::juce_dsp
    juce::juce_gui_extra
    PUBLIC juce::juce_recommended_config_flags)

if(NOT framework_bundles_libraries)
    target_compile_definitions(kestrel_framework PUBLIC
        JUCE_INCLUDE_ZLIB_CODE=0 JUCE_INCLUDE_PNGLIB_CODE=0 JUCE_INCLUDE_JPEGLIB_CODE=0)
    target_link_libraries(kestrel_framework PUBLIC png jpeg z)
endif()

if(MINGW)
    target_link_libraries(kestrel_framework PUBLIC kestrel_mingw)
endif()

# What a user of the compiled modules has to see of them.
target_compile_definitions(kestrel_framework INTERFACE $<TARGET_PROPERTY:kestrel_framework,COMPILE_DEFINITIONS>)
target_include_directories(kestrel_framework SYSTEM INTERFACE $<TARGET_PROPERTY:kestrel_framework,INCLUDE_DIRECTORIES>)

if(NOT MSVC)
    target_compile_options(kestrel_framework PRIVATE -w)
endif()

# From version 17 on, Clang looks into a template of the framework that nobody uses and that no compiler could use.
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang" AND CMAKE_CXX_COMPILER_VERSION VERSION_GREATER_EQUAL 17)
    target_compile_options(kestrel_framework
        PUBLIC -fdelayed-template-parsing
        INTERFACE -Wno-delayed-template-parsing-in-cxx20)
endif()

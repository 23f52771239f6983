# The plug-in: a VST3 module, and a Standalone application for development. The maker's addresses are the manifest's.
file(READ "${CMAKE_SOURCE_DIR}/resources/manifest.json" manifest)
string(JSON maker_website GET "${manifest}" resources websiteUrl)
string(JSON maker_email GET "${manifest}" resources supportUrl)
string(REPLACE "mailto:" "" maker_email "${maker_email}")

juce_add_plugin(KestrelEQ
    PLUGIN_NAME "Kestrel EQ"
    PRODUCT_NAME KestrelEQ
    COMPANY_NAME Quillon
    COMPANY_WEBSITE "${maker_website}"
    COMPANY_EMAIL "${maker_email}"
    BUNDLE_ID com.quillon.kestreleq
    PLUGIN_MANUFACTURER_CODE Quil
    PLUGIN_CODE KsEq
    VERSION ${PROJECT_VERSION}
    DESCRIPTION "Two-lane stereo equaliser"
    FORMATS VST3 Standalone
    VST3_CATEGORIES Fx EQ
    VST3_AUTO_MANIFEST TRUE
    IS_SYNTH FALSE
    NEEDS_MIDI_INPUT FALSE
    NEEDS_MIDI_OUTPUT FALSE
    IS_MIDI_EFFECT FALSE
    EDITOR_WANTS_KEYBOARD_FOCUS FALSE
    COPY_PLUGIN_AFTER_BUILD FALSE)

# The wrappers are the framework's own sources.
foreach(target KestrelEQ KestrelEQ_VST3 KestrelEQ_Standalone juce_vst3_helper)
    if(TARGET ${target})
        set_target_properties(${target} PROPERTIES UNITY_BUILD OFF DISABLE_PRECOMPILE_HEADERS ON)
    endif()
endforeach()

# juce_add_plugin links the framework's modules into the target, as sources to compile. They are compiled already.
set_property(TARGET KestrelEQ PROPERTY LINK_LIBRARIES "")
set_property(TARGET KestrelEQ PROPERTY INTERFACE_LINK_LIBRARIES "")
target_sources(KestrelEQ PRIVATE editor/PluginEntry.cpp)
target_link_libraries(KestrelEQ PUBLIC kestrel_engine kestrel_editor kestrel_framework)
kestrel_warnings(KestrelEQ)

if(MINGW)
    # The wrapper asks the Windows headers for a system older than those that the framework needs; the first to ask wins.
    target_compile_options(KestrelEQ_Standalone PRIVATE "SHELL:-include windows.h")
    # The helper that writes moduleinfo.json has a wide entry point.
    target_link_options(juce_vst3_helper PRIVATE -municode)
    # Tells what is linked in, and so whose notices go with the module (scripts/lib/notices).
    target_link_options(KestrelEQ_VST3 PRIVATE "-Wl,-Map=${CMAKE_BINARY_DIR}/KestrelEQ.map")
endif()

if(TARGET KestrelEQ_VST3)
    include("${CMAKE_SOURCE_DIR}/cmake/mended-wrapper.cmake")

    # What a host's browser shows: the editor's picture, under the ID of the effect's class. In place before moduleinfo.json
    # is written.
    get_target_property(bundle KestrelEQ_VST3 JUCE_PLUGIN_ARTEFACT_FILE)
    add_custom_command(TARGET KestrelEQ_VST3 PRE_LINK COMMAND "${CMAKE_COMMAND}" -E copy_if_different
        "${CMAKE_SOURCE_DIR}/docs/images/editor.png"
        "${bundle}/Contents/Resources/Snapshots/ABCDEF019182FAEB5175696C4B734571_snapshot.png" VERBATIM)
endif()

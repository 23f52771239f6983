# The framework's wrapper copies each block into a buffer of the size that the host has announced, and past its end when
# the host then sends more. The module is built with a copy of that header in which the buffer grows instead: such a host
# pays with an allocation in that block, not with its project.
set(header juce_audio_processors/format_types/juce_VST3Common.h)
file(READ "${KESTREL_JUCE_DIR}/modules/${header}" original)
set(mended "${original}")

function(mend text replacement)
    string(REPLACE "${text}" "${replacement}" result "${mended}")
    if(result STREQUAL mended)
        message(FATAL_ERROR "'${header}' of this framework reads otherwise; see cmake/longer-blocks.cmake")
    endif()
    set(mended "${result}" PARENT_SCOPE)
endfunction()

mend("    void clear() { channelCounter = 0; }" [[
    void makeRoomFor (int numSamples)
    {
        if (numSamples > buffer.getNumSamples())
            buffer.setSize (buffer.getNumChannels(), numSamples);
    }

    void clear() { channelCounter = 0; }]])
mend("        scratchBuffer.clear();\n"
     "        scratchBuffer.makeRoomFor ((int) data.numSamples);\n        scratchBuffer.clear();\n")

set(copy "${CMAKE_BINARY_DIR}/longer-blocks/${header}")
file(CONFIGURE OUTPUT "${copy}" CONTENT "@mended@" @ONLY) # touches the file only when it changes
target_include_directories(KestrelEQ_VST3 BEFORE PRIVATE "${CMAKE_BINARY_DIR}/longer-blocks")

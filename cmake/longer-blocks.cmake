# The framework's wrapper copies each block into a buffer of the size that the host has announced, and past its end when
# the host then sends more. The module is built with a copy of that header in which the buffer grows instead: such a host
# pays with an allocation in that block, not with its project. A test sends the module such blocks.
set(header juce_audio_processors/format_types/juce_VST3Common.h)
set(original "")
if(EXISTS "${KESTREL_JUCE_DIR}/modules/${header}")
    file(READ "${KESTREL_JUCE_DIR}/modules/${header}" original)
endif()

string(REPLACE "    void clear() { channelCounter = 0; }" [[
    void makeRoomFor (int numSamples)
    {
        if (numSamples > buffer.getNumSamples())
            buffer.setSize (buffer.getNumChannels(), numSamples);
    }

    void clear() { channelCounter = 0; }]] grows "${original}")
string(REPLACE "        scratchBuffer.clear();"
    "        scratchBuffer.makeRoomFor ((int) data.numSamples);\n        scratchBuffer.clear();" mended "${grows}")

if(grows STREQUAL original OR mended STREQUAL grows)
    message(WARNING "This framework's '${header}' reads otherwise: blocks longer than announced may not be survived")
else()
    file(CONFIGURE OUTPUT "${CMAKE_BINARY_DIR}/longer-blocks/${header}" CONTENT "@mended@" @ONLY) # touched only on a change
    target_include_directories(KestrelEQ_VST3 BEFORE PRIVATE "${CMAKE_BINARY_DIR}/longer-blocks")
endif()

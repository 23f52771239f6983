# The framework's VST3 wrapper, mended where a host would pay for it: the module is built with copies of two of its files.
# A framework that reads otherwise is used as it is, with a warning. Tests look at the built module for each of these.
function(mend fault old new)
    string(REPLACE "${old}" "${new}" result "${text}")
    if(result STREQUAL text)
        message(WARNING "This framework's VST3 wrapper reads otherwise: ${fault}")
    endif()
    set(text "${result}" PARENT_SCOPE)
endfunction()

set(copies "${CMAKE_BINARY_DIR}/mended-wrapper")

# Each block is copied into a buffer of the size that the host has announced, and past its end when the host then sends
# more. The buffer grows instead: such a host pays with an allocation in that block, not with its project.
set(file juce_audio_processors/format_types/juce_VST3Common.h)
file(READ "${KESTREL_JUCE_DIR}/modules/${file}" text)
mend("blocks longer than announced may not be survived" "    void clear() { channelCounter = 0; }" [[
    void makeRoomFor (int numSamples)
    {
        if (numSamples > buffer.getNumSamples())
            buffer.setSize (buffer.getNumChannels(), numSamples);
    }

    void clear() { channelCounter = 0; }]])
mend("blocks longer than announced may not be survived" "        scratchBuffer.clear();"
    "        scratchBuffer.makeRoomFor ((int) data.numSamples);\n        scratchBuffer.clear();")
file(CONFIGURE OUTPUT "${copies}/${file}" CONTENT "@text@" @ONLY) # touched only on a change
target_include_directories(KestrelEQ_VST3 BEFORE PRIVATE "${copies}")

set(file juce_audio_plugin_client/juce_audio_plugin_client_VST3.cpp)
file(READ "${KESTREL_JUCE_DIR}/modules/${file}" text)

# Which threads are in a change of the host's was a flag per thread, for which MinGW's run-time library allocates in the first
# block of each new thread.
set(calling "the first block of a thread may allocate")
mend("${calling}" [[
    explicit InParameterChangedCallbackSetter (bool& ref)
        : inner ([&]() -> auto& { jassert (! ref); return ref; }(), true, false) {}

private:
    ScopedValueSetter<bool> inner;
};]] [[
    struct Threads
    {
        operator bool() const
        {
            return std::any_of (ids.begin(), ids.end(), [own = Thread::getCurrentThreadId()] (auto& id) { return id == own; });
        }

        std::array<std::atomic<Thread::ThreadID>, 64> ids {}; // where all are taken, the host hears its own change once more
    };

    explicit InParameterChangedCallbackSetter (Threads& threads)
    {
        for (auto& id : threads.ids)
        {
            Thread::ThreadID nobody = {};

            if (id.compare_exchange_strong (nobody, Thread::getCurrentThreadId()))
            {
                taken = &id;
                break;
            }
        }
    }

    ~InParameterChangedCallbackSetter()
    {
        if (taken != nullptr)
            *taken = Thread::ThreadID {};
    }

private:
    std::atomic<Thread::ThreadID>* taken = nullptr;
};]])
mend("${calling}" "static thread_local bool inParameterChangedCallback = false;"
    "static InParameterChangedCallbackSetter::Threads inParameterChangedCallback;")
mend("${calling}" "        inParameterChangedCallback = false;\n\n" "")

# What changes while the host makes a change of its own is told to nobody; nor may its gestures be, which would be empty.
foreach(edit begin end)
    mend("hosts see empty gestures"
        "        if (! inSetState && MessageManager::getInstance()->isThisTheMessageThread())\n            ${edit}Edit (vstParamId);"
        "        if (! inParameterChangedCallback && ! inSetState && MessageManager::getInstance()->isThisTheMessageThread())\n            ${edit}Edit (vstParamId);")
endforeach()

# A host may have no menu for a parameter.
mend("a host without a menu for a parameter is not survived"
    "            return std::make_unique<EditorContextMenu> (editor, menu);"
    "            return menu != nullptr ? std::make_unique<EditorContextMenu> (editor, menu) : nullptr;")

# Changes that another thread than the message thread has made wait for the next block, to be handed over to the host. What
# waits when the host restores a state is no change of that state.
mend("changes made before a restore come back after it"
    "            pluginInstance->setStateInformation (data, static_cast<int> (size));"
    "        {\n            pluginInstance->setStateInformation (data, static_cast<int> (size));\n            comPluginInstance->forAllChangedParameters ([] (Vst::ParamID, float) {});\n        }")

# The window's size goes from the editor's pixels to the host's and back with every change of the display's scale. Rounded up
# both ways, the window grew each time.
set(growing "a window grows by a pixel whenever it goes to a display of another scale")
mend("${growing}"
    "                    return getLocalArea (pluginEditor.get(), pluginEditor->getLocalBounds());"
    "                    return getLocalArea (pluginEditor.get(), pluginEditor->getLocalBounds().toFloat()).toNearestInt();")
mend("${growing}"
    "pluginEditor->setBounds (pluginEditor->getLocalArea (this, newBounds).withZeroOrigin());"
    "pluginEditor->setBounds (pluginEditor->getLocalArea (this, newBounds.toFloat()).toNearestInt().withZeroOrigin());")
mend("${growing}"
    "auto prevEditorBounds = pluginEditor->getLocalArea (this, lastBounds);"
    "auto prevEditorBounds = pluginEditor->getLocalArea (this, lastBounds.toFloat()).toNearestInt();")

# A state ends with a part of the wrapper's own, whose length the state tells. A length beyond the state made the rest of it,
# which is what the plug-in is given, longer than the block of memory.
mend("a state with a false length is read past its end"
    "                privateDataSize = ByteOrder::swapIfBigEndian (privateDataSize);"
    "                privateDataSize = ByteOrder::swapIfBigEndian (privateDataSize);\n\n                if (privateDataSize > size - jucePrivDataIdentifierSize - sizeof (uint64))\n                    privateDataSize = 0;")
mend("a state with a false length is read past its end"
    "                size -= sizeof (uint64);" "                size -= jmin (size, (uint64) sizeof (uint64));")

file(CONFIGURE OUTPUT "${copies}/${file}" CONTENT "@text@" @ONLY)
get_target_property(sources juce_audio_plugin_client_VST3 INTERFACE_SOURCES)
list(TRANSFORM sources REPLACE ".*/juce_audio_plugin_client_VST3\\.cpp$" "${copies}/${file}")
set_target_properties(juce_audio_plugin_client_VST3 PROPERTIES INTERFACE_SOURCES "${sources}")

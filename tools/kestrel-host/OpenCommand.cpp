#include "tools/kestrel-host/Commands.h"
#include "tools/kestrel-host/Errors.h"
#include "tools/kestrel-host/HostedModule.h"
#include "tools/kestrel-host/RestoreState.h"
#include "tools/kestrel-host/StateFile.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <iostream>

namespace kestreleq::host
{
namespace
{

constexpr double sampleRate = 48000.0;
constexpr int blockSize = 960;
constexpr int blocksPerSecond = 50;

/** The keys that the editor leaves to its host, one a line on standard output. */
struct LeftKeys final : juce::KeyListener
{
    bool keyPressed (const juce::KeyPress& key, juce::Component*) override
    {
        std::cout << "key: " << key.getTextDescription() << std::endl;
        return true;
    }
};

/** A desktop window around the module's editor. Closing it ends the message loop. */
class EditorWindow final : public juce::DocumentWindow
{
public:
    explicit EditorWindow (juce::AudioProcessorEditor& editor)
        : DocumentWindow (editor.processor.getName(), juce::Colours::black, allButtons)
    {
        setUsingNativeTitleBar (true);
        setResizable (editor.isResizable(), false);
        setContentNonOwned (&editor, true);
        centreWithSize (getWidth(), getHeight());
        addKeyListener (&leftKeys);
        editor.addKeyListener (&leftKeys); // the framework's own component around a module's window takes every key
        setVisible (true);
    }

    ~EditorWindow() override { getContentComponent()->removeKeyListener (&leftKeys); }

    void closeButtonPressed() override { juce::MessageManager::getInstance()->stopDispatchLoop(); }

private:
    LeftKeys leftKeys;
};

/** Runs silence through the module at the pace of real time, so that what the editor changes reaches the audio side and
    what the editor shows is alive. */
class SilentPlayback final : private juce::Timer
{
public:
    explicit SilentPlayback (HostedModule& moduleToUse)
        : module (moduleToUse)
    {
        startTimerHz (blocksPerSecond);
    }

private:
    void timerCallback() override
    {
        block.clear();
        module.process (block);
    }

    HostedModule& module;
    juce::AudioBuffer<float> block { 2, blockSize };
};

void show (HostedModule& module, std::optional<double> seconds)
{
    if (juce::Desktop::getInstance().getDisplays().displays.isEmpty())
        throw Failure ("there is no display to open a window on");

    const std::unique_ptr<juce::AudioProcessorEditor> editor (module.instance().createEditorIfNeeded());

    if (editor == nullptr)
        throw Failure (module.description().name.toStdString() + " has no editor");

    const EditorWindow window (*editor);

    if (window.getPeer() == nullptr || window.getPeer()->getNativeHandle() == nullptr)
        throw Failure ("no window can be opened");

    const SilentPlayback playback (module);
    auto* messages = juce::MessageManager::getInstance();

    if (seconds)
        juce::Timer::callAfterDelay (
            juce::roundToInt (*seconds * 1000.0), [messages] { messages->stopDispatchLoop(); });

    messages->runDispatchLoop();
}

} // namespace

void run (const OpenOptions& options)
{
    HostedModule module (options.module);
    module.prepareStereo (sampleRate, blockSize);

    if (options.state)
        restoreStateFile (module, options.module, *options.state);

    show (module, options.seconds);

    if (options.saveState)
        writeStateFile (*options.saveState, module.saveState());
}

} // namespace kestreleq::host

#pragma once

#include "engine/ParameterLinks.h"
#include "engine/ParameterTree.h"
#include "engine/SharedTick.h"
#include "engine/parameters/ParameterTable.h"

#include <array>
#include <atomic>
#include <functional>

namespace kestreleq
{

/** Decides what becomes a step of the undo history: every gesture of the user (a drag, a click), with whatever was
    linked to it, and every named operation. What the host changes on its own is written into the tree past the history.

    A step belongs to the parameters whose gestures begin within it, and goes by the first one's name if it has none of
   its own. Message thread, unless a function says otherwise.
 */
class EditHistory final : private juce::AudioProcessorParameter::Listener, private juce::ValueTree::Listener
{
public:
    /** All of these must outlive this object. */
    EditHistory (ParameterTree& parameterTree, juce::UndoManager& manager, ParameterLinks& parameterLinks);
    ~EditHistory() override;

    /** Encloses the gestures that make one step: called before the first begins and after the last has ended, and never
        from a parameter's listener, which holds a lock that a restored state waits for. Nested pairs are one step. */
    void beginStep (const juce::String& name = {});
    void endStep();

    /** Runs an operation as one step of this name. Any thread; on another than the message thread it is the host's and
       no step. */
    void perform (const juce::String& name, const std::function<void()>& operation);

    /** Adds to the step that is being made something else than a parameter: calls `redo`, and later `undo` and `redo`
       in turn. What they use must outlive the undo manager. Without a step, `redo` is called and that is all. */
    void record (std::function<void()> redo, std::function<void()> undo);

    /** Names the next step that has no name of its own. Any thread. */
    void setPendingName (const juce::String& name);

    /** True from setPendingName until a step has taken the name. */
    bool hasPendingName() const { return pending; }

    /** Takes back, or repeats, one step with all its values and no answer of the links. False when there is none, or a
        step is being made. */
    bool undo();
    bool redo();

    bool canUndo() const;
    bool canRedo() const;

    /** Brings the tree up to date; costs next to nothing where it is. Any thread. */
    void flush();

    /** Held around every use of the history and of the tree as a whole, before the tree's own lock. A host may come
        back from inside, so it can be entered again. */
    juce::CriticalSection& getLock() { return lock; }

private:
    void parameterValueChanged (int, float) override {}

    void parameterGestureChanged (int index, bool isStarting) override;

    void valueTreePropertyChanged (juce::ValueTree&, const juce::Identifier&) override { treeHasChanged = true; }

    void valueTreeRedirected (juce::ValueTree&) override { treeHasChanged = true; }

    void lookAgain();
    bool step (bool (juce::UndoManager::*move)());
    juce::String takePendingName();

    ParameterTree& tree;
    juce::UndoManager& undoManager;
    ParameterLinks& links;

    mutable juce::CriticalSection lock;
    std::array<std::atomic<bool>, numParameters> touched {}; // by the step that is being made
    int depth = 0;                                           // of steps within each other
    std::atomic<juce::Thread::ThreadID> stepThread {};       // the message thread while it makes one
    juce::String nameAtEnd;                                  // of the step: a given one, or its first parameter's

    std::array<float, numParameters> flushed {}; // the tree's values as of the last flush, unless it has changed since
    std::atomic<bool> treeHasChanged { true };

    juce::SpinLock pendingLock;
    juce::String pendingName;
    std::atomic<bool> pending { false };

    SharedTick tick { [this] { lookAgain(); } }; // last, since it goes on until it goes
};

} // namespace kestreleq

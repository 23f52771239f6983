#include "engine/EditHistory.h"

#include <utility>

namespace kestreleq
{
namespace
{

struct RecordedAction final : juce::UndoableAction
{
    RecordedAction (std::function<void()> functionToRedo, std::function<void()> functionToUndo)
        : again (std::move (functionToRedo)),
          back (std::move (functionToUndo))
    {
    }

    bool perform() override
    {
        again();
        return true;
    }

    bool undo() override
    {
        back();
        return true;
    }

    const std::function<void()> again, back;
};

} // namespace

EditHistory::EditHistory (ParameterTree& parameterTree, juce::UndoManager& manager, ParameterLinks& parameterLinks)
    : tree (parameterTree),
      undoManager (manager),
      links (parameterLinks)
{
    for (std::size_t i = 0; i < numParameters; ++i)
        tree[static_cast<Parameter> (i)].addListener (this);

    tree.state.addListener (this);
}

EditHistory::~EditHistory()
{
    tree.state.removeListener (this);

    for (std::size_t i = 0; i < numParameters; ++i)
        tree[static_cast<Parameter> (i)].removeListener (this);
}

void EditHistory::lookAgain()
{
    flush();

    if (depth == 0)
        links.announce();
}

void EditHistory::parameterGestureChanged (int index, bool isStarting)
{
    // A link that answers the host's automation makes gestures too, on any thread; they are not the user's.
    if (! isStarting || stepThread != juce::Thread::getCurrentThreadId())
        return;

    touched[static_cast<std::size_t> (index)] = true;

    if (nameAtEnd.isEmpty())
        nameAtEnd = parameterTable[static_cast<std::size_t> (index)].name;
}

void EditHistory::perform (const juce::String& name, const std::function<void()>& operation)
{
    if (! juce::MessageManager::existsAndIsCurrentThread())
        return operation();

    beginStep (name);
    const juce::ScopeGuard end { [this] { endStep(); } };
    operation();
}

void EditHistory::record (std::function<void()> redo, std::function<void()> undo)
{
    if (stepThread != juce::Thread::getCurrentThreadId())
        return redo();

    const juce::ScopedLock scope (lock);
    undoManager.perform (new RecordedAction (std::move (redo), std::move (undo)));
}

void EditHistory::beginStep (const juce::String& name)
{
    if (depth++ > 0)
    {
        takePendingName(); // it was meant for this one, not for the next
        return;
    }

    stepThread = juce::Thread::getCurrentThreadId();
    const juce::ScopedLock scope (lock);
    flush(); // what came before is not part of this step
    const auto pendingOrNone = takePendingName();
    nameAtEnd = name.isEmpty() ? pendingOrNone : name;
    undoManager.beginNewTransaction (nameAtEnd);
}

void EditHistory::endStep()
{
    if (depth == 0 || --depth > 0)
        return;

    stepThread = juce::Thread::ThreadID();
    const juce::ScopedLock scope (lock);
    flush();
    undoManager.setCurrentTransactionName (nameAtEnd);

    for (auto& flag : touched)
        flag = false;

    undoManager.beginNewTransaction();
}

void EditHistory::flush()
{
    const juce::ScopedLock scope (lock);
    const bool lookAtAll = treeHasChanged.exchange (false);

    for (std::size_t i = 0; i < numParameters; ++i)
    {
        const auto value = tree.getValues()[static_cast<Parameter> (i)];

        if (value == flushed[i] && ! lookAtAll)
            continue;

        const juce::String id (parameterTable[i].id);
        flushed[i] = value;

        if (tree.read (id) != value)
            tree.write (id, value, touched[i] ? &undoManager : nullptr);
    }
}

bool EditHistory::step (bool (juce::UndoManager::*move)())
{
    if (depth > 0)
        return false;

    const juce::ScopedLock scope (lock);
    flush();

    const ParameterLinks::ScopedPause pause (links);

    if (! (undoManager.*move)())
        return false;

    // The tree now holds what the parameters must; the framework passes on an undo but for a value's last bit, and no
    // redo of a value that was written past it.
    for (std::size_t i = 0; i < numParameters; ++i)
    {
        const auto value = tree.read (parameterTable[i].id);

        if (value && ! tree.holds (static_cast<Parameter> (i), *value))
            tree.setExactly (static_cast<Parameter> (i), *value);
    }

    return true;
}

bool EditHistory::undo()
{
    return step (&juce::UndoManager::undo);
}

bool EditHistory::redo()
{
    return step (&juce::UndoManager::redo);
}

bool EditHistory::canUndo() const
{
    const juce::ScopedLock scope (lock);
    return undoManager.canUndo();
}

bool EditHistory::canRedo() const
{
    const juce::ScopedLock scope (lock);
    return undoManager.canRedo();
}

void EditHistory::setPendingName (const juce::String& name)
{
    const juce::SpinLock::ScopedLockType scope (pendingLock);
    pendingName = name;
    pending = true;
}

juce::String EditHistory::takePendingName()
{
    const juce::SpinLock::ScopedLockType scope (pendingLock);
    return pending.exchange (false) ? std::exchange (pendingName, {}) : juce::String();
}

} // namespace kestreleq

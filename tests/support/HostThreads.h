#pragma once

#include "engine/KestrelProcessor.h"

#include <atomic>
#include <chrono>
#include <random>
#include <thread>

namespace kestreleq::test
{

/** What a host's threads do to a processor beside its audio and its window, for as long as this lives: one automates
    every parameter, one saves states and restores them. */
class HostThreads
{
public:
    explicit HostThreads (KestrelProcessor& processorToUse)
        : processor (processorToUse)
    {
    }

    ~HostThreads()
    {
        stop = true;
        automation.join();
        states.join();
    }

private:
    void automate()
    {
        for (std::mt19937 random (2); ! stop;)
        {
            auto& parameter = *processor.getParameters()[static_cast<int> (random() % numParameters)];
            parameter.setValueNotifyingHost (static_cast<float> (random() % 1025) / 1024.0f);
        }
    }

    void saveAndRestore()
    {
        juce::MemoryBlock first;
        processor.getStateInformation (first);

        while (! stop)
        {
            juce::MemoryBlock state;
            processor.getStateInformation (state);
            std::this_thread::sleep_for (std::chrono::milliseconds (1));
            processor.setStateInformation (first.getData(), static_cast<int> (first.getSize()));
            first.swapWith (state);
        }
    }

    KestrelProcessor& processor;
    std::atomic<bool> stop { false };
    std::thread automation { [this] { automate(); } };
    std::thread states { [this] { saveAndRestore(); } };
};

} // namespace kestreleq::test

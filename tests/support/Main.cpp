#include <gtest/gtest.h>

#include <juce_events/juce_events.h>

/** The parameter tree runs a timer, so the message thread has to exist: this one. */
int main (int argc, char** argv)
{
    testing::InitGoogleTest (&argc, argv);
    const juce::ScopedJuceInitialiser_GUI framework;
    return RUN_ALL_TESTS();
}

#include <gtest/gtest.h>

#include <juce_gui_basics/juce_gui_basics.h>

#include <cstdlib>

/** The parameter tree runs a timer, so the message thread has to exist: this one. */
int main (int argc, char** argv)
{
    testing::InitGoogleTest (&argc, argv);
    ::setenv ("DISPLAY", "none", 0); // without one, the framework would look for a server on its own, and end with it
    const juce::ScopedJuceInitialiser_GUI framework;

    // Stored pictures show text; whatever else a machine has, this face is installed with the build's packages.
    juce::LookAndFeel::getDefaultLookAndFeel().setDefaultSansSerifTypefaceName ("DejaVu Sans");
    return RUN_ALL_TESTS();
}

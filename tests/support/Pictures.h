#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include <gtest/gtest.h>

namespace kestreleq::test
{

/** Paints a component without a window. */
juce::Image paintPicture (juce::Component& component, float scale = 1.0f);

/** The number of pixels of which a channel differs by more than `tolerance` of 255; every pixel when sizes differ. */
int countDifferentPixels (const juce::Image& a, const juce::Image& b, int tolerance);

/** What looksAsStored means by the same picture. */
bool looksLike (const juce::Image& a, const juce::Image& b);

/** Compares a component's picture with the stored one of this name in tests/data/pictures. Fails, and writes the new
    picture into the system's folder for temporary files, when they differ in more than a few pixels of antialiasing.
    With KESTREL_STORE_PICTURES set in the environment it stores the picture instead. */
testing::AssertionResult looksAsStored (juce::Component& component, const juce::String& name);

} // namespace kestreleq::test

#pragma once

namespace juce
{
class Component;
}

namespace kestreleq
{

/** Under Wine, whose Direct2D back end shows a black window, has the component's own window painted in software. On
    Windows, and on other systems, this does nothing. */
void paintInSoftwareUnderWine (juce::Component& component);

} // namespace kestreleq

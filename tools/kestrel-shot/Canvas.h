#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

namespace kestreleq::shot
{

/** A picture that a component, which needs no window, is painted into as into a window: whole at first, then only what
   it has asked to have painted again. The component must outlive it. Message thread. */
class Canvas
{
public:
    Canvas (juce::Component& componentToPaint, const juce::ImageType& kind);
    ~Canvas();

    /** Paints what is out of date. */
    void paint();

    /** Paints everything. */
    void paintAll();

    /** Ends painting and hands the picture over. */
    juce::Image finish();

private:
    class Collector;

    juce::Component& component;
    juce::RectangleList<int> outdated;
    juce::Image picture;
    std::unique_ptr<juce::Graphics> graphics; // one for all paints, as a window keeps its renderer
};

} // namespace kestreleq::shot

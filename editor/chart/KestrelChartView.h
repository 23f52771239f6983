#pragma once

#include "editor/chart/ChartNodes.h"
#include "editor/chart/ChartReadout.h"
#include "editor/chart/NodeDrag.h"
#include "editor/chart/NodeField.h"
#include "editor/chart/ResponsePath.h"
#include "editor/chart/SpectrumDisplay.h"

#include "engine/KestrelProcessor.h"
#include "engine/dsp/LaneResponse.h"
#include "ui_pro/primitives/CachedLayer.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

namespace kestreleq
{

/** One lane's chart: its response curve, with a node for every band and the air, over its live spectra. Owns no timer;
    the editor refreshes it. Message thread. */
class KestrelChartView final : public juce::Component, public juce::SettableTooltipClient
{
public:
    /** Lane 0 or 1; the processor must outlive the view. */
    static std::unique_ptr<KestrelChartView> create (KestrelProcessor& processor, std::size_t lane);

    /** Takes the lane's parameters and what the analyser's last update left; repaints when either moved. */
    void refresh();

    /** Called for a right click on a node with its parameter and the place in the view. */
    std::function<void (const juce::AudioProcessorParameter&, juce::Point<int>)> onNodeMenu;

    /** Paints what lies beneath the view, and beyond its edges, in the view's coordinates. With it the view covers its
        whole area, and nothing beneath it is painted in vain. Also for when that has changed. */
    void setSurface (std::function<void (juce::Graphics&)> newSurface);

    /** The lane's colour. */
    void setColour (juce::Colour newColour);

    /** A lane that is bypassed is drawn dim. */
    void setActive (bool shouldBeActive);

    /** What the readout on the chart says, with single spaces between its words; empty while there is none. */
    juce::String getReadoutText() const;

    const dsp::LaneResponse& getResponse() const { return response; }

    const ChartNodes& getNodes() const { return nodes; }

    const quillon::ui_pro::controls::ChartAxes& getAxes() const { return axes; }

    SpectrumDisplay& getSpectrum() { return spectrum; }

    void paint (juce::Graphics& g) override;
    void resized() override;
    void visibilityChanged() override;
    void mouseMove (const juce::MouseEvent& event) override;
    void mouseExit (const juce::MouseEvent& event) override;
    void mouseDown (const juce::MouseEvent& event) override;
    void mouseDrag (const juce::MouseEvent& event) override;
    void mouseUp (const juce::MouseEvent& event) override;
    void mouseDoubleClick (const juce::MouseEvent& event) override;
    bool keyPressed (const juce::KeyPress& key) override;
    bool keyStateChanged (bool isAnyDown) override;
    void focusGained (FocusChangeType cause) override;
    void focusLost (FocusChangeType cause) override;
    std::unique_ptr<juce::AccessibilityHandler> createAccessibilityHandler() override;

    /** Whether a key is held down. What it does until it is released is one step. */
    std::function<bool (int)> isKeyDown = [] (int keyCode) { return juce::KeyPress::isKeyCurrentlyDown (keyCode); };

    /** Ends the step of a key that is held. */
    void endHeldKey() { held.reset(); }

    /** The node that keys move. */
    std::size_t getFocusedNode() const { return focused; }

    /** Where a value for it is typed. */
    NodeField& getField() { return field; }

private:
    KestrelChartView (KestrelProcessor& processorToShow, std::size_t laneToShow);

    /** The lane's value for a knob's index; the default when there is no such parameter. */
    float readValue (std::size_t index, float defaultValue) const;

    dsp::LaneParameters readLane() const;
    bool refreshResponse();
    void rebuildCurve();

    /** What follows the pointer: the readout's box, and the node or the mark on the curve. */
    struct Pointed
    {
        juce::Rectangle<float> box;
        juce::Rectangle<float> spot;
    };

    Pointed layOutPointed() const;
    void repaintPointed();
    void paintSpectrum (juce::Graphics& g) const;
    void paintFace (juce::Graphics& g);
    void paintNodesAtRest (juce::Graphics& g) const;
    void paintChosenNode (juce::Graphics& g) const;
    std::optional<ChartReadout> makeReadout() const;
    ChartReadout describeNode (std::size_t node) const;
    juce::String textOf (std::size_t knob) const;
    juce::Colour nodeColour (std::size_t node) const;
    bool isAirOff() const;
    std::optional<std::size_t> chosenNode() const;
    void openField();
    void nudge (int keyCode, std::size_t parameter, float distance);
    void letGoOfKeys();
    juce::Colour shownColour() const;
    void setPointer (std::optional<juce::Point<float>> position);
    void letGo();
    void setHovered (std::optional<std::size_t> node);
    juce::RangedAudioParameter& parameterOf (std::size_t knob) const;

    KestrelProcessor& processor;
    const std::size_t lane;
    juce::Colour colour;

    quillon::ui_pro::controls::ChartAxes axes;
    dsp::LaneResponse response;
    double responseRate = 0.0; // Hz, that the response was made for
    SpectrumDisplay spectrum;
    ChartNodes nodes;

    ResponsePath curve;
    std::uint32_t curvesBuilt = 0;
    std::function<void (juce::Graphics&)> surface;
    quillon::ui_pro::primitives::CachedLayer background;

    /** What decides the picture of grid, curve and nodes, beside the size. */
    struct Face
    {
        std::uint32_t curve = 0;
        juce::Colour colour;
        bool active = false;
        bool airOff = false;
        std::optional<std::size_t> chosen;

        bool operator== (const Face&) const = default;
    };

    Face paintedFace;
    quillon::ui_pro::primitives::CachedLayer faceLayer; // of the painted face, once it rests

    bool active = true;
    quillon::ui_pro::primitives::PixelGrid grid; // of the last painting
    Pointed pointed;                             // there
    std::optional<juce::Point<float>> pointer;   // while it is over the plot
    std::optional<std::size_t> hovered;
    std::optional<std::size_t> grasped;
    std::size_t focused = 0;
    std::unique_ptr<NodeDrag> drag;
    std::unique_ptr<NodeGesture> held; // by a key
    int heldKey = 0;
    NodeField field;
};

} // namespace kestreleq

// The chart's mouse and keys.

#include "editor/chart/KestrelChartView.h"

#include "editor/lane/LaneKnobs.h"
#include "ui_pro/primitives/ParameterTag.h"
#include "ui_pro/primitives/PixelGrid.h"

#include <algorithm>
#include <utility>

namespace kestreleq
{
namespace
{

using namespace quillon::ui_pro;

constexpr float keyStep = 0.01f; // of a node's whole range
constexpr float fineKeyStep = 0.001f;
constexpr float fieldTextSize = 12.0f;

} // namespace

void KestrelChartView::setPointer (std::optional<juce::Point<float>> position)
{
    if (position && ! axes.plot.contains (*position))
        position.reset();

    if (pointer == position)
        return;

    pointer = position;
    repaintPointed();
}

juce::RangedAudioParameter& KestrelChartView::parameterOf (std::size_t knob) const
{
    return processor.getCore().getTree()[onLane (laneKnobs[knob].parameter, lane)];
}

void KestrelChartView::setHovered (std::optional<std::size_t> node)
{
    if (hovered == node)
        return;

    hovered = node;
    primitives::setParameterIndex (*this, node ? parameterOf (*node).getParameterIndex() : -1);
    setMouseCursor (node ? juce::MouseCursor::PointingHandCursor : juce::MouseCursor::NormalCursor);
    repaintPointed();
}

void KestrelChartView::mouseMove (const juce::MouseEvent& event)
{
    setPointer (event.position);
    setHovered (nodes.hit (event.position));
}

void KestrelChartView::mouseExit (const juce::MouseEvent&)
{
    setPointer ({});
    setHovered ({});
}

void KestrelChartView::mouseDown (const juce::MouseEvent& event)
{
    drag.reset();
    held.reset();
    grasped = nodes.hit (event.position);

    if (! grasped)
        return;

    if (event.mods.isPopupMenu())
    {
        const auto node = *std::exchange (grasped, std::nullopt);

        if (onNodeMenu != nullptr)
            onNodeMenu (parameterOf (node), event.position.roundToInt());

        return;
    }

    repaint();
}

void KestrelChartView::mouseDrag (const juce::MouseEvent& event)
{
    const auto distance = event.position - event.mouseDownPosition;

    if (! grasped || (drag == nullptr && distance.isOrigin()))
        return;

    // A press that moves nothing makes no step. The drag goes on where the screen ends.
    if (drag == nullptr)
    {
        event.source.enableUnboundedMouseMovement (true, true);
        drag = std::make_unique<NodeDrag> (
            processor, lane, *grasped, axes.plot.getHeight(), axes.xFor (200.0) - axes.xFor (100.0));
    }

    drag->moveBy (distance, event.mods.isShiftDown());
    refresh();
}

void KestrelChartView::mouseUp (const juce::MouseEvent& event)
{
    letGo();
    setPointer (event.position);
    setHovered (nodes.hit (event.position));
}

void KestrelChartView::visibilityChanged()
{
    if (! isVisible())
    {
        field.close();
        held.reset();
        letGo(); // a host that links the lanes hides the view under the pointer; the step must not stay open
    }
}

void KestrelChartView::letGo()
{
    drag.reset();

    if (std::exchange (grasped, std::nullopt))
        repaint();
}

void KestrelChartView::mouseDoubleClick (const juce::MouseEvent& event)
{
    drag.reset();

    if (const auto node = nodes.hit (event.position))
        resetNode (processor, lane, *node);

    refresh();
}

bool KestrelChartView::keyPressed (const juce::KeyPress& key)
{
    const auto mods = key.getModifiers();

    if (key.getKeyCode() != heldKey)
        held.reset();

    if (grasped || mods.isCommandDown() || mods.isCtrlDown() || mods.isAltDown())
        return false;

    const auto code = key.getKeyCode();
    const auto step = mods.isShiftDown() ? fineKeyStep : keyStep;

    const auto is = [code] (int other) { return code == other; };

    if (is (juce::KeyPress::leftKey) || is (juce::KeyPress::rightKey))
        focused = (focused + (is (juce::KeyPress::rightKey) ? 1 : ChartNodes::count - 1)) % ChartNodes::count;
    else if (is (juce::KeyPress::upKey) || is (juce::KeyPress::downKey))
        nudge (code, 0, is (juce::KeyPress::upKey) ? step : -step);
    else if (is (juce::KeyPress::pageUpKey) || is (juce::KeyPress::pageDownKey))
        nudge (code, 1, (is (juce::KeyPress::pageUpKey) ? 1.0f : -1.0f) / nodeAirSteps);
    else if (is (juce::KeyPress::deleteKey))
        resetNode (processor, lane, focused);
    else if (is (juce::KeyPress::returnKey))
        openField();
    else
        return false;

    refresh();
    repaint();

    if (auto* handler = getAccessibilityHandler())
        handler->notifyAccessibilityEvent (juce::AccessibilityEvent::valueChanged);

    return true;
}

bool KestrelChartView::keyStateChanged (bool)
{
    letGoOfKeys();
    return false;
}

void KestrelChartView::nudge (int keyCode, std::size_t parameter, float distance)
{
    NodeParameters moved {};
    moved[parameter] = parametersOf (processor, lane, focused)[parameter];

    if (moved[parameter] == nullptr)
        return;

    const auto from = moved[parameter]->getValue();
    const auto to = std::clamp (from + distance, 0.0f, 1.0f);

    if (to == from) // at the end of the range
        return;

    if (held == nullptr)
        held = std::make_unique<NodeGesture> (processor, moved);

    heldKey = keyCode;
    held->set (parameter, to);
}

void KestrelChartView::letGoOfKeys()
{
    if (held != nullptr && ! isKeyDown (heldKey))
        held.reset();
}

void KestrelChartView::openField()
{
    const auto size = std::max (
        fieldTextSize, 1.2f * primitives::PixelGrid::smallestText / getApproximateScaleFactorForComponent (this));
    const ChartReadout place { {}, nodes.position (focused), ChartNodes::radius + 8.0f };
    field.open (placeReadout (axes, response.getCurve(), place, { 6.5f * size, 1.9f * size }).toNearestInt(), size,
        textOf (focused),
        [this, node = focused] (const juce::String& text)
        {
            if (! typeNode (processor, lane, node, text))
                return false;

            refresh();
            return true;
        });
}

void KestrelChartView::focusGained (FocusChangeType)
{
    repaint();
}

void KestrelChartView::focusLost (FocusChangeType)
{
    held.reset();
    repaint();
}

} // namespace kestreleq

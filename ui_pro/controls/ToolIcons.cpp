#include "ui_pro/controls/ToolIcons.h"

namespace quillon::ui_pro::controls
{
namespace
{

constexpr float boxSize = 20.0f; // the icons are drawn in a box of this size
constexpr float strokeWidth = 1.8f;

/** A bow over the top with its arrow head at the left end. */
juce::Path undoPath()
{
    juce::Path path;
    path.startNewSubPath (3.0f, 7.5f);
    path.lineTo (12.0f, 7.5f);
    path.cubicTo (18.5f, 7.5f, 18.5f, 16.5f, 12.0f, 16.5f);
    path.lineTo (7.5f, 16.5f);
    path.startNewSubPath (7.0f, 3.5f);
    path.lineTo (3.0f, 7.5f);
    path.lineTo (7.0f, 11.5f);
    return path;
}

juce::Path redoPath()
{
    auto path = undoPath();
    path.applyTransform (juce::AffineTransform::scale (-1.0f, 1.0f, boxSize / 2.0f, 0.0f));
    return path;
}

/** A sheet before another one, of which only the free corner shows. */
juce::Path copyPath()
{
    juce::Path path;
    path.addRoundedRectangle (7.0f, 7.0f, 10.0f, 11.0f, 1.5f);
    path.startNewSubPath (13.0f, 3.0f);
    path.lineTo (4.5f, 3.0f);
    path.quadraticTo (3.0f, 3.0f, 3.0f, 4.5f);
    path.lineTo (3.0f, 14.0f);
    return path;
}

/** A clipboard with two lines of text. */
juce::Path pastePath()
{
    juce::Path path;
    path.startNewSubPath (7.0f, 4.0f);
    path.lineTo (4.0f, 4.0f);
    path.lineTo (4.0f, 18.0f);
    path.lineTo (16.0f, 18.0f);
    path.lineTo (16.0f, 4.0f);
    path.lineTo (13.0f, 4.0f);
    path.addRoundedRectangle (7.0f, 2.0f, 6.0f, 4.0f, 1.0f);
    path.startNewSubPath (7.5f, 10.5f);
    path.lineTo (12.5f, 10.5f);
    path.startNewSubPath (7.5f, 14.0f);
    path.lineTo (12.5f, 14.0f);
    return path;
}

juce::Path menuPath()
{
    juce::Path path;

    for (const auto y : { 5.0f, 10.0f, 15.0f })
    {
        path.startNewSubPath (3.0f, y);
        path.lineTo (17.0f, y);
    }

    return path;
}

/** An arrow that leaves a box at its upper right corner. */
juce::Path externalLinkPath()
{
    juce::Path path;
    path.startNewSubPath (9.0f, 4.5f);
    path.lineTo (4.0f, 4.5f);
    path.lineTo (4.0f, 16.0f);
    path.lineTo (15.5f, 16.0f);
    path.lineTo (15.5f, 11.0f);
    path.startNewSubPath (9.5f, 10.5f);
    path.lineTo (17.0f, 3.0f);
    path.startNewSubPath (12.0f, 3.0f);
    path.lineTo (17.0f, 3.0f);
    path.lineTo (17.0f, 8.0f);
    return path;
}

juce::Path pathOf (ToolIcon icon)
{
    switch (icon)
    {
        case ToolIcon::undo:
            return undoPath();
        case ToolIcon::redo:
            return redoPath();
        case ToolIcon::copy:
            return copyPath();
        case ToolIcon::paste:
            return pastePath();
        case ToolIcon::menu:
            return menuPath();
        case ToolIcon::externalLink:
            return externalLinkPath();
    }

    return {};
}

} // namespace

void drawToolIcon (juce::Graphics& g, ToolIcon icon, juce::Rectangle<float> area)
{
    const juce::RectanglePlacement centred (juce::RectanglePlacement::centred);
    g.strokePath (pathOf (icon),
        juce::PathStrokeType (strokeWidth, juce::PathStrokeType::curved, juce::PathStrokeType::rounded),
        centred.getTransformToFit ({ boxSize, boxSize }, area));
}

} // namespace quillon::ui_pro::controls

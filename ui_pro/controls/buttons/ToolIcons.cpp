#include "ui_pro/controls/buttons/ToolIcons.h"

#include "ui_pro/style/Theme.h"

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

/** An arrow into a tray. */
juce::Path savePath()
{
    juce::Path path;
    path.startNewSubPath (10.0f, 2.5f);
    path.lineTo (10.0f, 12.5f);
    path.startNewSubPath (5.5f, 8.5f);
    path.lineTo (10.0f, 12.5f);
    path.lineTo (14.5f, 8.5f);
    path.startNewSubPath (3.0f, 12.5f);
    path.lineTo (3.0f, 17.0f);
    path.lineTo (17.0f, 17.0f);
    path.lineTo (17.0f, 12.5f);
    return path;
}

juce::Path mailPath()
{
    juce::Path path;
    path.addRoundedRectangle (2.0f, 4.0f, 16.0f, 12.0f, 1.5f);
    path.startNewSubPath (2.5f, 5.0f);
    path.lineTo (10.0f, 11.0f);
    path.lineTo (17.5f, 5.0f);
    return path;
}

/** An at sign. */
juce::Path mailCopyPath()
{
    juce::Path path;
    path.addEllipse (6.8f, 6.8f, 6.4f, 6.4f);
    path.startNewSubPath (13.2f, 6.5f);
    path.lineTo (13.2f, 11.5f);
    path.cubicTo (13.2f, 14.5f, 17.8f, 14.0f, 17.8f, 10.0f);
    path.cubicTo (17.8f, 5.5f, 14.3f, 2.2f, 10.0f, 2.2f);
    path.cubicTo (5.7f, 2.2f, 2.2f, 5.7f, 2.2f, 10.0f);
    path.cubicTo (2.2f, 14.3f, 5.7f, 17.8f, 10.0f, 17.8f);
    path.cubicTo (11.8f, 17.8f, 13.2f, 17.3f, 14.4f, 16.5f);
    return path;
}

/** An arrow round a circle. */
juce::Path resetPath()
{
    juce::Path path;
    path.addCentredArc (10.0f, 10.5f, 7.0f, 7.0f, 0.0f, -0.9f, 4.2f, true);
    path.startNewSubPath (4.2f, 2.0f);
    path.lineTo (4.2f, 6.6f);
    path.lineTo (8.8f, 6.6f);
    return path;
}

juce::Path folderPath()
{
    juce::Path path;
    path.startNewSubPath (2.5f, 16.5f);
    path.lineTo (2.5f, 4.0f);
    path.lineTo (8.0f, 4.0f);
    path.lineTo (10.0f, 6.5f);
    path.lineTo (17.5f, 6.5f);
    path.lineTo (17.5f, 16.5f);
    path.closeSubPath();
    return path;
}

juce::Path bookPath()
{
    juce::Path path;
    path.startNewSubPath (10.0f, 5.0f);
    path.cubicTo (8.0f, 3.4f, 5.0f, 3.2f, 2.5f, 3.5f);
    path.lineTo (2.5f, 15.5f);
    path.cubicTo (5.0f, 15.2f, 8.0f, 15.4f, 10.0f, 17.0f);
    path.cubicTo (12.0f, 15.4f, 15.0f, 15.2f, 17.5f, 15.5f);
    path.lineTo (17.5f, 3.5f);
    path.cubicTo (15.0f, 3.2f, 12.0f, 3.4f, 10.0f, 5.0f);
    path.lineTo (10.0f, 17.0f);
    return path;
}

/** The sign for play, in a circle. */
juce::Path startPath()
{
    juce::Path path;
    path.addEllipse (2.0f, 2.0f, 16.0f, 16.0f);
    path.addTriangle (8.2f, 6.5f, 8.2f, 13.5f, 13.8f, 10.0f);
    return path;
}

juce::Path closePath()
{
    juce::Path path;
    path.startNewSubPath (4.0f, 4.0f);
    path.lineTo (16.0f, 16.0f);
    path.startNewSubPath (16.0f, 4.0f);
    path.lineTo (4.0f, 16.0f);
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
        case ToolIcon::save:
            return savePath();
        case ToolIcon::mail:
            return mailPath();
        case ToolIcon::mailCopy:
            return mailCopyPath();
        case ToolIcon::reset:
            return resetPath();
        case ToolIcon::folder:
            return folderPath();
        case ToolIcon::book:
            return bookPath();
        case ToolIcon::start:
            return startPath();
        case ToolIcon::close:
            return closePath();
    }

    return {};
}

} // namespace

juce::Path toolIconShape (ToolIcon icon)
{
    juce::Path shape;
    juce::PathStrokeType (strokeWidth, juce::PathStrokeType::curved, juce::PathStrokeType::rounded)
        .createStrokedPath (shape, pathOf (icon));

    // Empty marks that hold the box's size, so that all icons come out at one scale wherever they are fitted.
    shape.startNewSubPath (1.5f, 1.5f);
    shape.startNewSubPath (boxSize - 1.5f, boxSize - 1.5f);
    return shape;
}

void drawToolIcon (juce::Graphics& g, ToolIcon icon, juce::Rectangle<float> area)
{
    const juce::RectanglePlacement centred (juce::RectanglePlacement::centred);
    g.fillPath (toolIconShape (icon), centred.getTransformToFit ({ boxSize, boxSize }, area));
}

void paintToolPlate (juce::Graphics& g, juce::Rectangle<int> area, const primitives::ButtonLook& look)
{
    const auto& palette = style::Theme::palette();
    paintButtonPlate (g, area.toFloat(), palette.accent, look);

    // Without a caption beside it a sign needs more contrast than a text on the same plate.
    g.setColour (! look.enabled                       ? palette.textMuted
            : look.on || look.hovered || look.pressed ? palette.textPrimary
                                                      : palette.textBright);
}

} // namespace quillon::ui_pro::controls

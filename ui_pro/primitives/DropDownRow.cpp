#include "ui_pro/primitives/DropDownRow.h"

#include "ui_pro/primitives/Drawing.h"
#include "ui_pro/style/Fonts.h"
#include "ui_pro/style/Theme.h"

#include <utility>

namespace quillon::ui_pro::primitives
{

using Kind = ListItem::Kind;

DropDownList::Row::Row (DropDownList& owner, ListItem shown)
    : FaceButton (shown.text, style::Theme::palette().accent),
      item (std::move (shown)),
      list (owner)
{
    setTitle (item.text);
    setTooltip (item.help);
    setHelpText (item.help);
    setOnlyLeftButton (true);
    setWantsKeyboardFocus (false); // the list has it
    setRole (canBeChosen() ? juce::AccessibilityRole::menuItem : juce::AccessibilityRole::staticText);
    setToggleState (item.isTicked, juce::dontSendNotification);
    setAccessible (item.kind != Kind::separator);
    setInterceptsMouseClicks (item.kind == Kind::choice, false);
    setEnabled (item.isEnabled);
}

int DropDownList::Row::getPreferredWidth() const
{
    // A ticked row is bold.
    return juce::GlyphArrangement::getStringWidthInt (style::boldFont (list.tokens.textSize), item.text) + 1 +
        list.tokens.leftInset + list.tokens.rightInset;
}

int DropDownList::Row::getPreferredHeight() const
{
    return item.kind == Kind::separator ? list.tokens.separatorHeight
        : item.kind == Kind::heading    ? list.tokens.headingHeight
                                        : list.tokens.rowHeight;
}

void DropDownList::Row::paintFace (juce::Graphics& g, const ButtonLook& look) const
{
    const auto& sizes = list.tokens;
    const auto area = getLocalBounds().withTrimmedLeft (sizes.leftInset);

    switch (item.kind)
    {
        case Kind::separator:
            g.setColour (sizes.edge);
            g.fillRect (getLocalBounds().withSizeKeepingCentre (getWidth() - 2 * sizes.leftInset, 1));
            break;
        case Kind::heading:
            g.setColour (style::Theme::palette().textSecondary);
            g.setFont (style::boldFont (sizes.headingSize));
            g.drawText (item.text.toUpperCase(), area.withTrimmedTop (sizes.rowHeight - sizes.headingHeight),
                juce::Justification::centredLeft, true);
            break;
        case Kind::choice:
            paintChoice (g, look);
            break;
    }
}

void DropDownList::Row::paintChoice (juce::Graphics& g, const ButtonLook& look) const
{
    const auto& palette = style::Theme::palette();
    const auto& sizes = list.tokens;
    const auto lit = list.highlighted == this;

    if (lit)
        fillPanel (g, getLocalBounds().toFloat(), look.pressed ? sizes.rowPressed : sizes.rowLit, sizes.rowRadius);

    const auto isDim = ! look.enabled || (item.isDim && ! item.isTicked);
    g.setColour (isDim ? palette.textMuted : lit || item.isTicked ? palette.textPrimary : palette.textBright);
    g.setFont (item.isTicked ? style::boldFont (sizes.textSize) : style::regularFont (sizes.textSize));
    g.drawText (item.text, getLocalBounds().withTrimmedLeft (sizes.leftInset).withTrimmedRight (sizes.rightInset),
        juce::Justification::centredLeft, true);

    constexpr auto signSize = 12.75f;
    const auto signCentre = getLocalBounds().toFloat().getRight() - sizes.signAt;
    const auto sign = juce::Rectangle<float> (signSize, signSize)
                          .withCentre ({ signCentre, 0.5f * static_cast<float> (getHeight()) });

    if (item.isTicked && sizes.isDotted)
    {
        g.setColour (getColour());
        g.fillEllipse (getLocalBounds()
                           .toFloat()
                           .withWidth (static_cast<float> (sizes.leftInset))
                           .withSizeKeepingCentre (6.0f, 6.0f));
    }
    else if (item.isTicked)
    {
        drawTick (g, sign.getCentre());
    }
    else if (! item.sign.isEmpty())
    {
        g.fillPath (item.sign, item.sign.getTransformToScaleToFit (sign, true));
    }
}

void DropDownList::Row::clicked()
{
    list.choose (*this);
}

void DropDownList::Row::buttonStateChanged()
{
    if (isOver() && canBeChosen())
        list.highlight (this);
    else if (! isOver() && list.highlighted == this)
        list.highlight (nullptr);
}

void DropDownList::Row::reached()
{
    if (canBeChosen())
        list.highlight (this);
}

} // namespace quillon::ui_pro::primitives

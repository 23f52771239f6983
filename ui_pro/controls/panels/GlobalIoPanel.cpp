#include "ui_pro/controls/panels/GlobalIoPanel.h"

namespace quillon::ui_pro::controls
{
namespace
{

constexpr int paddingX = 14;
constexpr int paddingY = 10;
constexpr int headingHeight = 24;
constexpr int switchHeight = 32;
constexpr int shortSwitchHeight = 26;
constexpr int gap = 8;
constexpr int largestTrim = 84;

} // namespace

GlobalIoPanel::GlobalIoPanel (juce::Colour primary)
    : bypass (primary),
      link (primary),
      msMode (primary),
      input ("INPUT", primary),
      output ("OUTPUT", primary)
{
    setTitle ("GLOBAL");

    // Their captions may be shortened, their titles not.
    bypass.setTitle ("MASTER BYPASS");
    link.setTitle ("LINK L/R");
    msMode.setTitle ("M/S MODE");
    link.setButtonText ("LINK L/R");
    bypass.setTooltip ("Pass the input on untouched.");
    link.setTooltip ("Both lanes have the same settings.");
    msMode.setTooltip ("The lanes carry mid and side; needs LINK L/R off.");

    trim.setLabel ("TRIM");
    trim.setTooltip ("Level of both channels at the end. Drag up or down; a double-click sets the default.");
    trim.setAccent (primary);
    trim.setMaxDiameter (largestTrim);
    trim.setLabelFont (12.0f, style::Theme::palette().textPrimary);
    trim.setValueFont (14.0f, style::Theme::palette().textPrimary);
    trim.setLabelGap (4);
    trim.setValueGap (4);

    for (auto* child : std::initializer_list<juce::Component*> { &surface, &heading, &bypass, &link, &msMode, &trim })
        addAndMakeVisible (child);

    addChildComponent (input);
    addChildComponent (output);
}

void GlobalIoPanel::setShowsInputOutput (bool shouldShow)
{
    if (showsInputOutput == shouldShow)
        return;

    showsInputOutput = shouldShow;
    input.setVisible (shouldShow);
    output.setVisible (shouldShow);
    trim.setVisible (! shouldShow);
    resized();
}

void GlobalIoPanel::setExtraContent (juce::Component* content)
{
    if (extraContent == content)
        return;

    if (extraContent != nullptr)
        removeChildComponent (extraContent);

    extraContent = content;

    if (content != nullptr)
        addAndMakeVisible (content);

    resized();
}

void GlobalIoPanel::resized()
{
    surface.setBounds (getLocalBounds());
    auto area = getLocalBounds().reduced (paddingX, paddingY);
    heading.setBounds (area.removeFromTop (headingHeight));
    area.removeFromTop (gap);
    layOutSwitches (area);

    if (extraContent != nullptr)
    {
        extraContent->setBounds (area.removeFromTop (showsInputOutput ? shortSwitchHeight : switchHeight));
        area.removeFromTop (gap);
    }

    trim.setBounds (area);

    const auto sectionHeight = (area.getHeight() - gap) / 2;
    input.setBounds (area.removeFromTop (sectionHeight));
    output.setBounds (area.removeFromBottom (sectionHeight));
}

void GlobalIoPanel::layOutSwitches (juce::Rectangle<int>& area)
{
    const auto row = area.removeFromTop (showsInputOutput ? shortSwitchHeight : switchHeight);
    area.removeFromTop (gap);

    if (showsInputOutput)
    {
        // One row is all that the gains leave room for; the captions' lengths share it out.
        auto rest = row;
        bypass.setButtonText ("BYPASS");
        msMode.setButtonText ("M/S");
        bypass.setBounds (rest.removeFromLeft (row.getWidth() * 34 / 100));
        msMode.setBounds (rest.removeFromRight (row.getWidth() * 24 / 100));
        link.setBounds (rest.reduced (gap / 2, 0));
        return;
    }

    bypass.setButtonText ("MASTER BYPASS");
    msMode.setButtonText ("M/S MODE");
    bypass.setBounds (row);

    auto pair = area.removeFromTop (switchHeight);
    area.removeFromTop (gap);
    link.setBounds (pair.removeFromLeft ((pair.getWidth() - gap) / 2));
    pair.removeFromLeft (gap);
    msMode.setBounds (pair);
}

} // namespace quillon::ui_pro::controls

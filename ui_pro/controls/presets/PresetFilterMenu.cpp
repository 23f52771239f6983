#include "ui_pro/controls/presets/PresetFilterMenu.h"

#include "ui_pro/controls/presets/PresetBrowserLayout.h"
#include "ui_pro/primitives/Drawing.h"
#include "ui_pro/style/Theme.h"

#include <utility>

namespace quillon::ui_pro::controls
{
namespace
{

using style::Theme;

constexpr int inset = 4;

int lineHeight()
{
    return Theme::get().presetBrowser.menuRowHeight;
}

} // namespace

PresetFilterMenu::PresetFilterMenu (std::vector<Item> itemsToOffer)
    : items (std::move (itemsToOffer))
{
    setTitle ("Filter");
    setWantsKeyboardFocus (true);

    for (int i = 0; i < static_cast<int> (items.size()); ++i)
    {
        const auto& item = items[static_cast<std::size_t> (i)];
        const auto look =
            item.choose != nullptr ? PresetBrowserTarget::Look::menuItem : PresetBrowserTarget::Look::heading;
        auto& line = *lines.emplace_back (std::make_unique<PresetBrowserTarget> (look, item.text, item.text));
        line.setActive (item.isTicked);
        line.onPress = [this, i] { choose (i); };
        addAndMakeVisible (line);

        if (item.isTicked && highlight < 0)
            setHighlight (i);
    }
}

int PresetFilterMenu::getIdealHeight() const
{
    return static_cast<int> (items.size()) * lineHeight() + 2 * inset;
}

void PresetFilterMenu::resized()
{
    const auto capacity = std::max ((getHeight() - 2 * inset) / lineHeight(), 1);
    firstLine = presets::firstLineToShow (highlight, firstLine, capacity, static_cast<int> (items.size()));

    for (int i = 0; i < static_cast<int> (lines.size()); ++i)
    {
        auto& line = *lines[static_cast<std::size_t> (i)];
        line.setBounds (inset, inset + (i - firstLine) * lineHeight(), getWidth() - 2 * inset, lineHeight());
        line.setVisible (i >= firstLine && i < firstLine + capacity);
    }
}

void PresetFilterMenu::paint (juce::Graphics& g)
{
    const auto& theme = Theme::get();
    const auto area = getLocalBounds().toFloat();
    primitives::fillPanel (g, area, theme.core.surface2, theme.presetBrowser.controlRadius);
    g.setColour (theme.core.textMuted);
    g.drawRoundedRectangle (area.reduced (0.5f), theme.presetBrowser.controlRadius, theme.strokeWidth);
}

int PresetFilterMenu::itemAt (const juce::MouseEvent& event) const
{
    for (std::size_t i = 0; i < lines.size(); ++i)
        if (lines[i]->isVisible() && lines[i]->getBounds().toFloat().contains (event.position))
            return static_cast<int> (i);

    return -1;
}

void PresetFilterMenu::setHighlight (int item)
{
    if (item < 0 || items[static_cast<std::size_t> (item)].choose == nullptr || item == highlight)
        return;

    if (highlight >= 0)
        lines[static_cast<std::size_t> (highlight)]->setHovered (false);

    highlight = item;
    lines[static_cast<std::size_t> (highlight)]->setHovered (true);
    resized();
}

void PresetFilterMenu::moveHighlight (int step)
{
    const auto count = static_cast<int> (items.size());
    auto next = highlight + step;

    while (next >= 0 && next < count && items[static_cast<std::size_t> (next)].choose == nullptr)
        next += step;

    if (next < count)
        setHighlight (next);
}

void PresetFilterMenu::choose (int item)
{
    if (item < 0 || items[static_cast<std::size_t> (item)].choose == nullptr)
        return;

    const auto action = items[static_cast<std::size_t> (item)].choose;

    if (const auto close = onClose; close != nullptr)
        close();

    action();
}

void PresetFilterMenu::mouseMove (const juce::MouseEvent& event)
{
    setHighlight (itemAt (event));
}

void PresetFilterMenu::mouseDown (const juce::MouseEvent& event)
{
    choose (itemAt (event));
}

void PresetFilterMenu::mouseWheelMove (const juce::MouseEvent&, const juce::MouseWheelDetails& wheel)
{
    if (wheel.deltaY != 0.0f)
        moveHighlight (wheel.deltaY > 0.0f ? -1 : 1);
}

bool PresetFilterMenu::keyPressed (const juce::KeyPress& key)
{
    if (key == juce::KeyPress::upKey)
        moveHighlight (-1);
    else if (key == juce::KeyPress::downKey)
        moveHighlight (1);
    else if (key == juce::KeyPress::returnKey || key == juce::KeyPress::spaceKey)
        choose (highlight);
    else if (key == juce::KeyPress::escapeKey || key == juce::KeyPress::tabKey)
    {
        if (const auto close = onClose; close != nullptr)
            close();
    }
    else
        return false;

    return true;
}

std::unique_ptr<juce::AccessibilityHandler> PresetFilterMenu::createAccessibilityHandler()
{
    return std::make_unique<juce::AccessibilityHandler> (*this, juce::AccessibilityRole::popupMenu);
}

} // namespace quillon::ui_pro::controls

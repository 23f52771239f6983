#pragma once

#include "ui_pro/primitives/CachedLayer.h"
#include "ui_pro/primitives/RoleComponent.h"

#include <memory>
#include <vector>

namespace quillon::ui_pro::layout
{

/** The bar above an editor: the maker's logo and name, what the product is, and the editor's tools in the slots of the
    theme. */
class HeaderBar final : public primitives::TextComponent
{
public:
    HeaderBar();
    ~HeaderBar() override;

    /** The name beside the brand, and the version that stands after it. */
    void setProductName (const juce::String& newName);
    void setVersionText (const juce::String& newText);

    /** The line below the product's name. */
    void setSubtitle (const juce::String& newSubtitle);

    const juce::String& getProductName() const { return productName; }

    const juce::String& getVersionText() const { return versionText; }

    const juce::String& getSubtitle() const { return subtitle; }

    /** What the preset in force is called. The header shows it where no preset selector has its place. */
    void setPresetName (const juce::String& newName);

    const juce::String& getPresetName() const { return presetName; }

    /** Shows a component, which is not owned, in a rectangle measured from the bar, such as a slot of the theme. A
        second call moves it. */
    void place (juce::Component& child, juce::Rectangle<int> slot);

    void paint (juce::Graphics& g) override;

private:
    struct Placed
    {
        juce::Component::SafePointer<juce::Component> component;
        juce::Rectangle<int> slot;
    };

    void change (juce::String& field, const juce::String& newText);
    void paintBar (juce::Graphics& g) const;
    void paintNames (juce::Graphics& g) const;
    bool isTaken (juce::Rectangle<int> slot) const;

    std::unique_ptr<juce::Drawable> logo;
    juce::String brand { "QUILLON" };
    juce::String maker { "Quillon" };
    juce::String subtitle;
    juce::String presetName { "Default" };
    std::vector<Placed> children;

    juce::String productName;
    juce::String versionText;
    primitives::CachedLayer layer;
};

} // namespace quillon::ui_pro::layout

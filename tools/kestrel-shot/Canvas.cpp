#include "tools/kestrel-shot/Canvas.h"

#include <utility>

namespace kestreleq::shot
{

/** Hears of every area that the component or a child of it asks for. */
class Canvas::Collector final : public juce::CachedComponentImage
{
public:
    explicit Collector (Canvas& ownerOfThis)
        : owner (ownerOfThis)
    {
    }

    void paint (juce::Graphics&) override {}

    bool invalidateAll() override { return invalidate (owner.component.getLocalBounds()); }

    bool invalidate (const juce::Rectangle<int>& area) override
    {
        owner.outdated.add (area.getIntersection (owner.component.getLocalBounds()));
        return false;
    }

    void releaseResources() override {}

private:
    Canvas& owner;
};

Canvas::Canvas (juce::Component& componentToPaint, const juce::ImageType& kind)
    : component (componentToPaint),
      picture (juce::Image::ARGB, component.getWidth(), component.getHeight(), true, kind),
      graphics (std::make_unique<juce::Graphics> (picture))
{
    component.setVisible (true); // what is hidden asks for nothing
    component.setCachedComponentImage (new Collector (*this));
    outdated = component.getLocalBounds();
}

Canvas::~Canvas()
{
    component.setCachedComponentImage (nullptr);
}

void Canvas::paint()
{
    const auto areas = std::exchange (outdated, {});

    if (areas.isEmpty())
        return;

    const juce::Graphics::ScopedSaveState saved (*graphics);
    graphics->reduceClipRegion (areas);
    component.paintEntireComponent (*graphics, true);
}

void Canvas::paintAll()
{
    outdated = component.getLocalBounds();
    paint();
}

juce::Image Canvas::finish()
{
    graphics.reset();
    return picture;
}

} // namespace kestreleq::shot

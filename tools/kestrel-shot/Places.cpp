#include "tools/kestrel-shot/Places.h"

namespace kestreleq::shot
{
namespace
{

juce::String nameOf (juce::Component& component)
{
    const auto handler = component.isAccessible() ? component.createAccessibilityHandler() : nullptr;
    return handler != nullptr ? handler->getTitle() : juce::String();
}

void listPlacesIn (juce::Component& window, juce::Component& parent, std::ostream& out)
{
    for (auto* child : parent.getChildren())
    {
        if (! child->isVisible())
            continue;

        const auto place = window.getLocalArea (child, child->getLocalBounds());

        if (const auto name = nameOf (*child); name.isNotEmpty() && ! place.isEmpty())
            out << place.toString() << ' ' << name << '\n';

        listPlacesIn (window, *child, out);
    }
}

} // namespace

void listPlaces (juce::Component& window, std::ostream& out)
{
    out << window.getLocalBounds().toString() << " window\n";
    listPlacesIn (window, window, out);
}

} // namespace kestreleq::shot

#include "editor/WineRendering.h"

#include <juce_gui_basics/juce_gui_basics.h>

namespace kestreleq
{

#ifdef _WIN32

namespace
{

constexpr int softwareEngine = 0;

bool isWine()
{
    juce::DynamicLibrary system ("ntdll.dll");
    return system.getFunction ("wine_get_version") != nullptr;
}

/** Acts whenever the component comes into another window; goes with the component. */
class EngineChoice final : private juce::ComponentListener
{
public:
    explicit EngineChoice (juce::Component& component) { component.addComponentListener (this); }

private:
    void componentParentHierarchyChanged (juce::Component& component) override
    {
        if (auto* window = component.getPeer())
            window->setCurrentRenderingEngine (softwareEngine);
    }

    void componentBeingDeleted (juce::Component& component) override
    {
        component.removeComponentListener (this);
        delete this;
    }
};

} // namespace

void paintInSoftwareUnderWine (juce::Component& component)
{
    static const bool wine = isWine();

    if (wine)
        new EngineChoice (component); // the component owns it
}

#else

void paintInSoftwareUnderWine (juce::Component&) {}

#endif

} // namespace kestreleq

#include "editor/KestrelEditor.h"
#include "editor/WineRendering.h"

// Called by the framework's wrappers, and declared by none of our headers.
juce::AudioProcessor* JUCE_CALLTYPE createPluginFilter(); // NOLINT(readability-redundant-declaration)

juce::AudioProcessor* JUCE_CALLTYPE createPluginFilter()
{
    return new kestreleq::KestrelProcessor (
        [] (kestreleq::KestrelProcessor& processor) -> juce::AudioProcessorEditor*
        {
            auto editor = std::make_unique<kestreleq::KestrelEditor> (processor);
            kestreleq::paintInSoftwareUnderWine (*editor);
            return editor.release();
        });
}

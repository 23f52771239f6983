#include "editor/KestrelEditor.h"
#include "editor/WineRendering.h"
#include "engine/Contained.h"
#include "engine/KestrelProcessor.h"

#include <memory>

namespace kestreleq
{

juce::AudioProcessorEditor* KestrelProcessor::createEditor()
{
    std::unique_ptr<juce::AudioProcessorEditor> editor;

    const bool made = contain (
        [&]
        {
            editor = std::make_unique<KestrelEditor> (*this);
            paintInSoftwareUnderWine (*editor);
        });

    return made ? editor.release() : nullptr; // the wrapper then shows an empty window
}

} // namespace kestreleq

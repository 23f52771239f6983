#include "editor/SupportRecord.h"

#include "ui/settings/SettingsScopeManager.h"

namespace kestreleq
{
namespace
{

/** Such as "Stereo in / Stereo out". */
juce::String channelLayout (const KestrelProcessor& processor)
{
    const auto name = [&] (bool isInput) { return processor.getChannelLayoutOfBus (isInput, 0).getDescription(); };
    return name (true) + " in / " + name (false) + " out";
}

/** The host's name; empty in the Standalone, which is its own. */
juce::String hostName (const KestrelProcessor& processor)
{
    if (processor.wrapperType == juce::AudioProcessor::wrapperType_Standalone ||
        processor.wrapperType == juce::AudioProcessor::wrapperType_Undefined)
        return {};

    return juce::PluginHostType().getHostDescription();
}

} // namespace

quillon::ui_pro::controls::DiagnosticsRecord makeSupportRecord (
    const KestrelProcessor& processor, const ResourceManifest& manifest)
{
    quillon::ui_pro::controls::DiagnosticsRecord record;
    record.pluginName = manifest.name();
    record.version = manifest.version();
    record.format = "Standalone/VST3";
    record.architecture = "x64";
    record.type = "Audio Effect";
    record.operatingSystem = juce::SystemStats::getOperatingSystemName();
    record.cpu = juce::SystemStats::getCpuModel();
    record.host = hostName (processor);
    record.channelLayout = channelLayout (processor);
    record.ramMegabytes = juce::SystemStats::getMemorySizeInMegabytes();
    record.inputChannels = processor.getTotalNumInputChannels();
    record.outputChannels = processor.getTotalNumOutputChannels();
    record.bufferSize = processor.getBlockSize();
    record.sampleRate = processor.getSampleRate();
    record.supportLink = manifest.supportUrl();
    record.supportEmail = manifest.supportEmail();
    record.manualAddress = manifest.userManualUrl();
    record.quickStartAddress = manifest.quickStartUrl();
    record.configurationFolder = quillon::ui::settings::SettingsScopeManager::getInstance().getScopeFolder();
    return record;
}

} // namespace kestreleq

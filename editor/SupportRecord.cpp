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

/** The host's name, with its program's file where the framework does not know it; empty in the Standalone, which is its
    own. */
juce::String hostName (const KestrelProcessor& processor)
{
    if (processor.wrapperType == juce::AudioProcessor::wrapperType_Standalone ||
        processor.wrapperType == juce::AudioProcessor::wrapperType_Undefined)
        return {};

    const juce::PluginHostType host;
    const juce::String name (host.getHostDescription());

    if (host.type != juce::PluginHostType::UnknownHost)
        return name;

    return name + " (" + juce::File::getSpecialLocation (juce::File::hostApplicationPath).getFileName() + ")";
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

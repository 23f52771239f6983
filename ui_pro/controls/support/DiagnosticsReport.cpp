#include "ui_pro/controls/support/DiagnosticsReport.h"

#include <cmath>

namespace quillon::ui_pro::controls
{

juce::String hostText (const DiagnosticsRecord& record)
{
    return record.host.isNotEmpty() ? record.host : juce::String ("Standalone");
}

juce::String sampleRateText (const DiagnosticsRecord& record)
{
    return juce::String (std::isfinite (record.sampleRate) ? record.sampleRate : 0.0, 1);
}

juce::String makeDiagnosticsReport (const DiagnosticsRecord& record, juce::Time generated)
{
    // A host may have set a language whose decimal sign is a comma; the framework's formatting follows it.
    const auto time = generated.toISO8601 (true).replaceCharacter (',', '.');

    juce::String report;
    report << "=== " << record.pluginName << " " << record.version << " - Diagnostics ===\n"
           << "Generated: " << time << "\n\n"
           << "[About]\n"
           << "  Plugin       : " << record.pluginName << " v" << record.version << "\n"
           << "  Format       : " << record.format << "\n"
           << "  Architecture : " << record.architecture << "\n"
           << "  Type         : " << record.type << "\n\n"
           << "[System]\n"
           << "  OS          : " << record.operatingSystem << "\n"
           << "  CPU         : " << record.cpu << "\n"
           << "  RAM         : " << record.ramMegabytes << " MB\n"
           << "  Host        : " << hostText (record) << "\n"
           << "  Sample rate : " << sampleRateText (record) << " Hz\n"
           << "  Buffer      : " << record.bufferSize << " samples\n"
           << "  Channels    : " << record.channelLayout << " (in " << record.inputChannels << " / out "
           << record.outputChannels << ")\n\n";
    return report;
}

juce::String diagnosticsFileName (const DiagnosticsRecord& record, juce::Time generated)
{
    return juce::File::createLegalFileName (
        record.pluginName.removeCharacters (" ") + "-diagnostics-" + generated.formatted ("%Y%m%d-%H%M%S") + ".txt");
}

bool writeDiagnosticsReport (const juce::File& file, const juce::String& report)
{
    const auto text = report.replace ("\n", "\r\n");
    const auto size = text.getNumBytesAsUTF8();
    const juce::TemporaryFile replacement (file, juce::TemporaryFile::useHiddenFile);

    {
        juce::FileOutputStream stream (replacement.getFile());

        if (! stream.openedOk() || ! stream.write (text.toRawUTF8(), size))
            return false;
    }

    // The stream counts a write that the disk cut short as a good one, so only the file tells.
    if (replacement.getFile().getSize() != static_cast<juce::int64> (size))
        return false;

    return replacement.overwriteTargetFileWithTemporary();
}

} // namespace quillon::ui_pro::controls

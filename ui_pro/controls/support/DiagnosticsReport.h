#pragma once

#include <juce_core/juce_core.h>

namespace quillon::ui_pro::controls
{

/** What the support panel tells about the plug-in and the system that it runs in. */
struct DiagnosticsRecord
{
    juce::String pluginName;
    juce::String version;
    juce::String format; // the wrapper types
    juce::String architecture;
    juce::String type;
    juce::String operatingSystem;
    juce::String cpu;
    juce::String host; // empty without one
    juce::String channelLayout;
    int ramMegabytes = 0;
    int inputChannels = 0;
    int outputChannels = 0;
    int bufferSize = 0;      // samples
    double sampleRate = 0.0; // Hz
    juce::String supportLink;
    juce::String supportEmail;
    juce::String manualAddress;
    juce::String quickStartAddress;
    juce::File configurationFolder;
};

/** "Standalone" without a host. */
juce::String hostText (const DiagnosticsRecord& record);

/** With one decimal place and a point, whatever the system's language. */
juce::String sampleRateText (const DiagnosticsRecord& record);

/** The report as plain text, each line ended by a line feed. */
juce::String makeDiagnosticsReport (const DiagnosticsRecord& record, juce::Time generated);

/** The name of the file that is suggested for a report. */
juce::String diagnosticsFileName (const DiagnosticsRecord& record, juce::Time generated);

/** Writes a report with carriage return and line feed and without a byte-order mark, in UTF-8. It replaces the file
    whole or, when the disk is full or the place forbidden, leaves what was there; returns whether it was written. */
bool writeDiagnosticsReport (const juce::File& file, const juce::String& report);

} // namespace quillon::ui_pro::controls

#include "tools/kestrel-host/CommandLine.h"
#include "tools/kestrel-host/Console.h"
#include "tools/kestrel-host/Errors.h"

#include <juce_events/juce_events.h>

#include <algorithm>
#include <iostream>
#include <vector>

namespace kestreleq::host
{
namespace
{

/** Standard error carries this program's own line only. */
struct SilentLogger final : juce::Logger
{
    void logMessage (const juce::String&) override {}
};

void run (HelpRequest)
{
    std::cout << usageText();
}

void runCommand (const Command& command)
{
    // Makes this thread the message thread. Only the command that opens a window waits for messages.
    const juce::ScopedJuceInitialiser_GUI framework;
    SilentLogger silence;
    juce::Logger::setCurrentLogger (&silence);
    const juce::ScopeGuard restoreLogger { [] { juce::Logger::setCurrentLogger (nullptr); } };

    std::visit ([] (const auto& options) { run (options); }, command);

    if (! std::cout.flush())
        throw Failure ("cannot write to standard output");
}

/** A path may hold any character; the message stays on one line. */
std::string asOneLine (std::string message)
{
    std::replace_if (
        message.begin(), message.end(), [] (char c) { return c == '\n' || c == '\r'; }, '?');
    return "kestrel-host: " + message + "\n";
}

} // namespace
} // namespace kestreleq::host

int main (int argc, char* argv[])
{
    using namespace kestreleq::host;
    const Console console;

    try
    {
        const auto arguments = Console::arguments (argc, argv);
        runCommand (parseCommandLine (std::vector<std::string_view> (arguments.begin(), arguments.end())));
        return 0;
    }
    catch (const UsageError& error)
    {
        std::cerr << asOneLine (error.what()) << usageText();
        return 2;
    }
    catch (const std::exception& error)
    {
        std::cerr << asOneLine (error.what());
        return 1;
    }
}

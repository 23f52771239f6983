#include "tools/kestrel-demo/DemoSignal.h"
#include "tools/kestrel-demo/LevelTable.h"
#include "tools/kestrel-host/Errors.h"
#include "tools/kestrel-host/OptionValues.h"
#include "tools/kestrel-host/WavWriter.h"

#include <exception>
#include <iostream>
#include <string>
#include <vector>

namespace
{

constexpr auto usage = "usage: kestrel-demo signal OUT.wav [RATE]\n"
                       "       kestrel-demo table NAME=IN.wav...\n";

void writeSignal (const std::string& path, std::uint32_t rate)
{
    const auto signal = kestreleq::demo::makeDemoSignal (rate);
    const auto length = static_cast<int> (signal[0].size());
    kestreleq::host::WavWriter writer (path, rate, length);
    writer.write (signal[0].data(), signal[1].data(), length);
    writer.finish();
}

std::vector<kestreleq::demo::NamedFile> namedFiles (const std::vector<std::string>& arguments)
{
    std::vector<kestreleq::demo::NamedFile> files;

    for (std::size_t i = 1; i < arguments.size(); ++i)
    {
        const auto equals = arguments[i].find ('=');

        if (equals == std::string::npos)
            return {};

        files.push_back ({ arguments[i].substr (0, equals), arguments[i].substr (equals + 1) });
    }

    return files;
}

} // namespace

int main (int argc, char* argv[])
{
    const std::vector<std::string> arguments (argv + 1, argv + argc);

    try
    {
        if ((arguments.size() == 2 || arguments.size() == 3) && arguments[0] == "signal")
        {
            const auto rate =
                arguments.size() == 3 ? kestreleq::host::integerFor ("RATE", arguments[2], 8000, 768000) : 48000;
            writeSignal (arguments[1], static_cast<std::uint32_t> (rate));
            return 0;
        }

        if (! arguments.empty() && arguments[0] == "table")
        {
            if (const auto files = namedFiles (arguments); ! files.empty())
            {
                std::cout << kestreleq::demo::levelTable (files);
                return 0;
            }
        }
    }
    catch (const kestreleq::host::UsageError& error)
    {
        std::cerr << "kestrel-demo: " << error.what() << '\n' << usage;
        return 2;
    }
    catch (const std::exception& error)
    {
        std::cerr << "kestrel-demo: " << error.what() << '\n';
        return 1;
    }

    std::cerr << usage;
    return 2;
}

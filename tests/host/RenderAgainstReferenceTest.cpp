#include "tests/support/ReferenceEq.h"
#include "tests/support/Signals.h"
#include "tests/support/Vst3Module.h"

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <tuple>

namespace kestreleq::test
{
namespace
{

// The built module, set as a host sets it, beside the plain reference: lanes apart, random values, halfway other ones.
TEST (RenderAgainstReference, AgreesToAHundredDecibels)
{
    const Settings apart { { "link", 0.0 }, { "inGainLink", 0.0 }, { "outGainLink", 0.0 } };

    for (const auto& [rate, block, ids] : { std::tuple { 96000.0, 37, std::array { "msMode", "msMode" } },
             std::tuple { 44100.0, 4096, std::array { "breakMode", "breakMode" } },
             std::tuple { 48000.0, 480, std::array { "inAutoGain", "outAutoGain" } } })
    {
        const auto count = static_cast<int> (0.6 * rate);
        auto left = musicalMix (1, rate, count), right = whiteNoise (2, count, 0.4);
        auto exactLeft = widened (left), exactRight = widened (right);
        Vst3Module module;
        Vst3Instance instance (module);
        ReferenceParameters parameters;
        ReferenceEq reference (rate);
        std::mt19937 random (static_cast<unsigned> (block));
        const auto change = [&] (Settings settings)
        {
            for (const auto& info : parameterTable)
                if (! info.stepped)
                    settings.emplace_back (info.id, static_cast<double> (random() % 1025) / 1024.0);

            instance.set (settings);

            for (const auto& [id, value] : settings)
                parameters.set (id, static_cast<float> (value));
        };

        instance.start (rate, block);
        change (apart);
        change ({ { ids[0], 1.0 }, { ids[1], 1.0 } });

        for (int start = 0; start < count; start += block)
        {
            if (start / block == count / block / 2)
                change ({});

            const auto length = std::min (block, count - start);
            instance.process (left.data() + start, right.data() + start, length);
            reference.process (parameters, exactLeft.data() + start, exactRight.data() + start, length);
        }

        EXPECT_LT (differenceDb (left, exactLeft), -100.0) << rate;
        EXPECT_LT (differenceDb (right, exactRight), -100.0) << rate;
    }
}

} // namespace
} // namespace kestreleq::test

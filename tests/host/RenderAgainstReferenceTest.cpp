#include "tests/support/ReferenceEq.h"
#include "tests/support/Signals.h"
#include "tests/support/Vst3Module.h"

#include <gtest/gtest.h>

#include <random>

namespace kestreleq::test
{
namespace
{

struct Case
{
    double rate;
    int block;
    Settings switches; // besides lanes apart, and seeded values of all that is continuous
};

// The built module, set as a host sets it, beside the plain reference; halfway all values are others.
TEST (RenderAgainstReference, AgreesToAHundredDecibels)
{
    for (const auto& [rate, block, switches] :
        std::vector<Case> { { 96000.0, 37, { { "msMode", 1.0 } } }, { 44100.0, 4096, { { "breakMode", 1.0 } } },
            { 48000.0, 480, { { "inAutoGain", 1.0 }, { "outAutoGain", 1.0 } } } })
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
        instance.set ({ { "link", 0.0 }, { "inGainLink", 0.0 }, { "outGainLink", 0.0 } });

        for (const auto* id : { "link", "inGainLink", "outGainLink" })
            parameters.set (id, 0.0f);

        change (switches);

        for (int start = 0, halfway = count / 2; start < count; start += block)
        {
            if (start >= halfway)
            {
                change ({});
                halfway = count;
            }

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

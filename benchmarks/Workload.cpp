#include "benchmarks/Workload.h"

#include "tests/support/ProcessorRig.h"
#include "tests/support/Signals.h"

#include <cstring>
#include <memory>
#include <sstream>

namespace kestreleq::speed
{
namespace
{

dsp::EngineParameters settingsFor (Task task)
{
    const bool idle = task == Task::engineBreakIdle;
    dsp::EngineParameters settings;
    settings.breakMode = idle || task == Task::engineBreakDriven;
    settings.link = task != Task::engineMidSide;
    settings.midSide = ! settings.link;

    for (auto& lane : settings.lanes)
    {
        lane.bands.fill (idle ? 0.25f : 0.8f);
        lane.airAmount = idle ? 0.05f : 0.8f;
    }

    return settings;
}

/** A value that is another one in every block, whenever it was last taken. */
class Moving
{
public:
    float next()
    {
        step = (step + 1) % 97;
        return 0.7f + 0.001f * static_cast<float> (step);
    }

private:
    int step = 0;
};

Process makeProcessor (const dsp::simd::Kernels& kernels, int rate, int block, bool automated)
{
    const auto rig = std::make_shared<test::ProcessorRig> (rate, block, kernels);
    rig->processor.setCurrentProgram (4);

    if (automated)
        rig->set ("link", 0.0f);

    return [rig, automated, moving = Moving()] (float* left, float* right, int numSamples) mutable
    {
        const auto value = moving.next();

        if (automated)
            for (const auto& info : parameterTable)
                if (! info.stepped)
                    rig->set (info.id, value);

        float* const channels[] = { left, right };
        juce::AudioBuffer<float> buffer (channels, 2, numSamples);
        rig->processor.processBlock (buffer, rig->midi);
    };
}

} // namespace

const char* nameOf (Task task)
{
    switch (task)
    {
        case Task::engineClean:
            return "engine clean";
        case Task::engineMidSide:
            return "engine M/S";
        case Task::engineBreakIdle:
            return "engine break idle";
        case Task::engineBreakDriven:
            return "engine break driven";
        case Task::processBlock:
            return "processBlock";
        case Task::engineFade:
            return "engine fade";
        case Task::automated:
            return "processBlock automated";
    }

    return "";
}

const char* nameOf (dsp::simd::InstructionSet form)
{
    return dsp::simd::kernelsFor (form).name;
}

std::string keyOf (const std::string& work, const std::string& form, int rate, int block)
{
    std::ostringstream key;
    key << work << ", " << form << ", " << rate << " Hz, " << block;
    return key.str();
}

Process makeWorkload (Task task, dsp::simd::InstructionSet form, int rate, int block)
{
    const auto& kernels = dsp::simd::kernelsFor (form);

    if (task == Task::processBlock || task == Task::automated)
        return makeProcessor (kernels, rate, block, task == Task::automated);

    const auto engine = std::make_shared<dsp::EqEngine> (kernels);
    auto settings = settingsFor (task);
    engine->prepare (rate);
    engine->setParameters (settings);

    if (task != Task::engineFade)
        return [engine] (float* left, float* right, int numSamples) { engine->process (left, right, numSamples); };

    return [engine, settings, moving = Moving()] (float* left, float* right, int numSamples) mutable
    {
        settings.trim = moving.next();

        engine->setParameters (settings);
        engine->process (left, right, numSamples);
    };
}

Process makeCopy()
{
    return [] (float*, float*, int) {};
}

NoiseRun::NoiseRun (Process processToRun, int blockSize)
    : process (std::move (processToRun)),
      block (blockSize)
{
    for (std::uint32_t channel = 0; channel < 2; ++channel)
    {
        noise[channel] = test::whiteNoise (channel + 1, 8192, 0.1);
        buffer[channel].resize (static_cast<std::size_t> (block));
    }
}

int NoiseRun::rounded (int numSamples) const
{
    return (numSamples + block - 1) / block * block;
}

void NoiseRun::run (int numSamples)
{
    const auto total = rounded (numSamples);
    const auto size = static_cast<std::size_t> (block) * sizeof (float);

    for (int done = 0, position = 0; done < total; done += block)
    {
        for (std::size_t channel = 0; channel < 2; ++channel)
            std::memcpy (buffer[channel].data(), noise[channel].data() + position, size);

        process (buffer[0].data(), buffer[1].data(), block);
        position = (position + block) % 4096;
    }
}

} // namespace kestreleq::speed

#include "tests/support/Vst3Module.h"

#include "engine/parameters/ParameterTable.h"

#include <public.sdk/source/common/memorystream.h>

#include <algorithm>
#include <array>
#include <stdexcept>

namespace kestreleq::test
{

using namespace Steinberg;

Vst3Module::Vst3Module()
{
    const auto binary =
        juce::File (KESTREL_MODULE_PATH).findChildFiles (juce::File::findFiles, true, "*.so")[0].getFullPathName();

    if (! library.open (binary))
        throw std::runtime_error ("cannot load " + binary.toStdString());

    reinterpret_cast<bool (*) (void*)> (library.getFunction ("ModuleEntry")) (library.getNativeHandle());
    factory = reinterpret_cast<IPluginFactory* (*)()> (library.getFunction ("GetPluginFactory"))();
}

Vst3Module::~Vst3Module()
{
    factory->release();
    reinterpret_cast<bool (*)()> (library.getFunction ("ModuleExit"))();
}

template <typename Interface>
IPtr<Interface> Vst3Module::create (const TUID classId, const TUID interfaceId)
{
    void* object = nullptr;

    if (factory->createInstance (classId, interfaceId, &object) != kResultOk)
        throw std::runtime_error ("the factory makes no object of its class");

    return owned (static_cast<Interface*> (object));
}

IPtr<Vst::IComponent> Vst3Module::createComponent()
{
    for (int32 i = 0; i < factory->countClasses(); ++i)
    {
        PClassInfo info;

        if (factory->getClassInfo (i, &info) == kResultOk && std::strcmp (info.category, kVstAudioEffectClass) == 0)
            return create<Vst::IComponent> (info.cid, Vst::IComponent_iid);
    }

    throw std::runtime_error ("the module holds no audio effect");
}

IPtr<Vst::IEditController> Vst3Module::createController (Vst::IComponent& component)
{
    TUID classId;
    component.getControllerClassId (classId);
    return create<Vst::IEditController> (classId, Vst::IEditController_iid);
}

namespace
{

void connect (Vst::IComponent& component, Vst::IEditController& controller, bool shouldConnect)
{
    const auto first = interfaceOf<Vst::IConnectionPoint> (component, Vst::IConnectionPoint_iid);
    const auto second = interfaceOf<Vst::IConnectionPoint> (controller, Vst::IConnectionPoint_iid);

    for (const auto& [one, other] : { std::pair { first, second }, std::pair { second, first } })
        shouldConnect ? one->connect (other) : one->disconnect (other);
}

std::vector<Vst::ParameterInfo> listed (Vst::IEditController& controller, bool thatSelectPrograms)
{
    std::vector<Vst::ParameterInfo> result;

    for (int32 i = 0; i < controller.getParameterCount(); ++i)
    {
        Vst::ParameterInfo info {};
        const bool isThere = controller.getParameterInfo (i, info) == kResultOk;

        if (isThere && ((info.flags & Vst::ParameterInfo::kIsProgramChange) != 0) == thatSelectPrograms)
            result.push_back (info);
    }

    return result;
}

} // namespace

std::vector<Vst::ParameterInfo> parametersOf (Vst::IEditController& controller)
{
    return listed (controller, false);
}

Vst::ParamID parameterId (Vst::IEditController& controller, std::string_view id)
{
    const auto* const row =
        std::find_if (parameterTable.begin(), parameterTable.end(), [id] (const auto& info) { return info.id == id; });
    return parametersOf (controller).at (static_cast<std::size_t> (row - parameterTable.begin())).id;
}

Vst::ParamID programParameterId (Vst::IEditController& controller)
{
    return listed (controller, true).at (0).id;
}

Vst3Instance::Vst3Instance (Vst3Module& module)
    : component (module.createComponent()),
      processor (interfaceOf<Vst::IAudioProcessor> (*component, Vst::IAudioProcessor_iid)),
      controller (module.createController (*component))
{
    component->initialize (nullptr);
    controller->initialize (nullptr);
    connect (*component, *controller, true);
}

Vst3Instance::~Vst3Instance()
{
    connect (*component, *controller, false);
    controller->terminate();
    component->terminate();
}

tresult Vst3Instance::setUp (double sampleRate, int maximumBlock)
{
    Vst::ProcessSetup setup { Vst::kRealtime, Vst::kSample32, maximumBlock, sampleRate };
    return processor->setupProcessing (setup);
}

void Vst3Instance::start (double sampleRate, int maximumBlock)
{
    setUp (sampleRate, maximumBlock);
    component->activateBus (Vst::kAudio, Vst::kInput, 0, true);
    component->activateBus (Vst::kAudio, Vst::kOutput, 0, true);
    component->setActive (true);
    processor->setProcessing (true);
}

void Vst3Instance::stop()
{
    processor->setProcessing (false);
    component->setActive (false);
}

tresult Vst3Instance::process (
    float* left, float* right, int numSamples, ParameterChanges* changes, ParameterChanges* answer)
{
    std::array<float*, 2> channels { left, right };
    Vst::AudioBusBuffers bus;
    bus.numChannels = 2;
    bus.channelBuffers32 = channels.data();

    Vst::ProcessData data;
    data.processMode = Vst::kRealtime;
    data.symbolicSampleSize = Vst::kSample32;
    data.numSamples = numSamples;
    data.numInputs = data.numOutputs = 1;
    data.inputs = data.outputs = &bus;
    data.inputParameterChanges = changes;
    data.outputParameterChanges = answer;
    return processor->process (data);
}

void Vst3Instance::set (const Settings& settings)
{
    ParameterChanges changes;

    for (const auto& [id, value] : settings)
        changes.add (parameterId (*controller, id), value);

    process (nullptr, nullptr, 0, &changes);
}

std::vector<char> Vst3Instance::save()
{
    MemoryStream stream;

    if (component->getState (&stream) != kResultOk)
        return {};

    return { stream.getData(), stream.getData() + stream.getSize() };
}

tresult Vst3Instance::restore (std::vector<char> state)
{
    MemoryStream stream (state.data(), static_cast<TSize> (state.size()));
    return component->setState (&stream);
}

} // namespace kestreleq::test

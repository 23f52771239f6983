#include "tests/support/Vst3Module.h"

#include "engine/parameters/ParameterTable.h"

#include <algorithm>
#include <array>
#include <stdexcept>

namespace kestreleq::test
{

using namespace Steinberg;

tresult StateStream::read (void* buffer, int32 count, int32* numRead)
{
    const auto available = std::min (static_cast<std::size_t> (std::max (count, 0)), bytes.size() - position);
    std::memcpy (buffer, bytes.data() + position, available);
    position += available;

    if (numRead != nullptr)
        *numRead = static_cast<int32> (available);

    return kResultOk;
}

tresult StateStream::write (void* buffer, int32 count, int32* numWritten)
{
    const auto* source = static_cast<const char*> (buffer);
    bytes.resize (position);
    bytes.insert (bytes.end(), source, source + count);
    position = bytes.size();

    if (numWritten != nullptr)
        *numWritten = count;

    return kResultOk;
}

tresult StateStream::seek (int64 to, int32 mode, int64* at)
{
    const auto base = mode == kIBSeekSet ? 0 : static_cast<int64> (mode == kIBSeekCur ? position : bytes.size());
    position = static_cast<std::size_t> (std::clamp<int64> (base + to, 0, static_cast<int64> (bytes.size())));
    return tell (at);
}

tresult StateStream::tell (int64* at)
{
    if (at != nullptr)
        *at = static_cast<int64> (position);

    return kResultOk;
}

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

} // namespace

std::vector<Vst::ParameterInfo> parametersOf (Vst::IEditController& controller)
{
    std::vector<Vst::ParameterInfo> result;

    for (int32 i = 0; i < controller.getParameterCount(); ++i)
    {
        Vst::ParameterInfo info {};

        if (controller.getParameterInfo (i, info) == kResultOk &&
            (info.flags & Vst::ParameterInfo::kIsProgramChange) == 0)
            result.push_back (info);
    }

    return result;
}

Vst::ParamID parameterId (Vst::IEditController& controller, std::string_view id)
{
    const auto* const row =
        std::find_if (parameterTable.begin(), parameterTable.end(), [id] (const auto& info) { return info.id == id; });
    return parametersOf (controller).at (static_cast<std::size_t> (row - parameterTable.begin())).id;
}

Vst::ParamID programParameterId (Vst::IEditController& controller)
{
    for (int32 i = 0; i < controller.getParameterCount(); ++i)
    {
        Vst::ParameterInfo info {};
        controller.getParameterInfo (i, info);

        if ((info.flags & Vst::ParameterInfo::kIsProgramChange) != 0)
            return info.id;
    }

    throw std::out_of_range ("no parameter selects programs");
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

std::vector<char> Vst3Instance::save()
{
    StateStream stream;
    return component->getState (&stream) == kResultOk ? stream.bytes : std::vector<char>();
}

tresult Vst3Instance::restore (const std::vector<char>& state)
{
    StateStream stream (state);
    return component->setState (&stream);
}

} // namespace kestreleq::test

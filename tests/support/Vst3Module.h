#pragma once

#include <juce_core/juce_core.h>

#include <pluginterfaces/base/smartpointer.h>
#include <pluginterfaces/vst/ivstaudioprocessor.h>
#include <pluginterfaces/vst/ivstcomponent.h>
#include <pluginterfaces/vst/ivsteditcontroller.h>
#include <pluginterfaces/vst/ivstmessage.h>
#include <pluginterfaces/vst/ivstparameterchanges.h>

#include <cstring>
#include <deque>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kestreleq::test
{

namespace Vst = Steinberg::Vst;

#if defined(__GNUC__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor" // the interfaces have none, by their nature
#endif

/** A host's own object with one interface, which the host deletes whatever references are left. */
template <typename Interface>
class HostObject : public Interface
{
public:
    explicit HostObject (const Steinberg::TUID& interfaceId)
        : ownId (interfaceId)
    {
    }

    Steinberg::tresult PLUGIN_API queryInterface (const Steinberg::TUID wanted, void** object) override
    {
        const bool isThis = Steinberg::FUnknownPrivate::iidEqual (wanted, ownId) ||
            Steinberg::FUnknownPrivate::iidEqual (wanted, Steinberg::FUnknown_iid);
        *object = isThis ? this : nullptr;
        return isThis ? Steinberg::kResultOk : Steinberg::kNoInterface;
    }

    Steinberg::uint32 PLUGIN_API addRef() override { return 1; }

    Steinberg::uint32 PLUGIN_API release() override { return 1; }

protected:
    virtual ~HostObject() = default;

private:
    const Steinberg::TUID& ownId;
};

/** Changes of parameters for one block, each at its first sample. */
class ParameterChanges final : public HostObject<Vst::IParameterChanges>
{
public:
    ParameterChanges()
        : HostObject (Vst::IParameterChanges_iid)
    {
    }

    void add (Vst::ParamID id, double value) { queues.emplace_back (id, value); }

    Steinberg::int32 PLUGIN_API getParameterCount() override { return static_cast<Steinberg::int32> (queues.size()); }

    Vst::IParamValueQueue* PLUGIN_API getParameterData (Steinberg::int32 index) override
    {
        return &queues[static_cast<std::size_t> (index)];
    }

    Vst::IParamValueQueue* PLUGIN_API addParameterData (const Vst::ParamID& id, Steinberg::int32& index) override
    {
        index = getParameterCount();
        add (id, 0.0);
        return &queues.back();
    }

private:
    struct Queue final : HostObject<Vst::IParamValueQueue>
    {
        Queue (Vst::ParamID idToSet, double valueToSet)
            : HostObject (Vst::IParamValueQueue_iid),
              id (idToSet),
              value (valueToSet)
        {
        }

        Vst::ParamID PLUGIN_API getParameterId() override { return id; }

        Steinberg::int32 PLUGIN_API getPointCount() override { return 1; }

        Steinberg::tresult PLUGIN_API getPoint (
            Steinberg::int32, Steinberg::int32& offset, Vst::ParamValue& result) override
        {
            offset = 0;
            result = value;
            return Steinberg::kResultOk;
        }

        Steinberg::tresult PLUGIN_API addPoint (Steinberg::int32, Vst::ParamValue point, Steinberg::int32&) override
        {
            value = point;
            return Steinberg::kResultOk;
        }

        Vst::ParamID id;
        double value;
    };

    std::deque<Queue> queues;
};

#if defined(__GNUC__)
#pragma GCC diagnostic pop
#endif

/** The built module, loaded as a host loads it: through its entry points only. */
class Vst3Module
{
public:
    Vst3Module();
    ~Vst3Module();

    Vst3Module (const Vst3Module&) = delete;
    Vst3Module& operator= (const Vst3Module&) = delete;

    /** A new object of the audio effect's class. */
    Steinberg::IPtr<Vst::IComponent> createComponent();
    Steinberg::IPtr<Vst::IEditController> createController (Vst::IComponent& component);

    Steinberg::IPluginFactory* getFactory() { return factory; }

private:
    template <typename Interface>
    Steinberg::IPtr<Interface> create (const Steinberg::TUID classId, const Steinberg::TUID interfaceId);

    juce::DynamicLibrary library;
    Steinberg::IPluginFactory* factory = nullptr;
};

/** Another interface of an object, or none. */
template <typename Interface>
Steinberg::IPtr<Interface> interfaceOf (Steinberg::FUnknown& object, const Steinberg::TUID interfaceId)
{
    void* found = nullptr;

    return object.queryInterface (interfaceId, &found) == Steinberg::kResultOk
        ? Steinberg::owned (static_cast<Interface*> (found))
        : nullptr;
}

/** The module's own parameters in host order; what the wrapper adds is left out. */
std::vector<Vst::ParameterInfo> parametersOf (Vst::IEditController& controller);

/** The host's number for a parameter's ID. Throws std::out_of_range where there is none. */
Vst::ParamID parameterId (Vst::IEditController& controller, std::string_view id);

/** The parameter that selects programs. */
Vst::ParamID programParameterId (Vst::IEditController& controller);

/** Parameter IDs with normalised values. */
using Settings = std::vector<std::pair<std::string, double>>;

/** An audio effect with its controller, both initialised and connected. */
class Vst3Instance
{
public:
    explicit Vst3Instance (Vst3Module& module);
    ~Vst3Instance();

    Vst3Instance (const Vst3Instance&) = delete;
    Vst3Instance& operator= (const Vst3Instance&) = delete;

    Steinberg::tresult setUp (double sampleRate, int maximumBlock);

    /** Sets up, activates and starts. */
    void start (double sampleRate, int maximumBlock);
    void stop();

    /** In place, two channels; there may be no changes, and nobody who wants to know the module's own. */
    Steinberg::tresult process (float* left, float* right, int numSamples, ParameterChanges* changes = nullptr,
        ParameterChanges* answer = nullptr);

    /** All at once, as a host does between two blocks. */
    void set (const Settings& settings);

    std::vector<char> save();
    Steinberg::tresult restore (std::vector<char> state);

    Steinberg::IPtr<Vst::IComponent> component;
    Steinberg::IPtr<Vst::IAudioProcessor> processor;
    Steinberg::IPtr<Vst::IEditController> controller;
};

} // namespace kestreleq::test

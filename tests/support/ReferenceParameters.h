#pragma once

#include <array>
#include <span>
#include <string_view>

namespace kestreleq::test
{
/** The 29 normalised parameter values as a host sees them after its gestures: 32-bit floats in 0..1, stepped ones
    snapped to 0 or 1 (0.5 snaps up), linked pairs copied. Unknown IDs throw std::out_of_range. */
class ReferenceParameters
{
public:
    struct Entry
    {
        std::string_view id;
        float initial;
        bool stepped;
    };

    static constexpr int controlsPerLane = 7; ///< five bands, air amount, air band

    /** All parameters in the host's order; the first seven belong to lane A, the next seven to lane B. */
    static std::span<const Entry> entries();

    ReferenceParameters();

    float get (std::string_view id) const;

    bool isOn (std::string_view id) const { return get (id) >= 0.5f; }

    /** The value that a lane (0 or 1) hears for a control (0..4 bands, 5 air amount, 6 air band), links considered. */
    float laneValue (int lane, int control) const;

    /** One host gesture: the value is clamped and snapped, then linking answers. */
    void set (std::string_view id, float value);

    /** The gestures of choosing a factory program (0..5): every value in the host's order. */
    void selectProgram (int index);

private:
    void store (std::string_view id, float value);

    void copy (std::string_view from, std::string_view to) { store (to, get (from)); }

    std::array<float, 29> values;
};

} // namespace kestreleq::test

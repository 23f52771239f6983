#pragma once

#include "engine/parameters/ParameterTable.h"

#include <array>
#include <stdexcept>
#include <string_view>

namespace kestreleq::test
{
/** The normalised parameter values as a host sees them after its gestures: 32-bit floats in 0..1, stepped ones snapped
    to 0 or 1 (0.5 snaps up), linked pairs copied. Unknown IDs throw std::out_of_range. */
class ReferenceParameters
{
public:
    ReferenceParameters();

    float get (std::string_view id) const;

    bool isOn (std::string_view id) const { return get (id) >= 0.5f; }

    /** The value that a lane (0 or 1) hears for a control (0..4 bands, 5 air amount, 6 air band), links considered. */
    float laneValue (int lane, int control) const;

    /** One host gesture: the value is clamped and snapped, then linking answers. */
    void set (std::string_view id, float value);

private:
    void store (std::string_view id, float value);

    void copy (std::string_view from, std::string_view to) { store (to, get (from)); }

    std::array<float, numParameters> values;
};

} // namespace kestreleq::test

#pragma once

#include "engine/parameters/ParameterTable.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace kestreleq::test
{
/** The normalised parameter values that the reference hears, stepped ones at 0 or 1; at first the defaults. Links copy
    nothing here. Unknown IDs throw std::out_of_range. */
class ReferenceParameters
{
public:
    ReferenceParameters()
    {
        std::transform (parameterTable.begin(), parameterTable.end(), values.begin(),
            [] (const auto& info) { return info.defaultValue; });
    }

    float get (std::string_view id) const { return values.at (indexOf (id)); }

    bool isOn (std::string_view id) const { return get (id) >= 0.5f; }

    /** The value that a lane (0 or 1) hears for a control (0..4 bands, 5 air amount, 6 air band). */
    float laneValue (int lane, int control) const
    {
        return values.at (static_cast<std::size_t> (control + (isOn ("link") ? 0 : lane * 7)));
    }

    void set (std::string_view id, float value) { values.at (indexOf (id)) = value; }

private:
    static std::size_t indexOf (std::string_view id)
    {
        const auto hasId = [id] (const auto& info) { return info.id == id; };
        return static_cast<std::size_t> (
            std::find_if (parameterTable.begin(), parameterTable.end(), hasId) - parameterTable.begin());
    }

    std::array<float, numParameters> values;
};

} // namespace kestreleq::test

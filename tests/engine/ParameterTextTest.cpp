#include "tests/support/ProcessorRig.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace kestreleq::test
{
namespace
{

struct Case
{
    const char* id;
    const char* text;
    float value;
};

TEST (ParameterText, ShowsValuesInTheirUnits)
{
    ProcessorRig rig;
    const auto nan = std::numeric_limits<float>::quiet_NaN();

    for (const auto& [id, text, value] : std::vector<Case> { { "sub", "+2.5", 0.75f }, { "sub", "0.0", 0.5f },
             { "40hz", "0.0", 0.5049f }, { "40hz", "+0.1", 0.506f }, { "2500hzR", "-5.0", 0.0f },
             { "2500hzR", "+5.0", 7.0f }, { "2500hzR", "-5.0", nan }, { "outGain2", "-9.0 dB", 0.0f },
             { "trim", "-12.0 dB", 0.0f }, { "airGain", "0.3", 0.3f }, { "airBand", "5K", 0.3f },
             { "airBand", "5K", 0.125f }, { "bypass", "Bypassed", 1.0f }, { "laneBBypass", "Active", 0.0f },
             { "breakMode", "Break", 1.0f }, { "link", "On", 1.0f }, { "msMode", "Off", 0.0f } })
        EXPECT_EQ (rig.parameter (id).getText (value, 100).toStdString(), text) << id << " " << value;

    // The host's limit on the length is not ours.
    EXPECT_EQ (rig.parameter ("bypass").getText (1.0f, 3).toStdString(), "Bypassed");
}

TEST (ParameterText, ReadsWhatPeopleType)
{
    ProcessorRig rig;

    for (const auto& [id, text, value] :
        std::vector<Case> { { "sub", "+2.5", 0.75f }, { "sub", " -5 dB ", 0.0f },
            { "inGain1", "3 dB", 3.0f / 18.0f + 0.5f }, { "inGain2", "20", 1.0f }, { "outGain1", "loud", 0.5f },
            { "outGain1", "nan", 0.5f }, { "outGain1", "inf", 0.5f }, { "outGain1", "nan7", 0.5f },
            { "outGain1", "-INF 7", 0.5f }, { "outGain1", "1e999 dB", 0.0f }, { "trim", "-1e999", 0.0f },
            { "outGain1", "", 0.5f }, { "trim", "-6dB", 0.25f }, { "airGain", "0.4", 0.4f }, { "airGain", "-3", 0.0f },
            { "airBand", "10 khz", 0.5f }, { "airBand", "20000 Hz", 0.75f }, { "airBand", "7000", 1.0f },
            { "airBand", "3", 0.25f }, { "airBand", "1", 1.0f }, { "airBand", "0.3", 0.3f }, { "airBand", "2.5", 0.0f },
            { "airBand", "12", 0.75f }, { "airBand", "5000HZ", 0.25f }, { "airBand", "40000hz", 1.0f },
            { "bypass", " OFF ", 1.0f }, { "bypass", "True", 1.0f }, { "bypass", "1", 1.0f },
            { "laneABypass", "on", 0.0f }, { "breakMode", "ON", 1.0f }, { "breakMode", "yes", 0.0f },
            { "breakMode", "off", 0.0f }, { "link", "1", 1.0f }, { "link", "1.0", 0.0f } })
        EXPECT_FLOAT_EQ (rig.parameter (id).getValueForText (text), value) << id << " '" << text << "'";
}

} // namespace
} // namespace kestreleq::test

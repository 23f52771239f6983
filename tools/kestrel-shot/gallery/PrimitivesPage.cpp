#include "tools/kestrel-shot/gallery/Gallery.h"

#include "ui_pro/primitives/RootBackground.h"
#include "ui_pro/primitives/SectionTitle.h"
#include "ui_pro/primitives/SidePanel.h"
#include "ui_pro/style/Theme.h"

namespace kestreleq::shot
{
namespace
{

using namespace quillon::ui_pro;

/** The accent table, one swatch per role. */
struct AccentSwatches final : juce::Component
{
    void paint (juce::Graphics& g) override
    {
        for (int id = 0; id <= static_cast<int> (style::AccentColorRole::role30); ++id)
        {
            g.setColour (style::Theme::accent (id));
            g.fillRoundedRectangle (static_cast<float> (id) * 26.0f, 0.0f, 22.0f, 22.0f, 4.0f);
        }
    }
};

template <typename ComponentType, typename... Arguments>
std::unique_ptr<ComponentType> sized (int width, int height, Arguments&&... arguments)
{
    auto component = std::make_unique<ComponentType> (std::forward<Arguments> (arguments)...);
    component->setSize (width, height);
    return component;
}

} // namespace

void addPrimitives (GallerySheet& sheet)
{
    sheet.addSection ("Surfaces");
    sheet.add ("Root background", sized<primitives::RootBackground> (480, 246));
    sheet.add ("Side panel", sized<primitives::SidePanel> (260, 246));
    sheet.add ("Side panel, divided", sized<primitives::SidePanel> (260, 246)).setDivider (130, 20, 226);
    sheet.add ("Section title", sized<primitives::SectionTitle> (200, 28, "GLOBAL"));

    sheet.addSection ("Accents");
    sheet.add ("Roles 0 to 30", sized<AccentSwatches> (31 * 26, 22));
}

} // namespace kestreleq::shot

#include "editor/header/HeaderMenu.h"

namespace kestreleq
{

std::vector<quillon::ui_pro::controls::MenuItem> makeMenuItems (const ResourceManifest& manifest)
{
    using quillon::ui_pro::controls::MenuItem;
    using Kind = MenuItem::Kind;

    std::vector<MenuItem> items {
        { "reset", Kind::action, "Reset to Init", "Restore all parameters to defaults.", {}, {} },
        { "sep", Kind::separator, {}, {}, {}, {} },
        { "manual", Kind::link, "User Manual", "Open manual.", manifest.userManualUrl(), {} },
        { "quickstart", Kind::link, "Quick Start", "Open quick start.", manifest.quickStartUrl(), {} },
        { "support", Kind::panel, "Support...", "Open support and diagnostics.", {}, {} },
    };

    if (const auto website = manifest.websiteUrl(); website.isNotEmpty())
        items.push_back (
            { "website", Kind::link, "Quillon Website", "Open " + juce::URL (website).getDomain(), website, "Help" });

    items.push_back (
        { "about", Kind::information, "About " + manifest.name(), "Version " + manifest.version(), {}, {} });
    return items;
}

} // namespace kestreleq

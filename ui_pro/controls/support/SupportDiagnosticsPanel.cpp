#include "ui_pro/controls/support/SupportDiagnosticsPanel.h"

#include "ui_pro/controls/buttons/ToolIcons.h"
#include "ui_pro/controls/support/SupportSheet.h"

#include <algorithm>
#include <utility>

namespace quillon::ui_pro::controls
{
namespace
{

struct ActionRow
{
    SupportDiagnosticsPanel::Action action;
    const char* caption;
    ToolIcon icon;
    const char* tooltip;
};

using Action = SupportDiagnosticsPanel::Action;

constexpr std::array<ActionRow, SupportDiagnosticsPanel::numActions> actionTable { {
    { Action::copyDiagnostics, "Copy Diagnostics", ToolIcon::copy, "Copy the report to the clipboard." },
    { Action::saveDiagnostics, "Save Diagnostics", ToolIcon::save, "Save the report to a text file." },
    { Action::contactSupport, "Contact Support", ToolIcon::mail, "Write to support." },
    { Action::copyEmail, "Copy Email", ToolIcon::mailCopy, "Copy the address of support to the clipboard." },
    { Action::resetDsp, "Reset DSP", ToolIcon::reset, "Return every setting to the first program." },
    { Action::openConfigFolder, "Open Config Folder", ToolIcon::folder, "Show the folder of the settings." },
    { Action::userManual, "User Manual", ToolIcon::book, "Open the manual in the browser." },
    { Action::quickStart, "Quick Start", ToolIcon::start, "Open the quick start in the browser." },
    { Action::close, "Close", ToolIcon::close, "Close this panel." },
} };

/** The design is made for this window; in a larger one the sheet grows more slowly and shows more air. */
constexpr float smallestWindowWidth = 836.0f;
constexpr float smallestWindowHeight = 429.0f;
constexpr float growth = 0.75f;

} // namespace

SupportDiagnosticsPanel::SupportDiagnosticsPanel()
{
    for (const auto& row : actionTable)
    {
        auto& button = buttons[static_cast<std::size_t> (row.action)];
        button = std::make_unique<IconActionButton> (row.caption, toolIconShape (row.icon));
        button->setTooltip (row.tooltip);
        button->onClick = [this, action = row.action] { run (action); };
    }

    getButton (Action::copyDiagnostics).setPrimary (true);
    sheet = std::make_unique<Sheet> (*this);
    addAndMakeVisible (*sheet);
    setTitle ("Support / Diagnostics");
    setMouseClickGrabsKeyboardFocus (false);
    setFocusContainerType (FocusContainerType::focusContainer); // a screen reader finds the buttons in the dialog
    sheet->refreshRows();
    refreshButtons();
}

SupportDiagnosticsPanel::~SupportDiagnosticsPanel() = default;

void SupportDiagnosticsPanel::setRecord (DiagnosticsRecord newRecord)
{
    record = std::move (newRecord);
    sheet->refreshRows();
    refreshButtons();
}

void SupportDiagnosticsPanel::setHooks (Hooks newHooks)
{
    hooks = std::move (newHooks);
    refreshButtons();
}

void SupportDiagnosticsPanel::setTab (Tab tab)
{
    sheet->setTab (tab);
}

SupportDiagnosticsPanel::Tab SupportDiagnosticsPanel::getTab() const
{
    return sheet->getTab();
}

IconActionButton& SupportDiagnosticsPanel::getButton (Action action) const
{
    return *buttons.at (static_cast<std::size_t> (action));
}

juce::Rectangle<int> SupportDiagnosticsPanel::getSheetBounds() const
{
    return sheet->getBoundsInParent();
}

bool SupportDiagnosticsPanel::hitTest (int x, int y)
{
    return getSheetBounds().contains (x, y);
}

void SupportDiagnosticsPanel::resized()
{
    if (getWidth() <= 0 || getHeight() <= 0)
        return;

    const auto width = static_cast<float> (getWidth());
    const auto height = static_cast<float> (getHeight());
    const auto window = std::min (width / smallestWindowWidth, height / smallestWindowHeight);
    const auto scale = std::min ({ std::max (1.0f, window * growth), width / static_cast<float> (Sheet::width),
        height / static_cast<float> (Sheet::minimumHeight) });

    sheet->setBounds (0, 0, Sheet::width, static_cast<int> (std::ceil (height / scale)));
    sheet->setTransform (
        juce::AffineTransform::scale (scale).translated (width - static_cast<float> (Sheet::width) * scale, 0.0f));
}

std::unique_ptr<juce::AccessibilityHandler> SupportDiagnosticsPanel::createAccessibilityHandler()
{
    return std::make_unique<juce::AccessibilityHandler> (*this, juce::AccessibilityRole::dialogWindow);
}

void SupportDiagnosticsPanel::refreshButtons()
{
    const auto enable = [this] (Action action, bool enabled) { getButton (action).setEnabled (enabled); };

    enable (Action::contactSupport, record.supportLink.isNotEmpty());
    enable (Action::copyEmail, record.supportEmail.isNotEmpty());
    enable (Action::resetDsp, hooks.resetDsp != nullptr);
    enable (Action::openConfigFolder, record.configurationFolder != juce::File());
    enable (Action::userManual, record.manualAddress.isNotEmpty());
    enable (Action::quickStart, record.quickStartAddress.isNotEmpty());
    enable (Action::close, hooks.close != nullptr);
}

void SupportDiagnosticsPanel::run (Action action)
{
    const auto call = [] (const std::function<void()>& hook)
    {
        // A copy, since the hook may take the panel away.
        if (const auto copy = hook)
            copy();
    };
    const auto give = [] (const std::function<void (const juce::String&)>& service, const juce::String& text)
    {
        if (text.isNotEmpty())
            service (text);
    };

    switch (action)
    {
        case Action::copyDiagnostics:
            return copy (makeDiagnosticsReport (record, services.now()), "The report is on the clipboard.");
        case Action::saveDiagnostics:
            return saveReport();
        case Action::contactSupport:
            return give (services.openAddress, record.supportLink);
        case Action::copyEmail:
            return copy (record.supportEmail, record.supportEmail + " is on the clipboard.");
        case Action::resetDsp:
            return call (hooks.resetDsp);
        case Action::openConfigFolder:
            record.configurationFolder.createDirectory(); // if it cannot be made, the file browser says so
            return services.openFolder (record.configurationFolder);
        case Action::userManual:
            return give (services.openAddress, record.manualAddress);
        case Action::quickStart:
            return give (services.openAddress, record.quickStartAddress);
        case Action::close:
            return call (hooks.close);
    }
}

void SupportDiagnosticsPanel::copy (const juce::String& text, const juce::String& done)
{
    if (text.isEmpty())
        return;

    const auto isCopied = services.copyText (text);
    tell (isCopied ? done : "The clipboard cannot be reached.", isCopied);
}

void SupportDiagnosticsPanel::tell (const juce::String& newMessage, bool isGood)
{
    constexpr int shownFor = 5000; // ms
    message = newMessage;
    sheet->showMessage (message, isGood);

    if (message.isEmpty())
        return;

    juce::AccessibilityHandler::postAnnouncement (message, juce::AccessibilityHandler::AnnouncementPriority::medium);
    juce::Timer::callAfterDelay (shownFor,
        [self = SafePointer (this), number = ++messageNumber]
        {
            if (self != nullptr && self->messageNumber == number)
                self->tell ({}, true);
        });
}

void SupportDiagnosticsPanel::saveReport()
{
    const auto now = services.now();
    const auto suggestion =
        juce::File::getSpecialLocation (juce::File::userHomeDirectory).getChildFile (diagnosticsFileName (record, now));

    // The panel may be gone when the user has chosen.
    const auto save = [report = makeDiagnosticsReport (record, now), self = SafePointer (this)] (const juce::File& file)
    {
        if (file == juce::File())
            return;

        const auto isSaved = writeDiagnosticsReport (file, report);

        if (self != nullptr)
            self->tell (
                isSaved ? "Saved as " + file.getFileName() + "." : "Cannot write " + file.getFullPathName() + ".",
                isSaved);
    };

    if (services.chooseFile != nullptr)
        services.chooseFile (suggestion, save);
    else
        askForFile (suggestion, save);
}

void SupportDiagnosticsPanel::askForFile (const juce::File& suggestion, std::function<void (const juce::File&)> done)
{
    if (std::exchange (isChoosing, true))
        return; // one dialog at a time

    chooser = std::make_unique<juce::FileChooser> ("Save diagnostics", suggestion, "*.txt", true, false, this);
    chooser->launchAsync (juce::FileBrowserComponent::saveMode | juce::FileBrowserComponent::canSelectFiles |
            juce::FileBrowserComponent::warnAboutOverwriting,
        [this, done = std::move (done)] (const juce::FileChooser& finished)
        {
            isChoosing = false;
            done (finished.getResult());
        });
}

} // namespace quillon::ui_pro::controls

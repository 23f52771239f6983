#pragma once

#include "ui_pro/controls/buttons/IconActionButton.h"
#include "ui_pro/controls/support/DiagnosticsReport.h"

#include <array>
#include <functional>
#include <memory>

namespace quillon::ui_pro::controls
{

/** A sheet at the right of the window that tells about the plug-in and its system, makes the diagnostics report, and
    leads to the manuals and to support. Meant for the slide-in overlay: it takes the window's whole area in window
    pixels, scales its sheet to it, and lets the presses beside the sheet through. Message thread. */
class SupportDiagnosticsPanel final : public juce::Component
{
public:
    enum class Tab
    {
        about,
        system,
        privacy
    };

    /** The buttons in their order. */
    enum class Action
    {
        copyDiagnostics,
        saveDiagnostics,
        contactSupport,
        copyEmail,
        resetDsp,
        openConfigFolder,
        userManual,
        quickStart,
        close
    };

    static constexpr std::size_t numActions = 9;

    /** What only the owner can do; a button without its hook is disabled. */
    struct Hooks
    {
        std::function<void()> resetDsp;
        std::function<void()> close;
    };

    /** The way to the system. Replaced in tests. */
    struct Services
    {
        std::function<juce::Time()> now = [] { return juce::Time::getCurrentTime(); };

        /** Whether the text is now on the clipboard. */
        std::function<bool (const juce::String&)> copyText = [] (const juce::String& text)
        {
            juce::SystemClipboard::copyTextToClipboard (text);
            return juce::SystemClipboard::getTextFromClipboard() == text;
        };

        std::function<void (const juce::String&)> openAddress = [] (const juce::String& address)
        { juce::URL (address).launchInDefaultBrowser(); };
        std::function<void (const juce::File&)> openFolder = [] (const juce::File& folder) { folder.startAsProcess(); };

        /** Asks for a file to save to, starting from a suggestion, and hands it over later; no file when the user
            cancels. The native save dialog if unset. */
        std::function<void (const juce::File&, std::function<void (const juce::File&)>)> chooseFile;
    };

    SupportDiagnosticsPanel();
    ~SupportDiagnosticsPanel() override;

    /** To be called each time the panel is shown, so that it tells the present. */
    void setRecord (DiagnosticsRecord newRecord);

    const DiagnosticsRecord& getRecord() const { return record; }

    void setHooks (Hooks newHooks);

    void setTab (Tab tab);
    Tab getTab() const;

    IconActionButton& getButton (Action action) const;

    /** What the last action that shows nothing else has come to; empty after a few seconds. */
    const juce::String& getMessage() const { return message; }

    /** The part of the panel that is drawn, in its coordinates. */
    juce::Rectangle<int> getSheetBounds() const;

    Services services;

    bool hitTest (int x, int y) override;
    void resized() override;
    std::unique_ptr<juce::AccessibilityHandler> createAccessibilityHandler() override;

private:
    class Sheet;

    void run (Action action);
    void copy (const juce::String& text, const juce::String& done);
    void tell (const juce::String& newMessage, bool isGood);
    void saveReport();
    void askForFile (const juce::File& suggestion, std::function<void (const juce::File&)> done);
    void refreshButtons();

    DiagnosticsRecord record;
    Hooks hooks;
    std::array<std::unique_ptr<IconActionButton>, numActions> buttons;
    std::unique_ptr<Sheet> sheet;
    std::unique_ptr<juce::FileChooser> chooser; // while its dialog is open, and until the next one
    bool isChoosing = false;
    juce::String message;
    int messageNumber = 0;
};

} // namespace quillon::ui_pro::controls

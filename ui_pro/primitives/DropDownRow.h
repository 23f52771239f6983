#pragma once

#include "ui_pro/primitives/DropDownList.h"
#include "ui_pro/primitives/FaceButton.h"

namespace quillon::ui_pro::primitives
{

/** One line of the list. */
class DropDownList::Row final : public FaceButton
{
public:
    Row (DropDownList& owner, ListItem shown);

    int getPreferredWidth() const;
    int getPreferredHeight() const;

    bool canBeChosen() const { return item.kind == ListItem::Kind::choice && item.isEnabled; }

    void paintFace (juce::Graphics& g, const ButtonLook& look) const override;
    void clicked() override;
    void buttonStateChanged() override;

    const ListItem item;

private:
    void reached() override;
    void paintChoice (juce::Graphics& g, const ButtonLook& look) const;

    DropDownList& list;
};

} // namespace quillon::ui_pro::primitives

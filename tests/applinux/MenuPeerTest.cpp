#include "app/linux/MenuPeer.h"
#include "ui/frmParlune.h"

namespace {
std::string TextsOf(const QMenu& menu)
{
    std::string texts;
    for (const QAction* entry : menu.actions()) {
        texts += entry->isSeparator() ? "-" : entry->text().toStdString();
        texts += entry->isChecked() ? " (ticked)" : "";
        texts += entry->menu() ? " [" + TextsOf(*entry->menu()) + "]" : "";
        texts += ", ";
    }
    return texts;
}

struct MenuPeer : testing::Test {
    frmParlune form;
    QMenu native;
};
}

TEST_F(MenuPeer, Popup_Whole_HasEveryEntryInOrder)
{
    MirrorMenu(native, form.mnuPopup);

    EXPECT_EQ(TextsOf(native),
              "Read &Clipboard, Read Text &File..., &Read Other [Word &Document, &Word Selection, &Excel "
              "Selection, ], -, Announce &Time, &Auto-Read Clipboard, -, &Options..., -, &Hide, Skip, &Pause, "
              "&Stop, -, &Exit Parlune, ");
}

TEST_F(MenuPeer, Entry_MadeInvisible_IsLeftOutAtTheNextOpening)
{
    MirrorMenu(native, form.mnuPopup);
    for (ui::CMenuItem* item :
         {&form.mnuPopReadClipboard, &form.mnuPopRead, &form.mnuPopSep1, &form.mnuPopSayTime, &form.mnuPopAutoReadClipboard,
          &form.mnuPopSep2, &form.mnuPopCharSkip, &form.mnuPopCharPause})
        item->SetVisible(false);
    form.mnuPopHide.SetCaption("&Show");
    emit native.aboutToShow();

    EXPECT_EQ(TextsOf(native), "Read Text &File..., &Options..., -, &Show, &Stop, -, &Exit Parlune, ");
}

TEST_F(MenuPeer, Entry_Ticked_IsShownTicked)
{
    form.mnuPopSayTime.SetChecked(true);
    MirrorMenu(native, form.mnuPopup);

    EXPECT_NE(TextsOf(native).find("Announce &Time (ticked), &Auto-Read Clipboard,"), std::string::npos);
}

TEST_F(MenuPeer, OpenedOften_KeepsNoOldSubMenus)
{
    MirrorMenu(native, form.mnuPopup);
    for (int opening = 0; opening < 10; ++opening)
        emit native.aboutToShow();

    EXPECT_EQ(native.findChildren<QMenu*>().size(), 1);
}

TEST_F(MenuPeer, Entry_Chosen_IsClicked)
{
    int clicks = 0;
    form.mnuPopCharStop.onClick = [&] { ++clicks; };
    MirrorMenu(native, form.mnuPopup);
    for (QAction* entry : native.actions())
        if (entry->text() == "&Stop")
            entry->trigger();

    EXPECT_EQ(clicks, 1);
}

TEST_F(MenuPeer, SubMenu_WithEveryEntryInvisible_IsGreyed)
{
    for (ui::CMenuItem* item : {&form.mnuPopReadWordDocument, &form.mnuPopReadWordSelection, &form.mnuPopReadExcelSelection})
        item->SetVisible(false);
    MirrorMenu(native, form.mnuPopup);

    const QAction* readOther = native.actions().at(2);
    EXPECT_EQ(readOther->text(), "&Read Other");
    EXPECT_FALSE(readOther->isEnabled());
}

TEST_F(MenuPeer, SubMenu_WithAnEntry_CanBeOpened)
{
    MirrorMenu(native, form.mnuPopup);

    EXPECT_TRUE(native.actions().at(2)->isEnabled());
}

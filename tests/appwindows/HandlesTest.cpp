#include "FilledForm.h"
#include "app/windows/ControlIds.h"
#include "app/windows/MenuPeer.h"
#include "app/windows/window/Pictures.h"
#include "support/OwnHandles.h"

// What is opened is closed: nothing grows after many operations of each kind.
namespace {

// Does it often, so that what is made once is there, then many more times.
template <class Operation> void ExpectNoGrowth(Operation&& operation, int times = 1000)
{
    for (int i = 0; i < 8; ++i)
        operation(i);
    const auto repeat = [&] {
        for (int i = 0; i < times; ++i)
            operation(i);
    };
    EXPECT_EQ(support::GrowthOf(support::CountOwnHandles, repeat, 3), "");
}

}

TEST(Handles, PagesTurned_DoNotGrow)
{
    ShownWindow shown;
    for (int tab = 0; tab < 7; ++tab)
        shown.Visit(tab);
    ExpectNoGrowth([&](int i) {
        shown.form.tabMain.Select(i % 7);
        shown.window.Inside()->MirrorNow();
        if (i % 50 == 0)  // Painting them all takes long.
            shown.Turn();
    });
}

TEST(Handles, MenusOpened_DoNotGrow)
{
    ShownWindow shown;
    HMENU file = GetSubMenu(GetMenu(shown.window.Native()), 0);
    ExpectNoGrowth([&](int) {
        appwindows::RefreshOpening(file, shown.form);
        HMENU bar = appwindows::MakeMenuBar(shown.form, {&shown.form.mnuPopup});
        appwindows::RefreshOpening(GetSubMenu(bar, 0), shown.form);
        DestroyMenu(bar);
    });
}

TEST(Handles, PicturesDrawn_DoNotGrow)
{
    ExpectNoGrowth([](int) {
        DestroyIcon(appwindows::pictures::ProgramIcon(16));
        appwindows::pictures::Draw("read", {20, 20}, 0);
    });
}

TEST(Handles, ResolutionChanged_DoesNotGrow)
{
    ShownWindow shown;
    for (int tab = 0; tab < 7; ++tab)
        shown.Visit(tab);
    ExpectNoGrowth([&](int i) { shown.window.Inside()->Dress(i % 2 ? 96 : 144); }, 20);
}

TEST(Handles, StylesAndTextsChanged_DoNotGrow)
{
    ShownWindow shown;
    shown.Visit(3);
    ExpectNoGrowth([&](int i) {
        shown.form.lblFontDisplay.SetStyle({.fontName = "Tahoma", .fontSize = static_cast<float>(8 + i % 5)});
        shown.form.chkAdvSpkTags[0].SetToolTip(i % 2 ? "One" : "Two");
        shown.form.staStatus.SetText(std::to_string(i));
        shown.Turn();
    });
}

TEST(Handles, WindowsMadeAndGone_DoNotGrow)
{
    ExpectNoGrowth(
        [](int) {
            FilledForm filled;
            appwindows::CMainWindowPeer window(filled.form,
                                               {.isBusy = [] { return false; }, .unloaded = [] {}, .sessionEnds = [] {}});
            appwindows::CFormMirror inside(filled.form, ui::layout::MainWindowLayout(), window.Native(), 96);
        },
        30);
}

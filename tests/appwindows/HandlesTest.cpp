#include "FilledForm.h"
#include "app/windows/ControlIds.h"
#include "app/windows/MenuPeer.h"
#include "app/windows/window/Pictures.h"
#include <algorithm>
#include <vector>

// What is opened is closed: nothing grows after many operations of each kind.
namespace {

struct Holdings {
    DWORD pens;     // And all else that draws.
    DWORD windows;  // And menus, icons.
};

// What the system keeps of every handle for drawing that this process holds.
struct PenEntry {
    ULONG64 object;
    ULONG owner;
    USHORT unique;
    UCHAR type;  // 0 for a free one.
    UCHAR flags;
    ULONG64 pointer;
};
constexpr int PenEntries = 0x4000;

// The table lies at a known place of the process.
const PenEntry* PenTable()
{
    const bool wide = sizeof(void*) == 8;
    const auto at = [](const void* base, int offset) {
        return *reinterpret_cast<const void* const*>(static_cast<const char*>(base) + offset);
    };
    return static_cast<const PenEntry*>(at(at(NtCurrentTeb(), wide ? 0x60 : 0x30), wide ? 0xF8 : 0x94));
}

// Where the system counts nothing we do.
DWORD Pens()
{
    if (const DWORD counted = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS))
        return counted;
    const PenEntry* table = PenTable();
    return static_cast<DWORD>(
        std::count_if(table, table + PenEntries, [](const PenEntry& entry) { return entry.type != 0; }));
}

// New handles take the numbers that are free; so many fill every gap, and the highest number tells how many there are.
DWORD Windows()
{
    if (const DWORD counted = GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS))
        return counted;
    std::vector<HMENU> fillers(3000);
    DWORD highest = 0;
    for (HMENU& filler : fillers) {
        filler = CreatePopupMenu();
        highest = std::max(highest, static_cast<DWORD>(reinterpret_cast<ULONG_PTR>(filler) & 0xFFFF) / 2);
    }
    for (HMENU filler : fillers)
        DestroyMenu(filler);
    return highest;
}

Holdings Now()
{
    GdiFlush();
    return {Pens(), Windows()};
}

// Does it often, so that what is made once is there, then many more times.
template <class Operation> void ExpectNoGrowth(Operation&& operation, int times = 1000)
{
    for (int i = 0; i < 8; ++i)
        operation(i);
    const Holdings before = Now();
    for (int i = 0; i < times; ++i)
        operation(i);
    const Holdings after = Now();

    EXPECT_LE(after.pens, before.pens + 3);
    EXPECT_LE(after.windows, before.windows + 3);
}

}

TEST(Handles, AreCounted)
{
    const Holdings before = Now();
    const appwindows::Gdi<HPEN> pen(CreatePen(PS_SOLID, 3, RGB(1, 2, 3)));
    HMENU menu = CreatePopupMenu();
    const Holdings after = Now();
    DestroyMenu(menu);

    EXPECT_EQ(after.pens, before.pens + 1);
    EXPECT_EQ(after.windows, before.windows + 1);
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

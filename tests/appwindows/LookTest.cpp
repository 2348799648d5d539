#include "FilledForm.h"
#include "app/windows/window/Pictures.h"
#include "app/windows/window/SplashPeer.h"
#include "ui/pictures/Picture.h"
#include <cstdlib>

// Nothing is clipped, whatever the resolution; pictures are pictures.

namespace {

// Keeps a picture of what is on the screen there, when PARLUNE_PICTURES names a folder.
void Keep(HWND window, const std::string& name)
{
    const char* folder = std::getenv("PARLUNE_PICTURES");
    if (!folder)
        return;
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
        DispatchMessageW(&message);
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW | RDW_ALLCHILDREN);
    GdiFlush();
    RECT place = {};
    GetWindowRect(window, &place);
    const int width = static_cast<int>(place.right - place.left), height = static_cast<int>(place.bottom - place.top);
    HDC screen = GetDC(nullptr);
    HDC dc = CreateCompatibleDC(screen);
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* pixels = nullptr;
    HBITMAP bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pixels, nullptr, 0);
    HGDIOBJ former = SelectObject(dc, bitmap);
    BitBlt(dc, 0, 0, width, height, screen, static_cast<int>(place.left), static_cast<int>(place.top), SRCCOPY);
    BITMAPFILEHEADER header = {};
    header.bfType = 0x4D42;
    header.bfOffBits = sizeof header + sizeof info.bmiHeader;
    header.bfSize = header.bfOffBits + static_cast<DWORD>(width * height * 4);
    if (std::FILE* out = std::fopen((std::string(folder) + "\\" + name + ".bmp").c_str(), "wb")) {
        std::fwrite(&header, sizeof header, 1, out);
        std::fwrite(&info.bmiHeader, sizeof info.bmiHeader, 1, out);
        std::fwrite(pixels, 4, static_cast<std::size_t>(width) * static_cast<std::size_t>(height), out);
        std::fclose(out);
    }
    SelectObject(dc, former);
    DeleteObject(bitmap);
    DeleteDC(dc);
    ReleaseDC(nullptr, screen);
}

using appwindows::InsideOf;
using appwindows::PlaceOf;
using appwindows::Send;
using appwindows::TextOf;
using appwindows::ToParam;
using platform::windowsdesktop::ToWide;
using ui::layout::Kind;

// What a text takes in a window's own font, lines broken at a width.
SIZE TextSize(HWND window, int width)
{
    HDC dc = GetDC(window);
    HGDIOBJ former = SelectObject(dc, reinterpret_cast<HGDIOBJ>(Send(window, WM_GETFONT)));
    RECT place = {0, 0, width, 0};
    const std::wstring text = ToWide(TextOf(window));
    DrawTextW(dc, text.c_str(), -1, &place, DT_CALCRECT | DT_NOPREFIX | (width > 0 ? DT_WORDBREAK : DT_SINGLELINE));
    SelectObject(dc, former);
    ReleaseDC(window, dc);
    return {place.right, place.bottom};
}

bool ShowsItsCaption(Kind kind)
{
    return kind == Kind::CheckBox || kind == Kind::Button || kind == Kind::Label || kind == Kind::Link ||
           kind == Kind::WrappedLabel;
}

// What is too small for its caption.
bool IsClipped(const appwindows::CPeer& peer, int dpi)
{
    const Kind kind = peer.Look().kind;
    const SIZE room = InsideOf(peer.Native());
    const SIZE text = TextSize(peer.Native(), kind == Kind::WrappedLabel ? static_cast<int>(room.cx) : 0);
    const int tick = kind == Kind::CheckBox ? MulDiv(13 + 4, dpi, 96) : kind == Kind::Button ? MulDiv(8, dpi, 96) : 0;
    return text.cx + (TextOf(peer.Native()).empty() ? 0 : tick) > room.cx || text.cy > room.cy;
}

std::string Clipped(const ShownWindow& shown, int dpi)
{
    std::string clipped;
    for (const ui::layout::Row& row : ui::layout::MainWindowLayout().rows) {
        const appwindows::CPeer* peer = shown.window.Inside()->PeerOf(row.control);
        if (peer && ShowsItsCaption(row.kind) && IsWindowVisible(peer->Native()) && IsClipped(*peer, dpi))
            clipped += std::string(row.control) + " ";
    }
    return clipped;
}

// Controls that lie on one another, within the same window.
std::string Overlapping(const ShownWindow& shown)
{
    std::string overlapping;
    const auto rows = ui::layout::MainWindowLayout().rows;
    for (const ui::layout::Row& one : rows)
        for (const ui::layout::Row* other = &one + 1; other != rows.end(); ++other) {
            HWND first = shown.window.Inside()->WindowOf(one.control),
                 second = shown.window.Inside()->WindowOf(other->control);
            RECT common = {}, a = {}, b = {};
            if (one.kind == Kind::Frame || other->kind == Kind::Frame || !first || !second ||
                GetParent(first) != GetParent(second) || !IsWindowVisible(first) || !IsWindowVisible(second))
                continue;
            GetWindowRect(first, &a);
            GetWindowRect(second, &b);
            if (IntersectRect(&common, &a, &b))
                overlapping += std::string(one.control) + "/" + std::string(other->control) + " ";
        }
    return overlapping;
}

struct Look : testing::TestWithParam<int> {
    ShownWindow shown;
    int dpi = GetParam();

    void SetUp() override
    {
        RECT place = {0, 0, MulDiv(520, dpi, 96), MulDiv(500, dpi, 96)};
        Send(shown.window.Native(), 0x02E0, static_cast<WPARAM>(MAKELONG(dpi, dpi)), ToParam(&place));
        shown.Turn();
    }
    void VisitEach(const std::function<void(const std::string& page)>& look)
    {
        for (int tab = 0; tab < 7; ++tab) {
            shown.Visit(tab);
            look("tab" + std::to_string(tab));
        }
        shown.form.tabTTS.Select(1);
        shown.Visit(2);
        look("modifiers");
    }
};

int FontHeightOf(HWND window)
{
    LOGFONTW font = {};
    GetObjectW(reinterpret_cast<HGDIOBJ>(Send(window, WM_GETFONT)), sizeof font, &font);
    return font.lfHeight;
}

bool HasScrollBar(HWND page) { return (GetWindowLongPtrW(page, GWL_STYLE) & (WS_VSCROLL | WS_HSCROLL)) != 0; }

HWND PageOf(const ShownWindow& shown, const char* control) { return GetParent(shown.Native(control)); }

}

TEST_P(Look, EveryPage_ClipsNoCaptionAndLaysNoControlOnAnother)
{
    VisitEach([&](const std::string& page) {
        EXPECT_EQ(Clipped(shown, dpi), "") << page;
        EXPECT_EQ(Overlapping(shown), "") << page;
        Keep(shown.window.Native(), page + "-" + std::to_string(dpi));
    });
}

TEST_P(Look, EveryPage_ThatTheScreenHasTheRoomFor_FitsWithoutScrolling)
{
    VisitEach([&](const std::string& page) {
        for (const ui::layout::Row& row : ui::layout::MainWindowLayout().rows) {
            HWND control = shown.window.Inside()->WindowOf(row.control);
            const bool inner = row.holder.control == "fraTTS" || row.holder.control == "tabGreetings";
            if (control && IsWindowVisible(control) && (dpi < 144 || inner)) {
                EXPECT_FALSE(HasScrollBar(GetParent(control))) << page << " " << row.control;
            }
        }
    });
}

TEST_P(Look, Tabs_AllFitBesideEachOther)
{
    RECT last = {};
    HWND strip = shown.Native("tabMain");
    Send(strip, TCM_GETITEMRECT, 6, ToParam(&last));

    EXPECT_LE(last.right, InsideOf(strip).cx);
}

TEST_P(Look, Font_FollowsTheResolution) { EXPECT_EQ(FontHeightOf(shown.Native("chkShowSplash")), -MulDiv(11, dpi, 96)); }

INSTANTIATE_TEST_SUITE_P(Resolutions, Look, testing::Values(96, 120, 144, 192));

namespace {

struct Sized : testing::Test {
    ShownWindow shown;
    HWND native = shown.window.Native();

    void Resize(int width, int height)
    {
        RECT place = {};
        GetWindowRect(native, &place);
        SetWindowPos(native, nullptr, 0, 0, static_cast<int>(place.right - place.left) + width,
                     static_cast<int>(place.bottom - place.top) + height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
        shown.Turn();
    }
};

}

TEST_F(Sized, MadeLarger_GivesTheRoomToTheEditor)
{
    shown.Visit(4);
    const ui::layout::Rectangle before = PlaceOf(shown.Native("txtRead"));
    Resize(100, 50);
    const ui::layout::Rectangle after = PlaceOf(shown.Native("txtRead"));

    EXPECT_EQ(after.width, before.width + 100);
    EXPECT_EQ(after.height, before.height + 50);
    EXPECT_EQ(PlaceOf(shown.Native("tlbToolbar")).width, after.width);
}

TEST_F(Sized, MadeLarger_KeepsTheStatusBarBelow)
{
    const int before = PlaceOf(shown.Native("staStatus")).y;
    Resize(0, 50);

    EXPECT_EQ(PlaceOf(shown.Native("staStatus")).y, before + 50);
}

TEST_F(Sized, MadeSmaller_StopsWhereEverythingIsStillSeen)
{
    MINMAXINFO limits = {};
    RECT place = {};
    Send(native, WM_GETMINMAXINFO, 0, ToParam(&limits));
    GetWindowRect(native, &place);

    EXPECT_EQ(limits.ptMinTrackSize.x, place.right - place.left);
    EXPECT_EQ(limits.ptMinTrackSize.y, place.bottom - place.top);
}

TEST_F(Sized, PageWithoutTheRoom_CanBeScrolledByItsBarAndByTheKeyboard)
{
    HWND page = PageOf(shown, "chkShowSplash");
    const int before = PlaceOf(shown.Native("chkShowSplash")).y;
    SetWindowPos(page, nullptr, 0, 0, 200, 100, SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_TRUE(HasScrollBar(page));

    Send(page, WM_VSCROLL, SB_PAGEDOWN);
    EXPECT_LT(PlaceOf(shown.Native("chkShowSplash")).y, before);

    shown.form.chkSayTimeShowIfHidden.SetFocus();
    shown.Turn();
    const ui::layout::Rectangle last = PlaceOf(shown.Native("chkSayTimeShowIfHidden"));
    EXPECT_GE(last.y, 0);
    EXPECT_LE(last.Bottom(), InsideOf(page).cy);
}

TEST_F(Sized, VoiceList_WhileTheVoicesLoad_LeavesRoomForTheBar)
{
    shown.Visit(2);
    const int whole = PlaceOf(shown.Native("lstTTS")).height;
    shown.form.pbrTTSEngines.SetVisible(true);
    shown.Turn();

    EXPECT_LE(PlaceOf(shown.Native("lstTTS")).Bottom(), PlaceOf(shown.Native("pbrTTSEngines")).y);
    shown.form.pbrTTSEngines.SetVisible(false);
    shown.Turn();
    EXPECT_EQ(PlaceOf(shown.Native("lstTTS")).height, whole);
}

TEST_F(Sized, ResolutionChanged_TakesTheSuggestedPlace)
{
    RECT place = {10, 20, 810, 700}, now = {};
    Send(native, 0x02E0, MAKELONG(144, 144), ToParam(&place));
    GetWindowRect(native, &now);

    EXPECT_EQ(now.left, 10);
    EXPECT_GE(now.right - now.left, 760);
}

TEST_F(Sized, ColoursOrThemeChanged_KeepEverythingInItsPlace)
{
    const ui::layout::Rectangle before = PlaceOf(shown.Native("cboSayTime"));
    for (const auto code : {UINT{WM_SYSCOLORCHANGE}, UINT{WM_THEMECHANGED}, UINT{WM_SETTINGCHANGE}})
        Send(native, code);
    shown.Turn();

    EXPECT_EQ(PlaceOf(shown.Native("cboSayTime")).y, before.y);
    EXPECT_EQ(PlaceOf(shown.Native("cboSayTime")).height, before.height);
    EXPECT_EQ(Clipped(shown, 96), "");
}

TEST_F(Sized, ClosedCombos_AreAsHighAsTheirPlaceAllows)
{
    EXPECT_GE(PlaceOf(shown.Native("cboSayTime")).height, 20);
    EXPECT_LE(PlaceOf(shown.Native("cboSayTime")).height, 26);
}

TEST(Pictures, EveryPictureOfTheTables_IsDrawn)
{
    for (const ui::layout::Row& row : ui::layout::MainWindowLayout().rows)
        if (row.kind == Kind::Picture) {
            EXPECT_TRUE(appwindows::pictures::Draw(row.picture, {32, 32}, 0)) << row.control;
        }
    for (const ui::layout::ToolButton& button : ui::layout::ToolBarButtons())
        EXPECT_TRUE(appwindows::pictures::Draw(button.picture, {20, 20}, 0)) << button.key;
}

TEST(Pictures, UnknownNameOrNoRoom_GivesNone)
{
    EXPECT_FALSE(appwindows::pictures::Draw("nothing", {8, 8}, 0));
    EXPECT_FALSE(appwindows::pictures::Draw("read", {0, 8}, 0));
}

namespace {

std::uint32_t PixelOf(const appwindows::Gdi<HBITMAP>& bitmap, int x, int y)
{
    DIBSECTION section = {};
    GetObjectW(bitmap.get(), sizeof section, &section);
    const auto* pixels = static_cast<const std::uint32_t*>(section.dsBm.bmBits);
    return pixels[static_cast<std::ptrdiff_t>(y) * section.dsBm.bmWidth + x];
}

}

TEST(Pictures, Alpha_IsPremultiplied)
{
    const auto bitmap = appwindows::pictures::Draw("icon", {64, 64}, 0);

    EXPECT_EQ(PixelOf(bitmap, 0, 0), 0U);
    EXPECT_EQ(PixelOf(bitmap, 32, 48) >> 24, 255U);
}

TEST(Pictures, PartsOfTheTextsColour_FollowIt)
{
    const auto dark = appwindows::pictures::Draw("read", {24, 24}, RGB(255, 255, 255));
    const auto light = appwindows::pictures::Draw("read", {24, 24}, RGB(0, 0, 0));

    EXPECT_NE(PixelOf(dark, 12, 4), PixelOf(light, 12, 4));
}

TEST(Pictures, ProgramIcon_HasEverySize)
{
    for (const int pixels : {16, 20, 24, 32, 48, 64}) {
        HICON icon = appwindows::pictures::ProgramIcon(pixels);
        ICONINFO info = {};
        BITMAP color = {};
        ASSERT_TRUE(GetIconInfo(icon, &info));
        GetObjectW(info.hbmColor, sizeof color, &color);
        EXPECT_EQ(color.bmWidth, pixels);
        DeleteObject(info.hbmColor);
        DeleteObject(info.hbmMask);
        DestroyIcon(icon);
    }
}

TEST(SplashLook, Picture_IsKept)
{
    CHeadlessDesktop desktop;
    frmSplash form;
    form.lblVersion.SetCaption("Version 2.6");
    appwindows::CSplashPeer splash(form, [] {});
    form.SetVisible(true);
    const SIZE picture = InsideOf(splash.Inside()->WindowOf("imgAbout"));
    Keep(splash.Native(), "splash");

    EXPECT_EQ(picture.cx, InsideOf(splash.Native()).cx);
}

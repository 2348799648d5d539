#include "driver/Companion.h"
#include <thread>

// The driver itself: what it tells of boxes and of the registry is what is there.
using namespace driver;

namespace {

struct Shown {
    UINT type;
    Sign sign;
    std::vector<int> buttons;
    int standard;
};

class MessageBoxes : public ::testing::TestWithParam<Shown> {};

TEST_P(MessageBoxes, AreReadAsTheyAre)
{
    const Shown& shown = GetParam();
    std::thread program([&] { MessageBoxW(nullptr, L"Two\r\nlines", L"A title", shown.type); });
    const Box box = WaitForBox(GetCurrentProcessId());
    EXPECT_EQ(box.text, "Two\r\nlines");
    EXPECT_EQ(box.title, "A title");
    EXPECT_EQ(box.buttons, shown.buttons);
    EXPECT_EQ(box.standard, shown.standard);
    EXPECT_TRUE(Eventually([&] { return SignOf(box) == shown.sign; }, 3));
    Answer(box, shown.buttons.front());
    program.join();
}

INSTANTIATE_TEST_SUITE_P(
    OfEveryKind, MessageBoxes,
    ::testing::Values(Shown{MB_OK, Sign::None, {IDOK}, IDOK},
                      Shown{MB_OK | MB_ICONINFORMATION, Sign::Information, {IDOK}, IDOK},
                      Shown{MB_OKCANCEL | MB_ICONEXCLAMATION, Sign::Warning, {IDOK, IDCANCEL}, IDOK},
                      Shown{MB_OKCANCEL | MB_ICONERROR, Sign::Stop, {IDOK, IDCANCEL}, IDOK},
                      Shown{MB_YESNO | MB_DEFBUTTON2 | MB_ICONQUESTION, Sign::Question, {IDYES, IDNO}, IDNO}));

TEST(Registry, SealedKey_CannotBeOpenedForWriting)
{
    constexpr char Key[] = "Software\\Tarrowind\\Sealed";
    registry::PutText(HKEY_CURRENT_USER, Key, "name", "text");
    registry::SealAgainstWriting(HKEY_CURRENT_USER, Key);
    HKEY opened = nullptr;
    const LSTATUS result = RegOpenKeyExA(HKEY_CURRENT_USER, Key, 0, KEY_ALL_ACCESS, &opened);
    EXPECT_EQ(registry::Text(HKEY_CURRENT_USER, Key, "name"), "text");
    registry::Unseal(HKEY_CURRENT_USER, Key);

    EXPECT_EQ(result, ERROR_ACCESS_DENIED);
    registry::Remove(HKEY_CURRENT_USER, Key);
}

TEST(Clipboard, WhatIsCopied_IsThere)
{
    clipboard::CopyText("copied");

    EXPECT_TRUE(IsClipboardFormatAvailable(CF_TEXT));
    clipboard::CopyPicture();
    EXPECT_FALSE(IsClipboardFormatAvailable(CF_TEXT));
    EXPECT_TRUE(IsClipboardFormatAvailable(CF_BITMAP));
}

TEST(Folders, Sealed_TakesNoFile)
{
    WriteFile("C:\\sealed\\x.txt", "x");

    EXPECT_FALSE(FileExists("C:\\sealed\\x.txt"));
}

TEST(Held, GrowsWithWhatIsMade)
{
    const Held before = HeldBy(GetCurrentProcess());
    std::vector<HPEN> pens;
    std::vector<HMENU> menus;
    std::vector<HANDLE> events;
    for (int i = 0; i < 500; ++i) {
        pens.push_back(CreatePen(PS_SOLID, i + 1, 0));
        menus.push_back(CreateMenu());
        events.push_back(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    }
    const Held after = HeldBy(GetCurrentProcess());
    for (int i = 0; i < 500; ++i) {
        DeleteObject(pens.at(static_cast<std::size_t>(i)));
        DestroyMenu(menus.at(static_cast<std::size_t>(i)));
        CloseHandle(events.at(static_cast<std::size_t>(i)));
    }
    const Held again = HeldBy(GetCurrentProcess());

    EXPECT_EQ(after.drawing, before.drawing + 500);
    EXPECT_GE(after.windows, before.windows + 400);
    EXPECT_EQ(after.handles, before.handles + 500);
    EXPECT_EQ(again.drawing, before.drawing);
    EXPECT_EQ(again.handles, before.handles);
}

}

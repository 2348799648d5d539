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
    EXPECT_TRUE(Eventually([&] { return SignOf(box) == shown.sign; }));
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

// A few of the kernel's come and go with the system's own threads.
TEST(OwnHandles, GrowWithWhatIsMade)
{
    const support::OwnHandles before = support::CountOwnHandles();
    std::vector<HPEN> pens;
    std::vector<HMENU> menus;
    std::vector<HANDLE> events;
    for (int i = 0; i < 500; ++i) {
        pens.push_back(CreatePen(PS_SOLID, i + 1, 0));
        menus.push_back(CreateMenu());
        events.push_back(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    }
    const support::OwnHandles after = support::CountOwnHandles();
    for (std::size_t i = 0; i < 500; ++i) {
        DeleteObject(pens[i]);
        DestroyMenu(menus[i]);
        CloseHandle(events[i]);
    }
    const support::OwnHandles again = support::CountOwnHandles();

    EXPECT_EQ(after.drawing, before.drawing + 500);
    EXPECT_EQ(after.windows, before.windows + 500);
    EXPECT_NEAR(after.kernel, before.kernel + 500, 50);
    EXPECT_EQ(again.drawing, before.drawing);
    EXPECT_EQ(again.windows, before.windows);
    EXPECT_NEAR(again.kernel, before.kernel, 50);
}

TEST(OwnHandles, CountEveryKindOfWindow)
{
    const unsigned before = support::CountOwnHandles().windows;
    const HWND window = CreateWindowW(L"Static", L"", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
    const HWND inner = CreateWindowW(L"Static", L"", WS_CHILD, 0, 0, 9, 9, window, nullptr, nullptr, nullptr);
    const HWND messages = CreateWindowW(L"Static", L"", 0, 0, 0, 9, 9, HWND_MESSAGE, nullptr, nullptr, nullptr);
    const BYTE bits[32] = {};
    const HICON icon = CreateIcon(nullptr, 16, 16, 1, 1, bits, bits);
    const unsigned after = support::CountOwnHandles().windows;
    DestroyWindow(inner);
    DestroyWindow(window);
    DestroyWindow(messages);
    DestroyIcon(icon);

    EXPECT_EQ(after, before + 4);
}

TEST(Growth, OfWhatLeaks_IsTold)
{
    std::vector<HPEN> pens;
    const auto leak = [&] {
        for (int i = 0; i < 20; ++i)
            pens.push_back(CreatePen(PS_SOLID, i + 1, 0));
    };
    EXPECT_NE(support::GrowthOf(support::CountOwnHandles, leak, 5), "");
    for (HPEN pen : pens)
        DeleteObject(pen);
}

TEST(Growth, OfWhatIsKeptOnce_IsNone)
{
    std::vector<HPEN> pens;
    const auto keep = [&] {
        while (pens.size() < 20)
            pens.push_back(CreatePen(PS_SOLID, 1, 0));
    };
    EXPECT_EQ(support::GrowthOf(support::CountOwnHandles, keep, 5), "");
    for (HPEN pen : pens)
        DeleteObject(pen);
}

}

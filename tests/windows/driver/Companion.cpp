#include "driver/Companion.h"
#include "platform/windows/Text.h"
#include <stdexcept>

using platform::windowsdesktop::ToWide;

namespace driver {

void CCompanion::SetUp()
{
    CDesk::SetUp();
    CAgent::Install();
    clipboard::Empty();
    registry::PutOption("FirstTime", "0");
    registry::PutOption("ReadGreeting", "0");
    registry::PutOption("SayTime", "0");
    registry::PutOption("CharWidth", "0");
    registry::PutOption("CharHeight", "0");
}

void CCompanion::TearDown()
{
    CDesk::TearDown();
    agent.EndServer();
    CAgent::Uninstall();
}

void CCompanion::Begin(const std::string& arguments, const Environment& changed)
{
    Environment variables = changed;
    variables.merge(agent.Variables());
    parlune.Start(arguments, variables);
    EXPECT_TRUE(agent.Sees("call Character[Bot].Show")) << "the character does not come";
    agent.Rest();
}

void CCompanion::BeginWithoutCharacter()
{
    parlune.Start({}, agent.Variables());
    EXPECT_TRUE(Eventually([&] { return parlune.Tray() != nullptr; }));
    EXPECT_EQ(WaitForInputIdle(parlune.Process().Handle(), PatienceMilliseconds), 0U);
    agent.Rest();
}

std::vector<std::string> CCompanion::DismissReportsUntil(const std::function<bool()>& condition)
{
    std::vector<std::string> reports;
    const auto dismissed = [&] {
        if (const Box box = FindBox(parlune.Id())) {
            EXPECT_EQ(box.title, "Parlune 2.6 Unexpected Error");
            reports.push_back(box.text);
            Answer(box, IDOK);
        }
        return condition();
    };
    EXPECT_TRUE(Eventually(dismissed));
    return reports;
}

void CCompanion::BeginShown()
{
    Begin();
    parlune.Show();
    hand::Front(parlune.Main());
}

void CCompanion::ShowPage(Page page)
{
    parlune.GoTo(page);
    agent.Rest();
}

namespace clipboard {
namespace {

HGLOBAL BlockOf(const void* bytes, std::size_t size)
{
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, size);
    CopyMemory(GlobalLock(block), bytes, size);
    GlobalUnlock(block);
    return block;
}

HGLOBAL BlockOf(const std::string& text)
{
    const std::wstring wide = ToWide(text);
    return BlockOf(wide.c_str(), (wide.size() + 1) * sizeof(wchar_t));
}

// Who copies must have a window, or the system takes nothing.
HWND Owner()
{
    static const HWND owner = CreateWindowExW(0, L"Static", L"", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
    return owner;
}

template <class Put> void Copy(Put&& put)
{
    const CLock open;
    EmptyClipboard();
    put();
}

}

CLock::CLock()
{
    if (!Eventually([] { return OpenClipboard(Owner()) != FALSE; }))
        throw std::runtime_error("the clipboard stays locked");
}

void CopyText(const std::string& text)
{
    Copy([&] { SetClipboardData(CF_UNICODETEXT, BlockOf(text)); });
}

void CopySecret(const std::string& text)
{
    Copy([&] {
        SetClipboardData(CF_UNICODETEXT, BlockOf(text));
        SetClipboardData(RegisterClipboardFormatW(L"ExcludeClipboardContentFromMonitorProcessing"), BlockOf("1"));
    });
}

void CopyPicture()
{
    struct {
        BITMAPINFOHEADER header{sizeof(BITMAPINFOHEADER), 2, 2, 1, 32, BI_RGB, 16, 0, 0, 0, 0};
        DWORD pixels[4] = {0xFF, 0xFF00, 0xFF0000, 0xFFFFFF};
    } const picture;
    Copy([&] { SetClipboardData(CF_DIB, BlockOf(&picture, sizeof picture)); });
}

void Empty()
{
    Copy([] {});
}

}

}

#include "driver/Hand.h"
#include "driver/Waiting.h"
#include "driver/Windows.h"
#include "platform/windows/Text.h"
#include <iterator>
#include <vector>

namespace driver::hand {
namespace {

INPUT Key(WORD key, DWORD flags)
{
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.dwFlags = flags;
    return input;
}

INPUT Letter(wchar_t letter, DWORD flags)
{
    INPUT input = Key(0, KEYEVENTF_UNICODE | flags);
    input.ki.wScan = letter;
    return input;
}

INPUT Button(DWORD flags)
{
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flags;
    return input;
}

void Send(std::vector<INPUT> inputs) { SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT)); }

}

// The window manager has its say, too, and may come late with it.
void Front(HWND window)
{
    constexpr int LooksInFront = 10;
    Eventually([&, looks = 0]() mutable {
        looks = GetForegroundWindow() == window ? looks + 1 : 0;
        if (looks == 0)
            SetForegroundWindow(window);
        Answers(window);
        return looks == LooksInFront;
    });
}

void Press(std::initializer_list<WORD> keys)
{
    std::vector<INPUT> inputs;
    for (WORD key : keys)
        inputs.push_back(Key(key, 0));
    for (auto key = std::rbegin(keys); key != std::rend(keys); ++key)
        inputs.push_back(Key(*key, KEYEVENTF_KEYUP));
    Send(std::move(inputs));
}

void Type(const std::string& text)
{
    std::vector<INPUT> inputs;
    for (wchar_t letter : platform::windowsdesktop::ToWide(text)) {
        inputs.push_back(Letter(letter, 0));
        inputs.push_back(Letter(letter, KEYEVENTF_KEYUP));
    }
    Send(std::move(inputs));
}

void PointAt(POINT place)
{
    Eventually([&] {
        POINT now{};
        SetCursorPos(place.x, place.y);
        LetOthersWork();  // An earlier movement may still be on its way.
        return GetCursorPos(&now) && now.x == place.x && now.y == place.y;
    });
}

void PointAt(HWND window)
{
    const RECT place = PlaceOf(window);
    PointAt({(place.left + place.right) / 2, (place.top + place.bottom) / 2});
}

void Click(POINT place)
{
    PointAt(place);
    Send({Button(MOUSEEVENTF_LEFTDOWN), Button(MOUSEEVENTF_LEFTUP)});
}

void Click(HWND window)
{
    PointAt(window);
    Send({Button(MOUSEEVENTF_LEFTDOWN), Button(MOUSEEVENTF_LEFTUP)});
}

void DoubleClick(POINT place)
{
    PointAt(place);
    const INPUT down = Button(MOUSEEVENTF_LEFTDOWN), up = Button(MOUSEEVENTF_LEFTUP);
    Send({down, up, down, up});
}

void RightClick(POINT place)
{
    PointAt(place);
    Send({Button(MOUSEEVENTF_RIGHTDOWN), Button(MOUSEEVENTF_RIGHTUP)});
}

}

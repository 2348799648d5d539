#pragma once
#include "platform/windows/Win32.h"
#include <algorithm>
#include <cstdint>
#include <sstream>
#include <string>
#include <vector>

// How many handles of the system this process holds, counted one by one where the system does not tell: what other processes
// do at the same time makes no difference.
namespace support {

struct OwnHandles {
    unsigned drawing = 0;  // Pens, brushes, fonts, bitmaps.
    unsigned windows = 0;  // Windows, menus, icons.
    unsigned kernel = 0;   // Files, events, threads.
};

// An entry of the table of drawing objects, which lies at a known place of every process.
struct DrawingEntry {
    std::uint64_t object;
    std::uint32_t owner;
    std::uint16_t unique;
    std::uint8_t type;  // 0 for a free one.
    std::uint8_t flags;
    std::uint64_t ours;
};

inline unsigned CountDrawing()
{
    if (const DWORD counted = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS))
        return counted;
    constexpr int Entries = 0x4000;
    const bool wide = sizeof(void*) == 8;
    const auto at = [](const void* base, int offset) {
        return *reinterpret_cast<const void* const*>(static_cast<const char*>(base) + offset);
    };
    GdiFlush();
    const void* const process = at(NtCurrentTeb(), wide ? 0x60 : 0x30);
    const auto* const table = static_cast<const DrawingEntry*>(at(process, wide ? 0xF8 : 0x94));
    return static_cast<unsigned>(
        std::count_if(table, table + Entries, [](const DrawingEntry& entry) { return entry.type != 0; }));
}

inline bool IsOwnIcon(HANDLE handle)
{
    ICONINFO icon{};
    if (!GetIconInfo(static_cast<HICON>(handle), &icon))
        return false;
    DeleteObject(icon.hbmMask);
    DeleteObject(icon.hbmColor);
    return true;
}

inline bool IsOwnWindow(HANDLE handle)
{
    DWORD process = 0;
    return GetWindowThreadProcessId(static_cast<HWND>(handle), &process) != 0 && process == GetCurrentProcessId();
}

// Every number that a handle may have is tried. Those of other processes are neither menus nor icons to us.
inline unsigned CountWindows()
{
    if (const DWORD counted = GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS))
        return counted;
    unsigned count = 0;
    for (std::uintptr_t number = 0x20; number < 0xFFF0; number += 2) {
        const auto handle = reinterpret_cast<HANDLE>(number);
        if (IsMenu(static_cast<HMENU>(handle)) || IsOwnWindow(handle) || IsOwnIcon(handle))
            ++count;
    }
    return count;
}

// An entry of the list of all handles of all processes.
struct KernelEntry {
    ULONG process;
    UCHAR type, flags;
    USHORT handle;
    void* object;
    ULONG access;
};

inline unsigned CountKernel()
{
    DWORD counted = 0;
    if (GetProcessHandleCount(GetCurrentProcess(), &counted) && counted != 0)
        return counted;
    constexpr ULONG AllHandles = 16;
    constexpr LONG TooSmall = static_cast<LONG>(0xC0000004);
    using Query = LONG(WINAPI*)(ULONG, void*, ULONG, ULONG*);
    void* const address = reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll"), "NtQuerySystemInformation"));
    const auto query = reinterpret_cast<Query>(address);
    std::vector<KernelEntry> entries(1 << 15);
    ULONG size = 0;
    const auto bytes = [&] { return static_cast<ULONG>(entries.size() * sizeof(KernelEntry)); };
    while (query(AllHandles, entries.data(), bytes(), &size) == TooSmall)
        entries.resize(2 * entries.size());
    // The number of entries comes first, in the room of a pointer.
    const auto* const list = reinterpret_cast<const char*>(entries.data());
    const auto* const first = reinterpret_cast<const KernelEntry*>(list + sizeof(void*));
    const ULONG all = *reinterpret_cast<const ULONG*>(list);
    return static_cast<unsigned>(
        std::count_if(first, first + all, [](const KernelEntry& entry) { return entry.process == GetCurrentProcessId(); }));
}

inline OwnHandles CountOwnHandles() { return {CountDrawing(), CountWindows(), CountKernel()}; }

// "" when an operation that is done often enough holds no more handles afterwards than before; otherwise what it held. What
// leaks does so in every round. What the system keeps for later it takes once, and what it does in threads of its own comes
// and goes: so one round without growth is enough.
template <class Count, class Repeat> std::string GrowthOf(const Count& count, const Repeat& repeat, unsigned few)
{
    constexpr int Rounds = 6;
    std::ostringstream told;
    OwnHandles before = count();
    for (int round = 0; round < Rounds; ++round) {
        repeat();
        const OwnHandles after = count();
        if (after.drawing <= before.drawing + few && after.windows <= before.windows + few &&
            after.kernel <= before.kernel + few)
            return "";
        told << "drawing " << before.drawing << " to " << after.drawing << ", windows " << before.windows << " to "
             << after.windows << ", kernel " << before.kernel << " to " << after.kernel << "\n";
        before = after;
    }
    return told.str();
}

}

#include "driver/Process.h"
#include "platform/windows/Win32.h"
#include <algorithm>
#include <cstdint>
#include <vector>
#include <winternl.h>

namespace driver {
namespace {

// An entry of the table of drawing objects that every process has.
struct DrawingEntry {
    std::uint64_t object;
    std::uint32_t owner;
    std::uint16_t unique;
    std::uint8_t type;
    std::uint8_t flags;
    std::uint64_t ours;
};
constexpr std::size_t DrawingEntries = 16384;
constexpr std::size_t PlaceOfDrawingTable = sizeof(void*) == 8 ? 0xF8 : 0x94;  // In the process environment block.

const char* Read(HANDLE process, const char* place)
{
    const char* address = nullptr;
    SIZE_T count = 0;
    ReadProcessMemory(process, place, &address, sizeof address, &count);
    return address;
}

unsigned DrawingObjectsOf(HANDLE process)
{
    PROCESS_BASIC_INFORMATION basic{};
    NtQueryInformationProcess(process, ProcessBasicInformation, &basic, sizeof basic, nullptr);
    const char* const table = Read(process, reinterpret_cast<const char*>(basic.PebBaseAddress) + PlaceOfDrawingTable);
    std::vector<DrawingEntry> entries(DrawingEntries);
    SIZE_T count = 0;
    ReadProcessMemory(process, table, entries.data(), entries.size() * sizeof(DrawingEntry), &count);
    entries.resize(count / sizeof(DrawingEntry));
    const auto used =
        std::count_if(entries.begin(), entries.end(), [](const DrawingEntry& entry) { return entry.type != 0; });
    return static_cast<unsigned>(used);
}

// New windows and menus take the places of former ones first: how far some more reach tells how many there are.
unsigned ReachOfWindowTable()
{
    constexpr int Some = 3000;
    std::vector<HMENU> menus(Some);
    std::uintptr_t reach = 0;
    for (HMENU& menu : menus) {
        menu = CreateMenu();
        reach = std::max<std::uintptr_t>(reach, reinterpret_cast<std::uintptr_t>(menu) & 0xFFFF);
    }
    for (HMENU menu : menus)
        DestroyMenu(menu);
    return static_cast<unsigned>(reach / 2);
}

unsigned KernelHandlesOf(HANDLE process)
{
    constexpr auto AllHandles = static_cast<SYSTEM_INFORMATION_CLASS>(16);
    struct Entry {
        ULONG process;
        UCHAR type, flags;
        USHORT handle;
        void* object;
        ULONG access;
    };
    struct Table {
        ULONG count;
        Entry entries[1];
    };
    std::vector<char> bytes(1 << 21);
    ULONG size = 0;
    NtQuerySystemInformation(AllHandles, bytes.data(), static_cast<ULONG>(bytes.size()), &size);
    const auto* const table = reinterpret_cast<const Table*>(bytes.data());
    const DWORD wanted = GetProcessId(process);
    const auto count = std::count_if(table->entries, table->entries + table->count,
                                     [&](const Entry& entry) { return entry.process == wanted; });
    return static_cast<unsigned>(count);
}

}

Held HeldBy(HANDLE process)
{
    DWORD handles = 0;
    GetProcessHandleCount(process, &handles);
    Held held{GetGuiResources(process, GR_GDIOBJECTS), GetGuiResources(process, GR_USEROBJECTS), handles};
    if (held.drawing == 0)
        held.drawing = DrawingObjectsOf(process);
    if (held.windows == 0)
        held.windows = ReachOfWindowTable();
    if (held.handles == 0)
        held.handles = KernelHandlesOf(process);
    return held;
}

}

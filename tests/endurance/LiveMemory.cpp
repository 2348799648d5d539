#include "endurance/LiveMemory.h"
#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <new>

// Replaces the global allocation of this test program. Each block has its size in front.
namespace {

constexpr std::size_t Front = alignof(std::max_align_t);
static_assert(Front >= sizeof(std::size_t));

std::atomic<std::int64_t> bytes = 0;
std::atomic<std::int64_t> blocks = 0;
std::atomic<std::int64_t> requests = 0;
std::atomic<std::int64_t> requestToFail = 0;

void Count(std::size_t size, int direction)
{
    bytes += direction * static_cast<std::int64_t>(size);
    blocks += direction;
}

void* AllocateOrNull(std::size_t size) noexcept
{
    if (++requests == requestToFail)
        return nullptr;
    auto* block = static_cast<char*>(std::malloc(Front + size));
    if (block == nullptr)
        return nullptr;
    ::new (block) std::size_t(size);
    Count(size, 1);
    return block + Front;
}

void* Allocate(std::size_t size)
{
    if (void* given = AllocateOrNull(size))
        return given;
    throw std::bad_alloc();
}

void Release(void* given) noexcept
{
    if (given == nullptr)
        return;
    char* block = static_cast<char*>(given) - Front;
    Count(*std::launder(static_cast<std::size_t*>(static_cast<void*>(block))), -1);
    std::free(block);
}

}

void* operator new(std::size_t size) { return Allocate(size); }
void* operator new[](std::size_t size) { return Allocate(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return AllocateOrNull(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return AllocateOrNull(size); }
void operator delete(void* given) noexcept { Release(given); }
void operator delete[](void* given) noexcept { Release(given); }
void operator delete(void* given, const std::nothrow_t&) noexcept { Release(given); }
void operator delete[](void* given, const std::nothrow_t&) noexcept { Release(given); }
void operator delete(void* given, std::size_t) noexcept { Release(given); }
void operator delete[](void* given, std::size_t) noexcept { Release(given); }

std::int64_t liveMemory::Bytes() { return bytes; }
std::int64_t liveMemory::Blocks() { return blocks; }
std::int64_t liveMemory::Requests() { return requests; }

void liveMemory::FailRequest(std::int64_t number)
{
    requests = 0;
    requestToFail = number;
}

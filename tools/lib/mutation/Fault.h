#pragma once
#include <cstdlib>
#include <fcntl.h>
#include <sys/mman.h>
#include <type_traits>
#include <unistd.h>

// One program with many faults: PARLUNE_FAULT in the environment is the number of the one that is on. The file that
// PARLUNE_FAULTS_REACHED names gets a byte of 1 at the number of each fault that was reached, whatever way the program ends.
namespace mutation {

constexpr int MostFaults = 65536;

inline unsigned char* ReachedFaults() noexcept
{
    const char* path = std::getenv("PARLUNE_FAULTS_REACHED");
    const int file = path ? open(path, O_RDWR | O_CREAT | O_CLOEXEC, 0600) : -1;
    if (file < 0 || ftruncate(file, MostFaults) != 0)
        return nullptr;
    void* const bytes = mmap(nullptr, MostFaults, PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    close(file);
    return bytes == MAP_FAILED ? nullptr : static_cast<unsigned char*>(bytes);
}

inline bool On(int fault) noexcept
{
    static const char* const chosen = std::getenv("PARLUNE_FAULT");
    static const int number = chosen ? std::atoi(chosen) : -1;
    static unsigned char* const reached = ReachedFaults();
    if (reached)
        reached[fault] = 1;
    return fault == number;
}

}

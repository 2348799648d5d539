#pragma once
#include <cstdint>

// What this test program holds of the heap: everything that `new` gave and `delete` has not taken back.
namespace liveMemory {

std::int64_t Bytes();
std::int64_t Blocks();

}

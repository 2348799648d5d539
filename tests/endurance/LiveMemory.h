#pragma once
#include <cstdint>

// What this test program holds of the heap: everything that `new` gave and `delete` has not taken back. `new` can be made to
// fail.
namespace liveMemory {

std::int64_t Bytes();
std::int64_t Blocks();

// Requests of memory since the last call of FailRequest, those for nothing included.
std::int64_t Requests();
// From now on the request of this number fails, counted from 1; 0 fails none.
void FailRequest(std::int64_t number);

}

#pragma once
#include "platform/CharacterEngine.h"
#include "platform/Failure.h"
#include <cstdint>
#include <exception>
#include <new>

namespace engine {

// Inside a catch clause: the number that a request ends with that failed so.
inline std::int32_t NumberOfFailure()
{
    try {
        throw;
    } catch (const platform::CFailure& failure) {
        return failure.Number();
    } catch (const std::bad_alloc&) {
        return platform::engineError::OutOfMemory;
    } catch (...) {
        return platform::engineError::Unexpected;
    }
}

}

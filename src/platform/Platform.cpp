#include "platform/Platform.h"
#include <cassert>

namespace platform {
namespace {
const CPlatform* inUse = nullptr;
}

const CPlatform& Current()
{
    assert(inUse != nullptr);
    return *inUse;
}

CPlatformInUse::CPlatformInUse(const CPlatform& platform) : m_former(inUse) { inUse = &platform; }

CPlatformInUse::~CPlatformInUse() { inUse = m_former; }

}

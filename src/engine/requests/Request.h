#pragma once
#include "platform/CharacterEngine.h"
#include <memory>

namespace engine {

// The text for an error or cause; a general one when there is none.
std::string RequestDescription(std::int32_t number);

// What a caller holds of one piece of work. The engine itself keeps only weak references, so that it knows whether anybody
// still cares.
class CRequest final : public platform::IRequest {
public:
    CRequest(std::int32_t id, const void* owner, platform::RequestStatus status) : m_id(id), m_owner(owner), m_status(status)
    {
    }
    std::int32_t ID() const override { return m_id; }
    platform::RequestStatus Status() const override { return m_status; }
    std::int32_t Number() const override { return m_number; }
    std::string Description() const override { return RequestDescription(m_number); }

    const void* Owner() const { return m_owner; }  // The queue it was put into; only to be compared.
    void Set(platform::RequestStatus status, std::int32_t number)
    {
        m_status = status;
        m_number = number;
    }

private:
    std::int32_t m_id;
    const void* m_owner;
    platform::RequestStatus m_status;
    std::int32_t m_number = 0;
};

}

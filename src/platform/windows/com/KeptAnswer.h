#pragma once
#include <exception>

namespace platform::windowsdesktop::com {

// The answer to a question that is asked at once and looked at later: what was given, or the failure.
template <class Value> class CKeptAnswer {
public:
    template <class Ask> explicit CKeptAnswer(const Ask& ask)
    {
        try {
            m_value = ask();
        } catch (...) {
            m_failure = std::current_exception();
        }
    }
    // Throws what the question threw.
    const Value& Get() const
    {
        if (m_failure)
            std::rethrow_exception(m_failure);
        return m_value;
    }

private:
    Value m_value{};
    std::exception_ptr m_failure;
};

}

#pragma once
#include "platform/Failure.h"
#include "platform/windows/Win32.h"

namespace platform::windowsdesktop::com {

// The failure for a result of COM. A member that is not there, a type that does not fit and a number that is too large are
// run-time failures of their own (438, 13, 6); all others keep their 32-bit code, with the system's text for it.
CFailure FailureOf(HRESULT result);

// Throws that failure when `result` is one.
void Check(HRESULT result);

// What a server says about its failure. Owns the texts in it.
class CException {
public:
    CException() = default;
    ~CException();
    CException(const CException&) = delete;
    CException& operator=(const CException&) = delete;
    EXCEPINFO* Receive() { return &m_info; }
    // Its code and description; the system's text when the server has none. Asks the server for what it held back, which
    // only one inside this program can be: from another, the procedure for that may come as a mere number.
    CFailure Failure(bool serverIsInside);

private:
    std::int32_t Code() const;
    EXCEPINFO m_info{};
};

}

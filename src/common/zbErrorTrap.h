#pragma once
#include "platform/Failure.h"
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

// The program's one way to deal with an unexpected run-time failure. User-interface thread only.
namespace zbErrorTrap {

// The last failure, until the procedure in which it happened continues; number 0 when there is none.
struct CurrentError {
    std::int32_t number = 0;
    std::string description;
};
const CurrentError& LastError();
// Takes the failure that is being handled; to be called inside a catch clause. An exception that is no CFailure becomes
// a failure with a number of its own: out of memory 7, anything else 5.
void SetCurrentError();
void ClearCurrentError();

// Reports the current error to the user, under the module's and procedure's names; returns when they choose to continue
// and ends the program when they do not. Does nothing while there is no current error.
void ErrorTrap(std::string_view module, std::string_view section);

// Runs the statements of one procedure. A statement that fails is reported under the two names; then the call returns
// and the procedure continues with its next statement. What the failed statement would have set keeps its value.
class CGuard {
public:
    CGuard(const char* module, const char* section) : m_module(module), m_section(section) {}
    template <class Statement> void operator()(Statement&& statement) const
    {
        try {
            std::forward<Statement>(statement)();
        } catch (const platform::CProgramEnded&) {
            throw;  // The user chose to end: no guard may swallow that.
        } catch (...) {
            SetCurrentError();
            ErrorTrap(m_module, m_section);
            ClearCurrentError();
        }
    }

private:
    const char* m_module;
    const char* m_section;
};

// Runs a statement whose failure means nothing. Returns whether it succeeded.
template <class Statement> bool IgnoreFailure(Statement&& statement)
{
    try {
        std::forward<Statement>(statement)();
        return true;
    } catch (const platform::CProgramEnded&) {
        throw;
    } catch (...) {
        return false;
    }
}

}

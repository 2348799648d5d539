#include "common/zbErrorTrap.h"
#include "common/ProgramState.h"
#include "common/Version.h"
#include "platform/MessageBoxes.h"
#include "platform/Platform.h"
#include "platform/Program.h"
#include <new>

namespace zbErrorTrap {
namespace {

using platform::BoxAnswer;
using platform::BoxButtons;
using platform::BoxIcon;

CurrentError& Error() { return common::StateOf<CurrentError>(); }

std::string ReportText(std::string_view module, std::string_view section)
{
    return "Section: " + std::string(module) + ":" + std::string(section) +
           "\r\n\r\n"
           "Error Code: " +
           std::to_string(Error().number) + "\r\n'" + Error().description +
           "'\r\n\r\n"
           "You may be able to continue normally by clicking the OK button,\r\n"
           "but please report this problem on the Parlune website so it can be resolved.";
}

std::string ReportTitle()
{
    return "Parlune " + std::to_string(version::Major) + "." + std::to_string(version::Minor) + " Unexpected Error";
}

void Report(std::string_view module, std::string_view section)
{
    const platform::CPlatform& platform = platform::Current();
    const platform::MessageBox box{ReportText(module, section), ReportTitle(), BoxButtons::OkCancel, BoxIcon::Critical};
    if (platform.messageBoxes.Show(box) == BoxAnswer::Cancel)
        platform.program.End();
}

void ReportPlainly()
{
    platform::Current().messageBoxes.Show({std::to_string(Error().number) + " : " + Error().description, version::Title,
                                           BoxButtons::Ok, BoxIcon::Exclamation});
}

}

const CurrentError& LastError() { return Error(); }

void SetCurrentError()
{
    CurrentError& error = Error();
    try {
        throw;
    } catch (const platform::CFailure& failure) {
        error = {failure.Number(), failure.Description()};
    } catch (const std::bad_alloc&) {
        error = {platform::failure::OutOfMemory().Number(), platform::failure::OutOfMemory().Description()};
    } catch (...) {
        error = {platform::failure::InvalidCall().Number(), platform::failure::InvalidCall().Description()};
    }
}

void ClearCurrentError() { Error() = {}; }

void ErrorTrap(std::string_view module, std::string_view section)
{
    if (Error().number == 0)
        return;
    try {
        Report(module, section);
    } catch (const platform::CProgramEnded&) {
        throw;
    } catch (...) {
        SetCurrentError();
        IgnoreFailure(ReportPlainly);  // There is no third way to tell it.
    }
}

}

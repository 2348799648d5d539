#include "common/zbShellEx.h"
#include "base/text/Text.h"
#include "common/Version.h"
#include "common/zbErrorTrap.h"
#include "platform/EventPump.h"
#include "platform/MessageBoxes.h"
#include "platform/Platform.h"
#include "platform/Shell.h"

namespace {

using platform::Current;

constexpr char Module[] = "bShellEx";

struct Document {
    std::string file;
    std::string parameters;
};

Document Cut(std::string_view target, std::size_t fileStart, std::size_t fileEnd)
{
    return {std::string(text::Trim(target.substr(fileStart, fileEnd - fileStart))),
            std::string(text::Trim(target.substr(fileEnd + 1)))};
}

// Without a closing quote, or with nothing between the quotes, the whole target is the file.
Document SplitTarget(std::string_view target)
{
    const bool quoted = target.starts_with('"');
    const std::size_t fileStart = quoted ? 1 : 0;
    const std::size_t fileEnd = target.find(quoted ? '"' : ' ', fileStart);
    if (fileEnd == std::string_view::npos || fileEnd == fileStart)
        return {std::string(target), ""};
    return Cut(target, fileStart, fileEnd);
}

std::int32_t OpenDocument(const std::string& target)
{
    const Document document = SplitTarget(target);
    return Current().shell.Open(document.file, document.parameters);
}

void TellThatItFailed(const std::string& target, const zbErrorTrap::CurrentError& error)
{
    Current().messageBoxes.Show(
        {"Error opening:\r\n" + target + "\r\n\r\nError " + std::to_string(error.number) + " : " + error.description,
         version::Title, platform::BoxButtons::Ok, platform::BoxIcon::Exclamation});
}

// Returns 0 when the desktop could not be asked; the user was told.
std::int32_t OpenOrTell(const std::string& target)
{
    try {
        return OpenDocument(target);
    } catch (const platform::CProgramEnded&) {
        throw;
    } catch (...) {
        zbErrorTrap::SetCurrentError();
    }
    const zbErrorTrap::CurrentError error = zbErrorTrap::LastError();
    zbErrorTrap::ClearCurrentError();
    TellThatItFailed(target, error);
    return 0;
}

}

std::int32_t zbShellEx::ShellEx(const std::string& target)
{
    const zbErrorTrap::CGuard guard(Module, "ShellEx");
    std::string trimmed = target;
    std::int32_t code = 0;

    guard([&] { trimmed = text::Trim(target); });
    const bool started = zbErrorTrap::IgnoreFailure([&] { Current().shell.StartProgram(trimmed); });
    if (!started)
        guard([&] { code = OpenOrTell(trimmed); });
    guard([&] { Current().events.RunPendingEvents(); });
    return code;
}

#include "Require.h"
#include "platform/text/DesktopEntry.h"
#include "platform/text/ProfileText.h"

// In an autostart entry of any bytes the program can be replaced, and only by one that is then read back. The first byte is
// the length of the program's path.
namespace {

using namespace platform::text;

// A path that fits in one line of the entry.
std::string ProgramOf(std::string_view text)
{
    std::string program = "/";
    for (const char c : text)
        if (c != '\0' && c != '\n' && c != '\r')
            program += c;
    return program;
}

void RequireReplacing(std::string_view entry, const std::string& program)
{
    const std::string replaced = WithAutostartProgram(entry, program);
    Require(AutostartProgram(replaced) == program);
    Require(ReadProfileKeys(replaced, "Desktop Entry").size() >= ReadProfileKeys(entry, "Desktop Entry").size());
    Require(!IsAutostartOn(entry) || IsAutostartOn(replaced));
}

}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    const std::string_view text = TextOf(data + 1, size - 1);
    const std::string program = ProgramOf(text.substr(0, data[0]));
    const std::string_view entry = text.substr(std::min<std::size_t>(data[0], text.size()));
    const std::string ours = AutostartEntry(program);
    Require(IsAutostartOn(ours) && AutostartProgram(ours) == program);
    const auto started = AutostartProgram(entry);
    Require(!started || (started->starts_with('/') && started->find('\n') == std::string::npos));
    if (started)
        RequireReplacing(entry, program);
    return 0;
}

#include "browserpage/Script.h"
#include "platform/windows/Win32.h"
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace {

std::string ProgramFolder()
{
    char path[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, path, MAX_PATH);
    const std::string program = path;
    return program.substr(0, program.find_last_of('\\') + 1);
}

std::string PageScript()
{
    std::ifstream file(ProgramFolder() + "Parlune.htm", std::ios::binary);
    const std::string page{std::istreambuf_iterator<char>(file), {}};
    const std::size_t begin = page.find('>', page.find("<script")) + 1, end = page.find("</script>");
    if (end == std::string::npos || begin > end)
        throw std::runtime_error("There is no script in Parlune.htm");
    return page.substr(begin, end - begin);
}

std::string TemporaryFile()
{
    char folder[MAX_PATH] = "";
    GetTempPathA(MAX_PATH, folder);
    return std::string(folder) + "parlune-page-" + std::to_string(GetCurrentProcessId()) + ".js";
}

// What a program writes, without the line end at its end.
std::string OutputOf(std::string commandLine)
{
    SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
    HANDLE reading = nullptr, writing = nullptr;
    CreatePipe(&reading, &writing, &inherited, 0);
    SetHandleInformation(reading, HANDLE_FLAG_INHERIT, 0);
    STARTUPINFOA start = {};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdOutput = writing;
    start.hStdError = writing;
    PROCESS_INFORMATION process = {};
    const bool started =
        CreateProcessA(nullptr, commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start, &process) != 0;
    CloseHandle(writing);
    std::string output;
    char piece[512];
    for (DWORD count = 0; started && ReadFile(reading, piece, sizeof piece, &count, nullptr) != 0 && count > 0;)
        output.append(piece, count);
    CloseHandle(reading);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return output.substr(0, output.find_last_not_of("\r\n") + 1);
}

}

std::string ClipboardAfterPage(const std::string& browser)
{
    const std::string file = TemporaryFile();
    std::ofstream(file, std::ios::binary)
        << "var menuArguments, copied = '(nothing)', window = {clipboardData: {setData: function (format, text) {"
        << "copied = format + ':' + text; }}};\n"
        << browser << "\nwindow.external = {menuArguments: menuArguments};\n"
        << PageScript() << "\nWScript.Echo(copied);\n";
    const std::string output = OutputOf("cscript.exe //nologo \"" + file + "\"");
    DeleteFileA(file.c_str());
    return output;
}

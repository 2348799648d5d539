#include "driver/Agent.h"
#include "driver/Desk.h"
#include "driver/Waiting.h"
#include "driver/Windows.h"
#include "platform/windows/Text.h"
#include "windows/standins/Commands.h"
#include "windows/standins/Engine.h"
#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <sstream>

namespace driver {
namespace {

constexpr char LogFile[] = "C:\\parlune\\engine.log";
constexpr char SetupFile[] = "C:\\parlune\\engine-setup.txt";
constexpr char SpeechClass[] = "CLSID\\{EEE78591-FE22-11D0-8BEF-0060081841DE}";

bool BeginsWith(const std::string& line, const std::string& beginning)
{
    return line.compare(0, beginning.size(), beginning) == 0;
}

// A line of the log without the types of its arguments: BSTR "a" becomes "a".
std::string WithoutTypes(const std::string& line)
{
    std::string plain;
    bool quoted = false, argument = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (argument && !quoted && line[i] >= 'A' && line[i] <= 'Z') {
            const auto end = line.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789*[]", i);
            if (end != std::string::npos && line[end] == ' ')
                i = end + 1;
        }
        argument = !quoted && (line[i] == '(' || (argument && line[i] == ' ') || line[i] == ',');
        if (quoted && line[i] == '\\')
            plain += line[i++];
        else if (line[i] == '"')
            quoted = !quoted;
        plain += line[i];
    }
    return plain;
}

// Asked by us, not by the program.
bool IsOfTheDriver(const std::string& line)
{
    const char* const beginnings[] = {"told mark ", "marked ", "told held", "held "};
    return std::any_of(std::begin(beginnings), std::end(beginnings),
                       [&](const char* beginning) { return BeginsWith(line, beginning); });
}

// The first text in double quotes.
std::string FirstQuoted(const std::string& line)
{
    std::string text;
    for (auto i = line.find('"') + 1; i < line.size() && line[i] != '"'; ++i) {
        if (line[i] == '\\' && i + 1 < line.size())
            ++i;
        text += line[i];
    }
    return text;
}

}

void CAgent::Install()
{
    standins::Register("InprocServer32", platform::windowsdesktop::ToWide(ProgramFolder() + "agentstandin.dll"));
}

void CAgent::Uninstall() { standins::Unregister(); }

void CAgent::RemoveSpeech() { registry::Remove(HKEY_CLASSES_ROOT, SpeechClass); }

void CAgent::Prepare(const std::string& command) { m_setup += command + "\n"; }

Environment CAgent::Variables()
{
    DeleteFileA(LogFile);
    m_forgotten = 0;
    WriteFile(SetupFile, m_setup);
    return {{"PARLUNE_STANDIN_LOG", LogFile}, {"PARLUNE_STANDIN_SETUP", SetupFile}};
}

void CAgent::ServeFromOutside()
{
    const std::string program = ProgramFolder() + "agentstandin.exe";
    standins::Unregister();
    standins::Register("LocalServer32", platform::windowsdesktop::ToWide(program));
    m_server = std::make_unique<CProcess>();
    m_server->Start(program, ProgramFolder(), Variables());
    standins::WaitForStandIn(PatienceMilliseconds);
}

void CAgent::EndServer()
{
    if (m_server && m_server->IsRunning() && Tell("quit"))
        m_server->WaitForEnd();
}

bool CAgent::Tell(const std::string& command) const
{
    return standins::AskStandIn(command, "engine", m_server ? m_server->Id() : m_parlune->Id()) ==
           standins::Answer::Understood;
}

bool CAgent::Hears(const std::string& name, int confidence, const std::string& others) const
{
    return Tell("event Command Bot " + name + " " + std::to_string(confidence) + " \"\" " + others);
}

bool CAgent::Click(int button, int shift) const
{
    return Tell("event Click Bot " + std::to_string(button) + " " + std::to_string(shift) + " 100 100");
}

bool CAgent::DoubleClick(int button, int shift) const
{
    return Tell("event DblClick Bot " + std::to_string(button) + " " + std::to_string(shift) + " 100 100");
}

std::vector<std::string> CAgent::AllLines() const
{
    std::ifstream stream(LogFile, std::ios::binary);
    stream.seekg(m_forgotten);
    const std::string bytes{std::istreambuf_iterator<char>(stream), {}};
    std::vector<std::string> lines;
    std::size_t begin = 0;
    for (std::size_t end = 0; (end = bytes.find('\n', begin)) != std::string::npos; begin = end + 1)
        lines.push_back(WithoutTypes(bytes.substr(begin, end - begin)));
    return lines;
}

std::vector<std::string> CAgent::Log() const
{
    std::vector<std::string> lines = AllLines();
    std::erase_if(lines, IsOfTheDriver);
    return lines;
}

void CAgent::Forget()
{
    const std::string bytes = Contents(LogFile);
    m_forgotten = static_cast<std::streamoff>(bytes.rfind('\n') + 1);
}

bool CAgent::Mark() const
{
    static int number = 0;
    const std::string name = std::to_string(++number);
    return Tell("mark " + name) && Eventually([&] {
               const auto lines = AllLines();
               return std::find(lines.begin(), lines.end(), "marked " + name) != lines.end();
           });
}

// Each mark comes back from a message loop of its own turn, behind everything that was posted; between two of them the loop
// comes to rest. A program that is still at work lets its messages run a few times only.
void CAgent::Rest() const
{
    constexpr int MarksWithoutNews = 12;
    std::size_t lines = 0;
    Eventually([&, quiet = 0]() mutable {
        Mark();
        Answers(m_parlune->Tray());
        const std::size_t now = Log().size();
        quiet = now == lines ? quiet + 1 : 0;
        lines = now;
        return quiet == MarksWithoutNews;
    });
}

support::OwnHandles CAgent::Held() const
{
    support::OwnHandles held;
    EXPECT_TRUE(Tell("held"));
    const auto lines = AllLines();
    const auto line =
        std::find_if(lines.rbegin(), lines.rend(), [](const std::string& l) { return BeginsWith(l, "held "); });
    if (line != lines.rend())
        std::istringstream(line->substr(5)) >> held.drawing >> held.windows >> held.kernel;
    return held;
}

std::vector<std::string> CAgent::LinesWith(const std::string& beginning) const
{
    std::vector<std::string> lines = Log();
    const auto other = [&](const std::string& line) { return !BeginsWith(line, beginning); };
    lines.erase(std::remove_if(lines.begin(), lines.end(), other), lines.end());
    return lines;
}

bool CAgent::Saw(const std::string& line) const
{
    const auto lines = Log();
    return std::find(lines.begin(), lines.end(), line) != lines.end();
}

bool CAgent::Sees(const std::string& beginning, std::size_t times) const
{
    return Eventually([&] { return LinesWith(beginning).size() >= times; });
}

std::vector<std::string> CAgent::Spoken() const
{
    std::vector<std::string> texts;
    for (const std::string& line : LinesWith("call Character[Bot].Speak("))
        texts.push_back(FirstQuoted(line));
    return texts;
}

bool CAgent::Speaks(const std::string& text) const
{
    return Eventually([&] {
        const auto texts = Spoken();
        return std::find(texts.begin(), texts.end(), text) != texts.end();
    });
}

}

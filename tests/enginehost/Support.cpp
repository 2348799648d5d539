#include "Support.h"
#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QThread>
#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace support {
namespace {

[[noreturn]] void Become(const std::vector<std::string>& command, const std::string& outputFile, int inherited)
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    const int output = open(outputFile.empty() ? "/dev/null" : outputFile.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    dup2(output, 1);
    const int errors = open("/dev/null", O_WRONLY);
    dup2(errors, 2);
    if (inherited >= 0)
        dup2(inherited, 3);
    std::vector<char*> arguments;
    for (const std::string& argument : command)
        arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    execvp(arguments[0], arguments.data());
    _exit(127);
}

// Starts an X server that chooses its own number. The number, or "" when it does not start.
std::string StartDisplay(std::unique_ptr<CProgram>& server)
{
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0)
        return "";
    server = std::make_unique<CProgram>(
        std::vector<std::string>{"Xvfb", "-displayfd", "3", "-screen", "0", "1024x768x24", "-nolisten", "tcp", "-noreset"},
        "", ends[1]);
    close(ends[1]);
    std::string number;
    for (char digit = 0; read(ends[0], &digit, 1) == 1 && digit != '\n';)
        number += digit;
    close(ends[0]);
    return number;
}

struct Desktop {
    std::unique_ptr<CProgram> server;
    std::unique_ptr<CProgram> manager;
    std::unique_ptr<QApplication> application;
};

Desktop& TheDesktop()
{
    static Desktop desktop;
    return desktop;
}

// Ends the desktop before main does: afterwards Qt's own globals are gone, and an application cannot end without them.
class CDesktopEnd final : public testing::Environment {
    void TearDown() override
    {
        TheDesktop().application.reset();
        TheDesktop().manager.reset();
        TheDesktop().server.reset();
    }
};

[[maybe_unused]] const testing::Environment* const desktopEnd = testing::AddGlobalTestEnvironment(new CDesktopEnd);

}

CProgram::CProgram(const std::vector<std::string>& command, const std::string& outputFile, int inherited)
{
    m_id = fork();
    if (m_id == 0)
        Become(command, outputFile, inherited);
}

void CProgram::End()
{
    if (m_id > 0) {
        kill(m_id, SIGTERM);
        waitpid(m_id, nullptr, 0);
    }
    m_id = -1;
}

bool CProgram::Ended()
{
    if (m_id > 0 && waitpid(m_id, nullptr, WNOHANG) == m_id)
        m_id = -1;
    return m_id <= 0;
}

void CProgram::Signal(int number) const
{
    if (m_id > 0)
        kill(m_id, number);
}

CFolder::CFolder()
{
    std::string name = (std::filesystem::temp_directory_path() / "enginehost.XXXXXX").string();
    m_path = mkdtemp(name.data());
}

CFolder::~CFolder()
{
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

void RunLoop(std::chrono::milliseconds time)
{
    RunLoopUntil([] { return false; }, time);
}

bool RunLoopUntil(const std::function<bool()>& done, std::chrono::milliseconds limit)
{
    QElapsedTimer timer;
    timer.start();
    while (!done()) {
        if (timer.elapsed() > limit.count())
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents);
        QThread::usleep(500);
    }
    return true;
}

std::string OutputOf(const std::string& command)
{
    std::string text;
    FILE* output = popen(command.c_str(), "r");
    if (!output)
        return text;
    std::array<char, 4096> block{};
    for (std::size_t count = 0; (count = fread(block.data(), 1, block.size(), output)) > 0;)
        text.append(block.data(), count);
    pclose(output);
    while (!text.empty() && text.back() == '\n')
        text.pop_back();
    return text;
}

void NeedApplication()
{
    Desktop& desktop = TheDesktop();
    if (desktop.application)
        return;
    const std::string display = StartDisplay(desktop.server);
    ASSERT_FALSE(display.empty()) << "Xvfb cannot be started";
    setenv("DISPLAY", (":" + display).c_str(), 1);
    setenv("QT_QPA_PLATFORM", "xcb", 1);
    desktop.manager = std::make_unique<CProgram>(std::vector<std::string>{"openbox"});
    const auto managed = [] { return !OutputOf("xdotool get_num_desktops 2>/dev/null").empty(); };
    ASSERT_TRUE(RunLoopUntil(managed)) << "openbox cannot be started";
    static int count = 1;
    static std::array<char*, 2> arguments{const_cast<char*>("test_enginehost"), nullptr};
    desktop.application = std::make_unique<QApplication>(count, arguments.data());
}

CSoundServer::CSoundServer()
{
    setenv("XDG_RUNTIME_DIR", m_folder.Path().c_str(), 1);
    setenv("HOME", m_folder.Path().c_str(), 1);
    unsetenv("PULSE_SERVER");
}

void CSoundServer::Start()
{
    m_server = std::make_unique<CProgram>(std::vector<std::string>{
        "pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--use-pid-file=no", "-L",
        "module-native-protocol-unix", "-L", "module-null-sink sink_name=null rate=22050 channels=1 norewinds=1"});
    const auto answers = [] { return OutputOf("pactl list short sinks 2>&1").find("null") != std::string::npos; };
    ASSERT_TRUE(RunLoopUntil(answers)) << "pulseaudio cannot be started";
}

void CSoundServer::Record()
{
    const std::string file = m_folder / "recording";
    m_recorder = std::make_unique<CProgram>(std::vector<std::string>{"parec", "-d", "null.monitor", "--format=s16le",
                                                                     "--rate=22050", "--channels=1", "--latency-msec=20"},
                                            file);
    const auto records = [&] { return std::filesystem::exists(file) && std::filesystem::file_size(file) > 0; };
    ASSERT_TRUE(RunLoopUntil(records)) << "parec does not record";
}

std::vector<std::int16_t> CSoundServer::TakeRecording()
{
    RunLoop(std::chrono::milliseconds(150));
    m_recorder.reset();
    std::ifstream file(m_folder / "recording", std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    std::vector<std::int16_t> samples(bytes.size() / 2);
    std::memcpy(samples.data(), bytes.data(), samples.size() * 2);
    return samples;
}

int CSoundServer::Streams() const { return std::atoi(OutputOf("pactl list short sink-inputs | wc -l").c_str()); }

int CSoundServer::PlayingStreams() const
{
    return std::atoi(OutputOf("pactl list sink-inputs | grep -c 'Corked: no'").c_str());
}

}

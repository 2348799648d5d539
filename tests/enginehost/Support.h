#pragma once
#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <sys/types.h>
#include <vector>

// What the tests of the host need around them: programs that end with the test, a display, a sound server.
namespace support {

// A program that runs until this object goes.
class CProgram {
public:
    CProgram() = default;
    // `outputFile` receives its standard output; "" for none. `inherited` stays open in it as file descriptor 3.
    explicit CProgram(const std::vector<std::string>& command, const std::string& outputFile = "", int inherited = -1);
    ~CProgram() { End(); }
    CProgram(const CProgram&) = delete;
    CProgram& operator=(const CProgram&) = delete;
    void End();
    void Signal(int number) const;
    bool Ended();  // By itself.

private:
    pid_t m_id = -1;
};

// A new folder for this test, removed at its end.
class CFolder {
public:
    CFolder();
    ~CFolder();
    CFolder(const CFolder&) = delete;
    CFolder& operator=(const CFolder&) = delete;
    std::string operator/(const std::string& name) const { return m_path + "/" + name; }
    const std::string& Path() const { return m_path; }

private:
    std::string m_path;
};

// Runs the event loop for a while, or until something has come true. The answer is whether it has.
void RunLoop(std::chrono::milliseconds time);
bool RunLoopUntil(const std::function<bool()>& done, std::chrono::milliseconds limit = std::chrono::seconds(10));

// The answer of a command's standard output, without the last line end.
std::string OutputOf(const std::string& command);

// A QApplication on an X server of the test's own, with a window manager. Made at the first call.
void NeedApplication();

// A QCoreApplication's event loop is enough for speech and sound; it is on the same display.
inline void NeedEventLoop() { NeedApplication(); }

// A folder in which a sound server may run, and nothing of the user's own sound is reached.
class CSoundServer {
public:
    CSoundServer();
    void Start();  // Waits until it answers. Its only device plays nothing, at 22050 samples a second.
    void Kill() { m_server.reset(); }
    void Signal(int number) const { m_server->Signal(number); }
    // Records what the device plays, from when this returns until TakeRecording.
    void Record();
    std::vector<std::int16_t> TakeRecording();
    // Streams of all programs at the server, and how many of them are not corked.
    int Streams() const;
    int PlayingStreams() const;

private:
    CFolder m_folder;
    std::unique_ptr<CProgram> m_server;
    std::unique_ptr<CProgram> m_recorder;
};

}

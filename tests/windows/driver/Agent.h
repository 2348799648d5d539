#pragma once
#include "driver/Parlune.h"
#include "support/OwnHandles.h"
#include <ios>
#include <memory>
#include <string>
#include <vector>

namespace driver {

// The character engine that stands in for the system's own inside the running program: what it was asked, and what it shall
// do. Telling.h of the stand-ins has its commands; the lines of its log come without the types of the arguments.
class CAgent {
public:
    static void Install();  // For programs that start from now on.
    static void Uninstall();
    static void RemoveSpeech();  // Leaves a machine with the engine, but without the speech panel.

    explicit CAgent(const CParlune& parlune) : m_parlune(&parlune) {}
    void Prepare(const std::string& command);  // To be obeyed as soon as the engine is there.
    // The engine in a process of its own, which may end or hang: started here, and installed in place of the other.
    void ServeFromOutside();
    void EndServer();  // In good order: the system takes one that was killed for alive.
    CProcess& Server() { return *m_server; }
    // Variables for the program, so that its stand-in writes the log; begins a new log.
    Environment Variables();

    bool Tell(const std::string& command) const;  // False when it is not understood or the engine is not there.
    // Lets the user say something; `others` are names and confidences of what it might have been instead.
    bool Hears(const std::string& name, int confidence = 100, const std::string& others = {}) const;
    // Clicks of the mouse on the character. The button: 1 left, 2 right. Shift: 1, Ctrl: 2, Alt: 4.
    bool Click(int button, int shift = 0) const;
    bool DoubleClick(int button, int shift = 0) const;

    // What was asked since the start or the last call of Forget, a line each.
    std::vector<std::string> Log() const;
    void Forget();
    bool Mark() const;  // Waits until the message loop around the engine has done all that is posted so far.
    void Rest() const;  // Waits until it is asked nothing more, and the program waits for its user.
    // What the program holds. Only where the engine stands inside of it.
    support::OwnHandles Held() const;
    std::vector<std::string> LinesWith(const std::string& beginning) const;
    bool Saw(const std::string& line) const;                               // Until now.
    bool Sees(const std::string& beginning, std::size_t times = 1) const;  // Waits for that many lines.
    std::vector<std::string> Spoken() const;                               // The texts that were handed over to be spoken.
    bool Speaks(const std::string& text) const;                            // Waits for it.

private:
    std::vector<std::string> AllLines() const;

    const CParlune* m_parlune;
    std::unique_ptr<CProcess> m_server;
    std::string m_setup;
    std::streamoff m_forgotten = 0;  // Bytes of the log.
};

}

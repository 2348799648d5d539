// tell.exe [--to TITLE] [--wait MILLISECONDS] COMMAND...: sends one command to a stand-in. 0: understood, 1: not understood,
// 2: nobody there, 3: no answer. --wait waits for the stand-in to be there; without a command that is all.
#include "windows/standins/Commands.h"
#include "windows/standins/Value.h"
#include <iostream>

using namespace standins;

namespace {

struct CRequestedTelling {
    std::string title = "engine", command = {};
    unsigned milliseconds = 0;
};

CRequestedTelling Read(int count, wchar_t** arguments)
{
    CRequestedTelling telling;
    int next = 1;
    for (; next + 1 < count; next += 2) {
        const std::wstring option = arguments[next];
        if (option == L"--to")
            telling.title = Narrow(arguments[next + 1]);
        else if (option == L"--wait")
            telling.milliseconds = static_cast<unsigned>(std::stoul(arguments[next + 1]));
        else
            break;
    }
    for (; next < count; ++next)
        telling.command += (telling.command.empty() ? "" : " ") + Narrow(arguments[next]);
    return telling;
}

}

int wmain(int count, wchar_t** arguments)
try {
    static const char* const sentences[] = {"", "not understood", "nobody there", "no answer"};
    const CRequestedTelling telling = Read(count, arguments);
    Answer answer = WaitForStandIn(telling.milliseconds, telling.title) ? Answer::Understood : Answer::NobodyThere;
    if (answer == Answer::Understood && !telling.command.empty())
        answer = AskStandIn(telling.command, telling.title);
    if (answer != Answer::Understood)
        std::cerr << "tell: " << sentences[static_cast<int>(answer)] << "\n";
    return static_cast<int>(answer);
} catch (const std::exception&) {
    std::cerr << "tell: a number was expected\n";
    return 1;
}

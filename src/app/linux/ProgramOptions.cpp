#include "app/linux/ProgramOptions.h"
#include "common/Version.h"
#include "platform/text/CommandLine.h"

namespace {
constexpr char Help[] = "Usage: parlune [OPTION]...\n"
                        "A desktop companion that reads text aloud.\n"
                        "\n"
                        "  /NODETECT        start without splash window and checks\n"
                        "  --sound=auto     speak through the sound server (the default)\n"
                        "  --sound=clock    speak without a sound\n"
                        "  --sound=wav:FILE speak into a sound file\n"
                        "  --version        print the version\n"
                        "  --help           print this text\n";
constexpr std::string_view Sound = "--sound=";

std::string VersionLine()
{
    return std::string(version::Title) + " " + std::to_string(version::Major) + "." + std::to_string(version::Minor) + "." +
           std::to_string(version::Revision) + "\n";
}
}

ProgramOptions ReadProgramOptions(const std::vector<std::string>& words)
{
    ProgramOptions options;
    std::vector<std::string> others;
    for (const std::string& word : words) {
        if (word == "--help")
            options.answer = Help;
        else if (word == "--version")
            options.answer = VersionLine();
        else if (word.starts_with(Sound))
            options.sound = word.substr(Sound.size());
        else
            others.push_back(word);
    }
    options.commandLine = platform::text::JoinCommandLine(others);
    return options;
}

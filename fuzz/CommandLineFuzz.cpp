#include "Require.h"
#include "app/linux/ProgramOptions.h"
#include "platform/text/CommandLine.h"

// Any command line has words without the blanks and quotes that separate them, and words survive being joined to one line.
namespace {

void RequireWords(std::string_view line, const std::vector<std::string>& words)
{
    std::size_t bytes = 0;
    for (const std::string& word : words) {
        bytes += word.size();
        Require(line.find('"') != std::string_view::npos || word.find_first_of(" \t") == std::string::npos);
    }
    Require(bytes <= line.size());
    Require(!words.empty() || line.find_first_not_of(" \t") == std::string_view::npos);
}

void RequireOptions(const std::vector<std::string>& words)
{
    const ProgramOptions options = ReadProgramOptions(words);
    for (const std::string& left : platform::text::SplitCommandLine(options.commandLine))
        Require(left != "--help" && left != "--version" && !left.starts_with("--sound="));
}

}

// As a system gives it, NUL characters end the line.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace platform::text;
    const std::string_view line = TextOf(data, size).substr(0, TextOf(data, size).find('\0'));
    const std::vector<std::string> words = SplitCommandLine(line);
    RequireWords(line, words);
    Require(SplitCommandLine(JoinCommandLine(words)) == words);
    RequireOptions(words);
    return 0;
}

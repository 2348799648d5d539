#include "TemporaryHome.h"
#include "platform/linux/LinuxFiles.h"
#include "platform/linux/LinuxProfile.h"
#include "platform/linux/LinuxRegistry.h"
#include "platform/linux/LinuxStateFile.h"
#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <set>

// A process that saves everything that Parlune saves, again and again with a number one higher, and is killed at any moment.
// Afterwards every file is that of the last saving that was complete, or that of the next one, and whole.
namespace platform::linuxdesktop {
namespace {

constexpr char OptionKey[] = "Software\\Tarrowind\\Parlune";

int Rounds()
{
    const char* rounds = std::getenv("PARLUNE_KILL_ROUNDS");
    return rounds ? std::atoi(rounds) : 150;
}

std::string Long(int number) { return std::to_string(number) + std::string(200'000, 'x') + std::to_string(number); }

struct Kill : testing::Test {
    CTemporaryFolder home;
    std::string document = home.Path("letter.txt");
    std::string settings = home.Path("Parlune.ini");

    std::unique_ptr<CLinuxRegistry> Registry() const
    {
        return std::make_unique<CLinuxRegistry>(home.Path("config/registry.txt"),
                                                CAutostart(home.Path("autostart/parlune.desktop"), "/opt/parlune"));
    }
    void SaveAll(int number, CLinuxRegistry& registry, CLinuxStateFile& state) const
    {
        const auto key = registry.Create(Root::CurrentUser, OptionKey);
        for (const char* name : {"First", "Last"})
            key->SetText(name, std::to_string(number));
        registry.Flush();
        CLinuxProfile().Write(settings, "Robby", "TTSModeID", Long(number));
        CLinuxFiles().WriteLine(document, Long(number));
        state.Keep(Long(number));
        state.Finish();
    }
    // Tells each saving that is complete.
    [[noreturn]] void SaveWithoutEnd(int number, int told) const
    {
        const auto registry = Registry();
        CLinuxStateFile state(home.Path("state/options.journal"), [] { return true; });
        for (;; ++number) {
            SaveAll(number, *registry, state);
            if (::write(told, &number, sizeof number) < 0)
                ::_exit(1);
        }
    }
    // The kill comes so long after the first saving. Returns the last one that was complete.
    int SaveAndKill(int first, std::chrono::microseconds after) const
    {
        int pipe[2] = {};
        EXPECT_EQ(::pipe(pipe), 0);
        const pid_t child = ::fork();
        if (child == 0)
            SaveWithoutEnd(first, pipe[1]);
        ::close(pipe[1]);
        int last = first - 1;
        EXPECT_EQ(::read(pipe[0], &last, sizeof last), static_cast<ssize_t>(sizeof last));
        ::usleep(static_cast<useconds_t>(after.count()));
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        while (::read(pipe[0], &last, sizeof last) == sizeof last) {
        }
        ::close(pipe[0]);
        return last;
    }
    // Of the options.
    std::set<std::string> NumbersNow() const
    {
        const auto registry = Registry();
        const auto key = registry->Open(Root::CurrentUser, OptionKey);
        std::set<std::string> numbers;
        for (const char* name : {"First", "Last"})
            numbers.insert(key->Value(name, key->ValueSize(name).value_or(0)).value_or("(none)").c_str());
        return numbers;
    }
};

// Without the line's end.
std::string Line(std::string text)
{
    text.erase(std::min(text.find_last_not_of("\r\n") + 1, text.size()));
    return text;
}

}

TEST_F(Kill, AtAnyMoment_EveryFileIsTheOldOrTheNewOne)
{
    std::mt19937 random(4711);
    std::uniform_int_distribution<int> microseconds(0, 25'000);
    int last = 1;
    {
        CLinuxStateFile state(home.Path("state/options.journal"), [] { return true; });
        SaveAll(last, *Registry(), state);
    }
    int inTheMiddle = 0;
    for (int round = 0; round < Rounds(); ++round) {
        const int done = SaveAndKill(last + 1, std::chrono::microseconds(microseconds(random)));
        const std::set<std::string> longOnes{Long(done), Long(done + 1)};
        const std::set<std::string> shortOnes{std::to_string(done), std::to_string(done + 1)};
        const std::set<std::string> numbers = NumbersNow();
        inTheMiddle += numbers.contains(std::to_string(done + 1)) ? 1 : 0;
        for (const std::string& number : numbers)
            ASSERT_TRUE(shortOnes.contains(number)) << number << " after " << done << ", round " << round;
        ASSERT_FALSE(home.Has("config/registry.txt.damaged")) << "round " << round;
        ASSERT_TRUE(longOnes.contains(CLinuxProfile().Read(settings, "Robby", "TTSModeID", "", 1'000'000)))
            << "round " << round;
        ASSERT_TRUE(longOnes.contains(Line(home.Read("letter.txt")))) << "round " << round;
        ASSERT_TRUE(longOnes.contains(home.Read("state/options.journal"))) << "round " << round;
        last = done;
    }
    std::printf("killed in the middle of a saving: %d of %d\n", inTheMiddle, Rounds());
}

}

#include "platform/linux/LoadedCharacters.h"
#include "TemporaryHome.h"
#include <csignal>
#include <fcntl.h>
#include <fstream>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

using platform::linuxdesktop::CLoadedCharacters;

namespace {
constexpr const char* Nibbin = "{00000001-0000-0000-0000-000000000000}";
constexpr const char* Other = "{00000002-0000-0000-0000-000000000000}";

// Another process that has loaded a character, until it is ended.
class COtherProgram {
public:
    COtherProgram(const std::string& folder, const std::string& guid)
    {
        int ready[2] = {-1, -1};
        EXPECT_EQ(::pipe(ready), 0);
        m_process = ::fork();
        if (m_process == 0) {
            CLoadedCharacters characters(folder);
            characters.Enter(guid);
            const ssize_t written = ::write(ready[1], "x", 1);
            (void)written;
            for (;;)
                ::pause();
        }
        char byte = 0;
        EXPECT_EQ(::read(ready[0], &byte, 1), 1);
        ::close(ready[0]);
        ::close(ready[1]);
    }
    ~COtherProgram() { Kill(); }
    COtherProgram(const COtherProgram&) = delete;
    COtherProgram& operator=(const COtherProgram&) = delete;
    void Kill()
    {
        if (m_process <= 0)
            return;
        ::kill(m_process, SIGKILL);
        ::waitpid(m_process, nullptr, 0);
        m_process = 0;
    }

private:
    pid_t m_process = 0;
};

std::size_t FilesIn(const std::string& folder)
{
    std::error_code error;
    const std::filesystem::directory_iterator files(folder, error);
    return error ? 0 : static_cast<std::size_t>(std::distance(begin(files), end(files)));
}

class LoadedCharacters : public ::testing::Test {
protected:
    CTemporaryFolder home;
    const std::string folder = home.Path("run/characters");
};
}

TEST_F(LoadedCharacters, OthersHave_Alone_IsFalse)
{
    CLoadedCharacters characters(folder);
    characters.Enter(Nibbin);
    EXPECT_FALSE(characters.OthersHave(Nibbin));
    EXPECT_EQ(FilesIn(folder), 1u);
}

TEST_F(LoadedCharacters, OthersHave_WhatAnotherProcessHasLoaded_IsTrue)
{
    const COtherProgram other(folder, Nibbin);
    CLoadedCharacters characters(folder);
    characters.Enter(Nibbin);
    EXPECT_TRUE(characters.OthersHave(Nibbin));
}

TEST_F(LoadedCharacters, OthersHave_AnotherCharacterThanTheOtherProcess_IsFalse)
{
    const COtherProgram other(folder, Other);
    CLoadedCharacters characters(folder);
    characters.Enter(Nibbin);
    EXPECT_FALSE(characters.OthersHave(Nibbin));
}

TEST_F(LoadedCharacters, OthersHave_AfterTheOtherProcessWasKilled_IsFalseAndCleansUp)
{
    COtherProgram other(folder, Nibbin);
    CLoadedCharacters characters(folder);
    other.Kill();
    EXPECT_EQ(FilesIn(folder), 1u);
    EXPECT_FALSE(characters.OthersHave(Nibbin));
    EXPECT_EQ(FilesIn(folder), 0u);
}

TEST_F(LoadedCharacters, Leave_AsOftenAsEntered_RemovesTheEntry)
{
    CLoadedCharacters characters(folder);
    characters.Enter(Nibbin);
    characters.Enter(Nibbin);
    characters.Leave(Nibbin);
    EXPECT_EQ(FilesIn(folder), 1u);
    characters.Leave(Nibbin);
    EXPECT_EQ(FilesIn(folder), 0u);
}

TEST_F(LoadedCharacters, Leave_OfWhatWasNotEntered_DoesNothing)
{
    const COtherProgram other(folder, Nibbin);
    CLoadedCharacters characters(folder);
    characters.Leave(Nibbin);
    EXPECT_TRUE(characters.OthersHave(Nibbin));
}

TEST_F(LoadedCharacters, End_OfTheProgram_RemovesItsEntries)
{
    {
        CLoadedCharacters characters(folder);
        characters.Enter(Nibbin);
        characters.Enter(Other);
    }
    EXPECT_EQ(FilesIn(folder), 0u);
}

TEST_F(LoadedCharacters, OthersHave_WithForeignThingsInTheFolder_LooksAtFilesOnly)
{
    std::filesystem::create_directories(folder + "/" + Nibbin + ".folder");
    std::filesystem::create_symlink("/dev/null", folder + "/" + Nibbin + ".link");
    ASSERT_EQ(::mkfifo((folder + "/" + Nibbin + ".pipe").c_str(), 0600), 0);
    EXPECT_FALSE(CLoadedCharacters(folder).OthersHave(Nibbin));
}

TEST_F(LoadedCharacters, WithoutAFolder_NobodyIsKnown)
{
    CLoadedCharacters characters("");
    characters.Enter(Nibbin);
    EXPECT_FALSE(characters.OthersHave(Nibbin));
    characters.Leave(Nibbin);
}

TEST_F(LoadedCharacters, WithAFolderThatCannotBeMade_NobodyIsKnown)
{
    home.Write("file", "");
    CLoadedCharacters characters(home.Path("file/characters"));
    characters.Enter(Nibbin);
    EXPECT_FALSE(characters.OthersHave(Nibbin));
}

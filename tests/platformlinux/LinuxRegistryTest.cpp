#include "platform/linux/LinuxRegistry.h"
#include "TemporaryHome.h"
#include <chrono>
#include <csignal>
#include <sys/resource.h>

namespace platform::linuxdesktop {
namespace {
constexpr char OptionKey[] = "Software\\Tarrowind\\Parlune";
constexpr char RunKey[] = "Software\\Microsoft\\Windows\\CurrentVersion\\Run";
constexpr char SoundFile[] =
    "# Parlune registry 1\n[CurrentUser\\Software\\Tarrowind\\Parlune]\n\"Name\" = \"value\"\n# end\n";

struct LinuxRegistry : testing::Test {
    CTemporaryFolder folder;

    std::unique_ptr<CLinuxRegistry> Registry()
    {
        return std::make_unique<CLinuxRegistry>(folder.Path("parlune/registry.txt"),
                                                CAutostart(folder.Path("autostart/parlune.desktop"), "/opt/parlune"));
    }
    static bool Put(CLinuxRegistry& registry, const std::string& name, const std::string& text)
    {
        const auto key = registry.Create(Root::CurrentUser, OptionKey);
        return key && key->SetText(name, text);
    }
    static std::string Get(CLinuxRegistry& registry, const std::string& name, const char* path = OptionKey,
                           Root root = Root::CurrentUser)
    {
        const auto key = registry.Open(root, path);
        const auto size = key ? key->ValueSize(name) : std::nullopt;
        return size ? key->Value(name, *size).value_or("(too long)") : "(nothing)";
    }
};

std::string WithNul(const std::string& text) { return text + '\0'; }
}

TEST_F(LinuxRegistry, Open_NewUser_KnowsNoOptionKeyAndCreatesNothing)
{
    EXPECT_EQ(Registry()->Open(Root::CurrentUser, OptionKey), nullptr);
    EXPECT_FALSE(folder.Has("parlune"));
}

TEST_F(LinuxRegistry, SetText_ReadByAnotherRun_ComesBackWithItsTerminator)
{
    ASSERT_TRUE(Put(*Registry(), "Greeting1", "Good {TimeOfDay}, Zoë!\r\n"));

    EXPECT_EQ(Get(*Registry(), "greeting1"), WithNul("Good {TimeOfDay}, Zoë!\r\n"));
}

TEST_F(LinuxRegistry, SetText_Empty_HasOneByte)
{
    const auto registry = Registry();
    ASSERT_TRUE(Put(*registry, "Empty", ""));

    EXPECT_EQ(registry->Open(Root::CurrentUser, OptionKey)->ValueSize("Empty"), std::size_t{1});
}

TEST_F(LinuxRegistry, SetNumber_ReadAgain_IsFourBytesLowestFirst)
{
    Registry()->Create(Root::CurrentUser, OptionKey)->SetNumber("Contexts", 17);

    EXPECT_EQ(Get(*Registry(), "Contexts"), std::string("\x11\0\0\0", 4));
}

TEST_F(LinuxRegistry, Value_SmallerBuffer_IsNothing)
{
    const auto registry = Registry();
    Put(*registry, "Name", "abc");

    EXPECT_EQ(registry->Open(Root::CurrentUser, OptionKey)->Value("Name", 3), std::nullopt);
    EXPECT_EQ(registry->Open(Root::CurrentUser, OptionKey)->Value("Name", 4), WithNul("abc"));
}

TEST_F(LinuxRegistry, SetText_WithoutName_IsTheDefaultValue)
{
    const auto registry = Registry();
    registry->Create(Root::CurrentUser, OptionKey)->SetText(std::nullopt, "plain");

    EXPECT_EQ(Get(*registry, ""), WithNul("plain"));
    EXPECT_TRUE(registry->Open(Root::CurrentUser, OptionKey)->DeleteValue(std::nullopt));
    EXPECT_FALSE(registry->Open(Root::CurrentUser, OptionKey)->DeleteValue(std::nullopt));
}

TEST_F(LinuxRegistry, DeleteKey_WithValues_IsGoneInTheNextRun)
{
    Put(*Registry(), "Name", "abc");
    ASSERT_TRUE(Registry()->DeleteKey(Root::CurrentUser, OptionKey));

    EXPECT_EQ(Registry()->Open(Root::CurrentUser, OptionKey), nullptr);
    EXPECT_FALSE(Registry()->DeleteKey(Root::CurrentUser, "Software"));
}

TEST_F(LinuxRegistry, SetText_OnADeletedKey_IsRefused)
{
    const auto registry = Registry();
    const auto key = registry->Create(Root::CurrentUser, OptionKey);
    registry->DeleteKey(Root::CurrentUser, OptionKey);

    EXPECT_FALSE(key->SetText("Name", "x"));
    EXPECT_EQ(key->ValueSize("Name"), std::nullopt);
}

TEST_F(LinuxRegistry, EngineClass_NewUser_AnswersAsRegisteredAndIsNotStored)
{
    const auto registry = Registry();
    EXPECT_EQ(Get(*registry, "", "Agent.Control.2\\CLSID", Root::ClassesRoot),
              WithNul("{D45FD31B-5C6E-11D1-9EC1-00C04FD7081F}"));
    EXPECT_FALSE(registry->Open(Root::ClassesRoot, "agent.control.2\\clsid")->SetText("", "x"));
    EXPECT_FALSE(folder.Has("parlune/registry.txt"));
}

TEST_F(LinuxRegistry, OfficeClasses_AreAbsent)
{
    EXPECT_EQ(Registry()->Open(Root::ClassesRoot, "Word.Application\\CLSID"), nullptr);
    EXPECT_EQ(Registry()->Open(Root::ClassesRoot, "Excel.Application\\CLSID"), nullptr);
}

TEST_F(LinuxRegistry, RunValue_Set_WritesAnAutostartEntryForThisProgram)
{
    const auto registry = Registry();
    ASSERT_TRUE(registry->Create(Root::CurrentUser, RunKey)->SetText("Parlune", "/opt/Parlune.exe"));

    EXPECT_NE(folder.Read("autostart/parlune.desktop").find("Exec=\"/opt/parlune\"\n"), std::string::npos);
    EXPECT_EQ(Get(*registry, "Parlune", RunKey), WithNul("/opt/Parlune.exe"));
}

TEST_F(LinuxRegistry, RunValue_OtherProgramsValue_WritesNoEntry)
{
    Registry()->Create(Root::CurrentUser, RunKey)->SetText("Other", "x");

    EXPECT_FALSE(folder.Has("autostart/parlune.desktop"));
}

TEST_F(LinuxRegistry, RunValue_Deleted_RemovesTheEntryAndNoOtherValue)
{
    const auto registry = Registry();
    const auto key = registry->Create(Root::CurrentUser, RunKey);
    key->SetText("Parlune", "/opt/Parlune.exe");
    key->SetText("Other", "stays");

    EXPECT_TRUE(key->DeleteValue("Parlune"));
    EXPECT_FALSE(folder.Has("autostart/parlune.desktop"));
    EXPECT_EQ(Get(*registry, "Other", RunKey), WithNul("stays"));
}

TEST_F(LinuxRegistry, RunValue_HiddenByTheUser_ReadsAsAbsent)
{
    const auto registry = Registry();
    registry->Create(Root::CurrentUser, RunKey)->SetText("Parlune", "/opt/Parlune.exe");
    folder.Write("autostart/parlune.desktop", folder.Read("autostart/parlune.desktop") + "Hidden=true\n");

    EXPECT_EQ(Get(*registry, "Parlune", RunKey), "(nothing)");
}

TEST_F(LinuxRegistry, RunValue_DeletedWhileHiddenByTheUser_KeepsTheUsersEntry)
{
    const auto registry = Registry();
    const auto key = registry->Create(Root::CurrentUser, RunKey);
    key->SetText("Parlune", "/opt/Parlune.exe");
    folder.Write("autostart/parlune.desktop", folder.Read("autostart/parlune.desktop") + "Hidden=true\n");

    EXPECT_TRUE(key->DeleteValue("Parlune"));
    EXPECT_NE(folder.Read("autostart/parlune.desktop").find("Hidden=true"), std::string::npos);
}

TEST_F(LinuxRegistry, FollowProgram_ProgramWasMoved_NamesTheNewPlaceAndKeepsTheSwitch)
{
    const std::string entry = folder.Path("autostart/parlune.desktop");
    CAutostart(entry, folder.Path("old/parlune")).SwitchOn();
    folder.Write("autostart/parlune.desktop", folder.Read("autostart/parlune.desktop") + "Hidden=true\n");

    CAutostart(entry, "/new/parlune").FollowProgram();

    EXPECT_NE(folder.Read("autostart/parlune.desktop").find("Exec=\"/new/parlune\"\n"), std::string::npos);
    EXPECT_NE(folder.Read("autostart/parlune.desktop").find("Hidden=true\n"), std::string::npos);
}

TEST_F(LinuxRegistry, FollowProgram_TheOtherProgramIsThereStill_LeavesTheEntry)
{
    const std::string entry = folder.Path("autostart/parlune.desktop");
    folder.Write("old/parlune", "");
    CAutostart(entry, folder.Path("old/parlune")).SwitchOn();
    const std::string before = folder.Read("autostart/parlune.desktop");

    CAutostart(entry, "/new/parlune").FollowProgram();

    EXPECT_EQ(folder.Read("autostart/parlune.desktop"), before);
}

TEST_F(LinuxRegistry, FollowProgram_WithoutAnEntry_MakesNone)
{
    CAutostart(folder.Path("autostart/parlune.desktop"), "/new/parlune").FollowProgram();
    EXPECT_FALSE(folder.Has("autostart/parlune.desktop"));
}

TEST_F(LinuxRegistry, StartOption_EntryHiddenByTheUser_ReadsAsOff)
{
    const auto registry = Registry();
    registry->Create(Root::CurrentUser, OptionKey)->SetText("StartWithWindows", "1");
    registry->Create(Root::CurrentUser, RunKey)->SetText("Parlune", "/opt/Parlune.exe");
    EXPECT_EQ(Get(*registry, "StartWithWindows"), WithNul("1"));

    folder.Write("autostart/parlune.desktop", folder.Read("autostart/parlune.desktop") + "Hidden=true\n");
    EXPECT_EQ(Get(*registry, "StartWithWindows"), WithNul("0"));
}

TEST_F(LinuxRegistry, StartOption_SwitchedOnAgainHere_ReadsAsStored)
{
    const auto registry = Registry();
    registry->Create(Root::CurrentUser, OptionKey)->SetText("StartWithWindows", "1");
    folder.Write("autostart/parlune.desktop", "[Desktop Entry]\nExec=parlune\nHidden=true\n");

    registry->Create(Root::CurrentUser, RunKey)->SetText("Parlune", "/opt/Parlune.exe");
    EXPECT_EQ(Get(*registry, "StartWithWindows"), WithNul("1"));
}

TEST_F(LinuxRegistry, StartOption_WithoutAnyEntry_ReadsAsStored)
{
    const auto registry = Registry();
    registry->Create(Root::CurrentUser, OptionKey)->SetText("StartWithWindows", "1");

    EXPECT_EQ(Get(*registry, "StartWithWindows"), WithNul("1"));
}

TEST_F(LinuxRegistry, RunValue_EntryCannotBeWritten_IsRefusedAndNotStored)
{
    folder.Write("autostart", "a file in the folder's place");
    const auto registry = Registry();

    EXPECT_FALSE(registry->Create(Root::CurrentUser, RunKey)->SetText("Parlune", "x"));
    EXPECT_EQ(folder.Read("parlune/registry.txt").find("Parlune\" ="), std::string::npos);
}

TEST_F(LinuxRegistry, Create_FolderCannotBeMade_IsRefused)
{
    folder.Write("parlune", "a file in the folder's place");

    EXPECT_EQ(Registry()->Create(Root::CurrentUser, OptionKey), nullptr);
    EXPECT_EQ(folder.Read("parlune"), "a file in the folder's place");
}

TEST_F(LinuxRegistry, Create_FileCannotBeRead_IsRefusedAndLeftAlone)
{
    folder.MakeFolder("parlune/registry.txt/inside");

    EXPECT_EQ(Registry()->Create(Root::CurrentUser, OptionKey), nullptr);
    EXPECT_TRUE(folder.Has("parlune/registry.txt/inside"));
}

TEST_F(LinuxRegistry, Assume_NothingStored_IsReadAndNotStored)
{
    const auto registry = Registry();
    registry->Assume(Root::CurrentUser, OptionKey, "CharWidth", "0");

    EXPECT_EQ(Get(*registry, "CharWidth"), WithNul("0"));
    EXPECT_FALSE(folder.Has("parlune"));
}

TEST_F(LinuxRegistry, Assume_AnotherTextStored_TheStoredOneIsRead)
{
    const auto registry = Registry();
    registry->Assume(Root::CurrentUser, OptionKey, "CharWidth", "0");
    ASSERT_TRUE(Put(*registry, "CharWidth", "200"));

    EXPECT_EQ(Get(*registry, "CharWidth"), WithNul("200"));
    EXPECT_EQ(Get(*Registry(), "CharWidth"), WithNul("200"));
}

TEST_F(LinuxRegistry, Load_FileCutShort_IsCompletedFromTheBackupAndKeptAside)
{
    folder.Write("parlune/registry.txt.bak", "# Parlune registry 1\n[CurrentUser\\Software\\Tarrowind\\Parlune]\n"
                                             "\"A\" = \"old\"\n\"B\" = \"old\"\n# end\n");
    const std::string cutShort =
        "# Parlune registry 1\n[CurrentUser\\Software\\Tarrowind\\Parlune]\n\"A\" = \"new\"\n\"B\" = \"ne";
    folder.Write("parlune/registry.txt", cutShort);

    const auto registry = Registry();

    EXPECT_EQ(Get(*registry, "A"), WithNul("new"));
    EXPECT_EQ(Get(*registry, "B"), WithNul("old"));
    EXPECT_EQ(folder.Read("parlune/registry.txt.damaged"), cutShort);
}

TEST_F(LinuxRegistry, Load_EmptyFile_IsReplacedByTheBackup)
{
    folder.Write("parlune/registry.txt.bak", SoundFile);
    folder.Write("parlune/registry.txt", "");

    EXPECT_EQ(Get(*Registry(), "Name"), WithNul("value"));
}

TEST_F(LinuxRegistry, Load_UnknownFile_IsNeverOverwritten)
{
    folder.Write("parlune/registry.txt", "Dear diary\n");
    ASSERT_TRUE(Put(*Registry(), "Name", "x"));
    folder.Write("parlune/registry.txt", "Dear other diary\n");
    ASSERT_TRUE(Put(*Registry(), "Name", "y"));

    EXPECT_EQ(folder.Read("parlune/registry.txt.damaged"), "Dear diary\n");
    EXPECT_EQ(folder.Read("parlune/registry.txt.damaged-2"), "Dear other diary\n");
}

TEST_F(LinuxRegistry, Load_DamagedOnce_IsMendedForGood)
{
    folder.Write("parlune/registry.txt", std::string(SoundFile) + "what is this?\n");
    Registry();
    Registry();

    EXPECT_EQ(Get(*Registry(), "Name"), WithNul("value"));
    EXPECT_FALSE(folder.Has("parlune/registry.txt.damaged-2"));
}

TEST_F(LinuxRegistry, Load_SoundFile_IsNotTouched)
{
    folder.Write("parlune/registry.txt", SoundFile);
    Get(*Registry(), "Name");

    EXPECT_EQ(folder.Read("parlune/registry.txt"), SoundFile);
    EXPECT_FALSE(folder.Has("parlune/registry.txt.damaged"));
}

TEST_F(LinuxRegistry, Open_FileChangedByTheUserMeanwhile_ReadsTheNewOne)
{
    const auto registry = Registry();
    Put(*registry, "Name", "x");
    folder.Write("parlune/registry.txt", SoundFile);

    EXPECT_EQ(Get(*registry, "Name"), WithNul("value"));
}

TEST_F(LinuxRegistry, SetText_FileIsALink_ReplacesWhatItPointsTo)
{
    folder.Write("elsewhere/kept.txt", SoundFile);
    folder.MakeFolder("parlune");
    std::filesystem::create_symlink(folder.Path("elsewhere/kept.txt"), folder.Path("parlune/registry.txt"));
    Put(*Registry(), "Name", "changed");

    EXPECT_TRUE(std::filesystem::is_symlink(folder.Path("parlune/registry.txt")));
    EXPECT_NE(folder.Read("elsewhere/kept.txt").find("\"Name\" = \"changed\""), std::string::npos);
}

TEST_F(LinuxRegistry, Flush_AfterAChange_KeepsABackupOfThatState)
{
    const auto registry = Registry();
    Put(*registry, "Name", "first");
    ASSERT_TRUE(registry->Flush());
    const std::string flushed = folder.Read("parlune/registry.txt");
    Put(*registry, "Name", "second");

    EXPECT_EQ(folder.Read("parlune/registry.txt.bak"), flushed);
}

TEST_F(LinuxRegistry, OnChange_EveryWrite_IsTold)
{
    const auto registry = Registry();
    const auto key = registry->Create(Root::CurrentUser, OptionKey);
    int changes = 0;
    registry->OnChange([&] { ++changes; });
    key->SetText("A", "1");
    key->SetText("B", "2");

    EXPECT_EQ(changes, 2);
}

TEST_F(LinuxRegistry, SetText_DiskFull_IsRefusedAndTheFormerFileStays)
{
    Put(*Registry(), "Name", "former");
    const std::string former = folder.Read("parlune/registry.txt");

    EXPECT_TRUE(SucceedsInChild([&] {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{256, 256};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        const auto registry = Registry();
        return !Put(*registry, "Name", std::string(1000, 'x')) && Get(*registry, "Name") == WithNul("former");
    }));
    EXPECT_EQ(folder.Read("parlune/registry.txt"), former);
    EXPECT_FALSE(folder.Has("parlune/registry.txt.new"));
}

// The child reports every value that it has saved; it is killed in the middle of saving a later one.
TEST_F(LinuxRegistry, SetText_KilledWhileSaving_LosesNothingSaved)
{
    for (int round = 0; round < 40; ++round) {
        int reports[2];
        ASSERT_EQ(::pipe(reports), 0);
        const pid_t child = ::fork();
        if (child == 0) {
            const auto registry = Registry();
            for (char value = 1;; value = static_cast<char>(value % 100 + 1)) {
                Put(*registry, "Name", std::string(static_cast<std::size_t>(value), 'x'));
                if (::write(reports[1], &value, 1) != 1)
                    ::_exit(1);
            }
        }
        char saved = 0;
        for (int i = 0; i <= round; ++i)
            ASSERT_EQ(::read(reports[0], &saved, 1), 1);
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        ::close(reports[1]);
        while (::read(reports[0], &saved, 1) == 1) {
        }
        ::close(reports[0]);

        const std::size_t length = Get(*Registry(), "Name").size() - 1;
        EXPECT_TRUE(length == static_cast<std::size_t>(saved) || length == static_cast<std::size_t>(saved % 100 + 1));
    }
    EXPECT_FALSE(folder.Has("parlune/registry.txt.damaged"));
}

TEST_F(LinuxRegistry, SetText_ManyOptions_AllAreThere)
{
    {
        const auto registry = Registry();
        for (int i = 0; i < 60; ++i)
            ASSERT_TRUE(Put(*registry, "Option" + std::to_string(i), std::to_string(i)));
    }
    EXPECT_EQ(Get(*Registry(), "Option0"), WithNul("0"));
    EXPECT_EQ(Get(*Registry(), "Option59"), WithNul("59"));
}

}

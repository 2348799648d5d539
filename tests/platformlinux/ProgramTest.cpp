#include "TemporaryHome.h"
#include <QElapsedTimer>
#include <QProcess>
#include <QThread>
#include <sys/types.h>

// The real program, without a display where none is needed.
namespace {
struct Program : testing::Test {
    CTemporaryFolder home;
    CEnvironmentChange environment;

    void SetUp() override
    {
        for (const char* folder : {"config", "data", "runtime"})
            home.MakeFolder(folder);
        environment.Set("HOME", home.Path());
        environment.Set("XDG_CONFIG_HOME", home.Path("config"));
        environment.Set("XDG_DATA_HOME", home.Path("data"));
        environment.Set("XDG_STATE_HOME", home.Path("state"));
        environment.Set("XDG_RUNTIME_DIR", home.Path("runtime"));
        environment.Set("QT_QPA_PLATFORM", "offscreen");
    }
    // Starts it and waits until it has made sure that it is the only one.
    void Start(QProcess& program) const
    {
        home.Write("config/parlune/instance.lock", "");  // What an earlier one wrote is no sign of this one.
        program.start(PARLUNE_PROGRAM, {"--sound=clock", "/nodetect"});
        program.waitForStarted();
        EXPECT_TRUE(Within([&] { return home.Read("config/parlune/instance.lock").ends_with(".socket"); }));
    }
    // Polls another process for at most twenty seconds.
    static bool Within(const std::function<bool()>& holds)
    {
        QElapsedTimer waiting;
        for (waiting.start(); waiting.elapsed() < 20000; QThread::msleep(10))
            if (holds())
                return true;
        return false;
    }
    struct Ended {
        int code = -1;
        std::string output;
        std::string errors;
    };
    static Ended Run(const QStringList& arguments)
    {
        QProcess program;
        program.start(PARLUNE_PROGRAM, arguments);
        program.waitForFinished();
        return {program.exitCode(), program.readAllStandardOutput().toStdString(),
                program.readAllStandardError().toStdString()};
    }
};
}

TEST_F(Program, Version_IsPrintedAndNothingElseHappens)
{
    const Ended ended = Run({"--version"});

    EXPECT_EQ(ended.code, 0);
    EXPECT_EQ(ended.output, "Parlune 2.6.3\n");
    EXPECT_FALSE(home.Has("config/parlune"));
}

TEST_F(Program, Help_NamesTheOptions)
{
    const Ended ended = Run({"--help"});

    EXPECT_EQ(ended.code, 0);
    EXPECT_NE(ended.output.find("--sound=wav:FILE"), std::string::npos);
}

TEST_F(Program, Start_WithoutADisplay_SaysSoAndEndsWithOne)
{
    environment.Set("QT_QPA_PLATFORM", std::nullopt);
    environment.Set("DISPLAY", std::nullopt);
    environment.Set("WAYLAND_DISPLAY", std::nullopt);
    const Ended ended = Run({});

    EXPECT_EQ(ended.code, 1);
    EXPECT_NE(ended.errors.find("display"), std::string::npos);
}

TEST_F(Program, Start_DisplayThatIsNotThere_SaysSoAndEndsWithOne)
{
    environment.Set("QT_QPA_PLATFORM", std::nullopt);
    environment.Set("DISPLAY", ":4711");
    const Ended ended = Run({});

    EXPECT_EQ(ended.code, 1);
    EXPECT_NE(ended.errors.find("Parlune cannot go on"), std::string::npos);
}

TEST_F(Program, Terminate_NewUser_SavesTheOptionsAndEndsWell)
{
    QProcess program;
    Start(program);
    // Before its character comes there is nothing to save yet.
    EXPECT_TRUE(Within([&] { return home.HasEntries("runtime/parlune/characters"); }));
    program.terminate();
    ASSERT_TRUE(program.waitForFinished());

    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(program.exitCode(), 0);
    EXPECT_NE(home.Read("config/parlune/registry.txt").find("\"FirstTime\" = \"0\""), std::string::npos);
    EXPECT_FALSE(home.Has("runtime/parlune.socket"));
}

// What Reset Defaults leaves behind: a file without the options.
TEST_F(Program, Start_AfterAReset_GivesTheGreetingsAgain)
{
    home.Write("config/parlune/registry.txt", "# Parlune registry 1\n# end\n");
    QProcess program;
    Start(program);

    EXPECT_TRUE(
        Within([&] { return home.Read("config/parlune/registry.txt").find("\"Greeting5\" = \"") != std::string::npos; }));
    program.terminate();
    EXPECT_TRUE(program.waitForFinished());
}

TEST_F(Program, Start_AnotherRuns_EndsWellAndLeavesItRunning)
{
    QProcess program;
    Start(program);

    EXPECT_EQ(Run({}).code, 0);
    EXPECT_EQ(program.state(), QProcess::Running);
    program.terminate();
    EXPECT_TRUE(program.waitForFinished());
}

TEST_F(Program, Start_AfterAKill_RunsAgain)
{
    QProcess killed;
    Start(killed);
    killed.kill();
    killed.waitForFinished();
    QProcess program;
    Start(program);

    EXPECT_EQ(program.state(), QProcess::Running);
    program.terminate();
    EXPECT_TRUE(program.waitForFinished());
    EXPECT_EQ(program.exitCode(), 0);
}

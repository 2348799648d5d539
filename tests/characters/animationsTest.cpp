#include "motion/Poses.h"
#include <algorithm>
#include <gtest/gtest.h>
#include <set>

namespace {

const motion::Scripts& All()
{
    static const motion::Scripts scripts = motion::AllScripts();
    return scripts;
}

const motion::Scripted* Find(const std::string& name)
{
    const auto place = std::find_if(All().begin(), All().end(), [&](const auto& script) { return script.name == name; });
    return place == All().end() ? nullptr : &*place;
}

std::vector<std::string> Missing(const std::vector<std::string>& names)
{
    std::vector<std::string> missing;
    for (const std::string& name : names)
        if (!Find(name))
            missing.push_back(name);
    return missing;
}

bool Loops(const motion::Scripted& script)
{
    return std::any_of(script.steps.begin(), script.steps.end(), [](const motion::Step& s) { return !s.branches.empty(); });
}

// How many frames are still shown after a stop in frame `at`; more than there are frames means for ever.
std::size_t FramesToTheEnd(const motion::Scripted& script, std::size_t at)
{
    std::size_t shown = 0;
    while (at < script.steps.size() && shown <= script.steps.size()) {
        const motion::Step& step = script.steps[at];
        at = step.exit ? *step.exit : !step.branches.empty() ? step.branches.front().target : at + 1;
        ++shown;
    }
    return shown;
}

int Hundredths(const motion::Scripted& script)
{
    int sum = 0;
    for (const motion::Step& step : script.steps)
        sum += step.duration;
    return sum;
}

}

TEST(Animations, AllScripts_StandardSet_IsComplete)
{
    const std::vector<std::string> none;
    EXPECT_EQ(Missing({"Acknowledge",
                       "Alert",
                       "Announce",
                       "Blink",
                       "Confused",
                       "Congratulate",
                       "Decline",
                       "DoMagic1",
                       "DoMagic2",
                       "DontRecognize",
                       "Explain",
                       "GestureDown",
                       "GestureLeft",
                       "GestureRight",
                       "GestureUp",
                       "GetAttention",
                       "GetAttentionContinued",
                       "GetAttentionReturn",
                       "Greet",
                       "Hearing1",
                       "Hearing2",
                       "Hide",
                       "Idle1_1",
                       "Idle1_2",
                       "Idle2_1",
                       "Idle2_2",
                       "Idle3_1",
                       "Idle3_2"}),
              none);
    EXPECT_EQ(
        Missing({"LookDown",       "LookLeft",    "LookRight", "LookUp",     "MoveDown",  "MoveLeft",      "MoveRight",
                 "MoveUp",         "Pleased",     "Process",   "Processing", "Read",      "ReadContinued", "ReadReturn",
                 "Reading",        "RestPose",    "Sad",       "Search",     "Searching", "Show",          "StartListening",
                 "StopListening",  "Suggest",     "Surprised", "Think",      "Uncertain", "Wave",          "Write",
                 "WriteContinued", "WriteReturn", "Writing"}),
        none);
}

TEST(Animations, AllScripts_Names_AreUnique)
{
    std::set<std::string> names;
    for (const motion::Scripted& script : All())
        EXPECT_TRUE(names.insert(script.name).second) << script.name;
}

TEST(Animations, AllScripts_NamedReturns_Exist)
{
    for (const motion::Scripted& script : All()) {
        const bool returns = script.transition == engine::Transition::ReturnAnimation;
        EXPECT_EQ(returns, Find(script.returnAnimation) != nullptr) << script.name;
    }
}

TEST(Animations, AllScripts_OnlyTheLastingOnes_Loop)
{
    std::set<std::string> loops;
    for (const motion::Scripted& script : All())
        if (Loops(script))
            loops.insert(script.name);
    const std::set<std::string> lasting{"Hearing1", "Hearing2", "Idle3_2", "Processing", "Reading", "Searching", "Writing"};
    EXPECT_EQ(loops, lasting);
}

TEST(Animations, AllScripts_StoppedInAnyFrame_ComeToTheirEnd)
{
    for (const motion::Scripted& script : All())
        for (std::size_t frame = 0; frame < script.steps.size(); ++frame)
            EXPECT_LE(FramesToTheEnd(script, frame), script.steps.size()) << script.name << " frame " << frame;
}

TEST(Animations, AllScripts_Targets_AreFramesOfTheAnimation)
{
    for (const motion::Scripted& script : All())
        for (const motion::Step& step : script.steps) {
            EXPECT_LT(step.exit.value_or(0), script.steps.size()) << script.name;
            for (const engine::Branch& branch : step.branches)
                EXPECT_LT(branch.target, script.steps.size()) << script.name;
        }
}

TEST(Animations, AllScripts_NotLooping_LastAtMostSevenSeconds)
{
    for (const motion::Scripted& script : All())
        EXPECT_TRUE(Loops(script) || Hundredths(script) <= 700) << script.name << " " << Hundredths(script);
}

TEST(Animations, AllScripts_EveryFrame_IsShownForAWhile)
{
    for (const motion::Scripted& script : All())
        for (const motion::Step& step : script.steps)
            EXPECT_GE(step.duration, 4) << script.name;
}

TEST(Animations, AllScripts_SpeakingFrames_AreLastOnes)
{
    for (const motion::Scripted& script : All())
        for (std::size_t i = 0; i + 1 < script.steps.size(); ++i)
            EXPECT_FALSE(script.steps[i].speaks) << script.name;
}

TEST(Animations, AllScripts_NamedAsSpeaking_Speak)
{
    for (const char* name : {"RestPose", "Greet", "Announce", "Read", "ReadContinued", "Explain", "Wave", "Write", "Alert"})
        EXPECT_TRUE(Find(name)->steps.back().speaks) << name;
    for (const char* name : {"Show", "Hide", "ReadReturn", "Blink", "Reading", "Idle3_2"})
        EXPECT_FALSE(Find(name)->steps.back().speaks) << name;
}

TEST(Animations, Read_ReturnsBy_ReadReturn) { EXPECT_EQ(Find("Read")->returnAnimation, "ReadReturn"); }

TEST(Animations, Gestures_Left_PointToTheViewersRight)
{
    EXPECT_GT(Find("GestureLeft")->steps.back().pose.faceX, 0.5);
    EXPECT_EQ(Find("GestureLeft")->steps.back().pose.left.point, 1);
    EXPECT_LT(Find("GestureRight")->steps.back().pose.faceX, -0.5);
    EXPECT_EQ(Find("GestureRight")->steps.back().pose.right.point, 1);
}

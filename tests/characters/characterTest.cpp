#include "engine/files/AcsWriter.h"
#include "making/MakeCharacter.h"
#include "motion/Poses.h"
#include <algorithm>
#include <gtest/gtest.h>

namespace {

const engine::Character& Nibbin()
{
    static const engine::Character character = making::MakeCharacter(motion::AllScripts());
    return character;
}

const engine::Animation* Find(const std::string& name)
{
    const auto& all = Nibbin().animations;
    const auto place = std::find_if(all.begin(), all.end(), [&](const auto& a) { return a.name == name; });
    return place == all.end() ? nullptr : &*place;
}

}

TEST(Nibbin, Animations_UsedByTheProgram_AreThere)
{
    for (const char* name : {"Show", "Hide", "RestPose", "Greet", "Announce", "Read", "ReadReturn", "Blink"})
        EXPECT_NE(Find(name), nullptr) << name;
}

TEST(Nibbin, ReturnAnimations_OfAllAnimations_Exist)
{
    for (const engine::Animation& animation : Nibbin().animations) {
        const bool returns = animation.transition == engine::Transition::ReturnAnimation;
        EXPECT_EQ(returns, Find(animation.returnAnimation) != nullptr) << animation.name;
    }
}

TEST(Nibbin, Show_FirstFrame_IsEmpty) { EXPECT_TRUE(Find("Show")->frames.front().pictures.empty()); }

TEST(Nibbin, Hide_LastFrame_IsEmpty) { EXPECT_TRUE(Find("Hide")->frames.back().pictures.empty()); }

TEST(Nibbin, WriteCharacterFile_Twice_GivesTheSameBytes)
{
    const engine::Character again = making::MakeCharacter(motion::AllScripts());
    EXPECT_EQ(engine::WriteCharacterFile(Nibbin(), engine::lz::Effort::Quick),
              engine::WriteCharacterFile(again, engine::lz::Effort::Quick));
}

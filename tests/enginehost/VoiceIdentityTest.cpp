#include "engine/hosts/qt/VoiceIdentity.h"
#include "engine/hosts/qt/MouthShapes.h"
#include "engine/hosts/qt/Utterance.h"

using namespace engine;

TEST(VoiceIdentity, ModeIdOfVoice_SameName_IsTheSameForever)
{
    EXPECT_EQ(ModeIdOfVoice("en-US"), "{AF9164BD-77C8-522D-93D6-4FEA8793FE04}");
}

TEST(VoiceIdentity, ModeIdOfVoice_OtherName_Differs) { EXPECT_NE(ModeIdOfVoice("en-US"), ModeIdOfVoice("en")); }

TEST(VoiceIdentity, LanguageIdOfTag_KnownTags_GiveTheirLanguage)
{
    EXPECT_EQ(LanguageIdOfTag("en-us"), 0x0409);
    EXPECT_EQ(LanguageIdOfTag("en-gb"), 0x0809);
    EXPECT_EQ(LanguageIdOfTag("de"), 0x0407);
    EXPECT_EQ(LanguageIdOfTag("pt-br"), 0x0416);
    EXPECT_EQ(LanguageIdOfTag("zh"), 0x0804);
    EXPECT_EQ(LanguageIdOfTag("af"), 0x0436);
}

TEST(VoiceIdentity, LanguageIdOfTag_LongerTag_FallsBackPartByPart)
{
    EXPECT_EQ(LanguageIdOfTag("en-gb-scotland"), 0x0809);
    EXPECT_EQ(LanguageIdOfTag("chr-us-qaaa-x-west"), 0x045C);
}

TEST(VoiceIdentity, LanguageIdOfTag_LanguageWithoutOne_IsZero)
{
    EXPECT_EQ(LanguageIdOfTag("piqd"), 0);
    EXPECT_EQ(LanguageIdOfTag(""), 0);
    EXPECT_EQ(LanguageIdOfTag("-"), 0);
}

TEST(MouthShapes, MouthOfPhoneme_EachGroup_HasItsMouth)
{
    EXPECT_EQ(MouthOfPhoneme("b"), Mouth::Closed);
    EXPECT_EQ(MouthOfPhoneme("f"), Mouth::Closed);
    EXPECT_EQ(MouthOfPhoneme("g"), Mouth::Wide1);
    EXPECT_EQ(MouthOfPhoneme("i:"), Mouth::Wide1);
    EXPECT_EQ(MouthOfPhoneme("tS"), Mouth::Wide2);
    EXPECT_EQ(MouthOfPhoneme("n"), Mouth::Wide2);
    EXPECT_EQ(MouthOfPhoneme("E"), Mouth::Wide3);
    EXPECT_EQ(MouthOfPhoneme("aU"), Mouth::Wide4);
    EXPECT_EQ(MouthOfPhoneme("OI"), Mouth::Medium);
    EXPECT_EQ(MouthOfPhoneme("u:"), Mouth::Narrow);
    EXPECT_EQ(MouthOfPhoneme("w"), Mouth::Narrow);
}

TEST(MouthShapes, MouthOfPhoneme_Silence_IsClosed)
{
    EXPECT_EQ(MouthOfPhoneme("_:"), Mouth::Closed);
    EXPECT_EQ(MouthOfPhoneme(""), Mouth::Closed);
}

TEST(MouthShapes, MouthOfPhoneme_UnknownName_IsALittleOpen) { EXPECT_EQ(MouthOfPhoneme("(en)"), Mouth::Wide2); }

TEST(Utterance, SettingOf_PlainSegment_IsTheVoicesOwn)
{
    const CEspeakLibrary::Setting setting = SettingOf({});

    EXPECT_EQ(setting.wordsPerMinute, 175);
    EXPECT_EQ(setting.pitch, 50);
    EXPECT_EQ(setting.range, 50);
    EXPECT_EQ(setting.volume, 100);
}

TEST(Utterance, SettingOf_Hertz_IsTheMeasuredPitch)
{
    SpeechSegment segment;
    segment.pitchHertz = 115;
    EXPECT_EQ(SettingOf(segment).pitch, 60);
    segment.pitchHertz = 148;
    EXPECT_EQ(SettingOf(segment).pitch, 85);
}

TEST(Utterance, SettingOf_ValuesOutsideTheRange_AreBroughtInside)
{
    SpeechSegment segment;
    segment.pitchHertz = 2000000000;
    segment.wordsPerMinute = 1;
    segment.volume = -5;
    EXPECT_EQ(SettingOf(segment).pitch, 99);
    EXPECT_EQ(SettingOf(segment).wordsPerMinute, 80);
    EXPECT_EQ(SettingOf(segment).volume, 0);
    segment.pitchHertz = 1;
    segment.wordsPerMinute = 100000;
    segment.volume = 2000000000;
    EXPECT_EQ(SettingOf(segment).pitch, 0);
    EXPECT_EQ(SettingOf(segment).wordsPerMinute, 800);
    EXPECT_EQ(SettingOf(segment).volume, 100);
}

TEST(Utterance, SettingOf_Monotone_HasNoRangeAndItsOwnPitches)
{
    SpeechSegment segment;
    segment.monotone = true;
    segment.pitchHertz = 100;
    EXPECT_EQ(SettingOf(segment).range, 0);
    EXPECT_EQ(SettingOf(segment).pitch, 60);
}

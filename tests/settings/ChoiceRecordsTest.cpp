#include "settings/ChoiceRecords.h"
#include <gtest/gtest.h>

namespace {

using settings::Choice;
using settings::ReadChoices;
using settings::WriteChoices;

const std::vector<Choice> Three{
    {"UserName", "", "Ann ä"}, {"SayTime", "1", "0"}, {"TTSTestText", "a\r\nb", std::string("c\n \0d", 5)}};

// The records that end before a place.
std::vector<Choice> WholeBefore(std::size_t place)
{
    std::vector<Choice> whole;
    for (const Choice& choice : Three) {
        whole.push_back(choice);
        if (WriteChoices(whole).size() > place) {
            whole.pop_back();
            break;
        }
    }
    return whole;
}

TEST(ChoiceRecords, ReadChoices_WhatWasWritten_IsTheSame) { EXPECT_EQ(ReadChoices(WriteChoices(Three)), Three); }

TEST(ChoiceRecords, ReadChoices_NoChoices_IsEmpty) { EXPECT_TRUE(ReadChoices(WriteChoices({})).empty()); }

TEST(ChoiceRecords, ReadChoices_CutAnywhere_GivesTheWholeRecordsBeforeTheCut)
{
    const std::string bytes = WriteChoices(Three);
    for (std::size_t size = 0; size < bytes.size(); ++size)
        ASSERT_EQ(ReadChoices(bytes.substr(0, size)), WholeBefore(size)) << "cut to " << size;
}

TEST(ChoiceRecords, ReadChoices_AnyByteChanged_GivesTheRecordsBeforeIt)
{
    const std::string bytes = WriteChoices(Three);
    for (std::size_t place = 0; place < bytes.size(); ++place)
        for (const int bit : {1, 0x20, 0x80}) {
            std::string damaged = bytes;
            damaged[place] = static_cast<char>(damaged[place] ^ bit);
            const std::size_t heading = WriteChoices({}).size();
            ASSERT_EQ(ReadChoices(damaged), place < heading ? std::vector<Choice>() : WholeBefore(place)) << "at " << place;
        }
}

TEST(ChoiceRecords, ReadChoices_SomethingBehindTheLast_GivesTheRecordsBeforeIt)
{
    EXPECT_EQ(ReadChoices(WriteChoices(Three) + std::string(4096, '\0')), Three);
}

TEST(ChoiceRecords, ReadChoices_ARecordLeftOut_GivesThoseBeforeIt)
{
    const std::string first = WriteChoices({Three[0]});
    const std::string two = WriteChoices({Three[0], Three[1]});
    EXPECT_EQ(ReadChoices(first + WriteChoices(Three).substr(two.size())), std::vector<Choice>{Three[0]});
}

TEST(ChoiceRecords, ReadChoices_OtherBytes_AreNone)
{
    for (const std::string& bytes :
         {std::string(), std::string("\n"), std::string(100, '\0'), std::string("[Options]\r\nA=1\r\n"),
          std::string("Parlune choices 2\n"), WriteChoices(Three).substr(1)})
        EXPECT_TRUE(ReadChoices(bytes).empty()) << bytes;
}

TEST(ChoiceRecords, ReadChoices_LengthsBeyondTheBytes_AreDamage)
{
    const std::string heading = WriteChoices({});
    for (const char* lengths : {" 18446744073709551615 1 1", " 99999999999999999999 1 1", " 9 9 9", " -1 1 1", "  1 1 1",
                                " 1 1", "", " 1 1 1 1", " x y z"})
        EXPECT_TRUE(ReadChoices(heading + "0123456789abcdef" + lengths + "\nabc\n").empty()) << lengths;
}

}

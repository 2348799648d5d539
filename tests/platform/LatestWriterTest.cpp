#include "platform/LatestWriter.h"
#include "support/Gate.h"
#include <gtest/gtest.h>
#include <stdexcept>
#include <thread>

namespace {

using platform::CLatestWriter;
using Contents = std::vector<std::string>;

TEST(LatestWriter, Write_AContent_IsWrittenByAnotherThread)
{
    Contents written;
    std::thread::id writer;
    CLatestWriter contents([&](const std::string& content) {
        written.push_back(content);
        writer = std::this_thread::get_id();
    });
    contents.Write("first");
    contents.Finish();

    EXPECT_EQ(written, Contents{"first"});
    EXPECT_NE(writer, std::this_thread::get_id());
}

TEST(LatestWriter, Write_WhileAnotherIsBeingWritten_OnlyTheNewestFollows)
{
    Contents written;
    support::CGate begun, mayEnd;
    CLatestWriter contents([&](const std::string& content) {
        written.push_back(content);
        if (content == "first") {
            begun.Open();
            mayEnd.Wait();
        }
    });
    contents.Write("first");
    begun.Wait();
    contents.Write("second");
    contents.Write("third");
    mayEnd.Open();
    contents.Finish();

    EXPECT_EQ(written, (Contents{"first", "third"}));
}

TEST(LatestWriter, Finish_NothingWritten_Returns)
{
    CLatestWriter contents([](const std::string&) {});
    contents.Finish();
}

TEST(LatestWriter, End_AContentWaits_IsWrittenFirst)
{
    Contents written;
    support::CGate begun, mayEnd;
    std::thread other;
    {
        CLatestWriter contents([&](const std::string& content) {
            written.push_back(content);
            if (content == "first") {
                begun.Open();
                mayEnd.Wait();
            }
        });
        contents.Write("first");
        begun.Wait();
        contents.Write("second");
        other = std::thread([&] { mayEnd.Open(); });
    }
    other.join();
    EXPECT_EQ(written, (Contents{"first", "second"}));
}

TEST(LatestWriter, Write_AfterAFailure_IsWritten)
{
    Contents written;
    CLatestWriter contents([&](const std::string& content) {
        if (content == "first")
            throw std::runtime_error("no disk");
        written.push_back(content);
    });
    contents.Write("first");
    contents.Finish();
    contents.Write("second");
    contents.Finish();
    EXPECT_EQ(written, Contents{"second"});
}

}

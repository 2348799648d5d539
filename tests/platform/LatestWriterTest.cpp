#include "platform/LatestWriter.h"
#include <gtest/gtest.h>
#include <latch>
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
    std::latch begun(1), mayEnd(1);
    CLatestWriter contents([&](const std::string& content) {
        written.push_back(content);
        if (content == "first") {
            begun.count_down();
            mayEnd.wait();
        }
    });
    contents.Write("first");
    begun.wait();
    contents.Write("second");
    contents.Write("third");
    mayEnd.count_down();
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
    std::latch begun(1), mayEnd(1);
    std::thread other;
    {
        CLatestWriter contents([&](const std::string& content) {
            written.push_back(content);
            if (content == "first") {
                begun.count_down();
                mayEnd.wait();
            }
        });
        contents.Write("first");
        begun.wait();
        contents.Write("second");
        other = std::thread([&] { mayEnd.count_down(); });
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

#include "platform/windows/com/Apartment.h"
#include "platform/windows/com/Office.h"
#include "platformwindows/com/TestProgram.h"
#include "windows/standins/Commands.h"
#include "windows/standins/Office.h"
#include <gtest/gtest.h>

TEST(OtherProcessOffice, WordAndExcel_WhileTheyRun_GiveTheirTexts)
{
    const platform::windowsdesktop::CComApartment apartment;
    platform::windowsdesktop::CComOffice office;
    standins::RegisterOffice();
    {
        const comtest::CProgram programs(L"office.exe", L"");
        ASSERT_TRUE(standins::WaitForStandIn(60000, "office"));
        const auto tell = [](const std::string& command) {
            EXPECT_EQ(standins::AskStandIn(command, "office"), standins::Answer::Understood) << command;
        };
        tell("word document \"One\\rTwo \xE2\x82\xAC\"");
        tell("excel size 2 1");
        tell("excel cell 1 1 number 0.5");
        tell("excel cell 2 1 error 2042");
        EXPECT_EQ(office.RunningWord()->DocumentText(), "One\rTwo \xE2\x82\xAC");
        const auto cells = office.RunningExcel()->Selection();
        EXPECT_EQ(cells->Rows(), 2);
        EXPECT_EQ(cells->Columns(), 1);
        EXPECT_EQ(cells->CellText(1, 1), "0.5");
        EXPECT_EQ(cells->CellText(2, 1), "#N/A");
    }
    EXPECT_EQ(office.RunningWord(), nullptr);
    EXPECT_EQ(office.RunningExcel(), nullptr);
    standins::UnregisterOffice();
}

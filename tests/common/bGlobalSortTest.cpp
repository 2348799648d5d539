#include "base/text/Case.h"
#include "common/bGlobal.h"
#include "platform/headless/Desktop.h"
#include <gtest/gtest.h>

namespace {
using Texts = std::vector<std::string>;
}

TEST(bGlobalSort, QuickSort_WithoutCase_KeepsEqualTextsTogether)
{
    CHeadlessDesktop desktop;
    Texts texts{"b", "A", "a", "B"};

    bGlobal::QuickSort(texts);

    for (std::string& text : texts)
        text = text::Upper(text);
    EXPECT_EQ(texts, (Texts{"A", "A", "B", "B"}));
}

TEST(bGlobalSort, QuickSort_WithoutCase_OrdersAllTexts)
{
    CHeadlessDesktop desktop;
    Texts texts{"robby", "Genie", "merlin", "PEEDY", "Ämil", "Éva"};

    bGlobal::QuickSort(texts);

    EXPECT_EQ(texts, (Texts{"Genie", "merlin", "PEEDY", "robby", "Ämil", "Éva"}));
}

TEST(bGlobalSort, QuickSort_WithCase_PutsCapitalsFirst)
{
    CHeadlessDesktop desktop;
    Texts texts{"b", "A", "a", "B"};

    bGlobal::QuickSort(texts, /*caseSensitive*/ true);

    EXPECT_EQ(texts, (Texts{"A", "B", "a", "b"}));
}

TEST(bGlobalSort, QuickSort_AnUnderscore_ComesAfterTheLettersWithoutCase)
{
    CHeadlessDesktop desktop;
    Texts texts{"_", "z"};

    bGlobal::QuickSort(texts);

    EXPECT_EQ(texts, (Texts{"z", "_"}));
}

TEST(bGlobalSort, QuickSort_OneText_ReturnsAtOnce)
{
    CHeadlessDesktop desktop;
    Texts texts{"a"};

    bGlobal::QuickSort(texts);

    EXPECT_EQ(texts, Texts{"a"});
}

TEST(bGlobalSort, QuickSort_NoText_ReturnsAtOnce)
{
    CHeadlessDesktop desktop;
    Texts texts;

    bGlobal::QuickSort(texts);

    EXPECT_TRUE(texts.empty());
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

TEST(bGlobalSort, QuickSort_ARange_LeavesTheOthersWhereTheyAre)
{
    CHeadlessDesktop desktop;
    Texts texts{"z", "d", "c", "b", "a"};

    bGlobal::QuickSort(texts, /*caseSensitive*/ false, 1, 3);

    EXPECT_EQ(texts, (Texts{"z", "b", "c", "d", "a"}));
}

TEST(bGlobalSort, QuickSort_OnlyALowBound_SortsToTheEnd)
{
    CHeadlessDesktop desktop;
    Texts texts{"z", "c", "b", "a"};

    bGlobal::QuickSort(texts, /*caseSensitive*/ true, 1);

    EXPECT_EQ(texts, (Texts{"z", "a", "b", "c"}));
}

TEST(bGlobalSort, QuickSort_LowNotBelowHigh_ChangesNothing)
{
    CHeadlessDesktop desktop;
    Texts texts{"b", "a"};

    bGlobal::QuickSort(texts, /*caseSensitive*/ false, 1, 1);
    bGlobal::QuickSort(texts, /*caseSensitive*/ false, 7, 3);

    EXPECT_EQ(texts, (Texts{"b", "a"}));
    EXPECT_TRUE(desktop.messageBoxes.shown.empty());
}

TEST(bGlobalSort, QuickSort_BoundsOutsideTheTexts_AreReportedAndChangeNothing)
{
    CHeadlessDesktop desktop;
    Texts texts{"b", "a"};

    bGlobal::QuickSort(texts, /*caseSensitive*/ false, 0, 2);
    bGlobal::QuickSort(texts, /*caseSensitive*/ false, -1, 1);

    EXPECT_EQ(texts, (Texts{"b", "a"}));
    ASSERT_EQ(desktop.messageBoxes.shown.size(), 2U);
    EXPECT_EQ(desktop.messageBoxes.Last().Line(1), "Section: bGlobal:QuickSort");
    EXPECT_EQ(desktop.messageBoxes.Last().Line(3), "Error Code: 9");
}

TEST(bGlobalSort, QuickSort_ManyTextsInEveryOrder_AreSorted)
{
    CHeadlessDesktop desktop;
    for (const std::size_t step : {1U, 7U, 9973U}) {
        Texts texts;
        for (std::size_t index = 0; index < 10007; ++index)
            texts.push_back(std::to_string(100000 + index * step % 10007));

        bGlobal::QuickSort(texts);

        EXPECT_EQ(texts.front(), "100000");
        EXPECT_EQ(texts[5000], "105000");
        EXPECT_EQ(texts.back(), "110006");
    }
}

TEST(bGlobalSort, QuickSort_ManyEqualTexts_StaySame)
{
    CHeadlessDesktop desktop;
    Texts texts(5000, "same");

    bGlobal::QuickSort(texts);

    EXPECT_EQ(texts, Texts(5000, "same"));
}

#include "base/text/Text.h"
#include "common/zbErrorTrap.h"
#include "platform/OfficeApplications.h"
#include "platform/Platform.h"
#include "reading/bRead.h"

using zbErrorTrap::IgnoreFailure;

namespace {

constexpr char WordNotOpen[] = "Microsoft Word is not currently open.";
constexpr char ExcelNotOpen[] = "Microsoft Excel is not currently open.";
constexpr char ParagraphEnd[] = "\r";  // The word processor's.
constexpr char LeftQuotationMark[] = "\xE2\x80\x9C";
constexpr char RightQuotationMark[] = "\xE2\x80\x9D";

std::unique_ptr<platform::IWord> RunningWord()
{
    std::unique_ptr<platform::IWord> word;
    IgnoreFailure([&] { word = platform::Current().office.RunningWord(); });
    return word;
}

std::unique_ptr<platform::IExcel> RunningExcel()
{
    std::unique_ptr<platform::IExcel> excel;
    IgnoreFailure([&] { excel = platform::Current().office.RunningExcel(); });
    return excel;
}

void RemoveTrailingLineBreaks(std::string& text)
{
    while (text.ends_with(text::LineBreak))
        text.resize(text.size() - 2);
}

// A text of the word processor with our line ends, no empty lines at its end, and plain quotation marks.
std::string Plain(std::string text)
{
    if (text.find(text::LineBreak) == std::string::npos)
        text = text::Replace(text, ParagraphEnd, text::LineBreak);
    RemoveTrailingLineBreaks(text);
    return text::Replace(text::Replace(text, LeftQuotationMark, "\""), RightQuotationMark, "\"");
}

void AppendCells(platform::ICellRange& cells, std::string& text)
{
    const std::int32_t columns = cells.Columns();
    const std::int32_t rows = cells.Rows();
    for (std::int32_t column = 1; column <= columns; ++column)
        for (std::int32_t row = 1; row <= rows; ++row)
            text.append(cells.CellText(row, column)).append(text::LineBreak);
}

}

std::string bRead::ReadWordDocument()
{
    const std::unique_ptr<platform::IWord> word = RunningWord();
    if (!word)
        return WordNotOpen;
    std::string text;
    IgnoreFailure([&] { text = Plain(word->DocumentText()); });
    return text;
}

std::string bRead::ReadWordSelection()
{
    const std::unique_ptr<platform::IWord> word = RunningWord();
    if (!word)
        return WordNotOpen;
    std::string text;
    IgnoreFailure([&] {
        const std::string selection = word->SelectionText();
        // With nothing selected, it is the character behind the insertion point.
        if (text::Length(selection) != 1)
            text = Plain(selection);
    });
    return text;
}

std::string bRead::ReadExcelSelection()
{
    const std::unique_ptr<platform::IExcel> excel = RunningExcel();
    if (!excel)
        return ExcelNotOpen;
    std::unique_ptr<platform::ICellRange> cells;
    const bool answered = IgnoreFailure([&] { cells = excel->Selection(); });
    if (answered && !cells)
        return ExcelNotOpen;
    std::string text;
    if (cells)
        IgnoreFailure([&] { AppendCells(*cells, text); });
    RemoveTrailingLineBreaks(text);
    return text;
}

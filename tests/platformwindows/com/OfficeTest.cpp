#include "platform/windows/com/Office.h"
#include "platformwindows/com/EngineFixture.h"

using namespace comtest;
using platform::windowsdesktop::CComOffice;

namespace {

constexpr CLSID WordClass = {0x5A0C6A11, 0x3E1F, 0x4D57, {0x9C, 0x61, 0x10, 0x4B, 0x9E, 0x7D, 0x2F, 0x01}};
constexpr CLSID ExcelClass = {0x5A0C6A11, 0x3E1F, 0x4D57, {0x9C, 0x61, 0x10, 0x4B, 0x9E, 0x7D, 0x2F, 0x02}};

class Office : public testing::Test {
protected:
    ~Office() override
    {
        RevokeActiveObject(m_cookie, nullptr);
        application->answers.clear();
        application = {};
        EXPECT_EQ(CTestObject::living, 0);
    }
    void Run(const CLSID& id)
    {
        ASSERT_EQ(RegisterActiveObject(application.Raw(), id, ACTIVEOBJECT_STRONG, &m_cookie), S_OK);
    }
    TestRef New(const std::string& name) { return TestRef(new CTestObject(name, journal)); }

    platform::windowsdesktop::CComApartment apartment;
    std::shared_ptr<Journal> journal = std::make_shared<Journal>();
    TestRef application = New("App");
    CProgramName word{L"Word.Application", WordClass};
    CProgramName excel{L"Excel.Application", ExcelClass};

private:
    DWORD m_cookie = 0;
};

// A sheet whose selection has one cell of that value.
class OfficeCell : public Office {
protected:
    OfficeCell()
    {
        Run(ExcelClass);
        range->answers[L"Cells"] = Giving(cell->Value());
        application->answers[L"Selection"] = Giving(range->Value());
    }
    ~OfficeCell() override
    {
        range->answers.clear();
        cell->answers.clear();
    }
    std::string TextOf(const CVariant& value)
    {
        cell->answers[L"Value"] = Giving(value);
        return CComOffice().RunningExcel()->Selection()->CellText(1, 1);
    }
    std::string TextOf(double number, VARTYPE type = VT_R8)
    {
        CVariant value;
        V_VT(&value.Raw()) = type;
        V_R8(&value.Raw()) = number;
        return TextOf(value);
    }
    std::string TextOfError(int number)
    {
        CVariant value;
        V_VT(&value.Raw()) = VT_ERROR;
        V_ERROR(&value.Raw()) = static_cast<SCODE>(0x800A0000U + static_cast<unsigned>(number));
        return TextOf(value);
    }
    TestRef range = New("Range"), cell = New("Cell");
};

}

TEST(OfficeNotInstalled, Running_WithoutTheName_IsNone)
{
    const platform::windowsdesktop::CComApartment apartment;
    EXPECT_EQ(CComOffice().RunningWord(), nullptr);
    EXPECT_EQ(CComOffice().RunningExcel(), nullptr);
}

TEST_F(Office, Running_OfAnApplicationThatDoesNotRun_IsNoneAndStartsNothing)
{
    bool started = false;
    const CTestClass wordServer(WordClass, [&] {
        started = true;
        return CInterface<IUnknown>();
    });
    EXPECT_EQ(CComOffice().RunningWord(), nullptr);
    EXPECT_EQ(CComOffice().RunningExcel(), nullptr);
    EXPECT_FALSE(started);
}

TEST_F(Office, Word_WithADocument_GivesItsWholeText)
{
    const TestRef document = New("Document"), content = New("Content");
    application->answers[L"ActiveDocument"] = Giving(document->Value());
    document->answers[L"Content"] = Giving(content->Value());
    content->answers[L"Text"] = Giving(std::string("One\rTwo\r", 8));
    Run(WordClass);
    EXPECT_EQ(CComOffice().RunningWord()->DocumentText(), "One\rTwo\r");
    EXPECT_EQ(*journal, (Journal{"get App.ActiveDocument", "get Document.Content", "get Content.Text"}));
}

TEST_F(Office, Word_WithASelection_GivesItsText)
{
    const TestRef selection = New("Selection");
    application->answers[L"Selection"] = Giving(selection->Value());
    selection->answers[L"Text"] = Giving(std::string("\xE2\x80\x9CHi\xE2\x80\x9D\0.", 10));
    Run(WordClass);
    EXPECT_EQ(CComOffice().RunningWord()->SelectionText(), std::string("\xE2\x80\x9CHi\xE2\x80\x9D\0.", 10));
    EXPECT_EQ(*journal, (Journal{"get App.Selection", "get Selection.Text"}));
}

TEST_F(Office, Word_WithoutDocument_GivesTheServersCode)
{
    application->answers[L"ActiveDocument"] = Raising(Code(0x800A1098), L"no document is open");
    Run(WordClass);
    const auto running = CComOffice().RunningWord();
    EXPECT_EQ(FailureNumber([&] { running->DocumentText(); }), Code(0x800A1098));
}

TEST_F(Office, Word_OneMegabyteOfText_ArrivesWhole)
{
    const TestRef selection = New("Selection");
    application->answers[L"Selection"] = Giving(selection->Value());
    selection->answers[L"Text"] = Giving(std::string(1 << 20, 'x'));
    Run(WordClass);
    EXPECT_EQ(CComOffice().RunningWord()->SelectionText().size(), 1u << 20);
}

TEST_F(Office, Excel_Selection_CountsItsColumnsAndRows)
{
    const TestRef range = New("Range"), columns = New("Columns"), rows = New("Rows");
    application->answers[L"Selection"] = Giving(range->Value());
    range->answers[L"Columns"] = Giving(columns->Value());
    range->answers[L"Rows"] = Giving(rows->Value());
    columns->answers[L"Count"] = Giving(std::int32_t{2});
    rows->answers[L"Count"] = Giving(std::int32_t{1048576});
    Run(ExcelClass);
    const auto cells = CComOffice().RunningExcel()->Selection();
    EXPECT_EQ(cells->Columns(), 2);
    EXPECT_EQ(cells->Rows(), 1048576);
    EXPECT_EQ(*journal,
              (Journal{"get App.Selection", "get Range.Columns", "get Columns.Count", "get Range.Rows", "get Rows.Count"}));
}

TEST_F(Office, Excel_SelectionThatIsNoObject_IsNone)
{
    Run(ExcelClass);
    const auto running = CComOffice().RunningExcel();
    EXPECT_EQ(running->Selection(), nullptr);
    application->answers[L"Selection"] = Giving(std::string("chart"));
    EXPECT_EQ(running->Selection(), nullptr);
    application->answers[L"Selection"] = Giving(CVariant(CInterface<IDispatch>()));
    EXPECT_EQ(running->Selection(), nullptr);
}

TEST_F(Office, Excel_SelectionThatIsNoRange_Fails438)
{
    const TestRef series = New("Series");
    series->missing.insert(L"Columns");
    application->answers[L"Selection"] = Giving(series->Value());
    Run(ExcelClass);
    const auto cells = CComOffice().RunningExcel()->Selection();
    ASSERT_NE(cells, nullptr);
    EXPECT_EQ(FailureNumber([&] { cells->Columns(); }), 438);
}

TEST_F(OfficeCell, CellText_Asked_NamesRowThenColumnAndTakesTheValue)
{
    CComOffice().RunningExcel()->Selection()->CellText(3, 1);
    EXPECT_EQ(*journal, (Journal{"get App.Selection", "get-or-call Range.Cells I4 3 I4 1", "get Cell.Value"}));
}

TEST_F(OfficeCell, CellText_OfManyCells_LooksTheMembersUpOnce)
{
    const auto cells = CComOffice().RunningExcel()->Selection();
    cells->CellText(1, 1);
    cells->CellText(2, 1);
    EXPECT_EQ(range->nameQueries, 1);
    EXPECT_EQ(cell->nameQueries, 1);
}

TEST_F(OfficeCell, CellText_OfTexts_IsTheText)
{
    EXPECT_EQ(TextOf(std::string("Gr\xC3\xBC\xC3\x9F"
                                 "e\0.",
                                 9)),
              std::string("Gr\xC3\xBC\xC3\x9F"
                          "e\0.",
                          9));
    EXPECT_EQ(TextOf(std::string()), "");
}

TEST_F(OfficeCell, CellText_OfNothing_IsEmpty)
{
    CVariant null;
    V_VT(&null.Raw()) = VT_NULL;
    EXPECT_EQ(TextOf(CVariant()), "");
    EXPECT_EQ(TextOf(null), "");
}

TEST_F(OfficeCell, CellText_OfNumbers_HasNoMoreDigitsThanTheNumber)
{
    EXPECT_EQ(TextOf(42.0), "42");
    EXPECT_EQ(TextOf(-0.1), "-0.1");
    EXPECT_EQ(TextOf(1234567.25), "1234567.25");
    EXPECT_EQ(TextOf(1e300), "1E+300");
    EXPECT_EQ(TextOf(CVariant(std::int32_t{-7})), "-7");
}

TEST_F(OfficeCell, CellText_OfTruths_IsAWord)
{
    EXPECT_EQ(TextOf(CVariant(true)), "True");
    EXPECT_EQ(TextOf(CVariant(false)), "False");
}

TEST_F(OfficeCell, CellText_OfDatesAndTimes_IsWrittenAsTheUserDoes)
{
    EXPECT_EQ(TextOf(39448.0, VT_DATE), "1/1/2008");
    EXPECT_EQ(TextOf(39448.75, VT_DATE), "1/1/2008 6:00:00 PM");
    EXPECT_EQ(TextOf(0.5, VT_DATE), "12:00:00 PM");
}

TEST_F(OfficeCell, CellText_OfAmounts_IsTheNumber)
{
    CVariant amount;
    V_VT(&amount.Raw()) = VT_CY;
    V_CY(&amount.Raw()).int64 = 12345000;
    EXPECT_EQ(TextOf(amount), "1234.5");
}

TEST_F(OfficeCell, CellText_OfErrors_IsWhatTheSheetShows)
{
    EXPECT_EQ(TextOfError(2000), "#NULL!");
    EXPECT_EQ(TextOfError(2007), "#DIV/0!");
    EXPECT_EQ(TextOfError(2015), "#VALUE!");
    EXPECT_EQ(TextOfError(2023), "#REF!");
    EXPECT_EQ(TextOfError(2029), "#NAME?");
    EXPECT_EQ(TextOfError(2036), "#NUM!");
    EXPECT_EQ(TextOfError(2042), "#N/A");
    EXPECT_EQ(TextOfError(2099), "Error 2099");
}

TEST_F(OfficeCell, CellText_OfSeveralValues_Fails13)
{
    CVariant list;
    V_VT(&list.Raw()) = VT_ARRAY | VT_I4;
    V_ARRAY(&list.Raw()) = SafeArrayCreateVector(VT_I4, 0, 3);
    EXPECT_EQ(FailureNumber([&] { TextOf(list); }), 13);
}

TEST_F(OfficeCell, CellText_OfARangeThatGivesValuesItself_IsTheValue)
{
    range->answers[L"Cells"] = Giving(std::int32_t{5});
    EXPECT_EQ(CComOffice().RunningExcel()->Selection()->CellText(1, 1), "5");
}

TEST_F(OfficeCell, CellText_AThousandTimes_LeavesNoHandle)
{
    const auto cells = CComOffice().RunningExcel()->Selection();
    cells->CellText(1, 1);
    DWORD before = 0, after = 0;
    GetProcessHandleCount(GetCurrentProcess(), &before);
    for (std::int32_t row = 1; row <= 1000; ++row)
        cells->CellText(row, 1);
    GetProcessHandleCount(GetCurrentProcess(), &after);
    EXPECT_EQ(after, before);
}

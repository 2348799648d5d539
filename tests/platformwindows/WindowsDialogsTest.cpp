#include "Support.h"
#include "platform/windows/WindowsFileDialogs.h"
#include "platform/windows/WindowsMessageBoxes.h"
#include <algorithm>

namespace platform::windowsdesktop {
namespace {
using namespace std::string_literals;
constexpr int TextControl = 65535;
constexpr int NameControl = 1148;

// What a message box looked like when it stood.
struct Seen {
    std::string text, title;
    std::vector<std::string> buttons;
    int defaultButton = 0;
    HWND owner = nullptr;
    std::string icon;
};

BOOL CALLBACK TakeButton(HWND control, LPARAM seen)
{
    char name[32] = {};
    GetClassNameA(control, name, 32);
    if (std::string(name) != "Button")
        return TRUE;
    Seen& noted = *reinterpret_cast<Seen*>(seen);
    noted.buttons.push_back(TextOf(control));
    if ((SendMessageW(control, WM_GETDLGCODE, 0, 0) & DLGC_DEFPUSHBUTTON) != 0)
        noted.defaultButton = GetDlgCtrlID(control);
    return TRUE;
}

Seen Look(HWND dialog)
{
    Seen seen;
    seen.text = TextOf(GetDlgItem(dialog, TextControl));
    seen.title = TextOf(dialog);
    seen.owner = GetWindow(dialog, GW_OWNER);
    EnumChildWindows(dialog, TakeButton, reinterpret_cast<LPARAM>(&seen));
    return seen;
}

struct Boxes : testing::Test {
    BoxAnswer Show(const MessageBox& box, const CDialogAnswers::Answer& answer)
    {
        const CDialogAnswers answers({[&](HWND dialog) {
            seen = Look(dialog);
            return answer(dialog);
        }});
        return boxes.Show(box);
    }
    CWindowsMessageBoxes boxes;
    Seen seen;
};

bool Close(HWND dialog) { return PostMessageW(dialog, WM_CLOSE, 0, 0) != 0; }
}

TEST_F(Boxes, Show_TextAndTitle_AreShownAsTheyAre)
{
    Show({"Gr\xC3\xBC\xC3\x9F\x65 \xE6\x97\xA5\r\n\r\nTwo && one & all", "Parlune"}, Press(IDOK));
    EXPECT_EQ(seen.text, "Gr\xC3\xBC\xC3\x9F\x65 \xE6\x97\xA5\r\n\r\nTwo && one & all");
    EXPECT_EQ(seen.title, "Parlune");
}

TEST_F(Boxes, Show_ANulInTheText_CutsNothingOff)
{
    Show({"one\0two"s, "Parlune"}, Press(IDOK));
    EXPECT_EQ(seen.text, "one two");
}

TEST_F(Boxes, Show_EveryButton_IsItsAnswer)
{
    EXPECT_EQ(Show({"t", "Parlune", BoxButtons::Ok}, Press(IDOK)), BoxAnswer::Ok);
    EXPECT_EQ(Show({"t", "Parlune", BoxButtons::OkCancel}, Press(IDOK)), BoxAnswer::Ok);
    EXPECT_EQ(Show({"t", "Parlune", BoxButtons::OkCancel}, Press(IDCANCEL)), BoxAnswer::Cancel);
    EXPECT_EQ(Show({"t", "Parlune", BoxButtons::YesNo}, Press(IDYES)), BoxAnswer::Yes);
    EXPECT_EQ(Show({"t", "Parlune", BoxButtons::YesNo}, Press(IDNO)), BoxAnswer::No);
}

TEST_F(Boxes, Show_TheButtons_AreThoseOfTheKind)
{
    Show({"t", "Parlune", BoxButtons::Ok}, Press(IDOK));
    EXPECT_EQ(seen.buttons.size(), 1U);
    Show({"t", "Parlune", BoxButtons::OkCancel}, Press(IDOK));
    EXPECT_EQ(seen.buttons.size(), 2U);
    Show({"t", "Parlune", BoxButtons::YesNo}, Press(IDYES));
    EXPECT_EQ(seen.buttons.size(), 2U);
}

TEST_F(Boxes, Show_Closed_AnswersWithCancelOrOk)
{
    EXPECT_EQ(Show({"t", "Parlune", BoxButtons::OkCancel}, Close), BoxAnswer::Cancel);
    EXPECT_EQ(Show({"t", "Parlune", BoxButtons::Ok}, Close), BoxAnswer::Ok);
}

TEST_F(Boxes, Show_TheDefaultButton_IsTheFirstUnlessAskedForTheSecond)
{
    Show({"t", "Parlune", BoxButtons::OkCancel}, Press(IDOK));
    EXPECT_EQ(seen.defaultButton, IDOK);
    Show({"t", "Parlune", BoxButtons::OkCancel, BoxIcon::Question, true}, Press(IDOK));
    EXPECT_EQ(seen.defaultButton, IDCANCEL);
    Show({"t", "Parlune", BoxButtons::YesNo, BoxIcon::Question, true}, Press(IDYES));
    EXPECT_EQ(seen.defaultButton, IDNO);
}

TEST_F(Boxes, Show_EveryIcon_IsTheSystemsOwn)
{
    const std::vector<std::pair<BoxIcon, const char*>> icons{{BoxIcon::Critical, IDI_ERROR},
                                                             {BoxIcon::Question, IDI_QUESTION},
                                                             {BoxIcon::Exclamation, IDI_WARNING},
                                                             {BoxIcon::Information, IDI_INFORMATION}};
    for (const auto& [icon, name] : icons) {
        HICON shown = nullptr;
        Show({"t", "Parlune", BoxButtons::Ok, icon}, [&shown](HWND dialog) {
            const HWND picture = FindWindowExW(dialog, nullptr, L"Static", nullptr);
            shown = reinterpret_cast<HICON>(SendMessageW(picture, STM_GETICON, 0, 0));
            return Press(IDOK)(dialog);
        });
        EXPECT_EQ(shown, LoadIconA(nullptr, name));
    }
}

TEST_F(Boxes, Show_TheActiveWindow_OwnsTheBox)
{
    const CTestWindow window({}, WS_OVERLAPPEDWINDOW | WS_VISIBLE);
    SetActiveWindow(window.Get());
    bool enabled = true;
    Show({"t", "Parlune"}, [&](HWND dialog) {
        enabled = IsWindowEnabled(window.Get()) != 0;
        return Press(IDOK)(dialog);
    });
    EXPECT_EQ(seen.owner, window.Get());
    EXPECT_FALSE(enabled);
    EXPECT_TRUE(IsWindowEnabled(window.Get()));
}

TEST_F(Boxes, Show_OnlyAnUnseenWindowIsActive_NobodyOwnsTheBox)
{
    const CTestWindow window({}, WS_OVERLAPPEDWINDOW);
    SetActiveWindow(window.Get());
    Show({"t", "Parlune"}, Press(IDOK));
    EXPECT_NE(seen.owner, window.Get());
}

TEST_F(Boxes, Show_AWindowThatIsNotActive_OwnsTheBoxOfAnUnseenOne)
{
    const CTestWindow unseen({}, WS_OVERLAPPEDWINDOW);
    const CTestWindow seenWindow({}, WS_OVERLAPPEDWINDOW | WS_VISIBLE);
    SetActiveWindow(unseen.Get());
    Show({"t", "Parlune"}, Press(IDOK));
    EXPECT_EQ(seen.owner, seenWindow.Get());
}

TEST_F(Boxes, Show_ABoxAboveABox_IsAnsweredFirst)
{
    const CTestWindow window({}, WS_OVERLAPPEDWINDOW | WS_VISIBLE);
    SetActiveWindow(window.Get());
    BoxAnswer inner = BoxAnswer::Ok;
    const CDialogAnswers answers({[&](HWND dialog) {
        const CDialogAnswers nested({Press(IDNO)});
        inner = boxes.Show({"inner", "Parlune", BoxButtons::YesNo});
        return Press(IDCANCEL)(dialog);
    }});
    EXPECT_EQ(boxes.Show({"outer", "Parlune", BoxButtons::OkCancel}), BoxAnswer::Cancel);
    EXPECT_EQ(inner, BoxAnswer::No);
}

namespace {
// The field for the name; the dialog makes it last, so that it stands for the whole.
HWND NameField(HWND dialog)
{
    const HWND combo = GetDlgItem(dialog, NameControl);
    const HWND inner = combo != nullptr ? FindWindowExW(combo, nullptr, L"ComboBox", nullptr) : nullptr;
    return inner != nullptr ? FindWindowExW(inner, nullptr, L"Edit", nullptr) : nullptr;
}

CDialogAnswers::Answer Type(const std::string& name, int button = IDOK)
{
    return [name, button](HWND dialog) {
        const HWND field = NameField(dialog);
        if (field == nullptr)
            return false;
        SendMessageW(field, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(ToWide(name).c_str()));
        return PostMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(button), 0) != 0;
    };
}

struct Dialogs : testing::Test {
    std::string Ask(const std::vector<CDialogAnswers::Answer>& steps)
    {
        const CDialogAnswers answers(steps);
        const std::string path = dialogs.Ask(dialog);
        EXPECT_TRUE(answers.AllGiven());
        return path;
    }
    void ForOpening()
    {
        dialog.mode = FileDialog::Mode::Open;
        dialog.fileMustExist = true;
    }
    void ForSaving()
    {
        dialog.mode = FileDialog::Mode::Save;
        dialog.pathMustExist = dialog.confirmOverwrite = true;
    }
    CTemporaryFolder folder;
    CWindowsFileDialogs dialogs;
    FileDialog dialog{.filter = "Text Documents (*.txt)\0*.txt\0All Files\0*.*"s,
                      .filterIndex = 2,
                      .initialFolder = folder.Path(),
                      .initialFile = "",
                      .fileLimit = 256,
                      .defaultExtension = "TXT",
                      .title = "Read Text File"};
};
}

TEST_F(Dialogs, Open_AFileOfTheInitialFolder_IsItsPath)
{
    ForOpening();
    folder.Write("a.txt", "");
    EXPECT_EQ(Ask({Type("a.txt")}), folder.Path("a.txt"));
}

TEST_F(Dialogs, Open_Cancelled_IsNothing)
{
    ForOpening();
    EXPECT_EQ(Ask({Press(IDCANCEL)}), "");
}

TEST_F(Dialogs, Open_ItsTitle_IsTheOneAskedFor)
{
    ForOpening();
    std::string title;
    Ask({[&](HWND window) {
        title = TextOf(window);
        return Press(IDCANCEL)(window);
    }});
    EXPECT_EQ(title, "Read Text File");
}

TEST_F(Dialogs, Open_AFileThatIsMissing_IsRefusedByTheDialog)
{
    ForOpening();
    EXPECT_EQ(Ask({Type("none.txt"), Press(IDOK), Press(IDCANCEL)}), "");
}

TEST_F(Dialogs, Open_AFileWithoutExtension_StaysItself)
{
    ForOpening();
    folder.Write("README", "");
    EXPECT_EQ(Ask({Type("README")}), folder.Path("README"));
}

TEST_F(Dialogs, Open_ANewNameWithoutExtension_GetsTheDefaultOne)
{
    dialog.mode = FileDialog::Mode::Open;
    EXPECT_EQ(Ask({Type("new")}), folder.Path("new.TXT"));
}

TEST_F(Dialogs, Save_ANewNameWithoutExtension_GetsTheDefaultOne)
{
    ForSaving();
    EXPECT_EQ(Ask({Type("new")}), folder.Path("new.TXT"));
}

TEST_F(Dialogs, Save_ANameWithAnExtension_KeepsIt)
{
    ForSaving();
    EXPECT_EQ(Ask({Type("new.log")}), folder.Path("new.log"));
}

TEST_F(Dialogs, Save_AnExistingFile_IsAskedFor)
{
    ForSaving();
    folder.Write("a.txt", "");
    EXPECT_EQ(Ask({Type("a.txt"), Press(IDYES)}), folder.Path("a.txt"));
    EXPECT_EQ(Ask({Type("a.txt"), Press(IDNO), Press(IDCANCEL)}), "");
}

TEST_F(Dialogs, Save_AFolderThatIsMissing_IsRefusedByTheDialog)
{
    ForSaving();
    EXPECT_EQ(Ask({Type("none\\a.txt"), Press(IDOK), Press(IDCANCEL)}), "");
}

TEST_F(Dialogs, Ask_LettersOfTheCodePage_AreKept)
{
    ForSaving();
    EXPECT_EQ(Ask({Type("Gr\xC3\xBC\xC3\x9F\x65.txt")}), folder.Path("Gr\xC3\xBC\xC3\x9F\x65.txt"));
}

TEST_F(Dialogs, Ask_TheCurrentFolder_StaysWhatItWas)
{
    ForOpening();
    CTemporaryFolder other;
    const CCurrentFolder here(other.Path());
    folder.Write("a.txt", "");
    Ask({Type(folder.Path("a.txt"))});
    wchar_t now[MAX_PATH] = {};
    GetCurrentDirectoryW(MAX_PATH, now);
    EXPECT_EQ(FromWide(now), other.Path());
}

TEST_F(Dialogs, Ask_APathLongerThanTheLimit_FailsClearly)
{
    ForSaving();
    dialog.fileLimit = folder.Path().size() + 10;
    std::int32_t number = 0;
    {
        const CDialogAnswers answers({Type("a-name-that-is-too-long.txt")});
        number = FailureOf([&] { dialogs.Ask(dialog); });
    }
    EXPECT_EQ(number, 52);
}

TEST_F(Dialogs, Ask_AnInitialName_StandsInTheField)
{
    ForSaving();
    dialog.initialFile = "draft.txt";
    std::string name;
    Ask({[&](HWND window) {
        name = NameField(window) != nullptr ? TextOf(NameField(window)) : "";
        return !name.empty() && Press(IDCANCEL)(window);
    }});
    EXPECT_EQ(name, "draft.txt");
}

TEST_F(Dialogs, Ask_AFilterBeyondTheLast_MeansTheLast)
{
    ForOpening();
    dialog.filterIndex = 9;
    std::string filter;
    Ask({[&](HWND window) {
        filter = TextOf(GetDlgItem(window, 1136));
        return Press(IDCANCEL)(window);
    }});
    EXPECT_EQ(filter, "All Files");
}

TEST_F(Dialogs, Ask_WhileTheUserSeesNoWindow_TheMainWindowOwnsTheDialog)
{
    const CTestWindow unseen({}, WS_OVERLAPPEDWINDOW);
    dialogs.UseOwner(unseen.Get());
    ForOpening();
    HWND owner = nullptr;
    Ask({[&](HWND window) {
        owner = GetWindow(window, GW_OWNER);
        return Press(IDCANCEL)(window);
    }});
    EXPECT_EQ(owner, unseen.Get());
    EXPECT_FALSE(IsWindowVisible(unseen.Get()));
    EXPECT_TRUE(IsWindowEnabled(unseen.Get()));
}

TEST_F(Dialogs, Ask_WhileTheUserSeesAWindow_ThatOneOwnsTheDialog)
{
    const CTestWindow unseen({}, WS_OVERLAPPEDWINDOW);
    const CTestWindow seenWindow({}, WS_OVERLAPPEDWINDOW | WS_VISIBLE);
    dialogs.UseOwner(unseen.Get());
    ForOpening();
    HWND owner = nullptr;
    Ask({[&](HWND window) {
        owner = GetWindow(window, GW_OWNER);
        return Press(IDCANCEL)(window);
    }});
    EXPECT_EQ(owner, seenWindow.Get());
}

// The first form of the dialog answers in the code page, whose replacements no file can have in its name.
TEST_F(Dialogs, Ask_LettersThatTheCodePageLacks_AreReplacedInTheAnswer)
{
    ForOpening();
    folder.MakeFolder("\xE6\x97\xA5\xE6\x9C\xAC");
    folder.Write("\xE6\x97\xA5\xE6\x9C\xAC\\a.txt", "");
    dialog.initialFolder = folder.Path("\xE6\x97\xA5\xE6\x9C\xAC");
    EXPECT_EQ(Ask({Type("a.txt")}), folder.Path(FromAnsi(ToAnsi("\xE6\x97\xA5\xE6\x9C\xAC")) + "\\a.txt"));
}

}

#include "ui/TextEditor.h"
#include "character/bParlune.h"
#include "common/Version.h"
#include "common/bGlobal.h"
#include "common/zbErrorTrap.h"
#include "common/zbGetFileName.h"
#include "platform/Files.h"
#include "platform/KeptTexts.h"
#include "platform/Platform.h"
#include "reading/bRead.h"
#include "settings/OptionsRecord.h"
#include "settings/bOptions.h"
#include "ui/EditorDocument.h"
#include "ui/KeptText.h"
#include "ui/StatusBar.h"
#include "ui/frmParlune.h"
#include <exception>

namespace {

constexpr char Module[] = "Parlune";
constexpr char NewFileTitle[] = "Parlune - [New File]";
constexpr std::string_view ModifiedMark = " *";
constexpr std::int32_t ReadTab = 4;

void Empty(const std::string& title)
{
    if (ui::Document().modified)
        textEditor::SaveFile(ui::Document().currentFile);
    keptText::KeepChanged();
    MainWindow().txtRead.SetText("");
    ui::ShowUnmodified("", title);
    MainWindow().tabMain.Select(ReadTab);
}

std::string AskWhereToSave()
{
    settings::OptionsRecord& options = settings::Options();
    if (options.LastFolder.empty())
        options.LastFolder = platform::Current().files.CurrentFolder();
    return zbGetFileName::GetFileName("Save", "Text Documents (*.txt)|*.txt|All Files|*.*", 2, options.LastFolder, "", "TXT",
                                      "Save Text File");
}

void Write(const std::string& file)
{
    const std::string text = MainWindow().txtRead.CopyOfText();
    keptText::KeepFormer(file, text);
    try {
        platform::Current().files.WriteLine(file, text);
    } catch (const std::exception&) {
        keptText::KeepChanged();
        throw;
    }
    keptText::Saved();
}

std::string TitleOfModified(const std::string& title)
{
    return (title.find('[') == std::string::npos ? NewFileTitle : title) + std::string(ModifiedMark);
}

struct Button {
    const char* key;
    void (*command)();
};
constexpr Button Buttons[] = {{"NEW", textEditor::FileNew},
                              {"OPEN", textEditor::FileOpen},
                              {"SAVE", textEditor::FileSave},
                              {"READ", textEditor::FileRead},
                              {"STOP", textEditor::Stop}};

void Run(const char* section, void (*command)()) { zbErrorTrap::CGuard(Module, section)(command); }

}

void textEditor::FileNew() { Empty(NewFileTitle); }

void textEditor::FileClose() { Empty(version::Title); }

void textEditor::FileOpen()
{
    bOptions::OpenFile("");
    MainWindow().tabMain.Select(ReadTab);
}

void textEditor::FileSave()
{
    if (!MainWindow().txtRead.IsEmpty())
        SaveFile(ui::Document().currentFile);
    // Deliberate: also after a cancelled save.
    std::string title = MainWindow().Caption();
    if (title.ends_with(ModifiedMark))
        MainWindow().SetCaption(title.substr(0, title.size() - ModifiedMark.size()));
}

void textEditor::FileRead() { bRead::ReadText(); }

void textEditor::Stop() { bParlune::CharStop(); }

void textEditor::SaveFile(const std::string& fileName)
{
    const zbErrorTrap::CGuard guard(Module, "SaveFile");
    guard([&] {
        std::string file = fileName;
        if (file.empty() && !MainWindow().txtRead.IsEmpty())
            file = AskWhereToSave();
        if (file.empty())
            return;
        settings::Options().LastFolder = bGlobal::FolderPart(file);
        Write(file);
        ui::ShowUnmodifiedFile(file);
    });
}

void textEditor::txtRead_Change()
{
    ui::Document().modified = true;
    platform::Current().keptTexts.Changed();
    statusBar::Edited();
    const std::string& title = MainWindow().Caption();
    if (!title.ends_with(ModifiedMark))
        MainWindow().SetCaption(TitleOfModified(title));
}

void textEditor::tlbToolbar_ButtonClick(const std::string& key)
{
    for (const Button& button : Buttons)
        if (key == button.key)
            Run("tlbToolbar_ButtonClick", button.command);
}

void textEditor::mnuFileNew_Click() { Run("mnuFileNew_Click", FileNew); }
void textEditor::mnuFileOpen_Click() { Run("mnuFileOpen_Click", FileOpen); }
void textEditor::mnuFileSave_Click() { Run("mnuFileSave_Click", FileSave); }
void textEditor::mnuFileRead_Click() { Run("mnuFileRead_Click", FileRead); }
void textEditor::mnuFileStop_Click() { Run("mnuFileStop_Click", Stop); }
void textEditor::mnuFileClose_Click() { Run("mnuFileClose_Click", FileClose); }

#include "ui/EditorDocument.h"
#include "common/ProgramState.h"
#include "common/Version.h"
#include "settings/OptionsJournal.h"
#include "ui/frmParlune.h"

namespace ui {

// Its file is an option; who asks for it may be about to change it.
EditorDocument& Document()
{
    optionsJournal::Hint();
    return common::StateOf<EditorDocument>();
}

void ShowUnmodified(const std::string& file, const std::string& title)
{
    Document().currentFile = file;
    Document().modified = false;
    MainWindow().SetCaption(title);
}

void ShowUnmodifiedFile(const std::string& file) { ShowUnmodified(file, std::string(version::Title) + " - [" + file + "]"); }

}

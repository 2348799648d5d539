#include "ui/KeptText.h"
#include "common/zbErrorTrap.h"
#include "platform/Files.h"
#include "platform/KeptTexts.h"
#include "platform/Platform.h"
#include "ui/EditorDocument.h"
#include "ui/StatusBar.h"
#include "ui/frmParlune.h"

namespace {

using platform::Current;
using zbErrorTrap::IgnoreFailure;

bool IsChanged() { return ui::Document().modified && !MainWindow().txtRead.IsEmpty(); }

platform::EditedText TextOfEditor() { return {keptText::File(), MainWindow().txtRead.CopyOfText()}; }

std::optional<platform::EditedText> UnsavedText() { return IsChanged() ? std::optional(TextOfEditor()) : std::nullopt; }

void TellThatItWasKept() { statusBar::Tell("The former text was kept"); }

}

void keptText::Follow() { Current().keptTexts.Follow(UnsavedText); }

// A text that could not be kept has its copy at least.
void keptText::KeepChanged()
{
    IgnoreFailure([] {
        if (!IsChanged())
            return;
        if (!Current().keptTexts.Keep(TextOfEditor()))
            return;
        TellThatItWasKept();
        Current().keptTexts.ForgetCopy();
    });
}

void keptText::KeepFormer(const std::string& file, const std::string& text)
{
    IgnoreFailure([&] {
        if (Current().keptTexts.KeepFormer(file, text))
            TellThatItWasKept();
    });
}

void keptText::Saved()
{
    IgnoreFailure([] { Current().keptTexts.ForgetCopy(); });
}

void keptText::KeepForNextStart()
{
    IgnoreFailure([] {
        if (IsChanged())
            Current().keptTexts.CopyNow();
    });
}

void keptText::TellWhatWasLeft()
{
    IgnoreFailure([] {
        const std::string path = Current().keptTexts.TakeLeftBehind();
        if (!path.empty())
            statusBar::Tell("Your unsaved text was kept: " + path);
    });
}

std::string keptText::File()
{
    const std::string& file = ui::Document().currentFile;
    return Current().files.Kind(file) == platform::EntryKind::Folder ? "" : file;
}

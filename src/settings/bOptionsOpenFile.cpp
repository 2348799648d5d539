#include "base/text/Text.h"
#include "common/Version.h"
#include "common/bGlobal.h"
#include "common/zbErrorTrap.h"
#include "common/zbGetFileName.h"
#include "platform/Clock.h"
#include "platform/EventPump.h"
#include "platform/Files.h"
#include "platform/MessageBoxes.h"
#include "platform/Platform.h"
#include "platform/Screen.h"
#include "settings/OptionsRecord.h"
#include "settings/bOptions.h"
#include "ui/EditorDocument.h"
#include "ui/KeptText.h"
#include "ui/frmParlune.h"
#include <optional>

namespace {

using platform::BoxAnswer;
using platform::BoxButtons;
using platform::BoxIcon;
using platform::Current;

constexpr char Module[] = "bOptions";
constexpr std::int64_t PatienceSeconds = 30;

BoxAnswer Warn(const std::string& text, BoxButtons buttons)
{
    return Current().messageBoxes.Show({text, version::Title, buttons, BoxIcon::Exclamation});
}

// Whole seconds of a clock that nobody sets: a changed wall clock asks no question.
std::int64_t Seconds() { return Current().clock.SteadyMilliseconds() / 1000; }

// Asks once, after half a minute, whether the user wants to wait; from then on lets events run every half minute.
class CPatience {
public:
    void Start() { m_start = Seconds(); }
    bool MayGoOn()
    {
        if (Seconds() - m_start <= PatienceSeconds)
            return true;
        if (!m_asked && Warn("File Open has taken more than 30 seconds.  Continue?", BoxButtons::YesNo) == BoxAnswer::No)
            return false;
        m_asked = true;
        Start();
        Current().events.RunPendingEvents();
        return true;
    }

private:
    std::int64_t m_start = 0;
    bool m_asked = false;
};

// Deliberate: after a cancelled dialog a text without a file has the current folder for its file.
std::string AskWhatToOpen()
{
    std::string& currentFile = ui::Document().currentFile;
    if (currentFile.empty())
        currentFile = Current().files.CurrentFolder();
    const std::string& last = settings::Options().LastFolder;
    return zbGetFileName::GetFileName("Open", "Text Documents (*.txt)|*.txt|All Files|*.*", 2,
                                      last.empty() ? Current().files.CurrentFolder() : last, "", "TXT", "Open Text File");
}

// At most one line break stays at the end.
void DropEmptyLinesAtEnd(std::string& text)
{
    if (text == text::LineBreak)
        text.clear();
    while (text.ends_with(text::DoubleLineBreak))
        text.resize(text.size() - 2);
}

// Nothing when the user did not want to wait.
std::optional<std::string> ReadLines(const std::string& file, CPatience& patience)
{
    const auto reader = Current().files.OpenLines(file);
    std::string lines;
    while (reader->AppendLine(lines)) {
        lines += text::LineBreak;
        if (!patience.MayGoOn())
            return std::nullopt;
    }
    std::string text = reader->Text(std::move(lines));
    DropEmptyLinesAtEnd(text);
    return text;
}

// As long as the file cannot be accessed and the user wants to try again; nothing when they do not. The wording of the box
// is kept as it is, although the file is opened.
std::optional<std::string> ReadLinesOrAsk(const std::string& file, CPatience& patience)
{
    while (true) {
        try {
            return ReadLines(file, patience);
        } catch (const platform::CFailure& failure) {
            if (failure.Number() != platform::failure::PathFileAccess().Number())
                throw;
        }
        if (Warn("Error Saving File:\r\n" + file, BoxButtons::OkCancel) == BoxAnswer::Cancel)
            return std::nullopt;
    }
}

void ShowText(const std::string& file, std::optional<std::string> text)
{
    if (!text)
        return;
    keptText::KeepChanged();
    MainWindow().txtRead.SetText(std::move(*text));
    ui::ShowUnmodifiedFile(file);
}

}

void bOptions::OpenFile(const std::string& fileName)
{
    const zbErrorTrap::CGuard guard(Module, "OpenFile");
    std::string file = fileName;
    CPatience patience;
    if (file.empty())
        guard([&] { file = AskWhatToOpen(); });
    if (file.empty())
        return;
    guard([&] { settings::Options().LastFolder = bGlobal::FolderPart(file); });
    guard([&] { patience.Start(); });
    guard([] { Current().screen.SetPointer(platform::Pointer::Hourglass); });
    guard([&] { ShowText(file, ReadLinesOrAsk(file, patience)); });
    guard([] { Current().screen.SetPointer(platform::Pointer::Default); });
}

#include "reading/bRead.h"
#include "base/text/Text.h"
#include "character/bParlune.h"
#include "common/bGlobal.h"
#include "common/zbErrorTrap.h"
#include "common/zbGetFileName.h"
#include "platform/Clipboard.h"
#include "platform/Clock.h"
#include "platform/EventPump.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "reading/TextPieces.h"
#include "settings/OptionsRecord.h"
#include "ui/frmParlune.h"

namespace {

constexpr char Module[] = "bReadTextFile";

void Yield() { platform::Current().events.RunPendingEvents(); }

void Speak(const std::string& piece) { bParlune::CharSpeak(piece); }

// 0 when the clock cannot tell: reading goes on without it.
std::int64_t Milliseconds()
{
    std::int64_t now = 0;
    zbErrorTrap::IgnoreFailure([&] { now = platform::Current().clock.SteadyMilliseconds(); });
    return now;
}

// Hands the pieces of a text over and lets pending events run between them: where the cutting says so, and after any piece
// when the last time is too long ago for a window that shall answer (a paragraph of ten thousand short lines).
class CSpokenPieces {
public:
    void Breathe()
    {
        Yield();
        m_last = Milliseconds();
    }
    void Speak(const std::string& piece)
    {
        ::Speak(piece);
        if (Milliseconds() - m_last >= LongestSilence)
            Breathe();
    }

private:
    static constexpr std::int64_t LongestSilence = 20;
    std::int64_t m_last = Milliseconds();
};

void SpeakInPieces(const std::string& text)
{
    CSpokenPieces pieces;
    reading::CutIntoPieces(
        text, [&] { pieces.Breathe(); }, [&](const std::string& piece) { pieces.Speak(piece); });
}

void PlayIfWanted(const char* animation)
{
    if (MainWindow().chkPlayReadAnimation.Ticked())
        bParlune::CharPlay(animation);
}

std::string ClipboardText()
{
    const platform::IClipboard& clipboard = platform::Current().clipboard;
    return clipboard.HasText() ? clipboard.Text() : std::string();
}

// The new text takes the place of the present speech, unless reading commands wait for each other.
void InterruptUnlessQueued()
{
    if (MainWindow().chkQueueReadCommands.Value() != 1)
        bParlune::CharStop();
}

std::string AskForTextFile()
{
    return zbGetFileName::GetFileName("Open", "Text Documents (*.txt)|*.txt|All Files|*.*", 2,
                                      settings::Options().LastFolder, "", "TXT", "Read Text File");
}

// Deliberate: reading starts one character before the caret.
std::string TextFromCaret(const ui::CTextBox& box)
{
    std::string text = box.CopyOfText();
    const auto caret = static_cast<std::size_t>(box.SelectionStart());
    if (caret == 0 || caret == text::Length(text))
        return text;
    return std::string(text::Mid(text, caret));
}

void ReadEditor(const ui::CTextBox& editor)
{
    if (editor.IsEmpty()) {
        bRead::ReadClipboard();
        return;
    }
    const std::string selection = editor.SelectedText();
    bParlune::CharSpeak(selection.empty() ? TextFromCaret(editor) : selection);
}

}

void bRead::ReadContents(const std::string& text)
{
    const zbErrorTrap::CGuard guard(Module, "ReadContents");
    guard([&] {
        PlayIfWanted("Read");
        if (reading::IsShort(text))
            Speak(text);
        else
            SpeakInPieces(text);
        PlayIfWanted("ReadReturn");
    });
}

void bRead::ReadClipboard()
{
    const zbErrorTrap::CGuard guard(Module, "ReadClipboard");
    guard([] {
        const std::string text = ClipboardText();
        if (text.empty())
            return;
        const bool wasVisible = bParlune::CharVisible();
        if (!wasVisible)
            bParlune::CharShow();
        InterruptUnlessQueued();
        ReadContents(text);
        // Deliberate: at once, although the text is only queued.
        if (!wasVisible)
            bParlune::CharHide();
    });
}

void bRead::ReadTextFile(const std::string& path)
{
    const zbErrorTrap::CGuard guard(Module, "ReadTextFile");
    settings::OptionsRecord& options = settings::Options();
    std::string file = path;
    std::string text;
    if (file.empty()) {
        if (options.LastFolder.empty())
            guard([&] { options.LastFolder = platform::Current().files.CurrentFolder(); });
        guard([&] { file = AskForTextFile(); });
        if (file.empty())
            return;
    }
    guard([&] { options.LastFolder = bGlobal::FolderPart(file); });
    guard([&] { text = platform::Current().files.ReadText(file); });
    guard([] { Yield(); });
    if (!text.empty())
        ReadContents(text);
}

void bRead::ReadText()
{
    const zbErrorTrap::CGuard guard("Parlune", "ReadText");
    guard([] {
        bParlune::CharShow();
        ReadEditor(MainWindow().txtRead);
    });
}

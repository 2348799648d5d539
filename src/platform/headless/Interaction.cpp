#include "platform/headless/Interaction.h"
#include "base/text/Text.h"

namespace platform::headless {

bool CClipboard::HasText() const
{
    m_journal.Enter("Clipboard.HasText");
    return m_text.has_value();
}

std::string CClipboard::Text() const
{
    m_journal.Enter("Clipboard.Text");
    return m_text.value_or("");
}

bool CClipboard::IsSecret() const
{
    m_journal.Enter("Clipboard.IsSecret");
    return m_secret;
}

bool CClipboard::CanWatch() const
{
    m_journal.Enter("Clipboard.CanWatch");
    return canWatch;
}

void CClipboard::Watch(std::function<void()> changed)
{
    m_journal.Enter("Clipboard.Watch");
    m_changed = std::move(changed);
}

void CClipboard::StopWatching()
{
    m_journal.Enter("Clipboard.StopWatching");
    m_changed = nullptr;
}

void CClipboard::Put(std::optional<std::string> text)
{
    m_text = std::move(text);
    m_secret = false;
    Tell();
}

void CClipboard::PutSecret(std::string text)
{
    m_text = std::move(text);
    m_secret = true;
    Tell();
}

// A copy is called: the procedure may stop the watching.
void CClipboard::Tell() const
{
    const std::function<void()> call = m_changed;
    if (call && canWatch)
        call();
}

std::string ShownBox::Line(std::size_t number) const
{
    std::string_view rest = text;
    for (std::size_t line = 1; line < number; ++line) {
        const std::size_t end = rest.find(text::LineBreak);
        if (end == std::string_view::npos)
            return "";
        rest.remove_prefix(end + 2);
    }
    return std::string(rest.substr(0, rest.find(text::LineBreak)));
}

BoxAnswer CMessageBoxes::Show(const MessageBox& box)
{
    m_journal.Enter("MessageBoxes.Show");
    shown.push_back({box});
    if (whileShown)
        whileShown();
    if (answers.empty())
        return box.buttons == BoxButtons::YesNo ? BoxAnswer::Yes : BoxAnswer::Ok;
    const BoxAnswer answer = answers.front();
    answers.pop_front();
    return answer;
}

std::string CFileDialogs::Ask(const FileDialog& dialog)
{
    m_journal.Enter("FileDialogs.Ask");
    asked.push_back(dialog);
    if (whileAsked)
        whileAsked();
    if (answers.empty())
        return "";
    std::string answer = answers.front();
    answers.pop_front();
    return answer;
}

void CShell::StartProgram(const std::string& commandLine)
{
    m_journal.Enter("Shell.StartProgram " + commandLine);
    if (!programs.contains(commandLine))
        throw failure::FileNotFound();
    started.push_back(commandLine);
}

std::int32_t CShell::Open(const std::string& file, const std::string& parameters)
{
    m_journal.Enter("Shell.Open " + file);
    opened.push_back({file, parameters});
    return openCode;
}

std::int32_t CScreen::WidthInUnits() const
{
    m_journal.Enter("Screen.WidthInUnits");
    return width * unitsPerPixel;
}

std::int32_t CScreen::HeightInUnits() const
{
    m_journal.Enter("Screen.HeightInUnits");
    return height * unitsPerPixel;
}

std::int32_t CScreen::UnitsPerPixelX() const
{
    m_journal.Enter("Screen.UnitsPerPixelX");
    return unitsPerPixel;
}

std::int32_t CScreen::UnitsPerPixelY() const
{
    m_journal.Enter("Screen.UnitsPerPixelY");
    return unitsPerPixel;
}

void CScreen::SetPointer(Pointer pointer)
{
    m_journal.Enter("Screen.SetPointer " + std::to_string(static_cast<int>(pointer)));
    pointers.push_back(pointer);
}

void CTrayIcon::Add(const std::string& newTip, std::function<void(std::int32_t message)> mouse)
{
    m_journal.Enter("TrayIcon.Add");
    tip = newTip;
    m_mouse = std::move(mouse);
}

void CTrayIcon::Mouse(std::int32_t message)
{
    if (m_mouse)
        m_mouse(message);
}

void CTrayIcon::Delete()
{
    m_journal.Enter("TrayIcon.Delete");
    tip.reset();
    m_mouse = nullptr;
}

}

#include "driver/Parlune.h"
#include "app/windows/ControlIds.h"
#include "driver/Waiting.h"
#include "driver/Windows.h"
#include "platform/windows/Text.h"
#include <stdexcept>

using platform::windowsdesktop::FromWide;
using platform::windowsdesktop::ToWide;

namespace driver {
namespace {

// The messages of the lists, which differ between list boxes and combos.
struct ListMessages {
    UINT count, length, text, selected, select, selectionChanged;
};
constexpr ListMessages ListBox{LB_GETCOUNT, LB_GETTEXTLEN, LB_GETTEXT, LB_GETCURSEL, LB_SETCURSEL, LBN_SELCHANGE};
constexpr ListMessages Combo{CB_GETCOUNT, CB_GETLBTEXTLEN, CB_GETLBTEXT, CB_GETCURSEL, CB_SETCURSEL, CBN_SELCHANGE};
const ListMessages& MessagesOf(HWND list) { return IsOfClass(list, L"ListBox") ? ListBox : Combo; }

HWND Existing(HWND control, const std::string& name)
{
    if (!control)
        throw std::runtime_error("there is no control " + name);
    return control;
}

}

const std::string& CParlune::Folder()
{
    static const std::string folder = "C:\\parlune\\program\\";
    return folder;
}

const std::string& CParlune::DataFolder()
{
    static const std::string folder = "C:\\parlune\\data\\";
    return folder;
}

const frmParlune& Form()
{
    static const frmParlune form;
    return form;
}

void CParlune::Start(const std::string& arguments, Environment changed, const std::string& folder)
{
    changed.insert({"APPDATA", DataFolder().substr(0, DataFolder().size() - 1)});
    m_found.clear();
    m_process.Start(folder + "Parlune.exe" + arguments, folder, changed);
}

void CParlune::End()
{
    if (!m_process.IsRunning())
        return;
    Choose("mnuFileExit");
    if (!HasEnded())
        throw std::runtime_error("Exit does not end the program");
}

HWND CParlune::Main() const { return WindowOf(Id(), appwindows::MainWindowClass); }
HWND CParlune::Tray() const { return WindowOf(Id(), appwindows::TrayWindowClass); }
HWND CParlune::Splash() const { return WindowOf(Id(), appwindows::SplashWindowClass); }
bool CParlune::IsShown() const { return IsWindowVisible(Main()) && !IsIconic(Main()); }
std::string CParlune::Title() const { return TextOf(Main()); }

HWND CParlune::Find(const std::string& name) const
{
    HWND& found = m_found[name];
    if (!IsWindow(found))
        found = Inside(Main(), appwindows::IdOf(ui::layout::MainWindowLayout(), name));
    return found;
}

HWND CParlune::Control(const std::string& name) const
{
    if (!Find(name)) {
        Reveal(name);
        Eventually([&] { return Find(name) != nullptr; });
    }
    return Existing(Find(name), name);
}

void CParlune::Reveal(const std::string& name) const
{
    const ui::layout::Row* const row = ui::layout::FindRow(ui::layout::MainWindowLayout(), name);
    if (!row)
        throw std::runtime_error("no control has the name " + name);
    if (!IsShown())
        Show();
    if (row->holder.control.empty())
        return;
    const std::string holder(row->holder.control);
    Reveal(holder);
    if (row->holder.page >= 0)
        SetTab(holder, row->holder.page);
}

HWND CParlune::SplashControl(const std::string& name) const
{
    return Existing(Inside(Splash(), appwindows::IdOf(ui::layout::SplashLayout(), name)), name);
}

std::string CParlune::Text(const std::string& name) const { return TextOf(Control(name)); }

void CParlune::SetText(const std::string& name, const std::string& text) const
{
    HWND control = Control(name);
    if (const HWND edit = InsideByClass(control, L"Edit"))
        control = edit;  // Of a combo: setting its text raises what typing does.
    Ask(control, EM_SETSEL, 0, -1);
    Ask(control, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(ToWide(text).c_str()));
}

bool CParlune::IsTicked(const std::string& name) const { return Ask(Control(name), BM_GETCHECK) == BST_CHECKED; }

void CParlune::Click(const std::string& name) const { PostMessageW(Control(name), BM_CLICK, 0, 0); }

void CParlune::Choose(const std::string& menuEntry) const
{
    const int id = appwindows::CommandOf(Form(), menuEntry);
    if (id == 0)
        throw std::runtime_error("there is no menu entry " + menuEntry);
    PostMessageW(Main(), WM_COMMAND, static_cast<WPARAM>(id), 0);
}

void CParlune::Show() const
{
    Choose("mnuPopParluneOptions");
    if (!Eventually([&] { return IsShown(); }))
        throw std::runtime_error("the options window does not come");
}

void CParlune::GoTo(Page page) const { SetTab("tabMain", static_cast<int>(page)); }

int CParlune::TabOf(const std::string& tabStrip) const { return static_cast<int>(Ask(Control(tabStrip), TCM_GETCURSEL)); }

void CParlune::SetTab(const std::string& tabStrip, int page) const
{
    Ask(Control(tabStrip), TCM_SETCURFOCUS, static_cast<WPARAM>(page));
}

std::vector<std::string> CParlune::Entries(const std::string& name) const
{
    const HWND list = Control(name);
    const ListMessages& messages = MessagesOf(list);
    std::vector<std::string> entries;
    const auto count = Ask(list, messages.count);
    for (LRESULT i = 0; i < count; ++i) {
        const auto entry = static_cast<WPARAM>(i);
        std::wstring text(static_cast<std::size_t>(Ask(list, messages.length, entry)) + 1, L'\0');
        const auto length = Ask(list, messages.text, entry, reinterpret_cast<LPARAM>(text.data()));
        entries.push_back(FromWide({text.data(), static_cast<std::size_t>(length)}));
    }
    return entries;
}

int CParlune::Selected(const std::string& name) const
{
    const HWND list = Control(name);
    return static_cast<int>(Ask(list, MessagesOf(list).selected));
}

void CParlune::Select(const std::string& name, int entry) const
{
    const HWND list = Control(name);
    const ListMessages& messages = MessagesOf(list);
    Ask(list, messages.select, static_cast<WPARAM>(entry));
    Ask(GetParent(list), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(list), messages.selectionChanged),
        reinterpret_cast<LPARAM>(list));
}

}

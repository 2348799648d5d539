#include "../tests/applinux/FilledForm.h"
#include <QAction>
#include <QMenuBar>
#include <QTabBar>
#include <QTabWidget>
#include <QToolBar>
#include <cstdio>

// list_places: where everything is on the main window, a line each: NAME X Y WIDTH HEIGHT, in pixels from the upper left
// corner of the window's inside. The members of a tab strip, of the tool bar and of the menu bar follow as NAME/INDEX. What
// the desktop's fonts and style do to the window they do to this program as well; it shows nothing.
namespace {
void Tell(const std::string& name, const QRect& place)
{
    std::printf("%s %d %d %d %d\n", name.c_str(), place.x(), place.y(), place.width(), place.height());
}

// A part of a widget as a place on the window.
QRect OnWindow(const QWidget& widget, const QRect& part)
{
    return {widget.mapTo(widget.window(), part.topLeft()), part.size()};
}

void TellTabs(const std::string& name, const QTabWidget& strip)
{
    const QTabBar& bar = *strip.tabBar();
    for (int tab = 0; tab < bar.count(); ++tab)
        Tell(name + "/" + std::to_string(tab), OnWindow(bar, bar.tabRect(tab)));
}

void TellButtons(const std::string& name, const QToolBar& bar)
{
    for (int button = 0; button < bar.actions().size(); ++button)
        Tell(name + "/" + std::to_string(button), OnWindow(bar, bar.actionGeometry(bar.actions()[button])));
}

void TellMenus(const QMenuBar& bar)
{
    for (int menu = 0; menu < bar.actions().size(); ++menu)
        Tell("menu/" + std::to_string(menu), OnWindow(bar, bar.actionGeometry(bar.actions()[menu])));
}

void TellControl(const std::string& name, const QWidget& native)
{
    Tell(name, OnWindow(native, native.rect()));
    if (const auto* strip = qobject_cast<const QTabWidget*>(&native))
        TellTabs(name, *strip);
    if (const auto* bar = qobject_cast<const QToolBar*>(&native))
        TellButtons(name, *bar);
}
}

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    FilledForm filled;
    CMainWindowPeer window(
        filled.form, [] { return true; }, [] {});
    window.setAttribute(Qt::WA_DontShowOnScreen);
    filled.form.SetVisible(true);
    for (int tab = 0; tab < static_cast<int>(filled.form.tabMain.Tabs().size()); ++tab) {
        filled.form.tabMain.Select(tab);
        filled.form.tabTTS.Select(tab % 2);
        ShownWindow::Turn();
    }
    for (const auto& row : ui::layout::MainWindowLayout().rows)
        if (const QWidget* native = window.Inside()->WidgetOf(row.control))
            TellControl(std::string(row.control), *native);
    TellMenus(*window.menuBar());
    return 0;
}

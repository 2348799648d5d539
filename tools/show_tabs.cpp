#include "../tests/applinux/FilledForm.h"
#include "app/linux/window/SplashPeer.h"
#include <QStyleFactory>
#include <cstdio>

// show_tabs FOLDER [--dark] [--points=N]: pictures of every page of the main window, of its menus and of the splash window.
namespace {
QPalette DarkPalette()
{
    QPalette dark(QColor(0x2d, 0x30, 0x36));
    dark.setColor(QPalette::Base, QColor(0x1f, 0x21, 0x26));
    dark.setColor(QPalette::Link, QColor(0x6c, 0xb8, 0xff));
    dark.setColor(QPalette::LinkVisited, QColor(0xc5, 0xa0, 0xff));
    dark.setColor(QPalette::Highlight, QColor(0x2f, 0x8f, 0x93));
    for (const QPalette::ColorRole role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        dark.setColor(QPalette::Disabled, role, QColor(0x84, 0x88, 0x90));
    return dark;
}

void Dress(const QStringList& words)
{
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    QFont font("DejaVu Sans", 9);
    for (const QString& word : words) {
        if (word == "--dark")
            QApplication::setPalette(DarkPalette());
        if (word.startsWith("--points="))
            font.setPointSize(word.mid(9).toInt());
    }
    QApplication::setFont(font);
}

bool Save(QWidget& widget, const QString& file)
{
    const bool saved = widget.grab().save(file);
    std::printf("%s%s\n", saved ? "" : "cannot write ", file.toUtf8().constData());
    return saved;
}

bool SaveTabs(ShownWindow& shown, const QString& folder)
{
    bool saved = true;
    for (int tab = 0; tab < static_cast<int>(shown.form.tabMain.Tabs().size()); ++tab) {
        shown.Visit(tab);
        saved = Save(shown.window, folder + "/tab" + QString::number(tab) + ".png") && saved;
    }
    shown.form.tabTTS.Select(1);
    shown.Visit(2);
    return Save(shown.window, folder + "/tab2-modifiers.png") && saved;
}

bool SaveSplash(const QString& folder)
{
    frmSplash form;
    form.lblVersion.SetCaption("Version 2.6");
    CSplashPeer splash(form, [] {});
    form.SetVisible(true);
    QApplication::processEvents();
    return Save(splash, folder + "/splash.png");
}
}

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const QStringList words = QApplication::arguments();
    if (words.size() < 2) {
        std::fputs("Usage: show_tabs FOLDER [--dark] [--points=N]\n", stderr);
        return 1;
    }
    Dress(words);
    ShownWindow shown;
    const bool saved = SaveTabs(shown, words[1]);
    return SaveSplash(words[1]) && saved ? 0 : 1;
}

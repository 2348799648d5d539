#include "FilledForm.h"
#include "app/linux/window/Pictures.h"
#include "app/linux/window/SplashPeer.h"
#include "ui/pictures/Picture.h"
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabBar>
#include <QTabWidget>

// Nothing is clipped, whatever the font; pictures are pictures.
namespace {
struct FontChange {
    explicit FontChange(const QFont& font) : former(QApplication::font()) { QApplication::setFont(font); }
    ~FontChange() { QApplication::setFont(former); }
    FontChange(const FontChange&) = delete;
    FontChange& operator=(const FontChange&) = delete;
    QFont former;
};

bool ShowsItsCaption(const QWidget* widget)
{
    if (const auto* label = qobject_cast<const QLabel*>(widget))
        return !label->objectName().isEmpty() && !label->wordWrap() && label->objectName() != "lblFontDisplay";
    return qobject_cast<const QCheckBox*>(widget) || qobject_cast<const QPushButton*>(widget);
}

// What is too small for what it wants to be.
std::string Clipped(const QWidget& page)
{
    std::string clipped;
    for (const QWidget* widget : page.findChildren<QWidget*>()) {
        const QSize wanted = widget->sizeHint();
        if (widget->isVisible() && ShowsItsCaption(widget) &&
            (widget->width() < wanted.width() || widget->height() < wanted.height()))
            clipped += widget->objectName().toStdString() + " ";
    }
    return clipped;
}

std::string WrappedTextsCut(const QWidget& page)
{
    std::string cut;
    for (const QLabel* label : page.findChildren<QLabel*>())
        if (label->isVisible() && label->wordWrap() && label->heightForWidth(label->width()) > label->height())
            cut += label->objectName().toStdString() + " ";
    return cut;
}

bool HasScrollBar(const QWidget& page)
{
    for (const QScrollArea* area : page.findChildren<QScrollArea*>())
        if (area->isVisible() && (area->horizontalScrollBar()->isVisible() || area->verticalScrollBar()->isVisible()))
            return true;
    return false;
}

struct Look : testing::TestWithParam<std::pair<const char*, int>> {
    FontChange font{QFont(GetParam().first, GetParam().second)};
    ShownWindow shown;

    // A screen large enough for every font here.
    void SetUp() override { shown.window.resize(shown.window.Inside()->NaturalSize() + QSize(0, 60)); }
    void VisitEach(const std::function<void(int tab)>& look)
    {
        for (int tab = 0; tab < 7; ++tab) {
            shown.Visit(tab);
            look(tab);
        }
        shown.form.tabTTS.Select(1);
        shown.Visit(2);
        look(2);
    }
};
}

TEST_P(Look, EveryPage_ClipsNoCaption)
{
    VisitEach([&](int tab) { EXPECT_EQ(Clipped(shown.window), "") << "tab " << tab; });
}

TEST_P(Look, EveryPage_WrapsNoTextOutOfItsPlace)
{
    VisitEach([&](int tab) { EXPECT_EQ(WrappedTextsCut(shown.window), "") << "tab " << tab; });
}

TEST_P(Look, EveryPage_FitsWithoutScrolling)
{
    VisitEach([&](int tab) { EXPECT_FALSE(HasScrollBar(shown.window)) << "tab " << tab; });
}

TEST_P(Look, Tabs_AllFitBesideEachOther)
{
    const auto* strip = shown.Native<QTabWidget>("tabMain");

    EXPECT_LE(strip->tabBar()->sizeHint().width(), strip->width());
}

INSTANTIATE_TEST_SUITE_P(Fonts, Look,
                         testing::Values(std::pair("DejaVu Sans", 8), std::pair("DejaVu Sans", 9),
                                         std::pair("DejaVu Sans", 10), std::pair("DejaVu Sans", 11),
                                         std::pair("DejaVu Sans", 14), std::pair("DejaVu Sans", 18),
                                         std::pair("DejaVu Serif", 11), std::pair("DejaVu Sans Mono", 10)));

TEST(Window, FontGrowsWhileItIsOpen_GrowsWithIt)
{
    ShownWindow shown;
    const QSize before = shown.window.Inside()->NaturalSize();
    const FontChange larger(QFont("DejaVu Sans", 18));
    shown.window.setFont(QApplication::font());
    shown.Turn();
    shown.window.resize(shown.window.Inside()->NaturalSize() + QSize(0, 60));
    shown.Turn();

    EXPECT_GT(shown.window.Inside()->NaturalSize().width(), before.width() * 3 / 2);
    EXPECT_EQ(Clipped(shown.window), "");
}

TEST(Window, LongerCaption_IsGivenItsRoom)
{
    FilledForm filled;
    filled.form.cmdReadClipboard.SetCaption("Die Zwischenablage jetzt sofort vorlesen");
    CMainWindowPeer window(
        filled.form, [] { return true; }, [] {});
    filled.form.SetVisible(true);
    window.resize(window.Inside()->NaturalSize() + QSize(0, 60));
    ShownWindow::Turn();

    EXPECT_EQ(Clipped(window), "");
}

// What happens to a widget.
class CCount final : public QObject {
public:
    CCount(QWidget& widget, QEvent::Type type) : m_type(type) { widget.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override
    {
        number += event->type() == m_type ? 1 : 0;
        return false;
    }
    int number = 0;

private:
    QEvent::Type m_type;
};

TEST(Window, BroughtBackFromTheTaskBar_IsNotHiddenMeanwhile)
{
    FilledForm filled;
    CMainWindowPeer window(
        filled.form, [] { return false; }, [] {});
    filled.form.Load();
    filled.form.SetState(ui::WindowState::Minimized);
    EXPECT_TRUE(window.isVisible() && window.isMinimized());
    const CCount hidden(window, QEvent::Hide);
    filled.form.SetState(ui::WindowState::Normal);
    filled.form.SetVisible(true);

    EXPECT_EQ(hidden.number, 0);
    EXPECT_TRUE(window.isVisible() && !window.isMinimized());
}

TEST(Window, MadeTooSmallForAPage_LetsItBeScrolled)
{
    ShownWindow shown;
    shown.window.resize(shown.window.size() * 2 / 3);
    shown.Turn();

    EXPECT_TRUE(HasScrollBar(shown.window));
    EXPECT_EQ(Clipped(shown.window), "");
}

TEST(Window, MadeSmaller_ShrinksTheEditorInsteadOfScrollingItsPage)
{
    ShownWindow shown;
    shown.Visit(4);
    shown.window.resize(shown.window.size() * 2 / 3);
    shown.Turn();

    EXPECT_FALSE(HasScrollBar(shown.window));
}

TEST(Window, MadeLarger_GivesTheRoomToTheEditor)
{
    ShownWindow shown;
    shown.Visit(4);
    const QSize before = shown.Native("txtRead")->size();
    shown.window.resize(shown.window.size() + QSize(100, 50));
    shown.Turn();

    EXPECT_EQ(shown.Native("txtRead")->size(), before + QSize(100, 50));
}

TEST(Window, MadeLarger_KeepsTheStatusBarBelow)
{
    ShownWindow shown;
    const int before = shown.Native("staStatus")->y();
    shown.window.resize(shown.window.size() + QSize(0, 50));
    shown.Turn();

    EXPECT_EQ(shown.Native("staStatus")->y(), before + 50);
}

TEST(Window, VoiceList_WhileTheVoicesLoad_LeavesRoomForTheBar)
{
    ShownWindow shown;
    shown.Visit(2);
    const int whole = shown.Native("lstTTS")->height();
    shown.form.pbrTTSEngines.SetVisible(true);
    shown.Turn();

    EXPECT_LT(shown.Native("lstTTS")->geometry().bottom(), shown.Native("pbrTTSEngines")->y());
    shown.form.pbrTTSEngines.SetVisible(false);
    shown.Turn();
    EXPECT_EQ(shown.Native("lstTTS")->height(), whole);
}

TEST(Pictures, EveryPictureOfTheTables_IsThere)
{
    for (const ui::layout::Row& row : ui::layout::MainWindowLayout().rows)
        if (row.kind == ui::layout::Kind::Picture) {
            EXPECT_NE(ui::pictures::Find(row.picture), nullptr) << row.control;
        }
    for (const ui::layout::ToolButton& button : ui::layout::ToolBarButtons())
        EXPECT_NE(ui::pictures::Find(button.picture), nullptr) << button.key;
    EXPECT_NE(ui::pictures::Find("splash"), nullptr);
}

TEST(Pictures, ProgramIcon_HasEverySizeAndDrawsIt)
{
    for (const int pixels : {16, 22, 24, 32, 48, 64, 128, 256}) {
        const QImage picture = pictures::ProgramIcon().pixmap(pixels, pixels).toImage();
        ASSERT_EQ(picture.size(), QSize(pixels, pixels));
        EXPECT_EQ(qAlpha(picture.pixel(0, 0)), 0) << pixels;
        EXPECT_EQ(qAlpha(picture.pixel(pixels / 2, pixels * 3 / 4)), 255) << pixels;
    }
}

TEST(Pictures, ToolPicture_OnADarkDesktop_IsDrawnLight)
{
    QImage light(24, 24, QImage::Format_ARGB32), dark = light;
    for (QImage* picture : {&light, &dark}) {
        picture->fill(Qt::transparent);
        QPainter painter(picture);
        pictures::Draw(painter, "read", picture->rect(), picture == &dark ? Qt::white : Qt::black);
    }

    EXPECT_GT(qGray(dark.pixel(12, 4)), 200);
    EXPECT_LT(qGray(light.pixel(12, 4)), 60);
}

TEST(Pictures, UnknownName_DrawsNothing)
{
    QImage picture(8, 8, QImage::Format_ARGB32);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    pictures::Draw(painter, "nothing", picture.rect(), Qt::black);

    EXPECT_EQ(picture.pixel(4, 4), 0U);
}

TEST(Splash, Shown_ShowsPictureAndVersion)
{
    frmSplash form;
    form.lblVersion.SetCaption("Version 2.6");
    CSplashPeer splash(form, [] {});
    form.SetVisible(true);
    ShownWindow::Turn();

    EXPECT_TRUE(splash.isVisible());
    EXPECT_EQ(splash.findChild<QLabel*>("lblVersion")->text(), "Version 2.6");
    EXPECT_EQ(Clipped(splash), "");
}

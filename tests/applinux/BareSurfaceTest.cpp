#include "app/linux/window/BareSurface.h"
#include "platform/headless/Desktop.h"
#include <QApplication>
#include <QLabel>
#include <QMouseEvent>

// What the main window's bare surface tells of the mouse.
namespace {
struct BareSurface : testing::Test {
    BareSurface()
    {
        surface.resize(600, 300);
        control.setGeometry(100, 100, 50, 20);
        form.onMouseMove = [this](int button, int shift, float x, float y) { moves.push_back({button, shift, x, y}); };
    }
    // The mouse moves over a widget, to a place of the surface.
    void Move(QWidget& over, QPointF place, Qt::MouseButtons buttons = Qt::NoButton,
              Qt::KeyboardModifiers keys = Qt::NoModifier)
    {
        QMouseEvent move(QEvent::MouseMove, over.mapFrom(&surface, place), over.mapToGlobal(over.mapFrom(&surface, place)),
                         Qt::NoButton, buttons, keys);
        QApplication::sendEvent(&over, &move);
    }
    struct Report {
        int button;
        int shift;
        float x;
        float y;
        bool operator==(const Report&) const = default;
    };
    CHeadlessDesktop desktop;
    ui::CForm form{"frmTest", "Test"};
    CBareSurface surface{form};
    QLabel control{&surface};
    std::vector<Report> moves;
};
}

TEST_F(BareSurface, Move_OverTheSurface_IsToldInScreenUnits)
{
    Move(surface, {515, 20});
    EXPECT_EQ(moves, (std::vector<Report>{{0, 0, 7725, 300}}));
}

TEST_F(BareSurface, Move_WithoutAPressedButton_IsAskedFor) { EXPECT_TRUE(surface.hasMouseTracking()); }

TEST_F(BareSurface, Move_OverAControl_IsNotTold)
{
    Move(control, {110, 105});
    EXPECT_TRUE(moves.empty());
}

TEST_F(BareSurface, Move_WithButtonsAndKeys_TellsThem)
{
    Move(surface, {1, 1}, Qt::LeftButton | Qt::MiddleButton, Qt::ShiftModifier | Qt::AltModifier);
    Move(surface, {1, 1}, Qt::RightButton, Qt::ControlModifier);
    EXPECT_EQ(moves, (std::vector<Report>{{5, 5, 15, 15}, {2, 2, 15, 15}}));
}

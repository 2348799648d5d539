#pragma once
#include "engine/Host.h"
#include "engine/hosts/qt/PictureWidget.h"

namespace engine {

class CCharacterWidget final : public CPictureWidget {
public:
    CCharacterWidget(IMouseEvents& mouse, const CScreenWatch& screens);
    bool InsideEvent() const { return m_depth > 0; }
    void Forget() { m_mouse = nullptr; }  // From now on nobody wants to hear of the mouse.

protected:
    bool eventFilter(QObject* window, QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    using Handler = void (IMouseEvents::*)(int, int, Point);
    void Tell(Handler handler, int buttons, const QMouseEvent& event);

    IMouseEvents* m_mouse;
    int m_depth = 0;
};

class CCharacterWindow final : public ICharacterWindow {
public:
    CCharacterWindow(IMouseEvents& mouse, const CScreenWatch& screens) : m_widget(new CCharacterWidget(mouse, screens)) {}
    ~CCharacterWindow() override;
    CCharacterWindow(const CCharacterWindow&) = delete;
    CCharacterWindow& operator=(const CCharacterWindow&) = delete;
    void SetPicture(const Bitmap& picture) override;
    void SetPlace(const Rect& place) override;
    void Show() override;
    void Hide() override;
    void Raise() override;

private:
    void Render();

    CCharacterWidget* m_widget;  // Owned; may have to outlive this object until its event is over.
    Bitmap m_picture;
    QImage m_image;
    Rect m_place{0, 0, 1, 1};
};

}

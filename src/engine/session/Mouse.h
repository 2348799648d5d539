#pragma once
#include "engine/Host.h"

namespace engine {

struct MouseAction {
    int button = 1;
    int shift = 0;
    Point at;
};

// What the user does with the mouse, told apart.
class IMouseListener {
public:
    virtual ~IMouseListener() = default;
    virtual void Clicked(const MouseAction& action) = 0;
    virtual void DoubleClicked(const MouseAction& action) = 0;
    virtual void DragBegan(const MouseAction& action) = 0;
    virtual void DraggedBy(Point distance) = 0;  // From where the drag began.
    virtual void DragEnded(const MouseAction& action) = 0;
};

// Makes clicks, double clicks and drags of presses, movements and releases. A drag begins beyond a small distance and is no
// click; the second press of a double click is none either.
class CMouse final : public IMouseEvents {
public:
    explicit CMouse(IMouseListener& listener) : m_listener(listener) {}
    void Press(int button, int shift, Point at) override;
    void Move(int buttons, int shift, Point at) override;
    void Release(int button, int shift, Point at) override;
    void DoublePress(int button, int shift, Point at) override;
    bool Dragging() const { return m_dragging; }
    void Forget();  // The character has gone from under the pointer: ends a drag where it is.

private:
    IMouseListener& m_listener;
    int m_pressed = 0;  // The button, 0 for none.
    bool m_clicks = false;
    bool m_dragging = false;
    Point m_from;
    MouseAction m_last;
};

}

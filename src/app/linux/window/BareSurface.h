#pragma once
#include "ui/controls/CControl.h"
#include <QWidget>

// What lies behind a window's controls. Tells the form of every move of the mouse over it, not of those over the controls.
class CBareSurface final : public QWidget {
public:
    explicit CBareSurface(ui::CForm& form);  // Borrowed.

protected:
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    ui::CForm& m_form;
};

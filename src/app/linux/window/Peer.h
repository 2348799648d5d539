#pragma once
#include "ui/controls/Controls.h"
#include "ui/layout/FormLayout.h"
#include <QScopedValueRollback>
#include <QString>
#include <QWidget>
#include <memory>

// A native control: mirrors a control of the program and reports what the user does to it by the control's own calls. It
// lives as long as its widget's window; the widget belongs to its parent.
class CPeer : public QObject {
public:
    CPeer(ui::CControl& control, const ui::layout::Row& row, QWidget& native);
    ui::CControl& Subject() const { return m_control; }
    const ui::layout::Row& Look() const { return m_row; }
    QWidget& Native() const { return m_native; }
    // Whether the keyboard focus in `widget` is the control's.
    bool Holds(const QWidget* widget) const { return widget && (widget == &m_native || m_native.isAncestorOf(widget)); }
    void Mirror();                              // Brings the widget up to date.
    void SetLabel(const std::string& caption);  // What the label beside it says.
    bool changed = false;

protected:
    virtual void MirrorOwn() {}
    // Runs a report of the user's doing; what the mirror itself does to the widget is none.
    template <class Action> void Report(Action&& action)
    {
        if (!m_mirroring)
            action();
    }

private:
    QString SpokenName() const;

    ui::CControl& m_control;
    const ui::layout::Row& m_row;
    QWidget& m_native;
    std::string m_label;
    bool m_mirroring = false;
};

template <class Control, class Widget> class CPeerOf : public CPeer {
public:
    CPeerOf(Control& control, const ui::layout::Row& row, Widget* native)
        : CPeer(control, row, *native), m_control(control), m_native(*native)
    {
    }

protected:
    Control& m_control;
    Widget& m_native;
};

// Makes the widget, below `parent`, and its peer. The control must be of the row's kind: throws std::bad_cast otherwise.
std::unique_ptr<CPeer> MakePeer(ui::CControl& control, const ui::layout::Row& row, QWidget& parent);

// By kind, for MakePeer only; null when the kind is another's.
std::unique_ptr<CPeer> MakeCaptionPeer(ui::CControl& control, const ui::layout::Row& row, QWidget& parent);
std::unique_ptr<CPeer> MakeTextPeer(ui::CControl& control, const ui::layout::Row& row, QWidget& parent);
std::unique_ptr<CPeer> MakeListPeer(ui::CControl& control, const ui::layout::Row& row, QWidget& parent);
std::unique_ptr<CPeer> MakeRangePeer(ui::CControl& control, const ui::layout::Row& row, QWidget& parent);
std::unique_ptr<CPeer> MakeBarPeer(ui::CControl& control, const ui::layout::Row& row, QWidget& parent);

inline QString FromText(const std::string& text) { return QString::fromStdString(text); }

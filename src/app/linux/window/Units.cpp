#include "app/linux/window/Units.h"
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>
#include <algorithm>
#include <cmath>

namespace {
using ui::layout::Kind;
using ui::layout::Row;

constexpr char Alphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";

// One widget of each kind, asked how large it wants to be with a caption.
class CMeasure {
public:
    explicit CMeasure(const QWidget& like)
    {
        for (QWidget* widget :
             {static_cast<QWidget*>(&m_check), static_cast<QWidget*>(&m_button), static_cast<QWidget*>(&m_label),
              static_cast<QWidget*>(&m_line), static_cast<QWidget*>(&m_combo)})
            widget->setFont(like.font());
        m_line.setMinimumWidth(0);
    }
    // What is 0 does not matter.
    QSize SizeFor(Kind kind, const QString& caption)
    {
        switch (kind) {
        case Kind::CheckBox:
            return SizeWith(m_check, caption);
        case Kind::Button:
            return SizeWith(m_button, caption);
        case Kind::Label:
        case Kind::Link:
            return SizeWith(m_label, caption);
        case Kind::TextBox:
            return {0, m_line.sizeHint().height()};
        case Kind::EditableCombo:
        case Kind::DropDownList:
            return {0, m_combo.sizeHint().height()};
        default:
            return {};
        }
    }

private:
    template <class Widget> static QSize SizeWith(Widget& widget, const QString& caption)
    {
        widget.setText(caption);
        return widget.sizeHint();
    }
    QCheckBox m_check;
    QPushButton m_button;
    QLabel m_label;
    QLineEdit m_line;
    QComboBox m_combo;
};

const ui::CControl* Find(const ui::CForm& form, std::string_view name)
{
    const auto& controls = form.Controls();
    const auto found =
        std::find_if(controls.begin(), controls.end(), [&](const auto* control) { return control->Name() == name; });
    return found == controls.end() ? nullptr : *found;
}

void EnlargeFor(Units& units, const Row& row, const QSize& wanted)
{
    units.x = std::max(units.x, static_cast<double>(wanted.width()) / row.place.width);
    units.y = std::max(units.y, static_cast<double>(wanted.height()) / row.place.height);
}
}

QSize Units::ToPixels(int width, int height) const
{
    return {static_cast<int>(std::ceil(width * x)), static_cast<int>(std::ceil(height * y))};
}

QRect Units::ToPixels(const ui::layout::Rectangle& place) const
{
    const QPoint topLeft(static_cast<int>(std::lround(place.x * x)), static_cast<int>(std::lround(place.y * y)));
    return {topLeft, ToPixels(place.width, place.height)};
}

Units UnitsOf(const QWidget& widget)
{
    const QFontMetricsF metrics(widget.font());
    return {metrics.horizontalAdvance(Alphabet) / (sizeof Alphabet - 1) / 4, metrics.height() / 8};
}

Units UnitsThatFit(const QWidget& widget, const ui::CForm& form, const ui::layout::FormLayout& layout)
{
    Units units = UnitsOf(widget);
    CMeasure measure(widget);
    for (const Row& row : layout.rows)
        if (const ui::CControl* control = Find(form, row.control))
            EnlargeFor(units, row, measure.SizeFor(row.kind, QString::fromStdString(control->Caption())));
    return units;
}

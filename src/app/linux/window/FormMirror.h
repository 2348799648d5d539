#pragma once
#include "app/linux/window/Peer.h"
#include "app/linux/window/Units.h"
#include <QHash>
#include <memory>
#include <vector>

inline QPair<QString, int> HolderKey(const ui::layout::Holder& holder)
{
    return {QString::fromUtf8(holder.control.data(), static_cast<qsizetype>(holder.control.size())), holder.page};
}

inline bool SameHolder(const ui::layout::Holder& one, const ui::layout::Holder& other)
{
    return one.control == other.control && one.page == other.page;
}

// The inside of a native window: the widgets of a form, made from its table. Changes of the controls are mirrored together
// before the next event is handled, so that filling a long list costs one change. The pages of a tab strip that stands on
// the form itself are made when they are first shown.
class CFormMirror final : public QObject {
public:
    // `surface` becomes the form's inside. All are borrowed.
    CFormMirror(ui::CForm& form, const ui::layout::FormLayout& layout, QWidget& surface);
    ~CFormMirror() override;

    void MirrorNow();    // Brings all widgets up to date.
    void FollowFocus();  // The form's focus has moved.
    void Rescale();      // The font has changed.
    QSize NaturalSize() const;
    QWidget* WidgetOf(std::string_view control) const;  // Null while its page has not been shown.

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* holder, QEvent* event) override;

private:
    using Row = ui::layout::Row;
    using Holder = ui::layout::Holder;

    Holder RootOf(const Row& row) const;
    void Build(const Holder& root);
    void BuildControl(const Row& row);
    static void AddSpokenLabel(const Row& row, QWidget& holder, QWidget& combo);
    void JoinLabels(const Holder& root);
    void ShowSelectedPages(const CPeer& peer);
    QWidget& HolderWidget(const Holder& holder);
    void MakePage(const Holder& holder, QWidget& page);
    QSize LeastSizeOf(const Holder& page) const;
    void Arrange(const QWidget& holder);
    ui::layout::Rectangle PlaceNow(const Row& row) const;
    void Schedule(CPeer& peer);
    void ScheduleTurn();
    void TakeFocus();
    void ReportFocus(const QWidget* widget);
    ui::CControl& ControlOf(const Row& row) const;
    CPeer* PeerOf(std::string_view control) const;

    ui::CForm& m_form;
    const ui::layout::FormLayout& m_layout;
    QWidget& m_surface;
    Units m_units;
    struct Placed {
        CPeer* peer;
        QWidget* holder;
    };
    std::vector<std::unique_ptr<CPeer>> m_peers;
    std::vector<Placed> m_placed;
    QHash<QPair<QString, int>, QWidget*> m_pages;
    bool m_turnDue = false;
    bool m_focusDue = false;
};

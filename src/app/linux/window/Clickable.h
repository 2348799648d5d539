#pragma once
#include <QWidget>
#include <functional>
#include <string>
#include <string_view>

// A widget that can be clicked: by the mouse, by Return or Space, and by a screen reader.
class CClickable : public QWidget {
    Q_OBJECT
public:
    explicit CClickable(QWidget& parent) : QWidget(&parent) {}
    std::function<void()> onClick;
    void Click();

protected:
    // From now on the keyboard reaches it and the pointer is a hand.
    void ShowThatItIsClickable();
    void DrawFocus(QPainter& painter, const QRect& place) const;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
};

// An underlined text that leads somewhere.
class CLink final : public CClickable {
    Q_OBJECT
public:
    explicit CLink(QWidget& parent);
    void SetText(const QString& text);
    const QString& Text() const { return m_text; }
    void SetColor(const QColor& color);  // An invalid one stands for the desktop's colour of links.
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor ReadableColor() const;
    QString m_text;
    QColor m_color;
};

// One of the program's pictures, as large as fits.
class CPictureView final : public CClickable {
    Q_OBJECT
public:
    explicit CPictureView(QWidget& parent) : CClickable(parent) {}
    void Show(std::string_view picture);
    void MakeClickable(std::function<void()> click);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::string m_picture;
};

// Tells screen readers what these widgets are. Call once, before the first is made.
void DescribeClickables();

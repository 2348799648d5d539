#pragma once
#include "engine/animation/AnimationPlayer.h"
#include <QImage>
#include <QWidget>

namespace engine {

// Shows a character that greets and then stands still; silent.
class CCharacterPreview final : public QWidget, private IFrameTarget {
public:
    CCharacterPreview(ITimers& timers, QWidget* parent);
    void ShowCharacter(CharacterRef character);  // Null: nothing.
    QSize sizeHint() const override { return {160, 160}; }
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void ShowFrame(const Frame& frame) override;
    void PlaySound(std::uint16_t) override {}
    double RandomFraction() override;
    void Render();
    const Animation* Find(std::string_view name) const;
    const Animation* OfState(std::string_view state) const;
    void Greet();
    void Rest();

    CAnimationPlayer m_player;
    CharacterRef m_character;
    Bitmap m_frame;
    QImage m_image;
};

}

#include "engine/hosts/qt/CharacterPreview.h"
#include "base/text/Case.h"
#include "engine/animation/FrameComposer.h"
#include "engine/hosts/qt/PictureScaler.h"
#include <QPainter>
#include <QRandomGenerator>

namespace engine {

CCharacterPreview::CCharacterPreview(ITimers& timers, QWidget* parent) : QWidget(parent), m_player(timers, *this)
{
    setAccessibleName(QStringLiteral("Preview of the character"));
}

void CCharacterPreview::ShowCharacter(CharacterRef character)
{
    m_player.Forget();
    m_frame = {};
    m_character = std::move(character);
    if (m_character)
        Greet();
    Render();
}

const Animation* CCharacterPreview::Find(std::string_view name) const
{
    for (const Animation& animation : m_character->animations)
        if (text::EqualIgnoringCase(animation.name, name) && !animation.frames.empty())
            return &animation;
    return nullptr;
}

const Animation* CCharacterPreview::OfState(std::string_view state) const
{
    for (const State& candidate : m_character->states)
        if (text::EqualIgnoringCase(candidate.name, state))
            for (const std::string& name : candidate.animations)
                if (const Animation* animation = Find(name))
                    return animation;
    return nullptr;
}

void CCharacterPreview::Greet()
{
    const Animation* greeting = Find("Greet");
    if (greeting == nullptr)
        greeting = OfState("SHOWING");
    if (greeting == nullptr) {
        Rest();
        return;
    }
    m_player.Play(*greeting, [this, greeting] {
        const Animation* back = Find(greeting->returnAnimation);
        if (back != nullptr && greeting->transition == Transition::ReturnAnimation)
            m_player.Play(*back, [this] { Rest(); });
        else
            Rest();
    });
}

void CCharacterPreview::Rest()
{
    const Animation* neutral = OfState("SPEAKING");
    if (neutral == nullptr)
        neutral = Find("RestPose");
    if (neutral != nullptr)
        m_player.Play(*neutral, nullptr, /*holdLastFrame*/ false);
}

void CCharacterPreview::ShowFrame(const Frame& frame)
{
    m_frame = ComposeFrame(*m_character, frame, nullptr);
    Render();
}

double CCharacterPreview::RandomFraction() { return QRandomGenerator::global()->generateDouble(); }

// As large as fits, in device pixels.
void CCharacterPreview::Render()
{
    const QSize picture(m_frame.size.width, m_frame.size.height);
    m_image = {};
    if (!picture.isEmpty()) {
        const QSize room = (QSizeF(size()) * devicePixelRatioF()).toSize();
        m_image = ScalePicture(m_frame, picture.scaled(room, Qt::KeepAspectRatio), /*softEdges*/ true);
        m_image.setDevicePixelRatio(devicePixelRatioF());
    }
    update();
}

void CCharacterPreview::paintEvent(QPaintEvent*)
{
    if (m_image.isNull())
        return;
    QPainter painter(this);
    const QSizeF drawn = m_image.deviceIndependentSize();
    painter.drawImage(QPointF((width() - drawn.width()) / 2, (height() - drawn.height()) / 2), m_image);
}

void CCharacterPreview::resizeEvent(QResizeEvent*) { Render(); }

void CCharacterPreview::hideEvent(QHideEvent*) { m_player.Cut(); }

}

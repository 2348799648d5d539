#pragma once
#include "engine/Host.h"
#include <memory>
#include <optional>
#include <vector>

namespace engine {

// The character's window: where it is, whether it shows, and the picture in it, which is sent only when it changed.
class CStage {
public:
    CStage(IHost& host, const Character& character, IMouseEvents& mouse);

    void SetFrame(const Frame* frame);  // Borrowed from the character; null for an empty picture.
    const Frame* CurrentFrame() const { return m_frame; }
    void SetMouth(std::optional<Mouth> mouth);  // Without value: the frame as it is.

    const Rect& Place() const { return m_place; }
    void SetPlace(const Rect& place);
    bool Visible() const { return m_visible; }
    void Show();  // Also brings it before all others.
    void Hide();  // Forgets the picture.
    void Raise();

private:
    void Draw();

    IHost& m_host;
    const Character& m_character;
    IMouseEvents& m_mouse;
    std::unique_ptr<ICharacterWindow> m_window;  // From the first Show on.
    Rect m_place;
    bool m_visible = false;
    const Frame* m_frame = nullptr;
    std::optional<Mouth> m_mouth;
    // What the window shows: the pictures and the overlay, if it shows anything.
    bool m_drawn = false;
    std::vector<PlacedPicture> m_drawnPictures;
    std::optional<MouthOverlay> m_drawnOverlay;
};

}

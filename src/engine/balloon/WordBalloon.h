#pragma once
#include "engine/balloon/BalloonStyle.h"
#include "engine/balloon/LineBreaker.h"
#include "engine/base/Timer.h"
#include "engine/speech/SpeechTags.h"
#include <functional>
#include <memory>
#include <vector>

namespace engine {

// The word balloon of one character: what it says, how far that has appeared, and where it stands.
class CWordBalloon {
public:
    // `changed` is told whenever the balloon has appeared (true) or gone (false).
    CWordBalloon(IHost& host, const BalloonLook& look, bool enabled, std::function<void(bool)> changed);

    bool Enabled() const { return m_enabled; }
    void SetEnabled(bool enabled);
    bool Visible() const { return m_visible; }
    const BalloonStyle& Style() const { return m_style; }
    void SetStyle(const BalloonStyle& style);
    const Font& TextFont() const { return m_font; }
    void SetFont(const Font& font);

    // A text is about to be spoken; what shows stays until its first words come.
    void Begin(std::string text, std::vector<ShownWord> words);
    void ShowWords(std::size_t count);  // So many words have been spoken or begun.
    void Finish();                      // The output of this text has ended.
    void Hide();
    void SetCharacterPlace(const Rect& character);
    void WorkAreaChanged();

private:
    void Appear(std::size_t words);
    void TakeNextText();
    void Relayout();
    void Draw();
    Rect WorkArea() const;  // Of the screen on which most of the character stands.
    void EnsureLines(std::size_t count);
    std::size_t LineOf(std::size_t byte);
    std::size_t LinesThatFit() const;
    std::size_t VisibleLines();
    std::int32_t BodyTextWidth();
    void FollowWords();
    void Scroll();
    BalloonPicture Picture();
    void AddLines(BalloonPicture& picture);
    std::size_t ShownEnd() const;

    IHost& m_host;
    const BalloonLook m_look;
    bool m_enabled;
    std::function<void(bool)> m_changed;
    BalloonStyle m_style;
    Font m_font;
    CTimer m_hideTimer;
    CTimer m_scrollTimer;
    std::unique_ptr<IBalloonWindow> m_window;
    Rect m_character;
    bool m_visible = false;
    bool m_begun = true;  // The text of the last Begin shows.
    std::string m_nextText;
    std::vector<ShownWord> m_nextWords;
    std::string m_text;
    std::vector<ShownWord> m_words;
    std::size_t m_shownWords = 0;
    std::unique_ptr<CLineBreaker> m_breaker;
    std::vector<TextLine> m_lines;  // As far as they were needed.
    bool m_allLines = false;
    std::int32_t m_textWidth = 0;
    std::int32_t m_scrolled = 0;  // Pixels.
    std::int32_t m_scrollGoal = 0;
};

}

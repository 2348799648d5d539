#include "engine/balloon/WordBalloon.h"
#include "engine/balloon/BalloonPlace.h"
#include "engine/base/Constants.h"
#include <algorithm>
#include <cstdlib>

namespace engine {

namespace {

constexpr std::int32_t FrameWidth = constants::BalloonPadding + constants::BalloonOutline;

BalloonStyle StyleOf(const BalloonLook& look)
{
    BalloonStyle style;
    style.sizeToText = look.sizeToText;
    style.autoHide = look.autoHide;
    style.autoPace = look.autoPace;
    style.charsPerLine = std::clamp<std::int32_t>(look.charsPerLine, 8, 255);
    style.lines = std::clamp<std::int32_t>(look.lines, 1, 128);
    return style;
}

// Heights in files are pixels at 96 dots an inch.
Font FontOf(const BalloonLook& look)
{
    const double pixels = std::clamp(std::abs(static_cast<double>(look.fontHeight)), 4.0, 400.0);
    return {look.fontName, pixels * 72 / 96, look.bold, look.italic};
}

}

CWordBalloon::CWordBalloon(IHost& host, const BalloonLook& look, bool enabled, std::function<void(bool)> changed)
    : m_host(host), m_look(look), m_enabled(enabled), m_changed(std::move(changed)), m_style(StyleOf(look)),
      m_font(FontOf(look)), m_hideTimer(host.Timers()), m_scrollTimer(host.Timers())
{
}

void CWordBalloon::SetEnabled(bool enabled)
{
    m_enabled = enabled;
    if (!enabled)
        Hide();
}

void CWordBalloon::SetStyle(const BalloonStyle& style)
{
    m_style = style;
    if (!style.on)
        Hide();
    Relayout();
    Draw();
}

void CWordBalloon::SetFont(const Font& font)
{
    m_font = font;
    Relayout();
    Draw();
}

void CWordBalloon::Begin(std::string text, std::vector<ShownWord> words)
{
    m_hideTimer.Stop();
    m_scrollTimer.Stop();
    m_nextText = std::move(text);
    m_nextWords = std::move(words);
    m_begun = false;
    if (!m_style.autoPace && !m_nextWords.empty())
        Appear(0);
}

void CWordBalloon::ShowWords(std::size_t count)
{
    if (count > 0)
        Appear(count);
}

void CWordBalloon::Finish()
{
    if (!m_begun)
        Hide();  // Nothing of this text ever showed: the old one has been replaced by nothing.
    else if (m_visible && m_style.autoHide)
        m_hideTimer.Start(constants::BalloonAutoHide, [this] { Hide(); });
}

void CWordBalloon::Hide()
{
    m_hideTimer.Stop();
    m_scrollTimer.Stop();
    if (!std::exchange(m_visible, false))
        return;
    m_window->Hide();
    m_changed(false);
}

void CWordBalloon::SetCharacterPlace(const Rect& character)
{
    if (m_character == character)
        return;
    m_character = character;
    if (m_visible)
        Draw();
}

void CWordBalloon::WorkAreaChanged()
{
    Relayout();
    Draw();
}

Rect CWordBalloon::WorkArea() const
{
    return m_host.Desktop().WorkArea({m_character.left + m_character.width / 2, m_character.top + m_character.height / 2});
}

void CWordBalloon::Appear(std::size_t words)
{
    if (!m_enabled || !m_style.on)
        return;
    if (!m_window)
        m_window = m_host.CreateBalloonWindow();
    const bool appeared = !std::exchange(m_visible, true);
    const bool first = !std::exchange(m_begun, true);
    if (first)
        TakeNextText();
    m_shownWords = std::min(words, m_words.size());
    if (first || !m_breaker)
        Relayout();
    else
        FollowWords();
    Draw();
    if (appeared)
        m_changed(true);
}

void CWordBalloon::TakeNextText()
{
    m_breaker.reset();
    m_text = std::move(m_nextText);
    m_words = std::move(m_nextWords);
}

void CWordBalloon::Relayout()
{
    if (!m_visible)
        return;
    const std::int32_t average = std::max(1, m_host.Text().AverageCharacterWidth(m_font));
    const Rect area = WorkArea();
    const std::int32_t most = std::max(average, area.width - 2 * FrameWidth);
    m_textWidth = std::min(m_style.charsPerLine * average, most);
    m_breaker = std::make_unique<CLineBreaker>(m_host.Text(), m_font, m_textWidth, m_text);
    m_lines.clear();
    m_allLines = false;
    m_scrolled = 0;
    m_scrollGoal = 0;
    FollowWords();
    m_scrollTimer.Stop();
    m_scrolled = m_scrollGoal;
}

void CWordBalloon::EnsureLines(std::size_t count)
{
    TextLine line;
    while (!m_allLines && m_lines.size() < count) {
        m_allLines = !m_breaker->Next(line);
        if (!m_allLines)
            m_lines.push_back(line);
    }
}

// The line that holds the byte before `byte`.
std::size_t CWordBalloon::LineOf(std::size_t byte)
{
    while (!m_allLines && (m_lines.empty() || m_lines.back().end < byte))
        EnsureLines(m_lines.size() + 1);
    const auto line = std::lower_bound(m_lines.begin(), m_lines.end(), byte,
                                       [](const TextLine& candidate, std::size_t at) { return candidate.end < at; });
    const auto index = static_cast<std::size_t>(line - m_lines.begin());
    return m_lines.empty() ? 0 : std::min(index, m_lines.size() - 1);
}

std::size_t CWordBalloon::LinesThatFit() const
{
    const Rect area = WorkArea();
    const std::int32_t lineHeight = std::max(1, m_host.Text().LineHeight(m_font));
    return static_cast<std::size_t>(std::max(1, (area.height - 2 * FrameWidth - constants::BalloonTailLength) / lineHeight));
}

std::size_t CWordBalloon::VisibleLines()
{
    const std::size_t most = LinesThatFit();
    if (!m_style.sizeToText)
        return std::min(static_cast<std::size_t>(m_style.lines), most);
    EnsureLines(most);
    return std::clamp<std::size_t>(m_lines.size(), 1, most);
}

std::size_t CWordBalloon::ShownEnd() const
{
    if (!m_style.autoPace)
        return m_text.size();
    return m_shownWords == 0 ? 0 : m_words[m_shownWords - 1].end;
}

// Scrolls so that the line of the last spoken word is in sight.
void CWordBalloon::FollowWords()
{
    if (m_shownWords == 0 || !m_breaker)
        return;
    const std::size_t visible = VisibleLines();
    const std::size_t line = LineOf(m_words[m_shownWords - 1].end);
    const std::size_t above = line + 1 > visible ? line + 1 - visible : 0;
    m_scrollGoal = static_cast<std::int32_t>(above) * m_host.Text().LineHeight(m_font);
    if (m_scrolled != m_scrollGoal && !m_scrollTimer.Running())
        m_scrollTimer.Start(constants::BalloonScrollTick, [this] { Scroll(); });
}

void CWordBalloon::Scroll()
{
    const std::int32_t step = std::max(1, std::abs(m_scrollGoal - m_scrolled) / constants::BalloonScrollTicksPerLine + 1);
    m_scrolled += std::clamp(m_scrollGoal - m_scrolled, -step, step);
    Draw();
    if (m_scrolled != m_scrollGoal)
        m_scrollTimer.Start(constants::BalloonScrollTick, [this] { Scroll(); });
}

// A single line makes the balloon as narrow as itself where the size follows the text.
std::int32_t CWordBalloon::BodyTextWidth()
{
    EnsureLines(2);
    if (!m_style.sizeToText || m_lines.size() != 1)
        return m_textWidth;
    const TextLine& line = m_lines.front();
    const std::int32_t width =
        m_host.Text().Width(m_font, std::string_view(m_text).substr(line.begin, line.end - line.begin));
    return std::clamp(width, std::min(m_textWidth, 2 * constants::BalloonTailMargin), m_textWidth);
}

void CWordBalloon::Draw()
{
    if (m_visible && m_breaker)
        m_window->Show(Picture());
}

BalloonPicture CWordBalloon::Picture()
{
    const std::int32_t lineHeight = m_host.Text().LineHeight(m_font);
    const Size text{BodyTextWidth(), static_cast<std::int32_t>(VisibleLines()) * lineHeight};
    const Rect area = WorkArea();
    const BalloonPlace place = PlaceBalloon(m_character, {text.width + 2 * FrameWidth, text.height + 2 * FrameWidth}, area);
    BalloonPicture picture;
    picture.place = place.window;
    picture.body = place.body;
    picture.textArea = {place.body.left + FrameWidth, place.body.top + FrameWidth, text.width, text.height};
    picture.tail = place.tail;
    picture.font = m_font;
    picture.text = m_look.text;
    picture.background = m_look.background;
    picture.border = m_look.border;
    AddLines(picture);
    return picture;
}

void CWordBalloon::AddLines(BalloonPicture& picture)
{
    const std::int32_t lineHeight = std::max(1, m_host.Text().LineHeight(m_font));
    const std::int32_t ascent = m_host.Text().Ascent(m_font);
    const auto first = static_cast<std::size_t>(m_scrolled / lineHeight);
    const auto last = static_cast<std::size_t>((m_scrolled + picture.textArea.height + lineHeight - 1) / lineHeight);
    const std::size_t end = ShownEnd();
    EnsureLines(last);
    for (std::size_t index = first; index < std::min(last, m_lines.size()) && m_lines[index].begin < end; ++index) {
        const TextLine& line = m_lines[index];
        const std::int32_t top = picture.textArea.top + static_cast<std::int32_t>(index) * lineHeight - m_scrolled;
        picture.lines.push_back(
            {m_text.substr(line.begin, std::min(line.end, end) - line.begin), {picture.textArea.left, top + ascent}});
    }
}

}

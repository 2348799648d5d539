#include "engine/hosts/headless/HeadlessHost.h"
#include "base/text/Text.h"
#include <algorithm>

namespace engine {

namespace {

constexpr std::int32_t CharacterWidth = 8;

class CHeadlessWindow final : public ICharacterWindow {
public:
    CHeadlessWindow(WindowRecord& record, IMouseEvents& mouse) : m_record(record) { record.mouse = &mouse; }
    ~CHeadlessWindow() override
    {
        m_record.shown = false;
        m_record.destroyed = true;
        m_record.mouse = nullptr;
    }
    void SetPicture(const Bitmap& picture) override
    {
        m_record.picture = picture;
        ++m_record.picturesSet;
    }
    void SetPlace(const Rect& place) override { m_record.place = place; }
    void Show() override { m_record.shown = true; }
    void Hide() override { m_record.shown = false; }
    void Raise() override { ++m_record.raised; }

private:
    WindowRecord& m_record;
};

class CHeadlessBalloon final : public IBalloonWindow {
public:
    explicit CHeadlessBalloon(BalloonRecord& record) : m_record(record) {}
    ~CHeadlessBalloon() override
    {
        m_record.shown = false;
        m_record.destroyed = true;
    }
    void Show(const BalloonPicture& picture) override
    {
        m_record.shown = true;
        ++m_record.pictures;
        m_record.picture = picture;
    }
    void Hide() override { m_record.shown = false; }

private:
    BalloonRecord& m_record;
};

}

void WindowRecord::Click(int button, int shift, Point at)
{
    mouse->Press(button, shift, at);
    mouse->Release(button, shift, at);
}

void WindowRecord::DoubleClick(int button, int shift, Point at)
{
    Click(button, shift, at);
    mouse->DoublePress(button, shift, at);
    mouse->Release(button, shift, at);
}

void WindowRecord::Drag(Point from, Point to)
{
    mouse->Press(1, 0, from);
    mouse->Move(1, 0, {(from.x + to.x) / 2, (from.y + to.y) / 2});
    mouse->Move(1, 0, to);
    mouse->Release(1, 0, to);
}

std::vector<std::string> BalloonRecord::Lines() const
{
    std::vector<std::string> lines;
    for (const BalloonPicture::Line& line : picture.lines)
        lines.push_back(line.text);
    return lines;
}

std::string BalloonRecord::Text() const
{
    std::string text;
    for (const std::string& line : Lines())
        text += text.empty() ? line : "/" + line;
    return text;
}

std::int32_t CFixedTextMeasure::Width(const Font&, std::string_view text) const
{
    m_measured += text.size();
    return static_cast<std::int32_t>(text::Length(text)) * CharacterWidth;
}

void CHeadlessDesktop::Change(const Rect& area)
{
    workArea = area;
    Tell();
}

void CHeadlessDesktop::Unplug()
{
    moreWorkAreas.pop_back();
    Tell();
}

void CHeadlessDesktop::Tell()
{
    const auto watchers = m_watchers;
    for (const auto& [watcher, changed] : watchers)
        changed();
}

Rect CHeadlessDesktop::WorkArea(Point near) const
{
    const auto distance = [near](const Rect& area) {
        return std::max({area.left - near.x, near.x - area.Right() + 1, 0}) +
               std::max({area.top - near.y, near.y - area.Bottom() + 1, 0});
    };
    const auto nearest =
        std::min_element(moreWorkAreas.begin(), moreWorkAreas.end(),
                         [&](const Rect& left, const Rect& right) { return distance(left) < distance(right); });
    return nearest != moreWorkAreas.end() && distance(*nearest) < distance(workArea) ? *nearest : workArea;
}

void CHeadlessLoadedCharacters::Leave(const std::string& guid)
{
    const auto found = std::find(here.begin(), here.end(), guid);
    if (found != here.end())
        here.erase(found);
}

bool CHeadlessLoadedCharacters::OthersHave(const std::string& guid) const
{
    return std::find(elsewhere.begin(), elsewhere.end(), guid) != elsewhere.end();
}

std::vector<std::string> CHeadlessSpeechInput::Offered() const
{
    std::vector<std::string> lines;
    for (const auto& [listener, given] : m_offers)
        for (const SpokenCommand& command : given.commands)
            lines.push_back(command.name + ": " + command.voice);
    return lines;
}

void CHeadlessSpeechInput::Hear(const std::vector<HeardCommand>& matches)
{
    const auto offers = m_offers;
    for (const auto& [listener, given] : offers)
        given.heard(matches);
}

std::unique_ptr<ICharacterWindow> CHeadlessHost::CreateCharacterWindow(IMouseEvents& mouse)
{
    return std::make_unique<CHeadlessWindow>(windows.emplace_back(), mouse);
}

std::unique_ptr<IBalloonWindow> CHeadlessHost::CreateBalloonWindow()
{
    return std::make_unique<CHeadlessBalloon>(balloons.emplace_back());
}

double CHeadlessHost::RandomFraction()
{
    if (randomFractions.empty())
        return 0;
    const double fraction = randomFractions.front();
    randomFractions.pop_front();
    return fraction;
}

}

#include "engine/hosts/headless/EventJournal.h"

namespace engine {

namespace {

std::string Text(int number) { return std::to_string(number); }

std::string StatusOf(const platform::RequestRef& request)
{
    return Text(request->ID()) + " status " + Text(static_cast<int>(request->Status()));
}

}

void CEventJournal::Note(std::string line)
{
    lines.push_back(std::move(line));
    times.push_back(m_timers.NowMilliseconds());
    const std::string noted = lines.back();
    if (onEvent)
        onEvent(noted);
}

std::vector<std::string> CEventJournal::Of(const std::string& beginning) const
{
    std::vector<std::string> found;
    for (const std::string& line : lines)
        if (line.compare(0, beginning.size(), beginning) == 0)
            found.push_back(line);
    return found;
}

std::int64_t CEventJournal::TimeOf(const std::string& beginning) const
{
    for (std::size_t index = 0; index < lines.size(); ++index)
        if (lines[index].compare(0, beginning.size(), beginning) == 0)
            return times[index];
    return -1;
}

void CEventJournal::Clear()
{
    lines.clear();
    times.clear();
}

void CEventJournal::NoteMouse(const std::string& what, const std::string& id, int button, int shift, int x, int y)
{
    Note(what + " " + id + " button " + Text(button) + " shift " + Text(shift) + " at " + Text(x) + " " + Text(y));
}

void CEventJournal::Click(const std::string& id, std::int16_t button, std::int16_t shift, std::int16_t x, std::int16_t y)
{
    NoteMouse("Click", id, button, shift, x, y);
}

void CEventJournal::DblClick(const std::string& id, std::int16_t button, std::int16_t shift, std::int16_t x, std::int16_t y)
{
    NoteMouse("DblClick", id, button, shift, x, y);
}

void CEventJournal::DragStart(const std::string& id, std::int16_t button, std::int16_t shift, std::int16_t x, std::int16_t y)
{
    NoteMouse("DragStart", id, button, shift, x, y);
}

void CEventJournal::DragComplete(const std::string& id, std::int16_t button, std::int16_t shift, std::int16_t x,
                                 std::int16_t y)
{
    NoteMouse("DragComplete", id, button, shift, x, y);
}

void CEventJournal::Show(const std::string& id, std::int16_t cause) { Note("Show " + id + " cause " + Text(cause)); }
void CEventJournal::Hide(const std::string& id, std::int16_t cause) { Note("Hide " + id + " cause " + Text(cause)); }
void CEventJournal::Move(const std::string& id, std::int16_t x, std::int16_t y, std::int16_t cause)
{
    Note("Move " + id + " " + Text(x) + " " + Text(y) + " cause " + Text(cause));
}
void CEventJournal::Size(const std::string& id, std::int16_t width, std::int16_t height)
{
    Note("Size " + id + " " + Text(width) + " " + Text(height));
}
void CEventJournal::RequestStart(const platform::RequestRef& request) { Note("RequestStart " + StatusOf(request)); }
void CEventJournal::RequestComplete(const platform::RequestRef& request) { Note("RequestComplete " + StatusOf(request)); }
void CEventJournal::Command(const platform::IUserInput& input)
{
    const auto match = [](const std::string& name, std::int32_t confidence, const std::string& voice) {
        return name + " " + Text(confidence) + " '" + voice + "'";
    };
    Note("Command " + input.CharacterID() + " count " + Text(input.Count()) + ": " +
         match(input.Name(), input.Confidence(), input.Voice()) + ", " +
         match(input.Alt1Name(), input.Alt1Confidence(), input.Alt1Voice()) + ", " +
         match(input.Alt2Name(), input.Alt2Confidence(), input.Alt2Voice()));
}
void CEventJournal::DefaultCharacterChange(const std::string& guid) { Note("DefaultCharacterChange " + guid); }
void CEventJournal::Bookmark(std::int32_t number) { Note("Bookmark " + Text(number)); }
void CEventJournal::BalloonShow(const std::string& id) { Note("BalloonShow " + id); }
void CEventJournal::BalloonHide(const std::string& id) { Note("BalloonHide " + id); }
void CEventJournal::IdleStart(const std::string& id) { Note("IdleStart " + id); }
void CEventJournal::IdleComplete(const std::string& id) { Note("IdleComplete " + id); }

}

#include "engine/session/CharacterObject.h"
#include "platform/Failure.h"
#include <cmath>

namespace engine {

namespace engineError = platform::engineError;
using platform::CFailure;

namespace {

constexpr std::int32_t LargestFont = 2160;  // Points.

class CBalloonObject final : public platform::IBalloon {
public:
    explicit CBalloonObject(std::weak_ptr<Seat> seat) : m_seat(std::move(seat)) {}

    bool Enabled() const override { return Balloon().Enabled(); }
    bool Visible() const override { return Balloon().Visible(); }
    std::int32_t Style() const override { return BalloonStyleWord(Balloon().Style()); }
    void SetStyle(std::int32_t word) override
    {
        const std::optional<BalloonStyle> style = ParseBalloonStyle(word);
        if (!style)
            throw CFailure(engineError::InvalidArgument, "The number of lines or characters is out of range.");
        Balloon().SetStyle(*style);
    }
    std::string FontName() const override { return Balloon().TextFont().family; }
    void SetFontName(const std::string& name) override
    {
        Font font = Balloon().TextFont();
        font.family = name;
        Balloon().SetFont(font);
    }
    std::int32_t FontSize() const override { return static_cast<std::int32_t>(std::lround(Balloon().TextFont().points)); }
    void SetFontSize(std::int32_t points) override
    {
        if (points < 1 || points > LargestFont)
            throw CFailure(engineError::InvalidArgument, "The font size is out of range.");
        Font font = Balloon().TextFont();
        font.points = points;
        Balloon().SetFont(font);
    }
    bool FontBold() const override { return Balloon().TextFont().bold; }
    bool FontItalic() const override { return Balloon().TextFont().italic; }
    std::int32_t CharsPerLine() const override { return Balloon().Style().charsPerLine; }
    std::int32_t NumberOfLines() const override { return Balloon().Style().lines; }

private:
    // Outlives the call: the engine holds the actor. Another default character may have no balloon.
    CWordBalloon& Balloon() const
    {
        CWordBalloon* balloon = Living(m_seat)->Balloon();
        if (balloon == nullptr)
            throw CFailure(engineError::NoBalloon, "The character has no word balloon.");
        return *balloon;
    }

    std::weak_ptr<Seat> m_seat;
};

class CCommandsObject final : public platform::ICommands {
public:
    explicit CCommandsObject(std::weak_ptr<Seat> seat) : m_seat(std::move(seat)) {}

    void RemoveAll() override
    {
        Change([](CommandList& list) { list.commands.clear(); });
    }
    void SetCaption(const std::string& caption) override
    {
        Change([&](CommandList& list) { list.caption = caption; });
    }
    void Add(const std::string& name, const std::optional<std::string>& caption, const std::optional<std::string>& voice,
             std::optional<bool> enabled, std::optional<bool> visible) override
    {
        Change([&](CommandList& list) {
            list.Add({name, caption.value_or(""), voice.value_or(""), enabled.value_or(true), visible.value_or(true)});
        });
    }

private:
    template <class Changing> void Change(Changing&& changing)
    {
        const auto actor = Living(m_seat);
        CommandList list = actor->Commands();
        changing(list);
        actor->SetCommands(std::move(list));
    }

    std::weak_ptr<Seat> m_seat;
};

}

std::shared_ptr<platform::IBalloon> MakeBalloonObject(const std::shared_ptr<Seat>& seat)
{
    if (seat->actor->Balloon() == nullptr)
        throw CFailure(engineError::NoBalloon, "The character has no word balloon.");
    return std::make_shared<CBalloonObject>(seat);
}

std::shared_ptr<platform::ICommands> MakeCommandsObject(const std::shared_ptr<Seat>& seat)
{
    return std::make_shared<CCommandsObject>(seat);
}

}

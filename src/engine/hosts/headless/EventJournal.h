#pragma once
#include "engine/Host.h"
#include "platform/CharacterEngine.h"
#include <functional>
#include <string>
#include <vector>

namespace engine {

// Writes every event down as one line, such as "RequestStart 2 status 4" or "Move Bot 10 20 cause 2".
class CEventJournal final : public platform::ICharacterEngineEvents {
public:
    explicit CEventJournal(const ITimers& timers) : m_timers(timers) {}

    std::vector<std::string> lines;
    std::vector<std::int64_t> times;                  // Milliseconds, one for each line.
    std::function<void(const std::string&)> onEvent;  // Called with each line: for tests that act inside an event.

    // The lines that begin with a text, in order.
    std::vector<std::string> Of(const std::string& beginning) const;
    std::size_t Count(const std::string& beginning) const { return Of(beginning).size(); }
    // When the first line that begins with a text came; -1 for never.
    std::int64_t TimeOf(const std::string& beginning) const;
    void Clear();

    void Click(const std::string& id, std::int16_t button, std::int16_t shift, std::int16_t x, std::int16_t y) override;
    void DblClick(const std::string& id, std::int16_t button, std::int16_t shift, std::int16_t x, std::int16_t y) override;
    void DragStart(const std::string& id, std::int16_t button, std::int16_t shift, std::int16_t x, std::int16_t y) override;
    void DragComplete(const std::string& id, std::int16_t button, std::int16_t shift, std::int16_t x,
                      std::int16_t y) override;
    void Show(const std::string& id, std::int16_t cause) override;
    void Hide(const std::string& id, std::int16_t cause) override;
    void Move(const std::string& id, std::int16_t x, std::int16_t y, std::int16_t cause) override;
    void Size(const std::string& id, std::int16_t width, std::int16_t height) override;
    void RequestStart(const platform::RequestRef& request) override;
    void RequestComplete(const platform::RequestRef& request) override;
    void Command(const platform::IUserInput& input) override;
    void DefaultCharacterChange(const std::string& guid) override;
    void Bookmark(std::int32_t number) override;
    void BalloonShow(const std::string& id) override;
    void BalloonHide(const std::string& id) override;
    void IdleStart(const std::string& id) override;
    void IdleComplete(const std::string& id) override;

private:
    void Note(std::string line);
    void NoteMouse(const std::string& what, const std::string& id, int button, int shift, int x, int y);

    const ITimers& m_timers;
};

}

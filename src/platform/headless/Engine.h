#pragma once
#include "platform/CharacterEngine.h"
#include "platform/headless/Journal.h"
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace platform::headless {

class CRequest final : public IRequest {
public:
    CRequest(std::int32_t id, std::string call) : what(std::move(call)), m_id(id) {}
    std::int32_t ID() const override { return m_id; }
    RequestStatus Status() const override { return status; }
    std::int32_t Number() const override { return number; }
    std::string Description() const override { return ""; }

    std::string what;  // The call that made it, as in the journal.
    RequestStatus status = RequestStatus::Pending;
    std::int32_t number = 0;

private:
    std::int32_t m_id;
};

// What a recorded character is and has; tests set it up and look at it.
struct EngineCharacter {
    std::string name = "Merlin";
    std::int16_t left = 0, top = 0, width = 128, height = 128, originalWidth = 128, originalHeight = 128;
    std::int32_t pitch = 100, speed = 150;
    std::string ttsModeID = "{CA141FD0-AC7F-11D1-97A3-006008273000}";
    bool autoPopupMenu = true, idleOn = true, soundEffectsOn = true, visible = false, hasOtherClients = false;
    std::int32_t balloonStyle = 0x02200007, fontSize = 10;
    std::string fontName = "Arial";
    bool fontBold = false, fontItalic = false;
    std::vector<std::string> animations{"Show", "Hide", "RestPose", "Greet", "Announce", "Read", "ReadReturn", "Wave"};
    std::map<std::string, std::int32_t> namedNumbers;  // Members that answer by name.
};

// A character engine that draws and speaks nothing: it notes every call in the journal ("Character.Speak ..."), keeps the
// requests until a test completes them, and refuses any call on demand.
class CEngine final : public ICharacterEngineFactory {
public:
    explicit CEngine(CJournal& journal) : m_journal(journal) {}
    std::shared_ptr<ICharacterEngine> Create() override;
    void RequireForMainWindow() override;

    // The next loaded characters start like this; per file name where given.
    EngineCharacter character;
    std::map<std::string, EngineCharacter> characterOfFile;
    std::set<std::string> missingFiles;  // Loading one of these fails.
    bool installed = true;               // False: RequireForMainWindow and Create fail.

    // The character that is loaded; null when none is.
    EngineCharacter* loaded = nullptr;
    std::vector<std::shared_ptr<CRequest>> requests;  // In the order of the calls.
    ICharacterEngineEvents* events = nullptr;
    bool propertySheetVisible = false;

    // Ends a request and raises RequestComplete.
    void Complete(std::size_t index, RequestStatus status = RequestStatus::Completed);
    std::function<void()> whenSpoken;  // Runs inside of every Speak; may take its time.
    // Texts given to Speak so far.
    std::vector<std::string> Spoken() const;
    std::vector<std::string> commands;  // "name|caption|voice|enabled|visible", "-" for omitted.
    std::string commandsCaption;

private:
    friend class CEngineControl;
    friend class CEngineCharacters;
    friend class CEngineCharacterProxy;
    friend class CEngineBalloon;
    friend class CEngineCommands;
    RequestRef Request(std::string what);
    CJournal& m_journal;
    std::map<std::string, EngineCharacter> m_characters;
    std::vector<std::string> m_spoken;
};

}

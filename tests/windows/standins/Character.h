#pragma once
#include "windows/standins/Requests.h"

namespace standins {

struct CCommandState {
    std::string name;
    CValues values;
};

// A character of one client.
class CCharacterState : public std::enable_shared_from_this<CCharacterState> {
public:
    CCharacterState(const std::shared_ptr<CClient>& owner, std::string characterID, std::string name);
    std::shared_ptr<CScene> scene;
    std::weak_ptr<CClient> client;
    std::string id;
    bool alive = true;
    bool halfMade = false;  // What a failed Load leaves behind.
    bool isDefault = false;
    CValues values;  // Of the character; those of the balloon begin with "Balloon.", of its commands with "Commands.".
    std::vector<std::shared_ptr<CCommandState>> commands;
    std::shared_ptr<CQueue> queue;

    void Raise(const char* event, std::vector<CValue> arguments);  // The id comes first; now.
    void RaiseLater(const char* event, std::vector<CValue> arguments);
    void SetShown(bool shown, std::int16_t cause, bool withEvent = true);
    void MoveTo(std::int16_t left, std::int16_t top);
};

CRef<IDispatch> NewCharacter(const std::shared_ptr<CCharacterState>& state);
CRef<IDispatch> NewBalloon(const std::shared_ptr<CCharacterState>& state);
CRef<IDispatch> NewCommands(const std::shared_ptr<CCharacterState>& state);
CRef<IDispatch> NewNames(const std::shared_ptr<CScene>& scene, const std::string& path, std::vector<std::string> names);

// What the user said, as the Command event hands it on.
struct CHeard {
    std::string characterID, name, voice, firstName, firstVoice, secondName, secondVoice;
    std::int32_t count = 1, confidence = 100, firstConfidence = 0, secondConfidence = 0;
};
CRef<IDispatch> NewUserInput(const std::shared_ptr<CScene>& scene, const CHeard& heard);

// Calls of a character that is gone fail with this.
void RequireAlive(const CCharacterState& state);

}

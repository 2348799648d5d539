#pragma once
#include "windows/standins/Log.h"
#include "windows/standins/Loop.h"
#include "windows/standins/Script.h"
#include <map>
#include <memory>
#include <optional>

namespace standins {

class CCharacterState;
class CClient;
class CTypes;

// By which interfaces a control tells its event interface.
enum class ClassInfo { Both, One, Library, None };
// What requests do by themselves: run to their end, start and stay, not even start.
enum class Hold { Off, Running, Pending };

struct CVoice {
    std::string modeID, modeName;
    std::int32_t language = 0x0409;
};

// What the running Word and Excel hold.
struct COffice {
    std::string document, selection;
    std::int32_t rows = 1, columns = 1;
    std::map<std::pair<std::int32_t, std::int32_t>, CValue> cells;  // By row and column, counted from 1; others are empty.
    std::string selected = "range";
    DWORD word = 0, excel = 0;  // Their registrations in the running-object table.
};

// What a set of stand-ins shares: what they recorded, how they shall behave, and what lives at the moment.
class CScene : public std::enable_shared_from_this<CScene> {
public:
    CScene();
    CScene(const CScene&) = delete;
    CScene& operator=(const CScene&) = delete;
    ~CScene();

    CLog log;
    CScript script;
    CLoop loop;
    long livingObjects = 0, objectsEver = 0;

    bool disconnected = false;  // Every call gives RPC_E_DISCONNECTED.
    ClassInfo classInfo = ClassInfo::Both;
    bool ownEvents = false;       // Event identifiers of our own.
    bool plainReceivers = false;  // Receivers need not know the event interface: no proxy of the system's carries it.
    Hold hold = Hold::Off;
    unsigned requestMilliseconds = 5;
    std::vector<CVoice> voices;
    std::vector<std::string> animations;
    std::optional<std::string> defaultCharacter = "Merlin";  // Its name; nothing: there is none.
    bool halfMadeGivesDefault =
        false;  // What the half-made entry of a failed Load gives: the default character or an error.
    std::vector<std::pair<std::string, std::string>> initialValues;  // Of characters that are loaded from now on.
    std::vector<std::weak_ptr<CClient>> clients;
    std::vector<std::weak_ptr<CCharacterState>> characters;
    std::int32_t lastRequest = 0;
    COffice office;
    std::function<void()> quit;    // Ends the server's program; empty where there is none.
    std::function<void()> revoke;  // Takes the server's classes back, before its sudden end; may be empty.

    // One command as the README tells. False when it is not understood; then nothing is done.
    bool Tell(const std::string& command);
    void RunInsideCall(const std::string& command);  // Its events are raised before it returns.
    // Runs work from the loop, or at once inside a call that a rule makes busy.
    void Later(std::function<void()> work);
    // The character that any control has under the id; null when there is none.
    std::shared_ptr<CCharacterState> Character(const std::string& id) const;
    CTypes& Types();

private:
    std::unique_ptr<CTypes> m_types;
    bool m_insideCall = false;
};

}

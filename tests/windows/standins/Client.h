#pragma once
#include "windows/standins/Events.h"
#include "windows/standins/Scene.h"
#include <map>

namespace standins {

class CCharacterState;

struct CNameOrder {
    bool operator()(const std::string& left, const std::string& right) const;
};

// Values by name, without regard to case.
class CValues {
public:
    CValue& operator[](const std::string& name) { return m_values[name]; }
    const CValue& At(const std::string& name) const { return m_values.at(name); }
    // Sets a value that exists, in its own type, from text. False when there is none of that name or the text does not fit.
    bool Set(const std::string& name, const std::string& text);

private:
    std::map<std::string, CValue, CNameOrder> m_values;
};

// What one control stands for: a program's connection to the engine.
class CClient : public std::enable_shared_from_this<CClient> {
public:
    explicit CClient(std::shared_ptr<CScene> owner) : scene(std::move(owner)), sinks(std::make_shared<CSinks>(*scene)) {}
    std::shared_ptr<CScene> scene;
    std::shared_ptr<CSinks> sinks;
    bool connected = false;
    bool raiseRequestErrors = true;
    std::map<std::string, std::shared_ptr<CCharacterState>, CNameOrder> characters;
    CValues sheet;  // The property sheet's.

    void Raise(const char* event, std::vector<CValue> arguments);  // Now.
    std::shared_ptr<CCharacterState> Find(const std::string& id) const;
};

CRef<IDispatch> NewCharacters(const std::shared_ptr<CClient>& client);

}

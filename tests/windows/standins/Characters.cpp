#include "windows/standins/Character.h"
#include "windows/standins/Engine.h"
#include <array>

namespace standins {
namespace {

constexpr HRESULT FileNotFound = static_cast<HRESULT>(0x80070002), BadID = static_cast<HRESULT>(0x80042002),
                  AlreadyLoaded = static_cast<HRESULT>(0x8004200B), NoDefault = static_cast<HRESULT>(0x80042017),
                  DefaultAndOther = static_cast<HRESULT>(0x80042018), NoCharacterFile = static_cast<HRESULT>(0x80042204);

constexpr std::array<char, 4> FileMark{'\xC3', '\xAB', '\xCD', '\xAB'};

std::string CharacterFolder()
{
    std::array<wchar_t, MAX_PATH> folder{};
    GetWindowsDirectoryW(folder.data(), static_cast<UINT>(folder.size()));
    return Narrow(folder.data()) + "\\MSAgent\\Chars\\";
}

// A path without a colon and without a leading slash lies in the engine's own folder, never in the current one.
std::string FullPath(const std::string& file)
{
    const bool whole = file.find(':') != std::string::npos || (!file.empty() && (file[0] == '\\' || file[0] == '/'));
    return whole ? file : CharacterFolder() + file;
}

HRESULT CheckFile(const std::string& file)
{
    const HANDLE handle = CreateFileW(Wide(file).c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    if (handle == INVALID_HANDLE_VALUE)
        return FileNotFound;
    std::array<char, 4> mark{};
    DWORD read = 0;
    ReadFile(handle, mark.data(), static_cast<DWORD>(mark.size()), &read, nullptr);
    CloseHandle(handle);
    return read == mark.size() && mark == FileMark ? S_OK : NoCharacterFile;
}

std::string NameOf(const std::string& file)
{
    const auto slash = file.find_last_of("\\/:");
    const std::string last = slash == std::string::npos ? file : file.substr(slash + 1);
    return last.substr(0, last.rfind('.'));
}

class CCharacters final : public CAutomationObject {
public:
    explicit CCharacters(std::shared_ptr<CClient> client)
        : CAutomationObject(client->scene, "Characters"), m_client(std::move(client))
    {
        Indexed("Item", 0, "s", 'd', [this](const CCall& call) { return Item(call.Text(0)); });
        Indexed("Character", 3, "s", 'd', [this](const CCall& call) { return Item(call.Text(0)); });
        Callable("Load", 1, "sV", 'd', [this](const CCall& call) { return Load(call); });
        Callable("Unload", 2, "s", ' ', [this](const CCall& call) { return Unload(call.Text(0)); });
    }

private:
    CValue Item(const std::string& id)
    {
        const auto state = m_client->Find(id);
        if (!state || (state->halfMade && !Scene().halfMadeGivesDefault))
            throw CComFailure{BadID};
        return CValue(NewCharacter(state).Get());
    }

    CValue Load(const CCall& call)
    {
        const std::string id = call.Text(0);
        const bool isDefault = call.Omitted(1) || call[1].Get().vt == VT_EMPTY;
        HRESULT code = CheckPlace(id, isDefault);
        const bool mayBeMade = SUCCEEDED(code);
        if (mayBeMade)
            code = isDefault ? (Scene().defaultCharacter ? S_OK : NoDefault) : CheckFile(FullPath(call.Text(1)));
        if (mayBeMade)
            Make(id, isDefault, isDefault ? Scene().defaultCharacter.value_or("") : NameOf(call.Text(1)), FAILED(code));
        return Answer(id, code);
    }

    HRESULT CheckPlace(const std::string& id, bool isDefault) const
    {
        if (m_client->characters.count(id) != 0)
            return AlreadyLoaded;
        for (const auto& [other, state] : m_client->characters)
            if (!state->halfMade && (isDefault || state->isDefault))
                return DefaultAndOther;
        return S_OK;
    }

    void Make(const std::string& id, bool isDefault, const std::string& name, bool halfMade)
    {
        const auto state = std::make_shared<CCharacterState>(m_client, id, halfMade ? "" : name);
        state->isDefault = isDefault;
        state->halfMade = halfMade;
        m_client->characters[id] = state;
        Scene().characters.push_back(state);
    }

    CValue Answer(const std::string& id, HRESULT code)
    {
        if (FAILED(code) && m_client->raiseRequestErrors)
            throw CComFailure{code};
        const auto state = m_client->Find(id);
        return CValue(state->queue->Ended("Load", FAILED(code) ? Failed : Completed, FAILED(code) ? code : 0).Get());
    }

    CValue Unload(const std::string& id)
    {
        const auto state = m_client->Find(id);
        if (!state)
            throw CComFailure{BadID};
        state->alive = false;
        state->queue->Clear();
        m_client->characters.erase(id);
        if (state->halfMade)
            throw CComFailure{BadID};
        return CValue();
    }

    std::shared_ptr<CClient> m_client;
};

}

CRef<IDispatch> NewCharacters(const std::shared_ptr<CClient>& client)
{
    return CRef<IDispatch>::Adopt(new CCharacters(client));
}

bool WriteCharacterFile(const std::wstring& file)
{
    const HANDLE handle =
        CreateFileW(file.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE)
        return false;
    DWORD written = 0;
    WriteFile(handle, FileMark.data(), static_cast<DWORD>(FileMark.size()), &written, nullptr);
    CloseHandle(handle);
    return written == FileMark.size();
}

}

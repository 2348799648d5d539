#pragma once
#include <functional>
#include <optional>
#include <string>

namespace platform {

// A text as the editor has it.
struct EditedText {
    std::string file;  // The file that it belongs to, with or without a folder; "" for a text that has none.
    std::string text;  // Lines ended by "\r\n".
};

// The safety net: what would otherwise be lost is kept in a folder of the user's, each text under the date and the name of
// its file. The newest 50 stay, as far as they fit into 64 MB; the newest one stays in any case. What is kept is on the disk
// when a call returns. Failures: answered as "not kept", or thrown as CFailure; a caller goes on in either case.
// User-interface thread only.
class IKeptTexts {
public:
    virtual ~IKeptTexts() = default;
    // Keeps a text. True when it is kept; an empty one never is.
    virtual bool Keep(const EditedText& text) = 0;
    // To be called before IFiles::WriteLine with the same arguments: keeps the bytes that the file has, unless it is going
    // to have the same again. True when something was kept.
    virtual bool KeepFormer(const std::string& path, const std::string& text) = 0;

    // From now on `source` tells the text that is not saved yet, or nothing while there is none. Asked on the user-interface
    // thread only.
    virtual void Follow(std::function<std::optional<EditedText>()> source) = 0;
    // That text has changed: within half a minute a copy of it is made on another thread. Costs next to nothing.
    virtual void Changed() = 0;
    // The text is saved, kept or gone: its copy is no longer needed.
    virtual void ForgetCopy() = 0;
    // Makes the copy now, because the program ends: the next run finds it. True when there is one on the disk.
    virtual bool CopyNow() = 0;

    // The full path of the text whose copy a former run left behind, "" when it left none. Told once: the copy is among the
    // kept texts from then on.
    virtual std::string TakeLeftBehind() = 0;
};

}

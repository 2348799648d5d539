#pragma once
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

// The object model of the character engine: control, characters, character, balloon, commands, requests, events. Names
// are the engine's own. An omitted argument is an optional without value. Every call may throw CFailure, whose number is
// then the engine's 32-bit error code.
namespace platform {

enum class RequestStatus : std::int32_t { Completed = 0, Failed = 1, Pending = 2, Interrupted = 3, InProgress = 4 };

namespace engineError {
constexpr std::int32_t Code(std::uint32_t code) { return static_cast<std::int32_t>(code); }
inline constexpr std::int32_t Unexpected = Code(0x8000FFFF);
inline constexpr std::int32_t FileNotFound = Code(0x80070002);
inline constexpr std::int32_t InvalidData = Code(0x8007000D);
inline constexpr std::int32_t OutOfMemory = Code(0x8007000E);
inline constexpr std::int32_t InvalidArgument = Code(0x80070057);
inline constexpr std::int32_t BadCharacterID = Code(0x80042002);
inline constexpr std::int32_t NoSuchAnimation = Code(0x80042003);
inline constexpr std::int32_t CommandNotFound = Code(0x80042006);
inline constexpr std::int32_t CommandExists = Code(0x80042007);
inline constexpr std::int32_t CharacterHidden = Code(0x8004200A);
inline constexpr std::int32_t AlreadyLoaded = Code(0x8004200B);
inline constexpr std::int32_t NoBalloon = Code(0x8004200C);
inline constexpr std::int32_t MoveWhileDragging = Code(0x80042010);
inline constexpr std::int32_t SpeechEngineNotFound = Code(0x80042013);
inline constexpr std::int32_t NoStandardCharacter = Code(0x80042017);
inline constexpr std::int32_t DefaultAndOther = Code(0x80042018);
inline constexpr std::int32_t NotInQueue = Code(0x80042101);
inline constexpr std::int32_t NotARequest = Code(0x80042102);
inline constexpr std::int32_t OtherCharactersRequest = Code(0x80042103);
inline constexpr std::int32_t BadBookmark = Code(0x80042106);
inline constexpr std::int32_t RemovedFromQueue = Code(0x80042108);
inline constexpr std::int32_t InterruptedByApplication = Code(0x8004210C);
inline constexpr std::int32_t InterruptedByHiding = Code(0x8004210D);
inline constexpr std::int32_t LastTagNotAlone = Code(0x8004210E);
inline constexpr std::int32_t TooOld = Code(0x80042202);
inline constexpr std::int32_t TooNew = Code(0x80042203);
inline constexpr std::int32_t NotACharacterFile = Code(0x80042204);
inline constexpr std::int32_t NotASoundFile = Code(0x80042206);
inline constexpr std::int32_t NotConnected = Code(0x80042502);
}

// One queued piece of work. Shared between the engine and whoever keeps it; its events come only while somebody besides
// the engine holds it.
class IRequest {
public:
    virtual ~IRequest() = default;
    virtual std::int32_t ID() const = 0;
    virtual RequestStatus Status() const = 0;
    virtual std::int32_t Number() const = 0;  // The error or cause behind the status, 0 if none.
    virtual std::string Description() const = 0;
};
using RequestRef = std::shared_ptr<IRequest>;

class IBalloon {
public:
    virtual ~IBalloon() = default;
    virtual bool Enabled() const = 0;
    virtual bool Visible() const = 0;
    virtual std::int32_t Style() const = 0;  // Flags in bits 0 to 3, characters per line in 16 to 23, lines in 24 to 31.
    virtual void SetStyle(std::int32_t style) = 0;
    virtual std::string FontName() const = 0;
    virtual void SetFontName(const std::string& name) = 0;
    virtual std::int32_t FontSize() const = 0;  // Points.
    virtual void SetFontSize(std::int32_t points) = 0;
    virtual bool FontBold() const = 0;
    virtual bool FontItalic() const = 0;
    virtual std::int32_t CharsPerLine() const = 0;
    virtual std::int32_t NumberOfLines() const = 0;
};

class ICommands {
public:
    virtual ~ICommands() = default;
    virtual void RemoveAll() = 0;
    virtual void SetCaption(const std::string& caption) = 0;
    virtual void Add(const std::string& name, const std::optional<std::string>& caption,
                     const std::optional<std::string>& voice, std::optional<bool> enabled, std::optional<bool> visible) = 0;
};

class ICharacter {
public:
    virtual ~ICharacter() = default;
    virtual std::string Name() const = 0;
    virtual void SetName(const std::string& name) = 0;
    // Frame origin and size in screen pixels; a write takes effect at once.
    virtual std::int16_t Left() const = 0;
    virtual void SetLeft(std::int16_t left) = 0;
    virtual std::int16_t Top() const = 0;
    virtual void SetTop(std::int16_t top) = 0;
    virtual std::int16_t Width() const = 0;
    virtual void SetWidth(std::int16_t width) = 0;
    virtual std::int16_t Height() const = 0;
    virtual void SetHeight(std::int16_t height) = 0;
    virtual std::int16_t OriginalWidth() const = 0;
    virtual std::int16_t OriginalHeight() const = 0;
    virtual std::int32_t Pitch() const = 0;     // Hertz; may be 0 or -1.
    virtual std::int32_t Speed() const = 0;     // Words a minute.
    virtual std::string TTSModeID() const = 0;  // With braces; "" when there is no voice.
    virtual void SetTTSModeID(const std::string& modeID) = 0;
    virtual bool AutoPopupMenu() const = 0;
    virtual void SetAutoPopupMenu(bool on) = 0;
    virtual bool IdleOn() const = 0;
    virtual void SetIdleOn(bool on) = 0;
    virtual bool SoundEffectsOn() const = 0;
    virtual void SetSoundEffectsOn(bool on) = 0;
    virtual bool Visible() const = 0;
    virtual std::int32_t VisibilityCause() const = 0;
    virtual std::int32_t MoveCause() const = 0;
    virtual bool HasOtherClients() const = 0;
    virtual std::vector<std::string> AnimationNames() const = 0;
    virtual std::shared_ptr<IBalloon> Balloon() = 0;
    virtual std::shared_ptr<ICommands> Commands() = 0;
    // A number property asked for by name at run time. Throws CFailure 438 when the engine has no such member.
    virtual std::int32_t NamedNumber(const std::string& member) const = 0;

    virtual RequestRef Show(std::optional<bool> fast) = 0;
    virtual RequestRef Hide(std::optional<bool> fast) = 0;
    virtual RequestRef Play(const std::string& animation) = 0;
    virtual RequestRef Speak(const std::optional<std::string>& text, const std::optional<std::string>& soundFile) = 0;
    virtual RequestRef MoveTo(std::int16_t x, std::int16_t y, std::optional<std::int32_t> milliseconds) = 0;
    virtual void Stop(const RequestRef& request) = 0;  // Null stops as without argument.
    virtual void StopAll(const std::optional<std::string>& types) = 0;
};

class IUserInput {
public:
    virtual ~IUserInput() = default;
    virtual std::string CharacterID() const = 0;
    virtual std::int32_t Count() const = 0;
    virtual std::string Name() const = 0;
    virtual std::int32_t Confidence() const = 0;
    virtual std::string Voice() const = 0;
    virtual std::string Alt1Name() const = 0;
    virtual std::int32_t Alt1Confidence() const = 0;
    virtual std::string Alt1Voice() const = 0;
    virtual std::string Alt2Name() const = 0;
    virtual std::int32_t Alt2Confidence() const = 0;
    virtual std::string Alt2Voice() const = 0;
};

// The control's events. Button: 1 left, 2 right, 4 middle. Shift: sum of 1 Shift, 2 Ctrl, 4 Alt. X and Y: screen pixels.
// All arrive from the event loop on the user-interface thread, never inside a call of the program. Every event has an
// empty default, so that a receiver names only those that it wants.
class ICharacterEngineEvents {
public:
    virtual ~ICharacterEngineEvents() = default;
    virtual void Click(const std::string&, std::int16_t /*button*/, std::int16_t /*shift*/, std::int16_t, std::int16_t) {}
    virtual void DblClick(const std::string&, std::int16_t /*button*/, std::int16_t /*shift*/, std::int16_t, std::int16_t) {}
    virtual void DragStart(const std::string&, std::int16_t /*button*/, std::int16_t /*shift*/, std::int16_t, std::int16_t)
    {
    }
    virtual void DragComplete(const std::string&, std::int16_t /*button*/, std::int16_t /*shift*/, std::int16_t,
                              std::int16_t)
    {
    }
    virtual void Show(const std::string&, std::int16_t /*cause*/) {}
    virtual void Hide(const std::string&, std::int16_t /*cause*/) {}
    virtual void Move(const std::string&, std::int16_t /*x*/, std::int16_t /*y*/, std::int16_t /*cause*/) {}
    virtual void Size(const std::string&, std::int16_t /*width*/, std::int16_t /*height*/) {}
    virtual void RequestStart(const RequestRef&) {}
    virtual void RequestComplete(const RequestRef&) {}
    virtual void Command(const IUserInput&) {}
    virtual void Bookmark(std::int32_t /*number*/) {}
    virtual void BalloonShow(const std::string&) {}
    virtual void BalloonHide(const std::string&) {}
    virtual void IdleStart(const std::string&) {}
    virtual void IdleComplete(const std::string&) {}
    virtual void DefaultCharacterChange(const std::string& /*guid*/) {}
};

class ICharacters {
public:
    virtual ~ICharacters() = default;
    // Loads a character under an id. Without a file: the default character. Throws when the file is missing or bad.
    virtual RequestRef Load(const std::string& id, const std::optional<std::string>& file) = 0;
    virtual void Unload(const std::string& id) = 0;
    virtual std::shared_ptr<ICharacter> Character(const std::string& id) = 0;
};

// The character-engine control.
class ICharacterEngine {
public:
    virtual ~ICharacterEngine() = default;
    virtual bool Connected() const = 0;
    virtual void SetConnected(bool connected) = 0;  // Everything below fails with NotConnected before.
    virtual std::shared_ptr<ICharacters> Characters() = 0;
    // The advanced options window and the default-character window of the engine.
    virtual void SetPropertySheetVisible(bool visible) = 0;
    virtual void ShowDefaultCharacterProperties() = 0;
    // Where events go from now on; null for nowhere. Borrowed.
    virtual void SetEvents(ICharacterEngineEvents* events) = 0;
};

class ICharacterEngineFactory {
public:
    virtual ~ICharacterEngineFactory() = default;
    // A new control. Throws CFailure when the engine is not installed or broken.
    virtual std::shared_ptr<ICharacterEngine> Create() = 0;
    // Loads what the main window needs of the engine before the window exists. Throws CFailure 339, naming the missing
    // component, when it is not there.
    virtual void RequireForMainWindow() = 0;
};

}

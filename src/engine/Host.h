#pragma once
#include "engine/Geometry.h"
#include "engine/character/CharacterData.h"
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// What the character engine asks of the system around it. All calls and all callbacks happen on the user-interface
// thread; no callback comes from inside a call of the engine.
namespace engine {

// Pixels of 0xAARRGGBB, not premultiplied, rows from the top. Alpha is 0 or 255.
struct Bitmap {
    Size size;
    std::vector<std::uint32_t> pixels;
};

// Mouse actions on visible pixels of a character. Button: 1 left, 2 right, 4 middle. Shift: 1 Shift, 2 Ctrl, 4 Alt.
// Positions are screen pixels.
class IMouseEvents {
public:
    virtual ~IMouseEvents() = default;
    virtual void Press(int button, int shift, Point at) = 0;
    virtual void Move(int buttons, int shift, Point at) = 0;  // Only while a button is held.
    virtual void Release(int button, int shift, Point at) = 0;
    virtual void DoublePress(int button, int shift, Point at) = 0;  // The second press of a double click, instead of Press.
};

// The window of one character: frameless, above all others, never takes the focus; only visible pixels take the mouse.
class ICharacterWindow {
public:
    virtual ~ICharacterWindow() = default;
    virtual void SetPicture(const Bitmap& picture) = 0;  // Scaled to the window's size, sharp.
    virtual void SetPlace(const Rect& place) = 0;
    virtual void Show() = 0;  // Shows and raises.
    virtual void Hide() = 0;
    virtual void Raise() = 0;
};

struct Font {
    std::string family;
    double points = 10;
    bool bold = false;
    bool italic = false;
    friend bool operator==(const Font&, const Font&) = default;
};

struct BalloonPicture {
    struct Line {
        std::string text;
        Point at;  // Left end of the base line, inside the window.
    };
    Rect place;                 // Of the window, tail and outline included.
    Rect body;                  // Inside the window: the rounded rectangle.
    Rect textArea;              // Inside the window: lines are clipped to it (scrolling).
    std::optional<Point> tail;  // Where the tail's tip is, inside the window.
    bool thought = false;       // A row of bubbles instead of the tail.
    std::vector<Line> lines;
    Font font;
    Color text;
    Color background;
    Color border;
};

// The word balloon's window; takes no mouse input.
class IBalloonWindow {
public:
    virtual ~IBalloonWindow() = default;
    virtual void Show(const BalloonPicture& picture) = 0;  // Shows it or replaces what it shows.
    virtual void Hide() = 0;
};

class ITextMeasure {
public:
    virtual ~ITextMeasure() = default;
    virtual std::int32_t Width(const Font& font, std::string_view text) const = 0;  // Pixels.
    virtual std::int32_t AverageCharacterWidth(const Font& font) const = 0;
    virtual std::int32_t LineHeight(const Font& font) const = 0;
    virtual std::int32_t Ascent(const Font& font) const = 0;
};

using TimerID = std::uint64_t;  // 0 is no timer.

class ITimers {
public:
    virtual ~ITimers() = default;
    virtual std::int64_t NowMilliseconds() const = 0;  // Never jumps.
    virtual TimerID CallLater(std::int32_t milliseconds, std::function<void()> call) = 0;
    virtual void Cancel(TimerID timer) = 0;  // Of a timer that has run or is 0: nothing.
};

struct Voice {
    std::string modeId;            // "{8-4-4-4-12}" in upper case; the same voice has the same one on every run.
    std::string name;              // For people.
    std::string key;               // For the synthesiser.
    std::uint16_t languageId = 0;  // Win32 LANGID; 0 unknown.
    std::uint16_t gender = 0;      // 0 neutral, 1 female, 2 male.
    std::uint16_t age = 0;
};

// A stretch of speech with one setting.
struct SpeechSegment {
    std::string text;                    // Plain text, no tags. Empty for a pure pause.
    std::int32_t pauseMilliseconds = 0;  // Silence before the text.
    std::int32_t pitchHertz = 0;         // 0: the voice's own.
    std::int32_t wordsPerMinute = 0;     // 0: the voice's own.
    std::int32_t volume = 65535;         // 0 to 65535.
    bool monotone = false;
    bool whisper = false;
    bool emphasis = false;            // On the first word.
    std::int32_t speedPercent = 100;  // Of the pace above, or of the voice's own.
};

enum class SpeechMarkKind { Word, Mouth };

// Something that happens when the sample at `sample` is heard, counted from the first sample of the utterance.
struct SpeechMark {
    SpeechMarkKind kind = SpeechMarkKind::Word;
    std::int64_t sample = 0;
    std::size_t segment = 0;
    std::size_t textPosition = 0;  // Word: index, in characters of the segment's text, of its first character.
    Mouth mouth = Mouth::Closed;   // Mouth.
};

struct SpeechChunk {
    std::vector<std::int16_t> samples;        // Mono.
    std::vector<SpeechMark> marks;            // In order of samples.
    std::vector<std::int64_t> segmentStarts;  // Samples at which the segments begun in this chunk start.
    bool last = false;
    bool failed = false;  // No speech could be made; `last` is then true as well.
};

using UtteranceID = std::uint64_t;

// Text to speech on a thread of its own. Utterances are made one after another.
class ISynthesizer {
public:
    virtual ~ISynthesizer() = default;
    virtual bool Available() const = 0;
    virtual std::int32_t SampleRate() const = 0;
    virtual std::vector<Voice> Voices() = 0;
    // Speaks with the voice of `modeId`. `receive` gets the chunks in order on the user-interface thread, until the last
    // one or Cancel.
    virtual UtteranceID Synthesize(const std::string& modeId, std::vector<SpeechSegment> segments,
                                   std::function<void(SpeechChunk)> receive) = 0;
    virtual void Cancel(UtteranceID utterance) = 0;  // Nothing of it is received afterwards.
};

// One stream of samples to the loudspeaker. Where there is none, a clock that plays nothing stands in: the position
// advances all the same.
class ISoundOutput {
public:
    virtual ~ISoundOutput() = default;
    virtual void Begin(std::int32_t sampleRate) = 0;                   // Position 0; ends what played before.
    virtual void Write(const std::vector<std::int16_t>& samples) = 0;  // Mono, of any length; copied at once.
    virtual void End() = 0;                                            // No more samples will come: plays out what is there.
    virtual void Stop() = 0;                                           // Silence now; the rest is dropped.
    // Samples of this stream really heard so far; never more than were written.
    virtual std::int64_t Position() const = 0;
};

// The pointer's surroundings.
class IDesktop {
public:
    virtual ~IDesktop() = default;
    virtual Rect WorkArea(Point near) const = 0;  // Screen less panels, of the screen nearest to a point.
    // Calls `changed` after the screens or their work areas have changed, until Unwatch of the same watcher.
    virtual void Watch(const void* /*watcher*/, std::function<void()> /*changed*/) {}
    virtual void Unwatch(const void* /*watcher*/) {}
};

// The text in which the engine keeps what the user has set for all characters.
class ISettingsFile {
public:
    virtual ~ISettingsFile() = default;
    virtual std::string Read() const = 0;             // "" when there is none.
    virtual bool Write(const std::string& text) = 0;  // Replaces all of it; false when that was refused.
};

// Which characters the programs of this user have loaded.
class ILoadedCharacters {
public:
    virtual ~ILoadedCharacters() = default;
    // This program has loaded the character, or unloaded it: as often as it was loaded.
    virtual void Enter(const std::string& guid) = 0;
    virtual void Leave(const std::string& guid) = 0;
    // Whether another living program has it loaded. False where that cannot be known.
    virtual bool OthersHave(const std::string& guid) const = 0;
};

// A command that can be given by voice.
struct SpokenCommand {
    std::string name;
    std::string voice;  // What is to be said, in the notation of voice texts.
};

// What a recogniser took the user's words for.
struct HeardCommand {
    std::string name;             // Of the command; "" for one of the engine's own.
    std::int32_t confidence = 0;  // -100 to 100.
    std::string voice;            // The words.
};

// The microphone and its recogniser. What is empty here is what a desktop without one does.
class ISpeechInput {
public:
    // The best match first, at most three; none for speech that matched nothing.
    using Heard = std::function<void(const std::vector<HeardCommand>&)>;

    virtual ~ISpeechInput() = default;
    // What can be said to a listener from now on, instead of what it offered before.
    virtual void Offer(const void* /*listener*/, std::vector<SpokenCommand> /*commands*/, Heard /*heard*/) {}
    virtual void Withdraw(const void* /*listener*/) {}
};

class IHost {
public:
    virtual ~IHost() = default;
    virtual std::unique_ptr<ICharacterWindow> CreateCharacterWindow(IMouseEvents& mouse) = 0;  // Borrows `mouse`.
    virtual std::unique_ptr<IBalloonWindow> CreateBalloonWindow() = 0;
    virtual ITextMeasure& Text() = 0;
    virtual ITimers& Timers() = 0;
    virtual ISynthesizer& Synthesizer() = 0;
    virtual std::unique_ptr<ISoundOutput> CreateSoundOutput() = 0;
    virtual IDesktop& Desktop() = 0;
    virtual ISettingsFile& SettingsFile() = 0;
    virtual ILoadedCharacters& LoadedCharacters() = 0;
    virtual ISpeechInput& SpeechInput() = 0;
    virtual double RandomFraction() = 0;  // 0 or more, below 1.
};

}

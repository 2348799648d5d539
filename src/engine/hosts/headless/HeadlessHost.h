#pragma once
#include "engine/Host.h"
#include "engine/hosts/headless/HeadlessSound.h"
#include "engine/hosts/headless/HeadlessSynthesizer.h"
#include "engine/hosts/headless/VirtualTime.h"
#include <deque>
#include <map>

namespace engine {

// What a character's window shows, and its mouse.
struct WindowRecord {
    bool shown = false;
    bool destroyed = false;
    Rect place;
    Bitmap picture;
    int picturesSet = 0;
    int raised = 0;
    IMouseEvents* mouse = nullptr;

    // The mouse as a hand would use it.
    void Click(int button, int shift, Point at);
    void DoubleClick(int button, int shift, Point at);
    void Drag(Point from, Point to);
};

struct BalloonRecord {
    bool shown = false;
    bool destroyed = false;
    int pictures = 0;
    BalloonPicture picture;  // The last one.
    std::vector<std::string> Lines() const;
    std::string Text() const;  // Its lines, joined by "/".
};

// Every character is 8 pixels wide; lines are 16 pixels high.
class CFixedTextMeasure final : public ITextMeasure {
public:
    std::int32_t Width(const Font& font, std::string_view text) const override;
    std::int32_t AverageCharacterWidth(const Font&) const override { return 8; }
    std::int32_t LineHeight(const Font&) const override { return 16; }
    std::int32_t Ascent(const Font&) const override { return 12; }
    std::uint64_t Measured() const { return m_measured; }  // Bytes, of all calls together.

private:
    mutable std::uint64_t m_measured = 0;
};

class CHeadlessDesktop final : public IDesktop {
public:
    Rect workArea{0, 0, 1024, 768};
    std::vector<Rect> moreWorkAreas;  // Of further screens.
    Rect WorkArea(Point near) const override;
    void Watch(const void* watcher, std::function<void()> changed) override { m_watchers[watcher] = std::move(changed); }
    void Unwatch(const void* watcher) override { m_watchers.erase(watcher); }
    void Change(const Rect& area);  // Another resolution.
    void Unplug();                  // The last of the further screens.
    std::size_t Watchers() const { return m_watchers.size(); }

private:
    void Tell();
    std::map<const void*, std::function<void()>> m_watchers;
};

// The settings file in memory.
class CHeadlessSettingsFile final : public ISettingsFile {
public:
    std::string text;
    bool refuses = false;
    std::string Read() const override { return text; }
    bool Write(const std::string& newText) override
    {
        if (!refuses)
            text = newText;
        return !refuses;
    }
};

class CHeadlessLoadedCharacters final : public ILoadedCharacters {
public:
    std::vector<std::string> here;       // Those that this program has loaded, one for each time.
    std::vector<std::string> elsewhere;  // Those of other programs.
    void Enter(const std::string& guid) override { here.push_back(guid); }
    void Leave(const std::string& guid) override;
    bool OthersHave(const std::string& guid) const override;
};

// A user who speaks, understood as the test says.
class CHeadlessSpeechInput final : public ISpeechInput {
public:
    void Offer(const void* listener, std::vector<SpokenCommand> commands, Heard heard) override
    {
        m_offers[listener] = {std::move(commands), std::move(heard)};
    }
    void Withdraw(const void* listener) override { m_offers.erase(listener); }
    // What can be said now, all listeners together, as "name: voice text".
    std::vector<std::string> Offered() const;
    void Hear(const std::vector<HeardCommand>& matches);  // Tells every listener.

private:
    struct Given {
        std::vector<SpokenCommand> commands;
        Heard heard;
    };
    std::map<const void*, Given> m_offers;
};

// A host in memory: virtual time, recorded windows, a scripted mouse, a voice that can be reckoned. Records outlive the
// windows they record.
class CHeadlessHost final : public IHost {
public:
    CHeadlessHost() : synthesizer(time) {}

    CVirtualTime time;
    CHeadlessSynthesizer synthesizer;
    SoundRecord sound;
    CHeadlessDesktop desktop;
    CFixedTextMeasure text;
    CHeadlessSettingsFile settingsFile;
    CHeadlessLoadedCharacters loadedCharacters;
    CHeadlessSpeechInput speechInput;
    std::deque<double> randomFractions;  // Answers of RandomFraction; 0 once they are used up.
    std::deque<WindowRecord> windows;    // In the order of their making.
    std::deque<BalloonRecord> balloons;

    void Advance(std::int64_t milliseconds) { time.Advance(milliseconds); }
    bool RunUntilIdle(std::int64_t mostMilliseconds = 3'600'000) { return time.RunUntilIdle(mostMilliseconds); }
    WindowRecord& Window() { return windows.back(); }
    BalloonRecord& Balloon() { return balloons.back(); }

    std::unique_ptr<ICharacterWindow> CreateCharacterWindow(IMouseEvents& mouse) override;
    std::unique_ptr<IBalloonWindow> CreateBalloonWindow() override;
    ITextMeasure& Text() override { return text; }
    ITimers& Timers() override { return time; }
    ISynthesizer& Synthesizer() override { return synthesizer; }
    std::unique_ptr<ISoundOutput> CreateSoundOutput() override { return std::make_unique<CHeadlessSound>(time, sound); }
    IDesktop& Desktop() override { return desktop; }
    ISettingsFile& SettingsFile() override { return settingsFile; }
    ILoadedCharacters& LoadedCharacters() override { return loadedCharacters; }
    ISpeechInput& SpeechInput() override { return speechInput; }
    double RandomFraction() override;
};

}

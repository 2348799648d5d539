#include "CharacterFileMutator.h"
#include "Require.h"
#include "engine/files/AcsReader.h"
#include "engine/hosts/headless/EventJournal.h"
#include "engine/hosts/headless/HeadlessHost.h"
#include "engine/hosts/headless/MemorySource.h"
#include "platform/Failure.h"

// Whatever file was understood as a character can be shown, played and spoken with, in a bounded time and with pictures
// of the size that was announced. Its own animations may go round in circles.
namespace {

constexpr std::size_t MostAnimations = 6;
constexpr std::int64_t Patience = 3000;  // Milliseconds, after each request.

void RequirePictures(const engine::CHeadlessHost& host)
{
    for (const engine::WindowRecord& window : host.windows) {
        const engine::Bitmap& picture = window.picture;
        Require(picture.pixels.size() == static_cast<std::size_t>(picture.size.width * picture.size.height));
    }
}

void Act(engine::CHeadlessHost& host, platform::ICharacter& character)
{
    character.SetIdleOn(false);
    character.Show(std::nullopt);
    host.Advance(Patience);
    std::vector<std::string> names = character.AnimationNames();
    names.resize(std::min(names.size(), MostAnimations));
    for (const std::string& name : names) {
        character.Play(name);
        host.Advance(Patience);
        RequirePictures(host);
    }
    character.StopAll(std::nullopt);
    character.Speak("Some words.", std::nullopt);
    host.Advance(Patience);
    character.SetIdleOn(true);
    host.Advance(30 * Patience);
    RequirePictures(host);
    character.Hide(std::nullopt);
    host.Advance(Patience);
}

}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    engine::CHeadlessHost host;
    engine::CMemorySource source;
    engine::CEventJournal journal(host.time);
    try {
        source.files["test.acs"] =
            engine::ReadCharacterFile(std::make_shared<const std::vector<std::uint8_t>>(data, data + size));
        const auto control = engine::CreateEngine(host, source);
        control->SetConnected(true);
        control->SetEvents(&journal);
        control->Characters()->Load("Bot", "test.acs");
        Act(host, *control->Characters()->Character("Bot"));
    } catch (const platform::CFailure&) {
        return 0;  // Refused.
    }
    return 0;
}

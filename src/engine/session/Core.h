#pragma once
#include "engine/Engine.h"
#include "engine/base/Postbox.h"
#include "engine/session/GuardedHost.h"
#include <utility>

namespace engine {

// What all parts of one control share. Lives as long as the control.
struct Core {
    Core(IHost& itsHost, EngineSettings itsSettings)
        : host(itsHost,
               [this](std::int32_t number) {
                   if (stepFailed)
                       stepFailed(number);
               }),
          settings(std::move(itsSettings)),
          user(settings.user ? settings.user : std::make_shared<CUserSettings>(itsHost.SettingsFile())),
          postbox(std::make_shared<CPostbox>(host.Timers()))
    {
    }
    ~Core() { postbox->Close(); }
    Core(const Core&) = delete;
    Core& operator=(const Core&) = delete;

    // Tells the program from the event loop, after everything that was posted before.
    void Tell(std::function<void(platform::ICharacterEngineEvents&)> event)
    {
        postbox->Post([this, event = std::move(event)] {
            if (events != nullptr)
                event(*events);
        });
    }
    std::int32_t NewRequestID() { return ++lastRequestID; }

    CGuardedHost host;
    // Told when a timer's call has thrown: what it was a step of would go on no more.
    CGuardedTimers::Failed stepFailed;
    const EngineSettings settings;
    const std::shared_ptr<CUserSettings> user;
    std::shared_ptr<CPostbox> postbox;
    platform::ICharacterEngineEvents* events = nullptr;
    std::int32_t lastRequestID = 0;
};

}

#pragma once
#include "platform/headless/Desktop.h"
#include "startup/Wiring.h"
#include "ui/frmParlune.h"
#include "ui/frmSplash.h"
#include "ui/frmSysTray.h"
#include <gtest/gtest.h>

// A desktop on which engine and speech service are installed and one character file lies in the character folder; the
// program is wired and starts when a test says so.
struct StartedProgram {
    static constexpr char OptionKey[] = "Software\\Tarrowind\\Parlune";

    StartedProgram()
    {
        desktop.registry.Put(platform::Root::ClassesRoot, "Agent.Control.2\\CLSID", "",
                             "{D45FD31B-5C6E-11D1-9EC1-00C04FD7081F}");
        desktop.files.PutFile("C:\\WINDOWS\\MSAgent\\Chars\\Merlin.acs");
        PutOption("CharWidth", "0");
        PutOption("CharHeight", "0");
        startup::WireProgram();
    }

    void PutOption(const std::string& name, const std::string& value)
    {
        desktop.registry.Put(platform::Root::CurrentUser, OptionKey, name, value);
    }
    std::optional<std::string> Option(const std::string& name) const
    {
        return desktop.registry.Text(platform::Root::CurrentUser, OptionKey, name);
    }
    void Start() { SplashWindow().Load(); }

    CHeadlessDesktop desktop;
};

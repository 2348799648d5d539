#pragma once
#include "driver/Agent.h"
#include "driver/Desk.h"
#include <functional>

namespace driver {

// A machine with character engine and speech panel, and the options of somebody who has started the program before.
class CCompanion : public CDesk {
protected:
    void SetUp() override;
    void TearDown() override;

    // Starts the program and waits until its character is there and it waits for its user.
    void Begin(const std::string& arguments = {}, const Environment& changed = {});
    void BeginWithoutCharacter();  // The same where none comes.
    void BeginShown();             // The same, with the options window on the screen.
    void ShowPage(Page page);      // Waits until its lists, which are filled when it is first seen, are full.
    // Answers every report of an unexpected error with OK until the condition holds, and gives the reports' texts.
    std::vector<std::string> DismissReportsUntil(const std::function<bool()>& condition);
    Box SeeBox() { return WaitForBox(parlune.Id()); }

    CAgent agent{parlune};
};

// A program of its own that copies to the clipboard: this one.
namespace clipboard {
void CopyText(const std::string& text);
void CopySecret(const std::string& text);  // Marked as password managers mark it.
void CopyPicture();
void Empty();

// Nobody else can open the clipboard while this lives.
class CLock {
public:
    CLock();
    ~CLock() { CloseClipboard(); }
    CLock(const CLock&) = delete;
    CLock& operator=(const CLock&) = delete;
};
}

}

#pragma once

// What the Greetings tab does at once.
namespace greetingsTab {

// Shows the greeting of the selected inner tab and hides the other four. Failures: reported as Parlune:tabGreetings_Click.
void tabGreetings_Click();
// Speaks the greeting that is shown, whether or not greetings are switched on. Nothing without a character. Failures:
// reported as Parlune:cmdTestWelcome_Click.
void cmdTestWelcome_Click();

}

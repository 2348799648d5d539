#pragma once
#include <string>

namespace standins {

class CScene;

// The commands by which a test tells the stand-ins what to do, one a line. Words are split at blanks; "in double quotes" a
// word may hold blanks and \" \\ \r \n \t. Numbers are decimal, or hexadecimal with 0x. TARGET is
// [get:|put:|call:][Class.]Member, or
// "*" as the member. Events are raised from the message loop of the server, or at once within `during`.
//
//   event Click|DblClick|DragStart|DragComplete ID BUTTON SHIFT X Y
//   event Show|Hide ID CAUSE                     the character's Visible and VisibilityCause change with it
//   event Move ID X Y CAUSE, event Size ID WIDTH HEIGHT
//   event BalloonShow|BalloonHide|IdleStart|IdleComplete|ActivateInput|DeactivateInput|ListenStart ID
//   event Bookmark NUMBER, event DefaultCharacterChange GUID, event AgentPropertyChange
//   event Command ID NAME CONFIDENCE [VOICE [NAME1 CONFIDENCE1 [VOICE1 [NAME2 CONFIDENCE2 [VOICE2]]]]]
//   repeat COUNT COMMAND                         the command so many times
//
//   hold on|start|off        requests start but do not end; do not even start; run by themselves (the usual)
//   pace MILLISECONDS        how long a request runs by itself
//   complete [STATUS [NUMBER]]   ends the running request of each character, with 0 or another status
//   shown ID 0|1             changes Visible without an event
//   set ID PROPERTY VALUE    changes a property of a character; those of its balloon and commands: Balloon.Style ...
//   initial PROPERTY VALUE   the same for characters loaded from now on
//   animations NAME...       the animation names
//   voices                   forgets every voice;  voice MODEID NAME [LANGUAGE] adds one
//   default NAME             the default character's name;  no-default: there is none
//   half-made default|error  what the collection gives for an id whose Load failed
//   class-info both|one|library|none   how the event interface can be found
//   own-events on|off        other event identifiers than the documented ones
//
//   fail [always] TARGET CODE [result|exception|deferred [SOURCE [DESCRIPTION]]]
//                            the next call (or every one) fails: HRESULT, exception, exception filled in on demand
//   garbage [always] TARGET text|number|huge|array|nothing|null|empty|error    gives a value of that kind
//   block [always] TARGET MILLISECONDS|forever   the server sleeps inside the call
//   during [always] TARGET COMMAND               runs a command inside the call
//   forget                   no rule is left
//   mark NAME                writes "marked NAME" from the message loop, behind all that was posted before
//   held                     writes "held DRAWING WINDOWS KERNEL": how many handles the process has
//   hang MILLISECONDS|forever    the server sleeps, from its message loop
//   disconnect, connect      every call gives RPC_E_DISCONNECTED; no more
//   die                      the server's process ends at once. Better than to kill it: Wine would take the dead one for
//   alive
//                            when the class is asked for the next time.
//   quit                     the same in good order; only where the server is a program of its own
//
//   word here|gone           registers the running Word, or takes it away
//   word document TEXT, word selection TEXT      \0 in quotes is a NUL
//   excel here|gone          the same for Excel
//   excel size ROWS COLUMNS  the selection; its cells are empty then
//   excel cell ROW COLUMN KIND [VALUE]   KIND: text number short long date money truth error empty null
//   excel selection range|chart|nothing|text     what is selected
//
// Gives false when the command is not understood; then nothing was done.
bool Obey(CScene& scene, const std::string& command);

}

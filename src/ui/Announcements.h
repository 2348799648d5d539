#pragma once
#include <cstdint>

// Telling the time at regular minutes of the hour.
namespace announcements {

// Whether a minute of the hour, 1 to 60, is one of an interval in minutes. Counted from the full hour, which is minute 60:
// an interval that does not divide 60 leaves it out. Throws CFailure 11 for interval 0.
bool AnnouncementDue(std::int32_t minute, std::int32_t interval);

// Announces when a minute has begun whose announcement is due, once per minute. Failures: reported as Parlune:Timer; the
// minute is not tried again.
void tmrTimer_Timer();

// Announces now: shows the character for it, and unloads it again if it was not visible before, after 5 seconds at the
// latest. Failures of a step: reported as Parlune:SayTime, then the next one runs.
void SayTime();

}

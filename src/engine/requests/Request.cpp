#include "engine/requests/Request.h"

namespace engine {

std::string RequestDescription(std::int32_t number)
{
    namespace code = platform::engineError;
    switch (number) {
    case 0:
        return "";
    case code::FileNotFound:
        return "The file was not found.";
    case code::CharacterHidden:
        return "The character is hidden.";
    case code::MoveWhileDragging:
        return "The character cannot move while it is dragged.";
    case code::BadBookmark:
        return "The bookmark number is not valid.";
    case code::RemovedFromQueue:
        return "The request was removed from the queue.";
    case code::InterruptedByApplication:
        return "The request was interrupted by the application.";
    case code::InterruptedByHiding:
        return "The request was interrupted because the character was hidden.";
    case code::LastTagNotAlone:
        return "The tag that repeats the last statement must stand alone.";
    case code::NotASoundFile:
        return "The file is not a sound file.";
    default:
        return "Application-defined or object-defined error";
    }
}

}

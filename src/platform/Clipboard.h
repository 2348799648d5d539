#pragma once
#include <functional>
#include <string>

namespace platform {

class IClipboard {
public:
    virtual ~IClipboard() = default;
    virtual bool HasText() const = 0;  // False for a picture and for an empty clipboard.
    // A copy of the text, lines ended by "\r\n" everywhere; "" when there is none. Throws CFailure while it is locked.
    virtual std::string Text() const = 0;
    // Calls `changed` once for every later change of the clipboard, never for what it holds now, until StopWatching. A
    // second Watch replaces the first.
    virtual void Watch(std::function<void()> changed) = 0;
    virtual void StopWatching() = 0;
};

}

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
    // Whether whoever copied the content marked it as a secret, as a password manager does. False when nobody did.
    virtual bool IsSecret() const = 0;

    // Whether this desktop tells about changes of the clipboard at all. Where it does not, Watch never calls anything.
    virtual bool CanWatch() const = 0;
    // Calls `changed` once for every later change of the clipboard, never for what it holds now, until StopWatching. While
    // another program holds the clipboard it waits for half a second, without holding up the window, before it calls all
    // the same.
    // Changes that follow each other before the program can answer may come as one call, for the last of them. A second
    // Watch replaces the first.
    virtual void Watch(std::function<void()> changed) = 0;
    virtual void StopWatching() = 0;
};

}

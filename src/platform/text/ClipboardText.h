#pragma once
#include <string>
#include <string_view>

// What another program has put on the clipboard.
namespace platform::text {

// Whether a format, named as a MIME type, is plain text of any encoding.
bool IsTextFormat(std::string_view mimeType);

// Whether the hint of a password manager says that the content is secret.
bool SaysSecret(std::string_view hint);

// The text of a clipboard without NUL characters, its lines ended by "\r\n".
std::string ClipboardText(std::string text);

}

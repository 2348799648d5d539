#pragma once
#include "platform/text/Encoding.h"
#include "platform/text/LineCutter.h"
#include <string>
#include <string_view>

// What a text file is like apart from its text, and the bytes that a changed text gets in it.
namespace platform::text {

struct FileForm {
    Encoding encoding = Encoding::Utf8;
    bool mark = false;
    std::string_view lineEnd = "\n";  // The one that most lines have.
    bool lastLineEnds = true;
};

FileForm FormOf(Encoding encoding, bool mark, const LineEnds& ends);

// The bytes of a text that was opened from a file of this form and is saved to it again. The editor's text has at most one
// line end at its end when it is opened, whether the file has one or many; `former` is what the file holds. An unchanged
// text has the very same bytes; of a changed one every line that stayed. A text that the encoding cannot hold, or whose
// bytes would read as another text, becomes UTF-8, which `form` then tells.
std::string BytesOfEdited(const std::string& text, FileForm& form, const std::string& former);

// A file of its own making: UTF-8, every line ended by LF, the last one too.
std::string BytesOfNew(const std::string& text);

}

#include "engine/base/CleanText.h"
#include "base/text/Text.h"
#include "base/text/Utf8.h"

namespace engine {

std::string CleanText(std::string_view text)
{
    std::string clean;
    clean.reserve(text.size());
    for (; !text.empty(); text.remove_prefix(text::FirstCharacter(text).size)) {
        const char32_t code = text::FirstCharacter(text).code;
        const bool control = (code < 0x20 && !text::IsWhiteSpace(code)) || code == 0x7F;
        text::AppendCharacter(clean, control ? ' ' : code);
    }
    return clean;
}

}

#include "common/Utf8.h"

namespace text {
namespace {

struct Form {
    std::size_t size;
    char32_t leadBits;
    char32_t smallest;  // A smaller code has a shorter form and must use it.
};

Form FormOf(unsigned char lead)
{
    if ((lead & 0xE0U) == 0xC0U)
        return {2, lead & 0x1FU, 0x80};
    if ((lead & 0xF0U) == 0xE0U)
        return {3, lead & 0x0FU, 0x800};
    if ((lead & 0xF8U) == 0xF0U)
        return {4, lead & 0x07U, 0x10000};
    return {1, 0, 1};
}

bool IsSurrogate(char32_t code) { return code >= 0xD800 && code <= 0xDFFF; }

char TailByte(char32_t code, unsigned shift) { return static_cast<char>(0x80U | (code >> shift & 0x3FU)); }

}

Character FirstWideCharacter(std::string_view text)
{
    constexpr Character strayByte{NoCode, 1};
    const Form form = FormOf(static_cast<unsigned char>(text.front()));
    if (form.size == 1 || form.size > text.size())
        return strayByte;
    char32_t code = form.leadBits;
    for (const char tail : text.substr(1, form.size - 1)) {
        if ((static_cast<unsigned char>(tail) & 0xC0U) != 0x80U)
            return strayByte;
        code = code << 6U | (static_cast<unsigned char>(tail) & 0x3FU);
    }
    if (code < form.smallest || code > 0x10FFFF || IsSurrogate(code))
        return strayByte;
    return {code, form.size};
}

void AppendCharacter(std::string& text, char32_t code)
{
    if (code < 0x80) {
        text += static_cast<char>(code);
    } else if (code < 0x800) {
        text += {static_cast<char>(0xC0U | code >> 6U), TailByte(code, 0)};
    } else if (code < 0x10000) {
        text += {static_cast<char>(0xE0U | code >> 12U), TailByte(code, 6), TailByte(code, 0)};
    } else {
        text += {static_cast<char>(0xF0U | code >> 18U), TailByte(code, 12), TailByte(code, 6), TailByte(code, 0)};
    }
}

}

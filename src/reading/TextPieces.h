#pragma once
#include <functional>
#include <string>
#include <string_view>

// Cutting a text into the pieces that are spoken well: up to 100 characters whole, else by paragraphs (separated by an
// empty line), lines, and sentences (ended by a full stop and two blanks). Time and memory are linear in the text.
namespace reading {

bool IsShort(std::string_view text);  // At most 100 characters.

// The pieces of a long text, in order. `yield` is called before each paragraph, each long line and each sentence.
// Line breaks inside paragraphs become blanks, unless the text has no empty line. A sentence gets a full stop, also one
// that ends in a full stop already.
void CutIntoPieces(std::string_view text, const std::function<void()>& yield,
                   const std::function<void(const std::string& piece)>& speak);

}

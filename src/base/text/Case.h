#pragma once
#include <string>
#include <string_view>

// Capital and small letters of every script that has them. A letter has one counterpart of one letter, or none: sharp s
// stays. Stray bytes stay, too, and are equal to themselves only.
namespace text {

std::string Upper(std::string_view text);
std::string Lower(std::string_view text);

// The text with its letters folded for comparing: two texts differ in letter case only when they fold to the same.
std::string FoldCase(std::string_view text);

// Names of options, sections, files, characters, voices and animations are compared so.
bool EqualIgnoringCase(std::string_view left, std::string_view right);

}

#pragma once
#include <string>
#include <string_view>
#include <vector>

// Options as bytes that tell where they are damaged.
namespace settings {

struct Choice {
    std::string key;
    std::string stored;  // What the store held, as far as the program knew.
    std::string chosen;  // What it is to hold.
    friend bool operator==(const Choice&, const Choice&) = default;
};

std::string WriteChoices(const std::vector<Choice>& choices);

// Those before the first byte that is not as it was written; none when the bytes are something else altogether.
std::vector<Choice> ReadChoices(std::string_view bytes);

}

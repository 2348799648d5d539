#pragma once
#include "windows/standins/Scene.h"
#include "windows/standins/Words.h"

namespace standins {

struct CNotUnderstood {};

inline void Require(bool condition)
{
    if (!condition)
        throw CNotUnderstood{};
}

// A command in parts, read one after another.
class COrder {
public:
    COrder(CScene& owner, const std::string& command) : scene(owner), m_command(command), m_words(SplitWords(command)) {}
    CScene& scene;
    bool Empty() const { return m_next >= m_words.size(); }
    std::string Word()
    {
        Require(!Empty());
        return m_words[m_next++].text;
    }
    std::string WordOr(const std::string& otherwise) { return Empty() ? otherwise : Word(); }
    bool Skip(const char* word)  // Whether this is the next one, which is then read.
    {
        const bool here = !Empty() && m_words[m_next].text == word;
        m_next += here ? 1 : 0;
        return here;
    }
    std::int32_t Number()
    {
        const auto number = NumberOf(Word());
        Require(number.has_value());
        return number.value_or(0);
    }
    std::int32_t NumberOr(std::int32_t otherwise) { return Empty() ? otherwise : Number(); }
    DWORD Milliseconds() { return Skip("forever") ? INFINITE : static_cast<DWORD>(Number()); }
    std::string Rest()
    {
        Require(!Empty());
        const std::size_t begin = m_words[m_next].begin;
        m_next = m_words.size();
        return m_command.substr(begin);
    }
    bool Switch()
    {
        const bool on = Skip("on");
        Require(on || Skip("off"));
        return on;
    }
    void End() const { Require(Empty()); }

private:
    std::string m_command;
    std::vector<CToken> m_words;
    std::size_t m_next = 0;
};

}

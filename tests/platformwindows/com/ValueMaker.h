#pragma once
#include "platformwindows/com/TestObject.h"
#include <deque>
#include <random>

namespace comtest {

// Values as another program might send them: of every type and of types that do not exist, referring to others, to nothing
// or to themselves, with texts that are no text. The same ones for the same seed.
class CValueMaker {
public:
    explicit CValueMaker(std::uint32_t seed) : m_random(seed) {}
    ~CValueMaker() { Forget(); }
    CValueMaker(const CValueMaker&) = delete;
    CValueMaker& operator=(const CValueMaker&) = delete;

    // Belongs to this object and lives until Forget.
    VARIANT& Make(int depth = 0);
    void Forget();
    std::uint32_t Below(std::uint32_t limit) { return static_cast<std::uint32_t>(m_random()) % limit; }
    bool OneIn(std::uint32_t number) { return Below(number) == 0; }

private:
    std::uint64_t Bits();
    void MakeNumber(VARIANT& value);
    void MakeText(VARIANT& value);
    void MakeReference(VARIANT& value, int depth);
    void MakeObject(VARIANT& value);
    void MakeArray(VARIANT& value);
    void MakeStrange(VARIANT& value);

    std::mt19937 m_random;
    std::deque<VARIANT> m_values;
};

}

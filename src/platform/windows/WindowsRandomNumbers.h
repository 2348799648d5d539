#pragma once
#include "platform/RandomNumbers.h"
#include <random>

namespace platform::windowsdesktop {

class CWindowsRandomNumbers final : public IRandomNumbers {
public:
    CWindowsRandomNumbers();
    void Seed(double seed) override;
    double Next() override;

private:
    std::mt19937 m_generator;
};

}

#pragma once

namespace platform {

class IRandomNumbers {
public:
    virtual ~IRandomNumbers() = default;
    virtual void Seed(double seed) = 0;
    virtual double Next() = 0;  // 0 or more, below 1.
};

}

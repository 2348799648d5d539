#include "Sample.h"
#include <stdexcept>

namespace {

constexpr int FullAge = 18;
constexpr int Fares[] = {0, 2, 5};

}

bool IsGrown(int age) { return age >= FullAge; }

int Fare(int age, bool pupil)
{
    if (age < 6 || pupil)
        return Fares[0];
    return IsGrown(age) ? Fares[2] : Fares[1];
}

std::string Ticket(int age, int& sold)
{
    ++sold;
    return Fare(age, false) == 0 ? "free" : "paid";
}

int SumTo(int last)
{
    int sum = 0;
    for (int i = 1; i <= last; ++i)
        sum += i;
    return sum;
}

int Zone(int stop)
{
    while (true) {
        if (stop < 4)
            return stop;
        stop -= 4;
    }
}

int Platform(const std::string& train)
{
    if (train.empty())
        throw std::invalid_argument("no train");
    throw std::runtime_error(train);
}

#pragma once
#include <string>

// Something with known faults: the tests of tools/mutate damage it.
bool IsGrown(int age);
int Fare(int age, bool pupil);
std::string Ticket(int age, int& sold);
int SumTo(int last);
int Zone(int stop);
int Platform(const std::string& train);

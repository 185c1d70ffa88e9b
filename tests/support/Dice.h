// Chance for random walks, and how much of it the environment asks for.
#pragma once

#include <QtGlobal>

#include <iterator>
#include <random>

/// Chance, in whole numbers.
class Dice {
public:
    explicit Dice(unsigned seed) : bits(seed) {}
    int below(int bound) { return bound > 0 ? int(bits() % unsigned(bound)) : 0; }
    int between(int low, int high) { return low + below(high - low + 1); }
    bool oneIn(int count) { return below(count) == 0; }
    template <typename List> auto any(const List& list) -> decltype(*std::begin(list))
    {
        return *std::next(std::begin(list), below(int(std::size(list))));
    }

private:
    std::mt19937 bits;
};

/// A number of the environment.
inline unsigned walkSetting(const char* name, unsigned otherwise)
{
    bool isNumber = false;
    const unsigned value = qEnvironmentVariable(name).toUInt(&isNumber);
    return isNumber ? value : otherwise;
}

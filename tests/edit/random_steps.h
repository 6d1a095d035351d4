// How long the random tests run and from which seed, and the dice they throw.
#pragma once

#include <cstdlib>
#include <random>
#include <vector>

namespace corvane {

// Told by the environment where a longer run or another seed is wanted.
inline int FromEnvironment(const char* name, int usual) {
    const char* asked = std::getenv(name);
    return asked ? std::atoi(asked) : usual;
}
inline int RandomSteps(int usual) { return FromEnvironment("CORVANE_RANDOM_STEPS", usual); }
inline int RandomSeed(int usual) { return FromEnvironment("CORVANE_RANDOM_SEED", usual); }

class Dice {
public:
    explicit Dice(int seed) : _random(static_cast<unsigned>(seed)) {}

    int Pick(int low, int high) { return std::uniform_int_distribution<int>(low, high)(_random); }
    // True once in so many times.
    bool OneIn(int times) { return Pick(1, times) == 1; }
    template <class T>
    const T& AnyOf(const std::vector<T>& all) {
        return all[static_cast<size_t>(Pick(0, static_cast<int>(all.size()) - 1))];
    }

private:
    std::mt19937 _random;
};

}  // namespace corvane

// Random values from a fixed seed.
#pragma once

#include <QtGlobal>
#include <iterator>
#include <random>

class Dice {
public:
    explicit Dice(unsigned seed)
        : m_engine(seed) {}
    int below(qsizetype limit) { return int(m_engine() % unsigned(limit)); } // the same on every platform
    template <class List>
    auto oneOf(const List &list) {
        return list[below(std::size(list))];
    }
    // Returns at most `longest` random pieces of the alphabet, joined.
    template <class Text, class Alphabet>
    Text text(const Alphabet &alphabet, int longest) {
        Text result;
        for (int i = below(longest + 1); i > 0; --i)
            result += oneOf(alphabet);
        return result;
    }

private:
    std::mt19937 m_engine;
};

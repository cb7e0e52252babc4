// Texts that are almost right.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <random>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace qbrpt::test {

/// Changes whole words of texts that are right, so that most changes still parse.
class Mutator {
public:
    Mutator(unsigned seed, std::span<const std::string_view> seeds, std::span<const std::string_view> words)
        : mRandom(seed), mSeeds(seeds), mWords(words) {}

    /// A changed seed, or now and then bytes that are nothing.
    std::string Next() {
        if (Below(20) == 0) return Bytes();
        return Changed(mSeeds[Below(mSeeds.size())]);
    }

    /// `source` after a few changes.
    std::string Changed(std::string_view source) {
        std::string text(source);
        for (std::size_t turns = 1 + Below(4); turns > 0; --turns)
            Change(text);
        return text;
    }

    std::size_t Below(std::size_t limit) {
        return std::uniform_int_distribution<std::size_t>(0, limit - 1)(mRandom);
    }

private:
    std::string Bytes() {
        std::string text(Below(200), ' ');
        for (char& c : text)
            c = static_cast<char>(Below(256));
        return text;
    }

    // Whole words of the text, so that most changes still parse.
    static std::vector<std::string> Pieces(const std::string& text) {
        std::vector<std::string> pieces(1);
        for (const char c : text) {
            const bool mark = std::string_view(" ,()=&+-*/[].{}\"#\n").find(c) != std::string_view::npos;
            if (mark) pieces.emplace_back(1, c);
            if (mark)
                pieces.emplace_back();
            else
                pieces.back().push_back(c);
        }
        return pieces;
    }

    void Change(std::string& text) {
        std::vector<std::string> pieces = Pieces(text);
        const std::size_t at = Below(pieces.size());
        const std::size_t other = Below(pieces.size());
        switch (Below(7)) {
        case 0:
            pieces[at].clear();
            break;
        case 1:
            std::swap(pieces[at], pieces[other]);
            break;
        case 2:
            pieces[at] += " " + std::string(mWords[Below(mWords.size())]) + " ";
            break;
        case 3:
            pieces[at] = " " + std::string(mWords[Below(mWords.size())]) + " ";
            break;
        case 4:
            pieces[at] += pieces[other];
            break;
        case 5:
            pieces.resize(at + 1);
            break;
        default:
            if (!pieces[at].empty()) pieces[at][Below(pieces[at].size())] = static_cast<char>(Below(256));
        }
        text.clear();
        for (const std::string& piece : pieces)
            text += piece;
    }

    std::mt19937 mRandom;
    std::span<const std::string_view> mSeeds;
    std::span<const std::string_view> mWords;
};

/// How long a short run of a fuzzer is: QBRPT_FUZZ_SEED and QBRPT_FUZZ_TURNS say otherwise.
struct FuzzRun {
    explicit FuzzRun(long usualTurns) : turns(usualTurns) {
        if (const char* given = std::getenv("QBRPT_FUZZ_SEED"))
            seed = static_cast<unsigned>(std::strtoul(given, nullptr, 10));
        if (const char* given = std::getenv("QBRPT_FUZZ_TURNS")) turns = std::strtol(given, nullptr, 10);
        std::printf("seed %u, %ld turns\n", seed, turns);
    }
    unsigned seed = 20'031U;
    long turns;
};

} // namespace qbrpt::test

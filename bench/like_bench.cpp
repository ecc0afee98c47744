// Matches per second of a case-insensitive "*word*" over realistic image lines, beside the C
// library's strcasestr and memmem on the same lines. Prints the figures and the ratios.

#include "BenchLines.h"
#include "common/LikePattern.h"

#include <chrono>
#include <cstdio>
#include <cstring>
#include <functional>

namespace {

struct Result
{
    double linesPerSecond;
    size_t hits;
};

Result measure(const std::vector<std::string> &lines, const std::function<bool(const std::string &)> &test)
{
    using clock = std::chrono::steady_clock;
    size_t hits = 0;
    size_t done = 0;
    const auto start = clock::now();
    auto elapsed = std::chrono::duration<double>(0);
    while (elapsed.count() < 1.0) {
        for (const std::string &line : lines)
            hits += test(line) ? 1 : 0;
        done += lines.size();
        elapsed = clock::now() - start;
    }
    return {static_cast<double>(done) / elapsed.count(), hits * lines.size() / done};
}

void report(const char *word, const std::vector<std::string> &lines)
{
    const std::string pattern = std::string("*") + word + "*";
    const LikePattern like(pattern, LikePattern::Case::Folded);
    const size_t wordLength = std::strlen(word);
    const Result ours = measure(lines, [&](const std::string &line) { return like.matches(line); });
    const Result casestr = measure(lines, [&](const std::string &line) { return strcasestr(line.c_str(), word) != nullptr; });
    const Result mem = measure(lines, [&](const std::string &line) {
        return memmem(line.data(), line.size(), word, wordLength) != nullptr;
    });
    std::printf("%-10s Like(folded) %7.1f M/s (%zu hits) | strcasestr %7.1f M/s (%zu hits) | memmem (case-sensitive) %7.1f M/s\n",
                word, ours.linesPerSecond / 1e6, ours.hits, casestr.linesPerSecond / 1e6, casestr.hits,
                mem.linesPerSecond / 1e6);
    std::printf("%-10s ratio Like/strcasestr %.2f, Like/memmem %.2f (above 1: Like is faster)\n", word,
                ours.linesPerSecond / casestr.linesPerSecond, ours.linesPerSecond / mem.linesPerSecond);
}

} // namespace

int main()
{
    const auto lines = benchlines::makeLines(1000000);
    for (const char *word : {"haus", "garten", "mahnung_m\xFCller", "zzqx"})
        report(word, lines);
    return 0;
}

#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <vector>

// Realistic drive image lines for benchmarks: German and English folder and file names,
// archive entries, sizes and dates, in code page 1252.
namespace benchlines {

inline std::vector<std::string> makeLines(size_t count, uint32_t seed = 1)
{
    static const char *const folders[] = {"Bilder", "Musik", "Dokumente", "Programme", "Setup", "Urlaub 2003",
                                          "Projekte", "Backup", "Treiber", "Spiele", "Fotos", "Videos",
                                          "Briefe", "Steuer", "R\xE4tsel", "M\xFCller", "Archiv", "src"};
    static const char *const stems[] = {"liesmich", "garten", "bericht", "rechnung", "track", "setup",
                                        "foto", "vertrag", "Mahnung_M\xFCller", "index", "main", "daten",
                                        "urlaub", "haus", "kinder", "b\xFCro", "readme", "notes"};
    static const char *const types[] = {"txt", "jpg", "mp3", "doc", "exe", "dll", "pdf", "zip", "xls", "html"};
    std::mt19937 random(seed);
    auto pick = [&random](const auto &table) { return table[random() % std::size(table)]; };
    std::vector<std::string> lines;
    lines.reserve(count);
    for (size_t i = 0; i < count; ++i) {
        std::string line = "d:";
        const int depth = 1 + static_cast<int>(random() % 4);
        for (int d = 0; d < depth; ++d) {
            line += '\\';
            line += pick(folders);
        }
        if (random() % 8 == 0) {
            lines.push_back('>' + line);
            continue;
        }
        line += '\\';
        line += pick(stems);
        line += ' ';
        line += std::to_string(random() % 100);
        line += '.';
        line += pick(types);
        line += '|';
        line += std::to_string(random() % 5000000);
        line += "|28.07.2002 18:02:44";
        lines.push_back(std::move(line));
    }
    return lines;
}

} // namespace benchlines

#pragma once

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <random>
#include <string>
#include <vector>

// Drive images as capture writes them, for the search benchmark: a depth-first walk over
// German and English folders, files with sizes and dates, ZIP and RAR entries with their
// date-only field and the ZIP listing's empty last row; code page 1252, CR LF, end line.
namespace searchbench {

inline const char *const kFolders[] = {
    "Bilder", "Musik", "Dokumente", "Programme", "Setup", "Urlaub 2003", "Projekte", "Backup", "Treiber",
    "Spiele", "Fotos", "Videos", "Briefe", "Steuer", "R\xE4tsel", "M\xFCller", "Archiv", "src", "include",
    "Documents", "Pictures", "Music", "Downloads", "Program Files", "Windows", "System32", "Temp",
    "Eigene Dateien", "Hochzeit", "Weihnachten 2002", "Kinder", "Schule", "Arbeit", "Rechnungen", "Vertr\xE4ge",
    "Old Stuff", "Wallpapers", "Fonts", "Samples", "Demos",
    "Office", "Acrobat", "Netscape", "Winamp", "Skins", "Plugins", "lib", "bin", "docs", "images", "html",
    "\xDC" "bungen", "Gro\xDF" "eltern", "Ferienwohnung", "Sommer", "Winter", "Mallorca", "Berlin", "M\xFC" "nchen"};

inline const char *const kStems[] = {
    "liesmich", "readme", "garten", "bericht", "rechnung", "Track", "setup", "install", "foto", "IMG_",
    "DSC0", "vertrag", "Mahnung_M\xFCller", "index", "main", "daten", "urlaub", "kinder", "b\xFCro", "notes",
    "Brief an ", "Lebenslauf", "Bewerbung", "Einkaufsliste", "Hausaufgaben", "Rathaus",
    "house_plan", "invoice", "report", "summary", "presentation", "budget", "Kalender", "Adressen",
    "Telefonliste", "Steuererkl\xE4rung", "Kontoauszug", "Urkunde", "Zeugnis", "Song ", "Intro", "Outro",
    "Kapitel ", "chapter", "scan", "Scan_", "wallpaper", "logo", "banner", "style", "script", "config",
    "uninstall", "update", "patch", "driver", "manual", "Handbuch", "Anleitung", "Rezept", "Geburtstag",
    "Hochzeit_", "Party", "Strand", "Berge", "Stadtplan", "Fahrplan", "Notizen", "Protokoll", "Angebot"};

inline const char *const kTypes[] = {"jpg", "JPG", "mp3", "txt", "doc", "pdf", "exe", "dll", "htm", "html",
                                     "xls", "avi", "mpg", "gif", "bmp", "ini", "cab", "wav", "ppt", "TXT",
                                     "png", "h", "cpp", "inf", "sys", "hlp", "rtf", "wma", "mov", "css"};

class ImageGenerator
{
public:
    explicit ImageGenerator(uint32_t seed)
        : m_random(seed)
    {
    }

    // An image of about `lines` lines (a few more when an archive listing runs over).
    std::string image(size_t lines, char drive)
    {
        std::string out;
        out.reserve(lines * 80);
        std::vector<std::string> stack = {std::string{drive, ':'}};
        emit(out, '>' + stack.back());
        size_t written = 1;
        while (written < lines) {
            const unsigned roll = m_random() % 100;
            if (roll < 8 && stack.size() < 7) {
                stack.push_back(stack.back() + '\\' + pick(kFolders) + suffix());
                emit(out, '>' + stack.back());
                ++written;
            } else if (roll < 16 && stack.size() > 1) {
                stack.pop_back();
            } else if (roll < 18) {
                written += archive(out, stack.back());
            } else {
                emit(out, stack.back() + '\\' + fileName() + '|' + size() + '|' + dateTime());
                ++written;
            }
        }
        out += "\r\n"; // the end line
        return out;
    }

private:
    template <size_t N>
    const char *pick(const char *const (&table)[N])
    {
        return table[m_random() % N];
    }

    std::string suffix()
    {
        return m_random() % 4 == 0 ? ' ' + std::to_string(1995 + m_random() % 11) : std::string();
    }

    std::string fileName()
    {
        std::string name = pick(kStems);
        if (m_random() % 3 != 0)
            name += std::to_string(m_random() % 300);
        return name + '.' + pick(kTypes);
    }

    std::string size()
    {
        // Mostly small files, some large ones, now and then a negative low 32 bits.
        const unsigned digits = 1 + m_random() % 9;
        long long value = static_cast<long long>(m_random() % 1000000000) % static_cast<long long>(std::pow(10, digits));
        if (m_random() % 500 == 0)
            value = -value;
        return std::to_string(value);
    }

    unsigned below(unsigned bound) { return static_cast<unsigned>(m_random() % bound); }

    std::string date()
    {
        char text[16];
        std::snprintf(text, sizeof text, "%02u.%02u.%04u", 1 + below(28), 1 + below(12), 1995 + below(10));
        return text;
    }

    std::string dateTime()
    {
        if (m_random() % 40 == 0)
            return date(); // written at midnight
        char text[16];
        std::snprintf(text, sizeof text, " %02u:%02u:%02u", below(24), below(60), below(60));
        return date() + text;
    }

    size_t archive(std::string &out, const std::string &folder)
    {
        const bool zip = m_random() % 2 == 0;
        const std::string path = folder + '\\' + pick(kStems) + (zip ? ".zip" : ".rar");
        emit(out, '>' + path);
        const size_t entries = 1 + m_random() % 20;
        for (size_t i = 0; i < entries; ++i) {
            std::string inner = m_random() % 3 == 0 ? std::string(pick(kFolders)) + '/' : std::string();
            emit(out, path + '\\' + inner + fileName() + '|' + size() + '|' + date());
        }
        if (zip)
            emit(out, path + "\\||");
        return entries + (zip ? 2 : 1);
    }

    static void emit(std::string &out, const std::string &line)
    {
        out += line;
        out += "\r\n";
    }

    std::mt19937 m_random;
};

// How many lines each of `images` images gets, `total` in all: most images small, a few large.
inline std::vector<size_t> lineCounts(size_t images, size_t total, uint32_t seed)
{
    std::mt19937 random(seed);
    std::lognormal_distribution<double> spread(0.0, 1.0);
    std::vector<double> weights(images);
    double sum = 0;
    for (double &weight : weights)
        sum += weight = spread(random);
    std::vector<size_t> counts(images);
    size_t assigned = 0;
    for (size_t i = 0; i < images; ++i)
        assigned += counts[i] = std::max<size_t>(2, static_cast<size_t>(weights[i] / sum * static_cast<double>(total)));
    counts.back() += total > assigned ? total - assigned : 0;
    return counts;
}

} // namespace searchbench

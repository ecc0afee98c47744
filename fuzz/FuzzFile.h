#pragma once

#include <QString>

#include <cstdint>
#include <cstdio>
#include <string>
#include <unistd.h>

// The listers and readers take paths: each input goes to a file of this process first.
inline std::string fuzzFile(const char *kind, const uint8_t *data, size_t size)
{
    const std::string path = "/tmp/silberbuch-fuzz-" + std::to_string(::getpid()) + "." + kind;
    if (FILE *file = std::fopen(path.c_str(), "wb")) {
        std::fwrite(data, 1, size, file);
        std::fclose(file);
    }
    return path;
}

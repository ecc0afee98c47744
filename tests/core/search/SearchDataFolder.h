#pragma once

#include <QString>
#include <QTemporaryDir>

#include <cstdint>
#include <string>
#include <vector>

// A fresh data folder with the image folder, for one test.
class SearchDataFolder
{
public:
    SearchDataFolder();

    QString path() const { return m_dir.path(); }
    QString imagePath(int32_t imageId) const;

    // An image as capture writes it: every line with CR LF, then the empty end line.
    // Lines are code page 1252 bytes.
    void writeImage(int32_t imageId, const std::vector<std::string> &lines) const;
    void writeRawImage(int32_t imageId, const std::string &bytes) const;

private:
    QTemporaryDir m_dir;
};

#pragma once

#include <QString>

#include <ostream>

// Lets GoogleTest show Qt texts, alone or in lists, in failure messages instead of their bytes.
inline void PrintTo(const QString &text, std::ostream *out)
{
    *out << '"' << text.toStdString() << '"';
}

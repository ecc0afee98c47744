#pragma once

#include <QString>

#include <ostream>

// Lets test failures show texts as text rather than as bytes.
inline void PrintTo(const QString &text, std::ostream *out)
{
    *out << '"' << text.toStdString() << '"';
}

#pragma once

#include <QString>

// Where the maker of the program can be reached.
namespace vendor {

inline QString webAddress()
{
    return QStringLiteral("https://silberbuch.example.org/");
}

inline QString mailAddress()
{
    return QStringLiteral("support@silberbuch.example.org");
}

} // namespace vendor

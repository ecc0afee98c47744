#pragma once

#include <QString>

// Why an operation on an archive failed. Callers branch on the kind and show the message,
// which is German and ready for a message box.
struct ArchiveError
{
    enum class Kind {
        None,
        DuplicateNumber, // the number is taken by another row
        TitleTooLong, // cd_name over 50 characters
        NotFound, // no row with that number, or no such archive file
        BadPattern, // a Like pattern that does not compile
        DuplicateName, // an archive of that name exists
        BadName, // a name that cannot become a file name
        FileError, // the file is missing, unreadable, locked or no archive at all
        EngineError, // anything else the database reports
    };

    Kind kind = Kind::None;
    QString message;

    bool ok() const { return kind == Kind::None; }
    static ArchiveError failure(Kind kind, const QString &message) { return {kind, message}; }
};

// A value together with the error that kept it from being complete.
template <typename T> struct StoreResult
{
    T value {};
    ArchiveError error;

    bool ok() const { return error.ok(); }
};

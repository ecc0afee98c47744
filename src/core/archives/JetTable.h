#pragma once

#include <QString>
#include <QStringList>
#include <QVariant>

#include <vector>

// A table read whole from a Jet database (the .mdb files of the Windows version). Numbers
// come as qint64, booleans as bool, texts and memos as QString; a NULL field is an invalid
// QVariant, so it stays apart from an empty text.
struct JetTable
{
    QStringList columns;
    std::vector<std::vector<QVariant>> rows;
};

struct JetTableRead
{
    JetTable table;
    QString error; // German reason; empty when the table was read
    bool ok() const { return error.isEmpty(); }
};

// True when the file starts as a Jet 3 or Jet 4 database does ("Standard Jet DB" at offset 4).
bool isJetFile(const QString &path);

// Reads one table by name, in a child process with limited memory and time whose output is
// discarded: a damaged file costs at most that, never a hang of the program. A file that is
// damaged, encrypted beyond reading or lacks the table gives a German reason naming the file.
JetTableRead readJetTable(const QString &path, const QString &tableName);

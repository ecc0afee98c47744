#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

// The text of the settings file in the INI form the settings have always had: "[group]"
// lines, then "key=value" lines; names percent-encoded where they hold more than letters,
// digits, "_", "-" and "."; values in UTF-8 with control characters, "\" and '"' escaped, and
// in double quotes when they hold ";", "," or "=" or start or end with a blank. Values that
// are not changed are written back as they were read.
class IniDocument
{
public:
    // Lines that are neither a group nor a value (comments, blank lines) are dropped.
    static IniDocument parse(const QByteArray &bytes);
    QByteArray text() const;

    // The stored text; a value with unquoted commas reads as its parts joined by ", ".
    std::optional<QString> value(const QString &group, const QString &key) const;
    void setValue(const QString &group, const QString &key, const QString &text);
    void remove(const QString &group, const QString &key);
    // The keys of a group in file order.
    QStringList keys(const QString &group) const;

private:
    struct Entry
    {
        QString key;
        QByteArray stored; // the value as it stands in the file
    };
    struct Group
    {
        QString name;
        std::vector<Entry> entries;
    };

    Group *group(const QString &name);
    const Group *group(const QString &name) const;

    std::vector<Group> m_groups;
};

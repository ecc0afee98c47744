#include "IniDocument.h"

#include <algorithm>

namespace {

bool isPlainNameCharacter(char16_t c)
{
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9') || c == u'_'
        || c == u'-' || c == u'.';
}

QByteArray hex(uint value, int digits)
{
    return QByteArray::number(value, 16).toUpper().rightJustified(digits, '0');
}

QByteArray escapedName(const QString &name)
{
    QByteArray out;
    for (const QChar c : name) {
        const char16_t code = c.unicode();
        if (isPlainNameCharacter(code))
            out += static_cast<char>(code);
        else if (code == u'/')
            out += '\\';
        else if (code <= 0xFF)
            out += '%' + hex(code, 2);
        else
            out += "%U" + hex(code, 4);
    }
    return out;
}

QString unescapedName(const QByteArray &text)
{
    QByteArray utf8;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char c = text.at(i);
        const bool wide = c == '%' && text.mid(i + 1, 1) == "U";
        bool ok = false;
        const uint code = c == '%' ? text.mid(i + (wide ? 2 : 1), wide ? 4 : 2).toUInt(&ok, 16) : 0;
        if (ok) {
            utf8 += QString(QChar(static_cast<char16_t>(code))).toUtf8();
            i += wide ? 5 : 2;
        } else {
            utf8 += c == '\\' ? '/' : c;
        }
    }
    return QString::fromUtf8(utf8);
}

QByteArray escapedValue(const QString &text)
{
    // A text starting with "@" gets another one, so that it is not taken for a typed value.
    const QByteArray utf8 = (text.startsWith(QLatin1Char('@')) ? QStringLiteral("@") + text : text).toUtf8();
    QByteArray out;
    bool needsQuotes = false;
    bool escapeNextIfHex = false;
    for (const char c : utf8) {
        if (c == ';' || c == ',' || c == '=')
            needsQuotes = true;
        if (escapeNextIfHex && std::isxdigit(static_cast<unsigned char>(c))) {
            out += "\\x" + QByteArray::number(static_cast<uint>(c), 16);
            continue;
        }
        escapeNextIfHex = false;
        switch (c) {
        case '\a': out += "\\a"; break;
        case '\b': out += "\\b"; break;
        case '\f': out += "\\f"; break;
        case '\n': out += "\\n"; break;
        case '\r': out += "\\r"; break;
        case '\t': out += "\\t"; break;
        case '\v': out += "\\v"; break;
        case '"':
        case '\\': out += '\\'; out += c; break;
        default:
            if (static_cast<unsigned char>(c) <= 0x1F) {
                out += "\\x" + QByteArray::number(static_cast<uint>(c), 16);
                escapeNextIfHex = true;
            } else {
                out += c;
            }
        }
    }
    if (needsQuotes || out.startsWith(' ') || out.endsWith(' '))
        out = '"' + out + '"';
    return out;
}

// The parts of a stored value: more than one where commas stand outside quotes.
QStringList unescapedValue(const QByteArray &stored, bool *quoted)
{
    QStringList parts;
    QByteArray current;
    bool inQuotes = false;
    *quoted = false;
    const auto endPart = [&] {
        parts << QString::fromUtf8(current);
        current.clear();
    };
    for (qsizetype i = 0; i < stored.size(); ++i) {
        const char c = stored.at(i);
        if (c == '"') {
            inQuotes = !inQuotes;
            *quoted = true;
        } else if (c == ',' && !inQuotes) {
            while (current.endsWith(' '))
                current.chop(1);
            endPart();
            while (i + 1 < stored.size() && stored.at(i + 1) == ' ')
                ++i;
        } else if (c == '\\' && i + 1 < stored.size()) {
            const char code = stored.at(++i);
            static const char kCodes[] = "a\ab\bf\fn\nr\rt\tv\v\"\"?\?''\\\\";
            const char *found = std::find(kCodes, kCodes + sizeof kCodes - 1, code);
            if (code == 'x' || (code >= '0' && code <= '7')) {
                const int base = code == 'x' ? 16 : 8;
                qsizetype end = code == 'x' ? i + 1 : i;
                while (end < stored.size() && (base == 16 ? std::isxdigit(static_cast<unsigned char>(stored.at(end)))
                                                          : stored.at(end) >= '0' && stored.at(end) <= '7'))
                    ++end;
                const qsizetype start = code == 'x' ? i + 1 : i;
                const uint value = stored.mid(start, end - start).toUInt(nullptr, base);
                current += QString(QChar(static_cast<char16_t>(value))).toUtf8();
                i = end - 1;
            } else if (found != kCodes + sizeof kCodes - 1 && (found - kCodes) % 2 == 0) {
                current += found[1];
            }
        } else {
            current += c;
        }
    }
    endPart();
    return parts;
}

} // namespace

IniDocument IniDocument::parse(const QByteArray &bytes)
{
    IniDocument document;
    Group *current = nullptr;
    for (QByteArray line : bytes.split('\n')) {
        line = line.trimmed();
        if (line.startsWith('[') && line.endsWith(']')) {
            const QString name = unescapedName(line.mid(1, line.size() - 2));
            current = document.group(name);
            if (!current) {
                document.m_groups.push_back({ name, {} });
                current = &document.m_groups.back();
            }
            continue;
        }
        const qsizetype equals = line.indexOf('=');
        if (equals <= 0 || line.startsWith(';') || line.startsWith('#'))
            continue;
        if (!current) {
            document.m_groups.push_back({ QStringLiteral("General"), {} });
            current = &document.m_groups.back();
        }
        const QString key = unescapedName(line.left(equals).trimmed());
        const QByteArray stored = line.mid(equals + 1).trimmed();
        const auto same = std::find_if(current->entries.begin(), current->entries.end(),
            [&](const Entry &entry) { return entry.key == key; });
        if (same != current->entries.end())
            same->stored = stored;
        else
            current->entries.push_back({ key, stored });
    }
    return document;
}

QByteArray IniDocument::text() const
{
    QByteArray out;
    for (const Group &group : m_groups) {
        if (group.entries.empty())
            continue;
        if (!out.isEmpty())
            out += '\n';
        out += '[' + escapedName(group.name) + "]\n";
        for (const Entry &entry : group.entries)
            out += escapedName(entry.key) + '=' + entry.stored + '\n';
    }
    return out;
}

std::optional<QString> IniDocument::value(const QString &groupName, const QString &key) const
{
    const Group *found = group(groupName);
    if (!found)
        return std::nullopt;
    for (const Entry &entry : found->entries) {
        if (entry.key != key)
            continue;
        bool quoted = false;
        const QStringList parts = unescapedValue(entry.stored, &quoted);
        QString text = parts.join(QStringLiteral(", "));
        if (!quoted && parts.size() == 1 && text.startsWith(QStringLiteral("@@")))
            text.remove(0, 1);
        return text;
    }
    return std::nullopt;
}

void IniDocument::setValue(const QString &groupName, const QString &key, const QString &text)
{
    Group *found = group(groupName);
    if (!found) {
        m_groups.push_back({ groupName, {} });
        found = &m_groups.back();
    }
    const QByteArray stored = escapedValue(text);
    for (Entry &entry : found->entries) {
        if (entry.key == key) {
            entry.stored = stored;
            return;
        }
    }
    found->entries.push_back({ key, stored });
}

void IniDocument::remove(const QString &groupName, const QString &key)
{
    if (Group *found = group(groupName))
        std::erase_if(found->entries, [&](const Entry &entry) { return entry.key == key; });
}

QStringList IniDocument::keys(const QString &groupName) const
{
    QStringList keys;
    if (const Group *found = group(groupName))
        for (const Entry &entry : found->entries)
            keys << entry.key;
    return keys;
}

IniDocument::Group *IniDocument::group(const QString &name)
{
    const auto found = std::find_if(m_groups.begin(), m_groups.end(), [&](const Group &g) { return g.name == name; });
    return found == m_groups.end() ? nullptr : &*found;
}

const IniDocument::Group *IniDocument::group(const QString &name) const
{
    return const_cast<IniDocument *>(this)->group(name);
}

#include "FileDialogRules.h"

namespace filedialogrules {

namespace {

const QChar nul(u'\0');

// A pattern of the other system for a file dialog here: case folded by character lists,
// and "*.*", which there matches names without a dot too, as "*".
QString foldedPattern(const QString &pattern)
{
    if (pattern == QStringLiteral("*.*"))
        return QStringLiteral("*");
    QString out;
    bool inList = false;
    for (const QChar c : pattern) {
        if (c == u'[')
            inList = true;
        else if (c == u']')
            inList = false;
        const QChar lower = c.toLower();
        const QChar upper = c.toUpper();
        if (!inList && lower != upper)
            out += u'[' + QString(lower) + QString(upper) + u']';
        else
            out += c;
    }
    return out;
}

} // namespace

QString convertFilter(const QString &filter)
{
    QString out = filter;
    if (!out.endsWith(u'|'))
        out += u'|';
    out.replace(u'|', nul);
    out += nul;
    out += nul;
    return out;
}

QStringList nameFilters(const QString &convertedFilter)
{
    QStringList out;
    const QStringList pieces = convertedFilter.split(nul);
    for (qsizetype i = 0; i + 1 < pieces.size(); i += 2) {
        const QString &name = pieces[i];
        const QString &patterns = pieces[i + 1];
        if (name.isEmpty() || patterns.isEmpty())
            break;
        QStringList folded;
        for (const QString &pattern : patterns.split(u';', Qt::SkipEmptyParts))
            folded << foldedPattern(pattern.trimmed());
        out << name + QStringLiteral(" (") + folded.join(u' ') + u')';
    }
    return out;
}

QString filterPiece(const QString &text, int number, QChar delimiter)
{
    if (number < 1)
        return {};
    const QString full = text.startsWith(delimiter) ? text : QString(delimiter) + text;
    const QStringList pieces = full.split(delimiter);
    // pieces[0] is what stands before the first delimiter, always empty here.
    return number < pieces.size() ? pieces[number] : QString();
}

QString saveExtension(const QString &convertedFilter, int filterIndex)
{
    const QString pattern = filterPiece(convertedFilter, filterIndex * 2, nul).trimmed();
    const qsizetype dot = pattern.lastIndexOf(u'.');
    return dot < 0 ? QString() : pattern.mid(dot);
}

SaveNames saveNames(
    const QString &chosenPath, const QString &convertedFilter, int filterIndex, const QString &defaultExt)
{
    SaveNames names { chosenPath, chosenPath };
    const QString ext = saveExtension(convertedFilter, filterIndex);
    if (names.fileName.size() < 4)
        names.fileName += ext;
    // Still shorter than four characters only when the extension is empty.
    if (names.fileName.size() >= 4 && names.fileName.at(names.fileName.size() - 4) != u'.')
        names.fileName += ext;
    if (!defaultExt.isEmpty()) {
        const QString dotted = defaultExt.startsWith(u'.') ? defaultExt : u'.' + defaultExt;
        if (!names.fileName.endsWith(dotted)) {
            names.fileName += dotted;
            names.result += dotted;
        }
    }
    return names;
}

} // namespace filedialogrules

#include "CliHelp.h"

#include "CliCommand.h"
#include "app/Installation.h"

#include <QStringList>

namespace {

const char *const kSynopsis = "silberbuch-cli [--data ORDNER] [--archive NAME] BEFEHL ...";

// The forms of a verb's call, one a line, without the indentation of the continuation lines.
QStringList formsOf(const RegisteredCommand &command)
{
    QStringList forms = command.usage.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (QString &form : forms)
        form = form.trimmed();
    return forms;
}

// Text for roff: a leading dot or apostrophe would start a request, a backslash an escape.
QString roff(QString text)
{
    text.replace(QLatin1Char('\\'), QStringLiteral("\\e"));
    text.replace(QLatin1Char('-'), QStringLiteral("\\-"));
    if (text.startsWith(QLatin1Char('.')) || text.startsWith(QLatin1Char('\'')))
        text.prepend(QStringLiteral("\\&"));
    return text;
}

struct Section
{
    const char *heading;
    QStringList paragraphs; // each "term\tparagraph" or a plain paragraph
};

// The parts of the manual page that no verb registers.
const QStringList kOptions = {
    QStringLiteral("--data ORDNER\tDer Datenordner mit archive/, lws/ und Covers/; ohne die Angabe der "
                   "Datenordner des Programms ($SILBERBUCH_HOME, sonst ~/.local/share/Silberbuch)."),
    QStringLiteral("--archive NAME\tDas Archiv, mit dem der Befehl arbeitet; ohne die Angabe das Standardarchiv."),
    QStringLiteral("--help\tZeigt die Befehle."),
    QStringLiteral("--version\tZeigt die Version."),
};
const QStringList kExitStatus = {
    QStringLiteral("0\tDer Befehl ist gelungen."),
    QStringLiteral("1\tDie Eingabe wurde abgelehnt; der Grund steht auf der Standardfehlerausgabe. Es wurde "
                   "nichts verändert."),
    QStringLiteral("2\tFalscher Aufruf; die Aufrufform steht auf der Standardfehlerausgabe."),
};
const QStringList kEnvironment = {
    QStringLiteral("SILBERBUCH_HOME\tDer Programmordner, zugleich der voreingestellte Datenordner."),
    QStringLiteral("SILBERBUCH_CONFIG\tDie Einstellungsdatei (sonst ~/.config/Silberbuch/Silberbuch.ini)."),
};

void taggedParagraphs(QString &page, const QStringList &entries)
{
    for (const QString &entry : entries) {
        const qsizetype tab = entry.indexOf(QLatin1Char('\t'));
        page += QStringLiteral(".TP\n.B ") + roff(entry.left(tab)) + QLatin1Char('\n')
            + roff(entry.mid(tab + 1)) + QLatin1Char('\n');
    }
}

} // namespace

QString helpText()
{
    QString text = QString::fromLatin1(kSynopsis) + QLatin1Char('\n');
    for (const auto &[verb, command] : registeredCommands()) {
        for (const QString &form : formsOf(command))
            text += QStringLiteral("  ") + form + QLatin1Char('\n');
        if (!command.description.isEmpty())
            text += QStringLiteral("      ") + command.description + QLatin1Char('\n');
    }
    return text;
}

QString manPage()
{
    QString page = QStringLiteral(".TH SILBERBUCH-CLI 1 \"\" \"") + installation::versionText()
        + QStringLiteral("\" \"Silberbuch\"\n.SH NAME\nsilberbuch\\-cli \\- der Datenträgerkatalog Silberbuch "
                         "auf der Kommandozeile\n.SH ÜBERSICHT\n.B ")
        + roff(QString::fromLatin1(kSynopsis))
        + QStringLiteral("\n.SH BESCHREIBUNG\nSilberbuch hält zu jeder CD Nummer, Titel, Kommentare, ein Cover und "
                         "ein Laufwerksabbild. Die Kommandozeile arbeitet auf denselben Daten wie das "
                         "Desktop\\-Programm silberbuch.\n.SH OPTIONEN\n");
    taggedParagraphs(page, kOptions);
    page += QStringLiteral(".SH BEFEHLE\n");
    for (const auto &[verb, command] : registeredCommands()) {
        page += QStringLiteral(".TP\n");
        const QStringList forms = formsOf(command);
        for (qsizetype i = 0; i < forms.size(); ++i)
            page += (i == 0 ? QStringLiteral(".B ") : QStringLiteral(".TQ\n.B ")) + roff(forms[i]) + QLatin1Char('\n');
        page += roff(command.description.isEmpty() ? QStringLiteral("Siehe die Aufrufform.") : command.description)
            + QLatin1Char('\n');
    }
    page += QStringLiteral(".SH EXIT\\-STATUS\n");
    taggedParagraphs(page, kExitStatus);
    page += QStringLiteral(".SH UMGEBUNG\n");
    taggedParagraphs(page, kEnvironment);
    page += QStringLiteral(".SH SIEHE AUCH\n.BR silberbuch (1)\n");
    return page;
}

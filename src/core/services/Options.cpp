#include "Options.h"

#include "app/AutostartEntry.h"
#include "app/Settings.h"
#include "app/TruthValue.h"

#include <optional>

namespace options {

namespace {

std::optional<bool> storedFlag(const Settings &settings, SettingKey key)
{
    bool ok = false;
    const int number = settings.value(key, QStringLiteral("0")).trimmed().toInt(&ok);
    return ok ? std::optional<bool>(number != 0) : std::nullopt;
}

QString flagText(bool flag)
{
    return flag ? QStringLiteral("1") : QStringLiteral("0");
}

QString truthText(bool value)
{
    return value ? QStringLiteral("True") : QStringLiteral("False");
}

} // namespace

Values load(Settings &settings, const QString &programFolder)
{
    Values values;
    values.path = settings.value(SettingKey::path, programFolder);
    const std::optional<bool> autostart = storedFlag(settings, SettingKey::autostart);
    const std::optional<bool> chooseArchive = storedFlag(settings, SettingKey::autoarchiv);
    const std::optional<bool> standardPath = parseTruthValue(settings.value(SettingKey::pfad, truthText(true)));
    if (!autostart || !chooseArchive || !standardPath) {
        // The reset values are what the dialog shows, so that a save stores them and not the
        // values read before the unreadable one.
        const Settings::Update update(settings);
        settings.setValue(SettingKey::autostart, flagText(false));
        settings.setValue(SettingKey::autoarchiv, flagText(false));
        settings.setValue(SettingKey::pfad, truthText(true));
        return values;
    }
    values.autostart = *autostart;
    values.chooseArchive = *chooseArchive;
    values.standardPath = *standardPath;
    return values;
}

bool needsRestart(const Settings &settings, const Values &values, const QString &programFolder)
{
    const bool storedStandard = parseTruthValue(settings.value(SettingKey::pfad, truthText(true))).value_or(true);
    return (storedStandard && !values.standardPath)
        || values.path != settings.value(SettingKey::path, programFolder + QLatin1Char('/'));
}

bool save(Settings &settings, const Values &values, const QString &executable)
{
    bool saved = true;
    {
        const Settings::Update update(settings);
        saved = settings.setValue(SettingKey::autostart, flagText(values.autostart)) && saved;
        saved = settings.setValue(SettingKey::autoarchiv, flagText(values.chooseArchive)) && saved;
        saved = settings.setValue(SettingKey::pfad, truthText(values.standardPath)) && saved;
        saved = settings.setValue(SettingKey::path, values.path) && saved;
    }
    if (values.autostart)
        autostart::writeEntry(executable);
    else
        autostart::removeEntry();
    return saved;
}

QString pathInformationTitle()
{
    return QStringLiteral("Infos: Datenbank-Pfad ändern");
}

QString pathInformation()
{
    return QStringLiteral("> Wozu dient die Option den Datenbank-Pfad zu ändern?\r\n\r\n"
                          "Dadurch entstehen Ihnen viele neue Einsatzmöglichkeiten, z.b.:\r\n\r\n"
                          "- Wenn Sie ein Heim- oder Firmennetzwerk besitzen und möchten, dass alle Clients auf eine "
                          "gemeinsame Silberbuch-Datenbank zugreifen, können Sie hier den Pfad zur Datenbank des "
                          "Server eintragen.\r\n\r\n"
                          "- Sie möchten die Datenbank auf einem Wechseldatenträger speichern (z.b. ZIP-Drive) um die "
                          "Datenbank so auch Mobil bei der Arbeit oder auf dem Laptop verfügbar zu haben\r\n\r\n"
                          "Hinweis: Neben der eigentlichen Datenbank werden im angegebenen Pfad auch alle anderen "
                          "relevanten Daten zum Archiv, wie Covers und Laufwerksstrukturen gespeichert.");
}

} // namespace options

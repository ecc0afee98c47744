#include "GermanQtTexts.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

bool installGermanQtTexts(QCoreApplication &application)
{
    auto *translator = new QTranslator(&application);
    if (!translator->load(QStringLiteral("qtbase_de"), QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        delete translator;
        return false;
    }
    return QCoreApplication::installTranslator(translator);
}

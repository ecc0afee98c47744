#pragma once

#include "PrintDialogParts.h"

#include <QDialog>

class Printer;
class Settings;
struct PrintOutcome;
struct Session;

// Prints the hits of the last file search in the order of the search, with size and date
// whatever the boxes say, under the word that search was made for.
class ResultsPrintDialog : public QDialog
{
    Q_OBJECT

public:
    ResultsPrintDialog(Session &session, Settings &settings, const QString &searchWord, QWidget *parent);

private:
    void printHitsOnChosenPrinter();
    PrintOutcome printHits(Printer &printer) const;

    Session &m_session;
    Settings &m_settings;
    QString m_searchWord;
    printdialog::ListFrame m_list;
};

#pragma once

#include "PrintDialogParts.h"
#include "PrintLink.h"
#include "PrintRun.h"

#include "print/ListPrints.h"
#include "print/SheetPrint.h"

#include <QDialog>

#include <cstdint>

class Program;
class QRadioButton;
class QStackedWidget;

// The print wizard: what to print (the CD list, or the comments, file list, folder tree or
// sheet of the CD on display), then printer, quality and sizes, then the print-out or its
// preview. It reads what it prints from the main window as it stands.
class PrintDialog : public QDialog
{
    Q_OBJECT

public:
    PrintDialog(Program &program, PrintLink link);

    // A device name the printer lists select where they hold it, over the stored one.
    void setPrinterDefault(const QString &device);
    // True from the load until a print button has chosen the printer.
    bool printerNotChosen() const { return m_printerNotChosen; }

private:
    void showChosenPage();
    void printListOnChosenPrinter();
    void printSheetOnChosenPrinter();
    // The print-out that the chosen mode names; a refusal that comes before any printing, or nothing.
    std::optional<QString> listRefusal() const;
    PrintOutcome printList(Printer &printer) const;
    PrintOutcome printSheet(Printer &printer) const;
    PrintSettings settings(const QString &fontSize) const;
    std::optional<int> sheetQuality() const;
    void fillPrinterLists();

    Program &m_program;
    PrintLink m_link;
    QStackedWidget *m_pages;
    QRadioButton *m_options[5];
    printdialog::ListFrame m_list;
    printdialog::PrinterBox m_sheetPrinter;
    printdialog::QualityBox m_sheetQuality;
    QLineEdit *m_commentSize;
    QCheckBox *m_cover;
    int16_t m_printMode = 0;
    QString m_printerDefault;
    bool m_printerNotChosen = true;
};

#include "ResultsPrintDialog.h"

#include "PrintRun.h"

#include "app/Session.h"
#include "print/ListPrints.h"
#include "print/PrinterChoice.h"

#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

ResultsPrintDialog::ResultsPrintDialog(Session &session, Settings &settings, const QString &searchWord, QWidget *parent)
    : QDialog(parent, Qt::Window)
    , m_session(session)
    , m_settings(settings)
    , m_searchWord(searchWord)
    , m_list(printdialog::listFrame(this, false))
{
    setObjectName(QStringLiteral("ResultsPrintDialog"));
    setWindowTitle(QStringLiteral("Drucken"));
    setAttribute(Qt::WA_DeleteOnClose);
    m_list.heading->setText(QStringLiteral("> Druckender Suchergebnisse"));
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_list.frame);
    printdialog::fillPrinters(m_list.printer.printers, m_settings, m_session, QString());
    resize(sizeHint().expandedTo(QSize(375, 320)));

    connect(m_list.cancel, &QPushButton::clicked, this, &QDialog::close);
    connect(m_list.print, &QPushButton::clicked, this, &ResultsPrintDialog::printHitsOnChosenPrinter);
    connect(m_list.preview, &QPushButton::clicked, this, [this] {
        if (!printdialog::fontSizeAccepted(this, m_list.fontSize))
            return;
        printrun::preview(this, printerchoice::listQuality(m_list.quality.good->isChecked()),
            [this](Printer &printer) { return printHits(printer); });
    });
}

PrintOutcome ResultsPrintDialog::printHits(Printer &printer) const
{
    return printSearchHits(printer,
        { m_session.archiveName, m_list.fontSize->text(), QDateTime::currentDateTime() }, m_searchWord,
        m_session.lastResults);
}

void ResultsPrintDialog::printHitsOnChosenPrinter()
{
    if (!printdialog::fontSizeAccepted(this, m_list.fontSize))
        return;
    const QString device = printdialog::choosePrinter(m_list.printer, m_settings, m_session);
    if (printrun::printOn(this, device, { m_settings, QString() },
            printerchoice::listQuality(m_list.quality.good->isChecked()),
            [this](Printer &target) { return printHits(target); }))
        close();
}

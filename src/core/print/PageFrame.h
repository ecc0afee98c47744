#pragma once

#include "Printer.h"

#include <QString>

#include <optional>
#include <variant>

// The page model of the list print-outs and the sheet: Arial in centimetres, the text from
// 2 cm at the top, the overflow test one centimetre above the bottom, and the footer that
// each new page gets as soon as it begins.
class PageFrame
{
public:
    // The job set-up: Arial, centimetres, neither bold nor italic, the font size as typed,
    // page number 1. A size that is no number, or none a font can have, is a failure.
    static std::variant<PageFrame, RuntimeFailure> setUp(Printer &printer, const QString &fontSizeText);
    // The set-up and its one overflow test before anything is printed, which can hit only
    // with a font larger than the page: then a new page with a footer without caption.
    static std::variant<PageFrame, RuntimeFailure> startJob(Printer &printer, const QString &fontSizeText);

    // The next line would reach to 0.2 cm above the footer (the last centimetre at sizes
    // whose footer fits into 0.8 cm); measured on the size's own digits.
    bool overflows() const;
    void startNextPage(bool newPage, const QString &caption);
    // A footer line 0.8 cm above the bottom, or a line's height where that is more, centred.
    void printFooter(const QString &footer);
    // "- Seite " and the number with its leading blank, as the footers spell it.
    static QString pageText(int number);
    int pageNumber() const { return m_pageNumber; }

private:
    PageFrame(Printer &printer, QString probe);
    double footerTop() const;

    Printer *m_printer;
    QString m_probe;
    int m_pageNumber = 1;
};

// A font size as a dialog's box holds it: a number a font can take, or the run-time failure.
std::variant<double, RuntimeFailure> fontSizeFrom(const QString &text);

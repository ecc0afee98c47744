#include "SheetPrint.h"

#include "PageFrame.h"
#include "Printer.h"

#include "common/Numbers.h"
#include "services/ServiceRequest.h"

#include <QPainter>

namespace {

constexpr int coverBoxPixels = 260;
// The box's side on paper before the sheet's 0.7: its pixels at the screen's 96 per inch.
constexpr double coverBoxCm = coverBoxPixels / 96.0 * 2.54;

} // namespace

QImage coverBoxFace(const QImage &cover)
{
    if (cover.isNull())
        return {};
    QImage face(coverBoxPixels, coverBoxPixels, QImage::Format_RGB32);
    face.fill(Qt::white);
    const QImage shown = cover.width() > coverBoxPixels || cover.height() > coverBoxPixels
        ? cover.scaled(coverBoxPixels, coverBoxPixels, Qt::KeepAspectRatio, Qt::SmoothTransformation)
        : cover;
    QPainter painter(&face);
    painter.drawImage((coverBoxPixels - shown.width()) / 2, (coverBoxPixels - shown.height()) / 2, shown);
    return face;
}

PrintOutcome printCdSheet(
    Printer &printer, const PrintSettings &settings, const SheetContent &content, const SheetOptions &options)
{
    auto setUp = PageFrame::startJob(printer, settings.fontSizeText);
    if (const auto *failure = std::get_if<RuntimeFailure>(&setUp))
        return failedPrint(*failure, PrintTrap::Full);
    printer.setCurrentY(2);

    const double commentsHeight = printer.textHeight(QStringLiteral("T")) * static_cast<double>(content.comments.size());
    const int64_t rounded = bankersRound(commentsHeight);
    if (commentsHeight >= 6 && rounded > 32767)
        return failedPrint({ 6, QStringLiteral("Überlauf") }, PrintTrap::Full);
    const double boxHeight = commentsHeight >= 6 ? static_cast<double>(rounded) : 6.0;

    const double w = printer.scaleWidth();
    const struct
    {
        double x1, y1, x2, y2;
    } rules[] = {
        { 2, 2, w - 2, 2 },
        { 2, 2.2, w - 2, 2.2 },
        { 2, 3, w - 2, 3 },
        { 2, 3.8, w - 2, 3.8 },
        { 2, boxHeight + 3.8, w - 2, boxHeight + 3.8 },
        { 2, boxHeight + 4, w - 2, boxHeight + 4 },
        { 2, 2, 2, boxHeight + 4 },
        { 2.2, 2, 2.2, boxHeight + 4 },
        { w - 2, 2, w - 2, boxHeight + 4 },
        { w - 2.2, 2, w - 2.2, boxHeight + 4 },
        { 8.4, 3.8, 8.4, boxHeight + 3.8 },
    };
    for (const auto &rule : rules)
        printer.line(rule.x1, rule.y1, rule.x2, rule.y2);

    printer.setCurrentX(2.4);
    printer.setCurrentY(2.4);
    printer.setFontSize(12);
    printer.print(QStringLiteral("Archiv: ") + settings.archiveName + QStringLiteral("    CD: ") + content.title);
    printer.setCurrentX(2.4);
    printer.setCurrentY(3.2);
    printer.setFontSize(8);
    printer.print(QStringLiteral("Seriennummer: ") + content.imageId + QStringLiteral("  |  Dateienanzahl: ")
        + content.files + QStringLiteral("  |  Ordneranzahl: ") + content.folders
        + QStringLiteral("   -   Ausdruck: ") + dateText(settings.printedAt) + QLatin1Char(' ')
        + timeText(settings.printedAt));
    printer.setCurrentX(8.7);
    printer.setCurrentY(4.5);
    printer.setFontSize(10);
    printer.setFontBold(true);
    printer.print(QStringLiteral("Kommentare zur CD:"));
    printer.setFontBold(false);
    printer.setCurrentX(6.5);
    printer.print(QString());

    const auto commentSize = fontSizeFrom(options.commentSizeText);
    if (const auto *failure = std::get_if<RuntimeFailure>(&commentSize))
        return failedPrint(*failure, PrintTrap::Full);
    printer.setFontSize(std::get<double>(commentSize));
    // No overflow test: comments that do not fit run on past the box.
    for (const QString &comment : content.comments) {
        printer.setCurrentX(8.7);
        printer.print(comment);
    }

    printer.setCurrentX(2);
    printer.setCurrentY(boxHeight + 4.1);
    printer.setFontSize(6);
    printer.print(QStringLiteral("Erstellt mit dem Silberbuch 5.1 von Ravelin (") + service::vendorMailAddress()
        + QStringLiteral(" *** ") + service::vendorWebAddress() + QLatin1Char(')'));
    // Drawn last, over whatever lies under it.
    if (options.cover)
        printer.paintPicture(coverBoxFace(content.cover), 2.5, 4.5, 0.7 * coverBoxCm, 0.7 * coverBoxCm);
    printer.endDoc();
    return printOutcomeOf(printer, PrintTrap::Full);
}

#include "PdfPrinter.h"

#include <QPageLayout>
#include <QPageSize>

namespace {

// The area a laser printer cannot reach, a sixth of an inch on every side.
constexpr double unprintableMm = 25.4 / 6;
constexpr int defaultDots = 600;

} // namespace

PdfPrinter::PdfPrinter(const QString &path)
    : PainterPrinter(m_writer)
    , m_file(path)
    , m_writer(&m_file)
{
    if (!m_file.open(QIODevice::WriteOnly))
        fail({ 75, QStringLiteral("Fehler beim Zugriff auf Pfad/Datei") });
    m_writer.setResolution(defaultDots);
    m_writer.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait,
        QMarginsF(unprintableMm, unprintableMm, unprintableMm, unprintableMm), QPageLayout::Millimeter));
    m_writer.setCreator(QStringLiteral("Silberbuch 5.1"));
}

PdfPrinter::~PdfPrinter()
{
    abandon();
}

void PdfPrinter::applyQuality(int quality)
{
    if (const int dots = dotsForQuality(quality); dots > 0)
        m_writer.setResolution(dots);
}

bool PdfPrinter::deliver()
{
    if (m_file.commit())
        return true;
    fail({ 75, QStringLiteral("Fehler beim Zugriff auf Pfad/Datei") });
    return false;
}

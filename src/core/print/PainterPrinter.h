#pragma once

#include "Printer.h"

#include <QFont>
#include <QFontMetricsF>
#include <QPainter>

#include <optional>

class QPagedPaintDevice;

// A printer that paints on a paged device (a PDF file, a printer's job) with Qt's painter.
// Arial is drawn as Liberation Sans, which has its metrics. Painting begins with the first
// output, so that a print quality set before it still chooses the resolution.
class PainterPrinter : public Printer
{
public:
    ~PainterPrinter() override;

protected:
    explicit PainterPrinter(QPagedPaintDevice &device);

    Paper paper() const override;
    double textWidthCm(const QString &text, const Font &font) const override;
    double lineHeightCm(const Font &font) const override;
    void drawText(double x, double y, const QString &text, const Font &font) override;
    void drawLine(double x1, double y1, double x2, double y2, int dots) override;
    void drawPicture(const QImage &picture, double left, double top, double width, double height) override;
    void startPage() override;
    void finishDocument() override;

    // Dots per inch of the device's coordinates.
    virtual int resolution() const = 0;
    // After the painter has ended: hands the document on; false with the failure recorded.
    virtual bool deliver() = 0;
    // Dots per inch for a print quality: -1 draft to -4 high, or a number of dots itself.
    static int dotsForQuality(int quality);
    // Ends the painting of an unfinished job; a subclass calls it before its device goes.
    void abandon();

private:
    bool painting();
    const QFontMetricsF &metrics(const Font &font) const;
    double dotsPerCm() const { return resolution() / 2.54; }

    QPagedPaintDevice &m_device;
    QPainter m_painter;
    bool m_begun = false;
    // The metrics of the font used last: a list asks for the same font line after line.
    mutable std::optional<Font> m_metricsFont;
    mutable int m_metricsDots = 0;
    mutable QFont m_qfont;
    mutable std::optional<QFontMetricsF> m_metrics;
};

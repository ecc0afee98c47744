#pragma once

#include "search/RuntimeFailure.h"

#include <QImage>
#include <QString>

#include <functional>
#include <optional>

// The page the print-outs draw on, with the printer object's model: positions in centimetres
// or twips from the printable area's top left corner, a current position that printing a line
// moves down, and pages that begin when told or when a line would run off the paper. A fresh
// printer stands on page 1 in twips, with Arial at 10 points.
//
// Subclasses supply the paper and the drawing, in centimetres; this class keeps the state.
class Printer
{
public:
    enum class Scale { Twips = 1, Centimetres = 7 };

    struct Font
    {
        QString name = QStringLiteral("Arial");
        double size = 10;
        bool bold = false;
        bool italic = false;
    };

    // The sheet and its printable area, in centimetres.
    struct Paper
    {
        double width = 21.0; // the sheet, centimetres
        double printableWidth = 20.0;
        double printableHeight = 28.7;
    };

    // Told at the start of every page after the first with its number; false stops the job.
    using PageWatcher = std::function<bool(int page)>;

    virtual ~Printer() = default;

    void setScaleMode(Scale scale) { m_scale = scale; }
    Scale scaleMode() const { return m_scale; }
    double currentX() const { return fromCm(m_x); }
    double currentY() const { return fromCm(m_y); }
    void setCurrentX(double x) { m_x = toCm(x); }
    void setCurrentY(double y) { m_y = toCm(y); }
    // The printable area.
    double scaleWidth() const;
    double scaleHeight() const;
    // The paper's width in twips, whatever the scale.
    double width() const;
    double textWidth(const QString &text) const;
    double textHeight(const QString &text) const;

    // Prints the text at the current position; the position then stands at the left edge of
    // the next line. A line that would run past the printable area goes to a new page first.
    void print(const QString &line);
    // A line in the draw width; the current position moves to its end.
    void line(double x1, double y1, double x2, double y2);
    // From the current position.
    void lineTo(double x, double y) { line(currentX(), currentY(), x, y); }
    void paintPicture(const QImage &picture, double left, double top, double width, double height);
    void newPage();
    // Finishes the document; a failure of the device shows in failure() afterwards.
    void endDoc();
    int page() const { return m_page; }

    void setDrawWidth(int dots) { m_drawWidth = dots; }
    int drawWidth() const { return m_drawWidth; }
    const Font &font() const { return m_font; }
    void setFontName(const QString &name) { m_font.name = name; }
    void setFontSize(double points) { m_font.size = points; }
    void setFontBold(bool bold) { m_font.bold = bold; }
    void setFontItalic(bool italic) { m_font.italic = italic; }
    double fontSize() const { return m_font.size; }
    // -1 draft to -4 high, or dots per inch; a device without such a setting ignores it.
    void setPrintQuality(int quality);

    void setPageWatcher(PageWatcher watcher) { m_watcher = std::move(watcher); }
    // The watcher said stop: nothing more is drawn and the document is not finished.
    bool cancelled() const { return m_cancelled; }
    // The device could not take the job (no such printer, the file not writable).
    const std::optional<RuntimeFailure> &failure() const { return m_failure; }
    bool stopped() const { return m_cancelled || m_failure.has_value(); }

protected:
    virtual Paper paper() const = 0;
    virtual double textWidthCm(const QString &text, const Font &font) const = 0;
    virtual double lineHeightCm(const Font &font) const = 0;
    // y is the top of the line.
    virtual void drawText(double x, double y, const QString &text, const Font &font) = 0;
    virtual void drawLine(double x1, double y1, double x2, double y2, int dots) = 0;
    virtual void drawPicture(const QImage &picture, double left, double top, double width, double height) = 0;
    virtual void startPage() = 0;
    virtual void finishDocument() = 0;
    virtual void applyQuality(int) {}

    // For a device that cannot go on; later output is dropped.
    void fail(const RuntimeFailure &failure);

private:
    double toCm(double value) const;
    double fromCm(double cm) const;

    Scale m_scale = Scale::Twips;
    double m_x = 0; // centimetres
    double m_y = 0;
    int m_page = 1;
    int m_drawWidth = 1;
    Font m_font;
    PageWatcher m_watcher;
    bool m_cancelled = false;
    std::optional<RuntimeFailure> m_failure;
};

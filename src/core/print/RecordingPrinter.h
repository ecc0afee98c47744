#pragma once

#include "Printer.h"

#include <vector>

// A printer that keeps what it is told, on paper of fixed size with fixed font metrics, so
// that page layouts can be checked to the last position: a character is size / 32 cm wide
// and a line size / 16 cm high (10 points: 0.3125 cm and 0.625 cm, exact in binary).
class RecordingPrinter : public Printer
{
public:
    struct Item
    {
        enum class Kind { Text, Line, Picture, PageStart, End };
        Kind kind = Kind::Text;
        int page = 1;
        double x = 0; // centimetres; for a picture its left top
        double y = 0;
        double x2 = 0; // the line's end, the picture's width and height
        double y2 = 0;
        QString text;
        Font font;
        int dots = 0;
    };

    explicit RecordingPrinter(Paper paper = {});

    const std::vector<Item> &items() const { return m_items; }
    std::vector<Item> texts() const;
    std::vector<Item> lines() const;
    bool finished() const { return !m_items.empty() && m_items.back().kind == Item::Kind::End; }
    int quality() const { return m_quality; }

protected:
    Paper paper() const override { return m_paper; }
    double textWidthCm(const QString &text, const Font &font) const override;
    double lineHeightCm(const Font &font) const override;
    void drawText(double x, double y, const QString &text, const Font &font) override;
    void drawLine(double x1, double y1, double x2, double y2, int dots) override;
    void drawPicture(const QImage &picture, double left, double top, double width, double height) override;
    void startPage() override;
    void finishDocument() override;
    void applyQuality(int quality) override { m_quality = quality; }

private:
    std::vector<Item> of(Item::Kind kind) const;

    Paper m_paper;
    std::vector<Item> m_items;
    int m_quality = 0;
};

#include "RecordingPrinter.h"

RecordingPrinter::RecordingPrinter(Paper paper)
    : m_paper(paper)
{
}

std::vector<RecordingPrinter::Item> RecordingPrinter::of(Item::Kind kind) const
{
    std::vector<Item> found;
    for (const Item &item : m_items) {
        if (item.kind == kind)
            found.push_back(item);
    }
    return found;
}

std::vector<RecordingPrinter::Item> RecordingPrinter::texts() const
{
    return of(Item::Kind::Text);
}

std::vector<RecordingPrinter::Item> RecordingPrinter::lines() const
{
    return of(Item::Kind::Line);
}

double RecordingPrinter::textWidthCm(const QString &text, const Font &font) const
{
    return static_cast<double>(text.size()) * font.size / 32;
}

double RecordingPrinter::lineHeightCm(const Font &font) const
{
    return font.size / 16;
}

void RecordingPrinter::drawText(double x, double y, const QString &text, const Font &font)
{
    m_items.push_back({ Item::Kind::Text, page(), x, y, 0, 0, text, font, 0 });
}

void RecordingPrinter::drawLine(double x1, double y1, double x2, double y2, int dots)
{
    m_items.push_back({ Item::Kind::Line, page(), x1, y1, x2, y2, {}, font(), dots });
}

void RecordingPrinter::drawPicture(const QImage &, double left, double top, double width, double height)
{
    m_items.push_back({ Item::Kind::Picture, page(), left, top, width, height, {}, font(), 0 });
}

void RecordingPrinter::startPage()
{
    m_items.push_back({ Item::Kind::PageStart, page(), 0, 0, 0, 0, {}, font(), 0 });
}

void RecordingPrinter::finishDocument()
{
    m_items.push_back({ Item::Kind::End, page(), 0, 0, 0, 0, {}, font(), 0 });
}

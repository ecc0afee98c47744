#pragma once

#include "print/RecordingPrinter.h"
#include "print/TreePrinter.h"

#include "QStringPrinting.h"

#include <QDateTime>
#include <QString>
#include <QStringList>

#include <algorithm>
#include <cmath>
#include <ostream>
#include <vector>

// A text as it stands on paper: page, position in centimetres, and the text.
struct Placed
{
    int page;
    double x;
    double y;
    QString text;
    // Positions are sums of line heights: equal to the last few bits.
    bool operator==(const Placed &other) const
    {
        return page == other.page && std::abs(x - other.x) < 1e-9 && std::abs(y - other.y) < 1e-9
            && text == other.text;
    }
};

inline void PrintTo(const Placed &placed, std::ostream *out)
{
    *out << "p" << placed.page << " (" << placed.x << ", " << placed.y << ") \"" << placed.text.toStdString() << '"';
}

inline std::vector<Placed> placedTexts(const RecordingPrinter &printer)
{
    std::vector<Placed> placed;
    for (const RecordingPrinter::Item &item : printer.texts())
        placed.push_back({ item.page, item.x, item.y, item.text });
    return placed;
}

// The texts on one page.
inline std::vector<Placed> textsOnPage(const RecordingPrinter &printer, int page)
{
    std::vector<Placed> onPage;
    std::ranges::copy_if(placedTexts(printer), std::back_inserter(onPage), [page](const Placed &p) { return p.page == page; });
    return onPage;
}

inline int pageCount(const RecordingPrinter &printer)
{
    return printer.items().empty() ? 0 : printer.items().back().page;
}

// Paper of 20 x 28 cm printable: at 10 points a line is 0.625 cm and the overflow test hits
// at 26.375 cm.
inline RecordingPrinter::Paper testPaper()
{
    return { 21.0, 20.0, 28.0 };
}

inline QDateTime printMoment()
{
    return QDateTime(QDate(2003, 1, 19), QTime(14, 5, 9));
}

// prefix1, prefix2, … prefix<count>.
inline QStringList numbered(const QString &prefix, int count)
{
    QStringList lines;
    for (int i = 1; i <= count; ++i)
        lines << prefix + QString::number(i);
    return lines;
}

// A tree of named nodes given as (text, parent) in the order they were added.
class ListedTree : public PrintableTree
{
public:
    ListedTree(std::vector<std::pair<QString, int>> nodes, int selected = -1)
        : m_nodes(std::move(nodes))
        , m_selected(selected)
    {
    }
    int firstNode() const override { return m_nodes.empty() ? -1 : 0; }
    int selectedNode() const override { return m_selected; }
    int child(int node) const override { return after(-1, node); }
    int nextSibling(int node) const override { return after(node, m_nodes[static_cast<size_t>(node)].second); }
    QString text(int node) const override { return m_nodes[static_cast<size_t>(node)].first; }

private:
    // The first node after `from` whose parent is `parent`.
    int after(int from, int parent) const
    {
        const auto it = std::find_if(m_nodes.begin() + (from + 1), m_nodes.end(),
            [parent](const std::pair<QString, int> &node) { return node.second == parent; });
        return it == m_nodes.end() ? -1 : static_cast<int>(it - m_nodes.begin());
    }

    std::vector<std::pair<QString, int>> m_nodes;
    int m_selected;
};

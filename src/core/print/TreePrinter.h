#pragma once

#include "PrintOutcome.h"
#include "ListPrints.h"
#include "PrintableTree.h"

#include <QDateTime>
#include <QString>

#include <cstdint>
#include <optional>

class Printer;

// A general tree printer: a title block on the first page, then the nodes depth first with
// connector lines from each parent to its children, in twips, the page breaks left to the
// printer. It knows nothing of CDs; it prints what the nodes say.
class TreePrinter
{
public:
    int32_t printStyle() const { return m_printStyle; }
    // 1: from the tree's first node; 2: the selected node's branch only.
    void setPrintStyle(int32_t style) { m_printStyle = style; }
    int32_t connectorStyle() const { return m_connectorStyle; }
    // 1: connector lines; 2: the same indents without lines.
    void setConnectorStyle(int32_t style) { m_connectorStyle = style; }
    bool secondTitleFontBold() const { return m_secondTitleFontBold; }
    void setSecondTitleFontBold(bool bold) { m_secondTitleFontBold = bold; }
    bool titleFontBold() const { return m_titleFontBold; }
    void setTitleFontBold(bool bold) { m_titleFontBold = bold; }
    int16_t secondTitleFontSize() const { return m_secondTitleFontSize; }
    void setSecondTitleFontSize(int16_t size) { m_secondTitleFontSize = size; }
    int16_t titleFontSize() const { return m_titleFontSize; }
    void setTitleFontSize(int16_t size) { m_titleFontSize = size; }
    // Kept, though no footer is ever printed.
    bool printsFooter() const { return m_printFooter; }
    void setPrintFooter(bool print) { m_printFooter = print; }
    const QString &secondTitle() const { return m_secondTitle; }
    void setSecondTitle(const QString &title) { m_secondTitle = title; }
    const QString &title() const { return m_title; }
    void setTitle(const QString &title) { m_title = title; }
    bool fontBold() const { return m_fontBold; }
    void setFontBold(bool bold) { m_fontBold = bold; }
    int16_t fontSize() const { return m_fontSize; }
    void setFontSize(int16_t size) { m_fontSize = size; }
    void setTreeView(const PrintableTree &tree) { m_tree = &tree; }
    // The date and time of the title block.
    void setPrintedAt(const QDateTime &when) { m_printedAt = when; }

    // Prints the tree and ends the document. A failure of a level is reported in
    // levelReports and ends that level only; others are untrapped.
    PrintOutcome printTree(Printer &printer);

private:
    struct Run;

    int32_t m_printStyle = 1;
    int32_t m_connectorStyle = 1;
    bool m_secondTitleFontBold = false;
    bool m_titleFontBold = false;
    int16_t m_secondTitleFontSize = 10;
    int16_t m_titleFontSize = 10;
    bool m_printFooter = false;
    QString m_secondTitle;
    QString m_title;
    bool m_fontBold = false;
    int16_t m_fontSize = 10;
    const PrintableTree *m_tree = nullptr;
    QDateTime m_printedAt;
};

// The folder tree of the CD on display, from the tree view filled with its image.
PrintOutcome printFolderTree(
    Printer &printer, const PrintSettings &settings, const QString &title, const PrintableTree &tree);

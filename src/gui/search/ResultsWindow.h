#pragma once

#include "search/HitEntry.h"

#include <QWidget>

#include <memory>
#include <vector>

namespace Ui {
class ResultsWindow;
}
class QModelIndex;
class QSortFilterProxyModel;
class ResultsModel;
class SearchWindows;

// The list of what a file search found: "CD-Name", "Dateien", "Größe", "Datum". A click on a
// column header sorts by that column's text, each click turning the order round. The list
// can be saved as a text file, and a double click opens the file if its medium is mounted.
class ResultsWindow : public QWidget
{
    Q_OBJECT

public:
    ResultsWindow(SearchWindows &windows, QWidget *parent = nullptr);
    ~ResultsWindow() override;

    // Fills the list with the hit entries (number + "-" + title + "<" + image line) of a
    // search for `word`, replacing what it showed. False when an entry cannot be cut into
    // columns: the run-time failure is reported and the list keeps the entries before it.
    bool showHits(const std::vector<HitEntry> &results, const QString &word);

    const QString &searchWord() const { return m_searchWord; }

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void saveResults();
    void sortByColumn(int column);
    void itemClicked(const QModelIndex &index);
    void itemDoubleClicked();
    void setColumnWidths();

    SearchWindows &m_windows;
    std::unique_ptr<Ui::ResultsWindow> m_ui;
    ResultsModel *m_model;
    QSortFilterProxyModel *m_sorted;
    bool m_descending = false;
    QString m_searchWord;
    QString m_selectedFile;
};

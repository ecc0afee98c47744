#pragma once

#include <QStackedWidget>

class QAbstractItemModel;
class QItemSelectionModel;
class QListView;
class QTreeView;

// The file list of the image tab in one of four views: large icons, small icons, list, and
// details with the three columns. All views show one model with one selection.
class FileListView : public QStackedWidget
{
    Q_OBJECT

public:
    enum View { LargeIcons = 0, SmallIcons = 1, List = 2, Details = 3 };

    explicit FileListView(QWidget *parent = nullptr);

    void setModel(QAbstractItemModel *model);
    View view() const { return m_view; }
    void setView(View view);

    // The index of the current item in the model, invalid when none is selected.
    QModelIndex currentIndex() const;
    // Size and date as wide as their widest text, the name in the rest, elided in the middle.
    void fitColumns();
    int columnWidth(int column) const;

    QTreeView *detailsView() const { return m_detailsView; }

signals:
    void itemDoubleClicked(const QModelIndex &index);
    void contextMenuRequested(const QPoint &globalPosition);
    void headerClicked(int section);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QTreeView *m_detailsView;
    QListView *m_iconsView;
    QItemSelectionModel *m_selection = nullptr;
    View m_view = Details;
};

#include "FileListView.h"

#include <QHeaderView>
#include <QListView>
#include <QTreeView>

FileListView::FileListView(QWidget *parent)
    : QStackedWidget(parent)
    , m_details(new QTreeView(this))
    , m_icons(new QListView(this))
{
    m_details->setObjectName(QStringLiteral("LVDetails"));
    m_details->setRootIsDecorated(false);
    m_details->setUniformRowHeights(true);
    m_details->setAllColumnsShowFocus(true);
    m_details->setSortingEnabled(false);
    m_details->header()->setSectionsClickable(true);
    m_details->header()->setStretchLastSection(false);
    m_icons->setObjectName(QStringLiteral("LVIcons"));
    m_icons->setUniformItemSizes(true);
    m_icons->setResizeMode(QListView::Adjust);
    m_icons->setWrapping(true);

    for (QAbstractItemView *view :
        { static_cast<QAbstractItemView *>(m_details), static_cast<QAbstractItemView *>(m_icons) }) {
        view->setEditTriggers(QAbstractItemView::NoEditTriggers);
        view->setSelectionMode(QAbstractItemView::SingleSelection);
        view->setContextMenuPolicy(Qt::CustomContextMenu);
        connect(view, &QAbstractItemView::doubleClicked, this, &FileListView::itemDoubleClicked);
        connect(view, &QWidget::customContextMenuRequested, this, [this, view](const QPoint &position) {
            emit contextMenuRequested(view->viewport()->mapToGlobal(position));
        });
        addWidget(view);
    }
    connect(m_details->header(), &QHeaderView::sectionClicked, this, &FileListView::headerClicked);
    setView(Details);
}

void FileListView::setModel(QAbstractItemModel *model)
{
    m_details->setModel(model);
    m_icons->setModel(model);
    // One selection for all views, so a change of view keeps the current item.
    m_selection = m_details->selectionModel();
    m_icons->setSelectionModel(m_selection);
}

void FileListView::setView(View view)
{
    m_view = view;
    if (view == Details) {
        setCurrentWidget(m_details);
        return;
    }
    m_icons->setViewMode(view == LargeIcons ? QListView::IconMode : QListView::ListMode);
    m_icons->setFlow(view == List ? QListView::TopToBottom : QListView::LeftToRight);
    m_icons->setIconSize(view == LargeIcons ? QSize(32, 32) : QSize(16, 16));
    m_icons->setGridSize(view == LargeIcons ? QSize(96, 64) : QSize());
    m_icons->setWordWrap(view == LargeIcons);
    m_icons->setWrapping(true);
    setCurrentWidget(m_icons);
}

QModelIndex FileListView::currentIndex() const
{
    if (!m_selection || !m_selection->hasSelection())
        return {};
    return m_selection->currentIndex();
}

void FileListView::setColumnWidths(int name, int size, int date)
{
    m_details->setColumnWidth(0, name);
    m_details->setColumnWidth(1, size);
    m_details->setColumnWidth(2, date);
}

int FileListView::columnWidth(int column) const
{
    return m_details->columnWidth(column);
}

#include "FileListView.h"

#include "screen/ListColumns.h"

#include <QEvent>
#include <QHeaderView>
#include <QListView>
#include <QTreeView>

#include <array>

FileListView::FileListView(QWidget *parent)
    : QStackedWidget(parent)
    , m_detailsView(new QTreeView(this))
    , m_iconsView(new QListView(this))
{
    m_detailsView->setObjectName(QStringLiteral("detailsView"));
    m_detailsView->setRootIsDecorated(false);
    m_detailsView->setUniformRowHeights(true);
    m_detailsView->setAllColumnsShowFocus(true);
    m_detailsView->setSortingEnabled(false);
    m_detailsView->header()->setSectionsClickable(true);
    m_detailsView->header()->setStretchLastSection(false);
    m_detailsView->setTextElideMode(Qt::ElideMiddle);
    m_iconsView->setObjectName(QStringLiteral("iconsView"));
    m_iconsView->setUniformItemSizes(true);
    m_iconsView->setResizeMode(QListView::Adjust);
    m_iconsView->setWrapping(true);

    for (QAbstractItemView *view :
        { static_cast<QAbstractItemView *>(m_detailsView), static_cast<QAbstractItemView *>(m_iconsView) }) {
        view->setEditTriggers(QAbstractItemView::NoEditTriggers);
        view->setSelectionMode(QAbstractItemView::SingleSelection);
        view->setContextMenuPolicy(Qt::CustomContextMenu);
        connect(view, &QAbstractItemView::doubleClicked, this, &FileListView::itemDoubleClicked);
        connect(view, &QWidget::customContextMenuRequested, this, [this, view](const QPoint &position) {
            emit contextMenuRequested(view->viewport()->mapToGlobal(position));
        });
        addWidget(view);
    }
    // The viewport changes with the window and with the scroll bar that comes and goes.
    m_detailsView->viewport()->installEventFilter(this);
    connect(m_detailsView->header(), &QHeaderView::sectionClicked, this, &FileListView::headerClicked);
    setView(Details);
}

void FileListView::setModel(QAbstractItemModel *model)
{
    m_detailsView->setModel(model);
    m_iconsView->setModel(model);
    // One selection for all views, so a change of view keeps the current item.
    m_selection = m_detailsView->selectionModel();
    m_iconsView->setSelectionModel(m_selection);
}

void FileListView::setView(View view)
{
    m_view = view;
    if (view == Details) {
        setCurrentWidget(m_detailsView);
        return;
    }
    m_iconsView->setViewMode(view == LargeIcons ? QListView::IconMode : QListView::ListMode);
    m_iconsView->setFlow(view == List ? QListView::TopToBottom : QListView::LeftToRight);
    m_iconsView->setIconSize(view == LargeIcons ? QSize(32, 32) : QSize(16, 16));
    m_iconsView->setGridSize(view == LargeIcons ? QSize(96, 64) : QSize());
    m_iconsView->setWordWrap(view == LargeIcons);
    m_iconsView->setWrapping(true);
    setCurrentWidget(m_iconsView);
}

QModelIndex FileListView::currentIndex() const
{
    if (!m_selection || !m_selection->hasSelection())
        return {};
    return m_selection->currentIndex();
}

void FileListView::fitColumns()
{
    constexpr std::array<ColumnNeed, 3> needs { ColumnNeed { .takesRest = true }, ColumnNeed { .whole = true },
        ColumnNeed { .whole = true } };
    // The name keeps room for a few letters either side of the ellipsis.
    const int fewLetters = m_detailsView->fontMetrics().horizontalAdvance(QStringLiteral("Wort…Wort"));
    fitListColumns(m_detailsView, m_detailsView->viewport()->width(), needs, fewLetters);
}

int FileListView::columnWidth(int column) const
{
    return m_detailsView->columnWidth(column);
}

bool FileListView::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_detailsView->viewport() && event->type() == QEvent::Resize)
        fitColumns();
    return QStackedWidget::eventFilter(watched, event);
}

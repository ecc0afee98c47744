#include "CommentHitNavigator.h"
#include "ui_CommentHitNavigator.h"

#include "SearchWindows.h"

#include "common/Prompts.h"
#include "search/SearchMessages.h"

#include <QKeyEvent>

#include <algorithm>

CommentHitNavigator::CommentHitNavigator(SearchWindows &windows, std::vector<QString> foundCdNumbers, QWidget *parent)
    : QWidget(parent, Qt::Window | Qt::WindowStaysOnTopHint)
    , m_windows(windows)
    , m_ui(std::make_unique<Ui::CommentHitNavigator>())
    , m_navigator(std::move(foundCdNumbers))
{
    m_ui->setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    // The sentence keeps its length in any font, and the count stands in the gap it leaves.
    m_ui->countSentence->resize(
        std::max(m_ui->countSentence->width(), m_ui->countSentence->sizeHint().width()),
        m_ui->countSentence->height());
    resize(std::max(width(), m_ui->countSentence->geometry().right() + m_ui->countSentence->x()), height());
    const int gapStart
        = m_ui->countSentence->fontMetrics().horizontalAdvance(QStringLiteral("Es wurden insgesammt "));
    const int gapWidth = m_ui->countSentence->fontMetrics().horizontalAdvance(QStringLiteral("           "));
    m_ui->countLabel->setGeometry(m_ui->countSentence->x() + gapStart, m_ui->countSentence->y(), gapWidth,
        m_ui->countSentence->height());

    connect(m_ui->previousButton, &QPushButton::clicked, this, &CommentHitNavigator::showPrevious);
    connect(m_ui->nextButton, &QPushButton::clicked, this, &CommentHitNavigator::showNext);
    connect(m_ui->newSearchButton, &QPushButton::clicked, this, &CommentHitNavigator::startNewSearch);
    connect(m_ui->closeButton, &QPushButton::clicked, this, &QWidget::close);

    m_ui->countLabel->setText(m_navigator.countText());
    showState();
    selectFoundCd();

    // The timer tells a single hit apart once the window has shown the CD. Its answer never
    // changes, so one tick is enough.
    m_oneCdCheck.setSingleShot(true);
    connect(&m_oneCdCheck, &QTimer::timeout, this, &CommentHitNavigator::giveWayIfOneCdFound);
    m_oneCdCheck.start(1);
}

CommentHitNavigator::~CommentHitNavigator() = default;

void CommentHitNavigator::keyPressEvent(QKeyEvent *event)
{
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && m_ui->nextButton->isEnabled()) {
        m_ui->nextButton->click();
        return;
    }
    QWidget::keyPressEvent(event);
}

void CommentHitNavigator::showPrevious()
{
    m_navigator.previous();
    stepped();
}

void CommentHitNavigator::showNext()
{
    m_navigator.next();
    stepped();
}

void CommentHitNavigator::startNewSearch()
{
    m_windows.showSearch();
    close();
}

void CommentHitNavigator::giveWayIfOneCdFound()
{
    if (!m_navigator.givesWayToMessage())
        return;
    QWidget *mainWindow = m_windows.mainWindow();
    close();
    Prompts::message(mainWindow, searchmessages::oneCdFound());
}

void CommentHitNavigator::stepped()
{
    selectFoundCd();
    showState();
}

void CommentHitNavigator::selectFoundCd()
{
    QListWidget *list = m_windows.link().cdList;
    if (!list)
        return;
    QStringList entries;
    entries.reserve(list->count());
    for (int i = 0; i < list->count(); ++i)
        entries.append(list->item(i)->text());
    const int entry = ResultNavigator::listEntryOf(entries, m_navigator.currentNumber());
    if (entry >= 0)
        list->setCurrentRow(entry);
}

void CommentHitNavigator::showState()
{
    m_ui->positionLabel->setText(m_navigator.positionText());
    m_ui->previousButton->setEnabled(m_navigator.previousEnabled());
    m_ui->nextButton->setEnabled(m_navigator.nextEnabled());
}

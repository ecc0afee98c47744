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
    m_ui->Label3->resize(std::max(m_ui->Label3->width(), m_ui->Label3->sizeHint().width()), m_ui->Label3->height());
    resize(std::max(width(), m_ui->Label3->geometry().right() + m_ui->Label3->x()), height());
    const int gapStart = m_ui->Label3->fontMetrics().horizontalAdvance(QStringLiteral("Es wurden insgesammt "));
    const int gapWidth = m_ui->Label3->fontMetrics().horizontalAdvance(QStringLiteral("           "));
    m_ui->Label2->setGeometry(m_ui->Label3->x() + gapStart, m_ui->Label3->y(), gapWidth, m_ui->Label3->height());

    connect(m_ui->Command1, &QPushButton::clicked, this, &CommentHitNavigator::Command1_Click);
    connect(m_ui->Command2, &QPushButton::clicked, this, &CommentHitNavigator::Command2_Click);
    connect(m_ui->Command3, &QPushButton::clicked, this, &CommentHitNavigator::Command3_Click);
    connect(m_ui->Command4, &QPushButton::clicked, this, &QWidget::close);

    m_ui->Label2->setText(m_navigator.countText());
    showState();
    findStep();

    // The timer tells a single hit apart once the window has shown the CD. Its answer never
    // changes, so one tick is enough.
    m_timer1.setSingleShot(true);
    connect(&m_timer1, &QTimer::timeout, this, &CommentHitNavigator::Timer1_Timer);
    m_timer1.start(1);
}

CommentHitNavigator::~CommentHitNavigator() = default;

void CommentHitNavigator::keyPressEvent(QKeyEvent *event)
{
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && m_ui->Command2->isEnabled()) {
        m_ui->Command2->click();
        return;
    }
    QWidget::keyPressEvent(event);
}

void CommentHitNavigator::Command1_Click()
{
    m_navigator.previous();
    stepped();
}

void CommentHitNavigator::Command2_Click()
{
    m_navigator.next();
    stepped();
}

void CommentHitNavigator::Command3_Click()
{
    m_windows.showSearch();
    close();
}

void CommentHitNavigator::Timer1_Timer()
{
    if (!m_navigator.givesWayToMessage())
        return;
    QWidget *mainWindow = m_windows.mainWindow();
    close();
    Prompts::message(mainWindow, searchmessages::oneCdFound());
}

void CommentHitNavigator::stepped()
{
    findStep();
    showState();
}

void CommentHitNavigator::findStep()
{
    QListWidget *list = m_windows.link().List2;
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
    m_ui->Label6->setText(m_navigator.positionText());
    m_ui->Command1->setEnabled(m_navigator.previousEnabled());
    m_ui->Command2->setEnabled(m_navigator.nextEnabled());
}

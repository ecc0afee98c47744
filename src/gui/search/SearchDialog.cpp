#include "SearchDialog.h"
#include "ui_SearchDialog.h"

#include "SearchRun.h"
#include "SearchWindows.h"
#include "ResultsWindow.h"

#include "app/Session.h"
#include "archives/ArchiveStore.h"
#include "common/Prompts.h"
#include "app/MainWindowLayout.h"
#include "search/CommentSearch.h"
#include "search/FileSearch.h"
#include "search/SearchMessages.h"

#include <algorithm>
#include <memory>

namespace {

Prompts::Icon iconOf(FileSearchOutcome outcome)
{
    switch (outcome) {
    case FileSearchOutcome::NoHit:
        return Prompts::Icon::Information;
    case FileSearchOutcome::NoImage:
    case FileSearchOutcome::NoCdWithImage:
    case FileSearchOutcome::BadPattern:
    case FileSearchOutcome::UnreadableImage:
    case FileSearchOutcome::ArchiveFailed:
        return Prompts::Icon::Critical;
    case FileSearchOutcome::Hits:
    case FileSearchOutcome::EmptyWord:
    case FileSearchOutcome::Cancelled:
        break;
    }
    return Prompts::Icon::None;
}

Prompts::Icon iconOf(CommentSearchOutcome outcome)
{
    return outcome == CommentSearchOutcome::EmptyWord ? Prompts::Icon::None : Prompts::Icon::Critical;
}

int numberOf(const QPointer<QLabel> &label)
{
    return label ? label->text().toInt() : 0;
}

} // namespace

SearchDialog::SearchDialog(SearchWindows &windows, QWidget *parent)
    : QWidget(parent, Qt::Window)
    , m_windows(windows)
    , m_ui(std::make_unique<Ui::SearchDialog>())
{
    m_ui->setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    if (windows.session().currentCd == -1) {
        m_ui->allCdsOption->setChecked(true);
        m_ui->currentCdOption->setEnabled(false);
    }
    const int width = twipsToPixels(4260);
    resize(width, std::max(height(), heightForWidth(width)));

    connect(m_ui->searchButton, &QPushButton::clicked, this, &SearchDialog::startSearch);
    connect(m_ui->cancelButton, &QPushButton::clicked, this, &QWidget::close);
    connect(m_ui->wordEdit, &QLineEdit::returnPressed, m_ui->searchButton, &QPushButton::click);
}

SearchDialog::~SearchDialog() = default;

void SearchDialog::startSearch()
{
    const QString word = m_ui->wordEdit->text();
    if (word.isEmpty()) {
        Prompts::message(this, searchmessages::emptyWord());
        return;
    }
    // Enabled again when the search has ended, so that Enter cannot start a second one.
    m_ui->searchButton->setEnabled(false);
    if (m_ui->commentsOption->isChecked())
        startCommentSearch(word);
    else
        startFileSearch(word);
}

void SearchDialog::startFileSearch(const QString &word)
{
    const bool oneCd = m_ui->currentCdOption->isChecked();
    const bool explicitMatch = m_ui->explicitCheck->isChecked();
    // The CD on display, as the main window's labels record it: its row isn't read again.
    const SearchLink &link = m_windows.link();
    const SearchCd shown { numberOf(link.numberLabel), link.titleLabel ? link.titleLabel->text() : QString(),
        numberOf(link.imageIdLabel) };
    const QString dataFolder = m_windows.dataFolder();
    const QString archivePath = m_windows.session().archivePath;

    auto result = std::make_shared<FileSearchResult>();
    auto *run = new SearchRun(this, true);
    run->start(
        [=](SearchProgress *progress) {
            const FileSearch search(dataFolder);
            *result = oneCd ? search.searchOneCd(shown, word, explicitMatch, progress)
                            : search.searchArchive(ArchiveStore(archivePath), word, progress);
        },
        [this, result, word] { fileSearchEnded(*result, word); });
}

void SearchDialog::fileSearchEnded(const FileSearchResult &result, const QString &word)
{
    m_ui->searchButton->setEnabled(true);
    if (result.outcome == FileSearchOutcome::Hits) {
        std::vector<HitEntry> hits = result.hits.entries();
        // The saved and printed list is the one the window could show completely.
        if (m_windows.showResults()->showHits(hits, word))
            m_windows.session().lastResults = std::move(hits);
    } else if (!result.message.isEmpty()) {
        Prompts::message(this, result.message, iconOf(result.outcome));
    }
    emit searchFinished();
    if (result.outcome == FileSearchOutcome::NoImage)
        close();
}

void SearchDialog::startCommentSearch(const QString &word)
{
    const Session &session = m_windows.session();
    const std::optional<int> currentCd
        = m_ui->currentCdOption->isChecked() ? std::optional<int>(session.currentCd) : std::nullopt;
    const bool explicitMatch = m_ui->explicitCheck->isChecked();
    const QString archivePath = session.archivePath;

    auto result = std::make_shared<CommentSearchResult>();
    // One query: nothing to stop half-way.
    auto *run = new SearchRun(this, false);
    run->start(
        [=](SearchProgress *) { *result = searchComments(ArchiveStore(archivePath), word, currentCd, explicitMatch); },
        [this, result] { commentSearchEnded(*result); });
}

void SearchDialog::commentSearchEnded(const CommentSearchResult &result)
{
    m_ui->searchButton->setEnabled(true);
    if (result.outcome != CommentSearchOutcome::EmptyWord)
        m_windows.session().foundCdNumbers = result.foundCdNumbers;
    if (result.outcome != CommentSearchOutcome::Found) {
        Prompts::message(this, result.message, iconOf(result.outcome));
        emit searchFinished();
        return;
    }
    for (const QString &number : result.foundCdNumbers)
        m_ui->foundCdList->addItem(number);
    m_windows.showNavigator();
    emit searchFinished();
    close();
}

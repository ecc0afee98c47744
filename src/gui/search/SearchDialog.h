#pragma once

#include <QWidget>

#include <memory>

namespace Ui {
class SearchDialog;
}
class SearchWindows;
struct CommentSearchResult;
struct FileSearchResult;

// The search dialog "Suchen": a word, where to look (the CD on display or all CDs of the
// archive) and what to look for (files in the drive images or the CDs' comments). File hits
// go to the result list, found comments to the navigator. Modeless; it closes itself when it
// is cancelled, when the CD on display has no image, and when a comment search found CDs.
class SearchDialog : public QWidget
{
    Q_OBJECT

public:
    SearchDialog(SearchWindows &windows, QWidget *parent = nullptr);
    ~SearchDialog() override;

signals:
    // A search that was started has ended, whatever it found, and its messages are answered.
    void searchFinished();

private:
    void startSearch();
    void startFileSearch(const QString &word);
    void startCommentSearch(const QString &word);
    void fileSearchEnded(const FileSearchResult &result, const QString &word);
    void commentSearchEnded(const CommentSearchResult &result);

    SearchWindows &m_windows;
    std::unique_ptr<Ui::SearchDialog> m_ui;
};

#pragma once

#include "search/ResultNavigator.h"

#include <QTimer>
#include <QWidget>

#include <memory>
#include <vector>

namespace Ui {
class CommentHitNavigator;
}
class SearchWindows;

// The navigator "Suchergebnis" over the CDs that a comment search found. It stays above all
// windows and steps the main window's CD list from one found CD to the next with "<" and ">",
// so that each CD is read in the normal detail view. With a single found CD it shows that CD
// and gives way to a message at once.
class CommentHitNavigator : public QWidget
{
    Q_OBJECT

public:
    CommentHitNavigator(SearchWindows &windows, std::vector<QString> foundCdNumbers, QWidget *parent = nullptr);
    ~CommentHitNavigator() override;

    const ResultNavigator &navigator() const { return m_navigator; }

protected:
    // Enter presses ">", the default button.
    void keyPressEvent(QKeyEvent *event) override;

private:
    void showPrevious();
    void showNext();
    void startNewSearch();
    void giveWayIfOneCdFound();
    // Shows the outcome of a step: the CD selected in the list, position and buttons.
    void stepped();
    // Selects the entry of the CD list that shows the found CD on display.
    void selectFoundCd();
    void showState();

    SearchWindows &m_windows;
    std::unique_ptr<Ui::CommentHitNavigator> m_ui;
    ResultNavigator m_navigator;
    QTimer m_oneCdCheck;
};

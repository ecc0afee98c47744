#include "ResultsWindow.h"
#include "ui_ResultsWindow.h"

#include "MediumPath.h"
#include "ResultsModel.h"
#include "SearchWindows.h"

#include "app/DataFolder.h"
#include "app/Session.h"
#include "common/Prompts.h"
#include "images/DriveTable.h"
#include "app/MainWindowLayout.h"
#include "app/ShellOpen.h"
#include "screen/FileDialogs.h"
#include "screen/ListColumns.h"
#include "search/ResultsFile.h"

#include <QDateTime>
#include <QHeaderView>
#include <QSortFilterProxyModel>
#include <QUrl>

#include <array>

namespace {

// A column's share of the list's width when the list is filled.
constexpr std::array<double, ResultsModel::ColumnCount> columnFactors{1000.0 / 5010, 2300.0 / 5010,
                                                                      539.0 / 5010, 1052.0 / 5010};

} // namespace

ResultsWindow::ResultsWindow(SearchWindows &windows, QWidget *parent)
    : QWidget(parent, Qt::Window)
    , m_windows(windows)
    , m_ui(std::make_unique<Ui::ResultsWindow>())
    , m_model(new ResultsModel(this))
    , m_sorted(new QSortFilterProxyModel(this))
{
    m_ui->setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);

    // Every column holds text and sorts as text, sizes and dates included.
    m_sorted->setSourceModel(m_model);
    m_sorted->setSortCaseSensitivity(Qt::CaseInsensitive);
    m_ui->resultView->setModel(m_sorted);
    QHeaderView *header = m_ui->resultView->header();
    header->setSectionsClickable(true);
    header->setSortIndicatorShown(false);
    header->setStretchLastSection(false);
    header->setSectionResizeMode(QHeaderView::Interactive);

    connect(header, &QHeaderView::sectionClicked, this, &ResultsWindow::sortByColumn);
    connect(m_ui->resultView, &QAbstractItemView::clicked, this, &ResultsWindow::itemClicked);
    connect(m_ui->resultView, &QAbstractItemView::doubleClicked, this, &ResultsWindow::itemDoubleClicked);
    connect(m_ui->saveButton, &QPushButton::clicked, this, &ResultsWindow::saveResults);
    connect(
        m_ui->printButton, &QPushButton::clicked, this, [this] { m_windows.showPrintResults(m_searchWord); });
    connect(m_ui->closeButton, &QPushButton::clicked, this, &QWidget::close);
}

ResultsWindow::~ResultsWindow() = default;

bool ResultsWindow::showHits(const std::vector<HitEntry> &results, const QString &word)
{
    std::vector<ResultColumns> rows;
    rows.reserve(results.size());
    std::optional<RuntimeFailure> failure;
    for (const HitEntry &entry : results) {
        auto columns = ResultColumns::cut(entry);
        if (const auto *failed = std::get_if<RuntimeFailure>(&columns)) {
            failure = *failed;
            break;
        }
        rows.push_back(std::get<ResultColumns>(std::move(columns)));
    }
    // A failed search leaves list, heading and saved results all as they were.
    if (failure) {
        Prompts::runtimeError(this, failure->number, failure->text);
        return false;
    }
    m_model->setRows(std::move(rows));
    setColumnWidths();
    m_ui->headingLabel->setText(QStringLiteral("Ergebnis der Suche nach ") + word);
    m_searchWord = word;
    return true;
}

void ResultsWindow::setColumnWidths()
{
    const int listWidth = m_ui->resultView->width();
    std::array<ColumnNeed, ResultsModel::ColumnCount> needs;
    for (size_t column = 0; column < needs.size(); ++column)
        needs[column].share = qRound(listWidth * columnFactors[column]);
    // Dates are never cut: the last column is at least as wide as its longest text.
    needs.back().whole = true;
    fitListColumns(m_ui->resultView, listWidth, needs);
}

void ResultsWindow::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    // The list grows with the window and the buttons keep to its bottom; the columns stay.
    m_ui->resultView->resize(width() - twipsToPixels(400), height() - twipsToPixels(1500));
    const int buttonsTop = height() - twipsToPixels(900);
    for (QPushButton *button : { m_ui->saveButton, m_ui->printButton, m_ui->closeButton })
        button->move(button->x(), buttonsTop);
}

void ResultsWindow::sortByColumn(int column)
{
    // One order for all columns, turned round by every click, the first one included.
    m_descending = !m_descending;
    m_sorted->sort(column, m_descending ? Qt::DescendingOrder : Qt::AscendingOrder);
}

void ResultsWindow::itemClicked(const QModelIndex &index)
{
    m_selectedFile = m_model->row(m_sorted->mapToSource(index).row()).file;
}

void ResultsWindow::itemDoubleClicked()
{
    if (m_selectedFile.isEmpty())
        return;
    DriveTable drives(m_windows.settings());
    const QString path = mediumPath(m_selectedFile, drives);
    if (!path.isEmpty() && fileExists(path)) {
        shellopen::open(this, QUrl::fromLocalFile(path));
        return;
    }
    Prompts::message(this, QStringLiteral("Bitte legen Sie den Datenträger ein, auf dem die Datei ") + m_selectedFile +
                               QStringLiteral(" vorhanden ist!"));
}

void ResultsWindow::saveResults()
{
    FileDialogs dialog(this);
    dialog.filter = QStringLiteral("Textdateien (*.txt)|*.txt");
    dialog.askFileToSave();
    if (dialog.fileName.isEmpty())
        return;
    // The file holds the hits in the order of the search, whatever order the list shows.
    if (const auto failure = ResultsFile::save(dialog.fileName, m_searchWord, m_windows.session().lastResults,
                                               QDateTime::currentDateTime()))
        Prompts::runtimeError(this, failure->number, failure->text);
}

#include "SearchFixture.h"

#include "ArchiveBuilder.h"

#include "app/DataPaths.h"
#include "search/frmsearch.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QVBoxLayout>

SearchFixture::SearchFixture()
{
    m_data = m_dir.path();
    m_settings = std::make_unique<Settings>(m_dir.filePath(QStringLiteral("settings.ini")));
    m_session.dataFolderCache = m_data;
    m_session.archiveName = QStringLiteral("Sammlung");
    QDir().mkpath(datapaths::imageFolder(m_data));

    ArchiveBuilder archive(m_data, m_session.archiveName);
    m_session.archivePath = archive.path();
    archive.cd(1, QStringLiteral("Backup 2003"), QStringLiteral("Sta1|Steuer 2003|Word|End1"), 1001)
        .cd(2, QStringLiteral("Fotos"), QStringLiteral("Sta1|Urlaub Ägypten|End1"), 1002)
        .cd(3, QStringLiteral("Ohne Abbild"), QStringLiteral("Sta1|word Handbuch|End1"), 0)
        .cd(4, QStringLiteral("Spiele"), QStringLiteral("Sta1|Spiele|End1"), -1408263712)
        .cd(5, QStringLiteral("Verloren"), QStringLiteral("Sta1|End1"), 1005);
    writeImage(1001, {">d:", "d:\\liesmich.txt|1834|12.03.2003 09:41:07", ">d:\\Setup",
                      "d:\\Setup\\start.exe|65536|19.01.2003 00:12:31", "d:\\Setup\\Word.exe|9|01.02.2003"});
    writeImage(1002, {">e:", ">e:\\Bilder", "e:\\Bilder\\haus.jpg|482113|28.07.2002 18:02:44", ">e:\\Bilder\\alt.zip",
                      "e:\\Bilder\\alt.zip\\2001/haus.jpg|120455|04.11.2001", "e:\\Bilder\\alt.zip\\||",
                      "e:\\w\xF6rter\\word.doc|10|05.05.2005"});
    writeImage(-1408263712, {">f:", ">f:\\Spiele", "f:\\Spiele\\Word7.exe|2048|03.03.2003 03:03:03"});

    m_main = std::make_unique<QWidget>();
    m_main->setObjectName(QStringLiteral("Hauptfenster"));
    auto *layout = new QVBoxLayout(m_main.get());
    m_list = new QListWidget;
    m_list->setObjectName(QStringLiteral("List2"));
    m_lblsn = new QLabel(QStringLiteral("0"));
    m_label8 = new QLabel(QStringLiteral("0"));
    m_text2 = new QLabel(QStringLiteral("Keine CD ausgewählt !"));
    for (QWidget *widget : std::initializer_list<QWidget *>{m_list, m_text2, m_label8, m_lblsn})
        layout->addWidget(widget);
    for (const CdRow &row : archive.store().selectAll().value)
        m_list->addItem(QString::number(row.number) + QLatin1Char(' ') + row.name);
    QObject::connect(m_list, &QListWidget::currentRowChanged, m_main.get(), [this] { showCd(); });
    m_windows = new SearchWindows(m_session, *m_settings, SearchLink{m_list, m_lblsn, m_label8, m_text2}, m_main.get());
}

SearchFixture::~SearchFixture()
{
    m_main.reset();
    settle();
}

void SearchFixture::writeImage(int32_t imageId, const std::vector<QByteArray> &lines) const
{
    QFile file(datapaths::imageFile(m_data, imageId));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    for (const QByteArray &line : lines)
        file.write(line + "\r\n");
    file.write("\r\n");
}

void SearchFixture::selectCd(int number)
{
    for (int i = 0; i < m_list->count(); ++i) {
        if (m_list->item(i)->text().section(QLatin1Char(' '), 0, 0) == QString::number(number)) {
            m_list->setCurrentRow(i);
            return;
        }
    }
    ADD_FAILURE() << "no entry for CD " << number;
}

// What the main window's detail view records of the selected CD.
void SearchFixture::showCd()
{
    const int number = m_list->currentItem()->text().section(QLatin1Char(' '), 0, 0).toInt();
    const StoreResult<CdRow> row = ArchiveStore(m_session.archivePath).selectByNumber(number);
    ASSERT_TRUE(row.ok());
    m_text2->setText(row.value.name);
    m_label8->setText(QString::number(row.value.number));
    m_lblsn->setText(QString::number(row.value.imageId));
}

frmsearch *SearchFixture::openSearch()
{
    QListWidgetItem *selected = m_list->currentItem();
    m_session.currentCd =
        selected ? static_cast<int16_t>(selected->text().section(QLatin1Char(' '), 0, 0).toInt()) : int16_t(-1);
    return m_windows->showSearch();
}

bool SearchFixture::search(frmsearch *dialog, const QString &word, const QString &where, const QString &what,
                           bool explicitMatch)
{
    child<QRadioButton>(dialog, where.toLatin1().constData())->setChecked(true);
    child<QRadioButton>(dialog, what.toLatin1().constData())->setChecked(true);
    child<QCheckBox>(dialog, "Check1")->setChecked(explicitMatch);
    child<QLineEdit>(dialog, "Text1")->setText(word);
    QSignalSpy finished(dialog, &frmsearch::searchFinished);
    child<QPushButton>(dialog, "Command1")->click();
    const bool ended = finished.count() > 0 || finished.wait(20000);
    settle();
    return ended;
}

void SearchFixture::settle()
{
    for (int i = 0; i < 3; ++i) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }
}

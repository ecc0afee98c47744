#include "AboutDialog.h"

#include "DialogParts.h"

#include "app/Program.h"
#include "app/Resources.h"
#include "app/ShellOpen.h"

#include "services/ServiceRequest.h"

#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

QLabel *iconLabel(const char *name, int size, QWidget *parent)
{
    auto *made = new QLabel(parent);
    made->setObjectName(QString::fromLatin1(name));
    made->setPixmap(QPixmap(resources::programIcon()).scaled(size, size, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    return made;
}

} // namespace

AboutDialog::AboutDialog(Program &program)
    : QDialog(nullptr)
    , m_program(program)
{
    m_program.adopt(this);
    setObjectName(QStringLiteral("AboutDialog"));
    setWindowTitle(QStringLiteral("About"));
    QLabel *titleLabel = dialogparts::label("titleLabel", QStringLiteral(">> About..."), this);
    QFont heading = titleLabel->font();
    heading.setBold(true);
    heading.setPointSizeF(heading.pointSizeF() * 1.4);
    titleLabel->setFont(heading);
    auto *titleLine = new QFrame(this);
    titleLine->setObjectName(QStringLiteral("titleLine"));
    titleLine->setFrameShape(QFrame::HLine);

    auto *infoPanel = new QFrame(this);
    infoPanel->setObjectName(QStringLiteral("infoPanel"));
    infoPanel->setFrameShape(QFrame::StyledPanel);
    QLabel *programNameLabel
        = dialogparts::label("programNameLabel", QStringLiteral("Silberbuch 5.1"), infoPanel);
    programNameLabel->setFont(heading);
    const QString site = service::vendorWebAddressText();
    auto *siteButton = new QPushButton(site, infoPanel);
    siteButton->setObjectName(QStringLiteral("siteButton"));
    auto *inner = new QGridLayout(infoPanel);
    inner->addWidget(iconLabel("panelIcon", 32, infoPanel), 0, 0);
    inner->addWidget(programNameLabel, 0, 1);
    inner->addWidget(dialogparts::label("developerIntroLabel",
                         QStringLiteral("Diese Software wurde entwickelt von:"), infoPanel),
        1, 0, 1, 2);
    inner->addWidget(dialogparts::label("developerLabel",
                         QStringLiteral("Ravelin - Softwareentwicklung , Webdesign"), infoPanel),
        2, 0, 1, 2);
    inner->addWidget(
        dialogparts::label("visitLabel",
            QStringLiteral("Besuchen Sie Ravelin im Internet auf ") + site
                + QStringLiteral(", hier gibt es immer die aktuelle Version dieses Programmes, sowie "
                                 "andere Programme und Spiele:"),
            infoPanel),
        3, 0, 1, 2);
    inner->addWidget(siteButton, 4, 0, 1, 2);
    inner->addWidget(
        dialogparts::label("thanksIntroLabel",
            QStringLiteral("Speziellen Dank für die Mithilfe und Betatesting geht an:"), infoPanel),
        5, 0, 1, 2);
    inner->addWidget(dialogparts::label("thanksLabel",
                         QStringLiteral("Alle, die die Version 5.1 unter Linux erprobt haben."), infoPanel),
        6, 0, 1, 2);

    auto *backButton = new QPushButton(QStringLiteral("Zurück"), this);
    backButton->setObjectName(QStringLiteral("backButton"));
    auto *top = new QHBoxLayout;
    top->addWidget(iconLabel("titleIcon", 48, this));
    top->addWidget(titleLabel, 1);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(titleLine);
    layout->addWidget(infoPanel);
    layout->addWidget(backButton, 0, Qt::AlignRight);
    setMinimumWidth(440);
    connect(siteButton, &QPushButton::clicked, this,
        [this] { shellopen::open(this, QUrl(service::vendorWebAddress())); });
    connect(backButton, &QPushButton::clicked, this, &QDialog::close);
}

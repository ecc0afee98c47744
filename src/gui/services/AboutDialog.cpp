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

QLabel *picture(const char *name, int size, QWidget *parent)
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
    QLabel *label17 = dialogparts::label("Label17", QStringLiteral(">> About..."), this);
    QFont heading = label17->font();
    heading.setBold(true);
    heading.setPointSizeF(heading.pointSizeF() * 1.4);
    label17->setFont(heading);
    auto *line5 = new QFrame(this);
    line5->setObjectName(QStringLiteral("Line5"));
    line5->setFrameShape(QFrame::HLine);

    auto *picture1 = new QFrame(this);
    picture1->setObjectName(QStringLiteral("Picture1"));
    picture1->setFrameShape(QFrame::StyledPanel);
    QLabel *label6 = dialogparts::label("Label6", QStringLiteral("Silberbuch 5.1"), picture1);
    label6->setFont(heading);
    const QString site = service::vendorWebAddressText();
    auto *command15 = new QPushButton(site, picture1);
    command15->setObjectName(QStringLiteral("Command15"));
    auto *inner = new QGridLayout(picture1);
    inner->addWidget(picture("Image2", 32, picture1), 0, 0);
    inner->addWidget(label6, 0, 1);
    inner->addWidget(dialogparts::label("Label1", QStringLiteral("Diese Software wurde entwickelt von:"), picture1), 1, 0, 1, 2);
    inner->addWidget(dialogparts::label("Label2", QStringLiteral("Ravelin - Softwareentwicklung , Webdesign"), picture1), 2, 0, 1, 2);
    inner->addWidget(dialogparts::label("Label37",
                         QStringLiteral("Besuchen Sie Ravelin im Internet auf ") + site
                             + QStringLiteral(", hier gibt es immer die aktuelle Version dieses Programmes, sowie "
                                              "andere Programme und Spiele:"),
                         picture1),
        3, 0, 1, 2);
    inner->addWidget(command15, 4, 0, 1, 2);
    inner->addWidget(
        dialogparts::label("Label9", QStringLiteral("Speziellen Dank für die Mithilfe und Betatesting geht an:"), picture1), 5, 0, 1, 2);
    inner->addWidget(dialogparts::label("Label10", QStringLiteral("Alle, die die Version 5.1 unter Linux erprobt haben."), picture1),
        6, 0, 1, 2);

    auto *command1 = new QPushButton(QStringLiteral("Zurück"), this);
    command1->setObjectName(QStringLiteral("Command1"));
    auto *top = new QHBoxLayout;
    top->addWidget(picture("Image1", 48, this));
    top->addWidget(label17, 1);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(line5);
    layout->addWidget(picture1);
    layout->addWidget(command1, 0, Qt::AlignRight);
    setMinimumWidth(440);
    connect(command15, &QPushButton::clicked, this, [this] { shellopen::open(this, QUrl(service::vendorWebAddress())); });
    connect(command1, &QPushButton::clicked, this, &QDialog::close);
}

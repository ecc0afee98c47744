#include "TransferDialogParts.h"

#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace transferdialog {

QRadioButton *buildChoice(QDialog *dialog, const QString &heading, const QString &first, const QString &second,
    QPushButton **next)
{
    auto *headingLabel = new QLabel(heading, dialog);
    headingLabel->setObjectName(QStringLiteral("headingLabel"));
    QFont bold = headingLabel->font();
    bold.setBold(true);
    headingLabel->setFont(bold);
    auto *questionLabel = new QLabel(QStringLiteral("Was möchten Sie tun?"), dialog);
    questionLabel->setObjectName(QStringLiteral("questionLabel"));
    auto *firstChoice = new QRadioButton(first, dialog);
    firstChoice->setObjectName(QStringLiteral("firstChoice"));
    firstChoice->setChecked(true);
    auto *secondChoice = new QRadioButton(second, dialog);
    secondChoice->setObjectName(QStringLiteral("secondChoice"));
    *next = new QPushButton(QStringLiteral("Weiter >>"), dialog);
    (*next)->setObjectName(QStringLiteral("nextButton"));
    auto *cancel = new QPushButton(QStringLiteral("<< Abbrechen"), dialog);
    cancel->setObjectName(QStringLiteral("cancelButton"));
    QObject::connect(cancel, &QPushButton::clicked, dialog, &QDialog::close);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(cancel);
    buttons->addStretch();
    buttons->addWidget(*next);
    auto *layout = new QVBoxLayout(dialog);
    for (QWidget *widget :
        std::initializer_list<QWidget *> { headingLabel, questionLabel, firstChoice, secondChoice })
        layout->addWidget(widget);
    layout->addLayout(buttons);
    return firstChoice;
}

} // namespace transferdialog

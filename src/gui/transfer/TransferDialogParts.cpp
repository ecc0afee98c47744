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
    auto *label2 = new QLabel(heading, dialog);
    label2->setObjectName(QStringLiteral("Label2"));
    QFont bold = label2->font();
    bold.setBold(true);
    label2->setFont(bold);
    auto *label1 = new QLabel(QStringLiteral("Was möchten Sie tun?"), dialog);
    label1->setObjectName(QStringLiteral("Label1"));
    auto *option1 = new QRadioButton(first, dialog);
    option1->setObjectName(QStringLiteral("Option1"));
    option1->setChecked(true);
    auto *option2 = new QRadioButton(second, dialog);
    option2->setObjectName(QStringLiteral("Option2"));
    *next = new QPushButton(QStringLiteral("Weiter >>"), dialog);
    (*next)->setObjectName(QStringLiteral("Command1"));
    auto *cancel = new QPushButton(QStringLiteral("<< Abbrechen"), dialog);
    cancel->setObjectName(QStringLiteral("Command2"));
    QObject::connect(cancel, &QPushButton::clicked, dialog, &QDialog::close);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(cancel);
    buttons->addStretch();
    buttons->addWidget(*next);
    auto *layout = new QVBoxLayout(dialog);
    for (QWidget *widget : std::initializer_list<QWidget *> { label2, label1, option1, option2 })
        layout->addWidget(widget);
    layout->addLayout(buttons);
    return option1;
}

} // namespace transferdialog

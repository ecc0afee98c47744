#include "DialogParts.h"

#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace dialogparts {

QLabel *label(const char *name, const QString &text, QWidget *parent)
{
    auto *made = new QLabel(text, parent);
    made->setObjectName(QString::fromLatin1(name));
    made->setWordWrap(true);
    return made;
}

QPushButton *commandRow(QDialog *dialog, const QString &caption, QLayout **row)
{
    auto *command1 = new QPushButton(caption, dialog);
    command1->setObjectName(QStringLiteral("Command1"));
    auto *command2 = new QPushButton(QStringLiteral("Abbrechen"), dialog);
    command2->setObjectName(QStringLiteral("Command2"));
    QObject::connect(command2, &QPushButton::clicked, dialog, &QDialog::close);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(command1);
    buttons->addWidget(command2);
    *row = buttons;
    return command1;
}

} // namespace dialogparts

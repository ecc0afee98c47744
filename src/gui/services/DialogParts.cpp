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

QPushButton *buttonRow(QDialog *dialog, const QString &caption, QLayout **row)
{
    auto *confirmButton = new QPushButton(caption, dialog);
    confirmButton->setObjectName(QStringLiteral("confirmButton"));
    auto *cancelButton = new QPushButton(QStringLiteral("Abbrechen"), dialog);
    cancelButton->setObjectName(QStringLiteral("cancelButton"));
    QObject::connect(cancelButton, &QPushButton::clicked, dialog, &QDialog::close);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(confirmButton);
    buttons->addWidget(cancelButton);
    *row = buttons;
    return confirmButton;
}

} // namespace dialogparts

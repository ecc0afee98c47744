#include "DriveListBox.h"

#include "images/DriveTable.h"

void DriveListBox::reload(DriveTable &table)
{
    // As wide as its longest entry: "d: [volume]" is never cut to "d: [vo".
    setSizeAdjustPolicy(QComboBox::AdjustToContents);
    const QString before = letter();
    clear();
    for (const Drive &drive : table.drives())
        addItem(drive.listText(), drive.letter);
    if (!before.isEmpty())
        selectDrive(before);
}

bool DriveListBox::selectDrive(const QString &text)
{
    const QString wanted = DriveTable::normalLetter(text.left(2));
    if (wanted.isEmpty())
        return false;
    const int index = findData(wanted);
    if (index < 0)
        return false;
    setCurrentIndex(index);
    return true;
}

QString DriveListBox::letter() const
{
    return currentData().toString();
}

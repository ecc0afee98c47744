#pragma once

#include <QComboBox>

class DriveTable;

// The drive list: one entry "d: [LABEL]" per drive of the catalogue, chosen by its letter.
class DriveListBox : public QComboBox
{
    Q_OBJECT

public:
    using QComboBox::QComboBox;

    // Fills the list afresh from the table and keeps the chosen drive where it still exists.
    void reload(DriveTable &table);
    // Chooses the drive whose letter begins `text` ("d:", "D:", "d: [CD]"). False, with the
    // choice unchanged, when the list has no such drive.
    bool selectDrive(const QString &text);
    // The letter of the chosen drive, "d:"; empty when the list is empty.
    QString letter() const;
};

#pragma once

#include "CdEditor.h"

// The dialog for a new CD: it proposes a number and adds a row.
class NewCdDialog : public CdEditor
{
    Q_OBJECT

public:
    NewCdDialog(Session &session, Settings &settings, MainWindowLink link, QWidget *parent = nullptr)
        : CdEditor(CdEditorVariant::newCd(), session, settings, std::move(link), parent)
    {
    }
};

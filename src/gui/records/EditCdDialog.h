#pragma once

#include "CdEditor.h"

// The dialog for the CD selected in the main window: it opens with that row and saves into it.
class EditCdDialog : public CdEditor
{
    Q_OBJECT

public:
    EditCdDialog(Session &session, Settings &settings, MainWindowLink link, QWidget *parent = nullptr)
        : CdEditor(CdEditorVariant::editCd(), session, settings, std::move(link), parent)
    {
    }
};

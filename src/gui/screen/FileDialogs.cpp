#include "FileDialogs.h"

#include "common/Prompts.h"
#include "screen/FileDialogRules.h"

#include <QApplication>
#include <QDir>

FileDialogs::FileDialogs(QWidget *owner)
    : m_owner(owner)
{
}

QString FileDialogs::ShowOpen(const QString &startFolder)
{
    return show(Kind::Open, startFolder) ? filename : QString();
}

QString FileDialogs::ShowSave(const QString &startFolder)
{
    const QString chosen = show(Kind::Save, startFolder) ? filename : QString();
    const filedialogrules::SaveNames names
        = filedialogrules::saveNames(chosen, Filter, FilterIndex, DefaultExt);
    filename = names.fileName;
    return names.result;
}

bool FileDialogs::show(Kind kind, const QString &startFolder)
{
    if (!startFolder.isEmpty())
        InitDir = startFolder;
    if (InitDir.isEmpty())
        InitDir = QDir::currentPath();
    Filter = filedialogrules::convertFilter(Filter);

    Prompts::FileRequest request;
    request.mode = kind == Kind::Save ? Prompts::FileRequest::Mode::Save : Prompts::FileRequest::Mode::Open;
    request.title = DialogTitle;
    request.directory = InitDir;
    request.fileName = filename;
    request.nameFilters = filedialogrules::nameFilters(Filter);
    request.selectedFilter = FilterIndex - 1;
    QWidget *owner = m_owner ? m_owner : QApplication::activeWindow();
    const std::optional<Prompts::FileAnswer> answer = Prompts::file(owner, request);
    if (!answer) {
        filename.clear();
        return false;
    }
    filename = answer->path;
    FileTitle = filedialogrules::fileTitle(filename);
    FilterIndex = answer->filterIndex + 1;
    return true;
}

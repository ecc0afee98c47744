#include "FileDialogs.h"

#include "common/Prompts.h"
#include "screen/FileDialogRules.h"

#include <QApplication>
#include <QDir>

FileDialogs::FileDialogs(QWidget *owner)
    : m_owner(owner)
{
}

QString FileDialogs::askFileToOpen(const QString &startFolder)
{
    return show(Kind::Open, startFolder) ? fileName : QString();
}

QString FileDialogs::askFileToSave(const QString &startFolder)
{
    const QString chosen = show(Kind::Save, startFolder) ? fileName : QString();
    const filedialogrules::SaveNames names
        = filedialogrules::saveNames(chosen, filter, filterIndex, defaultExtension);
    fileName = names.fileName;
    return names.result;
}

bool FileDialogs::show(Kind kind, const QString &startFolder)
{
    if (!startFolder.isEmpty())
        initialFolder = startFolder;
    if (initialFolder.isEmpty())
        initialFolder = QDir::currentPath();
    filter = filedialogrules::convertFilter(filter);

    Prompts::FileRequest request;
    request.mode = kind == Kind::Save ? Prompts::FileRequest::Mode::Save : Prompts::FileRequest::Mode::Open;
    request.directory = initialFolder;
    request.fileName = fileName;
    request.nameFilters = filedialogrules::nameFilters(filter);
    request.selectedFilter = filterIndex - 1;
    QWidget *owner = m_owner ? m_owner : QApplication::activeWindow();
    const std::optional<Prompts::FileAnswer> answer = Prompts::file(owner, request);
    if (!answer) {
        fileName.clear();
        return false;
    }
    fileName = answer->path;
    filterIndex = answer->filterIndex + 1;
    return true;
}

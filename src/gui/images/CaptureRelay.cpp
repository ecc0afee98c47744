#include "CaptureRelay.h"

void CaptureRelay::progress(uint32_t folders, uint32_t files, const QString &currentFolder)
{
    emit progressed(folders, files, currentFolder);
}

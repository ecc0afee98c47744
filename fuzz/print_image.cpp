#include "FuzzFile.h"
#include "images/FolderTree.h"
#include "images/ImageIndex.h"
#include "print/ListPrints.h"
#include "print/PrintedFolderTree.h"
#include "print/RecordingPrinter.h"
#include "print/TreePrinter.h"

#include <QFile>

// An image from outside printed as its file list, with both columns, and as its folder tree.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString path = QFile::decodeName(QByteArray::fromStdString(fuzzFile("dat", data, size)));
    const PrintSettings settings { QStringLiteral("Fuzz"), QStringLiteral("10"), {} };
    RecordingPrinter list;
    printFileList(list, settings, QStringLiteral("CD"), path, { true, true });
    const auto image = ImageIndex::load(path);
    const FolderTree folders(*image, QStringLiteral("CD"));
    RecordingPrinter tree;
    printFolderTree(tree, settings, QStringLiteral("CD"), PrintedFolderTree(folders, folders.firstNode()));
    return 0;
}

#include "FuzzFile.h"
#include "images/ImageIndex.h"

#include <QFile>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const auto image = ImageIndex::load(QFile::decodeName(QByteArray::fromStdString(fuzzFile("dat", data, size))));
    // Every folder of the tree lists, with and without its icon table.
    for (const ImageIndex::Folder &folder : image->folders()) {
        image->listFolder(folder.key, ImageIndex::Icons::FileSpecific);
        image->listFolder(folder.key, ImageIndex::Icons::None);
    }
    image->listFolder({}, ImageIndex::Icons::FileSpecific);
    return 0;
}

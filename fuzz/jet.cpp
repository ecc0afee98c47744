#include "FuzzFile.h"
#include "archives/JetTable.h"

#include <QFile>

// The seeds are copies of the Jet fixture; its table is read, so that mutations reach the
// rows as well as the catalogue.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString path = QFile::decodeName(QByteArray::fromStdString(fuzzFile("mdb", data, size)));
    readJetTable(path, QStringLiteral("DateTest"));
    return 0;
}

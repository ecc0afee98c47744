#include "FuzzFile.h"
#include "app/IniReader.h"

#include <QFile>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString path = QFile::decodeName(QByteArray::fromStdString(fuzzFile("ini", data, size)));
    for (const QString &section : inireader::readIniSectionNames(path))
        inireader::readIniSectionLines(path, section);
    return 0;
}

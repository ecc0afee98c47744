#include "FuzzFile.h"
#include "images/ArchiveListing.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    listRar(fuzzFile("rar", data, size));
    return 0;
}

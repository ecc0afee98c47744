#include "FuzzFile.h"
#include "images/ArchiveListing.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const ArchiveListing listing = listZip(fuzzFile("zip", data, size));
    // Every listing ends with the nameless closing row, whatever the bytes were.
    if (listing.error.isEmpty() && (listing.rows.empty() || !listing.rows.back().name.empty()))
        __builtin_trap();
    return 0;
}

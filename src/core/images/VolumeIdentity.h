#pragma once

#include "MountInfo.h"
#include "VolumeSources.h"

#include <QString>

#include <cstdint>
#include <optional>

// What the system tells about the file system behind a mount: the serial and the label
// that its drive gets. Neither needs more than read access to the device, and the serial
// of an optical disc not even that.
namespace volumeid {

// The serial as Windows reports it where the file system allows, so that images keep their
// names across both systems: the 32-bit volume id of FAT and exFAT, the low 32 bits of an
// NTFS serial, the checksum of an ISO 9660 primary volume descriptor when the device can be
// read; else the first 32 bits of the file system's UUID. Nothing when none of these can be
// found, and nothing for a mount of a folder inside a file system, which must not share the
// whole volume's id.
std::optional<uint32_t> serial(const Mount &mount, const VolumeSources &sources);

// The file system's label, or the volume name of an ISO 9660 descriptor; empty when there
// is none, and for a mount of a folder inside a file system.
QString label(const Mount &mount, const VolumeSources &sources);

} // namespace volumeid

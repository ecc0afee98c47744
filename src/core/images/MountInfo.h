#pragma once

#include <QString>

#include <sys/types.h>
#include <vector>

// One line of the kernel's mount table.
struct Mount
{
    dev_t device = 0; // the file system's device number (major:minor)
    QString root; // the folder of the file system that is mounted
    QString mountPoint;
    QString fsType;
    QString source; // the device path for disks, "server:/share" and the like for networks
};

// The mounts in the order of the table (a later mount on the same point covers an earlier
// one); empty when the table cannot be read.
std::vector<Mount> readMountInfo(const QString &path);

// True for a file system that holds the user's files: disks, optical media, sticks and
// network shares; false for the kernel's own (proc, sys, tmpfs, cgroup, overlays, snaps...).
bool isUserFileSystem(const Mount &mount);

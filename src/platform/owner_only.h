#pragma once

#include <string>

namespace cu {

// Files and folders that their owner alone can read. Paths are UTF-8. Where nothing else is said, the
// functions return 0 or the system's error code.

// Creates an empty file with mode 0600, whatever the umask. Never changes an existing one: EEXIST.
int createOwnerOnlyFile(const std::string& path);

// Creates the folder, and those above it that are missing, with mode 0700. Existing ones keep their mode.
int createOwnerOnlyFolder(const std::string& path);

// Removes every right of others from an existing file or folder.
int restrictToOwner(const std::string& path);

// Who can read a file besides its owner: by its mode, by its group, and by the folders that lead to it.
enum class OtherReaders {
  None,
  Group,      // the file's group, which is more than the owner's own
  Everybody,  // every user of the machine
};
// None for a path without a file.
OtherReaders otherReaders(const std::string& path);

}  // namespace cu

#pragma once

#include <string>

#include "sqlite/handle.h"

namespace cu::sqlite {

// Opens a file with the engine and waits some seconds for a writer. `code` is the engine's; there is a handle
// in every case, to be asked for the reason.
DatabaseHandle openPatiently(const std::string& name, int flags, int& code);

// Opens a file with the engine, without the right to write it. `unchanging`: nobody writes it meanwhile; the
// engine then neither locks it nor looks for files beside it, which it would have to make. `code` as above.
DatabaseHandle openUnwritten(const std::string& file, bool unchanging, int& code);

// A database to be read, and whether it was opened as one that nobody writes.
struct ReadDatabase {
  DatabaseHandle handle;
  bool unchanging = false;
};

// Opens an existing database as openFile does; one that this process may not write, by itself or for its
// folder, only to be read. DatabaseError states what is wrong with the file and the remedy.
ReadDatabase openToRead(const std::string& path);

}  // namespace cu::sqlite

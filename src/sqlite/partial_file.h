#pragma once

#include <string>

namespace cu::sqlite {

// A database that is written beside its place under a name of its own, readable by its owner alone, and takes
// the place when it is complete; the destructor deletes one that has not. A second one for the same place is
// rejected as long as the first one exists, and takes over what a killed process has left. Failures raise
// DatabaseError with the place and the remedy; the place is as it was.
class PartialFile {
 public:
  // `ending` is that of its own name. A place that is a link is that of the link's target.
  PartialFile(const std::string& place, const std::string& ending);
  ~PartialFile();
  PartialFile(const PartialFile&) = delete;
  PartialFile& operator=(const PartialFile&) = delete;

  const std::string& path() const { return path_; }
  const std::string& place() const { return place_; }

  // Who may read and write the file that is in the place may do so with this one.
  void takeRights();

  // Each writes to the disk what the engine has written, and ends the file's life under its own name.
  enum class Existing { Rejected, Replaced };
  void takePlace(Existing existing);
  // The file in the place gets the name `kept`, which no file has. At every moment the place has one of both,
  // whole.
  enum class Swap { Exchange, Copy };
  void takePlaceOf(const std::string& kept, Swap swap = Swap::Exchange);

 private:
  int open() const;
  void flush() const;
  void done();

  std::string place_;
  std::string path_;
  int file_ = -1;  // with the mark of the process that writes
};

// Where a copy cannot be put, for a system error code.
[[noreturn]] void refusePlace(const std::string& file, int systemCode);

}  // namespace cu::sqlite

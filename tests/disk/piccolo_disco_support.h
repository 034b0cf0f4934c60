#pragma once

#include <sys/resource.h>

#include <cstddef>
#include <string>

#include "support/temp_folder.h"

namespace cu::test {

// A file system of its own in memory, of which the test says how much is left. The process moves into a mount
// namespace of its own first, and into a user namespace where it has no right to mount.
class PiccoloDisco {
 public:
  enum class Risorsa { Pagine, File };

  PiccoloDisco();
  ~PiccoloDisco();
  PiccoloDisco(const PiccoloDisco&) = delete;
  PiccoloDisco& operator=(const PiccoloDisco&) = delete;

  // False where the machine forbids all mounts; `impedimento` says what it answered.
  bool montato() const { return montato_; }
  const std::string& impedimento() const { return impedimento_; }
  const std::string& cartella() const { return cartella_.path(); }

  // Leaves room for so many pages, or so many files, beyond what is there.
  void lascia(Risorsa risorsa, std::size_t quante) const;
  void libera() const;

 private:
  bool monta(const std::string& opzioni, unsigned long modo) const;

  TempFolder cartella_;
  bool montato_ = false;
  std::string impedimento_;
};

// As long as it lives, programs that are started can write no file beyond so many bytes.
class LimiteFile {
 public:
  explicit LimiteFile(std::size_t byte);
  ~LimiteFile();
  LimiteFile(const LimiteFile&) = delete;
  LimiteFile& operator=(const LimiteFile&) = delete;

 private:
  rlimit prima_{};
};

}  // namespace cu::test

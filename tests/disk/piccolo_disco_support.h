#pragma once

#include <sys/resource.h>

#include <cstddef>
#include <string>

#include "support/temp_folder.h"

namespace cu::test {

// A private file system in memory with a free space set by the test. The process first enters its own mount
// namespace, and a user namespace where it has no right to mount.
class PiccoloDisco {
 public:
  enum class Risorsa { Pagine, File };

  PiccoloDisco();
  ~PiccoloDisco();
  PiccoloDisco(const PiccoloDisco&) = delete;
  PiccoloDisco& operator=(const PiccoloDisco&) = delete;

  // False where the machine does not permit mounts; `impedimento` is the system's answer.
  bool montato() const { return montato_; }
  const std::string& impedimento() const { return impedimento_; }
  const std::string& cartella() const { return cartella_.path(); }

  // Limits the free space to that number of pages, or of files.
  void lascia(Risorsa risorsa, std::size_t quante) const;
  void libera() const;

 private:
  bool monta(const std::string& opzioni, unsigned long modo) const;

  TempFolder cartella_;
  bool montato_ = false;
  std::string impedimento_;
};

// Whether a text that a program shows names the full disk.
bool diSpazio(const std::string& testo);

// During its lifetime, started programs can write no file beyond that number of bytes.
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

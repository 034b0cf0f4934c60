#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace cu::lettura {

// Where the bytes of a file come from.
class Sorgente {
 public:
  virtual ~Sorgente() = default;
  // Up to `quanti` bytes; 0 only at the end. What cannot be read is raised as Error.
  virtual std::size_t leggi(char* dove, std::size_t quanti) = 0;
};

// How a line ends.
enum class FineRiga : std::uint8_t { CrLf, Lf, Nessuna };

struct Riga {
  std::int64_t numero = 0;  // from 1
  std::string_view
      testo;  // without its end; no more than kRigaMassima bytes of it, valid until the next line
  std::size_t lunghezza = 0;  // of the whole line
  FineRiga fine = FineRiga::CrLf;
};

// What is kept of a line. The rest of a longer one is passed over.
inline constexpr std::size_t kRigaMassima = 4096;

// Splits a stream into lines, in constant memory whatever the stream holds. A line ends at LF; a CR before it
// belongs to the end.
class LettoreRighe {
 public:
  explicit LettoreRighe(Sorgente& sorgente);
  // False at the end of the stream.
  bool prossima(Riga& riga);
  std::uint64_t byteLetti() const { return letti_; }

 private:
  bool riempi();  // more bytes behind those that are there; false at the end of the stream
  void consegna(Riga& riga, std::size_t lunghezza, bool conLf);
  bool saltaLunga(Riga& riga);

  Sorgente& sorgente_;
  std::vector<char> blocco_;
  std::size_t inizio_ = 0;
  std::size_t fine_ = 0;
  std::uint64_t letti_ = 0;
  std::int64_t numero_ = 0;
  bool finita_ = false;
};

}  // namespace cu::lettura

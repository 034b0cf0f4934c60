#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace cu {

// How a code stands in the list of a tax year.
enum class Validita : std::uint8_t {
  Nota,    // it is in the list
  Dubbia,  // it came between two lists that are known: from which year on is not attested
  Tolta,   // the list had it before or after, and its absence is attested
  Ignota,  // nothing is attested of it
};

// A list of the form's instructions that changes from year to year, read from data/liste/. Few of the lists
// are known as a whole: elsewhere a code of which nothing is attested may exist.
class CodiciPerAnno {
 public:
  // `elenco` is the name of the file without "_per_anno.tsv". Raises std::out_of_range for an unknown one.
  explicit CodiciPerAnno(std::string_view elenco);

  Validita di(std::string_view codice, std::int32_t anno) const;
  // Whether every code of the year is known.
  bool completo(std::int32_t anno) const;
  // Whether a certificate of the year may have the code: not one that is known to be gone, and none but the
  // known ones where the list is complete.
  bool ammesso(std::string_view codice, std::int32_t anno) const;
  // The known codes of the year, in the order of the file: "21, 22, 23".
  std::string elencoDi(std::int32_t anno) const;
  // Each code that is known in some year, once.
  std::vector<std::string_view> codici() const;

  // A code that an archive created without it may be given, with all that is known of its meaning.
  struct Aggiunta {
    std::int32_t id = 0;
    std::string codice;
    std::int32_t gruppo = 0;
    std::string significato;
  };
  std::vector<Aggiunta> aggiunte() const;

 private:
  struct Riga {
    std::int32_t id;
    std::string_view codice;
    std::int32_t dal;
    std::int32_t al;
    std::int32_t certa;  // the first year in which it is attested
    std::int32_t tolta;  // the first year in which its absence is attested
    std::int32_t gruppo;
    std::string_view significato;
  };
  std::vector<Riga> righe_;
  std::vector<std::int32_t> completi_;
};

// Read once; they live as long as the program.
const CodiciPerAnno& causaliPerAnno();
const CodiciPerAnno& codiciNonSoggettiPerAnno();
const CodiciPerAnno& categorieEntiPerAnno();
const CodiciPerAnno& eventiEccezionaliPerAnno();

}  // namespace cu

// Damages every field of every record and every cell, in several ways, and holds what no rule sees against a
// list.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <iostream>
#include <map>
#include <set>

#include "lettura/lettura_prova.h"
#include "modello/tracciato.h"

namespace cu::lettura::prova {
namespace {

// A stretch of a line that one value takes.
struct Luogo {
  std::size_t riga;
  std::size_t posizione;
  std::size_t lunghezza;
  std::string nome;
};

FileDiProva sanoConContributi() {
  FileDiProva file;
  file.certificato();
  FileDiProva::celle(file.righe[3], {{"AU001020", FileDiProva::amount("0,00")},
                                     {"AU001029", "80015110580"},
                                     {"AU001030", "ENPAM"},
                                     {"AU001034", FileDiProva::amount("10,00")},
                                     {"AU001036", FileDiProva::amount("1")},
                                     {"AU001038", FileDiProva::amount("10,00")}});
  return file.modulo({{"AU001002", FileDiProva::amount("2015")}, {"AU001003", FileDiProva::amount("1")}})
      .fine();
}

void campi(std::vector<Luogo>& luoghi, std::size_t riga, modello::Tavola tavola) {
  for (const modello::CampoRecord& campo : tavola) {
    if (campo.volte > 1) continue;
    luoghi.push_back({riga, static_cast<std::size_t>(campo.posizione),
                      static_cast<std::size_t>(campo.lunghezza), std::string(campo.nome)});
  }
}

std::vector<Luogo> luoghiDi(const FileDiProva& file) {
  std::vector<Luogo> luoghi;
  campi(luoghi, 1, modello::kTipoA);
  for (const modello::Tavola tavola : modello::tipoB(2017)) campi(luoghi, 2, tavola);
  campi(luoghi, 3, modello::kTipoD);
  campi(luoghi, 4, modello::kTipoH);
  campi(luoghi, 6, modello::kTipoZ);
  for (const std::size_t riga : {3U, 4U, 5U}) {
    for (std::size_t posto = 90; posto < 1890; posto += 24) {
      const std::string codice = file.righe[riga - 1].substr(posto - 1, 8);
      if (codice == std::string(8, ' ')) break;
      luoghi.push_back({riga, posto + 8, 16, codice});
    }
  }
  return luoghi;
}

// The first place in the stretch that is not blank; the first of all in a blank one.
std::size_t inizio(const std::string& riga, const Luogo& luogo) {
  for (std::size_t i = luogo.posizione; i < luogo.posizione + luogo.lunghezza; ++i) {
    if (riga[i - 1] != ' ') return i;
  }
  return luogo.posizione;
}

// Another character of the same kind; for a blank a letter.
char altro(char c) {
  if (c >= '0' && c <= '9') return c == '9' ? '1' : static_cast<char>(c + 1);
  if (c >= 'A' && c <= 'Z') return c == 'Z' ? 'A' : static_cast<char>(c + 1);
  return 'K';
}

std::set<std::string> nonVisti(const std::function<bool(FileDiProva&, const Luogo&)>& danneggia) {
  std::set<std::string> nonVisti;
  const FileDiProva sano = sanoConContributi();
  for (const Luogo& luogo : luoghiDi(sano)) {
    FileDiProva file = sano;
    if (!danneggia(file, luogo)) continue;
    if (elenco(file.esamina()).empty())
      nonVisti.insert(std::string(1, sano.righe[luogo.riga - 1][0]) + " " + luogo.nome);
  }
  return nonVisti;
}

void riferisci(const char* danno, const std::set<std::string>& nonVisti) {
  std::cout << danno << ", seen by no rule:\n";
  for (const std::string& nome : nonVisti) std::cout << "  " << nome << '\n';
}

TEST(Danni, TheSoundFileHasNone) {
  EXPECT_EQ(elenco(sanoConContributi().esamina()), std::vector<std::string>{});
}

TEST(Danni, AControlCharacterIsSeenWhereItIs) {
  const FileDiProva sano = sanoConContributi();
  for (const Luogo& luogo : luoghiDi(sano)) {
    if (luogo.posizione == 1 || luogo.posizione == 1898) continue;  // the record's letter and its mark
    FileDiProva file = sano;
    const std::size_t posto = inizio(file.righe[luogo.riga - 1], luogo);
    file.metti(luogo.riga, posto, "\x02");
    EXPECT_THAT(elenco(file.esamina()),
                ::testing::Contains("L03 " + std::to_string(luogo.riga) + ":" + std::to_string(posto)))
        << luogo.nome;
    for (const Rilievo& rilievo : file.esamina().rilievi.ordinati()) {
      const bool altrove = rilievo.riga != static_cast<std::int64_t>(luogo.riga);
      EXPECT_TRUE(altrove || rilievo.regola == Regola::L03 ||
                  rilievo.posizione != static_cast<int>(luogo.posizione))
          << luogo.nome;
    }
  }
}

TEST(Danni, AnotherCharacterOfTheSameKind) {
  const auto visti = nonVisti([](FileDiProva& file, const Luogo& luogo) {
    const std::size_t posto = inizio(file.righe[luogo.riga - 1], luogo);
    file.metti(luogo.riga, posto, std::string(1, altro(file.righe[luogo.riga - 1][posto - 1])));
    return true;
  });
  riferisci("another character", visti);
  EXPECT_EQ(visti, (std::set<std::string>{"A Campo utente",
                                          "A Cod. Fisc. fornitore",
                                          "A Tipo fornitore",
                                          "B Casella Quadro CT",
                                          "B Cod. Fisc. intermediario",
                                          "B Cod. Fisc. rappresentante",
                                          "B Cod. Fisc. soc. o ente dich.",
                                          "B Cod. carica rappresentante",
                                          "B Cognome",
                                          "B Cognome rappresentante",
                                          "B Data dell'impegno",
                                          "B Denominazione",
                                          "B Eventi eccezionali",
                                          "B Firma intermediario",
                                          "B Id. prod. software (Cod. Fisc.)",
                                          "B Impegno a trasmettere via telem. dich.",
                                          "B Indirizzo posta elettronica",
                                          "B Nome",
                                          "B Nome rappresentante",
                                          "B Progressivo modulo",
                                          "B Spazio a disp. utente",
                                          "B Telefono/Fax",
                                          "D DA001002",
                                          "D DA002002",
                                          "D DA002003",
                                          "D DA003001",
                                          "D Flag conferma Singola Certif.",
                                          "D Spazio a disp. utente",
                                          "H AU001001",
                                          "H AU001006",
                                          "H AU001009",
                                          "H AU001030",
                                          "H Spazio a disp. utente"}));
}

TEST(Danni, AValueThatIsGone) {
  const auto visti = nonVisti([](FileDiProva& file, const Luogo& luogo) {
    const std::string prima = file.righe[luogo.riga - 1].substr(luogo.posizione - 1, luogo.lunghezza);
    const std::string blanks(luogo.lunghezza, ' ');
    file.metti(luogo.riga, luogo.posizione, blanks);
    return prima != blanks;
  });
  riferisci("blanks", visti);
  EXPECT_EQ(visti,
            (std::set<std::string>{
                "A Cod. Fisc. fornitore", "B Casella Quadro CT", "B Cod. Fisc. rappresentante",
                "B Denominazione", "B Eventi eccezionali", "B Firma", "B Firma intermediario",
                "B Fornitura rel. invio certif. da ann.", "B Fornitura rel. invio certif. da sost.",
                "B Id. prod. software (Cod. Fisc.)", "B Impegno a trasmettere via telem. dich.",
                "B Indirizzo posta elettronica", "B Telefono/Fax", "D Flag conferma Singola Certif."}));
}

TEST(Danni, AValueMovedToTheRight) {
  const auto visti = nonVisti([](FileDiProva& file, const Luogo& luogo) {
    const std::string prima = file.righe[luogo.riga - 1].substr(luogo.posizione - 1, luogo.lunghezza);
    if (luogo.lunghezza < 2 || prima == std::string(luogo.lunghezza, ' ')) return false;
    file.metti(luogo.riga, luogo.posizione, " " + prima.substr(0, luogo.lunghezza - 1));
    return true;
  });
  riferisci("moved", visti);
  EXPECT_EQ(visti, (std::set<std::string>{"D DA001002", "D DA002002", "D DA002003", "H AU001030"}));
}

}  // namespace
}  // namespace cu::lettura::prova

#include "lettura/esame.h"

#include <array>
#include <cstdint>
#include <cstring>
#include <utility>

#include "base/windows1252.h"
#include "lettura/esaminatore.h"

namespace cu::lettura {
namespace {

constexpr std::size_t kLarghezza = modello::kLarghezzaRecord;

// Bytes that are no characters of a text: control characters, and those that the code page leaves out.
constexpr auto kStranieri = [] {
  std::array<bool, 256> stranieri{};
  for (std::size_t byte = 0; byte < 0x20; ++byte) stranieri.at(byte) = true;
  for (const std::size_t byte : {0x7FU, 0x81U, 0x8DU, 0x8FU, 0x90U, 0x9DU}) stranieri.at(byte) = true;
  return stranieri;
}();

bool straniero(char c) { return kStranieri[static_cast<unsigned char>(c)]; }

// Whether a text may have any: it has control characters, or others than ASCII. Eight bytes at a time; a
// borrow or a carry between them comes from a byte that is found anyway.
bool puoAvereStranieri(std::string_view testo) {
  constexpr std::uint64_t kUni = 0x0101010101010101U;
  constexpr std::uint64_t kAlti = 0x80 * kUni;
  const char* dove = testo.data();
  std::size_t restano = testo.size();
  std::uint64_t trovati = 0;
  for (; restano >= sizeof trovati; restano -= sizeof trovati, dove += sizeof trovati) {
    std::uint64_t otto = 0;
    std::memcpy(&otto, dove, sizeof otto);
    trovati |= (otto - 0x20 * kUni) | otto | (otto + kUni);
  }
  bool altri = false;
  for (; restano > 0; --restano, ++dove) {
    const auto byte = static_cast<unsigned char>(*dove);
    altri = altri || byte < 0x20 || byte >= 0x7F;
  }
  return (trovati & kAlti) != 0 || altri;
}

std::string dettoFine(FineRiga fine) {
  switch (fine) {
    case FineRiga::CrLf:
      break;
    case FineRiga::Lf:
      return " e finisce con LF";
    case FineRiga::Nessuna:
      return " e non ha una fine";
  }
  return {};
}

}  // namespace

void Esaminatore::byteStranieri(std::string_view testo) {
  if (!puoAvereStranieri(testo)) return;
  for (std::size_t i = 0; i < testo.size(); ++i) {
    if (!straniero(testo[i])) continue;
    std::size_t dopo = i + 1;
    while (dopo < testo.size() && straniero(testo[dopo])) ++dopo;
    const Tratto dove{static_cast<int>(i) + 1, static_cast<int>(dopo - i)};
    segnala_.guasto(dove);
    segnala_.intera(Regola::L03, segnala_.numero(), dove, [&] {
      constexpr std::string_view kCifre = "0123456789ABCDEF";
      const auto byte = static_cast<unsigned char>(testo[i]);
      return std::string("Il byte ") + kCifre[byte / 16] + kCifre[byte % 16] +
             (byte < 0x20 || byte == 0x7F ? " è un carattere di controllo."
                                          : " non è un carattere di Windows-1252.");
    });
    i = dopo;
  }
}

void Esaminatore::larghezza(const Riga& riga) {
  const std::size_t giusti = riga.lunghezza < kLarghezza ? riga.lunghezza : kLarghezza;
  // A line that is too long may hold what was the next ones.
  const std::size_t altre = riga.lunghezza < 2 * kLarghezza ? 0 : riga.lunghezza / kLarghezza - 1;
  ignote_ += altre;
  ignoteDellAgente_ += altre;
  segnala_.intera(Regola::L01, riga.numero, {static_cast<int>(giusti) + 1, 0}, [&] {
    return "La riga ha " + std::to_string(riga.lunghezza) + " caratteri" + dettoFine(riga.fine) +
           ": ne sono attesi 1898 e CR LF.";
  });
}

bool Esaminatore::caratteri(const Riga& riga) {
  byteStranieri(riga.testo.substr(0, kLarghezza));
  const bool giusta = riga.lunghezza == kLarghezza && riga.fine == FineRiga::CrLf;
  if (!giusta) larghezza(riga);
  return giusta;
}

void Esaminatore::ignota(const Riga& riga, bool intera) {
  if (intera && dopo_ != Dopo::Inizio) {
    segnala_.intera(Regola::O03, riga.numero, {1, 1}, [&] {
      return "Il record " + citato(riga.testo.substr(0, 1)) + " non è fra A, B, D, H e Z.";
    });
  }
  if (riga.lunghezza == 0) return;
  ++ignote_;
  ++ignoteDellAgente_;
  corrente_.affidabile = false;
}

bool Esaminatore::ordine(char record, const Riga& riga) {
  using enum Dopo;
  const Dopo questo = record == 'A' ? A : record == 'B' ? B : record == 'D' ? D : record == 'H' ? H : Z;
  bool giusto = false;
  switch (questo) {
    case A:
      giusto = dopo_ == Inizio;
      break;
    case B:
      giusto = dopo_ != Inizio && dopo_ != Z;
      break;
    case D:
      giusto = dopo_ == B || dopo_ == D || dopo_ == H;
      break;
    case H:
      giusto = dopo_ == D || dopo_ == H;
      break;
    case Z:
    case Inizio:
    case Ignoto:
      giusto = dopo_ != Z;
      break;
  }
  // The start has a rule of its own, and so has what follows the last record.
  if (!giusto && dopo_ != Inizio && dopo_ != Z && dopo_ != Ignoto) {
    segnala_.intera(Regola::O02, riga.numero, {1, 1}, [&] {
      return std::string("Il record ") + record + " non può stare qui: l'ordine è A, B, D, H, Z.";
    });
  }
  if (questo != A || giusto) dopo_ = questo;
  return giusto || dopo_ == Z || questo != A;
}

void Esaminatore::riga(const Riga& riga) {
  ultimaRiga_ = riga.numero;
  const char record = riga.testo.empty() ? '\0' : riga.testo.front();
  if (zeta_.riga != 0) oltreZeta_ = true;
  const bool nota = record == 'A' || record == 'B' || record == 'D' || record == 'H' || record == 'Z';
  segnala_.riga(riga.numero, nota ? record : '\0', false);
  const bool affidabile = caratteri(riga);
  if (dopo_ == Dopo::Inizio && record != 'A') {
    segnala_.intera(Regola::O01, riga.numero, {1, 1}, [] { return std::string("Il primo record non è A."); });
  }
  if (record >= 'A' && record <= 'Z') ++esito_.totali[static_cast<std::size_t>(record - 'A')];
  if (!nota) {
    ignota(riga, affidabile && !straniero(record));
    dopo_ = Dopo::Ignoto;
    return;
  }
  const bool alSuoPosto = ordine(record, riga);
  std::string_view testo = riga.testo;
  if (!affidabile) {
    // What is left of the line is read, and not judged.
    segnala_.riga(riga.numero, record, true);
    riempita_.assign(testo.substr(0, kLarghezza));
    riempita_.resize(kLarghezza, ' ');
    testo = riempita_;
  } else if (testo.back() != 'A') {
    segnala_.intera(Regola::L02, riga.numero, {modello::kLarghezzaRecord, 1},
                    [] { return std::string("In posizione 1898 manca la A che chiude il record."); });
  }
  if (ascoltatore_ != nullptr) ascoltatore_->record(record, riga.numero, testo);
  if (record == 'B' && affidabile) scegliModello(testo);
  if (record != 'A') testate_.controlla(record, testo, segnala_);
  const bool unite = riga.lunghezza >= 2 * kLarghezza;
  if (record == 'A' && alSuoPosto) recordA(testo);
  if (record == 'B') recordB(testo, affidabile);
  if (record == 'D') recordD(testo, affidabile);
  if (record == 'H') recordH(testo, affidabile);
  if (record == 'Z') recordZ(testo, affidabile);
  if (unite) {
    dopo_ = Dopo::Ignoto;
    corrente_.affidabile = false;
  }
}

void Esaminatore::fineFile() {
  chiudiCertificato();
  chiudiAgente();
  confrontaConteggi();
  // An unreadable last line may be the record.
  if ((dopo_ == Dopo::Z || dopo_ == Dopo::Ignoto) && !oltreZeta_) return;
  segnala_.intera(Regola::L04, ultimaRiga_ == 0 ? 1 : ultimaRiga_, {1, 0}, [&] {
    return std::string(ultimaRiga_ == 0 ? "Il file è vuoto." : "Il file non finisce con il record Z.");
  });
}

Esito Esaminatore::fine(std::uint64_t byteLetti) {
  fineFile();
  esito_.byteLetti = byteLetti;
  esito_.righe = ultimaRiga_;
  return std::move(esito_);
}

Esito esamina(Sorgente& sorgente, const Luoghi* luoghi, Ascoltatore* ascoltatore,
              const modello::Modello* modello) {
  LettoreRighe righe(sorgente);
  Esaminatore esaminatore(luoghi, ascoltatore, modello);
  Riga riga;
  while (righe.prossima(riga)) esaminatore.riga(riga);
  return esaminatore.fine(righe.byteLetti());
}

}  // namespace cu::lettura

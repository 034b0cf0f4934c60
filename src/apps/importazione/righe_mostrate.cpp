#include "apps/importazione/righe_mostrate.h"

#include <algorithm>
#include <array>

#include "apps/importazione/documenti_mostrati.h"

namespace cu {
namespace {

using intake::Elenco;
using Genere = ColonnaRiga::Genere;

constexpr std::array<ColonnaRiga, 3> kColonneAziende = {{{"Codice fiscale"}, {"Denominazione"}, {"Comune"}}};
constexpr std::array<ColonnaRiga, 5> kColonnePercipienti = {
    {{"Codice"}, {"Codice fiscale"}, {"Nome"}, {"Nascita", Genere::Data}, {"Comune"}}};
constexpr std::array<ColonnaRiga, 7> kColonneCompensi = {{{"Percipiente"},
                                                          {"Caus."},
                                                          {"Pagamento", Genere::Data},
                                                          {"Documento"},
                                                          {"Onorario", Genere::Importo},
                                                          {"Non soggette", Genere::Importo},
                                                          {"Ritenuta", Genere::Importo}}};

// The values of a row by their columns.
class ValoriDellaRiga {
 public:
  explicit ValoriDellaRiga(intake::ValoriRiga valori) : valori_(std::move(valori)) {}

  template <class C>
  std::string di(C colonna) const {
    const std::string_view nome = intake::colonna(colonna).nome;
    const auto suo =
        std::find_if(valori_.begin(), valori_.end(), [&](const auto& uno) { return uno.first == nome; });
    return suo == valori_.end() ? std::string() : suo->second;
  }
  // The first one that is there.
  template <class... C>
  std::string primo(C... colonne) const {
    std::string valore;
    ((valore = valore.empty() ? di(colonne) : valore), ...);
    return valore;
  }
  template <class C>
  std::string insieme(C uno, C altro) const {
    const std::string secondo = di(altro);
    return secondo.empty() ? di(uno) : di(uno) + ' ' + secondo;
  }
  template <class C>
  std::string somma(C uno, C altro) const {
    const auto importo = [](const std::string& testo) { return Decimal::parse(testo).value_or(Decimal()); };
    const std::string primo = di(uno);
    const std::string secondo = di(altro);
    if (primo.empty() && secondo.empty()) return {};
    return (importo(primo) + importo(secondo)).toText();
  }

 private:
  intake::ValoriRiga valori_;
};

std::vector<std::string> celleAzienda(const ValoriDellaRiga& valori) {
  using enum intake::ColonnaAzienda;
  return {valori.primo(CodiceFiscale, PartitaIva), valori.insieme(Denominazione, Nome), valori.di(Comune)};
}

std::vector<std::string> cellePercipiente(const ValoriDellaRiga& valori) {
  using enum intake::ColonnaPercipiente;
  return {valori.di(Codice), valori.primo(CodiceFiscale, PartitaIva, CodiceFiscaleEstero),
          valori.insieme(Cognome, Nome), valori.di(DataNascita), valori.di(Comune)};
}

std::vector<std::string> celleCompenso(const ValoriDellaRiga& valori) {
  using enum intake::ColonnaCompenso;
  return {valori.primo(CodicePercipiente, CodiceFiscale, PartitaIva),
          valori.di(Causale),
          valori.di(DataPagamento),
          valori.di(NumeroDocumento),
          valori.primo(Onorario, Lordo),
          valori.somma(SommeNonSoggette, SommeRegimeConvenzionale),
          valori.somma(RitenutaAcconto, RitenutaImposta)};
}

std::vector<std::string> celleDi(Elenco elenco, const ValoriDellaRiga& valori) {
  switch (elenco) {
    case Elenco::Aziende:
      return celleAzienda(valori);
    case Elenco::Percipienti:
      return cellePercipiente(valori);
    case Elenco::Compensi:
      break;
  }
  return celleCompenso(valori);
}

std::string messaggiUniti(const intake::Piano& piano, const intake::RigaPiano& riga) {
  std::string testo = riga.esclusa.empty() ? piano.letta(riga).esclusa : riga.esclusa;
  const bool fattura = documentoDellaRiga(piano, riga) != nullptr;  // it has no columns
  for (const intake::Messaggio& uno : riga.messaggi) {
    if (!testo.empty()) testo += "; ";
    if (!uno.colonna.empty() && !fattura) testo += uno.colonna + ": ";
    testo += testoMostrato(uno) + " (" + std::string(intake::voce(uno.codice).sigla) + ")";
  }
  return testo;
}

}  // namespace

std::span<const ColonnaRiga> colonneDelleRighe(Elenco elenco) {
  switch (elenco) {
    case Elenco::Aziende:
      return kColonneAziende;
    case Elenco::Percipienti:
      return kColonnePercipienti;
    case Elenco::Compensi:
      break;
  }
  return kColonneCompensi;
}

std::vector<RigaMostrata> righeMostrate(const intake::Piano& piano) {
  std::vector<RigaMostrata> mostrate;
  mostrate.reserve(piano.righe.size());
  for (const intake::RigaPiano& riga : piano.righe) {
    const ValoriDellaRiga valori(intake::valori(piano, riga));
    mostrate.push_back({celleDi(piano.elenco, valori), messaggiUniti(piano, riga)});
    // A seller is better known by name than by code, and a document by its date too.
    if (const intake::DocumentoLetto* const documento = documentoDellaRiga(piano, riga)) {
      constexpr std::size_t kDocumento = 3;
      mostrate.back().celle.front() = documento->cedente.nominativo();
      if (documento->data != Date())
        mostrate.back().celle[kDocumento] += " del " + documento->data.toItalian();
    }
  }
  return mostrate;
}

std::string dettoStato(intake::StatoRiga stato) {
  constexpr std::array<const char*, intake::kStatiRiga> kSegni = {"+", "=", "≠", "?", "✖", "−"};
  return std::string(kSegni[static_cast<std::size_t>(stato)]) + ' ' + std::string(intake::nome(stato));
}

}  // namespace cu

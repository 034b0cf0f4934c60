#include "apps/strumenti/confronto.h"

#include <algorithm>
#include <set>
#include <tuple>

#include "apps/comune/connessioni.h"
#include "apps/comune/file_letto.h"
#include "apps/comune/terminale.h"
#include "apps/strumenti/conteggi.h"
#include "apps/strumenti/modulo_disegnato.h"
#include "base/text.h"
#include "data/recordset.h"
#include "fornitura/carico.h"
#include "riscontro/conti.h"
#include "suite/utilita.h"

namespace cu::strumenti {
namespace {

constexpr std::string_view kFirma = "DA003";

bool diRecordD(const std::string& codice) { return codice.starts_with("DA"); }

std::vector<CasellaConfrontata> tutte(lettura::Certificato certificato, bool vecchio, bool nuovo,
                                      std::int32_t anno, const modello::Modello& modello) {
  // Modules are compared by their places, whatever numbers the file gives them.
  int posto = 0;
  for (lettura::Modulo& modulo : certificato.moduli) modulo.numero = ++posto;
  std::vector<CasellaConfrontata> caselle;
  for (const CasellaMostrata& una : caselleDi(certificato, anno, modello)) {
    if (una.codice.starts_with(kFirma)) continue;
    caselle.push_back({una.modulo, una.codice, una.nome, vecchio ? una.testo : std::string(),
                       nuovo ? una.testo : std::string(), false});
  }
  return caselle;
}

// A file whose reading is reported.
class LettoConAvanzamento : public lettura::Sorgente {
 public:
  LettoConAvanzamento(const std::string& percorso, const FileEsaminato::Avanza& avanza, const char* che)
      : file_(percorso), avanza_(avanza), che_(che) {}
  std::size_t leggi(char* dove, std::size_t quanti) override {
    const std::size_t letti = file_.leggi(dove, quanti);
    byte_ += letti;
    avanza_(che_, byte_, file_.dimensione());
    return letti;
  }

 private:
  FileLetto file_;
  const FileEsaminato::Avanza& avanza_;
  const char* che_;
  std::uint64_t byte_ = 0;
};

FileEsaminato telematico(const std::string& percorso, const FileEsaminato::Avanza& avanza, const char* che) {
  FileEsaminato file = FileEsaminato::leggi(percorso, avanza, che);
  if (!file.estraneo().empty()) throw FileIlleggibile(percorso + "\n" + file.estraneo());
  return file;
}

std::string dettiSostituti(const FileEsaminato& file) {
  const std::vector<lettura::Sostituto>& suoi = file.sostituti();
  if (suoi.size() != 1) return alPlurale(suoi.size(), "sostituto", "sostituti");
  return suoi.front().codiceFiscale + " " + suoi.front().nome;
}

std::string dettoAnno(const FileEsaminato& file) {
  return file.anno() ? fromInteger(*file.anno()) : std::string("un anno che non si legge");
}

}  // namespace

Confronto Confronto::diFile(const std::string& vecchio, const std::string& nuovo,
                            const FileEsaminato::Avanza& avanza) {
  Confronto confronto;
  confronto.vecchio_ = telematico(vecchio, avanza, "Lettura del file vecchio");
  confronto.nuovo_ = telematico(nuovo, avanza, "Lettura del file nuovo");
  confronto.estraneita_ = confronto.estraneiFraLoro();
  LettoConAvanzamento prima(vecchio, avanza, "Confronto: il file vecchio");
  LettoConAvanzamento dopo(nuovo, avanza, "Confronto: il file nuovo");
  confrontaFile(prima, dopo, [&](const Coppia& coppia) { confronto.aggiungi(coppia); });
  return confronto;
}

Confronto Confronto::conConti(const std::string& file, const Profilo& profilo,
                              const FileEsaminato::Avanza& avanza, bool comunque) {
  Confronto confronto;
  confronto.vecchio_ = telematico(file, avanza, "Lettura del file");
  if (!confronto.vecchio_->anno()) {
    throw Error(kErrorInvalidCall,
                "Il file non dice di quale anno è: non si può confrontare con i conti di un anno.");
  }
  const auto connessione = apriConnessione(profilo.database);
  confronto.estraneita_ = confronto.estraneoAiConti(*connessione, profilo.sessione.azienda);
  confronto.confrontati_ = comunque || confronto.estraneita_.empty();
  if (!confronto.confrontati_) return confronto;
  LettoConAvanzamento letto(file, avanza, "Confronto: il file");
  Terminale terminale;
  const UtilitaItaliana utilita(terminale, profilo.documenti);
  const auto esito = confrontaConConti(letto, *connessione, profilo, utilita, [&](const Coppia& coppia) {
    confronto.aggiungi(coppia);
    avanza("Confronto: certificazioni", confronto.righe_.size(), 0);
  });
  if (esito && !esito->testate.empty()) {
    confronto.testateDiverse_ = true;
    confronto.righe_.insert(confronto.righe_.begin(),
                            RigaConfronto{"", "Frontespizio della fornitura", "", EsitoConfronto::Diverso,
                                          std::nullopt, std::nullopt, std::nullopt, esito->testate});
  }
  return confronto;
}

std::string Confronto::estraneiFraLoro() const {
  std::string testo;
  const auto codici = [](const FileEsaminato& file) {
    std::set<std::string> suoi;
    for (const lettura::Sostituto& uno : file.sostituti()) suoi.insert(uno.codiceFiscale);
    return suoi;
  };
  if (codici(*vecchio_) != codici(*nuovo_)) {
    testo = "I due file non sono dello stesso sostituto: il vecchio è di " + dettiSostituti(*vecchio_) +
            ", il nuovo di " + dettiSostituti(*nuovo_) + ".";
  }
  if (vecchio_->anno() != nuovo_->anno()) {
    testo +=
        (testo.empty() ? "" : " ") + ("I due file non sono dello stesso anno: il vecchio è del " +
                                      dettoAnno(*vecchio_) + ", il nuovo del " + dettoAnno(*nuovo_) + ".");
  }
  return testo;
}

std::string Confronto::estraneoAiConti(Connection& connessione, std::int32_t azienda) const {
  const std::string codice = riscontro::codiceFiscaleAzienda(connessione, azienda);
  const std::vector<lettura::Sostituto>& suoi = vecchio_->sostituti();
  const bool suo = std::any_of(suoi.begin(), suoi.end(),
                               [&](const lettura::Sostituto& uno) { return uno.codiceFiscale == codice; });
  std::string testo;
  if (!suo) {
    testo = "Il file è di un'altra azienda (" + dettiSostituti(*vecchio_) +
            "): i conti sono dell'azienda con codice fiscale " + codice + ".";
  }
  Recordset anni;
  anni.Open(connessione, fornitura::fnOrigineAnni(azienda, false));
  bool conConti = false;
  for (; !anni.Eof(); anni.MoveNext()) conConti = conConti || anni.Get(0).integer() == *vecchio_->anno();
  if (!conConti) {
    testo +=
        (testo.empty() ? "" : " ") + ("Il file è di un altro anno: nei conti dell'azienda non c'è nessun "
                                      "compenso del " +
                                      dettoAnno(*vecchio_) + ".");
  }
  return testo;
}

void Confronto::aggiungi(const Coppia& coppia) {
  const lettura::Certificato& certificato = coppia.uno();
  RigaConfronto riga{certificato.percipiente,
                     certificato.nome,
                     certificato.causale(),
                     coppia.esito,
                     std::nullopt,
                     std::nullopt,
                     std::nullopt,
                     coppia.caselle};
  if (coppia.vecchio != nullptr) riga.vecchio = vecchio_->certificatoDi(coppia.vecchio->riga);
  if (coppia.nuovo != nullptr && nuovo_) riga.nuovo = nuovo_->certificatoDi(coppia.nuovo->riga);
  if (coppia.vecchio == nullptr && !nuovo_) riga.conto = certificato;
  ++quante_.at(static_cast<std::size_t>(coppia.esito));
  righe_.push_back(std::move(riga));
}

std::vector<CasellaConfrontata> Confronto::caselle(std::size_t quale) const {
  const RigaConfronto& riga = righe_.at(quale);
  if (testateDiverse_ && quale == 0) {
    std::vector<CasellaConfrontata> campi;
    for (const lettura::CasellaDiversa& una : riga.caselle)
      campi.push_back({0, una.campo, {}, una.vecchio, una.nuovo, true});
    return campi;
  }
  const std::int32_t anno = vecchio_->anno().value_or(nuovo_ ? nuovo_->anno().value_or(0) : 0);
  const modello::Modello& modello = vecchio_->modello();
  if (riga.esito == EsitoConfronto::SoloNuovo) {
    return tutte(riga.conto ? *riga.conto : nuovo_->rileggi(riga.nuovo.value()), false, true, anno, modello);
  }
  const bool anche = riga.esito != EsitoConfronto::SoloVecchio;
  std::vector<CasellaConfrontata> caselle =
      tutte(vecchio_->rileggi(riga.vecchio.value()), true, anche, anno, modello);
  for (const lettura::CasellaDiversa& diversa : riga.caselle) {
    const int modulo = diRecordD(diversa.campo) ? 0 : diversa.modulo;
    auto trovata = std::find_if(caselle.begin(), caselle.end(), [&](const CasellaConfrontata& una) {
      return una.codice == diversa.campo && una.modulo == modulo;
    });
    if (trovata == caselle.end()) {
      caselle.push_back({modulo, diversa.campo, nomeCasella(diversa.campo, anno, modello), {}, {}, false});
      trovata = caselle.end() - 1;
    }
    trovata->vecchio = diversa.vecchio;
    trovata->nuovo = diversa.nuovo;
    trovata->diversa = true;
  }
  std::stable_sort(caselle.begin(), caselle.end(),
                   [](const CasellaConfrontata& a, const CasellaConfrontata& b) {
                     return std::tie(a.modulo, a.codice) < std::tie(b.modulo, b.codice);
                   });
  return caselle;
}

std::string detto(EsitoConfronto esito, bool conConti) {
  switch (esito) {
    case EsitoConfronto::Uguale:
      break;
    case EsitoConfronto::Diverso:
      return conConti ? "≠ diversa" : "≠ cambiata";
    case EsitoConfronto::SoloVecchio:
      return conConti ? "− manca nei conti" : "− solo nel vecchio";
    case EsitoConfronto::SoloNuovo:
      return conConti ? "+ manca nel file" : "+ solo nel nuovo";
  }
  return "= uguale";
}

}  // namespace cu::strumenti

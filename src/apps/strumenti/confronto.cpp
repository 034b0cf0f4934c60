#include "apps/strumenti/confronto.h"

#include <algorithm>
#include <tuple>

#include "apps/comune/connessioni.h"
#include "apps/comune/file_letto.h"
#include "apps/comune/terminale.h"
#include "apps/strumenti/modulo_disegnato.h"
#include "suite/utilita.h"

namespace cu::strumenti {
namespace {

constexpr std::string_view kFirma = "DA003";

bool diRecordD(const std::string& codice) { return codice.starts_with("DA"); }

std::vector<CasellaConfrontata> tutte(lettura::Certificato certificato, bool vecchio, bool nuovo,
                                      std::int32_t anno) {
  // Modules are compared by their places, whatever numbers the file gives them.
  int posto = 0;
  for (lettura::Modulo& modulo : certificato.moduli) modulo.numero = ++posto;
  std::vector<CasellaConfrontata> caselle;
  for (const CasellaMostrata& una : caselleDi(certificato, anno)) {
    if (una.codice.starts_with(kFirma)) continue;
    caselle.push_back({una.modulo, una.codice, una.nome, vecchio ? una.testo : std::string(),
                       nuovo ? una.testo : std::string(), false});
  }
  return caselle;
}

}  // namespace

Confronto Confronto::diFile(const std::string& vecchio, const std::string& nuovo,
                            const FileEsaminato::Avanza& avanza) {
  Confronto confronto;
  confronto.vecchio_ = FileEsaminato::leggi(vecchio, avanza);
  confronto.nuovo_ = FileEsaminato::leggi(nuovo, avanza);
  FileLetto prima(vecchio);
  FileLetto dopo(nuovo);
  confrontaFile(prima, dopo, [&](const Coppia& coppia) {
    avanza(0, 0);
    confronto.aggiungi(coppia);
  });
  return confronto;
}

Confronto Confronto::conConti(const std::string& file, const Profilo& profilo,
                              const FileEsaminato::Avanza& avanza) {
  Confronto confronto;
  confronto.vecchio_ = FileEsaminato::leggi(file, avanza);
  FileLetto letto(file);
  const auto connessione = apriConnessione(profilo.database);
  Terminale terminale;
  const UtilitaItaliana utilita(terminale, profilo.documenti);
  const bool conAnno =
      confrontaConConti(letto, *connessione, profilo.sessione.azienda, utilita, [&](const Coppia& coppia) {
        avanza(0, 0);
        confronto.aggiungi(coppia);
      }).has_value();
  if (!conAnno) {
    throw Error(kErrorInvalidCall,
                "Il file non dice di quale anno è: non si può confrontare con i conti di un anno.");
  }
  return confronto;
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
  const std::int32_t anno = vecchio_->anno().value_or(nuovo_ ? nuovo_->anno().value_or(0) : 0);
  if (riga.esito == EsitoConfronto::SoloNuovo) {
    return tutte(riga.conto ? *riga.conto : nuovo_->rileggi(riga.nuovo.value()), false, true, anno);
  }
  const bool anche = riga.esito != EsitoConfronto::SoloVecchio;
  std::vector<CasellaConfrontata> caselle = tutte(vecchio_->rileggi(riga.vecchio.value()), true, anche, anno);
  for (const lettura::CasellaDiversa& diversa : riga.caselle) {
    const int modulo = diRecordD(diversa.campo) ? 0 : diversa.modulo;
    auto trovata = std::find_if(caselle.begin(), caselle.end(), [&](const CasellaConfrontata& una) {
      return una.codice == diversa.campo && una.modulo == modulo;
    });
    if (trovata == caselle.end()) {
      caselle.push_back({modulo, diversa.campo, nomeCasella(diversa.campo, anno), {}, {}, false});
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

#include "apps/esame/confronti.h"

#include <optional>

#include "riscontro/conti.h"

namespace cu {
namespace {

using lettura::Certificato;

// The certificates of one side, in memory: the other side comes in its own order.
class DiUnLato : public lettura::Ascoltatore {
 public:
  void fornitura(const lettura::Fornitura& fornitura) override { anno = fornitura.annoFiscale; }
  void certificato(const Certificato& certificato) override { certificati.aggiungi(certificato); }

  std::optional<std::int32_t> anno;
  lettura::Accostamento certificati;
};

void accosta(lettura::Accostamento& vecchi, const Certificato& nuovo, bool annullamentiSoloD,
             const RiceviCoppia& ricevi) {
  const auto vecchio = vecchi.togli(nuovo);
  if (!vecchio) {
    ricevi({nullptr, &nuovo, EsitoConfronto::SoloNuovo, {}});
    return;
  }
  Coppia coppia{&*vecchio, &nuovo, EsitoConfronto::Uguale, {}};
  coppia.caselle = lettura::diverse(*vecchio, nuovo, annullamentiSoloD && vecchio->operazione == "A");
  if (!coppia.caselle.empty()) coppia.esito = EsitoConfronto::Diverso;
  ricevi(coppia);
}

void rimasti(const lettura::Accostamento& vecchi, const RiceviCoppia& ricevi) {
  vecchi.rimasti([&](const Certificato& vecchio) {
    ricevi({&vecchio, nullptr, EsitoConfronto::SoloVecchio, {}});
  });
}

class DellAltro : public lettura::Ascoltatore {
 public:
  DellAltro(lettura::Accostamento& vecchi, const RiceviCoppia& ricevi) : vecchi_(vecchi), ricevi_(ricevi) {}
  void certificato(const Certificato& nuovo) override { accosta(vecchi_, nuovo, false, ricevi_); }

 private:
  lettura::Accostamento& vecchi_;
  const RiceviCoppia& ricevi_;
};

}  // namespace

void confrontaFile(lettura::Sorgente& vecchio, lettura::Sorgente& nuovo, const RiceviCoppia& ricevi) {
  DiUnLato vecchi;
  static_cast<void>(lettura::esamina(vecchio, nullptr, &vecchi));
  DellAltro nuovi(vecchi.certificati, ricevi);
  static_cast<void>(lettura::esamina(nuovo, nullptr, &nuovi));
  rimasti(vecchi.certificati, ricevi);
}

std::optional<std::size_t> confrontaConConti(lettura::Sorgente& file, Connection& connessione,
                                             std::int32_t idAzienda, const Conversioni& utilita,
                                             const RiceviCoppia& ricevi) {
  DiUnLato delFile;
  const std::size_t errori = lettura::esamina(file, nullptr, &delFile).rilievi.errori();
  if (!delFile.anno) return std::nullopt;
  riscontro::leggiConti(connessione, {idAzienda, *delFile.anno}, utilita, [&](const riscontro::Conto& conto) {
    accosta(delFile.certificati, conto.certificato, true, ricevi);
  });
  rimasti(delFile.certificati, ricevi);
  return errori;
}

}  // namespace cu

#include "apps/esame/confronti.h"

#include "apps/comune/modello_del_profilo.h"

namespace cu {
namespace {

using lettura::Certificato;

// The certificates of one side, in memory: the other side comes in its own order.
class DiUnLato : public lettura::Ascoltatore {
 public:
  void certificato(const Certificato& certificato) override { certificati.aggiungi(certificato); }
  lettura::Accostamento certificati;
};

class DellAltro : public lettura::Ascoltatore {
 public:
  DellAltro(lettura::Accostamento& vecchi, const RiceviCoppia& ricevi) : vecchi_(vecchi), ricevi_(ricevi) {}
  void certificato(const Certificato& nuovo) override {
    const auto vecchio = vecchi_.togli(nuovo);
    if (!vecchio) {
      ricevi_({nullptr, &nuovo, EsitoConfronto::SoloNuovo, {}});
      return;
    }
    Coppia coppia{&*vecchio, &nuovo, EsitoConfronto::Uguale, lettura::diverse(*vecchio, nuovo)};
    if (!coppia.caselle.empty()) coppia.esito = EsitoConfronto::Diverso;
    ricevi_(coppia);
  }

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
  vecchi.certificati.rimasti([&](const Certificato& rimasto) {
    ricevi({&rimasto, nullptr, EsitoConfronto::SoloVecchio, {}});
  });
}

std::optional<riscontro::EsitoVerifica> confrontaConConti(lettura::Sorgente& file, Connection& connessione,
                                                          const Profilo& profilo, const Conversioni& utilita,
                                                          const RiceviCoppia& ricevi) {
  riscontro::ContiDelDatabase conti(connessione, profilo.sessione.azienda, utilita, modelloDi(profilo));
  return riscontro::verifica(file, conti, ricevi);
}

}  // namespace cu

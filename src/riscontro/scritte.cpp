#include "riscontro/scritte.h"

#include <map>
#include <string>
#include <utility>

namespace cu::riscontro {
namespace {

// A payee may have a reason twice: the second one is counted apart.
class Numerate {
 public:
  std::string chiave(const lettura::Certificato& certificato) {
    std::string sua = certificato.percipiente + "\n" + certificato.causale() + "\n";
    sua += std::to_string(++volte_[sua]);
    return sua;
  }
  void daCapo() { volte_.clear(); }

 private:
  std::map<std::string, int> volte_;
};

// What has happened to a certificate, in the order in which its files were written.
struct Vicenda {
  bool inviata = false;
  bool presso = false;
  Stato ultimo = Stato::Scritta;

  void segue(Stato stato) {
    inviata = inviata || stato != Stato::Scritta;
    presso = presso || stato == Stato::Inviata || stato == Stato::Accettata;
    ultimo = stato;
  }
};

}  // namespace

Scritte scritte(Registro& registro, const Esercizio& esercizio, const Conversioni& utilita) {
  std::map<std::string, Vicenda> registrate;
  Numerate delFile;
  std::int64_t invio = 0;
  for (const Registrata& una : registro.certificate(esercizio.idAzienda, esercizio.anno, false)) {
    if (std::exchange(invio, una.idInvio) != una.idInvio) delFile.daCapo();
    if (!una.ordinaria()) continue;
    registrate[delFile.chiave(una.certificato)].segue(una.stato);
  }
  Scritte somma;
  Numerate deiConti;
  leggiConti(registro.connessione(), esercizio, utilita, [&](const Conto& conto) {
    ++somma.conti;
    const auto trovata = registrate.find(deiConti.chiave(conto.certificato));
    if (trovata == registrate.end()) return;
    ++somma.scritte;
    const Vicenda& sua = trovata->second;
    if (sua.inviata) ++somma.inviate;
    if (sua.presso) ++somma.presso;
    if (sua.ultimo == Stato::Scartata) ++somma.scartate;
  });
  return somma;
}

}  // namespace cu::riscontro

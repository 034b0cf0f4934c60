#include "riscontro/stato.h"

#include <algorithm>
#include <array>
#include <map>
#include <utility>

namespace cu::riscontro {
namespace {

// What is on record of one certificate, in the order in which it was written.
struct Storia {
  std::vector<Registrata> voci;
  bool usata = false;

  const Registrata* accettata() const {
    const auto trovata = std::find_if(voci.rbegin(), voci.rend(), [](const Registrata& r) {
      return r.stato == Stato::Accettata && r.certificato.operazione != "A";
    });
    return trovata == voci.rend() ? nullptr : &*trovata;
  }
  // What has no answer yet: a file that was sent, or a correction of what is accepted that was written. What
  // came before the acceptance is answered by it.
  const Registrata* inAttesa() const {
    const Registrata* const prima = accettata();
    const auto trovata = std::find_if(voci.rbegin(), voci.rend(), [prima](const Registrata& r) {
      if (prima != nullptr && r.id < prima->id) return false;
      const bool diQuella = prima != nullptr && r.certificato.protocollo == prima->protocollo &&
                            r.certificato.progressivo == prima->progressivo;
      return r.stato == Stato::Inviata || (r.stato == Stato::Scritta && !r.ordinaria() && diQuella);
    });
    return trovata == voci.rend() ? nullptr : &*trovata;
  }
  // The last rejection, as long as nothing was accepted after it.
  const Registrata* scartata() const {
    const auto risposta = std::find_if(voci.rbegin(), voci.rend(), [](const Registrata& r) {
      return r.stato == Stato::Scartata || r.stato == Stato::Accettata;
    });
    return risposta != voci.rend() && risposta->stato == Stato::Scartata ? &*risposta : nullptr;
  }
  // The last thing that happened. An ordinary certificate that was only written again changes nothing, unless
  // it is the new one of a rejected one.
  const Registrata* mostrata() const {
    if (const Registrata* const attesa = inAttesa()) return attesa;
    if (accettata() == nullptr && !voci.empty()) return &voci.back();
    const auto risposta = std::find_if(voci.rbegin(), voci.rend(),
                                       [](const Registrata& r) { return r.stato != Stato::Scritta; });
    return risposta != voci.rend() ? &*risposta : voci.empty() ? nullptr : &voci.back();
  }
};

// The stories of a year. A correction belongs to what it refers to; an ordinary certificate to those of its
// payee and reason, the how many-th with these in its file.
class Storie {
 public:
  Storie(Registro& registro, const Esercizio& esercizio) {
    std::int64_t invio = 0;
    std::map<std::string, std::size_t> volte;
    for (Registrata& r : registro.certificate(esercizio.idAzienda, esercizio.anno, true)) {
      if (std::exchange(invio, r.idInvio) != r.idInvio) volte.clear();
      const std::string sua = chiave(r.certificato);
      const std::size_t volta = volte[sua]++;
      std::optional<std::size_t> quale = riferita(r);
      if (!quale && !r.ordinaria() && r.certificato.causale().empty()) continue;  // of no known certificate
      if (!quale) quale = diChiave(sua, volta);
      if (!r.protocollo.empty()) perRiferimento_[riferimento(r.protocollo, r.progressivo)] = *quale;
      storie_[*quale].voci.push_back(std::move(r));
    }
  }

  // The story of an account: of several the one that agrees with it, else the first; null without one.
  Storia* di(const lettura::Certificato& conto, bool soloUguale) {
    const auto trovate = perChiave_.find(chiave(conto));
    if (trovate == perChiave_.end()) return nullptr;
    for (const std::size_t i : trovate->second) {
      Storia& storia = storie_[i];
      if (storia.usata) continue;
      const Registrata* const accettata = storia.accettata();
      const bool uguale = accettata != nullptr && lettura::diverse(accettata->certificato, conto).empty();
      if (soloUguale && !uguale) continue;
      storia.usata = true;
      return &storia;
    }
    return nullptr;
  }
  const std::vector<Storia>& tutte() const { return storie_; }

 private:
  static std::string chiave(const lettura::Certificato& c) { return c.percipiente + "\n" + c.causale(); }
  static std::string riferimento(const std::string& protocollo, const std::string& progressivo) {
    return protocollo + "/" + progressivo;
  }
  std::optional<std::size_t> riferita(const Registrata& r) const {
    if (r.ordinaria()) return std::nullopt;
    const auto trovata =
        perRiferimento_.find(riferimento(r.certificato.protocollo, r.certificato.progressivo));
    return trovata == perRiferimento_.end() ? std::nullopt : std::optional(trovata->second);
  }
  std::size_t diChiave(const std::string& chiave, std::size_t volta) {
    std::vector<std::size_t>& sue = perChiave_[chiave];
    while (sue.size() <= volta) {
      sue.push_back(storie_.size());
      storie_.emplace_back();
    }
    return sue[volta];
  }

  std::vector<Storia> storie_;
  std::map<std::string, std::vector<std::size_t>> perChiave_;
  std::map<std::string, std::size_t> perRiferimento_;
};

VoceStato voceDi(const lettura::Certificato& certificato, const Storia* storia) {
  VoceStato voce;
  voce.percipiente = certificato.percipiente;
  voce.nome = certificato.nome;
  voce.causale = certificato.causale();
  if (storia == nullptr) return voce;
  if (const Registrata* const mostrata = storia->mostrata()) voce.stato = nome(mostrata->stato);
  if (const Registrata* const scartata = storia->scartata()) voce.motivo = scartata->motivo;
  if (const Registrata* const accettata = storia->accettata()) voce.accettata = *accettata;
  return voce;
}

VoceStato delConto(Conto conto, const Storia* storia) {
  VoceStato voce = voceDi(conto.certificato, storia);
  if (voce.accettata) voce.caselle = lettura::diverse(voce.accettata->certificato, conto.certificato);
  if (storia != nullptr && storia->inAttesa() != nullptr) {
    voce.operazione = Operazione::Attesa;
  } else if (!voce.accettata) {
    voce.operazione = Operazione::Nuova;
  } else {
    voce.operazione = voce.caselle.empty() ? Operazione::Nessuna : Operazione::Sostituzione;
  }
  voce.conto = std::move(conto);
  return voce;
}

}  // namespace

std::string_view nome(Operazione operazione) {
  constexpr std::array<std::string_view, 5> kNomi = {"nuova", "sostituzione", "annullamento", "nessuna",
                                                     "attesa"};
  return kNomi.at(static_cast<std::size_t>(operazione));
}

std::vector<VoceStato> statoEsercizio(Registro& registro, const Esercizio& esercizio,
                                      const Conversioni& utilita,
                                      const std::function<void(std::size_t conti)>& letti) {
  Storie storie(registro, esercizio);
  std::vector<Conto> conti;
  leggiConti(registro.connessione(), esercizio, utilita, [&](Conto conto) {
    conti.push_back(std::move(conto));
    if (letti) letti(conti.size());
  });
  std::vector<const Storia*> loro(conti.size(), nullptr);
  for (const bool soloUguale : {true, false}) {
    for (std::size_t i = 0; i < conti.size(); ++i) {
      if (loro[i] == nullptr) loro[i] = storie.di(conti[i].certificato, soloUguale);
    }
  }
  std::vector<VoceStato> voci;
  for (std::size_t i = 0; i < conti.size(); ++i) voci.push_back(delConto(std::move(conti[i]), loro[i]));
  for (const Storia& storia : storie.tutte()) {
    if (storia.usata) continue;
    const Registrata* const accettata = storia.accettata();
    const Registrata* const attesa = storia.inAttesa();
    if (accettata == nullptr && attesa == nullptr) continue;
    VoceStato voce = voceDi((accettata != nullptr ? accettata : attesa)->certificato, &storia);
    voce.operazione = attesa != nullptr ? Operazione::Attesa : Operazione::Annullamento;
    voci.push_back(std::move(voce));
  }
  return voci;
}

}  // namespace cu::riscontro

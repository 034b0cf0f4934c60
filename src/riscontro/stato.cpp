#include "riscontro/stato.h"

#include <array>
#include <map>
#include <utility>

#include "base/text.h"

namespace cu::riscontro {
namespace {

// What is on record of one certificate: of payee and reason, and of the how many-th with these in its file.
struct Storia {
  std::optional<Registrata> accettata;
  std::optional<Registrata> ultima;
};

using Storie = std::map<std::string, Storia>;

std::string chiave(const lettura::Certificato& certificato, int volta) {
  return certificato.percipiente + "\n" + certificato.causale() + "\n" + fromInteger(volta);
}

Storie leggiStorie(Registro& registro, const Esercizio& esercizio) {
  Storie storie;
  std::map<std::string, int> volte;
  std::int64_t invio = 0;
  for (Registrata& registrata : registro.certificate(esercizio.idAzienda, esercizio.anno, true)) {
    if (std::exchange(invio, registrata.idInvio) != registrata.idInvio) volte.clear();
    const int volta = ++volte[chiave(registrata.certificato, 0)];
    Storia& storia = storie[chiave(registrata.certificato, volta)];
    if (registrata.stato == Stato::Accettata && registrata.certificato.operazione != "A") {
      storia.accettata = registrata;
    }
    storia.ultima = std::move(registrata);
  }
  return storie;
}

// A correction that was written waits for its answer; an ordinary certificate only once it was sent.
bool inAttesa(const Storia& storia) {
  if (!storia.ultima) return false;
  const Registrata& ultima = *storia.ultima;
  return ultima.stato == Stato::Inviata || (ultima.stato == Stato::Scritta && !ultima.ordinaria());
}

std::string statoDi(const Storia& storia) {
  if (!storia.ultima) return {};
  const bool soloRiscritta = storia.ultima->stato == Stato::Scritta && storia.ultima->ordinaria();
  const Registrata& mostrata = soloRiscritta && storia.accettata ? *storia.accettata : *storia.ultima;
  return std::string(nome(mostrata.stato));
}

VoceStato voceDi(const lettura::Certificato& certificato, const Storia& storia) {
  VoceStato voce;
  voce.percipiente = certificato.percipiente;
  voce.nome = certificato.nome;
  voce.causale = certificato.causale();
  voce.stato = statoDi(storia);
  if (storia.ultima && storia.ultima->stato == Stato::Scartata) voce.motivo = storia.ultima->motivo;
  voce.accettata = storia.accettata;
  return voce;
}

VoceStato delConto(Conto conto, const Storia& storia) {
  VoceStato voce = voceDi(conto.certificato, storia);
  if (storia.accettata) voce.caselle = lettura::diverse(storia.accettata->certificato, conto.certificato);
  if (inAttesa(storia)) {
    voce.operazione = Operazione::Attesa;
  } else if (!storia.accettata) {
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
                                      const Conversioni& utilita) {
  Storie storie = leggiStorie(registro, esercizio);
  std::vector<VoceStato> voci;
  std::map<std::string, int> volte;
  leggiConti(registro.connessione(), esercizio, utilita, [&](Conto conto) {
    const int volta = ++volte[chiave(conto.certificato, 0)];
    const auto sua = storie.extract(chiave(conto.certificato, volta));
    voci.push_back(delConto(std::move(conto), sua.empty() ? Storia() : sua.mapped()));
  });
  for (const auto& [_, storia] : storie) {
    const bool attesa = inAttesa(storia);
    if (!storia.accettata && !attesa) continue;
    VoceStato voce =
        voceDi(storia.accettata ? storia.accettata->certificato : storia.ultima->certificato, storia);
    voce.operazione = attesa ? Operazione::Attesa : Operazione::Annullamento;
    voci.push_back(std::move(voce));
  }
  return voci;
}

}  // namespace cu::riscontro

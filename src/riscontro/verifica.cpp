#include "riscontro/verifica.h"

#include <algorithm>
#include <unordered_map>

#include "base/text.h"
#include "base/windows1252.h"
#include "lettura/testate.h"
#include "lettura/valori.h"
#include "riscontro/registro.h"

namespace cu::riscontro {
namespace {

using lettura::CasellaDiversa;
using lettura::Certificato;
using lettura::Coppia;
using lettura::EsitoConfronto;

constexpr lettura::Tratto kNumero = lettura::tratto(modello::kTipoD, "Progressivo Certificazione");
constexpr lettura::Tratto kOperazione = lettura::tratto(modello::kTipoD, "Tipo op.: ann./sost.");
constexpr lettura::Tratto kConferma = lettura::tratto(modello::kTipoD, "Flag conferma Singola Certif.");
constexpr std::string_view kSpazioUtente = "Spazio a disp. utente";
constexpr lettura::Tratto kSpazioInD = lettura::tratto(modello::kTipoD, kSpazioUtente);
constexpr lettura::Tratto kSpazioInH = lettura::tratto(modello::kTipoH, kSpazioUtente);

// What a file holds, in memory: the accounts come in their own order. Of the heads only what differs is kept.
class FileDaVerificare : public lettura::Ascoltatore {
 public:
  struct Agente {
    std::string recordB;
    Contenuto contenuto;
    std::int64_t ultimo = 0;  // number of a certificate
  };

  void fornitura(const lettura::Fornitura& fornitura) override { anno = fornitura.annoFiscale; }
  void certificato(const Certificato& certificato) override { certificati.aggiungi(certificato); }
  void record(char tipo, std::int64_t riga, std::string_view testo) override {
    if (tipo == 'A' && recordA.empty()) recordA = testo;
    if (tipo == 'B') agenti.push_back({std::string(testo), {}, 0});
    if (tipo == 'D') testataD(riga, testo);
    if (tipo == 'H') testataH(testo);
  }
  std::vector<CasellaDiversa> testate(std::int64_t riga) {
    const auto trovate = testate_.find(riga);
    return trovate == testate_.end() ? std::vector<CasellaDiversa>() : trovate->second;
  }

  std::optional<std::int32_t> anno;
  std::string recordA;
  std::vector<Agente> agenti;
  lettura::Accostamento certificati;

 private:
  Agente& agente() {
    if (agenti.empty()) agenti.emplace_back();
    return agenti.back();
  }

  void testataD(std::int64_t riga, std::string_view testo) {
    certificato_ = riga;
    modulo_ = 0;
    Agente& suo = agente();
    const auto ordine = static_cast<std::int64_t>(++suo.contenuto.certificazioni);
    const std::int64_t numero = lettura::numero(lettura::leggi(testo, kNumero));
    // After a gap the numbers may go on from it.
    if (numero != ordine && numero != suo.ultimo + 1) {
      metti("D Progressivo Certificazione", lettura::leggi(testo, kNumero), fromInteger(ordine));
    }
    suo.ultimo = numero;
    const char operazione = lettura::leggi(testo, kOperazione).front();
    if (operazione == 'A') suo.contenuto.annullamenti = true;
    if (operazione == 'S') suo.contenuto.sostituzioni = true;
    campo("D Spazio a disp. utente", lettura::leggi(testo, kSpazioInD), "");
    campo("D Flag conferma Singola Certif.", lettura::leggi(testo, kConferma), "0");
  }
  void testataH(std::string_view testo) {
    ++modulo_;
    campo("H Spazio a disp. utente", lettura::leggi(testo, kSpazioInH), "");
  }
  void campo(const char* nome, std::string_view valore, std::string_view atteso) {
    if (trimRight(valore) != atteso) metti(nome, valore, atteso);
  }
  void metti(const char* nome, std::string_view valore, std::string_view atteso) {
    testate_[certificato_].push_back(
        {std::max(modulo_, 1), nome, da1252(trimRight(valore)), std::string(atteso)});
  }

  std::int64_t certificato_ = 0;  // line of its record D
  int modulo_ = 0;
  std::unordered_map<std::int64_t, std::vector<CasellaDiversa>> testate_;
};

std::string conZeri(const std::string& cifre, std::size_t quante) {
  return cifre.size() >= quante ? cifre : std::string(quante - cifre.size(), '0') + cifre;
}

class Verifica {
 public:
  Verifica(FileDaVerificare& file, ContiAttesi& attesi, const lettura::RiceviCoppia& ricevi)
      : file_(file), attesi_(attesi), ricevi_(ricevi) {}

  void accosta(const Conto& conto) {
    const auto vecchio = file_.certificati.togli(conto.certificato);
    if (!vecchio) {
      ricevi_({nullptr, &conto.certificato, EsitoConfronto::SoloNuovo, {}});
      return;
    }
    Coppia coppia{&*vecchio, &conto.certificato, EsitoConfronto::Uguale, file_.testate(vecchio->riga)};
    riferimenti(*vecchio, conto, coppia.caselle);
    for (CasellaDiversa& diversa :
         lettura::diverse(*vecchio, conto.certificato, vecchio->operazione == "A")) {
      coppia.caselle.push_back(std::move(diversa));
    }
    if (!coppia.caselle.empty()) coppia.esito = EsitoConfronto::Diverso;
    ricevi_(coppia);
  }

  void rimasti() {
    file_.certificati.rimasti([&](const Certificato& vecchio) {
      ricevi_({&vecchio, nullptr, EsitoConfronto::SoloVecchio, {}});
    });
  }

 private:
  // A correction refers to what the account says, or to what was accepted.
  void riferimenti(const Certificato& certificato, const Conto& conto, std::vector<CasellaDiversa>& caselle) {
    constexpr std::size_t kProtocollo = 17;
    constexpr std::size_t kProgressivo = 6;
    if (certificato.operazione.empty()) return;
    std::vector<Riferimento> noti = attesi_.riferimenti(file_.anno.value_or(0), certificato.percipiente);
    if (!conto.protocollo.empty()) noti.insert(noti.begin(), {conto.protocollo, conto.progressivo});
    const auto suo = [&](const Riferimento& noto) {
      return conZeri(noto.first, kProtocollo) == certificato.protocollo &&
             conZeri(noto.second, kProgressivo) == certificato.progressivo;
    };
    if (noti.empty() || std::any_of(noti.begin(), noti.end(), suo)) return;
    const auto& [protocollo, progressivo] = noti.front();
    if (conZeri(protocollo, kProtocollo) != certificato.protocollo) {
      caselle.push_back({1, "D Prot. ass. da Serv. telem.-Id. invio", certificato.protocollo, protocollo});
    }
    if (conZeri(progressivo, kProgressivo) != certificato.progressivo) {
      caselle.push_back(
          {1, "D Progr. ass. da Serv. telem. alla singola CU", certificato.progressivo, progressivo});
    }
  }

  FileDaVerificare& file_;
  ContiAttesi& attesi_;
  const lettura::RiceviCoppia& ricevi_;
};

}  // namespace

Frontespizio ContiDelDatabase::frontespizio(std::int32_t anno) {
  return leggiFrontespizio(connessione_, {idAzienda_, anno, modello_});
}

void ContiDelDatabase::conti(std::int32_t anno, const std::function<void(const Conto&)>& ricevi) {
  leggiConti(connessione_, {idAzienda_, anno, modello_}, utilita_, ricevi);
}

std::vector<Riferimento> ContiDelDatabase::riferimenti(std::int32_t anno, const std::string& percipiente) {
  if (!std::exchange(letti_, true)) {
    Registro registro(connessione_);
    if (registro.presente()) {
      for (const Registrata& r : registro.certificate(idAzienda_, anno, false)) {
        if (r.protocollo.empty()) continue;
        registrati_.push_back({r.certificato.percipiente, {r.protocollo, r.progressivo}});
      }
      std::stable_sort(registrati_.begin(), registrati_.end(),
                       [](const auto& a, const auto& b) { return a.first < b.first; });
    }
  }
  std::vector<Riferimento> suoi;
  auto primo = std::lower_bound(registrati_.begin(), registrati_.end(), percipiente,
                                [](const auto& a, const std::string& b) { return a.first < b; });
  for (; primo != registrati_.end() && primo->first == percipiente; ++primo) suoi.push_back(primo->second);
  return suoi;
}

std::optional<EsitoVerifica> verifica(lettura::Sorgente& file, ContiAttesi& attesi,
                                      const lettura::RiceviCoppia& ricevi) {
  FileDaVerificare letto;
  EsitoVerifica esito;
  esito.errori = lettura::esamina(file, nullptr, &letto).rilievi.errori();
  if (!letto.anno) return std::nullopt;
  const Frontespizio frontespizio = attesi.frontespizio(*letto.anno);
  for (const FileDaVerificare::Agente& agente : letto.agenti) {
    if (agente.recordB.empty()) continue;
    for (CasellaDiversa& diversa : frontespizio.diverse(letto.recordA, agente.recordB, agente.contenuto)) {
      esito.testate.push_back(std::move(diversa));
    }
  }
  Verifica verifica(letto, attesi, ricevi);
  attesi.conti(*letto.anno, [&](const Conto& conto) { verifica.accosta(conto); });
  verifica.rimasti();
  return esito;
}

}  // namespace cu::riscontro

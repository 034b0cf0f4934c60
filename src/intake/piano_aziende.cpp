#include <map>
#include <string>

#include "base/codice_fiscale.h"
#include "base/text.h"
#include "intake/mancanti.h"
#include "intake/riga_in_corso.h"

namespace cu::intake {
namespace {

// The first year of the form.
constexpr int kPrimoAnnoDelModello = 2014;

template <class C>
constexpr std::uint8_t rangoAzienda(C colonna) {
  return static_cast<std::uint8_t>(colonna);
}

// A name or an office that a row of a company changes.
class CampiAzienda {
 public:
  CampiAzienda(RigaInCorso& corso, const ArchivioLetto& archivio, schede::SchedaAzienda& azienda,
               AccantoAzienda& accanto)
      : corso_(corso), archivio_(archivio), azienda_(azienda), accanto_(accanto) {}

  void applica() {
    using enum ColonnaAzienda;
    testo(CodiceFiscale, azienda_.sede.codiceFiscale);
    testo(PartitaIva, azienda_.sede.partitaIva);
    testo(Denominazione, azienda_.sede.anagrafica);
    testo(Nome, azienda_.sede.nome);
    testo(Indirizzo, azienda_.sede.indirizzo);
    testo(Cap, azienda_.sede.cap);
    testo(Telefono, azienda_.sede.telefono);
    testo(Fax, azienda_.sede.fax);
    testo(Email, azienda_.sede.email);
    testo(CodiceAttivita, azienda_.codiceAttivita);
    testo(CodiceFiscaleSocieta, azienda_.codiceFiscaleSocieta);
    testo(IntermediarioCodiceFiscale, azienda_.intermediario);
    codice(RappresentanteCarica, azienda_.idCarica, archivio_.elenchi.cariche);
    codice(EventoEccezionale, azienda_.idEventoEccezionale, archivio_.elenchi.eventi,
           corso_.letta().valore(CodiciPropri).flag() ? &accanto_.evento : nullptr);
    sede();
    rappresentante();
    impegno();
  }

 private:
  void testo(ColonnaAzienda colonna, std::string& valore) {
    const Campo* const campo = corso_.letta().campo(colonna);
    if (campo != nullptr) valore = std::string(campo->valore.text());
  }
  void codice(ColonnaAzienda colonna, std::int32_t& id, const schede::ElencoCodici& elenco,
              std::string* proprio = nullptr) {
    const Campo* const campo = corso_.letta().campo(colonna);
    if (campo == nullptr) return;
    id = 0;
    if (campo->valore.isNull()) return;
    const auto suo = idDelCodice(corso_, rangoAzienda(colonna), campo->valore.text(), elenco, proprio);
    if (suo) id = *suo;
  }
  void sede() {
    schede::SchedaAnagrafica& sede = azienda_.sede;
    sede.personaFisica = formaCodice(sede.codiceFiscale) == FormaCodice::Persona || !sede.nome.empty();
    const Campo* const comune = corso_.letta().campo(ColonnaAzienda::Comune);
    if (comune == nullptr) return;
    sede.idComune = 0;
    if (comune->valore.isNull()) return;
    const auto suo = idDelComune(corso_, rangoAzienda(ColonnaAzienda::Comune), comune->valore.text(),
                                 corso_.letta().valore(ColonnaAzienda::Provincia).text(), archivio_.luoghi);
    if (!suo) return;
    sede.idComune = *suo;
    sede.idNazione = archivio_.luoghi.italia();
  }
  void rappresentante() {
    using enum ColonnaAzienda;
    schede::SchedaAnagrafica& r = azienda_.rappresentante;
    const Campo* const codice = corso_.letta().campo(RappresentanteCodiceFiscale);
    // Another fiscal code is another person, whose name is a new one.
    if (codice != nullptr && r.id != 0 && !r.codiceFiscale.empty() &&
        !equalsNoCase(r.codiceFiscale, codice->valore.text())) {
      r = schede::SchedaAnagrafica{};
    }
    testo(RappresentanteCodiceFiscale, r.codiceFiscale);
    testo(RappresentanteCognome, r.anagrafica);
    testo(RappresentanteNome, r.nome);
    if (!r.anagrafica.empty()) r.personaFisica = true;
  }
  void impegno() {
    using enum ColonnaAzienda;
    if (const Campo* const campo = corso_.letta().campo(Impegno)) {
      azienda_.impegno = static_cast<std::int32_t>(leadingInteger(campo->valore.text()));
    }
    if (const Campo* const campo = corso_.letta().campo(DataImpegno))
      azienda_.dataImpegno = campo->valore.date();
  }

  RigaInCorso& corso_;
  const ArchivioLetto& archivio_;
  schede::SchedaAzienda& azienda_;
  AccantoAzienda& accanto_;
};

std::string differenzeAzienda(const schede::SchedaAzienda& prima, const schede::SchedaAzienda& dopo) {
  std::string testo;
  const auto se = [&](bool diverso, const char* cosa) {
    if (!diverso) return;
    if (!testo.empty()) testo += ", ";
    testo += cosa;
  };
  se(prima.sede.codiceFiscale != dopo.sede.codiceFiscale, "codice fiscale");
  se(prima.sede.partitaIva != dopo.sede.partitaIva, "partita IVA");
  se(prima.sede.anagrafica != dopo.sede.anagrafica || prima.sede.nome != dopo.sede.nome, "denominazione");
  se(prima.sede.indirizzo != dopo.sede.indirizzo || prima.sede.cap != dopo.sede.cap ||
         prima.sede.idComune != dopo.sede.idComune,
     "sede");
  se(!(prima.rappresentante == dopo.rappresentante) || prima.idCarica != dopo.idCarica, "rappresentante");
  if (testo.empty()) testo = "altri dati";
  return testo;
}

class PianoAziende {
 public:
  PianoAziende(Piano& piano, const ArchivioLetto& archivio) : piano_(piano), archivio_(archivio) {}

  void riga(RigaPiano& riga) {
    RigaInCorso corso(piano_, riga);
    if (!daPianificare(corso)) return;
    const schede::SchedaAzienda* trovata = nullptr;
    if (!cerca(corso, trovata)) {
      riga.stato = corso.stato(StatoRiga::Errore);
      return;
    }
    schede::SchedaAzienda dopo = trovata == nullptr ? nuova() : *trovata;
    AccantoAzienda accanto;
    CampiAzienda(corso, archivio_, dopo, accanto).applica();
    rappresentante(corso, dopo, trovata == nullptr);
    mancanti(corso, dopo);
    riga.voce = piano_.aziende.size();
    if (trovata == nullptr) {
      riga.stato = corso.stato(StatoRiga::Nuovo);
    } else if (dopo == *trovata && accanto.evento.empty()) {
      corso.uguale();
    } else {
      corso.diverso(differenzeAzienda(*trovata, dopo));
    }
    piano_.aziende.push_back({trovata == nullptr ? std::nullopt : std::optional(*trovata), std::move(dopo),
                              static_cast<std::size_t>(&riga - piano_.righe.data())});
    piano_.accantoAziende.push_back(std::move(accanto));
  }

 private:
  schede::SchedaAzienda nuova() const {
    schede::SchedaAzienda azienda;
    azienda.primoAnno = kPrimoAnnoDelModello;
    azienda.ultimoAnno = std::max(kPrimoAnnoDelModello, piano_.richiesta.oggi.year());
    return azienda;
  }

  // Finds the company of the row; false where its codes contradict each other or an earlier row.
  bool cerca(RigaInCorso& corso, const schede::SchedaAzienda*& trovata) {
    using enum ColonnaAzienda;
    const std::string_view codice = corso.letta().valore(CodiceFiscale).text();
    const std::string_view iva = corso.letta().valore(PartitaIva).text();
    const auto [prima, sola] = viste_.emplace(lowerAscii(codice), corso.letta().numero);
    if (!sola) {
      corso.segnala(Codice::P10, CodiceFiscale,
                    "l'azienda è già nella riga " + fromInteger(static_cast<std::int64_t>(prima->second)));
      return false;
    }
    const schede::SchedaAzienda* perIva = nullptr;
    for (const schede::SchedaAzienda& azienda : archivio_.aziende) {
      if (!codice.empty() && equalsNoCase(azienda.sede.codiceFiscale, codice)) trovata = &azienda;
      const bool contraddice = !codice.empty() && !azienda.sede.codiceFiscale.empty();
      if (!iva.empty() && azienda.sede.partitaIva == iva && !contraddice) perIva = &azienda;
    }
    if (trovata == nullptr) trovata = perIva;
    if (perIva == nullptr || perIva == trovata) return true;
    corso.segnala(
        Codice::P10, PartitaIva,
        "il codice fiscale è di " + detto(trovata->sede) + ", la partita IVA di " + detto(perIva->sede));
    return false;
  }

  // Required of a new company that is no person. One that is there keeps what the row does not give.
  static void rappresentante(RigaInCorso& corso, const schede::SchedaAzienda& azienda, bool nuova) {
    using enum ColonnaAzienda;
    if (azienda.sede.personaFisica) return;
    const schede::SchedaAnagrafica& r = azienda.rappresentante;
    const auto serve = [&](ColonnaAzienda colonna, bool manca) {
      if (!manca || corso.letta().ha(colonna) || (!nuova && !corso.letta().svuota(colonna))) return;
      corso.segnala(Codice::C01, colonna, "manca il valore, che è obbligatorio");
    };
    serve(RappresentanteCodiceFiscale, r.codiceFiscale.empty());
    serve(RappresentanteCognome, r.anagrafica.empty());
    serve(RappresentanteNome, r.nome.empty());
    serve(RappresentanteCarica, azienda.idCarica == 0);
  }

  void mancanti(RigaInCorso& corso, const schede::SchedaAzienda& azienda) {
    for (const Mancanza mancanza : mancanze(azienda, archivio_.luoghi)) {
      piano_.mancanti.push_back({"", mancanza->numero, std::string(mancanza->messaggio)});
      corso.segnala(Codice::P11, std::string(mancanza->messaggio));
    }
  }

  Piano& piano_;
  const ArchivioLetto& archivio_;
  std::map<std::string, std::size_t> viste_;
};

}  // namespace

void pianificaAziende(Piano& piano, const ArchivioLetto& archivio, ProgressSink* avanzamento) {
  PianoAziende aziende(piano, archivio);
  std::size_t fatte = 0;
  for (RigaPiano& riga : piano.righe) {
    if (avanzamento != nullptr) avanzamento->progress("Aziende", fatte++, piano.righe.size());
    aziende.riga(riga);
  }
}

}  // namespace cu::intake

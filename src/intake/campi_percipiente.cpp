#include "intake/campi_percipiente.h"

#include <algorithm>
#include <string>

#include "base/codice_fiscale.h"
#include "base/text.h"
#include "intake/testo_cella.h"

namespace cu::intake {
namespace {

using schede::SchedaAnagrafica;
using schede::SchedaPercipiente;

constexpr std::uint8_t posto(ColonnaPercipiente colonna) { return static_cast<std::uint8_t>(colonna); }

class CampiPercipiente {
 public:
  CampiPercipiente(RigaInCorso& corso, const ArchivioLetto& archivio, SchedaPercipiente& percipiente,
                   AccantoPercipiente& accanto, bool nuovo)
      : corso_(corso),
        archivio_(archivio),
        p_(percipiente),
        a_(percipiente.anagrafica),
        accanto_(accanto),
        nuovo_(nuovo) {}

  void applica() {
    testi();
    persona();
    codici();
    ente();
    residenza();
    if (a_.personaFisica) nascita();
  }

 private:
  // The field of the row that counts: a derived one only where the record has nothing.
  const Campo* campo(ColonnaPercipiente colonna, bool vuoto) {
    const Campo* const suo = corso_.letta().campo(colonna);
    return suo == nullptr || (suo->derivato && !vuoto) ? nullptr : suo;
  }
  void testo(ColonnaPercipiente colonna, std::string& valore) {
    if (const Campo* const suo = campo(colonna, valore.empty())) valore = std::string(suo->valore.text());
  }

  void testi() {
    using enum ColonnaPercipiente;
    testo(Codice, p_.codice);
    testo(CodiceFiscale, a_.codiceFiscale);
    testo(PartitaIva, a_.partitaIva);
    nome();
    testo(Sesso, a_.sesso);
    testo(Indirizzo, a_.indirizzo);
    testo(Cap, a_.cap);
    testo(Email, a_.email);
    testo(Telefono, a_.telefono);
    testo(Fax, a_.fax);
    testo(CodiceFiscaleEstero, p_.codiceFiscaleEstero);
    testo(CodiceFiscaleRappresentante, p_.codiceFiscaleRappresentante);
    testo(CodiceAziendaENPAM, p_.codiceEnpam);
    testo(CodiceAziendaENPAPI, p_.codiceEnpapi);
  }

  // Surname and name that the file has in one field are derived together.
  void nome() {
    using enum ColonnaPercipiente;
    const Campo* const cognome = corso_.letta().campo(Cognome);
    if (cognome != nullptr && (!cognome->derivato || nuovo_ || insieme() != insiemeDellaRiga())) {
      a_.anagrafica = std::string(cognome->valore.text());
      if (const Campo* const suo = corso_.letta().campo(Nome)) a_.nome = std::string(suo->valore.text());
    } else if (cognome == nullptr) {
      testo(Nome, a_.nome);
    }
  }
  std::string insieme() const { return a_.anagrafica + " " + a_.nome; }
  std::string insiemeDellaRiga() const {
    using enum ColonnaPercipiente;
    return std::string(corso_.letta().valore(Cognome).text()) + " " +
           std::string(corso_.letta().valore(Nome).text());
  }

  void persona() {
    using enum ColonnaPercipiente;
    if (const Campo* const suo = campo(PersonaFisica, nuovo_)) a_.personaFisica = suo->valore.flag();
    if (const Campo* const suo = campo(DataNascita, a_.nascita == Date())) a_.nascita = suo->valore.date();
    if (const Campo* const suo = campo(NonResidente, nuovo_)) p_.nonResidente = suo->valore.flag();
    if (const Campo* const suo = campo(Schumacker, nuovo_)) p_.schumacker = suo->valore.flag();
  }

  void codice(ColonnaPercipiente colonna, std::int32_t& id, const schede::ElencoCodici& elenco,
              std::string& proprio) {
    const Campo* const suo = corso_.letta().campo(colonna);
    if (suo == nullptr) return;
    id = 0;
    if (suo->valore.isNull()) return;
    const bool propri = corso_.letta().valore(ColonnaPercipiente::CodiciPropri).flag();
    const auto trovato =
        idDelCodice(corso_, posto(colonna), suo->valore.text(), elenco, propri ? &proprio : nullptr);
    if (trovato) id = *trovato;
  }
  void codici() {
    using enum ColonnaPercipiente;
    const schede::Elenchi& elenchi = archivio_.elenchi;
    codice(CategoriaParticolare, p_.idCategoriaParticolare, elenchi.categorie, accanto_.categoriaParticolare);
    codice(EventoEccezionale, p_.idEventoEccezionale, elenchi.eventi, accanto_.evento);
  }

  void ente() {
    using enum ColonnaPercipiente;
    const Campo* const suo = corso_.letta().campo(EntePrevidenziale);
    const std::string_view fiscale = corso_.letta().valore(CodiceFiscaleEnte).text();
    const std::string_view numero = corso_.letta().valore(CodiceEnte).text();
    const bool proprio = !fiscale.empty() || !numero.empty();
    if (suo != nullptr) {
      p_.idEnte = 0;
      if (!suo->valore.isNull()) trovaEnte(suo->valore.text(), fiscale, numero);
    }
    const Campo* const categoria = corso_.letta().campo(CategoriaEnte);
    if (categoria == nullptr) return;
    p_.idCategoriaEnte = 0;
    if (categoria->valore.isNull()) return;
    const schede::ElencoCodici& elenco = archivio_.elenchi.categorieEnti;
    // The bodies give these codes: one that comes with a body of its own is added like it.
    if (proprio && elenco.diCodice(categoria->valore.text()) == nullptr) {
      accanto_.categoria = std::string(categoria->valore.text());
    } else if (const auto id = idDelCodice(corso_, posto(CategoriaEnte), categoria->valore.text(), elenco)) {
      p_.idCategoriaEnte = *id;
    }
  }

  void trovaEnte(std::string_view nome, std::string_view fiscale, std::string_view numero) {
    std::vector<const schede::Ente*> trovati;
    for (const schede::Ente& ente : archivio_.elenchi.enti) {
      const bool nominato = lettereDiCodice(ente.nome) == lettereDiCodice(nome) || ente.codiceFiscale == nome;
      if (!nominato || (!fiscale.empty() && ente.codiceFiscale != fiscale)) continue;
      if (!numero.empty() && ente.codice != numero) continue;
      trovati.push_back(&ente);
    }
    if (!trovati.empty()) {
      p_.idEnte = trovati.front()->id;
    } else if (!fiscale.empty() || !numero.empty()) {
      accanto_.enteNome = nome;
      accanto_.enteCodiceFiscale = fiscale;
      accanto_.enteCodice = numero;
    } else {
      std::string noti;
      for (const schede::Ente& ente : archivio_.elenchi.enti) noti += (noti.empty() ? "" : ", ") + ente.nome;
      corso_.segnala(Codice::V05, ColonnaPercipiente::EntePrevidenziale,
                     mostrato(nome) + " non è fra gli enti: " + noti +
                         "; per aggiungerlo serve la colonna CodiceFiscaleEnte");
    }
  }

  void residenza() {
    using enum ColonnaPercipiente;
    const std::int32_t italia = archivio_.luoghi.italia();
    const Campo* const nazione = corso_.letta().campo(Nazione);
    if (nazione != nullptr) {
      a_.idNazione = 0;
      if (!nazione->valore.isNull()) {
        const auto id = idDellaNazione(corso_, posto(Nazione), nazione->valore.text(), archivio_.luoghi);
        if (!id) return;
        a_.idNazione = *id;
        if (nuovo_ && *id != italia && corso_.letta().campo(NonResidente) == nullptr) {
          p_.nonResidente = true;
          corso_.derivato(NonResidente);
        }
      }
    }
    const Campo* const comune = corso_.letta().campo(Comune);
    if (comune == nullptr) return;
    if (comune->valore.isNull()) {
      a_.idComune = 0;
      return;
    }
    const std::string_view provincia = corso_.letta().valore(Provincia).text();
    if ((a_.idNazione != 0 && a_.idNazione != italia) || provincia == "EE") {
      localita(comune->valore.text());
    } else if (const auto id =
                   idDelComune(corso_, posto(Comune), comune->valore.text(), provincia, archivio_.luoghi)) {
      a_.idComune = *id;
      if (a_.idNazione == 0) {
        a_.idNazione = italia;
        if (nazione == nullptr) corso_.derivato(Nazione);
      }
    }
  }

  void localita(std::string_view nome) {
    const schede::Luogo* const attuale = archivio_.luoghi.comuneDiId(a_.idComune);
    if (attuale != nullptr && attuale->nome == nome) return;
    const schede::Luogo* const nota = archivio_.luoghi.localitaEstera(nome);
    a_.idComune = nota == nullptr ? 0 : nota->id;
    if (nota == nullptr) accanto_.localitaEstera = nome;
  }

  void nascita() {
    using enum ColonnaPercipiente;
    const Campo* const comune = corso_.letta().campo(ComuneNascita);
    const Campo* const nazione = corso_.letta().campo(NazioneNascita);
    const std::optional<DatiNelCodice> codice = datiNelCodice(a_.codiceFiscale);
    const std::int32_t italia = archivio_.luoghi.italia();
    if (comune == nullptr && nazione == nullptr) {
      if (a_.idComuneNascita == 0 && a_.idNazionalita == 0 && codice) dalCodice(codice->luogo);
      return;
    }
    if (nazione != nullptr || comune != nullptr) a_.idNazionalita = a_.idComuneNascita = 0;
    if (nazione != nullptr && !nazione->valore.isNull()) {
      const auto id = idDellaNazione(corso_, posto(NazioneNascita), nazione->valore.text(), archivio_.luoghi);
      if (!id) return;
      a_.idNazionalita = *id;
      if (*id != italia) return confronta(codice, archivio_.luoghi.nazioneDiId(*id));
    }
    if (comune != nullptr && !comune->valore.isNull()) {
      comuneDiNascita(comune->valore.text(), codice);
    } else if (codice) {
      dalCodice(codice->luogo);
    }
  }

  void comuneDiNascita(std::string_view nome, const std::optional<DatiNelCodice>& codice) {
    using enum ColonnaPercipiente;
    std::optional<Date> giorno;
    if (a_.nascita != Date()) giorno = a_.nascita;
    const std::string_view provincia = corso_.letta().valore(ProvinciaNascita).text();
    // The code decides between a municipality and a former one of the same name.
    const schede::Luogo* const nelCodice = codice ? archivio_.luoghi.comuneDiCatasto(codice->luogo) : nullptr;
    const schede::Ricerca ricerca = archivio_.luoghi.comune(nome, provincia, giorno);
    if (nelCodice != nullptr && lettereDiCodice(nelCodice->nome) == lettereDiCodice(nome)) {
      if (!provincia.empty() && !equalsNoCase(provincia, nelCodice->provincia)) {
        corso_.segnala(Codice::P06, ProvinciaNascita,
                       nelCodice->nome + " è in provincia di " + nelCodice->provincia + ", non di " +
                           mostrato(provincia));
      }
      return natoIn(*nelCodice);
    }
    if (ricerca.uno() != nullptr) {
      natoIn(*ricerca.uno());
      soppressoPrima(*ricerca.uno());
      return confronta(codice, ricerca.uno());
    }
    if (!ricerca.trovati.empty()) {
      for (const schede::Luogo* luogo : ricerca.trovati) {
        if (nelCodice != nullptr && luogo == nelCodice) return natoIn(*nelCodice);
      }
      if (const auto scelto = scegliLuogo(corso_, posto(ComuneNascita), nome, ricerca.trovati)) {
        natoIn(*archivio_.luoghi.comuneDiId(*scelto));
      }
      return;
    }
    // Abroad some files have the country where others have the municipality.
    if (const schede::Luogo* const estera = archivio_.luoghi.nazione(nome).uno();
        estera != nullptr && estera->id != archivio_.luoghi.italia()) {
      a_.idNazionalita = estera->id;
      return confronta(codice, estera);
    }
    corso_.segnala(Codice::P06, ComuneNascita, mostrato(nome) + " non è nell'elenco dei comuni");
    if (codice) dalCodice(codice->luogo);
  }

  void soppressoPrima(const schede::Luogo& comune) {
    if (comune.soppresso == 0 || a_.nascita == Date() || a_.nascita.year() <= comune.soppresso) return;
    corso_.segnala(Codice::P06, ColonnaPercipiente::ComuneNascita,
                   comune.nome + " non esiste più dal " + fromInteger(comune.soppresso));
  }

  void natoIn(const schede::Luogo& comune) {
    a_.idComuneNascita = comune.id;
    a_.idNazionalita = archivio_.luoghi.italia();
  }

  void confronta(const std::optional<DatiNelCodice>& codice, const schede::Luogo* luogo) {
    if (!codice || luogo == nullptr || luogo->catasto.empty() || luogo->catasto == codice->luogo) return;
    corso_.segnala(
        Codice::P06, ColonnaPercipiente::ComuneNascita,
        luogo->nome + " ha il codice " + luogo->catasto + ", il codice fiscale ha " + codice->luogo);
  }

  void dalCodice(const std::string& catasto) {
    using enum ColonnaPercipiente;
    if (const schede::Luogo* const comune = archivio_.luoghi.comuneDiCatasto(catasto)) {
      natoIn(*comune);
      return corso_.derivato(ComuneNascita);
    }
    if (const schede::Luogo* const nazione = archivio_.luoghi.nazioneDiCatasto(catasto)) {
      a_.idNazionalita = nazione->id;
      return corso_.derivato(NazioneNascita);
    }
    corso_.segnala(Codice::P06, CodiceFiscale,
                   "il luogo " + catasto + " del codice fiscale non è fra i comuni e le nazioni");
  }

  RigaInCorso& corso_;
  const ArchivioLetto& archivio_;
  SchedaPercipiente& p_;
  SchedaAnagrafica& a_;
  AccantoPercipiente& accanto_;
  bool nuovo_;
};

}  // namespace

void applicaCampi(RigaInCorso& corso, const ArchivioLetto& archivio, SchedaPercipiente& percipiente,
                  AccantoPercipiente& accanto, bool nuovo) {
  CampiPercipiente(corso, archivio, percipiente, accanto, nuovo).applica();
}

}  // namespace cu::intake

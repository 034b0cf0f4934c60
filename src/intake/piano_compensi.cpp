#include <array>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "base/codice_fiscale.h"
#include "base/text.h"
#include "intake/conti_toccati.h"
#include "intake/identita.h"
#include "intake/identita_fatture.h"
#include "intake/importi_compenso.h"
#include "intake/lettura_fatture.h"
#include "intake/mancanti.h"
#include "intake/piano_fatture.h"
#include "intake/riga_in_corso.h"
#include "intake/soggetti.h"
#include "intake/testo_cella.h"

namespace cu::intake {
namespace {

using schede::SchedaCompenso;

// A reason that the form has only in some tax years.
struct AnniCausale {
  std::string_view causale;
  int dal = 0;
  int al = 0;
  std::string_view altra;  // the one of the other years
};
constexpr std::array<AnniCausale, 2> kAnniCausali = {{{"Z", 0, 2015, "ZO"}, {"ZO", 2016, 9999, "Z"}}};

class PianoCompensi {
 public:
  PianoCompensi(Piano& piano, const ArchivioLetto& archivio)
      : piano_(piano),
        archivio_(archivio),
        soggetti_(archivio.percipienti),
        identita_(piano, archivio),
        identitaFatture_(piano, archivio),
        fatture_(piano, archivio, soggetti_, identitaFatture_),
        conti_(piano, archivio) {}

  void riga(RigaPiano& riga) {
    RigaInCorso corso(piano_, riga);
    const bool pianificabile = daPianificare(corso);
    if (corso.lettura().fatture) {
      return riga.stato == StatoRiga::Escluso ? fatture_.tralasciata(corso) : fattura(corso);
    }
    if (riga.stato != StatoRiga::Escluso && diAltroAnno(corso)) return;
    if (!pianificabile) return;
    // The heading lacks it, which is reported once.
    if (!corso.letta().ha(ColonnaCompenso::DataPagamento)) {
      riga.stato = StatoRiga::Errore;
      return;
    }
    const schede::SchedaPercipiente* percipiente = nullptr;
    CompensoDato dato;
    AccantoCompenso accanto;
    if (!trova(corso, percipiente) || !componi(corso, percipiente->anagrafica.id, dato, accanto)) {
      riga.stato = corso.stato(StatoRiga::Errore);
      return;
    }
    metti(corso, dato, std::move(accanto), identita_.cerca(dato));
    identita_.aggiungi(dato, riga.voce);
  }

  void conti() {
    fatture_.codici();
    conti_.calcola();
    mancanti();
  }

 private:
  void fattura(RigaInCorso& corso) {
    RigaPiano& riga = corso.riga();
    const std::optional<FatturaPronta> pronta = fatture_.prepara(corso);
    if (!pronta) return;
    RigaInCorso intera(piano_, riga, corso.lettura(), pronta->letta);
    CompensoDato dato;
    AccantoCompenso accanto;
    if (!componi(intera, pronta->idAnagrafica, dato, accanto)) {
      riga.stato = intera.stato(StatoRiga::Errore);
      return;
    }
    dato.importi.set().reset(posto(schede::Importo::RegimeConvenzionale));
    const FattureLette& lette = *corso.lettura().fatture;
    IdentitaFatture::Come come{.dataProposta = pronta->dataProposta,
                               .sola = pronta->sola,
                               .dataDecisa = corso.decisione().pagamento.has_value(),
                               .fileNoto = archivio_.impronte.contains(lette.sha256Contenuto)};
    if (!pronta->decisa) {
      come.proposte = importiProposti(lette.righe[riga.posizione.riga]);
      come.giaImportata = come.fileNoto;
    }
    const Riscontro riscontro = identitaFatture_.cerca(dato, riga, come);
    if (!dataCerta(intera, *pronta, riscontro, dato)) {
      riga.stato = intera.stato(StatoRiga::DaDecidere);
      return;
    }
    if (riscontro.esito == Riscontro::Esito::Uguale && riscontro.compenso != nullptr) nonDaDecidere(riga);
    metti(intera, dato, std::move(accanto), riscontro);
    identitaFatture_.aggiungi(dato, riga.voce);
  }

  // False where a person has to say when it was paid. A payment that is there keeps its date.
  static bool dataCerta(RigaInCorso& corso, const FatturaPronta& pronta, const Riscontro& riscontro,
                        CompensoDato& dato) {
    using enum Riscontro::Esito;
    if (riscontro.esito == Incerto) {
      dataDaDecidere(corso, riscontro.dove + ": indicare la data di pagamento");
      return false;
    }
    if (!pronta.manca.empty() && riscontro.esito != Uguale) {
      dataDaDecidere(corso, pronta.manca);
      return false;
    }
    if (riscontro.esito == Nuovo && pronta.noto && pronta.noto->year() != dato.scheda.pagamento.year()) {
      dataDaDecidere(corso, "in archivio un compenso del documento è pagato il " + pronta.noto->toItalian());
      return false;
    }
    if (!pronta.dataProposta || riscontro.compenso == nullptr) return true;
    dato.scheda.pagamento = riscontro.compenso->pagamento;
    std::erase(corso.riga().derivati, static_cast<std::uint8_t>(ColonnaCompenso::DataPagamento));
    for (Messaggio& uno : corso.riga().messaggi) {
      if (uno.codice == Codice::R12)
        uno.testo = "la data di pagamento resta quella in archivio, " + dato.scheda.pagamento.toItalian();
    }
    return true;
  }

  // What a person has decided already is in the database.
  static void nonDaDecidere(RigaPiano& riga) {
    for (Messaggio& uno : riga.messaggi) {
      if (uno.codice == Codice::R02) uno.gravita = Gravita::Informazione;
    }
  }

  // Plans a payment as its row gives it.
  void metti(RigaInCorso& corso, const CompensoDato& dato, AccantoCompenso accanto,
             const Riscontro& riscontro) {
    RigaPiano& riga = corso.riga();
    Voce<SchedaCompenso> voce;
    voce.riga = static_cast<std::size_t>(&riga - piano_.righe.data());
    if (riscontro.compenso != nullptr) voce.prima = *riscontro.compenso;
    voce.dopo =
        riscontro.esito == Riscontro::Esito::Uguale && voce.prima ? *voce.prima : dato.su(riscontro.compenso);
    const std::string_view causale = trim(archivio_.elenchi.causali.codice(voce.dopo.idCausale));
    controllaImporti(corso, causale, voce.dopo.importi, voce.prima ? &voce.prima->importi : nullptr);
    causaleDellAnno(corso, causale, voce.dopo.pagamento.year());
    giudica(corso, riscontro, voce, accanto);
    riga.voce = piano_.compensi.size();
    piano_.compensi.push_back(std::move(voce));
    piano_.accantoCompensi.push_back(std::move(accanto));
  }

  // What else is wrong with such a row stops nothing, and is not reported.
  bool diAltroAnno(RigaInCorso& corso) {
    if (!piano_.richiesta.anno || !corso.letta().ha(ColonnaCompenso::DataPagamento)) return false;
    const int anno = corso.letta().valore(ColonnaCompenso::DataPagamento).date().year();
    if (*piano_.richiesta.anno == anno) return false;
    corso.riga().messaggi.clear();
    corso.segnala(Codice::R05, ColonnaCompenso::DataPagamento,
                  "pagato nel " + fromInteger(anno) + ", non nel " + fromInteger(*piano_.richiesta.anno));
    corso.riga().stato = StatoRiga::Escluso;
    return true;
  }

  bool trova(RigaInCorso& corso, const schede::SchedaPercipiente*& percipiente) {
    if (corso.decisione().idAnagrafica != 0) percipiente = soggetti_.diId(corso.decisione().idAnagrafica);
    if (percipiente != nullptr) return true;
    const Chiavi chiavi = chiaviDelCompenso(corso.letta());
    if (!soggetti_.trova(corso, chiavi, percipiente)) return false;
    if (percipiente != nullptr) return true;
    std::string chi;
    for (const std::string* chiave : {&chiavi.codice, &chiavi.codiceFiscale, &chiavi.partitaIva}) {
      if (!chiave->empty()) chi += (chi.empty() ? "" : ", ") + mostrato(*chiave);
    }
    // Without any key the reading has reported that it is missing, of the row or once of the heading.
    if (!chi.empty()) {
      corso.segnala(Codice::P12, "nessun percipiente dell'azienda ha il codice " + chi +
                                     controlloSbagliato(chiavi.codiceFiscale) +
                                     controlloSbagliato(chiavi.partitaIva));
    }
    return false;
  }

  // Why a code is nobody's, where its last character shows it.
  static std::string controlloSbagliato(std::string_view codice) {
    const FormaCodice forma = formaCodice(codice);
    if (forma == FormaCodice::Nessuna || controlloGiusto(codice)) return {};
    const std::string_view primi = codice.substr(0, codice.size() - 1);
    return "; l'ultimo carattere di " + std::string(codice) + " dovrebbe essere " +
           std::string(1,
                       forma == FormaCodice::Persona ? carattereDiControllo(primi) : cifraDiControllo(primi));
  }

  bool componi(RigaInCorso& corso, std::int32_t idAnagrafica, CompensoDato& dato, AccantoCompenso& accanto) {
    using enum ColonnaCompenso;
    const RigaLetta& letta = corso.letta();
    const auto causale = idDelCodice(corso, static_cast<std::uint8_t>(Causale), letta.valore(Causale).text(),
                                     archivio_.elenchi.causali);
    if (!causale) return false;
    SchedaCompenso& scheda = dato.scheda;
    scheda.idAzienda = piano_.richiesta.idAzienda;
    scheda.idAnagrafica = idAnagrafica;
    scheda.idCausale = *causale;
    scheda.pagamento = letta.valore(DataPagamento).date();
    scheda.numero = std::string(letta.valore(NumeroDocumento).text());
    scheda.documento = letta.valore(DataDocumento).date();
    dato.numero = letta.campo(NumeroDocumento) != nullptr;
    dato.documento = letta.campo(DataDocumento) != nullptr;
    const std::string codice(trim(archivio_.elenchi.causali.codice(*causale)));
    const ImportiDati importi = importiDati(corso, codice);
    scheda.importi = importi.importi;
    dato.importi = importi.dati;
    dato.riferimento = std::string(letta.valore(Riferimento).text());
    accanto.riferimento = dato.riferimento;
    if (letta.ha(CodiceNonSoggette)) {
      const auto id = idDelCodice(corso, static_cast<std::uint8_t>(CodiceNonSoggette),
                                  letta.valore(CodiceNonSoggette).text(), archivio_.elenchi.nonSoggette);
      if (!id) return false;
      accanto.idCodiceNonSoggette = *id;
    } else if (letta.campo(CodiceNonSoggette) != nullptr) {
      accanto.idCodiceNonSoggette = 0;
    }
    return true;
  }

  static void causaleDellAnno(RigaInCorso& corso, std::string_view causale, int anno) {
    for (const AnniCausale& una : kAnniCausali) {
      if (una.causale != causale || (anno >= una.dal && anno <= una.al)) continue;
      corso.segnala(Codice::R11, ColonnaCompenso::Causale,
                    "la causale " + std::string(causale) + " non è del " + fromInteger(anno) + ", che ha " +
                        std::string(una.altra));
    }
  }

  void giudica(RigaInCorso& corso, const Riscontro& riscontro, const Voce<SchedaCompenso>& voce,
               const AccantoCompenso& accanto) {
    RigaPiano& riga = corso.riga();
    switch (riscontro.esito) {
      case Riscontro::Esito::Nuovo:
        riga.stato = corso.stato(StatoRiga::Nuovo);
        return;
      case Riscontro::Esito::Ripetuto:
      case Riscontro::Esito::Incerto:
        return contraddetta(corso, riscontro);
      case Riscontro::Esito::Uguale:
        if (riscontro.voce != kSenzaVoce) return ripetuta(corso, riscontro, accanto);
        if (codiceUguale(voce.dopo, accanto)) return corso.uguale();
        return corso.diverso("codice delle somme non soggette");
      case Riscontro::Esito::Diverso:
        return corso.diverso(differenze(*voce.prima, voce.dopo));
    }
  }

  static void contraddetta(RigaInCorso& corso, const Riscontro& riscontro) {
    corso.segnala(Codice::R04, "lo stesso documento è, con altri dati, " + riscontro.dove);
    corso.riga().messaggi.back().gravita = Gravita::Errore;
    corso.riga().stato = StatoRiga::Errore;
  }

  // A row that gives again what an earlier one gives.
  void ripetuta(RigaInCorso& corso, const Riscontro& riscontro, const AccantoCompenso& accanto) const {
    const AccantoCompenso& suo = piano_.accantoCompensi[riscontro.voce];
    if (suo.idCodiceNonSoggette != accanto.idCodiceNonSoggette) return contraddetta(corso, riscontro);
    corso.uguale(riscontro.dove);
  }

  // The code of the sums not subject is the account's.
  bool codiceUguale(const SchedaCompenso& scheda, const AccantoCompenso& accanto) const {
    if (!accanto.idCodiceNonSoggette) return true;
    const auto conto = archivio_.conti.find({scheda.idAnagrafica, scheda.idCausale, scheda.pagamento.year()});
    const std::int32_t attuale = conto == archivio_.conti.end() ? 0 : conto->second.idCodiceNonSoggette;
    return attuale == *accanto.idCodiceNonSoggette;
  }

  static std::string differenze(const SchedaCompenso& prima, const SchedaCompenso& dopo) {
    constexpr std::array<std::string_view, schede::kImporti> kNomi = {"onorario",
                                                                      "quota non soggetta",
                                                                      "somme non soggette",
                                                                      "somme in regime convenzionale",
                                                                      "ritenuta d'acconto",
                                                                      "ritenuta d'imposta",
                                                                      "contributo previdenziale",
                                                                      "contributo del percipiente"};
    std::string testo;
    const auto aggiungi = [&](std::string_view cosa) {
      if (!testo.empty()) testo += ", ";
      testo += cosa;
    };
    if (prima.idAnagrafica != dopo.idAnagrafica) aggiungi("percipiente");
    if (prima.idCausale != dopo.idCausale) aggiungi("causale");
    if (prima.pagamento != dopo.pagamento) aggiungi("data di pagamento " + prima.pagamento.toItalian());
    if (prima.numero != dopo.numero || prima.documento != dopo.documento) aggiungi("documento");
    for (std::size_t i = 0; i < kNomi.size(); ++i) {
      if (prima.importi[i] != dopo.importi[i]) {
        aggiungi(std::string(kNomi[i]) + " in archivio " + prima.importi[i].toFixed(2, ','));
      }
    }
    return testo;
  }

  // Of the payees whose accounts change, and of the company.
  void mancanti() {
    std::set<std::int32_t> detti;
    for (const ContoPiano& conto : piano_.conti) {
      if (!detti.insert(conto.idAnagrafica).second) continue;
      const schede::SchedaPercipiente* const suo = piano_.percipiente(conto.idAnagrafica);
      if (suo == nullptr) continue;
      for (const Mancanza mancanza : mancanze(*suo, archivio_.luoghi)) {
        piano_.mancanti.push_back({suo->codice, mancanza->numero, std::string(mancanza->messaggio)});
      }
    }
    if (piano_.conti.empty() || archivio_.aziende.empty()) return;
    for (const Mancanza mancanza : mancanze(archivio_.aziende.front(), archivio_.luoghi)) {
      piano_.mancanti.push_back({"", mancanza->numero, std::string(mancanza->messaggio)});
    }
  }

  Piano& piano_;
  const ArchivioLetto& archivio_;
  Soggetti soggetti_;
  Identita identita_;
  IdentitaFatture identitaFatture_;
  PianoFatture fatture_;
  ContiToccati conti_;
};

}  // namespace

void pianificaCompensi(Piano& piano, const ArchivioLetto& archivio, ProgressSink* avanzamento) {
  PianoCompensi compensi(piano, archivio);
  std::size_t fatte = 0;
  for (RigaPiano& riga : piano.righe) {
    if (avanzamento != nullptr) avanzamento->progress("Compensi", fatte++, piano.righe.size());
    compensi.riga(riga);
  }
  compensi.conti();
}

}  // namespace cu::intake

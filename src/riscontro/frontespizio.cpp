#include "riscontro/frontespizio.h"

#include <algorithm>
#include <utility>

#include "base/ascii.h"
#include "base/text.h"
#include "base/windows1252.h"
#include "lettura/testate.h"
#include "riscontro/atteso.h"
#include "riscontro/registro.h"
#include "riscontro/riga_composta.h"

namespace cu::riscontro {
namespace {

constexpr std::size_t kIntero = modello::kLarghezzaRecord;
constexpr std::int32_t kEventoADueCifre = 2020;  // the first year

std::vector<modello::Tavola> tavole(char record, std::int32_t anno, const modello::Modello& modello) {
  if (record == 'A') return {modello::kTipoA};
  const auto parti = modello::tipoB(anno, modello);
  return {parti.begin(), parti.end()};
}

std::string nelFile(const CellView& cella) { return a1252(cella.toText()); }
std::string inMaiuscole(const CellView& cella) { return maiuscolo1252(nelFile(cella)); }

// A code that stands as a number in its field: filled at its left, with blanks where it is no number. One
// that is longer keeps its first characters.
std::string riempito(const std::string& codice, std::size_t cifre) {
  const bool numero = std::all_of(codice.begin(), codice.end(), isDigit);
  const std::string nudo =
      numero ? codice.substr(std::min(codice.find_first_not_of('0'), codice.size())) : codice;
  if (nudo.size() >= cifre) return nudo.substr(0, cifre);
  return std::string(cifre - nudo.size(), numero ? '0' : ' ') + nudo;
}

// The telephone is cut before its separators are left out; a fax number keeps them.
std::string telefonoDiB(const RigaConto& riga) {
  constexpr std::size_t kCifre = 12;
  std::string numero = nelFile(riga["TelefonoAz"]);
  if (trim(numero).empty()) return nelFile(riga["FaxAz"]).substr(0, kCifre);
  numero.resize(std::min(numero.size(), kCifre));
  std::erase_if(numero,
                [](char c) { return std::string_view(" -/\\().+").find(c) != std::string_view::npos; });
  return numero;
}

std::string domanda(std::int32_t idAzienda) {
  return "SELECT CASE WHEN ISNULL(AnagAz.CodiceFiscale, '') = '' THEN AnagAz.PartitaIva"
         " ELSE AnagAz.CodiceFiscale END AS CodiceFiscaleAz,"
         " AnagAz.Anagrafica AS AnagraficaAz, AnagAz.Nome AS NomeAz, AnagAz.PersonaFisica AS PersonaFisicaAz,"
         " AnagAz.Telefono AS TelefonoAz, AnagAz.Fax AS FaxAz, AnagAz.EMailInternet AS EMailInternetAz,"
         " CG.CodiceFiscaleSocieta, CodiceCarica.Codice AS CodiceCarica,"
         " AnagRapp.CodiceFiscale AS CodiceFiscaleRapp, AnagRapp.Anagrafica AS AnagraficaRapp,"
         " AnagRapp.Nome AS NomeRapp, EEAz.CodiceEventoEccezionale AS CodiceEventoEccezionaleAz,"
         " Elenco.CodiceFiscaleIntermediario, Elenco.TipoComunicazione, Elenco.DataImpegno"
         " FROM Azienda INNER JOIN Anagrafica AnagAz ON Azienda.IDAnagrafica = AnagAz.IDAnagrafica"
         " LEFT JOIN ConfigurazioneGenerale CG ON Azienda.IDAzienda = CG.IDAzienda"
         " LEFT JOIN Anagrafica AnagRapp ON CG.IDAnagraficaRappresentante = AnagRapp.IDAnagrafica"
         " LEFT JOIN CodiceCarica ON CG.IDCodiceCaricaRappresentante = CodiceCarica.IDCodiceCarica"
         " LEFT JOIN ConfigurazioneCompensiATerzi CT ON Azienda.IDAzienda = CT.IDAzienda"
         " LEFT JOIN EventoEccezionale EEAz ON CT.IDEventoEccezionale = EEAz.IDEventoEccezionale"
         " LEFT JOIN ConfigurazioneElencoCliFor Elenco ON Azienda.IDAzienda = Elenco.IDAzienda"
         " WHERE Azienda.IDAzienda = " +
         fromInteger(idAzienda);
}

std::string recordA(std::int32_t anno) {
  RigaComposta a({modello::kTipoA});
  a.testo("Tipo Record", "A");
  const std::string due = fromInteger((anno + 1) % 100);
  a.testo("Codice fornitura", "CUR" + std::string(2 - due.size(), '0') + due);
  return a.fatta();
}

std::string recordB(const RigaConto& riga, const Esercizio& esercizio) {
  const std::int32_t anno = modello::annoTracciato(esercizio.anno, esercizio.modello);
  RigaComposta b(tavole('B', esercizio.anno, esercizio.modello));
  b.testo("Tipo Record", "B");
  b.testo("Cod. Fisc. Sost. imposta", inMaiuscole(riga["CodiceFiscaleAz"]));
  b.numero("Progressivo modulo", 1);
  b.testo("Id. prod. software (Cod. Fisc.)", modello::kCodiceFiscaleProduttore);
  if (riga["PersonaFisicaAz"].flag()) {
    b.testo("Cognome", inMaiuscole(riga["AnagraficaAz"]));
    b.testo("Nome", inMaiuscole(riga["NomeAz"]));
  } else {
    b.testo("Denominazione", inMaiuscole(riga["AnagraficaAz"]));
  }
  b.testo("Indirizzo posta elettronica", nelFile(riga["EMailInternetAz"]));
  b.testo("Telefono/Fax", telefonoDiB(riga));
  if (modello::haEventiEccezionali(anno)) {
    const std::string evento = inMaiuscole(riga["CodiceEventoEccezionaleAz"]);
    if (anno < kEventoADueCifre) {
      b.testo(modello::kEventiEccezionali, trim(evento).empty() ? "0" : evento);
    } else {
      b.testo(modello::kEventiEccezionali, riempito(std::string(trim(evento)), 2));
    }
  }
  if (modello::haCasiParticolari(anno)) b.testo(modello::kCasiParticolari, "0");
  b.testo("Cod. Fisc. rappresentante", inMaiuscole(riga["CodiceFiscaleRapp"]));
  b.testo("Cod. carica rappresentante", riempito(inMaiuscole(riga["CodiceCarica"]), 2));
  b.testo("Cognome rappresentante", inMaiuscole(riga["AnagraficaRapp"]));
  b.testo("Nome rappresentante", inMaiuscole(riga["NomeRapp"]));
  b.testo("Cod. Fisc. soc. o ente dich.", riempito(inMaiuscole(riga["CodiceFiscaleSocieta"]), 11));
  if (modello::kContaDipendenti.comprende(anno)) b.numero("N° comun. certif. lav. dip. e assim.", 0);
  b.testo("Casella Quadro CT", "0");
  b.testo("Firma", "1");
  return b.fatta();
}

// None, then the intermediary of the settings.
std::vector<Trasmissione> dalleImpostazioni(const RigaConto& riga) {
  const std::string azienda = inMaiuscole(riga["CodiceFiscaleAz"]);
  std::vector<Trasmissione> ammesse = {{"01", azienda, "", "0", "00000000", "0"}};
  const std::string codice = inMaiuscole(riga["CodiceFiscaleIntermediario"]);
  const CellView impegno = riga["TipoComunicazione"];
  const CellView data = riga["DataImpegno"];
  if (trim(codice).empty() && impegno.isNull() && data.isNull()) return ammesse;
  const std::string cifra = impegno.isNull() ? "0" : fromInteger(impegno.integer());
  const std::string giorno = data.isNull() ? "00000000" : data.date().toDdmmyyyy();
  ammesse.push_back({"10", codice, codice, cifra, giorno, "1"});
  ammesse.push_back({"01", azienda, codice, cifra, giorno, "0"});
  return ammesse;
}

Trasmissione registrata(const Invio& invio) {
  const auto campo = [&](const std::string& riga, modello::Tavola tavola, std::string_view nome) {
    return std::string(lettura::leggi(riga, lettura::tratto(tavola, nome)));
  };
  const std::string a = a1252(invio.recordA);
  const std::string b = a1252(invio.recordB);
  if (a.size() != kIntero || b.size() != kIntero) return {};
  return {campo(a, modello::kTipoA, "Tipo fornitore"),
          campo(a, modello::kTipoA, "Cod. Fisc. fornitore"),
          campo(b, modello::kTipoBFine, "Cod. Fisc. intermediario"),
          campo(b, modello::kTipoBFine, "Impegno a trasmettere via telem. dich."),
          campo(b, modello::kTipoBFine, "Data dell'impegno"),
          campo(b, modello::kTipoBFine, "Firma intermediario")};
}

}  // namespace

std::vector<lettura::CasellaDiversa> campiDiversi(char record, std::int32_t anno, std::string_view vecchia,
                                                  std::string_view nuova, const modello::Modello& modello) {
  std::vector<lettura::CasellaDiversa> diverse;
  for (const modello::Tavola tavola : tavole(record, anno, modello)) {
    for (const modello::CampoRecord& campo : tavola) {
      const lettura::Tratto dove{campo.posizione, campo.lunghezza};
      const std::string_view prima = lettura::leggi(vecchia, dove);
      const std::string_view dopo = lettura::leggi(nuova, dove);
      if (prima == dopo) continue;
      diverse.push_back({0, std::string(1, record) + " " + std::string(campo.nome), da1252(trimRight(prima)),
                         da1252(trimRight(dopo))});
    }
  }
  return diverse;
}

Frontespizio::Frontespizio(std::int32_t anno, std::string recordA, std::string recordB,
                           std::vector<Trasmissione> ammesse, const modello::Modello& modello)
    : modello_(&modello),
      anno_(anno),
      recordA_(std::move(recordA)),
      recordB_(std::move(recordB)),
      ammesse_(std::move(ammesse)) {}

std::vector<lettura::CasellaDiversa> Frontespizio::diverse(std::string_view recordA, std::string_view recordB,
                                                           const Contenuto& contenuto) const {
  std::vector<lettura::CasellaDiversa> meno;
  for (std::size_t i = 0; i < ammesse_.size(); ++i) {
    const Trasmissione& t = ammesse_[i];
    RigaComposta a(tavole('A', anno_, *modello_), recordA_);
    a.testo("Tipo fornitore", t.tipo);
    a.testo("Cod. Fisc. fornitore", t.fornitore);
    RigaComposta b(tavole('B', anno_, *modello_), recordB_);
    b.testo("Fornitura rel. invio certif. da ann.", contenuto.annullamenti ? "1" : "0");
    b.testo("Fornitura rel. invio certif. da sost.", contenuto.sostituzioni ? "1" : "0");
    b.numero("N° comun. certif. lav. aut. e provv.", contenuto.certificazioni);
    b.testo("Cod. Fisc. intermediario", t.intermediario);
    b.testo("Impegno a trasmettere via telem. dich.", t.impegno);
    b.testo("Data dell'impegno", t.data);
    b.testo("Firma intermediario", t.firma);
    std::vector<lettura::CasellaDiversa> diverse = campiDiversi('A', anno_, recordA, a.fatta(), *modello_);
    for (lettura::CasellaDiversa& diversa : campiDiversi('B', anno_, recordB, b.fatta(), *modello_)) {
      diverse.push_back(std::move(diversa));
    }
    if (i == 0 || diverse.size() < meno.size()) meno = std::move(diverse);
  }
  return meno;
}

Frontespizio leggiFrontespizio(Connection& connessione, const Esercizio& esercizio) {
  std::string b;
  std::vector<Trasmissione> ammesse;
  perRiga(connessione, domanda(esercizio.idAzienda), [&](const RigaConto& riga) {
    b = recordB(riga, esercizio);
    ammesse = dalleImpostazioni(riga);
  });
  if (ammesse.empty()) ammesse.emplace_back();  // the company does not exist
  Registro registro(connessione);
  if (registro.presente()) {
    for (const Invio& invio : registro.invii(esercizio.idAzienda)) {
      if (invio.anno == esercizio.anno) ammesse.push_back(registrata(invio));
    }
  }
  return {esercizio.anno, recordA(esercizio.anno), std::move(b), std::move(ammesse), esercizio.modello};
}

}  // namespace cu::riscontro

#include "worklist/riscrittura.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <span>

#include "base/text.h"
#include "data/recordset.h"
#include "host/conversioni.h"

namespace cu {

using modello::Campo;
using modello::Colonna;
using modello::Modello;
using modello::Riscrittura;

namespace {

struct Assegnazione {
  std::string_view conto;
  std::string_view valore;
};

// The inverses of the load. SpeseRimborsate is not written back: a changed line of the reasons M and O loses
// it.
constexpr std::array<Assegnazione, 8> kConti = {{
    {"SommeNonSoggetteRegConv", "CItmp.SommeRegimeConvenzionale"},
    {"SommeNonSoggette", "CItmp.SommeNonSoggetteARitenuta"},
    {"OnorarioProvvigioni", "CItmp.Imponibile + CItmp.QuotaProvvigioniNonSoggette"},
    {"RitenutaAcconto", "CItmp.RitenuteAcconto"},
    {"RitenutaImposta", "CItmp.RitenuteImposta"},
    {"QuotaProvvigioniNonSoggette", "CItmp.QuotaProvvigioniNonSoggette"},
    {"ContributoPrevidenziale", "CItmp.ContributiCaricoAzienda + CItmp.ContributiCaricoPercipiente"},
    {"RitenutaPrevidenziale13", "CItmp.ContributiCaricoPercipiente"},
}};

constexpr std::string_view kRiferimenti[] = {"ProtocolloAnnSost", "ProgressivoAnnSost"};
constexpr std::string_view kResidenza[] = {
    "IDComuneResidenzaAnnoPrec",  "IDComuneResidenzaAnnoCorr",  "ComuneResidenzaAnnoPrec",
    "ComuneResidenzaAnnoCorr",    "SiglaProvResidenzaAnnoPrec", "CodiceComuneDiNascitaPrec",
    "SiglaProvResidenzaAnnoCorr", "CodiceComuneDiNascitaCorr",  "FusioneComuni",
    "FusioneComuniAnnoPrec"};
constexpr std::string_view kResidenzaAggiuntiva[] = {
    "FusioneComuni", "FusioneComuniAnnoPrec", "IDComuneResidenzaAnnoPrec", "IDComuneResidenzaAnnoCorr"};
// A part of a box whose other part is written to the account: it precedes the boxes.
constexpr std::string_view kQuota = "QuotaProvvigioniNonSoggette";

constexpr bool contiene(std::span<const std::string_view> nomi, std::string_view nome) {
  return std::find(nomi.begin(), nomi.end(), nome) != nomi.end();
}

// Whether the lists of the residence contain exactly the boxes of the payee that are written back.
constexpr bool residenzaIntera(const Modello& modello) {
  for (const Campo& campo : modello.campi) {
    if (campo.riscrittura == Riscrittura::No || record(campo.quadro) == modello::Record::H) continue;
    for (const Colonna& colonna : modello::ColonneDiCampo(campo)) {
      if (!contiene(kResidenza, colonna.nome)) return false;
    }
    const std::string_view chiave = campo.elenco.empty() ? campo.colonna : campo.elenco;
    if (campo.riscrittura == Riscrittura::Dati && !contiene(kResidenzaAggiuntiva, chiave)) return false;
  }
  return std::all_of(std::begin(kResidenza), std::end(kResidenza),
                     [&](std::string_view nome) { return trova(modello, nome).campo != nullptr; });
}
static_assert(residenzaIntera(modello::kModello));

// Whether the box of module 1 is written back; a box that has moved is written back in its newest form.
bool riscritto(const Modello& modello, const Campo& campo) {
  if (campo.riscrittura == Riscrittura::No || record(campo.quadro) != modello::Record::H ||
      !inModulo(campo, true) || !raggiunge(modello, campo)) {
    return false;
  }
  const Campo* const fine = modello.campi.data() + modello.campi.size();
  return std::none_of(&campo + 1, fine, [&](const Campo& altro) {
    return altro.colonna == campo.colonna && altro.quadro == campo.quadro && inModulo(altro, true);
  });
}

constexpr std::string_view kStessaRiga =
    "CI.IDAnagrafica = CItmp.IDAnagrafica AND CI.IDCausalePagamento = CItmp.IDCausalePagamento"
    " AND CI.Anno = CItmp.Anno AND CI.IDAzienda = CItmp.IDAzienda";
constexpr std::string_view kCambiata = "CItmp.Modificato <> 0 AND CItmp.Selezionato <> 0";

std::string valore(const ColonnaRiscritta& colonna, const Recordset& riga, const Conversioni& utilita) {
  const CellView campo = riga.Get(colonna.nome);
  switch (colonna.scrittura) {
    case Scrittura::Testo:
      return utilita.literal(campo);
    case Scrittura::Assoluto:
      return utilita.absolute(campo);
    case Scrittura::Numero:
      return utilita.literalNumber(campo);
    case Scrittura::TestoNullo:
      break;
  }
  return utilita.toText(campo);
}

}  // namespace

std::string fnChiaveRiga(const Recordset& riga) {
  // Converted to numbers, because another program may have stored other types in these columns of an embedded
  // database.
  const auto id = [&](std::string_view colonna) { return fromInteger(riga.Get(colonna).integer()); };
  return " WHERE Anno = " + id("Anno") + " AND IDAnagrafica = " + id("IDAnagrafica") +
         " AND IDAzienda = " + id("IDAzienda") + " AND IDCausalePagamento = " + id("IDCausalePagamento");
}

std::vector<ColonnaRiscritta> colonneRiscritte(const Modello& modello) {
  std::vector<ColonnaRiscritta> colonne;
  for (const std::string_view nome : kRiferimenti) colonne.push_back({nome, Scrittura::Testo});
  for (const Campo& campo : modello.campi) {
    if (!riscritto(modello, campo)) continue;
    for (const Colonna& colonna : modello::ColonneDiCampo(campo)) {
      colonne.push_back({colonna.nome, scrittura(colonna.genere)});
    }
  }
  for (const std::string_view nome : kResidenza) {
    colonne.push_back({nome, scrittura(trova(modello, nome).colonna.genere)});
  }
  colonne.push_back({"Modificato", Scrittura::TestoNullo});
  return colonne;
}

std::vector<std::string_view> datiAggiuntivi(const Modello& modello) {
  std::vector<std::string_view> colonne = {kQuota};
  for (const Campo& campo : modello.campi) {
    if (campo.riscrittura != Riscrittura::Dati || !riscritto(modello, campo)) continue;
    colonne.push_back(campo.elenco.empty() ? campo.colonna : campo.elenco);
  }
  colonne.insert(colonne.end(), std::begin(kRiferimenti), std::end(kRiferimenti));
  colonne.insert(colonne.end(), std::begin(kResidenzaAggiuntiva), std::end(kResidenzaAggiuntiva));
  return colonne;
}

std::string fnAggiornaRiga(const std::string& tabella, const Recordset& riga, const Conversioni& utilita,
                           bool proprie) {
  static const std::vector<ColonnaRiscritta> kSenza = colonneRiscritte(modello::kModello);
  static const std::vector<ColonnaRiscritta> kConProprie = colonneRiscritte(modello::kModelloPubblicato);
  std::string testo = "UPDATE " + tabella + " SET ";
  std::string_view prima;
  for (const ColonnaRiscritta& colonna : proprie ? kConProprie : kSenza) {
    testo.append(prima).append(colonna.nome).append(" = ").append(valore(colonna, riga, utilita));
    prima = ", ";
  }
  return testo + fnChiaveRiga(riga);
}

std::string fnAggiornaConti(const std::string& tabella) {
  std::string testo = "UPDATE ContoIndividuale SET ";
  std::string_view prima;
  for (const Assegnazione& assegnazione : kConti) {
    testo.append(prima).append(assegnazione.conto).append(" = ").append(assegnazione.valore);
    prima = ", ";
  }
  testo.append(" FROM ContoIndividuale CI INNER JOIN ")
      .append(tabella)
      .append(" CItmp ON ")
      .append(kStessaRiga);
  return testo.append(" WHERE ").append(kCambiata);
}

std::string fnAggiornaDatiAggiuntivi(const std::string& tabella) {
  std::string assegnazioni;
  std::string colonne = "IDAnagrafica, IDCausalePagamento, Anno, IDAzienda";
  std::string valori = "CItmp.IDAnagrafica, CItmp.IDCausalePagamento, CItmp.Anno, CItmp.IDAzienda";
  for (const std::string_view colonna : datiAggiuntivi(modello::kModello)) {
    assegnazioni.append(assegnazioni.empty() ? " " : ", ")
        .append(colonna)
        .append(" = CItmp.")
        .append(colonna);
    colonne.append(", ").append(colonna);
    valori.append(", CItmp.").append(colonna);
  }
  std::string testo = "EXEC('MERGE INTO ContoIndividualeDatiAggiuntivi CI USING ";
  testo.append(tabella).append(" CItmp ON (").append(kStessaRiga).append(")");
  testo.append(" WHEN MATCHED AND ").append(kCambiata).append(" THEN UPDATE SET").append(assegnazioni);
  testo.append(" WHEN NOT MATCHED AND ").append(kCambiata).append(" THEN INSERT (").append(colonne);
  return testo.append(") VALUES (").append(valori).append(");')");
}

}  // namespace cu

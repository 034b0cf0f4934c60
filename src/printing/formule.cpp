#include "printing/formule.h"

#include <limits>

#include "base/collation.h"
#include "base/error.h"
#include "base/text.h"
#include "base/value.h"
#include "host/conversioni.h"

namespace cu::stampa {
namespace {

constexpr std::string_view kCampoAnno = "{__ViewName.Anno}";
constexpr std::string_view kCampoCodicePercipiente = "{__ViewName.CodicePercipiente}";
constexpr std::string_view kCampoCodice = "{__ViewName.Codice}";
constexpr std::string_view kCampoAnagrafica = "{__ViewName.Anagrafica}";
constexpr std::string_view kCampoCodicePagamento = "{__ViewName.CodicePagamento}";

constexpr std::string_view kSqlCodicePercipiente = "CodicePercipiente";
constexpr std::string_view kSqlCodice = "Codice";
constexpr std::string_view kSqlAnagrafica = "Anagrafica";
constexpr std::string_view kSqlCodicePagamento = "CodicePagamento";

bool modoConti(const Dati& dati) { return dati.modo == ModoCorsa::ContiIndividuali; }

std::int16_t annoBreve(std::string_view testo, const Conversioni& utilita) {
  const std::int32_t anno = utilita.toLong(testo);
  if (anno < std::numeric_limits<std::int16_t>::min() || anno > std::numeric_limits<std::int16_t>::max()) {
    constexpr int kErroreOverflow = 6;
    throw Error(kErroreOverflow, "Overflow: l'anno " + fromInteger(anno) + " è troppo grande.");
  }
  return static_cast<std::int16_t>(anno);
}

std::string numero(std::int16_t valore, const Conversioni& utilita) {
  return utilita.literalNumber(Value::ofInteger(valore).view());
}

// A range of years, open at an end without a year.
std::string anni(const std::string& campo, const Filtri& filtri, const Conversioni& utilita) {
  const std::string da(trim(filtri.anno));
  const std::string a(trim(filtri.adAnno));
  if (da.empty() && a.empty()) return {};
  if (da.empty()) return campo + " <= " + a;
  if (a.empty()) return campo + " >= " + da;
  std::int16_t minore = annoBreve(da, utilita);
  std::int16_t maggiore = annoBreve(a, utilita);
  if (maggiore < minore) std::swap(minore, maggiore);
  return campo + " >= " + numero(minore, utilita) + " AND " + campo + " <=  " + numero(maggiore, utilita);
}

// A range of texts. `solo` is the value of a single limit; `da` is true when that is the lower one. `ultimo`
// is the operator of the upper limit of two.
struct Intervallo {
  bool da = false;
  bool a = false;
  std::string solo;
  std::string minore;
  std::string maggiore;
  std::string_view ultimo;
};

std::string intervallo(const std::string& campo, const Intervallo& estremi, const Conversioni& utilita) {
  if (estremi.da && estremi.a) {
    return " " + campo + " >= " + utilita.literal(estremi.minore) + " AND " + campo +
           std::string(estremi.ultimo) + utilita.literal(estremi.maggiore);
  }
  if (estremi.da) return campo + " >= " + utilita.literal(estremi.solo);
  if (estremi.a) return campo + " <= " + utilita.literal(estremi.solo);
  return {};
}

void inOrdine(std::string& a, std::string& b) {
  if (compareItalian(b, a) < 0) std::swap(a, b);
}

std::string percipienti(std::string_view campo, const Filtri& filtri, const Conversioni& utilita) {
  // Only a single limit of this field is the code; for every other field, codes included, it is the
  // description.
  const bool perCodice = campo == kCampoCodicePercipiente;
  Intervallo estremi{.da = !filtri.codiceDa.empty(),
                     .a = !filtri.codiceA.empty(),
                     .solo = {},
                     .minore = {},
                     .maggiore = {},
                     .ultimo = "<= "};
  if (estremi.da) {
    estremi.solo = perCodice ? filtri.codiceDa : filtri.descrizioneDa;
  } else {
    estremi.solo = perCodice ? filtri.codiceA : filtri.descrizioneA;
  }
  sbOrdinaEstremi(filtri, campo, estremi.minore, estremi.maggiore);
  return intervallo(std::string(campo), estremi, utilita);
}

std::string causali(std::string_view campo, const Filtri& filtri, const Conversioni& utilita) {
  Intervallo estremi{.da = !filtri.causaleDa.empty(),
                     .a = !filtri.causaleA.empty(),
                     .solo = filtri.causaleDa.empty() ? filtri.causaleA : filtri.causaleDa,
                     .minore = filtri.causaleDa,
                     .maggiore = filtri.causaleA,
                     .ultimo = "<="};
  inOrdine(estremi.minore, estremi.maggiore);
  return intervallo(std::string(campo), estremi, utilita);
}

void unisci(std::string& testo, const std::string& parte, std::string_view congiunzione) {
  if (!testo.empty() && !parte.empty()) testo += congiunzione;
  testo += parte;
}

bool perContoOSintetico(const Dati& dati) {
  return dati.report == kContoIndividuale || dati.report == kSintetico;
}

std::string sqlAnno(const Dati& dati, const Conversioni& utilita) {
  if (modoConti(dati)) return anni("Anno", dati.filtri, utilita);
  const std::string anno(trim(dati.filtri.anno));
  return (perContoOSintetico(dati) ? " Anno = " : "Year(DataPagamento) = ") + anno;
}

std::string_view sqlCampoPercipiente(const Dati& dati) {
  if (!dati.filtri.perCodice) return kSqlAnagrafica;
  return perContoOSintetico(dati) ? kSqlCodicePercipiente : kSqlCodice;
}

}  // namespace

std::string fnFiltroAnno(const Dati& dati, const Conversioni& utilita) {
  if (modoConti(dati)) return anni(std::string(kCampoAnno), dati.filtri, utilita);
  const std::string anno(trim(dati.filtri.anno));
  if (dati.report == kSintetico) return " " + std::string(kCampoAnno) + " = " + anno;
  if (dati.modo == ModoCorsa::Certificazione) return "Year({__ViewName.DataPagamento}) = " + anno;
  std::string filtro(kCampoAnno);
  filtro += " = ";
  filtro += anno;
  return filtro;
}

std::string fnFiltroPercipiente(const Dati& dati, const Conversioni& utilita) {
  std::string_view campo = kCampoAnagrafica;
  if (dati.filtri.perCodice) campo = dati.report == kAnalitico ? kCampoCodice : kCampoCodicePercipiente;
  return percipienti(campo, dati.filtri, utilita);
}

std::string fnFiltroCausale(const Dati& dati, const Conversioni& utilita) {
  const bool delPagamento = dati.modo == ModoCorsa::Certificazione && dati.report != kSintetico;
  return causali(delPagamento ? kCampoCodicePagamento : kCampoCodice, dati.filtri, utilita);
}

void sbOrdinaEstremi(const Filtri& filtri, std::string_view campo, std::string& a, std::string& b) {
  const bool codice = campo == kCampoCodicePercipiente || campo == kCampoCodice ||
                      campo == kSqlCodicePercipiente || campo == kSqlCodice;
  const bool nome = campo == kCampoAnagrafica || campo == kSqlAnagrafica;
  if (!codice && !nome) return;
  a = codice ? filtri.codiceDa : filtri.descrizioneDa;
  b = codice ? filtri.codiceA : filtri.descrizioneA;
  inOrdine(a, b);
}

std::string formula(const Dati& dati, const Conversioni& utilita) {
  std::string testo = fnFiltroAnno(dati, utilita);
  // The forms of the file find their rows through the selection table instead.
  const bool file = dati.modo == ModoCorsa::CU;
  if (!file) {
    unisci(testo, fnFiltroPercipiente(dati, utilita), " AND ");
    unisci(testo, fnFiltroCausale(dati, utilita), " AND ");
  }
  if (!testo.empty()) testo += " AND ";
  const std::string azienda = fromInteger(dati.idAzienda);
  if (perContoOSintetico(dati)) testo += "{__ViewName.IDAziendaPercipiente} = " + azienda + " AND ";
  testo += "{__ViewName.IDAzienda} = " + azienda;
  if (file) testo += " AND {__ViewName.IDUtente} = " + fromInteger(dati.idUtente);
  return testo;
}

std::string_view vista(const Dati& dati) {
  if (modoConti(dati)) return "RepContoIndividuale";
  if (dati.modo != ModoCorsa::Certificazione) return {};
  return dati.report == kSintetico ? "RepContoIndividuale" : "RepCompenso";
}

std::string filtroSql(const Dati& dati, const Conversioni& utilita) {
  std::string testo = " IDAzienda =  " + fromInteger(dati.idAzienda);
  unisci(testo, sqlAnno(dati, utilita), " And ");
  unisci(testo, percipienti(sqlCampoPercipiente(dati), dati.filtri, utilita), " And ");
  unisci(testo, causali(dati.report == kAnalitico ? kSqlCodicePagamento : kSqlCodice, dati.filtri, utilita),
         " And ");
  return testo;
}

}  // namespace cu::stampa

#include "intake/conti_lotto.h"

#include <array>
#include <utility>

#include "base/error.h"
#include "base/text.h"
#include "data/inserimento.h"
#include "schede/righe.h"
#include "schede/testo_riga.h"

namespace cu::intake {
namespace {

using schede::idIn;
using schede::Importi;
using schede::Riga;

constexpr std::size_t kPrimoImporto = 4;

Importi importiDelConto(const Riga& conto) {
  Importi importi;
  for (std::size_t i = 0; i < importi.size(); ++i) importi[i] = conto[kPrimoImporto + i].view().decimal();
  return importi;
}
Importi importiDelConto(const CellView* conto) {
  Importi importi;
  for (std::size_t i = 0; i < importi.size(); ++i) importi[i] = conto[kPrimoImporto + i].decimal();
  return importi;
}

Riga rigaConto(const ChiaveConto& chiave, std::int32_t idAzienda, const Importi& importi) {
  Riga riga = {Value::ofInteger(chiave.idAnagrafica), Value::ofInteger(chiave.idCausale),
               Value::ofInteger(chiave.anno), Value::ofInteger(idAzienda)};
  for (const Decimal importo : importi) riga.push_back(Value::ofDecimal(importo));
  return riga;
}

std::string testoImporti(const Importi& importi) {
  std::string testo;
  for (const Decimal importo : importi) testo += (testo.empty() ? "" : "\t") + importo.toText();
  return testo;
}

Importi importiDaTesto(std::string_view testo) {
  Importi importi{};
  for (Decimal& importo : importi) {
    const std::string_view campo = testo.substr(0, testo.find('\t'));
    importo = Decimal::parse(campo).value_or(Decimal());
    testo.remove_prefix(campo.size() < testo.size() ? campo.size() + 1 : testo.size());
  }
  return importi;
}

void sommaA(Importi& totale, const CellView* compenso) {
  constexpr std::size_t kPrimo = 7;
  for (std::size_t i = 0; i < totale.size(); ++i) totale[i] = totale[i] + compenso[kPrimo + i].decimal();
}

}  // namespace

ContiLotto::ContiLotto(DatabaseHost& database, RicostruzioneConti& ricostruzione, std::int32_t idAzienda,
                       std::int32_t lotto)
    : database_(database),
      connessione_(database.ownConnection()),
      ricostruzione_(ricostruzione),
      idAzienda_(idAzienda),
      lotto_(lotto) {}

ContiLotto::Attuali ContiLotto::attuali(const std::set<ChiaveConto>& quali) const {
  const std::string sua = " WHERE IDAzienda = " + fromInteger(idAzienda_);
  Attuali trovati;
  schede::perOgniRiga(connessione_, schede::kConto, sua, [&](const CellView* riga) {
    const ChiaveConto chiave{idIn(riga[0]), idIn(riga[1]), idIn(riga[2])};
    if (!quali.contains(chiave)) return;
    Riga& conto = trovati.conti[chiave];
    for (std::size_t i = 0; i < schede::kConto.colonne.size(); ++i) conto.push_back(Value::of(riga[i]));
  });
  schede::perOgniRiga(connessione_, schede::kCompenso, sua, [&](const CellView* riga) {
    const ChiaveConto chiave{idIn(riga[2]), idIn(riga[3]), riga[4].date().year()};
    if (quali.contains(chiave)) sommaA(trovati.somme[chiave], riga);
  });
  return trovati;
}

void ContiLotto::ricorda(const std::vector<ContoPiano>& conti) {
  std::set<ChiaveConto> quali;
  for (const ContoPiano& conto : conti) quali.insert({conto.idAnagrafica, conto.idCausale, conto.anno});
  const Attuali ora = attuali(quali);
  Inserimento inserimento(connessione_, "CuImportazioneConto",
                          {"IDImportazione", "Anno", "IDAnagrafica", "IDCausalePagamento", "Prima", "Somma"});
  for (const ChiaveConto& chiave : quali) {
    const auto conto = ora.conti.find(chiave);
    const auto somma = ora.somme.find(chiave);
    inserimento.intero(lotto_).intero(chiave.anno).intero(chiave.idAnagrafica).intero(chiave.idCausale);
    inserimento.testo(conto == ora.conti.end() ? std::string() : schede::testoRiga(conto->second));
    inserimento.testo(testoImporti(somma == ora.somme.end() ? Importi{} : somma->second)).riga();
  }
  inserimento.chiudi();
}

std::map<ChiaveConto, ContiLotto::Ricordo> ContiLotto::ricordi() const {
  RowStore righe;
  connessione_.Query(
      "SELECT IDAnagrafica, IDCausalePagamento, Anno, Prima, Somma FROM CuImportazioneConto"
      " WHERE IDImportazione = " +
          fromInteger(lotto_),
      righe);
  std::map<ChiaveConto, Ricordo> trovati;
  std::array<CellView, 5> celle;
  for (std::size_t i = 0; i < righe.size(); ++i) {
    righe.read(i, celle.data());
    Ricordo& ricordo = trovati[{idIn(celle[0]), idIn(celle[1]), idIn(celle[2])}];
    if (!celle[3].text().empty()) ricordo.prima = schede::rigaDaTesto(schede::kConto, celle[3].text());
    ricordo.somma = importiDaTesto(celle[4].text());
  }
  return trovati;
}

std::set<ChiaveConto> ContiLotto::chiavi() const {
  RowStore righe;
  connessione_.Query(
      "SELECT IDAnagrafica, IDCausalePagamento, Anno FROM CuImportazioneConto WHERE IDImportazione = " +
          fromInteger(lotto_),
      righe);
  std::set<ChiaveConto> quali;
  std::array<CellView, 3> celle;
  for (std::size_t i = 0; i < righe.size(); ++i) {
    righe.read(i, celle.data());
    quali.insert({idIn(celle[0]), idIn(celle[1]), idIn(celle[2])});
  }
  return quali;
}

std::set<int> ContiLotto::anni() const {
  RowStore righe;
  connessione_.Query(
      "SELECT DISTINCT Anno FROM CuImportazioneConto WHERE IDImportazione = " + fromInteger(lotto_), righe);
  std::set<int> anni;
  CellView anno;
  for (std::size_t i = 0; i < righe.size(); ++i) {
    righe.read(i, &anno);
    anni.insert(static_cast<int>(anno.integer()));
  }
  return anni;
}

void ContiLotto::ricostruisci(ProgressSink* avanzamento) {
  ricostruzione_.setDatabase(database_);
  ricostruzione_.setAzienda(idAzienda_);
  const std::set<int> tutti = anni();
  std::size_t fatti = 0;
  for (const int anno : tutti) {
    if (avanzamento != nullptr) avanzamento->progress("Conti", fatti++, tutti.size());
    ricostruzione_.setFiltro(
        " AND EXISTS (SELECT * FROM CuImportazioneConto Toccato WHERE Toccato.IDImportazione = " +
        fromInteger(lotto_) + " AND Toccato.Anno = " + fromInteger(anno) +
        " AND Toccato.IDAnagrafica = Pagamenti.IDAnagrafica"
        " AND Toccato.IDCausalePagamento = Pagamenti.IDCausalePagamento)");
    ricostruzione_.ricostruisci(static_cast<std::int16_t>(anno));
  }
  // The rebuild leaves accounts without payments as they are.
  schede::Scrittura scrittura(connessione_);
  for (const Riga& conto : schede::leggiRighe(
           connessione_, schede::kConto,
           " INNER JOIN CuImportazioneConto Toccato ON Toccato.IDAnagrafica = ContoIndividuale.IDAnagrafica"
           " AND Toccato.IDCausalePagamento = ContoIndividuale.IDCausalePagamento"
           " AND Toccato.Anno = ContoIndividuale.Anno WHERE Toccato.IDImportazione = " +
               fromInteger(lotto_) + " AND ContoIndividuale.IDAzienda = " + fromInteger(idAzienda_) +
               " AND NOT EXISTS (SELECT * FROM Compenso WHERE Compenso.IDAzienda = ContoIndividuale.IDAzienda"
               " AND Compenso.IDAnagrafica = ContoIndividuale.IDAnagrafica"
               " AND Compenso.IDCausalePagamento = ContoIndividuale.IDCausalePagamento"
               " AND Year(Compenso.DataPagamento) = ContoIndividuale.Anno)")) {
    scrittura.cambia(schede::kConto, conto,
                     rigaConto({idIn(conto, 0), idIn(conto, 1), idIn(conto, 2)}, idAzienda_, {}));
  }
}

void ContiLotto::confronta(const std::vector<ContoPiano>& conti) const {
  std::map<ChiaveConto, const ContoPiano*> attesi;
  for (const ContoPiano& conto : conti)
    attesi.emplace(ChiaveConto{conto.idAnagrafica, conto.idCausale, conto.anno}, &conto);
  schede::perOgniRiga(connessione_, schede::kConto, " WHERE IDAzienda = " + fromInteger(idAzienda_),
                      [&](const CellView* riga) {
                        const auto suo = attesi.find({idIn(riga[0]), idIn(riga[1]), idIn(riga[2])});
                        if (suo != attesi.end() && importiDelConto(riga) == suo->second->dopo)
                          attesi.erase(suo);
                      });
  if (attesi.empty()) return;
  const ContoPiano& conto = *attesi.begin()->second;
  throw Error(kErrorDatabase,
              "Il conto " + conto.percipiente + ", causale " + conto.causale + ", " +
                  fromInteger(conto.anno) +
                  ", ricostruito dai compensi, non è quello previsto. Non è stato scritto nulla.");
}

std::vector<ContiLotto::Corretto> ContiLotto::corretti() const {
  const std::set<ChiaveConto> quali = chiavi();
  const Attuali ora = attuali(quali);
  std::vector<Corretto> corretti;
  for (const ChiaveConto& chiave : quali) {
    const auto conto = ora.conti.find(chiave);
    const auto somma = ora.somme.find(chiave);
    if (conto != ora.conti.end() &&
        importiDelConto(conto->second) == (somma == ora.somme.end() ? Importi{} : somma->second)) {
      continue;
    }
    corretti.push_back({chiave, conto == ora.conti.end()});
  }
  return corretti;
}

bool ContiLotto::haAltro(const ChiaveConto& chiave) const {
  const std::string suoi = " WHERE IDAnagrafica = " + fromInteger(chiave.idAnagrafica) +
                           " AND IDCausalePagamento = " + fromInteger(chiave.idCausale) +
                           " AND Anno = " + fromInteger(chiave.anno) +
                           " AND IDAzienda = " + fromInteger(idAzienda_);
  for (const char* tabella : {"ContoIndividualeDatiAggiuntivi", "ModuloXContoIndividuale"}) {
    RowStore righe;
    connessione_.Query("SELECT IDAnagrafica FROM " + std::string(tabella) + suoi, righe);
    if (righe.size() > 0) return true;
  }
  return false;
}

void ContiLotto::riporta() {
  ricostruisci();
  const std::map<ChiaveConto, Ricordo> tutti = ricordi();
  const Attuali ora = attuali(chiavi());
  schede::Scrittura scrittura(connessione_);
  for (const auto& [chiave, ricordo] : tutti) {
    const auto conto = ora.conti.find(chiave);
    if (conto == ora.conti.end()) continue;
    const auto somma = ora.somme.find(chiave);
    const Importi dopo = somma == ora.somme.end() ? Importi{} : somma->second;
    if (!ricordo.prima && somma == ora.somme.end() && !haAltro(chiave)) {
      scrittura.togli(schede::kConto, conto->second);
    } else if (ricordo.prima && dopo == ricordo.somma) {
      scrittura.ripristina(schede::kConto, conto->second, *ricordo.prima);
    }
  }
}

}  // namespace cu::intake

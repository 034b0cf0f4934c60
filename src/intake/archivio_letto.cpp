#include "intake/archivio_letto.h"

#include <array>
#include <string_view>
#include <utility>

#include "base/text.h"
#include "data/inserimento.h"
#include "intake/storico.h"
#include "schede/aziende.h"
#include "schede/compensi.h"
#include "schede/percipienti.h"
#include "schede/righe.h"
#include "schede/scrittura.h"

namespace cu::intake {
namespace {

using schede::idIn;

// FNV-1a: it tells contents apart, and protects nothing.
class Somma {
 public:
  void testo(std::string_view valore) {
    for (const char c : valore) byte(static_cast<unsigned char>(c));
    byte(0);
  }
  void numero(std::int64_t valore) {
    for (unsigned i = 0; i < 64; i += 8)
      byte(static_cast<unsigned char>(static_cast<std::uint64_t>(valore) >> i));
  }
  void riga(const schede::Riga& riga) {
    for (const Value& valore : riga) {
      numero(static_cast<std::int64_t>(valore.type()));
      if (valore.type() == ValueType::Text) {
        testo(valore.view().text());
      } else if (valore.type() == ValueType::Date) {
        numero(valore.view().date().serial());
      } else {
        numero(valore.view().decimal().scaled());
      }
    }
  }
  void compenso(const schede::SchedaCompenso& scheda) {
    for (const std::int32_t id : {scheda.id, scheda.idAnagrafica, scheda.idCausale, scheda.pagamento.serial(),
                                  scheda.documento.serial()}) {
      numero(id);
    }
    testo(scheda.numero);
    for (const Decimal importo : scheda.importi) numero(importo.scaled());
  }
  std::uint64_t valore() const { return valore_; }

 private:
  void byte(unsigned char valore) { valore_ = (valore_ ^ valore) * 1099511628211U; }
  std::uint64_t valore_ = 14695981039346656037U;
};

}  // namespace

ArchivioLetto::ArchivioLetto(Connection& connessione, Elenco elenco, const RichiestaPiano& richiesta,
                             std::shared_ptr<const schede::Luoghi> giaLetti)
    : luoghiLetti(giaLetti ? std::move(giaLetti) : std::make_shared<const schede::Luoghi>(connessione)),
      luoghi(*luoghiLetti),
      elenchi(connessione) {
  const schede::Aziende tutte(connessione);
  if (elenco == Elenco::Aziende) {
    aziende = tutte.tutte();
  } else {
    if (auto azienda = tutte.cerca(richiesta.idAzienda)) aziende.push_back(std::move(*azienda));
    percipienti = schede::Percipienti(connessione, richiesta.idAzienda).tutti();
  }
  if (elenco == Elenco::Compensi) {
    compensi = schede::Compensi(connessione, richiesta.idAzienda).degliAnni({});
    leggiConti(connessione, richiesta.idAzienda);
  }
  if (haStorico(connessione)) leggiStorico(connessione, elenco, richiesta.idAzienda);
}

void ArchivioLetto::leggiConti(Connection& connessione, std::int32_t idAzienda) {
  const std::string sua = " WHERE IDAzienda = " + fromInteger(idAzienda);
  const auto chiave = [](const CellView* riga) {
    return ChiaveConto{idIn(riga[0]), idIn(riga[1]), static_cast<int>(riga[2].integer())};
  };
  schede::perOgniRiga(connessione, schede::kConto, sua, [&](const CellView* riga) {
    schede::Importi& importi = conti[chiave(riga)].importi.emplace();
    for (std::size_t i = 0; i < importi.size(); ++i) importi[i] = riga[4 + i].decimal();
  });
  schede::perOgniRiga(connessione, schede::kDatiAggiuntivi, sua, [&](const CellView* riga) {
    ContoLetto& conto = conti[chiave(riga)];
    conto.haDatiAggiuntivi = true;
    conto.idCodiceNonSoggette = idIn(riga[5]);
  });
  RowStore moduli;
  connessione.Query(
      "SELECT IDAnagrafica, IDCausalePagamento, Anno, SommeNonSoggette FROM ModuloXContoIndividuale" + sua,
      moduli);
  std::array<CellView, 4> celle;
  for (std::size_t i = 0; i < moduli.size(); ++i) {
    moduli.read(i, celle.data());
    if (!celle[3].decimal().isZero()) conti[chiave(celle.data())].moduliConSomme = true;
  }
}

void ArchivioLetto::leggiStorico(Connection& connessione, Elenco elenco, std::int32_t idAzienda) {
  const std::string deiLotti = " INNER JOIN CuImportazione ON CuImportazione.IDImportazione = ";
  std::string dove = ".IDImportazione WHERE CuImportazione.Stato = 'applicata' AND CuImportazione.Elenco = ";
  appendTesto(dove, nome(elenco));
  if (elenco != Elenco::Aziende) dove += " AND CuImportazione.IDAzienda = " + fromInteger(idAzienda);
  std::array<CellView, 2> celle;
  for (const std::string_view tabella : {"CuImportazioneFile", "CuImportazioneContenuto"}) {
    RowStore file;
    std::string domanda;
    for (const std::string_view parte :
         {std::string_view("SELECT "), tabella, std::string_view(".Impronta FROM "), tabella,
          std::string_view(deiLotti), tabella, std::string_view(dove)}) {
      domanda += parte;
    }
    connessione.Query(domanda, file);
    for (std::size_t i = 0; i < file.size(); ++i) {
      file.read(i, celle.data());
      impronte.insert(celle[0].toText());
    }
  }
  if (elenco != Elenco::Compensi) return;
  RowStore righe;
  connessione.Query(
      "SELECT CuImportazioneRiga.Riferimento, CuImportazioneRiga.Chiave FROM CuImportazioneRiga" + deiLotti +
          "CuImportazioneRiga" + dove +
          " AND CuImportazioneRiga.Riferimento IS NOT NULL"
          " ORDER BY CuImportazioneRiga.IDImportazione, CuImportazioneRiga.Numero",
      righe);
  for (std::size_t i = 0; i < righe.size(); ++i) {
    righe.read(i, celle.data());
    riferimenti[celle[0].toText()] = static_cast<std::int32_t>(leadingInteger(celle[1].toText()));
  }
}

std::uint64_t ArchivioLetto::impronta() const {
  Somma somma;
  for (const schede::SchedaAzienda& azienda : aziende) {
    somma.numero(azienda.id);
    somma.riga(schede::rigaAnagrafica(azienda.sede));
    somma.riga(schede::rigaAnagrafica(azienda.rappresentante));
    for (const std::string* testo :
         {&azienda.codiceFiscaleSocieta, &azienda.codiceAttivita, &azienda.intermediario}) {
      somma.testo(*testo);
    }
    for (const std::int32_t numero : {azienda.idCarica, azienda.idEventoEccezionale, azienda.impegno,
                                      azienda.dataImpegno.serial(), azienda.primoAnno, azienda.ultimoAnno}) {
      somma.numero(numero);
    }
  }
  for (const schede::SchedaPercipiente& percipiente : percipienti) {
    somma.riga(schede::rigaAnagrafica(percipiente.anagrafica));
    somma.riga(schede::rigaPercipiente(percipiente));
  }
  for (const schede::SchedaCompenso& compenso : compensi) somma.compenso(compenso);
  for (const auto& [chiave, conto] : conti) {
    somma.numero(chiave.idAnagrafica);
    somma.numero(chiave.idCausale);
    somma.numero(chiave.anno);
    somma.numero(conto.idCodiceNonSoggette);
    somma.numero(conto.moduliConSomme ? 1 : 0);
    if (!conto.importi) continue;
    for (const Decimal importo : *conto.importi) somma.numero(importo.scaled());
  }
  somma.numero(static_cast<std::int64_t>(riferimenti.size()));
  for (const std::string& suo : impronte) somma.testo(suo);
  return somma.valore();
}

}  // namespace cu::intake

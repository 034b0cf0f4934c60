#include "intake/identita_fatture.h"

#include <algorithm>

#include "base/text.h"
#include "intake/lettura_fatture.h"

namespace cu::intake {
namespace {

using schede::SchedaCompenso;

constexpr std::string_view kNotaDiDebito = "TD05";

Decimal lordoDi(const SchedaCompenso& scheda) {
  using enum schede::Importo;
  return scheda.importi[posto(Onorario)] + scheda.importi[posto(SommeNonSoggette)] +
         scheda.importi[posto(RegimeConvenzionale)];
}

std::string chiaveFattura(std::int32_t idAnagrafica, bool negativa, const std::string& numero) {
  return fromInteger(idAnagrafica) + (negativa ? "-" : "+") + lowerAscii(trim(numero));
}
std::string chiaveFattura(const SchedaCompenso& scheda) {
  return chiaveFattura(scheda.idAnagrafica, lordoDi(scheda) < Decimal(), scheda.numero);
}

bool stessoDocumentoDi(const SchedaCompenso& uno, const SchedaCompenso& altro) {
  if (uno.documento == Date() || altro.documento == Date())
    return uno.pagamento.year() == altro.pagamento.year();
  return uno.documento == altro.documento;
}

// Of the amounts that an invoice gives, those of a payment may be any that it can mean.
bool stessiImporti(const CompensoDato& dato, const SchedaCompenso& altro, const IdentitaFatture::Come& come) {
  if (dato.stessiImporti(altro)) return true;
  if (come.proposte.empty()) return false;
  return come.giaImportata ||
         std::any_of(come.proposte.begin(), come.proposte.end(), [&](const schede::Importi& proposta) {
           CompensoDato suo = dato;
           suo.scheda.importi = proposta;
           return suo.stessiImporti(altro);
         });
}

}  // namespace

IdentitaFatture::IdentitaFatture(const Piano& piano, const ArchivioLetto& archivio) : piano_(piano) {
  for (const SchedaCompenso& compenso : archivio.compensi) {
    if (!trim(compenso.numero).empty()) perNumero_[chiaveFattura(compenso)].push_back(&compenso);
  }
}

bool IdentitaFatture::stessoDocumento(const RigaPiano& una, const RigaPiano& altra) const {
  return una.posizione.file == altra.posizione.file && piano_.letta(una).numero == piano_.letta(altra).numero;
}

std::string IdentitaFatture::dove(const RigaPiano& riga) const {
  const PostoMessaggio suo = piano_.posto(riga);
  return "in " + suo.file +
         (suo.documento > 0 ? ", documento " + fromInteger(static_cast<std::int64_t>(suo.documento)) : "");
}

const std::string& IdentitaFatture::tipo(const RigaPiano& riga) const {
  const FattureLette& lette = *(*piano_.letture)[riga.posizione.file].fatture;
  return lette.documenti[lette.righe[riga.posizione.riga].documento].tipo;
}

Riscontro IdentitaFatture::cerca(const CompensoDato& dato, const RigaPiano& riga, const Come& come) {
  const auto viste = viste_.find(chiaveFattura(dato.scheda));
  if (viste != viste_.end()) {
    for (const std::size_t quale : viste->second) {
      const Voce<SchedaCompenso>& voce = piano_.compensi[quale];
      const RigaPiano& altra = piano_.righe[voce.riga];
      if (!stessoDocumentoDi(voce.dopo, dato.scheda) || voce.dopo.idCausale != dato.scheda.idCausale ||
          stessoDocumento(altra, riga) || tipo(altra) != tipo(riga)) {
        continue;
      }
      const bool uguale = dato.stessiImporti(voce.dopo) &&
                          (come.dataProposta || voce.dopo.pagamento == dato.scheda.pagamento);
      return {uguale ? Riscontro::Esito::Uguale : Riscontro::Esito::Ripetuto, nullptr, quale, dove(altra)};
    }
  }
  Riscontro riscontro = nellArchivio(dato, come);
  const bool trovato = riscontro.compenso != nullptr || riscontro.esito == Riscontro::Esito::Ripetuto;
  if (trovato && tipo(riga) == kNotaDiDebito && !come.fileNoto &&
      (riscontro.esito != Riscontro::Esito::Uguale || !come.dataDecisa)) {
    if (come.dataDecisa) return {};
    return {
        Riscontro::Esito::Incerto, nullptr, kSenzaVoce,
        "in archivio un compenso ha lo stesso documento: non si sa se è di questa nota di debito o di una "
        "fattura con lo stesso numero"};
  }
  if (riscontro.compenso != nullptr) usati_.insert(riscontro.compenso->id);
  return riscontro;
}

std::vector<IdentitaFatture::Compenso> IdentitaFatture::possibili(const CompensoDato& dato, bool sola) const {
  const auto trovati = perNumero_.find(chiaveFattura(dato.scheda));
  if (trovati == perNumero_.end()) return {};
  std::vector<Compenso> conCausale;
  std::vector<Compenso> altri;
  for (const Compenso uno : trovati->second) {
    if (usati_.contains(uno->id) || !stessoDocumentoDi(*uno, dato.scheda)) continue;
    (uno->idCausale == dato.scheda.idCausale ? conCausale : altri).push_back(uno);
  }
  return conCausale.empty() && sola ? altri : conCausale;
}

Riscontro IdentitaFatture::nellArchivio(const CompensoDato& dato, const Come& come) {
  using enum Riscontro::Esito;
  const std::vector<Compenso> suoi = possibili(dato, come.sola);
  if (suoi.empty()) return senzaDataDocumento(dato, come);
  for (const Compenso uno : suoi) {
    const bool stessa = come.dataProposta || uno->pagamento == dato.scheda.pagamento;
    if (stessa && uno->idCausale == dato.scheda.idCausale && stessiImporti(dato, *uno, come))
      return {Uguale, uno, kSenzaVoce, {}};
  }
  if (suoi.size() == 1) return {Diverso, suoi.front(), kSenzaVoce, {}};
  // An invoice that was paid in parts.
  SchedaCompenso somma;
  for (const Compenso uno : suoi) {
    for (std::size_t i = 0; i < somma.importi.size(); ++i)
      somma.importi[i] = somma.importi[i] + uno->importi[i];
  }
  if (!dato.stessiImporti(somma)) return {Ripetuto, nullptr, kSenzaVoce, "in archivio più volte"};
  for (const Compenso uno : suoi) usati_.insert(uno->id);
  return {Uguale, suoi.front(), kSenzaVoce, {}};
}

// The year of a proposed date does not tell two documents of one number apart.
Riscontro IdentitaFatture::senzaDataDocumento(const CompensoDato& dato, const Come& come) const {
  const auto trovati = perNumero_.find(chiaveFattura(dato.scheda));
  if (!come.dataProposta || trovati == perNumero_.end()) return {};
  for (const Compenso uno : trovati->second) {
    if (usati_.contains(uno->id) || uno->documento != Date() || uno->pagamento < dato.scheda.documento ||
        (uno->idCausale != dato.scheda.idCausale && !come.sola) || !stessiImporti(dato, *uno, come)) {
      continue;
    }
    return {
        Riscontro::Esito::Incerto, nullptr, kSenzaVoce,
        "in archivio un compenso con lo stesso numero e gli stessi importi, senza la data del documento, è "
        "pagato il " +
            uno->pagamento.toItalian()};
  }
  return {};
}

std::optional<Date> IdentitaFatture::pagamento(const Cercato& cercato, const std::string& numero,
                                               Date documento) const {
  const auto suoi = perNumero_.find(chiaveFattura(cercato.idAnagrafica, cercato.negativo, numero));
  if (suoi == perNumero_.end()) return std::nullopt;
  std::optional<Date> altro;
  for (const Compenso uno : suoi->second) {
    if (uno->documento != documento) continue;
    if (uno->idCausale == cercato.idCausale) return uno->pagamento;
    if (cercato.sola && !altro) altro = uno->pagamento;
  }
  return altro;
}

void IdentitaFatture::aggiungi(const CompensoDato& dato, std::size_t voce) {
  viste_[chiaveFattura(dato.scheda)].push_back(voce);
}

}  // namespace cu::intake

#include "intake/identita.h"

#include <algorithm>

#include "base/text.h"

namespace cu::intake {
namespace {

using schede::SchedaCompenso;

void attacca(std::string& chiave, std::int64_t valore) {
  for (unsigned i = 0; i < 64; i += 8) {
    chiave += static_cast<char>(static_cast<std::uint64_t>(valore) >> i & 0xFFU);
  }
}

std::string chiaveBase(char genere, const SchedaCompenso& scheda) {
  std::string chiave(1, genere);
  attacca(chiave, scheda.idAnagrafica);
  attacca(chiave, scheda.idCausale);
  attacca(chiave, scheda.pagamento.serial());
  return chiave;
}

std::string numeroDocumento(const SchedaCompenso& scheda) { return lowerAscii(trim(scheda.numero)); }

std::string chiaveNumero(const SchedaCompenso& scheda) {
  return chiaveBase('n', scheda) + numeroDocumento(scheda);
}

std::string chiaveDocumento(const SchedaCompenso& scheda) {
  std::string chiave = chiaveBase('d', scheda);
  attacca(chiave, scheda.documento.serial());
  return chiave + numeroDocumento(scheda);
}

std::string chiaveGiorno(const SchedaCompenso& scheda) { return chiaveBase('g', scheda); }

std::string chiaveImporti(const SchedaCompenso& scheda) {
  std::string chiave = chiaveBase('i', scheda);
  for (const Decimal importo : scheda.importi) attacca(chiave, importo.scaled());
  return chiave;
}

std::string chiaveRiferimento(const std::string& riferimento) { return "r" + riferimento; }

}  // namespace

SchedaCompenso CompensoDato::su(const SchedaCompenso* prima) const {
  SchedaCompenso dopo = scheda;
  if (prima == nullptr) return dopo;
  dopo.id = prima->id;
  if (!numero) dopo.numero = prima->numero;
  if (!documento) dopo.documento = prima->documento;
  for (std::size_t i = 0; i < dopo.importi.size(); ++i) {
    if (!importi[i]) dopo.importi[i] = prima->importi[i];
  }
  return dopo;
}

bool CompensoDato::stessiImporti(const SchedaCompenso& altro) const {
  for (std::size_t i = 0; i < scheda.importi.size(); ++i) {
    if (importi[i] && scheda.importi[i] != altro.importi[i]) return false;
  }
  return true;
}

Identita::Identita(const Piano& piano, const ArchivioLetto& archivio) : piano_(piano), archivio_(archivio) {
  for (const SchedaCompenso& compenso : archivio.compensi) {
    perId_.emplace(compenso.id, &compenso);
    if (numeroDocumento(compenso).empty()) {
      perImporti_[chiaveImporti(compenso)].push_back(&compenso);
      perGiorno_[chiaveGiorno(compenso)].push_back(&compenso);
    } else {
      perNumero_[chiaveNumero(compenso)].push_back(&compenso);
    }
  }
  for (const auto& [riferimento, id] : archivio.riferimenti) conRiferimento_.insert(id);
}

// A row with a reference of its own is none of the payments that have another one, or that a row has met.
bool Identita::possibile(Compenso compenso, bool conRiferimento) const {
  return !conRiferimento || (!conRiferimento_.contains(compenso->id) && !usati_.contains(compenso->id));
}

Riscontro Identita::cerca(const CompensoDato& dato) {
  if (!dato.riferimento.empty()) {
    Riscontro ripetuto = neiFile(dato, chiaveRiferimento(dato.riferimento));
    if (ripetuto.esito != Riscontro::Esito::Nuovo) return ripetuto;
  } else if (!numeroDocumento(dato.scheda).empty()) {
    Riscontro ripetuto = neiFile(dato, chiaveDocumento(dato.scheda));
    if (ripetuto.esito != Riscontro::Esito::Nuovo) return ripetuto;
  }
  Riscontro riscontro = nellArchivio(dato);
  if (riscontro.compenso != nullptr) usati_.insert(riscontro.compenso->id);
  return riscontro;
}

Riscontro Identita::neiFile(const CompensoDato& dato, const std::string& chiave) const {
  const auto vista = visti_.find(chiave);
  if (vista == visti_.end()) return {};
  const Voce<SchedaCompenso>& voce = piano_.compensi[vista->second];
  const RigaPiano& riga = piano_.righe[voce.riga];
  std::string dove = "nella riga " + fromInteger(static_cast<std::int64_t>(piano_.letta(riga).numero));
  if (piano_.letture->size() > 1) dove += " di " + (*piano_.letture)[riga.posizione.file].file;
  // Both are the same where they would leave the same payment.
  const bool stesso = dato.su(voce.prima ? &*voce.prima : nullptr) == voce.dopo;
  return {stesso ? Riscontro::Esito::Uguale : Riscontro::Esito::Ripetuto, nullptr, vista->second, dove};
}

Riscontro Identita::nellArchivio(const CompensoDato& dato) {
  const auto riscontro = [](Compenso compenso, bool uguale) {
    return Riscontro{uguale ? Riscontro::Esito::Uguale : Riscontro::Esito::Diverso, compenso, kSenzaVoce, {}};
  };
  const auto conosciuto = archivio_.riferimenti.find(dato.riferimento);
  if (!dato.riferimento.empty() && conosciuto != archivio_.riferimenti.end()) {
    const auto suo = perId_.find(conosciuto->second);
    if (suo != perId_.end()) return riscontro(suo->second, dato.su(suo->second) == *suo->second);
  }
  if (numeroDocumento(dato.scheda).empty()) return senzaNumero(dato);
  const std::vector<Compenso> possibili = conNumero(dato);
  for (const Compenso uno : possibili) {
    if (dato.stessiImporti(*uno)) return riscontro(uno, true);
  }
  if (possibili.empty()) return {};
  if (possibili.size() > 1) return {Riscontro::Esito::Ripetuto, nullptr, kSenzaVoce, "in archivio più volte"};
  return riscontro(possibili.front(), false);
}

// A row without the date of the document means the payment without one, or else any of the number.
std::vector<Identita::Compenso> Identita::conNumero(const CompensoDato& dato) const {
  const auto trovati = perNumero_.find(chiaveNumero(dato.scheda));
  if (trovati == perNumero_.end()) return {};
  std::vector<Compenso> conData;
  std::vector<Compenso> altri;
  for (const Compenso uno : trovati->second) {
    if (!possibile(uno, !dato.riferimento.empty())) continue;
    (uno->documento == dato.scheda.documento ? conData : altri).push_back(uno);
  }
  return conData.empty() && !dato.documento ? altri : conData;
}

Riscontro Identita::senzaNumero(const CompensoDato& dato) {
  const auto cerca = [&](const auto& indice, const std::string& chiave) -> Compenso {
    const auto trovati = indice.find(chiave);
    if (trovati == indice.end()) return nullptr;
    for (const Compenso uno : trovati->second) {
      if (usati_.contains(uno->id) || !possibile(uno, !dato.riferimento.empty())) continue;
      if (dato.stessiImporti(*uno)) return uno;
    }
    return nullptr;
  };
  Compenso trovato = cerca(perImporti_, chiaveImporti(dato.scheda));
  if (trovato == nullptr && !dato.importi.all()) trovato = cerca(perGiorno_, chiaveGiorno(dato.scheda));
  if (trovato == nullptr) return {};
  return {Riscontro::Esito::Uguale, trovato, kSenzaVoce, {}};
}

void Identita::aggiungi(const CompensoDato& dato, std::size_t voce) {
  const auto numero = static_cast<std::uint32_t>(voce);
  if (!dato.riferimento.empty()) {
    visti_.emplace(chiaveRiferimento(dato.riferimento), numero);
  } else if (!numeroDocumento(dato.scheda).empty()) {
    visti_.emplace(chiaveDocumento(dato.scheda), numero);
  }
}

}  // namespace cu::intake

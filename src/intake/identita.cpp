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

std::string chiaveDocumento(const SchedaCompenso& scheda) {
  std::string chiave = chiaveBase('d', scheda);
  attacca(chiave, scheda.documento.serial());
  return chiave + numeroDocumento(scheda);
}

std::string chiaveImporti(const SchedaCompenso& scheda) {
  std::string chiave = chiaveBase('i', scheda);
  for (const Decimal importo : scheda.importi) attacca(chiave, importo.scaled());
  return chiave;
}

std::string chiaveRiferimento(const std::string& riferimento) { return "r" + riferimento; }

// All but the id.
bool stesso(const SchedaCompenso& a, const SchedaCompenso& b) {
  return a.idAnagrafica == b.idAnagrafica && a.idCausale == b.idCausale && a.pagamento == b.pagamento &&
         a.numero == b.numero && a.documento == b.documento && a.importi == b.importi;
}

}  // namespace

Identita::Identita(const Piano& piano, const ArchivioLetto& archivio) : piano_(piano), archivio_(archivio) {
  for (const SchedaCompenso& compenso : archivio.compensi) {
    perId_.emplace(compenso.id, &compenso);
    if (numeroDocumento(compenso).empty()) {
      perImporti_[chiaveImporti(compenso)].push_back(&compenso);
    } else {
      perDocumento_[chiaveDocumento(compenso)].push_back(&compenso);
    }
  }
  for (const auto& [riferimento, id] : archivio.riferimenti) conRiferimento_.insert(id);
}

// A row with a reference of its own is none of the payments that have another one.
bool Identita::possibile(Compenso compenso, bool conRiferimento) const {
  return !conRiferimento || !conRiferimento_.contains(compenso->id);
}

Riscontro Identita::cerca(const SchedaCompenso& scheda, const std::string& riferimento) {
  if (!riferimento.empty()) {
    Riscontro ripetuto = neiFile(scheda, chiaveRiferimento(riferimento));
    if (ripetuto.esito != Riscontro::Esito::Nuovo) return ripetuto;
  } else if (!numeroDocumento(scheda).empty()) {
    Riscontro ripetuto = neiFile(scheda, chiaveDocumento(scheda));
    if (ripetuto.esito != Riscontro::Esito::Nuovo) return ripetuto;
  }
  return nellArchivio(scheda, riferimento);
}

Riscontro Identita::neiFile(const SchedaCompenso& scheda, const std::string& chiave) const {
  const auto vista = visti_.find(chiave);
  if (vista == visti_.end()) return {};
  const Voce<SchedaCompenso>& voce = piano_.compensi[vista->second];
  if (stesso(voce.dopo, scheda)) return {Riscontro::Esito::Uguale, nullptr, {}};
  const RigaPiano& riga = piano_.righe[voce.riga];
  std::string dove = "nella riga " + fromInteger(static_cast<std::int64_t>(piano_.letta(riga).numero));
  if (piano_.letture->size() > 1) dove += " di " + (*piano_.letture)[riga.posizione.file].file;
  return {Riscontro::Esito::Ripetuto, nullptr, dove};
}

Riscontro Identita::nellArchivio(const SchedaCompenso& scheda, const std::string& riferimento) {
  const auto conosciuto = archivio_.riferimenti.find(riferimento);
  if (!riferimento.empty() && conosciuto != archivio_.riferimenti.end()) {
    const auto suo = perId_.find(conosciuto->second);
    if (suo != perId_.end()) {
      return {stesso(*suo->second, scheda) ? Riscontro::Esito::Uguale : Riscontro::Esito::Diverso,
              suo->second,
              {}};
    }
  }
  const bool conRiferimento = !riferimento.empty();
  if (numeroDocumento(scheda).empty()) return senzaNumero(scheda, conRiferimento);
  const auto trovati = perDocumento_.find(chiaveDocumento(scheda));
  if (trovati == perDocumento_.end()) return {};
  std::vector<Compenso> possibili = trovati->second;
  std::erase_if(possibili, [&](Compenso uno) { return !possibile(uno, conRiferimento); });
  for (const Compenso uno : possibili) {
    if (uno->importi == scheda.importi) return {Riscontro::Esito::Uguale, uno, {}};
  }
  if (possibili.empty()) return {};
  if (possibili.size() > 1) return {Riscontro::Esito::Ripetuto, nullptr, "in archivio più volte"};
  return {Riscontro::Esito::Diverso, possibili.front(), {}};
}

Riscontro Identita::senzaNumero(const SchedaCompenso& scheda, bool conRiferimento) {
  const auto trovati = perImporti_.find(chiaveImporti(scheda));
  if (trovati == perImporti_.end()) return {};
  for (const Compenso uno : trovati->second) {
    if (possibile(uno, conRiferimento) && usati_.insert(uno->id).second)
      return {Riscontro::Esito::Uguale, uno, {}};
  }
  return {};
}

void Identita::aggiungi(const SchedaCompenso& scheda, const std::string& riferimento, std::size_t voce) {
  const auto numero = static_cast<std::uint32_t>(voce);
  if (!riferimento.empty()) {
    visti_.emplace(chiaveRiferimento(riferimento), numero);
  } else if (!numeroDocumento(scheda).empty()) {
    visti_.emplace(chiaveDocumento(scheda), numero);
  }
}

}  // namespace cu::intake

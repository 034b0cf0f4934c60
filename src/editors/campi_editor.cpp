#include "editors/campi_editor.h"

#include "base/text.h"

namespace cu {

using modello::Forma;
using modello::kModello;
using modello::Modello;
using modello::Record;
using modello::Trovato;

static_assert(concorda(kModello, kControlliModulo1, Pagina::Modulo1));
static_assert(concorda(kModello, kControlliAltriModuli, Pagina::AltriModuli));

std::string numeroScritto(const CampoEditor& campo) {
  if (campo.numero == 0) return {};
  std::string testo = fromInteger(campo.numero);
  if (campo.parte != '\0') testo.append(".").push_back(campo.parte);
  return testo;
}

std::vector<CampoEditor> campiEditor(const Modello& modello, std::span<const ControlloCampo> controlli,
                                     Pagina pagina, std::int32_t anno) {
  std::vector<CampoEditor> campi;
  for (const ControlloCampo& controllo : controlli) {
    const Trovato trovato = trova(modello, Record::H, controllo.colonna, anno, pagina == Pagina::Modulo1);
    if (trovato.campo == nullptr) continue;
    CampoEditor& campo = campi.emplace_back(CampoEditor{controllo});
    campo.genere = trovato.colonna.genere;
    campo.numero = trovato.campo->numero;
    campo.parte = trovato.colonna.parte;
    campo.addizionale = trovato.campo->condizione == modello::Condizione::CausaleN;
    campo.conSegno = trovato.campo->forma == Forma::ImportoConSegno;
  }
  return campi;
}

std::vector<CampoEditor> campiEditor(Pagina pagina, std::int32_t anno) {
  const std::span<const ControlloCampo> controlli =
      pagina == Pagina::Modulo1 ? std::span<const ControlloCampo>(kControlliModulo1) : kControlliAltriModuli;
  return campiEditor(kModello, controlli, pagina, anno);
}

std::vector<CampoIntestazione> campiIntestazione(const Modello& modello, std::int32_t anno) {
  std::vector<CampoIntestazione> campi;
  for (const ControlloIntestazione& controllo : kIntestazione) {
    const Record dove = controllo.previdenza ? Record::H : Record::D;
    const modello::Campo* const campo = trova(modello, dove, controllo.colonna, anno, true).campo;
    if (campo != nullptr) campi.push_back({controllo, campo});
  }
  return campi;
}

}  // namespace cu

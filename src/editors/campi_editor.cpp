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

namespace {

CampoEditor campoDi(const ControlloCampo& controllo, const Trovato& trovato) {
  CampoEditor campo{controllo};
  campo.genere = trovato.colonna.genere;
  campo.numero = trovato.campo->numero;
  campo.parte = trovato.colonna.parte;
  campo.addizionale = trovato.campo->condizione == modello::Condizione::CausaleN;
  campo.conSegno = trovato.campo->forma == Forma::ImportoConSegno;
  return campo;
}

}  // namespace

std::vector<CampoEditor> campiEditor(const Modello& modello, std::span<const ControlloCampo> controlli,
                                     Pagina pagina, std::int32_t anno) {
  std::vector<CampoEditor> campi;
  for (const ControlloCampo& controllo : controlli) {
    const Trovato trovato = trova(modello, Record::H, controllo.colonna, anno, pagina == Pagina::Modulo1);
    if (trovato.campo != nullptr) campi.push_back(campoDi(controllo, trovato));
  }
  return campi;
}

std::vector<CampoEditor> campiEditor(Pagina pagina, std::int32_t anno, const ModelloDelFile& file) {
  const bool primo = pagina == Pagina::Modulo1;
  const std::span<const ControlloCampo> controlli =
      primo ? std::span<const ControlloCampo>(kControlliModulo1) : kControlliAltriModuli;
  std::vector<CampoEditor> campi = campiEditor(kModello, controlli, pagina, anno);
  const std::int32_t suo = annoTracciato(file.anno, file.modello);
  for (const ControlloCampo& controllo : controlli) {
    const Trovato trovato = trova(file.modello, Record::H, controllo.colonna, suo, primo);
    if (trovato.campo == nullptr || trovato.campo->riscrittura != modello::Riscrittura::Propria) continue;
    campi.push_back(campoDi(controllo, trovato));
  }
  return campi;
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

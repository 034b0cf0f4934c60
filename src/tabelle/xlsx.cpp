#include "tabelle/xlsx.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "tabelle/cartella_xlsx.h"
#include "tabelle/composizione.h"
#include "tabelle/foglio_xlsx.h"

namespace cu::tabelle {

Tabella leggiXlsx(std::string_view byte, std::string_view nome, const OpzioniLettura& opzioni) {
  CartellaXlsx cartella(byte, nome, opzioni.limiti);
  const FoglioXlsx& foglio = cartella.scegli(opzioni.foglio);
  const auto deposito = std::make_shared<Deposito>();
  cartella.leggiStiliETesti(*deposito);

  Tabella tabella;
  tabella.file = nome;
  tabella.foglio = foglio.foglio.nome;
  tabella.dal1904 = cartella.dal1904();
  RigheFoglio letto =
      leggiFoglio(cartella, foglio, {tabella.file, tabella.foglio, 0, 0}, *deposito, opzioni.limiti);
  componi(tabella, std::move(letto.righe), opzioni);
  tabella.righeNascoste = static_cast<std::size_t>(
      std::count_if(tabella.righe.begin(), tabella.righe.end(), [&](const RigaTabella& riga) {
        return std::binary_search(letto.nascoste.begin(), letto.nascoste.end(), riga.numero);
      }));
  tabella.testi = deposito;
  return tabella;
}

std::vector<Foglio> fogliDiXlsx(std::string_view byte, std::string_view nome, const Limiti& limiti) {
  std::vector<Foglio> fogli;
  const CartellaXlsx cartella(byte, nome, limiti);
  for (const FoglioXlsx& foglio : cartella.fogli()) fogli.push_back(foglio.foglio);
  return fogli;
}

}  // namespace cu::tabelle

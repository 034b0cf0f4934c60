#include "apps/assistente/colonne_tabella.h"

#include "apps/assistente/pagina.h"

namespace cu::assistente {

strumenti::Colonna colonnaImporto(const char* chiave, const char* titolo,
                                  const std::function<std::optional<Decimal>(std::size_t riga)>& di) {
  return {.chiave = chiave,
          .titolo = titolo,
          .testo =
              [di](std::size_t q) {
                const auto importo = di(q);
                return importo ? importoDa(*importo) : QString();
              },
          .aDestra = true,
          .ordine = [di](std::size_t q) { return QVariant(qlonglong(di(q).value_or(Decimal()).scaled())); }};
}

strumenti::Colonna colonnaNumero(const char* chiave, const char* titolo,
                                 const std::function<std::size_t(std::size_t riga)>& di) {
  return {.chiave = chiave,
          .titolo = titolo,
          .testo = [di](std::size_t q) { return strumenti::conteggio(di(q)); },
          .aDestra = true,
          .ordine = [di](std::size_t q) { return QVariant(qlonglong(di(q))); }};
}

strumenti::Colonna colonnaVuota() {
  return {.chiave = "", .titolo = "", .testo = [](std::size_t) { return QString(); }};
}

}  // namespace cu::assistente

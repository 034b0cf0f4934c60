#include "host/testi_programma.h"

#include <array>
#include <string_view>

#include "base/text.h"

namespace cu {
namespace {

struct Testo {
  std::int16_t numero;
  std::string_view testo;
};

constexpr std::array<Testo, 27> kTesti = {{
    {101,
     "Questa autocomposizione permette di stampare tutti i dati contabili dei compensi pagati negli anni "
     "selezionati."},
    {102,
     "In questo passo è possibile selezionare i percipienti e le causali pagamento per i quali effettuare le "
     "stampe."},
    {103, "In questo passo è possibile selezionare il formato di stampa che s'intende utilizzare."},
    {104, "Tipo di stampa"},
    {105, "Da anno"},
    {106, "Modalità di stampa"},
    {107, "Stampa Interlinea"},
    {108, "Salto Pagina"},
    {109, "Per il tipo di stampa selezionato il campo anno è obbligatorio."},
    {110, "Da percipiente"},
    {111, "A percipiente"},
    {112, "Opzione selezione"},
    {113, "Per codice"},
    {114, "Per nominativo"},
    {115, "Ad anno"},
    {116, "Da causale pagamento"},
    {117, "A causale pagamento"},
    {118, "Stampa certificazione dei compensi"},
    {119, "Creazione tracciato ministeriale e stampa moduli"},
    {120, "246"},
    {121, "247"},
    {122, "Anno pagamento compensi"},
    {123, "342"},
    {1001,
     "Questa autocomposizione permette di stampare la certificazione dei compensi pagati per ogni "
     "percipiente nell' "
     "anno selezionato."},
    {1002,
     "Questa procedura consente di stampare la certificazione in forma libera dei compensi pagati oppure di "
     "creare "
     "il tracciato telematico della Certificazione Unica e di stampare il modello ministeriale per "
     "l’attestazione "
     "dei redditi di lavoro autonomo e diversi."},
    {1003,
     "In questo passo è possibile selezionare i percipienti e le causali di pagamento per i quali si vuole "
     "creare "
     "il tracciato telematico della Certificazione Unica e stampare il modello ministeriale."},
    {1004,
     "Confermando l’avvio della procedura verranno memorizzate le modifiche apportate al passo precedente, "
     "verrà "
     "creato il tracciato telematico della Certificazione Unica ed eseguita la stampa del modello "
     "ministeriale."},
}};

std::int32_t modo(std::int16_t numero) {
  return static_cast<std::int32_t>(leadingInteger(testoProgramma(numero)));
}

}  // namespace

std::string testoProgramma(std::int16_t numero) {
  for (const Testo& testo : kTesti) {
    if (testo.numero == numero) return std::string(testo.testo);
  }
  return {};
}

std::int32_t fnModoContiIndividuali() { return modo(120); }
std::int32_t fnModoCertificazione() { return modo(121); }
std::int32_t fnModoCU() { return modo(123); }

ModoCorsa modoCorsa(std::int32_t idFunzione) {
  if (idFunzione == fnModoContiIndividuali()) return ModoCorsa::ContiIndividuali;
  if (idFunzione == fnModoCertificazione()) return ModoCorsa::Certificazione;
  return idFunzione == fnModoCU() ? ModoCorsa::CU : ModoCorsa::Altro;
}

}  // namespace cu

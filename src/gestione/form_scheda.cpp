#include "gestione/form_scheda.h"

#include <algorithm>

#include "base/ascii.h"
#include "base/codice_fiscale.h"
#include "base/text.h"
#include "base/windows1252.h"
#include "controls/selector.h"
#include "gestione/esame_codice.h"

namespace cu {
namespace {

constexpr std::size_t kMassimoTesto = 255;

bool sonoCifre(const std::string& testo, std::size_t almeno, std::size_t alPiu) {
  return testo.size() >= almeno && testo.size() <= alPiu && std::all_of(testo.begin(), testo.end(), isDigit);
}
bool daControllo(char32_t c) { return c < 0x20 || (c >= 0x7F && c < 0xA0); }

}  // namespace

FormScheda::FormScheda(const ContestoGestione& contesto, std::string nome, std::string didascalia)
    : Form(contesto.frontEnd, std::move(nome), std::move(didascalia)), contesto_(contesto) {}

// What is still being typed counts too: the close box asks without leaving the control.
std::string FormScheda::unsavedWork() const {
  if (Control* const control = focus(); control != nullptr) frontEnd().runEvent([&] { control->commit(); });
  return !ok_ && contesto_.scrivibile && (cambiata() || incompleta())
             ? "Quello che è stato scritto non è ancora registrato."
             : std::string();
}

bool FormScheda::incompleta() const {
  return std::any_of(controls().begin(), controls().end(), [](const Control* uno) {
    if (!uno->available()) return false;
    if (const auto* const data = dynamic_cast<const DateBox*>(uno)) {
      return !trim(data->text()).empty() && !data->date();
    }
    const auto* const scelta = dynamic_cast<const Selector*>(uno);
    return scelta != nullptr && scelta->record() == 0 &&
           !trim(scelta->code() + scelta->description()).empty();
  });
}

void FormScheda::collegaPulsanti(Button& registra, Button& annulla) {
  defaultButton = &registra;
  cancelButton = &annulla;
  registra.setEnabled(contesto_.scrivibile);
  registra.onClick = [this] { concludi(); };
  annulla.onClick = [this] { unload(); };
  annulla.drops = [this] { return unsavedWork(); };
}

void FormScheda::concludi() {
  if (!registra()) return;
  ok_ = true;
  unload();
}

bool FormScheda::rifiuta(const std::string& testo, Control* dove) {
  contesto_.avvisa(testo);
  if (dove != nullptr && dove->available()) setFocus(dove);
  return false;
}

bool FormScheda::rifiuta(const Finding& motivo, std::initializer_list<Posto> posti) {
  Control* dove = nullptr;
  for (const Posto& posto : posti) {
    if (posto.nome == motivo.place) dove = posto.controllo;
  }
  return rifiuta(motivo.text, dove);
}

bool FormScheda::accetta(const std::vector<std::string>& avvisi) {
  if (avvisi.empty()) return true;
  std::string testo;
  for (const std::string& avviso : avvisi) testo += avviso + "\r\n";
  testo += avvisi.size() == 1 ? "\r\nRegistrare ugualmente?" : "\r\nRegistrare ugualmente tutto?";
  return contesto_.conferma(testo);
}

bool FormScheda::codiceAmmesso(TextBox& casella, std::string_view nome, std::vector<std::string>& avvisi) {
  const std::string codice = codiceDi(casella);
  const std::string difetto = difettoCodice(codice);
  if (difetto.empty()) return true;
  const std::string testo = std::string(nome) + ": " + codice + ". " + difetto;
  if (formaCodice(codice) == FormaCodice::Nessuna) return rifiuta(testo, &casella);
  avvisi.push_back(testo);
  return true;
}

void FormScheda::avvisaPartitaIva(const TextBox& casella, std::vector<std::string>& avvisi) {
  const std::string codice = codiceDi(casella);
  const std::string difetto = difettoPartitaIva(codice);
  if (!difetto.empty()) avvisi.push_back("Partita IVA: " + codice + ". " + difetto);
}

void FormScheda::avvisaCap(const TextBox& casella, std::vector<std::string>& avvisi) {
  constexpr std::size_t kCifreCap = 5;
  const std::string cap = testoDi(casella);
  if (!cap.empty() && !sonoCifre(cap, kCifreCap, kCifreCap))
    avvisi.push_back("CAP: «" + cap + "» non è di 5 cifre.");
}

void FormScheda::avvisaEmail(const TextBox& casella, std::vector<std::string>& avvisi) {
  const std::string indirizzo = testoDi(casella);
  const std::size_t chiocciola = indirizzo.find('@');
  const bool buono = chiocciola != std::string::npos && chiocciola > 0 &&
                     indirizzo.find('@', chiocciola + 1) == std::string::npos &&
                     indirizzo.find('.', chiocciola + 2) != std::string::npos && indirizzo.back() != '.' &&
                     indirizzo.find(' ') == std::string::npos;
  if (!indirizzo.empty() && !buono)
    avvisi.push_back("Posta elettronica: «" + indirizzo + "» non è un indirizzo.");
}

void FormScheda::avvisaAttivita(const TextBox& casella, std::vector<std::string>& avvisi) {
  constexpr std::size_t kCifreDivisione = 2;
  constexpr std::size_t kCifreAttivita = 6;
  const std::string codice = codiceAttivitaDi(casella);
  if (!codice.empty() && !sonoCifre(codice, kCifreDivisione, kCifreAttivita))
    avvisi.push_back("Codice attività: «" + testoDi(casella) + "» non è di sei cifre al più, come 692011.");
}

bool FormScheda::dataAmmessa(DateBox& casella, std::string_view nome) {
  if (trim(casella.text()).empty() || casella.date()) return true;
  return rifiuta(std::string(nome) + ": «" + casella.text() +
                     "» non è una data. Si scrive giorno, mese e anno, "
                     "come 28/02/2017.",
                 &casella);
}

void FormScheda::avvisaCaratteri(std::initializer_list<const TextBox*> caselle,
                                 std::vector<std::string>& avvisi) {
  for (const TextBox* casella : caselle) {
    const std::string testo = testoDi(*casella);
    if (da1252(a1252(testo)) == testo) continue;
    avvisi.push_back("«" + testo + "» ha caratteri che nel file telematico diventano un punto di domanda.");
  }
}

std::string frasiCodici(const EsameCodice& esame, std::string_view partitaIva) {
  std::string testo = esame.stato.empty() ? std::string("Codice fiscale non scritto.") : esame.stato;
  if (!esame.contrasti.empty()) testo += " " + esame.contrasti;
  const std::string iva = difettoPartitaIva(partitaIva);
  if (!iva.empty()) testo += " Partita IVA: " + iva;
  return testo;
}

void ripulisciCodici(std::initializer_list<TextBox*> codici) {
  for (TextBox* const codice : codici) {
    codice->onLostFocus = [codice] { codice->setText(codiceDi(*codice)); };
  }
}

std::string testoDi(const TextBox& casella) {
  const std::string& scritto = casella.stored();
  std::string testo;
  for (std::size_t posto = 0; posto < scritto.size();) {
    const char32_t c = nextCodePoint(scritto, posto);
    if (!daControllo(c) && c != U' ') {
      appendUtf8(testo, c);
    } else if (!testo.empty() && testo.back() != ' ') {
      testo += ' ';
    }
  }
  return std::string(trimRight(testo));
}

std::string codiceDi(const TextBox& casella) { return codiceRipulito(testoDi(casella)); }

std::string codiceAttivitaDi(const TextBox& casella) {
  std::string codice = codiceDi(casella);
  std::erase(codice, '.');
  return codice;
}

Date giornoDi(const DateBox& casella) { return casella.date().value_or(Date()); }

void mostraGiorno(DateBox& casella, Date giorno) {
  casella.setText(giorno == Date() ? std::string() : giorno.toItalian());
}

void limitaTesti(std::initializer_list<TextBox*> caselle) {
  for (TextBox* casella : caselle) casella->setMaxLength(kMassimoTesto);
}

}  // namespace cu

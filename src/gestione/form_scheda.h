#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "controls/datebox.h"
#include "controls/form.h"
#include "controls/textbox.h"
#include "gestione/contesto.h"
#include "gestione/esame_codice.h"

namespace cu {

// A form that keeps one record: what it shows is written by its default button only.
class FormScheda : public Form {
 public:
  FormScheda(const ContestoGestione& contesto, std::string nome, std::string didascalia);

  bool OK() const { return ok_; }  // the record was written
  std::string unsavedWork() const override;

 protected:
  // A control by the name that findings have for it.
  struct Posto {
    std::string_view nome;
    Control* controllo = nullptr;
  };

  // Whether the form's content differs from the record.
  virtual bool cambiata() const = 0;
  // Writes the record; false where it was refused, with the reason shown.
  virtual bool registra() = 0;
  bool refusesClose() override { return false; }

  void collegaPulsanti(Button& registra, Button& annulla);
  void concludi();  // writes, and closes the form

  // Whether a box has something written that stands for nothing, such as half a date.
  bool incompleta() const;

  // Shows the reason in a box; the focus goes to the place.
  bool rifiuta(const std::string& testo, Control* dove);
  bool rifiuta(const Finding& motivo, std::initializer_list<Posto> posti);
  // Whether the user goes on in spite of the warnings; without any, true.
  bool accetta(const std::vector<std::string>& avvisi);
  // The codes of a form: one without the shape of one is refused.
  bool codiceAmmesso(TextBox& casella, std::string_view nome, std::vector<std::string>& avvisi);
  static void avvisaPartitaIva(const TextBox& casella, std::vector<std::string>& avvisi);
  // What the telematic file would carry as it is typed, and the authority could reject.
  static void avvisaCap(const TextBox& casella, std::vector<std::string>& avvisi);
  static void avvisaEmail(const TextBox& casella, std::vector<std::string>& avvisi);
  static void avvisaAttivita(const TextBox& casella, std::vector<std::string>& avvisi);
  bool dataAmmessa(DateBox& casella, std::string_view nome);
  static void avvisaCaratteri(std::initializer_list<const TextBox*> caselle,
                              std::vector<std::string>& avvisi);

  const ContestoGestione& contesto_;
  bool ok_ = false;
};

// What is said below the codes of a person or firm while they are typed: never empty, so that nothing moves
// when there is something to say. `partitaIva` is not examined where it is empty.
std::string frasiCodici(const EsameCodice& esame, std::string_view partitaIva);
// Codes become as they are stored when they are left.
void ripulisciCodici(std::initializer_list<TextBox*> codici);

// A text as it is stored: without control characters and blanks that are none.
std::string testoDi(const TextBox& casella);
// The same as a code.
std::string codiceDi(const TextBox& casella);
// The same as a code of activities, which is printed with points and filed without.
std::string codiceAttivitaDi(const TextBox& casella);
Date giornoDi(const DateBox& casella);
void mostraGiorno(DateBox& casella, Date giorno);
void limitaTesti(std::initializer_list<TextBox*> caselle);

}  // namespace cu

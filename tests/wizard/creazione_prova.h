#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "telematic/prova.h"
#include "wizard/wizard_prova.h"

namespace cu::test {

inline constexpr const char* kFile = "/cu/CUR_01234567890_2016.cur";

class FileRun : public testing::Test, public WizardProva {
 protected:
  explicit FileRun(const modello::Modello& modello = modello::kModello) : WizardProva(modello) {}
  // With rows for the file, one per certificate.
  void certificati(int quanti) {
    database.internal.answerContaining("ORDER BY Anag.Anagrafica",
                                       rispostaPrincipale(certificati2016(quanti)));
    database.internal.answerContaining("FROM ModuloXContoIndividuale", rispostaModuli({}));
  }
  // With the intermediary's data as entered by the user.
  void intermediario(const char* codice, const char* impegno, int indice = 1) {
    premi(form().chkIntermediari);
    form().txtCodiceFiscale.enter(codice);
    form().cboxTipoComunicazione.setIndex(indice);
    form().dtDataImpegno.enter(impegno);
  }
  void avviaRun() {
    dimentica();
    premi(form().cmdNav[4]);
  }
  bool riuscito() { return passo() == 0; }
  // The index of the first text sent that contains the piece.
  std::size_t posto(const std::string& pezzo) const {
    const auto testi = database.internal.texts();
    const auto trovato = std::find_if(testi.begin(), testi.end(), [&](const std::string& testo) {
      return testo.find(pezzo) != std::string::npos;
    });
    EXPECT_NE(trovato, testi.end()) << pezzo;
    return static_cast<std::size_t>(trovato - testi.begin());
  }
  std::vector<std::string> avvisi() const {
    std::vector<std::string> testi;
    for (const MessageBox& box : frontEnd.boxes) {
      if (box.buttons == BoxButtons::OkCancel) testi.push_back(box.text);
    }
    return testi;
  }
};

}  // namespace cu::test

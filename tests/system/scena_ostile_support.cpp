#include "system/scena_ostile_support.h"

#include <gmock/gmock.h>

namespace cu::test {

using testing::HasSubstr;
using testing::IsSupersetOf;

const std::string ScenaOstile::kNullo("a\0b", 3);

namespace {

bool unTesto(const std::string& tipo) { return tipo == "text" || tipo == "date"; }

// The two references have the filter in every form.
bool filtraITasti(const std::string& nome) { return nome == "txtProtocollo" || nome == "txtProgressivo"; }

std::string tastiAmmessi(const std::string& testo) {
  std::string ammessi;
  for (const char c : testo) {
    if (std::string_view("0123456789\b\t\f%&'(.").find(c) != std::string_view::npos) ammessi += c;
  }
  return ammessi;
}

// Kinds that never accept a text; an unknown kind is tried.
bool senzaTesto(const std::string& tipo) {
  static const std::set<std::string> tipi = {"window", "frame",  "label", "link",
                                             "button", "option", "check", "band"};
  return tipi.contains(tipo);
}

}  // namespace

void ScenaOstile::scena(const std::string& form, const std::string& gruppo) {
  SCOPED_TRACE(form);
  campi_[gruppo].clear();
  std::vector<std::string> chiuse;
  const json albero = fai({{"do", "tree"}, {"of", form}}).at("result");
  for (const auto& [nome, prima] : albero.items()) {
    const std::string tipo = prima.at("kind");
    const std::string chi = form + "." + nome;
    if (tipo == "menubar") nega({{"do", "menu"}, {"tool", testo_}});
    if (senzaTesto(tipo) || tipo == "menubar") continue;
    viste_.insert(chi);
    if (manda({{"do", "focus"}, {"on", chi}}).at("ok").get<bool>() && !prima.value("locked", false)) {
      raggiunte_.insert(chi);
      tenta(chi, nome, gruppo, prima);
    } else {
      nonPrende(chi, tipo);
      if (tipo != "list" && tipo != "grid") chiuse.push_back(nome);
    }
  }
  const json dopo = fai({{"do", "tree"}, {"of", form}}).at("result");
  for (const std::string& nome : chiuse) EXPECT_EQ(dopo.at(nome), albero.at(nome)) << form << "." << nome;
}

void ScenaOstile::tenta(const std::string& chi, const std::string& nome, const std::string& gruppo,
                        const json& prima) {
  const std::string tipo = prima.at("kind");
  if (conNulli_) rifiutaINulli(chi, tipo);
  if (unTesto(tipo)) {
    campi_[gruppo][nome] = scriviTesto(chi, nome, prima);
  } else if (tipo == "amount" || tipo == "number") {
    scriviNumero(chi, prima);
  } else if (tipo == "selector") {
    scegli(chi, prima);
  } else {
    nonHa(chi, tipo);
  }
}

// A different text for each field, so that its destination can be identified.
std::string ScenaOstile::conSegno(const std::string& chi, std::size_t massimo) {
  if (massimo == 1) return testo_;
  const auto segno = segni_.try_emplace(chi, segni_.size()).first->second;
  return std::string{static_cast<char>('A' + segno / 26), static_cast<char>('A' + segno % 26)} + testo_;
}

std::string ScenaOstile::scriviTesto(const std::string& chi, const std::string& nome, const json& prima) {
  const std::size_t massimo = prima.value("maxLength", std::size_t{0});
  const std::string testo = conSegno(chi, massimo);
  const auto entro = [&](const std::string& intero) {
    return massimo == 0 ? intero : primi(intero, massimo);
  };
  fai({{"do", "paste"}, {"in", chi}, {"text", "0"}});
  scrivi(chi, testo);
  std::string atteso = entro(filtraITasti(nome) ? tastiAmmessi(testo) : testo);
  if (atteso.empty()) atteso = "0";
  EXPECT_EQ(stato(chi).at("text"), atteso) << chi;
  fai({{"do", "paste"}, {"in", chi}, {"text", testo}});
  EXPECT_EQ(stato(chi).at("text"), entro(testo)) << chi;
  return entro(testo);
}

// The field contains only a number, whatever is tried.
void ScenaOstile::scriviNumero(const std::string& chi, const json& prima) {
  for (const char* gesto : {"enter", "paste"}) {
    fai({{"do", gesto}, {"in", chi}, {"text", testo_}});
    const json dopo = stato(chi);
    EXPECT_EQ(dopo.at("text").get<std::string>().find_first_not_of("0123456789.,-"), std::string::npos)
        << chi << dopo;
    EXPECT_GE(dopo.at("value"), dopo.at("min")) << chi;
    EXPECT_LE(dopo.at("value"), dopo.at("max")) << chi;
  }
  fai({{"do", "paste"}, {"in", chi}, {"text", prima.at("kind") == "amount" ? json("1") : prima.at("text")}});
}

void ScenaOstile::scegli(const std::string& chi, const json& prima) {
  const bool percipiente = prima.at("table") == "RepPercipienteCD";
  const std::string codice = percipiente ? testo_ : breve_;
  fai({{"do", "choose"}, {"in", chi}, {"code", "?" + testo_}, {"description", testo_ + "?"}});
  EXPECT_EQ(stato(chi).at("code"), "?" + testo_) << chi;
  EXPECT_EQ(stato(chi).at("description"), testo_ + "?") << chi;
  nega({{"do", "choose"}, {"in", chi}, {"code", "?" + testo_}});
  fai({{"do", "choose"}, {"in", chi}, {"code", codice}});
  EXPECT_EQ(stato(chi).at("record"), std::stoi(percipiente ? kChi : kCausale)) << chi;
  EXPECT_EQ(stato(chi).at("description"), percipiente ? breve_ : testo_) << chi;
}

// The text is not among the entries of a list.
void ScenaOstile::nonHa(const std::string& chi, const std::string& tipo) {
  const json prima = stato(chi);
  if (tipo == "grid") {
    if (prima.at("rows") > 0) nega({{"do", "press"}, {"in", chi}, {"row", 1}, {"column", testo_}});
  } else if (tipo == "print") {
    nega({{"do", "choose"}, {"in", chi}, {"report", testo_}});
  } else {
    nega({{"do", "choose"}, {"in", chi}, {"text", testo_}});
  }
  EXPECT_EQ(stato(chi), prima) << chi;
  if (tipo == "list" && prima.at("index") == -1 && !prima.at("entries").empty()) {
    fai({{"do", "choose"}, {"in", chi}, {"index", 0}});
  }
}

// Unreachable or locked: nothing is accepted.
void ScenaOstile::nonPrende(const std::string& chi, const std::string& tipo) {
  if (unTesto(tipo) || tipo == "amount" || tipo == "number") {
    nega({{"do", "enter"}, {"in", chi}, {"text", breve_}});
    nega({{"do", "paste"}, {"in", chi}, {"text", breve_}});
  } else if (tipo == "selector") {
    nega({{"do", "choose"}, {"in", chi}, {"code", breve_}, {"description", breve_}});
  } else if (tipo != "grid") {
    nega({{"do", "choose"}, {"in", chi}, {tipo == "print" ? "report" : "text", breve_}});
  }
}

void ScenaOstile::rifiutaINulli(const std::string& chi, const std::string& tipo) {
  const json prima = stato(chi);
  for (const char* gesto : {"enter", "paste"}) negaIlNullo({{"do", gesto}, {"in", chi}, {"text", kNullo}});
  negaIlNullo({{"do", "choose"}, {"in", chi}, {"code", kNullo}});
  negaIlNullo({{"do", "choose"}, {"in", chi}, {"code", "a"}, {"description", kNullo}});
  negaIlNullo({{"do", "choose"}, {"in", chi}, {tipo == "print" ? "report" : "text", kNullo}});
  negaIlNullo({{"do", "press"}, {"in", chi}, {"row", 1}, {"column", kNullo}});
  EXPECT_EQ(stato(chi), prima) << chi;
}

void ScenaOstile::negaIlNullo(const json& comando) {
  const json risposta = manda(comando);
  EXPECT_FALSE(risposta.at("ok").get<bool>()) << comando;
  EXPECT_THAT(risposta.value("error", ""), HasSubstr("carattere nullo")) << comando;
}

void ScenaOstile::nega(const json& comando) {
  const json risposta = manda(comando);
  EXPECT_FALSE(risposta.at("ok").get<bool>()) << comando;
  EXPECT_TRUE(risposta.at("modal").is_null()) << risposta;
  EXPECT_NE(risposta.value("error", ""), "") << risposta;
}

// The places that the user cannot reach are listed by name; a new place has to be reached, or added here.
void ScenaOstile::tutteRaggiunte() const {
  static const std::set<std::string> chiuse = {
      "KRNCboEsCont(1)", "txtPercorsoCU", "cdPercipiente", "cdPagamento", "txtNome", "numModulo1",
      "cdPercipienteAltriModuli", "cdPagamentoAltriModuli", "txtNomeAltriModuli",
      // the header of both pages
      "txtField(0)", "txtField(1)", "txtField(2)", "txtField(3)", "txtField(4)", "txtField(11)",
      "txtField(12)", "txtField(19)", "txtField(20)", "txtField(21)", "txtField(22)", "txtField(23)",
      // amounts of other reasons
      "curField(2)", "curField(3)", "curField(4)", "curField(5)", "curField(6)", "curField(7)",
      "curField(15)"};
  std::set<std::string> form;
  for (const std::string& chi : raggiunte_) form.insert(chi.substr(0, chi.find('.')));
  for (const std::string& chi : viste_) {
    EXPECT_TRUE(raggiunte_.contains(chi) || chiuse.contains(chi.substr(chi.find('.') + 1))) << chi;
  }
  EXPECT_THAT(form, IsSupersetOf({"frmWizard", "frmOption", "frmProtocollo", "frmCompenso", "frmCompenso2016",
                                  "frmCompenso2017", "frmDatiAggiuntivi"}));
}

}  // namespace cu::test

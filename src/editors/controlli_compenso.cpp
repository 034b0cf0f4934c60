// Creates the controls of the editor from the tables, in tab order.

#include <algorithm>
#include <utility>

#include "base/text.h"
#include "editors/editor_compenso.h"
#include "editors/frm_dati_aggiuntivi.h"
#include "editors/somma_lordo.h"
#include "modello/regole.h"

namespace cu {
namespace {

constexpr Sezione kSezioni[] = {Sezione::Modulo,       Sezione::Somme,         Sezione::Previdenza,
                                Sezione::Fallimento,   Sezione::AltriSoggetti, Sezione::CasiParticolari,
                                Sezione::Pignoramento, Sezione::Esproprio};
constexpr std::size_t kCodiceFiscale = 16;

// The labels of the oldest layout that are greyed together with their locked field.
struct Etichetta {
  int indice;
  const char* nome;
};
constexpr Etichetta kEtichette[] = {{2, "lblField(3)"},          {3, "lblField(4)"},  {4, "lblField(5)"},
                                    {5, "lblField(6)"},          {6, "lblField(7)"},  {7, "lblField(8)"},
                                    {12, "lblSommeNonSoggette"}, {15, "lblSpeseRimb"}};

std::string nomeControllo(const CampoEditor& campo) {
  return campo.indice < 0 ? std::string(campo.controllo)
                          : element(std::string(campo.controllo), campo.indice);
}

}  // namespace

template <class C, class... Args>
C& EditorCompenso::crea(Args&&... args) {
  auto controllo = std::make_unique<C>(*this, std::forward<Args>(args)...);
  C& creato = *controllo;
  controlli_.push_back(std::move(controllo));
  return creato;
}

EditorCompenso::EditorCompenso(std::int32_t anno, std::int32_t annoFile, std::string elencoCodici,
                               const AmbienteEditor& ambiente)
    : Editor(ambiente.frontEnd, std::string(fnDisposizione(anno).form), "Certificazione compensi"),
      disposizione_(fnDisposizione(anno)),
      elencoCodici_(std::move(elencoCodici)),
      campiModulo1_(campiEditor(Pagina::Modulo1, anno, {annoFile, ambiente.modello})),
      campiAltriModuli_(campiEditor(Pagina::AltriModuli, anno, {annoFile, ambiente.modello})),
      intestazione_(disposizione_.immagine ? campiIntestazione(modello::kModello, anno)
                                           : std::vector<CampoIntestazione>()),
      fusioneComuni_(trova(modello::kModello, modello::Record::D, "FusioneComuni", anno, true).campo !=
                     nullptr),
      ambiente_(ambiente) {
  for (const CampoEditor& campo : campiModulo1_) modulo1_.emplace_back().campo = &campo;
  for (const CampoEditor& campo : campiAltriModuli_) altriModuli_.emplace_back().campo = &campo;
  creaPagine();
  creaPulsanti();
  if (disposizione_.immagine) {
    scroll_.max = 10;
    onWheel = [this](int delta) {
      if (delta != 0) scorri(delta > 0 ? -1 : 1);
    };
    onKeyDown = [this](std::int16_t& codice, std::int16_t& /*shift*/) {
      if (codice != 33 && codice != 34) return;
      scorri(codice == 33 ? -1 : 1);
      codice = 0;
    };
  }
}

void EditorCompenso::creaPagine() {
  if (disposizione_.immagine) {
    picModulo1 = &crea<Frame>("picModulo1", nullptr, "Modulo 1");
    creaPagina(Pagina::Modulo1, picModulo1);
    fraAltriModuli = &crea<Frame>("fraAltriModuli", nullptr, "Altri moduli");
    fraAltriModuli->setVisible(false);
  } else {
    stbMain = &crea<Tabs>("stbMain", nullptr);
    Frame& prima = crea<Frame>("fraTab(0)", nullptr, "");
    fraAltriModuli = &crea<Frame>("fraTab(1)", nullptr, "");
    stbMain->add("Modulo 1", prima);
    stbMain->add("Altri moduli", *fraAltriModuli);
    riferimenti_ = std::make_unique<Riferimenti>(*this, &prima);
    riferimenti_->mostra = [this] { stbMain->select(1); };
    creaIntestazione(Pagina::Modulo1, &prima);
    fraMain = &crea<Frame>("fraMain", &prima, "");
    creaPagina(Pagina::Modulo1, fraMain);
    creaAltriDati(fraMain);
  }
  grdAltriModuli = &crea<Grid>("grdAltriModuli", fraAltriModuli);
  grdAltriModuli->onRowChange = [this] { mostraModulo(); };
  // Selecting the current row again leaves a module that has just been begun.
  grdAltriModuli->onRowAgain = [this] {
    if (NuovoModulo) mostraModulo();
  };
  grdAltriModuli->drops = [this](std::size_t riga) {
    return riga == grdAltriModuli->row() && !NuovoModulo ? std::string() : moduloNonSalvato();
  };
  picAltriModuli = &crea<Frame>("picAltriModuli", fraAltriModuli, "");
  picAltriModuli->setVisible(!disposizione_.immagine);
  creaPagina(Pagina::AltriModuli, picAltriModuli);
}

// References and residence, where no separate dialog contains them.
void EditorCompenso::creaAltriDati(Frame* pagina) {
  Frame& precedente = crea<Frame>("Frame2", pagina, "Comune di residenza anno precedente");
  TownComuneResidenzaAnnoPrec = &crea<Picker>("TownComuneResidenzaAnnoPrec", &precedente);
  Frame& corrente = crea<Frame>("Frame3", pagina, "Comune di residenza anno corrente");
  TownComuneResidenzaAnnoCorr = &crea<Picker>("TownComuneResidenzaAnnoCorr", &corrente);
  for (TextBox* casella : {&riferimenti_->txtProtocollo, &riferimenti_->txtProgressivo}) {
    casella->onChange = [this] { cambiato(Segno::RigaModificata); };
  }
  for (Picker* comune : {TownComuneResidenzaAnnoPrec, TownComuneResidenzaAnnoCorr}) {
    comune->onChange = [this] { cambiato(Segno::RigaModificata); };
  }
}

void EditorCompenso::creaPagina(Pagina pagina, Frame* dove) {
  if (disposizione_.immagine || pagina == Pagina::AltriModuli) creaIntestazione(pagina, dove);
  for (const Sezione sezione : kSezioni) creaSezione(pagina, sezione, dove);
}

void EditorCompenso::creaIntestazione(Pagina pagina, Frame* dove) {
  const bool prima = pagina == Pagina::Modulo1;
  Frame& riquadro = crea<Frame>(prima ? "Frame1" : "Frame1AltriModuli", dove, "Dati del percipiente");
  for (const CampoIntestazione& campo : intestazione_) {
    if (!campo.previdenza) creaLettura(pagina, campo, &riquadro);
  }
  percipienti_.push_back(std::make_unique<Percipiente>(*this, &riquadro, prima ? "" : "AltriModuli"));
  if (!prima) return;
  TextBox& numModulo1 = crea<TextBox>("numModulo1", &riquadro, "Modulo n.");
  numModulo1.setText("1");
  chiudi(numModulo1);
}

void EditorCompenso::chiudi(TextBox& casella) {
  casella.setEnabled(false);
  casella.setLocked(true);
  casella.setBackground(Background::Face);
}

void EditorCompenso::creaLettura(Pagina pagina, const CampoIntestazione& campo, Frame* dove) {
  const bool prima = pagina == Pagina::Modulo1;
  const int indice = prima ? campo.modulo1 : campo.altriModuli;
  const std::string numero = campo.previdenza ? fromInteger(campo.campo->numero) + " " : std::string();
  TextBox& casella = crea<TextBox>(element("txtField", indice), dove, numero + std::string(campo.didascalia));
  if (campo.lungoCodiceFiscale) casella.setMaxLength(kCodiceFiscale);
  chiudi(casella);
  if (!prima) casella.onChange = [this] { cambiato(Segno::ModuloModificato); };
  testi_[indice] = &casella;
}

void EditorCompenso::creaSezione(Pagina pagina, Sezione sezione, Frame* dove) {
  std::vector<Casella*> campi;
  for (Casella& casella : caselle(pagina)) {
    if (casella.campo->sezione == sezione && !casella.campo->controllo.empty()) campi.push_back(&casella);
  }
  if (campi.empty()) return;
  std::stable_sort(campi.begin(), campi.end(),
                   [](const Casella* a, const Casella* b) { return a->campo->numero < b->campo->numero; });
  Frame& riquadro = crea<Frame>(element("fraSezione", sezioni_++), dove, std::string(titolo(sezione)));
  if (sezione == Sezione::Somme && pagina == Pagina::Modulo1) {
    Label& titoloAnno = crea<Label>("lblTitoloAnno", &riquadro, disposizione_.immagine ? "2 Anno" : "Anno");
    lblAnno = &crea<Label>("lblAnno", &riquadro);
    titoloAnno.buddy = lblAnno;
    if (!disposizione_.immagine) lblAnno->boxNumber = "2";
  }
  if (sezione == Sezione::Previdenza) {
    for (const CampoIntestazione& campo : intestazione_) {
      if (campo.previdenza) creaLettura(pagina, campo, &riquadro);
    }
  }
  for (Casella* casella : campi) {
    creaCampo(pagina, *casella, &riquadro);
    collega(pagina, *casella);
  }
}

EditorCompenso::Segno EditorCompenso::segno(Pagina pagina, const CampoEditor& campo) const {
  if (pagina == Pagina::AltriModuli) return Segno::ModuloModificato;
  switch (campo.genere) {
    case Genere::Importo:
      return std::find(std::begin(kImportiFuoriPosto), std::end(kImportiFuoriPosto), campo.indice) !=
                     std::end(kImportiFuoriPosto)
                 ? Segno::ModuloModificato
                 : Segno::RigaModificata;
    case Genere::Elenco:
      return Segno::RigaModificata;
    case Genere::Testo:
    case Genere::Flag:
    case Genere::Numero:
      break;
  }
  return Segno::Nessuno;
}

void EditorCompenso::cambiato(Segno segno) {
  if (Caricamento) return;
  switch (segno) {
    case Segno::RigaModificata:
      RigaModificata = true;
      return;
    case Segno::ModuloModificato:
      cmdSave->setEnabled(true);
      return;
    case Segno::Nessuno:
      break;
  }
}

void EditorCompenso::creaCampo(Pagina pagina, Casella& casella, Frame* dove) {
  const CampoEditor& campo = *casella.campo;
  const std::string nome = nomeControllo(campo);
  std::string didascalia(disposizione_.immagine ? campo.dicitura : campo.didascalia2014);
  if (disposizione_.immagine && campo.numero != 0) didascalia.insert(0, numeroScritto(campo) + " ");
  const Event cambio = [this, effetto = segno(pagina, campo)] { cambiato(effetto); };
  switch (campo.genere) {
    case Genere::Importo: {
      const auto etichetta = std::find_if(std::begin(kEtichette), std::end(kEtichette),
                                          [&](const Etichetta& e) { return e.indice == campo.indice; });
      Label* label = nullptr;
      if (!disposizione_.immagine && etichetta != std::end(kEtichette)) {
        label = etichette_[campo.indice] = &crea<Label>(etichetta->nome, dove, didascalia);
      }
      casella.importo = &crea<AmountBox>(nome, dove, didascalia);
      if (label != nullptr) label->buddy = casella.importo;
      casella.importo->onChange = cambio;
      if (pagina == Pagina::Modulo1 && (campo.colonna == modello::kLordo || addendoDelLordo(campo.colonna))) {
        casella.importo->onChange = [this, cambio] {
          cambio();
          mostraSomma();
        };
      }
      if (pagina == Pagina::Modulo1 && addendoDelLordo(campo.colonna)) {
        casella.importo->onLostFocus = [this] {
          if (!Caricamento) sbRicalcolaAmmontareLordo();
        };
      }
      return;
    }
    case Genere::Testo:
      casella.testo = testi_[campo.indice] = &crea<TextBox>(nome, dove, didascalia);
      casella.testo->setMaxLength(kCodiceFiscale);
      casella.testo->onChange = cambio;
      return;
    case Genere::Flag:
      casella.flag = &crea<Check>(nome, dove, didascalia);
      casella.flag->onClick = cambio;
      return;
    case Genere::Elenco:
      casella.elenco = &crea<ListBox>(nome, dove, didascalia);
      casella.elenco->onChange = cambio;
      (pagina == Pagina::Modulo1 ? cboCodicePerNonSoggetti : cboCodicePerNonSoggettiAltri) = casella.elenco;
      return;
    case Genere::Numero:
      casella.numero = &crea<NumberBox>(nome, dove, didascalia);
      casella.numero->onChange = cambio;
      (campo.numero == 0 ? numModulo : numAnno) = casella.numero;
      return;
  }
}

void EditorCompenso::creaPulsanti() {
  const auto pulsante = [&](const char* nome, Frame* dove, const char* testo, auto azione) {
    Button& creato = crea<Button>(nome, dove, testo);
    creato.onClick = azione;
    return &creato;
  };
  cmdNew = pulsante("cmdNew", fraAltriModuli, "N&uovo", [this] { nuovo(); });
  cmdSave = pulsante("cmdSave", fraAltriModuli, "Sa&lva", [this] { salva(); });
  cmdDelete = pulsante("cmdDelete", fraAltriModuli, "&Elimina", [this] { elimina(); });
  cmdSave->setEnabled(false);
  cmdDelete->setEnabled(false);
  if (disposizione_.immagine) {
    cmdModulo1 = pulsante("cmdModulo1", nullptr, "&Modulo 1", [this] { mostraPagina(Pagina::Modulo1); });
    cmdAltriModuli =
        pulsante("cmdAltriModuli", nullptr, "&Altri moduli", [this] { mostraPagina(Pagina::AltriModuli); });
    cmdModulo1->setEnabled(false);
    cmdDatiAggiuntivi = pulsante("cmdDatiAggiuntivi", nullptr, "&Dati aggiuntivi", [this] { apriDialogo(); });
    const auto documento = [&](const char* nome, const char* testo, std::string_view file) {
      crea<Link>(nome, nullptr, testo).onClick = [this, file] { apriDocumento(file); };
    };
    documento("lblIstruzioniMinisteriali", "Istruzioni ministeriali", disposizione_.istruzioni);
    documento("lblNoteCompilazione", "Note di compilazione", disposizione_.note);
  }
  cmdOk = pulsante("cmdOk", nullptr, "OK", [this] { conferma(); });
  cmdAnnulla = pulsante("cmdAnnulla", nullptr, "Annulla", [this] { annulla(); });
  cmdNew->drops = cmdOk->drops = [this] { return moduloNonSalvato(); };
  defaultButton = cmdOk;
  cancelButton = cmdAnnulla;
}

void EditorCompenso::formLoad() {
  ambiente_.utilita.prepareForm(*this);
  Connection& connessione = sessione().database().ownConnection();
  for (const auto& percipiente : percipienti_) percipiente->associa(ambiente_);
  const Globali& globali = ambiente_.globali;
  const int decimali = (globali.gDecimaliValuta < 0 ? -globali.gDecimaliValuta : globali.gDecimaliValuta) * 2;
  const Decimal massimo = Decimal::fromInteger(99'999'999'999'999);
  for (const Pagina pagina : {Pagina::Modulo1, Pagina::AltriModuli}) {
    for (const Casella& casella : caselle(pagina)) {
      if (casella.importo == nullptr) continue;
      casella.importo->setFormat(decimali, globali.gSimboloValuta, globali.gSeparatoreDecimale,
                                 globali.gSeparatoreMigliaia);
      casella.importo->setLimits(casella.campo->conSegno ? -massimo : Decimal(), massimo);
    }
  }
  numAnno->setLimits(Decimal(), Decimal::fromInteger(9'999));
  numModulo->setLimits(Decimal(), Decimal::fromInteger(99'999'999));
  for (ListBox* elenco : {cboCodicePerNonSoggetti, cboCodicePerNonSoggettiAltri}) {
    elenco->setConnection(connessione);
    elenco->setSource(elencoCodici_);
    elenco->setDisplayField("Descrizione");
    elenco->setKeyField("IDCodicePerNonSoggetti");
    elenco->load();
  }
  for (Picker* comune : {TownComuneResidenzaAnnoPrec, TownComuneResidenzaAnnoCorr}) {
    if (comune != nullptr) associaComune(*comune, ambiente_);
  }
}

void EditorCompenso::formUnload() { ambiente_.utilita.releaseForm(*this); }

std::string EditorCompenso::guideChapter() const {
  return fraAltriModuli->available() ? "Altri moduli" : "Correggere un compenso";
}

void EditorCompenso::scorri(int passi) {
  const int meta = std::clamp(scroll_.position + passi, 0, scroll_.max);
  if (meta == scroll_.position) return;
  scroll_.position = meta;
  notify();
}

void EditorCompenso::mostraPagina(Pagina pagina) {
  const bool prima = pagina == Pagina::Modulo1;
  cmdModulo1->setEnabled(!prima);
  cmdAltriModuli->setEnabled(prima);
  picModulo1->setVisible(prima);
  fraAltriModuli->setVisible(!prima);
  picAltriModuli->setVisible(!prima);
  scroll_.position = 0;
  notify();
}

}  // namespace cu

#include "intake/controlli_riga.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "base/ascii.h"
#include "base/codice_fiscale.h"
#include "base/text.h"
#include "intake/testo_cella.h"
#include "tabelle/lettura.h"

namespace cu::intake {
namespace {

constexpr std::size_t kCifreNumero = 11;
constexpr std::size_t kCifreCap = 5;

template <class C>
constexpr std::uint8_t rangoDi(C colonna) {
  return static_cast<std::uint8_t>(colonna);
}

bool tutteCifre(std::string_view testo) {
  return !testo.empty() && std::all_of(testo.begin(), testo.end(), isDigit);
}

// Without blanks, full stops and hyphens, and without the country before a number.
std::string codiceNudo(std::string_view testo) {
  std::string nudo;
  for (const char c : testo) {
    if (c != ' ' && c != '.' && c != '-') nudo += upperAscii(c);
  }
  if (nudo.size() == kCifreNumero + 2 && nudo.starts_with("IT") && tutteCifre(nudo.substr(2)))
    nudo.erase(0, 2);
  return nudo.empty() ? std::string(testo) : nudo;
}

// A number that has lost its leading zeros; "" where they do not make a valid one.
std::string conZeri(std::string_view codice) {
  constexpr std::size_t kMinimo = 7;
  if (codice.size() < kMinimo || codice.size() >= kCifreNumero || !tutteCifre(codice)) return {};
  std::string intero(kCifreNumero - codice.size(), '0');
  intero += codice;
  return controlloGiusto(intero) ? intero : std::string();
}

bool soloZeri(std::string_view codice) { return codice.find_first_not_of('0') == std::string_view::npos; }

std::string nomeCompleto(std::string_view cognome, std::string_view nome) {
  return std::string(cognome) + ' ' + std::string(nome);
}

}  // namespace

Campo& campoDi(RigaLetta& riga, std::uint8_t colonna) {
  const auto posto = std::lower_bound(riga.campi.begin(), riga.campi.end(), colonna,
                                      [](const Campo& campo, std::uint8_t c) { return campo.colonna < c; });
  if (posto != riga.campi.end() && posto->colonna == colonna) return *posto;
  return *riga.campi.insert(posto, Campo{colonna, StatoCampo::Dato, false, {}});
}

std::optional<bool> eNotaDiCredito(std::string_view tipo) {
  constexpr auto kAltri =
      std::to_array<std::string_view>({"fattura", "fatt", "f", "ft", "parcella", "ricevuta", "notula", "nota",
                                       "avviso di parcella", "td01", "td02", "td03", "td06", "td24", "td25"});
  constexpr auto kCrediti =
      std::to_array<std::string_view>({"nota di credito", "nota credito", "nc", "td04", "td08"});
  std::string piccolo = lowerAscii(tipo);
  std::erase(piccolo, '.');
  const auto fra = [&](const auto& parole) {
    return std::find(parole.begin(), parole.end(), piccolo) != parole.end();
  };
  if (fra(kCrediti)) return true;
  if (fra(kAltri)) return false;
  return std::nullopt;
}

bool eItalia(std::string_view nazione) {
  const std::string nome = tabelle::normalizza(nazione);
  return nome == "italia" || nome == "it" || nome == "ita" || nome == "086" || nome == "86";
}

bool eEstero(const RigaLetta& percipiente) {
  using enum ColonnaPercipiente;
  if (percipiente.valore(NonResidente).flag() || percipiente.ha(CodiceFiscaleEstero)) return true;
  const std::string_view nazione = percipiente.valore(Nazione).text();
  return (!nazione.empty() && !eItalia(nazione)) || percipiente.valore(Provincia).text() == "EE";
}

void ControlliRiga::segnala(RigaLetta& riga, Codice codice, std::uint8_t colonna, std::string testo,
                            bool soloAvviso) {
  Messaggio nuovo = messaggio(codice, std::move(testo), lettura_.nomeColonna(colonna));
  if (soloAvviso) nuovo.gravita = Gravita::Avviso;
  riga.messaggi.push_back(std::move(nuovo));
}

void ControlliRiga::esegui(RigaLetta& riga) {
  switch (lettura_.elenco) {
    case Elenco::Aziende:
      return azienda(riga);
    case Elenco::Percipienti:
      return percipiente(riga);
    case Elenco::Compensi:
      return compenso(riga);
  }
}

bool ControlliRiga::respinta(const RigaLetta& riga, std::uint8_t colonna) const {
  const bool sua = colonna < lettura_.intestazioni.size() && !lettura_.intestazioni[colonna].empty();
  const std::string intestazione = lettura_.nomeColonna(colonna);
  return sua && std::any_of(riga.messaggi.begin(), riga.messaggi.end(), [&](const Messaggio& uno) {
           return uno.gravita == Gravita::Errore && uno.colonna == intestazione;
         });
}

void ControlliRiga::codiceFiscale(RigaLetta& riga, std::uint8_t colonna, bool controlla) {
  const Campo* const campo = riga.campo(colonna);
  if (campo == nullptr || campo->valore.isNull()) return;
  std::string codice = codiceNudo(campo->valore.text());
  if (const std::string intero = conZeri(codice); !intero.empty()) {
    segnala(riga, Codice::V09, colonna, codice + " ha perso gli zeri iniziali: letto come " + intero, true);
    codice = intero;
  }
  if (codice != campo->valore.text()) campoDi(riga, colonna).valore = lettura_.conserva(codice);
  if (!controlla) return;
  const FormaCodice forma = formaCodice(codice);
  if (forma == FormaCodice::Nessuna || soloZeri(codice)) {
    segnala(riga, Codice::P01, colonna, mostrato(codice) + " non ha la forma di un codice fiscale");
  } else if (!controlloGiusto(codice)) {
    const std::string giusto(1, forma == FormaCodice::Persona
                                    ? carattereDiControllo(codice.substr(0, codice.size() - 1))
                                    : cifraDiControllo(codice.substr(0, codice.size() - 1)));
    segnala(riga, Codice::P02, colonna, "l'ultimo carattere di " + codice + " dovrebbe essere " + giusto);
  }
}

void ControlliRiga::partitaIva(RigaLetta& riga, std::uint8_t colonna, bool controlla) {
  const Campo* const campo = riga.campo(colonna);
  if (campo == nullptr || campo->valore.isNull()) return;
  std::string codice = codiceNudo(campo->valore.text());
  if (const std::string intero = conZeri(codice); !intero.empty()) {
    segnala(riga, Codice::V09, colonna, codice + " ha perso gli zeri iniziali: letta come " + intero, true);
    codice = intero;
  }
  if (codice != campo->valore.text()) campoDi(riga, colonna).valore = lettura_.conserva(codice);
  if (!controlla) return;
  if (formaCodice(codice) != FormaCodice::Numero || soloZeri(codice)) {
    segnala(riga, Codice::P07, colonna, mostrato(codice) + " non è una partita IVA, che ha 11 cifre");
  } else if (!controlloGiusto(codice)) {
    segnala(riga, Codice::P07, colonna,
            "l'ultima cifra di " + codice + " dovrebbe essere " +
                cifraDiControllo(codice.substr(0, codice.size() - 1)));
  }
}

void ControlliRiga::cap(RigaLetta& riga, std::uint8_t colonna) {
  const Campo* const campo = riga.campo(colonna);
  if (campo == nullptr || campo->valore.isNull()) return;
  const std::string_view scritto = campo->valore.text();
  if (scritto.size() >= kCifreCap || !tutteCifre(scritto)) return;
  std::string intero(kCifreCap - scritto.size(), '0');
  intero += scritto;
  segnala(riga, Codice::V09, colonna,
          std::string(scritto) + " ha perso gli zeri iniziali: letto come " + intero, true);
  campoDi(riga, colonna).valore = lettura_.conserva(intero);
}

void ControlliRiga::azienda(RigaLetta& riga) {
  using enum ColonnaAzienda;
  for (const auto colonna :
       {CodiceFiscale, RappresentanteCodiceFiscale, CodiceFiscaleSocieta, IntermediarioCodiceFiscale}) {
    codiceFiscale(riga, rangoDi(colonna), true);
  }
  partitaIva(riga, rangoDi(PartitaIva), true);
  cap(riga, rangoDi(Cap));
  const std::string_view impegno = riga.valore(Impegno).text();
  if (!impegno.empty() && impegno != "1" && impegno != "2") {
    segnala(riga, Codice::V05, rangoDi(Impegno), mostrato(impegno) + " non è ammesso: serve 1 o 2");
  }
}

void ControlliRiga::percipiente(RigaLetta& riga) {
  using enum ColonnaPercipiente;
  const bool estero = eEstero(riga);
  codiceFiscale(riga, rangoDi(CodiceFiscale), true);
  codiceFiscale(riga, rangoDi(CodiceFiscaleRappresentante), true);
  codiceFiscale(riga, rangoDi(CodiceFiscaleEnte), true);
  partitaIva(riga, rangoDi(PartitaIva), !estero);
  if (!estero) cap(riga, rangoDi(Cap));
  persona(riga);
}

void ControlliRiga::persona(RigaLetta& riga) {
  using enum ColonnaPercipiente;
  const std::string_view codice = riga.valore(CodiceFiscale).text();
  const bool dichiarata = riga.ha(PersonaFisica);
  const bool haCodice = formaCodice(codice) == FormaCodice::Persona;
  if (!dichiarata && !respinta(riga, rangoDi(PersonaFisica))) {
    mettiCampo(riga, PersonaFisica, CellView::ofInteger(haCodice || riga.ha(Nome) ? 1 : 0), true);
  }
  const bool persona = riga.valore(PersonaFisica).flag();
  if (!haCodice) return;
  if (!persona) {
    return segnala(riga, Codice::P03, rangoDi(PersonaFisica), "il codice fiscale è di una persona fisica");
  }
  dividiNome(riga, codice);
  const std::string_view cognome = riga.valore(Cognome).text();
  const std::string_view nome = riga.valore(Nome).text();
  if (!cognome.empty() && !nome.empty() && lettereDelNome(cognome, nome) != codice.substr(0, 6)) {
    segnala(riga, Codice::P03, rangoDi(Cognome),
            mostrato(nomeCompleto(cognome, nome)) + " dà le lettere " + lettereDelNome(cognome, nome) +
                ", il codice fiscale ha " + std::string(codice.substr(0, 6)));
  }
  nascita(riga, codice);
}

// A surname that holds the name too, where the code fits only one way of parting them.
void ControlliRiga::dividiNome(RigaLetta& riga, std::string_view codice) {
  using enum ColonnaPercipiente;
  const std::string_view insieme = riga.valore(Cognome).text();
  if (riga.ha(Nome) || riga.svuota(Nome)) return;
  std::size_t scelto = 0;
  std::size_t possibili = 0;
  for (std::size_t i = insieme.find(' '); i != std::string_view::npos; i = insieme.find(' ', i + 1)) {
    if (lettereDelNome(insieme.substr(0, i), insieme.substr(i + 1)) != codice.substr(0, 6)) continue;
    scelto = i;
    ++possibili;
  }
  if (possibili != 1) return;
  mettiCampo(riga, Cognome, CellView::ofText(insieme.substr(0, scelto)), true);
  mettiCampo(riga, Nome, CellView::ofText(insieme.substr(scelto + 1)), true);
}

void ControlliRiga::nascita(RigaLetta& riga, std::string_view codice) {
  using enum ColonnaPercipiente;
  const std::optional<DatiNelCodice> dati = datiNelCodice(codice);
  if (!dati) return;
  const std::string_view suo = dati->femmina ? "F" : "M";
  const CellView sesso = riga.valore(Sesso);
  if (sesso.isNull() && !respinta(riga, rangoDi(Sesso))) {
    mettiCampo(riga, Sesso, CellView::ofText(suo), true);
  } else if (!sesso.isNull() && sesso.text() != suo) {
    segnala(riga, Codice::P04, rangoDi(Sesso), "il sesso del codice fiscale è " + std::string(suo));
  }
  const CellView data = riga.valore(DataNascita);
  if (respinta(riga, rangoDi(DataNascita))) return;
  if (data.isNull()) {
    const std::optional<Date> nato = nascitaNelCodice(*dati, oggi_);
    if (!nato) {
      return segnala(riga, Codice::P05, rangoDi(DataNascita),
                     "il codice fiscale non dà una data di nascita che esista");
    }
    mettiCampo(riga, DataNascita, CellView::ofDate(*nato), true);
    return;
  }
  const Date giorno = data.date();
  if (giorno.year() % 100 != dati->anno || giorno.month() != dati->mese || giorno.day() != dati->giorno) {
    segnala(riga, Codice::P05, rangoDi(DataNascita),
            giorno.toItalian() + " non è la data di nascita del codice fiscale");
  }
}

void ControlliRiga::compenso(RigaLetta& riga) {
  using enum ColonnaCompenso;
  codiceFiscale(riga, rangoDi(CodiceFiscale), false);
  partitaIva(riga, rangoDi(PartitaIva), false);
  notaDiCredito(riga);
}

void ControlliRiga::notaDiCredito(RigaLetta& riga) {
  using enum ColonnaCompenso;
  const std::string_view tipo = riga.valore(Tipo).text();
  if (tipo.empty()) return;
  const std::optional<bool> credito = eNotaDiCredito(tipo);
  if (!credito) {
    return segnala(riga, Codice::V05, rangoDi(Tipo),
                   mostrato(tipo) + " non è ammesso: fattura, parcella, ricevuta o nota di credito");
  }
  if (!*credito) return;
  const auto importo = [](const Campo& campo) {
    return colonne(Elenco::Compensi)[campo.colonna].tipo == TipoColonna::Importo && !campo.valore.isNull();
  };
  const bool negativi = std::any_of(riga.campi.begin(), riga.campi.end(), [&](const Campo& campo) {
    return importo(campo) && campo.valore.decimal() < Decimal();
  });
  if (negativi) {
    return segnala(riga, Codice::R06, rangoDi(Tipo), "nota di credito: riduce i compensi del percipiente");
  }
  for (Campo& campo : riga.campi) {
    if (importo(campo)) campo.valore = CellView::ofDecimal(-campo.valore.decimal());
  }
  segnala(riga, Codice::R06, rangoDi(Tipo),
          "nota di credito: gli importi sono presi in negativo e riducono i compensi del percipiente");
}

}  // namespace cu::intake

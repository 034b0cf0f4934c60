#include "intake/valore_cella.h"

#include <algorithm>
#include <array>
#include <span>
#include <utility>

#include "base/ascii.h"
#include "base/text.h"
#include "intake/testo_cella.h"
#include "tabelle/lettura.h"

namespace cu::intake {
namespace {

using tabelle::Genere;

constexpr Decimal kLimiteImporto = Decimal::fromScaled(100'000'000'000 * 10'000);

ValoreLetto conValore(CellView valore) { return {true, false, false, valore}; }
ValoreLetto senzaValore() { return {false, false, false, {}}; }

void segnala(std::vector<Messaggio>& messaggi, const ColonnaLetta& colonna, Codice codice,
             std::string testo) {
  messaggi.push_back(messaggio(codice, std::move(testo), colonna.trovata->intestazione));
}

struct ParolaNota {
  std::string_view parola;
  std::string_view valore;
};

std::string_view cercaParola(std::span<const ParolaNota> note, std::string_view testo) {
  const std::string piccola = lowerAscii(testo);
  for (const ParolaNota& nota : note) {
    if (nota.parola == piccola) return nota.valore;
  }
  return {};
}

constexpr auto kLogici = std::to_array<ParolaNota>({{"s", "1"},
                                                    {"si", "1"},
                                                    {"sì", "1"},
                                                    {"sÌ", "1"},
                                                    {"si'", "1"},
                                                    {"1", "1"},
                                                    {"x", "1"},
                                                    {"true", "1"},
                                                    {"vero", "1"},
                                                    {"n", "0"},
                                                    {"no", "0"},
                                                    {"0", "0"},
                                                    {"false", "0"},
                                                    {"falso", "0"}});
constexpr auto kSessi =
    std::to_array<ParolaNota>({{"m", "M"}, {"f", "F"}, {"maschio", "M"}, {"femmina", "F"}});

std::string motivoImporto(EsitoImporto esito, const std::string& scritto) {
  switch (esito) {
    case EsitoImporto::Migliaia:
      return scritto + " non è un importo: i segni delle migliaia si indicano nella mappatura (migliaia)";
    case EsitoImporto::Incerto:
      return scritto + " non è un importo certo: indicare il segno dei decimali (--decimal) o delle migliaia";
    case EsitoImporto::Grande:
      return scritto + " supera l'importo massimo, 99999999999,99";
    case EsitoImporto::Valuta:
      return scritto + " non è in euro";
    case EsitoImporto::Letto:
    case EsitoImporto::Trattino:
    case EsitoImporto::Altro:
      break;
  }
  return scritto + " non è un importo";
}

}  // namespace

std::optional<bool> logicoDiTesto(std::string_view testo) {
  const std::string_view valore = cercaParola(kLogici, testo);
  if (valore.empty()) return std::nullopt;
  return valore == "1";
}

std::optional<LettoreCelle::Cella> LettoreCelle::prendi(const ColonnaLetta& colonna,
                                                        const tabelle::Cella& cella,
                                                        std::vector<Messaggio>& messaggi) {
  if (cella.genere == Genere::Vuota) return Cella();
  std::string motivo = tabelle::motivoSenzaValore(cella);
  const std::string_view testo = pulito(cella.testo, appoggio_);
  if (motivo.empty() && cella.genere == Genere::Testo && erroreDiFoglio(testo)) {
    motivo = "la cella mostra l'errore " + mostrato(testo);
  }
  if (!motivo.empty()) {
    segnala(messaggi, colonna, Codice::V08, std::move(motivo));
    return std::nullopt;
  }
  const bool cambiato = testo.data() == appoggio_.data();
  return Cella{testo, testo.empty() ? Genere::Vuota : cella.genere, !cambiato};
}

LettoreCelle::Cella LettoreCelle::conValori(const ColonnaLetta& colonna, Cella cella) {
  if (colonna.trovata->valori == nullptr) return cella;
  const auto& valori = *colonna.trovata->valori;
  auto trovato = valori.find(std::string(cella.testo));
  if (trovato == valori.end() && !cella.testo.empty()) {
    const std::string nome = tabelle::normalizza(cella.testo);
    trovato = std::find_if(valori.begin(), valori.end(), [&](const auto& voce) {
      return !voce.first.empty() && tabelle::normalizza(voce.first) == nome;
    });
  }
  if (trovato == valori.end()) return cella;
  return {trovato->second, trovato->second.empty() ? Genere::Vuota : Genere::Testo, false};
}

ValoreLetto LettoreCelle::leggi(const ColonnaLetta& colonna, const tabelle::RigaTabella& riga,
                                std::vector<Messaggio>& messaggi) {
  const ColonnaTrovata& trovata = *colonna.trovata;
  // An empty one is how a profile leaves a column out.
  if (trovata.costante && trovata.costante->empty()) return {};
  if (trovata.costante) return una(colonna, {*trovata.costante, Genere::Testo, false}, messaggi);
  ValoreLetto insieme;
  bool male = false;
  for (const std::size_t posto : trovata.posti) {
    const std::optional<Cella> cella = prendi(colonna, riga.cella(posto), messaggi);
    if (!cella) {
      male = true;
      continue;
    }
    const ValoreLetto letto = una(colonna, conValori(colonna, *cella), messaggi);
    male = male || (!letto.letta && !letto.vuota);
    insieme = unita(colonna, insieme, letto);
  }
  if (male) return senzaValore();
  if (insieme.valore.type() == ValueType::Decimal && insieme.valore.decimal().abs() >= kLimiteImporto) {
    segnala(messaggi, colonna, Codice::V03, "la somma supera l'importo massimo, 99999999999,99");
    return senzaValore();
  }
  return insieme;
}

// Amounts add up, texts are joined.
ValoreLetto LettoreCelle::unita(const ColonnaLetta& colonna, ValoreLetto prima, const ValoreLetto& dopo) {
  if (prima.valore.isNull()) return dopo.vuota ? prima : dopo;
  if (dopo.valore.isNull()) return prima;
  if (colonna.colonna().tipo == TipoColonna::Importo) {
    prima.valore = CellView::ofDecimal(prima.valore.decimal() + dopo.valore.decimal());
  } else {
    const std::string insieme = std::string(prima.valore.text()) + ' ' + std::string(dopo.valore.text());
    prima.valore = lettura_.conserva(insieme);
  }
  return prima;
}

ValoreLetto LettoreCelle::una(const ColonnaLetta& colonna, const Cella& cella,
                              std::vector<Messaggio>& messaggi) {
  if (cella.genere == Genere::Vuota) {
    return colonna.croci ? conValore(CellView::ofInteger(0)) : ValoreLetto();
  }
  if (cella.testo == "-") return {true, true, false, {}};
  switch (colonna.colonna().tipo) {
    case TipoColonna::Importo:
    case TipoColonna::Percentuale:
      return importo(colonna, cella, messaggi);
    case TipoColonna::Data:
      return data(colonna, cella, messaggi);
    case TipoColonna::Logico:
    case TipoColonna::Sesso:
      return parola(colonna, cella, messaggi);
    case TipoColonna::Testo:
    case TipoColonna::Codice:
    case TipoColonna::CodiceFiscale:
    case TipoColonna::PartitaIva:
    case TipoColonna::Cap:
      break;
  }
  return testo(colonna, cella, messaggi);
}

ValoreLetto LettoreCelle::testo(const ColonnaLetta& colonna, const Cella& cella,
                                std::vector<Messaggio>& messaggi) {
  const std::string_view scritto = cella.testo;
  if (cella.genere == Genere::Data) {
    segnala(messaggi, colonna, Codice::V09,
            "il foglio elettronico ha cambiato il valore in una data, " + mostrato(scritto));
    return senzaValore();
  }
  if (cifrePerse(scritto)) {
    segnala(messaggi, colonna, Codice::V09,
            mostrato(scritto) + " è un numero di cui il foglio elettronico ha perso le cifre");
    return senzaValore();
  }
  if (const auto difetto = difettoDelTesto(scritto)) {
    segnala(messaggi, colonna, difetto->codice, difetto->testo);
    if (difetto->respinto) return senzaValore();
  }
  const bool maiuscolo = colonna.colonna().tipo != TipoColonna::Testo;
  const std::string grande = maiuscolo ? upperAscii(scritto) : std::string();
  if (maiuscolo && grande != scritto) return conValore(lettura_.conserva(grande));
  return conValore(cella.delFile ? CellView::ofText(scritto) : lettura_.conserva(scritto));
}

ValoreLetto LettoreCelle::importo(const ColonnaLetta& colonna, const Cella& cella,
                                  std::vector<Messaggio>& messaggi) {
  const bool percento = colonna.colonna().tipo == TipoColonna::Percentuale;
  const bool numero = cella.genere == Genere::Numero || cella.genere == Genere::Percentuale;
  const std::string scritto = mostrato(cella.testo);
  if (cella.genere == Genere::Data || cella.genere == Genere::Logica ||
      (cella.genere == Genere::Percentuale && !percento)) {
    segnala(messaggi, colonna, Codice::V03, scritto + " non è un importo");
    return senzaValore();
  }
  std::string_view cifre = cella.testo;
  if (percento && cifre.ends_with('%')) cifre = trim(cifre.substr(0, cifre.size() - 1));
  const SegniImporto delFoglio{'.', {}, false, false};
  const ImportoLetto letto = leggiImporto(cifre, numero ? delFoglio : segni_, percento ? 4 : 2);
  if (letto.esito == EsitoImporto::Trattino) return {true, true, false, {}};
  if (letto.esito != EsitoImporto::Letto) {
    segnala(messaggi, colonna, letto.esito == EsitoImporto::Valuta ? Codice::V05 : Codice::V03,
            motivoImporto(letto.esito, scritto));
    return senzaValore();
  }
  Decimal valore = letto.valore;
  if (percento && (valore < Decimal() || valore > Decimal::fromInteger(100))) {
    segnala(messaggi, colonna, Codice::V05, scritto + " non è una percentuale da 0 a 100");
    return senzaValore();
  }
  if (letto.arrotondato && !percento) {
    segnala(messaggi, colonna, Codice::V04,
            scritto + " ha più di due decimali: arrotondato a " + valore.toFixed(2, ','));
  }
  if (colonna.trovata->segno == Segno::Positivo) valore = valore.abs();
  if (colonna.trovata->segno == Segno::Inverso) valore = -valore;
  return conValore(CellView::ofDecimal(valore));
}

ValoreLetto LettoreCelle::data(const ColonnaLetta& colonna, const Cella& cella,
                               std::vector<Messaggio>& messaggi) {
  const DataScritta scritta = leggiScritta(cella.testo, cella.genere, dal1904_, colonna.ultimoAnno);
  if (scritta.forma == DataScritta::Forma::TreNumeri && !colonna.ordine) {
    segnala(messaggi, colonna, Codice::V02,
            "non è certo se " + mostrato(cella.testo) + " abbia prima il giorno o il mese");
    return senzaValore();
  }
  const auto letta =
      risolta(scritta, colonna.ordine.value_or(OrdineData::GiornoMeseAnno), colonna.ultimoAnno);
  if (letta) return conValore(CellView::ofDate(*letta));
  segnala(messaggi, colonna, Codice::V01, mostrato(cella.testo) + " non è una data");
  return senzaValore();
}

ValoreLetto LettoreCelle::parola(const ColonnaLetta& colonna, const Cella& cella,
                                 std::vector<Messaggio>& messaggi) {
  if (colonna.colonna().tipo == TipoColonna::Logico) {
    if (const auto valore = logicoDiTesto(cella.testo))
      return conValore(CellView::ofInteger(*valore ? 1 : 0));
    segnala(messaggi, colonna, Codice::V05, mostrato(cella.testo) + " non è né sì né no: serve S o N");
    return senzaValore();
  }
  const std::string_view sesso = cercaParola(kSessi, cella.testo);
  if (!sesso.empty()) return conValore(CellView::ofText(sesso));
  segnala(messaggi, colonna, Codice::V05, mostrato(cella.testo) + " non è un sesso: serve M o F");
  return senzaValore();
}

}  // namespace cu::intake

#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>
#include <string_view>

#include "modello/anni.h"

namespace cu::modello {

// The layout of the telematic file as printed in the official rules for the supply: position (from 1),
// length, name of the field. The names connect layout and writers.

inline constexpr int kLarghezzaRecord = 1898;
inline constexpr int kCelle = 75;
inline constexpr int kPrimaCella = 90;  // position
inline constexpr int kLarghezzaCella = 24;

// The producer of the software, required in record B.
inline constexpr std::string_view kCodiceFiscaleProduttore = "04711230587";

struct CampoRecord {
  int posizione = 0;
  int lunghezza = 0;
  std::string_view nome;
  int volte =
      1;  // more than one: that many consecutive fields, with the number from 1 at the end of the name
};

// clang-format off
inline constexpr auto kTipoA = std::to_array<CampoRecord>({
    {   1,    1, "Tipo Record"},
    {   2,   14, "Filler"},
    {  16,    5, "Codice fornitura"},
    {  21,    2, "Tipo fornitore"},
    {  23,   16, "Cod. Fisc. fornitore"},
    {  39,  483, "Filler 2"},
    { 522,    4, "Filler 3"},
    { 526,    4, "Filler 4"},
    { 530,  100, "Campo utente"},
    { 630, 1068, "Filler 5"},
    {1698,  200, "Spazio riservato a serv. telematico"},
    {1898,    1, "Filler 6"},
});

inline constexpr auto kTipoBInizio = std::to_array<CampoRecord>({
    {   1,    1, "Tipo Record"},
    {   2,   16, "Cod. Fisc. Sost. imposta"},
    {  18,    8, "Progressivo modulo"},
    {  26,    1, "Filler"},
    {  27,    8, "Filler 2"},
    {  35,   25, "Filler 3"},
    {  60,   14, "Spazio a disp. utente"},
    {  74,   16, "Id. prod. software (Cod. Fisc.)"},
    {  90,    1, "Filler 4"},
    {  91,    1, "Fornitura rel. invio certif. da ann."},
    {  92,    1, "Fornitura rel. invio certif. da sost."},
    {  93,   24, "Cognome"},
    { 117,   20, "Nome"},
    { 137,   60, "Denominazione"},
    { 197,  100, "Indirizzo posta elettronica"},
    { 297,   12, "Telefono/Fax"},
});

inline constexpr auto kTipoBSenzaEventi = std::to_array<CampoRecord>({
    { 309,   12, "Filler 5"},
    { 321,   16, "Cod. Fisc. rappresentante"},
    { 337,    2, "Cod. carica rappresentante"},
    { 339,   24, "Cognome rappresentante"},
    { 363,   20, "Nome rappresentante"},
    { 383,   11, "Cod. Fisc. soc. o ente dich."},
});

inline constexpr auto kTipoBConEventi = std::to_array<CampoRecord>({
    { 309,    1, "Eventi eccezionali"},
    { 310,   16, "Cod. Fisc. rappresentante"},
    { 326,    2, "Cod. carica rappresentante"},
    { 328,   24, "Cognome rappresentante"},
    { 352,   20, "Nome rappresentante"},
    { 372,   11, "Cod. Fisc. soc. o ente dich."},
    { 383,   11, "Filler 5"},
});

// From 2020 the exceptional event has two digits.
inline constexpr auto kTipoBConEventiADueCifre = std::to_array<CampoRecord>({
    { 309,    2, "Eventi eccezionali"},
    { 311,   16, "Cod. Fisc. rappresentante"},
    { 327,    2, "Cod. carica rappresentante"},
    { 329,   24, "Cognome rappresentante"},
    { 353,   20, "Nome rappresentante"},
    { 373,   11, "Cod. Fisc. soc. o ente dich."},
    { 384,   10, "Filler 5"},
});

inline constexpr auto kTipoBFine = std::to_array<CampoRecord>({
    { 394,    8, "N° comun. certif. lav. dip. e assim."},
    { 402,    8, "N° comun. certif. lav. aut. e provv."},
    { 410,    1, "Casella Quadro CT"},
    { 411,    1, "Firma"},
    { 412,   16, "Cod. Fisc. intermediario"},
    { 428,    1, "Impegno a trasmettere via telem. dich."},
    { 429,    8, "Data dell'impegno"},
    { 437,    1, "Firma intermediario"},
    { 438,    1, "Filler 6"},
    { 439,   40, "Filler 7"},
    { 479,    2, "Filler 8"},
    { 481,    5, "Filler 9"},
    { 486,   35, "Filler 10"},
    { 521,    6, "Filler 11"},
});

inline constexpr auto kTipoBRiserva = std::to_array<CampoRecord>({
    { 527,    3, "Filler 12"},
});

// From 2021 a flag for the special cases of the agent.
inline constexpr auto kTipoBCasiParticolari = std::to_array<CampoRecord>({
    { 527,    1, "Casi particolari"},
    { 528,    2, "Filler 12"},
});

inline constexpr auto kTipoBCoda = std::to_array<CampoRecord>({
    { 530,    8, "Filler 13"},
    { 538,    1, "Filler 14"},
    { 539, 1305, "Filler 15"},
    {1844,   20, "Spazio riservato a serv. telematico"},
    {1864,    7, "Filler 16"},
    {1871,    3, "Filler 17"},
    {1874,    3, "Filler 18"},
    {1877,    1, "Filler 19"},
    {1878,    1, "Filler 20"},
    {1879,    1, "Filler 21"},
    {1880,    1, "Filler 22"},
    {1881,    1, "Filler 23"},
    {1882,    1, "Filler 24"},
    {1883,   15, "Filler 25"},
    {1898,    1, "Filler 26"},
});

inline constexpr auto kTipoD = std::to_array<CampoRecord>({
    {   1,    1, "Tipo Record"},
    {   2,   16, "Cod. Fisc. Sost. imposta"},
    {  18,    8, "Progressivo modulo"},
    {  26,   16, "Cod. Fisc. Percipiente"},
    {  42,    5, "Progressivo Certificazione"},
    {  47,   17, "Prot. ass. da Serv. telem.-Id. invio"},
    {  64,    6, "Progr. ass. da Serv. telem. alla singola CU"},
    {  70,   14, "Spazio a disp. utente"},
    {  84,    1, "Tipo op.: ann./sost."},
    {  85,    4, "Filler"},
    {  89,    1, "Flag conferma Singola Certif."},
    {  90,   24, "Campo", kCelle},
    {1890,    8, "Filler 2"},
    {1898,    1, "Filler 3"},
});

inline constexpr auto kTipoH = std::to_array<CampoRecord>({
    {   1,    1, "Tipo Record"},
    {   2,   16, "Cod. Fisc. Sost. imposta"},
    {  18,    8, "Progressivo modulo"},
    {  26,   16, "Cod. Fisc. Percipiente"},
    {  42,    5, "Progressivo Certificazione"},
    {  47,   17, "Filler"},
    {  64,    6, "Spazio a disp. utente"},
    {  70,   14, "Filler 2"},
    {  84,    1, "Filler 3"},
    {  85,    4, "Filler 4"},
    {  89,    1, "Filler 5"},
    {  90,   24, "Campo", kCelle},
    {1890,    8, "Filler 6"},
    {1898,    1, "Filler 7"},
});

inline constexpr auto kTipoZ = std::to_array<CampoRecord>({
    {   1,    1, "Tipo Record"},
    {   2,   14, "Filler"},
    {  16,    9, "N° rec. Tipo B"},
    {  25,    9, "N° rec. Tipo C"},
    {  34,    9, "N° rec. Tipo D"},
    {  43,    9, "N° rec. Tipo G"},
    {  52,    9, "N° rec. Tipo H"},
    {  61,    9, "N° rec. Tipo L"},
    {  70,    9, "Filler 3"},
    {  79,    9, "Filler 4"},
    {  88, 1810, "Filler 5"},
    {1898,    1, "Filler 6"},
});
// clang-format on

using Tavola = std::span<const CampoRecord>;

// The position after the rows when they are contiguous from `posizione`, without gap or overlap; otherwise 0.
constexpr int dopo(Tavola righe, int posizione) {
  for (const CampoRecord& riga : righe) {
    if (riga.posizione != posizione || riga.lunghezza < 1 || riga.volte < 1) return 0;
    posizione += riga.lunghezza * riga.volte;
  }
  return posizione;
}

static_assert(dopo(kTipoA, 1) == kLarghezzaRecord + 1);
static_assert(dopo(kTipoD, 1) == kLarghezzaRecord + 1);
static_assert(dopo(kTipoH, 1) == kLarghezzaRecord + 1);
static_assert(dopo(kTipoZ, 1) == kLarghezzaRecord + 1);

// What differs in record B, by tax years; the last entry applies to every other year.
struct VarianteB {
  Anni anni;
  Tavola rappresentante;
  Tavola casi;
};
inline constexpr auto kVariantiB =
    std::to_array<VarianteB>({{finoAl(2015), kTipoBSenzaEventi, kTipoBRiserva},
                              {{2016, 2019}, kTipoBConEventi, kTipoBRiserva},
                              {nel(2020), kTipoBConEventiADueCifre, kTipoBRiserva},
                              {dal(2021), kTipoBConEventiADueCifre, kTipoBCasiParticolari}});

// The parts of record B in a year of the layout, in their order.
constexpr std::array<Tavola, 5> tipoB(std::int32_t anno) {
  const VarianteB* sua = &kVariantiB.back();
  for (const VarianteB& variante : kVariantiB) {
    if (variante.anni.comprende(anno)) sua = &variante;
  }
  return {kTipoBInizio, sua->rappresentante, kTipoBFine, sua->casi, kTipoBCoda};
}
static_assert(std::all_of(kVariantiB.begin(), kVariantiB.end(), [](const VarianteB& variante) {
  int posizione = 1;
  for (const Tavola parte : tipoB(variante.anni.ultimo)) posizione = dopo(parte, posizione);
  return posizione == kLarghezzaRecord + 1;
}));

constexpr bool haCampo(Tavola tavola, std::string_view nome) {
  return std::any_of(tavola.begin(), tavola.end(),
                     [nome](const CampoRecord& riga) { return riga.nome == nome; });
}

// The exceptional event of the company, present in record B in some years.
inline constexpr std::string_view kEventiEccezionali = "Eventi eccezionali";
constexpr bool haEventiEccezionali(std::int32_t anno) { return haCampo(tipoB(anno)[1], kEventiEccezionali); }

// The flag of the special cases; empty in the layouts without it.
inline constexpr std::string_view kCasiParticolari = "Casi particolari";
constexpr bool haCasiParticolari(std::int32_t anno) { return haCampo(tipoB(anno)[3], kCasiParticolari); }

// Certificates of employees: only the first form requires their number in this supply.
inline constexpr Anni kContaDipendenti = nel(2014);

}  // namespace cu::modello

#pragma once

// The certificate's lines composed by hand for the run year 2016, directly from the row to the positions of
// the line, with the form and the columns' indexes hard-coded. Measures the cost of the tables.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "base/date.h"
#include "base/windows1252.h"
#include "colonne_a_mano.h"

namespace cu::bench {

// `Row` returns of column n: isNull(n), text(n), amount(n) in ten-thousandths, whole(n), day(n).
class ComposizioneAMano {
 public:
  ComposizioneAMano() : d_(1900, ' '), h_(1900, ' ') {
    for (std::string* line : {&d_, &h_}) line->replace(1897, 3, "A\r\n");
    d_[0] = 'D';
    d_.replace(17, 8, "00000001");
    d_.replace(46, 23, 23, '0');
    d_[88] = '0';
    h_[0] = 'H';
  }

  template <class Row>
  std::string_view certificato(const Row& r, int number, std::string_view company, Date signature) {
    begin(d_, used_d_);
    frame(r, number, company);
    upper("DA001001", r.text(CodiceFiscaleAz));
    upper("DA001002", r.text(AnagraficaAz));
    upper("DA001003", r.text(NomeAz));
    plain("DA001004", r.text(ComuneAz));
    plain("DA001005", r.text(SiglaProvinciaAz));
    plain("DA001006", r.text(CapAz));
    plain("DA001007", r.text(IndirizzoAz));
    phone(r.text(TelefonoAz), r.text(FaxAz));
    plain("DA001009", r.text(EMailInternetAz));
    plain("DA001010", r.text(CodiceAttivita));
    upper("DA002001", r.text(CodiceFiscale));
    upper("DA002002", r.text(Anagrafica));
    if (r.whole(PersonaFisica) != 0) upper("DA002003", r.text(Nome));
    upper("DA002004", r.text(Sesso));
    if (!r.isNull(DataNascita)) date("DA002005", r.day(DataNascita));
    plain("DA002006", r.text(ComuneNascita));
    plain("DA002007", r.text(ProvinciaNascita));
    plain("DA002008", r.text(CodiceCategoriaParticolare));
    right("DA002009", r.text(CodiceEventoEccezionale));
    plain("DA002020", r.text(ComuneResidenzaAnnoPrec));
    plain("DA002021", r.text(SiglaProvResidenzaAnnoPrec));
    plain("DA002022", r.text(CodiceComuneDiNascitaPrec));
    plain("DA002023", r.text(ComuneResidenzaAnnoCorr));
    plain("DA002024", r.text(SiglaProvResidenzaAnnoCorr));
    plain("DA002025", r.text(CodiceComuneDiNascitaCorr));
    plain("DA002026", r.text(FusioneComuni));
    upper("DA002030", r.text(CodiceFiscaleRappresentante));
    if (r.whole(NonResidente) != 0) {
      plain("DA002040", r.text(CodiceIdentificazioneFiscaleEstero));
      plain("DA002041", r.text(ComuneRes));
      plain("DA002042", r.text(Indirizzo));
      if (r.whole(NonResidenteSchumacker) != 0) right("DA002043", "1");
      right("DA002044", r.text(PrefissoInternazionaleRes));
    }
    date("DA003001", signature);
    right("DA003002", "1");
    used_d_ = cells_;
    return d_;
  }

  template <class Row>
  std::string_view primoModulo(const Row& r, int number, std::string_view company) {
    begin(h_, used_h_);
    frame(r, number, company);
    h_.replace(17, 8, "00000001");
    const std::string_view reason = r.text(Codice);
    upper("AU001001", reason);
    const bool advance = r.whole(Anticipazione) != 0;
    if (advance || reason == "G" || reason == "H" || reason == "I") whole("AU001002", r.whole(Anno));
    if (advance) right("AU001003", "1");
    amount("AU001004", r.amount(AmmontareLordo));
    amount("AU001005", r.amount(SommeRegimeConvenzionale));
    const std::int64_t sum = r.amount(SommeNonSoggetteARitenuta) + r.amount(QuotaProvvigioniNonSoggette);
    const std::string_view code = r.text(CodicePerNonSoggetti);
    if (!code.empty()) {
      right("AU001006", code);
    } else if (sum != 0) {
      const std::int64_t year = r.whole(Anno);
      right("AU001006", year < 2016 ? "3" : year == 2016 ? "6" : "7");
    }
    amount("AU001007", sum);
    amount("AU001008", r.amount(Imponibile));
    amount("AU001009", r.amount(RitenuteAcconto));
    amount("AU001010", r.amount(RitenuteImposta));
    amount("AU001011", r.amount(RitenuteSospese));
    if (reason == "N") {
      amount("AU001012", r.amount(AddRegionAcconto));
      amount("AU001013", r.amount(AddRegionImposta));
      amount("AU001014", r.amount(AddRegionSospesa));
      amount("AU001015", r.amount(AddComunAcconto));
      amount("AU001016", r.amount(AddComunImposta));
      amount("AU001017", r.amount(AddComunSospesa));
    }
    amount("AU001018", r.amount(ImponibileAnniPrecedenti));
    amount("AU001019", r.amount(RitenuteAnniPrecedenti));
    amount("AU001020", r.amount(SpeseRimborsate));
    amount("AU001021", r.amount(RitenuteRimborsate));
    const std::int64_t company1 = r.amount(ContributiCaricoAzienda);
    const std::int64_t payee = r.amount(ContributiCaricoPercipiente);
    const std::int64_t others = r.amount(ImportoAltriContributi);
    const std::int64_t due = r.amount(ContributiDovuti);
    const std::int64_t paid = r.amount(ContributiVersati);
    if ((company1 | payee | others | due | paid) != 0) {
      upper("AU001029", r.text(CUCodiceFiscale));
      plain("AU001030", r.text(CUDenominazioneEntePrevidenziale));
      const std::int64_t fund = r.whole(IDCUEntePrevidenziale);
      plain("AU001032", r.text(fund == 1   ? CodiceAzPressoENPAM
                               : fund == 2 ? CodiceAzPressoENPAPI
                                           : CUDenominazioneEntePrevidenziale));
      plain("AU001033", r.text(CUCodiceCategoriaEntePrevidenziale));
      amount("AU001034", company1);
      amount("AU001035", payee);
      if (r.whole(AltriContributi) != 0) right("AU001036", "1");
      amount("AU001037", others);
      amount("AU001038", due);
      amount("AU001039", paid);
    }
    amount("AU001041", r.amount(SommeCorrispostePreFallimento));
    amount("AU001042", r.amount(SommeCorrisposteDalCuratore));
    upper("AU001052", r.text(AltriSoggettiCodiceFiscale));
    amount("AU001053", r.amount(AltriSoggettiImponibile));
    amount("AU001054", r.amount(AltriSoggettiRitenuteAcconto));
    amount("AU001055", r.amount(AltriSoggettiRitenuteImposta));
    amount("AU001056", r.amount(AltriSoggettiRitenuteSospese));
    amount("AU001057", r.amount(AltriSoggettiAddRegionAcconto));
    amount("AU001058", r.amount(AltriSoggettiAddRegionImposta));
    amount("AU001059", r.amount(AltriSoggettiAddRegionSospesa));
    amount("AU001060", r.amount(AltriSoggettiAddComunAcconto));
    amount("AU001061", r.amount(AltriSoggettiAddComunImposta));
    amount("AU001062", r.amount(AltriSoggettiAddComunSospesa));
    upper("AU001071", r.text(CodiceFiscaleLavoroAutonomo));
    upper("AU001072", r.text(CodiceFiscalePignoramentoTerzi));
    upper("AU001073", r.text(CodiceFiscaleIndennitaEsproprio));
    upper("AU001101", r.text(PignoramentoTerziCodiceFiscale1));
    amount("AU001102", r.amount(PignoramentoTerziSommeErogate1));
    amount("AU001103", r.amount(PignoramentoTerziRitenuteOperate1));
    amount("AU001104", r.amount(PignoramentoTerziSommeNonTassate1));
    upper("AU001105", r.text(PignoramentoTerziCodiceFiscale2));
    amount("AU001106", r.amount(PignoramentoTerziSommeErogate2));
    amount("AU001107", r.amount(PignoramentoTerziRitenuteOperate2));
    amount("AU001108", r.amount(PignoramentoTerziSommeNonTassate2));
    amount("AU001131", r.amount(IndennitaEsproprioSommeCorrisposte1));
    amount("AU001132", r.amount(IndennitaEsproprioRitenuteOperate1));
    amount("AU001133", r.amount(AltreIndennitaSommeCorrisposte1));
    amount("AU001134", r.amount(AltreIndennitaRitenuteOperate1));
    amount("AU001135", r.amount(IndennitaEsproprioSommeCorrisposte2));
    amount("AU001136", r.amount(IndennitaEsproprioRitenuteOperate2));
    amount("AU001137", r.amount(AltreIndennitaSommeCorrisposte2));
    amount("AU001138", r.amount(AltreIndennitaRitenuteOperate2));
    used_h_ = cells_;
    return h_;
  }

  template <class Row, class ModuleRow>
  std::string_view altroModulo(const Row& r, const ModuleRow& m, int number, int module,
                               std::string_view company) {
    begin(h_, used_h_);
    frame(r, number, company);
    digits(h_.data() + 17, 8, module);
    if (!m.isNull(M_AnnoModulo)) whole("AU001002", m.whole(M_AnnoModulo));
    if (m.whole(M_Anticipazione) != 0) right("AU001003", "1");
    right("AU001006", m.text(M_CodicePerNonSoggetti));
    amount("AU001007", m.amount(M_SommeNonSoggette));
    amount("AU001018", m.amount(M_ImponibileAnniPrec));
    amount("AU001019", m.amount(M_RitenuteAnniPrec));
    const std::int64_t company1 = m.amount(M_ContributiCaricoAzienda);
    const std::int64_t payee = m.amount(M_ContributiCaricoPercipiente);
    const std::int64_t others = m.amount(M_ImportoAltriContributi);
    const std::int64_t due = m.amount(M_ContributiDovuti);
    const std::int64_t paid = m.amount(M_ContributiVersati);
    if ((company1 | payee | others | due | paid) != 0) {
      upper("AU001029", m.text(M_CUCodiceFiscale));
      plain("AU001030", m.text(M_CUDenominazioneEntePrevidenziale));
      plain("AU001032", m.text(M_CUDenominazioneEntePrevidenziale));
      plain("AU001033", m.text(M_CUCodiceCategoriaEntePrevidenziale));
      amount("AU001034", company1);
      amount("AU001035", payee);
      if (m.whole(M_AltriContributi) != 0) right("AU001036", "1");
      amount("AU001037", others);
      amount("AU001038", due);
      amount("AU001039", paid);
    }
    upper("AU001052", m.text(M_AltriSoggettiCodiceFiscale));
    amount("AU001053", m.amount(M_AltriSoggettiImponibile));
    amount("AU001054", m.amount(M_AltriSoggettiRitenuteAcconto));
    amount("AU001055", m.amount(M_AltriSoggettiRitenuteImposta));
    amount("AU001056", m.amount(M_AltriSoggettiRitenuteSospese));
    amount("AU001057", m.amount(M_AltriSoggettiAddRegionAcconto));
    amount("AU001058", m.amount(M_AltriSoggettiAddRegionImposta));
    amount("AU001059", m.amount(M_AltriSoggettiAddRegionSospesa));
    amount("AU001060", m.amount(M_AltriSoggettiAddComunAcconto));
    amount("AU001061", m.amount(M_AltriSoggettiAddComunImposta));
    amount("AU001062", m.amount(M_AltriSoggettiAddComunSospesa));
    upper("AU001101", m.text(M_PignoramentoTerziCodiceFiscale1));
    amount("AU001102", m.amount(M_PignoramentoTerziSommeErogate1));
    amount("AU001103", m.amount(M_PignoramentoTerziRitenuteOperate1));
    amount("AU001104", m.amount(M_PignoramentoTerziSommeNonTassate1));
    upper("AU001105", m.text(M_PignoramentoTerziCodiceFiscale2));
    amount("AU001106", m.amount(M_PignoramentoTerziSommeErogate2));
    amount("AU001107", m.amount(M_PignoramentoTerziRitenuteOperate2));
    amount("AU001108", m.amount(M_PignoramentoTerziSommeNonTassate2));
    amount("AU001131", m.amount(M_IndennitaEsproprioSommeCorrisposte1));
    amount("AU001132", m.amount(M_IndennitaEsproprioRitenuteOperate1));
    amount("AU001133", m.amount(M_AltreIndennitaSommeCorrisposte1));
    amount("AU001134", m.amount(M_AltreIndennitaRitenuteOperate1));
    amount("AU001135", m.amount(M_IndennitaEsproprioSommeCorrisposte2));
    amount("AU001136", m.amount(M_IndennitaEsproprioRitenuteOperate2));
    amount("AU001137", m.amount(M_AltreIndennitaSommeCorrisposte2));
    amount("AU001138", m.amount(M_AltreIndennitaRitenuteOperate2));
    used_h_ = cells_;
    return h_;
  }

 private:
  void begin(std::string& line, int used) {
    line_ = line.data();
    std::memset(line_ + 89, ' ', static_cast<std::size_t>(used) * 24);
    cells_ = 0;
  }
  static void digits(char* out, int width, int number) {
    for (char* at = out + width; at > out; number /= 10) *--at = static_cast<char>('0' + number % 10);
  }
  template <class Row>
  void frame(const Row& r, int number, std::string_view company) {
    field(1, 16, company);
    field(25, 16, r.text(CodiceFiscale));
    // A number that exceeds its five places loses its last digits.
    while (number > 99999) number /= 10;
    digits(line_ + 41, 5, number);
  }
  void field(int at, std::size_t width, std::string_view utf8) {
    const std::string_view text = big(converted(utf8));
    const std::size_t n = std::min(width, text.size());
    std::memcpy(line_ + at, text.data(), n);
    std::memset(line_ + at + n, ' ', width - n);
  }
  std::string_view converted(std::string_view utf8) {
    if (soloAscii(utf8)) return utf8;
    scratch_.resize(utf8.size());
    scratch_.resize(a1252(utf8, scratch_.data()));
    return scratch_;
  }
  std::string_view big(std::string_view text) {
    upper_.assign(text);
    for (char& c : upper_) c = maiuscola1252(c);
    return upper_;
  }
  char* cell(const char* code) {
    char* const at = line_ + 89 + 24 * cells_++;
    std::memcpy(at, code, 8);
    return at + 8;
  }
  void put(const char* code, std::string_view value) {
    if (value.empty()) return;
    std::size_t n = std::min<std::size_t>(value.size(), 16);
    std::memcpy(cell(code), value.data(), n);
    for (value.remove_prefix(n); !value.empty(); value.remove_prefix(n)) {
      char* const at = cell(code);
      n = std::min<std::size_t>(value.size(), 15);
      *at = '+';
      std::memcpy(at + 1, value.data(), n);
    }
  }
  void plain(const char* code, std::string_view text) { put(code, converted(text)); }
  void upper(const char* code, std::string_view text) { put(code, big(converted(text))); }
  void right(const char* code, std::string_view text) {
    if (!text.empty()) std::memcpy(cell(code) + (16 - text.size()), text.data(), text.size());
  }
  void whole(const char* code, std::int64_t number) {
    char* at = cell(code) + 16;
    do {
      *--at = static_cast<char>('0' + number % 10);
      number /= 10;
    } while (number != 0);
  }
  void amount(const char* code, std::int64_t tenThousandths) {
    if (tenThousandths == 0) return;
    const bool negative = tenThousandths < 0;
    std::int64_t cents = ((negative ? -tenThousandths : tenThousandths) + 50) / 100;
    char* at = cell(code) + 16;
    *--at = static_cast<char>('0' + cents % 10);
    cents /= 10;
    *--at = static_cast<char>('0' + cents % 10);
    cents /= 10;
    *--at = ',';
    do {
      *--at = static_cast<char>('0' + cents % 10);
      cents /= 10;
    } while (cents != 0);
    if (negative) *--at = '-';
  }
  void date(const char* code, Date day) {
    char* const at = cell(code) + 8;
    digits(at, 2, day.day());
    digits(at + 2, 2, day.month());
    digits(at + 4, 4, day.year());
  }
  void phone(std::string_view phone, std::string_view fax) {
    if (!clean(phone)) clean(fax);
    put("DA001008", upper_);
  }
  // Returns true when only digits are left.
  bool clean(std::string_view text) {
    upper_.clear();
    bool number = true;
    for (const char c : converted(text)) {
      if (c == ' ' || c == '-' || c == '/' || c == '\\' || c == '(' || c == ')' || c == '.' || c == '+')
        continue;
      upper_ += c;
      number = number && c >= '0' && c <= '9';
    }
    return number && !upper_.empty();
  }

  std::string d_;
  std::string h_;
  char* line_ = nullptr;
  int cells_ = 0;
  int used_d_ = 0;
  int used_h_ = 0;
  std::string scratch_;
  std::string upper_;
};

}  // namespace cu::bench

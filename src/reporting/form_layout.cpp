#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <utility>

#include "base/text.h"
#include "reporting/form_grid.h"
#include "reporting/form_values.h"
#include "reporting/italian.h"
#include "reporting/layout.h"
#include "reporting/palette.h"

namespace cu::reporting {
namespace {

constexpr double kFormMargin = 12;
constexpr double kFormTop = 11;
constexpr double kFormFooterRoom = 14;
constexpr double kSmallestSigner = 4;
constexpr std::int64_t kReplacement = 3;
// Digits assigned by the authority to a transmission and to a certificate in it.
constexpr qsizetype kProtocolDigits = 17;
constexpr qsizetype kProgressiveDigits = 6;

// As in the file: truncated, and filled with zeros on the left.
QString reference(const QString& text, qsizetype digits) {
  const QString cut = text.trimmed().left(digits);
  return cut.isEmpty() ? cut : cut.rightJustified(digits, '0');
}

// The forms of one report, one per certificate.
class Forms {
 public:
  Forms(Canvas& canvas, const LayoutInput& input)
      : canvas_(canvas), input_(input), rows_(input.rows), width_(canvas.width() - 2 * kFormMargin) {}

  void certificate() {
    year_ = static_cast<std::int32_t>(rows_.get("Anno").integer());
    kind_ = rows_.get("Path1").integer();
    const QString name =
        rows_.text("Anagrafica") + ' ' + (rows_.get("PersonaFisica").flag() ? rows_.text("Nome") : QString());
    payee_ = upperCase(name.trimmed());
    code_ = upperCase(rows_.text("CodiceFiscale"));
    page_ = 0;
    if (!hasModules(rows_)) {
      pages_ = 1;
      identityPage();
      return;
    }
    if (input_.modules != nullptr) {
      pages(*input_.modules->at(rows_.current()));
    } else {
      Rows modules =
          input_.fromFile ? Rows(input_.connection, kFileModules) : readModules(input_.connection, rows_);
      pages(modules);
    }
  }

 private:
  void pages(Rows& modules) {
    pages_ = 2 + static_cast<int>(modules.size());
    identityPage();
    withValues([this](const auto& values) { amountsPage(1, values); });
    for (std::size_t i = 0; i < modules.size(); ++i) {
      modules.move(i);
      if (input_.fromFile) {
        amountsPage(i + 2, FileValues(modules));
      } else {
        amountsPage(i + 2, FurtherModuleValues(modules, rows_));
      }
    }
  }

  // The boxes of the certificate's row.
  void withValues(const auto& use) {
    if (input_.fromFile) {
      use(FileValues(rows_));
    } else {
      use(MainModuleValues(rows_, input_.form));
    }
  }
  void begin() {
    canvas_.beginPage();
    ++page_;
  }
  void footer() {
    const QString subject = payee_ + " - " + code_;
    drawFooter(canvas_, kFormMargin, unofficial() ? unofficialNote() + " - " + subject : subject, page_,
               pages_);
  }
  // The later forms are known from other sources than their maker.
  bool unofficial() const {
    return modello::annoTracciato(year_, input_.form) >= modello::kCodiceDaScegliere;
  }
  QString unofficialNote() const { return "CU " + QString::number(year_ + 1) + ", modello non ufficiale"; }

  const FormGrid& grid(FormPart part, double y) {
    const auto key = std::make_pair(part, modello::annoDisposizione(year_, input_.form));
    const auto known = grids_.find(key);
    if (known != grids_.end()) return known->second;
    return grids_
        .emplace(key, FormGrid(canvas_, input_.definition, part, year_, kFormMargin, width_, y, input_.form))
        .first->second;
  }

  void fillIn(const FormGrid& grid, const auto& values) {
    for (const FormGrid::PlacedBox& box : grid.boxes()) {
      const BoxValue value = values.of(box.box);
      drawBoxValue(canvas_, box.place, value.text, value.align, false, box.caption.size());
      const modello::Codice code = modello::codice(*box.box.main);
      placed({code.data(), code.size()}, box.place);
    }
  }

  void placed(std::string code, const Box& at) {
    if (input_.places == nullptr || !canvas_.draws()) return;
    input_.places->push_back({std::move(code), static_cast<std::size_t>(page_ - 1), at});
  }

  // A box without a number.
  void plainBox(const Box& place, const QString& caption, const QString& value, Align align = Align::Left) {
    drawBox(canvas_, place, caption, kMuted);
    drawBoxValue(canvas_, place, value, align);
  }

  void identityPage() {
    begin();
    double y = identityHead();
    y = communication(y);
    const FormGrid& boxes = grid(FormPart::Identity, y);
    boxes.drawEmpty(canvas_, year_);
    withValues([&](const auto& values) { fillIn(boxes, values); });
    y = boxes.bottom();
    if (rows_.get("Path2").flag()) y = intermediary(y + 2.1);
    signature(y + 2.1);
    footer();
  }

  double identityHead() {
    const TextStyle title{21, true, kAccent};
    const TextStyle year{21, true, kPaper};
    const TextStyle quiet{7.6, false, kMuted};
    const TextStyle subtitle{9.6, true, kInk};
    double y = kFormTop;
    constexpr double kYearWidth = 27;
    constexpr double kYearHeight = 11;
    canvas_.text(kFormMargin, y + 8.4, width_ - kYearWidth - 4, "CERTIFICAZIONE UNICA", title);
    canvas_.fill({kFormMargin + width_ - kYearWidth, y, kYearWidth, kYearHeight}, kAccent);
    canvas_.text(kFormMargin + width_ - kYearWidth, y + 8.4, kYearWidth, QString::number(year_ + 1), year,
                 Align::Center);
    y += kYearHeight + 2;
    y = canvas_.lines(
        kFormMargin, y, width_,
        {"Redditi dell'anno " + QString::number(year_) + ": lavoro autonomo, provvigioni e redditi diversi"},
        subtitle);
    y = canvas_.lines(
        kFormMargin, y + 0.5, width_,
        {"Certificazione di cui all'art. 4, commi 6-ter e 6-quater, del D.P.R. 22 luglio 1998, n. 322"},
        quiet);
    return y + 2.4;
  }

  double communication(double y) {
    const bool ordinary = kind_ != kCommunicationAnnulment && kind_ != kReplacement;
    const QString kind = kind_ == kCommunicationAnnulment ? "ANNULLAMENTO"
                         : kind_ == kReplacement          ? "SOSTITUZIONE"
                                                          : "ORDINARIA";
    const double height = kBoxHeight;
    const double first = width_ * 0.3;
    const double second = width_ * 0.45;
    if (!ordinary) canvas_.fill({kFormMargin, y, first, height}, kAlert);
    canvas_.frame({kFormMargin, y, first, height}, ordinary ? kRule : kAlert, 0.2);
    canvas_.lines(kFormMargin + 0.9, y + 0.5, first - 2, {"Comunicazione"},
                  {5.6, false, ordinary ? kMuted : kPaper});
    canvas_.text(kFormMargin + 1.2, y + height - 2, first - 2.4, kind,
                 {10.5, true, ordinary ? kInk : kPaper});
    const QString protocol =
        ordinary ? QString() : reference(rows_.text("ProtocolloAnnSost"), kProtocolDigits);
    const QString progressive =
        ordinary ? QString() : reference(rows_.text("ProgressivoAnnSost"), kProgressiveDigits);
    const QString what = kind_ == kCommunicationAnnulment ? "annullata"
                         : kind_ == kReplacement          ? "sostituita"
                                                          : "da annullare o sostituire";
    plainBox({kFormMargin + first, y, second, height}, "Protocollo della certificazione " + what, protocol);
    plainBox({kFormMargin + first + second, y, width_ - first - second, height}, "Progressivo", progressive);
    return y + height;
  }

  double intermediary(double y) {
    y = drawBar(canvas_, kFormMargin, y, width_, "Impegno alla presentazione telematica");
    const double third = width_ / 3;
    const std::int64_t commitment = rows_.get("TipoComunicazione").integer();
    const QString prepared = commitment == 1   ? "1 - predisposta dal contribuente"
                             : commitment == 2 ? "2 - predisposta da chi effettua l'invio"
                                               : QString();
    const Date day = rows_.get("DataImpegno").date();
    plainBox({kFormMargin, y, third, kBoxHeight}, "Codice fiscale dell'intermediario",
             upperCase(rows_.text("CodiceFiscaleIntermediario")));
    plainBox({kFormMargin + third, y, third, kBoxHeight}, "Comunicazione", prepared);
    plainBox({kFormMargin + 2 * third, y, third, kBoxHeight}, "Data dell'impegno", italianDate(day));
    return y + kBoxHeight;
  }

  void signature(double y) {
    y = drawBar(canvas_, kFormMargin, y, width_, "Data e firma");
    constexpr double kDateWidth = 42;
    constexpr double kLeast = 19;
    constexpr double kTextTop = 5.5;
    constexpr double kSignerGap = 1.7;
    constexpr double kSigningRoom = 11;
    constexpr double kBelowLine = 4;
    const QString company = upperCase((rows_.text("AnagraficaAz") + ' ' + rows_.text("NomeAz")).trimmed());
    const QString signer = (rows_.text("NomeRapp") + ' ' + rows_.text("AnagraficaRapp")).trimmed();
    TextStyle name{8, true, kInk};
    TextStyle quiet{7, false, kMuted};
    const double left = kFormMargin + kDateWidth;
    const double width = width_ - kDateWidth;
    // Short names are placed next to the signature line; long ones above it, in full, across the whole box.
    double room = width * 0.42 - 4;
    QStringList names = canvas_.wrap(company, name, room);
    QStringList signers = canvas_.wrap(signer, quiet, room);
    double height = kLeast;
    if (names.size() > 2 || signers.size() > 1) {
      room = width - 2.4;
      const double most = canvas_.height() - kFormFooterRoom - y;
      for (;;) {
        names = canvas_.wrap(company, name, room);
        signers = canvas_.wrap(signer, quiet, room);
        height = std::max(kLeast, kTextTop + static_cast<double>(names.size()) * canvas_.lineHeight(name) +
                                      kSignerGap +
                                      static_cast<double>(signers.size()) * canvas_.lineHeight(quiet) +
                                      kSigningRoom + kBelowLine);
        if (height <= most || quiet.points <= kSmallestSigner) break;
        name.points -= 0.5;
        quiet.points -= 0.5;
      }
    }
    const Date chosen = rows_.get("Path3").date();
    plainBox({kFormMargin, y, kDateWidth, height}, "Data",
             italianDate(chosen == Date() ? input_.today : chosen));
    drawBox(canvas_, {left, y, width, height}, "Firma del sostituto d'imposta", kMuted);
    placed("DA003001", {kFormMargin, y, kDateWidth, height});
    placed("DA003002", {left, y, width, height});
    const double below = canvas_.lines(left + 1.2, y + kTextTop, room, names, name);
    canvas_.lines(left + 1.2, below + kSignerGap, room, signers, quiet);
    const double line = y + height - kBelowLine;
    canvas_.line(left + width * 0.42, line, left + width - 3, line, kInk, 0.2);
  }

  void amountsPage(std::size_t module, const auto& values) {
    begin();
    double y = kFormTop;
    const TextStyle title{11, true, kAccent};
    const TextStyle quiet{6.8, false, kMuted};
    constexpr double kModuleWidth = 26;
    canvas_.text(kFormMargin, y + 4.4, width_ - kModuleWidth - 4,
                 "CERTIFICAZIONE UNICA " + QString::number(year_ + 1), title);
    canvas_.text(
        kFormMargin, y + 8.4, width_ - kModuleWidth - 4,
        "Certificazione lavoro autonomo, provvigioni e redditi diversi - anno " + QString::number(year_),
        quiet);
    const Box number{kFormMargin + width_ - kModuleWidth, y, kModuleWidth, kBoxHeight};
    canvas_.frame(number, kAccent, 0.3);
    canvas_.lines(number.x + 0.9, number.y + 0.5, number.width - 2, {"Mod. N."}, {5.6, false, kMuted});
    drawBoxValue(canvas_, number, QString::number(static_cast<qulonglong>(module)), Align::Center, true);
    y += kBoxHeight + 1.4;
    const double codeWidth = 50;
    plainBox({kFormMargin, y, codeWidth, kBoxHeight}, "Codice fiscale del percipiente", code_);
    plainBox({kFormMargin + codeWidth, y, width_ - codeWidth, kBoxHeight}, "Cognome e nome o denominazione",
             payee_);
    y += kBoxHeight - 0.4;
    const FormGrid& boxes = grid(FormPart::Amounts, y);
    boxes.drawEmpty(canvas_, year_);
    fillIn(boxes, values);
    footer();
  }

  Canvas& canvas_;
  const LayoutInput& input_;
  Rows& rows_;
  double width_;
  std::map<std::pair<FormPart, std::int32_t>, FormGrid> grids_;
  std::int32_t year_ = 0;
  std::int64_t kind_ = 1;
  QString payee_;
  QString code_;
  int page_ = 0;
  int pages_ = 0;
};

}  // namespace

void drawForms(Canvas& canvas, const LayoutInput& input) {
  if (input.rows.size() == 0) {
    drawNothing(canvas, input);
    return;
  }
  Forms forms(canvas, input);
  for (std::size_t i = 0; i < input.rows.size(); ++i) {
    input.report("Scrittura dei moduli", i, input.rows.size());
    input.rows.move(i);
    forms.certificate();
  }
}

}  // namespace cu::reporting

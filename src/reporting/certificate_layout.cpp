#include <algorithm>

#include "reporting/italian.h"
#include "reporting/layout.h"
#include "reporting/palette.h"
#include "reporting/table.h"

namespace cu::reporting {
namespace {

constexpr double kCertificateMargin = 11;
constexpr double kCertificateTop = 14;
constexpr double kCertificateFooterRoom = 16;
constexpr double kCertificatePoints = 7.2;
constexpr double kRecipientLeft = 104;
constexpr double kSignatureGap = 12;  // above place and date
constexpr double kHandRoom = 14;      // space for the signature
constexpr double kAboveSigner = 1;
constexpr double kSignatureWidth = 78;
const TextStyle kSignerStyle{7.5, false, kMuted};

// The certificate of one payee: the rows from `first` to before `end`.
class Certificate {
 public:
  Certificate(Canvas& canvas, const LayoutInput& input, std::size_t first, std::size_t end, int pages)
      : canvas_(canvas),
        input_(input),
        first_(first),
        end_(end),
        pages_(pages),
        width_(canvas.width() - 2 * kCertificateMargin) {}

  // Returns its number of pages.
  int draw() {
    input_.rows.move(first_);
    const ReportGroup& payee = input_.definition.groups.front();
    name_ = Template(payee.title, input_.rows).of(input_.rows);
    note_ = Template(payee.note, input_.rows).of(input_.rows);
    year_ = input_.rows.has("Anno") ? input_.rows.text("Anno") : QString();
    introduction_ = Template(input_.definition.introduction, input_.rows).of(input_.rows);

    begin();
    double y = letterhead();
    y = recipient(y);
    y = opening(y);
    Table table(canvas_, input_.definition, input_.rows, 1,
                {kCertificateMargin, width_, canvas_.height() - kCertificateFooterRoom}, kCertificatePoints,
                [this] { return nextPage(); });
    nameSigners();
    y = table.run(first_, end_, y, fromUtf8(payee.total), signatureHeight());
    signature(y);
    footer();
    return page_;
  }

 private:
  void begin() {
    canvas_.beginPage();
    ++page_;
  }
  void footer() { drawFooter(canvas_, kCertificateMargin, input_.company.name, page_, pages_); }

  double nextPage() {
    footer();
    begin();
    const TextStyle title{9, true, kAccent};
    const TextStyle quiet{8, false, kMuted};
    double y = kCertificateTop;
    canvas_.text(kCertificateMargin, y + canvas_.ascent(title), width_, heading() + " (segue)", title);
    y += canvas_.lineHeight(title);
    y = canvas_.lines(kCertificateMargin, y, width_, canvas_.wrap(name_ + " - " + note_, quiet, width_),
                      quiet);
    return y + 3;
  }

  QString heading() const {
    const QString title = fromUtf8(input_.definition.title);
    return year_.isEmpty() ? title : title + " - anno " + year_;
  }

  double letterhead() {
    const Company& company = input_.company;
    const TextStyle name{13, true, kAccent};
    const TextStyle quiet{8, false, kMuted};
    double y = kCertificateTop;
    const double left = kCertificateMargin + 4;
    const double room = width_ - 4;
    y = canvas_.lines(left, y, room, canvas_.wrap(company.name, name, room), name);
    for (const QString& line : {company.address, company.codes, company.contacts}) {
      if (!line.isEmpty()) y = canvas_.lines(left, y, room, canvas_.wrap(line, quiet, room), quiet);
    }
    canvas_.fill({kCertificateMargin, kCertificateTop, 1.2, y - kCertificateTop}, kAccent);
    return std::max(y, kCertificateTop + 17) + 11;
  }

  QString field(const char* name) const { return input_.rows.has(name) ? input_.rows.text(name) : QString(); }

  double recipient(double y) {
    const double room = kCertificateMargin + width_ - kRecipientLeft;
    const TextStyle label{7, false, kMuted};
    const TextStyle name{10.5, true, kInk};
    const TextStyle plain{9.5, false, kInk};
    y = canvas_.lines(kRecipientLeft, y, room, {"Percipiente"}, label) + 0.6;
    y = canvas_.lines(kRecipientLeft, y, room, canvas_.wrap(name_, name, room), name) + 0.4;
    const QString street = field("IndirizzoPercipiente").trimmed();
    const QString place = addressLine({}, field("CapPercipiente"), field("ComunePercipiente"),
                                      field("ProvinciaPercipiente"), field("NazionePercipiente"));
    for (const QString& line : {street, place, note_}) {
      if (!line.isEmpty()) y = canvas_.lines(kRecipientLeft, y, room, canvas_.wrap(line, plain, room), plain);
    }
    return y + 14;
  }

  double opening(double y) {
    const TextStyle title{15, true, kInk};
    const TextStyle text{9.5, false, kInk};
    y = canvas_.lines(kCertificateMargin, y, width_, canvas_.wrap(heading(), title, width_), title) + 3;
    for (const QString& line : canvas_.wrap(introduction_, text, width_)) {
      canvas_.text(kCertificateMargin, y + canvas_.ascent(text), width_, line, text);
      y += canvas_.lineHeight(text) + 0.7;
    }
    return y + 5;
  }

  // The names of the signers, in full, on as many lines as needed.
  void nameSigners() {
    const Company& company = input_.company;
    signers_ = {canvas_.wrap(company.name, kSignerStyle, kSignatureWidth)};
    if (company.representative.isEmpty()) return;
    const QString who =
        company.office.isEmpty() ? company.representative : company.representative + ", " + company.office;
    signers_.append(canvas_.wrap(who, kSignerStyle, kSignatureWidth));
  }

  double signatureHeight() {
    double height = kSignatureGap + kHandRoom;
    for (const QStringList& signer : signers_)
      height += kAboveSigner + static_cast<double>(signer.size()) * canvas_.lineHeight(kSignerStyle);
    return height;
  }

  void signature(double y) {
    const TextStyle plain{9, false, kInk};
    y += kSignatureGap;
    const QString place = input_.company.town.isEmpty() ? QString() : input_.company.town + ", ";
    canvas_.text(kCertificateMargin, y, width_ - kSignatureWidth - 6, place + writtenDate(input_.today),
                 plain);
    const double left = kCertificateMargin + width_ - kSignatureWidth;
    canvas_.text(left, y, kSignatureWidth, "Il sostituto d'imposta", plain, Align::Center);
    y += kHandRoom;
    canvas_.line(left, y, left + kSignatureWidth, y, kInk, 0.2);
    for (const QStringList& signer : signers_)
      y = canvas_.lines(left, y + kAboveSigner, kSignatureWidth, signer, kSignerStyle, Align::Center);
  }

  Canvas& canvas_;
  const LayoutInput& input_;
  std::size_t first_;
  std::size_t end_;
  int pages_;
  double width_;
  int page_ = 0;
  QString name_;
  QString note_;
  QString year_;
  QString introduction_;
  QList<QStringList> signers_;  // the company, and its signer
};

std::string keyOf(const Rows& rows, const std::vector<std::size_t>& places) {
  std::string key;
  for (const std::size_t place : places) key += rows.at(place).toText() + '\n';
  return key;
}

}  // namespace

void drawCertificates(Canvas& canvas, const LayoutInput& input) {
  if (input.rows.size() == 0) {
    drawNothing(canvas, input);
    return;
  }
  std::vector<std::size_t> places;
  for (const std::string& key : input.definition.groups.front().key) places.push_back(input.rows.place(key));
  const std::unique_ptr<Canvas> measuring = Canvas::measuring(canvas);
  for (std::size_t first = 0; first < input.rows.size();) {
    input.report("Scrittura delle righe", first, input.rows.size());
    input.rows.move(first);
    const std::string key = keyOf(input.rows, places);
    std::size_t end = first + 1;
    for (; end < input.rows.size(); ++end) {
      input.rows.move(end);
      if (keyOf(input.rows, places) != key) break;
    }
    const int pages = Certificate(*measuring, input, first, end, 0).draw();
    Certificate(canvas, input, first, end, pages).draw();
    first = end;
  }
}

}  // namespace cu::reporting

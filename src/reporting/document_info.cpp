#include "reporting/document_info.h"

#include <QtGlobal>
#include <algorithm>

#include "base/text.h"
#include "reporting/italian.h"

namespace cu::reporting {
namespace {

constexpr const char16_t* kBetween = u" - ";

// Without the characters that a text in XML cannot have.
QString printable(const QString& text) {
  QString result;
  for (const QChar c : text.simplified()) {
    const bool none = c.unicode() < 0x20 || c.unicode() == 0xFFFE || c.unicode() == 0xFFFF;
    if (!none) result += c;
  }
  // A half of a pair becomes a replacement character.
  return QString::fromUtf8(result.toUtf8());
}

// "anno 2017", "anni 2014-2017".
QString yearsOf(Rows& rows) {
  if (rows.size() == 0 || !rows.has("Anno")) return {};
  const std::size_t place = rows.place("Anno");
  std::int64_t first = 0;
  std::int64_t last = 0;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    rows.move(i);
    const std::int64_t year = rows.at(place).integer();
    first = i == 0 ? year : std::min(first, year);
    last = i == 0 ? year : std::max(last, year);
  }
  if (first == last) return "anno " + QString::number(first);
  return "anni " + QString::number(first) + "-" + QString::number(last);
}

QString companyOf(const LayoutInput& input) {
  if (!input.fromFile || input.rows.size() == 0) return input.company.name;
  input.rows.move(0);
  return (input.rows.text("AnagraficaAz") + ' ' + input.rows.text("NomeAz")).trimmed();
}

QByteArray twoDigits(int number) { return QByteArray::number(number).rightJustified(2, '0'); }

QByteArray dayAndTime(const DocumentInfo& info, bool iso) {
  const TimeOfDay& time = info.time;
  const char* const mark = iso ? ":" : "";
  return QByteArray::fromStdString(iso ? info.day.toIso() + "T" : info.day.toCompact()) +
         twoDigits(time.hour) + mark + twoDigits(time.minute) + mark + twoDigits(time.second);
}

void addText(QByteArray& dictionary, const char* name, const QString& text) {
  if (text.isEmpty()) return;
  QByteArray digits = "FEFF";
  for (const QChar c : text) digits += QByteArray::number(c.unicode(), 16).rightJustified(4, '0').toUpper();
  dictionary += QByteArray("/") + name + " <" + digits + ">\n";
}

QByteArray escaped(const QString& text) { return text.toHtmlEscaped().toUtf8(); }

void addSimple(QByteArray& packet, const char* name, const QByteArray& value) {
  if (value.isEmpty()) return;
  packet += QByteArray("<") + name + ">" + value + "</" + name + ">\n";
}

// A property that is a list with one entry.
void addList(QByteArray& packet, const char* name, const char* kind, const QByteArray& entry) {
  if (entry.isEmpty()) return;
  const QByteArray language = QByteArray(kind) == "Alt" ? " xml:lang=\"x-default\"" : "";
  addSimple(
      packet, name,
      QByteArray("<rdf:") + kind + "><rdf:li" + language + ">" + entry + "</rdf:li></rdf:" + kind + ">");
}

}  // namespace

DocumentInfo documentInfo(const LayoutInput& input, const std::string& creator) {
  DocumentInfo info;
  info.author = printable(companyOf(input));
  for (const QString& part : {fromUtf8(input.definition.title), info.author, yearsOf(input.rows)}) {
    if (part.isEmpty()) continue;
    if (!info.title.isEmpty()) info.title += kBetween;
    info.title += printable(part);
  }
  info.creator = printable(fromUtf8(creator));
  info.producer = QString("Qt ") + qVersion();
  info.day = input.today;
  info.time = input.now;
  return info;
}

QByteArray infoDictionary(const DocumentInfo& info) {
  QByteArray dictionary = "<<\n";
  addText(dictionary, "Title", info.title);
  addText(dictionary, "Author", info.author);
  addText(dictionary, "Creator", info.creator);
  addText(dictionary, "Producer", info.producer);
  if (info.day != Date()) dictionary += "/CreationDate (D:" + dayAndTime(info, false) + ")\n";
  return dictionary + ">>";
}

QByteArray metadataPacket(const DocumentInfo& info) {
  QByteArray packet =
      "<?xpacket begin=\"\xEF\xBB\xBF\" id=\"W5M0MpCehiHzreSzNTczkc9d\"?>\n"
      "<x:xmpmeta xmlns:x=\"adobe:ns:meta/\">\n"
      "<rdf:RDF xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\">\n"
      "<rdf:Description rdf:about=\"\" xmlns:dc=\"http://purl.org/dc/elements/1.1/\""
      " xmlns:xmp=\"http://ns.adobe.com/xap/1.0/\" xmlns:pdf=\"http://ns.adobe.com/pdf/1.3/\""
      " xmlns:pdfaid=\"http://www.aiim.org/pdfa/ns/id/\">\n";
  addSimple(packet, "pdfaid:part", "1");
  addSimple(packet, "pdfaid:conformance", "B");
  addList(packet, "dc:title", "Alt", escaped(info.title));
  addList(packet, "dc:creator", "Seq", escaped(info.author));
  addList(packet, "dc:language", "Bag", kDocumentLanguage);
  addSimple(packet, "xmp:CreatorTool", escaped(info.creator));
  if (info.day != Date()) addSimple(packet, "xmp:CreateDate", dayAndTime(info, true));
  addSimple(packet, "pdf:Producer", escaped(info.producer));
  return packet +
         "</rdf:Description>\n"
         "</rdf:RDF>\n"
         "</x:xmpmeta>\n"
         "<?xpacket end=\"w\"?>";
}

}  // namespace cu::reporting

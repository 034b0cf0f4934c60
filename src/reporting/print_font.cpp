#include "reporting/print_font.h"

#include <QFont>
#include <QFontDatabase>
#include <QtEndian>
#include <utility>
#include <vector>

#include "reporting/report_error.h"

namespace cu::reporting {
namespace {

constexpr const char* kInstalled = "DejaVu Sans";
constexpr const char* kFamily = "DejaVu Sans Stampa";

// The tables required in every outline font, without hinting, kerning and ligatures.
constexpr const char* kTables[] = {"OS/2", "glyf", "head", "hhea", "hmtx", "loca", "maxp"};

// Letters from the blank to the letter-like symbols: Latin with all its accents, Greek, Cyrillic,
// punctuation, currencies.
constexpr char16_t kFirstMapped = 0x20;
constexpr char16_t kLastMapped = 0x214F;

void append16(QByteArray& table, quint32 value) {
  const quint16 big = qToBigEndian(static_cast<quint16>(value));
  table.append(reinterpret_cast<const char*>(&big), sizeof big);
}
void append32(QByteArray& table, quint32 value) {
  const quint32 big = qToBigEndian(value);
  table.append(reinterpret_cast<const char*>(&big), sizeof big);
}

// One subtable of format 6, which maps a letter by index.
QByteArray letterTable(const QRawFont& font) {
  constexpr quint32 kCount = kLastMapped - kFirstMapped + 1;
  QByteArray table;
  append16(table, 0);  // version
  append16(table, 1);  // subtables
  append16(table, 3);  // Windows
  append16(table, 1);  // Unicode
  append32(table, 12);
  append16(table, 6);
  append16(table, 10 + 2 * kCount);
  append16(table, 0);
  append16(table, kFirstMapped);
  append16(table, kCount);
  for (char16_t letter = kFirstMapped; letter <= kLastMapped; ++letter) {
    const QList<quint32> glyphs = font.glyphIndexesForString(QString(QChar(letter)));
    append16(table, glyphs.isEmpty() ? 0 : glyphs.front());
  }
  return table;
}

// Family, style, full name and PostScript name, which a PDF uses.
QByteArray nameTable(const QString& family, bool bold) {
  const QString style = bold ? "Bold" : "Regular";
  const std::vector<std::pair<quint32, QString>> names = {
      {1, family}, {2, style}, {4, family + " " + style}, {6, bold ? "DejaVuSans-Bold" : "DejaVuSans"}};
  constexpr quint32 kEnglish = 0x0409;
  QByteArray table;
  QByteArray texts;
  append16(table, 0);
  append16(table, static_cast<quint32>(names.size()));
  append16(table, 6 + 12 * static_cast<quint32>(names.size()));
  for (const auto& [id, name] : names) {
    append16(table, 3);
    append16(table, 1);
    append16(table, kEnglish);
    append16(table, id);
    append16(table, static_cast<quint32>(2 * name.size()));
    append16(table, static_cast<quint32>(texts.size()));
    for (const QChar c : name) append16(texts, c.unicode());
  }
  return table + texts;
}

// No glyph names.
QByteArray glyphNameTable() {
  QByteArray table;
  append32(table, 0x00030000);
  table.append(QByteArray(28, '\0'));
  return table;
}

quint32 checksum(QByteArray table) {
  while (table.size() % 4 != 0) table.append('\0');
  quint32 sum = 0;
  for (qsizetype at = 0; at < table.size(); at += 4) sum += qFromBigEndian<quint32>(table.constData() + at);
  return sum;
}

QByteArray fontFile(const std::vector<std::pair<QByteArray, QByteArray>>& tables) {
  const auto count = static_cast<quint32>(tables.size());
  quint32 power = 1;
  quint32 log = 0;
  for (; power * 2 <= count; power *= 2) ++log;
  QByteArray file;
  append32(file, 0x00010000);
  append16(file, count);
  append16(file, power * 16);
  append16(file, log);
  append16(file, count * 16 - power * 16);
  auto offset = 12 + 16 * count;
  QByteArray bodies;
  for (const auto& [tag, table] : tables) {
    file.append(tag);
    append32(file, checksum(table));
    append32(file, offset + static_cast<quint32>(bodies.size()));
    append32(file, static_cast<quint32>(table.size()));
    bodies.append(table);
    while (bodies.size() % 4 != 0) bodies.append('\0');
  }
  return file + bodies;
}

bool addPrintFont(bool bold) {
  QFont wanted{QString(kInstalled)};
  wanted.setBold(bold);
  const QRawFont font = QRawFont::fromFont(wanted);
  if (font.familyName() != kInstalled || (font.weight() >= QFont::Bold) != bold) return false;
  return QFontDatabase::addApplicationFontFromData(printFontOf(font, kFamily)) >= 0;
}

}  // namespace

QByteArray printFontOf(const QRawFont& font, const QString& family) {
  std::vector<std::pair<QByteArray, QByteArray>> tables;
  for (const char* tag : kTables) tables.emplace_back(tag, font.fontTable(tag));
  // Tags are in ascending order: OS/2, cmap, glyf, head, hhea, hmtx, loca, maxp, name, post.
  tables.insert(tables.begin() + 1, {"cmap", letterTable(font)});
  tables.emplace_back("name", nameTable(family, font.weight() >= QFont::Bold));
  tables.emplace_back("post", glyphNameTable());
  return fontFile(tables);
}

QString printFontFamily() {
  static const bool ready = addPrintFont(false) && addPrintFont(true);
  if (!ready) throw Error(kErrorReportOutput, "Il carattere \"DejaVu Sans\" delle stampe non è installato.");
  return kFamily;
}

}  // namespace cu::reporting

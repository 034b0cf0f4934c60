#include "fatture/testo_xml.h"

#include <QByteArray>
#include <QStringDecoder>
#include <algorithm>
#include <array>
#include <string>

#include "base/text.h"
#include "fatture/errore.h"

namespace cu::fatture {
namespace {

using namespace std::string_view_literals;

// The line of the first byte that is not valid UTF-8; 0 for a valid text.
std::size_t rigaNonUtf8(std::string_view byte) {
  std::size_t riga = 1;
  for (std::size_t i = 0; i < byte.size();) {
    const std::size_t prima = i;
    const char32_t punto = nextCodePoint(byte, i);
    if (punto == 0xfffd && i == prima + 1) return riga;
    if (punto == U'\n') ++riga;
  }
  return 0;
}

// "windows-1252" of <?xml version="1.0" encoding="windows-1252"?>, in lower case; "" for none.
std::string codificaDichiarata(std::string_view byte) {
  constexpr std::string_view kChiave = "encoding";
  const std::string_view dichiarazione = byte.substr(0, std::min(byte.find("?>"), byte.size()));
  if (!byte.starts_with("<?xml")) return {};
  std::size_t i = dichiarazione.find(kChiave);
  if (i == std::string_view::npos) return {};
  i = dichiarazione.find_first_of("\"'", i);
  if (i == std::string_view::npos) return {};
  const std::size_t fine = dichiarazione.find(dichiarazione[i], i + 1);
  if (fine == std::string_view::npos) return {};
  return lowerAscii(dichiarazione.substr(i + 1, fine - i - 1));
}

QString decodificato(QStringDecoder decodifica, std::string_view byte, const Posto& posto) {
  QString testo = decodifica(QByteArrayView(byte.data(), static_cast<qsizetype>(byte.size())));
  if (decodifica.hasError()) throw ErroreFattura("F03", posto, "I caratteri del documento sono danneggiati");
  return testo;
}

}  // namespace

QString testoXml(std::string_view byte, const Posto& posto) {
  if (byte.starts_with("\xff\xfe"sv) || byte.starts_with("<\0"sv))
    return decodificato(QStringDecoder(QStringDecoder::Utf16LE), byte, posto);
  if (byte.starts_with("\xfe\xff"sv) || byte.starts_with("\0<"sv))
    return decodificato(QStringDecoder(QStringDecoder::Utf16BE), byte, posto);
  if (byte.starts_with("\xef\xbb\xbf"sv)) byte.remove_prefix(3);
  while (!byte.empty() && byte.front() != '<') byte.remove_prefix(1);
  const std::size_t riga = rigaNonUtf8(byte);
  if (riga == 0) return QString::fromUtf8(byte.data(), static_cast<qsizetype>(byte.size()));
  const std::string codifica = codificaDichiarata(byte);
  constexpr auto kConosciute = std::to_array<std::string_view>(
      {"windows-1252", "cp1252", "iso-8859-1", "latin1", "iso-8859-15", "us-ascii"});
  if (std::find(kConosciute.begin(), kConosciute.end(), codifica) == kConosciute.end()) {
    Posto dove = posto;
    dove.riga = riga;
    throw ErroreFattura("F03", dove,
                        "Il testo non è in " + (codifica.empty() ? std::string("UTF-8") : codifica) +
                            ", come il documento dichiara");
  }
  // What is declared as one of the smaller sets has the characters of Windows-1252 when it has any others.
  QStringDecoder decodifica(codifica == "iso-8859-15" ? "ISO-8859-15" : "windows-1252");
  if (!decodifica.isValid()) throw ErroreFattura("F03", posto, "I caratteri " + codifica + " non si leggono");
  return decodificato(std::move(decodifica), byte, posto);
}

}  // namespace cu::fatture

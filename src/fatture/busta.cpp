#include "fatture/busta.h"

#include <openssl/bio.h>
#include <openssl/cms.h>
#include <openssl/err.h>
#include <openssl/evp.h>
#include <openssl/objects.h>

#include <array>
#include <climits>
#include <memory>
#include <optional>
#include <utility>

#include "base/ascii.h"
#include "base/text.h"
#include "fatture/errore.h"

namespace cu::fatture {
namespace {

using namespace std::string_view_literals;

constexpr char kSequenza = '\x30';
constexpr char kOttetti = '\x04';

bool bianco(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

std::string_view senzaTesta(std::string_view byte) {
  if (byte.starts_with("\xef\xbb\xbf"sv)) byte.remove_prefix(3);
  while (!byte.empty() && bianco(byte.front())) byte.remove_prefix(1);
  return byte;
}

bool xmlLargo(std::string_view byte) {
  return byte.starts_with("\xff\xfe"sv) || byte.starts_with("\xfe\xff"sv) || byte.starts_with("<\0"sv) ||
         byte.starts_with("\0<"sv);
}

// Whether the bytes are a text beyond ASCII: what a conversion from one character set to another leaves of an
// envelope. Their end may be within a character.
bool testoConvertito(std::string_view byte) {
  constexpr std::size_t kCarattere = 4;
  bool oltreAscii = false;
  for (std::size_t i = 0; i < byte.size();) {
    const std::size_t prima = i;
    const char32_t punto = nextCodePoint(byte, i);
    if (punto == 0xfffd && i == prima + 1 && prima + kCarattere < byte.size()) return false;
    oltreAscii = oltreAscii || punto >= 0x80;
  }
  return oltreAscii;
}

// An envelope is longer than the 127 bytes whose number needs no byte of its own, and begins with the
// identifier of its kind. Keys and certificates are stored alike. A damaged envelope is one as long as it
// shows what it was.
bool pareDer(std::string_view byte) {
  constexpr std::string_view kIdentificatore = "\x06\x09\x2a\x86\x48\x86\xf7\x0d\x01\x07"sv;
  constexpr std::size_t kDopoLunghezza = 6;
  constexpr std::size_t kProva = 256;
  if (byte.size() < 2 || byte[0] != kSequenza || static_cast<unsigned char>(byte[1]) < 0x80) return false;
  return byte.substr(0, kDopoLunghezza + kIdentificatore.size()).find(kIdentificatore) !=
             std::string_view::npos ||
         testoConvertito(byte.substr(0, kProva)) || byte.find("FatturaElettronica") != std::string_view::npos;
}

int valoreBase64(char c) {
  if (c >= 'A' && c <= 'Z') return c - 'A';
  if (c >= 'a' && c <= 'z') return c - 'a' + 26;
  if (isDigit(c)) return c - '0' + 52;
  if (c == '+') return 62;
  return c == '/' ? 63 : -1;
}

// nullopt for a text with other characters, or with something after the padding. A missing padding is no
// damage.
std::optional<std::string> daBase64(std::string_view testo) {
  std::string esito;
  esito.reserve(testo.size() / 4 * 3);
  unsigned raccolti = 0;
  int bit = 0;
  bool finito = false;
  for (const char c : testo) {
    if (bianco(c)) continue;
    if (c == '=') {
      finito = true;
      continue;
    }
    const int valore = valoreBase64(c);
    if (valore < 0 || finito) return std::nullopt;
    raccolti = (raccolti << 6U | static_cast<unsigned>(valore)) & 0xffffU;
    bit += 6;
    if (bit >= 8) {
      bit -= 8;
      esito += static_cast<char>(raccolti >> static_cast<unsigned>(bit) & 0xffU);
    }
  }
  return esito;
}

// The first hundred characters show whether a text can be base64 of an envelope or of a document.
bool pareBase64(std::string_view testo) {
  constexpr std::size_t kProva = 100;
  constexpr std::size_t kMinimo = 40;
  const std::optional<std::string> testa = daBase64(testo.substr(0, kProva));
  if (!testa || testo.size() < kMinimo) return false;
  const std::string_view dentro = senzaTesta(*testa);
  if (pareDer(dentro) || dentro.starts_with('<')) return true;
  return dentro.starts_with("-----BEGIN") || (dentro.size() > kMinimo / 2 && daBase64(dentro).has_value());
}

std::optional<std::string> daPem(std::string_view testo) {
  const std::size_t inizio = testo.find('\n');
  const std::size_t fine = testo.find("-----END");
  if (inizio == std::string_view::npos || fine == std::string_view::npos || fine < inizio)
    return std::nullopt;
  return daBase64(testo.substr(inizio, fine - inizio));
}

struct Libera {
  void operator()(CMS_ContentInfo* cms) const { CMS_ContentInfo_free(cms); }
};

// Reads the head of a string of octets that ends right before `dati`: its length, if there is one.
std::optional<std::size_t> lunghezzaPrima(std::string_view byte, std::size_t dati) {
  if (dati >= 2 && byte[dati - 2] == kOttetti && static_cast<unsigned char>(byte[dati - 1]) < 0x80)
    return static_cast<unsigned char>(byte[dati - 1]);
  for (std::size_t n = 1; n <= 4 && dati >= n + 2; ++n) {
    if (byte[dati - n - 2] != kOttetti || static_cast<unsigned char>(byte[dati - n - 1]) != 0x80 + n)
      continue;
    std::size_t lunghezza = 0;
    for (std::size_t i = dati - n; i < dati; ++i)
      lunghezza = lunghezza << 8U | static_cast<unsigned char>(byte[i]);
    return lunghezza;
  }
  return std::nullopt;
}

// Where the bytes of the string of octets at `da` begin, if one begins there.
std::optional<std::size_t> datiDa(std::string_view byte, std::size_t da) {
  if (da + 2 > byte.size() || byte[da] != kOttetti) return std::nullopt;
  const auto primo = static_cast<unsigned char>(byte[da + 1]);
  if (primo < 0x80) return da + 2;
  const std::size_t n = primo - 0x80U;
  if (n == 0 || n > 4 || da + 2 + n > byte.size()) return std::nullopt;
  return da + 2 + n;
}

// The document within an envelope that cannot be parsed: the segments that it is stored in, joined.
std::optional<std::string> ritaglia(std::string_view byte) {
  constexpr std::string_view kNome = "FatturaElettronica";
  std::size_t inizio = byte.find("<?xml");
  const std::size_t nome = byte.find(kNome);
  if (nome == std::string_view::npos) return std::nullopt;
  if (inizio > nome) inizio = byte.rfind('<', nome);
  if (inizio == std::string_view::npos) return std::nullopt;
  std::string intero;
  std::size_t dati = inizio;
  std::optional<std::size_t> lunghezza = lunghezzaPrima(byte, dati);
  if (!lunghezza) intero = byte.substr(inizio);
  while (lunghezza) {
    intero += byte.substr(dati, *lunghezza);
    if (*lunghezza >= byte.size() - dati) break;
    const std::optional<std::size_t> dopo = datiDa(byte, dati + *lunghezza);
    if (!dopo) break;
    dati = *dopo;
    lunghezza = lunghezzaPrima(byte, dati);
  }
  // Beyond the document there may be bytes of the envelope.
  constexpr std::size_t kPrefisso = 40;
  const std::size_t ultimo = intero.rfind(kNome);
  const std::size_t apre = ultimo == std::string::npos ? ultimo : intero.rfind("</", ultimo);
  if (apre == std::string::npos || ultimo - apre > kPrefisso) return std::nullopt;
  const std::size_t fine = intero.find('>', ultimo);
  if (fine == std::string::npos) return std::nullopt;
  return intero.substr(0, fine + 1);
}

class Apertura {
 public:
  Apertura(const Posto& posto, const Limiti& limiti) : posto_(posto), limiti_(limiti) {}

  BustaAperta apri(std::string_view byte) {
    if (byte.size() > limiti_.byte) troppo(byte.size());
    if (senzaTesta(byte).empty()) throw ErroreFattura("F01", posto_, "Il file è vuoto");
    BustaAperta esito;
    std::string strato;
    std::string_view corrente = byte;
    while (forma(corrente) != Forma::Xml) {
      if (esito.strati == limiti_.buste)
        errore("F05",
               "Il documento è in più di " + fromInteger(limiti_.buste) + " buste, una dentro l'altra");
      strato = uno(corrente, esito.rilievi, esito.strati > 0);
      corrente = strato;
      ++esito.strati;
    }
    esito.contenuto = esito.strati > 0 ? std::move(strato) : std::string(byte);
    return esito;
  }

 private:
  [[noreturn]] void errore(const char* codice, const std::string& testo) const {
    throw ErroreFattura(codice, posto_, testo);
  }
  [[noreturn]] void troppo(std::size_t byte) const {
    errore("F05", "Il file ha " + fromInteger(static_cast<std::int64_t>(byte)) + " byte, più di " +
                      fromInteger(static_cast<std::int64_t>(limiti_.byte >> 20U)) + " MB");
  }

  std::string uno(std::string_view byte, std::vector<Rilievo>& rilievi, bool dentro) const {
    const std::string_view testo = senzaTesta(byte);
    if (pareDer(byte)) return firmato(byte, rilievi);
    std::optional<std::string> tutto;
    if (testo.starts_with("-----BEGIN")) {
      tutto = daPem(testo);
    } else if (pareBase64(testo)) {
      tutto = daBase64(testo);
    } else if (!dentro) {
      errore("F02", "Il file non è una fattura elettronica né una busta firmata");
    }
    if (!tutto || tutto->empty()) errore("F03", "La busta è danneggiata: il contenuto non è leggibile");
    return *tutto;
  }

  std::string firmato(std::string_view byte, std::vector<Rilievo>& rilievi) const {
    const auto* inizio = reinterpret_cast<const unsigned char*>(byte.data());
    const std::unique_ptr<CMS_ContentInfo, Libera> cms(
        d2i_CMS_ContentInfo(nullptr, &inizio, static_cast<long>(byte.size())));
    ERR_clear_error();
    if (!cms) return danneggiato(byte, rilievi);
    if (OBJ_obj2nid(CMS_get0_type(cms.get())) != NID_pkcs7_signed)
      errore("F03", "La busta non è una firma: il contenuto è cifrato o di un altro genere");
    ASN1_OCTET_STRING** const contenuto = CMS_get0_content(cms.get());
    ERR_clear_error();
    if (contenuto == nullptr || *contenuto == nullptr)
      errore("F03", "La busta ha solo la firma: il documento è in un altro file");
    const int lunghezza = ASN1_STRING_length(*contenuto);
    if (lunghezza <= 0) errore("F03", "La busta è vuota");
    return {reinterpret_cast<const char*>(ASN1_STRING_get0_data(*contenuto)),
            static_cast<std::size_t>(lunghezza)};
  }

  std::string danneggiato(std::string_view byte, std::vector<Rilievo>& rilievi) const {
    if (testoConvertito(byte)) {
      errore("F03",
             "La busta è stata convertita come se fosse un testo e non è recuperabile: scaricare di nuovo il "
             "file originale");
    }
    std::optional<std::string> documento = ritaglia(byte);
    if (!documento) errore("F03", "La busta firmata è danneggiata o incompleta");
    rilievi.push_back({"F03", posto_,
                       "La busta firmata è danneggiata: il documento che contiene è intero ed è stato letto",
                       true});
    return std::move(*documento);
  }

  const Posto& posto_;
  const Limiti& limiti_;
};

}  // namespace

Forma forma(std::string_view byte) {
  if (xmlLargo(byte)) return Forma::Xml;
  const std::string_view testo = senzaTesta(byte);
  if (testo.empty()) return Forma::Vuota;
  if (testo.starts_with('<')) return Forma::Xml;
  if (byte.starts_with("PK\3\4"sv) || byte.starts_with("PK\5\6"sv)) return Forma::Zip;
  if (pareDer(byte) || testo.starts_with("-----BEGIN PKCS7") || testo.starts_with("-----BEGIN CMS") ||
      pareBase64(testo))
    return Forma::Busta;
  return Forma::Altra;
}

BustaAperta apriBusta(std::string_view byte, const Posto& posto, const Limiti& limiti) {
  return Apertura(posto, limiti).apri(byte);
}

std::string sha256(std::string_view byte) {
  std::array<unsigned char, EVP_MAX_MD_SIZE> digesto{};
  unsigned lunghezza = 0;
  if (EVP_Digest(byte.data(), byte.size(), digesto.data(), &lunghezza, EVP_sha256(), nullptr) != 1)
    throw std::bad_alloc();
  constexpr std::string_view kCifre = "0123456789abcdef";
  std::string esito;
  for (unsigned i = 0; i < lunghezza; ++i) {
    esito += kCifre[digesto[i] >> 4U];
    esito += kCifre[digesto[i] & 0xfU];
  }
  return esito;
}

}  // namespace cu::fatture

#include "xml/lettore_eventi.h"

#include <expat.h>

#include <algorithm>
#include <exception>
#include <new>
#include <utility>
#include <vector>

namespace cu::xml {
namespace {

// Between the parts of a name in the parser's answers; no namespace contains it.
constexpr XML_Char kFraParti = '\n';
constexpr int kBlocco = 1 << 16;

// A part of the texts of a block.
struct Tratto {
  std::size_t inizio = 0;
  std::size_t lungo = 0;
};

struct Attributo {
  Tratto spazio;
  Tratto nome;
  Tratto valore;
};

struct Evento {
  Segno segno = Segno::Malformato;
  Tratto testo;  // or the name
  std::size_t primoAttributo = 0;
  std::size_t attributi = 0;
  std::size_t riga = 0;
};

}  // namespace

// The parser calls back for each event of a block; they are kept until the reader has passed them.
struct LettoreEventi::Stato {
  Stato(Sorgente da, Spazi quali, const char* codifica)
      : sorgente(std::move(da)),
        spazi(quali),
        parser(spazi == Spazi::Risolti ? XML_ParserCreateNS(codifica, kFraParti)
                                       : XML_ParserCreate(codifica)) {
    if (parser == nullptr) throw std::bad_alloc();
    XML_SetUserData(parser, this);
    XML_SetElementHandler(
        parser,
        [](void* io, const XML_Char* nome, const XML_Char** coppie) {
          protetto(io, [&](Stato& stato) { stato.inizio(nome, coppie); });
        },
        [](void* io, const XML_Char* nome) { protetto(io, [&](Stato& stato) { stato.fine(nome); }); });
    XML_SetCharacterDataHandler(parser, [](void* io, const XML_Char* caratteri, int quanti) {
      protetto(io, [&](Stato& stato) { stato.testo({caratteri, static_cast<std::size_t>(quanti)}); });
    });
    XML_SetStartDoctypeDeclHandler(parser, [](void* io, const XML_Char*, const XML_Char*, const XML_Char*,
                                              int) { protetto(io, [](Stato& stato) { stato.dtd(); }); });
  }
  ~Stato() { XML_ParserFree(parser); }
  Stato(const Stato&) = delete;
  Stato& operator=(const Stato&) = delete;

  // No exception may pass through the parser.
  template <class Lavoro>
  static void protetto(void* io, const Lavoro& lavoro) noexcept {
    Stato& stato = *static_cast<Stato*>(io);
    if (stato.fermo) return;
    try {
      lavoro(stato);
    } catch (...) {
      stato.errore = std::current_exception();
      stato.ferma();
    }
  }
  void ferma() {
    fermo = true;
    XML_StopParser(parser, XML_FALSE);
  }

  Tratto conserva(std::string_view testo) {
    const Tratto tratto{testi.size(), testo.size()};
    testi += testo;
    return tratto;
  }
  std::string_view di(const Tratto& tratto) const {
    return std::string_view(testi).substr(tratto.inizio, tratto.lungo);
  }

  // "uri\nname" or "name".
  std::pair<std::string_view, std::string_view> parti(std::string_view scritto) const {
    const std::size_t fra = spazi == Spazi::Risolti ? scritto.find(kFraParti) : std::string_view::npos;
    if (fra == std::string_view::npos) return {{}, scritto};
    return {scritto.substr(0, fra), scritto.substr(fra + 1)};
  }

  // Where the event ends: the parser counts to its beginning.
  std::size_t rigaFine() const {
    std::size_t riga = XML_GetCurrentLineNumber(parser);
    int dove = 0;
    int quanti = 0;
    const char* const byte = XML_GetInputContext(parser, &dove, &quanti);
    if (byte == nullptr) return riga;
    const char* const fineByte = byte + dove + XML_GetCurrentByteCount(parser);
    for (const char* p = byte + dove; p < fineByte; ++p) {
      const bool solo = *p == '\r' && (p + 1 == fineByte || p[1] != '\n');
      if (*p == '\n' || solo) ++riga;
    }
    return riga;
  }

  void inizio(const XML_Char* nome, const XML_Char** coppie) {
    Evento evento{Segno::Inizio, conserva(parti(nome).second), attributi.size(), 0, rigaFine()};
    for (; *coppie != nullptr; coppie += 2, ++evento.attributi) {
      const auto [spazio, suo] = parti(coppie[0]);
      attributi.push_back({conserva(spazio), conserva(suo), conserva(coppie[1])});
    }
    eventi.push_back(evento);
  }
  void fine(const XML_Char* nome) {
    eventi.push_back({Segno::Fine, conserva(parti(nome).second), 0, 0, rigaFine()});
  }
  void testo(std::string_view caratteri) {
    if (!eventi.empty() && eventi.back().segno == Segno::Testo) {
      eventi.back().testo.lungo += conserva(caratteri).lungo;
    } else {
      eventi.push_back({Segno::Testo, conserva(caratteri), 0, 0, XML_GetCurrentLineNumber(parser)});
    }
  }
  void dtd() {
    eventi.push_back({Segno::Dtd, {}, 0, 0, XML_GetCurrentLineNumber(parser)});
    ferma();
  }

  Segno esitoGuasto() const {
    switch (XML_GetErrorCode(parser)) {
      case XML_ERROR_NO_MEMORY:
        throw std::bad_alloc();
      case XML_ERROR_UNDEFINED_ENTITY:
        return Segno::EntitaIgnota;
      default:
        // The end of the bytes is a fault with several codes.
        return finiti ? Segno::Incompleto : Segno::Malformato;
    }
  }

  void leggiBlocco() {
    testi.clear();
    attributi.clear();
    eventi.clear();
    prossimo = 0;
    void* const posto = XML_GetBuffer(parser, kBlocco);
    if (posto == nullptr) throw std::bad_alloc();
    const std::size_t letti = sorgente(static_cast<char*>(posto), static_cast<std::size_t>(kBlocco));
    finiti = letti == 0;
    const XML_Status esito = XML_ParseBuffer(parser, static_cast<int>(letti), finiti ? 1 : 0);
    if (errore) std::rethrow_exception(errore);
    if (fermo) return;
    if (esito == XML_STATUS_ERROR) {
      eventi.push_back({esitoGuasto(), {}, 0, 0, XML_GetCurrentLineNumber(parser)});
    } else if (finiti) {
      eventi.push_back({Segno::FineDocumento, {}, 0, 0, XML_GetCurrentLineNumber(parser)});
    }
  }

  // Nothing follows these.
  bool concluso() const {
    if (prossimo == 0) return false;
    switch (corrente().segno) {
      case Segno::Inizio:
      case Segno::Fine:
      case Segno::Testo:
        return false;
      case Segno::Dtd:
      case Segno::FineDocumento:
      case Segno::Incompleto:
      case Segno::EntitaIgnota:
      case Segno::Malformato:
        break;
    }
    return true;
  }

  const Evento& corrente() const { return eventi[prossimo - 1]; }

  Sorgente sorgente;
  Spazi spazi;
  XML_Parser parser;
  std::string testi;
  std::vector<Attributo> attributi;
  std::vector<Evento> eventi;
  std::size_t prossimo = 0;
  std::exception_ptr errore;
  bool fermo = false;
  bool finiti = false;
};

LettoreEventi::LettoreEventi(Sorgente sorgente, Spazi spazi, const char* codifica)
    : stato_(std::make_unique<Stato>(std::move(sorgente), spazi, codifica)) {}

LettoreEventi::~LettoreEventi() = default;

Segno LettoreEventi::avanza() {
  if (stato_->concluso()) return segno();
  while (stato_->prossimo == stato_->eventi.size()) stato_->leggiBlocco();
  ++stato_->prossimo;
  return segno();
}

Segno LettoreEventi::segno() const { return stato_->corrente().segno; }

std::string_view LettoreEventi::nome() const { return stato_->di(stato_->corrente().testo); }

std::string_view LettoreEventi::testo() const { return nome(); }

std::size_t LettoreEventi::riga() const { return stato_->corrente().riga; }

std::string_view LettoreEventi::attributo(std::string_view nome) const {
  const Evento& evento = stato_->corrente();
  for (std::size_t i = 0; i < evento.attributi; ++i) {
    const Attributo& uno = stato_->attributi[evento.primoAttributo + i];
    if (uno.spazio.lungo == 0 && stato_->di(uno.nome) == nome) return stato_->di(uno.valore);
  }
  return {};
}

std::string_view LettoreEventi::attributoDi(std::string_view codaSpazio, std::string_view nome) const {
  const Evento& evento = stato_->corrente();
  for (std::size_t i = 0; i < evento.attributi; ++i) {
    const Attributo& uno = stato_->attributi[evento.primoAttributo + i];
    if (stato_->di(uno.nome) == nome && stato_->di(uno.spazio).ends_with(codaSpazio)) {
      return stato_->di(uno.valore);
    }
  }
  return {};
}

}  // namespace cu::xml

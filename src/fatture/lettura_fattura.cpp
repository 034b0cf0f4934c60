#include "fatture/lettura_fattura.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <optional>
#include <utility>

#include "base/text.h"
#include "fatture/busta.h"
#include "fatture/campi_fattura.h"
#include "fatture/errore.h"
#include "fatture/testo_xml.h"
#include "xml/lettore_eventi.h"

namespace cu::fatture {
namespace {

struct Radice {
  std::string_view nome;
  Genere genere;
  std::string_view titolo;
};

constexpr auto kRadici = std::to_array<Radice>({
    {"FatturaElettronica", Genere::Fatture, "fattura elettronica"},
    {"FatturaElettronicaSemplificata", Genere::Fatture, "fattura elettronica semplificata"},
    {"RicevutaConsegna", Genere::Notifica, "ricevuta di consegna"},
    {"NotificaScarto", Genere::Notifica, "notifica di scarto"},
    {"RicevutaScarto", Genere::Notifica, "ricevuta di scarto"},
    {"NotificaMancataConsegna", Genere::Notifica, "notifica di mancata consegna"},
    {"RicevutaImpossibilitaRecapito", Genere::Notifica, "ricevuta di impossibilità di recapito"},
    {"NotificaEsito", Genere::Notifica, "notifica di esito"},
    {"NotificaEsitoCommittente", Genere::Notifica, "notifica di esito del committente"},
    {"ScartoEsitoCommittente", Genere::Notifica, "notifica di scarto dell'esito del committente"},
    {"NotificaScartoEsitoCommittente", Genere::Notifica, "notifica di scarto dell'esito del committente"},
    {"NotificaDecorrenzaTermini", Genere::Notifica, "notifica di decorrenza dei termini"},
    {"AttestazioneTrasmissioneFattura", Genere::Notifica, "attestazione di trasmissione"},
    {"MetadatiInvioFile", Genere::Metadati, "metadati di un invio"},
    {"FileMetadati", Genere::Metadati, "metadati di un file"},
});

std::string localeDi(std::string_view nome) { return std::string(nome.substr(nome.rfind(':') + 1)); }

// The bytes of a text in their order.
xml::LettoreEventi::Sorgente byteDi(std::string_view testo) {
  return [resto = testo](char* dove, std::size_t quanti) mutable {
    const std::string_view ora = resto.substr(0, quanti);
    if (!ora.empty()) std::memcpy(dove, ora.data(), ora.size());
    resto.remove_prefix(ora.size());
    return ora.size();
  };
}

// A text as it is compared and shown: blanks at its ends are not part of it, line ends within it are blanks.
std::string ripulito(std::string_view testo) {
  std::string esito;
  bool spazio = false;
  for (const char c : testo) {
    if (static_cast<unsigned char>(c) <= 0x20) {
      spazio = !esito.empty();
      continue;
    }
    if (spazio) esito += ' ';
    spazio = false;
    esito += c;
  }
  return esito;
}

class LettoreFattura {
 public:
  // Prefixes without a declaration, and names of namespaces that are none, occur in documents that were
  // accepted.
  LettoreFattura(Letto& letto, std::string_view utf8, const Limiti& limiti)
      : letto_(letto), limiti_(limiti), xml_(byteDi(utf8), xml::Spazi::UnoAUno, "UTF-8") {
    stato_.posto.file = letto.nome;
  }

  void leggi() {
    bool altro = true;
    while (altro && !finito_) {
      switch (xml_.avanza()) {
        case xml::Segno::Inizio:
          inizio();
          break;
        case xml::Segno::Fine:
          fine();
          break;
        case xml::Segno::Testo:
          caratteri();
          break;
        case xml::Segno::FineDocumento:
          altro = false;
          break;
        case xml::Segno::Dtd:
          errore("F04", "Il documento ha una definizione di tipo (DTD), che non è ammessa");
        case xml::Segno::EntitaIgnota:
          errore("F03", "Il documento usa un'entità che non è definita");
        case xml::Segno::Incompleto:
          errore("F03", "Il documento è incompleto: la fine manca");
        case xml::Segno::Malformato:
          errore("F03", "Il documento XML è malformato");
      }
    }
    concludi();
  }

 private:
  void qui() {
    stato_.posto.riga = xml_.riga();
    stato_.posto.elemento.clear();
  }
  [[noreturn]] void errore(const char* codice, const std::string& testo) {
    qui();
    stato_.posto.elemento = percorso_.substr(percorso_.rfind('/') + 1);
    throw ErroreFattura(codice, stato_.posto, testo);
  }

  void inizio() {
    if (++profondita_ > limiti_.profondita) errore("F05", "Gli elementi sono troppo annidati");
    if (++elementi_ > limiti_.elementi) errore("F05", "Il documento ha troppi elementi");
    const std::string nome = localeDi(xml_.nome());
    if (profondita_ == 1) return radice(nome);
    estremi_.push_back(percorso_.size());
    if (!percorso_.empty()) percorso_ += '/';
    percorso_ += nome;
    if (salto_ > 0) return;
    // Attachments can be as long as the rest a hundred times, and a signature within the text proves nothing
    // that is needed here.
    if (nome == "Signature" || percorso_ == "FatturaElettronicaBody/Allegati") {
      salto_ = profondita_;
      return;
    }
    qui();
    if (percorso_ == "FatturaElettronicaBody") apriCorpo();
    posto();
    apriGruppo(stato_, percorso_, limiti_);
    testo_.clear();
    raccoglie_ = campoLetto(percorso_);
  }

  // The last two names of the path.
  void posto() {
    const std::size_t ultima = percorso_.rfind('/');
    const std::size_t prima =
        ultima == std::string::npos || ultima == 0 ? std::string::npos : percorso_.rfind('/', ultima - 1);
    stato_.posto.elemento = prima == std::string::npos ? percorso_ : percorso_.substr(prima + 1);
  }

  void caratteri() {
    if (salto_ > 0 || !raccoglie_) return;
    testo_ += xml_.testo();
    if (testo_.size() > limiti_.testo) errore("F05", "Un testo del documento è troppo lungo");
  }

  void fine() {
    --profondita_;
    if (profondita_ == 0) return;
    if (salto_ == 0 && raccoglie_) {
      qui();
      posto();
      metti(stato_, percorso_, ripulito(testo_));
    }
    raccoglie_ = false;
    if (salto_ == 0 && percorso_ == "FatturaElettronicaBody") chiudiCorpo();
    if (salto_ == profondita_ + 1) salto_ = 0;
    percorso_.resize(estremi_.back());
    estremi_.pop_back();
  }

  void radice(const std::string& nome) {
    const auto* const sua =
        std::find_if(kRadici.begin(), kRadici.end(), [&](const Radice& una) { return una.nome == nome; });
    if (sua == kRadici.end()) {
      letto_.genere = Genere::Altro;
      letto_.titolo = "documento XML con la radice " + std::string(leftCodePoints(nome, 60));
      finito_ = true;
      return;
    }
    letto_.genere = sua->genere;
    letto_.titolo = sua->titolo;
    stato_.testata.semplificata = nome == "FatturaElettronicaSemplificata";
    finito_ = sua->genere != Genere::Fatture;
  }

  void apriCorpo() {
    if (letto_.fatture.size() == limiti_.documenti) errore("F05", "Il file ha troppi documenti");
    stato_.nelCorpo = true;
    stato_.posto.documento = letto_.fatture.size() + 1;
    stato_.corpo = Fattura();
    stato_.corpo.posto = stato_.posto;
  }

  void chiudiCorpo() {
    letto_.fatture.push_back(std::move(stato_.corpo));
    stato_.corpo = Fattura();
    stato_.nelCorpo = false;
    stato_.posto.documento = 0;
  }

  // The parties can follow the documents: a document is whole when the file has ended.
  void concludi() {
    if (letto_.genere != Genere::Fatture) return;
    if (letto_.fatture.empty()) {
      stato_.posto = {letto_.nome, 0, 0, {}};
      throw ErroreFattura("F03", stato_.posto, "Il file non contiene nessun documento");
    }
    const bool solo = letto_.fatture.size() == 1;
    for (Fattura& una : letto_.fatture) {
      una.cedente = stato_.testata.cedente;
      una.committente = stato_.testata.committente;
      una.semplificata = stato_.testata.semplificata;
      una.rilievi.insert(una.rilievi.begin(), stato_.testata.rilievi.begin(), stato_.testata.rilievi.end());
      stato_.corpo = std::move(una);
      stato_.nelCorpo = true;
      verificaDocumento(stato_);
      una = std::move(stato_.corpo);
      if (!solo) continue;
      una.posto.documento = 0;
      for (Rilievo& uno : una.rilievi) uno.posto.documento = 0;
    }
  }

  Letto& letto_;
  const Limiti& limiti_;
  xml::LettoreEventi xml_;
  InLettura stato_;
  std::string percorso_;              // below the root
  std::vector<std::size_t> estremi_;  // its length before each of its names
  std::string testo_;
  std::size_t elementi_ = 0;
  int profondita_ = 0;
  int salto_ = 0;  // depth of the element that is passed over; 0 for none
  bool raccoglie_ = false;
  bool finito_ = false;
};

}  // namespace

Letto leggiFattura(std::string_view byte, const std::string& nome, const Limiti& limiti) {
  Letto letto;
  letto.nome = nome;
  letto.dimensione = byte.size();
  letto.sha256 = sha256(byte);
  const Posto posto{nome, 0, 0, {}};
  try {
    BustaAperta busta = apriBusta(byte, posto, limiti);
    letto.rilievi = std::move(busta.rilievi);
    letto.sha256Contenuto = sha256(busta.contenuto);
    if (busta.contenuto.size() > limiti.byte)
      throw ErroreFattura("F05", posto, "Il documento è troppo grande");
    const std::string testo = testoXml(busta.contenuto, posto);
    std::string().swap(busta.contenuto);
    LettoreFattura(letto, testo, limiti).leggi();
    if (letto.genere == Genere::Altro)
      throw ErroreFattura("F02", posto, "Il file non è una fattura elettronica: è un " + letto.titolo);
  } catch (const ErroreFattura& errore) {
    if (letto.genere != Genere::Altro) letto.genere = Genere::Illeggibile;
    letto.fatture.clear();
    // What was repaired on the way to a document that cannot be read does not matter.
    letto.rilievi.clear();
    letto.rilievi.push_back(errore.rilievo());
  }
  return letto;
}

Letto letturaFallita(const std::string& nome, const Rilievo& rilievo) {
  Letto letto;
  letto.nome = nome;
  letto.rilievi.push_back(rilievo);
  return letto;
}

}  // namespace cu::fatture

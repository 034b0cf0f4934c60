#include "riscontro/registro.h"

#include <algorithm>
#include <array>
#include <unordered_map>
#include <utility>

#include "base/error.h"
#include "base/text.h"
#include "data/inserimento.h"
#include "data/recordset.h"
#include "data/testo_protetto.h"
#include "data/transazione.h"

namespace cu::riscontro {

using lettura::Certificato;
using lettura::Valore;

namespace {

constexpr std::array<std::pair<Stato, std::string_view>, 6> kStati = {{{Stato::Scritta, "scritta"},
                                                                       {Stato::Inviata, "inviata"},
                                                                       {Stato::Accettata, "accettata"},
                                                                       {Stato::Scartata, "scartata"},
                                                                       {Stato::Annullata, "annullata"},
                                                                       {Stato::Sostituita, "sostituita"}}};

// A line for each cell.
std::string testoCelle(const std::vector<Valore>& celle) {
  std::string testo;
  std::size_t lunghezza = 0;
  for (const Valore& cella : celle) lunghezza += cella.codice.size() + cella.testo.size() + 2;
  testo.reserve(lunghezza);
  for (const Valore& cella : celle) {
    testo += cella.codice;
    testo += '=';
    appendProtetto(testo, cella.testo);
    testo += '\n';
  }
  return testo;
}

std::vector<Valore> celleDa(std::string_view testo) {
  std::vector<Valore> celle;
  while (!testo.empty()) {
    const std::string_view riga = testo.substr(0, testo.find('\n'));
    const std::size_t uguale = riga.find('=');
    if (uguale != std::string_view::npos) {
      celle.push_back({std::string(riga.substr(0, uguale)), senzaProtezione(riga.substr(uguale + 1))});
    }
    testo.remove_prefix(std::min(riga.size() + 1, testo.size()));
  }
  return celle;
}

std::string quotato(std::string_view testo) {
  std::string letterale;
  appendTesto(letterale, testo);
  return letterale;
}

std::string deiCertificati(std::int32_t idAzienda, std::optional<std::int32_t> anno) {
  std::string testo = " WHERE CuInvio.IDAzienda = " + fromInteger(idAzienda);
  if (anno) testo += " AND CuInvio.Anno = " + fromInteger(*anno);
  return testo;
}

std::string nonInviato(std::int64_t idInvio) {
  const std::string suo = fromInteger(idInvio);
  return "IDInvio = " + suo + " AND DataInvio IS NULL AND NOT EXISTS (SELECT 1 FROM CuCertificazione WHERE" +
         " CuCertificazione.IDInvio = " + suo + " AND Stato <> 'scritta')";
}

Invio invioDa(const Recordset& riga) {
  const auto testo = [&](const char* campo) { return riga.Get(campo).toText(); };
  const auto giorno = [&](const char* campo) {
    const CellView cella = riga.Get(campo);
    return cella.isNull() ? std::string() : cella.date().toIso();
  };
  Invio invio;
  invio.id = riga.Get("IDInvio").integer();
  invio.idAzienda = static_cast<std::int32_t>(riga.Get("IDAzienda").integer());
  invio.anno = static_cast<std::int32_t>(riga.Get("Anno").integer());
  invio.tipo = static_cast<std::int32_t>(riga.Get("Tipo").integer());
  invio.nome = testo("Nome");
  invio.impronta = testo("Impronta");
  invio.momento = giorno("Momento");
  invio.dataInvio = giorno("DataInvio");
  invio.certificazioni = riga.Get("Certificazioni").integer();
  invio.moduli = riga.Get("Moduli").integer();
  invio.recordA = testo("RecordA");
  invio.recordB = testo("RecordB");
  return invio;
}

Registrata registrataDa(const Recordset& riga, bool conCelle) {
  const auto testo = [&](const char* campo) { return riga.Get(campo).toText(); };
  Registrata r;
  r.id = riga.Get("IDCertificazione").integer();
  r.idInvio = riga.Get("IDInvio").integer();
  r.stato = statoDi(testo("Stato")).value_or(Stato::Scritta);
  r.protocollo = testo("Protocollo");
  r.progressivo = testo("Progressivo");
  r.motivo = testo("Motivo");
  Certificato& c = r.certificato;
  c.numero = static_cast<int>(riga.Get("Numero").integer());
  c.percipiente = testo("CodiceFiscale");
  c.nome = testo("Nome");
  c.operazione = testo("Operazione");
  c.protocollo = testo("RiferimentoProtocollo");
  c.progressivo = testo("RiferimentoProgressivo");
  if (conCelle) c.celle = celleDa(testo("Celle"));
  // The reason is a cell of the first module, also where modules are not read or there are none.
  c.moduli.push_back({1, 0, {{"AU001001", testo("Causale")}}});
  return r;
}

std::vector<std::string> testiModuli(const Certificato& certificato) {
  std::vector<std::string> testi;
  testi.reserve(certificato.moduli.size());
  for (const lettura::Modulo& modulo : certificato.moduli) testi.push_back(testoCelle(modulo.celle));
  return testi;
}

// FNV-1a over the cells: it distinguishes contents, and protects nothing.
std::string improntaCelle(const Certificato& certificato, const std::vector<std::string>& moduli) {
  std::uint64_t somma = 14695981039346656037U;
  const auto aggiungi = [&somma](std::string_view testo) {
    for (const char c : testo) somma = (somma ^ static_cast<unsigned char>(c)) * 1099511628211U;
  };
  for (const Valore& cella : certificato.celle) {
    if (cella.codice.starts_with("DA003")) continue;
    for (const std::string_view pezzo : {std::string_view(cella.codice), std::string_view("="),
                                         std::string_view(cella.testo), std::string_view("\n")}) {
      aggiungi(pezzo);
    }
  }
  for (const std::string& modulo : moduli) {
    aggiungi("H\n");
    aggiungi(modulo);
  }
  std::string cifre;
  for (int i = 60; i >= 0; i -= 4) cifre += "0123456789abcdef"[(somma >> static_cast<unsigned>(i)) & 15U];
  return cifre;
}

// The rows of certificates and their modules, in the order in which they come.
class Righe {
 public:
  Righe(Connection& connessione, std::int64_t idInvio, std::int64_t ultima)
      : inD_(connessione, "CuCertificazione",
             {"IDCertificazione", "IDInvio", "CodiceFiscale", "Causale", "Nome", "Numero", "Operazione",
              "RiferimentoProtocollo", "RiferimentoProgressivo", "Celle", "Impronta", "Stato"}),
        inH_(connessione, "CuModulo", {"IDCertificazione", "Modulo", "Celle"}),
        idInvio_(idInvio),
        ultima_(ultima) {}

  void aggiungi(const Certificato& c, const std::string& causale) {
    const std::vector<std::string> moduli = testiModuli(c);
    inD_.intero(++ultima_).intero(idInvio_).testo(c.percipiente.empty() ? " " : c.percipiente).testo(causale);
    inD_.testo(c.nome).intero(c.numero).testo(c.operazione).testo(c.protocollo).testo(c.progressivo);
    inD_.testo(testoCelle(c.celle)).testo(improntaCelle(c, moduli)).testo(nome(Stato::Scritta)).riga();
    for (std::size_t i = 0; i < moduli.size(); ++i) {
      inH_.intero(ultima_).intero(static_cast<std::int64_t>(i) + 1).testo(moduli[i]).riga();
    }
  }
  void chiudi() {
    inD_.chiudi();
    inH_.chiudi();
  }
  std::int64_t certificazioni() const { return static_cast<std::int64_t>(inD_.righe()); }
  std::int64_t moduli() const { return static_cast<std::int64_t>(inH_.righe()); }

 private:
  Inserimento inD_;
  Inserimento inH_;
  std::int64_t idInvio_;
  std::int64_t ultima_;  // id of a certificate
};

}  // namespace

std::string_view nome(Stato stato) { return kStati.at(static_cast<std::size_t>(stato)).second; }

std::optional<Stato> statoDi(std::string_view parola) {
  for (const auto& [stato, suo] : kStati) {
    if (suo == parola) return stato;
  }
  return std::nullopt;
}

std::string improntaCelle(const Certificato& certificato) {
  return improntaCelle(certificato, testiModuli(certificato));
}

bool Registro::presente() {
  Recordset quante;
  quante.Open(connessione_,
              "SELECT COUNT(*) FROM dbo.sysobjects WHERE type = 'U' AND name IN ('CuInvio',"
              " 'CuCertificazione', 'CuModulo')");
  return quante.Get(0).integer() == 3;
}

std::int64_t Registro::massimo(std::string_view tabella, std::string_view colonna) {
  Recordset riga;
  riga.Open(connessione_, "SELECT MAX(" + std::string(colonna) + ") FROM " + std::string(tabella));
  return riga.Eof() ? 0 : riga.Get(0).integer();
}

// An annulment does not say its reason: it is that of the certificate which it refers to.
std::string Registro::causaleDi(const Certificato& certificato, std::int32_t idAzienda) {
  if (certificato.operazione != "A" || !certificato.causale().empty()) return certificato.causale();
  Recordset riga;
  riga.Open(connessione_,
            "SELECT CuCertificazione.Causale FROM CuCertificazione INNER JOIN CuInvio"
            " ON CuCertificazione.IDInvio = CuInvio.IDInvio" +
                deiCertificati(idAzienda, std::nullopt) +
                " AND CuCertificazione.CodiceFiscale = " + quotato(certificato.percipiente) +
                " AND CuCertificazione.Protocollo = " + quotato(certificato.protocollo) +
                " AND CuCertificazione.Progressivo = " + quotato(certificato.progressivo) +
                " ORDER BY CuCertificazione.IDCertificazione");
  return riga.Eof() ? std::string() : riga.Get(0).toText();
}

std::int64_t Registro::registra(const Invio& invio, const std::vector<Certificato>& certificati) {
  return registraLetto(invio, [&certificati](Invio&, const std::function<void(const Certificato&)>& uno) {
    for (const Certificato& certificato : certificati) uno(certificato);
  });
}

// On a server another program may take the same id at the same moment: the second one begins again.
std::int64_t Registro::registraLetto(const Invio& invio, const Lettura& lettura) {
  constexpr int kTentativi = 50;
  for (int tentativo = 1;; ++tentativo) {
    try {
      return registraUna(invio, lettura);
    } catch (const DatabaseError& errore) {
      if (errore.kind() != DatabaseErrorKind::Duplicate || tentativo == kTentativi) throw;
    }
  }
}

std::int64_t Registro::registraUna(Invio invio, const Lettura& lettura) {
  Transazione transazione(connessione_);
  // The row of the file is written first: it holds the id, and with it the lock, until the end.
  invio.id = massimo("CuInvio", "IDInvio") + 1;
  connessione_.Execute(
      "INSERT INTO CuInvio (IDInvio, IDAzienda, Anno, Tipo, Nome, Impronta, Momento, Certificazioni, Moduli)"
      " VALUES (" +
      fromInteger(invio.id) + ", " + fromInteger(invio.idAzienda) + ", " + fromInteger(invio.anno) + ", " +
      fromInteger(invio.tipo) + ", " + quotato(invio.nome) + ", " + quotato(invio.impronta) + ", " +
      quotato(invio.momento) + ", 0, 0)");
  Righe righe(connessione_, invio.id, massimo("CuCertificazione", "IDCertificazione"));
  lettura(invio, [&](const Certificato& c) { righe.aggiungi(c, causaleDi(c, invio.idAzienda)); });
  righe.chiudi();
  connessione_.Execute("UPDATE CuInvio SET Impronta = " + quotato(invio.impronta) +
                       ", Certificazioni = " + fromInteger(righe.certificazioni()) +
                       ", Moduli = " + fromInteger(righe.moduli()) + ", RecordA = " + quotato(invio.recordA) +
                       ", RecordB = " + quotato(invio.recordB) + " WHERE IDInvio = " + fromInteger(invio.id));
  transazione.conferma();
  return invio.id;
}

std::optional<Invio> Registro::cerca(std::string_view impronta) {
  Recordset riga;
  riga.Open(connessione_,
            "SELECT * FROM CuInvio WHERE Impronta = " + quotato(impronta) + " ORDER BY IDInvio DESC");
  if (riga.Eof()) return std::nullopt;
  return invioDa(riga);
}

std::vector<Invio> Registro::invii(std::int32_t idAzienda) {
  Recordset riga;
  riga.Open(connessione_,
            "SELECT * FROM CuInvio WHERE IDAzienda = " + fromInteger(idAzienda) + " ORDER BY IDInvio");
  std::vector<Invio> invii;
  for (; !riga.Eof(); riga.MoveNext()) invii.push_back(invioDa(riga));
  return invii;
}

void Registro::segnaInviato(std::int64_t idInvio, Date giorno) {
  connessione_.Execute("UPDATE CuInvio SET DataInvio = '" + giorno.toCompact() +
                       "' WHERE IDInvio = " + fromInteger(idInvio));
  connessione_.Execute(
      "UPDATE CuCertificazione SET Stato = 'inviata' WHERE Stato = 'scritta' AND IDInvio = " +
      fromInteger(idInvio));
}

bool Registro::soloScritto(std::int64_t idInvio) {
  Recordset riga;
  riga.Open(connessione_, "SELECT IDInvio FROM CuInvio WHERE " + nonInviato(idInvio));
  return !riga.Eof();
}

bool Registro::togli(std::int64_t idInvio) {
  const std::string suoi = " WHERE IDInvio = " + fromInteger(idInvio);
  Transazione transazione(connessione_);
  // The first statement decides, and locks the file against a receipt.
  connessione_.Execute("DELETE FROM CuInvio WHERE " + nonInviato(idInvio));
  Recordset rimasto;
  rimasto.Open(connessione_, "SELECT IDInvio FROM CuInvio" + suoi);
  if (!rimasto.Eof()) return false;
  connessione_.Execute(
      "DELETE FROM CuModulo WHERE EXISTS (SELECT 1 FROM CuCertificazione WHERE"
      " CuCertificazione.IDCertificazione = CuModulo.IDCertificazione AND CuCertificazione.IDInvio = " +
      fromInteger(idInvio) + ")");
  connessione_.Execute("DELETE FROM CuCertificazione" + suoi);
  transazione.conferma();
  return true;
}

void Registro::leggiModuli(std::int32_t idAzienda, std::optional<std::int32_t> anno,
                           std::vector<Registrata>& registrate) {
  std::unordered_map<std::int64_t, Registrata*> perId;
  for (Registrata& r : registrate) perId[r.id] = &r;
  Recordset riga;
  riga.Open(connessione_,
            "SELECT CuModulo.IDCertificazione, CuModulo.Modulo, CuModulo.Celle FROM CuModulo"
            " INNER JOIN CuCertificazione ON CuModulo.IDCertificazione = CuCertificazione.IDCertificazione"
            " INNER JOIN CuInvio ON CuCertificazione.IDInvio = CuInvio.IDInvio" +
                deiCertificati(idAzienda, anno) + " ORDER BY CuModulo.IDCertificazione, CuModulo.Modulo");
  for (; !riga.Eof(); riga.MoveNext()) {
    const auto trovata = perId.find(riga.Get(0).integer());
    if (trovata == perId.end()) continue;
    std::vector<lettura::Modulo>& moduli = trovata->second->certificato.moduli;
    const auto numero = static_cast<int>(riga.Get(1).integer());
    if (numero == 1) moduli.clear();
    moduli.push_back({numero, 0, celleDa(riga.Get(2).toText())});
  }
}

std::vector<Registrata> Registro::certificate(std::int32_t idAzienda, std::optional<std::int32_t> anno,
                                              bool conCelle) {
  Recordset riga;
  riga.Open(connessione_,
            std::string("SELECT CuCertificazione.IDCertificazione, CuCertificazione.IDInvio,"
                        " CuCertificazione.CodiceFiscale, CuCertificazione.Causale, CuCertificazione.Nome,"
                        " CuCertificazione.Numero, CuCertificazione.Operazione,"
                        " CuCertificazione.RiferimentoProtocollo, CuCertificazione.RiferimentoProgressivo,") +
                (conCelle ? " CuCertificazione.Celle," : "") +
                " CuCertificazione.Stato, CuCertificazione.Protocollo, CuCertificazione.Progressivo,"
                " CuCertificazione.Motivo FROM CuCertificazione"
                " INNER JOIN CuInvio ON CuCertificazione.IDInvio = CuInvio.IDInvio" +
                deiCertificati(idAzienda, anno) + " ORDER BY CuCertificazione.IDCertificazione");
  std::vector<Registrata> registrate;
  for (; !riga.Eof(); riga.MoveNext()) registrate.push_back(registrataDa(riga, conCelle));
  if (conCelle) leggiModuli(idAzienda, anno, registrate);
  return registrate;
}

void Registro::aggiorna(const Registrata& r, Date giorno) {
  const auto testo = [](const std::string& valore) {
    return valore.empty() ? std::string("NULL") : quotato(valore);
  };
  connessione_.Execute("UPDATE CuCertificazione SET Stato = " + quotato(nome(r.stato)) +
                       ", Protocollo = " + testo(r.protocollo) + ", Progressivo = " + testo(r.progressivo) +
                       ", Motivo = " + testo(r.motivo) + ", DataEsito = '" + giorno.toCompact() +
                       "' WHERE IDCertificazione = " + fromInteger(r.id));
}

}  // namespace cu::riscontro

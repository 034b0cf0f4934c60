#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "banco.h"
#include "base/codice_fiscale.h"
#include "fatture/documento_prova.h"
#include "fatture/lettura_fattura.h"
#include "intake/lettura_fatture.h"

namespace cu::intake::prova {

using fatture::prova::DocumentoProva;
using fatture::prova::FileProva;
using fatture::prova::parcella;

// Of ten digits, a number that there can be.
inline std::string ivaDi(const std::string& dieci) { return dieci + cifraDiControllo(dieci); }

// An invoice to the company of riempito().
inline std::string xmlDi(const FileProva& file, std::string_view committente = "12345670017") {
  std::string xml = fatture::prova::fileXml(file);
  constexpr std::string_view kAltrui = "00743110157";
  xml.replace(xml.find(kAltrui, xml.find("CessionarioCommittente")), kAltrui.size(), committente);
  return xml;
}

// Of the payee P1, whom riempito() knows by the fiscal code.
inline FileProva daRossi(DocumentoProva documento = parcella()) {
  FileProva file;
  file.codiceFiscale = "RSSMRA80A01H501U";
  file.partitaIva = ivaDi("0987654321");
  file.documenti = {std::move(documento)};
  return file;
}

// Of somebody who is no payee.
inline std::string codiceDiVerdi() {
  return codiceFiscale({"Verdi", "Anna", true, giorno(1975, 4, 12), "F205"});
}
inline FileProva daVerdi(DocumentoProva documento = parcella()) {
  FileProva file = daRossi(std::move(documento));
  file.codiceFiscale = codiceDiVerdi();
  file.partitaIva = ivaDi("0555444333");
  file.nome = "<Nome>Anna</Nome><Cognome>Verdi</Cognome>";
  return file;
}

inline DocumentoProva numerata(std::string numero, std::string data = "2017-03-20") {
  DocumentoProva documento = parcella();
  documento.numero = std::move(numero);
  documento.data = std::move(data);
  return documento;
}

// Reads files in order: f1.xml, f2.xml ...
inline std::vector<Lettura> lette(const std::vector<std::string>& file) {
  LettoreFatture lettore(giorno(2018, 3, 5));
  std::vector<Lettura> letture;
  for (const std::string& byte : file) {
    letture.push_back(
        lettore.leggi(fatture::leggiFattura(byte, "f" + std::to_string(letture.size() + 1) + ".xml")));
  }
  return letture;
}
inline Lettura lettaFattura(const FileProva& file) { return std::move(lette({xmlDi(file)}).front()); }

// A plan by the dates of the documents, unless the bench says otherwise.
inline Piano pianoDi(Banco& banco, const std::vector<std::string>& file) {
  if (banco.richiesta.fatture.fonte == FontePagamento::Nessuna && banco.richiesta.decisioni.empty())
    banco.richiesta.fatture.fonte = FontePagamento::Documento;
  return pianifica(*banco, lette(file), banco.richiesta);
}
inline void accettaTutto(Banco& banco) {
  for (const VoceCodice& voce : kVociCodici) {
    if (accettabile(voce.codice)) banco.richiesta.accettati.insert(voce.codice);
  }
}
// What prevents the import; nothing when it was written.
inline std::vector<std::string> importaFatture(Banco& banco, const std::vector<std::string>& file) {
  accettaTutto(banco);
  const Piano piano = pianoDi(banco, file);
  return banco.applica(piano) ? std::vector<std::string>() : Banco::messaggi(piano);
}

// The codes of a row's messages: "R06 R12".
inline std::string codiciDi(const RigaPiano& riga) {
  std::string testo;
  for (const Messaggio& uno : riga.messaggi) {
    if (!testo.empty()) testo += ' ';
    testo += voce(uno.codice).sigla;
  }
  return testo;
}

// "A 2017: 1000 0 0 0 200 0 0 0": the accounts of a payee, by reason, with the amounts in their order.
inline std::vector<std::string> contiDi(Banco& banco, const std::string& codiceFiscale) {
  const test::Righe righe(
      *banco,
      "SELECT C.Codice, T.Anno, T.OnorarioProvvigioni, T.QuotaProvvigioniNonSoggette, T.SommeNonSoggette,"
      " T.SommeNonSoggetteRegConv, T.RitenutaAcconto, T.RitenutaImposta, T.ContributoPrevidenziale,"
      " T.RitenutaPrevidenziale13 FROM ContoIndividuale T"
      " INNER JOIN Anagrafica A ON T.IDAnagrafica = A.IDAnagrafica"
      " INNER JOIN CausalePagamento C ON T.IDCausalePagamento = C.IDCausalePagamento"
      " WHERE A.CodiceFiscale = '" +
          codiceFiscale + "' ORDER BY T.Anno, C.Codice");
  std::vector<std::string> conti;
  const std::vector<std::string> nomi = righe.names();
  for (std::size_t i = 0; i < righe.size(); ++i) {
    std::string conto = righe.text(i, nomi[0]) + " " + righe.text(i, nomi[1]) + ":";
    for (std::size_t c = 2; c < nomi.size(); ++c) conto += " " + righe.amount(i, nomi[c]).toText();
    conti.push_back(conto);
  }
  return conti;
}

}  // namespace cu::intake::prova

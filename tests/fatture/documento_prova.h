#pragma once

#include <string>
#include <vector>

namespace cu::fatture::prova {

// An invoice of one's own making, written as XML: each test changes what it is about.
struct LineaProva {
  std::string importo;
  bool ritenuta = true;
  std::string iva = "22.00";
  std::string natura{};
  std::string descrizione = "Consulenza";
  std::string altro{};  // AltriDatiGestionali as XML
};
struct RitenutaProva {
  std::string importo;
  std::string aliquota = "20.00";
  std::string causale = "A";
  std::string tipo = "RT01";
};
struct CassaProva {
  std::string tipo;
  std::string importo;
  bool ritenuta = false;
};

struct DocumentoProva {
  std::string tipo = "TD01";
  std::string divisa = "EUR";
  std::string data = "2017-03-20";
  std::string numero = "12/A";
  std::vector<RitenutaProva> ritenute;
  std::vector<CassaProva> casse;
  std::vector<LineaProva> linee;
  std::string altro;  // further elements of DatiGeneraliDocumento, as XML
};

struct FileProva {
  std::string prefisso = "p:";  // of the root
  std::string regime = "RF01";
  std::string paese = "IT";
  std::string partitaIva = "12345670017";
  std::string codiceFiscale = "RSSMRA45C12F205C";
  std::string nome = "<Nome>Mario</Nome><Cognome>Rossi</Cognome>";
  std::string nazione = "IT";
  std::vector<DocumentoProva> documenti{DocumentoProva()};
};

inline std::string corpoXml(const DocumentoProva& documento) {
  std::string xml = "<FatturaElettronicaBody>\n<DatiGenerali><DatiGeneraliDocumento>\n<TipoDocumento>" +
                    documento.tipo + "</TipoDocumento><Divisa>" + documento.divisa + "</Divisa>\n<Data>" +
                    documento.data + "</Data><Numero>" + documento.numero + "</Numero>\n";
  for (const RitenutaProva& una : documento.ritenute) {
    xml += "<DatiRitenuta><TipoRitenuta>" + una.tipo + "</TipoRitenuta><ImportoRitenuta>" + una.importo +
           "</ImportoRitenuta><AliquotaRitenuta>" + una.aliquota + "</AliquotaRitenuta><CausalePagamento>" +
           una.causale + "</CausalePagamento></DatiRitenuta>\n";
  }
  for (const CassaProva& una : documento.casse) {
    xml += "<DatiCassaPrevidenziale><TipoCassa>" + una.tipo +
           "</TipoCassa><AlCassa>4.00</AlCassa><ImportoContributoCassa>" + una.importo +
           "</ImportoContributoCassa><AliquotaIVA>22.00</AliquotaIVA>" +
           (una.ritenuta ? "<Ritenuta>SI</Ritenuta>" : "") + "</DatiCassaPrevidenziale>\n";
  }
  xml += documento.altro + "</DatiGeneraliDocumento></DatiGenerali>\n<DatiBeniServizi>\n";
  int numero = 0;
  for (const LineaProva& una : documento.linee) {
    xml += "<DettaglioLinee><NumeroLinea>" + std::to_string(++numero) + "</NumeroLinea><Descrizione>" +
           una.descrizione + "</Descrizione><PrezzoTotale>" + una.importo + "</PrezzoTotale><AliquotaIVA>" +
           una.iva + "</AliquotaIVA>" + (una.ritenuta ? "<Ritenuta>SI</Ritenuta>" : "") +
           (una.natura.empty() ? "" : "<Natura>" + una.natura + "</Natura>") + una.altro +
           "</DettaglioLinee>\n";
  }
  return xml +
         "<DatiRiepilogo><AliquotaIVA>22.00</AliquotaIVA><ImponibileImporto>1.00</ImponibileImporto>"
         "<Imposta>0.22</Imposta></DatiRiepilogo>\n</DatiBeniServizi>\n"
         "<DatiPagamento><CondizioniPagamento>TP02</CondizioniPagamento><DettaglioPagamento>"
         "<ModalitaPagamento>MP05</ModalitaPagamento><DataScadenzaPagamento>2017-04-20</"
         "DataScadenzaPagamento>"
         "<ImportoPagamento>1020.00</ImportoPagamento></DettaglioPagamento></DatiPagamento>\n"
         "</FatturaElettronicaBody>\n";
}

inline std::string testataXml(const FileProva& file) {
  return "<FatturaElettronicaHeader>\n<CedentePrestatore><DatiAnagrafici><IdFiscaleIVA><IdPaese>" +
         file.paese + "</IdPaese><IdCodice>" + file.partitaIva + "</IdCodice></IdFiscaleIVA>\n" +
         (file.codiceFiscale.empty() ? "" : "<CodiceFiscale>" + file.codiceFiscale + "</CodiceFiscale>") +
         "<Anagrafica>" + file.nome + "</Anagrafica><RegimeFiscale>" + file.regime +
         "</RegimeFiscale></DatiAnagrafici>\n<Sede><Indirizzo>Via "
         "Roma</Indirizzo><NumeroCivico>1</NumeroCivico>"
         "<CAP>20100</CAP><Comune>Milano</Comune><Provincia>MI</Provincia><Nazione>" +
         file.nazione +
         "</Nazione></Sede></CedentePrestatore>\n<CessionarioCommittente><DatiAnagrafici><IdFiscaleIVA>"
         "<IdPaese>IT</IdPaese><IdCodice>00743110157</IdCodice></IdFiscaleIVA><Anagrafica>"
         "<Denominazione>Azienda "
         "Prova</Denominazione></Anagrafica></DatiAnagrafici></CessionarioCommittente>\n"
         "</FatturaElettronicaHeader>\n";
}

inline std::string fileXml(const FileProva& file = {}) {
  std::string xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<" + file.prefisso +
                    "FatturaElettronica versione=\"FPR12\"";
  if (!file.prefisso.empty()) {
    xml += " xmlns:" + file.prefisso.substr(0, file.prefisso.size() - 1) +
           "=\"http://ivaservizi.agenziaentrate.gov.it/docs/xsd/fatture/v1.2\"";
  }
  xml += ">\n" + testataXml(file);
  for (const DocumentoProva& documento : file.documenti) xml += corpoXml(documento);
  return xml + "</" + file.prefisso + "FatturaElettronica>\n";
}

// The fee note that most tests begin with: 1,000.00 and 20 %.
inline DocumentoProva parcella() {
  DocumentoProva documento;
  documento.ritenute = {{"200.00"}};
  documento.linee = {{"1000.00"}};
  return documento;
}
inline std::string parcellaXml() {
  FileProva file;
  file.documenti = {parcella()};
  return fileXml(file);
}

}  // namespace cu::fatture::prova

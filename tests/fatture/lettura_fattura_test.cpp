#include "fatture/lettura_fattura.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "fatture/busta.h"
#include "fatture/busta_prova_support.h"
#include "fatture/documento_prova.h"

namespace cu::fatture {
namespace {

using namespace prova;

// "V03 riga 12 DatiRitenuta/ImportoRitenuta" of each message, of the file first.
std::string rilieviDi(const Letto& letto) {
  std::string esito;
  const auto aggiungi = [&](const Rilievo& uno) {
    esito +=
        (esito.empty() ? "" : "; ") + uno.codice + (uno.avviso ? " avviso" : "") + " " + uno.posto.elemento;
  };
  std::for_each(letto.rilievi.begin(), letto.rilievi.end(), aggiungi);
  for (const Fattura& una : letto.fatture) std::for_each(una.rilievi.begin(), una.rilievi.end(), aggiungi);
  return esito;
}

std::string sostituito(std::string testo, const std::string& cosa, const std::string& con) {
  const std::size_t dove = testo.find(cosa);
  EXPECT_NE(dove, std::string::npos) << cosa;
  return testo.replace(dove, cosa.size(), con);
}

Letto leggi(const std::string& xml) { return leggiFattura(xml, "prova.xml"); }

TEST(LetturaFattura, ReadsPartiesDocumentBlocksAndLines) {
  FileProva file;
  DocumentoProva documento = parcella();
  documento.casse = {{"TC22", "40.00", true}};
  documento.linee.push_back({"2.00", false, "0.00", "N1", "Bollo"});
  documento.altro =
      "<DatiBollo><BolloVirtuale>SI</BolloVirtuale><ImportoBollo>2.00</ImportoBollo></DatiBollo>"
      "<ScontoMaggiorazione><Tipo>SC</Tipo><Importo>10.00</Importo></ScontoMaggiorazione>"
      "<ImportoTotaleDocumento>1222.00</ImportoTotaleDocumento><Causale>Prima</Causale><Causale>Seconda</"
      "Causale>";
  file.documenti = {documento};
  const Letto letto = leggi(fileXml(file));
  ASSERT_EQ(rilieviDi(letto), "");
  EXPECT_EQ(letto.genere, Genere::Fatture);
  EXPECT_EQ(letto.titolo, "fattura elettronica");
  ASSERT_EQ(letto.fatture.size(), 1U);
  const Fattura& una = letto.fatture[0];
  EXPECT_EQ(una.cedente.nominativo(), "Rossi Mario");
  EXPECT_EQ(una.cedente.paese + una.cedente.partitaIva, "IT12345670017");
  EXPECT_EQ(una.cedente.codiceFiscale, "RSSMRA45C12F205C");
  EXPECT_EQ(una.cedente.sede.comune, "Milano");
  EXPECT_EQ(una.cedente.regime, "RF01");
  EXPECT_EQ(una.committente.partitaIva, "00743110157");
  EXPECT_EQ(una.tipo + " " + una.numero + " " + una.data->toIso(), "TD01 12/A 2017-03-20");
  ASSERT_EQ(una.ritenute.size(), 1U);
  EXPECT_EQ(una.ritenute[0].tipo + una.ritenute[0].causale, "RT01A");
  EXPECT_EQ(una.ritenute[0].importo->toText(), "200");
  ASSERT_EQ(una.casse.size(), 1U);
  EXPECT_TRUE(una.casse[0].ritenuta);
  ASSERT_EQ(una.linee.size(), 2U);
  EXPECT_TRUE(una.linee[0].ritenuta);
  EXPECT_EQ(una.linee[1].natura, "N1");
  EXPECT_EQ(una.bollo->importo->toText(), "2");
  EXPECT_EQ(una.sconti[0].importo->arrotondato().toText(), "10");
  EXPECT_EQ(una.totale->toText(), "1222");
  EXPECT_EQ(una.causali, (std::vector<std::string>{"Prima", "Seconda"}));
  EXPECT_EQ(una.riepiloghi.size(), 1U);
  EXPECT_EQ(una.scadenze[0].data->toIso(), "2017-04-20");
  EXPECT_EQ(una.scadenze[0].importo->toText(), "1020");
}

TEST(LetturaFattura, ReadsLocalNamesWithAnyPrefixAndNone) {
  for (const char* prefisso : {"p:", "ns0:", "q1:", ""}) {
    FileProva file;
    file.prefisso = prefisso;
    file.documenti = {parcella()};
    EXPECT_EQ(rilieviDi(leggi(fileXml(file))), "") << prefisso;
  }
  const std::string senza = sostituito(
      parcellaXml(), " xmlns:p=\"http://ivaservizi.agenziaentrate.gov.it/docs/xsd/fatture/v1.2\"", "");
  EXPECT_EQ(rilieviDi(leggi(senza)), "");
  const std::string strano = sostituito(parcellaXml(), "fatture/v1.2", "fatture/v1.2#&quot; ");
  EXPECT_EQ(rilieviDi(leggi(strano)), "");
}

TEST(LetturaFattura, ReadsATextWithMarkWithoutDeclarationAndWithStyleSheet) {
  const std::string xml = parcellaXml();
  const std::string nuda = xml.substr(xml.find('\n') + 1);
  for (const std::string& testo : {"\xef\xbb\xbf" + xml, nuda, "\n " + nuda,
                                   "<?xml-stylesheet type=\"text/xsl\" href=\"x.xsl\"?>" + nuda}) {
    const Letto letto = leggi(testo);
    EXPECT_EQ(rilieviDi(letto), "");
    EXPECT_EQ(letto.fatture.size(), 1U);
  }
}

TEST(LetturaFattura, ReadsEncodingsAndKeepsUtf8UnderAWrongDeclaration) {
  FileProva file;
  file.documenti = {parcella()};
  file.nome = "<Denominazione>Caff\xc3\xa8 \xe2\x82\xac</Denominazione>";
  const std::string utf8 = fileXml(file);
  const std::string dichiarato = sostituito(utf8, "UTF-8", "windows-1252");
  EXPECT_EQ(leggi(dichiarato).fatture.at(0).cedente.denominazione, "Caffè €");
  const std::string vero = sostituito(dichiarato, "\xc3\xa8 \xe2\x82\xac", "\xe8 \x80");
  EXPECT_EQ(leggi(vero).fatture.at(0).cedente.denominazione, "Caffè €");
  const std::string falso = sostituito(utf8, "\xc3\xa8 \xe2\x82\xac", "\xe8");
  const Letto rotto = leggi(falso);
  ASSERT_EQ(rotto.rilievi.size(), 1U);
  EXPECT_EQ(rotto.rilievi[0].codice, "F03");
  EXPECT_EQ(rotto.rilievi[0].posto.riga, 5U);
  std::string largo = "\xff\xfe";
  for (const char c : parcellaXml()) {
    largo += c;
    largo += '\0';
  }
  EXPECT_EQ(leggi(largo).fatture.size(), 1U);
}

TEST(LetturaFattura, AcceptsZonesBlanksAndLowerCase) {
  std::string xml = sostituito(parcellaXml(), "2017-03-20", "2017-03-20+01:00");
  xml = sostituito(xml, "<Numero>12/A", "<Numero> 12/A\n");
  xml = sostituito(xml, "RSSMRA45C12F205C", "rssmra45c12f205c ");
  xml = sostituito(xml, "12345670017", "IT12345670017");
  const Letto letto = leggi(xml);
  ASSERT_EQ(rilieviDi(letto), "");
  EXPECT_EQ(letto.fatture[0].data->toIso(), "2017-03-20");
  EXPECT_EQ(letto.fatture[0].numero, "12/A");
  EXPECT_EQ(letto.fatture[0].cedente.codiceFiscale, "RSSMRA45C12F205C");
  EXPECT_EQ(letto.fatture[0].cedente.partitaIva, "12345670017");
}

TEST(LetturaFattura, RestoresTheLeadingZerosOfAVatNumberWithAWarning) {
  const Letto letto = leggi(sostituito(parcellaXml(), "00743110157", "743110157"));
  EXPECT_EQ(letto.fatture.at(0).committente.partitaIva, "00743110157");
  EXPECT_EQ(rilieviDi(letto), "V09 avviso CessionarioCommittente/DatiAnagrafici/IdFiscaleIVA/IdCodice");
}

TEST(LetturaFattura, ReadsSeveralDocumentsOfOneFile) {
  FileProva file;
  file.documenti = {parcella(), parcella(), parcella()};
  file.documenti[1].numero = "13";
  file.documenti[2].data = "2017-02-30";
  const Letto letto = leggi(fileXml(file));
  ASSERT_EQ(letto.fatture.size(), 3U);
  EXPECT_EQ(letto.fatture[1].numero, "13");
  EXPECT_EQ(letto.fatture[1].cedente.cognome, "Rossi");
  EXPECT_FALSE(letto.fatture[0].conErrori());
  ASSERT_EQ(letto.fatture[2].rilievi.size(), 1U);
  const std::string atteso = "«2017-02-30» non è una data (V01).";
  const std::string testo = detto(letto.fatture[2].rilievi[0]);
  EXPECT_EQ(testo.substr(testo.size() - atteso.size()), atteso);
  EXPECT_EQ(testo.substr(0, 29), "prova.xml, documento 3, riga ");
}

TEST(LetturaFattura, NamesLineAndElementOfWhatIsNoAmount) {
  const Letto letto = leggi(sostituito(parcellaXml(), "<ImportoRitenuta>200.00", "<ImportoRitenuta>200,0O"));
  ASSERT_EQ(letto.fatture.size(), 1U);
  ASSERT_EQ(letto.fatture[0].rilievi.size(), 1U);
  EXPECT_EQ(detto(letto.fatture[0].rilievi[0]),
            "prova.xml, riga 13, elemento DatiRitenuta/ImportoRitenuta: «200,0O» non è un importo (V03).");
  EXPECT_FALSE(letto.fatture[0].ritenute[0].importo.has_value());
}

TEST(LetturaFattura, ReportsWhatIsMissingTwiceOrOfAnotherCurrency) {
  const std::string xml = parcellaXml();
  EXPECT_EQ(rilieviDi(leggi(sostituito(xml, "<ImportoRitenuta>200.00</ImportoRitenuta>", ""))),
            "C01 DatiRitenuta/ImportoRitenuta");
  EXPECT_EQ(rilieviDi(leggi(sostituito(xml, "<PrezzoTotale>1000.00</PrezzoTotale>", ""))),
            "C01 DettaglioLinee/PrezzoTotale");
  const Letto senzaNome = leggi(sostituito(xml, "<Nome>Mario</Nome><Cognome>Rossi</Cognome>", ""));
  ASSERT_EQ(rilieviDi(senzaNome), "C01 CedentePrestatore/DatiAnagrafici/Anagrafica");
  EXPECT_EQ(
      detto(senzaNome.fatture[0].rilievi[0]),
      "prova.xml, elemento CedentePrestatore/DatiAnagrafici/Anagrafica: l'elemento manca o è vuoto (C01).");
  EXPECT_EQ(rilieviDi(leggi(sostituito(xml, "<Numero>12/A</Numero>", "<Numero>  </Numero>"))),
            "C01 DatiGeneraliDocumento/Numero");
  EXPECT_EQ(rilieviDi(leggi(sostituito(xml, "<Numero>12/A", "<Numero>11</Numero><Numero>12/A"))),
            "C02 DatiGeneraliDocumento/Numero");
  EXPECT_EQ(rilieviDi(leggi(sostituito(xml, ">EUR<", ">USD<"))), "V05 DatiGeneraliDocumento/Divisa");
  EXPECT_EQ(rilieviDi(leggi(sostituito(xml, ">SI<", ">FORSE<"))), "V05 DettaglioLinee/Ritenuta");
  EXPECT_EQ(rilieviDi(leggi(sostituito(xml, ">200.00<", ">200.004<"))),
            "V04 avviso DatiRitenuta/ImportoRitenuta");
  EXPECT_EQ(rilieviDi(leggi(sostituito(xml, ">20.00<", ">120.00<"))), "V03 DatiRitenuta/AliquotaRitenuta");
}

TEST(LetturaFattura, PassesOverAttachmentsAndSignatures) {
  std::string xml =
      sostituito(parcellaXml(), "</FatturaElettronicaBody>",
                 "<Allegati><NomeAttachment>a</NomeAttachment><Attachment>" + std::string(200000, 'A') +
                     "</Attachment></Allegati></FatturaElettronicaBody>");
  xml = sostituito(xml, "</p:FatturaElettronica>",
                   "<ds:Signature><ds:SignedInfo>" + std::string(50000, 'B') +
                       "</ds:SignedInfo></ds:Signature></p:FatturaElettronica>");
  EXPECT_EQ(rilieviDi(leggi(xml)), "");
}

TEST(LetturaFattura, RecognisesNotificationsMetadataAndOtherDocuments) {
  const auto con = [](const std::string& radice) {
    return leggi("<?xml version=\"1.0\"?><ns3:" + radice + " xmlns:ns3=\"x\"><A/></ns3:" + radice + ">");
  };
  EXPECT_EQ(con("RicevutaConsegna").genere, Genere::Notifica);
  EXPECT_EQ(con("RicevutaConsegna").titolo, "ricevuta di consegna");
  EXPECT_EQ(con("MetadatiInvioFile").genere, Genere::Metadati);
  EXPECT_EQ(rilieviDi(con("MetadatiInvioFile")), "");
  EXPECT_EQ(con("stylesheet").genere, Genere::Altro);
  EXPECT_EQ(rilieviDi(con("stylesheet")), "F02 ");
}

TEST(LetturaFattura, ReadsThePartiesOfASimplifiedInvoice) {
  const Letto letto = leggi(
      "<n:FatturaElettronicaSemplificata "
      "xmlns:n=\"x\"><FatturaElettronicaHeader><CedentePrestatore><IdFiscaleIVA>"
      "<IdPaese>IT</IdPaese><IdCodice>12345670017</IdCodice></IdFiscaleIVA><Denominazione>Bar</Denominazione>"
      "<RegimeFiscale>RF19</RegimeFiscale></CedentePrestatore><CessionarioCommittente><IdentificativiFiscali>"
      "<CodiceFiscale>80015110580</CodiceFiscale></IdentificativiFiscali></CessionarioCommittente>"
      "</FatturaElettronicaHeader><FatturaElettronicaBody><DatiGenerali><DatiGeneraliDocumento>"
      "<TipoDocumento>TD07</TipoDocumento><Divisa>EUR</Divisa><Data>2022-01-02</Data><Numero>1</Numero>"
      "</DatiGeneraliDocumento></DatiGenerali></FatturaElettronicaBody></n:FatturaElettronicaSemplificata>");
  ASSERT_EQ(rilieviDi(letto), "");
  EXPECT_TRUE(letto.fatture.at(0).semplificata);
  EXPECT_EQ(letto.fatture[0].cedente.denominazione, "Bar");
  EXPECT_EQ(letto.fatture[0].committente.codiceFiscale, "80015110580");
}

TEST(LetturaFattura, RejectsADocumentTypeDefinition) {
  const std::string bomba =
      "<?xml version=\"1.0\"?><!DOCTYPE a [<!ENTITY b \"bbbb\"><!ENTITY c "
      "\"&b;&b;\">]><FatturaElettronica>&c;"
      "</FatturaElettronica>";
  EXPECT_EQ(rilieviDi(leggi(bomba)), "F04 ");
  EXPECT_EQ(leggi(bomba).genere, Genere::Illeggibile);
}

TEST(LetturaFattura, RejectsWhatIsDamagedWithItsLine) {
  const std::string xml = parcellaXml();
  const Letto tronco = leggi(xml.substr(0, xml.size() / 2));
  ASSERT_EQ(tronco.rilievi.size(), 1U);
  EXPECT_EQ(tronco.rilievi[0].codice, "F03");
  EXPECT_GT(tronco.rilievi[0].posto.riga, 5U);
  EXPECT_TRUE(tronco.fatture.empty());
  EXPECT_EQ(leggi(sostituito(xml, "</Data>", "</Dato>")).rilievi.at(0).codice, "F03");
  EXPECT_EQ(leggi("<FatturaElettronica/>").rilievi.at(0).codice, "F03");
  EXPECT_EQ(leggi(sostituito(xml, "12/A", "&niente;")).rilievi.at(0).codice, "F03");
}

TEST(LetturaFattura, RejectsWhatIsBeyondALimit) {
  std::string profondo = "<FatturaElettronica>";
  for (int i = 0; i < 100000; ++i) profondo += "<a>";
  EXPECT_EQ(leggi(profondo).rilievi.at(0).codice, "F05");
  const std::string xml = parcellaXml();
  EXPECT_EQ(leggi(sostituito(xml, "12/A", std::string(20000, 'x'))).rilievi.at(0).codice, "F05");
  const auto con = [&](const std::string& testo, auto membro, auto valore) {
    Limiti limiti;
    limiti.*membro = valore;
    const Letto letto = leggiFattura(testo, "prova.xml", limiti);
    return letto.rilievi.empty() ? std::string() : letto.rilievi[0].codice;
  };
  FileProva due;
  due.documenti = {parcella(), parcella()};
  EXPECT_EQ(con(fileXml(due), &Limiti::documenti, std::size_t{1}), "F05");
  EXPECT_EQ(con(xml, &Limiti::elementi, std::size_t{20}), "F05");
  EXPECT_EQ(con(xml, &Limiti::byte, std::size_t{500}), "F05");
  FileProva righe;
  righe.documenti = {parcella()};
  righe.documenti[0].linee.push_back({"1.00"});
  EXPECT_EQ(con(fileXml(righe), &Limiti::gruppi, std::size_t{1}), "F05");
}

TEST(LetturaFattura, GivesTheSameContentDigestForAnEnvelopeAndItsDocument) {
  const std::string xml = parcellaXml();
  const Letto piano = leggi(xml);
  const Letto busta = leggiFattura(firmato(xml), "prova.xml.p7m");
  EXPECT_EQ(busta.fatture.size(), 1U);
  EXPECT_EQ(busta.sha256Contenuto, piano.sha256Contenuto);
  EXPECT_NE(busta.sha256, piano.sha256);
  EXPECT_EQ(piano.sha256, sha256(xml));
  EXPECT_EQ(piano.dimensione, xml.size());
}

}  // namespace
}  // namespace cu::fatture

#include "reporting/company.h"

#include "base/text.h"
#include "reporting/italian.h"
#include "reporting/rows.h"

namespace cu::reporting {
namespace {

constexpr const char* kCompany =
    "SELECT Anag.Anagrafica, Anag.Nome, Anag.CodiceFiscale, Anag.PartitaIva, Anag.Indirizzo, Anag.Cap,"
    " Comune.Comune, Provincia.Provincia, Nazione.Nazione, Anag.Telefono, Anag.EMailInternet,"
    " Rapp.Anagrafica AS CognomeRapp, Rapp.Nome AS NomeRapp, Carica.CodiceCarica AS Carica"
    " FROM Azienda"
    " LEFT JOIN Anagrafica Anag ON Azienda.IDAnagrafica = Anag.IDAnagrafica"
    " LEFT JOIN Comune ON Anag.IDComune = Comune.IDComune"
    " LEFT JOIN Provincia ON Comune.IDProvincia = Provincia.IDProvincia"
    " LEFT JOIN Nazione ON Anag.IDNazione = Nazione.IDNazione"
    " LEFT JOIN ConfigurazioneGenerale Conf ON Azienda.IDAzienda = Conf.IDAzienda"
    " LEFT JOIN Anagrafica Rapp ON Conf.IDAnagraficaRappresentante = Rapp.IDAnagrafica"
    " LEFT JOIN CodiceCarica Carica ON Conf.IDCodiceCaricaRappresentante = Carica.IDCodiceCarica"
    " WHERE Azienda.IDAzienda = ";

// Both texts, or the non-empty one.
QString joined(const QString& first, const QString& second, const QString& mark) {
  return first.isEmpty() || second.isEmpty() ? first + second : first + mark + second;
}

QString labelled(const QString& label, const QString& text) { return text.isEmpty() ? text : label + text; }

}  // namespace

Company readCompany(Connection& connection, std::int32_t idAzienda) {
  Rows rows(connection, kCompany + fromInteger(idAzienda));
  Company company;
  if (rows.size() == 0) return company;
  rows.move(0);
  const auto text = [&](const char* column) { return rows.text(column).trimmed(); };
  company.name = joined(text("Anagrafica"), text("Nome"), " ");
  company.address =
      addressLine(text("Indirizzo"), text("Cap"), text("Comune"), text("Provincia"), text("Nazione"));
  company.town = text("Comune");
  company.codes = joined(labelled("Codice fiscale ", text("CodiceFiscale")),
                         labelled("Partita IVA ", text("PartitaIva")), " - ");
  company.contacts = joined(labelled("Tel. ", text("Telefono")), text("EMailInternet"), " - ");
  company.representative = joined(text("NomeRapp"), text("CognomeRapp"), " ");
  company.office = text("Carica");
  return company;
}

}  // namespace cu::reporting
